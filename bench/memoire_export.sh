#!/bin/bash
# Peak memory of the SVG and PDF export of six surfaces of ten million points
# each (entries 7 to 12 of the space gallery, both families of lines, a and
# t each in 2236 steps: 2 x 2236 x 2236 points a surface), for one or more
# builds of velorin, each run N times (3 unless given), the builds alternated
# run by run. Prints, per build and format, the maximum resident set size of
# every run (/usr/bin/time -v) and their median, the wall time, the exit
# status and the file's size. The gallery (Espace_courbes/Lisurf.lsu) is taken
# beside the first build (the galeries target makes it).
#
#   bench/memoire_export.sh [-n N] VELORIN [VELORIN ...]
set -uo pipefail
n=3
if [ "${1:-}" = -n ]; then n=$2; shift 2; fi
[ $# -ge 1 ] || { echo "usage : memoire_export.sh [-n N] VELORIN [VELORIN ...]" >&2; exit 2; }
source "$(dirname "${BASH_SOURCE[0]}")/commun.sh"
verifieOutils sansgnuplot
galerie="$(dirname "$1")/Espace_courbes/Lisurf.lsu"
[ -f "$galerie" ] || { echo "$galerie manque (cmake --build ... --target galeries)" >&2; exit 2; }
dossier=$(mktemp -d)
trap 'rm -rf "$dossier"' EXIT
cp "$galerie" "$dossier/"
pas=0.0028098  # 6.28 / 2235
memoireParametres "$dossier/mem.log" "$pas" 10
entrees=()
for e in 7 8 9 10 11 12; do entrees+=(--entree "$e"); done

declare -A pics
for ((i = 1; i <= n; i++)); do
    for format in svg pdf; do
        for b in $(seq 1 $#); do
            velorin=${!b}
            sortie="$dossier/six.$format"
            rm -f "$sortie"
            mesure=$(/usr/bin/time -v "$velorin" exporte --dossier "$dossier" --catalogue Lisurf.lsu "${entrees[@]}" \
                --ordre 2 --sortie "$sortie" 2>&1 >/dev/null)
            code=$?
            kb=$(sed -n 's/.*Maximum resident set size (kbytes): //p' <<<"$mesure")
            duree=$(sed -n 's/.*Elapsed (wall clock) time (h:mm:ss or m:ss): //p' <<<"$mesure")
            taille=$(stat -c %s "$sortie" 2>/dev/null || echo absent)
            echo "$velorin $format run $i : $((kb / 1024)) Mo, $duree, code $code, fichier $taille octets"
            grep -v '^	' <<<"$mesure" | grep -v '^Command' | head -3
            pics[$b,$format]+="$((kb / 1024)) "
        done
    done
done
for b in $(seq 1 $#); do
    for format in svg pdf; do
        mediane=$(tr ' ' '\n' <<<"${pics[$b,$format]}" | grep . | sort -n | awk '{v[NR]=$1} END {print v[int((NR+1)/2)]}')
        echo "${!b} $format : médiane ${mediane} Mo (${pics[$b,$format]% })"
    done
done
