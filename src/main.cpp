// Entry point of `velorin`: no argument opens the main window, a first
// argument names a sub-command that works without a display.
#include <cstdio>
#include <cstring>

#include "app/lancement.h"
#include "cli/commandes.h"

int main(int argc, char** argv)
{
    using namespace velorin;
    if (argc < 2 || argv[1][0] == '-')
        return lanceFenetre(argc, argv);
    const char* commande = argv[1];
    if (std::strcmp(commande, "calcule") == 0)
        return commandeCalcule(argc - 1, argv + 1);
    if (std::strcmp(commande, "exporte") == 0)
        return commandeExporte(argc - 1, argv + 1);
    if (std::strcmp(commande, "sansfenetre") == 0)
        return commandeSansFenetre(argc - 1, argv + 1);
    std::fprintf(stderr,
                 "velorin : commande inconnue « %s ».\n"
                 "Usage : velorin [calcule|exporte|sansfenetre] ...\n",
                 commande);
    return 2;
}
