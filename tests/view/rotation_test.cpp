#include <gtest/gtest.h>

#include <cmath>

#include "view/rotation.h"

namespace velorin {
namespace {

constexpr double a5 = rotaPI / 36;

Parametres viseur(double x, double y, float z)
{
    Parametres p;
    p.Xviseur = x;
    p.Yviseur = y;
    p.Zviseur = z;
    p.Xdirection = p.Ydirection = p.Zdirection = 0;
    return p;
}

void attendViseur(const Parametres& p, double x, double y, double z)
{
    EXPECT_NEAR(p.Xviseur, x, 1e-12);
    EXPECT_NEAR(p.Yviseur, y, 1e-12);
    EXPECT_NEAR(p.Zviseur, z, 1e-6);
    EXPECT_EQ(p.Xdirection, -p.Xviseur);
    EXPECT_EQ(p.Ydirection, -p.Yviseur);
    EXPECT_EQ(p.Zdirection, -double(p.Zviseur));
}

// One step: -sens x 5 degrees in the plane of the axis from atan(second /
// first), no quadrant correction, the continuity test about Oz only, and a
// zero first coordinate keeping the angle left from before.
TEST(RotationPas, UnPasDeCinqDegresSansCorrectionDeQuadrant)
{
    struct Cas {
        Axe axe;
        int sens;
        Parametres avant;
        double angPrec;  // also the angDepart left from before
        double x, y, z;
    };
    const Cas cas[] = {
        {Axe::Oz, 1, viseur(10, 0, 4), 0, 10 * std::cos(-a5), 10 * std::sin(-a5), 4},
        {Axe::Ox, 1, viseur(2, 10, 0), 0, 2, 10 * std::cos(-a5), 10 * std::sin(-a5)},
        {Axe::Oz, 1, viseur(-10, 0, 1), rotaPI, 10 * std::cos(rotaPI - a5), 10 * std::sin(rotaPI - a5), 1},
        {Axe::Oy, 1, viseur(-10, 0, 0), rotaPI, 10 * std::cos(-a5), 0, 10 * std::sin(-a5)},
        {Axe::Oz, 1, viseur(0, 10, 3), 0.3, 10 * std::cos(0.3 - a5), 10 * std::sin(0.3 - a5), 3},
        {Axe::Oz, 1, viseur(0, 0, 3), 0, 0, 0, 3},
        {Axe::Ox, 1, viseur(5, 0, 10), 1.0, 5, 10 * std::cos(1.0 - a5), 10 * std::sin(1.0 - a5)},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "axe " << int(c.axe) << " sens " << c.sens << " angPrec " << c.angPrec);
        Parametres p = c.avant;
        EtatRotation r;
        r.angDepart = r.angPrec = c.angPrec;
        EXPECT_FALSE(tournicoti(p, r, c.axe, 0, c.sens));
        EXPECT_EQ(r.axeTour, 0);
        attendViseur(p, c.x, c.y, c.z);
        EXPECT_EQ(r.XvDepart, c.avant.Xviseur);
        EXPECT_EQ(r.ZvDepart, c.avant.Zviseur);
        EXPECT_EQ(r.angPrec, c.axe == Axe::Oz ? r.angDepart : c.angPrec);
    }
}

TEST(RotationAngle, AngleTapeBorneEtAxes)
{
    const double r104 = std::sqrt(104.0), a0 = std::atan(0.2);
    struct Cas {
        int axe;
        double angle;
        bool accepte;
        double x, y, z, rotadir;
    };
    const Cas cas[] = {
        {0, 3.2, false, 10, 0, 2, 0.5},
        {3, -3.1417, false, 10, 0, 2, 0.5},
        {0, 3.1416, true, 10 * std::cos(3.1416), 10 * std::sin(3.1416), 2, 0.5},
        {1, -3.1416, true, r104 * std::cos(a0 - 3.1416), 0, r104 * std::sin(a0 - 3.1416), 0.5},
        {2, -1.0, true, 10, 2 * std::cos(-1.0), 2 * std::sin(-1.0), 0.5},  // Yv = 0: angDepart stays 0
        {3, 1.0, true, 10, 0, 2, 1.5},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "axe " << c.axe << " angle " << c.angle);
        Parametres p = viseur(10, 0, 2);
        p.Rotadir = 0.5;
        EtatRotation r;
        const Erreur e = tournicotons(p, r, c.axe, c.angle);
        EXPECT_EQ(bool(e), !c.accepte);
        EXPECT_EQ(e.message(), "");
        EXPECT_NEAR(p.Rotadir, c.rotadir, 1e-15);
        if (c.accepte && c.axe != 3)
            attendViseur(p, c.x, c.y, c.z);
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
    struct Cas {
        const char* nom;
        double x, y;
        float z;
        double premierX, premierY;  // viewer of the first redraw (about Oz)
    };
    const Cas
        cas[] =
            {
                {"OZ-", 10, 0, 7.5f, 10, 0}, {"oy+", 6, 2, 8, 6, 2}, {"oy-", 6, 2, 8, 6, 2}, {"ox+", 3, 4, 4, 3, 4},
                {"oz+", -10, 0, 1, 10, 0},  // no quadrant correction: the first redraw jumps to the other side
            };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.nom);
        const int index = tourDeNom(c.nom);
        ASSERT_GE(index, 0);
        const int sens = index % 2 == 0 ? 1 : -1;
        const Axe axe = index < 2 ? Axe::Oz : index < 4 ? Axe::Oy : Axe::Ox;
        const SuiteDuTour s = suiteDuTour(viseur(c.x, c.y, c.z), EtatRotation{}, index, 1.0);
        EXPECT_EQ(s.intervalleMs, 500);
        ASSERT_GE(s.vues.size(), 74u);
        ASSERT_LE(s.vues.size(), 75u);
        const VueDuTour& fin = s.vues.back();
        EXPECT_EQ(fin.Xviseur, c.x);
        EXPECT_EQ(fin.Yviseur, c.y);
        EXPECT_EQ(fin.Zviseur, c.z);
        if (axe == Axe::Oz) {
            EXPECT_NEAR(s.vues[0].Xviseur, c.premierX, 1e-12);
            EXPECT_NEAR(s.vues[0].Yviseur, c.premierY, 1e-12);
        }
        double anglePrec = 0;
        for (std::size_t i = 0; i + 1 < s.vues.size(); ++i) {
            const VueDuTour& v = s.vues[i];
            EXPECT_EQ(v.Xdirection, -v.Xviseur);
            EXPECT_EQ(v.Zdirection, -double(v.Zviseur));
            const double a = axe == Axe::Ox ? v.Yviseur : v.Xviseur;
            const double b = axe == Axe::Oz ? v.Yviseur : double(v.Zviseur);
            const double fixe = axe == Axe::Oz ? double(v.Zviseur) : axe == Axe::Oy ? v.Yviseur : v.Xviseur;
            EXPECT_EQ(fixe, axe == Axe::Oz ? double(c.z) : axe == Axe::Oy ? c.y : c.x);
            EXPECT_NEAR(std::hypot(a, b), std::hypot(axe == Axe::Ox ? c.y : c.x, axe == Axe::Oz ? c.y : c.z), 1e-5);
            const double angle = std::atan2(b, a);
            if (i > 0) {
                EXPECT_NEAR(std::remainder(angle - anglePrec, 2 * M_PI), sens * a5, 1e-6) << i;
            }
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
            EXPECT_EQ(s.vues[i].Xviseur, 10);
            EXPECT_EQ(s.vues[i].Zviseur, 3);
        }
    }
    // A step that cancels the head's own 9 degrees never ends the turn.
    EXPECT_EQ(suiteDuTour(viseur(1, 1, 1), EtatRotation{}, 6, -1.8, 40).vues.size(), 40u);
    EXPECT_TRUE(suiteDuTour(viseur(1, 1, 1), EtatRotation{}, 8, 1.0).vues.empty());
}

TEST(RotationSuite, NomsDesTours)
{
    const std::pair<const char*, int> cas[] = {{"oz+", 0}, {"Oz-", 1},     {"oy+", 2},     {"OY-", 3}, {"ox+", 4},
                                               {"ox-", 5}, {"vision+", 6}, {"Vision-", 7}, {"oz", -1}, {"vision", -1},
                                               {"", -1},   {"oz+ ", -1},   {"ow+", -1}};
    for (auto [nom, index] : cas) {
        EXPECT_EQ(tourDeNom(nom), index) << nom;
        if (index >= 0) {
            EXPECT_EQ(tourDeNom(nomDuTour(index)), index) << nom;
        }
    }
    EXPECT_STREQ(nomDuTour(8), "");
}

}  // namespace
}  // namespace velorin
