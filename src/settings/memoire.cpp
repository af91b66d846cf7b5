#include "settings/memoire.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <sstream>
#include <variant>
#include <vector>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "engine/nombres.h"
#include "settings/texte_nombre.h"

namespace velorin {

namespace {

using Membre = std::variant<double Parametres::*, float Parametres::*, std::int16_t Parametres::*,
                            int Parametres::*>;  // int: a check box, 0 or 1

struct Champ {
    const char* nom;
    Membre membre;
};

#define CHAMP(m)                                                                                                       \
    Champ                                                                                                              \
    {                                                                                                                  \
#m, &Parametres::m                                                                                             \
    }
// Lines 1 to 5 of the file, in order; line 6 is written apart.
const std::vector<std::vector<Champ>>& lignesFichier()
{
    static const std::vector<std::vector<Champ>> lignes = {
        {CHAMP(xmin), CHAMP(xmax), CHAMP(ymin), CHAMP(ymax), CHAMP(zmin), CHAMP(zmax)},
        {CHAMP(tmin), CHAMP(tmax), CHAMP(pasT), CHAMP(amin), CHAMP(amax), CHAMP(pasA)},
        {CHAMP(nbrCalX), CHAMP(nbrCalY), CHAMP(nbrCalZ), CHAMP(Xviseur), CHAMP(Yviseur), CHAMP(Zviseur)},
        {CHAMP(pasRota), CHAMP(Xdirection), CHAMP(Ydirection), CHAMP(Zdirection), CHAMP(Rotadir),
         CHAMP(repereOrthonorme), CHAMP(traceContinu), CHAMP(avecSegmentTangent)},
        {CHAMP(projXOy), CHAMP(projXOz), CHAMP(projYOz), CHAMP(projOx), CHAMP(projOy), CHAMP(projOz),
         CHAMP(axesVisibles), CHAMP(avecRayon), CHAMP(fondBlanc)},
    };
    return lignes;
}
const Champ champPause = CHAMP(pauseMs);
#undef CHAMP

std::string texteChamp(const Parametres& p, const Membre& m)
{
    struct Ecrit {
        const Parametres& p;
        std::string operator()(double Parametres::*m) const { return texteNombre(p.*m, 15); }
        std::string operator()(float Parametres::*m) const { return texteNombre(p.*m, 7); }
        std::string operator()(std::int16_t Parametres::*m) const { return texteEntier(p.*m); }
        std::string operator()(int Parametres::*m) const { return texteEntier(p.*m); }
    };
    return std::visit(Ecrit{p}, m);
}

std::string limitesVue()
{
    return " (" + texteNombre(-limiteVue, 15) + " à " + texteNombre(limiteVue, 15) + ")";
}

// Why the value of `c` in `p` cannot be written (it could not be read
// back), or nothing.
std::string nonInscriptible(const Parametres& p, const Champ& c)
{
    double v = 0;
    if (auto d = std::get_if<double Parametres::*>(&c.membre))
        v = p.**d;
    else if (auto f = std::get_if<float Parametres::*>(&c.membre))
        v = p.**f;
    if (!std::isfinite(v))
        return "n'est pas un nombre fini";
    if (estCoordonneeDeVue(c.nom) && std::fabs(v) > limiteVue) {
        // Built step by step: GCC 12 warns wrongly on "(" + a temporary.
        std::string raison = "(";
        raison += texteNombre(v, 15);
        return raison + ") est hors des limites" + limitesVue();
    }
    return {};
}

std::string enTete(const std::string& chemin, int ligne)
{
    return "Fichier " + texteSur(chemin) + ", ligne " + std::to_string(ligne) + " : ";
}

// A value as the message shows it: escaped, cut when long, between quotes
// or not.
constexpr std::size_t longueurMontree = 40;
std::string valeurCitee(const std::string& texte)
{
    return texteCite(texte, longueurMontree);
}
std::string valeurMontree(const std::string& texte)
{
    return extraitSur(texte, longueurMontree);
}

std::string valeursTrouvees(std::size_t n)
{
    if (n == 0)
        return "aucune trouvée";
    return std::to_string(n) + (n == 1 ? " trouvée" : " trouvées");
}

std::string sansBlancs(const std::string& s)
{
    return std::string(sansBlancsAuxBouts(s, " \t"));
}

std::vector<std::string> valeursDeLigne(const std::string& ligne)
{
    std::vector<std::string> valeurs;
    if (sansBlancs(ligne).empty())
        return valeurs;
    std::istringstream flux(ligne);
    std::string v;
    while (std::getline(flux, v, ','))
        valeurs.push_back(sansBlancs(v));
    if (!ligne.empty() && ligne.back() == ',')
        valeurs.push_back("");
    return valeurs;
}

enum class Lecture { Nombre, PasUnNombre, HorsLimites };

// A number in plain or scientific decimal text with "."; "inf" and "nan"
// are not numbers, and a value beyond the range of a double is HorsLimites.
Lecture litNombre(const std::string& texte, double& v)
{
    const char* debut = texte.data();
    const char* fin = debut + texte.size();
    if (debut != fin && *debut == '+')
        ++debut;
    if (debut == fin || *debut == '+' || (*debut == '-' && debut != texte.data()))
        return Lecture::PasUnNombre;
    const auto r = std::from_chars(debut, fin, v);
    if (r.ptr != fin)
        return Lecture::PasUnNombre;
    if (r.ec == std::errc::result_out_of_range)
        return Lecture::HorsLimites;
    return r.ec == std::errc() && std::isfinite(v) ? Lecture::Nombre : Lecture::PasUnNombre;
}

// Converts one value into its member of `p`; returns the message's end on
// failure.
Erreur convertis(const std::string& texte, const Champ& champ, Parametres& p)
{
    const bool caseACocher = std::holds_alternative<int Parametres::*>(champ.membre);
    double v;
    if (caseACocher && (texte == "#TRUE#" || texte == "#FALSE#")) {
        v = texte == "#TRUE#" ? 1 : 0;
    } else if (texte.empty()) {
        return std::string("valeur vide (") + champ.nom + ")";
    } else if (const Lecture l = litNombre(texte, v); l == Lecture::HorsLimites) {
        return valeurCitee(texte) + " est hors des nombres représentables (" + champ.nom + ")";
    } else if (l == Lecture::PasUnNombre) {
        return valeurCitee(texte) + " n'est pas un nombre (" + champ.nom + ")";
    }
    const std::string hors = valeurMontree(texte) + " est hors des limites de " + champ.nom;
    if (estCoordonneeDeVue(champ.nom) && std::fabs(v) > limiteVue)
        return hors + limitesVue();
    if (auto f = std::get_if<float Parametres::*>(&champ.membre)) {
        if (std::fabs(v) > FLT_MAX)
            return hors + " (simple précision)";
        p.** f = static_cast<float>(v);
    } else if (auto e = std::get_if<std::int16_t Parametres::*>(&champ.membre)) {
        const double arrondi = std::nearbyint(v);
        if (arrondi < -32768 || arrondi > 32767)
            return hors + " (-32768 à 32767)";
        p.** e = static_cast<std::int16_t>(arrondi);
    } else if (auto c = std::get_if<int Parametres::*>(&champ.membre)) {
        if (v != 0 && v != 1)
            return valeurMontree(texte) + " pour " + champ.nom + " : 0 ou 1 attendu";
        p.** c = static_cast<int>(v);
    } else {
        p.*std::get<double Parametres::*>(champ.membre) = v;
    }
    return {};
}

}  // namespace

const char* nomFichierMemoire(bool retenu)
{
    return retenu ? "mem.log" : "memprovi.log";
}

std::string texteMemoire(const Parametres& p)
{
    std::string s;
    for (const auto& ligne : lignesFichier()) {
        for (std::size_t i = 0; i < ligne.size(); ++i) {
            if (i)
                s += ',';
            s += texteChamp(p, ligne[i].membre);
        }
        s += "\r\n";
    }
    s += texteEntier(p.pauseMs);
    s += ',';
    s += texteEntier(p.ordreBoucles);
    s += p.avecMoirure ? ",#TRUE#\r\n" : ",#FALSE#\r\n";
    return s;
}

Erreur analyseMemoire(const std::string& contenu, const std::string& chemin, Parametres& p)
{
    if (contenu.rfind("\xFF\xFE", 0) == 0 || contenu.rfind("\xFE\xFF", 0) == 0)
        return "Fichier " + texteSur(chemin) +
               " : le texte est en UTF-16 ; un fichier de paramètres est en texte simple (UTF-8)";
    const std::vector<std::string> lignes = lignesDuTexte(contenu, 6);
    Parametres lu = p;  // applied only when the whole file is good
    for (int n = 1; n <= 6; ++n) {
        if (n > static_cast<int>(lignes.size()))
            return enTete(chemin, n) + "ligne manquante";
        const std::vector<std::string> valeurs = valeursDeLigne(lignes[n - 1]);
        const std::vector<Champ> champs = n <= 5 ? lignesFichier()[n - 1] : std::vector<Champ>{champPause};
        const bool exact = n <= 5;
        if (exact ? valeurs.size() != champs.size() : valeurs.empty())
            return enTete(chemin, n) + std::to_string(exact ? champs.size() : 3) + " valeurs attendues, " +
                   valeursTrouvees(valeurs.size()) +
                   (valeurs.size() > champs.size()
                        ? " (le séparateur décimal doit être « . » : une virgule sépare deux valeurs)"
                        : "");
        for (std::size_t i = 0; i < champs.size(); ++i)
            if (auto erreur = convertis(valeurs[i], champs[i], lu))
                return enTete(chemin, n) + "valeur " + std::to_string(i + 1) + ", " + erreur.message();
    }
    p = lu;
    return {};
}

Erreur lisMemoire(const std::string& chemin, Parametres& p)
{
    // A memory file holds six short lines: anything huge is not one.
    std::string contenu;
    if (auto erreur = lisFichierTexte(chemin, "Le fichier de paramètres", "un fichier de paramètres", 1 << 16, contenu))
        return erreur;
    return analyseMemoire(contenu, chemin, p);
}

Erreur ecrisMemoire(const std::string& chemin, const Parametres& p)
{
    for (const auto& ligne : lignesFichier())
        for (const Champ& c : ligne)
            if (const std::string raison = nonInscriptible(p, c); !raison.empty())
                return "Fichier " + texteSur(chemin) + " non écrit : la valeur de " + c.nom + " " + raison;
    return ecrisFichierEntier(chemin, texteMemoire(p));
}

}  // namespace velorin
