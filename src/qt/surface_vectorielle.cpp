#include "qt/surface_vectorielle.h"

#include <QFontMetricsF>
#include <QImage>
#include <QString>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr double pixelsParTwip = 1 / twipsParPixelEcran;
constexpr std::size_t piecesLargesMax = 8;    // points of a wide polyline piece, as on a painter
constexpr std::size_t piecesFinesMax = 4096;  // points of a 1-pixel polyline
constexpr double tolerancePx = 1.0 / 20;      // thinning of the polylines

// The fonts are measured at 96 dpi, the resolution of the picture.
const QPaintDevice& appareil96()
{
    static const QImage image = [] {
        QImage i(1, 1, QImage::Format_RGB32);
        i.setDotsPerMeterX(3780);
        i.setDotsPerMeterY(3780);
        return i;
    }();
    return image;
}

}  // namespace

SurfaceVectorielle::SurfaceVectorielle(int largeurPx, int hauteurPx)
    : largeur_(largeurPx * twipsParPixelEcran), hauteur_(hauteurPx * twipsParPixelEcran)
{ }

void SurfaceVectorielle::Acheve()
{
    if (points_.size() >= 2) {
        simplifiePolyligne(points_, tolerancePx);
        polyligne(points_, traitCouleur_, std::max(1, traitLargeur_), traitStyle_);
    }
    points_.clear();
}

void SurfaceVectorielle::Line(double x1, double y1, double x2, double y2, Couleur c)
{
    const PointPlan a{x1 * pixelsParTwip, y1 * pixelsParTwip}, b{x2 * pixelsParTwip, y2 * pixelsParTwip};
    CurrentX = x2;
    CurrentY = y2;
    if (a == b)
        return;  // nothing shown, the polyline goes on (see SurfaceQPainter::Line)
    const bool suite = !points_.empty() && points_.back() == a && c == traitCouleur_ &&
                       DrawWidth == traitLargeur_ && DrawStyle == traitStyle_;
    const std::size_t max = DrawWidth > 1 ? piecesLargesMax : piecesFinesMax;
    if (!suite || points_.size() >= max) {
        Acheve();
        points_.push_back(a);
        traitCouleur_ = c;
        traitLargeur_ = DrawWidth;
        traitStyle_ = DrawStyle;
    }
    points_.push_back(b);
}

void SurfaceVectorielle::PSet(double x, double y, Couleur c)
{
    Acheve();
    // A square of the pen's width aligned on the pixels, as on a painter.
    const double cote = std::max(1, DrawWidth);
    const double cx = x * pixelsParTwip, cy = y * pixelsParTwip;
    rectangle(std::floor(cx - cote / 2 + 0.5), std::floor(cy - cote / 2 + 0.5), cote, cote, c);
    CurrentX = x;
    CurrentY = y;
}

void SurfaceVectorielle::Face(const double* xs, const double* ys, int n, Couleur c)
{
    if (n < 3)
        return;
    Acheve();
    coins_.resize(std::size_t(n));
    for (int i = 0; i < n; ++i)
        coins_[std::size_t(i)] = {xs[i] * pixelsParTwip, ys[i] * pixelsParTwip};
    face(coins_, c);
}

void SurfaceVectorielle::Circle(double x, double y, double rayon, Couleur c)
{
    Acheve();
    cercle(x * pixelsParTwip, y * pixelsParTwip, rayon * pixelsParTwip, c, std::max(1, DrawWidth), DrawStyle);
}

void SurfaceVectorielle::Print(const std::string& texte)
{
    Acheve();
    const QFont f = policeDe(*this);
    const QFontMetricsF m(f, &appareil96());
    ecrit(CurrentX * pixelsParTwip, CurrentY * pixelsParTwip + m.ascent(), f, ForeColor, texte);
    CurrentX = 0;
    CurrentY += TextHeight();
}

void SurfaceVectorielle::Clear(Couleur fond)
{
    points_.clear();
    rectangle(0, 0, largeur_ * pixelsParTwip, hauteur_ * pixelsParTwip, fond);
    CurrentX = 0;
    CurrentY = 0;
}

double SurfaceVectorielle::TextWidth(const std::string& texte) const
{
    const QFontMetricsF m(policeDe(*this), &appareil96());
    return m.horizontalAdvance(QString::fromStdString(texte)) * twipsParPixelEcran;
}

double SurfaceVectorielle::TextHeight() const
{
    const QFontMetricsF m(policeDe(*this), &appareil96());
    return m.height() * twipsParPixelEcran;
}

}  // namespace velorin
