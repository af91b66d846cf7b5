#include "qt/surface_tikz.h"

#include <QString>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace velorin {

namespace {

constexpr double ptParCm = 72.27 / 2.54;     // TeX points
constexpr std::size_t pointsParTrait = 200;  // points of one \draw

void decimal(std::string& s, double v, int chiffres)
{
    char tampon[48];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::fixed, chiffres).ptr;
    std::string_view t(tampon, std::size_t(fin - tampon));
    // "1.2500" -> "1.25", "-0.0000" -> "0"
    if (t.find('.') != std::string_view::npos) {
        while (t.back() == '0')
            t.remove_suffix(1);
        if (t.back() == '.')
            t.remove_suffix(1);
    }
    if (t == "-0")
        t = "0";
    s.append(t);
}

// The code point of the UTF-8 sequence at `i`, `i` moved past it; -1 for a
// byte that starts no valid sequence.
long pointDeCode(const std::string& t, std::size_t& i)
{
    const unsigned char c = t[i++];
    if (c < 0x80)
        return c;
    const int suite = c >= 0xF0 && c < 0xF8 ? 3 : c >= 0xE0 ? 2 : c >= 0xC2 && c < 0xE0 ? 1 : -1;
    if (suite < 0)
        return -1;
    long cp = c & (0x3F >> suite);
    for (int k = 0; k < suite; ++k) {
        if (i >= t.size() || (static_cast<unsigned char>(t[i]) & 0xC0) != 0x80)
            return -1;
        cp = (cp << 6) | (static_cast<unsigned char>(t[i++]) & 0x3F);
    }
    return cp;
}

}  // namespace

std::string texteLatex(const std::string& texte)
{
    std::string s;
    for (std::size_t i = 0; i < texte.size();) {
        const std::size_t debut = i;
        const long cp = pointDeCode(texte, i);
        switch (cp) {
        case '\\': s += "\\textbackslash{}"; break;
        case '~': s += "\\textasciitilde{}"; break;
        case '^': s += "\\textasciicircum{}"; break;
        case '&':
        case '%':
        case '$':
        case '#':
        case '_':
        case '{':
        case '}':
            s += '\\';
            s += char(cp);
            break;
        default:
            if (cp >= 0 && cp < 0x20)
                s += ' ';
            else if ((cp >= 0x20 && cp < 0x7F) || (cp >= 0xA0 && cp <= 0xFF) || cp == 0x152 || cp == 0x153 ||
                     cp == 0x178) {
                s.append(texte, debut, i - debut);
                // No ligature: "ff", "fi", "fl" and "--" stay the letters
                // typed, and a PDF reader finds them again as text.
                if (i < texte.size() &&
                    ((cp == 'f' && std::strchr("fil", texte[i]) && texte[i] != '\0') || (cp == '-' && texte[i] == '-')))
                    s += "{}";
            } else
                s += '?';
        }
    }
    return s;
}

std::optional<double> largeurTex(const std::string& texte)
{
    std::string_view nombre = texte;
    double unite = 1;
    if (nombre.size() > 2 && (nombre.ends_with("cm") || nombre.ends_with("mm"))) {
        unite = nombre.ends_with("mm") ? 0.1 : 1;
        nombre.remove_suffix(2);
    }
    double v = 0;
    const auto [p, ec] = std::from_chars(nombre.data(), nombre.data() + nombre.size(), v);
    if (ec != std::errc() || p != nombre.data() + nombre.size() || v * unite < 0.5 || v * unite > 500)
        return std::nullopt;
    return v * unite;
}

SurfaceTikz::SurfaceTikz(std::ostream& sortie, int largeurPx, int hauteurPx, const OptionsTex& options)
    : SurfaceVectorielle(largeurPx, hauteurPx), sortie_(sortie), cm_(options.largeurCm / std::max(1, largeurPx)),
      hauteurPx_(hauteurPx), autonome_(options.autonome)
{
    std::string& s = texte_;
    s.clear();
    std::string l, h;
    decimal(l, options.largeurCm, 4);
    decimal(h, hauteurPx * cm_, 4);
    if (autonome_)
        s = "\\documentclass{article}\n\\usepackage[T1]{fontenc}\n\\usepackage[utf8]{inputenc}\n"
            "\\usepackage[paperwidth=" +
            l + "cm,paperheight=" + h +
            "cm,margin=0cm]{geometry}\n"
            "\\usepackage{tikz}\n\\pagestyle{empty}\n\\setlength{\\parindent}{0pt}\n"
            "\\setlength{\\topskip}{0pt}\n\\begin{document}\n";
    s += "% Velorin\n\\begin{tikzpicture}[x=1cm,y=1cm,line join=round]\n"
         "\\useasboundingbox (0,0) rectangle (" +
         l + ',' + h + ");\n";
    sortie_ << s;
}

SurfaceTikz::~SurfaceTikz()
{
    termine();
}

void SurfaceTikz::termine()
{
    if (fini_)
        return;
    Acheve();
    sortie_ << "\\end{tikzpicture}\n" << (autonome_ ? "\\end{document}\n" : "");
    sortie_.flush();
    fini_ = true;
}

void SurfaceTikz::nombre(double v)
{
    decimal(texte_, v, 4);
}

void SurfaceTikz::point(double x, double y)
{
    texte_ += '(';
    nombre(x * cm_);
    texte_ += ',';
    nombre((hauteurPx_ - y) * cm_);
    texte_ += ')';
}

const std::string& SurfaceTikz::couleur(Couleur c)
{
    static const char hex[] = "0123456789ABCDEF";
    nom_.assign(1, 'v');
    for (int decalage : {0, 8, 16}) {
        const unsigned octet = (c >> decalage) & 0xFF;
        nom_ += hex[octet >> 4];
        nom_ += hex[octet & 15];
    }
    if (definies_.insert(c & 0xFFFFFF).second)
        sortie_ << "\\definecolor{" << nom_ << "}{RGB}{" << (c & 0xFF) << ',' << ((c >> 8) & 0xFF) << ','
                << ((c >> 16) & 0xFF) << "}\n";
    return nom_;
}

void SurfaceTikz::trait(Couleur c, int largeur, int style)
{
    const double pt = largeur * cm_ * ptParCm;
    texte_ = "\\draw[" + couleur(c) + ",line width=";
    nombre(pt);
    texte_ += "pt";
    if (style == 1) {
        texte_ += ",line cap=butt,dashed]";
    } else if (style == 2) {
        texte_ += ",line cap=butt,dash pattern=on ";
        nombre(pt);
        texte_ += "pt off ";
        nombre(2 * pt);
        texte_ += "pt]";
    } else {
        texte_ += ",line cap=round]";
    }
}

void SurfaceTikz::rectangle(double x, double y, double l, double h, Couleur c)
{
    texte_ = "\\fill[" + couleur(c) + "] ";
    point(x, y + h);
    texte_ += " rectangle ";
    point(x + l, y);
    texte_ += ";\n";
    sortie_ << texte_;
}

void SurfaceTikz::polyligne(const std::vector<PointPlan>& points, Couleur c, int largeur, int style)
{
    // Pieces of pointsParTrait points, each starting where the last ended.
    for (std::size_t debut = 0; debut + 1 < points.size(); debut += pointsParTrait - 1) {
        trait(c, largeur, style);
        const std::size_t fin = std::min(points.size(), debut + pointsParTrait);
        for (std::size_t i = debut; i < fin; ++i) {
            texte_ += i == debut ? " " : (i - debut) % 6 == 0 ? "\n  -- " : " -- ";
            point(points[i].x, points[i].y);
        }
        texte_ += ";\n";
        sortie_ << texte_;
    }
}

void SurfaceTikz::face(const std::vector<PointPlan>& coins, Couleur c)
{
    texte_.clear();
    if (!largeurFaces_) {
        // Half a pixel, as the other vector outputs.
        texte_ = "\\pgfsetlinewidth{";
        nombre(0.5 * cm_ * ptParCm);
        texte_ += "pt}\n";
        largeurFaces_ = true;
    }
    if (couleurFaces_ != long(c & 0xFFFFFF)) {
        texte_ += "\\pgfsetcolor{" + couleur(c) + '}';
        couleurFaces_ = long(c & 0xFFFFFF);
    }
    for (std::size_t i = 0; i < coins.size(); ++i) {
        texte_ += i == 0 ? "\\pgfpathqmoveto{" : "\\pgfpathqlineto{";
        nombre(coins[i].x * cm_ * ptParCm);
        texte_ += "pt}{";
        nombre((hauteurPx_ - coins[i].y) * cm_ * ptParCm);
        texte_ += "pt}";
    }
    texte_ += "\\pgfpathclose\\pgfusepathqfillstroke\n";
    sortie_ << texte_;
}

void SurfaceTikz::cercle(double x, double y, double rayon, Couleur c, int largeur, int style)
{
    trait(c, largeur, style);
    texte_ += ' ';
    point(x, y);
    texte_ += " circle[radius=";
    nombre(rayon * cm_);
    texte_ += "];\n";
    sortie_ << texte_;
}

void SurfaceTikz::ecrit(double x, double y, const QFont& f, Couleur c, const std::string& texte)
{
    const double taille = f.pointSizeF() * 96 / 72 * cm_ * ptParCm;
    texte_ = "\\node[" + couleur(c) + ",anchor=base west,inner sep=0pt,font=\\fontsize{";
    nombre(taille);
    texte_ += "}{";
    nombre(taille * 1.2);
    texte_ += "}\\selectfont";
    // LaTeX's sans serif stands for Arial and its kin, its roman for the serif faces.
    const QString famille = f.family().toLower();
    const bool romain = (famille.contains(QLatin1String("serif")) && !famille.contains(QLatin1String("sans"))) ||
                        famille.contains(QLatin1String("times")) || famille.contains(QLatin1String("roman"));
    if (!romain)
        texte_ += "\\sffamily";
    if (f.bold())
        texte_ += "\\bfseries";
    if (f.italic())
        texte_ += "\\itshape";
    texte_ += "] at ";
    point(x, y);
    texte_ += " {" + texteLatex(texte) + "};\n";
    sortie_ << texte_;
}

}  // namespace velorin
