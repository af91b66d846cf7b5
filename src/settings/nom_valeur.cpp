#include "settings/nom_valeur.h"

#include "base/texte_sur.h"
#include "engine/nombres.h"

namespace velorin {

Erreur lisNomsValeurs(const std::string& contenu, const std::string& chemin, const std::string& suite,
                      const std::function<std::string(std::string_view nom, std::string_view valeur)>& lis)
{
    int numero = 0;
    for (const std::string& texteLigne : lignesDuTexte(contenu)) {
        ++numero;
        const std::string_view ligne = sansBlancsAuxBouts(texteLigne, " \t");
        if (ligne.empty() || ligne.front() == '#')
            continue;
        const auto egal = ligne.find('=');
        const std::string refus =
            egal == std::string_view::npos
                ? "« nom=valeur » attendu, lu " + texteCite(ligne)
                : lis(sansBlancsAuxBouts(ligne.substr(0, egal), " \t"), sansBlancsAuxBouts(ligne.substr(egal + 1), " \t"));
        if (!refus.empty())
            return "Fichier " + texteCite(chemin) + ", ligne " + std::to_string(numero) + " : " + refus + ". " + suite;
    }
    return {};
}

}  // namespace velorin
