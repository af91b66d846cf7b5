// `velorin catalogue`: chooses the sub-command by its name and hands it the
// arguments that follow; the helpers the sub-commands share.
#include <cstdio>
#include <cstring>

#include "base/chemins.h"
#include "base/texte_sur.h"
#include "cli/catalogue.h"
#include "cli/commandes.h"

namespace velorin {

namespace {

struct SousCommande {
    const char* nom;
    const char* usage;  // the arguments after the name, for the usage text
    int (*lance)(int argc, char** argv);
};

// The sub-commands, in the order the usage lists them. A new sub-command is
// one line here and its declaration in cli/catalogue.h.
const SousCommande sousCommandes[] = {
    {"liste", "FICHIER.lsu", catalogueListe},
    {"ajoute", "FICHIER.lsu --genre K [--plan] [--ligne N] TEXTE...", catalogueAjoute},
    // Points and pruning:
    {"point", "FICHIER.lsu \"(x,y,z)\" [--plan]", cataloguePoint},
    {"relie", "FICHIER.lsu N M", catalogueRelie},
    {"elimine", "FICHIER.lsu N...", catalogueElimine},
    {"reduis", "FICHIER.lsu", catalogueReduis},
};

int usage(const char* raison)
{
    if (raison)
        std::fprintf(stderr, "velorin catalogue : %s\n", raison);
    std::string texte;
    for (const SousCommande& s : sousCommandes)
        texte +=
            std::string(texte.empty() ? "Usage : " : "        ") + "velorin catalogue " + s.nom + " " + s.usage + "\n";
    std::fputs(texte.c_str(), stderr);
    return 2;
}

}  // namespace

int commandeCatalogue(int argc, char** argv)
{
    if (argc < 2)
        return usage("sous-commande manquante.");
    for (const SousCommande& s : sousCommandes)
        if (std::strcmp(argv[1], s.nom) == 0)
            return s.lance(argc - 1, argv + 1);
    const std::string raison = "sous-commande inconnue " + texteCite(argv[1]) + ".";
    return usage(raison.c_str());
}

int echecCatalogue(const char* sousCommande, const std::string& message)
{
    std::fprintf(stderr, "velorin catalogue %s : %s\n", sousCommande, message.c_str());
    return 2;
}

Erreur ouvreCatalogueExistant(Catalogue& cat, const std::string& chemin)
{
    // Checked before opening, which would create a missing file.
    if (auto erreur = verifieFichierLisible(chemin, "Le catalogue"))
        return erreur;
    return ouvrirCatalogue(cat, chemin);
}

Erreur lisNumeroLigne(const std::string& texte, NumeroLigne maximum, const Catalogue& cat, NumeroLigne& n)
{
    const bool chiffres =
        !texte.empty() && texte.size() <= 12 && texte.find_first_not_of("0123456789") == std::string::npos;
    n = chiffres ? std::stoll(texte) : 0;
    if (!chiffres)
        return texteCite(texte) + " n'est pas un numéro de ligne (un entier à partir de 1).";
    if (n < 1 || n > maximum)
        return "la ligne " + texte + " n'existe pas dans le catalogue " + texteCite(cat.chemin) + " (" +
               std::to_string(cat.nbLignesCatalogue) + " lignes).";
    return {};
}

}  // namespace velorin
