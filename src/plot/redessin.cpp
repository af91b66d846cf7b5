#include "plot/redessin.h"

#include "plot/dessin_etiquettes.h"
#include "plot/ecran.h"

namespace velorin {

std::vector<int> toutesLesLignes(const TableCourbes& table)
{
    std::vector<int> lignes;
    for (int i = 1; i <= table.nbCourbes; ++i)
        lignes.push_back(i);
    return lignes;
}

Erreur redessine(Etat& etat, Surface& surface, const Redessin& quoi)
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
        if (quoi.apres ? !quoi.apres(options, r) : static_cast<bool>(r.erreur))
            return r.erreur;
    }
    if (quoi.etiquettes)
        dessineEtiquettes(etat.etiquettes, surface);
    return {};
}

}  // namespace velorin
