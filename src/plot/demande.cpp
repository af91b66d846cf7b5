#include "plot/demande.h"

#include <chrono>

#include "base/texte_sur.h"
#include "catalogue/genre.h"
#include "engine/nombres.h"
#include "engine/normalisation.h"
#include "plot/nuages.h"
#include "plot/objets.h"
#include "plot/traceurs.h"

namespace velorin {

namespace {

std::string sansBlancsAutour(const std::string& s)
{
    return std::string(sansBlancsAuxBouts(s, " \t"));
}

// Splits at every `separateur` into at most three trimmed fields.
std::array<std::string, 3> coupe(const std::string& texte, const std::string& separateur)
{
    std::array<std::string, 3> champs;
    std::size_t debut = 0;
    for (int i = 0; i < 3; ++i) {
        const auto fin = texte.find(separateur, debut);
        champs[i] = sansBlancsAutour(texte.substr(debut, fin == std::string::npos ? fin : fin - debut));
        if (fin == std::string::npos)
            break;
        debut = fin + separateur.size();
    }
    return champs;
}

// The equation text the engine keeps as typed is that of the plane by
// equation.
static_assert(genrePlanEquation == genreTelQuel);

FinTrace lanceTraceur(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    switch (etat.trace.typeTrace) {
    case genreExplicite: return traceExplicite(etat, surface, crochets);
    case genreCourbeParametree: return parcours1(etat, surface, crochets);
    case genreSurfaceParametree: return parcours2(etat, surface, crochets);
    case genreCourbeSpherique: return parcours3(etat, surface, crochets);
    case genreSurfaceSpherique: return parcours4(etat, surface, crochets);
    case genreDroite:
    case genrePlanParametre:
    case genrePlanEquation:
    case genreSegment:
    case genrePoint: return {false, traceObjet(etat, surface, crochets)};
    default:  // the clouds, and any kind never written
        traceNuage(etat, surface, crochets);
        if (crochets.bip)
            crochets.bip();
        return {};
    }
}

// The colour a "Cycle" sending gives one entry is that entry's own: the
// colour in force comes back when its request ends.
class CouleurPretee {
public:
    CouleurPretee() = default;
    CouleurPretee(const CouleurPretee&) = delete;
    CouleurPretee& operator=(const CouleurPretee&) = delete;
    ~CouleurPretee()
    {
        if (cible_)
            *cible_ = avant_;
    }
    void prete(Couleur& cible)
    {
        cible_ = &cible;
        avant_ = cible;
    }

private:
    Couleur* cible_ = nullptr;
    Couleur avant_ = 0;
};

}  // namespace

std::array<std::string, 3> champsEntree(int type, const std::string& texte)
{
    const std::string t = sansBlancsAutour(texte);
    if (estGenreFonction(type))
        return coupe(t, "][");
    if (estGenreObjet(type)) {
        const auto ouverture = t.find(":[");
        std::string pieces = ouverture == std::string::npos ? t : t.substr(ouverture + 2);
        if (!pieces.empty() && pieces.back() == ']')
            pieces.pop_back();
        return coupe(pieces, "][");
    }
    return coupe(t, "<");
}

Couleur couleurCycle(const CouleursDefaut& defaut, Couleur couleurEnCours, int rang)
{
    std::vector<Couleur> cycle{couleurEnCours};
    for (Couleur c : {defaut.coulRouge, defaut.coulVert, defaut.coulBleu, defaut.coulJaune, defaut.coulCyan,
                      defaut.coulMagenta, defaut.coulOrange})
        if (c != couleurEnCours)
            cycle.push_back(c);
    return cycle[static_cast<std::size_t>(rang < 0 ? 0 : rang) % cycle.size()];
}

std::string legendeTrace(const std::string& texteEntree)
{
    std::string legende(1, '[');
    legende += sansBlancsAutour(texteEntree);
    legende += "]";
    legende += " TRACE DE COURBES...";
    return legende;
}

std::string legendeFinTrace(const std::string& legende, int dixiemes)
{
    return legende + "__" + entierFormate(dixiemes, 2) + ".00";
}

ResultatTrace demandeTrace(Etat& etat, Surface& surface, int numero, const OptionsTrace& options,
                           const CrochetsTrace& crochets)
{
    const auto depart = std::chrono::steady_clock::now();
    ResultatTrace r;
    TableCourbes& table = etat.courbes;
    if (options.ligne != 0) {
        if (options.ligne < 1 || options.ligne > static_cast<int>(table.lignes.size())) {
            r.erreur = "La courbe tracée n° " + std::to_string(options.ligne) + " n'existe pas.";
            return r;
        }
        numero = static_cast<int>(table.lignes[options.ligne - 1][colNumero]);
    }

    // The entry. A number beyond the catalogue draws nothing and says
    // nothing (the catalogue in force may have fewer entries than the one a
    // curve was drawn from).
    const Catalogue& cat = etat.catalogue;
    if (numero > cat.nbLignesCatalogue)
        return r;
    if (numero < 1) {
        r.erreur = "L'entrée n° " + std::to_string(numero) + " n'existe pas dans le catalogue (" +
                   std::to_string(cat.nbLignesCatalogue) + " entrées) : rien n'est tracé.";
        return r;
    }
    LigneCatalogue entree;
    if (auto erreur = lisLigne(cat, numero, entree)) {
        r.erreur = erreur;
        return r;
    }
    const int type = entree.typeFonction;

    // The row, before the formulas are looked at: a curve whose formula
    // fails is a drawn curve too, listed, and its message comes back at each
    // redraw. A new curve takes the values in force; a redraw copies its
    // row's values back into the parameters, and they stay in force.
    CouleurPretee cycle;
    LigneCourbe valeurs;
    if (options.ligne == 0) {
        valeurs = ligneDepuisParametres(etat, numero, type);
        // A family cycles its family colour, the colour it is drawn in.
        if (options.couleurs == ModeCouleurs::Cycle) {
            const bool famille = type == genreSurfaceParametree || type == genreSurfaceSpherique;
            Couleur& enCours = famille ? etat.couleurs.couleurFamille : etat.couleurs.couleurTrace;
            valeurs[famille ? colCouleurFamille : colCouleurTrace] = couleurCycle(etat.defaut, enCours, options.rang);
            cycle.prete(enCours);
        }
        r.ligne = ajouteCourbe(table, valeurs);
        if (r.ligne == 0) {
            r.erreur = "Trop de courbes tracées (" + std::to_string(maxCourbes) +
                       " au plus) : videz la liste des courbes tracées.";
            return r;
        }
    } else {
        valeurs = table.lignes[options.ligne - 1];
        r.ligne = options.ligne;
    }
    appliqueLigne(valeurs, etat);
    etat.trace.typeTrace = type;

    // Formula fields, cleaned, each with balanced brackets.
    std::array<std::string, 3> champs = champsEntree(type, entree.texte);
    for (std::string& champ : champs) {
        champ = nettoieformule(champ, type);
        if (!parenthesesequilibrees(champ)) {
            r.erreur = "La formule " + texteSur(champ) + " est incorrecte, corrigez-la , svp";
            return r;
        }
    }

    GlobalesMoteur& m = etat.moteur;
    m.formuleF1 = champs[0];
    m.formuleF2 = champs[1];
    m.formuleF3 = champs[2];
    m.genreCourbe = type;
    m.erreurFormule.clear();
    r.legende = legendeTrace(entree.texte);
    if (crochets.debut)
        crochets.debut(r.legende);

    const FinTrace fin = lanceTraceur(etat, surface, crochets);
    r.trace = true;
    r.interrompu = fin.interrompu;
    if (fin.erreur)
        r.erreur = fin.erreur;
    else if (!m.erreurFormule.empty())
        r.erreur = m.erreurFormule;
    r.formuleIncorrecte = !m.erreurFormule.empty();
    r.dureeMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - depart).count();
    return r;
}

}  // namespace velorin
