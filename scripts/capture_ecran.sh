#!/usr/bin/env bash
# Starts velorin on a virtual screen (Xvfb), works it with the keyboard and
# the mouse like a user (xdotool), and saves screenshots of the space and of
# the plane drawing.
#
#   scripts/capture_ecran.sh [PROGRAMME] [DOSSIER_DES_IMAGES]
#
# Defaults: build/velorin and captures/. Writes espace.png and plan.png.
set -euo pipefail

programme=$(realpath "${1:-build/velorin}")
sortie=$(mkdir -p "${2:-captures}" && realpath "${2:-captures}")
ecran=${ECRAN:-:97}
taille=${TAILLE:-1600x1000x24}

for outil in Xvfb xdotool import; do
    command -v "$outil" >/dev/null || { echo "Il manque $outil." >&2; exit 2; }
done
[ -x "$programme" ] || { echo "Programme introuvable : $programme" >&2; exit 2; }

Xvfb "$ecran" -screen 0 "$taille" -nolisten tcp &
pid_x=$!
pid_v=""
finir() {
    [ -n "$pid_v" ] && kill "$pid_v" 2>/dev/null || true
    kill "$pid_x" 2>/dev/null || true
}
trap finir EXIT
export DISPLAY=$ecran
for _ in $(seq 50); do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.1; done

"$programme" &
pid_v=$!
fenetre=$(xdotool search --sync --onlyvisible --name "TRACE DE COURBES" | head -1)
xdotool windowfocus --sync "$fenetre" 2>/dev/null || true
sleep 1

# Sends entries from the list of available curves (Ctrl+L): the first line
# after the header, then `$1` more with Shift+Down; `$2` = cycle picks the
# "Cycle" colours (Tab to the option, Space), then Enter sends; `$3` is the
# time left to the tracing, `$4` names a capture of the open list.
envoie_liste() {
    xdotool key ctrl+l
    xdotool search --sync --onlyvisible --name "Liste des Courbes disponibles" >/dev/null
    sleep 0.5
    xdotool key Down
    for _ in $(seq "$1"); do xdotool key shift+Down; done
    if [ "${2:-}" = cycle ]; then xdotool key Tab space; fi
    [ -n "${4:-}" ] && import -window root "$sortie/$4"
    xdotool key Return
    # Without a window manager the keyboard focus does not come back by
    # itself when the list closes.
    sleep 0.3
    xdotool windowfocus "$fenetre" 2>/dev/null || true
    sleep "${3:-4}"
}

# A menu of the bar, opened with the mouse at (x, y) of the window, then
# walked with the keyboard (moving along the bar with Right opens the next
# menu with its first entry active).
clic_menu() {
    xdotool mousemove --window "$fenetre" "$1" "$2" click 1
    sleep 0.5
}

# Space: three entries of the gallery in cycled colours, then one more
# through "ENVOYER" > "LE GRAPHE de" (its entry 5).
envoie_liste 2 cycle 4 liste.png
clic_menu 20 10
xdotool key Right Right Right Right Right Down Down Down Down Down Return
sleep 4
import -window root "$sortie/espace.png"
echo "Capture de l'espace : $sortie/espace.png"

# Plane: "Fichiers" > "Choisir un fichier plan" > first file (Lico.lsu).
clic_menu 20 10
xdotool key Down Down Down Right Return
sleep 2
envoie_liste 3 cycle
import -window root "$sortie/plan.png"
echo "Capture du plan : $sortie/plan.png"
