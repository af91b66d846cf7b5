// `velorin` started as a user starts it, with and without a display: help,
// version, wrong options, and the window refused in French when there is
// no display to open it on.
#include <gtest/gtest.h>

#include <unistd.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <filesystem>
#include <fstream>
#include <string>

#include "processus.h"

namespace {

using velorin::essai::Sortie;

// Runs velorin with an environment that has no display at all, plus `ajouts`.
Sortie lanceSansAffichage(const QStringList& arguments, const QStringList& ajouts = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "VELORIN_DEBUG"})
        env.remove(nom);
    for (const QString& a : ajouts)
        env.insert(a.section('=', 0, 0), a.section('=', 1));
    return velorin::essai::lanceVelorin(arguments, std::filesystem::temp_directory_path().string(), env);
}

TEST(Demarrage, AideEtVersionSansAffichage)
{
    for (const char* option : {"--help", "-h"}) {
        const Sortie s = lanceSansAffichage({option});
        EXPECT_EQ(s.code, 0) << option;
        EXPECT_EQ(s.erreurs, "") << option;
        for (const char* mot : {"Usage : velorin", "fenêtre", "calcule", "exporte", "sansfenetre", "--version"})
            EXPECT_NE(s.sortie.find(mot), std::string::npos) << option << " : " << mot;
    }
    const Sortie v = lanceSansAffichage({"--version"});
    EXPECT_EQ(v.code, 0);
    EXPECT_EQ(v.sortie, "velorin " VELORIN_VERSION "\n");
    EXPECT_EQ(v.erreurs, "");
}

TEST(Demarrage, RefusEnFrancais)
{
    struct Cas {
        QStringList arguments, environnement;
        const char* message;
    };
    const Cas cas[] = {
        {{"--inconnue"}, {}, "option inconnue « --inconnue »"},
        {{"-platform", "offscreen"}, {}, "option inconnue « -platform »"},
        {{"dessine"}, {}, "commande inconnue « dessine »"},
        {{}, {}, "aucun affichage n'est disponible"},
        {{}, {"QT_QPA_PLATFORM=xcb"}, "aucun affichage n'est disponible"},
        {{}, {"QT_QPA_PLATFORM=wayland;xcb"}, "aucun affichage n'est disponible"},
    };
    for (const Cas& c : cas) {
        const std::string nom = (c.arguments + c.environnement).join(' ').toStdString();
        const Sortie s = lanceSansAffichage(c.arguments, c.environnement);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_EQ(s.sortie, "") << nom;
        EXPECT_NE(s.erreurs.find(c.message), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(s.erreurs.find("Qt"), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(s.erreurs.find("qt."), std::string::npos) << nom << " : " << s.erreurs;
    }
    // An option opens the usage on the error output; the help itself goes
    // to the standard output.
    EXPECT_NE(lanceSansAffichage({"--inconnue"}).erreurs.find("Usage : velorin"), std::string::npos);
}

// `sansfenetre` in a copy of the program's folder: a folder for the images
// that cannot be made is said, not announced as filled; an output that
// cannot be written whole is a failure. The copy, not the built program, is
// started: it works beside the copied factory files.
TEST(Demarrage, SansFenetreSignaleSesEchecs)
{
    namespace fs = std::filesystem;
    const fs::path dossier = fs::temp_directory_path() / ("velorin_sansfenetre_" + std::to_string(::getpid()));
    fs::remove_all(dossier);
    fs::create_directories(dossier);
    fs::copy_file(fs::path(VELORIN_BIN_DIR) / "velorin", dossier / "velorin");
    fs::copy(fs::path(VELORIN_BIN_DIR) / "usine", dossier / "usine", fs::copy_options::recursive);
    std::ofstream(dossier / "Apercus") << "un fichier, pas un dossier\n";
    QProcess p;
    p.start(QString::fromStdString((dossier / "velorin").string()), {"sansfenetre"});
    p.waitForFinished(120000);
    const std::string sortie = p.readAllStandardOutput().toStdString(),
                      erreurs = p.readAllStandardError().toStdString();
    EXPECT_EQ(p.exitCode(), 1);
    EXPECT_EQ(sortie.find("une image par entrée"), std::string::npos) << sortie;
    EXPECT_NE(erreurs.find("Apercus/espace » n'a pas pu être créé : un élément du chemin n'est pas un dossier"),
              std::string::npos)
        << erreurs;
    fs::remove(dossier / "Apercus");
    QProcess plein;
    plein.setStandardOutputFile("/dev/full");
    plein.start(QString::fromStdString((dossier / "velorin").string()), {"sansfenetre"});
    plein.waitForFinished(120000);
    EXPECT_EQ(plein.exitCode(), 2);
    EXPECT_NE(plein.readAllStandardError().toStdString().find("la sortie standard n'a pas pu être écrite en entier"),
              std::string::npos);
    fs::remove_all(dossier);
}

}  // namespace
