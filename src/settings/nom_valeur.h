// The small text files of Velorin's own settings ("couleurs.txt",
// "rendu.txt"): one "name=value" a line, blanks and tabs around the name and
// the value ignored, blank lines and lines starting with "#" skipped, lines
// ending with CR LF, LF or CR.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "base/erreur.h"

namespace velorin {

// Hands each "name=value" of `contenu` to `lis`, which answers nothing when
// it took the line, or why it refuses it. At the first refusal, or at a line
// without "=", returns "Fichier « chemin », ligne N : <why>. <suite>".
Erreur lisNomsValeurs(const std::string& contenu, const std::string& chemin, const std::string& suite,
                      const std::function<std::string(std::string_view nom, std::string_view valeur)>& lis);

}  // namespace velorin
