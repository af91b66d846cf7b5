#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/nombres.h"

namespace velorin {
namespace {

TEST(MoteurNombres, TexteLePlusCourt)
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
             {1e20, "1e+20"},
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
        EXPECT_EQ(std::signbit(relu), std::signbit(c.v)) << t;
        EXPECT_EQ(relu, c.v) << t;
    }
}

TEST(MoteurNombres, FormesDeNombres)
{
    struct Cas {
        const char* texte;
        std::size_t longueur;  // of the leading number
        bool entier;           // the whole text is a number
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"12", 2, true}, {"-1.5", 4, true}, {"+.5", 3, true}, {"1.", 2, true},
             {"2E3", 3, true}, {"2E-3", 4, true}, {"2E", 1, false}, {"2E+", 1, false},
             {".", 0, false}, {"-", 0, false}, {"", 0, false}, {"  7x", 3, false},
             {"1.5.2", 3, false}, {"P", 0, false}, {"3/4", 1, false},
         }) {
        EXPECT_EQ(longueurNombre(c.texte), c.longueur) << c.texte;
        EXPECT_EQ(estNombre(c.texte), c.entier) << c.texte;
    }
    double v = 0;
    EXPECT_FALSE(lisValeurExacte("1e999", v));
    EXPECT_FALSE(lisValeurExacte("nan", v));
    EXPECT_FALSE(lisValeurExacte("1,5", v));
    bool echec = false;
    EXPECT_EQ(nombreEnTete(" 2.5*X", echec), 2.5);
    EXPECT_FALSE(echec);
}

}  // namespace
}  // namespace velorin
