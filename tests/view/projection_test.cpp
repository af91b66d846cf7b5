#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <random>
#include <tuple>
#include <utility>

#include "view/projection.h"

namespace velorin {
namespace {

// The view from (vx, vy, vz) along (dx, dy, dz) with head angle `rota`.
struct Espace {
    Parametres p;
    Vue v;
    explicit Espace(double vx = 10, double vy = 0, float vz = 0, double dx = -1, double dy = 0, double dz = 0,
                    double rota = 0)
    {
        std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
            std::tuple(vx, vy, vz, dx, dy, dz, rota);
        std::tie(v.W, v.H) = std::tuple(11600, 8800);
        prepareVue(p, true, v);
    }
    bool image(double x, double y, double z, double& sx, double& sy) const
    {
        return projette(p, v, true, x, y, z, sx, sy);
    }
};

// A zero side gives an empty result: reachable only where the product
// with it hides it (a point at the centre of the view), so tested here.
TEST(Projection, CosinusDUnTriangleCoteNulVide)
{
    EXPECT_DOUBLE_EQ(cosinusAngle(5, 3, 4), 0);    // right angle
    EXPECT_DOUBLE_EQ(cosinusAngle(1, 1, 1), 0.5);  // equilateral
    EXPECT_EQ(cosinusAngle(1, 0, 1), 0);           // zero side: empty result
}

TEST(Projection, EchellesEtOrigineDuPlan)
{
    using C = std::tuple<int, double, double>;
    for (auto [ortho, ex, ey] : {C{0, 500, 400}, C{1, 400, 400}}) {
        Parametres p;
        p.repereOrthonorme = ortho;
        Vue v;
        std::tie(v.W, v.H) = std::tuple(11600, 8800);
        ASSERT_TRUE(calibre(p, v, false));
        double ox, oy, sx, sy;  // z plays no part in the plane
        ASSERT_TRUE(projette(p, v, false, 0, 0, 123, ox, oy));
        ASSERT_TRUE(projette(p, v, false, 2, 1, 0, sx, sy));
        EXPECT_EQ(std::tuple(v.echelleX, v.echelleY, ox, oy, v.origineEcranX, v.origineEcranY, sx, sy),
                  std::tuple(ex, ey, 5100.0, 4050.0, 5100.0, 4050.0, 5100 + 2 * ex, 4050 - ey));
    }
}

TEST(Projection, BornesRefuseesRevenantALaBase)
{
    using C = std::tuple<bool, double, double, double, double, float, double, bool>;
    for (auto [espace, xmin, xmax, ymin, ymax, zmin, zmax, admis] :
         {C{true, 5, 5, -1, 1, -1, 1, false}, C{true, -1, 1, 3, 2, -1, 1, false}, C{false, 4, -4, -1, 1, -1, 1, false},
          C{false, -1, 1, 0, 0, 0, 0, false}, C{true, -1, 1, -2, 2, 3, -3, true},
          C{false, -1, 1, -2, 2, 3, -3, true}}) {
        Parametres p;
        std::tie(p.xmin, p.xmax, p.ymin, p.ymax, p.zmin, p.zmax) = std::tuple(xmin, xmax, ymin, ymax, zmin, zmax);
        Vue v;
        prepareVue(p, espace, v);
        EXPECT_EQ(calibre(p, v, espace), admis) << xmin << " " << ymin;
        if (admis) {  // reversed z kept as it is
            EXPECT_EQ(std::pair(p.zmin, p.xmax), std::pair(zmin, xmax));
        } else {  // the base ranges, calibrated on
            EXPECT_EQ(std::tuple(p.xmin, p.ymin, p.zmin, p.xmax, p.ymax, p.zmax, v.etendueX),
                      std::tuple(-10, -10, -10.0f, 10, 10, 10, 20));
        }
    }
}

// Looking down -x from (10, 0, 0), the origin's image at the centre
// (5100, 4000): the unit points at distance 10 seen 1/10 of a half-width
// away ((0,1,0) to the right, (0,0,1) above, (1,0,0) on the line of sight);
// a point abreast (the cosine is exactly 0 at distances 0.75 and 1.25)
// thrown 10^6 half-widths; a point behind seen through the viewer on the
// other side; the viewer itself refused, nothing written. A head angle of
// pi/2 makes y the up reference and puts z to the left.
TEST(Projection, ImagesVuesDepuisPlusXEtAngleDeTete)
{
    Espace e;
    Parametres p = e.p;
    ASSERT_TRUE(calibre(p, e.v, true));
    const double cx = 5100, cy = 4000;
    EXPECT_NEAR(std::hypot(e.v.origineEcranX - cx, e.v.origineEcranY - cy), 0, 1e-6);
    // (The vertical reference point is single precision: 1e-3 twips.)
    EXPECT_NEAR(std::hypot(e.v.imageUyX - 1.1 * cx, e.v.imageUyY - cy), 0, 1e-3);
    EXPECT_NEAR(std::hypot(e.v.imageUxX - cx, e.v.imageUxY - cy), 0, 1e-3);
    EXPECT_NEAR(e.v.imageUzX, cx, 1e-3);
    EXPECT_LT(e.v.imageUzY, cy - 100);
    double sx = -1, sy = -1;
    ASSERT_TRUE(e.image(10, 0.75, 0, sx, sy));
    EXPECT_TRUE(std::fabs((sx - cx) / (1e6 * cx) - 1) < 1e-3 && std::fabs(sy - cy) < 1) << sx << "," << sy;
    ASSERT_TRUE(e.image(20, 1, 0, sx, sy));
    EXPECT_NEAR(sx, cx - 0.1 * cx, 1e-3);
    sx = sy = 7;
    EXPECT_FALSE(e.image(10, 0, 0, sx, sy));
    EXPECT_EQ(std::pair(sx, sy), std::pair(7.0, 7.0));

    Espace tete(10, 0, 0, -1, 0, 0, 3.141592653589793 / 2);
    ASSERT_TRUE(tete.image(0, 1, 0, sx, sy));
    EXPECT_TRUE(std::fabs(sx - cx) < 1e-6 && sy < cy - 100) << sx << "," << sy;
    ASSERT_TRUE(tete.image(0, 0, 1, sx, sy));
    EXPECT_TRUE(sx < cx - 100 && std::fabs(sy - cy) < 1e-6) << sx << "," << sy;
}

TEST(Projection, AucunNanDUneProjectionAcceptee)
{
    // Degenerate set-ups: zero direction (the set-up keeps its previous
    // values), direction along the up vector, huge and failed points.
    for (auto [dx, dz] : {std::pair{0, 0}, {0, -1}, {0, 1}, {-1, 0}}) {
        Espace e(10, 0, 0, dx, 0, dz);
        for (double x : {0.0, 1.0, -1e9, 1e9, 1e300, 10.0, HUGE_VAL}) {
            double sx = 0, sy = 0;
            EXPECT_TRUE(!e.image(x, 0.5, 0.25, sx, sy) || (std::isfinite(sx) && std::isfinite(sy))) << dx << dz << x;
        }
    }
}

// A zero direction keeps the previous set-up (the plane mode touches none);
// the viewer's z and the vertical reference point stay single precision.
TEST(Projection, DirectionNulleGardeLaVueMembresSimplePrecision)
{
    Espace e;
    const Vue avant = e.v;
    e.p.Xdirection = 0;
    prepareVue(e.p, true, e.v);
    e.p.Xdirection = 1;
    prepareVue(e.p, false, e.v);
    for (auto m : {&Vue::centreVueX, &Vue::centreVueZ, &Vue::repereHY, &Vue::repereVX})
        EXPECT_EQ(e.v.*m, avant.*m);
    EXPECT_EQ(e.v.repereVZ, avant.repereVZ);
    Espace f(3, 4, 0.1f, -3, -4, -0.1);
    const double cz = double(0.1f) + (-0.1) / std::sqrt(25.01);
    EXPECT_EQ(f.v.repereVZ, static_cast<float>(cz + 25 / (5 * std::sqrt(625.25))));
    EXPECT_EQ(f.v.centreVueZ, cz);
}

// The projection of many points at once gives the bits of the point by
// point projection, lane by lane: ordinary points (a reordered sum or a
// product folded ahead would move some by one unit), and, among them, the
// points each view treats apart (abreast of the viewer, the viewer itself,
// behind it, overflowing, not a number), in every position of a group of
// four and in the tail.
TEST(Projection, PointsEnBlocCommeUnParUn)
{
    std::mt19937 alea(7);
    std::uniform_real_distribution<double> dans(-20, 20);
    const double speciaux[][3] = {{10, 0.75, 0},    {10, 0, 0},  {20, 1, 0}, {1e300, 1, 0},
                                  {HUGE_VAL, 0, 0}, {NAN, 0, 0}, {9, 0, 0},  {1e-300, 0, 5e-324}};
    for (const Espace& e : {Espace(), Espace(10, 0, 0, -1, 0, 0, 1.5707963267948966),
                            Espace(30, 20, 15.3f, -30, -20, -15), Espace(3, 4, 0.1f, -3, -4, -0.1)}) {
        for (bool espace : {true, false}) {
            // Each special point at its place: every lane of a group of four, and the tail.
            constexpr std::size_t n = 35, places[] = {0, 5, 10, 15, 16, 21, 26, 33};
            double x[n], y[n], z[n], sx[n], sy[n];
            bool projete[n];
            for (std::size_t i = 0; i < n; ++i)
                x[i] = dans(alea), y[i] = dans(alea), z[i] = dans(alea);
            for (std::size_t k = 0; k < std::size(places); ++k)
                std::tie(x[places[k]], y[places[k]], z[places[k]]) =
                    std::tuple(speciaux[k][0], speciaux[k][1], speciaux[k][2]);
            projettePoints(e.p, e.v, espace, x, y, z, n, sx, sy, projete);
            for (std::size_t i = 0; i < n; ++i) {
                double ax = 0, ay = 0;
                const bool attendu = projette(e.p, e.v, espace, x[i], y[i], z[i], ax, ay);
                ASSERT_EQ(projete[i], attendu) << i << " (" << x[i] << ", " << y[i] << ", " << z[i] << ")";
                if (attendu) {
                    EXPECT_TRUE(std::memcmp(&sx[i], &ax, sizeof ax) == 0 && std::memcmp(&sy[i], &ay, sizeof ay) == 0)
                        << i << " : " << sx[i] << ", " << sy[i] << " / " << ax << ", " << ay;
                }
            }
        }
    }
}

}  // namespace
}  // namespace velorin
