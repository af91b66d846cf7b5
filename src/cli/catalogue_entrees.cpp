// `velorin catalogue liste` and `velorin catalogue ajoute`: the entries of a
// catalogue as the editors' lists show them, and an entry stored as the
// editor of its kind stores it from its boxes.
//
//   velorin catalogue liste FICHIER.lsu
//   velorin catalogue ajoute FICHIER.lsu --genre K [--plan] [--ligne N] [--] TEXTE...
//
// `liste` prints one line per record: its number as "0000", "]", the text
// without its padding, "[", the kind as "00" (nothing for an empty
// catalogue). `ajoute` takes one TEXTE per box the editor of kind K reads
// (in space, or in the plane with --plan), appends the entry or, with
// --ligne N, writes it over record N, and prints the written record's line.
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <string>
#include <vector>

#include "base/texte_sur.h"
#include "base/verrou.h"
#include "catalogue/cp1252.h"
#include "catalogue/genre.h"
#include "catalogue/remplace_ligne.h"
#include "cli/catalogue.h"
#include "cli/sortie_standard.h"
#include "plot/texte_entree.h"

namespace velorin {

namespace {

// A list line without the padding of its text: "0003]x=f1(t)=t][...[01".
std::string ligneSansRemplissage(const std::string& ligne)
{
    const std::size_t crochet = ligne.rfind('[');
    if (ligne.size() < 5 || crochet == std::string::npos || crochet < 5)
        return ligne;
    std::string texte = ligne.substr(5, crochet - 5);
    texte.erase(texte.find_last_not_of(' ') + 1);
    return ligne.substr(0, 5) + texte + ligne.substr(crochet);
}

struct Ajout {
    std::string fichier;
    int genre = -1;
    bool plan = false;
    std::string ligne;  // as typed; empty: append
    std::vector<std::string> textes;
};

// Reads the arguments of `ajoute`; returns an error text, or nothing.
Erreur litAjout(int argc, char** argv, Ajout& a)
{
    bool genreDonne = false, textesSeulement = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool suivant = i + 1 < argc;
        if (textesSeulement || arg.size() < 2 || arg.compare(0, 2, "--") != 0) {
            if (a.fichier.empty() && !textesSeulement)
                a.fichier = arg;
            else
                a.textes.push_back(arg);
        } else if (arg == "--") {
            textesSeulement = true;
        } else if (arg == "--genre") {
            const std::string k = suivant ? argv[++i] : "";
            if (k.empty() || k.size() > 6 || k.find_first_not_of("0123456789") != std::string::npos)
                return std::string("--genre attend le numéro d'un genre (0 à 9, 14 ou 15).");
            a.genre = std::stoi(k);
            genreDonne = true;
        } else if (arg == "--plan") {
            a.plan = true;
        } else if (arg == "--ligne") {
            if (!suivant)
                return std::string("--ligne attend un numéro de ligne.");
            a.ligne = argv[++i];
        } else {
            return "option inconnue " + texteCite(arg) + ".";
        }
    }
    if (a.fichier.empty())
        return std::string("fichier catalogue manquant.");
    if (!genreDonne)
        return std::string("--genre manquant : le genre de l'entrée (0 à 9, 14 ou 15).");
    return {};
}

int usageAjoute(const std::string& raison)
{
    echecCatalogue("ajoute", raison);
    std::fputs("Usage : velorin catalogue ajoute FICHIER.lsu --genre K [--plan] [--ligne N] [--] TEXTE...\n"
               "Un TEXTE par case de l'éditeur du genre K, dans l'ordre :\n"
               "  0 y = f(x) : la formule (dans l'espace, aussi la troisième case)\n"
               "  1 à 4 fonctions : deux formules dans le plan, trois dans l'espace\n"
               "  5 droite D(M,u) : M et u ; 6 plan P(M,u,v) : M, u et v (espace seulement)\n"
               "  7 plan ax+by+cz+d=0 (droite ax+by+c=0 avec --plan) : l'équation\n"
               "  8 segment : M1 et M2 ; 9 point : M ; 14 et 15 nuages g<f<h : g, f et h\n"
               "Sans --ligne l'entrée est ajoutée à la fin ; avec --ligne N elle remplace la ligne N.\n",
               stderr);
    return 2;
}

}  // namespace

Erreur verifieTexte(const std::string& texte, const std::string& nom)
{
    if (!estUtf8(texte))
        return nom + " " + texteCite(texte) + " n'est pas un texte UTF-8 valide : il ne peut pas être enregistré.";
    // texteSur changes a valid UTF-8 text only to show its control characters.
    if (texteSur(texte) != texte)
        return nom + " " + texteCite(texte) + " contient un caractère de commande : il ne peut pas être enregistré.";
    // Every character of the record is one Windows-1252 byte: one that has
    // none would be stored as "?".
    if (depuisCp1252(versCp1252(texte)) != texte)
        return nom + " " + texteCite(texte) +
               " contient un caractère qu'un catalogue ne peut pas garder (seuls les caractères d'Europe "
               "occidentale le peuvent).";
    return {};
}

std::string remarqueGenre(int genre)
{
    if (estGenreEcrit(genre))
        return {};
    return "genre " + std::to_string(genre) + ", qu'aucun éditeur n'écrit (l'entrée se trace comme un nuage g<f<h).";
}

int catalogueListe(int argc, char** argv)
{
    if (argc != 2)
        return echecCatalogue("liste", argc < 2 ? "fichier catalogue manquant. Usage : velorin catalogue liste "
                                                  "FICHIER.lsu"
                                                : "liste n'attend que le fichier catalogue.");
    Catalogue cat;
    if (auto erreur = ouvreCatalogueExistant(cat, argv[1]))
        return echecCatalogue("liste", erreur.message());
    Erreur erreur;
    const std::vector<std::string> lignes = listerCatalogue(cat, &erreur);
    // The header line of the editors' lists is not printed.
    for (std::size_t i = 1; i < lignes.size(); ++i) {
        std::printf("%s\n", texteSur(ligneSansRemplissage(lignes[i])).c_str());
        // The kind ends the line, after its last "[".
        const std::string& l = lignes[i];
        int genre = 0;
        std::from_chars(l.data() + l.rfind('[') + 1, l.data() + l.size(), genre);
        if (const std::string remarque = remarqueGenre(genre); !remarque.empty()) {
            std::fflush(stdout);
            std::fprintf(stderr, "velorin catalogue liste : ligne %zu : %s\n", i, remarque.c_str());
        }
    }
    if (erreur) {
        std::fflush(stdout);
        return echecCatalogue("liste", erreur.message());
    }
    return termineSortieStandard("catalogue liste", 0);
}

int catalogueAjoute(int argc, char** argv)
{
    Ajout a;
    if (auto erreur = litAjout(argc, argv, a))
        return usageAjoute(erreur.message());
    const bool espace = !a.plan;
    const std::vector<int> boites = boitesLues(a.genre, espace);
    if (boites.empty())
        return echecCatalogue("ajoute", "aucun éditeur n'écrit le genre " + std::to_string(a.genre) +
                                            (espace ? " dans l'espace" : " dans le plan") +
                                            " (genres : 0 à 9 et 14, 15 ; le 6 dans l'espace seulement).");
    const std::vector<std::string> noms = nomsDesBoites(a.genre, espace);
    if (a.textes.size() != boites.size()) {
        std::string attendu;
        for (const std::string& nom : noms)
            attendu += (attendu.empty() ? "" : ", ") + nom;
        return usageAjoute("le genre " + std::to_string(a.genre) + (espace ? " dans l'espace" : " dans le plan") +
                           " attend " + std::to_string(boites.size()) + " texte" + (boites.size() > 1 ? "s" : "") +
                           " (" + attendu + "), pas " + std::to_string(a.textes.size()) + ".");
    }
    std::array<std::string, 3> cases;
    for (std::size_t i = 0; i < boites.size(); ++i) {
        std::string nom = noms[i];
        nom[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(nom[0])));
        if (auto erreur = verifieTexte(a.textes[i], nom))
            return echecCatalogue("ajoute", erreur.message());
        cases[static_cast<std::size_t>(boites[i])] = a.textes[i];
    }
    LigneCatalogue ligne;
    viderLigne(ligne);
    ligne.typeFonction = static_cast<std::int16_t>(a.genre);
    ligne.texte = texteEntree(a.genre, espace, invitesDuGenre(a.genre), cases);
    const std::string octets = versCp1252(ligne.texte);
    if (octets.size() > static_cast<std::size_t>(longueurTexte))
        return echecCatalogue("ajoute", "le texte de l'entrée fait " + std::to_string(octets.size()) +
                                            " caractères et une ligne du catalogue n'en garde que " +
                                            std::to_string(longueurTexte) + " : il serait coupé et " +
                                            texteCite(depuisCp1252(octets.substr(longueurTexte))) +
                                            " perdu. Rien n'est écrit.");
    // What would not draw is refused here rather than found at drawing.
    if (auto erreur = verifieEntree(a.genre, espace, cases))
        return echecCatalogue("ajoute", erreur.message());

    // Held from the count to the write: an append of another writer meanwhile
    // would otherwise be overwritten.
    Verrou verrou(a.fichier, "Le catalogue");
    if (verrou.erreur())
        return echecCatalogue("ajoute", verrou.erreur().message());
    Catalogue cat;
    if (auto erreur = ouvreCatalogueExistant(cat, a.fichier))
        return echecCatalogue("ajoute", erreur.message());
    NumeroLigne n = cat.nbLignesCatalogue + 1;
    if (!a.ligne.empty())
        if (auto erreur = lisNumeroLigne(a.ligne, cat.nbLignesCatalogue, cat, n))
            return echecCatalogue("ajoute", erreur.message());
    if (auto erreur = remplaceLigne(cat, n, ligne))
        return echecCatalogue("ajoute", erreur.message());
    std::printf("%s\n", texteSur(ligneSansRemplissage(ligneListeCatalogue(n, ligne))).c_str());
    return termineSortieStandard("catalogue ajoute", 0);
}

}  // namespace velorin
