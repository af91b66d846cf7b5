// The selection lists: the available curves (Coli) and the drawn curves
// (Licou), and the drawing shown behind them.
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <filesystem>

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

TEST(Coli, ChoixEnvoyesParOkOuDoubleClic)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 6);
    Mirado& m = banc.demarre();
    struct Cas {
        std::vector<int> selection;  // rows of the list, in the order clicked
        int option;                  // Option1: 0 "Cycle", 1 "Unique"
        int doubleClic;              // the row double-clicked, -1: "OK"
        std::vector<int> choix;      // records sent, in list order
        ModeCouleurs mode;
    };
    const Cas cas[] = {
        {{5, 2}, 0, -1, {2, 5}, ModeCouleurs::Cycle},
        {{0, 3}, 1, -1, {3}, ModeCouleurs::Unique},  // the header line is no entry
        {{1}, 1, 3, {3}, ModeCouleurs::Unique},
        {{1}, 1, 0, {}, ModeCouleurs::Unique},  // the header sends nothing, the list stays
    };
    for (const Cas& c : cas) {
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        auto* liste = controle<QListWidget>(coli, "List2");
        ASSERT_EQ(liste->count(), 7);
        for (int r : c.selection)
            liste->item(r)->setSelected(true);
        controle<QRadioButton>(coli, QStringLiteral("Option1_%1").arg(c.option))->click();
        if (c.doubleClic < 0)
            controle<QPushButton>(coli, "Command1")->click();
        else
            coli.List2_DblClick(liste->item(c.doubleClic));
        EXPECT_EQ(coli.result(), c.choix.empty() && c.doubleClic == 0 ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(coli.choix(), c.choix);
        EXPECT_EQ(coli.mode(), c.mode);
    }
}

// A catalogue in force that cannot be read: the start and the list both
// name the file and say why (every kind of path is the path checker's).
TEST(Coli, CatalogueIllisibleNommeAvecSaRaison)
{
    Banc banc;
    std::filesystem::create_directories(banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString());
    Mirado& m = banc.demarre();
    Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
    EXPECT_EQ(controle<QListWidget>(coli, "List2")->count(), 1);
    ASSERT_GE(banc.messages.size(), 2);
    for (const QString& message : {banc.messages.front(), banc.messages.back()})
        EXPECT_TRUE(message.contains(QStringLiteral("Lisurf.lsu » est un dossier"))) << message.toStdString();
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
    Licou licou(m.etat.courbes, m.etat.catalogue, 2, &m);
    auto* liste = controle<QListWidget>(licou, "List1");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text(), article(m, "mnutra", 1)->text());
    EXPECT_EQ(controle<QLabel>(licou, "Label1_0")->text(), QStringLiteral("Trait En vert:"));
    EXPECT_EQ(controle<QLabel>(licou, "Label1_1")->text(), QStringLiteral("pointillé"));
    liste->setCurrentRow(0);
    EXPECT_EQ(controle<QLabel>(licou, "Label1_0")->text(), QStringLiteral("Trait En rouge:"));
    EXPECT_EQ(controle<QLabel>(licou, "Label1_1")->text(), QStringLiteral("continu"));
    liste->item(0)->setCheckState(Qt::Unchecked);
    controle<QPushButton>(licou, "Command1")->click();
    EXPECT_EQ(licou.cochees(), std::vector<int>{2});
}

// "LE GRAPHE de" 0 and "Déjà tracé" 0 open the lists; while they are open
// (their modal loop running) the drawing is still painted from the bitmap.
TEST(Mirado, LesListesOuvertesDevantLeDessin)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    Mirado& m = banc.demarre();
    article(m, "mnufa", 1)->trigger();
    auto* zone = m.findChild<ZoneDessin*>();
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
        EXPECT_EQ(vu, attendu) << liste;
    }
}

}  // namespace
}  // namespace velorin::essai
