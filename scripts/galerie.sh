#!/usr/bin/env bash
# Draws every entry of the two shipped galleries with one build of velorin,
# as PNG pictures and operation journals, plus a full-turn GIF and its
# numbered journals, into one folder. Two folders made by two builds are
# compared with `diff -r`: a change that must not alter any drawing leaves
# them identical.
#   scripts/galerie.sh BUILD/velorin DOSSIER [extra exporte arguments...]
set -euo pipefail
velorin=$(readlink -f "$1"); sortie=$2; shift 2
bin=$(dirname "$velorin")
mkdir -p "$sortie"
dessine() {  # mode catalogue count
    local mode=$1 cat=$2 nb=$3 plan=(); shift 3
    [ "$mode" = plan ] && plan=(--plan)
    for n in $(seq 1 "$nb"); do
        for ext in png txt; do
            "$velorin" exporte "${plan[@]}" --catalogue "$cat" --entree "$n" "$@" \
                --sortie "$sortie/${mode}_$(printf %02d "$n").$ext" 2>>"$sortie/messages.txt" || true
        done
    done
}
nb_espace=$("$velorin" catalogue liste "$bin/Espace_courbes/Lisurf.lsu" | wc -l)
nb_plan=$("$velorin" catalogue liste "$bin/Plan_courbes/Lico.lsu" | wc -l)
dessine espace "$bin/Espace_courbes/Lisurf.lsu" "$nb_espace" "$@"
dessine plan "$bin/Plan_courbes/Lico.lsu" "$nb_plan" "$@"
"$velorin" exporte --catalogue "$bin/Espace_courbes/Lisurf.lsu" --entree 7 --entree 1 --taille 320x240 \
    --tour oz+ "$@" --sortie "$sortie/tour.gif" 2>>"$sortie/messages.txt" || true
mkdir -p "$sortie/tour"
"$velorin" exporte --catalogue "$bin/Espace_courbes/Lisurf.lsu" --entree 7 --entree 1 --taille 320x240 \
    --tour ox- "$@" --sortie "$sortie/tour/image_%03d.txt" 2>>"$sortie/messages.txt" || true
"$velorin" exporte --catalogue "$bin/Espace_courbes/Lisurf.lsu" --entree 7 --entree 20 --entree 16 \
    "$@" --sortie "$sortie/figure.fig" 2>>"$sortie/messages.txt" || true
"$velorin" exporte --figure "$sortie/figure.fig" "$@" --sortie "$sortie/figure.txt" 2>>"$sortie/messages.txt" || true
echo "$(ls "$sortie" | wc -l) fichiers dans $sortie"
