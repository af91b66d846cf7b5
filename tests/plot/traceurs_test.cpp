#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "commun/commun.h"
#include "plot/traceurs.h"

namespace velorin {
namespace {

using namespace essai;

Etat etatAvec(bool espace, std::string f1, std::string f2 = {}, std::string f3 = {})
{
    Etat etat = etatCalibre(espace);
    etat.moteur.formuleF1 = std::move(f1);
    etat.moteur.formuleF2 = std::move(f2);
    etat.moteur.formuleF3 = std::move(f3);
    return etat;
}

void bornesT(Etat& e, double debut, double fin, double pas)
{
    e.param.tmin = debut, e.param.tmax = fin, e.param.pasT = pas;
}

TEST(Traceurs, BranchesDeLaTangenteJamaisReliees)
{
    Etat etat = etatAvec(false, "TAN(X)");
    SurfaceEnregistreuse s;
    EXPECT_FALSE(traceExplicite(etat, s, {}).erreur);
    // Seven branches between the six asymptotes of [-10, 10], each starting with a dot.
    EXPECT_EQ(duGenre(s, Genre::Point).size(), 7u);
    EXPECT_GT(duGenre(s, Genre::Ligne).size(), 100u);
    auto branche = [&](double sx) {
        return std::floor((sx - etat.vue.decalX) / etat.vue.echelleX / 3.141592653589793 - 0.5);
    };
    for (const auto& l : duGenre(s, Genre::Ligne))
        EXPECT_EQ(branche(l.x1), branche(l.x2)) << "segment across an asymptote at " << l.x1;
}

TEST(Traceurs, CourbePlaneMarqueChaqueDixiemePointDeSaTangente)
{
    struct Cas {
        double nbrCalX;
        int tangentes;
        std::size_t marques;
    };
    for (Cas c : {Cas{37, 1, 3}, Cas{100, 1, 10}, Cas{8, 1, 0}, Cas{100, 0, 0}}) {
        Etat etat = etatAvec(false, "0.5*X");
        etat.param.nbrCalX = c.nbrCalX;
        etat.param.avecSegmentTangent = c.tangentes;
        SurfaceEnregistreuse s;
        traceExplicite(etat, s, {});
        const auto& ops = s.operations();
        std::size_t marques = 0, points = 0;
        for (std::size_t i = 0; i < ops.size(); ++i) {
            if (ops[i].couleur == etat.couleurs.couleurTrace) {
                ++points;
                continue;
            }
            ++marques;
            // Drawn just before its point, a tenth one; centred on it, the
            // half length in range units and the slope of 0.5 X.
            ASSERT_LT(i + 1, ops.size());
            EXPECT_EQ((points + 1) % 10, 0u) << c.nbrCalX;
            const auto& t = ops[i];
            const double px = ops[i + 1].x2, py = ops[i + 1].y2;
            EXPECT_NEAR((t.x1 + t.x2) / 2, px, 1e-6);
            EXPECT_NEAR((t.y1 + t.y2) / 2, py, 1e-6);
            const double dx = (t.x1 - px) / etat.vue.echelleX, dy = (py - t.y1) / etat.vue.echelleY;
            EXPECT_NEAR(std::hypot(dx, dy), std::sqrt(800.0) / 8, 1e-6);
            EXPECT_NEAR(dy / dx, 0.5, 1e-6);
        }
        EXPECT_EQ(marques, c.marques) << c.nbrCalX;
    }
}

TEST(Traceurs, RayonDeLaCourbeSpheriqueEtTrousHorsDeLaBoite)
{
    for (int avecRayon : {0, 1}) {
        Etat etat = etatAvec(true, "2", "T", "0");
        etat.moteur.genreCourbe = 3;
        etat.param.avecRayon = avecRayon;
        bornesT(etat, 0, 6.28, 0.1);  // 63 points
        SurfaceEnregistreuse s;
        parcours3(etat, s, {});
        // One radius a tenth point (PointTrace.MarksOfATenthPoint checks where it starts).
        EXPECT_EQ(duGenre(s, Genre::Ligne, etat.couleurs.couleurRayon).size(), avecRayon ? 6u : 0u);
    }
    // A circle of radius 12 lies inside the [-10, 10] box only near the diagonals.
    Etat etat = etatAvec(true, "(12)*COS(T)", "(12)*SIN(T)", "0");
    bornesT(etat, 0, 6.28, 0.01);
    SurfaceEnregistreuse s;
    parcours1(etat, s, {});
    EXPECT_EQ(duGenre(s, Genre::Point).size(), 4u);
    EXPECT_GT(duGenre(s, Genre::Ligne).size(), 40u);
}

TEST(Traceurs, BouclesDeFamilleCourbesPointsEtCouleurs)
{
    // a over [0, amax] by 0.1 in single precision; t over [0, 1] by 0.25 (5 values).
    struct Cas {
        int ordre;
        double amax;
        std::size_t courbes, points, rouges, verts;
    };
    const Cas cas[] = {
        {0, 1, 10, 50, 0, 0},     // a reaches 10 values (11 in double precision)
        {0, 3, 31, 155, 0, 0},    // ... and 31 here (30 in double precision)
        {1, 1, 5, 50, 0, 0},      {2, 1, 15, 100, 0, 0},
        {3, 1, 15, 100, 50, 50},  // t-outer pass red, a-outer pass green
    };
    for (const Cas& c : cas) {
        Etat etat = etatAvec(true, "A", "T", "0");
        etat.param.ordreBoucles = static_cast<std::uint8_t>(c.ordre);
        etat.param.amin = 0, etat.param.amax = c.amax, etat.param.pasA = 0.1;
        bornesT(etat, 0, 1, 0.25);
        SurfaceEnregistreuse s;
        EXPECT_FALSE(parcours2(etat, s, {}).erreur);
        const std::size_t debuts = duGenre(s, Genre::Point).size();
        EXPECT_EQ(debuts, c.courbes) << c.ordre << " " << c.amax;
        EXPECT_EQ(debuts + duGenre(s, Genre::Ligne).size(), c.points) << c.ordre << " " << c.amax;
        EXPECT_EQ(duGenre(s, Genre::Ligne, 255).size() + duGenre(s, Genre::Point, 255).size(), c.rouges) << c.ordre;
        EXPECT_EQ(duGenre(s, Genre::Ligne, 65280).size() + duGenre(s, Genre::Point, 65280).size(), c.verts);
    }
}

TEST(Traceurs, MoirureCouleursUnAQuinzePuisDeuxAQuinze)
{
    Etat etat = etatAvec(true, "(1)*SIN(A)", "(1)*COS(A)", "T");
    etat.param.avecMoirure = true;
    etat.param.amin = 0, etat.param.amax = 2, etat.param.pasA = 0.1;  // 20 curves
    bornesT(etat, 0, 1, 0.5);
    SurfaceEnregistreuse s;
    parcours4(etat, s, {});
    std::vector<Couleur> couleurs, attendues;
    for (const auto& p : duGenre(s, Genre::Point))
        couleurs.push_back(p.couleur);
    for (int i : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 2, 3, 4, 5, 6})
        attendues.push_back(QBColor(i));
    EXPECT_EQ(couleurs, attendues);
}

TEST(Traceurs, IntervallesRefusesNeTracentRienEtDisentPourquoi)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    struct Cas {
        const char* nom;
        int genre;
        double debut, fin, pas;
        std::size_t points;
        const char* message;
    };
    const Cas cas[] = {
        {"zero step", 1, 0, 1, 0, 0, "(de 0 à 1) ne donne aucun point car le pas est nul"},
        {"step of the wrong sign", 1, 0, 1, -0.1, 0, "(de 0 à 1 par pas de -0.1) ne donne aucun point"},
        {"bound not finite", 1, nan, 1, 0.1, 0, "L'intervalle de t n'a pas des bornes finies"},
        {"infinite bound", 1, 0, inf, 0.1, 0, "L'intervalle de t n'a pas des bornes finies"},
        {"step not finite", 1, 0, 1, inf, 0, "le pas n'est pas un nombre fini"},
        {"step lost in the bound", 1, 1e20, 1e20 + 1e6, 1, 0, "le pas de 1 est trop petit pour faire avancer t"},
        {"too many points", 1, 0, 1, 1e-8, 0, "Trop de points à calculer (100000001) : au plus 10000000"},
        {"smallest step", 1, 0, 6.28, 5e-324, 0, "Trop de points à calculer (plus de 10000000 par tracé)"},
        {"going down", 1, 1, 0, -0.25, 5, ""},
        {"family, zero a step", 2, 0, 1, 0, 0, "L'intervalle de a (de 0 à 1) ne donne aucun point car le pas est nul"},
        {"family, too many points", 2, 0, 1, 1e-5, 0, "Trop de points à calculer ("},
        {"plane curve, no count", 0, -10, 10, 0, 0, "le nombre de calculs nbrCalX est inférieur à 1"},
        {"plane curve, count not finite", 0, -10, 10, nan, 0, "nbrCalX n'est pas un nombre fini"},
        {"plane curve, equal bounds", 0, 5, 5, 0, 0, "le nombre de calculs nbrCalX est inférieur à 1"},
    };
    for (const Cas& c : cas) {
        Etat etat = etatAvec(c.genre != 0, "T/10", "A/10", "0");
        if (c.genre == 1)
            bornesT(etat, c.debut, c.fin, c.pas);
        if (c.genre == 2)
            etat.param.amin = c.debut, etat.param.amax = c.fin, etat.param.pasA = c.pas;
        if (c.genre == 0)
            etat.param.xmin = c.debut, etat.param.xmax = c.fin;
        etat.param.nbrCalX = c.pas;
        SurfaceEnregistreuse s;
        const FinTrace fin = c.genre == 0   ? traceExplicite(etat, s, {})
                             : c.genre == 1 ? parcours1(etat, s, {})
                                            : parcours2(etat, s, {});
        EXPECT_EQ(s.operations().size(), c.points) << c.nom;
        const std::string& message = fin.erreur.message();
        EXPECT_EQ(!fin.erreur, c.points > 0) << c.nom << ": " << message;
        EXPECT_NE(message.find(c.message), std::string::npos) << c.nom << ": " << message;
        for (const char* jamais : {" inf ", "(inf", "inf)", "nan", "e+308"})
            EXPECT_EQ(message.find(jamais), std::string::npos) << c.nom << ": " << message;
    }
}

TEST(Traceurs, InterruptionEtFormuleFausseArretentLeTrace)
{
    struct Cas {
        const char* f1;
        bool interrompre;
        bool interrompu;
        bool message;
        std::size_t auPlus;
    };
    for (Cas c : {Cas{"T/100000", true, true, false, 256}, Cas{"SIN(T", false, false, true, 1}}) {
        Etat etat = etatAvec(true, c.f1, "0", "0");
        bornesT(etat, 0, 1, 1e-5);
        int questions = 0;
        CrochetsTrace crochets;
        crochets.interrompu = [&] {
            ++questions;
            return c.interrompre;
        };
        SurfaceEnregistreuse s;
        const FinTrace fin = parcours1(etat, s, crochets);
        EXPECT_EQ(fin.interrompu, c.interrompu) << c.f1;
        EXPECT_EQ(bool(fin.erreur), c.message) << c.f1;
        EXPECT_LE(s.operations().size(), c.auPlus) << c.f1;
        EXPECT_LE(questions, 1) << c.f1;
    }
}

}  // namespace
}  // namespace velorin
