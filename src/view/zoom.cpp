// Zoom of the frame by a factor, and the magnifier rectangle.
#include "view/zoom.h"

#include <algorithm>

#include "view/souris.h"

namespace velorin {

namespace {

// Divides the range [bas, haut] by `facteur` about its centre (enlarging the
// drawing), or multiplies it (reducing it).
template <typename T> void echelonne(T& bas, double& haut, double facteur, bool agrandit)
{
    const double centre = (double(bas) + haut) / 2;
    const double demiAvant = (haut - double(bas)) / 2;
    const double demi = agrandit ? demiAvant / facteur : demiAvant * facteur;
    bas = T(centre - demi);
    haut = centre + demi;
}

}  // namespace

bool grossir(Parametres& p, int mode, bool modeEspace)
{
    if (mode < zoomPlus20 || mode > zoomDivise2)
        return false;
    const double facteur = mode == zoomPlus20 || mode == zoomMoins20 ? zoomFacteur20 : zoomFacteur2;
    const bool agrandit = mode == zoomPlus20 || mode == zoomFois2;
    echelonne(p.xmin, p.xmax, facteur, agrandit);
    echelonne(p.ymin, p.ymax, facteur, agrandit);
    echelonne(p.zmin, p.zmax, facteur, agrandit);
    if (modeEspace) {
        p.Zviseur = float(agrandit ? p.Zviseur / zoomFacteurViseur : p.Zviseur * zoomFacteurViseur);
    }
    return true;
}

bool grossirLoupe(Parametres& p, const Vue& v, double sx1, double sy1, double sx2, double sy2)
{
    double x1, y1, x2, y2;
    if (sx1 == sx2 || sy1 == sy2 || !pointDuPlan(v, sx1, sy1, x1, y1) || !pointDuPlan(v, sx2, sy2, x2, y2))
        return false;
    p.xmin = std::min(x1, x2);
    p.xmax = std::max(x1, x2);
    p.ymin = std::min(y1, y2);
    p.ymax = std::max(y1, y2);
    return true;
}

}  // namespace velorin
