#include "plot/nuages.h"

#include <gtest/gtest.h>

#include <limits>

#include "commun/commun.h"

namespace velorin {
namespace {

using namespace essai;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A cloud g < f < h drawn in the plane on [-10,10] x [-10,10] (z too), the
// frame calibrated a little wider so that every grid point, x = 10
// included, lies inside the drawing area. Every operation is a point of
// the drawing colour.
struct Nuage {
    Etat etat;
    SurfaceEnregistreuse surface;
    Nuage(int genre, const char* g, const char* f, const char* h, double nx, double ny, double nz,
          const CrochetsTrace& crochets = {})
    {
        etat.fenetre.metsModeEspace(false);
        etat.vue.W = surface.Width();
        etat.vue.H = surface.Height();
        placeCadre(etat, -10, 11, -11, 10);
        etat.param.xmax = 10, etat.param.ymin = -10;
        etat.param.nbrCalX = nx, etat.param.nbrCalY = ny, etat.param.nbrCalZ = nz;
        etat.trace.typeTrace = genre;
        etat.moteur.formuleF1 = g, etat.moteur.formuleF2 = f, etat.moteur.formuleF3 = h;
        traceNuage(etat, surface, crochets);
        EXPECT_EQ(duGenre(surface, Genre::Point, etat.couleurs.couleurTrace).size(), surface.operations().size());
    }
    std::size_t points() const { return surface.operations().size(); }
};

TEST(Nuages, PointsDuQuadrillage)
{
    const double inf = std::numeric_limits<double>::infinity();
    for (auto [genre, g, f, h, nx, ny, nz, n] : {
             std::tuple{14, "-1", "X", "1", 20., 4., 20., 5u},  // x = 0 only (grid step 1), for each of the 5 y
             {14, "0", "X^2+Y^2", "26", 20., 20., 20., 80u},    // x^2 + y^2 <= 25, less the origin (0 < f)
             {15, "-1", "X+Y+Z", "1", 2., 2., 2., 7u},  // {-10, 0, 10}^3: the origin and the 6 orders of (-10, 0, 10)
             {14, "-1", "Z", "1", 2., 2., nan, 9u},     // kind 14 ignores z and its count
             {14, "1", "1", "2", 4., 4., 4., 0u},       // strict inequalities: nothing between equal bounds
             {14, "-1", "0", "1", -3., 4., 4., 0u},  // counts below 1 or not finite draw nothing
             {14, "-1", "0", "1", 4., nan, 4., 0u},
             {15, "-1", "0", "1", 4., 4., inf, 0u},
             {14, "-1", "0", "1", 1.9, 2.5, 0., 6u},  // a fractional count keeps its whole part: 2 x 3 values
         })
        EXPECT_EQ(Nuage(genre, g, f, h, nx, ny, nz).points(), n) << g << "<" << f << "<" << h;
}

TEST(Nuages, GrilleEnormeInterrompue)
{
    int appels = 0;
    CrochetsTrace crochets;
    crochets.interrompu = [&] { return ++appels >= 2; };
    const std::size_t n = Nuage(15, "-1", "0", "1", 1e12, 1e12, 1e12, crochets).points();
    EXPECT_TRUE(appels == 2 && n > 0 && n < 2 * 4096u) << appels << " " << n;
}

// The grid walked x outer, then y, then z, over many runs of points: the
// points of x + 2y + 4z = 0 on the integer grid of [-10, 10]^3 come in that
// order, each where the plane frame puts its (x, y), the last one included.
TEST(Nuages, OrdreDuParcours)
{
    const Nuage nuage(15, "-0.5", "X+2*Y+4*Z", "0.5", 20, 20, 20);
    std::vector<std::pair<double, double>> attendus, poses;
    for (int x = -10; x <= 10; ++x)
        for (int y = -10; y <= 10; ++y)
            for (int z = -10; z <= 10; ++z) {
                double sx = 0, sy = 0;
                if (x + 2 * y + 4 * z == 0 && projette(nuage.etat.param, nuage.etat.vue, false, x, y, z, sx, sy))
                    attendus.emplace_back(sx, sy);
            }
    for (const auto& op : nuage.surface.operations())
        poses.emplace_back(op.x1, op.y1);
    EXPECT_EQ(poses, attendus);
    // The engine's point is the last one set.
    const GlobalesMoteur& m = nuage.etat.moteur;
    EXPECT_EQ((std::vector<double>{m.pointX, m.pointY, m.pointZ}), (std::vector<double>{10, 9, -7}));
    EXPECT_TRUE(m.erreurFormule.empty());
}

// Unbalanced brackets: nothing is set and the cloud's message is left.
TEST(Nuages, FormuleIllisible)
{
    const Nuage nuage(15, "-1", "(X+Y", "1", 20, 20, 20);
    EXPECT_TRUE(nuage.points() == 0u && nuage.etat.moteur.erreurFormule == messageIncorrecte(Famille::Nuage));
}

}  // namespace
}  // namespace velorin
