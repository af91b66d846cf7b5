// Where the application folder is (qt), the first-start form, the About box, the help browser and
// what "Quitter" starts. Programs are never started: the tests see what would start.
#include <unistd.h>

#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>

#include "app/dialogues/aide.h"
#include "app/dialogues/apropos.h"
#include "app/dialogues/installation.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "qt/dossiers.h"

namespace velorin::essai {
namespace {

// What the program asked to start, and whether the application's folders existed then.
struct Lancements {
    std::vector<std::tuple<QString, QStringList, bool>> faits;
    QStringList trouvables;  // programs "in PATH"
    bool reussit = true;
    QString appli;
    explicit Lancements(QString dossier) : appli(std::move(dossier)) { }
    Programmes programmes()
    {
        return {[this](const QString& nom) { return trouvables.contains(nom) ? "/usr/bin/" + nom : QString(); },
                [this](const QString& programme, const QStringList& arguments, const QString&) {
                    faits.emplace_back(programme, arguments, !premierDemarrage(appli));
                    return reussit;
                }};
    }
    QString dernier() const { return faits.empty() ? QString() : std::get<0>(faits.back()); }
};

// A small program `chemin` (it is never started).
void programme(const QString& chemin)
{
    ecrisFichier(chemin.toStdString(), "#!/bin/sh\n");
    fs::permissions(chemin.toStdString(), fs::perms::owner_exec, fs::perm_options::add);
}

TEST(Emplacements, DossierDeLApplicationSelonLInstallation)
{
    QTemporaryDir racine;
    const QString r = racine.path();
    for (const char* d :
         {"construction/usine", "prefixe/bin", "prefixe/share/velorin", "deux/bin/usine", "deux/share/velorin", "seul"})
        QDir().mkpath(r + "/" + d);
    const QString local = QStringLiteral("/home/u/.local/share/velorin"), partage = r + "/prefixe/share/velorin";
    using T = std::tuple<const char*, const char*, bool, QString, QString>;  // exe, XDG_DATA_HOME, expected
    for (const auto& [exe, xdg, installe, appli, usine] :
         {T{"construction", "", false, r + "/construction", r + "/construction/usine"},  // all beside the program
          T{"prefixe/bin", "", true, local, partage},  // installed: the user's data, factory in ../share
          T{"prefixe/bin", "/donnees", true, "/donnees/velorin", partage},
          T{"prefixe/bin", "relatif", true, local, partage},                 // a relative XDG_DATA_HOME: no
          T{"deux/bin", "", false, r + "/deux/bin", r + "/deux/bin/usine"},  // its own usine/ wins
          T{"seul", "", false, r + "/seul", r + "/share/velorin"}}) {        // nothing shipped, writable
        const Emplacements e = emplacementsPour(r + "/" + exe, xdg, "/home/u");
        EXPECT_EQ(std::tuple(e.installe, e.appli, e.usine), std::tuple(installe, appli, usine)) << exe << xdg;
    }
    if (geteuid() != 0) {  // a folder the user may not write is an installation too (root writes everywhere)
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const Emplacements e = emplacementsPour(r + "/seul", "", "/home/u");
        EXPECT_EQ(std::pair(e.installe, e.appli), std::pair(true, local));
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
}

// "Installer": Velorin_finir first, the user told; a folder that cannot be made is said and the
// form stays open. What the folders receive is tested on the installed program (tests/installation).
TEST(Installation, InstallerLanceFinirPuisRemplitOuDitLEchec)
{
    for (const bool echec : {false, true}) {
        QTemporaryDir racine;
        const Emplacements lieux{racine.filePath("velorin"), QStringLiteral(VELORIN_BIN_DIR "/usine"), true};
        QStringList messages;
        Lancements l(lieux.appli);
        if (echec)
            ecrisFichier(lieux.appli.toStdString(), "pas un dossier");  // a file where the folder should be
        else
            programme(lieux.appli + "/Velorin_finir");
        Boites boites;
        boites.message = [&](QWidget*, const QString& t) { messages << t; };
        Installation form(lieux, boites, l.programmes());
        const QString explication = controle<QLabel>(form, "Label1")->text();
        for (const char* nom : nomsDossiers)
            EXPECT_TRUE(explication.contains(QLatin1String(nom))) << nom;
        EXPECT_TRUE(explication.contains(QDir::toNativeSeparators(lieux.appli)));
        form.open();
        controle<QPushButton>(form, "Command1")->click();
        ASSERT_EQ(messages.size(), 1);
        EXPECT_EQ(std::pair(form.isVisible(), premierDemarrage(lieux.appli)), std::pair(echec, echec));
        if (echec) {
            EXPECT_TRUE(messages[0].startsWith(QStringLiteral("L'installation n'a pas pu se faire")));
            form.close();
            continue;
        }
        EXPECT_EQ(std::pair(messages[0], form.result()), std::pair(QString(messageInstallationTerminee), 1));
        ASSERT_EQ(l.faits.size(), 1u);  // Velorin_finir, before the folders
        EXPECT_EQ(l.faits[0], std::tuple(lieux.appli + "/Velorin_finir", QStringList(), false));
    }
}

// The help pages as the build ships them: a link of the contents is followed, "Sommaire" comes back.
// That every link leads to a page and an anchor is checked on the installed pages (tests/installation).
TEST(Aide, SuitUnLienDuSommaireEtRevient)
{
    Aide aide(QStringLiteral(VELORIN_BIN_DIR "/usine/Aide/index.htm"));
    auto* texte = controle<QTextBrowser>(aide, "Text1");
    auto* precedent = controle<QPushButton>(aide, "Command2");
    const QUrl accueil = aide.pageCourante();
    EXPECT_FALSE(texte->toPlainText().contains(QStringLiteral("Ã")));  // read as UTF-8
    EXPECT_FALSE(precedent->isEnabled());
    aide.suisLien(QStringLiteral("formules.htm#pieges"));
    EXPECT_EQ(aide.pageCourante().fileName(), QStringLiteral("formules.htm"));
    EXPECT_TRUE(precedent->isEnabled() && !texte->documentTitle().isEmpty());
    controle<QPushButton>(aide, "Command1")->click();  // Sommaire
    EXPECT_EQ(aide.pageCourante(), accueil);
}

TEST(MenuAide, AProposAideEtQuitterParLeMenu)
{
    Banc banc;
    Mirado& w = banc.demarre();
    Lancements l(banc.dossier.path());
    w.programmes = l.programmes();
    // A propos: the first system information program found is started, or the user is told there is none.
    using L = QStringList;  // found in PATH, it starts, the one started (empty: none), its arguments
    for (const auto& [trouvables, reussit, lance, arguments] :
         {std::tuple{L{"kinfocenter", "gnome-control-center", "hardinfo"}, true, "kinfocenter", L{}},
          std::tuple{L{"gnome-control-center", "hardinfo"}, true, "gnome-control-center", L{"info-overview"}},
          std::tuple{L{"hardinfo"}, true, "hardinfo", L{}}, std::tuple{L{}, true, "", L{}},
          std::tuple{L{"hardinfo"}, false, "hardinfo", L{}}}) {  // it would not start: said
        l.trouvables = trouvables, l.reussit = reussit;
        l.faits.clear();
        banc.messages.clear();
        article(w, "mnuaide", 0)->trigger();
        std::unique_ptr<APropos> boite(w.findChild<APropos*>());
        ASSERT_NE(boite, nullptr);
        controle<QPushButton>(*boite, "Command2")->click();
        const QString attendu = *lance ? QStringLiteral("/usr/bin/") + lance : QString();
        EXPECT_EQ(std::pair(l.dernier(), l.faits.empty() ? L() : std::get<1>(l.faits.back())),
                  std::pair(attendu, arguments));
        EXPECT_EQ(banc.messages, !*lance || !reussit ? L{messageSansInfosSysteme} : L());
    }
    l.faits.clear();
    // The help: the user's own pages come first; without any page, it says so.
    const auto pageAide = [&] {
        article(w, "mnuaide", 1)->trigger();
        std::unique_ptr<Aide> aide(w.findChild<Aide*>());
        return aide ? aide->pageCourante().toLocalFile() : QString();
    };
    EXPECT_EQ(pageAide(), banc.chemin("usine/Aide/index.htm"));
    ecrisFichier(banc.chemin("Aide/index.htm").toStdString(), "<html><head><title>Mes notes</title></head></html>");
    EXPECT_EQ(pageAide(), banc.chemin("Aide/index.htm"));
    QFile::remove(banc.chemin("Aide/index.htm"));
    QFile::remove(banc.chemin("usine/Aide/index.htm"));
    pageAide();
    ASSERT_FALSE(banc.messages.isEmpty());
    EXPECT_TRUE(banc.messages.back().startsWith(QStringLiteral("Les pages d'aide sont introuvables")));
    // Quitter: the companion program only when it is there.
    article(w, "mnustp", 0)->trigger();
    EXPECT_TRUE(l.faits.empty());
    programme(banc.chemin("wemrab"));
    article(w, "mnustp", 0)->trigger();
    EXPECT_EQ(std::pair(l.faits.size(), l.dernier()), std::pair(size_t(1), banc.chemin("wemrab")));
}

}  // namespace
}  // namespace velorin::essai
