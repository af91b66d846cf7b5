#include "base/motif_numerote.h"

#include "base/texte_sur.h"

namespace velorin {

bool estMotifNumerote(const std::string& texte)
{
    return texte.find('%') != std::string::npos;
}

Erreur lisMotifNumerote(const std::string& texte, MotifNumerote& motif)
{
    const std::string debut = "Le nom numéroté " + texteCite(texte) + " ";
    const std::size_t barre = texte.rfind('/');
    MotifNumerote m;
    int numeros = 0;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        std::string& cible = numeros == 0 ? m.avant : m.apres;
        if (texte[i] != '%') {
            cible += texte[i];
            continue;
        }
        if (i + 1 < texte.size() && texte[i + 1] == '%') {
            cible += '%';
            ++i;
            continue;
        }
        if (barre != std::string::npos && i < barre)
            return debut + "met un % dans le nom du dossier : le numéro va dans le nom du fichier.";
        std::size_t j = i + 1;
        int chiffres = 0;
        if (j < texte.size() && texte[j] == '0') {
            ++j;
            if (j < texte.size() && texte[j] >= '1' && texte[j] <= '9')
                chiffres = texte[j++] - '0';
            else
                j = texte.size();  // "%0" alone or "%00": refused below
        }
        if (j >= texte.size() || texte[j] != 'd')
            return debut + "est incorrect : écrivez %d ou %03d (de %01d à %09d) à la place du numéro, %% pour un %.";
        ++numeros;
        if (numeros > 1)
            return debut + "a plus d'un numéro : un seul %d ou %03d.";
        m.chiffres = chiffres;
        i = j;
    }
    if (numeros == 0)
        return debut + "n'a pas de numéro : écrivez %d ou %03d à sa place.";
    motif = std::move(m);
    return {};
}

std::string nomNumerote(const MotifNumerote& motif, int numero)
{
    std::string n = std::to_string(numero);
    if (int(n.size()) < motif.chiffres)
        n.insert(0, std::size_t(motif.chiffres) - n.size(), '0');
    return motif.avant + n + motif.apres;
}

}  // namespace velorin
