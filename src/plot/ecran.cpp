#include "plot/ecran.h"

namespace velorin {

bool ajusteVue(Etat& etat, double W, double H)
{
    VueCavaliere& c = etat.vue.cavaliere;
    c.active = etat.rendu.cavaliere;
    c.angle = etat.rendu.angleCavaliere;
    c.coef = etat.rendu.coefCavaliere;
    c.tour = etat.rendu.tourCavaliere;
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
    const CouleursRepere c = couleursRepere(etat);
    OptionsRepere options;
    options.quadrillage = etat.rendu.quadrillage;
    options.repereGradue = etat.rendu.repereGradue;
    options.couleurQuadrillage = couleurQuadrillage(c);
    traceRepere(etat.param, etat.vue, etat.fenetre.modeEspace, c.axes, surface, options);
}

}  // namespace velorin
