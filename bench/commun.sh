# Shared by the benchmark scripts that measure velorin beside gnuplot:
# sourced, it defines the checks, the torus catalogue and the medians.

# The tools every measure needs; gnuplot only when asked.
verifieOutils() {
    [ -x /usr/bin/time ] || { echo "/usr/bin/time manque (apt-get install time)" >&2; exit 2; }
    [ "${1:-}" = sansgnuplot ] || command -v gnuplot >/dev/null ||
        { echo "gnuplot manque (apt-get install gnuplot-nox)" >&2; exit 2; }
}

# Copies the gallery beside VELORIN into DOSSIER/tore.lsu with the torus
# (3+cos a)cos t, (3+cos a)sin t, sin a added at its end, and prints that
# entry's number.
toreDansCatalogue() {
    local galerie
    galerie="$(dirname "$1")/Espace_courbes/Lisurf.lsu"
    [ -f "$galerie" ] || { echo "$galerie manque (cmake --build ... --target galeries)" >&2; return 2; }
    cp "$galerie" "$2/tore.lsu"
    "$1" catalogue ajoute "$2/tore.lsu" --genre 2 '(3+cos(a))*cos(t)' '(3+cos(a))*sin(t)' 'sin(a)' >/dev/null || return 2
    "$1" catalogue liste "$2/tore.lsu" | wc -l
}

# Median and spread of a list of numbers: "median (min-max)".
resume() {
    tr ' ' '\n' <<<"$1" | grep . | sort -g |
        awk '{v[NR] = $1} END {m = NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2; printf "%.10g (%.10g-%.10g)", m, v[1], v[NR]}'
}
mediane() { resume "$1" | cut -d' ' -f1; }
