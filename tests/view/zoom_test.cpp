#include <gtest/gtest.h>

#include <tuple>

#include "view/projection.h"
#include "view/zoom.h"

namespace velorin {
namespace {

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
    struct Cas {
        int mode;
        double largeur;  // new width / old width
        bool espace;
        float zviseur;
    };
    const Cas cas[] = {
        {zoomPlus20, 1 / 1.2, false, 15},
        {zoomMoins20, 1.2, false, 15},
        {zoomFois2, 0.5, false, 15},
        {zoomDivise2, 2, false, 15},
        {zoomPlus20, 1 / 1.2, true, float(15 / 1.1)},
        {zoomMoins20, 1.2, true, float(15 * 1.1)},
        {zoomFois2, 0.5, true, float(15 / 1.1)},
        {zoomDivise2, 2, true, float(15 * 1.1)},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "mode " << c.mode << " espace " << c.espace);
        Parametres p = cadre(-10, 10, 1, 7, -4, 6);
        ASSERT_TRUE(grossir(p, c.mode, c.espace));
        EXPECT_NEAR((p.xmin + p.xmax) / 2, 0, 1e-12);
        EXPECT_NEAR((p.ymin + p.ymax) / 2, 4, 1e-12);
        EXPECT_NEAR((p.zmin + p.zmax) / 2, 1, 1e-6);
        EXPECT_NEAR(p.xmax - p.xmin, 20 * c.largeur, 1e-12);
        EXPECT_NEAR(p.ymax - p.ymin, 6 * c.largeur, 1e-12);
        EXPECT_NEAR(p.zmax - p.zmin, 10 * c.largeur, 1e-5);
        EXPECT_FLOAT_EQ(p.Zviseur, c.zviseur);
    }
    for (int mode : {0, 5, -1}) {  // no such entry: nothing changes
        Parametres p = cadre(-10, 10, 1, 7, -4, 6);
        EXPECT_FALSE(grossir(p, mode, true));
        EXPECT_EQ(std::tuple(p.xmin, p.ymax, p.Zviseur), std::tuple(-10.0, 7.0, 15.0f));
    }
}

// The plane map of [-10, 10] x [-10, 10] on 11600 x 8800: 500 and 400 units
// per unit, (0, 0) at (5100, 4050).
TEST(ZoomLoupe, LeRectangleDevientLesBornes)
{
    struct Cas {
        double sx1, sy1, sx2, sy2;
        bool applique;
        double xmin, xmax, ymin, ymax;
    };
    const Cas cas[] = {
        {5100, 4050, 5600, 3650, true, 0, 1, 0, 1},        {5600, 3650, 5100, 4050, true, 0, 1, 0, 1},
        {100, 50, 10100, 8050, true, -10, 10, -10, 10},    {3100, 4850, 6100, 4450, true, -4, 2, -2, -1},
        {5100, 4050, 5100, 3650, false, -10, 10, -10, 10},  // zero width
        {5100, 4050, 5600, 4050, false, -10, 10, -10, 10},  // zero height
        {5100, 4050, 5100, 4050, false, -10, 10, -10, 10},  // a click
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << c.sx1 << "," << c.sy1 << " " << c.sx2 << "," << c.sy2);
        Parametres p;
        Vue v;
        ASSERT_TRUE(ajusteVue(p, v, false, 11600, 8800));
        EXPECT_EQ(grossirLoupe(p, v, c.sx1, c.sy1, c.sx2, c.sy2), c.applique);
        EXPECT_NEAR(p.xmin, c.xmin, 1e-12);
        EXPECT_NEAR(p.xmax, c.xmax, 1e-12);
        EXPECT_NEAR(p.ymin, c.ymin, 1e-12);
        EXPECT_NEAR(p.ymax, c.ymax, 1e-12);
    }
    Parametres p;
    const Vue pasCalibree;
    EXPECT_FALSE(grossirLoupe(p, pasCalibree, 0, 0, 10, 10));
    EXPECT_EQ(p.xmin, -10);
}

}  // namespace
}  // namespace velorin
