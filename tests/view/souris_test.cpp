#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "view/projection.h"
#include "view/souris.h"
#include "view/zoom.h"

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
    using C = std::tuple<double, double, double, double, bool, int>;
    for (auto [x1, y1, x2, y2, bouge, orthonorme] :
         {C{5100, 4050, 5600, 4050, true, 0}, C{300, 7000, 9000, 120, true, 0}, C{9000, 120, 300, 7000, true, 1},
          C{2000, 2000, 2000, 2000, false, 0}}) {
        SCOPED_TRACE(::testing::Message() << x1 << "," << y1 << " -> " << x2 << "," << y2);
        Plan plan(orthonorme);
        double fx, fy;
        ASSERT_TRUE(pointDuPlan(plan.v, x1, y1, fx, fy));
        EXPECT_EQ(redes(plan.p, plan.v, x2 - x1, y2 - y1), bouge);
        EXPECT_NEAR(std::hypot(plan.p.xmax - plan.p.xmin - 20, plan.p.ymax - plan.p.ymin - 20), 0, 1e-12);
        ASSERT_TRUE(ajusteVue(plan.p, plan.v, false, 11600, 8800));
        double gx, gy;
        ASSERT_TRUE(pointDuPlan(plan.v, x2, y2, gx, gy));
        EXPECT_TRUE(!bouge || std::hypot(gx - fx, gy - fy) < 1e-9) << gx << "," << gy;
    }
    Parametres p;
    EXPECT_FALSE(redes(p, Vue{}, 100, 100));  // not calibrated
    EXPECT_EQ(p.xmin, -10);
}

TEST(SourisVue, LeGlisserDeplaceLeViseurSurSaSphere)
{
    const double d = 3.141592 / 180;  // one degree in the drag's unit
    using C = std::tuple<double, double, float, double, double, bool, double, double>;
    for (auto [x, y, z, dx, dy, bouge, azimut, elevation] :
         {C{10, 0, 0, 180, 0, true, -90, 0}, C{5, 0, 0, 30, -60, true, -15, -30}, C{10, 0, 0, 0, 400, true, 0, 88},
          C{10, 0, 0, 0, -400, true, 0, -88}, C{0, 0, 10, 0, 10, true, 0, 90}, C{0, 0, 10, 0, -10, true, 0, 85},
          C{3, 4, 0, 0, 0, false, 0, 0}, C{0, 0, 0, 20, 20, false, 0, 0}}) {
        SCOPED_TRACE(::testing::Message() << x << "," << y << "," << z << " drag " << dx << "," << dy);
        Parametres p;
        std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection) = std::tuple(x, y, z, 7);
        const double rayon = std::sqrt(x * x + y * y + double(z) * z);
        ASSERT_EQ(tourneVue(p, dx, dy), bouge);
        if (!bouge) {
            EXPECT_EQ(std::pair(p.Xviseur, p.Xdirection), std::pair(x, 7.0));
            continue;
        }
        const double r = std::sqrt(p.Xviseur * p.Xviseur + p.Yviseur * p.Yviseur + double(p.Zviseur) * p.Zviseur);
        EXPECT_NEAR(r, rayon, 1e-5);
        EXPECT_NEAR(std::asin(p.Zviseur / r) / d, elevation, 1e-4);
        EXPECT_NEAR(std::fabs(elevation) < 90 ? std::atan2(p.Yviseur, p.Xviseur) / d : azimut, azimut, 1e-6);
        EXPECT_EQ(std::tuple(p.Xdirection, p.Ydirection, p.Zdirection),
                  std::tuple(-p.Xviseur, -p.Yviseur, -double(p.Zviseur)));
    }
}

// In the plane the ranges shrink by 1.2 a notch about the frame point under
// the pointer, which stays there; in space the viewer comes closer.
TEST(SourisMolette, GrossitAutourDuPointeur)
{
    using C = std::tuple<bool, double, double, double, bool>;
    for (auto [espace, crans, sx, sy, applique] : {C{false, -2, 300, 8000, true}, C{false, 0.5, 9000, 100, true},
                                                   C{false, 0, 5100, 4050, false}, C{true, -3, 0, 0, true}}) {
        SCOPED_TRACE(::testing::Message() << "espace " << espace << " crans " << crans);
        Plan plan;
        std::tie(plan.p.Xviseur, plan.p.Yviseur, plan.p.Zviseur) = std::tuple(12, -3, 4);
        const Parametres avant = plan.p;
        double fx, fy;
        ASSERT_TRUE(pointDuPlan(plan.v, sx, sy, fx, fy));
        ASSERT_EQ(grossirMolette(plan.p, plan.v, espace, crans, sx, sy), applique);
        const double f = applique ? std::pow(1.2, crans) : 1;
        if (espace) {
            EXPECT_NEAR(plan.p.Xviseur, 12 / f, 1e-12);
            EXPECT_NEAR(plan.p.Zviseur, 4 / f, 1e-6);
            EXPECT_EQ(std::pair(plan.p.xmin, plan.p.Xdirection), std::pair(avant.xmin, avant.Xdirection));
            continue;
        }
        EXPECT_EQ(plan.p.Xviseur, 12);
        EXPECT_NEAR(std::hypot(plan.p.xmax - plan.p.xmin - 20 / f, plan.p.ymax - plan.p.ymin - 20 / f), 0, 1e-9);
        ASSERT_TRUE(ajusteVue(plan.p, plan.v, false, 11600, 8800));
        double gx, gy;
        ASSERT_TRUE(pointDuPlan(plan.v, sx, sy, gx, gy));
        EXPECT_NEAR(std::hypot(gx - fx, gy - fy), 0, 1e-9);
    }
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur) = std::tuple(0, 0, 0);
    EXPECT_FALSE(grossirMolette(p, Vue{}, true, 1, 0, 0));  // the viewer at the origin
}

// The point found under the mouse is the point whose projection is there.
TEST(SourisLecture, SolvonsInverseLaProjection)
{
    using C = std::tuple<double, double, float, double, double, double, double, double, double, double>;
    for (auto [vx, vy, vz, dx, dy, dz, rotadir, px, py, pz] :
         {C{10, 0, 0, -1, 0, 0, 0, 0.5, -2, 3}, C{8, 6, 5, -8, -6, -5, 0.7, -3, 0.5, 2.5},
          C{-4, 9, -7, 4, -9, 7, 2.1, 0.2, -0.4, 1}, C{3, -12, 2, -1, 4, 0, -1, -2, 1.5, 0}}) {
        Parametres p;
        std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
            std::tuple(vx, vy, vz, dx, dy, dz, rotadir);
        Vue v;
        ASSERT_TRUE(ajusteVue(p, v, true, 15360, 11520));
        double sx, sy;
        ASSERT_TRUE(projette(p, v, true, px, py, pz, sx, sy));
        double Px, Py;
        pointPlanProjection(v, sx, sy, Px, Py);
        const double point[3] = {px, py, pz};
        for (int fixe = 0; fixe < 3; ++fixe) {
            SCOPED_TRACE(::testing::Message() << "viseur " << vx << "," << vy << " fixe " << fixe);
            double x = 99, y = 99, z = 99;
            ASSERT_TRUE(solvons(p, v, Px, Py, fixe, point[fixe], x, y, z));
            EXPECT_NEAR(std::hypot(x - px, y - py, z - pz), 0, 1e-4);  // Zviseur, repereVZ single precision
        }
    }
}

// A line of sight parallel to the fixed plane finds no point and leaves the old one.
TEST(SourisLecture, LigneDeVueParalleleAuPlanRefusee)
{
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
        std::tuple(10, 0, 0, -1, 0, 0, 0);
    Vue v;
    ASSERT_TRUE(ajusteVue(p, v, true, 15360, 11520));
    double x = 5, y = 5, z = 5;
    EXPECT_FALSE(solvons(p, v, 0, 0, 1, 2, x, y, z));  // the centre of the picture, looking along y = 0
    EXPECT_EQ(x, 5);
}

Parametres cadre(double xmin, double xmax, double ymin, double ymax, float zmin, double zmax)
{
    Parametres p;
    std::tie(p.xmin, p.xmax, p.ymin, p.ymax, p.zmin, p.zmax, p.Zviseur) =
        std::tuple(xmin, xmax, ymin, ymax, zmin, zmax, 15.0f);
    return p;
}

// Each entry keeps the centre of every range and scales its width.
TEST(ZoomFacteurs, ChaqueEntreeGardeLeCentreEtEchelonneLaLargeur)
{
    using C = std::tuple<int, double, bool, float>;
    const float pres = 15 / 1.1, loin = 15 * 1.1;
    for (auto [mode, largeur, espace, zviseur] :
         {C{zoomPlus20, 1 / 1.2, false, 15}, C{zoomMoins20, 1.2, false, 15}, C{zoomFois2, 0.5, false, 15},
          C{zoomDivise2, 2, false, 15}, C{zoomPlus20, 1 / 1.2, true, pres}, C{zoomMoins20, 1.2, true, loin},
          C{zoomFois2, 0.5, true, pres}, C{zoomDivise2, 2, true, loin}}) {
        SCOPED_TRACE(::testing::Message() << "mode " << mode << " espace " << espace);
        Parametres p = cadre(-10, 10, 1, 7, -4, 6);
        ASSERT_TRUE(grossir(p, mode, espace));
        EXPECT_NEAR((p.xmin + p.xmax) / 2, 0, 1e-12);
        EXPECT_NEAR((p.ymin + p.ymax) / 2, 4, 1e-12);
        EXPECT_NEAR((p.zmin + p.zmax) / 2, 1, 1e-6);
        EXPECT_NEAR(p.xmax - p.xmin, 20 * largeur, 1e-12);
        EXPECT_NEAR(p.ymax - p.ymin, 6 * largeur, 1e-12);
        EXPECT_NEAR(p.zmax - p.zmin, 10 * largeur, 1e-5);
        EXPECT_FLOAT_EQ(p.Zviseur, zviseur);
    }
    for (int mode : {0, 5, -1}) {  // no such entry: nothing changes
        Parametres p = cadre(-10, 10, 1, 7, -4, 6);
        EXPECT_FALSE(grossir(p, mode, true));
        EXPECT_EQ(std::tuple(p.xmin, p.ymax, p.Zviseur), std::tuple(-10.0, 7.0, 15.0f));
    }
}

// On the plane map of `Plan`; the last three: zero width, zero height, a click.
TEST(ZoomLoupe, LeRectangleDevientLesBornes)
{
    using C = std::tuple<double, double, double, double, bool, double, double, double, double>;
    for (auto [sx1, sy1, sx2, sy2, applique, xmin, xmax, ymin, ymax] :
         {C{5100, 4050, 5600, 3650, true, 0, 1, 0, 1}, C{5600, 3650, 5100, 4050, true, 0, 1, 0, 1},
          C{100, 50, 10100, 8050, true, -10, 10, -10, 10}, C{3100, 4850, 6100, 4450, true, -4, 2, -2, -1},
          C{5100, 4050, 5100, 3650, false, -10, 10, -10, 10}, C{5100, 4050, 5600, 4050, false, -10, 10, -10, 10},
          C{5100, 4050, 5100, 4050, false, -10, 10, -10, 10}}) {
        SCOPED_TRACE(::testing::Message() << sx1 << "," << sy1 << " " << sx2 << "," << sy2);
        Plan plan;
        Parametres& p = plan.p;
        EXPECT_EQ(grossirLoupe(p, plan.v, sx1, sy1, sx2, sy2), applique);
        for (auto [obtenu, attendu] : {std::pair{p.xmin, xmin}, {p.xmax, xmax}, {p.ymin, ymin}, {p.ymax, ymax}})
            EXPECT_NEAR(obtenu, attendu, 1e-12);
    }
    Parametres p;
    EXPECT_FALSE(grossirLoupe(p, Vue{}, 0, 0, 10, 10));  // not calibrated
    EXPECT_EQ(p.xmin, -10);
}

}  // namespace
}  // namespace velorin
