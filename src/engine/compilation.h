// Compiled formulas: a formula text of a family is read once into a tree
// and a flat code, then evaluated for as many points as wanted without
// reading the text again and without allocating. Every result is the
// evaluator's (lecture.h) for the same text and values, bit for bit:
// values, horsCalcul and 0 on failures, no value, unreadable brackets.
//
// Variables, as for velorin::evalue: plane (u = X/A, v = T/Y), space (t,
// then the x of the previous point, which its "\" divides by), cloud (x, y, z).
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/compil_arbre.h"
#include "engine/compil_bloc.h"
#include "engine/lecture.h"

namespace velorin {

class FormuleCompilee {
public:
    FormuleCompilee() : FormuleCompilee(Famille::Espace, "") { }
    FormuleCompilee(Famille famille, std::string_view texte);

    Famille famille() const { return arbre_.famille; }
    const std::string& texte() const { return texte_; }
    // True when a term divides by the previous point's x (space family
    // "\"): the points then depend on the order in which they are drawn.
    bool lisXPrecedent() const { return arbre_.lisXPrecedent; }

    // The full result for one point, as velorin::evalue(famille, texte, a, b, c).
    Resultat evalue(double a, double b = 0, double c = 0) const;
    // The value as evalplan / evalespace / evalnuage give it (no value and
    // unreadable brackets give 0; `issue` tells which case it was).
    double valeur(double a, double b, double c, Issue* issue = nullptr) const;

    const compil::Arbre& arbre() const { return arbre_; }
    const compil::Programme& programme() const { return programme_; }

private:
    std::string texte_;
    compil::Arbre arbre_;
    compil::Programme programme_;
};

// Values of n points at once, as valeur() gives them point by point:
// sortie[i] for the variables (u[i], v[i], w[i]). An array that the family
// does not read may be null (it reads as 0). Returns false when a point met
// unreadable brackets (its value is then 0).
bool evalueBloc(const FormuleCompilee& f, const double* u, const double* v, const double* w, double* sortie,
                std::size_t n);

// Several formulas of one family compiled together, as the coordinates of
// a curve or a surface: by blocks, the operations they have in common
// (cos(a) in both x and y of a torus) are computed once.
class FormulesCompilees {
public:
    static constexpr std::size_t nombreMax = 8;  // texts beyond are dropped
    FormulesCompilees(Famille famille, const std::vector<std::string_view>& textes);

    const std::vector<FormuleCompilee>& formules() const { return formules_; }
    const compil::Programme& programme() const { return programme_; }

private:
    std::vector<FormuleCompilee> formules_;
    compil::Programme programme_;
};

// sorties[k][i] gets formula k at point i, as evalueBloc of each formula
// alone would give it.
bool evalueBloc(const FormulesCompilees& f, const double* u, const double* v, const double* w, double* const* sorties,
                std::size_t n);

// The formulas compiled so far, by family and text: the entry points find
// the compiled form of the current formulas here (a few are kept, the
// oldest is replaced first).
class CacheFormules {
public:
    const FormuleCompilee& formule(Famille f, std::string_view texte);
    // valeur() of the compiled form of the text.
    double valeur(Famille f, std::string_view texte, double a, double b, double c, Issue* issue = nullptr)
    {
        return formule(f, texte).valeur(a, b, c, issue);
    }

private:
    static constexpr std::size_t capacite = 8;
    std::vector<FormuleCompilee> formules_;
    std::size_t prochain_ = 0;
};

}  // namespace velorin
