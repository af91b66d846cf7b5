#include "plot/points_memoire.h"

#include "base/texte_sur.h"
#include "base/verrou.h"
#include "catalogue/cp1252.h"
#include "engine/nombres.h"
#include "plot/demande.h"
#include "plot/texte_entree.h"

namespace velorin {

namespace {

std::string_view sansBlancs(std::string_view texte)
{
    return sansBlancsAuxBouts(texte, " \t");
}

// The text as a record gives it back: at most 300 single-byte characters.
std::string texteTelQueLu(const std::string& texte)
{
    std::string octets = versCp1252(texte);
    if (octets.size() > static_cast<std::size_t>(longueurTexte))
        octets.resize(static_cast<std::size_t>(longueurTexte));
    return depuisCp1252(octets);
}

Erreur verifieLongueur(const std::string& texte, const FaconEcrire& facon)
{
    const std::string octets = versCp1252(texte);
    if (facon.refuseTexteCoupe && octets.size() > static_cast<std::size_t>(longueurTexte))
        return "Le texte de l'entrée " + texteCite(texte) + " fait " + std::to_string(octets.size()) +
               " caractères et une ligne du catalogue n'en garde que " + std::to_string(longueurTexte) +
               " : il serait coupé et " + texteCite(depuisCp1252(octets.substr(longueurTexte))) +
               " perdu. Rien n'est écrit.";
    return {};
}

Erreur ajoute(Catalogue& cat, std::int16_t genre, const std::string& texte, Enregistrement& resultat,
              const FaconEcrire& facon)
{
    const NumeroLigne n = cat.nbLignesCatalogue + 1;
    if (auto erreur = facon.ecris(cat, n, LigneCatalogue{genre, texte}))
        return erreur;
    resultat.numero = n;
    resultat.nouveau = true;
    return {};
}

}  // namespace

Erreur chargePoints(Catalogue& cat, std::vector<PointMemoire>& points)
{
    points.clear();
    Erreur erreur;
    const std::string fin = std::string("[") + entierFormate(genrePoint, 2);
    const std::vector<std::string> lignes = listerCatalogue(cat, &erreur);
    for (std::size_t i = 1; i < lignes.size(); ++i) {
        const std::string& ligne = lignes[i];
        if (!ligne.ends_with(fin))
            continue;
        const auto debut = ligne.find(']') + 1;
        points.push_back({static_cast<NumeroLigne>(i), ligne, ligne.substr(debut, ligne.size() - fin.size() - debut)});
    }
    return erreur;
}

Erreur creePoint(Catalogue& cat, std::string_view coordonnees, Enregistrement& resultat, FaconEcrire facon)
{
    const std::string piece(coordonnees);
    resultat = {0, false, texteEntree(genrePoint, true, {}, {piece, "", ""})};
    if (sansBlancs(pieceEntree(piece)).empty())
        return "Tapez les coordonnées du point, par exemple (1,2,3).";
    if (facon.verifieEnEspace)
        if (auto erreur = verifieEntree(genrePoint, *facon.verifieEnEspace, {piece, "", ""}))
            return erreur;
    if (auto erreur = verifieLongueur(resultat.texte, facon))
        return erreur;
    // Held from the look for an equal point to the append.
    Verrou verrou(cat.chemin, "Le catalogue");
    if (verrou.erreur())
        return verrou.erreur();
    std::vector<PointMemoire> points;
    if (auto erreur = chargePoints(cat, points))
        return erreur;
    const std::string stocke(sansBlancs(texteTelQueLu(resultat.texte)));
    for (const PointMemoire& p : points)
        if (sansBlancs(p.texte) == stocke) {
            resultat.numero = p.numero;
            return {};
        }
    return ajoute(cat, genrePoint, resultat.texte, resultat, facon);
}

Erreur reliePoints(Catalogue& cat, NumeroLigne a, NumeroLigne b, Enregistrement& resultat, FaconEcrire facon)
{
    resultat = {};
    if (a == b)
        return "Un segment relie deux points différents : la ligne " + std::to_string(a) + " est donnée deux fois.";
    Verrou verrou(cat.chemin, "Le catalogue");
    if (verrou.erreur())
        return verrou.erreur();
    if (auto erreur = ouvrirCatalogue(cat))
        return erreur;
    LigneCatalogue points[2];
    const NumeroLigne numeros[2] = {a, b};
    for (int i = 0; i < 2; ++i) {
        if (auto erreur = lisLigne(cat, numeros[i], points[i]))
            return erreur;
        if (points[i].typeFonction != genrePoint)
            return "La ligne " + std::to_string(numeros[i]) + " du catalogue " + texteCite(cat.chemin) +
                   " n'est pas un point (genre " + std::to_string(points[i].typeFonction) + ").";
    }
    // The two pieces are the points' coordinate texts.
    resultat.texte =
        texteEntree(genreSegment, true, {},
                    {champsEntree(genrePoint, points[0].texte)[0], champsEntree(genrePoint, points[1].texte)[0], ""});
    if (auto erreur = verifieLongueur(resultat.texte, facon))
        return erreur;
    return ajoute(cat, genreSegment, resultat.texte, resultat, facon);
}

}  // namespace velorin
