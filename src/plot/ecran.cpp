#include "plot/ecran.h"

namespace velorin {

bool ajusteVue(Etat& etat, double W, double H)
{
    return ajusteVue(etat.param, etat.vue, etat.fenetre.modeEspace, W, H);
}

CouleursRepere couleursRepere(const Etat& etat)
{
    return couleursRepere(etat.param, etat.couleurs, etat.fenetre.inversionVideo);
}

void effaceEcran(Etat& etat, Surface& surface)
{
    effaceEcran(etat.param, etat.couleurs, etat.fenetre.inversionVideo, surface);
}

void traceRepere(const Etat& etat, Surface& surface)
{
    traceRepere(etat.param, etat.vue, etat.fenetre.modeEspace, couleursRepere(etat).axes, surface);
}

}  // namespace velorin
