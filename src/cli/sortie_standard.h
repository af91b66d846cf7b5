// The end of a sub-command that prints on the standard output: the text must
// have reached it whole (a full disk, /dev/full, a closed pipe would cut it
// short without a word otherwise).
#pragma once
#include <cerrno>
#include <cstdio>
#include <string>

#include "base/ecriture.h"

namespace velorin {

// Flushes the standard output. When anything written on it was lost, says
// so in French on the error output and returns 2; otherwise returns `statut`.
inline int termineSortieStandard(const char* commande, int statut)
{
    errno = 0;
    const bool vide = std::fflush(stdout) == 0;
    const int numero = errno;
    if (vide && !std::ferror(stdout))
        return statut;
    const std::string raison = numero != 0 ? " : " + raisonSysteme(numero) : std::string();
    std::fprintf(stderr, "velorin %s : la sortie standard n'a pas pu être écrite en entier%s.\n", commande,
                 raison.c_str());
    return 2;
}

}  // namespace velorin
