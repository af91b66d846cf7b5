// The point step shared by every tracer: visibility, pen lifts, joining,
// tangent, radius and projection marks, and the per-point pause.
#pragma once
#include "plot/crochets.h"
#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

// Colour of the projections onto xOy, whatever the colour scheme says.
inline constexpr Couleur couleurProjectionXOy = 0xFF0000;
// Radius of the circle around the foot of a projection, in surface units.
inline constexpr double rayonPiedProjection = 20;

// Draws the point (etat.trace.ecranX, ecranY) in `couleur`. marque is 1 on
// every tenth point of a curve: the tangent (from the stored ends, whatever
// they are), radius and projection marks are drawn only then. In continuous mode the point is joined to the previous
// visible one unless the pen is up or the jump is too long; a point outside
// the drawing area (or not finite) is not drawn and lifts the pen.
void tracePoint(Etat& etat, Surface& surface, int marque, Couleur couleur, const CrochetsTrace& crochets);

// Whether the surface point (sx, sy) lies in the drawing area, where the
// point step draws (a point that is not finite does not).
bool dansAireDessin(const Vue& vue, double sx, double sy);

// False when the jump from (x1, y1) to (x2, y2) is longer than half the
// drawing width or height: a discontinuity, not joined.
bool sautAdmissible(const Vue& vue, double x1, double y1, double x2, double y2);

// Whether a computed point of a parametric or family tracer is drawn at all.
// Plane mode: its surface position (sx, sy) lies in the drawing area. Space
// mode: each coordinate lies within its axis's range (a reversed z range,
// zmin > zmax, is taken from its smaller to its larger end). A coordinate
// that is not finite is refused.
bool pointAdmis(const Etat& etat, double sx, double sy, double x, double y, double z);

// Dotted line from (sx, sy) to the image of the foot (X, Y, Z), then a solid
// circle around the foot, in `couleur`. Nothing when the foot cannot be
// projected.
void traceProjection(Etat& etat, Surface& surface, double sx, double sy, double X, double Y, double Z, Couleur couleur);

}  // namespace velorin
