#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

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
    for (const Cas& c : std::initializer_list<Cas>{
             {"SIN(X)+1", E, 6, "SIN(X)+(1)", 0.5, std::sin(0.5) + 1},
             {"2SIN(X)+1", E, 10, "(2)*SIN(X)+(1)", 0.5, 2 * std::sin(0.5) + 1},
             {"2X", E, 0, "2*X", 3, 6},
             {"3X^2+1", Pl, 0, "3*X^2+1"},
             {"1.5E-3*X", E, 0, "0.0015*X", 2, 0.003},
             {"1.5E2*X", E, 0, "150*X"},
             {"X+2E-1", E, 3, "X+0.2"},
             {"X^-2", E, 1, "1/X^2", 2, 0.25},
             {"(1)*SIN(X)+(2)*COS(X)", Pl, 0, ""},
             {"(X)*(Y)*(Z)", N, 0, ""},
             {"X*Y", N, 0, "(X)*(Y)"},
             {"(X)-(1)-(1)", E, 3, "((X)-(1))-(1)", 5, 3},
             {"(X)-(1)+(1)", Pl, 3, "(X)-(1)-(1)"},
             {"(X)+(1)-(2)-(3)", E, 3, "(X)+(1)-(2)+(3)"},
             {"(2)*(X)^(2)", E, 3, "(2)*((X)^(2))", 3, 18},
             {"SQRT(X)", E, 0, "SQR(X)"},
             {"CUBR(X)", E, 0, "(X)^(1/3)"},
             {"RAC3(8)", E, 0, "(8)^(1/3)", 0, 2},
             {"+SIN(X)", E, 0, "SIN(X)"},
             {"2(X+1)", E, 0, "2*(X+1)"},
             {"2.5(X+1)", E, 0, "2.5*(X+1)"},
             {"X*(X+1)", E, 0, "(X)*(X+1)"},
             {"(X)(X)", E, 3, "(X)*(X)"},
             {"X/2", E, 1, "1/2*X", 3, 1.5},
             {"P", E, 0, "1P"},
             {"B+X", Pl, 0, ""},
         }) {
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

TEST(Verification, LecturesOrdinairesSansRemarque)
{
    for (const char* f : {"X^2", "2\\X", "X-1-1", "(X)+(1)+(2)", "-SIN(X)", "3-LN(X)", "-3P/4*T", "2P", "(5)+(3)*COS(X)",
                          "E(X)", "SIN(X)^(2)", "(X)*(X)"})
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
            if (ligne.empty() || ligne[0] == '#' || barre == std::string::npos)
                continue;
            const int genre = std::stoi(ligne.substr(0, barre));
            if (genre > 4 && genre < 14)
                continue;  // points and directions, not formulas
            const Famille famille = genre >= 14 ? Famille::Nuage : mode;
            for (const std::string& champ : champsEntree(genre, ligne.substr(barre + 1))) {
                if (champ.empty())
                    continue;
                const std::string f = nettoieformule(champ, genre);
                for (const Remarque& r : verifieFormule(f, famille))
                    ADD_FAILURE() << fichier << " " << f << " : " << texteRemarque(r);
                ++vues;
            }
        }
        EXPECT_GT(vues, 20) << fichier;
    }
}

}  // namespace
}  // namespace velorin
