// Entry point of `velorin`: no argument opens the main window, a first
// argument names a sub-command that works without a display. --help and
// --version answer before anything of Qt is started, so that they work
// everywhere.
#include <cstdio>
#include <cstring>

#include "app/lancement.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "cli/commandes.h"
#include "cli/sortie_standard.h"
#include "qt/demarrage.h"

#ifndef VELORIN_VERSION
#define VELORIN_VERSION "inconnue"
#endif

namespace {

constexpr const char* kUsage =
    "Usage : velorin                   ouvre la fenêtre (il faut un affichage)\n"
    "        velorin calcule ...       valeurs d'une formule (velorin calcule sans argument : son usage)\n"
    "        velorin exporte ...       dessine des entrées d'un catalogue ou une figure en PNG, SVG, PDF,\n"
    "                                  journal .txt ou figure .fig ; un tour complet en GIF animé ;\n"
    "                                  --rendu filaire|pointilles|effaces|faces : parties cachées en\n"
    "                                  pointillés ou effacées, faces ombrées (chaque surface calculée\n"
    "                                  en entier avant d'être dessinée)\n"
    "        velorin catalogue ...     liste et modifie un catalogue .lsu (velorin catalogue sans argument : son usage)\n"
    "        velorin sansfenetre       dessine les galeries en images PNG dans le dossier Apercus\n"
    "        velorin --help, -h        affiche cette aide\n"
    "        velorin --version         affiche la version\n";

bool egal(const char* a, const char* b)
{
    return std::strcmp(a, b) == 0;
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace velorin;
    if (argc >= 2 && (egal(argv[1], "--help") || egal(argv[1], "-h"))) {
        std::fputs(kUsage, stdout);
        return termineSortieStandard(argv[1], 0);
    }
    if (argc >= 2 && egal(argv[1], "--version")) {
        std::puts("velorin " VELORIN_VERSION);
        return termineSortieStandard(argv[1], 0);
    }
    if (argc >= 2 && argv[1][0] == '-') {
        std::fprintf(stderr, "velorin : option inconnue %s.\n%s", texteCite(argv[1]).c_str(), kUsage);
        return 2;
    }
    installeFiltreMessages();
    // Stopped by Ctrl-C, a kill or a closed terminal, the program leaves no
    // temporary of a file being written.
    installeNettoyageSignaux();
    if (argc < 2) {
        if (!affichageDisponible()) {
            std::fputs("velorin : aucun affichage n'est disponible (ni DISPLAY ni WAYLAND_DISPLAY) : la fenêtre ne "
                       "peut pas s'ouvrir.\nLes commandes calcule, exporte, catalogue et sansfenetre marchent sans affichage "
                       "(velorin --help).\n",
                       stderr);
            return 2;
        }
        prepareDossierSession();
        return lanceFenetre(argc, argv);
    }
    const char* commande = argv[1];
    if (egal(commande, "calcule"))
        return commandeCalcule(argc - 1, argv + 1);
    if (egal(commande, "exporte"))
        return commandeExporte(argc - 1, argv + 1);
    if (egal(commande, "catalogue"))
        return commandeCatalogue(argc - 1, argv + 1);
    if (egal(commande, "sansfenetre"))
        return commandeSansFenetre(argc - 1, argv + 1);
    std::fprintf(stderr, "velorin : commande inconnue %s.\n%s", texteCite(commande).c_str(), kUsage);
    return 2;
}
