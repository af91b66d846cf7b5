// A catalogue change that keeps the drawing, a figure read on a smaller
// screen with its reference colour, and the whole title of an input box.
#include <QFileInfo>
#include <QInputDialog>
#include <QScreen>
#include <QTimer>

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

}  // namespace
}  // namespace velorin::essai
