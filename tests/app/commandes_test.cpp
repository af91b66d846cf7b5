// Turning, zooming and the mouse in the main window: each control reaches
// its routine of the view module (done again here on a copy, which must give
// the same values), shows the values and redraws. What the routines compute
// is tested with them.
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWheelEvent>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "settings/memoire.h"
#include "view/lectures.h"
#include "view/souris.h"
#include "view/zoom.h"

namespace velorin::essai {
namespace {

using Routine = std::function<void(Parametres&, EtatRotation&, const Vue&, double k)>;  // k: twips a pixel
using Action = std::function<void(Mirado&, Banc&)>;

Action clic(const char* bouton)
{
    return [=](Mirado& m, Banc&) { controle<QPushButton>(m, bouton)->click(); };
}
// A menu entry; an input box, when `titre` is given, is asked under that
// title and answered `reponse` (nothing: cancelled).
Action menu(const char* tableau, int i, const char* reponse = nullptr, const char* titre = nullptr)
{
    return [=](Mirado& m, Banc& b) {
        b.reponses = {reponse ? std::optional(QString::fromUtf8(reponse)) : std::nullopt};
        b.saisies.clear();
        article(m, tableau, i)->trigger();
        if (titre) {
            EXPECT_EQ(b.saisies, QStringList{QString::fromUtf8(titre) +
                                             QStringLiteral(": valeur d'un angle en radian entre -pi et pi , svp")});
        }
    };
}
Action plusMoins(int option, const char* pas, const char* bouton)
{
    return [=](Mirado& m, Banc&) {
        controle<QRadioButton>(m, QStringLiteral("Option2_%1").arg(option))->click();
        auto* l = controle<QListWidget>(m, "List2");
        l->setCurrentItem(l->findItems(QString::fromUtf8(pas), Qt::MatchExactly).front());
        controle<QPushButton>(m, bouton)->click();
    };
}
void molette(Mirado& m, Banc&)
{
    auto* zone = m.findChild<ZoneDessin*>();
    QWheelEvent e(QPointF(200, 200), zone->mapToGlobal(QPointF(200, 200)), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QApplication::sendEvent(zone, &e);
}
// A drag from (100, 60); with Alt the magnifier is shown during the drag, and
// the zoom is offered unless the rectangle is flat.
Action glisser(Qt::KeyboardModifiers touches, bool oui = false, QPoint arrivee = {300, 200})
{
    return [=](Mirado& m, Banc& b) {
        b.reponseQuestion = oui;
        b.questions.clear();
        auto* zone = m.findChild<ZoneDessin*>();
        glisse(zone, {100, 60}, arrivee, touches,
               [&] { EXPECT_EQ(zone->loupe().isNull(), touches != Qt::AltModifier); });
        EXPECT_EQ(b.questions.size(), touches == Qt::AltModifier && arrivee.y() != 60 ? 1 : 0);
    };
}

// The routine a control must reach, on a copy of the values in force.
#define ROUTINE(...)                                                                                                   \
    []([[maybe_unused]] Parametres& p, [[maybe_unused]] EtatRotation& r, [[maybe_unused]] const Vue& v,                \
       [[maybe_unused]] double k) { __VA_ARGS__; }

// The space rows run with a curve drawn slowly: the mouse's redraws skip the
// per-point pause (no tick of Timer5), the others take it.
TEST(CommandesVue, ChaqueControleAtteintSaRoutineEtRedessine)
{
    struct Cas {
        bool plan;
        Action agit;
        Routine routine;
        int redessine = 1;  // 1 or 0: the picture changes or not; -1: either
        bool souris = false;
    };
    const Cas cas[] = {
        {false, clic("Command5_0"), ROUTINE(tournicoti(p, r, Axe::Oz, 0, 1))},
        {false, clic("Command5_1"), ROUTINE(tournicoti(p, r, Axe::Oz, 0, -1))},
        {false, clic("Command5_5"), ROUTINE(tournicoti(p, r, Axe::Ox, 0, -1))},
        {false, menu("mnurotan", 0, "0.5", "Autour de l'axe (zz')"),
         ROUTINE(static_cast<void>(tournicotons(p, r, 0, 0.5)))},
        {false, menu("mnurotan", 1, "-1.5 rad", "Autour de l'axe (yy')"),
         ROUTINE(static_cast<void>(tournicotons(p, r, 1, -1.5)))},
        {false, menu("mnurotan", 3, "0.5", "Rotation de la tête"),
         ROUTINE(static_cast<void>(tournicotons(p, r, 3, 0.5)))},
        {false, menu("mnurotan", 2, nullptr, "Autour de l'axe (xx')"), ROUTINE(), 0},
        {false, menu("mnuzo", 0), ROUTINE(grossir(p, 1, true))},
        {false, menu("mnuzo", 2), ROUTINE(grossir(p, 3, true))},
        // "+p"/"-p" add the step to the value chosen by Option2, without redrawing.
        {false, plusMoins(0, "2.0", "Command1"), ROUTINE(p.Xviseur += 2.0), 0},
        {false, plusMoins(4, "0.1", "Command2"), ROUTINE(p.Ydirection -= 0.1), 0},
        {false, glisser(Qt::NoModifier), ROUTINE(tourneVue(p, 100, 70), tourneVue(p, 100, 70)), 1, true},
        {false, molette, ROUTINE(grossirMolette(p, v, true, 2, 200 * k, 200 * k)), 1, true},
        {false, [](Mirado& m, Banc&) { m.suisTaille(); }, ROUTINE(), -1, true},
        {true, glisser(Qt::ShiftModifier), ROUTINE(redes(p, v, 200 * k, 140 * k)), 1, true},
        {true, glisser(Qt::NoModifier), ROUTINE(redes(p, v, 100 * k, 70 * k), redes(p, v, 100 * k, 70 * k)), 1, true},
        {true, glisser(Qt::AltModifier, true), ROUTINE(grossirLoupe(p, v, 100 * k, 60 * k, 300 * k, 200 * k))},
        {true, glisser(Qt::AltModifier, false), ROUTINE(), 0},
        {true, glisser(Qt::AltModifier, true, {300, 60}), ROUTINE(), 0},
        {true, menu("mnuzo", 2), ROUTINE(grossir(p, 3, false)), -1},
    };
    Banc banc;
    Mirado& m = banc.demarre(1);
    m.etat.param.pauseMs = 1;
    m.affou();
    m.envoie(1);
    int pauses = 0;
    QObject::connect(controle<QTimer>(m, "Timer5"), &QTimer::timeout, [&] { ++pauses; });
    const double k = m.etat.vue.W / m.findChild<ZoneDessin*>()->width();
    for (const Cas& c : cas) {
        SCOPED_TRACE(&c - cas);  // the row
        if (c.plan && !m.etat.fenetre.modePlan)
            article(m, "mnulico", 0)->trigger();
        if (!c.plan) {
            placeViseur(m.etat, 6, 8, 4);
            m.Command3_Click();
            m.affviseur();
        }
        Parametres attendu = m.etat.param;
        EtatRotation r = m.rotation();
        c.routine(attendu, r, m.etat.vue, k);
        const QImage avant = m.ecran().copy();
        pauses = 0;
        c.agit(m, banc);
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(attendu));
        EXPECT_TRUE(c.redessine < 0 || (m.ecran() != avant) == (c.redessine == 1));
        EXPECT_TRUE(c.plan || (pauses > 0) == (c.redessine == 1 && !c.souris));
        EXPECT_EQ(controle<QLabel>(m, "Label3")->text().toStdString(), texteViseur(m.etat.param));
        EXPECT_EQ(controle<QLabel>(m, "Label4")->text().toStdString(), texteBornes(m.etat.param));
    }
    EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
}

// In cavalière the rotation controls reach the cavalière routines: about
// Oz the solid turns and the picture is redrawn, the others say why.
TEST(CommandesVue, EnCavaliereLesRotationsTournentLeSolideOuLeDisent)
{
    struct Cas {
        Action agit;
        double tour;  // tourCavaliere after, from 0
        bool message;
    };
    const Cas cas[] = {{clic("Command5_0"), 5, false},
                       {clic("Command5_5"), 0, true},
                       {menu("mnurotan", 0, "0.5", "Autour de l'axe (zz')"), -0.5 * 180 / rotaPI, false},
                       {menu("mnuroti", 6), 0, true},
                       {glisser(Qt::NoModifier), 100, false}};  // 200 pixels right
    Banc banc;
    Mirado& m = banc.demarre(1);
    m.etat.rendu.cavaliere = true;
    m.envoie(1);
    for (const Cas& c : cas) {
        SCOPED_TRACE(&c - cas);
        m.etat.rendu.tourCavaliere = 0;
        m.Command3_Click();
        const QImage avant = m.ecran().copy();
        banc.messages.clear();
        c.agit(m, banc);
        EXPECT_NEAR(m.etat.rendu.tourCavaliere, c.tour, 1e-4);
        EXPECT_EQ(banc.messages.size(), c.message ? 1 : 0);
        EXPECT_EQ(m.ecran() != avant, !c.message);
    }
    // The full turn: Timer2's ticks turn the solid, the last one back to the start.
    auto* timer = controle<QTimer>(m, "Timer2");
    m.etat.rendu.tourCavaliere = 0;
    article(m, "mnuroti", 1)->trigger();
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_DOUBLE_EQ(m.etat.rendu.tourCavaliere, 5);
    for (int tics = 1; timer->isActive() && tics < 100; ++tics)
        QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(std::tuple(timer->isActive(), m.etat.rendu.tourCavaliere), std::tuple(false, 0.0));
}

// "Tour complet": each entry starts its timer, whose ticks give the redraws
// of the view module's turn, and stops it at the end.
TEST(CommandesVue, ToursCompletsParLesMinuteries)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const double pasListe = controle<QListWidget>(m, "List2")->currentItem()->text().toDouble();
    for (int i = 0; i < nbToursComplets; ++i) {
        SCOPED_TRACE(i);
        placeViseur(m.etat, 6, 8, 4.5);
        m.Command3_Click();
        const SuiteDuTour suite = suiteDuTour(m.etat.param, m.rotation(), i, pasListe);
        auto* timer = controle<QTimer>(m, i < 6 ? "Timer2" : "Timer3");
        article(m, "mnuroti", i)->trigger();
        ASSERT_TRUE(timer->isActive());
        EXPECT_EQ(timer->interval(), suite.intervalleMs);
        QMetaObject::invokeMethod(timer, "timeout");
        Parametres attendu = m.etat.param;
        appliqueVue(attendu, suite.vues.front());
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(attendu));
        int tics = 1;
        for (QImage image; timer->isActive() && tics < 1000; ++tics) {
            image = m.ecran().copy();
            QMetaObject::invokeMethod(timer, "timeout");
            // Each tick redraws the turned view; the head's last tick does not redraw.
            if (timer->isActive()) {
                EXPECT_NE(m.ecran(), image) << tics;
            } else if (i >= 6) {
                EXPECT_EQ(m.ecran(), image);
            }
        }
        EXPECT_LE(tics, int(suite.vues.size()) + 1);
        appliqueVue(attendu, suite.vues.back());
        attendu.Rotadir = 0;
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(attendu));
    }
}

// Middle, Shift+middle and right buttons open their menus; Alt+right asks for a label.
TEST(CommandesVue, BoutonsLecturesEtTouchesSurLeDessin)
{
    Banc banc;
    Mirado& m = banc.demarre();
    auto* zone = m.findChild<ZoneDessin*>();
    int etiquettes = 0;
    QObject::connect(zone, &ZoneDessin::demandeEtiquette, [&] { ++etiquettes; });
    for (const auto& [bouton, touches, menu] :
         {std::tuple{Qt::MiddleButton, Qt::NoModifier, "mnupar"},
          std::tuple{Qt::MiddleButton, Qt::ShiftModifier, "mnutrace"},
          std::tuple{Qt::RightButton, Qt::NoModifier, "mnuz"}, std::tuple{Qt::RightButton, Qt::AltModifier, ""}}) {
        souris(zone, QEvent::MouseButtonPress, {40, 30}, bouton, bouton, touches);
        souris(zone, QEvent::MouseButtonRelease, {40, 30}, bouton, Qt::NoButton, touches);
        for (const char* nom : {"mnupar", "mnutrace", "mnuz"}) {
            EXPECT_EQ(controle<QMenu>(m, nom)->isVisible(), QByteArray(nom) == menu) << nom;
            controle<QMenu>(m, nom)->hide();
        }
        EXPECT_EQ(etiquettes, *menu ? 0 : 1);
    }
    // The read-outs: the point under the mouse (space: on the coordinate fixed
    // by List1; the plane: the frame point) with its bubble, the keys, and
    // Label2's tip.
    auto* label1 = controle<QLabel>(m, "Label1");
    souris(zone, QEvent::MouseMove, {150, 90}, Qt::NoButton, Qt::NoButton);
    const double z = controle<QListWidget>(m, "List1")->currentItem()->text().toDouble();
    EXPECT_TRUE(label1->text().contains(QStringLiteral("Z=") + QString::number(z, 'f', 3)));
    auto* label6 = controle<QLabel>(m, "Label6");
    EXPECT_TRUE(label6->isVisible() && label6->text() == label1->text());
    EXPECT_NE(label6->palette().color(label6->backgroundRole()), zone->palette().color(QPalette::Window));
    EXPECT_TRUE(controle<QLabel>(m, "Label5")->text().startsWith(QStringLiteral("LF:")));
    QMetaObject::invokeMethod(controle<QTimer>(m, "Timer6"), "timeout");
    EXPECT_FALSE(label6->isVisible());
    article(m, "mnulico", 0)->trigger();
    souris(zone, QEvent::MouseMove, {150, 90}, Qt::NoButton, Qt::NoButton);
    const double k = m.etat.vue.W / zone->width();
    double x = 0, y = 0;
    ASSERT_TRUE(pointDuPlan(m.etat.vue, 150 * k, 90 * k, x, y));
    EXPECT_EQ(label1->text().toStdString(), texteLecturePlan(x, y));
    // A key released: its code as "000".
    for (const auto& [cle, texte] :
         {std::pair{Qt::Key_A, "065"}, std::pair{Qt::Key_Return, "013"}, std::pair{Qt::Key_Left, "037"},
          std::pair{Qt::Key_F11, "122"}, std::pair{Qt::Key_VolumeUp, "175"}}) {
        QKeyEvent touche(QEvent::KeyRelease, cle, Qt::NoModifier);
        QApplication::sendEvent(zone, &touche);
        EXPECT_EQ(label1->text(), QString::fromUtf8(texte));
    }
    auto* label2 = controle<QLabel>(m, "Label2");
    label2->setText(QStringLiteral("Cht = 3"));
    souris(label2, QEvent::MouseMove, {2, 2}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(label2->toolTip(), QStringLiteral("Cht = 3"));
}

}  // namespace
}  // namespace velorin::essai
