// `velorin calcule` run as a user runs it: output lines and exit status.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace {

struct Sortie {
    std::string texte;  // standard output, then standard error
    int statut = -1;
};

Sortie lance(const std::string& arguments)
{
    const std::string commande = std::string(VELORIN_BIN_DIR) + "/velorin calcule " + arguments + " 2>&1";
    Sortie s;
    FILE* f = popen(commande.c_str(), "r");
    if (!f)
        return s;
    char tampon[256];
    while (std::fgets(tampon, sizeof tampon, f))
        s.texte += tampon;
    const int brut = pclose(f);
    s.statut = WIFEXITED(brut) ? WEXITSTATUS(brut) : -1;
    return s;
}

TEST(CommandeCalcule, SortiesEtStatuts)
{
    struct Cas {
        const char* arguments;
        const char* attendu;
        int statut;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {"'y = 2 sin(x)' 0", "0\n", 0},
             {"1/X 0 2 1e-5 1e20", "1000000000\n0.5\n99999.99999999999\n1e-20\n", 0},
             {"--famille plan 'X+T' 1 2 3", "3\n3\n", 0},
             {"--famille nuage 'X+Y+Z'", "0\n", 0},
             {"--pointx 2 '7\\X' 5", "3\n", 0},
             {"'RAC3(8)'", "0\n", 0},
             {"--normalise 'y = 2 sin(x)'", "(2)*SIN(X)\n", 0},
             {"'SIN(X'", "La formule SIN(X est incorrecte, corrigez-la , svp\n", 2},
             {"--brut 'SIN(X'", "Formule incorrecte,désolé\n", 2},
             {"--famille plan --brut '(X'", "Formule incorrecte\n", 2},
             {"--verifie 'y = 2*sin(x)'", "", 0},
             {"--verifie 'SIN(X)+1'",
              "position 7 : « +1 » après la dernière parenthèse n'est pas lu. Écrivez : SIN(X)+(1)\n", 1},
             {"--famille nuage --verifie 'X*Y-2X'",
              "position 1 : « X*Y » tient deux variables : il est lu comme un nombre. Écrivez : (X)*(Y)-2X\n"
              "position 5 : produit implicite : « 2X » ne donne aucune valeur. Écrivez : X*Y-2*X\n",
              1},
         }) {
        const Sortie s = lance(c.arguments);
        EXPECT_EQ(s.texte, c.attendu) << c.arguments;
        EXPECT_EQ(s.statut, c.statut) << c.arguments;
    }
}

TEST(CommandeCalcule, ErreursDUsage)
{
    for (const char* arguments : {"", "X abc", "--famille lune X", "--pointx", "--normalise X 1", "--inconnue X",
                                  "--verifie X 1", "--verifie --brut X"}) {
        const Sortie s = lance(arguments);
        EXPECT_EQ(s.statut, 2) << arguments;
        EXPECT_NE(s.texte.find("Usage : velorin calcule"), std::string::npos) << arguments;
    }
}

// A table that cannot be written whole (here /dev/full, always "disk full")
// is a failure said in French, not a success.
TEST(CommandeCalcule, SortiePleine)
{
    for (const char* arguments : {"X 1 2 3", "--famille plan 'X*T' 1 2", "--normalise 'y = 2 sin(x)'"}) {
        const std::string commande =
            std::string(VELORIN_BIN_DIR) + "/velorin calcule " + arguments + " 2>&1 >/dev/full";
        FILE* f = popen(commande.c_str(), "r");
        ASSERT_NE(f, nullptr);
        std::string erreurs;
        char tampon[256];
        while (std::fgets(tampon, sizeof tampon, f))
            erreurs += tampon;
        const int brut = pclose(f);
        EXPECT_TRUE(WIFEXITED(brut) && WEXITSTATUS(brut) == 2) << arguments;
        EXPECT_EQ(erreurs,
                  "velorin calcule : la sortie standard n'a pas pu être écrite en entier : le disque est plein.\n")
            << arguments;
    }
}

}  // namespace
