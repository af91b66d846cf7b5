#include "catalogue/remplace_ligne.h"

#include <fstream>
#include <vector>

#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "base/verrou.h"

namespace velorin {

namespace {

// Copies `octets` bytes of `source` (or all that is left when negative) into
// `sortie`, through a buffer; false when fewer could be read. A failed write
// stops the copy and is told by sortie.termine().
bool copie(std::ifstream& source, EcritureEntiere& sortie, long long octets)
{
    std::vector<char> tampon(1 << 16);
    while (octets != 0) {
        const auto voulu = octets < 0 ? static_cast<std::streamsize>(tampon.size())
                                      : static_cast<std::streamsize>(std::min<long long>(octets, tampon.size()));
        source.read(tampon.data(), voulu);
        const std::streamsize lus = source.gcount();
        if (lus > 0 && !sortie.ecris(std::string_view(tampon.data(), static_cast<std::size_t>(lus))))
            return true;
        if (octets > 0)
            octets -= lus;
        if (lus < voulu)
            return octets <= 0;
    }
    return true;
}

}  // namespace

Erreur remplaceLigne(Catalogue& cat, NumeroLigne n, const LigneCatalogue& ligne)
{
    Verrou verrou(cat.chemin, "Le catalogue");
    if (verrou.erreur())
        return verrou.erreur();
    if (auto erreur = ouvrirCatalogue(cat))
        return erreur;
    if (n > limiteLignesCatalogue)
        return "Le catalogue " + texteCite(cat.chemin) + " est plein : il ne peut pas dépasser " +
               std::to_string(limiteLignesCatalogue) + " entrées.";
    if (n < 1 || n > cat.nbLignesCatalogue + 1)
        return "La ligne " + std::to_string(n) + " ne peut pas être écrite dans le catalogue " + texteCite(cat.chemin) +
               " (" + std::to_string(cat.nbLignesCatalogue) + " lignes).";
    std::ifstream source(cat.chemin, std::ios::binary);
    if (!source)
        return "Le catalogue " + texteCite(cat.chemin) + " ne peut pas être lu.";
    EcritureEntiere sortie(cat.chemin);
    if (auto erreur = sortie.ouverture())
        return erreur;
    const long long avant = static_cast<long long>(n - 1) * tailleEnregistrement;
    bool lu = copie(source, sortie, avant);
    sortie.ecris(octetsEnregistrement(ligne));
    if (lu && n <= cat.nbLignesCatalogue) {
        // The records after the changed one, and a partial record if any.
        source.seekg(avant + tailleEnregistrement);
        lu = source.good() && copie(source, sortie, -1);
    }
    if (!lu)
        return "Le catalogue " + texteCite(cat.chemin) + " n'a pas pu être relu en entier : il n'est pas changé.";
    if (auto erreur = sortie.termine())
        return erreur;
    if (n > cat.nbLignesCatalogue) {
        cat.nbLignesCatalogue = n;
        cat.marquesCatalogue.resize(static_cast<std::size_t>(n) + 1, 0);
    }
    return {};
}

}  // namespace velorin
