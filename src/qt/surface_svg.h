// A drawing surface that writes an SVG picture as it draws: every shape goes
// out to the stream at once, so that the picture is never held in memory
// whatever the number of points (a painter on an SVG generator keeps the
// whole document until its end). It draws what the QPainter surface draws
// on an SVG device of the same size at 96 dpi: the same colours, pen widths,
// caps, dots, fonts and coordinates, the segments gathered into polylines
// the same way; the polylines are thinned to a twentieth of a pixel
// (view/simplification), far below what any viewer shows.
#pragma once
#include <ostream>
#include <string>
#include <vector>

#include "view/simplification.h"
#include "view/surface.h"

namespace velorin {

class SurfaceSvg : public Surface {
public:
    // Writes the document's head at once; `titre` is written as it is given
    // (already escaped for XML).
    SurfaceSvg(std::ostream& sortie, int largeurPx, int hauteurPx, const std::string& titre);
    ~SurfaceSvg() override;  // ends the document if termine() was not called

    void Line(double x1, double y1, double x2, double y2, Couleur couleur) override;
    void PSet(double x, double y, Couleur couleur) override;
    void Circle(double x, double y, double rayon, Couleur couleur) override;
    void Print(const std::string& texte) override;
    void Clear(Couleur fond) override;
    double Width() const override { return largeur_; }
    double Height() const override { return hauteur_; }
    double TextWidth(const std::string& texte) const override;
    double TextHeight() const override;
    void Acheve() override;
    // Writes what is held back and the document's end.
    void termine();

private:
    void rectangle(double x, double y, double l, double h, Couleur couleur);
    void trait(Couleur couleur, int largeur, int style);

    std::ostream& sortie_;
    double largeur_, hauteur_;
    bool fini_ = false;
    std::string texte_;  // the element being written
    // The polyline being gathered, in pixels, and its pen.
    std::vector<PointPlan> points_;
    Couleur traitCouleur_ = 0;
    int traitLargeur_ = 1, traitStyle_ = 0;
};

}  // namespace velorin
