// Entry point of `velorin`: no argument opens the main window, a first
// argument names a sub-command that works without a display. --help and
// --version answer before anything of Qt is started, so that they work
// everywhere.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <string>

#include "app/lancement.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "cli/commandes.h"
#include "cli/sortie_standard.h"
#include "qt/demarrage.h"
#include "qt/dossiers.h"

#ifndef VELORIN_VERSION
#define VELORIN_VERSION "inconnue"
#endif
// The window's module: its file name, and its folder once installed,
// relative to the program's folder (both given by the build).
#ifndef VELORIN_MODULE_FENETRE
#define VELORIN_MODULE_FENETRE "libvelorin_fenetre.so"
#endif
#ifndef VELORIN_MODULE_INSTALLE
#define VELORIN_MODULE_INSTALLE "../lib/velorin"
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

// Opens the window through its module, loaded only now so that the
// sub-commands never load the window's libraries: the module beside the
// program (the build folder), else in its installed folder. Each file tried
// and why it failed are said when none can be loaded.
int ouvreFenetre(int argc, char** argv)
{
    const std::filesystem::path dossier = velorin::dossierExecutableCourant().toStdString();
    std::string echecs;
    for (const std::filesystem::path& chemin :
         {dossier / VELORIN_MODULE_FENETRE,
          (dossier / VELORIN_MODULE_INSTALLE / VELORIN_MODULE_FENETRE).lexically_normal()}) {
        // Every symbol bound now: a module that does not match the program
        // is refused here, not in the middle of the session.
        void* module = dlopen(chemin.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module) {
            if (auto* lance = reinterpret_cast<decltype(&velorin_lanceFenetre)>(dlsym(module, "velorin_lanceFenetre")))
                return lance(argc, argv);
        }
        const char* raison = dlerror();
        echecs += "  " + velorin::texteCite(chemin.string()) + " : " + velorin::extraitSur(raison ? raison : "") + "\n";
        if (module)
            dlclose(module);
    }
    std::fprintf(stderr,
                 "velorin : la fenêtre ne peut pas s'ouvrir : son module n'a pas pu être chargé.\n%s"
                 "Les commandes calcule, exporte, catalogue et sansfenetre marchent sans lui (velorin --help).\n",
                 echecs.c_str());
    return 2;
}

// The end of a sub-command that drew with Qt: every file is written and
// closed and the standard output flushed by the command itself; the process
// ends here without tearing down the libraries' statics (Qt's fonts among
// them), which would only bring their code back into memory for nothing.
[[noreturn]] void termineSansDemontage(int statut)
{
    std::fflush(nullptr);
    std::_Exit(statut);
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
        return ouvreFenetre(argc, argv);
    }
    const char* commande = argv[1];
    if (egal(commande, "calcule"))
        return commandeCalcule(argc - 1, argv + 1);
    if (egal(commande, "exporte"))
        termineSansDemontage(commandeExporte(argc - 1, argv + 1));
    if (egal(commande, "catalogue"))
        return commandeCatalogue(argc - 1, argv + 1);
    if (egal(commande, "sansfenetre"))
        termineSansDemontage(commandeSansFenetre(argc - 1, argv + 1));
    std::fprintf(stderr, "velorin : commande inconnue %s.\n%s", texteCite(commande).c_str(), kUsage);
    return 2;
}
