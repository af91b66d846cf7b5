// `velorin` started as a user starts it, without a display: help, version,
// wrong options and commands, the window refused in French when there is no
// display to open it on, and `sansfenetre` saying its failures.
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>

#include "commun/commun.h"
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

TEST(Demarrage, AideEtVersionSansAffichage)
{
    for (const char* option : {"--help", "-h"}) {
        const Sortie s = lanceSansAffichage({option});
        EXPECT_EQ(std::pair(s.code, s.erreurs), std::pair(0, std::string())) << option;
        for (const char* mot : {"Usage : velorin", "fenêtre", "calcule", "exporte", "sansfenetre", "--version"})
            EXPECT_NE(s.sortie.find(mot), std::string::npos) << option << " : " << mot;
    }
    const Sortie v = lanceSansAffichage({"--version"});
    EXPECT_EQ(std::tuple(v.code, v.sortie, v.erreurs), std::tuple(0, std::string("velorin " VELORIN_VERSION "\n"), ""));
}

TEST(Demarrage, RefusEnFrancais)
{
    struct Cas {
        QStringList arguments, environnement;
        const char* message;
    };
    const Cas cas[] = {
        {{"--inconnue"}, {}, "option inconnue « --inconnue »"},
        {{"-platform", "offscreen"}, {}, "option inconnue « -platform »"},  // Qt's own options are not taken
        {{"dessine"}, {}, "commande inconnue « dessine »"},
        {{}, {}, "aucun affichage n'est disponible"},
        {{}, {"QT_QPA_PLATFORM=xcb"}, "aucun affichage n'est disponible"},
        {{}, {"QT_QPA_PLATFORM=wayland;xcb"}, "aucun affichage n'est disponible"},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE((c.arguments + c.environnement).join(' ').toStdString());
        const Sortie s = lanceSansAffichage(c.arguments, c.environnement);
        EXPECT_EQ(std::pair(s.code, s.sortie), std::pair(2, std::string()));
        EXPECT_NE(s.erreurs.find(c.message), std::string::npos) << s.erreurs;
        EXPECT_EQ(s.erreurs.find("Qt"), std::string::npos) << s.erreurs;
        EXPECT_EQ(s.erreurs.find("qt."), std::string::npos) << s.erreurs;
        if (c.arguments.value(0) == "--inconnue") {
            EXPECT_NE(s.erreurs.find("Usage : velorin"), std::string::npos);  // the usage after a wrong option
        }
    }
}

// `sansfenetre` in a copy of the program's folder (it works beside the
// copied factory files): a folder for the images that cannot be made is
// said, not announced as filled; an output that cannot be written whole is
// a failure.
TEST(Demarrage, SansFenetreSignaleSesEchecs)
{
    DossierTemporaire dossier("velorin_sansfenetre_");
    fs::copy_file(fs::path(VELORIN_BIN_DIR) / "velorin", dossier / "velorin");
    fs::copy(fs::path(VELORIN_BIN_DIR) / "usine", dossier / "usine", fs::copy_options::recursive);
    ecrisFichier(dossier / "Apercus", "un fichier, pas un dossier\n");
    for (const bool plein : {false, true}) {
        if (plein)
            fs::remove(dossier / "Apercus");
        QProcess p;
        if (plein)
            p.setStandardOutputFile("/dev/full");
        p.start(QString::fromStdString(dossier / "velorin"), {"sansfenetre"});
        p.waitForFinished(120000);
        const std::string sortie = p.readAllStandardOutput().toStdString(),
                          erreurs = p.readAllStandardError().toStdString();
        EXPECT_EQ(p.exitCode(), plein ? 2 : 1);
        EXPECT_EQ(sortie.find("une image par entrée"), std::string::npos) << sortie;
        EXPECT_NE(
            erreurs.find(plein ? "la sortie standard n'a pas pu être écrite en entier"
                               : "Apercus/espace » n'a pas pu être créé : un élément du chemin n'est pas un dossier"),
            std::string::npos)
            << erreurs;
    }
}

}  // namespace
}  // namespace velorin::essai
