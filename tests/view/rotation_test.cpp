#include <gtest/gtest.h>

#include <cmath>

#include "view/rotation.h"

namespace velorin {
namespace {

Parametres viseur(double x, double y, float z)
{
    Parametres p;
    p.Xviseur = x;
    p.Yviseur = y;
    p.Zviseur = z;
    p.Xdirection = p.Ydirection = p.Zdirection = 0;
    return p;
}

void regardeOrigine(const Parametres& p)
{
    EXPECT_EQ(p.Xdirection, -p.Xviseur);
    EXPECT_EQ(p.Ydirection, -p.Yviseur);
    EXPECT_EQ(p.Zdirection, -double(p.Zviseur));
}

// The full turn about each axis in each sense: the start does not move the
// viewer, the first tick lands on the start angle, each tick moves 5 degrees
// in the sense asked, and the end restores the viewer exactly.
TEST(RotationTour, FullTurnEndsExactlyWhereItBegan)
{
    struct Cas {
        Axe axe;
        int sens;
        double x, y;
        float z;
    };
    const Cas cas[] = {{Axe::Oz, 1, 10, 0, 7.3f}, {Axe::Oz, -1, 10, 0, 7.3f}, {Axe::Ox, 1, 2.5, 10, 0},
                       {Axe::Ox, -1, 2.5, 10, 0}, {Axe::Oy, 1, 10, -1.5, 0},  {Axe::Oy, -1, 10, -1.5, 0},
                       {Axe::Oz, 1, 3, 4, -2.1f}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message()
                     << "axe " << int(c.axe) << " sens " << c.sens << " depart " << c.x << "," << c.y);
        Parametres p = viseur(c.x, c.y, c.z);
        EtatRotation r;
        ASSERT_TRUE(tournicoti(p, r, c.axe, 1, c.sens));
        EXPECT_EQ(r.axeTour, c.sens * int(c.axe));
        EXPECT_EQ(p.Xviseur, c.x);
        EXPECT_EQ(p.Yviseur, c.y);
        EXPECT_NEAR(r.angRota, r.angDepart - c.sens * rotaPI / 36, 1e-12);  // -5 degrees for sens +

        int ticks = 0;
        bool fini = false;
        while (!fini && ticks < 100) {
            const double avant = r.angRota;
            pasDuTour(p, r);
            ++ticks;
            EXPECT_NEAR(r.angRota - avant, c.sens * rotaPI / 36, 1e-12);
            regardeOrigine(p);
            if (ticks == 1) {  // back on the start angle
                EXPECT_NEAR(p.Xviseur, c.x, 1e-5);
                EXPECT_NEAR(p.Yviseur, c.y, 1e-5);
                EXPECT_NEAR(p.Zviseur, c.z, 1e-5);
            }
            fini = finDuTour(p, r);
        }
        EXPECT_GE(ticks, 73);
        EXPECT_LE(ticks, 74);
        EXPECT_EQ(r.axeTour, 0);
        EXPECT_EQ(p.Xviseur, c.x);
        EXPECT_EQ(p.Yviseur, c.y);
        EXPECT_EQ(p.Zviseur, c.z);
        regardeOrigine(p);
    }
}

// One step turns by -sens x 5 degrees in the plane of its axis; the third
// coordinate stays.
TEST(RotationPas, SingleStepValues)
{
    const double a = rotaPI / 36;
    struct Cas {
        Axe axe;
        int sens;
        Parametres avant;
        double x, y, z;
    };
    const Cas cas[] = {
        {Axe::Oz, 1, viseur(10, 0, 4), 10 * std::cos(-a), 10 * std::sin(-a), 4},
        {Axe::Oz, -1, viseur(10, 0, 4), 10 * std::cos(a), 10 * std::sin(a), 4},
        {Axe::Ox, 1, viseur(2, 10, 0), 2, 10 * std::cos(-a), 10 * std::sin(-a)},
        {Axe::Oy, -1, viseur(10, 2, 0), 10 * std::cos(a), 2, 10 * std::sin(a)},
        // No quadrant correction: from (-10, 0) the arctangent gives 0 and
        // the step lands on the +x side.
        {Axe::Oz, 1, viseur(-10, 0, 1), 10 * std::cos(-a), 10 * std::sin(-a), 1},
        {Axe::Oy, 1, viseur(-10, 0, 0), 10 * std::cos(-a), 0, 10 * std::sin(-a)},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "axe " << int(c.axe) << " sens " << c.sens);
        Parametres p = c.avant;
        EtatRotation r;
        EXPECT_FALSE(tournicoti(p, r, c.axe, 0, c.sens));
        EXPECT_EQ(r.axeTour, 0);
        EXPECT_NEAR(p.Xviseur, c.x, 1e-12);
        EXPECT_NEAR(p.Yviseur, c.y, 1e-12);
        EXPECT_NEAR(p.Zviseur, c.z, 1e-6);
        EXPECT_EQ(r.XvDepart, c.avant.Xviseur);
        EXPECT_EQ(r.ZvDepart, c.avant.Zviseur);
        regardeOrigine(p);
    }
}

// The continuity test moves the start angle by pi when it jumps more than
// 2.8 from the previous start, about Oz only.
TEST(RotationPas, ContinuityAboutOzOnly)
{
    const double a = rotaPI / 36;
    Parametres p = viseur(-10, 0, 0);
    EtatRotation r;
    r.angPrec = rotaPI;
    tournicotiz(p, r, 0, 1);
    EXPECT_NEAR(r.angDepart, rotaPI, 1e-12);
    EXPECT_EQ(r.angPrec, r.angDepart);
    EXPECT_NEAR(p.Xviseur, 10 * std::cos(rotaPI - a), 1e-12);

    p = viseur(-10, 0, 0);
    EtatRotation ry;
    ry.angPrec = rotaPI;
    tournicotiy(p, ry, 0, 1);
    EXPECT_EQ(ry.angDepart, 0);
    EXPECT_EQ(ry.angPrec, rotaPI);
    EXPECT_NEAR(p.Xviseur, 10 * std::cos(-a), 1e-12);
}

// A zero first coordinate: the arctangent is skipped and the step goes on
// with the angle left from before.
TEST(RotationPas, ZeroFirstCoordinateKeepsThePreviousAngle)
{
    const double a = rotaPI / 36;
    struct Cas {
        Axe axe;
        Parametres avant;
        double angAvant, x, y, z;
    };
    const Cas cas[] = {
        {Axe::Oz, viseur(0, 10, 3), 0.3, 10 * std::cos(0.3 - a), 10 * std::sin(0.3 - a), 3},
        {Axe::Oz, viseur(0, 0, 3), 0, 0, 0, 3},
        {Axe::Ox, viseur(5, 0, 10), 0, 5, 10 * std::cos(-a), 10 * std::sin(-a)},
        {Axe::Oy, viseur(0, 5, 0), 1.0, 0, 5, 0},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "axe " << int(c.axe));
        Parametres p = c.avant;
        EtatRotation r;
        r.angDepart = r.angPrec = c.angAvant;
        tournicoti(p, r, c.axe, 0, 1);
        EXPECT_EQ(r.angDepart, c.angAvant);
        EXPECT_NEAR(p.Xviseur, c.x, 1e-12);
        EXPECT_NEAR(p.Yviseur, c.y, 1e-12);
        EXPECT_NEAR(p.Zviseur, c.z, 1e-6);
    }
}

TEST(RotationAngle, TypedAngleRangeAndAxes)
{
    struct Cas {
        int axe;
        double angle;
        bool accepte;
        double x, y, z, rotadir;
    };
    const Cas cas[] = {
        {0, 3.2, false, 10, 0, 2, 0.5},
        {0, -3.2, false, 10, 0, 2, 0.5},
        {3, 3.1417, false, 10, 0, 2, 0.5},
        {0, 3.1416, true, 10 * std::cos(3.1416), 10 * std::sin(3.1416), 2, 0.5},
        {0, -3.1416, true, 10 * std::cos(-3.1416), 10 * std::sin(-3.1416), 2, 0.5},
        {1, 1.0, true, std::sqrt(104.0) * std::cos(std::atan(0.2) + 1), 0,
         std::sqrt(104.0) * std::sin(std::atan(0.2) + 1), 0.5},
        // About Ox from (y, z) = (0, 2): the arctangent is skipped, angDepart stays 0.
        {2, -1.0, true, 10, 2 * std::cos(-1.0), 2 * std::sin(-1.0), 0.5},
        {3, -3.1416, true, 10, 0, 2, 0.5 - 3.1416},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "axe " << c.axe << " angle " << c.angle);
        Parametres p = viseur(10, 0, 2);
        p.Rotadir = 0.5;
        EtatRotation r;
        const Erreur e = tournicotons(p, r, c.axe, c.angle);
        EXPECT_EQ(bool(e), !c.accepte);
        EXPECT_EQ(e.message(), "");
        EXPECT_EQ(angleAccepte(c.angle), c.accepte);
        EXPECT_NEAR(p.Xviseur, c.x, 1e-12);
        EXPECT_NEAR(p.Yviseur, c.y, 1e-12);
        EXPECT_NEAR(p.Zviseur, c.z, 1e-6);
        EXPECT_NEAR(p.Rotadir, c.rotadir, 1e-15);
        if (c.accepte && c.axe != 3) {
            regardeOrigine(p);
        } else {
            EXPECT_EQ(p.Xdirection, 0);
        }
    }
}

// The head turns by the "+p"/"-p" step and 9 degrees a tick, stops after a
// whole turn and leaves Rotadir at 0; the "+p" step goes to whatever value
// choixReglage selects at that tick.
TEST(RotationTete, HeadTurnEndsAtZero)
{
    struct Cas {
        int sens, choix;
        double pas;
        double parTick;   // change of Rotadir per tick
        double xParTick;  // change of Xviseur per tick
    };
    const Cas cas[] = {
        {1, 6, 0, rotaPI / 20, 0},
        {-1, 6, 0, -rotaPI / 20, 0},
        {1, 6, 1, rotaPI / 36 + rotaPI / 20, 0},
        {-1, 6, 2, -2 * rotaPI / 36 - rotaPI / 20, 0},
        {1, 0, 1, rotaPI / 20, 1},
        {-1, 0, 1, -rotaPI / 20, -1},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(::testing::Message() << "sens " << c.sens << " choix " << c.choix << " pas " << c.pas);
        Parametres p = viseur(10, 0, 0);
        p.Rotadir = 1.5;
        EtatRotation r;
        tournirot(p, r, c.sens);
        EXPECT_EQ(p.Rotadir, 0);
        int ticks = 0;
        double dernier = 0;
        while (ticks < 200) {
            const double avant = p.Rotadir;
            ++ticks;
            if (!pasDeTete(p, r, c.choix, c.pas))
                break;
            EXPECT_NEAR(p.Rotadir - avant, c.parTick, 1e-12);
            dernier = p.Rotadir;
        }
        EXPECT_EQ(p.Rotadir, 0);
        EXPECT_LE(std::fabs(dernier), rotaTourComplet);
        EXPECT_GT(std::fabs(dernier), rotaTourComplet - std::fabs(c.parTick));
        EXPECT_NEAR(p.Xviseur, 10 + ticks * c.xParTick, 1e-9);
    }
}

}  // namespace
}  // namespace velorin
