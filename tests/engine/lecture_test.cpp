#include <gtest/gtest.h>

#include <cmath>

#include "engine/lecture.h"

namespace velorin {
namespace {

constexpr double kEchec = -12345;  // marks an expected failure in the tables

TEST(MoteurLecture, LecteurDeNombres)
{
    struct Cas {
        const char* texte;
        double defaut, attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"-2P/3", 0, -2 * 3.141592 / 3},
             {"P/2", 0, 1.570796},
             {"-P", 0, -3.141592},
             {"1/4", 0, 0.25},
             {"2E3", 0, 2000},
             {"1.5", 0, 1.5},
             {"1.5E2", 0, 150},
             {"2P", 0, 6.283184},
             {"1P", 0, 3.141592},
             {"P", 7, 7},
             {"x", 7, 7},
             {"5", 7, 5},
             {"", 7, 0},
             {"  -3  ", 0, -3},
             {"E-3", 0, 0},        // empty mantissa reads 0
             {"2E-3", 0, 0.002},
             {"1E1E1", 0, 100},
             {"2-1/4", 0, 0.25},   // a "-" not in front gives no sign
             {"1/-2", 0, -1},
             {"1.5-2", 0, 2},
             {"3/", 0, 3},
             {"AB", 0, 0},
             {"1/0", 0, kEchec},
             {"1E999", 0, kEchec},
             {"0E999", 0, kEchec},  // 10^999 overflows before the product
             {"1E-999", 0, 0},
             {"P-3", 0, kEchec},    // no coefficient text in front of "P"
         }) {
        bool echec = false;
        const double v = lisnombre(c.texte, c.defaut, echec);
        if (c.attendu == kEchec) {
            EXPECT_TRUE(echec) << c.texte;
            EXPECT_EQ(lisnombre(c.texte, c.defaut), horsCalcul) << c.texte;
        } else {
            EXPECT_FALSE(echec) << c.texte;
            EXPECT_DOUBLE_EQ(v, c.attendu) << c.texte;
        }
    }
}

TEST(MoteurLecture, OperationsBinaires)
{
    struct Cas {
        char op;
        double a, b;
        Issue issue;
        double attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {'*', 3, 4, Issue::Valeur, 12},
             {'-', 3, 4, Issue::Valeur, -1},
             {'/', 3, 0, Issue::Valeur, horsCalcul},
             {'/', 1, 4, Issue::Valeur, 0.25},
             {'\\', 7, 2, Issue::Valeur, 3},
             {'\\', -7, 2, Issue::Valeur, -3},      // truncated toward zero
             {'\\', 2.5, 1, Issue::Valeur, 2},      // halves to even
             {'\\', 3.5, 1, Issue::Valeur, 4},
             {'\\', 7, 0.4, Issue::Valeur, 0},      // divisor rounds to 0
             {'\\', 3e9, 2, Issue::Valeur, 0},      // outside 32-bit integers
             {'\\', -2147483648.0, -1, Issue::Valeur, 0},
             {'^', 2, 10, Issue::Valeur, 1024},
             {'^', 0, -1, Issue::Valeur, 0},
             {'^', -8, 0.5, Issue::Valeur, 0},
             {'^', -2, 3, Issue::Valeur, -8},
             {'*', 1e200, 1e200, Issue::Valeur, 0},
             {'%', 1, 2, Issue::SansValeur, 0},
         }) {
        const Resultat r = operons(c.op, c.a, c.b);
        EXPECT_EQ(r.issue, c.issue) << c.op << ' ' << c.a << ' ' << c.b;
        EXPECT_EQ(r.lue(), c.attendu) << c.op << ' ' << c.a << ' ' << c.b;
    }
}

TEST(MoteurLecture, GroupementDesOperateurs)
{
    EXPECT_EQ(combine3('-', '-', 5, 1, 1).valeur, 5);   // 5 - (1 - 1)
    EXPECT_EQ(combine3('-', '+', 5, 1, 1).valeur, 3);   // 5 - (1 + 1)
    EXPECT_EQ(combine3('*', '+', 2, 3, 4).valeur, 10);  // (2 * 3) + 4
    EXPECT_EQ(combine3('^', '*', 2, 3, 2).valeur, 16);  // (2 ^ 3) * 2
    EXPECT_EQ(combine3('+', '%', 2, 3, 4).valeur, 2);   // no value reads as 0
    EXPECT_EQ(combine4('-', '-', '-', 10, 4, 3, 2).valeur, 10 - (4 - (3 - 2)));
    EXPECT_EQ(combine4('*', '-', '*', 2, 3, 4, 5).valeur, 6 - 20);
    EXPECT_EQ(combine4('*', '/', '-', 2, 3, 4, 5).valeur, 1.5 - 5);
}

TEST(MoteurLecture, PrefixesDesCrochets)
{
    constexpr double kSans = -54321;  // no value expected
    struct Cas {
        const char* prefixe;
        double w, attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"", 2.5, 2.5},
             {"7", 2.5, 7},
             {"3*", 2, 6},
             {"2^", 3, 8},
             {"-", 2, -2},
             {"X*", 2, 0},                 // a letter in a head reads as 0
             {"-SIN", 1, -std::sin(1.0)},
             {"2*COS", 0, 2},
             {"3-LN", 1, 3},
             {"5SIN", 1, horsCalcul},      // one-character head other than "-"
             {"3SQR", 8, horsCalcul},
             {"RAC3", 8, kSans},           // empty name
             {"CUBR", 8, kSans},
             {"12.5SIN", 0, kSans},        // head not ending with an operator
             {"RAC", -4, 0},
             {"LOG", 100, 2},
             {"E", -1.5, -2},
             {"INT", 2.7, 2},
             {"ARCCOTAN", 0, 2 * std::atan(1.0)},
             {"EXPONENTIELLE", 1, std::exp(1.0)},
             {"LN", 0, horsCalcul},
             {"LN", -1, horsCalcul},
             {"ARCSIN", 1, horsCalcul},
             {"ARCSIN", 2, horsCalcul},
             {"ARCCOS", 0, 2 * std::atan(1.0)},
             {"COTAN", 0, horsCalcul},
             {"EXP", 1000, horsCalcul},
             {"SINH", 800, horsCalcul},
             {"COTH", 0, horsCalcul},
             {"ARCTANH", 1, horsCalcul},
             {"ARCCOSH", 0.5, horsCalcul},
             {"ARCSINH", 0, 0},
             {"1/0*", 1, horsCalcul},      // the head's number fails
         }) {
        const Resultat r = appliquefonction(c.prefixe, c.w);
        if (c.attendu == kSans) {
            EXPECT_EQ(r.issue, Issue::SansValeur) << c.prefixe;
        } else {
            EXPECT_EQ(r.issue, Issue::Valeur) << c.prefixe;
            EXPECT_DOUBLE_EQ(r.valeur, c.attendu) << c.prefixe;
        }
    }
    bool aValeur = false, echec = false;
    EXPECT_DOUBLE_EQ(appliqueNom("RAC3", 8, aValeur, echec), 2);
    EXPECT_TRUE(aValeur);
    appliqueNom("3SQR", -8, aValeur, echec);
    EXPECT_TRUE(echec);
}

}  // namespace
}  // namespace velorin
