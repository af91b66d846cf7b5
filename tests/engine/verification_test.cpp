#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <utility>

#include "commun/commun.h"
#include "engine/normalisation.h"
#include "engine/verification.h"
#include "plot/demande.h"

namespace velorin {
namespace {

// The formula prepared as the plot request prepares a function.
std::string prepare(const std::string& tape)
{
    return nettoieformule(unifiecrochets(tape), 1);
}

struct Cas {
    const char* tape;
    Famille famille;
    std::size_t position;      // of the first remark
    const char* proposition;   // of the first remark ("" for none)
    double x = NAN, vaut = 0;  // the rewriting, final, at x reads as the school reading of the typed text
};

TEST(Verification, RemarquesPositionsEtReecrituresJustes)
{
    const Famille E = Famille::Espace, Pl = Famille::Plan, N = Famille::Nuage;
    // clang-format off
    for (Cas c : {
        Cas{"SIN(X)+1", E, 6, "SIN(X)+(1)", 0.5, std::sin(0.5) + 1},
        Cas{"2SIN(X)+1", E, 10, "(2)*SIN(X)+(1)", 0.5, 2 * std::sin(0.5) + 1}, Cas{"2X", E, 0, "2*X", 3, 6},
        Cas{"3X^2+1", Pl, 0, "3*X^2+1"}, Cas{"1.5E-3*X", E, 0, "0.0015*X", 2, 0.003}, Cas{"1.5E2*X", E, 0, "150*X"},
        Cas{"X+2E-1", E, 3, "X+0.2"}, Cas{"X^-2", E, 1, "1/X^2", 2, 0.25}, Cas{"(1)*SIN(X)+(2)*COS(X)", Pl, 0, ""},
        Cas{"(X)*(Y)*(Z)", N, 0, ""}, Cas{"X*Y", N, 0, "(X)*(Y)"}, Cas{"(X)-(1)-(1)", E, 3, "((X)-(1))-(1)", 5, 3},
        Cas{"(X)-(1)+(1)", Pl, 3, "(X)-(1)-(1)"}, Cas{"(X)+(1)-(2)-(3)", E, 3, "(X)+(1)-(2)+(3)"},
        Cas{"(2)*(X)^(2)", E, 3, "(2)*((X)^(2))", 3, 18}, Cas{"SQRT(X)", E, 0, "SQR(X)"},
        Cas{"CUBR(X)", E, 0, "(X)^(1/3)"}, Cas{"RAC3(8)", E, 0, "(8)^(1/3)", 0, 2}, Cas{"+SIN(X)", E, 0, "SIN(X)"},
        Cas{"2(X+1)", E, 0, "2*(X+1)"}, Cas{"2.5(X+1)", E, 0, "2.5*(X+1)"}, Cas{"X*(X+1)", E, 0, "(X)*(X+1)"},
        Cas{"(X)(X)", E, 3, "(X)*(X)"}, Cas{"X/2", E, 1, "1/2*X", 3, 1.5}, Cas{"P", E, 0, "1P"},
        Cas{"B+X", Pl, 0, ""}}) {
        // clang-format on
        const std::string f = prepare(c.tape);
        const std::vector<Remarque> r = verifieFormule(f, c.famille);
        ASSERT_FALSE(r.empty()) << c.tape;
        EXPECT_EQ(r[0].position, c.position) << c.tape << " -> " << f;
        EXPECT_EQ(r[0].proposition, c.proposition) << c.tape << " -> " << f;
        EXPECT_FALSE(r[0].texte.empty());
        if (!std::isnan(c.x)) {
            EXPECT_NEAR(evalespace(r[0].proposition, c.x, 0), c.vaut, 1e-9) << c.tape << " -> " << r[0].proposition;
            EXPECT_TRUE(verifieFormule(r[0].proposition, c.famille).empty()) << r[0].proposition;
        }
    }
}

// A remark is an error exactly when the evaluator cannot read the brackets
// (and the program would end): misordered, a group glued to the next one,
// hidden behind a cut exponent; not when the family reads no value at all.
TEST(Verification, ErreurSeulementQuandLeMoteurSArrete)
{
    for (const char* f : {"X)+(1", ")(", "(X)(X)", "SIN((X)(X))", "1.5E2*X)+(1", ")(+)(+)(", "SIN(X", "(X)A(X)",
                          "SIN(X)+1"})
        for (Famille famille : {Famille::Espace, Famille::Plan, Famille::Nuage}) {
            const std::string p = prepare(f);
            const std::vector<Remarque> r = verifieFormule(p, famille);
            EXPECT_EQ(std::any_of(r.begin(), r.end(), [](const Remarque& x) { return x.erreur; }),
                      evalue(famille, p, 1, 1, 1).issue == Issue::Incorrecte)
                << f << " " << int(famille);
        }
}

TEST(Verification, LecturesOrdinairesSansRemarque)
{
    for (const char* f : {"X^2", "2\\X", "X-1-1", "(X)+(1)+(2)", "-SIN(X)", "3-LN(X)", "-3P/4*T", "2P",
                          "(5)+(3)*COS(X)", "E(X)", "SIN(X)^(2)", "(X)*(X)"})
        EXPECT_TRUE(verifieFormule(prepare(f), Famille::Espace).empty()) << f;
}

// Every formula of the two shipped galleries, cut as the plot request cuts
// it, reads as its author meant.
TEST(Verification, GaleriesSansRemarque)
{
    for (const auto& [fichier, mode] :
         {std::pair{"Lisurf.txt", Famille::Espace}, std::pair{"Lico.txt", Famille::Plan}}) {
        std::istringstream in(essai::lisFichier(std::string(VELORIN_SOURCE_DIR) + "/data/sources/" + fichier));
        ASSERT_FALSE(in.str().empty()) << fichier;
        std::string ligne;
        int vues = 0;
        while (std::getline(in, ligne)) {
            const std::size_t barre = ligne.find('|');
            const int genre = ligne[0] == '#' || barre == std::string::npos ? 5 : std::stoi(ligne.substr(0, barre));
            if (genre > 4 && genre < 14)
                continue;  // comments, points and directions, not formulas
            const Famille famille = genre >= 14 ? Famille::Nuage : mode;
            for (const std::string& champ : champsEntree(genre, ligne.substr(barre + 1))) {
                const std::string f = nettoieformule(champ, genre);
                for (const Remarque& r : champ.empty() ? std::vector<Remarque>{} : verifieFormule(f, famille))
                    ADD_FAILURE() << fichier << " " << f << " : " << texteRemarque(r);
                vues += !champ.empty();
            }
        }
        EXPECT_GT(vues, 20) << fichier;
    }
}

using Texte = std::pair<const char*, const char*>;  // typed, expected

TEST(MoteurNormalisation, CrochetsUnifiesEtParenthesesComptees)
{
    for (auto [entree, attendu] :
         {Texte{"z=[x+1]^2", "z=(x+1)^2"}, Texte{"R = 3*cos{t}", "R = 3*cos(t)"}, Texte{"(x]", "(x)"}})
        EXPECT_EQ(unifiecrochets(entree), attendu) << entree;
    for (const char* oui : {"SIN(X)", ")(", ""})
        EXPECT_TRUE(parenthesesequilibrees(oui)) << oui;
    for (const char* non : {"SIN(X", "(()"})
        EXPECT_FALSE(parenthesesequilibrees(non)) << non;
}

// "2SIN(X)+3SIN(T)": first occurrence only; "1.5E2": "E" found inside a number.
TEST(MoteurNormalisation, NettoyageEtProduitsImplicites)
{
    for (auto [entree, attendu] :
         {Texte{"y = 2 sin(x)", "(2)*SIN(X)"}, Texte{"z=(x+1)^2", "(X+1)^2"}, Texte{"a=b=x", "X"},
          Texte{"y=XSIN(X)", "(X)*SIN(X)"}, Texte{"0.5COS(T)", "(0.5)*COS(T)"}, Texte{"12TAN(X)", "(12)*TAN(X)"},
          Texte{"PISIN(X)", "PISIN(X)"}, Texte{"2*SIN(X)", "(2)*SIN(X)"}, Texte{"1.5/COS(X)", "(1.5)/COS(X)"},
          Texte{"X*SIN(X)", "(X)*SIN(X)"}, Texte{"3X*SIN(X)", "3(X)*SIN(X)"}, Texte{"(X)*SIN(X)", "(X)*SIN(X)"},
          Texte{"-SIN(X)", "-SIN(X)"}, Texte{"+SIN(X)", "+SIN(X)"}, Texte{"ARCSIN(X)", "ARCSIN(X)"},
          Texte{"2ARCSIN(X)", "(2)*ARCSIN(X)"}, Texte{"2EXP(X)", "(2)*EXP(X)"},
          Texte{"2SIN(X)+3SIN(T)", "(2)*SIN(X)+3SIN(T)"}, Texte{"1.5E2", "(1.5)*E2"}})
        EXPECT_EQ(nettoieformule(entree, 0), attendu) << entree;
    EXPECT_EQ(nettoieformule("2x + 3y - z = 0", genreTelQuel), "2x+3y-z=0");
    EXPECT_EQ(explicite("2SIN(X)", 9, "SIN"), "2SIN(X)");  // position outside the text
}

}  // namespace
}  // namespace velorin
