// The main window on a small screen: every menu of the bar stays reachable
// (the long "Dans <folder><catalogue>" caption gives way) and the side column
// scrolls when the window is too low for it.
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

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

TEST(PetitEcran, LaBarreDeMenusMontreChaqueMenu)
{
    Banc banc;
    const QString nom = QStringLiteral("un_catalogue_au_nom_vraiment_tres_long_pour_la_barre.lsu");
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/") + nom, 1);
    Mirado& m = banc.demarre();
    for (QAction* a : articles(m, "mnulifi"))
        if (a->text() == nom)
            a->trigger();
    const QString complet = QStringLiteral("Dans ") + QString::fromStdString(m.etat.fenetre.dossierCourbes) + nom;
    QMenuBar* barre = m.menuBar();
    QAction* titre = controle<QMenu>(m, "mnutrace")->menuAction();

    struct Cas {
        QSize taille;
        bool abrege;  // the caption is shortened
    };
    for (const Cas& c : {Cas{QSize(1024, 768), true}, Cas{QSize(4000, 1000), false}, Cas{QSize(1024, 768), true}}) {
        m.resize(c.taille);
        QApplication::processEvents();
        for (QAction* a : barre->actions())
            EXPECT_TRUE(barre->rect().contains(barre->actionGeometry(a)))
                << a->text().toStdString() << " at " << c.taille.width();
        const auto* suite = barre->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
        EXPECT_TRUE(!suite || suite->isHidden()) << c.taille.width();
        EXPECT_EQ(titre->text() != complet, c.abrege) << titre->text().toStdString();
        EXPECT_EQ(titre->toolTip(), complet);
        if (c.abrege) {
            EXPECT_TRUE(titre->text().startsWith(QStringLiteral("Dans ")) && titre->text().endsWith(".lsu") &&
                        titre->text().contains(QChar(0x2026)))
                << titre->text().toStdString();
            // Hovering the shortened caption shows the whole text.
            const QPoint centre = barre->actionGeometry(titre).center();
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
    // Label2, the counters, is the lowest read-out of the column.
    const QWidget* bas = controle(m, "Label2");
    for (const QSize taille : {QSize(1600, 1000), QSize(1024, 420), QSize(700, 300)}) {
        m.resize(taille);
        QApplication::processEvents();
        const int H = m.centralWidget()->height();
        const bool defilant = bas->geometry().bottom() >= H;
        EXPECT_EQ(defile->verticalScrollBar()->isVisible(), defilant) << taille.height();
        // The drawing and the column share the width without overlapping.
        EXPECT_EQ(zone->geometry().right() + 1, defile->geometry().left()) << taille.height();
        EXPECT_EQ(defile->geometry().right() + 1, m.centralWidget()->width());
        EXPECT_EQ(defile->height(), H);
        // Scrolled to its end, the column shows its lowest read-out whole.
        defile->verticalScrollBar()->setValue(defile->verticalScrollBar()->maximum());
        const QRect vu(bas->mapTo(defile->viewport(), QPoint(0, 0)), bas->size());
        EXPECT_TRUE(defile->viewport()->rect().contains(vu)) << taille.height();
    }
}

}  // namespace
}  // namespace velorin::essai
