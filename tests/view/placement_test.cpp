#include "view/placement.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

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
        EXPECT_EQ(r.x, c.attendu.x) << c.defaut;
        EXPECT_EQ(r.y, c.attendu.y) << c.defaut;
        EXPECT_EQ(r.largeur, c.attendu.largeur) << c.defaut;
        EXPECT_EQ(r.hauteur, c.attendu.hauteur) << c.defaut;
    }
}

}  // namespace
}  // namespace velorin
