#!/bin/bash
# PNG export at 1600 x 1000 of the torus trellis (x = (3+cos a)cos t,
# y = (3+cos a)sin t, z = sin a, a and t over [0, 6.28] in P lines each, both
# families: `exporte --ordre 2`) by one or more builds of velorin, and by
# gnuplot (`set term pngcairo`, isosamples and samples P,P), for P = 800 and
# 200 unless given, the programs alternated run by run, N runs (5 unless
# given). Prints for every run the wall time, the CPU time (user + system),
# the peak memory (/usr/bin/time -v) and the file's size; then, for each
# mesh, each side's medians with their spread (min-max) and velorin's ratios
# to gnuplot. The torus is added to a copy of the gallery
# (Espace_courbes/Lisurf.lsu beside the first build; the galeries target
# makes it). gnuplot is only needed here (Debian: gnuplot-nox).
#
#   bench/treillis.sh [-n N] [-p "800 200"] VELORIN [VELORIN ...]
set -uo pipefail
n=5
maillages="800 200"
while [ $# -gt 0 ]; do
    case "$1" in
    -n) n=$2; shift 2 ;;
    -p) maillages=$2; shift 2 ;;
    *) break ;;
    esac
done
[ $# -ge 1 ] || { echo "usage : treillis.sh [-n N] [-p \"800 200\"] VELORIN [VELORIN ...]" >&2; exit 2; }
source "$(dirname "${BASH_SOURCE[0]}")/commun.sh"
prepareDossierTore "$1"
cat >"$dossier/tore.gp" <<'FIN'
set term pngcairo size 1600,1000
set output ARG1
set parametric
set urange [0:6.28]
set vrange [0:6.28]
P = int(ARG2)
set samples P,P
set isosamples P,P
set xrange [-4:4]
set yrange [-4:4]
set zrange [-4:4]
unset key
splot (3+cos(u))*cos(v), (3+cos(u))*sin(v), sin(u) with lines
FIN


noms=("$@" gnuplot)
g=${#noms[@]}
for p in $maillages; do
    # P lines over [0, 6.28]: the step 6.28 / (P - 1), rounded down so that
    # the last line is not lost to rounding.
    pas=$(awk -v p="$p" 'BEGIN {printf "%.7f", int(6.28 / (p - 1) * 1e7) / 1e7}')
    mkdir -p "$dossier/$p"
    cp "$dossier/tore.lsu" "$dossier/$p/"
    memoireParametres "$dossier/$p/mem.log" "$pas"
    declare -A reel=() cpu=() mem=() taille=()
    for ((i = 1; i <= n; i++)); do
        for b in $(seq 1 $g); do
            sortie="$dossier/$p/tore$b.png"
            rm -f "$sortie"
            if [ "$b" -lt $g ]; then
                commande=("${!b}" exporte --dossier "$dossier/$p" --catalogue tore.lsu --entree "$entree"
                    --taille 1600x1000 --ordre 2 --sortie "$sortie")
            else
                commande=(gnuplot -c "$dossier/tore.gp" "$sortie" "$p")
            fi
            read -r s c mo octets code < <(chronometre "$sortie" "${commande[@]}")
            echo "$p x $p ${noms[b - 1]} run $i : ${s} s, CPU ${c} s, $mo Mo, $octets octets, code $code"
            reel[$b]+="$s "
            cpu[$b]+="$c "
            mem[$b]+="$mo "
            taille[$b]+="$octets "
        done
    done
    for b in $(seq 1 $g); do
        echo "$p x $p ${noms[b - 1]} : réel $(resume "${reel[$b]}") s, CPU $(resume "${cpu[$b]}") s," \
            "mémoire $(resume "${mem[$b]}") Mo, taille $(resume "${taille[$b]}") octets"
    done
    objectif=$([ "$p" = 800 ] && echo 0.045 || ([ "$p" = 200 ] && echo 0.15 || echo "?"))
    for b in $(seq 1 $((g - 1))); do
        awk -v r="$(mediane "${reel[$b]}")" -v gr="$(mediane "${reel[$g]}")" -v c="$(mediane "${cpu[$b]}")" \
            -v gc="$(mediane "${cpu[$g]}")" -v n="${!b}" -v p="$p" -v o="$objectif" \
            'BEGIN {printf "%s x %s %s / gnuplot : réel %.3f, CPU %.3f (objectif <= %s)\n", p, p, n, r / gr, c / gc, o}'
    done
done
