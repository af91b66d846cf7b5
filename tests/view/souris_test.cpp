#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "view/projection.h"
#include "view/souris.h"

namespace velorin {
namespace {

// The plane map of [-10, 10] x [-10, 10] on 11600 x 8800: 500 and 400
// surface units per unit, (0, 0) at (5100, 4050).
struct Plan {
    Parametres p;
    Vue v;
    explicit Plan(int orthonorme = 0)
    {
        p.repereOrthonorme = orthonorme;
        EXPECT_TRUE(ajusteVue(p, v, false, 11600, 8800));
    }
};

// The frame point under the press point is under the release point after
// the drag, and the ranges keep their widths.
TEST(SourisCadre, LePointDuCadreSuitLeGlisser)
{
    struct Cas {
        double x1, y1, x2, y2;
        bool bouge;
        int orthonorme;  // equal scales: 400 across as down
    };
    const Cas cas[] = {{5100, 4050, 5600, 4050, true, 0},
                       {300, 7000, 9000, 120, true, 0},
                       {9000, 120, 300, 7000, true, 1},
                       {2000, 2000, 2000, 2000, false, 0}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << c.x1 << "," << c.y1 << " -> " << c.x2 << "," << c.y2);
        Plan plan(c.orthonorme);
        double fx, fy;
        ASSERT_TRUE(pointDuPlan(plan.v, c.x1, c.y1, fx, fy));
        EXPECT_EQ(redes(plan.p, plan.v, c.x2 - c.x1, c.y2 - c.y1), c.bouge);
        EXPECT_NEAR(plan.p.xmax - plan.p.xmin, 20, 1e-12);
        EXPECT_NEAR(plan.p.ymax - plan.p.ymin, 20, 1e-12);
        ASSERT_TRUE(ajusteVue(plan.p, plan.v, false, 11600, 8800));
        double gx, gy;
        ASSERT_TRUE(pointDuPlan(plan.v, c.x2, c.y2, gx, gy));
        if (c.bouge) {
            EXPECT_NEAR(gx, fx, 1e-9);
            EXPECT_NEAR(gy, fy, 1e-9);
        }
    }
    Parametres p;
    EXPECT_FALSE(redes(p, Vue{}, 100, 100));  // not calibrated
    EXPECT_EQ(p.xmin, -10);
}

TEST(SourisVue, LeGlisserDeplaceLeViseurSurSaSphere)
{
    const double d = 3.141592 / 180;  // one degree in the drag's unit
    struct Cas {
        double x, y;
        float z;
        double dx, dy;  // pixels
        bool bouge;
        double azimut, elevation;  // after, degrees
    };
    const Cas cas[] = {
        {10, 0, 0, 180, 0, true, -90, 0},  {5, 0, 0, 30, -60, true, -15, -30}, {10, 0, 0, 0, 400, true, 0, 88},
        {10, 0, 0, 0, -400, true, 0, -88}, {0, 0, 10, 0, 10, true, 0, 90},     {0, 0, 10, 0, -10, true, 0, 85},
        {3, 4, 0, 0, 0, false, 0, 0},      {0, 0, 0, 20, 20, false, 0, 0},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << c.x << "," << c.y << "," << c.z << " drag " << c.dx << "," << c.dy);
        Parametres p;
        std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection) = std::tuple(c.x, c.y, c.z, 7);
        const double rayon = std::sqrt(c.x * c.x + c.y * c.y + double(c.z) * c.z);
        ASSERT_EQ(tourneVue(p, c.dx, c.dy), c.bouge);
        if (!c.bouge) {
            EXPECT_EQ(p.Xviseur, c.x);
            EXPECT_EQ(p.Xdirection, 7);
            continue;
        }
        const double r = std::sqrt(p.Xviseur * p.Xviseur + p.Yviseur * p.Yviseur + double(p.Zviseur) * p.Zviseur);
        EXPECT_NEAR(r, rayon, 1e-5);
        EXPECT_NEAR(std::asin(p.Zviseur / r) / d, c.elevation, 1e-4);
        if (std::fabs(c.elevation) < 90) {
            EXPECT_NEAR(std::atan2(p.Yviseur, p.Xviseur) / d, c.azimut, 1e-6);
        }
        EXPECT_EQ(p.Xdirection, -p.Xviseur);
        EXPECT_EQ(p.Ydirection, -p.Yviseur);
        EXPECT_EQ(p.Zdirection, -double(p.Zviseur));
    }
}

// In the plane the ranges shrink by 1.2 a notch about the frame point under
// the pointer, which stays there; in space the viewer comes closer.
TEST(SourisMolette, GrossitAutourDuPointeur)
{
    struct Cas {
        bool espace;
        double crans, sx, sy;
        bool applique;
    };
    const Cas cas[] = {{false, -2, 300, 8000, true},
                       {false, 0.5, 9000, 100, true},
                       {false, 0, 5100, 4050, false},
                       {true, -3, 0, 0, true}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "espace " << c.espace << " crans " << c.crans);
        Plan plan;
        std::tie(plan.p.Xviseur, plan.p.Yviseur, plan.p.Zviseur) = std::tuple(12, -3, 4);
        const Parametres avant = plan.p;
        double fx, fy;
        ASSERT_TRUE(pointDuPlan(plan.v, c.sx, c.sy, fx, fy));
        ASSERT_EQ(grossirMolette(plan.p, plan.v, c.espace, c.crans, c.sx, c.sy), c.applique);
        const double f = c.applique ? std::pow(1.2, c.crans) : 1;
        if (c.espace) {
            EXPECT_NEAR(plan.p.Xviseur, 12 / f, 1e-12);
            EXPECT_NEAR(plan.p.Zviseur, 4 / f, 1e-6);
            EXPECT_EQ(plan.p.xmin, avant.xmin);
            EXPECT_EQ(plan.p.Xdirection, avant.Xdirection);
            continue;
        }
        EXPECT_EQ(plan.p.Xviseur, 12);
        EXPECT_NEAR(plan.p.xmax - plan.p.xmin, 20 / f, 1e-9);
        EXPECT_NEAR(plan.p.ymax - plan.p.ymin, 20 / f, 1e-9);
        ASSERT_TRUE(ajusteVue(plan.p, plan.v, false, 11600, 8800));
        double gx, gy;
        ASSERT_TRUE(pointDuPlan(plan.v, c.sx, c.sy, gx, gy));
        EXPECT_NEAR(gx, fx, 1e-9);
        EXPECT_NEAR(gy, fy, 1e-9);
    }
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur) = std::tuple(0, 0, 0);
    EXPECT_FALSE(grossirMolette(p, Vue{}, true, 1, 0, 0));  // the viewer at the origin
}

// The point found under the mouse is the point whose projection is there.
TEST(SourisLecture, SolvonsInverseLaProjection)
{
    struct Cas {
        double vx, vy;
        float vz;
        double dx, dy, dz, rotadir;
        double x, y, z;
    };
    const Cas cas[] = {{10, 0, 0, -1, 0, 0, 0, 0.5, -2, 3},
                       {8, 6, 5, -8, -6, -5, 0.7, -3, 0.5, 2.5},
                       {-4, 9, -7, 4, -9, 7, 2.1, 0.2, -0.4, 1},
                       {3, -12, 2, -1, 4, 0, -1, -2, 1.5, 0}};
    for (const Cas& c : cas) {
        Parametres p;
        std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
            std::tuple(c.vx, c.vy, c.vz, c.dx, c.dy, c.dz, c.rotadir);
        Vue v;
        ASSERT_TRUE(ajusteVue(p, v, true, 15360, 11520));
        double sx, sy;
        ASSERT_TRUE(projette(p, v, true, c.x, c.y, c.z, sx, sy));
        double Px, Py;
        pointPlanProjection(v, sx, sy, Px, Py);
        const double point[3] = {c.x, c.y, c.z};
        for (int fixe = 0; fixe < 3; ++fixe) {
            SCOPED_TRACE(::testing::Message() << "viseur " << c.vx << "," << c.vy << " fixe " << fixe);
            double x = 99, y = 99, z = 99;
            ASSERT_TRUE(solvons(p, v, Px, Py, fixe, point[fixe], x, y, z));
            // Zviseur and repereVZ are single precision.
            EXPECT_NEAR(x, c.x, 1e-4);
            EXPECT_NEAR(y, c.y, 1e-4);
            EXPECT_NEAR(z, c.z, 1e-4);
        }
    }
}

TEST(SourisLecture, LigneDeVueParalleleAuPlan)
{
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
        std::tuple(10, 0, 0, -1, 0, 0, 0);
    Vue v;
    ASSERT_TRUE(ajusteVue(p, v, true, 15360, 11520));
    double Px, Py, x = 5, y = 5, z = 5;
    pointPlanProjection(v, (v.W - margeEspaceX) / 2, (v.H - margeHauteur) / 2, Px, Py);
    EXPECT_NEAR(Px, 0, 1e-12);
    EXPECT_NEAR(Py, 0, 1e-12);
    EXPECT_FALSE(solvons(p, v, Px, Py, 1, 2, x, y, z));  // looking along y = 0
    EXPECT_EQ(x, 5);
    ASSERT_TRUE(solvons(p, v, Px, Py, 0, 3, x, y, z));  // the plane x = 3, on the axis
    EXPECT_NEAR(y, 0, 1e-12);
    EXPECT_NEAR(z, 0, 1e-6);
}

}  // namespace
}  // namespace velorin
