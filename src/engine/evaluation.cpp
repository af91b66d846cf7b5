// Reading of a whole formula: bracket groups, sums of terms, terms. The
// text is read again at every call; the three families share this code and
// differ only in their variable letters, their largest number of bracket
// pairs and their message for unreadable brackets.
#include <cmath>
#include <string>
#include <vector>

#include "engine/lecture.h"
#include "engine/nombres.h"

namespace velorin {

namespace {

Resultat valeur(double v)
{
    return {Issue::Valeur, v};
}

// A term (no "+" or "-"): a constant, or coefficient, "*", "/" or "\", one
// variable letter and an optional "^" exponent. Never Echec: a failure
// gives horsCalcul. The space family's "\" divides by xPrecedent, the x of
// the previous point.
Resultat evalterme(Famille f, std::string_view terme, const Variables& var)
{
    // The numbers of a term read a lone non-digit character as the first
    // variable's value.
    const double defaut = var.valeurs[0];
    const FormeTerme forme = formeTerme(f, terme);
    bool echec = false;
    if (forme.genres != 1) {
        // No variable, or variables of several kinds: a constant term.
        const double v = lisnombre(terme, defaut, echec);
        return valeur(echec ? horsCalcul : v);
    }
    double coefficient = 1, exposant = 1;
    if (forme.posVariable > 1)
        coefficient = lisnombre(terme.substr(0, forme.posVariable - 1), defaut, echec);
    if (forme.posPuissance > forme.posVariable && forme.posPuissance < terme.size())
        exposant = lisnombre(terme.substr(forme.posPuissance), defaut, echec);
    if (echec)
        return valeur(horsCalcul);
    const double base = var.valeurs[forme.rang];
    // The space family tests t^exponent in "\" but divides by the previous
    // point's x raised to the exponent.
    return calculeTerme(forme.op, base, coefficient, exposant, f == Famille::Espace ? var.xPrecedent : base);
}

// A flat text cut at every "+" and "-" into terms, summed left to right.
// May give Echec when the sum overflows.
Resultat evalsomme(Famille f, std::string_view texte, const Variables& var)
{
    // Positions (1-based) of every sign, with 0 in front and L + 1 at the end.
    std::vector<std::size_t> signes{0};
    for (std::size_t p = 1; p <= texte.size(); ++p)
        if (texte[p - 1] == '+' || texte[p - 1] == '-')
            signes.push_back(p);
    if (signes.size() == 1)
        return evalterme(f, texte, var);
    signes.push_back(texte.size() + 1);
    double somme = 0;
    for (std::size_t k = 1; k < signes.size(); ++k) {
        const std::size_t avant = signes[k - 1];
        const std::string_view piece = texte.substr(avant, signes[k] - avant - 1);
        const double signe = (avant > 0 && texte[avant - 1] == '-') ? -1.0 : 1.0;
        somme = somme + signe * evalterme(f, piece, var).lue();
        // The sum of terms catches nothing: its overflow goes up.
        if (!std::isfinite(somme))
            return {Issue::Echec, 0};
    }
    return valeur(somme);
}

Resultat evalcrochets(Famille f, std::string_view brut, const Variables& var)
{
    const std::string texte = majuscules(sansBlancsAuxBouts(brut));
    std::size_t ouvrantes = 0, fermantes = 0;
    for (char c : texte) {
        if (c == '(')
            ++ouvrantes;
        if (c == ')')
            ++fermantes;
    }
    if (ouvrantes != fermantes)
        return {Issue::Incorrecte, 0};
    if (ouvrantes == 0)
        return evalsomme(f, texte, var);
    // Too many pairs for the family: no value at all.
    if (ouvrantes > pairesMax(f))
        return {};
    bool ordreCorrect = true;
    const std::vector<Groupe> g = groupes(texte, ordreCorrect);
    // Equal counts but a ")" before its "(": the text cannot be cut into
    // groups, which is the same fault as unequal counts.
    if (!ordreCorrect)
        return {Issue::Incorrecte, 0};

    if (g.size() == 1) {
        // One group: prefix(contents). One pair: the contents are a flat
        // sum; nested pairs: the contents are read as a formula. Text after
        // the closing bracket is not read.
        const std::string_view prefixe = std::string_view(texte).substr(0, g[0].ouvre);
        const std::string_view dedans = std::string_view(texte).substr(g[0].ouvre + 1, g[0].ferme - g[0].ouvre - 1);
        const Resultat w = ouvrantes == 1 ? evalsomme(f, dedans, var) : evalcrochets(f, dedans, var);
        if (w.interrompt())
            return w;
        return appliquefonction(prefixe, w.lue());
    }

    // Groups side by side: each one read with its prefix, from the start
    // (or from just after the previous operator) up to its closing bracket;
    // the operator is the one character right after that bracket. When that
    // character is the next "(" itself, the next piece lacks its "(" and is
    // unreadable.
    double valeurs[4] = {0, 0, 0, 0};
    char ops[3] = {0, 0, 0};
    std::size_t debut = 0;
    for (std::size_t k = 0; k < g.size(); ++k) {
        const Resultat r = evalcrochets(f, std::string_view(texte).substr(debut, g[k].ferme - debut + 1), var);
        if (r.interrompt())
            return r;
        valeurs[k] = r.lue();
        if (k + 1 < g.size()) {
            ops[k] = texte[g[k].ferme + 1];
            debut = g[k].ferme + 2;
        }
    }
    switch (g.size()) {
    case 2: return operons(ops[0], valeurs[0], valeurs[1]);
    case 3: return combine3(ops[0], ops[1], valeurs[0], valeurs[1], valeurs[2]);
    default: return combine4(ops[0], ops[1], ops[2], valeurs[0], valeurs[1], valeurs[2], valeurs[3]);
    }
}

}  // namespace

Variables variables(double a, double b, double c, Famille f)
{
    Variables v;
    v.valeurs[0] = a;
    if (f == Famille::Espace) {
        v.xPrecedent = b;
    } else {
        v.valeurs[1] = b;
        v.valeurs[2] = c;
    }
    return v;
}

namespace {

double rendu(Famille f, std::string_view texte, double a, double b, double c, Issue* issue)
{
    const Resultat r = evalue(f, texte, a, b, c);
    if (issue)
        *issue = r.issue;
    return r.lue();
}

}  // namespace

int rangVariable(Famille f, char c)
{
    switch (f) {
    case Famille::Plan:
        if (c == 'X' || c == 'A')
            return 0;
        if (c == 'T' || c == 'Y')
            return 1;
        return -1;
    case Famille::Espace: return (c == 'X' || c == 'T' || c == 'A') ? 0 : -1;
    case Famille::Nuage:
        if (c == 'X')
            return 0;
        if (c == 'Y')
            return 1;
        if (c == 'Z')
            return 2;
        return -1;
    }
    return -1;
}

std::size_t pairesMax(Famille f)
{
    switch (f) {
    case Famille::Nuage: return 2;
    case Famille::Plan: return 3;
    case Famille::Espace: return 4;
    }
    return 0;
}

FormeTerme formeTerme(Famille f, std::string_view terme)
{
    FormeTerme forme;
    bool presente[3] = {false, false, false};
    for (std::size_t p = 1; p <= terme.size(); ++p) {
        const char c = terme[p - 1];
        if (c == '^')
            forme.posPuissance = p;
        const int r = rangVariable(f, c);
        if (r < 0)
            continue;
        presente[r] = true;
        forme.posVariable = p;
        forme.op = p > 1 ? terme[p - 2] : '*';
    }
    for (int r = 0; r < 3; ++r)
        if (presente[r]) {
            forme.rang = r;
            ++forme.genres;
        }
    return forme;
}

Resultat calculeTerme(char op, double base, double coefficient, double exposant, double diviseurEntier)
{
    const double w = std::pow(base, exposant);
    if (!std::isfinite(w))
        return valeur(horsCalcul);
    double r;
    switch (op) {
    case '*': r = coefficient * w; break;
    case '/':
        if (w == 0)
            return valeur(horsCalcul);
        r = coefficient / w;
        break;
    case '\\': {
        // "Integer part" taken as the largest integer not above w.
        if (std::floor(w) == 0)
            return valeur(horsCalcul);
        const double diviseur = std::pow(diviseurEntier, exposant);
        if (!std::isfinite(diviseur) || !quotientEntier(coefficient, diviseur, r))
            return valeur(horsCalcul);
        break;
    }
    default:
        // A digit or another character right before the variable ("2X"):
        // the term gives no value.
        return {};
    }
    return valeur(std::isfinite(r) ? r : horsCalcul);
}

std::vector<Groupe> groupes(std::string_view texte, bool& ordreCorrect)
{
    std::vector<Groupe> g;
    std::ptrdiff_t profondeur = 0;
    ordreCorrect = true;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        if (texte[i] == '(') {
            if (profondeur++ == 0)
                g.push_back({i, i});
        } else if (texte[i] == ')') {
            if (--profondeur < 0) {
                ordreCorrect = false;
                return {};
            }
            if (profondeur == 0)
                g.back().ferme = i;
        }
    }
    return g;
}

Resultat evalue(Famille f, std::string_view texte, double a, double b, double c)
{
    const Resultat r = evalcrochets(f, texte, variables(a, b, c, f));
    // A failure that no operation of the formula caught.
    if (r.issue == Issue::Echec)
        return valeur(horsCalcul);
    return r;
}

double evalplan(std::string_view texte, double u, double v, Issue* issue)
{
    return rendu(Famille::Plan, texte, u, v, 0, issue);
}
double evalespace(std::string_view texte, double t, double xPrecedent, Issue* issue)
{
    return rendu(Famille::Espace, texte, t, xPrecedent, 0, issue);
}
double evalnuage(std::string_view texte, double x, double y, double z, Issue* issue)
{
    return rendu(Famille::Nuage, texte, x, y, z, issue);
}

}  // namespace velorin
