// Drawing catalogue entries into a file without a window: what the main
// window would show for a given size (clearing, frame, then each entry
// through the plot request), written as PNG, SVG, PDF or the recording
// surface's text journal. Shared by `velorin exporte` and `velorin sansfenetre`.
#pragma once
#include <string>

#include "base/erreur.h"
#include <vector>

namespace velorin {

struct DemandeRendu {
    bool espace = true;
    std::string catalogue;   // path of the .lsu file; must exist
    std::string parametres;  // parameter memory file; empty: the built-in values
    int largeurPx = 1024, hauteurPx = 768;
    std::vector<int> entrees;  // record numbers, drawn in this order
    // Loop order of the surfaces (0..3), chosen in the window's menu and not
    // kept in the parameter file; -1 keeps the start-up value.
    int ordreBoucles = -1;
    std::string sortie;  // .png, .svg, .pdf or .txt (case ignored)
};

struct ResultatRendu {
    Erreur erreur;                 // French, one line
    std::string avertissement;     // e.g. refused ranges reset; the file is written all the same
    std::vector<double> dureesMs;  // tracing time of each entry
};

// The output formats, from the extension of the output file.
enum class FormatSortie { Png, Svg, Pdf, Texte, Inconnu };
FormatSortie formatSortie(const std::string& chemin);

// Draws the request and writes `sortie` whole or not at all: every path is
// checked first (inputs readable, output in an existing folder and not one
// of the inputs), the drawing is made in memory, then written through
// EcritureEntiere. Needs a
// QGuiApplication for every format but the journal (see assureApplication).
ResultatRendu rendu(const DemandeRendu& demande);

// Creates the QGuiApplication when there is none, on the "offscreen"
// platform unless QT_QPA_PLATFORM names one that can start, so that fonts
// work without a display. The application lives until the end of the process.
void assureApplication();

}  // namespace velorin
