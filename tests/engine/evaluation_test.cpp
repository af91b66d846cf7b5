#include <gtest/gtest.h>

#include <cmath>

#include "engine/lecture.h"

namespace velorin {
namespace {

constexpr Famille P = Famille::Plan, E = Famille::Espace, N = Famille::Nuage;
constexpr Issue V = Issue::Valeur, S = Issue::SansValeur, I = Issue::Incorrecte;
constexpr double H = horsCalcul;

TEST(MoteurEvaluation, FormulesParFamilleIssueEtValeur)
{
    // Variables: plane (u, v), space (t, previous x), cloud (x, y, z).
    struct Cas {
        Famille f;
        const char* texte;
        double a, b, c;
        Issue issue;
        double attendu;
    };
    const double s = std::sin(0.5), co = std::cos(0.5);
    for (const Cas& c : std::initializer_list<Cas>{
             {E, "X^2", 3, 0, 0, V, 9},
             {E, "1/X", 0, 0, 0, V, H},
             {E, "2\\X", 0.4, 0, 0, V, H},
             {P, "2\\X", 0.6, 0, 0, V, H},
             {P, "7\\X", 2, 0, 0, V, 3},
             {P, "(X)-(1)-(1)", 5, 0, 0, V, 5},
             {E, "X-1-1", 5, 0, 0, V, 3},
             {E, "RAC(X)", -4, 0, 0, V, 0},
             {E, "LOG(100)", 0, 0, 0, V, 2},
             {E, "E(X)", -1.5, 0, 0, V, -2},
             {E, "ARCCOTAN(0)", 0, 0, 0, V, 2 * std::atan(1.0)},
             {E, "SIN(X)+1", 0.5, 0, 0, V, s},
             {E, "-SIN(X)", 0.5, 0, 0, V, -s},
             {E, "5SIN(X)", 0.5, 0, 0, V, H},
             {E, "RAC3(8)", 0, 0, 0, S, 0},
             {E, "3SQR(8)", 0, 0, 0, V, H},
             {E, "P", 0.25, 0, 0, V, 0.25},
             {E, "1P", 0.25, 0, 0, V, 3.141592},
             {E, "2X", 3, 0, 0, S, 0},
             {E, "(X)+1+(2)", 3, 0, 0, V, 6},
             {E, "  sin(x) ", 0.5, 0, 0, V, s},
             {E, "X^0.5", -4, 0, 0, V, H},
             {E, "1E300*X^2", 1e10, 0, 0, V, H},
             {E, "1E308+1E308", 0, 0, 0, V, H},  // a sum overflow nothing catches
             // The space family's "\" tests t but divides by the previous x.
             {E, "7\\X", 5, 2, 0, V, 3},
             {E, "7\\X", 5, 0.3, 0, V, H},
             {E, "7\\X", 0.3, 2, 0, V, H},
             // Pair maxima: cloud 2, plane 3, space 4.
             {E, "(2)*SIN(X)+(3)*COS(X)", 0.5, 0, 0, V, 2 * s + 3 * co},
             {P, "(2)*SIN(X)+(3)*COS(X)", 0.5, 0, 0, S, 0},
             {P, "(X)+(Y)+(1)", 1, 2, 0, V, 4},
             {N, "(X)+(Y)+(1)", 1, 2, 0, S, 0},
             // Arrangements of two to four pairs.
             {N, "(X)*(Y)", 3, 4, 0, V, 12},
             {E, "((((X))))", 2, 0, 0, V, 2},
             {E, "((X)+(1))*(2)", 2, 0, 0, V, 6},
             {E, "SIN((X)*(2))", 0.25, 0, 0, V, s},
             {E, "(X)^(2)*(3)", 2, 0, 0, V, 12},
             {E, "ABS((X)-(1)-(2))", 5, 0, 0, V, 6},
             // Variable letters of each family.
             {P, "2*Y^2", 2, 3, 0, V, 18},
             {P, "X+T", 2, 3, 0, V, 5},
             {N, "X+Y+Z", 1, 2, 4, V, 7},
             {E, "T+A+X", 2, 0, 0, V, 6},
             // Unreadable brackets, also when met in a piece.
             {E, "SIN(X", 1, 0, 0, I, 0},
             {E, ")X(", 1, 0, 0, I, 0},
             {E, "(X)(1)", 1, 0, 0, I, 0},
             {N, "(X)+)(", 1, 0, 0, I, 0},
         }) {
        const Resultat r = evalue(c.f, c.texte, c.a, c.b, c.c);
        EXPECT_EQ(r.issue, c.issue) << c.texte;
        EXPECT_DOUBLE_EQ(r.lue(), c.attendu) << c.texte;
    }
}

TEST(MoteurEvaluation, IssueRangeeEtMessage)
{
    Issue issue = Issue::Valeur;
    EXPECT_EQ(evalnuage("(X", 1, 2, 3, &issue), 0);
    EXPECT_EQ(issue, Issue::Incorrecte);
    EXPECT_STREQ(messageIncorrecte(Famille::Nuage), "Formule incorrecte");
    EXPECT_EQ(evalplan("(1)+(2)+(3)+(4)", 0, 0, &issue), 0);
    EXPECT_EQ(issue, Issue::SansValeur);
    EXPECT_EQ(evalespace("(1)+(2)+(3)+(4)", 0, 0, &issue), 10);
}

}  // namespace
}  // namespace velorin
