// Redraw speed of the drawing styles that resolve hidden parts, at
// 1600 x 1000: every entry of the space gallery (Espace_courbes/Lisurf.lsu
// with its mem.log, in the build folder) drawn again from its row as a frame
// of a drag draws it (the viewer moved a little on its sphere, clearing,
// frame, the row), in each style, into a bitmap through the program's
// surface; and the 200 x 200 torus (3+cos a) cos t, (3+cos a) sin t, sin a in
// trellis order drawn once whole (the work of an export). The time of one
// iteration is the time of one redraw; the target is 33 ms for a drag frame.
// With VELORIN_IMAGES=DIR set, the last picture of each benchmark is written
// there as PNG, to look at.
//
//   make bench && build-bench/bench/rendu_cache [--benchmark_filter=Tore]
#include <benchmark/benchmark.h>

#include <QImage>

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/rendu.h"
#include "plot/demande.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "plot/redessin.h"
#include "plot/scene.h"
#include "plot/traceurs.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"
#include "view/souris.h"
#include "view/surface_enregistreuse.h"

#include "noms_galerie.h"

using namespace velorin;

namespace {

constexpr int kLargeur = 1600, kHauteur = 1000;
constexpr double W = kLargeur * twipsParPixelEcran, H = kHauteur * twipsParPixelEcran;

const StyleRendu styles[] = {StyleRendu::FilDeFer, StyleRendu::Pointilles, StyleRendu::Effaces,
                             StyleRendu::FacesOmbrees};
const char* const nomsStyles[] = {"filaire", "pointilles", "effaces", "faces"};

// The state after the entry was sent once (on a journal that goes nowhere):
// its row 1 in the table, the view calibrated for 1600 x 1000.
bool prepare(Etat& e, int entree)
{
    const std::string dossier = std::string(VELORIN_BIN_DIR) + "/Espace_courbes/";
    e.fenetre.metsModeEspace(true);
    e.fenetre.dossierCourbes = dossier;
    e.fenetre.fichierCatalogue = "Lisurf.lsu";
    if (lisMemoire(dossier + nomFichierMemoire(true), e.param) || ouvrirCatalogue(e.catalogue, dossier + "Lisurf.lsu"))
        return false;
    e.fenetre.largeurVue = W;
    e.fenetre.hauteurVue = H;
    ajusteVue(e, W, H);
    std::ostream nulle(nullptr);
    SurfaceEnregistreuse envoi(W, H);
    envoi.ecrisDans(&nulle);
    const ResultatTrace t = demandeTrace(e, envoi, entree, OptionsTrace{}, CrochetsTrace{});
    return !t.erreur && t.ligne == 1;
}

void garde(const QImage& image, const std::string& nom)
{
    if (const char* dossier = std::getenv("VELORIN_IMAGES")) {
        std::string fichier = nom;
        for (char& c : fichier)
            if (c == '/' || c == ' ')
                c = '_';
        image.save(QString::fromStdString(std::string(dossier) + "/" + fichier + ".png"));
    }
}

void redessineLigne(Etat& e, QImage& image)
{
    ajusteVue(e, W, H);
    SurfaceQPainter surface(image, W, H);
    static_cast<void>(redessine(e, surface, Redessin{.lignes = {1}, .etiquettes = false}));
    surface.Acheve();
}

// A drag of 4 pixels a frame to the right, going up and down by 60 frames.
void Glisse(benchmark::State& state, int entree, StyleRendu style, const std::string& nom)
{
    Etat e;
    if (!prepare(e, entree)) {
        state.SkipWithError("entrée illisible");
        return;
    }
    e.rendu.style = style;
    QImage image = imagePourSurface(kLargeur, kHauteur);
    int i = 0;
    for (auto _ : state) {
        tourneVue(e.param, 4, (i++ / 60) % 2 ? -2 : 2);
        redessineLigne(e, image);
    }
    garde(image, nom);
}

// The torus of 2 x 201 x 201 points, a viewer near enough for it to fill the picture.
void Tore(benchmark::State& state, StyleRendu style, const std::string& nom)
{
    Etat e;
    e.fenetre.metsModeEspace(true);
    Parametres& p = e.param;
    p.pasA = (p.amax - p.amin) / 200;
    p.pasT = (p.tmax - p.tmin) / 200;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur) = std::tuple(8, 6, 5.0F);
    std::tie(p.Xdirection, p.Ydirection, p.Zdirection) = std::tuple(-8, -6, -5);
    p.ordreBoucles = 2;
    e.rendu.style = style;
    ajusteVue(e, W, H);
    e.trace.typeTrace = 2;
    e.moteur.genreCourbe = 2;
    e.moteur.formuleF1 = "(3+COS(A))*COS(T)";
    e.moteur.formuleF2 = "(3+COS(A))*SIN(T)";
    e.moteur.formuleF3 = "SIN(A)";
    QImage image = imagePourSurface(kLargeur, kHauteur);
    for (auto _ : state) {
        // Clearing, frame and the tracer, as for a new entry.
        SurfaceQPainter surface(image, W, H);
        if (style == StyleRendu::FilDeFer) {
            effaceEcran(e, surface);
            traceRepere(e, surface);
            parcours2(e, surface, {});
        } else {
            Scene scene(surface, e.param, e.vue, style);
            effaceEcran(e, scene);
            traceRepere(e, scene);
            parcours2(e, scene, {});
            scene.resous();
        }
        surface.Acheve();
    }
    garde(image, nom);
}

}  // namespace

int main(int argc, char** argv)
{
    // The drawing runs in a process that has started Qt, as in the program.
    assureApplication();
    for (int s = 0; s < 4; ++s) {
        const std::string nom = std::string("Tore/") + nomsStyles[s];
        benchmark::RegisterBenchmark(nom.c_str(), Tore, styles[s], nom)->Unit(benchmark::kMillisecond);
    }
    const std::vector<std::string> noms = nomsDesEntrees("Lisurf.txt");
    for (std::size_t i = 0; i < noms.size(); ++i)
        for (int s = 0; s < 4; ++s) {
            const int entree = int(i) + 1;
            const std::string nom = std::string("Glisse/") + nomsStyles[s] + "/" + (entree < 10 ? "0" : "") +
                                    std::to_string(entree) + " " + noms[i];
            benchmark::RegisterBenchmark(nom.c_str(), Glisse, entree, styles[s], nom)->Unit(benchmark::kMillisecond);
        }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
