// Shared set-up of the tracer tests: a calibrated state on a recording
// surface of the default size, and small readers of the recorded operations.
#pragma once
#include <cmath>
#include <vector>

#include "etat.h"
#include "view/projection.h"
#include "view/surface_enregistreuse.h"

namespace velorin::essai {

using Genre = OperationDessin::Genre;

// Plane: ranges [-10, 10], so x maps to 6980 + 688 x and y to 5410 - 536 y.
// Space: viewer (30, 20, 15) looking at the origin.
inline Etat etatCalibre(bool espace)
{
    Etat etat;
    etat.fenetre.metsModeEspace(espace);
    etat.fenetre.pauseActive = false;
    prepareVue(etat.param, espace, etat.vue);
    calibre(etat.param, etat.vue, espace);
    return etat;
}

inline std::vector<OperationDessin> duGenre(const SurfaceEnregistreuse& s, Genre g)
{
    std::vector<OperationDessin> r;
    for (const auto& op : s.operations())
        if (op.genre == g)
            r.push_back(op);
    return r;
}

inline std::vector<OperationDessin> enCouleur(const SurfaceEnregistreuse& s, Genre g, Couleur c)
{
    std::vector<OperationDessin> r;
    for (const auto& op : duGenre(s, g))
        if (op.couleur == c)
            r.push_back(op);
    return r;
}

}  // namespace velorin::essai
