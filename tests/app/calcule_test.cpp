// `velorin calcule` run as a user runs it: output lines and exit status.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "processus.h"

namespace {

using velorin::essai::lanceVelorin;
using velorin::essai::Sortie;

// calcule reads and writes no file: any folder will do.
Sortie lance(const QStringList& arguments, const QString& fichierSortie = {})
{
    return lanceVelorin(QStringList{"calcule"} + arguments, std::filesystem::temp_directory_path().string(),
                        QProcessEnvironment::systemEnvironment(), fichierSortie);
}

TEST(CommandeCalcule, SortiesEtStatuts)
{
    struct Cas {
        QStringList arguments;
        const char* sortie;
        const char* erreurs;
        int statut;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {{"y = 2 sin(x)", "0"}, "0\n", "", 0},
             {{"1/X", "0", "2", "1e-5", "1e20"}, "1000000000\n0.5\n99999.99999999999\n1e-20\n", "", 0},
             {{"--famille", "plan", "X+T", "1", "2", "3"}, "3\n3\n", "", 0},
             {{"--famille", "nuage", "X+Y+Z"}, "0\n", "", 0},
             {{"--pointx", "2", "7\\X", "5"}, "3\n", "", 0},
             {{"RAC3(8)"}, "0\n", "", 0},
             {{"--normalise", "y = 2 sin(x)"}, "(2)*SIN(X)\n", "", 0},
             {{"SIN(X"}, "", "La formule SIN(X est incorrecte, corrigez-la , svp\n", 2},
             {{"--brut", "SIN(X"}, "", "Formule incorrecte,désolé\n", 2},
             {{"--famille", "plan", "--brut", "(X"}, "", "Formule incorrecte\n", 2},
             {{"--verifie", "y = 2*sin(x)"}, "", "", 0},
             {{"--verifie", "SIN(X)+1"},
              "position 7 : « +1 » après la dernière parenthèse n'est pas lu. Écrivez : SIN(X)+(1)\n",
              "",
              1},
             {{"--famille", "nuage", "--verifie", "X*Y-2X"},
              "position 1 : « X*Y » tient deux variables : il est lu comme un nombre. Écrivez : (X)*(Y)-2X\n"
              "position 5 : produit implicite : « 2X » ne donne aucune valeur. Écrivez : X*Y-2*X\n",
              "",
              1},
         }) {
        const std::string nom = c.arguments.join(' ').toStdString();
        const Sortie s = lance(c.arguments);
        EXPECT_EQ(s.sortie, c.sortie) << nom;
        EXPECT_EQ(s.erreurs, c.erreurs) << nom;
        EXPECT_EQ(s.code, c.statut) << nom;
    }
}

TEST(CommandeCalcule, ErreursDUsage)
{
    for (const QStringList& arguments : std::initializer_list<QStringList>{{},
                                                                           {"X", "abc"},
                                                                           {"--famille", "lune", "X"},
                                                                           {"--pointx"},
                                                                           {"--normalise", "X", "1"},
                                                                           {"--inconnue", "X"},
                                                                           {"--verifie", "X", "1"},
                                                                           {"--verifie", "--brut", "X"}}) {
        const std::string nom = arguments.join(' ').toStdString();
        const Sortie s = lance(arguments);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_NE((s.sortie + s.erreurs).find("Usage : velorin calcule"), std::string::npos) << nom;
    }
}

// A table that cannot be written whole (here /dev/full, always "disk full")
// is a failure said in French, not a success.
TEST(CommandeCalcule, SortiePleine)
{
    for (const QStringList& arguments : std::initializer_list<QStringList>{
             {"X", "1", "2", "3"}, {"--famille", "plan", "X*T", "1", "2"}, {"--normalise", "y = 2 sin(x)"}}) {
        const std::string nom = arguments.join(' ').toStdString();
        const Sortie s = lance(arguments, "/dev/full");
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_EQ(s.erreurs,
                  "velorin calcule : la sortie standard n'a pas pu être écrite en entier : le disque est plein.\n")
            << nom;
    }
}

}  // namespace
