// Evaluation entry points: each evaluates the formulas of the current
// function in a fixed order and leaves the point in pointX, pointY, pointZ.
// A formula with no value gives 0; an unreadable formula gives 0 and leaves
// its message in erreurFormule (never cleared here: the plot request clears
// it before a tracing and the tracer stops when it is set).
#include "engine/points.h"

#include <cmath>

#include "engine/lecture.h"

namespace velorin {

namespace {

double retiens(GlobalesMoteur& g, Famille f, double valeur, Issue issue)
{
    if (issue == Issue::Incorrecte)
        g.erreurFormule = messageIncorrecte(f);
    return valeur;
}

// Space family, single variable t; its "\" reads the x of the previous
// point, which is pointX as it stands before this evaluation.
double espace(GlobalesMoteur& g, const std::string& formule, double t)
{
    Issue issue;
    const double v = g.formules.valeur(Famille::Espace, formule, t, g.pointX, 0, &issue);
    return retiens(g, Famille::Espace, v, issue);
}

double plan(GlobalesMoteur& g, const std::string& formule, double u, double v)
{
    Issue issue;
    const double r = g.formules.valeur(Famille::Plan, formule, u, v, 0, &issue);
    return retiens(g, Famille::Plan, r, issue);
}

// Radius R, horizontal angle Agh and elevation Agv above the xOy plane.
void cartesien(double r, double agh, double agv, double& x, double& y, double& z)
{
    x = r * std::cos(agv) * std::cos(agh);
    y = r * std::cos(agv) * std::sin(agh);
    z = r * std::sin(agv);
}

void spherique(GlobalesMoteur& g, double r, double agh, double agv)
{
    cartesien(r, agh, agv, g.pointX, g.pointY, g.pointZ);
}

}  // namespace

void pointcourbe(GlobalesMoteur& g, double x)
{
    g.pointY = espace(g, g.formuleF1, x);
    g.pointZ = 0;
}

void pointparametre(GlobalesMoteur& g, double t, int flag, bool modeEspace)
{
    if (flag != 1)
        return;
    g.pointZ = modeEspace ? espace(g, g.formuleF3, t) : 0.0;
    g.pointY = espace(g, g.formuleF2, t);
    g.pointX = espace(g, g.formuleF1, t);
}

void pointpolaire(GlobalesMoteur& g, double t, bool modeEspace)
{
    const double agv = espace(g, g.formuleF3, t);
    const double agh = espace(g, g.formuleF2, t);
    const double r = espace(g, g.formuleF1, t);
    if (modeEspace) {
        spherique(g, r, agh, agv);
    } else {
        // In the plane the radius stays in pointZ for the radius segment.
        g.pointZ = r;
        g.pointX = r * std::cos(agh);
        g.pointY = r * std::sin(agh);
    }
}

void pointsurface(GlobalesMoteur& g, double u, double v)
{
    g.pointX = plan(g, g.formuleF1, u, v);
    g.pointY = plan(g, g.formuleF2, u, v);
    g.pointZ = plan(g, g.formuleF3, u, v);
}

void pointspherique(GlobalesMoteur& g, double u, double v)
{
    const double agv = plan(g, g.formuleF3, u, v);
    const double agh = plan(g, g.formuleF2, u, v);
    const double r = plan(g, g.formuleF1, u, v);
    spherique(g, r, agh, agv);
}

bool pointsFamille(GlobalesMoteur& g, bool sphere, const double* u, const double* v, double* x, double* y, double* z,
                   std::size_t n)
{
    // F1..F3 are compiled together once per set of texts.
    const auto& f = g.familleCompilee;
    if (!f || f->formules()[0].texte() != g.formuleF1 || f->formules()[1].texte() != g.formuleF2 ||
        f->formules()[2].texte() != g.formuleF3)
        g.familleCompilee = std::make_shared<const FormulesCompilees>(
            Famille::Plan, std::vector<std::string_view>{g.formuleF1, g.formuleF2, g.formuleF3});
    double* sorties[3] = {x, y, z};
    if (!evalueBloc(*g.familleCompilee, u, v, nullptr, sorties, n)) {
        g.erreurFormule = messageIncorrecte(Famille::Plan);
        return false;
    }
    if (sphere) {
        // x, y, z hold R, Agh, Agv: turned into the point in place.
        for (std::size_t i = 0; i < n; ++i) {
            const double r = x[i], agh = y[i], agv = z[i];
            cartesien(r, agh, agv, x[i], y[i], z[i]);
        }
    }
    return true;
}

}  // namespace velorin
