// `velorin` started without a display: help, version, wrong options and commands, the window refused
// in French when there is no display, and `sansfenetre` saying its failures. `velorin calcule` run as
// a user runs it: its options, output and status (the values, the normalised forms and the remarks
// are the engine's).
#include "processus.h"

namespace velorin::essai {
namespace {

// Runs velorin with an environment that has no display at all, plus `ajouts`.
Sortie lanceSansAffichage(const QStringList& arguments, const QStringList& ajouts = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "VELORIN_DEBUG"})
        env.remove(nom);
    for (const QString& a : ajouts)
        env.insert(a.section('=', 0, 0), a.section('=', 1));
    return lanceVelorin(arguments, fs::temp_directory_path().string(), env);
}

bool contient(const std::string& texte, const char* mot)
{
    return texte.find(mot) != std::string::npos;
}

TEST(Demarrage, AideVersionEtRefusEnFrancais)
{
    for (const char* option : {"--help", "-h"}) {
        const Sortie s = lanceSansAffichage({option});
        EXPECT_EQ(std::pair(s.code, s.erreurs), std::pair(0, std::string())) << option;
        for (const char* mot : {"Usage : velorin", "fenêtre", "calcule", "exporte", "sansfenetre", "--version"})
            EXPECT_TRUE(contient(s.sortie, mot)) << option << " : " << mot;
    }
    const Sortie v = lanceSansAffichage({"--version"});
    EXPECT_EQ(std::tuple(v.code, v.sortie, v.erreurs), std::tuple(0, std::string("velorin " VELORIN_VERSION "\n"), ""));
    const char* const sansAffichage = "aucun affichage n'est disponible";
    for (const auto& [arguments, environnement, message] :
         {std::tuple<QStringList, QStringList, const char*>{{"--inconnue"}, {}, "option inconnue « --inconnue »"},
          {{"-platform", "offscreen"}, {}, "option inconnue « -platform »"},  // Qt's own options are not taken
          {{"dessine"}, {}, "commande inconnue « dessine »"},
          {{}, {}, sansAffichage},
          {{}, {"QT_QPA_PLATFORM=xcb"}, sansAffichage},
          {{}, {"QT_QPA_PLATFORM=wayland;xcb"}, sansAffichage}}) {
        const Sortie s = lanceSansAffichage(arguments, environnement);
        EXPECT_EQ(std::pair(s.code, s.sortie), std::pair(2, std::string())) << message;
        EXPECT_TRUE(contient(s.erreurs, message) && !contient(s.erreurs, "Qt") && !contient(s.erreurs, "qt."))
            << s.erreurs;
        // The usage after a wrong option.
        EXPECT_TRUE(arguments.value(0) != "--inconnue" || contient(s.erreurs, "Usage : velorin")) << s.erreurs;
    }
}

// `sansfenetre` in a copy of the program's folder (beside the copied factory files): a folder for the
// images that cannot be made is said, not announced as filled; a stdout not written whole is a failure.
TEST(Demarrage, SansFenetreSignaleSesEchecs)
{
    DossierTemporaire dossier("velorin_sansfenetre_");
    fs::copy_file(fs::path(VELORIN_BIN_DIR) / "velorin", dossier / "velorin");
    fs::copy(fs::path(VELORIN_BIN_DIR) / "usine", dossier / "usine", fs::copy_options::recursive);
    ecrisFichier(dossier / "Apercus", "un fichier, pas un dossier\n");
    for (const bool plein : {false, true}) {
        QProcess p;
        if (plein) {
            fs::remove(dossier / "Apercus");
            p.setStandardOutputFile("/dev/full");
        }
        p.start(QString::fromStdString(dossier / "velorin"), {"sansfenetre"});
        p.waitForFinished(120000);
        const std::string sortie = p.readAllStandardOutput().toStdString(),
                          erreurs = p.readAllStandardError().toStdString();
        EXPECT_EQ(p.exitCode(), plein ? 2 : 1);
        EXPECT_FALSE(contient(sortie, "une image par entrée")) << sortie;
        EXPECT_TRUE(contient(
            erreurs, plein ? "la sortie standard n'a pas pu être écrite en entier"
                           : "Apercus/espace » n'a pas pu être créé : un élément du chemin n'est pas un dossier"))
            << erreurs;
    }
}

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
