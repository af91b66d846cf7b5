// Shared set-up of the tracer tests: a calibrated state on a recording
// surface of the default size, and a reader of the recorded operations.
#pragma once
#include <optional>
#include <vector>

#include "plot/ecran.h"
#include "plot/etat.h"
#include "view/surface_enregistreuse.h"

namespace velorin::essai {

using Genre = OperationDessin::Genre;

// Plane: ranges [-10, 10], x maps to 6980 + 688 x and y to 5410 - 536 y.
// Space: viewer (30, 20, 15) looking at the origin. No pause.
inline Etat etatCalibre(bool espace)
{
    Etat etat;
    etat.fenetre.metsModeEspace(espace);
    etat.fenetre.pauseActive = false;
    ajusteVue(etat, etat.vue.W, etat.vue.H);
    return etat;
}

// The recorded operations of one kind, of one colour if given.
inline std::vector<OperationDessin> duGenre(const SurfaceEnregistreuse& s, Genre g, std::optional<Couleur> couleur = {})
{
    std::vector<OperationDessin> r;
    for (const auto& op : s.operations())
        if (op.genre == g && (!couleur || op.couleur == *couleur))
            r.push_back(op);
    return r;
}

}  // namespace velorin::essai
