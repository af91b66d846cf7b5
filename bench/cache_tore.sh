#!/bin/bash
# Hidden parts of a 200 x 200 torus (x = (3+cos a)cos t, y = (3+cos a)sin t,
# z = sin a, a and t over [0, 6.28] in 200 lines each, the view -4..4 on
# every axis, seen from 31 degrees above its plane as gnuplot's default view
# sees it from 30) drawn dashed, at 1600 x 1000 in PNG and in SVG, by one or more
# builds of velorin (`exporte --rendu pointilles`) and by gnuplot (`set
# hidden3d`, isosamples and samples 200,200, pngcairo 1600,1000 and svg
# 1600,1000), the programs alternated run by run, N runs (5 unless given).
# Prints for every run the wall time, the CPU time (user + system), the peak
# memory (/usr/bin/time -v) and the file's size; then each side's medians
# with their spread (min-max) and velorin's ratios to gnuplot, format by
# format. Targets: whole-process time <= 0.15 x gnuplot's, the SVG no larger
# than gnuplot's.
# The torus is added to a copy of the gallery (Espace_courbes/Lisurf.lsu
# beside the first build; the galeries target makes it). gnuplot is only
# needed here (Debian: gnuplot-nox).
#
#   bench/cache_tore.sh [-n N] VELORIN [VELORIN ...]
set -uo pipefail
n=5
if [ "${1:-}" = -n ]; then n=$2; shift 2; fi
[ $# -ge 1 ] || { echo "usage : cache_tore.sh [-n N] VELORIN [VELORIN ...]" >&2; exit 2; }
source "$(dirname "${BASH_SOURCE[0]}")/commun.sh"
prepareDossierTore "$1"
pas=0.0315578  # 6.28 / 199
memoireParametres "$dossier/mem.log" "$pas" 4 7.5,5,5.5 -7.5,-5,-5.5
# ARG1: the terminal (pngcairo or svg), ARG2: the output.
cat >"$dossier/tore.gp" <<'FIN'
set term ARG1 size 1600,1000
set output ARG2
set parametric
set urange [0:6.28]
set vrange [0:6.28]
set samples 200,200
set isosamples 200,200
set hidden3d
set xrange [-4:4]
set yrange [-4:4]
set zrange [-4:4]
unset key
splot (3+cos(u))*cos(v), (3+cos(u))*sin(v), sin(u) with lines
FIN


declare -A reel cpu mem taille
noms=("$@" gnuplot)
g=${#noms[@]}
formats=(png svg)
for ((i = 1; i <= n; i++)); do
    for f in "${formats[@]}"; do
        for b in $(seq 1 $g); do
            sortie="$dossier/tore$b.$f"
            rm -f "$sortie"
            if [ "$b" -le $# ]; then
                commande=("${!b}" exporte --dossier "$dossier" --catalogue tore.lsu --entree "$entree"
                    --taille 1600x1000 --rendu pointilles --sortie "$sortie")
            else
                terminal=$([ "$f" = png ] && echo pngcairo || echo svg)
                commande=(gnuplot -c "$dossier/tore.gp" "$terminal" "$sortie")
            fi
            read -r s c mo octets code < <(chronometre "$sortie" "${commande[@]}")
            echo "${noms[b - 1]} $f run $i : ${s} s, CPU ${c} s, $mo Mo, $octets octets, code $code"
            reel[$b$f]+="$s "
            cpu[$b$f]+="$c "
            mem[$b$f]+="$mo "
            taille[$b$f]+="$octets "
        done
    done
done
for f in "${formats[@]}"; do
    for b in $(seq 1 $g); do
        echo "${noms[b - 1]} $f : réel $(resume "${reel[$b$f]}") s, CPU $(resume "${cpu[$b$f]}") s," \
            "mémoire $(resume "${mem[$b$f]}") Mo, taille $(resume "${taille[$b$f]}") octets"
    done
    for b in $(seq 1 $#); do
        awk -v r="$(mediane "${reel[$b$f]}")" -v gr="$(mediane "${reel[$g$f]}")" -v c="$(mediane "${cpu[$b$f]}")" \
            -v gc="$(mediane "${cpu[$g$f]}")" -v t="$(mediane "${taille[$b$f]}")" \
            -v gt="$(mediane "${taille[$g$f]}")" -v n="${!b}" -v f="$f" \
            'BEGIN {printf "%s / gnuplot (%s) : réel %.3f (objectif <= 0.15), CPU %.3f, taille %.2f%s\n",
                    n, f, r / gr, c / gc, t / gt, f == "svg" ? " (objectif <= 1)" : ""}'
    done
done
