// The Alt gestures from the "Édition" menu, the lines the "?" menu adds, and
// the tips of the side column: the wiring only (the routines are tested with
// their modules and the Alt gestures in commandes_test).
#include <QAbstractButton>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

using Geste = std::function<void(Mirado&, ZoneDessin*)>;

void clicGauche(ZoneDessin* z, QPoint ici)
{
    souris(z, QEvent::MouseButtonPress, ici, Qt::LeftButton, Qt::LeftButton);
    souris(z, QEvent::MouseButtonRelease, ici, Qt::LeftButton, Qt::NoButton);
}
void echap(ZoneDessin* z)
{
    QKeyEvent e(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(z, &e);
}
// Entry `index` of "Édition" (0 the label, 1 the rectangle): the pointer
// then waits over the drawing, and no longer once `suite` is done.
Geste entree(int index, const Geste& suite)
{
    return [=](Mirado& m, ZoneDessin* z) {
        emit controle<QMenu>(m, "mnuedition")->aboutToShow();
        article(m, "mnugeste", index)->trigger();
        EXPECT_EQ(z->cursor().shape(), Qt::CrossCursor);
        suite(m, z);
        EXPECT_FALSE(z->testAttribute(Qt::WA_SetCursor));
    };
}

// Each row: the gesture with its modifier, and the same through the menu,
// from the same state; the parameters, labels, picture and questions asked
// must come out the same.
TEST(GestesMenu, ChaqueEntreeFaitCeQueFaitSonGesteAvecAlt)
{
    struct Cas {
        const char* faute;
        bool plan;
        Geste avecTouche, parMenu;
    };
    const Geste rien = [](Mirado&, ZoneDessin*) {};
    const Geste glissePlain = [](Mirado&, ZoneDessin* z) { glisse(z, {100, 60}, {300, 200}, Qt::NoModifier); };
    const Cas cas[] = {
        {"le label n'est pas placé au point cliqué", false,
         [](Mirado&, ZoneDessin* z) {
             souris(z, QEvent::MouseButtonRelease, {40, 30}, Qt::RightButton, Qt::NoButton, Qt::AltModifier);
         },
         entree(0,
                [](Mirado&, ZoneDessin* z) {
                    clicGauche(z, {40, 30});
                })},
        {"le rectangle ne donne pas le zoom du glissé avec Alt", true,
         [](Mirado&, ZoneDessin* z) {
             glisse(z, {100, 60}, {300, 200}, Qt::AltModifier);
         },
         entree(1, glissePlain)},
        {"Échap n'annule pas le label", false, rien,
         entree(0,
                [](Mirado&, ZoneDessin* z) {
                    echap(z), clicGauche(z, {40, 30});
                })},
        {"Échap n'annule pas le rectangle", true, glissePlain,
         entree(1, [=](Mirado& m, ZoneDessin* z) { echap(z), glissePlain(m, z); })},
        {"le rectangle est offert dans l'espace", false, glissePlain,
         [=](Mirado& m, ZoneDessin* z) {
             emit controle<QMenu>(m, "mnuedition")->aboutToShow();
             EXPECT_FALSE(article(m, "mnugeste", 1)->isEnabled());
             glissePlain(m, z);
         }},
    };
    Banc banc;
    Mirado& m = banc.demarre(1);
    auto* zone = m.findChild<ZoneDessin*>();
    auto* etiquettes = m.findChild<CommandesEtiquettes*>();
    etiquettes->editeur = [](QWidget*, Etiquette& l) { return l.texte = "A", true; };
    banc.reponseQuestion = true;
    m.envoie(1);
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.faute);
        if (c.plan != m.etat.fenetre.modePlan)
            article(m, c.plan ? "mnulico" : "mnulifi", 0)->trigger();
        const Parametres depart = m.etat.param;
        const auto resultat = [&](const Geste& g) {
            m.etat.param = depart;
            m.Command3_Click();
            etiquettes->videlabel();
            banc.questions.clear();
            g(m, zone);
            std::vector<std::tuple<float, float, std::string>> labels;
            for (int k = 1; k <= m.etat.etiquettes.nombre(); ++k)
                labels.emplace_back(m.etat.etiquettes.lb[k].gauche, m.etat.etiquettes.lb[k].haut,
                                    m.etat.etiquettes.lb[k].texte);
            return std::tuple(texteMemoire(m.etat.param), labels, m.ecran().copy(), banc.questions);
        };
        const auto attendu = resultat(c.avecTouche);
        EXPECT_EQ(resultat(c.parMenu), attendu);
    }
    EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
}

// The lines added to "?" come after the fixed ones, which keep their texts
// and indexes.
TEST(MenuAide, LignesAjouteesApresLesLignesFixesSansLesDecaler)
{
    const char* const fixes[] = {"Click sur Ecran",
                                 "Si repère espace ou plan",
                                 "      B central => paramétrage",
                                 "      B Central + Shift=>liste courbes tracées",
                                 "      B droit => menu Zoom ou points",
                                 "      B droit + Alt => Création Label",
                                 "      ****",
                                 "Si repère du plan",
                                 "      B gauche + Shift=> déplacement du repère",
                                 "      B gauche + Alt=> fenêtre à zoomer",
                                 "----------------------",
                                 "Click sur un label",
                                 "      B droit=> Couleur",
                                 "      B droit +Shift=>Police",
                                 "      B droit +Ctrl=>Taille"};
    Banc banc;
    Mirado& m = banc.demarre();
    const std::vector<QAction*> lignes = articles(m, "mnuaf");
    ASSERT_GT(lignes.size(), std::size(fixes));
    const QList<QAction*> ordre = controle<QMenu>(m, "mnua")->actions();
    QString ajoutees;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        ASSERT_NE(lignes[i], nullptr) << i;
        EXPECT_EQ(ordre.indexOf(lignes[i]), ordre.indexOf(lignes[0]) + qsizetype(i)) << i;
        if (i < std::size(fixes))
            EXPECT_EQ(lignes[i]->text(), QString::fromUtf8(fixes[i])) << i;
        else
            ajoutees += lignes[i]->text() + '|';
    }
    for (const char* mot : {"glissé", "Molette", "Nouveau label", "Grossir un rectangle", "Rendu"})
        EXPECT_TRUE(ajoutees.contains(QString::fromUtf8(mot))) << mot;
}

// A control of the side column without a tip (one added later, or a name
// mistyped in the table of tips).
TEST(Colonne, ChaqueControleASaBulle)
{
    Banc banc;
    Mirado& m = banc.demarre();
    auto* colonne = controle<QWidget>(m, "colonne");
    std::vector<QWidget*> controles;
    for (QAbstractButton* b : colonne->findChildren<QAbstractButton*>())
        controles.push_back(b);
    for (QListWidget* l : colonne->findChildren<QListWidget*>())
        controles.push_back(l);
    ASSERT_GE(controles.size(), 25u);
    for (QWidget* c : controles)
        EXPECT_FALSE(c->toolTip().isEmpty()) << c->objectName().toStdString();
}

}  // namespace
}  // namespace velorin::essai
