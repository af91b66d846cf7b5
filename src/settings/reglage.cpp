#include "settings/reglage.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <variant>

#include "base/texte_sur.h"
#include "engine/lecture.h"
#include "engine/nombres.h"
#include "settings/memoire.h"
#include "settings/texte_nombre.h"

namespace velorin {

namespace {

using Membre = std::variant<double Parametres::*, float Parametres::*, std::int16_t Parametres::*>;

struct Champ {
    const char* nom;
    const char* legende;
    Membre membre;
};

#define CHAMP(m, legende)                                                                                              \
    Champ                                                                                                              \
    {                                                                                                                  \
#m, legende, &Parametres::m                                                                                    \
    }
const std::array<Champ, nbChampsReglage> champs = {
    CHAMP(xmin, "<x<"),
    CHAMP(xmax, "<x<"),
    CHAMP(ymin, "<y<"),
    CHAMP(ymax, "<y<"),
    CHAMP(zmin, "<z<"),
    CHAMP(zmax, "<z<"),
    CHAMP(tmin, "<t<"),
    CHAMP(tmax, "<t<"),
    CHAMP(amin, "<a<"),
    CHAMP(amax, "<a<"),
    CHAMP(pasT, "pas de t"),
    CHAMP(pasA, "pas de a"),
    CHAMP(nbrCalX, "nbr cal x"),
    CHAMP(nbrCalY, "nbr cal y"),
    CHAMP(nbrCalZ, "nbr cal z"),
    CHAMP(Xviseur, "Xviseur"),
    CHAMP(Yviseur, "Yviseur"),
    CHAMP(Zviseur, "Zviseur"),
    CHAMP(pasRota, "Pas Rota"),
    CHAMP(Xdirection, "Xdirection"),
    CHAMP(Ydirection, "Ydirection"),
    CHAMP(Zdirection, "Zdirection"),
    CHAMP(Rotadir, "Rotadir"),
    CHAMP(pauseMs, "Pause en millisecondes"),
};
#undef CHAMP

// Fields 0 to 9 are five (lower, upper) pairs; 10 to 14 are steps and counts.
constexpr int premierPas = 10, dernierPas = 14;

std::string designation(int i)
{
    const std::string nom = champs[i].nom, legende = champs[i].legende;
    return nom == legende ? nom : nom + " (« " + legende + " »)";
}

std::string nombre(double v)
{
    return texteNombre(v, 15);
}

// The value of a field text as the formula evaluator gives it (space
// family, every variable 0): no value gives 0, a computation that fails
// gives horsCalcul, as for a point. `issue` tells which case it was; false
// when the value is not finite.
bool litChamp(const std::string& texte, double& v, Issue& issue)
{
    v = evalespace(texte, 0, 0, &issue);
    return std::isfinite(v);
}

// Why `v` cannot be stored in the member of field i, or nothing.
std::string horsType(int i, double v)
{
    if (std::holds_alternative<float Parametres::*>(champs[i].membre) && std::fabs(v) > FLT_MAX)
        return "la valeur " + nombre(v) + " dépasse la simple précision (" + nombre(FLT_MAX) + " au plus)";
    if (std::holds_alternative<std::int16_t Parametres::*>(champs[i].membre)) {
        const double arrondi = std::nearbyint(v);
        if (arrondi < -32768 || arrondi > 32767)
            return "la valeur " + nombre(v) + " n'est pas un entier de -32768 à 32767";
    }
    if (estCoordonneeDeVue(champs[i].nom) && std::fabs(v) > limiteVue)
        return "la valeur " + nombre(v) + " est hors des limites (" + nombre(-limiteVue) + " à " + nombre(limiteVue) +
               ")";
    return {};
}

void range(const Champ& c, double v, Parametres& p)
{
    if (auto d = std::get_if<double Parametres::*>(&c.membre))
        p.** d = v;
    else if (auto f = std::get_if<float Parametres::*>(&c.membre))
        p.** f = static_cast<float>(v);
    else
        p.*std::get<std::int16_t Parametres::*>(c.membre) = static_cast<std::int16_t>(std::nearbyint(v));
}

}  // namespace

const char* nomChampReglage(int i)
{
    return champs[i].nom;
}

const char* legendeChampReglage(int i)
{
    return champs[i].legende;
}

TextesReglage textesReglage(const Parametres& p)
{
    TextesReglage textes;
    for (int i = 0; i < nbChampsReglage; ++i) {
        const Membre& m = champs[i].membre;
        if (auto d = std::get_if<double Parametres::*>(&m))
            textes[i] = texteNombre(p.**d, 15);
        else if (auto f = std::get_if<float Parametres::*>(&m))
            textes[i] = texteNombre(p.**f, 7);
        else
            textes[i] = texteEntier(p.*std::get<std::int16_t Parametres::*>(m));
    }
    return textes;
}

Erreur lisReglage(const TextesReglage& textes, Parametres& p, bool* incorrecte)
{
    Parametres lu = p;
    for (int i = 0; i < nbChampsReglage; ++i) {
        double v;
        Issue issue;
        const bool fini = litChamp(textes[i], v, issue);
        if (issue == Issue::Incorrecte) {
            if (incorrecte)
                *incorrecte = true;
            return messageIncorrecte(Famille::Espace);
        }
        if (!fini)
            return "Champ " + designation(i) + " : " + texteCite(textes[i]) +
                   " ne se calcule pas (nombre trop grand). Rien n'est appliqué.";
        if (const std::string hors = horsType(i, v); !hors.empty())
            return "Champ " + designation(i) + " : " + hors + ". Rien n'est appliqué.";
        range(champs[i], v, lu);
    }
    p = lu;
    return {};
}

std::array<RemarquesChamp, nbChampsReglage> remarquesReglage(const TextesReglage& textes)
{
    std::array<RemarquesChamp, nbChampsReglage> r;
    for (int i = 0; i < nbChampsReglage; ++i) {
        const std::string texte(sansBlancsAuxBouts(textes[i], " \t"));
        RemarquesChamp& rc = r[i];
        double v;
        Issue issue;
        const bool fini = litChamp(texte, v, issue);
        // The evaluator's own verdict: what applying would do.
        if (issue == Issue::Incorrecte) {
            rc.textes.push_back("Parenthèses non équilibrées : en appliquant, le programme dira « Formule "
                                "incorrecte » et s'arrêtera");
            rc.bloquante = true;
            continue;
        }
        if (const auto e = texte.find_first_of("Ee");
            e != std::string::npos && e + 1 < texte.size() && texte[e + 1] == '-' && e > 0 && estChiffre(texte[e - 1]))
            rc.textes.push_back("« E- » se lit comme une soustraction (1.5E-3 vaut -1.5) : écrivez le nombre "
                                "sans exposant (0.0015)");
        if (!fini) {
            rc.textes.push_back("Ce nombre ne se calcule pas (trop grand) : le champ sera refusé");
            rc.bloquante = true;
            continue;
        }
        rc.lisible = true;
        rc.valeur = v;
        if (texte.empty()) {
            rc.textes.push_back("Champ vide : il vaudra 0");
        } else if (issue == Issue::SansValeur || (v == 0 && !estNombre(texte))) {
            const bool lettreSeule = texte.size() == 1 && !estChiffre(texte[0]);
            rc.textes.push_back(texteCite(texte) + " ne se lit pas comme un nombre : il vaudra 0" +
                                (lettreSeule && (texte == "P" || texte == "p") ? " (écrivez 1P pour π)" : ""));
        }
        if (const std::string hors = horsType(i, v); !hors.empty()) {
            rc.textes.push_back(hors + " : le champ sera refusé");
            rc.bloquante = true;
        }
        if (i >= premierPas && i <= dernierPas && v <= 0)
            rc.textes.push_back(std::string(v == 0 ? "Valeur nulle" : "Valeur négative") +
                                " : acceptée telle quelle, mais le tracé risque d'être vide");
    }
    for (int i = 0; i + 1 < premierPas; i += 2) {
        if (!r[i].lisible || !r[i + 1].lisible || r[i].valeur < r[i + 1].valeur)
            continue;
        const bool egales = r[i].valeur == r[i + 1].valeur;
        // A frame range that is not positive makes the window go back to
        // "mem.log"; an empty t or a range only draws nothing.
        const std::string fin = i < 6 ? " : accepté tel quel, mais la fenêtre reprendra alors les valeurs de mem.log"
                                      : " : accepté tel quel, mais l'intervalle est vide";
        const std::string bas = std::string(champs[i].nom), haut = std::string(champs[i + 1].nom);
        if (egales) {
            r[i].textes.push_back(bas + " est égal à " + haut + fin);
            r[i + 1].textes.push_back(haut + " est égal à " + bas + fin);
        } else {
            r[i].textes.push_back(bas + " (" + nombre(r[i].valeur) + ") est au-dessus de " + haut + " (" +
                                  nombre(r[i + 1].valeur) + ")" + fin);
            r[i + 1].textes.push_back(haut + " (" + nombre(r[i + 1].valeur) + ") est au-dessous de " + bas + " (" +
                                      nombre(r[i].valeur) + ")" + fin);
        }
    }
    return r;
}

}  // namespace velorin
