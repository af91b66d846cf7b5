#include "settings/rendu.h"

#include <cmath>
#include <string_view>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "engine/nombres.h"
#include "settings/nom_valeur.h"
#include "settings/texte_nombre.h"

namespace velorin {

namespace {

constexpr const char* nomsStyles[] = {"filaire", "pointilles", "effaces", "faces"};

// The file's value of a yes/no setting.
bool lisOuiNon(std::string_view v, bool& cible)
{
    if (v != "0" && v != "1")
        return false;
    cible = v == "1";
    return true;
}

// A number within (bas, haut] (or [bas, haut] when bas is included), "." only.
bool lisNombreDans(std::string_view v, double bas, bool basInclus, double haut, double& cible)
{
    double x;
    if (!lisValeurExacte(v, x) || x > haut || x < bas || (!basInclus && x == bas))
        return false;
    cible = x;
    return true;
}

// Reads one "name=value"; returns the French explanation of a refusal, or
// nothing.
std::string lisReglage(std::string_view nom, std::string_view v, Rendu& r)
{
    if (nom == "style") {
        for (int i = 0; i < 4; ++i)
            if (v == nomsStyles[i]) {
                r.style = static_cast<StyleRendu>(i);
                return {};
            }
        return "le style " + texteCite(v) + " n'existe pas (filaire, pointilles, effaces ou faces)";
    }
    if (nom == "projection") {
        if (v != "perspective" && v != "cavaliere")
            return "la projection " + texteCite(v) + " n'existe pas (perspective ou cavaliere)";
        r.cavaliere = v == "cavaliere";
        return {};
    }
    if (nom == "angle")
        return lisNombreDans(v, 0, false, 89.999, r.angleCavaliere)
                   ? std::string{}
                   : "l'angle " + texteCite(v) + " n'est pas un nombre de degrés entre 0 et 90 exclus";
    if (nom == "coefficient")
        return lisNombreDans(v, 0, false, 1, r.coefCavaliere)
                   ? std::string{}
                   : "le coefficient " + texteCite(v) + " n'est pas un nombre plus grand que 0 et au plus 1";
    if (nom == "tour")
        return lisNombreDans(v, -360, true, 360, r.tourCavaliere)
                   ? std::string{}
                   : "le tour " + texteCite(v) + " n'est pas un nombre de degrés de -360 à 360";
    if (nom == "quadrillage")
        return lisOuiNon(v, r.quadrillage) ? std::string{} : "quadrillage vaut 0 ou 1, lu " + texteCite(v);
    if (nom == "repereGradue")
        return lisOuiNon(v, r.repereGradue) ? std::string{} : "repereGradue vaut 0 ou 1, lu " + texteCite(v);
    return "réglage inconnu " + texteCite(nom);
}

}  // namespace

const char* nomFichierRendu()
{
    return "rendu.txt";
}

std::string texteRendu(const Rendu& r)
{
    return std::string("# Velorin : rendu du dessin\n") + "style=" + nomsStyles[static_cast<int>(r.style)] +
           "\nprojection=" + (r.cavaliere ? "cavaliere" : "perspective") + "\nangle=" + texteCourt(r.angleCavaliere) +
           "\ncoefficient=" + texteCourt(r.coefCavaliere) + "\ntour=" + texteCourt(r.tourCavaliere) +
           "\nquadrillage=" + (r.quadrillage ? "1" : "0") + "\nrepereGradue=" + (r.repereGradue ? "1" : "0") + "\n";
}

Erreur analyseRendu(const std::string& contenu, const std::string& chemin, Rendu& rendu)
{
    Rendu lu = rendu;
    if (auto erreur = lisNomsValeurs(contenu, chemin, "Le rendu en vigueur est conservé.",
                                     [&lu](std::string_view nom, std::string_view valeur) {
                                         return lisReglage(nom, valeur, lu);
                                     }))
        return erreur;
    rendu = lu;
    return {};
}

Erreur lisRendu(const std::string& chemin, Rendu& rendu)
{
    std::string contenu;
    if (auto erreur = lisFichierTexte(chemin, "Le fichier du rendu", "un fichier de rendu", 1 << 16, contenu))
        return erreur;
    return analyseRendu(contenu, chemin, rendu);
}

Erreur ecrisRendu(const std::string& chemin, const Rendu& rendu)
{
    return ecrisFichierEntier(chemin, texteRendu(rendu));
}

}  // namespace velorin
