#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/nombres.h"

namespace velorin {
namespace {

TEST(MoteurNombres, TexteLePlusCourtReluALIdentique)
{
    struct Cas {
        double v;
        const char* texte;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {0, "0"},
             {-0.0, "-0"},
             {1e9, "1000000000"},
             {1e15, "1000000000000000"},
             {1e16, "1e+16"},
             {0.1 + 0.2, "0.30000000000000004"},
             {1e-4, "0.0001"},
             {1.5e-5, "1.5e-05"},
             {-2.5, "-2.5"},
             {123456.789, "123456.789"},
             {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
             {5e-324, "5e-324"},
         }) {
        const std::string t = texteValeur(c.v);
        EXPECT_EQ(t, c.texte);
        double relu = 0;
        ASSERT_TRUE(lisValeurExacte(t, relu)) << t;
        EXPECT_TRUE(relu == c.v && std::signbit(relu) == std::signbit(c.v)) << t;
    }
}

TEST(MoteurNombres, FormesDeNombres)
{
    struct Cas {
        const char* texte;
        std::size_t enTete;
        bool entier;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"-1.5", 4, true},
             {"+.5", 3, true},
             {"1.", 2, true},
             {"2E-3", 4, true},
             {"2E+", 1, false},
             {".", 0, false},
             {"-", 0, false},
             {"", 0, false},
             {"  7x", 3, false},
             {"1.5.2", 3, false},
             {"P", 0, false},
         }) {
        EXPECT_EQ(longueurNombre(c.texte), c.enTete) << c.texte;
        EXPECT_EQ(estNombre(c.texte), c.entier) << c.texte;
    }
    double v = 0;
    for (const char* refuse : {"1e999", "nan", "1,5"})
        EXPECT_FALSE(lisValeurExacte(refuse, v)) << refuse;
}

}  // namespace
}  // namespace velorin
