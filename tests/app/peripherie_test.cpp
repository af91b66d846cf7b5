// The periphery of the window: where the application folder is (qt), the
// first-start form, the About box, the help browser, and what "Quitter"
// starts. Programs are never started: the tests see what would start.
#include <gtest/gtest.h>

#include <unistd.h>

#include <QLabel>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include "app/dialogues/aide.h"
#include "app/dialogues/apropos.h"
#include "app/dialogues/installation.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "qt/dossiers.h"

namespace velorin::essai {
namespace {

// What the program asked to start, in order, and whether the application's
// folders existed at that moment.
struct Lancements {
    std::vector<std::tuple<QString, QStringList, bool>> faits;
    QStringList trouvables;  // programs "in PATH"
    bool reussit = true;
    QString appli;
    Programmes programmes()
    {
        Programmes p;
        p.cherche = [this](const QString& nom) { return trouvables.contains(nom) ? "/usr/bin/" + nom : QString(); };
        p.lance = [this](const QString& programme, const QStringList& arguments, const QString&) {
            faits.emplace_back(programme, arguments, !premierDemarrage(appli));
            return reussit;
        };
        return p;
    }
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
    struct Cas {
        const char *exe, *xdg;
        bool installe;
        QString appli, usine;
    } cas[] = {
        {"construction", "", false, r + "/construction", r + "/construction/usine"},  // all beside the program
        {"prefixe/bin", "", true, local, partage},  // installed: the user's data folder, factory in ../share
        {"prefixe/bin", "/donnees", true, "/donnees/velorin", partage},
        {"prefixe/bin", "relatif", true, local, partage},                 // a relative XDG_DATA_HOME does not count
        {"deux/bin", "", false, r + "/deux/bin", r + "/deux/bin/usine"},  // its own usine/ wins
        {"seul", "", false, r + "/seul", r + "/share/velorin"},           // nothing shipped, writable
    };
    for (const Cas& c : cas) {
        const Emplacements e = emplacementsPour(r + "/" + c.exe, c.xdg, "/home/u");
        EXPECT_EQ(std::tuple(e.installe, e.appli, e.usine), std::tuple(c.installe, c.appli, c.usine))
            << c.exe << " " << c.xdg;
    }
    // A folder the user may not write is an installation too (root writes everywhere).
    if (geteuid() != 0) {
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const Emplacements e = emplacementsPour(r + "/seul", "", "/home/u");
        EXPECT_EQ(std::pair(e.installe, e.appli), std::pair(true, local));
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
}

// "Installer": Velorin_finir first, then the folders filled from the
// factory files, the user told; a folder that cannot be made is said and
// the form stays open. What the folders receive is tested on the installed
// program (tests/installation).
TEST(Installation, InstallerLanceFinirPuisRemplitOuDitLEchec)
{
    for (const bool echec : {false, true}) {
        SCOPED_TRACE(echec ? "échec" : "réussite");
        QTemporaryDir racine;
        const Emplacements lieux{racine.filePath(QStringLiteral("velorin")), QStringLiteral(VELORIN_BIN_DIR "/usine"),
                                 true};
        QStringList messages;
        Lancements l;
        l.appli = lieux.appli;
        if (echec)
            ecrisFichier(lieux.appli.toStdString(), "pas un dossier");  // a file where the folder should be
        else
            programme(lieux.appli + "/Velorin_finir");
        Boites boites;
        boites.message = [&messages](QWidget*, const QString& texte) { messages << texte; };
        Installation form(lieux, boites, l.programmes());
        const QString explication = controle<QLabel>(form, "Label1")->text();
        for (const char* nom : nomsDossiers)
            EXPECT_TRUE(explication.contains(QLatin1String(nom))) << nom;
        EXPECT_TRUE(explication.contains(QDir::toNativeSeparators(lieux.appli)));
        form.open();
        controle<QPushButton>(form, "Command1")->click();
        ASSERT_EQ(messages.size(), 1);
        EXPECT_EQ(form.isVisible(), echec);
        EXPECT_EQ(premierDemarrage(lieux.appli), echec);
        if (echec) {
            EXPECT_TRUE(messages[0].startsWith(QStringLiteral("L'installation n'a pas pu se faire")));
            form.close();
            continue;
        }
        EXPECT_EQ(messages[0], QString::fromUtf8(messageInstallationTerminee));
        EXPECT_EQ(form.result(), QDialog::Accepted);
        ASSERT_EQ(l.faits.size(), 1u);
        EXPECT_EQ(std::get<0>(l.faits[0]), lieux.appli + "/Velorin_finir");
        EXPECT_FALSE(std::get<2>(l.faits[0])) << "Velorin_finir vient d'abord";
    }
}

// The help pages as the build ships them.
const QString aideLivree = QStringLiteral(VELORIN_BIN_DIR "/usine/Aide/index.htm");

TEST(Aide, SuitChaqueLienDuSommaireEtRevient)
{
    Aide aide(aideLivree);
    auto* texte = controle<QTextBrowser>(aide, "Text1");
    auto* precedent = controle<QPushButton>(aide, "Command2");
    const QUrl accueil = aide.pageCourante();
    EXPECT_FALSE(texte->toPlainText().contains(QStringLiteral("Ã")));  // read as UTF-8
    EXPECT_FALSE(precedent->isEnabled());
    QStringList liens;
    for (QTextBlock bloc = texte->document()->begin(); bloc.isValid(); bloc = bloc.next())
        for (auto it = bloc.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().isAnchor())
                liens << it.fragment().charFormat().anchorHref();
    liens.removeDuplicates();
    EXPECT_GE(liens.size(), 7);
    for (const QString& lien : liens) {
        aide.suisLien(lien);
        EXPECT_NE(texte->documentTitle(), QString()) << lien.toStdString();
        EXPECT_TRUE(aide.pageCourante().adjusted(QUrl::RemoveFragment) == accueil || precedent->isEnabled())
            << lien.toStdString();
        controle<QPushButton>(aide, "Command1")->click();  // Sommaire
        EXPECT_EQ(aide.pageCourante(), accueil);
    }
}

TEST(MenuAide, AProposAideEtQuitterParLeMenu)
{
    Banc banc;
    Mirado& w = banc.demarre();
    Lancements l;
    l.appli = banc.dossier.path();
    w.programmes = l.programmes();

    // A propos: the first system information program found is started,
    // or the user is told there is none.
    struct Cas {
        QStringList trouvables;
        bool reussit;
        QString lance;  // the one started, empty: none
        QStringList arguments;
    } cas[] = {
        {{"kinfocenter", "gnome-control-center", "hardinfo"}, true, "/usr/bin/kinfocenter", {}},
        {{"gnome-control-center", "hardinfo"}, true, "/usr/bin/gnome-control-center", {"info-overview"}},
        {{"hardinfo"}, true, "/usr/bin/hardinfo", {}},
        {{}, true, "", {}},
        {{"hardinfo"}, false, "/usr/bin/hardinfo", {}},  // it would not start: said
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.trouvables.join(',').toStdString());
        l.trouvables = c.trouvables;
        l.reussit = c.reussit;
        l.faits.clear();
        banc.messages.clear();
        article(w, "mnuaide", 0)->trigger();
        std::unique_ptr<APropos> boite(w.findChild<APropos*>());
        ASSERT_NE(boite, nullptr);
        controle<QPushButton>(*boite, "Command2")->click();
        EXPECT_EQ(l.faits.empty() ? QString() : std::get<0>(l.faits.back()), c.lance);
        EXPECT_EQ(l.faits.empty() ? QStringList() : std::get<1>(l.faits.back()), c.arguments);
        EXPECT_EQ(banc.messages, c.lance.isEmpty() || !c.reussit
                                     ? QStringList{QString::fromUtf8(messageSansInfosSysteme)}
                                     : QStringList());
    }
    l.faits.clear();
    // The help: the user's own pages come first; without any page, it says so.
    const auto pageAide = [&] {
        article(w, "mnuaide", 1)->trigger();
        Aide* aide = w.findChild<Aide*>();
        const QString page = aide ? aide->pageCourante().toLocalFile() : QString();
        delete aide;
        return page;
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
    ASSERT_EQ(l.faits.size(), 1u);
    EXPECT_EQ(std::get<0>(l.faits[0]), banc.chemin("wemrab"));
}

}  // namespace
}  // namespace velorin::essai
