#include "qt/surface_svg.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QString>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace velorin {

namespace {

constexpr double pixelsParTwip = 1 / twipsParPixelEcran;
constexpr std::size_t piecesLargesMax = 8;    // points of a wide polyline piece, as on a painter
constexpr std::size_t piecesFinesMax = 4096;  // points of a 1-pixel polyline
constexpr double tolerancePx = 1.0 / 20;      // thinning of the polylines

// A number as the SVG generator writes it: six significant digits.
void nombre(std::string& s, double v)
{
    char tampon[32];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::general, 6).ptr;
    s.append(tampon, fin);
}

void couleur(std::string& s, Couleur c)
{
    static const char hex[] = "0123456789abcdef";
    s += '#';
    for (int decalage : {0, 8, 16}) {
        const unsigned octet = (c >> decalage) & 0xFF;
        s += hex[octet >> 4];
        s += hex[octet & 15];
    }
}

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

QFont police(const Surface& s)
{
    QFont f(QString::fromStdString(s.FontName));
    f.setPointSizeF(s.FontSize > 0 ? s.FontSize : 8);
    f.setBold(s.FontBold);
    f.setItalic(s.FontItalic);
    f.setUnderline(s.FontUnderline);
    return f;
}

}  // namespace

SurfaceSvg::SurfaceSvg(std::ostream& sortie, int largeurPx, int hauteurPx, const std::string& titre)
    : sortie_(sortie), largeur_(largeurPx * twipsParPixelEcran), hauteur_(hauteurPx * twipsParPixelEcran)
{
    std::string& s = texte_;
    s = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n<svg width=\"";
    nombre(s, largeurPx * 25.4 / 96);
    s += "mm\" height=\"";
    nombre(s, hauteurPx * 25.4 / 96);
    s += "mm\"\n viewBox=\"0 0 " + std::to_string(largeurPx) + ' ' + std::to_string(hauteurPx) +
         "\"\n xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.2\" "
         "baseProfile=\"tiny\">\n<title>" +
         titre + "</title>\n<desc>Velorin</desc>\n";
    sortie_ << s;
}

SurfaceSvg::~SurfaceSvg()
{
    termine();
}

void SurfaceSvg::termine()
{
    if (fini_)
        return;
    Acheve();
    sortie_ << "</svg>\n";
    sortie_.flush();
    fini_ = true;
}

void SurfaceSvg::rectangle(double x, double y, double l, double h, Couleur c)
{
    std::string& s = texte_;
    s = "<rect x=\"";
    nombre(s, x);
    s += "\" y=\"";
    nombre(s, y);
    s += "\" width=\"";
    nombre(s, l);
    s += "\" height=\"";
    nombre(s, h);
    s += "\" fill=\"";
    couleur(s, c);
    s += "\" stroke=\"none\"/>\n";
    sortie_ << s;
}

// The pen of the QPainter surface: round caps and joins, or flat caps and
// dots one pen width long, two apart.
void SurfaceSvg::trait(Couleur c, int largeur, int style)
{
    const int l = std::max(1, largeur);
    std::string& s = texte_;
    s += " fill=\"none\" stroke=\"";
    couleur(s, c);
    s += "\" stroke-width=\"" + std::to_string(l) + "\" stroke-linejoin=\"round\" stroke-linecap=\"";
    if (style == 2)
        s += "butt\" stroke-dasharray=\"" + std::to_string(l) + ',' + std::to_string(2 * l) + "\"";
    else
        s += "round\"";
}

void SurfaceSvg::Acheve()
{
    if (points_.size() >= 2) {
        simplifiePolyligne(points_, tolerancePx);
        std::string& s = texte_;
        s = "<polyline";
        trait(traitCouleur_, traitLargeur_, traitStyle_);
        s += " points=\"";
        for (const PointPlan& p : points_) {
            nombre(s, p.x);
            s += ',';
            nombre(s, p.y);
            s += ' ';
        }
        s += "\"/>\n";
        sortie_ << s;
    }
    points_.clear();
}

void SurfaceSvg::Line(double x1, double y1, double x2, double y2, Couleur c)
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

void SurfaceSvg::PSet(double x, double y, Couleur c)
{
    Acheve();
    // A square of the pen's width aligned on the pixels, as on a painter.
    const double cote = std::max(1, DrawWidth);
    const double cx = x * pixelsParTwip, cy = y * pixelsParTwip;
    rectangle(std::floor(cx - cote / 2 + 0.5), std::floor(cy - cote / 2 + 0.5), cote, cote, c);
    CurrentX = x;
    CurrentY = y;
}

void SurfaceSvg::Circle(double x, double y, double rayon, Couleur c)
{
    Acheve();
    std::string& s = texte_;
    s = "<ellipse cx=\"";
    nombre(s, x * pixelsParTwip);
    s += "\" cy=\"";
    nombre(s, y * pixelsParTwip);
    s += "\" rx=\"";
    nombre(s, rayon * pixelsParTwip);
    s += "\" ry=\"";
    nombre(s, rayon * pixelsParTwip);
    s += '"';
    trait(c, DrawWidth, DrawStyle);
    s += "/>\n";
    sortie_ << s;
}

void SurfaceSvg::Print(const std::string& texte)
{
    Acheve();
    const QFont f = police(*this);
    const QFontMetricsF m(f, &appareil96());
    std::string& s = texte_;
    s = "<text fill=\"";
    couleur(s, ForeColor);
    s += "\" stroke=\"none\" xml:space=\"preserve\" x=\"";
    nombre(s, CurrentX * pixelsParTwip);
    s += "\" y=\"";
    nombre(s, CurrentY * pixelsParTwip + m.ascent());
    s += "\" font-family=\"" + f.family().toHtmlEscaped().toStdString() + "\" font-size=\"";
    nombre(s, f.pointSizeF() * 96 / 72);
    s += "\" font-weight=\"" + std::string(FontBold ? "700" : "400") + "\" font-style=\"" +
         (FontItalic ? "italic" : "normal") + "\">" + QString::fromStdString(texte).toHtmlEscaped().toStdString() +
         "</text>\n";
    sortie_ << s;
    CurrentX = 0;
    CurrentY += TextHeight();
}

void SurfaceSvg::Clear(Couleur fond)
{
    points_.clear();
    rectangle(0, 0, largeur_ * pixelsParTwip, hauteur_ * pixelsParTwip, fond);
    CurrentX = 0;
    CurrentY = 0;
}

double SurfaceSvg::TextWidth(const std::string& texte) const
{
    const QFontMetricsF m(police(*this), &appareil96());
    return m.horizontalAdvance(QString::fromStdString(texte)) * twipsParPixelEcran;
}

double SurfaceSvg::TextHeight() const
{
    const QFontMetricsF m(police(*this), &appareil96());
    return m.height() * twipsParPixelEcran;
}

}  // namespace velorin
