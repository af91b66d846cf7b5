// `velorin calcule` run as a user runs it: its options, output and status.
// The values, the normalised forms and the remarks are the engine's.
#include "processus.h"

namespace velorin::essai {
namespace {

// calcule reads and writes no file: any folder will do.
Sortie calcule(const QStringList& arguments, const QString& fichierSortie = {})
{
    return lanceVelorin(QStringList{"calcule"} + arguments, fs::temp_directory_path().string(),
                        QProcessEnvironment::systemEnvironment(), fichierSortie);
}

// One row per option: each reaches its routine, its values grouped by the
// family's count of variables (a short last group completed with zeros).
TEST(CommandeCalcule, ChaqueOptionEtSonStatut)
{
    const std::string reste = " après la dernière parenthèse n'est pas lu. Écrivez : SIN(X)+(1)\n",
                      deux = " tient deux variables : il est lu comme un nombre. Écrivez : (X)*(Y)\n";
    const std::tuple<int, QStringList, std::string, std::string> cas[] = {
        {0, {"y = 2 sin(x)"}, "0\n", ""},
        {0, {"1/X", "2", "1e20"}, "0.5\n1e-20\n", ""},
        {0, {"--famille", "plan", "X+T", "1", "2", "3"}, "3\n3\n", ""},
        {0, {"--famille", "nuage", "X+2*Y+3*Z", "1", "1", "1", "2"}, "6\n2\n", ""},
        {0, {"--pointx", "2", "7\\X", "5"}, "3\n", ""},
        {0, {"--normalise", "y = 2 sin(x)"}, "(2)*SIN(X)\n", ""},
        {2, {"SIN(X"}, "", "La formule SIN(X est incorrecte, corrigez-la , svp\n"},
        {2, {"--brut", "SIN(X"}, "", "Formule incorrecte,désolé\n"},
        {2, {"--famille", "plan", "--brut", "(X"}, "", "Formule incorrecte\n"},
        {0, {"--verifie", "y = 2*sin(x)"}, "", ""},
        {1, {"--verifie", "SIN(X)+1"}, "position 7 : « +1 »" + reste, ""},
        {1, {"--famille", "nuage", "--verifie", "X*Y"}, "position 1 : « X*Y »" + deux, ""},
        {2, {"--famille", "plan", "--verifie", "X)+(1"},
         "position 1 : une « ) » ferme avant son « ( » : au tracé, le programme dira « Formule incorrecte » et "
         "s'arrêtera.\n", ""},
    };
    for (const auto& [statut, arguments, sortie, erreurs] : cas) {
        const Sortie s = calcule(arguments);
        EXPECT_EQ(std::tie(s.code, s.sortie, s.erreurs), std::tie(statut, sortie, erreurs))
            << arguments.join(' ').toStdString();
    }
}

// Each argument list is refused with the usage; an output that cannot be
// written whole (/dev/full) is a failure.
TEST(CommandeCalcule, ErreursDUsageEtSortiePleine)
{
    const auto refuse = [](const char* ligne, const QString& sortie, const char* message) {
        const Sortie s = calcule(QString(ligne).split(' ', Qt::SkipEmptyParts), sortie);
        EXPECT_EQ(s.code, 2) << ligne;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << ligne;
    };
    for (const char* ligne : {"", "X abc", "--famille lune X", "--pointx", "--normalise X 1", "--inconnue X",
                              "--verifie X 1", "--verifie --brut X"})
        refuse(ligne, "", "Usage : velorin calcule");
    for (const char* ligne : {"X 1 2", "--normalise X"})
        refuse(ligne, "/dev/full", "la sortie standard n'a pas pu être écrite en entier : le disque est plein.");
}

}  // namespace
}  // namespace velorin::essai
