#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "engine/lecture.h"
#include "engine/nombres.h"

namespace velorin {
namespace {

constexpr double kEchec = -12345;  // an expected failure
constexpr double kSans = -54321;   // no value expected

// "2-1/4": a "-" not in front gives no sign; "0E999": 10^999 overflows before
// the product; "P-3": no coefficient text in front of "P".
TEST(MoteurLecture, LecteurDeNombresEtEchecs)
{
    using C = std::tuple<const char*, double, double>;
    for (auto [texte, defaut, attendu] :
         {C{"-2P/3", 0, -2 * 3.141592 / 3}, C{"1P", 0, 3.141592}, C{"P", 7, 7}, C{"x", 7, 7}, C{"", 7, 0},
          C{"  -3  ", 0, -3}, C{"E-3", 0, 0}, C{"1E1E1", 0, 100}, C{"2-1/4", 0, 0.25}, C{"1/-2", 0, -1},
          C{"1.5-2", 0, 2}, C{"1E-999", 0, 0}, C{"1/0", 0, kEchec}, C{"1E999", 0, kEchec}, C{"0E999", 0, kEchec},
          C{"P-3", 0, kEchec}}) {
        bool echec = false;
        const double v = lisnombre(texte, defaut, echec);
        EXPECT_EQ(echec, attendu == kEchec) << texte;
        EXPECT_DOUBLE_EQ(lisnombre(texte, defaut), attendu == kEchec ? horsCalcul : v) << texte;
        EXPECT_DOUBLE_EQ(attendu == kEchec ? kEchec : v, attendu) << texte;
    }
}

// "\" truncates toward zero (-7\2 = -3).
TEST(MoteurLecture, OperationsEtQuotientEntier)
{
    using C = std::tuple<char, double, double, double>;
    for (auto [op, a, b, attendu] :
         {C{'*', 3, 4, 12}, C{'/', 3, 0, horsCalcul}, C{'\\', 7, 2, 3}, C{'\\', -7, 2, -3}, C{'\\', 2.5, 1, 2},
          C{'\\', 7, 0.4, 0}, C{'\\', 3e9, 2, 0}, C{'\\', -2147483648.0, -1, 0}, C{'^', 2, 10, 1024}, C{'^', 0, -1, 0},
          C{'^', -8, 0.5, 0}, C{'*', 1e200, 1e200, 0}, C{'%', 1, 2, kSans}}) {
        const Resultat r = operons(op, a, b);
        EXPECT_EQ(r.issue, attendu == kSans ? Issue::SansValeur : Issue::Valeur) << op << a;
        EXPECT_EQ(attendu == kSans ? kSans : r.valeur, attendu) << op << a << b;
    }
}

// "X*": a letter in a head reads as 0; "12.5SIN": a head not ending with an
// operator has no value. RAC3 and 3SQR no prefix reaches stay in the table.
TEST(MoteurLecture, PrefixesEtFonctionsHorsDomaine)
{
    using C = std::tuple<const char*, double, double>;
    for (auto [prefixe, w, attendu] :
         {C{"", 2.5, 2.5}, C{"-", 2, -2}, C{"2*COS", 0, 2}, C{"X*", 2, 0}, C{"CUBR", 8, kSans}, C{"12.5SIN", 0, kSans},
          C{"INT", 2.7, 2}, C{"EXPONENTIELLE", 1, std::exp(1.0)}, C{"ARCCOS", 0, 2 * std::atan(1.0)},
          C{"TANGEANTE", 1, std::tan(1.0)}, C{"LN", 0, horsCalcul}, C{"ARCSIN", 1, horsCalcul},
          C{"COTAN", 0, horsCalcul}, C{"EXP", 1000, horsCalcul}, C{"SINH", 800, horsCalcul},
          C{"ARCTANH", 1, horsCalcul}, C{"ARCCOSH", 0.5, horsCalcul}, C{"1/0*", 1, horsCalcul}}) {
        const Resultat r = appliquefonction(prefixe, w);
        EXPECT_EQ(r.issue, attendu == kSans ? Issue::SansValeur : Issue::Valeur) << prefixe;
        EXPECT_DOUBLE_EQ(attendu == kSans ? kSans : r.valeur, attendu) << prefixe;
    }
    bool aValeur = false, echec = false;
    EXPECT_DOUBLE_EQ(appliqueNom("RAC3", 8, aValeur, echec), 2);
    EXPECT_TRUE(aValeur);
    appliqueNom("3SQR", -8, aValeur, echec);
    EXPECT_TRUE(echec);
}

constexpr Famille P = Famille::Plan, E = Famille::Espace, N = Famille::Nuage;
constexpr Issue V = Issue::Valeur, S = Issue::SansValeur, I = Issue::Incorrecte;
constexpr double H = horsCalcul;

// Variables: plane (u, v), space (t, previous x), cloud (x, y, z).
TEST(MoteurEvaluation, FormulesParFamilleIssueEtValeur)
{
    struct Cas {
        Famille f;
        const char* texte;
        double a, b, c;
        Issue issue;
        double attendu;
    };
    const double s = std::sin(0.5), co = std::cos(0.5);
    // clang-format off
    for (Cas c : {
        Cas{E, "X^2", 3, 0, 0, V, 9}, Cas{E, "1/X", 0, 0, 0, V, H}, Cas{E, "2\\X", 0.4, 0, 0, V, H},
        Cas{P, "2\\X", 0.6, 0, 0, V, H}, Cas{P, "7\\X", 2, 0, 0, V, 3}, Cas{P, "(X)-(1)-(1)", 5, 0, 0, V, 5},
        Cas{E, "X-1-1", 5, 0, 0, V, 3}, Cas{E, "RAC(X)", -4, 0, 0, V, 0}, Cas{E, "LOG(100)", 0, 0, 0, V, 2},
        Cas{E, "E(X)", -1.5, 0, 0, V, -2}, Cas{E, "ARCCOTAN(0)", 0, 0, 0, V, 2 * std::atan(1.0)},
        Cas{E, "SIN(X)+1", 0.5, 0, 0, V, s}, Cas{E, "-SIN(X)", 0.5, 0, 0, V, -s}, Cas{E, "5SIN(X)", 0.5, 0, 0, V, H},
        Cas{E, "RAC3(8)", 0, 0, 0, S, 0}, Cas{E, "3SQR(8)", 0, 0, 0, V, H}, Cas{E, "P", 0.25, 0, 0, V, 0.25},
        Cas{E, "1P", 0.25, 0, 0, V, 3.141592}, Cas{E, "2X", 3, 0, 0, S, 0}, Cas{E, "(X)+1+(2)", 3, 0, 0, V, 6},
        Cas{E, "  sin(x) ", 0.5, 0, 0, V, s}, Cas{E, "X^0.5", -4, 0, 0, V, H}, Cas{E, "1E300*X^2", 1e10, 0, 0, V, H},
        Cas{E, "1E308+1E308", 0, 0, 0, V, H},  // a sum overflow nothing catches
        // The space family's "\" tests t but divides by the previous x.
        Cas{E, "7\\X", 5, 2, 0, V, 3}, Cas{E, "7\\X", 5, 0.3, 0, V, H}, Cas{E, "7\\X", 0.3, 2, 0, V, H},
        // Pair maxima: cloud 2, plane 3, space 4.
        Cas{E, "(2)*SIN(X)+(3)*COS(X)", 0.5, 0, 0, V, 2 * s + 3 * co}, Cas{P, "(2)*SIN(X)+(3)*COS(X)", 0.5, 0, 0, S, 0},
        Cas{P, "(X)+(Y)+(1)", 1, 2, 0, V, 4}, Cas{N, "(X)+(Y)+(1)", 1, 2, 0, S, 0},
        // Arrangements of two to four pairs.
        Cas{N, "(X)*(Y)", 3, 4, 0, V, 12}, Cas{E, "((((X))))", 2, 0, 0, V, 2}, Cas{E, "((X)+(1))*(2)", 2, 0, 0, V, 6},
        Cas{E, "SIN((X)*(2))", 0.25, 0, 0, V, s}, Cas{E, "(X)^(2)*(3)", 2, 0, 0, V, 12},
        Cas{E, "ABS((X)-(1)-(2))", 5, 0, 0, V, 6},
        // Variable letters of each family.
        Cas{P, "2*Y^2", 2, 3, 0, V, 18}, Cas{P, "X+T", 2, 3, 0, V, 5}, Cas{N, "X+Y+Z", 1, 2, 4, V, 7},
        Cas{E, "T+A+X", 2, 0, 0, V, 6},
        // Unreadable brackets, also when met in a piece.
        Cas{E, "SIN(X", 1, 0, 0, I, 0}, Cas{E, ")X(", 1, 0, 0, I, 0}, Cas{E, "(X)(1)", 1, 0, 0, I, 0},
        Cas{N, "(X)+)(", 1, 0, 0, I, 0}}) {
        // clang-format on
        const Resultat r = evalue(c.f, c.texte, c.a, c.b, c.c);
        EXPECT_EQ(r.issue, c.issue) << c.texte;
        EXPECT_DOUBLE_EQ(r.lue(), c.attendu) << c.texte;
    }
    EXPECT_STREQ(messageIncorrecte(N), "Formule incorrecte");  // "désolé" is the space family's only
}

TEST(MoteurNombres, TexteLePlusCourtReluALIdentique)
{
    using C = std::tuple<double, const char*>;
    for (auto [v, texte] : {C{0, "0"}, C{-0.0, "-0"}, C{1e9, "1000000000"}, C{1e15, "1000000000000000"},
                            C{1e16, "1e+16"}, C{0.1 + 0.2, "0.30000000000000004"}, C{1e-4, "0.0001"},
                            C{1.5e-5, "1.5e-05"}, C{-2.5, "-2.5"}, C{123456.789, "123456.789"},
                            C{std::numeric_limits<double>::max(), "1.7976931348623157e+308"}, C{5e-324, "5e-324"}}) {
        const std::string t = texteValeur(v);
        EXPECT_EQ(t, texte);
        double relu = 0;
        ASSERT_TRUE(lisValeurExacte(t, relu)) << t;
        EXPECT_TRUE(relu == v && std::signbit(relu) == std::signbit(v)) << t;
    }
}

TEST(MoteurNombres, FormesDeNombres)
{
    using C = std::tuple<const char*, std::size_t, bool>;
    for (auto [texte, enTete, entier] : {C{"-1.5", 4, true}, C{"+.5", 3, true}, C{"1.", 2, true}, C{"2E-3", 4, true},
                                         C{"2E+", 1, false}, C{".", 0, false}, C{"-", 0, false}, C{"", 0, false},
                                         C{"  7x", 3, false}, C{"1.5.2", 3, false}, C{"P", 0, false}}) {
        EXPECT_EQ(longueurNombre(texte), enTete) << texte;
        EXPECT_EQ(estNombre(texte), entier) << texte;
    }
    double v = 0;
    for (const char* refuse : {"1e999", "nan", "1,5"})
        EXPECT_FALSE(lisValeurExacte(refuse, v)) << refuse;
}

}  // namespace
}  // namespace velorin
