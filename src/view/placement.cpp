#include "view/placement.h"

#include <algorithm>
#include <cmath>

namespace velorin {

bool Cadre::chevauche(const Cadre& a) const
{
    return x < a.x + a.largeur && a.x < x + largeur && y < a.y + a.hauteur && a.y < y + hauteur;
}

bool Cadre::dans(double W, double H) const
{
    return x >= 0 && y >= 0 && x + largeur <= W && y + hauteur <= H;
}

bool coupeSegment(double& x1, double& y1, double& x2, double& y2, double xmin, double ymin, double xmax, double ymax)
{
    // Liang-Barsky: the part t0..t1 of x1 + t dx that lies inside.
    const double dx = x2 - x1, dy = y2 - y1;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1 - xmin, xmax - x1, y1 - ymin, ymax - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0) {
            if (t > t1)
                return false;
            t0 = std::max(t0, t);
        } else {
            if (t < t0)
                return false;
            t1 = std::min(t1, t);
        }
    }
    // Rounding may leave an end a hair outside: it is put on the border.
    auto dansX = [&](double x) { return std::clamp(x, xmin, xmax); };
    auto dansY = [&](double y) { return std::clamp(y, ymin, ymax); };
    const double ax = dansX(x1 + t0 * dx), ay = dansY(y1 + t0 * dy);
    x2 = dansX(x1 + t1 * dx);
    y2 = dansY(y1 + t1 * dy);
    x1 = ax;
    y1 = ay;
    return true;
}

namespace {

bool touche(const Cadre& c, const Segment& s, double marge)
{
    double x1 = s.x1, y1 = s.y1, x2 = s.x2, y2 = s.y2;
    return coupeSegment(x1, y1, x2, y2, c.x - marge, c.y - marge, c.x + c.largeur + marge, c.y + c.hauteur + marge);
}

}  // namespace

std::optional<Cadre> placeCadre(double px, double py, double ux, double uy, double largeur, double hauteur,
                                double ecart, const std::vector<Cadre>& occupes, const std::vector<Segment>& traits,
                                double W, double H, int directions)
{
    const double n = std::hypot(ux, uy);
    const double angle0 = n > 0 ? std::atan2(uy, ux) : 0;
    const double pas = std::atan(1.0) / 2;  // 22.5 degrees
    // Clear of the lines, a little further away if need be; then only clear
    // of the other boxes.
    struct Essai {
        bool eviteTraits;
        double eloignement;
    };
    for (const Essai essai : {Essai{true, 1}, Essai{true, 2}, Essai{true, 3}, Essai{false, 1}, Essai{false, 2}}) {
        const double e = ecart * essai.eloignement;
        // Keeping clear of the lines is not worth going round to the far
        // side of the point.
        const int essais = std::min(directions, essai.eviteTraits ? 9 : 16);
        for (int k = 0; k < essais; ++k) {
            // 0, +1, -1, +2, -2 ... steps away from the preferred direction.
            const int cran = (k + 1) / 2 * (k % 2 ? 1 : -1);
            const double a = angle0 + cran * pas;
            const double cx = std::cos(a), cy = std::sin(a);
            // Centre far enough along the direction for the box to clear the
            // circle of radius `ecart` around the point.
            const double d = e + std::abs(cx) * largeur / 2 + std::abs(cy) * hauteur / 2;
            // A box that sticks out of the surface is pushed back inside.
            const Cadre c{std::max(0.0, std::min(px + d * cx - largeur / 2, W - largeur)),
                          std::max(0.0, std::min(py + d * cy - hauteur / 2, H - hauteur)), largeur, hauteur};
            if (!c.dans(W, H))
                continue;
            // Boxes keep a little apart so that two texts never read as one.
            const Cadre large{c.x - ecart / 2, c.y - ecart / 2, c.largeur + ecart, c.hauteur + ecart};
            bool libre = true;
            for (const Cadre& o : occupes)
                libre = libre && !large.chevauche(o);
            if (essai.eviteTraits)
                for (const Segment& t : traits)
                    libre = libre && !touche(c, t, ecart / 2);
            if (libre)
                return c;
        }
    }
    return std::nullopt;
}

Cadre tiensSurEcran(const Cadre& voulu, const Cadre& ecran, const Bords& bords, double largeurMin, double hauteurMin)
{
    const double bordsX = bords.gauche + bords.droite, bordsY = bords.haut + bords.bas;
    // The outer size first: at least the minimum, at most the screen.
    const double largeur = std::min(std::max(voulu.largeur, largeurMin) + bordsX, ecran.largeur);
    const double hauteur = std::min(std::max(voulu.hauteur, hauteurMin) + bordsY, ecran.hauteur);
    // Then the outer corner, pushed back onto the screen.
    const double x = std::clamp(voulu.x - bords.gauche, ecran.x, ecran.x + ecran.largeur - largeur);
    const double y = std::clamp(voulu.y - bords.haut, ecran.y, ecran.y + ecran.hauteur - hauteur);
    return {x + bords.gauche, y + bords.haut, std::max(largeur - bordsX, 0.0), std::max(hauteur - bordsY, 0.0)};
}

}  // namespace velorin
