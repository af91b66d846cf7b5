#include "qt/surface_svg.h"

#include <QString>

#include <charconv>

namespace velorin {

namespace {

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

}  // namespace

SurfaceSvg::SurfaceSvg(std::ostream& sortie, int largeurPx, int hauteurPx, const std::string& titre)
    : SurfaceVectorielle(largeurPx, hauteurPx), sortie_(sortie)
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
    fermeGroupe();
    sortie_ << "</svg>\n";
    sortie_.flush();
    fini_ = true;
}

void SurfaceSvg::fermeGroupe()
{
    if (groupe_)
        sortie_ << "</g>\n";
    groupe_ = false;
}

void SurfaceSvg::rectangle(double x, double y, double l, double h, Couleur c)
{
    fermeGroupe();
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

void SurfaceSvg::trait(Couleur c, int l, int style)
{
    std::string& s = texte_;
    s += " fill=\"none\" stroke=\"";
    couleur(s, c);
    s += "\" stroke-width=\"" + std::to_string(l) + "\" stroke-linejoin=\"round\" stroke-linecap=\"";
    if (style == 1)
        s += "butt\" stroke-dasharray=\"" + std::to_string(6 * l) + ',' + std::to_string(4 * l) + "\"";
    else if (style == 2)
        s += "butt\" stroke-dasharray=\"" + std::to_string(l) + ',' + std::to_string(2 * l) + "\"";
    else
        s += "round\"";
}

void SurfaceSvg::polyligne(const std::vector<PointPlan>& points, Couleur c, int largeur, int style)
{
    fermeGroupe();
    std::string& s = texte_;
    s = "<polyline";
    trait(c, largeur, style);
    s += " points=\"";
    for (const PointPlan& p : points) {
        nombre(s, p.x);
        s += ',';
        nombre(s, p.y);
        s += ' ';
    }
    s += "\"/>\n";
    sortie_ << s;
}

void SurfaceSvg::face(const std::vector<PointPlan>& coins, Couleur c)
{
    std::string& s = texte_;
    s.clear();
    if (!groupe_)
        s = "<g stroke-width=\"0.5\" stroke-linejoin=\"round\">\n";
    groupe_ = true;
    s += "<polygon fill=\"";
    couleur(s, c);
    s += "\" stroke=\"";
    couleur(s, c);
    s += "\" points=\"";
    for (const PointPlan& p : coins) {
        nombre(s, p.x);
        s += ',';
        nombre(s, p.y);
        s += ' ';
    }
    s.back() = '"';
    s += "/>\n";
    sortie_ << s;
}

void SurfaceSvg::cercle(double x, double y, double rayon, Couleur c, int largeur, int style)
{
    fermeGroupe();
    std::string& s = texte_;
    s = "<ellipse cx=\"";
    nombre(s, x);
    s += "\" cy=\"";
    nombre(s, y);
    s += "\" rx=\"";
    nombre(s, rayon);
    s += "\" ry=\"";
    nombre(s, rayon);
    s += '"';
    trait(c, largeur, style);
    s += "/>\n";
    sortie_ << s;
}

void SurfaceSvg::ecrit(double x, double y, const QFont& f, Couleur c, const std::string& texte)
{
    fermeGroupe();
    std::string& s = texte_;
    s = "<text fill=\"";
    couleur(s, c);
    s += "\" stroke=\"none\" xml:space=\"preserve\" x=\"";
    nombre(s, x);
    s += "\" y=\"";
    nombre(s, y);
    s += "\" font-family=\"" + f.family().toHtmlEscaped().toStdString() + "\" font-size=\"";
    nombre(s, f.pointSizeF() * 96 / 72);
    s += "\" font-weight=\"" + std::string(f.bold() ? "700" : "400") + "\" font-style=\"" +
         (f.italic() ? "italic" : "normal") + "\">" + QString::fromStdString(texte).toHtmlEscaped().toStdString() +
         "</text>\n";
    sortie_ << s;
}

}  // namespace velorin
