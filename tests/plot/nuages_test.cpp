#include "plot/nuages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "view/projection.h"
#include "view/surface_enregistreuse.h"

using namespace velorin;

namespace {

// Points set by a cloud drawn in the plane on [-10,10] x [-10,10] (z too).
// The frame is calibrated a little wider so that every grid point, x = 10
// included, lies inside the drawing area.
std::vector<OperationDessin> dessinNuage(int genre, const char* g, const char* f, const char* h, double nx, double ny,
                                         double nz, const CrochetsTrace& crochets = {}, Etat* apres = nullptr)
{
    Etat etat;
    etat.fenetre.metsModeEspace(false);
    SurfaceEnregistreuse surface;
    etat.vue.W = surface.Width();
    etat.vue.H = surface.Height();
    etat.param.xmax = 11;
    etat.param.ymin = -11;
    calibre(etat.param, etat.vue, false);
    etat.param.xmax = 10;
    etat.param.ymin = -10;
    etat.param.nbrCalX = nx;
    etat.param.nbrCalY = ny;
    etat.param.nbrCalZ = nz;
    etat.trace.typeTrace = genre;
    etat.moteur.formuleF1 = g;
    etat.moteur.formuleF2 = f;
    etat.moteur.formuleF3 = h;
    traceNuage(etat, surface, crochets);
    for (const auto& o : surface.operations()) {
        EXPECT_EQ(o.genre, OperationDessin::Genre::Point);
        EXPECT_EQ(o.couleur, etat.couleurs.couleurTrace);
    }
    if (apres)
        *apres = etat;
    return surface.operations();
}

std::size_t pointsNuage(int genre, const char* g, const char* f, const char* h, double nx, double ny, double nz,
                        const CrochetsTrace& crochets = {})
{
    return dessinNuage(genre, g, f, h, nx, ny, nz, crochets).size();
}

TEST(Nuages, PointsDuQuadrillage)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Cas {
        int genre;
        const char* g;
        const char* f;
        const char* h;
        double nx, ny, nz;
        std::size_t n;
    };
    const Cas cas[] = {
        // x = 0 only (grid step 1), for each of the 5 values of y.
        {14, "-1", "X", "1", 20, 4, 20, 5},
        // 81 integer points with x^2 + y^2 <= 25, less the origin (0 < f).
        {14, "0", "X^2+Y^2", "26", 20, 20, 20, 80},
        // x + y + z = 0 on {-10, 0, 10}^3: the origin and the 6 orders of (-10, 0, 10).
        {15, "-1", "X+Y+Z", "1", 2, 2, 2, 7},
        // kind 14 ignores z and its count.
        {14, "-1", "Z", "1", 2, 2, nan, 9},
        // strict inequalities: nothing between equal bounds.
        {14, "1", "1", "2", 4, 4, 4, 0},
        // counts below 1, negative or not finite draw nothing.
        {14, "-1", "0", "1", 0.5, 4, 4, 0},
        {14, "-1", "0", "1", -3, 4, 4, 0},
        {14, "-1", "0", "1", 4, nan, 4, 0},
        {15, "-1", "0", "1", 4, 4, std::numeric_limits<double>::infinity(), 0},
        // a fractional count keeps its whole part: 2 x 3 values.
        {14, "-1", "0", "1", 1.9, 2.5, 0, 6},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(pointsNuage(c.genre, c.g, c.f, c.h, c.nx, c.ny, c.nz), c.n) << c.g << "<" << c.f << "<" << c.h;
}

TEST(Nuages, GrilleEnormeInterrompue)
{
    int appels = 0;
    CrochetsTrace crochets;
    crochets.interrompu = [&] { return ++appels >= 2; };
    const std::size_t n = pointsNuage(15, "-1", "0", "1", 1e12, 1e12, 1e12, crochets);
    EXPECT_EQ(appels, 2);
    EXPECT_LT(n, 2 * 4096u);
    EXPECT_GT(n, 0u);
}

// The grid walked x outer, then y, then z, over many runs of points: the
// points of x + 2y + 4z = 0 on the integer grid of [-10, 10]^3 come in that
// order, each where the plane frame puts its (x, y), the last one included.
TEST(Nuages, OrdreDuParcours)
{
    Etat etat;
    const auto operations = dessinNuage(15, "-0.5", "X+2*Y+4*Z", "0.5", 20, 20, 20, {}, &etat);
    std::vector<std::pair<double, double>> attendus;
    for (int x = -10; x <= 10; ++x)
        for (int y = -10; y <= 10; ++y)
            for (int z = -10; z <= 10; ++z)
                if (x + 2 * y + 4 * z == 0) {
                    double sx = 0, sy = 0;
                    ASSERT_TRUE(projette(etat.param, etat.vue, false, x, y, z, sx, sy));
                    attendus.emplace_back(sx, sy);
                }
    ASSERT_EQ(operations.size(), attendus.size());
    for (std::size_t i = 0; i < attendus.size(); ++i) {
        EXPECT_EQ(operations[i].x1, attendus[i].first) << i;
        EXPECT_EQ(operations[i].y1, attendus[i].second) << i;
    }
    // The engine's point is the last one set.
    EXPECT_EQ(etat.moteur.pointX, 10);
    EXPECT_EQ(etat.moteur.pointY, 9);
    EXPECT_EQ(etat.moteur.pointZ, -7);
    EXPECT_TRUE(etat.moteur.erreurFormule.empty());
}

// Unbalanced brackets: nothing is set and the cloud's message is left.
TEST(Nuages, FormuleIllisible)
{
    Etat etat;
    EXPECT_TRUE(dessinNuage(15, "-1", "(X+Y", "1", 20, 20, 20, {}, &etat).empty());
    EXPECT_EQ(etat.moteur.erreurFormule, messageIncorrecte(Famille::Nuage));
}

}  // namespace
