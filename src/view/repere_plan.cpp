// The plane frame: the two axes across the frame with regular graduations.
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "view/format_nombre.h"
#include "view/projection.h"
#include "view/repere_trace.h"

namespace velorin {

namespace {

constexpr double demiGraduation = 50;  // half-length of a tick
constexpr double ecartNombre = 50;     // between a tick and its number
constexpr double espacementMin = 600;  // no two ticks closer (40 px at 96 dpi)
constexpr double aere = 2.5;           // tick spacing / size of a number
constexpr int graduationsMax = 200;
// Least room between a number and the edge of the picture: xmin and ymax
// lie only decalPlanGauche and decalPlanHaut from the edges, and a number
// centred on such a tick would start outside the picture (a glyph's ink
// may also reach a little beyond its measured box).
constexpr double margeTexte = 3 * twipsParPixelEcran;

// The centre, along the axis, of a number of size `taille` centred on
// `centre`, moved so that the number keeps margeTexte from both ends of
// 0..bord.
double centreDedans(double centre, double taille, double bord)
{
    return std::max(margeTexte + taille / 2, std::min(centre, bord - margeTexte - taille / 2));
}

// Pattern of the numbers of a graduation step: as many decimals as the
// step needs, scientific form for very large or very small steps.
std::string motifPas(double pas)
{
    if (pas >= 1e6 || pas < 1e-4)
        return "0.00E+00";
    const int decimales = std::max(0, static_cast<int>(std::ceil(-std::log10(pas) - 1e-9)));
    return decimales == 0 ? "0" : "0." + std::string(decimales, '0');
}

// Values i x pas inside [min, max] (computed from i, never accumulated).
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

// The smallest step 1, 2 or 5 x 10^k whose ticks lie at least
// `encombrement(pas)` twips apart, `unite` twips being one unit.
double choisisPas(double etendue, double unite, const std::function<double(double)>& encombrement)
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

class ReperePlan {
public:
    ReperePlan(const Parametres& p, const Vue& v, TraceRepere& t) : p_(p), v_(v), t_(t), s_(t.surface) { }

    void trace()
    {
        // Each axis crosses the other at 0, or on the border of the frame
        // when 0 lies outside the other's range.
        const double x0 = std::clamp(0.0, p_.xmin, p_.xmax);
        const double y0 = std::clamp(0.0, p_.ymin, p_.ymax);
        double ax, ay, bx, by, cx, cy, dx, dy;
        image(p_.xmin, y0, ax, ay);
        image(p_.xmax, y0, bx, by);
        image(x0, p_.ymin, cx, cy);
        image(x0, p_.ymax, dx, dy);
        t_.ligne(ax, ay, bx, by);
        t_.ligne(cx, cy, dx, dy);
        t_.fleche(bx, by, 1, 0);
        t_.fleche(dx, dy, 0, -1);
        double ox, oy;
        image(x0, y0, ox, oy);
        if (x0 == 0 && y0 == 0)
            t_.texte("O", ox, oy, -1, 1, ecartNombre);
        t_.texte("x", bx, by, 1, -1, ecartNombre);
        t_.texte("y", dx, dy, 1, -1, ecartNombre);
        graduationsX(ay, x0);
        graduationsY(cx, y0);
    }

private:
    void image(double x, double y, double& sx, double& sy) const { projette(p_, v_, false, x, y, 0, sx, sy); }

    double largeurMax(const std::vector<double>& valeurs, const std::string& motif) const
    {
        double l = 0;
        for (double v : valeurs)
            l = std::max(l, s_.TextWidth(formatNombre(v, motif)));
        return l;
    }

    void graduationsX(double yAxe, double x0)
    {
        const double unite = std::fabs(v_.echelleX);
        if (!(unite > 0))
            return;
        const double pas = choisisPas(p_.xmax - p_.xmin, unite, [&](double essai) {
            const auto valeurs = valeursGraduees(p_.xmin, p_.xmax, essai);
            return std::max(espacementMin, aere * largeurMax(valeurs, motifPas(essai)));
        });
        const std::string motif = motifPas(pas);
        // Numbers under the axis, above it when there is no room below.
        const double dessous = yAxe + ecartNombre + s_.TextHeight() <= s_.Height() ? 1 : -1;
        for (double v : valeursGraduees(p_.xmin, p_.xmax, pas)) {
            double sx, sy;
            image(v, 0, sx, sy);
            t_.trait(sx, yAxe, 1, 0, demiGraduation);
            if (v != x0 || x0 != 0) {
                const std::string texte = formatNombre(v, motif);
                // A tick out of sight keeps its number out of sight.
                const double x = t_.dedans(sx, yAxe) ? centreDedans(sx, s_.TextWidth(texte), s_.Width()) : sx;
                t_.texte(texte, x, yAxe, 0, dessous, ecartNombre, 1);
            }
        }
    }

    void graduationsY(double xAxe, double y0)
    {
        const double unite = std::fabs(v_.echelleY);
        if (!(unite > 0))
            return;
        const double pas = choisisPas(p_.ymax - p_.ymin, unite,
                                      [&](double) { return std::max(espacementMin, aere * s_.TextHeight()); });
        const std::string motif = motifPas(pas);
        const auto valeurs = valeursGraduees(p_.ymin, p_.ymax, pas);
        // Numbers left of the axis, right of it when there is no room left.
        const double gauche = xAxe - ecartNombre - largeurMax(valeurs, motif) >= 0 ? -1 : 1;
        for (double v : valeurs) {
            double sx, sy;
            image(0, v, sx, sy);
            t_.trait(xAxe, sy, 0, 1, demiGraduation);
            if (v != y0 || y0 != 0) {
                const double y = t_.dedans(xAxe, sy) ? centreDedans(sy, s_.TextHeight(), s_.Height()) : sy;
                t_.texte(formatNombre(v, motif), xAxe, y, gauche, 0, ecartNombre, 1);
            }
        }
    }

    const Parametres& p_;
    const Vue& v_;
    TraceRepere& t_;
    Surface& s_;
};

}  // namespace

void traceReperePlan(const Parametres& p, const Vue& v, TraceRepere& t)
{
    ReperePlan r(p, v, t);
    r.trace();
}

}  // namespace velorin
