// The remembered colour scheme: "couleurs.txt", a small text file of
// Velorin's own beside "mem.log" in the curves folder in force. It is written
// when the colour dialog is confirmed under the policy "Couleurs définies
// avec mémorisation" and read back when the policy "Couleurs déjà
// mémorisées" is chosen; "mem.log" and the figure files are not touched.
//
// One colour a line, "name=value", the value a decimal integer from 0 to
// 16777215 (red + 256 green + 65536 blue, as everywhere in Velorin):
//   # Velorin : couleurs mémorisées (rouge + 256*vert + 65536*bleu)
//   couleurAxes=16777215
//   couleurTrace=65535
//   ...
// Lines end with LF when written; CR LF, LF or CR are read. Blank lines and
// lines starting with "#" are ignored, blanks around the name and value too.
// A colour missing from the file keeps its value in force.
#pragma once
#include <string>

#include "base/erreur.h"
#include "settings/couleurs.h"

namespace velorin {

// "couleurs.txt".
const char* nomFichierCouleurs();

// The text of the file for `schema` (every colour the dialog edits; the
// erasing reference colour is derived and is not stored).
std::string texteCouleurs(const SchemaCouleurs& schema);

// Reads the text of a colours file into `schema`. On success returns nothing;
// otherwise returns the French message naming `chemin` and the line, and
// `schema` is untouched: an unknown name, a line without "=", a value that is
// not an integer from 0 to 16777215.
Erreur analyseCouleurs(const std::string& contenu, const std::string& chemin, SchemaCouleurs& schema);

// Reads the file (checked first with verifieFichierLisible; more than 64 KiB
// is refused), see analyseCouleurs.
Erreur lisCouleurs(const std::string& chemin, SchemaCouleurs& schema);

// Writes the file whole or not at all (ecrisFichierEntier).
Erreur ecrisCouleurs(const std::string& chemin, const SchemaCouleurs& schema);

}  // namespace velorin
