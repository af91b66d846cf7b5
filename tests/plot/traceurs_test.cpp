#include "plot/traceurs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "commun/commun.h"
#include "plot/objets.h"

namespace velorin {
namespace {

using namespace essai;

// A calibrated state with its formulas and the range of t.
Etat etatAvec(bool espace, std::string f1, std::string f2 = {}, std::string f3 = {}, double tmin = 0, double tmax = 1,
              double pasT = 0.25)
{
    Etat etat = etatCalibre(espace);
    etat.moteur.formuleF1 = std::move(f1), etat.moteur.formuleF2 = std::move(f2), etat.moteur.formuleF3 = std::move(f3);
    etat.param.tmin = tmin, etat.param.tmax = tmax, etat.param.pasT = pasT;
    return etat;
}

// Each tracer by its kind; objects (kind 4 and up) through the object tracer.
FinTrace trace(int genre, Etat& etat, Surface& s)
{
    switch (genre) {
    case 0: return traceExplicite(etat, s, {});
    case 1: return parcours1(etat, s, {});
    case 2: return parcours2(etat, s, {});
    case 3: return parcours3(etat, s, {});
    default: return {false, traceObjet(etat, s, {})};
    }
}

// A point the tracer refuses (out of the ranges) is not drawn but leaves the
// pen as it is: the curve coming back is joined to its last drawn point, so
// each curve starts with one dot only (row: what a lifted pen would give).
TEST(Traceurs, PointRefuseNeLevePasLaPlume)
{
    for (auto [faute, genre, f1, f2, f3, points] :
         {std::tuple{"courbe de t coupée en deux arcs à x = -10", 1, "12*COS(T)", "5*SIN(T)", "0", 1u},
          {"y = f(x) dans l'espace coupée en trois arcs à y = 10", 0, "12*SIN(X/2)", "", "", 1u},
          {"famille : chaque courbe coupée en deux arcs à x = -10", 2, "12*COS(T)", "A", "0", 3u}}) {
        Etat etat = etatAvec(true, f1, f2, f3, 0, 6.28, 0.01);
        etat.param.traceContinu = 1, etat.param.nbrCalX = 1000;
        etat.param.amin = 0, etat.param.amax = 1, etat.param.pasA = 0.5;  // three curves
        SurfaceEnregistreuse s;
        ASSERT_FALSE(trace(genre, etat, s).erreur) << faute;
        EXPECT_EQ(duGenre(s, Genre::Point).size(), points) << faute;
        EXPECT_GT(duGenre(s, Genre::Ligne).size(), 100u) << faute;
    }
}

// Every tenth visible point issues the tangent Line with the ends stored;
// a tracer that computes no tangent leaves them on the image of (0, 0), and
// that Line of no length is part of the drawing too (row: what skipping it loses).
TEST(Traceurs, TangenteSansLongueurALOrigineSurChaqueDixiemePoint)
{
    for (auto [faute, espace, genre, f1, f2, f3, tangentes] :
         {std::tuple{"y = f(x) sans tangente demandée : 100 points", false, 0, "0.5*X", "", "", 10u},
          {"courbe de t : 25 points", true, 1, "T/10", "0", "0", 2u},
          {"courbe sphérique : 25 points", true, 3, "1", "T", "0", 2u},
          {"point : une marque", true, 9, "(1,2,3)", "", "", 1u}}) {
        Etat etat = etatAvec(espace, f1, f2, f3, 0, 2.4, 0.1);
        etat.param.nbrCalX = 100;
        etat.couleurs.couleurTangente = 0x123456;
        etat.trace.typeTrace = etat.moteur.genreCourbe = genre;
        etat.trace.tangenteX1 = etat.trace.tangenteY1 = 7;  // left by an earlier tracing
        SurfaceEnregistreuse s;
        EXPECT_FALSE(trace(genre, etat, s).erreur) << faute;
        const auto lignes = duGenre(s, Genre::Ligne, 0x123456);
        EXPECT_EQ(lignes.size(), tangentes) << faute;
        const double ox = etat.vue.origineEcranX, oy = etat.vue.origineEcranY;
        for (const auto& t : lignes)
            EXPECT_EQ((std::vector<double>{t.x1, t.y1, t.x2, t.y2}), (std::vector<double>{ox, oy, ox, oy})) << faute;
    }
}

// Drawn just before its point, a tenth one; centred on it, the half length
// in range units and the slope of 0.5 X.
TEST(Traceurs, CourbePlaneMarqueChaqueDixiemePointDeSaTangente)
{
    for (auto [nbrCalX, tangentes, attendues] : {std::tuple{37, 1, 3u}, {100, 1, 10u}, {8, 1, 0u}}) {
        Etat etat = etatAvec(false, "0.5*X");
        etat.param.nbrCalX = nbrCalX;
        etat.param.avecSegmentTangent = tangentes;
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
            ASSERT_LT(i + 1, ops.size());
            EXPECT_EQ((points + 1) % 10, 0u) << nbrCalX;
            const auto& t = ops[i];
            const double px = ops[i + 1].x2, py = ops[i + 1].y2;
            EXPECT_NEAR((t.x1 + t.x2) / 2, px, 1e-6);
            EXPECT_NEAR((t.y1 + t.y2) / 2, py, 1e-6);
            const double dx = (t.x1 - px) / etat.vue.echelleX, dy = (py - t.y1) / etat.vue.echelleY;
            EXPECT_NEAR(std::hypot(dx, dy), std::sqrt(800.0) / 8, 1e-6);
            EXPECT_NEAR(dy / dx, 0.5, 1e-6);
        }
        EXPECT_EQ(marques, attendues) << nbrCalX;
    }
}

// a over [0, amax] by 0.1 in single precision; t over [0, 1] by 0.25 (5
// values). Order 3: the t-outer pass red, the a-outer pass green.
TEST(Traceurs, BouclesDeFamilleCourbesPointsEtCouleurs)
{
    for (auto [ordre, amax, courbes, points, rouges, verts] :
         {std::tuple{0, 1.0, 10u, 50u, 0u, 0u},  // a reaches 10 values (11 in double precision)
          {0, 3.0, 31u, 155u, 0u, 0u},           // ... and 31 here (30 in double precision)
          {1, 1.0, 5u, 50u, 0u, 0u}, {2, 1.0, 15u, 100u, 0u, 0u}, {3, 1.0, 15u, 100u, 50u, 50u}}) {
        Etat etat = etatAvec(true, "A", "T", "0");
        etat.couleurs.couleurTangente = 0x123456;  // apart from the curves' colours
        etat.param.ordreBoucles = std::uint8_t(ordre);
        etat.param.amin = 0, etat.param.amax = amax, etat.param.pasA = 0.1;
        SurfaceEnregistreuse s;
        EXPECT_FALSE(parcours2(etat, s, {}).erreur);
        EXPECT_EQ(duGenre(s, Genre::Point).size(), courbes) << ordre << " " << amax;
        const std::size_t segments = duGenre(s, Genre::Ligne).size() - duGenre(s, Genre::Ligne, 0x123456).size();
        EXPECT_EQ(duGenre(s, Genre::Point).size() + segments, points) << ordre << " " << amax;
        EXPECT_EQ(duGenre(s, Genre::Ligne, 255).size() + duGenre(s, Genre::Point, 255).size(), rouges) << ordre;
        EXPECT_EQ(duGenre(s, Genre::Ligne, 65280).size() + duGenre(s, Genre::Point, 65280).size(), verts) << ordre;
    }
}

TEST(Traceurs, MoirureCouleursUnAQuinzePuisDeuxAQuinze)
{
    Etat etat = etatAvec(true, "(1)*SIN(A)", "(1)*COS(A)", "T", 0, 1, 0.5);
    etat.param.avecMoirure = true;
    etat.param.amin = 0, etat.param.amax = 2, etat.param.pasA = 0.1;  // 20 curves
    SurfaceEnregistreuse s;
    parcours4(etat, s, {});
    std::vector<Couleur> couleurs, attendues;
    for (const auto& p : duGenre(s, Genre::Point))
        couleurs.push_back(p.couleur);
    for (int i : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 2, 3, 4, 5, 6})
        attendues.push_back(QBColor(i));
    EXPECT_EQ(couleurs, attendues);
}

// An empty walk draws nothing and says nothing; a walk that could never end
// or be counted is refused in words.
TEST(Traceurs, IntervallesRefusesNeTracentRienEtDisentPourquoi)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    // Kind 0: the range of x and nbrCalX; 1: the range of t; 2: the range of a.
    // Row: kind, start, end, step (or count); the message, nullptr for an empty walk (nothing drawn nor
    // said), "" for 5 points drawn.
    const std::tuple<int, double, double, double, const char*> cas[] = {
        {1, 0, 1, 0, nullptr},     // zero step
        {1, 0, 1, -0.1, nullptr},  // step of the wrong sign
        {1, nan, 1, 0.1, "L'intervalle de t n'a pas des bornes finies"},
        {1, 0, inf, 0.1, "L'intervalle de t n'a pas des bornes finies"},
        {1, 0, 1, inf, "le pas n'est pas un nombre fini"},
        {1, 1e20, 1e20 + 1e6, 1, "le pas de 1 est trop petit pour faire avancer t"},
        {1, 0, 1, 1e-8, "Trop de points à calculer (100000001) : au plus 10000000"},
        {1, 0, 6.28, 5e-324, "Trop de points à calculer (plus de 10000000 par tracé)"},
        {1, 1, 0, -0.25, ""},  // going down
        {2, 0, 1, 0, nullptr},  // family, zero a step
        {2, 0, 1, 1e-5, "Trop de points à calculer ("},
        {0, -10, 10, 0, nullptr},   // no count
        {0, -10, 10, -5, nullptr},  // negative count
        {0, -10, 10, nan, "nbrCalX n'est pas un nombre fini"},
    };
    for (const auto& [genre, debut, fin, pas, attente] : cas) {
        Etat etat = etatCalibre(genre != 0);  // t over its range by default
        etat.moteur.formuleF1 = std::string("T/10");
        etat.moteur.formuleF2 = std::string("A/10");
        etat.moteur.formuleF3 = std::string("0");
        auto [d, f, p] = genre == 0 ? std::tie(etat.param.xmin, etat.param.xmax, etat.param.nbrCalX)
                          : genre == 1 ? std::tie(etat.param.tmin, etat.param.tmax, etat.param.pasT)
                                       : std::tie(etat.param.amin, etat.param.amax, etat.param.pasA);
        d = debut, f = fin, p = pas, etat.param.nbrCalX = pas;
        SurfaceEnregistreuse s;
        const FinTrace r = trace(genre, etat, s);
        const std::string& message = r.erreur.message();
        const std::string attendu = attente ? attente : "";
        EXPECT_EQ(s.operations().size(), attente && !*attente ? 5u : 0u) << attendu;
        EXPECT_EQ(bool(r.erreur), !attendu.empty()) << message;
        EXPECT_NE(message.find(attendu), std::string::npos) << message;
        for (const char* jamais : {" inf ", "(inf", "inf)", "nan", "e+308"})
            EXPECT_EQ(message.find(jamais), std::string::npos) << message;
    }
}

TEST(Traceurs, InterruptionEtFormuleFausseArretentLeTrace)
{
    for (auto [f1, interrompre, message, auPlus] :
         {std::tuple{"T/100000", true, false, 256u}, {"SIN(T", false, true, 1u}}) {
        Etat etat = etatAvec(true, f1, "0", "0", 0, 1, 1e-5);
        int questions = 0;
        CrochetsTrace crochets;
        crochets.interrompu = [&, interrompre = interrompre] { return ++questions, interrompre; };
        SurfaceEnregistreuse s;
        const FinTrace fin = parcours1(etat, s, crochets);
        EXPECT_EQ(fin.interrompu, interrompre) << f1;
        EXPECT_EQ(bool(fin.erreur), message) << f1;
        EXPECT_LE(s.operations().size() - duGenre(s, Genre::Ligne, etat.couleurs.couleurTangente).size(), auPlus)
            << f1;
        EXPECT_LE(questions, 1) << f1;
    }
}

}  // namespace
}  // namespace velorin
