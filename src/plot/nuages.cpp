// Clouds: the calculation grid is walked point by point (x outer, then y,
// then z), g, f and h are evaluated at each grid point and the point is set
// when g < f < h. A grid point counts i = 0..n along each axis, both ends of
// the range included, like the walk of the plane curve tracer.
#include "plot/nuages.h"

#include <cmath>

#include "catalogue/genre.h"
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
    long compteur = 0;
    for (long i = 0; i <= axes[0].n; ++i) {
        const double x = axes[0].valeur(i);
        for (long j = 0; j <= axes[1].n; ++j) {
            const double y = axes[1].valeur(j);
            for (long k = 0; k <= axes[2].n; ++k) {
                if (++compteur % kPointsEntreTests == 0 && crochets.interrompu && crochets.interrompu())
                    return;
                const double z = axes[2].valeur(k);
                Issue issues[3];
                const double g = m.formules.valeur(Famille::Nuage, m.formuleF1, x, y, z, &issues[0]);
                const double f = m.formules.valeur(Famille::Nuage, m.formuleF2, x, y, z, &issues[1]);
                const double h = m.formules.valeur(Famille::Nuage, m.formuleF3, x, y, z, &issues[2]);
                for (Issue issue : issues) {
                    if (issue == Issue::Incorrecte) {
                        m.erreurFormule = messageIncorrecte(Famille::Nuage);
                        return;
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
                surface.PSet(sx, sy, couleur);
            }
        }
    }
}

}  // namespace velorin
