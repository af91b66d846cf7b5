// Checks on the paths the user names, before anything is read or written,
// each failure told in its own French sentence naming the file: reading
// never blocks (a FIFO or a device is refused before it is opened), a link
// loop is said as such, and an output never replaces one of the command's
// own inputs.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/erreur.h"

namespace velorin {

// `chemin` is an existing regular file that this user may read. `quoi`
// names it in the message, with its article: "Le catalogue", "Le fichier de
// paramètres"...
Erreur verifieFichierLisible(const std::string& chemin, const std::string& quoi = "Le fichier");

// `chemin` is an existing folder (links followed).
Erreur verifieDossier(const std::string& chemin, const std::string& quoi = "Le dossier");

// `sortie` may be written: its folder exists, it is not a folder itself nor
// a link loop, and it is not the same file as any of `entrees` (compared by
// the file they reach, links and relative names included).
Erreur verifieSortie(const std::string& sortie, const std::vector<std::string>& entrees);

// Both paths reach the same existing file.
bool memeFichier(const std::string& a, const std::string& b);

// The whole of a small text file into `contenu`, after verifieFichierLisible
// (`quoi` names the file: "Le fichier de paramètres"). A file of more than
// `limite` bytes is not one of ours: it is refused, with `nature` saying
// what was expected ("un fichier de paramètres").
Erreur lisFichierTexte(const std::string& chemin, const std::string& quoi, const std::string& nature,
                       std::size_t limite, std::string& contenu);

// The folder part of `chemin`: "." for a bare name, "/" at the root.
std::string dossierDe(const std::string& chemin);

// Size of a regular file, 0 when it cannot be known.
std::uint64_t tailleFichier(const std::string& chemin);

}  // namespace velorin
