// The periphery of the window: where the application folder is, the
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
#include "qt/dossiers.h"

namespace velorin::essai {
namespace {

// What the program asked to start, in order.
struct Lancements {
    struct Lancement {
        QString programme;
        QStringList arguments;
        bool dossiersPresents;  // the application's folders existed at that moment
    };
    std::vector<Lancement> faits;
    QStringList trouvables;  // programs "in PATH"
    bool reussit = true;
    QString appli;  // folder whose folders are looked at

    Programmes programmes()
    {
        Programmes p;
        p.cherche = [this](const QString& nom) {
            return trouvables.contains(nom) ? QStringLiteral("/usr/bin/") + nom : QString();
        };
        p.lance = [this](const QString& programme, const QStringList& arguments, const QString&) {
            faits.push_back({programme, arguments, !premierDemarrage(appli)});
            return reussit;
        };
        return p;
    }
};

Boites boitesNotees(QStringList& messages)
{
    Boites b;
    b.message = [&messages](QWidget*, const QString& texte) { messages << texte; };
    return b;
}

QByteArray contenu(const QString& chemin)
{
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<absent>");
}

void ecris(const QString& chemin, const QByteArray& texte, bool executable = false)
{
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(texte);
    f.close();
    if (executable)
        f.setPermissions(f.permissions() | QFileDevice::ExeOwner);
}

TEST(Emplacements, DossierDeLApplicationSelonLInstallation)
{
    QTemporaryDir racine;
    const QString r = racine.path();
    QDir().mkpath(r + "/construction/usine");
    QDir().mkpath(r + "/prefixe/bin");
    QDir().mkpath(r + "/prefixe/share/velorin");
    QDir().mkpath(r + "/deux/bin/usine");
    QDir().mkpath(r + "/deux/share/velorin");
    QDir().mkpath(r + "/seul");
    struct Cas {
        const char* exe;
        const char *xdg, *home;
        bool installe;
        QString appli, usine;
    } cas[] = {
        // The build folder: everything beside the executable.
        {"construction", "", "/home/u", false, r + "/construction", r + "/construction/usine"},
        // Installed in a prefix: the user's data folder, factory in ../share.
        {"prefixe/bin", "", "/home/u", true, "/home/u/.local/share/velorin", r + "/prefixe/share/velorin"},
        {"prefixe/bin", "/donnees", "/home/u", true, "/donnees/velorin", r + "/prefixe/share/velorin"},
        // A relative XDG_DATA_HOME does not count.
        {"prefixe/bin", "relatif", "/home/u", true, "/home/u/.local/share/velorin", r + "/prefixe/share/velorin"},
        // Its own usine/ wins over a share folder above it.
        {"deux/bin", "", "/home/u", false, r + "/deux/bin", r + "/deux/bin/usine"},
        // Nothing shipped at all, writable: beside the executable.
        {"seul", "", "/home/u", false, r + "/seul", r + "/share/velorin"},
    };
    for (const Cas& c : cas) {
        const Emplacements e = emplacementsPour(r + "/" + c.exe, c.xdg, c.home);
        EXPECT_EQ(e.installe, c.installe) << c.exe << " " << c.xdg;
        EXPECT_EQ(e.appli, c.appli) << c.exe << " " << c.xdg;
        EXPECT_EQ(e.usine, c.usine) << c.exe << " " << c.xdg;
    }
    // A folder the user may not write is an installation too (root writes
    // everywhere, so this is only seen by a plain user).
    if (geteuid() != 0) {
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const Emplacements e = emplacementsPour(r + "/seul", "", "/home/u");
        EXPECT_TRUE(e.installe);
        EXPECT_EQ(e.appli, QStringLiteral("/home/u/.local/share/velorin"));
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
}

// A user folder with the factory files of the build, in a separate folder
// as when installed.
struct BancInstallation {
    QTemporaryDir racine;
    Emplacements lieux;
    QStringList messages;
    Lancements lancements;
    BancInstallation()
    {
        lieux.appli = racine.filePath(QStringLiteral("maison/.local/share/velorin"));
        lieux.usine = QStringLiteral(VELORIN_BIN_DIR "/usine");
        lieux.installe = true;
        lancements.appli = lieux.appli;
    }
};

TEST(Installation, ExpliqueCreeEtRemplitSansRienRemplacer)
{
    struct Cas {
        bool finir;         // Velorin_finir in the application folder
        bool fichierPerso;  // the user already has a mem.log
    } cas[] = {{false, false}, {true, false}, {false, true}};
    for (const Cas& c : cas) {
        BancInstallation b;
        if (c.finir)
            ecris(b.lieux.appli + "/Velorin_finir", "#!/bin/sh\n", true);
        if (c.fichierPerso)
            ecris(b.lieux.appli + "/Espace_courbes/mem.log", "à moi\n");
        EXPECT_EQ(premierDemarrage(b.lieux.appli), !c.fichierPerso);
        Installation form(b.lieux, boitesNotees(b.messages), b.lancements.programmes());
        const QString texte = controle<QLabel>(form, "Label1")->text();
        EXPECT_TRUE(texte.contains(QDir::toNativeSeparators(b.lieux.appli)));
        for (const char* nom : nomsDossiers)
            EXPECT_TRUE(texte.contains(QLatin1String(nom))) << nom;

        controle<QPushButton>(form, "Command1")->click();
        EXPECT_EQ(form.result(), QDialog::Accepted);
        EXPECT_EQ(b.messages, QStringList{QString::fromUtf8(messageInstallationTerminee)});
        ASSERT_EQ(b.lancements.faits.size(), c.finir ? 1u : 0u);
        if (c.finir) {
            EXPECT_EQ(b.lancements.faits[0].programme, b.lieux.appli + "/Velorin_finir");
            EXPECT_FALSE(b.lancements.faits[0].dossiersPresents) << "Velorin_finir vient d'abord";
        }
        EXPECT_FALSE(premierDemarrage(b.lieux.appli));
        for (const char* f : {"Espace_courbes/Lisurf.lsu", "Espace_courbes/memprovi.log", "Plan_courbes/Lico.lsu",
                              "Plan_courbes/mem.log"})
            EXPECT_EQ(contenu(b.lieux.appli + "/" + f), contenu(b.lieux.usine + "/" + f)) << f;
        for (const char* d : {"Espace_fig", "Plan_fig"})
            EXPECT_TRUE(QFileInfo(b.lieux.appli + "/" + d).isDir()) << d;
        EXPECT_EQ(contenu(b.lieux.appli + "/Espace_courbes/mem.log"),
                  c.fichierPerso ? QByteArray("à moi\n") : contenu(b.lieux.usine + "/Espace_courbes/mem.log"));
    }
}

TEST(Installation, EchecDitEtResteOuvert)
{
    BancInstallation b;
    // A file where the application folder should be: nothing can be made.
    ecris(b.lieux.appli, "pas un dossier");
    Installation form(b.lieux, boitesNotees(b.messages), b.lancements.programmes());
    form.open();
    controle<QPushButton>(form, "Command1")->click();
    EXPECT_TRUE(form.isVisible());
    ASSERT_EQ(b.messages.size(), 1);
    EXPECT_TRUE(b.messages[0].startsWith(QStringLiteral("L'installation n'a pas pu se faire")));
    EXPECT_TRUE(b.messages[0].contains(QStringLiteral("Espace_courbes")));
    EXPECT_EQ(contenu(b.lieux.appli), QByteArray("pas un dossier"));
    form.close();
}

TEST(APropos, InformationsSystemeOuMessage)
{
    struct Cas {
        QStringList trouvables;
        bool reussit;
        QString lance;  // empty: none is started
        QStringList arguments;
    } cas[] = {
        {{"kinfocenter", "gnome-control-center", "hardinfo"}, true, "/usr/bin/kinfocenter", {}},
        {{"gnome-control-center", "hardinfo"}, true, "/usr/bin/gnome-control-center", {"info-overview"}},
        {{"hardinfo"}, true, "/usr/bin/hardinfo", {}},
        {{}, true, "", {}},
        {{"hardinfo"}, false, "", {}},  // found, but it would not start
    };
    for (const Cas& c : cas) {
        QStringList messages;
        Lancements l;
        l.trouvables = c.trouvables;
        l.reussit = c.reussit;
        APropos boite(QStringLiteral("9.8"), boitesNotees(messages), l.programmes());
        EXPECT_EQ(boite.windowTitle(), QStringLiteral("A propos de Velorin"));
        EXPECT_EQ(controle<QLabel>(boite, "Label1")->text(), QStringLiteral("Velorin"));
        EXPECT_TRUE(controle<QLabel>(boite, "Label2")->text().contains(QStringLiteral("9.8")));
        controle<QPushButton>(boite, "Command2")->click();
        const bool lance = !c.lance.isEmpty();
        if (lance) {
            ASSERT_FALSE(l.faits.empty()) << c.trouvables.join(',').toStdString();
            EXPECT_EQ(l.faits.back().programme, c.lance);
            EXPECT_EQ(l.faits.back().arguments, c.arguments);
        }
        EXPECT_EQ(messages, lance ? QStringList() : QStringList{QString::fromUtf8(messageSansInfosSysteme)})
            << c.trouvables.join(',').toStdString();
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
    EXPECT_FALSE(texte->document()->isEmpty());
    EXPECT_FALSE(texte->toPlainText().contains(QStringLiteral("Ã")));  // read as UTF-8
    EXPECT_FALSE(precedent->isEnabled());
    // Every link of the contents page opens a page that has a title.
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
        EXPECT_TRUE(QFileInfo(aide.pageCourante().toLocalFile()).isFile()) << lien.toStdString();
        if (aide.pageCourante().adjusted(QUrl::RemoveFragment) != accueil) {
            EXPECT_TRUE(precedent->isEnabled()) << lien.toStdString();
        }
        controle<QPushButton>(aide, "Command1")->click();  // Sommaire
        EXPECT_EQ(aide.pageCourante(), accueil);
    }
}

TEST(MenuAide, AProposAideEtQuitter)
{
    Banc banc;
    ecris(banc.chemin("usine/Aide/index.htm"), contenu(aideLivree));
    Mirado& w = banc.demarre();
    Lancements l;
    l.appli = banc.dossier.path();
    w.programmes = l.programmes();

    article(w, "mnuaide", 0)->trigger();
    APropos* apropos = w.findChild<APropos*>();
    ASSERT_NE(apropos, nullptr);
    EXPECT_TRUE(apropos->isVisible());
    apropos->close();

    article(w, "mnuaide", 1)->trigger();
    Aide* aide = w.findChild<Aide*>();
    ASSERT_NE(aide, nullptr);
    EXPECT_EQ(aide->pageCourante().toLocalFile(), banc.chemin("usine/Aide/index.htm"));
    aide->close();
    // A user's own help pages come first; without any page, it says so.
    ecris(banc.chemin("Aide/index.htm"), "<html><head><title>Mes notes</title></head></html>");
    QApplication::processEvents();
    article(w, "mnuaide", 1)->trigger();
    aide = w.findChild<Aide*>();
    ASSERT_NE(aide, nullptr);
    EXPECT_EQ(aide->pageCourante().toLocalFile(), banc.chemin("Aide/index.htm"));
    aide->close();
    QFile::remove(banc.chemin("Aide/index.htm"));
    QFile::remove(banc.chemin("usine/Aide/index.htm"));
    QApplication::processEvents();
    article(w, "mnuaide", 1)->trigger();
    ASSERT_FALSE(banc.messages.isEmpty());
    EXPECT_TRUE(banc.messages.back().startsWith(QStringLiteral("Les pages d'aide sont introuvables")));

    // Quitter: the companion program only when it is there.
    article(w, "mnustp", 0)->trigger();
    EXPECT_TRUE(l.faits.empty());
    ecris(banc.chemin("wemrab"), "#!/bin/sh\n", true);
    article(w, "mnustp", 0)->trigger();
    ASSERT_EQ(l.faits.size(), 1u);
    EXPECT_EQ(l.faits[0].programme, banc.chemin("wemrab"));
}

}  // namespace
}  // namespace velorin::essai
