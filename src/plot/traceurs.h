// The curve and surface tracers of the kinds 0 to 4. Each walks its
// parameters over the ranges of the drawing parameters, evaluates the point
// through the formula engine, maps it onto the surface and hands it to the
// point step, with the marks on every tenth point.
#pragma once
#include <string>

#include "base/erreur.h"
#include "plot/crochets.h"
#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

// Largest number of points one tracing computes (a family counts all its
// curves). A request beyond it draws nothing and says so: at about a million
// points a second it would take minutes, which is never what the user meant.
inline constexpr double maxPointsTrace = 10'000'000;
// The interruption hook is asked every so many points.
inline constexpr int pointsEntreInterrogations = 256;

struct FinTrace {
    bool interrompu = false;  // stopped by the user
    Erreur erreur;            // a formula error, a bad range: what to show
};

// Kind 0, y = f(x) over xmin..xmax in nbrCalX steps, with the tangent on
// every tenth point when avecSegmentTangent is set. In space the curve is
// (x, f(x), 0).
FinTrace traceExplicite(Etat& etat, Surface& surface, const CrochetsTrace& crochets);
// Kind 1, x, y, z = f1(t), f2(t), f3(t) for t from tmin to tmax by pasT.
FinTrace parcours1(Etat& etat, Surface& surface, const CrochetsTrace& crochets);
// Kind 2, the surface x, y, z of (a, t), as a family of curves.
FinTrace parcours2(Etat& etat, Surface& surface, const CrochetsTrace& crochets);
// Kind 3, R, Agh, Agv of t, with the radius on every tenth point when
// avecRayon is set.
FinTrace parcours3(Etat& etat, Surface& surface, const CrochetsTrace& crochets);
// Kind 4, R, Agh, Agv of (a, t), as a family of curves.
FinTrace parcours4(Etat& etat, Surface& surface, const CrochetsTrace& crochets);

// Next value of the moiré counter: 1..15 on the first cycle, then 2..15.
int moirureSuivante(int compteur);

}  // namespace velorin
