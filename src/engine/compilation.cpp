#include "engine/compilation.h"

#include <algorithm>

namespace velorin {

namespace {

// Stands for an array the family does not read.
constexpr double zeros[compil::blocMax] = {};

}  // namespace

FormuleCompilee::FormuleCompilee(Famille famille, std::string_view texte)
    : texte_(texte), arbre_(compil::construitArbre(famille, texte)), programme_(compil::traduisArbre(arbre_))
{ }

Resultat FormuleCompilee::evalue(double a, double b, double c) const
{
    // Qt's drawing (and its start-up) leaves the upper halves of the vector
    // registers dirty; the scalar maths below would then run several times
    // slower. One point costs a few nanoseconds more, a tracing after a
    // drawing runs up to eight times faster.
    compil::nettoieRegistresVectoriels();
    // The flat code first; the tree when the point meets a failure or the
    // formula may end with no value.
    if (programme_.racineDonneUneValeur && programme_.nbRegistres <= compil::registresPoint) {
        bool douteux = false;
        const double r = compil::executePoint(programme_, arbre_, a, b, c, douteux);
        if (!douteux)
            return {Issue::Valeur, r};
    }
    return compil::evalueArbre(arbre_, variables(a, b, c, arbre_.famille));
}

double FormuleCompilee::valeur(double a, double b, double c, Issue* issue) const
{
    const Resultat r = evalue(a, b, c);
    if (issue)
        *issue = r.issue;
    return r.lue();
}

namespace {

// Block evaluation of `nombre` formulas sharing the program p: the flat code
// for whole blocks, then the exact reading of each formula at the points it
// marked.
bool evalueBlocs(const compil::Programme& p, const FormuleCompilee* formules, std::size_t nombre, const double* u,
                 const double* v, const double* w, double* const* sorties, std::size_t n)
{
    compil::nettoieRegistresVectoriels();
    bool lisible = true;
    auto exact = [&](std::size_t i) {
        for (std::size_t k = 0; k < nombre; ++k) {
            const Resultat r = formules[k].evalue(u ? u[i] : 0.0, v ? v[i] : 0.0, w ? w[i] : 0.0);
            if (r.issue == Issue::Incorrecte)
                lisible = false;
            sorties[k][i] = r.lue();
        }
    };
    const std::size_t taille = compil::tailleBloc(p);
    if (taille == 0) {
        for (std::size_t i = 0; i < n; ++i)
            exact(i);
        return lisible;
    }
    const compil::Arbre* arbres[FormulesCompilees::nombreMax];
    for (std::size_t k = 0; k < nombre; ++k)
        arbres[k] = &formules[k].arbre();
    bool douteux[compil::blocMax];
    double* morceaux[FormulesCompilees::nombreMax];
    for (std::size_t debut = 0; debut < n; debut += taille) {
        const std::size_t m = std::min(taille, n - debut);
        for (std::size_t k = 0; k < nombre; ++k)
            morceaux[k] = sorties[k] + debut;
        if (!compil::executeBloc(p, arbres, u ? u + debut : zeros, v ? v + debut : zeros, w ? w + debut : zeros,
                                 morceaux, douteux, m))
            continue;
        for (std::size_t i = 0; i < m; ++i)
            if (douteux[i])
                exact(debut + i);
    }
    return lisible;
}

std::vector<FormuleCompilee> compileTextes(Famille famille, const std::vector<std::string_view>& textes)
{
    std::vector<FormuleCompilee> formules;
    for (std::string_view t : textes)
        formules.emplace_back(famille, t);
    formules.resize(std::min(formules.size(), FormulesCompilees::nombreMax));
    return formules;
}

compil::Programme programmeCommun(const std::vector<FormuleCompilee>& formules)
{
    const compil::Arbre* arbres[FormulesCompilees::nombreMax];
    for (std::size_t k = 0; k < formules.size(); ++k)
        arbres[k] = &formules[k].arbre();
    return compil::traduisArbres(arbres, formules.size());
}

}  // namespace

bool evalueBloc(const FormuleCompilee& f, const double* u, const double* v, const double* w, double* sortie,
                std::size_t n)
{
    return evalueBlocs(f.programme(), &f, 1, u, v, w, &sortie, n);
}

FormulesCompilees::FormulesCompilees(Famille famille, const std::vector<std::string_view>& textes)
    : formules_(compileTextes(famille, textes)), programme_(programmeCommun(formules_))
{ }

bool evalueBloc(const FormulesCompilees& f, const double* u, const double* v, const double* w, double* const* sorties,
                std::size_t n)
{
    return evalueBlocs(f.programme(), f.formules().data(), f.formules().size(), u, v, w, sorties, n);
}

const FormuleCompilee& CacheFormules::formule(Famille f, std::string_view texte)
{
    for (const FormuleCompilee& c : formules_)
        if (c.famille() == f && c.texte() == texte)
            return c;
    if (formules_.size() < capacite) {
        formules_.emplace_back(f, texte);
        return formules_.back();
    }
    FormuleCompilee& place = formules_[prochain_];
    prochain_ = (prochain_ + 1) % capacite;
    place = FormuleCompilee(f, texte);
    return place;
}

}  // namespace velorin
