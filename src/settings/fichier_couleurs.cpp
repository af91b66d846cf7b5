#include "settings/fichier_couleurs.h"

#include <string_view>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "settings/nom_valeur.h"
#include "engine/nombres.h"

namespace velorin {

namespace {

struct Membre {
    const char* nom;
    Couleur SchemaCouleurs::*membre;
};

// Every colour the dialog edits, in the order of the file.
constexpr Membre membres[] = {
    {"couleurAxes", &SchemaCouleurs::couleurAxes},         {"couleurFondSombre", &SchemaCouleurs::couleurFondSombre},
    {"couleurTrace", &SchemaCouleurs::couleurTrace},       {"couleurFamille", &SchemaCouleurs::couleurFamille},
    {"couleurTangente", &SchemaCouleurs::couleurTangente}, {"couleurRayon", &SchemaCouleurs::couleurRayon},
    {"couleurProjOx", &SchemaCouleurs::couleurProjOx},     {"couleurProjOy", &SchemaCouleurs::couleurProjOy},
    {"couleurProjOz", &SchemaCouleurs::couleurProjOz},     {"couleurProjXOy", &SchemaCouleurs::couleurProjXOy},
    {"couleurProjXOz", &SchemaCouleurs::couleurProjXOz},   {"couleurProjYOz", &SchemaCouleurs::couleurProjYOz},
};

// A decimal integer 0..16777215, digits only.
bool lisValeur(std::string_view texte, Couleur& valeur)
{
    if (texte.empty() || texte.size() > 8)
        return false;
    Couleur v = 0;
    for (char c : texte) {
        if (c < '0' || c > '9')
            return false;
        v = v * 10 + Couleur(c - '0');
    }
    if (v > 0xFFFFFF)
        return false;
    valeur = v;
    return true;
}

}  // namespace

const char* nomFichierCouleurs()
{
    return "couleurs.txt";
}

std::string texteCouleurs(const SchemaCouleurs& schema)
{
    std::string t = "# Velorin : couleurs mémorisées (rouge + 256*vert + 65536*bleu)\n";
    for (const Membre& m : membres)
        t += std::string(m.nom) + "=" + std::to_string(schema.*m.membre & 0xFFFFFF) + "\n";
    return t;
}

Erreur analyseCouleurs(const std::string& contenu, const std::string& chemin, SchemaCouleurs& schema)
{
    SchemaCouleurs lu = schema;
    auto lis = [&lu](std::string_view nom, std::string_view valeur) -> std::string {
        for (const Membre& m : membres)
            if (nom == m.nom)
                return lisValeur(valeur, lu.*m.membre) ? std::string{}
                                                       : "la valeur " + texteCite(valeur) + " de " + m.nom +
                                                             " n'est pas une couleur (un entier de 0 à 16777215)";
        return "couleur inconnue " + texteCite(nom);
    };
    if (auto erreur = lisNomsValeurs(contenu, chemin, "Les couleurs en vigueur sont conservées.", lis))
        return erreur;
    schema = lu;
    return {};
}

Erreur lisCouleurs(const std::string& chemin, SchemaCouleurs& schema)
{
    std::string contenu;
    if (auto erreur = lisFichierTexte(chemin, "Le fichier des couleurs", "un fichier de couleurs", 1 << 16, contenu))
        return erreur;
    return analyseCouleurs(contenu, chemin, schema);
}

Erreur ecrisCouleurs(const std::string& chemin, const SchemaCouleurs& schema)
{
    return ecrisFichierEntier(chemin, texteCouleurs(schema));
}

}  // namespace velorin
