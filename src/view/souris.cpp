// Mouse arithmetic: frame drag, view drag, wheel zoom, inverse projection.
#include "view/souris.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

bool finis(std::initializer_list<double> valeurs)
{
    return std::all_of(valeurs.begin(), valeurs.end(), [](double v) { return std::isfinite(v); });
}

void regardeOrigine(Parametres& p)
{
    p.Xdirection = -p.Xviseur;
    p.Ydirection = -p.Yviseur;
    p.Zdirection = -double(p.Zviseur);
}

// The point o + t d of a line where the coordinate `fixe` (0 x, 1 y, 2 z)
// equals `valeur`, that coordinate set exactly: false when the line runs
// along that plane or the point is not finite.
bool pointOuCoordonneeVaut(const double o[3], const double d[3], int fixe, double valeur, double& x, double& y,
                           double& z)
{
    if (fixe < 0 || fixe > 2 || d[fixe] == 0)
        return false;
    const double t = (valeur - o[fixe]) / d[fixe];
    double r[3];
    for (int i = 0; i < 3; ++i)
        r[i] = o[i] + t * d[i];
    r[fixe] = valeur;
    if (!finis({r[0], r[1], r[2]}))
        return false;
    x = r[0];
    y = r[1];
    z = r[2];
    return true;
}

// Cavalière: the surface point (Px, Py) names gives u (right) and w (up)
// in units; the points shown there have a turned x' = t free, y' = u -
// reculX t, z = w - reculY t, turned back about Oz to x and y.
bool solvonsCavaliere(const Vue& v, double Px, double Py, int fixe, double valeur, double& x, double& y, double& z)
{
    const VueCavaliere& c = v.cavaliere;
    const double sx = (Px + 1) * (v.W - margeEspaceX) / 2, sy = (1 - Py) * (v.H - margeHauteur) / 2;
    if (c.echelle == 0 || fixe < 0 || fixe > 2)
        return false;
    const double u = (sx - c.origineX) / c.echelle, w = (c.origineY - sy) / c.echelle;
    // Each coordinate is a0 + a1 t.
    const double a0[3] = {u * c.sinTour, u * c.cosTour, w};
    const double a1[3] = {c.cosTour - c.reculX * c.sinTour, -c.sinTour - c.reculX * c.cosTour, -c.reculY};
    return pointOuCoordonneeVaut(a0, a1, fixe, valeur, x, y, z);
}

}  // namespace

bool redes(Parametres& p, const Vue& v, double dx, double dy)
{
    // The scales that place xmin and ymax, before an orthonormal frame
    // equalises them: with these the picture moves by the drag exactly.
    const double largeur = p.xmax - p.xmin, hauteur = p.ymax - p.ymin;
    const double ex = v.etendueX != 0 ? v.largeurUtile / v.etendueX : 0;
    const double ey = v.etendueY != 0 ? v.hauteurUtile / v.etendueY : 0;
    if (v.echelleX == 0 || v.echelleY == 0 || ex == 0 || ey == 0 || (dx == 0 && dy == 0))
        return false;
    const double xmin = p.xmin - dx / ex, ymin = p.ymin + dy / ey;
    if (!finis({xmin, ymin, xmin + largeur, ymin + hauteur}))
        return false;
    p.xmin = xmin;
    p.xmax = xmin + largeur;
    p.ymin = ymin;
    p.ymax = ymin + hauteur;
    return true;
}

bool tourneVue(Parametres& p, double dxPixels, double dyPixels)
{
    const double x = p.Xviseur, y = p.Yviseur, z = p.Zviseur;
    const double rayon = std::sqrt(x * x + y * y + z * z);
    if (rayon == 0 || !std::isfinite(rayon) || (dxPixels == 0 && dyPixels == 0))
        return false;
    const double azimut = std::atan2(y, x) - dxPixels * radiansParPixel;
    const double avant = std::asin(std::clamp(z / rayon, -1.0, 1.0));
    double elevation = avant + dyPixels * radiansParPixel;
    // Beyond the limit only a move back towards the xy plane is taken.
    if (std::fabs(elevation) > elevationMax && std::fabs(elevation) > std::fabs(avant))
        elevation = std::copysign(std::max(elevationMax, std::fabs(avant)), elevation);
    p.Xviseur = rayon * std::cos(elevation) * std::cos(azimut);
    p.Yviseur = rayon * std::cos(elevation) * std::sin(azimut);
    p.Zviseur = float(rayon * std::sin(elevation));
    regardeOrigine(p);
    return true;
}

bool grossirMolette(Parametres& p, const Vue& v, bool modeEspace, double crans, double sx, double sy)
{
    const double facteur = std::pow(moletteFacteur, crans);
    if (crans == 0 || !std::isfinite(facteur) || facteur == 0)
        return false;
    if (modeEspace) {
        const double x = p.Xviseur / facteur, y = p.Yviseur / facteur, z = p.Zviseur / facteur;
        if (!finis({x, y, z}) || !std::isfinite(float(z)) || (x == 0 && y == 0 && float(z) == 0))
            return false;
        p.Xviseur = x;
        p.Yviseur = y;
        p.Zviseur = float(z);
        return true;
    }
    // The frame point under the pointer stays where it is.
    double fx, fy;
    if (!pointDuPlan(v, sx, sy, fx, fy))
        return false;
    const double xmin = fx - (fx - p.xmin) / facteur, xmax = fx + (p.xmax - fx) / facteur;
    const double ymin = fy - (fy - p.ymin) / facteur, ymax = fy + (p.ymax - fy) / facteur;
    if (!finis({xmin, xmax, ymin, ymax}) || !(xmax > xmin) || !(ymax > ymin))
        return false;
    p.xmin = xmin;
    p.xmax = xmax;
    p.ymin = ymin;
    p.ymax = ymax;
    return true;
}

bool glisseCavaliere(double& tour, double dxPixels)
{
    const double t = tour + dxPixels * radiansParPixel * 180 / 3.141592;
    if (dxPixels == 0 || !std::isfinite(t))
        return false;
    tour = t;
    return true;
}

bool pointDuPlan(const Vue& v, double sx, double sy, double& x, double& y)
{
    if (v.echelleX == 0 || v.echelleY == 0)
        return false;
    x = (sx - v.decalX) / v.echelleX;
    y = (v.decalY - sy) / v.echelleY;
    return true;
}

void pointPlanProjection(const Vue& v, double sx, double sy, double& Px, double& Py)
{
    const double largeur = v.W - margeEspaceX, hauteur = v.H - margeHauteur;
    Px = largeur != 0 ? 2 * sx / largeur - 1 : 0;
    Py = hauteur != 0 ? 1 - 2 * sy / hauteur : 0;
}

bool solvons(const Parametres& p, const Vue& v, double Px, double Py, int fixe, double valeur, double& x, double& y,
             double& z)
{
    if (v.cavaliere.active)
        return solvonsCavaliere(v, Px, Py, fixe, valeur, x, y, z);
    // The unit vectors of the picture's axes: the reference points lie 0.2
    // from the centre along them.
    const double c[3] = {v.centreVueX, v.centreVueY, v.centreVueZ};
    const double h[3] = {5 * (v.repereHX - c[0]), 5 * (v.repereHY - c[1]), 5 * (v.repereHZ - c[2])};
    const double w[3] = {5 * (v.repereVX - c[0]), 5 * (v.repereVY - c[1]), 5 * (double(v.repereVZ) - c[2])};
    const double o[3] = {p.Xviseur, p.Yviseur, double(p.Zviseur)};
    double vise[3];
    for (int i = 0; i < 3; ++i)
        vise[i] = c[i] + Px * h[i] + Py * w[i] - o[i];
    return pointOuCoordonneeVaut(o, vise, fixe, valeur, x, y, z);
}

}  // namespace velorin
