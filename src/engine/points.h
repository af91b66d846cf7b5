// Evaluation entry points by function kind: each evaluates the formulas of
// the current function (formuleF1..3) for the parameter values given and
// leaves the point in pointX, pointY, pointZ.
#pragma once
#include <cstddef>

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

// The points of a family of (u, v) for n pairs (u[i], v[i]) at once, into
// x, y, z: exactly what pointsurface (or pointspherique when `spherique`)
// leaves in pointX, pointY, pointZ point by point, computed a block at a
// time. The plane family reads no previous point, so the order of the
// points does not matter. Returns false when a formula is unreadable (its
// message is then in erreurFormule, as the point-by-point entry leaves it).
bool pointsFamille(GlobalesMoteur& g, bool spherique, const double* u, const double* v, double* x, double* y, double* z,
                   std::size_t n);

}  // namespace velorin
