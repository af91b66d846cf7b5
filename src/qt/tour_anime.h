// The full turn drawn at once, without waiting for the timers: every redraw
// the timers would make (same viewing values, same end), each drawn as the
// window's redraw does it (view set-up, then the one redraw of plot/redessin),
// into an animated GIF or one numbered file per redraw. The command line and
// the window's "Exporter" menu both export through here.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "base/erreur.h"
#include "plot/etat.h"
#include "plot/redessin.h"
#include "view/rotation.h"
#include "view/surface.h"

namespace velorin {

// The pixels of all the pictures of a turn together: beyond, the export would
// run for minutes (a thousand 1920 x 1080 pictures stay within it).
inline constexpr double pixelsTourMax = 4e9;

struct DemandeTour {
    int tour = 0;          // index in the "Tour complet" menu (0..7, see nomDuTour)
    double pasTete = 1.0;  // the "+p"/"-p" step that the head turn also applies
    // "anim.gif", or a numbered name ("images/tour_%03d.png", .svg, .pdf or
    // .txt), numbered from 1.
    std::string sortie;
    int largeurPx = 1024, hauteurPx = 768;
    std::string titre;             // title of SVG files
    std::vector<std::string> lus;  // the files this export reads: never replaced
    // Called before each picture is drawn, with its number (from 1) and the
    // number of pictures.
    std::function<void(int, int)> image{};
    // The rows of a GIF picture drawn at a time (0: as many as fit in 128
    // kilobytes); each band is the same redraw again.
    int lignesParBande = 0;
};

struct ResultatTour {
    Erreur erreur;
    int images = 0;             // redraws written
    std::string avertissement;  // ranges refused and reset during the turn
};

// Draws every redraw of the turn started from `etat` and `rotation`, each
// one `quoi` (the message of a redraw that stops ends the export), and
// writes them: all the files whole, or none (every file is drawn to its
// temporary first, the names take their places only when all are drawn).
// The output and each numbered name are checked before anything is drawn.
// Afterwards etat holds the viewing values and view of the last redraw.
ResultatTour exporteTour(Etat& etat, const EtatRotation& rotation, const DemandeTour& demande, const Redessin& quoi);

}  // namespace velorin
