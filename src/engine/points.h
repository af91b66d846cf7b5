// Evaluation entry points by function kind: each evaluates the formulas of
// the current function (formuleF1..3) for the parameter values given and
// leaves the point in pointX, pointY, pointZ.
#pragma once
#include "engine/globales.h"

namespace velorin {

// y = F1(x): pointY = F1(x), pointZ = 0; pointX is left to the caller.
void pointcourbe(GlobalesMoteur& g, double x);
// Only when flag == 1: pointX = F1(t), pointY = F2(t), pointZ = F3(t) in
// space and 0 in the plane.
void pointparametre(GlobalesMoteur& g, double t, int flag, bool modeEspace);
// R = F1(t), Agh = F2(t), Agv = F3(t), in space or in the plane (R kept in pointZ).
void pointpolaire(GlobalesMoteur& g, double t, bool modeEspace);
// pointX..Z = F1..F3(u, v), plane family (u is X/A, v is T/Y).
void pointsurface(GlobalesMoteur& g, double u, double v);
// R, Agh, Agv = F1..F3(u, v) turned into x, y, z.
void pointspherique(GlobalesMoteur& g, double u, double v);

}  // namespace velorin
