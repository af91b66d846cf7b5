#!/bin/bash
# Whole-process time of the animated GIF of the full turn about Oz of the
# torus of the space gallery (entry 7 of Espace_courbes/Lisurf.lsu, 74
# pictures at 1600 x 1000), beside gnuplot drawing the same torus
# (isosamples 100,100, lines, no hidden-line removal) in 74 views with
# `set term gif animate` at the same size. Each is run N times (3 unless
# given); the best wall time and the best CPU time (user + system) are
# reported, the CPU time being the one a loaded machine disturbs least.
# gnuplot is only needed here (Debian: gnuplot-nox).
#
#   bench/tour_gif.sh BUILD_DIR [N]
set -euo pipefail
build=$(realpath "${1:?usage: tour_gif.sh BUILD_DIR [N]}")
n=${2:-3}
command -v gnuplot >/dev/null || { echo "gnuplot manque (apt-get install gnuplot-nox)" >&2; exit 2; }
sortie=$(mktemp -d)
trap 'rm -rf "$sortie"' EXIT

cat >"$sortie/tore.gp" <<'EOF'
set term gif animate delay 50 size 1600,1000
set output ARG1
set parametric
set urange [0:2*pi]
set vrange [0:2*pi]
set isosamples 100,100
set xrange [-10:10]
set yrange [-10:10]
set zrange [-10:10]
unset key
do for [i=0:73] {
  set view 60, (i*5)%360
  splot (5+cos(u))*cos(v), (5+cos(u))*sin(v), sin(u) with lines
}
EOF

# Best wall and CPU seconds of N runs of the command.
mesure() {
    local mieux_r=999999 mieux_c=999999 r c
    for _ in $(seq "$n"); do
        /usr/bin/time -o "$sortie/temps" -f "%e %U %S" "$@" >/dev/null 2>&1
        read -r r c < <(awk '{printf "%s %.2f\n", $1, $2 + $3}' "$sortie/temps")
        mieux_r=$(awk -v a="$mieux_r" -v b="$r" 'BEGIN{print (b < a) ? b : a}')
        mieux_c=$(awk -v a="$mieux_c" -v b="$c" 'BEGIN{print (b < a) ? b : a}')
    done
    echo "$mieux_r $mieux_c"
}

read -r vr vc < <(mesure "$build/velorin" exporte --dossier "$build/Espace_courbes" --catalogue Lisurf.lsu \
    --entree 7 --taille 1600x1000 --tour oz+ --sortie "$sortie/velorin.gif")
read -r gr gc < <(mesure gnuplot -c "$sortie/tore.gp" "$sortie/gnuplot.gif")
"$build/velorin" exporte --dossier "$build/Espace_courbes" --catalogue Lisurf.lsu --entree 7 --taille 1600x1000 \
    --tour oz+ --sortie "$sortie/velorin.gif"
gnuplot -c "$sortie/tore.gp" "$sortie/gnuplot.gif" 2>/dev/null
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

printf '| %-28s | %8s | %8s | %7s | %9s |\n' "GIF 1600x1000, tour Oz" "réel (s)" "CPU (s)" "images" "taille"
printf '|------------------------------|----------|----------|---------|-----------|\n'
printf '| %-28s | %8s | %8s | %7s | %9s |\n' "velorin exporte --tour oz+" "$vr" "$vc" "$(images "$sortie/velorin.gif")" \
    "$(du -k "$sortie/velorin.gif" | cut -f1) Ko"
printf '| %-28s | %8s | %8s | %7s | %9s |\n' "gnuplot gif animate" "$gr" "$gc" "$(images "$sortie/gnuplot.gif")" \
    "$(du -k "$sortie/gnuplot.gif" | cut -f1) Ko"
awk -v a="$vr" -v b="$gr" -v c="$vc" -v d="$gc" \
    'BEGIN{printf "rapport velorin/gnuplot : %.2f (réel), %.2f (CPU) ; objectif <= 0.33\n", a/b, c/d}'
