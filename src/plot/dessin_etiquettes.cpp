#include "plot/dessin_etiquettes.h"

#include <string>

namespace velorin {

void dessineEtiquettes(const Etiquettes& etiquettes, Surface& surface)
{
    const GardePlume garde(surface);
    for (std::size_t k = 1; k < etiquettes.lb.size(); ++k) {
        const Etiquette& e = etiquettes.lb[k];
        if (!e.visible || e.texte.empty())
            continue;
        surface.FontName = e.police;
        surface.FontSize = e.taille;
        surface.FontBold = e.gras;
        surface.FontItalic = e.italique;
        surface.FontUnderline = e.souligne;
        surface.ForeColor = static_cast<Couleur>(e.couleur) & 0xFFFFFF;
        surface.CurrentY = e.haut;
        std::size_t debut = 0;
        while (debut <= e.texte.size()) {
            std::size_t fin = e.texte.find('\n', debut);
            if (fin == std::string::npos)
                fin = e.texte.size();
            std::string ligne = e.texte.substr(debut, fin - debut);
            if (!ligne.empty() && ligne.back() == '\r')
                ligne.pop_back();
            surface.CurrentX = e.gauche;
            surface.Print(ligne);
            debut = fin + 1;
        }
    }
}

}  // namespace velorin
