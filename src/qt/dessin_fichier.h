// Drawing into a file: a picture of a given size in pixels in one of the
// output formats, written into a file being written whole (EcritureEntiere):
// a bitmap is drawn in memory then encoded, the vector formats and the
// journal go to the file as they are drawn. The single export and the per-tick files of an
// animated turn both go through here.
#pragma once
#include <QImage>
#include <functional>
#include <optional>
#include <string>

#include "base/ecriture.h"
#include "base/erreur.h"
#include "qt/surface_tikz.h"
#include "view/surface.h"

namespace velorin {

struct LignesAtteintes;  // qt/surface_qpainter.h

// The output formats, from the extension of the output file (case ignored).
// A ".fig" is not a picture: the command line writes the figure of what it
// drew; a ".gif" is the animation of a full turn.
enum class FormatSortie { Png, Svg, Pdf, Tex, Texte, Gif, Figure, Inconnu };
FormatSortie formatSortie(const std::string& chemin);

// What a picture holds, drawn on the surface it is given (W x H twips of
// the picture's size at 96 dpi).
using DessinSurface = std::function<Erreur(Surface&)>;

// Draws `dessin` in a picture of largeurPx x hauteurPx in `format` (PNG,
// SVG, PDF, TikZ (as `tex` asks) or the recording surface's journal) and
// writes it into `fichier`,
// which the caller then finishes (termine) or drops. `titre` is the SVG
// title. The drawing's own failure comes back as it is; a failure of the
// painter names fichier.cible().
Erreur dessineDansFichier(EcritureEntiere& fichier, FormatSortie format, int largeurPx, int hauteurPx,
                          const std::string& titre, const DessinSurface& dessin, const OptionsTex& tex = {});

// Rows [debut, fin) of a picture, and where to note the rows the drawing
// reaches (see SurfaceQPainter::noteLignes), if anywhere.
struct LignesImage {
    int debut = 0, fin = 0;
    LignesAtteintes* atteintes = nullptr;
};

// Draws `dessin` over the whole of `image` (made by imagePourSurface); a
// failure of the painter names `cible`. Given `seules`, only those rows are
// written, each pixel of them as the whole drawing makes it: the painter's
// clip is those rows and the two far corner pixels, so that its bounding box
// stays the whole picture and every line, text and face is computed as over
// the whole picture.
Erreur dessineSurImage(QImage& image, const DessinSurface& dessin, const std::string& cible,
                       std::optional<LignesImage> seules = std::nullopt);

}  // namespace velorin
