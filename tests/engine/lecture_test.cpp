#include <gtest/gtest.h>

#include <cmath>

#include "engine/lecture.h"

namespace velorin {
namespace {

constexpr double kEchec = -12345;  // an expected failure
constexpr double kSans = -54321;   // no value expected

TEST(MoteurLecture, LecteurDeNombresEtEchecs)
{
    struct Cas {
        const char* texte;
        double defaut, attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"-2P/3", 0, -2 * 3.141592 / 3},
             {"1P", 0, 3.141592},
             {"P", 7, 7},
             {"x", 7, 7},
             {"", 7, 0},
             {"  -3  ", 0, -3},
             {"E-3", 0, 0},
             {"1E1E1", 0, 100},
             {"2-1/4", 0, 0.25},  // a "-" not in front gives no sign
             {"1/-2", 0, -1},
             {"1.5-2", 0, 2},
             {"1E-999", 0, 0},
             {"1/0", 0, kEchec},
             {"1E999", 0, kEchec},
             {"0E999", 0, kEchec},  // 10^999 overflows before the product
             {"P-3", 0, kEchec},    // no coefficient text in front of "P"
         }) {
        bool echec = false;
        const double v = lisnombre(c.texte, c.defaut, echec);
        EXPECT_EQ(echec, c.attendu == kEchec) << c.texte;
        EXPECT_DOUBLE_EQ(lisnombre(c.texte, c.defaut), c.attendu == kEchec ? horsCalcul : v) << c.texte;
        if (c.attendu != kEchec) {
            EXPECT_DOUBLE_EQ(v, c.attendu) << c.texte;
        }
    }
}

TEST(MoteurLecture, OperationsEtGroupementDePaires)
{
    struct Cas {
        char op;
        double a, b, attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {'*', 3, 4, 12},
             {'/', 3, 0, horsCalcul},
             {'\\', 7, 2, 3},
             {'\\', -7, 2, -3},  // toward zero
             {'\\', 2.5, 1, 2},
             {'\\', 7, 0.4, 0},
             {'\\', 3e9, 2, 0},
             {'\\', -2147483648.0, -1, 0},
             {'^', 2, 10, 1024},
             {'^', 0, -1, 0},
             {'^', -8, 0.5, 0},
             {'*', 1e200, 1e200, 0},
             {'%', 1, 2, kSans},
         }) {
        const Resultat r = operons(c.op, c.a, c.b);
        EXPECT_EQ(r.issue, c.attendu == kSans ? Issue::SansValeur : Issue::Valeur) << c.op << c.a;
        if (c.attendu != kSans) {
            EXPECT_EQ(r.valeur, c.attendu) << c.op << c.a << c.b;
        }
    }
    EXPECT_EQ(combine3('-', '-', 5, 1, 1).valeur, 5);   // 5 - (1 - 1)
    EXPECT_EQ(combine3('*', '+', 2, 3, 4).valeur, 10);  // (2 * 3) + 4
    EXPECT_EQ(combine3('^', '*', 2, 3, 2).valeur, 16);  // (2 ^ 3) * 2
    EXPECT_EQ(combine3('+', '%', 2, 3, 4).valeur, 2);   // no value reads as 0
    EXPECT_EQ(combine4('-', '-', '-', 10, 4, 3, 2).valeur, 10 - (4 - (3 - 2)));
    EXPECT_EQ(combine4('*', '-', '*', 2, 3, 4, 5).valeur, 6 - 20);
    EXPECT_EQ(combine4('*', '/', '-', 2, 3, 4, 5).valeur, 1.5 - 5);
}

TEST(MoteurLecture, PrefixesEtFonctionsHorsDomaine)
{
    struct Cas {
        const char* prefixe;
        double w, attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"", 2.5, 2.5},
             {"-", 2, -2},
             {"2*COS", 0, 2},
             {"X*", 2, 0},  // a letter in a head reads as 0
             {"CUBR", 8, kSans},
             {"12.5SIN", 0, kSans},  // head not ending with an operator
             {"INT", 2.7, 2},
             {"EXPONENTIELLE", 1, std::exp(1.0)},
             {"ARCCOS", 0, 2 * std::atan(1.0)},
             {"TANGEANTE", 1, std::tan(1.0)},
             {"LN", 0, horsCalcul},
             {"ARCSIN", 1, horsCalcul},
             {"COTAN", 0, horsCalcul},
             {"EXP", 1000, horsCalcul},
             {"SINH", 800, horsCalcul},
             {"ARCTANH", 1, horsCalcul},
             {"ARCCOSH", 0.5, horsCalcul},
             {"1/0*", 1, horsCalcul},
         }) {
        const Resultat r = appliquefonction(c.prefixe, c.w);
        EXPECT_EQ(r.issue, c.attendu == kSans ? Issue::SansValeur : Issue::Valeur) << c.prefixe;
        if (c.attendu != kSans) {
            EXPECT_DOUBLE_EQ(r.valeur, c.attendu) << c.prefixe;
        }
    }
    // Rows no prefix can reach stay in the table.
    bool aValeur = false, echec = false;
    EXPECT_DOUBLE_EQ(appliqueNom("RAC3", 8, aValeur, echec), 2);
    EXPECT_TRUE(aValeur);
    appliqueNom("3SQR", -8, aValeur, echec);
    EXPECT_TRUE(echec);
}

}  // namespace
}  // namespace velorin
