// `velorin catalogue point|relie|elimine|reduis`: the points dialog and the
// pruning dialog of the window, from a script. They run the same code as the
// dialogs; a point or a segment is appended by replacing the whole file, and
// a pruning replaces it whole too, so that a failure leaves the catalogue as
// it was.
#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
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
        return echecCatalogue(argv[0], std::string(argc < 2 ? "fichier catalogue manquant" : "arguments incorrects") +
                                           ". Usage : velorin catalogue " + argv[0] + " " + usage);
    if (auto erreur = ouvreCatalogueExistant(cat, argv[1]))
        return echecCatalogue(argv[0], erreur.message());
    return 0;
}

int dis(const char* sousCommande, const std::string& texte)
{
    std::printf("%s\n", texte.c_str());
    return termineSortieStandard((std::string("catalogue ") + sousCommande).c_str(), 0);
}

// The entry written (or found) as `liste` shows it.
int montre(const char* sousCommande, std::int16_t genre, const Enregistrement& r)
{
    return dis(sousCommande, texteSur(ligneListeCatalogue(r.numero, LigneCatalogue{genre, r.texte})));
}

// "le catalogue garde 3 entrées, lignes 1 à 3", and the lines a left-over
// compaction file added after them.
std::string bilanTexte(const BilanReduction& bilan)
{
    const NumeroLigne g = bilan.gardees, r = bilan.restantes;
    std::string texte = "le catalogue garde " + std::to_string(g) + (g > 1 ? " entrées" : " entrée");
    if (g > 0)
        texte += g > 1 ? ", lignes 1 à " + std::to_string(g) : ", ligne 1";
    if (r > g)
        texte += " ; les lignes " + std::to_string(g + 1) + " à " + std::to_string(r) + " viennent de " +
                 texteCite(nomFichierReduction) + ", laissé par un compactage précédent";
    return texte + ".";
}

}  // namespace

int cataloguePoint(int argc, char** argv)
{
    // --plan: the point is checked as the plane reads it, "(x,y)" is enough.
    std::vector<char*> arguments(argv, argv + argc);
    const auto plan = std::find(arguments.begin() + 1, arguments.end(), std::string_view("--plan"));
    FaconEcrire f = facon;
    f.verifieEnEspace = plan == arguments.end();
    if (plan != arguments.end())
        arguments.erase(plan);
    argc = static_cast<int>(arguments.size());
    argv = arguments.data();
    Catalogue cat;
    if (int statut = prepare(argc, argv, true, 3, "FICHIER.lsu \"(x,y,z)\" [--plan]", cat))
        return statut;
    if (auto erreur = verifieTexte(argv[2], "Le point"))
        return echecCatalogue(argv[0], erreur.message());
    Enregistrement r;
    if (auto erreur = creePoint(cat, argv[2], r, f))
        return echecCatalogue(argv[0], erreur.message());
    if (!r.nouveau)
        std::fprintf(stderr, "velorin catalogue point : ce point est déjà à la ligne %lld : rien n'est écrit.\n",
                     static_cast<long long>(r.numero));
    return montre(argv[0], genrePoint, r);
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
    return montre(argv[0], genreSegment, r);
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
    return dis(argv[0], "Effacées et compacté : " + bilanTexte(bilan));
}

int catalogueReduis(int argc, char** argv)
{
    Catalogue cat;
    if (int statut = prepare(argc, argv, true, 2, "FICHIER.lsu", cat))
        return statut;
    BilanReduction bilan;
    if (auto erreur = reduction(cat, {}, &bilan))
        return echecCatalogue(argv[0], erreur.message());
    return dis(argv[0], "Compacté : " + bilanTexte(bilan));
}

}  // namespace velorin
