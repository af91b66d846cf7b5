// Drawing catalogue entries into a file without a window: what the main
// window would show for a given size (clearing, frame, then each entry
// through the plot request), written as PNG, SVG, PDF or the recording
// surface's text journal; or every redraw of a full turn of the view, as an
// animated GIF or one numbered file per redraw. Shared by `velorin exporte`
// and `velorin sansfenetre`.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/erreur.h"
#include "qt/dessin_fichier.h"
#include "settings/rendu.h"

namespace velorin {

// The longest side of a picture drawn without a window, in pixels: a
// 10000 x 10000 bitmap already takes 400 MB. A figure's window is bound by
// it too.
inline constexpr int coteImageMax = 10000;

struct DemandeRendu {
    bool espace = true;
    std::string catalogue;   // path of the .lsu file; must exist
    std::string parametres;  // parameter memory file; empty: the built-in values
    int largeurPx = 1024, hauteurPx = 768;
    std::vector<int> entrees;  // record numbers, drawn in this order
    // Loop order of the surfaces (0..3), chosen in the window's menu and not
    // kept in the parameter file; -1 keeps the start-up value.
    int ordreBoucles = -1;
    std::string sortie;  // .png, .svg, .pdf, .tex, .txt or .fig (case ignored)
    OptionsTex tex;      // a .tex: its width in centimetres, a whole document or not
    // A full turn (index in the "Tour complet" menu, see nomDuTour), -1 for
    // one picture. With a turn, `sortie` is a .gif or a numbered name
    // (images/tour_%03d.png).
    int tour = -1;
    double pasTete = 1.0;  // the "+p"/"-p" step of the head turn: the window's default
    // A saved figure drawn instead of catalogue entries: its mode, frame,
    // viewer, drawn curves (each with the values of its row) and labels.
    // Its catalogue (line 2) is looked for in `dossierCatalogue`, or when
    // that is empty in the user's curves folder of the figure's mode;
    // `catalogue`, `entrees` and `espace` are not read. The parameters not
    // kept in a figure come from `parametres`, else memoireParDefaut of the
    // catalogue's folder. A turn of a figure redraws its drawn curves.
    std::string figure;
    std::string dossierCatalogue;
    // The size was chosen: otherwise a figure is drawn at its window's size.
    bool tailleDonnee = false;
    // The drawing style asked. The other rendering settings, and the style
    // when none is asked, come from the "rendu.txt" beside the parameter
    // file in use, else from the one in the catalogue's folder, else are
    // the built-in ones ("Fil de fer", the program's perspective). A file
    // that cannot be read is told (a remark) and its settings are not used.
    std::optional<StyleRendu> style;
    // Told often while drawing (before each curve or picture, and every
    // few thousand points) the step in progress: "entrée k sur n",
    // "courbe k sur n" for a figure's rows, "image k sur n" in a turn.
    std::function<void(const std::string& etape)> progression{};
};

struct ResultatRendu {
    Erreur erreur;                 // French, one line
    std::string avertissement;     // e.g. refused ranges reset; the file is written all the same
    // A rendering file that cannot be read, then the entries of a kind no
    // editor writes, drawn all the same (as clouds): "entrée 3 : genre 255,
    // qu'aucun éditeur n'écrit ...", one a line.
    std::vector<std::string> remarques;
    std::vector<double> dureesMs;  // tracing time of each entry (of every redraw of a turn)
    int images = 0;                // files or GIF pictures written for a turn
};

// Draws the request and writes `sortie` whole or not at all: every path is
// checked first (inputs readable, output in an existing folder and not one
// of the inputs), the drawing goes to a temporary through EcritureEntiere
// (a bitmap drawn in memory first, the SVG, PDF and journal as they are
// drawn) which takes the output's name at the end. Memory running out is a
// message, the previous file intact. Needs a
// QGuiApplication for every format but the journal (see assureApplication).
ResultatRendu rendu(const DemandeRendu& demande);

// Creates the QGuiApplication when there is none, on the "offscreen"
// platform unless QT_QPA_PLATFORM names one that can start, so that fonts
// work without a display. The application lives until the end of the process.
void assureApplication();

// The parameter file a drawing takes when none is named: "mem.log" in
// `dossierCatalogue`, else the factory one of the mode; empty when neither
// exists (the built-in values).
std::string memoireParDefaut(const std::string& dossierCatalogue, bool espace);

}  // namespace velorin
