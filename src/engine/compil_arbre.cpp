// Exact evaluation of the tree of a formula for one point: each node does
// what the evaluator does at the same place of the text, with the same
// numeric building blocks (operons, combine3, combine4, the function table,
// the integer quotient), so that values and failures are the same.
#include <cmath>
#include <limits>

#include "engine/compil_arbre.h"

namespace velorin::compil {

namespace {

Resultat valeur(double v)
{
    return {Issue::Valeur, v};
}

// A Nombre node: mantissa, then one factor of ten per "E", left to right.
double nombre(const Arbre& a, const Noeud& n, const Variables& p, bool& echec)
{
    auto partie = [&](std::int32_t k) {
        const Partie& q = a.parties[static_cast<std::size_t>(n.debut + k)];
        return q.defaut ? p.valeurs[0] : q.valeur;
    };
    double v = partie(0);
    for (std::int32_t k = 1; k < n.nombre; ++k) {
        const double dix = std::pow(10.0, partie(k));
        v = v * dix;
        if (!std::isfinite(dix) || !std::isfinite(v)) {
            echec = true;
            return 0;
        }
    }
    return v;
}

// A number child of a term: a constant or a Nombre node.
double lis(const Arbre& a, std::int32_t k, const Variables& p, bool& echec)
{
    const Noeud& n = a.noeuds[static_cast<std::size_t>(k)];
    return n.sorte == Sorte::Valeur ? n.x : nombre(a, n, p, echec);
}

Resultat terme(const Arbre& a, const Noeud& n, const Variables& p)
{
    bool echec = false;
    const double coefficient = lis(a, n.enfants[0], p, echec);
    const double exposant = lis(a, n.enfants[1], p, echec);
    if (echec)
        return valeur(horsCalcul);
    const double base = p.valeurs[n.rang];
    return calculeTerme(n.ops[0], base, coefficient, exposant, n.diviseParXPrecedent ? p.xPrecedent : base);
}

Resultat somme(const Arbre& a, const Noeud& n, const Variables& p)
{
    double s = 0;
    for (std::int32_t k = 0; k < n.nombre; ++k) {
        const TermeSigne& t = a.listeTermes[static_cast<std::size_t>(n.debut + k)];
        s = s + t.signe * evalueNoeud(a, t.noeud, p).lue();
        if (!std::isfinite(s))
            return {Issue::Echec, 0};
    }
    return valeur(s);
}

Resultat applique(const Noeud& n, double w)
{
    switch (n.prefixe) {
    case Prefixe::Identite: return valeur(w);
    case Prefixe::Constante: return valeur(n.x);
    case Prefixe::Operation: return operons(n.ops[0], n.x, w);
    case Prefixe::SansValeur: return {};
    case Prefixe::Fonction: break;
    }
    bool echec = false;
    const double v = calculeFonction(n.fonction, w, echec);
    if (echec)
        return valeur(horsCalcul);
    switch (n.tete) {
    case Tete::Aucune: return valeur(v);
    case Tete::Moins: return valeur(-v);
    case Tete::HorsCalcul: return valeur(horsCalcul);
    case Tete::Operation: break;
    }
    return operons(n.ops[1], n.x, v);
}

}  // namespace

Resultat evalueNoeud(const Arbre& a, std::int32_t k, const Variables& p)
{
    const Noeud& n = a.noeuds[static_cast<std::size_t>(k)];
    switch (n.sorte) {
    case Sorte::Valeur: return valeur(n.x);
    case Sorte::SansValeur: return {};
    case Sorte::Incorrecte: return {Issue::Incorrecte, 0};
    case Sorte::Nombre:
    case Sorte::TermeConstant: {
        bool echec = false;
        const double v =
            nombre(a, a.noeuds[static_cast<std::size_t>(n.sorte == Sorte::Nombre ? k : n.enfants[0])], p, echec);
        return valeur(echec ? horsCalcul : v);
    }
    case Sorte::Terme: return terme(a, n, p);
    case Sorte::Somme: return somme(a, n, p);
    case Sorte::Applique: {
        const Resultat w = evalueNoeud(a, n.enfants[0], p);
        if (w.interrompt())
            return w;
        return applique(n, w.lue());
    }
    case Sorte::Operons:
    case Sorte::Combine3:
    case Sorte::Combine4: break;
    }
    const int groupes = n.sorte == Sorte::Operons ? 2 : n.sorte == Sorte::Combine3 ? 3 : 4;
    double v[4] = {0, 0, 0, 0};
    for (int i = 0; i < groupes; ++i) {
        const Resultat r = evalueNoeud(a, n.enfants[i], p);
        if (r.interrompt())
            return r;
        v[i] = r.lue();
    }
    if (groupes == 2)
        return operons(n.ops[0], v[0], v[1]);
    if (groupes == 3)
        return combine3(n.ops[0], n.ops[1], v[0], v[1], v[2]);
    return combine4(n.ops[0], n.ops[1], n.ops[2], v[0], v[1], v[2], v[3]);
}

Resultat evalueArbre(const Arbre& a, const Variables& p)
{
    const Resultat r = evalueNoeud(a, a.racine, p);
    if (r.issue == Issue::Echec)
        return valeur(horsCalcul);
    return r;
}

double evalueNoeudOuNaN(const Arbre& a, std::int32_t noeud, double u, double v, double w)
{
    const Variables p = variables(u, v, w, a.famille);
    const Resultat r = evalueNoeud(a, noeud, p);
    return r.interrompt() ? std::numeric_limits<double>::quiet_NaN() : r.lue();
}

}  // namespace velorin::compil
