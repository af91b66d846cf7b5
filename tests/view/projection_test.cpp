#include <gtest/gtest.h>

#include <cmath>
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
    struct Cas {
        int ortho;
        double ex, ey;
    };
    for (Cas c : {Cas{0, 500, 400}, Cas{1, 400, 400}}) {
        Parametres p;
        p.repereOrthonorme = c.ortho;
        Vue v;
        v.W = 11600;
        v.H = 8800;
        ASSERT_TRUE(calibre(p, v, false));
        double ox, oy, sx, sy;  // z plays no part in the plane
        ASSERT_TRUE(projette(p, v, false, 0, 0, 123, ox, oy));
        ASSERT_TRUE(projette(p, v, false, 2, 1, 0, sx, sy));
        EXPECT_EQ(std::tuple(v.echelleX, v.echelleY, ox, oy, v.origineEcranX, v.origineEcranY, sx, sy),
                  std::tuple(c.ex, c.ey, 5100.0, 4050.0, 5100.0, 4050.0, 5100 + 2 * c.ex, 4050 - c.ey));
    }
}

TEST(Projection, BornesRefuseesRevenantALaBase)
{
    struct Cas {
        bool espace;
        double xmin, xmax, ymin, ymax;
        float zmin;
        double zmax;
        bool admis;
    };
    for (Cas c : {Cas{true, 5, 5, -1, 1, -1, 1, false}, Cas{true, -1, 1, 3, 2, -1, 1, false},
                  Cas{false, 4, -4, -1, 1, -1, 1, false}, Cas{false, -1, 1, 0, 0, 0, 0, false},
                  Cas{true, -1, 1, -2, 2, 3, -3, true}, Cas{false, -1, 1, -2, 2, 3, -3, true}}) {
        Parametres p;
        p.xmin = c.xmin;
        p.xmax = c.xmax;
        p.ymin = c.ymin;
        p.ymax = c.ymax;
        p.zmin = c.zmin;
        p.zmax = c.zmax;
        Vue v;
        prepareVue(p, c.espace, v);
        EXPECT_EQ(calibre(p, v, c.espace), c.admis) << c.xmin << " " << c.ymin;
        if (c.admis) {
            EXPECT_EQ(p.zmin, c.zmin);  // reversed z kept as it is
            EXPECT_EQ(p.xmax, c.xmax);
        } else {
            for (double borne : {p.xmin, p.ymin, double(p.zmin)})
                EXPECT_EQ(borne, -10);
            for (double borne : {p.xmax, p.ymax, p.zmax})
                EXPECT_EQ(borne, 10);
            EXPECT_EQ(v.etendueX, 20);  // calibrated on the base
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
    EXPECT_NEAR(e.v.origineEcranX, cx, 1e-6);
    EXPECT_NEAR(e.v.origineEcranY, cy, 1e-6);
    // (The vertical reference point is single precision: 1e-3 twips.)
    EXPECT_NEAR(e.v.imageUyX - cx, 0.1 * cx, 1e-3);
    EXPECT_NEAR(e.v.imageUyY, cy, 1e-3);
    EXPECT_NEAR(e.v.imageUzX, cx, 1e-3);
    EXPECT_LT(e.v.imageUzY, cy - 100);
    EXPECT_NEAR(e.v.imageUxX, cx, 1e-3);
    EXPECT_NEAR(e.v.imageUxY, cy, 1e-3);
    double sx = -1, sy = -1;
    ASSERT_TRUE(e.image(10, 0.75, 0, sx, sy));
    EXPECT_NEAR((sx - cx) / (1e6 * cx), 1, 1e-3);
    EXPECT_NEAR(sy, cy, 1);
    ASSERT_TRUE(e.image(20, 1, 0, sx, sy));
    EXPECT_NEAR(sx, cx - 0.1 * cx, 1e-3);
    sx = sy = 7;
    EXPECT_FALSE(e.image(10, 0, 0, sx, sy));
    EXPECT_EQ(std::pair(sx, sy), std::pair(7.0, 7.0));

    Espace tete(10, 0, 0, -1, 0, 0, 3.141592653589793 / 2);
    ASSERT_TRUE(tete.image(0, 1, 0, sx, sy));
    EXPECT_NEAR(sx, cx, 1e-6);
    EXPECT_LT(sy, cy - 100);
    ASSERT_TRUE(tete.image(0, 0, 1, sx, sy));
    EXPECT_LT(sx, cx - 100);
    EXPECT_NEAR(sy, cy, 1e-6);
}

TEST(Projection, AucunNanDUneProjectionAcceptee)
{
    // Degenerate set-ups: zero direction (the set-up keeps its previous
    // values), direction along the up vector, huge and failed points.
    struct Cas {
        double dx, dy, dz;
    };
    for (Cas c : {Cas{0, 0, 0}, Cas{0, 0, -1}, Cas{0, 0, 1}, Cas{-1, 0, 0}}) {
        Espace e(10, 0, 0, c.dx, c.dy, c.dz);
        for (double x : {0.0, 1.0, -1e9, 1e9, 1e300, 10.0, HUGE_VAL}) {
            double sx = 0, sy = 0;
            if (e.image(x, 0.5, 0.25, sx, sy)) {
                EXPECT_TRUE(std::isfinite(sx) && std::isfinite(sy)) << c.dx << c.dz << " " << x;
            }
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

}  // namespace
}  // namespace velorin
