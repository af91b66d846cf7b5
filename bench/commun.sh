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

# The folder of a measure, removed when the script ends, holding the torus
# catalogue made from the gallery beside VELORIN: sets `dossier` and `entree`.
prepareDossierTore() {
    verifieOutils
    dossier=$(mktemp -d)
    trap 'rm -rf "$dossier"' EXIT
    entree=$(toreDansCatalogue "$1" "$dossier") || exit 2
}

# Median and spread of a list of numbers: "median (min-max)".
resume() {
    tr ' ' '\n' <<<"$1" | grep . | sort -g |
        awk '{v[NR] = $1} END {m = NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2; printf "%.10g (%.10g-%.10g)", m, v[1], v[NR]}'
}
mediane() { resume "$1" | cut -d' ' -f1; }

# Runs COMMANDE... under /usr/bin/time -v and prints "seconds cpu Mo bytes
# code": wall time, user + system time, peak memory (to 0.1 Mo), the size of SORTIE
# afterwards (0 when missing) and the exit code.
chronometre() {
    local sortie=$1 mesure code kb s c
    shift
    mesure=$(/usr/bin/time -v "$@" 2>&1 >/dev/null)
    code=$?
    kb=$(sed -n 's/.*Maximum resident set size (kbytes): //p' <<<"$mesure")
    s=$(sed -n 's/.*Elapsed (wall clock) time (h:mm:ss or m:ss): //p' <<<"$mesure" |
        awk -F: '{t = 0; for (k = 1; k <= NF; k++) t = t * 60 + $k; print t}')
    c=$(awk '/User time|System time/ {t += $NF} END {print t}' <<<"$mesure")
    echo "$s $c $(awk -v k="$kb" 'BEGIN {printf "%.1f", k / 1024}') $(stat -c %s "$sortie" 2>/dev/null || echo 0) $code"
}

# Writes the parameter file FICHIER of a measure: a and t over [0, 6.28] by
# PAS, every axis over [-BORNE, BORNE] (4 unless given), the viewer at VISEUR
# looking along DIRECTION (15,10,7.5 and -15,-10,-7.5 unless given).
memoireParametres() {
    local b=${3:-4}
    cat >"$1" <<FIN
-$b,$b,-$b,$b,-$b,$b
0,6.28,$2,0,6.28,$2
200,40,20,${4:-15,10,7.5}
5,${5:--15,-10,-7.5},0,0,1,0
0,0,0,0,0,0,1,0,0
0,0,#FALSE#
FIN
}
