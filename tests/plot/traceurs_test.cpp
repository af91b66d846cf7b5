#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "outils_trace.h"
#include "plot/traceurs.h"

namespace velorin {
namespace {

using namespace essai;

struct Formules { const char* f1; const char* f2; const char* f3; };

Etat etatAvec(bool espace, Formules f)
{
    Etat etat = etatCalibre(espace);
    etat.moteur.formuleF1 = f.f1;
    etat.moteur.formuleF2 = f.f2;
    etat.moteur.formuleF3 = f.f3;
    return etat;
}

// Surface x of a plane point back to the x of the ranges.
double xDe(const Etat& e, double sx) { return (sx - e.vue.decalX) / e.vue.echelleX; }

TEST(Traceurs, TangentOfThePlaneCurveBranchesAreNeverJoined)
{
    Etat etat = etatAvec(false, {"TAN(X)", "", ""});
    SurfaceEnregistreuse s;
    EXPECT_TRUE(traceExplicite(etat, s, {}).message.empty());
    // Seven branches between the six asymptotes of [-10, 10]: each starts with a dot.
    EXPECT_EQ(duGenre(s, Genre::Point).size(), 7u);
    EXPECT_GT(duGenre(s, Genre::Ligne).size(), 100u);
    for (const auto& l : duGenre(s, Genre::Ligne)) {
        const double k1 = std::floor(xDe(etat, l.x1) / 3.141592653589793 - 0.5);
        const double k2 = std::floor(xDe(etat, l.x2) / 3.141592653589793 - 0.5);
        EXPECT_EQ(k1, k2) << "segment across an asymptote at x = " << xDe(etat, l.x1);
    }
}

TEST(Traceurs, PlaneCurveMarksEveryTenthPointWithItsTangent)
{
    struct Cas { double nbrCalX; int tangentes; std::size_t marques; };
    for (Cas c : {Cas{37, 1, 3}, Cas{100, 1, 10}, Cas{8, 1, 0}, Cas{100, 0, 0}}) {
        Etat etat = etatAvec(false, {"0.5*X", "", ""});
        etat.param.nbrCalX = c.nbrCalX;
        etat.param.avecSegmentTangent = c.tangentes;
        SurfaceEnregistreuse s;
        traceExplicite(etat, s, {});
        const auto& ops = s.operations();
        std::vector<std::size_t> indices;   // curve points in order: a dot then segment ends
        for (std::size_t i = 0; i < ops.size(); ++i)
            if (ops[i].couleur == etat.couleurs.couleurTrace)
                indices.push_back(i);
        std::size_t marques = 0;
        for (std::size_t i = 0; i < ops.size(); ++i) {
            if (ops[i].couleur != etat.couleurs.couleurTangente)
                continue;
            ++marques;
            // Drawn just before the point it belongs to, which is a tenth point.
            const auto rang = std::find(indices.begin(), indices.end(), i + 1) - indices.begin();
            EXPECT_EQ((rang + 1) % 10, 0) << c.nbrCalX;
            const auto& t = ops[i];
            const double px = ops[i + 1].genre == Genre::Ligne ? ops[i + 1].x2 : ops[i + 1].x1;
            const double py = ops[i + 1].genre == Genre::Ligne ? ops[i + 1].y2 : ops[i + 1].y1;
            EXPECT_NEAR((t.x1 + t.x2) / 2, px, 1e-6);      // centred on the point
            EXPECT_NEAR((t.y1 + t.y2) / 2, py, 1e-6);
            const double dx = (t.x1 - px) / etat.vue.echelleX, dy = (py - t.y1) / etat.vue.echelleY;
            EXPECT_NEAR(std::hypot(dx, dy), std::sqrt(800.0) / 8, 1e-6);  // half length
            EXPECT_NEAR(dy / dx, 0.5, 1e-6);                               // the slope
        }
        EXPECT_EQ(marques, c.marques) << c.nbrCalX;
    }
}

TEST(Traceurs, SphericalCurveDrawsItsRadiusOnTenthPoints)
{
    for (int avecRayon : {0, 1}) {
        Etat etat = etatAvec(true, {"2", "T", "0"});
        etat.moteur.genreCourbe = 3;
        etat.param.avecRayon = avecRayon;
        etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.1;  // 63 points
        SurfaceEnregistreuse s;
        parcours3(etat, s, {});
        const auto rayons = enCouleur(s, Genre::Ligne, etat.couleurs.couleurRayon);
        EXPECT_EQ(rayons.size(), avecRayon ? 6u : 0u);
        for (const auto& r : rayons) {
            EXPECT_EQ(r.x1, etat.vue.origineEcranX);
            EXPECT_EQ(r.y1, etat.vue.origineEcranY);
        }
    }
}

TEST(Traceurs, CurveLeavingTheBoxIsNotJoinedAcrossTheGap)
{
    // A circle of radius 12 is inside the [-10, 10] box only near the diagonals.
    Etat etat = etatAvec(true, {"(12)*COS(T)", "(12)*SIN(T)", "0"});
    etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.01;
    SurfaceEnregistreuse s;
    parcours1(etat, s, {});
    EXPECT_EQ(duGenre(s, Genre::Point).size(), 4u);
    EXPECT_GT(duGenre(s, Genre::Ligne).size(), 40u);
}

TEST(Traceurs, FamilyLoopOrdersCurvesAndPoints)
{
    // a over [0, amax] by 0.1 in single precision; t over [0, 1] by 0.25 (5 values).
    struct Cas { int ordre; double amax; std::size_t courbes; std::size_t points;
                 std::size_t rouges; std::size_t verts; };
    const Cas cas[] = {
        {0, 1, 10, 50, 0, 0},     // a single loop reaches 10 values (11 in double)
        {0, 3, 31, 155, 0, 0},    // ... and 31 here (30 in double)
        {1, 1, 5, 50, 0, 0},
        {2, 1, 15, 100, 0, 0},
        {3, 1, 15, 100, 50, 50},  // t-outer pass red, a-outer pass green
    };
    for (const Cas& c : cas) {
        Etat etat = etatAvec(true, {"A", "T", "0"});
        etat.param.ordreBoucles = static_cast<std::uint8_t>(c.ordre);
        etat.param.amin = 0, etat.param.amax = c.amax, etat.param.pasA = 0.1;
        etat.param.tmin = 0, etat.param.tmax = 1, etat.param.pasT = 0.25;
        SurfaceEnregistreuse s;
        EXPECT_TRUE(parcours2(etat, s, {}).message.empty());
        const auto debuts = duGenre(s, Genre::Point).size();
        EXPECT_EQ(debuts, c.courbes) << c.ordre << " " << c.amax;
        EXPECT_EQ(debuts + duGenre(s, Genre::Ligne).size(), c.points) << c.ordre << " " << c.amax;
        std::size_t rouges = 0, verts = 0;
        for (const auto& op : s.operations()) {
            rouges += op.couleur == 255;
            verts += op.couleur == 65280;
        }
        EXPECT_EQ(rouges, c.rouges) << c.ordre;
        EXPECT_EQ(verts, c.verts) << c.ordre;
    }
}

TEST(Traceurs, MoireColoursRunOneToFifteenThenTwoToFifteen)
{
    Etat etat = etatAvec(true, {"(1)*SIN(A)", "(1)*COS(A)", "T"});
    etat.param.avecMoirure = true;
    etat.param.amin = 0, etat.param.amax = 2, etat.param.pasA = 0.1;  // 20 curves
    etat.param.tmin = 0, etat.param.tmax = 1, etat.param.pasT = 0.5;
    SurfaceEnregistreuse s;
    parcours4(etat, s, {});
    std::vector<Couleur> couleurs, attendues;
    for (const auto& p : duGenre(s, Genre::Point))
        couleurs.push_back(p.couleur);
    for (int i : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 2, 3, 4, 5, 6})
        attendues.push_back(QBColor(i));
    EXPECT_EQ(couleurs, attendues);
}

TEST(Traceurs, RefusedRangesDrawNothingAndSaySo)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Cas { const char* nom; int genre; double debut, fin, pas; std::size_t points; };
    const Cas cas[] = {
        {"zero step", 1, 0, 1, 0, 0},
        {"step of the wrong sign", 1, 0, 1, -0.1, 0},
        {"bound not finite", 1, nan, 1, 0.1, 0},
        {"step lost in the bound", 1, 1e20, 1e20 + 1e6, 1, 0},
        {"too many points", 1, 0, 1, 1e-8, 0},
        {"going down", 1, 1, 0, -0.25, 5},
        {"family, zero a step", 2, 0, 1, 0, 0},
        {"family, too many points", 2, 0, 1, 1e-5, 0},
        {"plane curve, no count", 0, 0, 0, 0, 0},
    };
    for (const Cas& c : cas) {
        Etat etat = etatAvec(c.genre != 0, {"T/10", "A/10", "0"});
        if (c.genre == 1)
            etat.param.tmin = c.debut, etat.param.tmax = c.fin, etat.param.pasT = c.pas;
        if (c.genre == 2)
            etat.param.amin = c.debut, etat.param.amax = c.fin, etat.param.pasA = c.pas;
        if (c.genre == 0)
            etat.param.nbrCalX = c.pas;
        SurfaceEnregistreuse s;
        const FinTrace fin = c.genre == 0 ? traceExplicite(etat, s, {})
                             : c.genre == 1 ? parcours1(etat, s, {}) : parcours2(etat, s, {});
        EXPECT_EQ(s.operations().size(), c.points) << c.nom;
        EXPECT_EQ(fin.message.empty(), c.points > 0) << c.nom << ": " << fin.message;
    }
}

TEST(Traceurs, InterruptionAndFormulaErrorsStopTheTracing)
{
    struct Cas { const char* f1; bool interrompre; bool interrompu; bool message; std::size_t auPlus; };
    for (Cas c : {Cas{"T/100000", true, true, false, 256}, Cas{"SIN(T", false, false, true, 1}}) {
        Etat etat = etatAvec(true, {c.f1, "0", "0"});
        etat.param.tmin = 0, etat.param.tmax = 1, etat.param.pasT = 1e-5;
        int questions = 0;
        CrochetsTrace crochets;
        crochets.interrompu = [&] { ++questions; return c.interrompre; };
        SurfaceEnregistreuse s;
        const FinTrace fin = parcours1(etat, s, crochets);
        EXPECT_EQ(fin.interrompu, c.interrompu) << c.f1;
        EXPECT_EQ(!fin.message.empty(), c.message) << c.f1;
        EXPECT_LE(s.operations().size(), c.auPlus) << c.f1;
        EXPECT_LE(questions, 1) << c.f1;
    }
}

}  // namespace
}  // namespace velorin
