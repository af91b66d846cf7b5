#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "view/rotation.h"

namespace velorin {
namespace {

constexpr double a5 = rotaPI / 36;

Parametres viseur(double x, double y, float z)
{
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection) = std::tuple(x, y, z, 0, 0, 0);
    return p;
}

void attendViseur(const Parametres& p, double x, double y, double z)
{
    EXPECT_NEAR(p.Xviseur, x, 1e-12);
    EXPECT_NEAR(p.Yviseur, y, 1e-12);
    EXPECT_NEAR(p.Zviseur, z, 1e-6);
    EXPECT_EQ(std::tuple(p.Xdirection, p.Ydirection, p.Zdirection),
              std::tuple(-p.Xviseur, -p.Yviseur, -double(p.Zviseur)));
}

// One step: -sens x 5 degrees in the plane of the axis from atan(second /
// first), no quadrant correction, the continuity test about Oz only, and a
// zero first coordinate keeping the angle left from before.
TEST(RotationPas, UnPasDeCinqDegresSansCorrectionDeQuadrant)
{
    using C = std::tuple<Axe, Parametres, double, double, double, double>;
    const double c5 = 10 * std::cos(-a5), s5 = 10 * std::sin(-a5);
    for (auto [axe, avant, angPrec, x, y, z] :
         {C{Axe::Oz, viseur(10, 0, 4), 0, c5, s5, 4}, C{Axe::Ox, viseur(2, 10, 0), 0, 2, c5, s5},
          C{Axe::Oz, viseur(-10, 0, 1), rotaPI, 10 * std::cos(rotaPI - a5), 10 * std::sin(rotaPI - a5), 1},
          C{Axe::Oy, viseur(-10, 0, 0), rotaPI, c5, 0, s5},
          C{Axe::Oz, viseur(0, 10, 3), 0.3, 10 * std::cos(0.3 - a5), 10 * std::sin(0.3 - a5), 3},
          C{Axe::Oz, viseur(0, 0, 3), 0, 0, 0, 3},
          C{Axe::Ox, viseur(5, 0, 10), 1.0, 5, 10 * std::cos(1.0 - a5), 10 * std::sin(1.0 - a5)}}) {
        SCOPED_TRACE(::testing::Message() << "axe " << int(axe) << " angPrec " << angPrec);
        Parametres p = avant;
        EtatRotation r;
        r.angDepart = r.angPrec = angPrec;
        EXPECT_FALSE(tournicoti(p, r, axe, 0, 1));
        attendViseur(p, x, y, z);
        EXPECT_EQ(std::tuple(r.axeTour, r.XvDepart, r.ZvDepart, r.angPrec),
                  std::tuple(0, avant.Xviseur, avant.Zviseur, axe == Axe::Oz ? r.angDepart : angPrec));
    }
}

TEST(RotationAngle, AngleTapeBorneEtAxes)
{
    const double r104 = std::sqrt(104.0), a0 = std::atan(0.2);
    using C = std::tuple<int, double, bool, double, double, double, double>;
    // About Ox from Yv = 0: angDepart stays 0.
    for (auto [axe, angle, accepte, x, y, z, rotadir] :
         {C{0, 3.2, false, 10, 0, 2, 0.5}, C{3, -3.1417, false, 10, 0, 2, 0.5},
          C{0, 3.1416, true, 10 * std::cos(3.1416), 10 * std::sin(3.1416), 2, 0.5},
          C{1, -3.1416, true, r104 * std::cos(a0 - 3.1416), 0, r104 * std::sin(a0 - 3.1416), 0.5},
          C{2, -1.0, true, 10, 2 * std::cos(-1.0), 2 * std::sin(-1.0), 0.5}, C{3, 1.0, true, 10, 0, 2, 1.5}}) {
        SCOPED_TRACE(::testing::Message() << "axe " << axe << " angle " << angle);
        Parametres p = viseur(10, 0, 2);
        p.Rotadir = 0.5;
        EtatRotation r;
        const Erreur e = tournicotons(p, r, axe, angle);
        EXPECT_EQ(std::tuple(bool(e), e.message()), std::tuple(!accepte, ""));
        EXPECT_NEAR(p.Rotadir, rotadir, 1e-15);
        if (accepte && axe != 3)
            attendViseur(p, x, y, z);
        else
            EXPECT_EQ(p.Xdirection, 0);
    }
}

// The head turns by the "+p"/"-p" step and 9 degrees a tick, on whatever
// value choixReglage selects (0: the viewer's x), and stops after a whole
// turn with Rotadir 0 (the head's own setting: every redraw of "vision+-").
TEST(RotationTete, LePasDeLaListeVaAuReglageChoisi)
{
    Parametres p = viseur(10, 0, 0);
    p.Rotadir = 1.5;
    EtatRotation r;
    tournirot(p, r, 1);
    int ticks = 1;
    for (; pasDeTete(p, r, 0, 1) && ticks < 200; ++ticks)
        EXPECT_NEAR(p.Rotadir, ticks * rotaPI / 20, 1e-12);
    EXPECT_NEAR(ticks * rotaPI / 20, rotaTourComplet, rotaPI / 20);  // ends after a whole turn
    EXPECT_EQ(p.Rotadir, 0);
    EXPECT_NEAR(p.Xviseur, 10 + ticks, 1e-9);
}

// The redraws of a whole turn: about an axis, each on the circle of that
// axis (third coordinate kept, radius kept, looking at the origin), 5 degrees
// apart in the sense of the menu entry, the first at the start angle and one
// more redraw on the restored viewer; the head, 1000 ms apart, Rotadir moving
// by the "+p"/"-p" step plus 9 degrees, the viewer untouched.
TEST(RotationSuite, ChaqueVueDuTourCompletEtRetourExact)
{
    using C = std::tuple<const char*, double, double, float, double, double>;
    // "oz+" from -10: no quadrant correction, the first redraw jumps to the other side.
    for (auto [nom, x, y, z, premierX, premierY] :
         {C{"OZ-", 10, 0, 7.5f, 10, 0}, C{"oy+", 6, 2, 8, 6, 2}, C{"oy-", 6, 2, 8, 6, 2}, C{"ox+", 3, 4, 4, 3, 4},
          C{"oz+", -10, 0, 1, 10, 0}}) {
        SCOPED_TRACE(nom);
        const int index = tourDeNom(nom);
        ASSERT_GE(index, 0);
        const int sens = index % 2 == 0 ? 1 : -1;
        const Axe axe = index < 2 ? Axe::Oz : index < 4 ? Axe::Oy : Axe::Ox;
        const SuiteDuTour s = suiteDuTour(viseur(x, y, z), EtatRotation{}, index, 1.0);
        EXPECT_EQ(s.intervalleMs, 500);
        ASSERT_TRUE(s.vues.size() == 74u || s.vues.size() == 75u) << s.vues.size();
        const VueDuTour& fin = s.vues.back();
        EXPECT_EQ(std::tuple(fin.Xviseur, fin.Yviseur, fin.Zviseur), std::tuple(x, y, z));
        EXPECT_TRUE(axe != Axe::Oz || std::hypot(s.vues[0].Xviseur - premierX, s.vues[0].Yviseur - premierY) < 1e-12);
        double anglePrec = 0;
        for (std::size_t i = 0; i + 1 < s.vues.size(); ++i) {
            const VueDuTour& v = s.vues[i];
            EXPECT_EQ(std::tuple(v.Xdirection, v.Zdirection), std::tuple(-v.Xviseur, -double(v.Zviseur)));
            const double a = axe == Axe::Ox ? v.Yviseur : v.Xviseur;
            const double b = axe == Axe::Oz ? v.Yviseur : double(v.Zviseur);
            const double fixe = axe == Axe::Oz ? double(v.Zviseur) : axe == Axe::Oy ? v.Yviseur : v.Xviseur;
            EXPECT_EQ(fixe, axe == Axe::Oz ? double(z) : axe == Axe::Oy ? y : x);
            EXPECT_NEAR(std::hypot(a, b), std::hypot(axe == Axe::Ox ? y : x, axe == Axe::Oz ? y : z), 1e-5);
            const double angle = std::atan2(b, a);
            EXPECT_NEAR(i > 0 ? std::remainder(angle - anglePrec, 2 * M_PI) : sens * a5, sens * a5, 1e-6) << i;
            anglePrec = angle;
        }
    }
    for (const char* nom : {"vision+", "vision-"}) {
        SCOPED_TRACE(nom);
        const int sens = nom[6] == '+' ? 1 : -1;
        Parametres depart = viseur(10, 2, 3);
        depart.Rotadir = 2;
        const SuiteDuTour s = suiteDuTour(depart, EtatRotation{}, tourDeNom(nom), 1.0);
        EXPECT_EQ(s.intervalleMs, 1000);
        // 5 + 9 degrees a tick: 25 ticks stay within the turn, the 26th ends it.
        ASSERT_EQ(s.vues.size(), 25u);
        for (std::size_t i = 0; i < s.vues.size(); ++i) {
            EXPECT_NEAR(s.vues[i].Rotadir, sens * (i + 1.0) * (a5 + rotaPI / 20), 1e-12);
            EXPECT_EQ(std::tuple(s.vues[i].Xviseur, s.vues[i].Zviseur), std::tuple(10, 3.0f));
        }
    }
    // A step that cancels the head's own 9 degrees never ends the turn.
    EXPECT_EQ(suiteDuTour(viseur(1, 1, 1), EtatRotation{}, 6, -1.8, 40).vues.size(), 40u);
    EXPECT_TRUE(suiteDuTour(viseur(1, 1, 1), EtatRotation{}, 8, 1.0).vues.empty());
}

TEST(RotationSuite, NomsDesTours)
{
    using C = std::pair<const char*, int>;
    for (auto [nom, index] :
         {C{"oz+", 0}, C{"Oz-", 1}, C{"oy+", 2}, C{"OY-", 3}, C{"ox+", 4}, C{"ox-", 5}, C{"vision+", 6},
          C{"Vision-", 7}, C{"oz", -1}, C{"vision", -1}, C{"", -1}, C{"oz+ ", -1}, C{"ow+", -1}})
        EXPECT_EQ(std::pair(tourDeNom(nom), tourDeNom(nomDuTour(index))), std::pair(index, index)) << nom;
    EXPECT_STREQ(nomDuTour(8), "");
}

}  // namespace
}  // namespace velorin
