// Tracer of the clouds (kinds 14 and 15): the points of the calculation grid
// where g < f < h, with g, f, h in formuleF1, formuleF2, formuleF3 read by the
// cloud family of the evaluator (variables X, Y, Z).
#pragma once
#include "plot/crochets.h"
#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

// Largest number of grid points one cloud evaluates; a larger grid is thinned
// evenly (every count scaled by the same factor) to fit.
inline constexpr double maxPointsNuage = 4'000'000;

// Kind 14: grid of x and y (nbrCalX by nbrCalY subdivisions of the ranges,
// z = 0); kind 15: grid of x, y and z (nbrCalZ too). Each grid point where
// g < f < h is set (PSet of its projection) in couleurTrace. Counts below 1
// or not finite draw nothing. Stops when crochets.interrompu answers true.
void traceNuage(Etat& etat, Surface& surface, const CrochetsTrace& crochets);

}  // namespace velorin
