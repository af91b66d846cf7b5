#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "view/simplification.h"

namespace velorin {
namespace {

using P = std::vector<PointPlan>;

TEST(Simplification, PointsGardesSelonLEcartALaLigneDroite)
{
    struct Cas {
        const char* faute;
        P entree, attendu;
    } cas[] = {
        {"écart sous la tolérance gardé", {{0, 0}, {5, 0.04}, {10, 0}}, {{0, 0}, {10, 0}}},
        {"écart au-dessus de la tolérance perdu", {{0, 0}, {5, 0.06}, {10, 0}}, {{0, 0}, {5, 0.06}, {10, 0}}},
        {"demi-tour sur la même droite perdu", {{0, 0}, {10, 0}, {5, 0}}, {{0, 0}, {10, 0}, {5, 0}}},
        {"points confondus non fusionnés", {{0, 0}, {0.01, 0}, {0.02, 0.03}, {3, 3}}, {{0, 0}, {3, 3}}},
        {"extrémités confondues perdues", {{1, 1}, {1, 1}, {1, 1}}, {{1, 1}, {1, 1}}},
    };
    for (auto& c : cas) {
        simplifiePolyligne(c.entree, 0.05);
        EXPECT_EQ(c.entree, c.attendu) << c.faute;
    }
}

TEST(Simplification, ChaquePointOteResteSousLaToleranceDuTraitGarde)
{
    // An arc of radius 100 in 2000 points: an omitted point must lie within
    // the tolerance of the kept line, not only of the segment that skipped it.
    P arc;
    for (int i = 0; i <= 2000; ++i)
        arc.push_back({100 * std::cos(i * 0.001), 100 * std::sin(i * 0.001)});
    P garde = arc;
    simplifiePolyligne(garde, 0.05);
    EXPECT_LT(garde.size(), arc.size() / 20);
    EXPECT_EQ(garde.back(), arc.back());
    double pire = 0;
    for (const PointPlan& p : arc) {
        double proche = 1e9;
        for (std::size_t k = 0; k + 1 < garde.size(); ++k) {
            const PointPlan a = garde[k], b = garde[k + 1];
            const double dx = b.x - a.x, dy = b.y - a.y;
            const double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
            proche = std::min(proche, std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y));
        }
        pire = std::max(pire, proche);
    }
    EXPECT_LT(pire, 0.05);
}

}  // namespace
}  // namespace velorin
