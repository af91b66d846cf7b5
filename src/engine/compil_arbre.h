// Tree of a compiled formula. Every decision that the evaluator takes on
// the text alone (where the brackets are, where the sums are cut, what each
// prefix and term says, which constants it reads) is taken once, when the
// tree is built; the nodes keep only what depends on the values of the
// variables. Evaluating the tree gives, for every value, the same result as
// reading the text again (same operations in the same order, same failure
// rules, same building blocks).
#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/lecture.h"

namespace velorin::compil {

enum class Sorte : std::uint8_t {
    Valeur,         // the constant `x`
    SansValeur,     // no value
    Incorrecte,     // brackets that do not pair up
    Nombre,         // a number text in which a lone letter reads as the first
                    // variable: parties [debut, debut + nombre)
    TermeConstant,  // a term without variable: the Nombre `a`, horsCalcul on failure
    Terme,          // coefficient `a` op variable `rang` ^ exposant `b`
    Somme,          // sum of the terms listeTermes [debut, debut + nombre)
    Applique,       // prefix applied to the value of the bracket `a`
    Operons,        // groups a, b joined by ops[0]
    Combine3,       // groups a, b, c joined by ops[0], ops[1]
    Combine4,       // groups a, b, c, d joined by ops[0..2]
};

// What the prefix in front of a bracket does with the bracket's value w.
enum class Prefixe : std::uint8_t {
    Identite,    // no prefix: w
    Constante,   // always `x` (a lone digit, or a head whose reading fails)
    Operation,   // operons(ops[0], x, w)
    Fonction,    // fonction(w), then the head `tete`
    SansValeur,  // a name in no row of the function table
};

// The head in front of a function name.
enum class Tete : std::uint8_t {
    Aucune,      // the function's value
    Moins,       // its opposite
    HorsCalcul,  // horsCalcul (a lone character other than "-", or an unreadable number)
    Operation,   // operons(ops[1], x, value)
};

struct Noeud {
    Sorte sorte = Sorte::Valeur;
    Prefixe prefixe = Prefixe::Identite;
    Tete tete = Tete::Aucune;
    Fonction fonction = Fonction::Aucune;
    char ops[3] = {0, 0, 0};
    std::int8_t rang = 0;              // variable of a term
    bool diviseParXPrecedent = false;  // space family "\": divides by the previous x
    std::int32_t enfants[4] = {-1, -1, -1, -1};
    std::int32_t debut = 0, nombre = 0;
    double x = 0;
};

// One part of a number text cut at its "E": a lone letter (the first
// variable's value) or a constant.
struct Partie {
    bool defaut = false;
    double valeur = 0;
};

// One term of a sum, with the sign in front of it (+1 or -1).
struct TermeSigne {
    double signe = 1;
    std::int32_t noeud = -1;
};

struct Arbre {
    Famille famille = Famille::Espace;
    std::vector<Noeud> noeuds;
    std::vector<Partie> parties;
    std::vector<TermeSigne> listeTermes;
    std::int32_t racine = -1;
    // True when a term divides by the previous point's x.
    bool lisXPrecedent = false;
};

// Builds the tree of a formula text of a family.
Arbre construitArbre(Famille famille, std::string_view texte);

// Result of a node for one point, exactly as the evaluator reads the text
// of that node. The whole formula: evalueArbre (an uncaught failure is
// already horsCalcul there).
Resultat evalueNoeud(const Arbre& arbre, std::int32_t noeud, const Variables& variables);
Resultat evalueArbre(const Arbre& arbre, const Variables& variables);

// The value an enclosing node reads from `noeud` (no value reads as 0), or
// NaN when the node's reading stops the whole formula (uncaught failure,
// unreadable brackets).
double evalueNoeudOuNaN(const Arbre& arbre, std::int32_t noeud, double u, double v, double w);

}  // namespace velorin::compil
