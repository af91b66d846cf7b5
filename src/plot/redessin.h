// One redraw of the picture: cleared to the background in force, the frame,
// rows of the drawn-curves table each with the values stored in it, entries
// of the catalogue drawn as new curves, then the labels where they stand.
// The window's commands, the export of a picture or of a full turn, the
// function editor's preview and the printed page all draw through here.
#pragma once
#include <functional>
#include <vector>

#include "base/erreur.h"
#include "plot/crochets.h"
#include "plot/demande.h"
#include "plot/etat.h"
#include "plot/table_courbes.h"
#include "view/surface.h"

namespace velorin {

// What one redraw draws, in this order. The view is set up by the caller.
struct Redessin {
    bool efface = true;  // the surface cleared to the background in force
    bool repere = true;  // the frame
    // Rows of the drawn-curves table (1-based) drawn again in this order,
    // each with its own values; a number outside the table is skipped.
    std::vector<int> lignes{};
    // Then these catalogue entries, each drawn as a new curve (a new row),
    // coloured by `couleurs` (an entry's rank is its place in the list).
    std::vector<int> entrees{};
    ModeCouleurs couleurs = ModeCouleurs::Unique;
    bool etiquettes = true;           // the labels last (the window shows its own over the picture)
    CrochetsTrace crochets{};         // pause, Escape, beep and caption of every curve
    std::function<void()> progres{};  // after the clearing and frame: the picture so far may be shown
    std::function<void()> avant{};    // before each curve
    // After each curve, with the options it was drawn with: false stops the
    // redraw. Without it the redraw stops at the first curve with a message.
    std::function<bool(const OptionsTrace&, const ResultatTrace&)> apres{};
};

// Rows 1 to nbCourbes: everything drawn.
std::vector<int> toutesLesLignes(const TableCourbes& table);

// Draws `quoi` on `surface`. A redraw that stops draws no labels and returns
// the message of the curve it stopped at (none when that curve had none).
Erreur redessine(Etat& etat, Surface& surface, const Redessin& quoi);

}  // namespace velorin
