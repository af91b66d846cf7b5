// Turning, zooming and the mouse in the main window: the buttons, menus and
// timers (ticks driven by calling them), the bindings through mouse events
// sent to the drawing, and the read-outs.
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "view/souris.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);
constexpr double cinq = 3.141592 / 36;

void souris(QWidget* z, QEvent::Type type, QPoint ici, Qt::MouseButton b, Qt::MouseButtons enfonces,
            Qt::KeyboardModifiers touches)
{
    QMouseEvent e(type, QPointF(ici), z->mapToGlobal(QPointF(ici)), b, enfonces, touches);
    QApplication::sendEvent(z, &e);
}

// A left-button drag from a to b in two moves; `pendant` runs before the release.
void glisse(QWidget* z, QPoint a, QPoint b, Qt::KeyboardModifiers touches, const std::function<void()>& pendant = {})
{
    souris(z, QEvent::MouseButtonPress, a, Qt::LeftButton, Qt::LeftButton, touches);
    souris(z, QEvent::MouseMove, (a + b) / 2, Qt::NoButton, Qt::LeftButton, touches);
    souris(z, QEvent::MouseMove, b, Qt::NoButton, Qt::LeftButton, touches);
    if (pendant)
        pendant();
    souris(z, QEvent::MouseButtonRelease, b, Qt::LeftButton, Qt::NoButton, touches);
}

void placeViseur(Mirado& m, double x, double y, float z)
{
    Parametres& p = m.etat.param;
    p.Xviseur = x, p.Yviseur = y, p.Zviseur = z;
    p.Xdirection = -x, p.Ydirection = -y, p.Zdirection = -z;
    p.Rotadir = 0;
    m.Command3_Click();
}

// The frame point under a pixel of the drawing, with the view in force.
QPointF pointSous(Mirado& m, QPoint pixel)
{
    const double k = m.etat.vue.W / m.findChild<ZoneDessin*>()->width();
    double x = 0, y = 0;
    EXPECT_TRUE(pointDuPlan(m.etat.vue, pixel.x() * k, pixel.y() * k, x, y));
    return {x, y};
}

TEST(Commandes, BoutonsDuClicSurEcran)
{
    struct Cas {
        Qt::MouseButton bouton;
        Qt::KeyboardModifiers touches;
        const char* menu;  // nullptr: a label is asked for
    };
    const Cas cas[] = {{Qt::MiddleButton, Qt::NoModifier, "mnupar"},
                       {Qt::MiddleButton, Qt::ShiftModifier, "mnutrace"},
                       {Qt::RightButton, Qt::NoModifier, "mnuz"},
                       {Qt::RightButton, Qt::AltModifier, nullptr}};
    Banc banc;
    Mirado& m = banc.demarre();
    auto* zone = m.findChild<ZoneDessin*>();
    int etiquettes = 0;
    QObject::connect(zone, &ZoneDessin::demandeEtiquette, [&](QPoint ici) { etiquettes += ici == QPoint(40, 30); });
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.menu ? c.menu : "label");
        souris(zone, QEvent::MouseButtonPress, {40, 30}, c.bouton, c.bouton, c.touches);
        souris(zone, QEvent::MouseButtonRelease, {40, 30}, c.bouton, Qt::NoButton, c.touches);
        for (const char* nom : {"mnupar", "mnutrace", "mnuz"}) {
            auto* menu = controle<QMenu>(m, nom);
            EXPECT_EQ(menu->isVisible(), c.menu && QByteArray(nom) == c.menu) << nom;
            menu->hide();
        }
        EXPECT_EQ(etiquettes, c.menu ? 0 : 1);
    }
}

TEST(Commandes, PasDesSixBoutons)
{
    // Each button turns in its plane (coordinates 0 x, 1 y, 2 z) by
    // -sens x 5 degrees from the angle 0.
    struct Cas {
        double x, y;
        float z;
        int premiere, seconde, fixe;
    };
    const Cas cas[] = {{10, 0, 3, 0, 1, 2}, {10, 2, 0, 0, 2, 1}, {2, 10, 0, 1, 2, 0}};
    Banc banc;
    Mirado& m = banc.demarre();
    const Parametres& p = m.etat.param;
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        const Cas& c = cas[i / 2];
        placeViseur(m, c.x, c.y, c.z);
        const double avant[3] = {c.x, c.y, c.z};
        const QImage image = m.ecran().copy();
        controle<QPushButton>(m, QStringLiteral("Command5_%1").arg(i))->click();
        const double v[3] = {p.Xviseur, p.Yviseur, p.Zviseur};
        const double angle = i % 2 == 0 ? -cinq : cinq;
        EXPECT_NEAR(v[c.premiere], 10 * std::cos(angle), 1e-6);
        EXPECT_NEAR(v[c.seconde], 10 * std::sin(angle), 1e-6);
        EXPECT_EQ(v[c.fixe], avant[c.fixe]);
        EXPECT_NE(m.ecran(), image);
        EXPECT_TRUE(
            controle<QLabel>(m, "Label3")->text().startsWith(QStringLiteral("Xv=%1").arg(p.Xviseur, 0, 'f', 2)));
        EXPECT_TRUE(m.etat.fenetre.pauseActive);
    }
}

TEST(Commandes, TourCompletParLesTicsDuTimer2)
{
    Banc banc;
    Mirado& m = banc.demarre();
    Parametres& p = m.etat.param;
    auto* timer2 = controle<QTimer>(m, "Timer2");
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        placeViseur(m, 6, 8, 4.5f);
        article(m, "mnuroti", i)->trigger();
        EXPECT_TRUE(timer2->isActive());
        EXPECT_EQ(timer2->interval(), 500);
        EXPECT_TRUE(m.etat.fenetre.pauseActive);
        // The entry's axis and sense: the angle in the plane of the axis
        // after the second tick (the tick arithmetic is the core's).
        auto angle = [&] {
            return i < 2 ? std::atan2(p.Yviseur, p.Xviseur)
                         : std::atan2(double(p.Zviseur), i < 4 ? p.Xviseur : p.Yviseur);
        };
        const double depart = angle();
        int tics = 0;
        for (; timer2->isActive() && tics < 100; ++tics) {
            m.Timer2_Timer();
            if (tics == 1) {
                EXPECT_NEAR(angle() - depart, i % 2 == 0 ? cinq : -cinq, 1e-6);
            }
        }
        EXPECT_LT(tics, 100);
        EXPECT_EQ(p.Xviseur, 6);
        EXPECT_EQ(p.Yviseur, 8);
        EXPECT_EQ(p.Zviseur, 4.5f);
    }
}

TEST(Commandes, RotationDeLaTete)
{
    for (int entree : {6, 7}) {
        Banc banc;
        Mirado& m = banc.demarre();
        m.etat.param.Rotadir = 1;
        auto* timer3 = controle<QTimer>(m, "Timer3");
        article(m, "mnuroti", entree)->trigger();
        EXPECT_TRUE(timer3->isActive());
        EXPECT_EQ(timer3->interval(), 1000);
        EXPECT_TRUE(controle<QRadioButton>(m, "Option2_6")->isChecked());
        // Step "1.0" of the list (5 degrees) and 9 degrees a tick: 26 ticks.
        int tics = 0;
        QImage avant;
        for (; timer3->isActive() && tics < 100; ++tics) {
            avant = m.ecran().copy();
            m.Timer3_Timer();
        }
        EXPECT_EQ(tics, 26);
        EXPECT_EQ(m.etat.param.Rotadir, 0);
        EXPECT_EQ(m.ecran(), avant);  // the last tick does not redraw
        article(m, "mnuroti", entree)->trigger();
        controle<QPushButton>(m, "Command7")->click();
        EXPECT_FALSE(timer3->isActive());
    }
}

TEST(Commandes, AngleSaisi)
{
    struct Cas {
        int index;
        std::optional<QString> reponse;
        bool tourne;
        const char* titre;
    };
    const Cas cas[] = {{0, QStringLiteral("3.2"), false, "Autour de l'axe (zz')"},
                       {0, QStringLiteral("3.1416"), true, "Autour de l'axe (zz')"},
                       {1, QStringLiteral("-1.5 radians"), true, "Autour de l'axe (yy')"},
                       {2, std::nullopt, false, "Autour de l'axe (xx')"},
                       {3, QStringLiteral("0.5"), true, "Rotation de la tête"}};
    Banc banc;
    Mirado& m = banc.demarre();
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.titre);
        placeViseur(m, 6, 8, 4);
        banc.saisies.clear();
        banc.reponses = {c.reponse};
        article(m, "mnurotan", c.index)->trigger();
        EXPECT_EQ(banc.saisies, QStringList{QString::fromUtf8(c.titre) +
                                            QStringLiteral(": valeur d'un angle en radian entre -pi et pi , svp")});
        const Parametres& p = m.etat.param;
        const bool bouge = p.Xviseur != 6 || p.Yviseur != 8 || p.Zviseur != 4 || p.Rotadir != 0;
        EXPECT_EQ(bouge, c.tourne);
    }
}

TEST(Commandes, ZoomFoisDeuxPuisDiviseParDeux)
{
    for (bool espace : {true, false}) {
        Banc banc;
        Mirado& m = banc.demarre();
        article(m, espace ? "mnulifi" : "mnulico", 0)->trigger();
        const Parametres avant = m.etat.param;
        const QString bornes = controle<QLabel>(m, "Label4")->text();
        article(m, "mnuzo", 2)->trigger();
        EXPECT_NEAR(m.etat.param.xmax - m.etat.param.xmin, (avant.xmax - avant.xmin) / 2, 1e-9);
        EXPECT_NE(controle<QLabel>(m, "Label4")->text(), bornes);
        article(m, "mnuzo", 3)->trigger();
        EXPECT_EQ(m.etat.param.xmin, avant.xmin);
        EXPECT_EQ(m.etat.param.ymax, avant.ymax);
        EXPECT_EQ(controle<QLabel>(m, "Label4")->text(), bornes);
    }
}

TEST(Commandes, GlisserDansLePlan)
{
    // Shift: the frame follows on release; plain: it pans live; Alt: the
    // rectangle over the picture and the question, applied on yes only.
    struct Cas {
        Qt::KeyboardModifiers touches;
        QPoint arrivee;
        bool oui, suit, loupe;
    };
    const Cas cas[] = {{Qt::ShiftModifier, {300, 200}, false, true, false},
                       {Qt::NoModifier, {90, 310}, false, true, false},
                       {Qt::AltModifier, {300, 200}, false, false, true},
                       {Qt::AltModifier, {300, 200}, true, false, true},
                       {Qt::AltModifier, {300, 60}, true, false, true}};  // flat
    for (const Cas& c : cas) {
        Banc banc;
        Mirado& m = banc.demarre();
        article(m, "mnulico", 0)->trigger();
        auto* zone = m.findChild<ZoneDessin*>();
        const QPoint depart(100, 60);
        const QPointF sous = pointSous(m, depart), coin = pointSous(m, c.arrivee);
        const Parametres avant = m.etat.param;
        const QImage image = m.ecran().copy();
        banc.reponseQuestion = c.oui;
        glisse(zone, depart, c.arrivee, c.touches, [&] {
            EXPECT_EQ(zone->loupe(), c.loupe ? QRect(depart, c.arrivee).normalized() : QRect());
            if (c.loupe) {
                EXPECT_EQ(m.ecran(), image);
            }
        });
        EXPECT_TRUE(zone->loupe().isNull());
        const bool plat = c.arrivee.y() == depart.y();
        EXPECT_EQ(banc.questions.size(), c.loupe && !plat ? 1 : 0);
        if (c.suit) {
            const QPointF apres = pointSous(m, c.arrivee);
            EXPECT_NEAR(apres.x(), sous.x(), 1e-9);
            EXPECT_NEAR(apres.y(), sous.y(), 1e-9);
        } else if (c.oui && !plat) {
            EXPECT_EQ(banc.questions[0], QStringLiteral("A VOTRE GUISE: Voulez-vous grossir la fenêtre dessinée?"));
            EXPECT_NEAR(m.etat.param.xmin, sous.x(), 1e-9);
            EXPECT_NEAR(m.etat.param.ymin, coin.y(), 1e-9);
        } else {
            EXPECT_EQ(m.etat.param.xmin, avant.xmin);
            EXPECT_EQ(m.etat.param.ymax, avant.ymax);
        }
    }
}

// Redraws of the mouse and of a resize skip the per-point pause, which the
// redraw of "O&K" takes (counted by the ticks of Timer5 that end pauses).
TEST(Commandes, SourisEtTailleSansPause)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
    Mirado& m = banc.demarre();
    placeViseur(m, 10, 0, 0);
    m.etat.param.pauseMs = 1;
    m.envoie(1);
    int pauses = 0;
    QObject::connect(controle<QTimer>(m, "Timer5"), &QTimer::timeout, [&] { ++pauses; });
    auto* zone = m.findChild<ZoneDessin*>();
    glisse(zone, {200, 200}, {260, 260}, Qt::NoModifier);  // 60 pixels: 30 degrees each way
    const Parametres& p = m.etat.param;
    EXPECT_NEAR(std::atan2(p.Yviseur, p.Xviseur), -30 * 3.141592 / 180, 1e-6);
    EXPECT_NEAR(std::asin(p.Zviseur / 10), 30 * 3.141592 / 180, 1e-6);
    QWheelEvent molette(QPointF(200, 200), zone->mapToGlobal(QPointF(200, 200)), {}, {0, 240}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(zone, &molette);
    EXPECT_NEAR(std::hypot(p.Xviseur, p.Yviseur, p.Zviseur), 10 / 1.44, 1e-5);
    m.suisTaille();
    EXPECT_EQ(pauses, 0);
    EXPECT_TRUE(m.etat.fenetre.pauseActive);
    m.Command3_Click();
    EXPECT_GT(pauses, 0);
}

TEST(Commandes, Lectures)
{
    Banc banc;
    Mirado& m = banc.demarre();
    auto* zone = m.findChild<ZoneDessin*>();
    auto* label1 = controle<QLabel>(m, "Label1");
    // Space, "Z fixe" on the value chosen in List1 at start (just above 0):
    // at the origin's image the point read is near the origin.
    placeViseur(m, 10, 4, 6);
    const double k = m.etat.vue.W / zone->width();
    const QPoint origine(int(std::lround(m.etat.vue.origineEcranX / k)),
                         int(std::lround(m.etat.vue.origineEcranY / k)));
    souris(zone, QEvent::MouseMove, origine, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    const QStringList espace = label1->text().split(QRegularExpression(QStringLiteral("[ =:\n]+")));
    ASSERT_EQ(espace.size(), 12) << label1->text().toStdString();
    const double z = controle<QListWidget>(m, "List1")->currentItem()->text().toDouble();
    EXPECT_EQ(espace[5], QString::number(z, 'f', 3));  // Z, the fixed coordinate
    for (int i : {1, 3, 7})                            // X, Y, R
        EXPECT_LT(std::fabs(espace[i].toDouble()), 0.1) << espace[i].toStdString();
    // The bubble repeats it, readable over the drawing, until Timer6 ticks.
    auto* label6 = controle<QLabel>(m, "Label6");
    EXPECT_EQ(label6->text(), label1->text());
    EXPECT_TRUE(label6->isVisible());
    const QPalette bulle = label6->palette();
    EXPECT_NE(bulle.color(label6->backgroundRole()), zone->palette().color(QPalette::Window));
    EXPECT_NE(bulle.color(label6->foregroundRole()), bulle.color(label6->backgroundRole()));
    auto* timer6 = controle<QTimer>(m, "Timer6");
    EXPECT_TRUE(timer6->isActive());
    QMetaObject::invokeMethod(timer6, "timeout");
    EXPECT_FALSE(label6->isVisible());
    EXPECT_TRUE(controle<QLabel>(m, "Label5")->text().startsWith(QStringLiteral("LF:")));
    // The plane: the frame point under the mouse.
    article(m, "mnulico", 0)->trigger();
    souris(zone, QEvent::MouseMove, {150, 90}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    const QPointF sous = pointSous(m, {150, 90});
    EXPECT_EQ(label1->text(), QStringLiteral("X=%1  Y=%2").arg(sous.x(), 0, 'f', 3).arg(sous.y(), 0, 'f', 3));
    // A key released: its code as "000".
    const std::pair<Qt::Key, const char*> touches[] = {
        {Qt::Key_A, "065"}, {Qt::Key_Return, "013"}, {Qt::Key_F11, "122"}, {Qt::Key_VolumeUp, "175"}};
    for (const auto& [cle, texte] : touches) {
        QKeyEvent touche(QEvent::KeyRelease, cle, Qt::NoModifier);
        QApplication::sendEvent(zone, &touche);
        EXPECT_EQ(label1->text(), QString::fromUtf8(texte));
    }
    // Label2's tip follows its caption.
    auto* label2 = controle<QLabel>(m, "Label2");
    label2->setText(QStringLiteral("Cht = 3"));
    souris(label2, QEvent::MouseMove, {2, 2}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    EXPECT_EQ(label2->toolTip(), QStringLiteral("Cht = 3"));
}

}  // namespace
}  // namespace velorin::essai
