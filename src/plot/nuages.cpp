// Clouds: the calculation grid is walked point by point (x outer, then y,
// then z), g, f and h are evaluated at each grid point and the point is set
// when g < f < h. A grid point counts i = 0..n along each axis, both ends of
// the range included, like the walk of the plane curve tracer.
#include "plot/nuages.h"

#include <algorithm>
#include <cmath>

#include "catalogue/genre.h"
#include "engine/compilation.h"
#include "engine/lecture.h"
#include "plot/point_trace.h"
#include "view/projection.h"

namespace velorin {

namespace {

constexpr long kPointsEntreTests = 4096;  // interruption test period

// Subdivision count of a range: its whole part, or 0 when below 1 or not
// finite.
long compte(double n)
{
    if (!std::isfinite(n) || n < 1)
        return 0;
    return static_cast<long>(std::min(n, maxPointsNuage));
}

struct Axe {
    double debut = 0, pas = 0;
    long n = 0;  // subdivisions: n + 1 values
    double valeur(long i) const { return debut + pas * double(i); }
};

}  // namespace

void traceNuage(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    const Parametres& p = etat.param;
    const bool espace3 = etat.trace.typeTrace == genreNuageEspace;
    Axe axes[3] = {{p.xmin, 0, compte(p.nbrCalX)},
                   {p.ymin, 0, compte(p.nbrCalY)},
                   {double(p.zmin), 0, espace3 ? compte(p.nbrCalZ) : 0}};
    const int dimensions = espace3 ? 3 : 2;
    double total = 1;
    for (int i = 0; i < dimensions; ++i) {
        if (axes[i].n == 0)
            return;
        total *= double(axes[i].n + 1);
    }
    if (total > maxPointsNuage) {
        const double facteur = std::pow(maxPointsNuage / total, 1.0 / dimensions);
        for (int i = 0; i < dimensions; ++i)
            axes[i].n = std::max(1L, static_cast<long>(std::floor(double(axes[i].n) * facteur)));
    }
    const double fins[3] = {p.xmax, p.ymax, p.zmax};
    for (int i = 0; i < 3; ++i) {
        axes[i].pas = axes[i].n > 0 ? (fins[i] - axes[i].debut) / double(axes[i].n) : 0;
        if (!std::isfinite(axes[i].debut) || !std::isfinite(axes[i].pas))
            return;
    }
    if (!espace3)
        axes[2] = {0, 0, 0};

    GlobalesMoteur& m = etat.moteur;
    const Vue& v = etat.vue;
    const Couleur couleur = etat.couleurs.couleurTrace;
    // g, f and h are evaluated a run of grid points at a time (the same
    // values as point by point, in the same walk order). A run that meets
    // unreadable brackets is evaluated again point by point, so that the
    // points before the faulty one are set as they always were.
    const FormulesCompilees formules(Famille::Nuage, {m.formuleF1, m.formuleF2, m.formuleF3});
    constexpr long kRun = 256;
    double xs[kRun], ys[kRun], zs[kRun], gs[kRun], fs[kRun], hs[kRun];
    double* sorties[3] = {gs, fs, hs};
    const long nz = axes[2].n + 1, nyz = (axes[1].n + 1) * nz, points = (axes[0].n + 1) * nyz;
    for (long debut = 0; debut < points; debut += kRun) {
        const long nb = std::min(kRun, points - debut);
        for (long q = 0; q < nb; ++q) {
            const long rang = debut + q;
            xs[q] = axes[0].valeur(rang / nyz);
            ys[q] = axes[1].valeur(rang % nyz / nz);
            zs[q] = axes[2].valeur(rang % nz);
        }
        const bool lisible = evalueBloc(formules, xs, ys, zs, sorties, std::size_t(nb));
        for (long q = 0; q < nb; ++q) {
            if ((debut + q + 1) % kPointsEntreTests == 0 && crochets.interrompu && crochets.interrompu())
                return;
            const double x = xs[q], y = ys[q], z = zs[q];
            double g = gs[q], f = fs[q], h = hs[q];
            if (!lisible) {
                Issue issues[3];
                g = m.formules.valeur(Famille::Nuage, m.formuleF1, x, y, z, &issues[0]);
                f = m.formules.valeur(Famille::Nuage, m.formuleF2, x, y, z, &issues[1]);
                h = m.formules.valeur(Famille::Nuage, m.formuleF3, x, y, z, &issues[2]);
                for (Issue issue : issues) {
                    if (issue == Issue::Incorrecte) {
                        m.erreurFormule = messageIncorrecte(Famille::Nuage);
                        return;
                    }
                }
            }
            if (!(g < f && f < h))
                continue;
            double sx = 0, sy = 0;
            if (!projette(p, v, etat.fenetre.modeEspace, x, y, z, sx, sy))
                continue;
            if (!dansAireDessin(v, sx, sy))
                continue;
            m.pointX = x;
            m.pointY = y;
            m.pointZ = z;
            surface.PSetEspace(sx, sy, Point3{x, y, z}, couleur);
        }
    }
}

}  // namespace velorin
