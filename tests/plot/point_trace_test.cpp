#include <gtest/gtest.h>

#include <limits>

#include "outils_trace.h"
#include "plot/point_trace.h"

namespace velorin {
namespace {

using namespace essai;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Feeds surface points one after the other to the point step.
void pose(Etat& etat, SurfaceEnregistreuse& s, std::initializer_list<std::pair<double, double>> pts,
          int marque = 0)
{
    for (auto [x, y] : pts) {
        etat.trace.ecranX = x;
        etat.trace.ecranY = y;
        tracePoint(etat, s, marque, 0xABCDEF, CrochetsTrace{});
    }
}

TEST(PointTrace, JoinsOnlyConsecutiveVisiblePointsWithinHalfTheArea)
{
    // Drawing area: x in [1, 13760], y in [16, 10735].
    struct Cas { const char* nom; int continu; std::vector<std::pair<double, double>> pts;
                 std::vector<Genre> attendu; };
    const Cas cas[] = {
        {"leaves and comes back", 1, {{100, 100}, {200, 200}, {0, 200}, {300, 300}, {400, 300}},
         {Genre::Point, Genre::Ligne, Genre::Point, Genre::Ligne}},
        {"bottom and right edges", 1, {{100, 10735}, {100, 10736}, {13760, 5000}, {13761, 5000}, {13000, 5000}},
         {Genre::Point, Genre::Point, Genre::Point}},
        {"top edge at 16", 1, {{500, 16}, {500, 15}, {500, 16}}, {Genre::Point, Genre::Point}},
        {"jump over half the height", 1, {{100, 100}, {100, 5461}, {100, 5462}},
         {Genre::Point, Genre::Point, Genre::Ligne}},
        {"jump over half the width", 1, {{100, 100}, {6981, 100}}, {Genre::Point, Genre::Point}},
        {"not finite lifts the pen", 1, {{100, 100}, {nan, 100}, {150, 100}},
         {Genre::Point, Genre::Point}},
        {"dotted", 0, {{100, 100}, {200, 200}, {0, 0}, {300, 300}},
         {Genre::Point, Genre::Point, Genre::Point}},
    };
    for (const Cas& c : cas) {
        Etat etat = etatCalibre(false);
        etat.param.traceContinu = c.continu;
        SurfaceEnregistreuse s;
        for (auto [x, y] : c.pts)
            pose(etat, s, {{x, y}});
        std::vector<Genre> genres;
        for (const auto& op : s.operations()) {
            genres.push_back(op.genre);
            EXPECT_EQ(op.couleur, 0xABCDEFu) << c.nom;
        }
        EXPECT_EQ(genres, c.attendu) << c.nom;
    }
}

TEST(PointTrace, LineStartsAtThePreviousVisiblePoint)
{
    Etat etat = etatCalibre(false);
    SurfaceEnregistreuse s;
    pose(etat, s, {{100, 100}, {200, 300}});
    const auto lignes = duGenre(s, Genre::Ligne);
    ASSERT_EQ(lignes.size(), 1u);
    EXPECT_EQ((std::vector<double>{lignes[0].x1, lignes[0].y1, lignes[0].x2, lignes[0].y2}),
              (std::vector<double>{100, 100, 200, 300}));
    EXPECT_EQ(etat.trace.nbVisiblesSuite, 2);
}

TEST(PointTrace, MarksOfATenthPoint)
{
    struct Cas {
        const char* nom; bool espace; int marque; double x, y;
        int genre, rayon, projOx, projOz, projXOy;
        int lignesRayon, projections;   // expected radius lines, dotted projection lines
    };
    const Cas cas[] = {
        {"space, all marks", true, 1, 5000, 5000, 3, 1, 1, 1, 1, 1, 3},
        {"space, no mark off the tenth", true, 0, 5000, 5000, 3, 1, 1, 1, 1, 0, 0},
        {"invisible point has no mark", true, 1, -50, 5000, 3, 1, 1, 1, 1, 0, 0},
        {"radius only for kind 3", true, 1, 5000, 5000, 1, 1, 0, 0, 0, 0, 0},
        {"plane: only the Ox and Oy marks", false, 1, 5000, 5000, 3, 0, 1, 1, 1, 0, 1},
    };
    for (const Cas& c : cas) {
        Etat etat = etatCalibre(c.espace);
        etat.moteur.genreCourbe = c.genre;
        etat.moteur.pointX = 2;
        etat.moteur.pointY = 3;
        etat.moteur.pointZ = 4;
        etat.param.avecRayon = c.rayon;
        etat.param.projOx = c.projOx;
        etat.param.projOz = c.projOz;
        etat.param.projXOy = c.projXOy;
        etat.couleurs.couleurProjXOy = 0x00FF00;  // the scheme says green
        SurfaceEnregistreuse s;
        pose(etat, s, {{c.x, c.y}}, c.marque);

        const auto rayons = enCouleur(s, Genre::Ligne, etat.couleurs.couleurRayon);
        EXPECT_EQ(static_cast<int>(rayons.size()), c.lignesRayon) << c.nom;
        for (const auto& r : rayons) {
            EXPECT_EQ(r.x1, etat.vue.origineEcranX);
            EXPECT_EQ(r.x2, c.x);
        }
        int pointilles = 0;
        for (const auto& op : duGenre(s, Genre::Ligne))
            pointilles += op.style == 2;
        EXPECT_EQ(pointilles, c.projections) << c.nom;
        EXPECT_EQ(duGenre(s, Genre::Cercle).size(), static_cast<std::size_t>(c.projections)) << c.nom;
        if (c.projXOy && c.espace && c.marque && c.projections) {
            // The foot (2, 3, 0) of the xOy projection, in blue whatever the scheme.
            double fx, fy;
            ASSERT_TRUE(projette(etat.param, etat.vue, true, 2, 3, 0, fx, fy));
            const auto bleus = enCouleur(s, Genre::Cercle, 0xFF0000);
            ASSERT_EQ(bleus.size(), 1u) << c.nom;
            EXPECT_DOUBLE_EQ(bleus[0].x1, fx);
            EXPECT_DOUBLE_EQ(bleus[0].y1, fy);
            EXPECT_EQ(bleus[0].rayon, 20);
            EXPECT_EQ(bleus[0].style, 0);
        }
        EXPECT_EQ(etat.couleurs.couleurProjXOy, 0xFF0000u) << c.nom;
    }
}

TEST(PointTrace, TangentIsDrawnOnlyWhenItHasALength)
{
    struct Cas { double x1, y1, x2, y2; int marque; std::size_t tangentes; };
    for (Cas c : {Cas{10, 20, 30, 40, 1, 1}, Cas{10, 20, 30, 40, 0, 0}, Cas{50, 60, 50, 60, 1, 0}}) {
        Etat etat = etatCalibre(false);
        etat.trace.tangenteX1 = c.x1;
        etat.trace.tangenteY1 = c.y1;
        etat.trace.tangenteX2 = c.x2;
        etat.trace.tangenteY2 = c.y2;
        SurfaceEnregistreuse s;
        pose(etat, s, {{700, 700}}, c.marque);
        EXPECT_EQ(enCouleur(s, Genre::Ligne, etat.couleurs.couleurTangente).size(), c.tangentes);
    }
}

TEST(PointTrace, PausesOnlyWhenActiveAndAtLeastOneMillisecond)
{
    struct Cas { bool active; std::int16_t ms; int appels; };
    for (Cas c : {Cas{true, 30, 2}, Cas{true, 1, 2}, Cas{true, 0, 0}, Cas{false, 30, 0}}) {
        Etat etat = etatCalibre(false);
        etat.fenetre.pauseActive = c.active;
        etat.param.pauseMs = c.ms;
        int appels = 0;
        CrochetsTrace crochets;
        crochets.pause = [&](int ms) { ++appels; EXPECT_EQ(ms, c.ms); };
        SurfaceEnregistreuse s;
        for (double x : {100.0, -100.0}) {   // visible or not, the point waits
            etat.trace.ecranX = x;
            etat.trace.ecranY = 500;
            tracePoint(etat, s, 0, 0, crochets);
        }
        EXPECT_EQ(appels, c.appels) << c.active << " " << c.ms;
    }
}

TEST(PointTrace, AdmittedPoints)
{
    struct Cas { bool espace; float zmin; double zmax; double sx, sy, x, y, z; bool admis; };
    const Cas cas[] = {
        // Plane: the surface position inside 0..W-1400 by 0..H-800.
        {false, -10, 10, 0, 0, 99, 99, 99, true},
        {false, -10, 10, 13960, 10720, 0, 0, 0, true},
        {false, -10, 10, 13961, 100, 0, 0, 0, false},
        {false, -10, 10, 100, -0.5, 0, 0, 0, false},
        {false, -10, 10, nan, 100, 0, 0, 0, false},
        // Space: every coordinate in its range.
        {true, -10, 10, -1e6, -1e6, 10, -10, 0, true},
        {true, -10, 10, 0, 0, 10.001, 0, 0, false},
        {true, -10, 10, 0, 0, 0, -10.5, 0, false},
        {true, -10, 10, 0, 0, 0, 0, 1e9, false},
        {true, 5, -5, 0, 0, 0, 0, -4, true},      // reversed z range
        {true, 5, -5, 0, 0, 0, 0, 6, false},
        {true, -10, 10, 0, 0, nan, 0, 0, false},
    };
    for (const Cas& c : cas) {
        Etat etat = etatCalibre(c.espace);
        etat.param.zmin = c.zmin;
        etat.param.zmax = c.zmax;
        EXPECT_EQ(pointAdmis(etat, c.sx, c.sy, c.x, c.y, c.z), c.admis)
            << c.espace << " " << c.sx << " " << c.x << " " << c.y << " " << c.z;
    }
}

}  // namespace
}  // namespace velorin
