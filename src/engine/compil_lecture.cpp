// Building the tree of a formula: the same reading of the text as the
// evaluator's (trimming, upper case, bracket groups, cutting at the signs,
// terms, prefixes, number texts), done once; where the evaluator computes,
// a node is added instead.
#include <string>

#include "engine/compil_arbre.h"
#include "engine/nombres.h"

namespace velorin::compil {

namespace {

class Constructeur {
public:
    explicit Constructeur(Famille f) { arbre_.famille = f; }

    Arbre termine(std::string_view texte)
    {
        arbre_.racine = crochets(texte);
        return std::move(arbre_);
    }

private:
    Arbre arbre_;

    std::int32_t ajoute(const Noeud& n)
    {
        arbre_.noeuds.push_back(n);
        return static_cast<std::int32_t>(arbre_.noeuds.size() - 1);
    }

    std::int32_t valeur(double x)
    {
        Noeud n;
        n.sorte = Sorte::Valeur;
        n.x = x;
        return ajoute(n);
    }

    std::int32_t feuille(Sorte s)
    {
        Noeud n;
        n.sorte = s;
        return ajoute(n);
    }

    // A number text read with the first variable as default: a constant
    // when no lone letter of it reads the default, else a Nombre node.
    // `echoue` is set when its reading always fails.
    std::int32_t nombre(std::string_view brut, bool& echoue)
    {
        const std::string texte = majuscules(sansBlancsAuxBouts(brut));
        // The same cut as the number reader: from the right end, at the last
        // "E" of a remainder of two characters or more.
        std::vector<std::string_view> morceaux;  // exponents, right to left, then the mantissa
        std::string_view reste = texte;
        for (;;) {
            reste = sansBlancsAuxBouts(reste);
            const std::size_t e = reste.size() >= 2 ? reste.rfind('E') : std::string_view::npos;
            if (e == std::string_view::npos)
                break;
            morceaux.push_back(reste.substr(e + 1));
            reste = reste.substr(0, e);
        }
        morceaux.push_back(reste);
        bool litDefaut = false;
        for (std::string_view m : morceaux) {
            const std::string_view s = sansBlancsAuxBouts(m);
            if (s.size() == 1 && !estChiffre(s[0]))
                litDefaut = true;
        }
        bool echec = false;
        if (!litDefaut) {
            const double v = lisnombre(texte, 0.0, echec);
            if (echec)
                echoue = true;
            return valeur(v);
        }
        // Parts in the order of the reading: mantissa, then the exponents
        // from the leftmost "E" to the rightmost.
        Noeud n;
        n.sorte = Sorte::Nombre;
        n.debut = static_cast<std::int32_t>(arbre_.parties.size());
        for (auto it = morceaux.rbegin(); it != morceaux.rend(); ++it) {
            const std::string_view s = sansBlancsAuxBouts(*it);
            Partie p;
            if (s.size() == 1 && !estChiffre(s[0]))
                p.defaut = true;
            else
                p.valeur = lisnombre(s, 0.0, echec);
            arbre_.parties.push_back(p);
        }
        n.nombre = static_cast<std::int32_t>(morceaux.size());
        if (echec)
            echoue = true;
        return ajoute(n);
    }

    std::int32_t terme(std::string_view terme)
    {
        const Famille f = arbre_.famille;
        const std::size_t L = terme.size();
        const FormeTerme forme = formeTerme(f, terme);
        bool echec = false;
        if (forme.genres != 1) {
            const std::int32_t k = nombre(terme, echec);
            if (echec)
                return valeur(horsCalcul);
            if (arbre_.noeuds[k].sorte == Sorte::Valeur)
                return k;
            Noeud n;
            n.sorte = Sorte::TermeConstant;
            n.enfants[0] = k;
            return ajoute(n);
        }
        Noeud n;
        n.sorte = Sorte::Terme;
        n.rang = static_cast<std::int8_t>(forme.rang);
        n.ops[0] = forme.op;
        n.enfants[0] = forme.posVariable > 1 ? nombre(terme.substr(0, forme.posVariable - 1), echec) : valeur(1);
        n.enfants[1] = (forme.posPuissance > forme.posVariable && forme.posPuissance < L)
                           ? nombre(terme.substr(forme.posPuissance), echec)
                           : valeur(1);
        if (echec)
            return valeur(horsCalcul);
        if (forme.op == '\\' && f == Famille::Espace) {
            n.diviseParXPrecedent = true;
            arbre_.lisXPrecedent = true;
        }
        return ajoute(n);
    }

    std::int32_t somme(std::string_view texte)
    {
        std::vector<std::size_t> signes{0};
        for (std::size_t p = 1; p <= texte.size(); ++p)
            if (texte[p - 1] == '+' || texte[p - 1] == '-')
                signes.push_back(p);
        if (signes.size() == 1)
            return terme(texte);
        signes.push_back(texte.size() + 1);
        std::vector<TermeSigne> termes;
        for (std::size_t k = 1; k < signes.size(); ++k) {
            const std::size_t avant = signes[k - 1];
            const std::string_view piece = texte.substr(avant, signes[k] - avant - 1);
            TermeSigne t;
            t.signe = (avant > 0 && texte[avant - 1] == '-') ? -1.0 : 1.0;
            t.noeud = terme(piece);
            termes.push_back(t);
        }
        Noeud n;
        n.sorte = Sorte::Somme;
        n.debut = static_cast<std::int32_t>(arbre_.listeTermes.size());
        n.nombre = static_cast<std::int32_t>(termes.size());
        arbre_.listeTermes.insert(arbre_.listeTermes.end(), termes.begin(), termes.end());
        return ajoute(n);
    }

    // The prefix in front of a bracket, applied to the node `dedans`.
    std::int32_t applique(std::string_view prefixe, std::int32_t dedans)
    {
        Noeud n;
        n.sorte = Sorte::Applique;
        n.enfants[0] = dedans;
        bool echec = false;
        if (prefixe.empty()) {
            n.prefixe = Prefixe::Identite;
        } else if (prefixe.size() == 1 && estChiffre(prefixe[0])) {
            n.prefixe = Prefixe::Constante;
            n.x = prefixe[0] - '0';
        } else if (estOperateur(prefixe.back())) {
            n.x = lisnombre(prefixe.substr(0, prefixe.size() - 1), 0.0, echec);
            n.prefixe = echec ? Prefixe::Constante : Prefixe::Operation;
            if (echec)
                n.x = horsCalcul;
            n.ops[0] = prefixe.back();
        } else {
            std::size_t i = prefixe.size();
            while (i > 0 && prefixe[i - 1] >= 'A' && prefixe[i - 1] <= 'Z')
                --i;
            const std::string_view nom = prefixe.substr(i), tete = prefixe.substr(0, i);
            n.fonction = fonctionNommee(nom);
            n.prefixe = n.fonction == Fonction::Aucune ? Prefixe::SansValeur : Prefixe::Fonction;
            if (tete.empty()) {
                n.tete = Tete::Aucune;
            } else if (tete.size() == 1) {
                n.tete = tete[0] == '-' ? Tete::Moins : Tete::HorsCalcul;
            } else {
                n.x = lisnombre(tete.substr(0, tete.size() - 1), 0.0, echec);
                n.tete = echec ? Tete::HorsCalcul : Tete::Operation;
                n.ops[1] = tete.back();
            }
        }
        return ajoute(n);
    }

    std::int32_t crochets(std::string_view brut)
    {
        const std::string texte = majuscules(sansBlancsAuxBouts(brut));
        const std::string_view vue = texte;
        std::size_t ouvrantes = 0, fermantes = 0;
        for (char c : texte) {
            if (c == '(')
                ++ouvrantes;
            if (c == ')')
                ++fermantes;
        }
        if (ouvrantes != fermantes)
            return feuille(Sorte::Incorrecte);
        if (ouvrantes == 0)
            return somme(vue);
        if (ouvrantes > pairesMax(arbre_.famille))
            return feuille(Sorte::SansValeur);
        bool ordreCorrect = true;
        const std::vector<Groupe> g = groupes(vue, ordreCorrect);
        if (!ordreCorrect)
            return feuille(Sorte::Incorrecte);
        if (g.size() == 1) {
            const std::string_view prefixe = vue.substr(0, g[0].ouvre);
            const std::string_view dedans = vue.substr(g[0].ouvre + 1, g[0].ferme - g[0].ouvre - 1);
            const std::int32_t k = ouvrantes == 1 ? somme(dedans) : crochets(dedans);
            return applique(prefixe, k);
        }
        Noeud n;
        n.sorte = g.size() == 2 ? Sorte::Operons : g.size() == 3 ? Sorte::Combine3 : Sorte::Combine4;
        std::size_t debut = 0;
        for (std::size_t k = 0; k < g.size() && k < 4; ++k) {
            n.enfants[k] = crochets(vue.substr(debut, g[k].ferme - debut + 1));
            if (k + 1 < g.size() && k < 3) {
                n.ops[k] = texte[g[k].ferme + 1];
                debut = g[k].ferme + 2;
            }
        }
        return ajoute(n);
    }
};

}  // namespace

Arbre construitArbre(Famille famille, std::string_view texte)
{
    return Constructeur(famille).termine(texte);
}

}  // namespace velorin::compil
