#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <tuple>
#include <vector>

#include "engine/points.h"

namespace velorin {
namespace {

GlobalesMoteur formules(const char* f1, const char* f2, const char* f3)
{
    GlobalesMoteur g;
    std::tie(g.formuleF1, g.formuleF2, g.formuleF3, g.pointX, g.pointY, g.pointZ) = std::tuple(f1, f2, f3, 11, 12, 13);
    return g;
}

#define ATTEND_POINT(g, x, y, z)                                                                                       \
    EXPECT_NEAR(std::max({std::fabs((g).pointX - (x)), std::fabs((g).pointY - (y)), std::fabs((g).pointZ - (z))}), 0,  \
                1e-12)

TEST(MoteurPoints, CoordonneesParGenre)
{
    GlobalesMoteur g = formules("X^2", "", "");
    pointcourbe(g, 3);
    ATTEND_POINT(g, 11, 9, 0);
    g = formules("T", "2*T", "3*T");
    pointparametre(g, 2, 0, true);
    ATTEND_POINT(g, 11, 12, 13);
    pointparametre(g, 2, 1, true);
    ATTEND_POINT(g, 2, 4, 6);
    pointparametre(g, 2, 1, false);
    ATTEND_POINT(g, 2, 4, 0);
    g = formules("1", "0", "0");
    pointpolaire(g, 0, false);
    ATTEND_POINT(g, 1, 0, 1);
    g = formules("2", "T", "P/2");
    pointpolaire(g, 0.3, true);
    const double c = std::cos(1.570796);
    ATTEND_POINT(g, 2 * c * std::cos(0.3), 2 * c * std::sin(0.3), 2 * std::sin(1.570796));
    g = formules("X", "Y", "(X)*(T)");
    pointsurface(g, 2, 3);
    ATTEND_POINT(g, 2, 3, 6);
    g = formules("2", "X", "Y");
    pointspherique(g, 0.5, 0.25);
    ATTEND_POINT(g, 2 * std::cos(0.25) * std::cos(0.5), 2 * std::cos(0.25) * std::sin(0.5), 2 * std::sin(0.25));
}

TEST(MoteurPoints, AntislashLitLeXDuPointPrecedent)
{
    // F3 and F2 are read before F1 gives the new x: both see the previous x.
    GlobalesMoteur g = formules("T", "7\\T", "10\\T");
    g.pointX = 2;
    pointparametre(g, 5, 1, true);
    ATTEND_POINT(g, 5, 3, 5);
    pointparametre(g, 5, 1, true);
    ATTEND_POINT(g, 5, 1, 2);
}

TEST(MoteurPoints, FormuleIncorrecteRetenueSansValeurAZero)
{
    GlobalesMoteur g = formules("SIN(X", "", "");
    pointcourbe(g, 1);
    EXPECT_EQ(g.erreurFormule, "Formule incorrecte,désolé");
    g = formules("X", "(Y", "1");
    pointsurface(g, 1, 2);
    EXPECT_EQ(g.erreurFormule, "Formule incorrecte");
    g = formules("RAC3(8)", "X", "1");
    pointsurface(g, 1, 2);
    EXPECT_TRUE(g.erreurFormule.empty());
    ATTEND_POINT(g, 0, 1, 1);
}

TEST(MoteurPoints, FamilleParBlocsCommePointParPoint)
{
    // Whole runs of a family give, bit for bit, what the point-by-point
    // entries leave in pointX..Z, failures included.
    using C = std::tuple<bool, const char*, const char*, const char*>;
    std::vector<double> u, v;
    for (double a : {-2.5, -1.0, 0.0, 0.5, 1.0, 3.0, 800.0})
        for (double t : {-1.0, 0.0, 0.25, 1.0, 6.28})
            u.push_back(a), v.push_back(t);
    const std::size_t n = u.size();
    for (auto [spherique, f1, f2, f3] :
         {C{false, "(3+COS(A))*COS(T)", "(3+COS(A))*SIN(T)", "SIN(A)"}, C{false, "1/X", "LN(T)", "X^T"},
          C{true, "(5)+SIN(6*T)", "T", "(A-1P)/(2)"}, C{true, "RAC(A)", "ARCSIN(T)", "EXP(A)"}}) {
        GlobalesMoteur g = formules(f1, f2, f3);
        std::vector<double> x(n), y(n), z(n);
        ASSERT_TRUE(pointsFamille(g, spherique, u.data(), v.data(), x.data(), y.data(), z.data(), n));
        for (std::size_t i = 0; i < n; ++i) {
            GlobalesMoteur p = formules(f1, f2, f3);
            spherique ? pointspherique(p, u[i], v[i]) : pointsurface(p, u[i], v[i]);
            const auto bits = [](double a, double b, double c) {
                return std::tuple(std::bit_cast<std::uint64_t>(a), std::bit_cast<std::uint64_t>(b),
                                  std::bit_cast<std::uint64_t>(c));
            };
            EXPECT_EQ(bits(x[i], y[i], z[i]), bits(p.pointX, p.pointY, p.pointZ)) << f1 << " " << i;
        }
    }
    // An unreadable formula leaves its message, as point by point.
    GlobalesMoteur g = formules(")A(", "A", "T");
    double x, y, z;
    EXPECT_FALSE(pointsFamille(g, false, u.data(), v.data(), &x, &y, &z, 1));
    EXPECT_EQ(g.erreurFormule, "Formule incorrecte");
}

}  // namespace
}  // namespace velorin
