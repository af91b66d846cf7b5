// The selection lists: the list of available curves and the list of drawn
// curves.
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <QTimer>

#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "app/dialogues/coli.h"
#include "app/dialogues/licou.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

// The catalogue the window names.
std::string enVigueur(const Mirado& m)
{
    return m.etat.fenetre.dossierCourbes + m.etat.fenetre.fichierCatalogue;
}

TEST(Coli, ListeEtChoixEnvoyes)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 6);
    Mirado& m = banc.demarre();
    struct Cas {
        std::vector<int> selection;  // rows of the list, in the order clicked
        int option;                  // Option1 clicked: 0 "Cycle", 1 "Unique"
        std::vector<int> choix;      // records sent, in list order
        ModeCouleurs mode;
    };
    const Cas cas[] = {
        {{5, 2}, 0, {2, 5}, ModeCouleurs::Cycle},
        {{0, 3}, 1, {3}, ModeCouleurs::Unique},  // the header line is no entry
        {{}, 1, {}, ModeCouleurs::Unique},
    };
    for (const Cas& c : cas) {
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        EXPECT_EQ(coli.windowTitle(), QStringLiteral("Liste des Courbes disponibles"));
        auto* liste = controle<QListWidget>(coli, "List2");
        ASSERT_EQ(liste->count(), 7);
        EXPECT_EQ(liste->item(0)->text(), QStringLiteral(" Listes des courbes ou surfaces"));
        EXPECT_TRUE(liste->item(2)->text().startsWith(QStringLiteral("0002]x=f1(t)=")));
        liste->clearSelection();
        for (int r : c.selection)
            liste->item(r)->setSelected(true);
        controle<QRadioButton>(coli, QStringLiteral("Option1_%1").arg(c.option))->click();
        controle<QPushButton>(coli, "Command1")->click();
        EXPECT_EQ(coli.result(), QDialog::Accepted);
        EXPECT_EQ(coli.choix(), c.choix);
        EXPECT_EQ(coli.mode(), c.mode);
    }
}

TEST(Coli, DoubleClicEnvoieUneSeuleEntree)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 4);
    Mirado& m = banc.demarre();
    for (int ligne : {0, 3}) {
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        auto* liste = controle<QListWidget>(coli, "List2");
        liste->item(1)->setSelected(true);
        coli.List2_DblClick(liste->item(ligne));
        // The header line sends nothing and leaves the list open.
        EXPECT_EQ(coli.result(), ligne == 0 ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(coli.choix(), ligne == 0 ? std::vector<int>{} : std::vector<int>{3});
    }
}

// A catalogue in force that cannot be read: the start and the list both
// name the file and say why, and the list shows no entry of another one.
// (Each kind of path has its sentence in the catalogue's and the path
// checker's tests.)
TEST(Coli, CatalogueIllisibleNommeAvecSaRaison)
{
    struct Cas {
        const char* nom;
        std::function<void(const std::string&)> prepare;
        const char* raison;
    };
    const Cas cas[] = {
        {"dossier", [](const std::string& c) { std::filesystem::create_directories(c); }, "est un dossier"},
        {"tube", [](const std::string& c) { ASSERT_EQ(mkfifo(c.c_str(), 0600), 0); }, "est un tube nommé"},
    };
    for (const Cas& c : cas) {
        Banc banc;
        const std::string lisurf = banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString();
        std::filesystem::create_directories(std::filesystem::path(lisurf).parent_path());
        c.prepare(lisurf);
        Mirado& m = banc.demarre();
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        EXPECT_EQ(controle<QListWidget>(coli, "List2")->count(), 1) << c.nom;
        ASSERT_GE(banc.messages.size(), 2) << c.nom;
        for (const QString& message : {banc.messages.front(), banc.messages.back()}) {
            EXPECT_TRUE(message.contains(QStringLiteral("Lisurf.lsu » "))) << c.nom << " : " << message.toStdString();
            EXPECT_TRUE(message.contains(QString::fromUtf8(c.raison))) << c.nom << " : " << message.toStdString();
        }
    }
}

TEST(Licou, CourbesTraceesCocheesEtReglages)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
    Mirado& m = banc.demarre();
    article(m, "mnucl", 1)->trigger();  // red curves
    article(m, "mnufa", 1)->trigger();
    article(m, "mnucl", 2)->trigger();  // green curves
    m.etat.param.traceContinu = 0;
    article(m, "mnufa", 3)->trigger();
    ASSERT_EQ(m.etat.courbes.nbCourbes, 2);

    Licou licou(m.etat.courbes, m.etat.catalogue, 2, &m);
    EXPECT_EQ(licou.windowTitle(), QStringLiteral("Courbes tracées et couleur associée"));
    auto* liste = controle<QListWidget>(licou, "List1");
    auto* trait = controle<QLabel>(licou, "Label1_0");
    auto* continu = controle<QLabel>(licou, "Label1_1");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text(), article(m, "mnutra", 1)->text());
    EXPECT_TRUE(liste->item(1)->text().contains(QStringLiteral("En vert:")));
    EXPECT_EQ(trait->text(), QStringLiteral("Trait En vert:"));
    EXPECT_EQ(continu->text(), QStringLiteral("pointillé"));
    liste->setCurrentRow(0);
    EXPECT_EQ(trait->text(), QStringLiteral("Trait En rouge:"));
    EXPECT_EQ(continu->text(), QStringLiteral("continu"));

    liste->item(0)->setCheckState(Qt::Unchecked);
    controle<QPushButton>(licou, "Command1")->click();
    EXPECT_EQ(licou.cochees(), std::vector<int>{2});
}

TEST(Mirado, LeDessinResteAfficheDerriereLesListes)
{
    // While a list is open (its modal loop running), the drawing area is
    // still painted from the picture kept in the bitmap.
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    Mirado& m = banc.demarre();
    article(m, "mnufa", 1)->trigger();
    auto* zone = m.findChild<ZoneDessin*>();
    ASSERT_NE(zone, nullptr);
    for (const char* liste : {"mnufa", "mnutra"}) {
        const QImage attendu = m.ecran().convertToFormat(QImage::Format_RGB32);
        QImage vu;
        QString dialogue;
        QTimer::singleShot(0, &m, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            dialogue = modal ? modal->objectName() : QString();
            vu = zone->grab().toImage().convertToFormat(QImage::Format_RGB32);
            if (auto* d = qobject_cast<QDialog*>(modal))
                d->reject();
        });
        article(m, liste, 0)->trigger();
        EXPECT_EQ(dialogue, QString::fromUtf8(liste) == "mnufa" ? "coli" : "licou");
        EXPECT_GT(nbCouleurs(vu), 1) << liste;
        EXPECT_EQ(vu, attendu) << liste;
    }
}

TEST(Mirado, CouleursEtBouclesCocheesDansLesMenus)
{
    Banc banc;
    Mirado& m = banc.demarre();
    struct Cas {
        const char* groupe;
        int index;
        std::function<long()> valeur;
        long attendu;
    };
    const Cas cas[] = {
        {"mnucl", 0, [&] { return long(m.etat.couleurs.couleurTrace); }, 0},
        {"mnucl", 3, [&] { return long(m.etat.couleurs.couleurTrace); }, 0xFF0000},
        {"mnuct", 4, [&] { return long(m.etat.couleurs.couleurTangente); }, 0xFFFF},
        {"mnuct", 5, [&] { return long(m.etat.couleurs.couleurTangente); }, 0xFFFFFF},
        {"mnuper", 3, [&] { return long(m.etat.param.ordreBoucles); }, 3},
        {"mnuchcol", 1, [&] { return long(m.etat.fenetre.politiqueCouleurs); }, 1},
        {"mnuipo", 0, [&] { return long(m.etat.fenetre.orientationImprimante); }, 0},
    };
    for (const Cas& c : cas) {
        const std::vector<QAction*> groupe = articles(m, c.groupe);
        groupe.at(c.index)->trigger();
        EXPECT_EQ(c.valeur(), c.attendu) << c.groupe << "(" << c.index << ")";
        for (int i = 0; i < int(groupe.size()); ++i)
            EXPECT_EQ(groupe[i]->isChecked(), i == c.index) << c.groupe << "(" << i << ")";
    }
}

}  // namespace
}  // namespace velorin::essai
