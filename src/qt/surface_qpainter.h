// The drawing surface over any Qt paint device: the window's bitmap, an
// image, an SVG or PDF file, the printer. Coordinates are twips: one twip is
// 1/1440 inch, so a device of logical resolution D dots per inch has
// 1440 / D twips per (logical) pixel, 15 on a 96 dpi screen or image. On an
// image with a device pixel ratio (high-dpi bitmap) the twips map to its
// logical pixels and Qt draws at full resolution.
//
// Drawing is anti-aliased. Consecutive Lines that go on from the previous
// end point with the same colour and pen are gathered into one polyline,
// drawn when anything else happens (another operation, a change of pen, a
// text, Acheve(), the destruction): far faster than one call per segment.
// Wide pens are drawn in short pieces because a long wide anti-aliased
// polyline is very slow to stroke.
// DrawWidth counts pixels of a 96 dpi screen (15 twips each), so a printed
// or exported drawing keeps the look of the window. DrawStyle 1 is a dashed
// line, for the parts hidden by a surface (dashes six pen widths long, four
// apart: about 1.5 mm and 1 mm on a screen), DrawStyle 2 a dotted line (dots
// one pen width long, two apart); both have flat caps, so that the gaps stay
// open. A change of colour or pen ends the polyline being gathered, so a
// dashed piece is never stroked with the solid line it follows.
//
// Faces are filled without anti-aliasing on a bitmap, so that two faces
// sharing an edge leave no seam of the background between them; on a vector
// device (PDF, printer, SVG generator), where the viewer smooths each
// polygon on its own, a hairline of the face's colour round it closes the
// seam.
#pragma once
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QString>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

#include "view/surface.h"

namespace velorin {

// The Qt font of a surface's current font state (8 points when its size is not positive).
QFont policeDe(const Surface& s);

// The device rows a drawing may have reached, and the colour it was last
// cleared to: every other row holds that colour only.
struct LignesAtteintes {
    std::vector<char> atteinte;     // one per device row
    std::optional<Couleur> fond{};  // none: never cleared
};

class SurfaceQPainter : public Surface {
public:
    // Paints on `device` with a painter of its own, over the device's whole
    // size (in twips).
    explicit SurfaceQPainter(QPaintDevice& device);
    // Paints on `device` over a drawing area of the given size in twips.
    SurfaceQPainter(QPaintDevice& device, double largeurTwips, double hauteurTwips);
    // Paints with a painter that the caller has begun and keeps (e.g. over
    // the pages of a printer), over an area of the given size in twips.
    SurfaceQPainter(QPainter& painter, double largeurTwips, double hauteurTwips);
    ~SurfaceQPainter() override;

    void Line(double x1, double y1, double x2, double y2, Couleur couleur) override;
    void PSet(double x, double y, Couleur couleur) override;
    void Circle(double x, double y, double rayon, Couleur couleur) override;
    void Print(const std::string& texte) override;
    void Clear(Couleur fond) override;
    void Face(const double* xs, const double* ys, int n, Couleur couleur) override;
    double Width() const override { return largeur_; }
    double Height() const override { return hauteur_; }
    double TextWidth(const std::string& texte) const override;
    double TextHeight() const override;
    void Acheve() override;

    // Leaves out the lines, points, circles, faces and texts that cannot
    // reach the device rows [debut, fin): the painter is kept to those rows
    // by its clip, so this changes no pixel and only spares the work.
    void limiteAuxLignes(double debut, double fin)
    {
        ligneDebut_ = debut;
        ligneFin_ = fin;
        borne_ = true;
    }
    // Notes in `lignes` (kept alive by the caller) the device rows that each
    // drawing may reach, whether drawn or left out.
    void noteLignes(LignesAtteintes* lignes)
    {
        atteintes_ = lignes;
        borne_ = borne_ || lignes;
    }

    // Twips per logical pixel of the device (15 at 96 dpi).
    double twipsParPixel() const { return 1 / kx_; }
    QPainter& painter() { return *painter_; }

private:
    void prepare(QPaintDevice& device);
    QPointF point(double x, double y) const { return {x * kx_, y * ky_}; }
    // Pen width of `largeur` pixels, in device units.
    double epaisseur(int largeur) const;
    QPen stylo(Couleur couleur, int largeur, int style) const;
    // Whether a drawing over device rows haut..bas, whose pixels reach at
    // most `marge` beyond, is to be drawn (see limiteAuxLignes); its rows are
    // noted (see noteLignes).
    bool atteint(double haut, double bas, double marge);

    std::unique_ptr<QPainter> propre_;  // the painter this surface began, if any
    QPainter* painter_ = nullptr;
    double largeur_ = 0, hauteur_ = 0;
    double kx_ = 1, ky_ = 1;  // logical pixels per twip
    bool matriciel_ = true;   // the device is a bitmap
    QPolygonF face_;          // reused by Face
    double ligneDebut_ = -HUGE_VAL, ligneFin_ = HUGE_VAL;  // see limiteAuxLignes
    LignesAtteintes* atteintes_ = nullptr;                 // see noteLignes
    bool borne_ = false;  // rows limited or noted: the extent of each drawing is needed

    // The polyline being gathered and the pen it was started with.
    QPolygonF trait_;
    Couleur traitCouleur_ = 0;
    int traitLargeur_ = 1, traitStyle_ = 0;
};

// The colour of a surface colour value (red in the low byte).
QColor couleurQt(Couleur c);

// A blank image ready for a SurfaceQPainter, in the format that is quickest
// to draw on and to save: `largeurPx` x `hauteurPx` logical pixels at 96
// dpi, times `ratio` device pixels each (high-dpi).
QImage imagePourSurface(int largeurPx, int hauteurPx, qreal ratio = 1);

}  // namespace velorin
