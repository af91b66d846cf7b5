#include "plot/point_trace.h"

#include <algorithm>
#include <cmath>

#include "catalogue/genre.h"
#include "view/projection.h"

namespace velorin {

bool sautAdmissible(const Vue& vue, double x1, double y1, double x2, double y2)
{
    return !(std::abs(x2 - x1) > 0.5 * vue.largeurUtile || std::abs(y2 - y1) > 0.5 * vue.hauteurUtile);
}

bool pointAdmis(const Etat& etat, double sx, double sy, double x, double y, double z)
{
    const Parametres& p = etat.param;
    if (etat.fenetre.modePlan)
        return !(sx < 0 || sx > etat.vue.W - margeEspaceX || sy < 0 || sy > etat.vue.H - margeHauteur) &&
               std::isfinite(sx) && std::isfinite(sy);
    // A point is refused as soon as its foot on one axis lies beyond the end
    // of the drawn half-axis, i.e. one coordinate leaves its range.
    const double zBas = std::min<double>(p.zmin, p.zmax);
    const double zHaut = std::max<double>(p.zmin, p.zmax);
    return x >= p.xmin && x <= p.xmax && y >= p.ymin && y <= p.ymax && z >= zBas && z <= zHaut;
}

void traceProjection(Etat& etat, Surface& surface, double sx, double sy, double X, double Y, double Z, Couleur couleur)
{
    double px, py;
    if (!projette(etat.param, etat.vue, etat.fenetre.modeEspace, X, Y, Z, px, py))
        return;
    surface.DrawStyle = 2;
    surface.LineEspace(sx, sy, px, py, etat.trace.espace, Point3{X, Y, Z}, couleur);
    surface.DrawStyle = 0;
    surface.Circle(px, py, rayonPiedProjection, couleur);
}

namespace {

// Tangent, radius and projection marks of a tenth point.
void traceMarques(Etat& etat, Surface& surface)
{
    EtatTrace& t = etat.trace;
    const Parametres& p = etat.param;
    const SchemaCouleurs& c = etat.couleurs;
    // The tangent is issued with whatever ends are stored: a tracer that
    // computes none leaves both on the image of (0, 0), and that segment of
    // no length is drawn like any other.
    // The tangent is hidden or seen with its point.
    surface.LineEspace(t.tangenteX1, t.tangenteY1, t.tangenteX2, t.tangenteY2, t.espace, t.espace, c.couleurTangente);
    if (etat.moteur.genreCourbe == genreCourbeSpherique && p.avecRayon)
        surface.LineEspace(etat.vue.origineEcranX, etat.vue.origineEcranY, t.ecranX, t.ecranY, Point3{}, t.espace,
                           c.couleurRayon);
    const double x = etat.moteur.pointX, y = etat.moteur.pointY, z = etat.moteur.pointZ;
    if (p.projOx)
        traceProjection(etat, surface, t.ecranX, t.ecranY, x, 0, 0, c.couleurProjOx);
    if (p.projOy)
        traceProjection(etat, surface, t.ecranX, t.ecranY, 0, y, 0, c.couleurProjOy);
    if (!etat.fenetre.modeEspace)
        return;
    if (p.projOz)
        traceProjection(etat, surface, t.ecranX, t.ecranY, 0, 0, z, c.couleurProjOz);
    if (p.projXOy)
        traceProjection(etat, surface, t.ecranX, t.ecranY, x, y, 0, c.couleurProjXOy);
    if (p.projXOz)
        traceProjection(etat, surface, t.ecranX, t.ecranY, x, 0, z, c.couleurProjXOz);
    if (p.projYOz)
        traceProjection(etat, surface, t.ecranX, t.ecranY, 0, y, z, c.couleurProjYOz);
}

}  // namespace

bool dansAireDessin(const Vue& v, double sx, double sy)
{
    return std::isfinite(sx) && std::isfinite(sy) &&
           !(sx < aireGauche || sy < aireHaut || sx > v.largeurUtile || sy > v.hauteurUtile + aireBas);
}

void tracePoint(Etat& etat, Surface& surface, int marque, Couleur couleur, const CrochetsTrace& crochets)
{
    EtatTrace& t = etat.trace;
    const Vue& v = etat.vue;
    const bool dedans = dansAireDessin(v, t.ecranX, t.ecranY);
    t.pointVisible = dedans ? 1 : 0;
    etat.couleurs.couleurProjXOy = couleurProjectionXOy;
    if (marque == 1 && dedans)
        traceMarques(etat, surface);

    const std::int16_t pause = etat.param.pauseMs;
    if (etat.fenetre.pauseActive && pause >= 1 && crochets.pause)
        crochets.pause(pause);

    if (dedans) {
        if (etat.param.traceContinu != 1) {
            surface.PSetEspace(t.ecranX, t.ecranY, t.espace, couleur);
        } else {
            if (t.nbVisiblesSuite > 0 && sautAdmissible(v, t.precX, t.precY, t.ecranX, t.ecranY))
                surface.LineEspace(t.precX, t.precY, t.ecranX, t.ecranY, t.precEspace, t.espace, couleur);
            else
                surface.PSetEspace(t.ecranX, t.ecranY, t.espace, couleur);
            t.precX = t.ecranX;
            t.precY = t.ecranY;
            t.precEspace = t.espace;
        }
        ++t.nbVisiblesSuite;
    } else {
        t.nbVisiblesSuite = 0;
    }
}

}  // namespace velorin
