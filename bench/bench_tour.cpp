// Redraw speed while the view moves, at 1600 x 1000: every entry of the two
// galleries (the built folders Espace_courbes/Lisurf.lsu and
// Plan_courbes/Lico.lsu with their mem.log) drawn as one tick of the full
// turn about Oz draws it (viewing values of the tick, calibration, clearing,
// frame, then the drawn curve again from its row), the ticks taken in turn;
// and, for the space entries, a frame of a drag: the viewer moved on its
// sphere about the origin (azimuth and elevation), the direction pointing
// back at it, then the same redraw. The time of one iteration is the time of
// one redraw; the target is 16 ms.
//
//   make bench && build-bench/bench/bench_tour [--benchmark_filter=Tore]
#include <benchmark/benchmark.h>

#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/rendu.h"
#include "plot/demande.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"
#include "view/rotation.h"
#include "view/souris.h"
#include "view/surface_enregistreuse.h"

#include "noms_galerie.h"

using namespace velorin;

namespace {

constexpr int kLargeur = 1600, kHauteur = 1000;

struct Galerie {
    bool espace;
    const char* dossier;  // in the build folder
    const char* catalogue;
    const char* source;  // in data/sources: the entries' names
};
const Galerie galeries[] = {
    {true, "Espace_courbes", "Lisurf.lsu", "Lisurf.txt"},
    {false, "Plan_courbes", "Lico.lsu", "Lico.txt"},
};

// The state the window has after the entry was sent: parameters read, view
// calibrated for the drawing area, the curve in row 1 of the drawn-curves
// table (sent once on a journal that goes nowhere).
struct Scene {
    Etat etat;
    int ligne = 0;
    double W = kLargeur * twipsParPixelEcran, H = kHauteur * twipsParPixelEcran;
};

bool prepareScene(Scene& s, const Galerie& g, int entree)
{
    const std::string dossier = std::string(VELORIN_BIN_DIR) + "/" + g.dossier + "/";
    Etat& e = s.etat;
    e.fenetre.metsModeEspace(g.espace);
    e.fenetre.dossierCourbes = dossier;
    e.fenetre.fichierCatalogue = g.catalogue;
    if (lisMemoire(dossier + nomFichierMemoire(true), e.param) || ouvrirCatalogue(e.catalogue, dossier + g.catalogue))
        return false;
    e.fenetre.largeurVue = s.W;
    e.fenetre.hauteurVue = s.H;
    ajusteVue(e, s.W, s.H);
    std::ostream nulle(nullptr);
    SurfaceEnregistreuse envoi(s.W, s.H);
    envoi.ecrisDans(&nulle);
    const ResultatTrace t = demandeTrace(e, envoi, entree, OptionsTrace{}, CrochetsTrace{});
    s.ligne = t.ligne;
    return !t.erreur && t.ligne >= 1;
}

// One redraw as the window's timer makes it after the viewing values moved.
void redessine(Scene& s, QImage& image)
{
    ajusteVue(s.etat, s.W, s.H);
    SurfaceQPainter surface(image, s.etat.vue.W, s.etat.vue.H);
    effaceEcran(s.etat, surface);
    traceRepere(s.etat, surface);
    demandeTrace(s.etat, surface, 0, OptionsTrace{s.ligne}, CrochetsTrace{});
}

void Tick(benchmark::State& state, const Galerie& g, int entree)
{
    Scene s;
    if (!prepareScene(s, g, entree)) {
        state.SkipWithError("entrée illisible");
        return;
    }
    const SuiteDuTour suite = suiteDuTour(s.etat.param, EtatRotation{}, 0, 1.0);
    QImage image = imagePourSurface(kLargeur, kHauteur);
    std::size_t k = 0;
    for (auto _ : state) {
        appliqueVue(s.etat.param, suite.vues[k]);
        k = (k + 1) % suite.vues.size();
        redessine(s, image);
    }
}

// A drag of 4 pixels a frame to the right, going up and down by 60 frames.
void Glisse(benchmark::State& state, const Galerie& g, int entree)
{
    Scene s;
    if (!prepareScene(s, g, entree)) {
        state.SkipWithError("entrée illisible");
        return;
    }
    QImage image = imagePourSurface(kLargeur, kHauteur);
    int i = 0;
    for (auto _ : state) {
        tourneVue(s.etat.param, 4, (i++ / 60) % 2 ? -2 : 2);
        redessine(s, image);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    // The drawing runs in a process that has started Qt, as in the program.
    assureApplication();
    for (const Galerie& g : galeries) {
        const std::vector<std::string> noms = nomsDesEntrees(g.source);
        for (std::size_t i = 0; i < noms.size(); ++i) {
            const int entree = int(i) + 1;
            const std::string nom = std::string(g.espace ? "espace/" : "plan/") + (entree < 10 ? "0" : "") +
                                    std::to_string(entree) + " " + noms[i];
            benchmark::RegisterBenchmark(("Tick/" + nom).c_str(), Tick, g, entree)->Unit(benchmark::kMillisecond);
            if (g.espace)
                benchmark::RegisterBenchmark(("Glisse/" + nom).c_str(), Glisse, g, entree)
                    ->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
