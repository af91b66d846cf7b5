// A catalogue change that keeps the drawing, a figure read on a smaller
// screen with its reference colour, and the whole title of an input box. On
// a small screen every menu of the bar stays reachable (the long "Dans
// <folder><catalogue>" caption gives way) and the side column scrolls when
// the window is too low for it.
#include <QFileInfo>
#include <QHelpEvent>
#include <QInputDialog>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

TEST(Fidelite, ChangerDeCatalogueGardeLesCourbesEtLesLabels)
{
    Banc banc;
    banc.ecrisCatalogue("Espace_courbes/b.lsu", {"x=f1(t)=COS(T)][y=f2(t)=SIN(2*T)][z=f3(t)=T/5"});
    Mirado& m = banc.demarre(1);
    const QImage repere = m.ecran().copy();
    m.envoie(1);
    auto* commandes = m.findChild<CommandesEtiquettes*>();
    commandes->editeur = [](QWidget*, Etiquette& l) { return l.texte = "reste", true; };
    commandes->creation(QPoint(40, 40));
    article(m, "mnulifi", 0)->trigger();  // b.lsu
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);
    ASSERT_EQ(m.etat.etiquettes.nombre(), 1);
    EXPECT_TRUE(commandes->controle(1)->isVisible());
    // The row was drawn again from record 1 of b.lsu, then the window cleared to the frame alone.
    EXPECT_TRUE(m.windowTitle().contains(QStringLiteral("SIN(2*T)")));
    EXPECT_EQ(m.ecran(), repere);
    m.Command3_Click();
    EXPECT_NE(m.ecran(), repere);
}

TEST(Fidelite, FigureLueSurUnPetitEcranEtSaCouleurDeReference)
{
    Banc banc;
    Mirado& m = banc.demarre();
    m.etat.param.fondBlanc = 1;  // the scheme's background (white) is not the window's own (black)
    QString choisi;
    m.choixFigure = [&](QWidget*, const QString&, const QString&) { return std::optional<QString>(choisi); };
    for (const bool reference : {true, false}) {
        // Saved at 1600 x 1000 pixels, larger than the screen.
        choisi = banc.chemin(reference ? "vrai.fig" : "faux.fig");
        banc.ecrisFichier(QFileInfo(choisi).fileName(),
                          QByteArray("False\r\nLisurf.lsu\r\n-10  10 -10  10 -10  10 \r\n 15  10  7.5  5 -15 -10 -7.5  0 \r\n"
                                     " 0  0 False ") + (reference ? "True" : "False") + " \r\n 0  0  24000  15000 \r\n");
        article(m, "mnumemfig", 1)->trigger();
        EXPECT_TRUE(m.screen()->availableGeometry().contains(m.frameGeometry())) << reference;
        EXPECT_EQ(m.etat.couleurs.couleurFond, reference ? 0x000000U : 0xFFFFFFU) << reference;
    }
}

TEST(Fidelite, LaSaisieMontreSonTitreEntier)
{
    const QString titre = QStringLiteral("Je rajouterai si nécessaire l'extention .lsu");
    QString vu;
    int largeur = 0, besoin = 0;
    QTimer::singleShot(0, [&] {
        auto* boite = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(boite, nullptr);
        vu = boite->windowTitle();
        largeur = boite->width();
        QFont gras = boite->font();
        gras.setBold(true);
        // The text and, beside it, the frame's icon and three buttons.
        besoin = QFontMetrics(gras).horizontalAdvance(titre) + 4 * QFontMetrics(gras).height();
        boite->reject();
    });
    EXPECT_FALSE(Boites::standard().saisie(nullptr, QStringLiteral("tapez un nom simple"), titre));
    EXPECT_EQ(vu, titre);
    EXPECT_GE(largeur, besoin);
}

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
