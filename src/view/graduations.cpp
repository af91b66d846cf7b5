// Nice steps, the plane frame's steps and the plane grid.
#include "view/graduations.h"

#include <algorithm>
#include <cmath>

#include "view/format_nombre.h"
#include "view/placement.h"
#include "view/projection.h"
#include "view/repere.h"

namespace velorin {

namespace {

constexpr double espacementMin = 600;  // no two ticks closer (40 px at 96 dpi)
constexpr double aere = 2.5;           // tick spacing / size of a number
constexpr int graduationsMax = 200;
constexpr double intervallesEspace = 10;  // about ten per space axis

double largeurMax(const Surface& s, const std::vector<double>& valeurs, const std::string& motif)
{
    double l = 0;
    for (double v : valeurs)
        l = std::max(l, s.TextWidth(formatNombre(v, motif)));
    return l;
}

}  // namespace

double pasRond(double etendue, double unite, const std::function<double(double)>& encombrement)
{
    double decade = std::pow(10.0, std::floor(std::log10(etendue)) - 3);
    for (int essai = 0; essai < 40; ++essai, decade *= 10)
        for (double m : {1.0, 2.0, 5.0}) {
            const double pas = m * decade;
            if (pas * unite >= encombrement(pas) && etendue / pas < graduationsMax)
                return pas;
        }
    return etendue;
}

std::vector<double> valeursGraduees(double min, double max, double pas)
{
    std::vector<double> v;
    const double premier = std::ceil(min / pas - 1e-9), dernier = std::floor(max / pas + 1e-9);
    if (!(dernier - premier < graduationsMax))
        return v;
    for (double i = premier; i <= dernier; ++i)
        v.push_back(i * pas);
    return v;
}

std::string motifPas(double pas)
{
    if (pas >= 1e6 || pas < 1e-4)
        return "0.00E+00";
    const int decimales = std::max(0, static_cast<int>(std::ceil(-std::log10(pas) - 1e-9)));
    return decimales == 0 ? "0" : "0." + std::string(decimales, '0');
}

double pasEspace(double min, double max)
{
    const double etendue = max - min;
    if (!(etendue > 0) || !std::isfinite(etendue))
        return 0;
    // The step tolerates a rounding below the tenth (0.3 / 10 is not 0.03).
    const double dixieme = etendue / intervallesEspace * (1 - 1e-9);
    return pasRond(etendue, 1, [dixieme](double) { return dixieme; });
}

double pasPlanX(const Parametres& p, const Vue& v, const Surface& s)
{
    const double unite = std::fabs(v.echelleX);
    if (!(unite > 0))
        return 0;
    return pasRond(p.xmax - p.xmin, unite, [&](double essai) {
        const auto valeurs = valeursGraduees(p.xmin, p.xmax, essai);
        return std::max(espacementMin, aere * largeurMax(s, valeurs, motifPas(essai)));
    });
}

double pasPlanY(const Parametres& p, const Vue& v, const Surface& s)
{
    const double unite = std::fabs(v.echelleY);
    if (!(unite > 0))
        return 0;
    return pasRond(p.ymax - p.ymin, unite, [&](double) { return std::max(espacementMin, aere * s.TextHeight()); });
}

void traceQuadrillage(const Parametres& p, const Vue& v, Couleur couleur, Surface& surface)
{
    GardePlume garde(surface);
    surface.DrawWidth = 1;
    surface.DrawStyle = 0;
    surface.FontName = "Arial";
    surface.FontSize = tailleTexteRepere(surface.Width(), surface.Height());
    const double pasX = pasPlanX(p, v, surface), pasY = pasPlanY(p, v, surface);
    auto ligne = [&](double x1, double y1, double x2, double y2) {
        double ax, ay, bx, by;
        projette(p, v, false, x1, y1, 0, ax, ay);
        projette(p, v, false, x2, y2, 0, bx, by);
        if (coupeSegment(ax, ay, bx, by, 0, 0, surface.Width(), surface.Height()))
            surface.Line(ax, ay, bx, by, couleur);
    };
    if (pasX > 0)
        for (double x : valeursGraduees(p.xmin, p.xmax, pasX))
            ligne(x, p.ymin, x, p.ymax);
    if (pasY > 0)
        for (double y : valeursGraduees(p.ymin, p.ymax, pasY))
            ligne(p.xmin, y, p.xmax, y);
}

}  // namespace velorin
