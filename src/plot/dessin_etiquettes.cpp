#include "plot/dessin_etiquettes.h"

#include <string>

namespace velorin {

void dessineEtiquettes(const Etiquettes& etiquettes, Surface& surface)
{
    const double x0 = surface.CurrentX, y0 = surface.CurrentY;
    const Couleur couleur0 = surface.ForeColor;
    const std::string police0 = surface.FontName;
    const double taille0 = surface.FontSize;
    const bool gras0 = surface.FontBold, italique0 = surface.FontItalic, souligne0 = surface.FontUnderline;
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
    surface.CurrentX = x0;
    surface.CurrentY = y0;
    surface.ForeColor = couleur0;
    surface.FontName = police0;
    surface.FontSize = taille0;
    surface.FontBold = gras0;
    surface.FontItalic = italique0;
    surface.FontUnderline = souligne0;
}

}  // namespace velorin
