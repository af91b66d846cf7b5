// The printed page of a drawing: the frame and every drawn curve drawn again
// on the page with its own values, the title, the legend of the drawn
// curves, the labels and the dated footer. Any surface serves as the page
// (the printer, a PDF file, the recording surface of the tests).
#pragma once
#include <string>

#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

// A moment as the footer tells it.
struct Horodatage {
    int annee = 2000, mois = 1, jour = 1;  // mois 1..12
    int heure = 0, minute = 0, seconde = 0;
};

// The date in French as "dddd dd mmm yyyy": the day's full name, the day
// of the month on two digits, the month's short name, the year
// ("mardi 03 nov. 2026", "dimanche 01 août 2027").
std::string dateFrancaise(const Horodatage& h);

// "c/o PLAVIER **** imprimé  le " + dateFrancaise + " à " + "hh:mm:ss".
std::string piedDePage(const Horodatage& h);

// Where the pieces of the page stand, in twips of the page.
inline constexpr double titreX = 200, titreY = 500;
inline constexpr double legendeTraitDebut = 100, legendeTraitFin = 400, legendeTexteX = 400;

// Draws the page on `page` (its whole size, in twips) from a copy of the
// state, so that the window's view and colours stay as they are:
//  - the frame and every row of the drawn-curves table, the view set up for
//    the page's size as for the window, on the paper's white with the
//    frame in black (the screen's background is not printed);
//  - "TRACE DES COURBES" at (200, 500) in Arial 10;
//  - under it one legend line per drawn curve: a short segment (x 100 to
//    400, DrawWidth 1) in the colour the curve was drawn in (black when it
//    has several) and its line of the drawn-curves list after "   ";
//  - the labels, their positions scaled from the window's drawing size
//    (etat.fenetre.largeurVue, hauteurVue) to the page's;
//  - the footer `pied` at the bottom left of the page.
// Returns the first message of a curve that could not be drawn again (the
// rest of the page is drawn all the same).
Erreur dessinePage(const Etat& etat, Surface& page, const std::string& pied);

}  // namespace velorin
