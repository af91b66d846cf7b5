// Graduations of the frames at "nice" steps (1, 2 or 5 x 10^k): the step
// routine the plane and space frames share, the plane frame's steps, and
// the grid drawn under the plane curves at those steps.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "settings/parametres.h"
#include "view/surface.h"
#include "view/vue.h"

namespace velorin {

// The smallest step 1, 2 or 5 x 10^k whose ticks lie at least
// `encombrement(pas)` twips apart, `unite` twips being one unit, with fewer
// than 200 ticks over `etendue`; `etendue` itself when none fits.
double pasRond(double etendue, double unite, const std::function<double(double)>& encombrement);

// Values i x pas inside [min, max] (computed from i, never accumulated);
// none when there would be 200 or more.
std::vector<double> valeursGraduees(double min, double max, double pas);

// Pattern of the numbers of a graduation step: as many decimals as the
// step needs, scientific form for very large or very small steps.
std::string motifPas(double pas);

// The space axes' step over [min, max]: the smallest nice step that leaves
// at most about ten intervals (pas >= (max - min) / 10). 0 for an empty or
// reversed range.
double pasEspace(double min, double max);

// The plane frame's steps along x and y: wide enough for their numbers in
// the surface's current font (the frame's), never closer than 40 pixels.
// 0 when the view is not calibrated in the plane.
double pasPlanX(const Parametres& p, const Vue& v, const Surface& s);
double pasPlanY(const Parametres& p, const Vue& v, const Surface& s);

// "Quadrillage": a line across the frame's ranges at every graduation of
// the plane frame's two axes (the steps above, in the frame's font), in
// `couleur`, one pixel solid. Drawn before the frame and the curves, it
// lies under them; it follows the scales in force, "Repère Orthonormé"
// included. The surface's pen is put back.
void traceQuadrillage(const Parametres& p, const Vue& v, Couleur couleur, Surface& surface);

}  // namespace velorin
