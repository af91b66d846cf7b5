// The selection lists: the available curves (Coli), the drawn curves (Licou), the drawing behind them.
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "app/dialogues/coli.h"
#include "app/dialogues/licou.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

std::string enVigueur(const Mirado& m)
{
    return m.etat.fenetre.dossierCourbes + m.etat.fenetre.fichierCatalogue;
}

TEST(Coli, ChoixEnvoyesParOkOuDoubleClic)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 6);
    Mirado& m = banc.demarre();
    using V = std::vector<int>;  // rows clicked, Option1 (0 "Cycle", 1 "Unique"), row double-clicked (-1: "OK"), sent
    for (const auto& [selection, option, doubleClic, choix, mode] :
         {std::tuple{V{5, 2}, 0, -1, V{2, 5}, ModeCouleurs::Cycle},
          std::tuple{V{0, 3}, 1, -1, V{3}, ModeCouleurs::Unique},  // the header line is no entry
          std::tuple{V{1}, 1, 3, V{3}, ModeCouleurs::Unique},
          std::tuple{V{1}, 1, 0, V{}, ModeCouleurs::Unique}}) {  // the header sends nothing, the list stays
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        auto* liste = controle<QListWidget>(coli, "List2");
        ASSERT_EQ(liste->count(), 7);
        for (int r : selection)
            liste->item(r)->setSelected(true);
        controle<QRadioButton>(coli, QStringLiteral("Option1_%1").arg(option))->click();
        if (doubleClic < 0)
            controle<QPushButton>(coli, "Command1")->click();
        else
            coli.List2_DblClick(liste->item(doubleClic));
        EXPECT_EQ(coli.result(), choix.empty() && doubleClic == 0 ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(std::tuple(coli.choix(), coli.mode()), std::tuple(choix, mode));
    }
}

// A catalogue in force that cannot be read: the start and the list both name
// the file and say why (every kind of path is the path checker's).
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
    const auto reglages = [&] {
        return controle<QLabel>(licou, "Label1_0")->text() + '|' + controle<QLabel>(licou, "Label1_1")->text();
    };
    EXPECT_EQ(reglages(), QStringLiteral("Trait En vert:|pointillé"));
    liste->setCurrentRow(0);
    EXPECT_EQ(reglages(), QStringLiteral("Trait En rouge:|continu"));
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
    for (const auto& [liste, nom] : {std::pair{"mnufa", "coli"}, std::pair{"mnutra", "licou"}}) {
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
        EXPECT_EQ(dialogue, QString::fromUtf8(nom));
        EXPECT_EQ(vu, attendu) << liste;
    }
}

}  // namespace
}  // namespace velorin::essai
