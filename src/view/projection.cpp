// Viewing set-up, projection and calibration.
//
// Arithmetic follows the statements of the viewing model one by one, in the
// same order, so that every drawing lands on the same surface units as it
// always did. A statement whose arithmetic fails (a zero divisor, an
// overflow) is skipped and the value it would have written keeps its
// previous content; `projette` reports such a failure to its caller.
#include "view/projection.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

// Division as a guarded statement: false when it fails (zero divisor or a
// result out of range), and then nothing is written.
bool divise(double numerateur, double diviseur, double& resultat)
{
    if (diviseur == 0)
        return false;
    const double q = numerateur / diviseur;
    if (!std::isfinite(q))
        return false;
    resultat = q;
    return true;
}

// Writes base + composante / diviseur into `cible` unless the statement fails.
template <typename T> void affecte(T& cible, double base, double composante, double diviseur)
{
    double q;
    if (divise(composante, diviseur, q) && std::isfinite(base + q))
        cible = static_cast<T>(base + q);
}

double distance(double ax, double ay, double az, double bx, double by, double bz)
{
    return std::sqrt(normeCarree(ax - bx, ay - by, az - bz));
}

constexpr double radiansParDegre = 3.14159265358979323846 / 180;
// Cavalière: the share of the picture square that the frame's box fills,
// the rest left to the arrow heads and the numbers at the axes' ends.
constexpr double remplissageCavaliere = 0.9;

// Cavalière: the solid turned about Oz, x' = x cos t - y sin t.
double xTourne(const VueCavaliere& c, double x, double y)
{
    return x * c.cosTour - y * c.sinTour;
}

// Cavalière: the point in picture units, u to the right and w up, before
// the scale: the turned y and z in true size, plus the turned x along the
// receding axis.
void planCavaliere(const VueCavaliere& c, double x, double y, double z, double& u, double& w)
{
    const double xt = xTourne(c, x, y), yt = x * c.sinTour + y * c.cosTour;
    u = yt + c.reculX * xt;
    w = z + c.reculY * xt;
}

// Cavalière: the turn, the receding axis, and the scale and origin that fit
// the box of the three ranges, centred, in the picture square (the
// perspective's: W - margeEspaceX across, H - margeHauteur down).
void calibreCavaliere(const Parametres& p, Vue& v)
{
    VueCavaliere& c = v.cavaliere;
    c.cosTour = std::cos(c.tour * radiansParDegre);
    c.sinTour = std::sin(c.tour * radiansParDegre);
    // One unit along +x goes left and down: (-coef cos a, -coef sin a) up.
    c.reculX = -c.coef * std::cos(c.angle * radiansParDegre);
    c.reculY = -c.coef * std::sin(c.angle * radiansParDegre);
    const double xm = std::max(std::fabs(p.xmin), std::fabs(p.xmax));
    const double ym = std::max(std::fabs(p.ymin), std::fabs(p.ymax));
    // |x'| <= |x| + |y| over the box: K + x' stays above 1 there and far
    // beyond (see profondeur).
    c.constanteProfondeur = 1 + 2 * (xm + ym);
    double umin = HUGE_VAL, umax = -HUGE_VAL, wmin = HUGE_VAL, wmax = -HUGE_VAL;
    for (int i = 0; i < 8; ++i) {
        double u, w;
        planCavaliere(c, i & 1 ? p.xmax : p.xmin, i & 2 ? p.ymax : p.ymin, i & 4 ? p.zmax : p.zmin, u, w);
        umin = std::min(umin, u);
        umax = std::max(umax, u);
        wmin = std::min(wmin, w);
        wmax = std::max(wmax, w);
    }
    const double largeur = v.W - margeEspaceX, hauteur = v.H - margeHauteur;
    double e = HUGE_VAL;
    if (umax > umin)
        e = largeur / (umax - umin);
    if (wmax > wmin)
        e = std::min(e, hauteur / (wmax - wmin));
    if (!std::isfinite(e) || !(e > 0))
        e = 1;
    c.echelle = remplissageCavaliere * e;
    c.origineX = largeur / 2 - c.echelle * (umin + umax) / 2;
    c.origineY = hauteur / 2 + c.echelle * (wmin + wmax) / 2;
}

}  // namespace

double normeCarree(double a, double b, double c)
{
    return a * a + b * b + c * c;
}

void produitVectoriel(double a1, double a2, double a3, double b1, double b2, double b3, double& c1, double& c2,
                      double& c3)
{
    c1 = a2 * b3 - a3 * b2;
    c2 = a3 * b1 - a1 * b3;
    c3 = a1 * b2 - a2 * b1;
}

// A zero divisor or any other arithmetic failure gives an empty result,
// which counts as 0 in the caller's arithmetic.
double cosinusAngle(double a, double b, double c)
{
    double r;
    if (!divise(b * b + c * c - a * a, 2 * b * c, r))
        return 0;
    return r;
}

void prepareVue(const Parametres& p, bool modeEspace, Vue& v)
{
    if (!modeEspace)
        return;
    const double dx = p.Xdirection, dy = p.Ydirection, dz = p.Zdirection;
    const double n = std::sqrt(normeCarree(dx, dy, dz));
    affecte(v.centreVueX, p.Xviseur, dx, n);
    affecte(v.centreVueY, p.Yviseur, dy, n);
    affecte(v.centreVueZ, static_cast<double>(p.Zviseur), dz, n);

    // The "up" reference turns in the y-z plane: with Rotadir = 0 it is z.
    const double wx = 0, wy = std::sin(p.Rotadir), wz = std::cos(p.Rotadir);
    double hx, hy, hz;
    produitVectoriel(dx, dy, dz, wx, wy, wz, hx, hy, hz);
    const double nh = 5 * std::sqrt(normeCarree(hx, hy, hz));
    affecte(v.repereHX, v.centreVueX, hx, nh);
    affecte(v.repereHY, v.centreVueY, hy, nh);
    affecte(v.repereHZ, v.centreVueZ, hz, nh);

    double vx, vy, vz;
    produitVectoriel(-dx, -dy, -dz, hx, hy, hz, vx, vy, vz);
    const double nv = 5 * std::sqrt(normeCarree(vx, vy, vz));
    affecte(v.repereVX, v.centreVueX, vx, nv);
    affecte(v.repereVY, v.centreVueY, vy, nv);
    affecte(v.repereVZ, v.centreVueZ, vz, nv);
}

bool projette(const Parametres& p, const Vue& v, bool modeEspace, double x, double y, double z, double& sx, double& sy)
{
    double ex, ey;
    if (!modeEspace) {
        ex = v.decalX + v.echelleX * x;
        ey = v.decalY - v.echelleY * y;
    } else if (v.cavaliere.active) {
        double u, w;
        planCavaliere(v.cavaliere, x, y, z, u, w);
        ex = v.cavaliere.origineX + v.cavaliere.echelle * u;
        ey = v.cavaliere.origineY - v.cavaliere.echelle * w;
    } else {
        const double ox = p.Xviseur, oy = p.Yviseur, oz = p.Zviseur;
        const double d1 = distance(x, y, z, ox, oy, oz);
        const double d2 = distance(x, y, z, v.centreVueX, v.centreVueY, v.centreVueZ);
        const double c = cosinusAngle(d2, d1, 1);
        // Abreast of the viewer the point is thrown far away, not refused.
        const double k = c != 0 ? 1 / c : std::pow(10.0, 6);
        // Behind the viewer (c < 0) the point goes through it to the other side.
        double qx, qy, qz;
        if (!divise((x - ox) * k, d1, qx) || !divise((y - oy) * k, d1, qy) || !divise((z - oz) * k, d1, qz))
            return false;  // the point is at the viewer
        qx += ox;
        qy += oy;
        qz += oz;
        const double r = distance(qx, qy, qz, v.centreVueX, v.centreVueY, v.centreVueZ);
        const double s1 = distance(qx, qy, qz, v.repereHX, v.repereHY, v.repereHZ);
        const double s2 = distance(qx, qy, qz, v.repereVX, v.repereVY, v.repereVZ);
        const double c1 = cosinusAngle(s1, r, 0.2);
        const double c2 = cosinusAngle(s2, r, 0.2);
        ex = (v.W - margeEspaceX) * (r * c1 + 1) / 2;
        ey = (v.H - margeHauteur) * (1 - r * c2) / 2;
    }
    if (!std::isfinite(ex) || !std::isfinite(ey))
        return false;
    sx = ex;
    sy = ey;
    return true;
}

double profondeur(const Parametres& p, const Vue& v, double x, double y, double z)
{
    // Cavalière: the viewer looks along the receding axis from +x, so a
    // larger turned x' is nearer. The depth is 1 / (K + x'), K from the
    // ranges (calibreCavaliere) keeping K + x' > 1 over the frame's box:
    // positive, ordered along every line of sight (x' grows by 1 for each
    // step of the receding axis along it), and its inverse K + x' is affine
    // in x, y, z, hence affine in screen coordinates over a flat face, as
    // the parallel projection maps the face affinely.
    if (v.cavaliere.active) {
        const double d = v.cavaliere.constanteProfondeur + xTourne(v.cavaliere, x, y);
        return d > 0 ? 1 / d : 0;
    }
    const double dx = p.Xdirection, dy = p.Ydirection, dz = p.Zdirection;
    const double n = std::sqrt(normeCarree(dx, dy, dz));
    if (n == 0)
        return 0;
    return ((x - p.Xviseur) * dx + (y - p.Yviseur) * dy + (z - p.Zviseur) * dz) / n;
}

void remetBase(Parametres& p)
{
    p.xmin = p.ymin = -10;
    p.zmin = -10;
    p.xmax = p.ymax = p.zmax = 10;
}

namespace {

// Space: the screen images of the origin and of the three unit points. A
// point that cannot be projected (the viewer sits on it) keeps its old image.
void calibreEspace(const Parametres& p, Vue& v)
{
    if (v.cavaliere.active)
        calibreCavaliere(p, v);
    projette(p, v, true, 0, 0, 0, v.origineEcranX, v.origineEcranY);
    projette(p, v, true, 1, 0, 0, v.imageUxX, v.imageUxY);
    projette(p, v, true, 0, 1, 0, v.imageUyX, v.imageUyY);
    projette(p, v, true, 0, 0, 1, v.imageUzX, v.imageUzY);
}

void calibrePlan(const Parametres& p, Vue& v, int repereOrthonorme)
{
    v.echelleX = v.largeurUtile / v.etendueX;
    v.echelleY = v.hauteurUtile / v.etendueY;
    v.decalX = decalPlanGauche - p.xmin * v.echelleX;
    v.decalY = decalPlanHaut + p.ymax * v.echelleY;
    // Equal scales: the smaller one wins and (0, 0) stays where the unequal
    // scales put it; the picture shrinks towards it.
    if (repereOrthonorme == 1) {
        if (v.echelleX > v.echelleY)
            v.echelleX = v.echelleY;
        else
            v.echelleY = v.echelleX;
    }
    v.origineEcranX = v.decalX;
    v.origineEcranY = v.decalY;
}

}  // namespace

bool calibre(Parametres& p, Vue& v, bool modeEspace)
{
    v.largeurUtile = v.W - margePlanX;
    v.hauteurUtile = v.H - margeHauteur;
    v.etendueX = p.xmax - p.xmin;
    v.etendueY = p.ymax - p.ymin;
    if (modeEspace)
        v.etendueZ = p.zmax - static_cast<double>(p.zmin);
    // Only x and y are examined, in both modes: a reversed z range is drawn
    // as it is.
    const bool admis = v.etendueX > 0 && v.etendueY > 0;
    if (!admis) {
        // Every bound goes back to the base [-10, 10]; the values derived
        // from the base are computed at once so the caller can draw.
        remetBase(p);
        calibre(p, v, modeEspace);
        return false;
    }
    if (modeEspace)
        calibreEspace(p, v);
    else
        calibrePlan(p, v, p.repereOrthonorme);
    return true;
}

bool ajusteVue(Parametres& p, Vue& v, bool modeEspace, double W, double H)
{
    v.W = W;
    v.H = H;
    prepareVue(p, modeEspace, v);
    return calibre(p, v, modeEspace);
}

}  // namespace velorin
