#include <gtest/gtest.h>

#include "engine/normalisation.h"

namespace velorin {
namespace {

struct CasTexte {
    const char* entree;
    const char* attendu;
};

TEST(MoteurNormalisation, CrochetsUnifiesEtParenthesesComptees)
{
    for (const CasTexte& c :
         std::initializer_list<CasTexte>{{"z=[x+1]^2", "z=(x+1)^2"}, {"R = 3*cos{t}", "R = 3*cos(t)"}, {"(x]", "(x)"}})
        EXPECT_EQ(unifiecrochets(c.entree), c.attendu) << c.entree;
    for (const char* oui : {"SIN(X)", ")(", ""})
        EXPECT_TRUE(parenthesesequilibrees(oui)) << oui;
    for (const char* non : {"SIN(X", "(()"})
        EXPECT_FALSE(parenthesesequilibrees(non)) << non;
}

TEST(MoteurNormalisation, NettoyageEtProduitsImplicites)
{
    for (const CasTexte& c : std::initializer_list<CasTexte>{
             {"y = 2 sin(x)", "(2)*SIN(X)"},
             {"z=(x+1)^2", "(X+1)^2"},
             {"a=b=x", "X"},
             {"y=XSIN(X)", "(X)*SIN(X)"},
             {"0.5COS(T)", "(0.5)*COS(T)"},
             {"12TAN(X)", "(12)*TAN(X)"},
             {"PISIN(X)", "PISIN(X)"},
             {"2*SIN(X)", "(2)*SIN(X)"},
             {"1.5/COS(X)", "(1.5)/COS(X)"},
             {"X*SIN(X)", "(X)*SIN(X)"},
             {"3X*SIN(X)", "3(X)*SIN(X)"},
             {"(X)*SIN(X)", "(X)*SIN(X)"},
             {"-SIN(X)", "-SIN(X)"},
             {"+SIN(X)", "+SIN(X)"},
             {"ARCSIN(X)", "ARCSIN(X)"},
             {"2ARCSIN(X)", "(2)*ARCSIN(X)"},
             {"2EXP(X)", "(2)*EXP(X)"},
             {"2SIN(X)+3SIN(T)", "(2)*SIN(X)+3SIN(T)"},  // first occurrence only
             {"1.5E2", "(1.5)*E2"},                      // "E" found inside a number
         })
        EXPECT_EQ(nettoieformule(c.entree, 0), c.attendu) << c.entree;
    EXPECT_EQ(nettoieformule("2x + 3y - z = 0", genreTelQuel), "2x+3y-z=0");
    EXPECT_EQ(explicite("2SIN(X)", 9, "SIN"), "2SIN(X)");  // position outside the text
}

}  // namespace
}  // namespace velorin
