// Read-out texts.
#include "view/lectures.h"

#include <charconv>
#include <cmath>

#include "view/format_nombre.h"

namespace velorin {

namespace {

// Shortest text of a bound or a step: at most 7 significant digits, an
// exponent only for very small or very large values.
std::string court(double v)
{
    char tampon[40];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::general, 7);
    return std::string(tampon, r.ptr);
}

// A viewing value: "0.00", or "0.00E+00" when that would be longer than the
// side column shows ("-99999.99" is the longest plain one).
std::string deux(double v)
{
    std::string texte = formatNombre(v, "0.00");
    if (texte.size() > 9)
        texte = formatNombre(v, "0.00E+00");
    return texte;
}

std::string trois(double v)
{
    return formatNombre(v, "0.000");
}

}  // namespace

std::string texteViseur(const Parametres& p)
{
    return "Xv=" + deux(p.Xviseur) + "  Xd=" + deux(p.Xdirection) + "\nYv=" + deux(p.Yviseur) +
           "  Yd=" + deux(p.Ydirection) + "\nZv=" + deux(p.Zviseur) + "  Zd=" + deux(p.Zdirection) +
           "\nRot=" + deux(p.Rotadir);
}

std::string texteBornes(const Parametres& p)
{
    std::string texte = "x:[" + court(p.xmin) + ";" + court(p.xmax) + "]\ny:[" + court(p.ymin) + ";" + court(p.ymax) +
                        "]\nz:[" + court(p.zmin) + ";" + court(p.zmax) + "]\n";
    texte += "t:[" + court(p.tmin) + ";" + court(p.tmax) + "] pat=" + court(p.pasT) + "\na:[" + court(p.amin) + ";" +
             court(p.amax) + "] paa=" + court(p.pasA) + "\npause=" + std::to_string(p.pauseMs);
    return texte;
}

std::string texteTaille(double largeur, double hauteur)
{
    return "LF:" + formatNombre(std::round(largeur), "00000") + "  HF:" + formatNombre(std::round(hauteur), "00000");
}

std::string texteLecturePlan(double x, double y)
{
    return "X=" + trois(x) + "  Y=" + trois(y);
}

std::string texteLectureEspace(double x, double y, double z, double Px, double Py)
{
    return "X=" + trois(x) + " Y=" + trois(y) + " Z=" + trois(z) + "\nR=" + trois(std::sqrt(x * x + y * y + z * z)) +
           "\n" + texteLectureSansPoint(Px, Py);
}

std::string texteLectureSansPoint(double Px, double Py)
{
    return "Px:" + trois(Px) + " Py:" + trois(Py);
}

}  // namespace velorin
