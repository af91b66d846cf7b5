#!/bin/bash
# installation.sh BUILD_DIR: installs the build into a temporary prefix and uses it as a user would. The installed
# command line with a temporary HOME fills the user's folders there and writes nothing under the prefix; the window
# opens through its installed module; the desktop entry and the metadata validate; every link of the help pages
# leads to a page (and anchor) that exists.
set -u
echecs=0
echec() { echo "ÉCHEC : $*" >&2; echecs=$((echecs + 1)); }
travail=$(mktemp -d)
trap 'rm -rf "$travail"' EXIT
prefixe=$travail/prefixe
cmake --install "$1" --prefix "$prefixe" >/dev/null || { echo "ÉCHEC : cmake --install" >&2; exit 1; }
velorin=$prefixe/bin/velorin
donnees=$prefixe/share/velorin
meta=$prefixe/share/metainfo/org.velorin.Velorin.metainfo.xml
bureau=$prefixe/share/applications/org.velorin.Velorin.desktop
etat_prefixe() { (cd "$prefixe" && find . -printf '%p %s %T@ %m\n' | sort); }
avant=$(etat_prefixe)
usine="Espace_courbes/Lisurf.lsu Espace_courbes/mem.log Espace_courbes/memprovi.log Plan_courbes/Lico.lsu
       Plan_courbes/mem.log Plan_courbes/memprovi.log"

# ---- Installed files; the manual pages as Debian wants them: gzip -9n (no name nor time stamp), no groff warning.
for f in bin/velorin $(printf "share/velorin/%s " $usine) share/velorin/Aide/index.htm \
         share/icons/hicolor/scalable/apps/org.velorin.Velorin.svg share/icons/hicolor/48x48/apps/org.velorin.Velorin.png \
         share/man/fr/man1/velorin.1.gz share/man/man1/velorin.1.gz share/doc/velorin/copyright share/doc/velorin/changelog.gz \
         ${meta#"$prefixe/"} ${bureau#"$prefixe/"}; do
    [ -s "$prefixe/$f" ] || echec "fichier installé absent ou vide : $f"
done
for page in "$prefixe"/share/man/{fr/,}man1/velorin.1.gz; do
    [ "$(od -An -tx1 -j3 -N6 "$page" 2>/dev/null | tr -d ' ')" = "000000000002" ] ||
        echec "$page : pas compressée par gzip -9n (nom ou date gardés, ou compression moindre)"
    avertissements=$(gzip -dc "$page" | groff -man -Tutf8 -ww -z 2>&1) || echec "$page : illisible"
    [ -z "$avertissements" ] || echec "$page : groff dit $avertissements"
done
head -1 "$prefixe/share/doc/velorin/copyright" |
    grep -qx 'Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' ||
    echec "share/doc/velorin/copyright n'est pas au format des fichiers copyright de Debian"
for d in Espace_fig Plan_fig usine; do [ ! -e "$donnees/$d" ] || echec "share/velorin/$d ne doit pas être installé"; done

# ---- The command line with a fresh HOME (and no XDG_DATA_HOME)
maison=$travail/maison
mkdir -p "$maison" "$travail/sorties"
lance() { env -u XDG_DATA_HOME -u DISPLAY -u WAYLAND_DISPLAY HOME="$maison" "$velorin" "$@"; }
appli=$maison/.local/share/velorin
# calcule reads no folder and writes nothing.
while IFS='|' read -r formule valeur attendu; do
    obtenu=$(lance calcule "$formule" "$valeur")
    [ "$obtenu" = "$attendu" ] || echec "calcule $formule $valeur : « $obtenu » au lieu de « $attendu »"
done <<<$'X^2|3|9\ny = 2 sin(x)|0|0\n1/X|0|1000000000'
[ -z "$(ls -A "$maison")" ] || echec "calcule a écrit dans HOME : $(ls -A "$maison")"
# exporte makes the four folders and fills them from the factory files.
while IFS='|' read -r options sortie; do
    # shellcheck disable=SC2086
    lance exporte $options --sortie "$travail/sorties/$sortie" || echec "exporte $options"
    [ -s "$travail/sorties/$sortie" ] || echec "exporte $options : $sortie absent"
done <<<$'--catalogue Lisurf.lsu --entree 1|espace.png\n--plan --catalogue Lico.lsu --entree 1|plan.txt'
for d in Espace_courbes Espace_fig Plan_courbes Plan_fig; do [ -d "$appli/$d" ] || echec "dossier absent : $d"; done
for f in $usine; do
    cmp -s "$donnees/$f" "$appli/$f" || echec "$f n'est pas la copie du fichier livré"
    [ -w "$appli/$f" ] || echec "$f n'est pas modifiable par l'utilisateur"
done
# A file of the user's is never replaced; a missing one comes back.
echo "fichier de l'utilisateur" >"$appli/Espace_courbes/mem.log"
rm "$appli/Plan_courbes/memprovi.log"
lance exporte --catalogue Lisurf.lsu --entree 1 --sortie "$travail/sorties/encore.txt" \
    --parametres "$donnees/Espace_courbes/mem.log" || echec "exporte une seconde fois"
[ "$(cat "$appli/Espace_courbes/mem.log")" = "fichier de l'utilisateur" ] || echec "mem.log de l'utilisateur remplacé"
cmp -s "$donnees/Plan_courbes/memprovi.log" "$appli/Plan_courbes/memprovi.log" || echec "memprovi.log manquant non recopié"
# XDG_DATA_HOME, when given, holds the folders instead.
HOME="$maison" XDG_DATA_HOME="$travail/xdg" "$velorin" exporte --catalogue Lisurf.lsu --entree 2 \
    --sortie "$travail/sorties/xdg.txt" || echec "exporte avec XDG_DATA_HOME"
[ -s "$travail/xdg/velorin/Espace_courbes/Lisurf.lsu" ] || echec "XDG_DATA_HOME ignoré"
# The installed program finds the window's module: the window (here the first-start form) waits for the user
# and is stopped by timeout, where a module not found would end at once with status 2.
env QT_QPA_PLATFORM=offscreen HOME="$travail/fenetre" timeout 3 "$velorin" 2>"$travail/fenetre.txt"
[ $? -eq 124 ] || echec "la fenêtre du programme installé ne s'ouvre pas : $(cat "$travail/fenetre.txt")"
[ "$avant" = "$(etat_prefixe)" ] || echec "quelque chose a été écrit sous le préfixe"

# ---- Desktop entry and metadata
desktop-file-validate "$bureau" || echec "desktop-file-validate"
appstreamcli validate --no-net "$meta" >/dev/null || echec "appstreamcli validate"
programme=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$bureau")
[ -x "$prefixe/bin/$programme" ] || echec "Exec=$programme n'est pas le programme installé"
[ -s "$prefixe/share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$bureau").svg" ] || echec "icône absente"
grep -q "<launchable type=\"desktop-id\">$(basename "$bureau")</launchable>" "$meta" ||
    echec "les métadonnées ne désignent pas l'entrée de bureau"
version=$("$velorin" --version | cut -d' ' -f2)
grep -q "<release version=\"$version\"" "$meta" || echec "les métadonnées n'annoncent pas la version $version"

# ---- Help pages: every link leads somewhere, every page is reachable.
aide=$donnees/Aide
declare -A atteintes=([index.htm]=1)
a_voir=(index.htm) i=0
while [ "$i" -lt ${#a_voir[@]} ]; do
    page=${a_voir[i++]}
    for lien in $(grep -o 'href="[^"]*"' "$aide/$page" | sed 's/^href="//; s/"$//'); do
        case $lien in http://* | https://* | mailto:*) continue ;; esac
        fichier=${lien%%#*}
        ancre=${lien#"$fichier"} ancre=${ancre#\#}
        [ -n "$fichier" ] || fichier=$page
        [ -f "$aide/$fichier" ] || { echec "$page : lien vers $lien, page absente"; continue; }
        [ -z "$ancre" ] || grep -Eq "(id|name)=\"$ancre\"" "$aide/$fichier" || echec "$page : lien vers $lien, ancre absente"
        [ -n "${atteintes[$fichier]:-}" ] || { atteintes[$fichier]=1; a_voir+=("$fichier"); }
    done
done
for chemin in "$aide"/*.htm; do
    [ -n "${atteintes[$(basename "$chemin")]:-}" ] || echec "page d'aide inaccessible depuis le sommaire : $(basename "$chemin")"
    # A button or menu is named as the user reads it: "OK", not its keyboard-marked caption "O&K".
    ! grep -n '&amp;[[:alpha:]]' "$chemin" || echec "$(basename "$chemin") : légende avec « & » de raccourci"
done
[ "$echecs" -eq 0 ] || { echo "$echecs échec(s)" >&2; exit 1; }
echo "installation : tout est en ordre"
