#include "plot/redessin.h"

#include "plot/dessin_etiquettes.h"
#include "plot/ecran.h"
#include "plot/scene.h"

namespace velorin {

std::vector<int> toutesLesLignes(const TableCourbes& table)
{
    std::vector<int> lignes;
    for (int i = 1; i <= table.nbCourbes; ++i)
        lignes.push_back(i);
    return lignes;
}

namespace {

// Clearing, frame and curves of `quoi`; true when a curve stopped the
// redraw, its message then in `erreur`.
bool dessine(Etat& etat, Surface& surface, const Redessin& quoi, Erreur& erreur)
{
    if (quoi.efface)
        effaceEcran(etat, surface);
    if (quoi.repere)
        traceRepere(etat, surface);
    if ((quoi.efface || quoi.repere) && quoi.progres)
        quoi.progres();
    std::vector<OptionsTrace> courbes;
    for (int i : quoi.lignes)
        if (i >= 1 && i <= static_cast<int>(etat.courbes.lignes.size()))
            courbes.push_back(OptionsTrace{i});
    for (std::size_t rang = 0; rang < quoi.entrees.size(); ++rang)
        courbes.push_back(OptionsTrace{0, quoi.couleurs, static_cast<int>(rang)});
    for (const OptionsTrace& options : courbes) {
        if (quoi.avant)
            quoi.avant();
        const int numero = options.ligne == 0 ? quoi.entrees[static_cast<std::size_t>(options.rang)] : 0;
        const ResultatTrace r = demandeTrace(etat, surface, numero, options, quoi.crochets);
        if (quoi.apres ? !quoi.apres(options, r) : static_cast<bool>(r.erreur)) {
            erreur = r.erreur;
            return true;
        }
    }
    return false;
}

}  // namespace

Erreur redessine(Etat& etat, Surface& surface, const Redessin& quoi)
{
    Erreur erreur;
    if (etat.fenetre.modeEspace && renduCache(etat.rendu)) {
        // The solid is resolved as a whole: everything goes to the scene,
        // which then draws on the surface. Curves added to the picture
        // cannot be resolved against lines already drawn, so the picture
        // is drawn again whole with them. No pause: a surface is computed
        // whole before it is drawn.
        Redessin solide = quoi;
        if (!solide.efface && solide.lignes.empty() && !solide.entrees.empty()) {
            solide.efface = solide.repere = true;
            solide.lignes = toutesLesLignes(etat.courbes);
        }
        solide.crochets.pause = nullptr;
        solide.progres = nullptr;
        Scene scene(surface, etat.param, etat.vue, etat.rendu.style);
        const bool arrete = dessine(etat, scene, solide, erreur);
        scene.resous();
        if (arrete)
            return erreur;
    } else if (dessine(etat, surface, quoi, erreur)) {
        return erreur;
    }
    if (quoi.etiquettes)
        dessineEtiquettes(etat.etiquettes, surface);
    return {};
}

}  // namespace velorin
