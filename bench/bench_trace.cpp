// Tracing speed: the torus x = (3+cos a) cos t, y = (3+cos a) sin t,
// z = sin a with a and t each in 200 steps, in trellis order (both families:
// 2 x 201 x 201 points), traced and drawn into a 1600 x 1000 image; and the
// whole `velorin exporte --taille 1600x1000` process writing it to PNG.
//
//   make bench && build-bench/bench/bench_trace
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "catalogue/catalogue.h"
#include "cli/rendu.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "plot/traceurs.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"

namespace fs = std::filesystem;
using namespace velorin;

namespace {

constexpr int kLargeur = 1600, kHauteur = 1000;
constexpr int kPas = 200;
constexpr const char* kTore = "x=f1(a,t)=(3+cos(a))*cos(t)][y=f2(a,t)=(3+cos(a))*sin(t)][z=f3(a,t)=sin(a)";
constexpr double kPoints = 2.0 * (kPas + 1) * (kPas + 1);

// A surface that draws nothing: the cost of the computation alone.
class SurfaceMuette : public Surface {
public:
    void Line(double, double, double, double, Couleur) override { }
    void PSet(double, double, Couleur) override { }
    void Circle(double, double, double, Couleur) override { }
    void Print(const std::string&) override { }
    void Clear(Couleur) override { }
    double Width() const override { return kLargeur * twipsParPixelEcran; }
    double Height() const override { return kHauteur * twipsParPixelEcran; }
    double TextWidth(const std::string& t) const override { return 100.0 * t.size(); }
    double TextHeight() const override { return 200; }
};

// The steps, and a viewer close enough for the torus to fill the picture as
// a plotting program would show it.
void parametresTore(Parametres& p)
{
    p.pasA = (p.amax - p.amin) / kPas;
    p.pasT = (p.tmax - p.tmin) / kPas;
    p.Xviseur = 8;
    p.Yviseur = 6;
    p.Zviseur = 5;
    p.Xdirection = -8;
    p.Ydirection = -6;
    p.Zdirection = -5;
}

void prepareTore(Etat& etat)
{
    Parametres& p = etat.param;
    parametresTore(p);
    p.ordreBoucles = 2;
    ajusteVue(etat, kLargeur * twipsParPixelEcran, kHauteur * twipsParPixelEcran);
    etat.trace.typeTrace = 2;
    etat.moteur.genreCourbe = 2;
    etat.moteur.formuleF1 = "(3+COS(A))*COS(T)";
    etat.moteur.formuleF2 = "(3+COS(A))*SIN(T)";
    etat.moteur.formuleF3 = "SIN(A)";
}

void CalculSeul(benchmark::State& state)
{
    Etat etat;
    prepareTore(etat);
    SurfaceMuette surface;
    for (auto _ : state)
        parcours2(etat, surface, {});
    state.counters["points/s"] = benchmark::Counter(kPoints, benchmark::Counter::kIsIterationInvariantRate);
}

void CalculEtDessin(benchmark::State& state)
{
    Etat etat;
    prepareTore(etat);
    QImage image = imagePourSurface(kLargeur, kHauteur);
    for (auto _ : state) {
        SurfaceQPainter surface(image, etat.vue.W, etat.vue.H);
        effaceEcran(etat, surface);
        traceRepere(etat, surface);
        parcours2(etat, surface, {});
    }
    state.counters["points/s"] = benchmark::Counter(kPoints, benchmark::Counter::kIsIterationInvariantRate);
}

// The catalogue and parameter file of the exported torus, in a temporary
// folder; the command line that exports it.
std::string prepareProcessus()
{
    const fs::path dossier = fs::temp_directory_path() / "velorin_bench_trace";
    fs::create_directories(dossier);
    const fs::path cat = dossier / "tore.lsu";
    fs::remove(cat);
    Catalogue c;
    LigneCatalogue l;
    l.typeFonction = 2;
    l.texte = kTore;
    if (ouvrirCatalogue(c, cat.string()) || ecrisLigne(c, 1, l))
        std::abort();
    Parametres p;
    parametresTore(p);
    if (ecrisMemoire((dossier / nomFichierMemoire(true)).string(), p))
        std::abort();
    return std::string(VELORIN_BIN_DIR) + "/velorin exporte --taille 1600x1000 --ordre 2 --catalogue " + cat.string() +
           " --entree 1 --sortie " + (dossier / "tore.png").string();
}

void ProcessusExporte(benchmark::State& state)
{
    const std::string commande = prepareProcessus();
    for (auto _ : state) {
        if (std::system(commande.c_str()) != 0) {
            state.SkipWithError("velorin exporte a échoué");
            break;
        }
    }
}

}  // namespace

BENCHMARK(CalculSeul)->Unit(benchmark::kMillisecond);
BENCHMARK(CalculEtDessin)->Unit(benchmark::kMillisecond);
BENCHMARK(ProcessusExporte)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv)
{
    // The drawing runs in a process that has started Qt, as in the program.
    assureApplication();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
