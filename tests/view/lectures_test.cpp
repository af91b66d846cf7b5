#include <gtest/gtest.h>

#include <tuple>

#include "commun/locale_virgule.h"
#include "view/lectures.h"
#include "view/placement.h"

namespace velorin {
namespace {

TEST(Lectures, TextesAuPointDecimalSousLocaleVirgule)
{
    LocaleVirgule virgule;  // "." whatever the locale
    Parametres p;
    std::tie(p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir) =
        std::tuple(10, -0.004, 2.5f, -1e308, 1234.567, -2.5, 3.14159);
    std::tie(p.xmin, p.xmax, p.ymin, p.ymax, p.zmin, p.zmax) = std::tuple(-10.5, 1e-5, -3, 12345678, -1.0f, 1);
    std::tie(p.tmin, p.tmax, p.pasT, p.amin, p.amax, p.pasA, p.pauseMs) = std::tuple(0, 6.28, 0.05, -1, 1, 0.1, 20);
    const std::pair<std::string, std::string> cas[] = {
        {texteViseur(p), "Xv=10.00  Xd=-1.00E+308\nYv=0.00  Yd=1234.57\nZv=2.50  Zd=-2.50\nRot=3.14"},
        {texteBornes(p),
         "x:[-10.5;1e-05]\ny:[-3;1.234568e+07]\nz:[-1;1]\nt:[0;6.28] pat=0.05\na:[-1;1] paa=0.1\npause=20"},
        {texteTaille(12345.4, 987.6), "LF:12345  HF:00988"},
        {texteLecturePlan(-1.23456, 0.0004), "X=-1.235  Y=0.000"},
        {texteLectureEspace(3, -4, 12, 0.25, -1), "X=3.000 Y=-4.000 Z=12.000\nR=13.000\nPx:0.250 Py:-1.000"},
        {texteLectureSansPoint(-0.5, 2), "Px:-0.500 Py:2.000"},
    };
    for (const auto& [texte, attendu] : cas)
        EXPECT_EQ(texte, attendu);
}

// A window's place read from a figure, on a screen of 1024 x 738 below a
// 30-pixel panel, with a frame of 4 on the sides and the bottom and 24 on top.
TEST(Placement, LaFenetreTientEntiereSurLEcran)
{
    const Cadre ecran{0, 30, 1024, 738};
    const Bords bords{4, 24, 4, 4};
    struct Cas {
        const char* defaut;  // what a window placed as read would do
        Cadre voulu, attendu;
    };
    for (const Cas& c : {
             Cas{"rien : elle tient déjà", {100, 100, 600, 400}, {100, 100, 600, 400}},
             Cas{"trop grande (1600 x 1000) : menus et colonne cachés", {0, 0, 1600, 1000}, {4, 54, 1016, 710}},
             Cas{"déborde à droite et en bas : déplacée seulement", {900, 600, 300, 200}, {720, 564, 300, 200}},
             Cas{"hors de l'écran en haut à gauche", {-5000, -5000, 300, 200}, {4, 54, 300, 200}},
             Cas{"trop petite pour servir", {10, 60, 20, 10}, {10, 60, 200, 150}},
         }) {
        const Cadre r = tiensSurEcran(c.voulu, ecran, bords, 200, 150);
        EXPECT_EQ(std::tie(r.x, r.y, r.largeur, r.hauteur),
                  std::tie(c.attendu.x, c.attendu.y, c.attendu.largeur, c.attendu.hauteur))
            << c.defaut;
    }
}

}  // namespace
}  // namespace velorin
