#!/bin/bash
# Animated GIF of the full turn about Oz of a 100 x 100 torus trellis at
# 1600 x 1000 (x = (3+cos a)cos t, y = (3+cos a)sin t, z = sin a, a and t over
# [0, 6.28] in 100 lines each, the view -4..4 on every axis), made by one or
# more builds of velorin (`exporte --tour oz+`) and by gnuplot (`set term gif
# animate`, isosamples and samples 100,100, 72 views 5 degrees apart), the
# programs alternated run by run, N runs (5 unless given). Prints for every
# run the wall time, the CPU time (user + system) and the peak memory
# (/usr/bin/time -v), the file's size and its pictures; then each side's
# medians with their spread (min-max) and velorin's ratios to gnuplot.
# The torus is added to a copy of the gallery (Espace_courbes/Lisurf.lsu
# beside the first build; the galeries target makes it). gnuplot is only
# needed here (Debian: gnuplot-nox).
#
#   bench/gif_tour.sh [-n N] VELORIN [VELORIN ...]
set -uo pipefail
n=5
if [ "${1:-}" = -n ]; then n=$2; shift 2; fi
[ $# -ge 1 ] || { echo "usage : gif_tour.sh [-n N] VELORIN [VELORIN ...]" >&2; exit 2; }
source "$(dirname "${BASH_SOURCE[0]}")/commun.sh"
prepareDossierTore "$1"
pas=0.0634343  # 6.28 / 99
memoireParametres "$dossier/mem.log" "$pas"
cat >"$dossier/tore.gp" <<'FIN'
set term gif animate delay 5 size 1600,1000
set output ARG1
set parametric
set urange [0:6.28]
set vrange [0:6.28]
set samples 100,100
set isosamples 100,100
set xrange [-4:4]
set yrange [-4:4]
set zrange [-4:4]
unset key
do for [i=0:71] {
  set view 60, i*5
  splot (3+cos(u))*cos(v), (3+cos(u))*sin(v), sin(u) with lines
}
FIN

# Pictures of a GIF file, counted by walking its blocks.
images() {
    python3 - "$1" <<'FIN'
import sys
d = open(sys.argv[1], "rb").read()
table = lambda f: 3 << ((f & 7) + 1) if f & 0x80 else 0
def blocs(i):
    while d[i]:
        i += d[i] + 1
    return i + 1
i, n = 13 + table(d[10]), 0
while d[i] != 0x3B:
    if d[i] == 0x21:
        i = blocs(i + 2)
    else:
        i = blocs(i + 11 + table(d[i + 9]))
        n += 1
print(n)
FIN
}


declare -A reel cpu mem taille
noms=("$@" gnuplot)
for ((i = 1; i <= n; i++)); do
    for b in $(seq 1 ${#noms[@]}); do
        sortie="$dossier/tour$b.gif"
        rm -f "$sortie"
        if [ "$b" -le $# ]; then
            commande=("${!b}" exporte --dossier "$dossier" --catalogue tore.lsu --entree "$entree" --taille 1600x1000
                --tour oz+ --sortie "$sortie")
        else
            commande=(gnuplot -c "$dossier/tore.gp" "$sortie")
        fi
        read -r s c mo octets code < <(chronometre "$sortie" "${commande[@]}")
        echo "${noms[b - 1]} run $i : ${s} s, CPU ${c} s, $mo Mo, $octets octets," \
            "$(images "$sortie" 2>/dev/null || echo 0) images, code $code"
        reel[$b]+="$s "
        cpu[$b]+="$c "
        mem[$b]+="$mo "
        taille[$b]+="$octets "
    done
done
g=${#noms[@]}
for b in $(seq 1 $g); do
    echo "${noms[b - 1]} : réel $(resume "${reel[$b]}") s, CPU $(resume "${cpu[$b]}") s," \
        "mémoire $(resume "${mem[$b]}") Mo, taille $(resume "${taille[$b]}") octets"
done
for b in $(seq 1 $#); do
    awk -v r="$(mediane "${reel[$b]}")" -v gr="$(mediane "${reel[$g]}")" -v c="$(mediane "${cpu[$b]}")" \
        -v gc="$(mediane "${cpu[$g]}")" -v m="$(mediane "${mem[$b]}")" -v gm="$(mediane "${mem[$g]}")" \
        -v t="$(mediane "${taille[$b]}")" -v n="${!b}" \
        'BEGIN {printf "%s / gnuplot : réel %.3f, CPU %.3f (objectif <= 0.25), mémoire %.2f (<= 1), taille %.2f Mo (<= 3)\n",
                n, r / gr, c / gc, m / gm, t / 1e6}'
done
