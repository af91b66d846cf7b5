// The plane frame: the two axes across the frame with regular graduations.
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "view/format_nombre.h"
#include "view/graduations.h"
#include "view/projection.h"
#include "view/repere_trace.h"

namespace velorin {

namespace {

constexpr double demiGraduation = 50;  // half-length of a tick
constexpr double ecartNombre = 50;     // between a tick and its number
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
        const double pas = pasPlanX(p_, v_, s_);
        if (!(pas > 0))
            return;
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
        const double pas = pasPlanY(p_, v_, s_);
        if (!(pas > 0))
            return;
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
