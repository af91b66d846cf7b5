#include <gtest/gtest.h>

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
        {"point ôté plus tôt sorti de la tolérance", {{0, 0}, {1, 0.03}, {2, -0.03}, {4, -0.1}},
         {{0, 0}, {2, -0.03}, {4, -0.1}}},
    };
    for (auto& c : cas) {
        simplifiePolyligne(c.entree, 0.05);
        EXPECT_EQ(c.entree, c.attendu) << c.faute;
    }
}

}  // namespace
}  // namespace velorin
