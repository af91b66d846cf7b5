// `velorin` started without a display: help, version, wrong options and commands, the window refused
// in French when there is no display, and `sansfenetre` saying its failures.
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
// images that cannot be made is said, not announced as filled; a stdout not written whole is a failure;
// on a full disk nothing unwritten is announced, and an entry that cannot be drawn is named once.
TEST(Demarrage, SansFenetreSignaleSesEchecs)
{
    DossierTemporaire dossier("velorin_sansfenetre_");
    fs::copy_file(fs::path(VELORIN_BIN_DIR) / "velorin", dossier / "velorin");
    fs::copy(fs::path(VELORIN_BIN_DIR) / "usine", dossier / "usine", fs::copy_options::recursive);
    ecrisFichier(dossier / "Apercus", "un fichier, pas un dossier\n");
    for (const int cas : {0, 1, 2}) {
        QProcess p;
        if (cas == 1) {
            fs::remove(dossier / "Apercus");
            p.setStandardOutputFile("/dev/full");
        } else if (cas == 2) {
            fs::create_directory(dossier / "Espace_courbes");
            std::string entree("\1\0x=f1(t)=(t][y=f2(t)=t][z=f3(t)=t", 34);  // a bracket left open
            entree.resize(302, ' ');
            ecrisFichier(dossier / "Espace_courbes/Lisurf.lsu", entree);
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert("VELORIN_ESSAI_DISQUE_PLEIN", "0");
            p.setProcessEnvironment(env);
        }
        p.start(QString::fromStdString(dossier / "velorin"), {"sansfenetre"});
        p.waitForFinished(120000);
        const std::string sortie = p.readAllStandardOutput().toStdString(),
                          erreurs = p.readAllStandardError().toStdString();
        EXPECT_EQ(p.exitCode(), cas == 1 ? 2 : 1);
        EXPECT_FALSE(contient(sortie, "une image par entrée") || contient(sortie, "toutes ensemble")) << sortie;
        const char* attendus[] = {"Apercus/espace » n'a pas pu être créé : un élément du chemin n'est pas un dossier",
                                  "la sortie standard n'a pas pu être écrite en entier",
                                  "Lisurf.lsu, entrée 1 : La formule (T est incorrecte, corrigez-la , svp\n"
                                  "velorin sansfenetre : Lico.lsu, entrée 1 : Impossible d'écrire"};
        EXPECT_TRUE(contient(erreurs, attendus[cas])) << erreurs;
    }
}

}  // namespace
}  // namespace velorin::essai
