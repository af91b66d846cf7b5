// `velorin catalogue point|relie|elimine|reduis`: the points dialog and the
// pruning dialog of the window, from a script. They run the same code as the
// dialogs; a point or a segment is appended by replacing the whole file, and
// a pruning replaces it whole too, so that a failure leaves the catalogue as
// it was.
#include <cstdio>
#include <string>
#include <vector>

#include "base/texte_sur.h"
#include "catalogue/reduction.h"
#include "catalogue/remplace_ligne.h"
#include "cli/catalogue.h"
#include "cli/sortie_standard.h"
#include "plot/points_memoire.h"

namespace velorin {

namespace {

// What the command line stores: a text a record would cut is refused, and
// the file is replaced whole.
const FaconEcrire facon{true, remplaceLigne};

// Checks the count of arguments and opens the catalogue argv[1].
int prepare(int argc, char** argv, bool juste, int attendus, const char* usage, Catalogue& cat)
{
    if (argc < 2 || (juste ? argc != attendus : argc < attendus))
        return echecCatalogue(argv[0], std::string("usage : velorin catalogue ") + argv[0] + " " + usage);
    if (auto erreur = ouvreCatalogueExistant(cat, argv[1]))
        return echecCatalogue(argv[0], erreur.message());
    return 0;
}

int termine(const char* sousCommande, const std::string& texte)
{
    std::printf("%s\n", texte.c_str());
    return termineSortieStandard((std::string("catalogue ") + sousCommande).c_str(), 0);
}

std::string bilanTexte(const BilanReduction& bilan)
{
    std::string texte = "le catalogue garde " + std::to_string(bilan.gardees) + " entrée" +
                        (bilan.gardees > 1 ? "s" : "") + ", numérotée" + (bilan.gardees > 1 ? "s" : "") +
                        " à partir de 1";
    if (bilan.restantes > bilan.gardees)
        texte += ", suivie" + std::string(bilan.gardees > 1 ? "s" : "") + " de " +
                 std::to_string(bilan.restantes - bilan.gardees) + " ligne(s) laissée(s) par " +
                 texteCite(nomFichierReduction);
    return texte + ".";
}

}  // namespace

int cataloguePoint(int argc, char** argv)
{
    Catalogue cat;
    if (int statut = prepare(argc, argv, true, 3, "FICHIER.lsu \"(x,y,z)\"", cat))
        return statut;
    Enregistrement r;
    if (auto erreur = creePoint(cat, argv[2], r, facon))
        return echecCatalogue(argv[0], erreur.message());
    if (!r.nouveau)
        return termine(argv[0], "Le point " + texteCite(r.texte) + " est déjà à la ligne " + std::to_string(r.numero) +
                                    " : rien n'est écrit.");
    return termine(argv[0], "Ligne " + std::to_string(r.numero) + " : " + texteSur(r.texte));
}

int catalogueRelie(int argc, char** argv)
{
    Catalogue cat;
    if (int statut = prepare(argc, argv, true, 4, "FICHIER.lsu N M", cat))
        return statut;
    NumeroLigne a = 0, b = 0;
    if (auto erreur = lisNumeroLigne(argv[2], cat.nbLignesCatalogue, cat, a))
        return echecCatalogue(argv[0], erreur.message());
    if (auto erreur = lisNumeroLigne(argv[3], cat.nbLignesCatalogue, cat, b))
        return echecCatalogue(argv[0], erreur.message());
    Enregistrement r;
    if (auto erreur = reliePoints(cat, a, b, r, facon))
        return echecCatalogue(argv[0], erreur.message());
    return termine(argv[0], "Ligne " + std::to_string(r.numero) + " : " + texteSur(r.texte));
}

int catalogueElimine(int argc, char** argv)
{
    Catalogue cat;
    if (int statut = prepare(argc, argv, false, 3, "FICHIER.lsu N...", cat))
        return statut;
    std::vector<NumeroLigne> numeros;
    for (int i = 2; i < argc; ++i) {
        NumeroLigne n = 0;
        if (auto erreur = lisNumeroLigne(argv[i], cat.nbLignesCatalogue, cat, n))
            return echecCatalogue(argv[0], erreur.message());
        numeros.push_back(n);
    }
    BilanReduction bilan;
    if (auto erreur = reduction(cat, numeros, &bilan))
        return echecCatalogue(argv[0], erreur.message());
    return termine(argv[0], "Entrées effacées, " + bilanTexte(bilan));
}

int catalogueReduis(int argc, char** argv)
{
    Catalogue cat;
    if (int statut = prepare(argc, argv, true, 2, "FICHIER.lsu", cat))
        return statut;
    BilanReduction bilan;
    if (auto erreur = reduction(cat, {}, &bilan))
        return echecCatalogue(argv[0], erreur.message());
    return termine(argv[0], "Compacté : " + bilanTexte(bilan));
}

}  // namespace velorin
