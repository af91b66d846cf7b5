#include "view/repere.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "view/format_nombre.h"
#include "view/graduations.h"
#include "view/projection.h"
#include "view/repere_trace.h"

namespace velorin {

Couleur inverseVideo(Couleur c)
{
    return (~c) & 0xFFFFFF;
}

CouleursRepere couleursRepere(const Parametres& p, const SchemaCouleurs& schema, bool inversionVideo)
{
    CouleursRepere c;
    const bool blanc = p.fondBlanc == 1;
    c.fond = blanc ? 0xFFFFFF : (schema.couleurFondSombre & 0xFFFFFF);
    c.axes = blanc ? 0x000000 : (schema.couleurAxes & 0xFFFFFF);
    if (inversionVideo) {
        c.fond = inverseVideo(c.fond);
        c.axes = inverseVideo(c.axes);
    }
    if (c.axes == c.fond)
        c.axes = inverseVideo(c.fond);
    return c;
}

void effaceEcran(const Parametres& p, SchemaCouleurs& schema, bool inversionVideo, Surface& surface)
{
    const CouleursRepere c = couleursRepere(p, schema, inversionVideo);
    schema.couleurFond = c.fond;
    surface.Clear(c.fond);
}

const char* motifGraduation(double v)
{
    const double a = std::fabs(v);
    if (a == 0 || (a >= 0.01 && a < 10))
        return "0.000";
    if (a >= 10 && a < 100)
        return "00.00";
    return a < 0.01 ? "0.00E-00" : "0.00E+00";
}

double tailleTexteRepere(double W, double H)
{
    const double taille = std::round(std::min(W / twipsParPixelEcran / 130, H / twipsParPixelEcran / 95));
    return std::clamp(taille, 8.0, 11.0);
}

namespace {

constexpr double procheViseur = 0.05;  // nearest depth drawn in front of the viewer

// Space frame. Half-axes are cut where they pass behind the viewer: beyond
// that plane the central projection would throw their images across the
// picture.
class RepereEspace {
public:
    RepereEspace(const Parametres& p, const Vue& v, TraceRepere& t, bool gradue) : p_(p), v_(v), t_(t), gradue_(gradue)
    {
        const double n = std::sqrt(normeCarree(p_.Xdirection, p_.Ydirection, p_.Zdirection));
        if (n > 0) {
            dx_ = p_.Xdirection / n;
            dy_ = p_.Ydirection / n;
            dz_ = p_.Zdirection / n;
        }
    }

    void trace()
    {
        struct Bout {
            double x, y, z, valeur;
        };
        const Bout bouts[6] = {{p_.xmin, 0, 0, p_.xmin}, {p_.xmax, 0, 0, p_.xmax}, {0, p_.ymin, 0, p_.ymin},
                               {0, p_.ymax, 0, p_.ymax}, {0, 0, p_.zmin, p_.zmin}, {0, 0, p_.zmax, p_.zmax}};
        for (int i = 0; i < 6; ++i) {
            const Bout& b = bouts[i];
            double ax, ay, bx, by;
            if (b.valeur == 0 || !segment(b.x, b.y, b.z, ax, ay, bx, by))
                continue;
            const Point3 pa{t0_ * b.x, t0_ * b.y, t0_ * b.z}, pb{t1_ * b.x, t1_ * b.y, t1_ * b.z};
            bouts_[i] = pb;
            t_.ligneEspace(ax, ay, bx, by, pa, pb, [&](double x, double y) { return pointVu(pa, pb, x, y); });
            const double l = std::hypot(bx - ax, by - ay);
            double ex, ey;
            if (l >= 1)
                vus_[i] = {true,         entier(b.x, b.y, b.z, ex, ey) && t_.dedans(bx, by), bx, by, (bx - ax) / l,
                           (by - ay) / l};
        }
        for (int i = 0; i < 6; ++i) {
            const DemiAxe& d = vus_[i];
            t_.attache(&bouts_[i]);
            if (d.bout && bouts[i].valeur > 0)
                t_.fleche(d.x, d.y, d.ux, d.uy);
            else if (d.bout)
                t_.trait(d.x, d.y, d.ux, d.uy, tailleTrait);
        }
        t_.attache(nullptr);
        lettres();
        for (int i = 0; i < 6; ++i)
            if (vus_[i].bout) {
                const double v = bouts[i].valeur;
                t_.attache(&bouts_[i]);
                t_.texte(formatNombre(v, motifGraduation(v)), vus_[i].x, vus_[i].y, vus_[i].ux, vus_[i].uy,
                         ecartNombre);
                t_.attache(nullptr);
            }
        const double mins[3] = {p_.xmin, p_.ymin, p_.zmin}, maxs[3] = {p_.xmax, p_.ymax, p_.zmax};
        for (int axe = 0; gradue_ && axe < 3; ++axe)
            graduations(axe, mins[axe], maxs[axe]);
    }

private:
    static constexpr double tailleTrait = 60, ecartNombre = 90, ecartLettre = 70;

    // Distance in front of the viewer; in cavalière every point is in sight.
    double profondeur(double x, double y, double z) const
    {
        if (v_.cavaliere.active)
            return 1;
        return (x - p_.Xviseur) * dx_ + (y - p_.Yviseur) * dy_ + (z - p_.Zviseur) * dz_;
    }

    bool image(double x, double y, double z, double& sx, double& sy) const
    {
        return projette(p_, v_, true, x, y, z, sx, sy);
    }

    // The whole point is in front of the viewer and projects to (sx, sy).
    bool entier(double x, double y, double z, double& sx, double& sy) const
    {
        return profondeur(x, y, z) > procheViseur && image(x, y, z, sx, sy);
    }

    // Image of the part of the segment from the origin to (x, y, z) that
    // lies in front of the viewer (kept in t0_, t1_).
    bool segment(double x, double y, double z, double& ax, double& ay, double& bx, double& by)
    {
        const double f0 = profondeur(0, 0, 0), f1 = profondeur(x, y, z);
        if (f0 <= procheViseur && f1 <= procheViseur)
            return false;
        double t0 = 0, t1 = 1;
        if (f0 < procheViseur)
            t0 = (procheViseur - f0) / (f1 - f0);
        if (f1 < procheViseur)
            t1 = (procheViseur - f0) / (f1 - f0);
        t0_ = t0;
        t1_ = t1;
        return image(t0 * x, t0 * y, t0 * z, ax, ay) && image(t1 * x, t1 * y, t1 * z, bx, by);
    }

    // The point of the segment of space from a to b (in front of the viewer)
    // whose image is the point (x, y) of the image of the segment, found by
    // halving: the image moves along its segment as the point moves along a..b.
    Point3 pointVu(const Point3& a, const Point3& b, double x, double y) const
    {
        double ax, ay, bx, by;
        if (!image(a.x, a.y, a.z, ax, ay) || !image(b.x, b.y, b.z, bx, by))
            return a;
        const double dx = bx - ax, dy = by - ay, l2 = dx * dx + dy * dy;
        if (!(l2 > 0))
            return a;
        const double cible = ((x - ax) * dx + (y - ay) * dy) / l2;
        double bas = 0, haut = 1;
        for (int k = 0; k < 50; ++k) {
            const double u = (bas + haut) / 2;
            double sx, sy;
            if (!image(a.x + u * (b.x - a.x), a.y + u * (b.y - a.y), a.z + u * (b.z - a.z), sx, sy))
                break;
            if (((sx - ax) * dx + (sy - ay) * dy) / l2 < cible)
                bas = u;
            else
                haut = u;
        }
        const double u = (bas + haut) / 2;
        return {a.x + u * (b.x - a.x), a.y + u * (b.y - a.y), a.z + u * (b.z - a.z)};
    }

    // The ticks and numbers of axis `axe` (0 x, 1 y, 2 z) over [min, max].
    void graduations(int axe, double min, double max)
    {
        const double pas = pasEspace(min, max);
        if (!(pas > 0))
            return;
        const std::string motif = motifPas(pas);
        const double delta = (max - min) * 1e-3;
        for (double valeur : valeursGraduees(min, max, pas)) {
            if (valeur == 0 || std::fabs(valeur - min) < pas * 1e-6 || std::fabs(valeur - max) < pas * 1e-6)
                continue;
            double c[3] = {0, 0, 0};
            c[axe] = valeur;
            double sx, sy, ax, ay;
            if (!entier(c[0], c[1], c[2], sx, sy) || !t_.dedans(sx, sy))
                continue;
            // The axis's direction on the screen here.
            double e[3] = {c[0], c[1], c[2]};
            e[axe] += delta;
            if (!image(e[0], e[1], e[2], ax, ay) || std::hypot(ax - sx, ay - sy) == 0)
                continue;
            const double ux = (ax - sx) / std::hypot(ax - sx, ay - sy), uy = (ay - sy) / std::hypot(ax - sx, ay - sy);
            // Across the axis, along the other axis that shows most across it.
            int meilleur = -1;
            double travers = 0, longueur = 0;
            for (int j = 0; j < 3; ++j) {
                if (j == axe)
                    continue;
                double f[3] = {c[0], c[1], c[2]};
                f[j] += delta;
                double bx, by;
                if (!image(f[0], f[1], f[2], bx, by))
                    continue;
                const double l = std::hypot(bx - sx, by - sy);
                const double t = l > 0 ? std::fabs(ux * (by - sy) - uy * (bx - sx)) / l : 0;
                if (t > travers + 1e-9) {
                    travers = t;
                    meilleur = j;
                    longueur = l;
                }
            }
            if (meilleur < 0)
                continue;
            const double demi = delta * tailleTrait / longueur;
            Point3 a{c[0], c[1], c[2]}, b = a;
            (meilleur == 0 ? a.x : meilleur == 1 ? a.y : a.z) -= demi;
            (meilleur == 0 ? b.x : meilleur == 1 ? b.y : b.z) += demi;
            double x1, y1, x2, y2;
            if (entier(a.x, a.y, a.z, x1, y1) && entier(b.x, b.y, b.z, x2, y2))
                t_.ligneEspace(x1, y1, x2, y2, a, b);
            // The number across the axis, on the lower right side.
            double nx = -uy, ny = ux;
            if (nx + ny < 0) {
                nx = -nx;
                ny = -ny;
            }
            const Point3 ancre{c[0], c[1], c[2]};
            t_.attache(&ancre);
            t_.texte(formatNombre(valeur, motif), sx, sy, nx, ny, ecartNombre);
            t_.attache(nullptr);
        }
    }

    // "I", "J", "K" beside their unit points, across their axis, with a
    // tick; then "O" in the widest angle left between the half-axes.
    void lettres()
    {
        struct Unite {
            const char* nom;
            double x, y, z, max;
            const DemiAxe& axe;
        };
        const Unite unites[3] = {
            {"I", 1, 0, 0, p_.xmax, vus_[1]}, {"J", 0, 1, 0, p_.ymax, vus_[3]}, {"K", 0, 0, 1, p_.zmax, vus_[5]}};
        for (const Unite& u : unites) {
            double sx, sy;
            if (!entier(u.x, u.y, u.z, sx, sy) || !t_.dedans(sx, sy))
                continue;
            const Point3 unite{u.x, u.y, u.z};
            t_.attache(&unite);
            if (u.max >= 1 && u.axe.axe)
                t_.trait(sx, sy, u.axe.ux, u.axe.uy, tailleTrait / 2);
            t_.attache(nullptr);
            // Across the axis, on the lower right side.
            double nx = -u.axe.uy, ny = u.axe.ux;
            if (nx + ny < 0) {
                nx = -nx;
                ny = -ny;
            }
            t_.attache(&unite);
            t_.texte(u.nom, sx, sy, nx, ny, ecartLettre);
            t_.attache(nullptr);
        }
        double ox, oy;
        if (entier(0, 0, 0, ox, oy) && t_.dedans(ox, oy)) {
            const double a = angleLibre();
            const Point3 origine{0, 0, 0};
            t_.attache(&origine);
            t_.texte("O", ox, oy, std::cos(a), std::sin(a), ecartLettre);
            t_.attache(nullptr);
        }
    }

    // Middle of the widest angle between the screen directions of the
    // half-axes drawn (straight down when none is drawn).
    double angleLibre() const
    {
        std::vector<double> angles;
        for (const DemiAxe& d : vus_)
            if (d.axe)
                angles.push_back(std::atan2(d.uy, d.ux));
        if (angles.empty())
            return std::atan2(1.0, 0.0);
        std::sort(angles.begin(), angles.end());
        const double tour = 8 * std::atan(1.0);
        double meilleur = angles.front() + tour / 2, largeur = 0;
        for (std::size_t i = 0; i < angles.size(); ++i) {
            const double suivant = i + 1 < angles.size() ? angles[i + 1] : angles[0] + tour;
            if (suivant - angles[i] > largeur) {
                largeur = suivant - angles[i];
                meilleur = (angles[i] + suivant) / 2;
            }
        }
        return meilleur;
    }

    const Parametres& p_;
    const Vue& v_;
    TraceRepere& t_;
    bool gradue_;
    double dx_ = 0, dy_ = 0, dz_ = 0;
    // The half-axes -x, +x, -y, +y, -z, +z as drawn: `axe` when a line of
    // some length shows (ux, uy its screen direction from the origin's
    // side), `bout` when its end (x, y) is in sight.
    struct DemiAxe {
        bool axe = false, bout = false;
        double x = 0, y = 0, ux = 0, uy = 0;
    };
    DemiAxe vus_[6];
    Point3 bouts_[6]{};            // the drawn end of each half-axis
    double t0_ = 0, t1_ = 1;       // the part of the last half-axis in front of the viewer
};

}  // namespace

void traceRepere(const Parametres& p, const Vue& v, bool modeEspace, Couleur couleurAxes, Surface& surface,
                 const OptionsRepere& options)
{
    if (!modeEspace && options.quadrillage)
        traceQuadrillage(p, v, options.couleurQuadrillage, surface);
    if (p.axesVisibles == 0)
        return;
    TraceRepere t(surface, couleurAxes);
    if (modeEspace) {
        RepereEspace r(p, v, t, options.repereGradue);
        r.trace();
    } else {
        traceReperePlan(p, v, t);
    }
}

Couleur couleurQuadrillage(const CouleursRepere& c)
{
    Couleur m = 0;
    for (int decalage = 0; decalage < 24; decalage += 8) {
        const unsigned fond = (c.fond >> decalage) & 0xFF, axes = (c.axes >> decalage) & 0xFF;
        m |= ((3 * fond + axes + 2) / 4) << decalage;
    }
    return m;
}

}  // namespace velorin
