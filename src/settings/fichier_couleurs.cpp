#include "settings/fichier_couleurs.h"

#include <string_view>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
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
    int numero = 0;
    for (const std::string& texteLigne : lignesDuTexte(contenu)) {
        std::string_view ligne = texteLigne;
        ++numero;
        ligne = sansBlancsAuxBouts(ligne, " \t");
        if (ligne.empty() || ligne.front() == '#')
            continue;
        const std::string debut = "Fichier " + texteCite(chemin) + ", ligne " + std::to_string(numero) + " : ";
        const auto egal = ligne.find('=');
        if (egal == std::string_view::npos)
            return debut + "« nom=valeur » attendu, lu " + texteCite(ligne) +
                   ". Les couleurs en vigueur sont conservées.";
        const std::string_view nom = sansBlancsAuxBouts(ligne.substr(0, egal), " \t");
        const std::string_view valeur = sansBlancsAuxBouts(ligne.substr(egal + 1), " \t");
        const Membre* trouve = nullptr;
        for (const Membre& m : membres)
            if (nom == m.nom)
                trouve = &m;
        if (!trouve)
            return debut + "couleur inconnue " + texteCite(nom) + ". Les couleurs en vigueur sont conservées.";
        if (!lisValeur(valeur, lu.*trouve->membre))
            return debut + "la valeur " + texteCite(valeur) + " de " + trouve->nom +
                   " n'est pas une couleur (un entier de 0 à 16777215). Les couleurs en vigueur sont conservées.";
    }
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
