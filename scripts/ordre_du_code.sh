#!/bin/bash
# Writes cmake/ordre_du_code.txt: the code sections of the functions that
# velorin runs for the exports measured in bench/ (the full-turn GIF of the
# torus trellis, its PNG with both families, its hidden-part PNG): those of
# the GIF first, then those only the next exports run, each group in the
# order it has in VELORIN. The link of the program lays these functions
# out side by side (gold, --section-ordering-file), so that an export maps
# into memory only the pages of the code it runs, not the whole program.
#
# VELORIN must come from a build tree made with -ffunction-sections (any
# Release build where gold is found): the section of each function is read
# from that tree's libraries. The runs go through valgrind's callgrind at a
# small size (400 x 250): the code run is the same at any size. A list left
# behind by later changes only costs memory: names that no longer exist are
# passed over by the linker, new functions go after the listed ones.
#
#   scripts/ordre_du_code.sh build/velorin
set -euo pipefail
[ $# -eq 1 ] || { echo "usage : ordre_du_code.sh VELORIN" >&2; exit 2; }
command -v valgrind >/dev/null || { echo "valgrind manque (apt-get install valgrind)" >&2; exit 2; }
velorin=$(realpath "$1")
arbre=$(dirname "$velorin")
racine=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
source "$racine/bench/commun.sh"
verifieOutils sansgnuplot
prepareDossierTore "$velorin"
memoireParametres "$dossier/mem.log" 0.0634343

essais=(
    "--tour oz+ --sortie $dossier/tour.gif"
    "--ordre 2 --sortie $dossier/tore.png"
    "--rendu pointilles --sortie $dossier/cache.png"
)
k=0
for essai in "${essais[@]}"; do
    k=$((k + 1))
    # shellcheck disable=SC2086
    valgrind --tool=callgrind --dump-instr=yes --compress-pos=no --compress-strings=no \
        --callgrind-out-file="$dossier/appels$k" "$velorin" exporte --dossier "$dossier" --catalogue tore.lsu \
        --entree "$entree" --taille 400x250 $essai >/dev/null 2>&1 ||
        { echo "échec de : velorin exporte $essai" >&2; exit 1; }
done

python3 - "$velorin" "$arbre" "$racine/cmake/ordre_du_code.txt" "$dossier"/appels* <<'FIN'
import bisect, glob, subprocess, sys
velorin, arbre, sortie, appels = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:]

# Addresses of the instructions run in the program, each with the first run
# that ran it.
adresses = {}
for rang, fichier in enumerate(appels):
    objet = None
    for ligne in open(fichier):
        if ligne.startswith("ob="):
            objet = ligne[3:].strip()
        elif objet == velorin and ligne.startswith("0x"):
            adresses.setdefault(int(ligne.split()[0], 16), rang)

# The program's functions, by address; those with an instruction run.
fonctions = []
for ligne in subprocess.run(["nm", "-S", "--defined-only", velorin], capture_output=True, text=True,
                            check=True).stdout.splitlines():
    champs = ligne.split()
    if len(champs) == 4 and champs[2] in "tTWw":
        fonctions.append((int(champs[0], 16), int(champs[1], 16), champs[3]))
fonctions.sort()
debuts = [f[0] for f in fonctions]
lancees = {}  # name: (first run, address)
for a, rang in adresses.items():
    i = bisect.bisect_right(debuts, a) - 1
    if i >= 0 and a < fonctions[i][0] + fonctions[i][1]:
        cle = (rang, fonctions[i][0])
        lancees[fonctions[i][2]] = min(lancees.get(fonctions[i][2], cle), cle)

# The section of each one in the objects linked into the program.
sections = {}
objets = glob.glob(arbre + "/src/*/*.a") + glob.glob(arbre + "/CMakeFiles/velorin.dir/src/*.o")
for ligne in subprocess.run(["objdump", "-t"] + objets, capture_output=True, text=True, check=True).stdout.splitlines():
    champs = ligne.split()
    section = next((c for c in champs if c.startswith(".text.")), None)
    if section and champs[-1] in lancees:
        sections[champs[-1]] = section
if len(sections) < len(lancees) // 2:
    sys.exit("ordre_du_code.sh : les fonctions n'ont pas de section à elles (construire avec -ffunction-sections)")

with open(sortie, "w") as f:
    for nom in sorted(sections, key=lancees.get):
        f.write(sections[nom] + "\n")
print(len(sections), "sections de", len(lancees), "fonctions lancées ->", sortie)
FIN
