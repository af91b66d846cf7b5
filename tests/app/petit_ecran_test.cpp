// The main window on a small screen: every menu of the bar stays reachable (the
// long "Dans <folder><catalogue>" caption gives way) and the side column scrolls
// when the window is too low for it.
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QToolTip>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

TEST(PetitEcran, LaBarreDeMenusMontreChaqueMenu)
{
    Banc banc;
    const QString nom = QStringLiteral("un_catalogue_au_nom_vraiment_tres_long_pour_la_barre.lsu");
    banc.ecrisCatalogue("Espace_courbes/" + nom, 1);
    Mirado& m = banc.demarre();
    for (QAction* a : articles(m, "mnulifi"))
        if (a->text() == nom)
            a->trigger();
    const QString complet = "Dans " + QString::fromStdString(m.etat.fenetre.dossierCourbes) + nom;
    QMenuBar* barre = m.menuBar();
    QAction* titre = controle<QMenu>(m, "mnutrace")->menuAction();
    for (const int largeur : {1024, 4000, 1024}) {  // the caption is shortened when narrow
        m.resize(largeur, largeur == 1024 ? 768 : 1000);
        QApplication::processEvents();
        for (QAction* a : barre->actions())
            EXPECT_TRUE(barre->rect().contains(barre->actionGeometry(a))) << a->text().toStdString() << largeur;
        const auto* suite = barre->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
        EXPECT_TRUE(!suite || suite->isHidden()) << largeur;
        EXPECT_EQ(std::pair(titre->text() != complet, titre->toolTip()), std::pair(largeur == 1024, complet));
        if (largeur == 1024) {
            EXPECT_TRUE(titre->text().startsWith("Dans ") && titre->text().endsWith(".lsu") &&
                        titre->text().contains(QChar(0x2026)))
                << titre->text().toStdString();
            const QPoint centre = barre->actionGeometry(titre).center();  // hovering it shows the whole text
            QHelpEvent survol(QEvent::ToolTip, centre, barre->mapToGlobal(centre));
            QApplication::sendEvent(barre, &survol);
            EXPECT_EQ(QToolTip::text(), complet);
        }
    }
}

TEST(PetitEcran, LePanneauDefileQuandLaFenetreEstBasse)
{
    Banc banc;
    Mirado& m = banc.demarre();
    auto* defile = controle<QScrollArea>(m, "defilePanneau");
    ASSERT_EQ(defile->widget(), controle(m, "colonne"));
    const QWidget* zone = m.findChild<ZoneDessin*>();
    const QWidget* bas = controle(m, "Label2");  // the counters, the lowest read-out of the column
    for (const QSize taille : {QSize(1600, 1000), QSize(1024, 420), QSize(700, 300)}) {
        m.resize(taille);
        QApplication::processEvents();
        const int H = m.centralWidget()->height();
        EXPECT_EQ(defile->verticalScrollBar()->isVisible(), bas->geometry().bottom() >= H) << taille.height();
        // The drawing and the column share the width without overlapping.
        EXPECT_EQ(std::tuple(zone->geometry().right() + 1, defile->geometry().right() + 1, defile->height()),
                  std::tuple(defile->geometry().left(), m.centralWidget()->width(), H));
        // Scrolled to its end, the column shows its lowest read-out whole.
        defile->verticalScrollBar()->setValue(defile->verticalScrollBar()->maximum());
        EXPECT_TRUE(defile->viewport()->rect().contains({bas->mapTo(defile->viewport(), QPoint(0, 0)), bas->size()}))
            << taille.height();
    }
}

}  // namespace
}  // namespace velorin::essai
