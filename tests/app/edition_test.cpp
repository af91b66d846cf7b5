// The "Édition" menu: each family of undoable commands comes back exactly
// (state, catalogue bytes, redrawn picture, menus of drawn curves, labels)
// and is redone; undo is refused during a tracing. The history itself
// (limits, redo cut, bytes kept) is the plot module's.
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>
#include <QWheelEvent>

#include "app/edition/edition.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

using Action = std::function<void(Mirado&, Banc&)>;

// `fait` runs on the next modal dialog, once it is open.
void dansDialogue(Mirado& m, std::function<void(QWidget&)> fait)
{
    QTimer::singleShot(0, &m, [fait] {
        if (QWidget* d = QApplication::activeModalWidget())
            fait(*d);
    });
}
Action menu(const char* tableau, int index, std::optional<QString> reponse = {}, std::function<void(QWidget&)> d = {})
{
    return [=](Mirado& m, Banc& b) {
        b.reponses = {reponse};
        if (d)
            dansDialogue(m, d);
        article(m, tableau, index)->trigger();
    };
}
void clique(QWidget& d, const char* nom)
{
    controle<QPushButton>(d, nom)->click();
}
ZoneDessin* zone(Mirado& m)
{
    return m.findChild<ZoneDessin*>();
}
Lb3* label(Mirado& m)
{
    return m.findChild<CommandesEtiquettes*>()->controle(1);
}
// "Créer nouveau fichier" of a mode, answered `nom`.
Action nouveauCatalogue(const char* tableau, const char* nom)
{
    return [=](Mirado& m, Banc& b) { menu(tableau, int(articles(m, tableau).size()) - 1, nom)(m, b); };
}
void creeLabel(Mirado& m, Banc&)
{
    souris(zone(m), QEvent::MouseButtonRelease, {60, 40}, Qt::RightButton, Qt::NoButton, Qt::AltModifier);
}

TEST(Edition, ChaqueFamilleRevientExactementPuisSeRetablit)
{
    struct Cas {
        const char* nom;
        Action action;
        Action prepare = {};
    };
    const auto souris1 = [](QEvent::Type t, QPoint p, Qt::MouseButton b, Qt::MouseButtons tenus) {
        return [=](Mirado& m, Banc&) { souris(label(m), t, p, b, tenus); };
    };
    const Action deuxCrans = [](Mirado& m, Banc&) {
        for (int i = 0; i < 2; ++i) {
            QWheelEvent e({200, 200}, zone(m)->mapToGlobal(QPointF(200, 200)), {}, {0, 120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
            QApplication::sendEvent(zone(m), &e);
        }
    };
    const Cas cas[] = {
        {"le tracé", menu("mnufa", 3)},
        {"la rotation", [](Mirado& m, Banc&) { controle<QPushButton>(m, "Command5_0")->click(); }},
        {"le tour complet",  // three ticks of it, then undone whole
         [](Mirado& m, Banc& b) {
             menu("mnuroti", 0)(m, b);
             for (int i = 0; i < 3; ++i)
                 QMetaObject::invokeMethod(m.findChild<QTimer*>("Timer2"), "timeout");
         }},
        {"le zoom", deuxCrans},  // two turns of the wheel, one step
        {"la rotation à la souris",
         [](Mirado& m, Banc&) {
             glisse(zone(m), {100, 60}, {300, 200}, {});
         }},
        {"le déplacement du repère",
         [](Mirado& m, Banc&) {
             glisse(zone(m), {90, 60}, {300, 200}, Qt::ShiftModifier);
         },
         nouveauCatalogue("mnulico", "plan")},
        {"le réglage du repère",
         menu("mnupara", 0, {},
              [](QWidget& d) { controle<QLineEdit>(d, "Text1_0")->setText("-3"), clique(d, "Command1"); })},
        {"la couleur des courbes", menu("mnucl", 1)},
        {"la création d'un label", creeLabel},
        {"le déplacement d'un label",
         [&](Mirado& m, Banc& b) {
             souris1(QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton)(m, b);
             souris1(QEvent::MouseMove, {43, 23}, Qt::NoButton, Qt::LeftButton)(m, b);
             souris1(QEvent::MouseButtonRelease, {43, 23}, Qt::LeftButton, Qt::NoButton)(m, b);
         },
         creeLabel},
        {"la modification d'un label",
         [&](Mirado& m, Banc& b) {
             b.reponses = {QStringLiteral("2")};
             souris1(QEvent::MouseButtonRelease, {2, 2}, Qt::RightButton, Qt::NoButton)(m, b);
         },
         creeLabel},
        {"la suppression d'un label", souris1(QEvent::MouseButtonDblClick, {1, 1}, Qt::LeftButton, Qt::LeftButton),
         creeLabel},
        {"l'effacement de l'écran", menu("mnupara", 5)},
        {"la lecture d'une figure",  // read at another size: the window's size comes back too
         [](Mirado& m, Banc&) {
             m.choixFigure = [&m](QWidget*, const QString&, const QString&) {
                 return std::optional(QString::fromStdString(m.etat.fenetre.dossierFig) + "f.fig");
             };
             article(m, "mnumemfig", 1)->trigger();
         },
         [](Mirado& m, Banc& b) {
             menu("mnumemfig", 0, "f")(m, b);
             m.resize(700, 500), QApplication::processEvents(), m.suisTaille();
             menu("mnufa", 3)(m, b);
         }},
        {"le changement de catalogue", nouveauCatalogue("mnulifi", "neuf")},
        {"les points en mémoire", menu("mnuzo", 5, {},
                                       [](QWidget& d) {
                                           controle<QLineEdit>(d, "Text1")->setText("(1,2,3)"), clique(d, "Command5"),
                                               clique(d, "Command3");
                                       })},
        {"l'élagage", menu("mnupara", 8, {},
                           [](QWidget& d) {
                               controle<QListWidget>(d, "List2")->item(1)->setSelected(true), clique(d, "Command1"),
                                   clique(d, "Command2");
                           })},
        {"le retrait du dessin",  // the ticked curve 2 leaves the table, curve 1 stays
         [](Mirado& m, Banc& b) {
             menu("mnutra", 0, {}, [](QWidget& d) {
                 controle<QListWidget>(d, "List1")->item(0)->setCheckState(Qt::Unchecked), clique(d, "Command3");
             })(m, b);
             ASSERT_EQ(m.etat.courbes.nbCourbes, 1);
             EXPECT_EQ(m.etat.courbes.lignes[0][colNumero], 1);
         }},
    };
    for (const Cas& c : cas) {
        Banc b;
        Mirado& m = b.demarre(4);
        m.findChild<CommandesEtiquettes*>()->editeur = [](QWidget*, Etiquette& l) { return l.texte = "abc", true; };
        for (int n : {1, 2})
            article(m, "mnufa", n)->trigger();
        if (c.prepare)
            c.prepare(m, b);
        m.Command3_Click();
        auto* edition = m.findChild<Edition*>();
        edition->actualise();
        const std::size_t pas = edition->historique().nbAnnulables();
        const std::string catalogue = m.etat.catalogue.chemin, octets = lisFichier(catalogue);
        const EtatSession avant = instantane(m.etat);
        const QImage image = m.ecran().copy();
        const QRect cadre = m.geometry();

        c.action(m, b);
        edition->actualise();
        EXPECT_EQ(article(m, "mnuedit", 0)->text(), QStringLiteral("Annuler ") + QString::fromUtf8(c.nom));
        const EtatSession apres = instantane(m.etat);
        const std::string octetsApres = lisFichier(catalogue);
        EXPECT_TRUE(!(apres == avant) || octetsApres != octets || m.ecran() != image) << c.nom << ": rien n'a changé";

        article(m, "mnuedit", 0)->trigger();
        EXPECT_EQ(edition->historique().nbAnnulables(), pas) << c.nom << ": un seul pas";
        EXPECT_TRUE(instantane(m.etat) == avant) << c.nom;
        EXPECT_EQ(lisFichier(catalogue), octets) << c.nom;
        EXPECT_EQ(m.geometry(), cadre) << c.nom;
        EXPECT_EQ(m.ecran(), image) << c.nom;
        EXPECT_EQ(int(articles(m, "mnutra").size()), m.etat.courbes.nbCourbes + 1) << c.nom;
        const auto* labels = m.findChild<CommandesEtiquettes*>();
        const int n = m.etat.etiquettes.nombre();
        EXPECT_TRUE(labels->controle(n) && !labels->controle(n + 1)) << c.nom;
        EXPECT_EQ(article(m, "mnuedit", 1)->text(), QStringLiteral("Rétablir ") + QString::fromUtf8(c.nom));

        article(m, "mnuedit", 1)->trigger();
        EXPECT_TRUE(instantane(m.etat) == apres) << c.nom;
        EXPECT_EQ(lisFichier(catalogue), octetsApres) << c.nom;
    }
}

// The menu sits right after "Exporter", before "?"; empty, its entries are disabled;
// during a tracing undo is refused and the tracing goes on.
TEST(Edition, PlaceRaccourcisEtRefusPendantUnTrace)
{
    Banc b;
    Mirado& m = b.demarre(3);
    const QList<QAction*> barre = m.menuBar()->actions();
    const QMenu* edition = controle<QMenu>(m, "mnuedition");
    const auto place = [&](const char* nom) { return barre.indexOf(controle<QMenu>(m, nom)->menuAction()); };
    EXPECT_EQ(place("mnuedition") - 1, place("mnuexp"));
    EXPECT_LT(place("mnuedition"), place("mnua"));
    EXPECT_EQ(edition->title(), QStringLiteral("Édition"));
    QAction *annuler = article(m, "mnuedit", 0), *retablir = article(m, "mnuedit", 1);
    EXPECT_EQ(std::pair(annuler->shortcut(), retablir->shortcut()),
              std::pair(QKeySequence(Qt::CTRL | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)));
    EXPECT_FALSE(annuler->isEnabled() || retablir->isEnabled());
    article(m, "mnufa", 1)->trigger();
    m.etat.param.pauseMs = 40;
    QTimer::singleShot(0, &m, [&] {
        annuler->trigger();
        QKeyEvent echap(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(zone(m), &echap);
    });
    article(m, "mnufa", 2)->trigger();
    EXPECT_EQ(m.etat.courbes.nbCourbes, 2);
    ASSERT_EQ(b.messages.size(), 1);
    EXPECT_TRUE(b.messages[0].startsWith(QStringLiteral("Un tracé est en cours")));
}

}  // namespace
}  // namespace velorin::essai
