// The Alt gestures from the "Édition" menu, the lines of "?", the column's
// tips: the wiring only (the Alt gestures are tested in commandes_test).
#include <QAbstractButton>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

// Each row: a gesture with its modifier, and the entry of "Édition" (0 the
// label, 1 the rectangle) followed by a gesture without one, from the same
// state: parameters, labels, picture and questions asked come out the same.
// While the entry waits, the pointer over the drawing is a cross.
TEST(GestesMenu, ChaqueEntreeFaitCeQueFaitSonGesteAvecAlt)
{
    Banc banc;
    Mirado& m = banc.demarre(1);
    auto* zone = m.findChild<ZoneDessin*>();
    using Geste = std::function<void()>;
    const Geste rien = [] {}, droitAlt = [zone] {
        souris(zone, QEvent::MouseButtonRelease, {40, 30}, Qt::RightButton, Qt::NoButton, Qt::AltModifier);
    };
    const Geste clic = [zone] {
        souris(zone, QEvent::MouseButtonPress, {40, 30}, Qt::LeftButton, Qt::LeftButton);
        souris(zone, QEvent::MouseButtonRelease, {40, 30}, Qt::LeftButton, Qt::NoButton);
    };
    const Geste glisseAlt = [zone] { glisse(zone, {100, 60}, {300, 200}, Qt::AltModifier); };
    const Geste glisseSeul = [zone] { glisse(zone, {100, 60}, {300, 200}, Qt::NoModifier); };
    auto* etiquettes = m.findChild<CommandesEtiquettes*>();
    etiquettes->editeur = [](QWidget*, Etiquette& l) { return l.texte.assign(1, 'A'), true; };
    banc.reponseQuestion = true;
    m.envoie(1);
    // faute, plane, with the modifier, entry, Escape, then without one
    for (const auto& [faute, plan, avecTouche, entree, echap, ensuite] :
         {std::tuple{"le label n'est pas placé au point cliqué", false, droitAlt, 0, false, clic},
          std::tuple{"le rectangle ne donne pas le zoom du glissé avec Alt", true, glisseAlt, 1, false, glisseSeul},
          std::tuple{"Échap n'annule pas le label", false, rien, 0, true, clic},
          std::tuple{"Échap n'annule pas le rectangle", true, glisseSeul, 1, true, glisseSeul},
          std::tuple{"le rectangle est offert dans l'espace", false, glisseSeul, 1, false, glisseSeul}}) {
        SCOPED_TRACE(faute);
        if (plan != m.etat.fenetre.modePlan)
            article(m, plan ? "mnulico" : "mnulifi", 0)->trigger();
        const Parametres depart = m.etat.param;
        const auto resultat = [&](const Geste& geste) {
            m.etat.param = depart;
            m.Command3_Click();
            etiquettes->videlabel();
            banc.questions.clear();
            geste();
            std::vector<std::tuple<float, float, std::string>> labels;
            for (const Etiquette& l : m.etat.etiquettes.lb)
                labels.emplace_back(l.gauche, l.haut, l.texte);
            return std::tuple(texteMemoire(m.etat.param), labels, m.ecran().copy(), banc.questions);
        };
        const auto attendu = resultat(avecTouche);
        EXPECT_EQ(resultat([&] {
                      emit controle<QMenu>(m, "mnuedition")->aboutToShow();
                      article(m, "mnugeste", entree)->trigger();
                      EXPECT_EQ(zone->cursor().shape() == Qt::CrossCursor, plan || entree == 0);
                      if (echap) {
                          QKeyEvent e(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
                          QApplication::sendEvent(zone, &e);
                      }
                      ensuite();
                      EXPECT_FALSE(zone->testAttribute(Qt::WA_SetCursor));
                  }),
                  attendu);
    }
}

// Lines added to "?" among or before the fixed ones would shift their
// indexes: the fixed ones end at 14, the added ones follow. A control of the
// side column without a tip: added later, or its name mistyped for its tip.
TEST(MenuAide, LignesAjouteesApresLesLignesFixesEtBulleDeChaqueControle)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const std::vector<QAction*> lignes = articles(m, "mnuaf");
    ASSERT_GT(lignes.size(), 15u);
    EXPECT_EQ(lignes[14]->text(), QStringLiteral("      B droit +Ctrl=>Taille"));
    const QList<QAction*> ordre = controle<QMenu>(m, "mnua")->actions();
    for (std::size_t i = 0; i < lignes.size(); ++i)
        EXPECT_EQ(ordre.indexOf(lignes[i]), ordre.indexOf(lignes[0]) + qsizetype(i)) << i;
    int controles = 0;
    for (QWidget* c : controle<QWidget>(m, "colonne")->findChildren<QWidget*>()) {
        const bool commande = qobject_cast<QAbstractButton*>(c) || qobject_cast<QListWidget*>(c);
        controles += commande;
        EXPECT_TRUE(!commande || !c->toolTip().isEmpty()) << c->objectName().toStdString();
    }
    EXPECT_GE(controles, 25);
}

}  // namespace
}  // namespace velorin::essai
