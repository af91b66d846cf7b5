// What the SVG and PDF surfaces share: a picture of a given size in pixels at
// 96 dpi, drawn as the QPainter surface draws on a device of that size (the
// same pens, squares for points, texts measured with Qt's fonts, segments
// gathered into polylines the same way), each shape handed at once to the
// format's writer instead of being kept, so that no picture is ever held in
// memory whatever the number of points. The polylines are thinned to a
// twentieth of a pixel (view/simplification), far below what a viewer shows.
// A change of colour or pen (a dashed hidden part after a seen one) ends
// the polyline, so that thinning never joins pieces of different styles.
// Coordinates handed to the writer are pixels, origin top left, y down.
#pragma once
#include <QFont>
#include <string>
#include <vector>

#include "qt/surface_qpainter.h"
#include "view/simplification.h"
#include "view/surface.h"

namespace velorin {

class SurfaceVectorielle : public Surface {
public:
    SurfaceVectorielle(int largeurPx, int hauteurPx);

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

protected:
    // The writer's shapes. A pen is a colour, a width in pixels (at least 1)
    // and a style (1: dashes six widths long, four apart, flat caps; 2: dots
    // one width long, two apart, flat caps; else round caps); joins are
    // round.
    virtual void rectangle(double x, double y, double l, double h, Couleur couleur) = 0;
    virtual void polyligne(const std::vector<PointPlan>& points, Couleur couleur, int largeur, int style) = 0;
    // A face: the polygon filled in `couleur`, with a hairline (half a pixel)
    // of the same colour round it that closes the seams a viewer's smoothing
    // leaves between neighbouring faces. At least three corners.
    virtual void face(const std::vector<PointPlan>& coins, Couleur couleur) = 0;
    virtual void cercle(double x, double y, double rayon, Couleur couleur, int largeur, int style) = 0;
    // `texte` (UTF-8) with its baseline starting at (x, y).
    virtual void ecrit(double x, double y, const QFont& police, Couleur couleur, const std::string& texte) = 0;

private:
    double largeur_, hauteur_;
    std::vector<PointPlan> points_;  // the polyline being gathered, in pixels
    std::vector<PointPlan> coins_;   // reused by Face
    Couleur traitCouleur_ = 0;
    int traitLargeur_ = 1, traitStyle_ = 0;
};

}  // namespace velorin
