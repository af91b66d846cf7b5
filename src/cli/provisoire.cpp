// Sub-commands not written yet answer that they are not available.
#include <cstdio>

#include "cli/commandes.h"

namespace velorin {

static int pasEncore(const char* nom)
{
    std::fprintf(stderr, "velorin %s : pas encore disponible\n", nom);
    return 2;
}

int commandeExporte(int, char**) { return pasEncore("exporte"); }
int commandeSansFenetre(int, char**) { return pasEncore("sansfenetre"); }

}  // namespace velorin
