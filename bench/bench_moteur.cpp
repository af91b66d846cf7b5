// Speed of the formula engine, in nanoseconds of processor time per point,
// for four formulas: compiled and evaluated by blocks (the three coordinates
// of the torus compiled together), compiled and evaluated point by point,
// the same formula written in C++, muparser, and the evaluator that reads
// the text at every point.
//
// The process first starts a QGuiApplication and draws into a QImage, as the
// program does before it plots: Qt's start-up and drawing code may leave the
// upper halves of the vector registers dirty, after which ordinary SSE code
// runs many times slower until something clears them. To measure the worst
// case for the engine and the best case for the others, every iteration of
// the engine's runs starts with dirty registers (salit), and every
// iteration of the others with clean ones (nettoie).
//
// Run: make bench, then build-bench/bench/bench_moteur (any Google Benchmark
// option, e.g. --benchmark_min_time=0.5). A table is printed at the end.
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/compilation.h"
#include "engine/lecture.h"

namespace {

using velorin::Famille;
using velorin::FormuleCompilee;

constexpr std::size_t nbPoints = 4096;

#if defined(__x86_64__) || defined(__i386__)
// Leaves the upper half of a vector register dirty, as Qt may. Not compiled
// as AVX code: the compiler would clear the upper halves on return.
__attribute__((noinline)) void salitAvx()
{
    const double un = 1.0;
    asm volatile("vbroadcastsd %0, %%ymm15" : : "m"(un) : "xmm15");
}
const bool avecAvx = __builtin_cpu_supports("avx");
void salit()
{
    if (avecAvx)
        salitAvx();
}
#else
void salit() { }  // no vector register halves to dirty elsewhere
#endif
void nettoie()
{
    velorin::compil::nettoieRegistresVectoriels();
}

struct Cas {
    std::string nom;
    Famille famille;
    std::vector<std::string> textes;    // engine syntax, one per coordinate
    std::vector<std::string> muparser;  // same formulas for muparser (variables u, v)
    double debut, fin;                  // range of both variables
    // The formulas as C++: (u, v) -> up to three coordinates.
    std::function<void(const double*, const double*, double*, double*, double*, std::size_t)> natif;
};

std::vector<Cas> lesCas()
{
    return {
        {"tore",
         Famille::Plan,
         {"(3+COS(A))*COS(T)", "(3+COS(A))*SIN(T)", "SIN(A)"},
         {"(3+cos(u))*cos(v)", "(3+cos(u))*sin(v)", "sin(u)"},
         0,
         6.283184,
         [](const double* a, const double* t, double* x, double* y, double* z, std::size_t n) {
             for (std::size_t i = 0; i < n; ++i) {
                 x[i] = (3 + std::cos(a[i])) * std::cos(t[i]);
                 y[i] = (3 + std::cos(a[i])) * std::sin(t[i]);
                 z[i] = std::sin(a[i]);
             }
         }},
        {"sin(x)*cos(y)+x^2",
         Famille::Plan,
         {"SIN(X)*COS(Y)+(X^2)"},
         {"sin(u)*cos(v)+u^2"},
         -3,
         3,
         [](const double* x, const double* y, double* r, double*, double*, std::size_t n) {
             for (std::size_t i = 0; i < n; ++i)
                 r[i] = std::sin(x[i]) * std::cos(y[i]) + x[i] * x[i];
         }},
        {"2*x^3-x+1",
         Famille::Espace,
         {"2*X^3-X+1"},
         {"2*u^3-u+1"},
         -3,
         3,
         [](const double* x, const double*, double* r, double*, double*, std::size_t n) {
             for (std::size_t i = 0; i < n; ++i)
                 r[i] = 2 * x[i] * x[i] * x[i] - x[i] + 1;
         }},
        {"exp(-x^2)*cos(3*x)",
         Famille::Espace,
         {"EXP(-X^2)*COS(3*X)"},
         {"exp(-u^2)*cos(3*u)"},
         -3,
         3,
         [](const double* x, const double*, double* r, double*, double*, std::size_t n) {
             for (std::size_t i = 0; i < n; ++i)
                 r[i] = std::exp(-x[i] * x[i]) * std::cos(3 * x[i]);
         }},
    };
}

// The points: u runs through the range, v through it in another order.
struct Points {
    std::vector<double> u, v, sortie[3];
    explicit Points(const Cas& c) : u(nbPoints), v(nbPoints)
    {
        for (std::size_t i = 0; i < nbPoints; ++i) {
            u[i] = c.debut + (c.fin - c.debut) * double(i) / nbPoints;
            v[i] = c.debut + (c.fin - c.debut) * double((i * 2657) % nbPoints) / nbPoints;
        }
        for (auto& s : sortie)
            s.assign(nbPoints, 0.0);
    }
};

// Second variable as each family reads it (the space family reads the
// previous x there, which these formulas do not use).
double second(const Cas& c, const Points& p, std::size_t i)
{
    return c.famille == Famille::Plan ? p.v[i] : 0.0;
}

void parPoint(benchmark::State& etat, const Cas& c, void (*avant)(),
              const std::function<double(std::size_t, double, double)>& f)
{
    Points p(c);
    for (auto _ : etat) {
        avant();
        for (std::size_t k = 0; k < c.textes.size(); ++k)
            for (std::size_t i = 0; i < nbPoints; ++i)
                p.sortie[k][i] = f(k, p.u[i], second(c, p, i));
        benchmark::ClobberMemory();
    }
}

void enregistre(const Cas& c)
{
    auto formules = std::make_shared<std::vector<FormuleCompilee>>();
    for (const auto& t : c.textes)
        formules->emplace_back(c.famille, t);
    // The coordinates of one point compiled together, as a tracer would.
    auto groupe = std::make_shared<velorin::FormulesCompilees>(
        c.famille, std::vector<std::string_view>(c.textes.begin(), c.textes.end()));

    benchmark::RegisterBenchmark((c.nom + "/bloc").c_str(), [c, groupe](benchmark::State& etat) {
        Points p(c);
        const double* v = c.famille == Famille::Plan ? p.v.data() : nullptr;
        double* sorties[] = {p.sortie[0].data(), p.sortie[1].data(), p.sortie[2].data()};
        for (auto _ : etat) {
            salit();
            velorin::evalueBloc(*groupe, p.u.data(), v, nullptr, sorties, nbPoints);
            benchmark::ClobberMemory();
        }
    });
    benchmark::RegisterBenchmark((c.nom + "/point").c_str(), [c, formules](benchmark::State& etat) {
        parPoint(etat, c, salit, [&](std::size_t k, double u, double v) { return (*formules)[k].valeur(u, v, 0); });
    });
    benchmark::RegisterBenchmark((c.nom + "/natif").c_str(), [c](benchmark::State& etat) {
        Points p(c);
        for (auto _ : etat) {
            nettoie();
            c.natif(p.u.data(), p.v.data(), p.sortie[0].data(), p.sortie[1].data(), p.sortie[2].data(), nbPoints);
            benchmark::ClobberMemory();
        }
    });
    benchmark::RegisterBenchmark((c.nom + "/muparser").c_str(), [c](benchmark::State& etat) {
        double u = 0, v = 0;
        std::vector<std::unique_ptr<mu::Parser>> analyseurs;
        for (const auto& t : c.muparser) {
            analyseurs.push_back(std::make_unique<mu::Parser>());
            analyseurs.back()->DefineVar("u", &u);
            analyseurs.back()->DefineVar("v", &v);
            analyseurs.back()->SetExpr(t);
        }
        parPoint(etat, c, nettoie, [&](std::size_t k, double a, double b) {
            u = a;
            v = b;
            return analyseurs[k]->Eval();
        });
    });
    benchmark::RegisterBenchmark((c.nom + "/texte").c_str(), [c](benchmark::State& etat) {
        parPoint(etat, c, nettoie, [&](std::size_t k, double u, double v) {
            return c.famille == Famille::Plan ? velorin::evalplan(c.textes[k], u, v)
                                              : velorin::evalespace(c.textes[k], u, v);
        });
    });
}

// The engine's formulas must give what the C++ formulas give (the powers may
// differ in the last bit: pow against products).
bool verifie(const Cas& c)
{
    Points p(c);
    c.natif(p.u.data(), p.v.data(), p.sortie[0].data(), p.sortie[1].data(), p.sortie[2].data(), nbPoints);
    double ecart = 0;
    for (std::size_t k = 0; k < c.textes.size(); ++k) {
        const FormuleCompilee f(c.famille, c.textes[k]);
        for (std::size_t i = 0; i < nbPoints; ++i) {
            const double attendu = p.sortie[k][i];
            const double obtenu = f.valeur(p.u[i], second(c, p, i), 0);
            ecart = std::max(ecart, std::fabs(obtenu - attendu) / std::max(1.0, std::fabs(attendu)));
        }
    }
    std::printf("%-20s écart relatif maximal avec C++ : %.3g\n", c.nom.c_str(), ecart);
    return ecart < 1e-12;
}

// Keeps the time per point of every run for the table at the end.
class Releve : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> nsParPoint;
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& r : runs) {
            if (r.iterations == 0)
                continue;
            const double ns = r.cpu_accumulated_time * 1e9 / double(r.iterations) / double(nbPoints);
            nsParPoint[r.benchmark_name()] = ns;
        }
    }
};

void dessineAvecQt()
{
    QImage image(1200, 900, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 400; ++i) {
        peintre.setPen(QColor::fromHsv(i % 360, 200, 200));
        peintre.drawLine(QPointF(i * 2.5, 0), QPointF(1200 - i * 1.5, 900));
        peintre.drawEllipse(QPointF(600, 450), i, i * 0.7);
    }
    peintre.drawText(20, 20, QStringLiteral("Velorin — mesure"));
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    dessineAvecQt();

    const std::vector<Cas> cas = lesCas();
    bool juste = true;
    for (const Cas& c : cas)
        juste = verifie(c) && juste;
    if (!juste)
        return 1;
    for (const Cas& c : cas)
        enregistre(c);

    benchmark::Initialize(&argc, argv);
    Releve releve;
    benchmark::RunSpecifiedBenchmarks(&releve);
    benchmark::Shutdown();

    const char* colonnes[] = {"bloc", "point", "natif", "muparser", "texte"};
    std::printf("\n%-37s", "ns par point (temps processeur)");
    for (const char* col : colonnes)
        std::printf("%10s", col);
    std::printf("%12s\n", "bloc/natif");
    for (const Cas& c : cas) {
        std::printf("%-37s", c.nom.c_str());
        for (const char* col : colonnes) {
            const auto it = releve.nsParPoint.find(c.nom + "/" + col);
            if (it == releve.nsParPoint.end())
                std::printf("%10s", "-");
            else
                std::printf("%10.2f", it->second);
        }
        const auto b = releve.nsParPoint.find(c.nom + "/bloc"), n = releve.nsParPoint.find(c.nom + "/natif");
        if (b != releve.nsParPoint.end() && n != releve.nsParPoint.end())
            std::printf("%12.2f", b->second / n->second);
        std::printf("\n");
    }
    return 0;
}
