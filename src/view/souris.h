// The arithmetic of the mouse on the drawing: moving the plane frame by a
// drag, turning the point of view by a drag in space, the wheel's zoom, and
// the inverse of the projection that the pointer read-out uses.
//
// Positions and drags are in surface units (twips) unless a name says
// pixels. Like the rotations and the zoom, these functions only change the
// parameters; the window then sets up the view again, redraws and shows the
// values.
#pragma once
#include "settings/parametres.h"
#include "view/vue.h"

namespace velorin {

// Moving the plane frame: the picture follows a drag of (dx, dy) surface
// units (dy grows downwards). xmin moves by -dx and ymin by +dy, each
// divided by its scale (surface units per frame unit) as the calibration
// places xmin and ymax with it, before an orthonormal frame equalises the
// scales; xmax and ymax follow so that the ranges keep their width.
// Returns false, changing nothing, when the view is not calibrated in the
// plane or the drag is nil.
bool redes(Parametres& p, const Vue& v, double dx, double dy);

// Turning by a drag in space: how far a pixel of drag turns the view.
inline constexpr double radiansParPixel = 3.141592 / 360;  // half a degree
// The viewer's elevation above the xy plane stays within this (88 degrees),
// so that the picture's "up" never lines up with the line of sight.
inline constexpr double elevationMax = 88 * 3.141592 / 180;

// Turns the viewer on its sphere about the origin: its azimuth about Oz by
// -dxPixels and its elevation by +dyPixels, each times radiansParPixel (the
// drawing follows the pointer: dragged right it turns right, dragged down
// its top comes forward). The distance to the origin is kept and the
// direction points back at the origin, as after a rotation. An elevation
// beyond elevationMax is not reached by the drag (a viewer already beyond it
// may only come back). Returns false, changing nothing, for a viewer at the
// origin or a nil drag.
bool tourneVue(Parametres& p, double dxPixels, double dyPixels);

// Cavalière: a drag turns the solid about Oz by dxPixels x 0.5 degree
// (dragged right it turns as the perspective's picture does); the vertical
// part of a drag has nothing to turn there. Returns false, changing
// nothing, for a nil horizontal drag.
bool glisseCavaliere(double& tour, double dxPixels);

// The wheel's factor per notch: that of "+ 20%".
inline constexpr double moletteFacteur = 1.2;

// Zoom by `crans` notches of the wheel (positive: towards the drawing, which
// grows; fractions come from fine-grained wheels). In the plane every range
// is divided by 1.2 per notch about the frame point under the pointer
// (sx, sy), which stays under the pointer. In space the viewer comes closer
// to the origin (its position divided by 1.2 per notch); the direction is
// kept. Returns false, changing nothing, when the result would not be
// usable (an empty or infinite range, a viewer at the origin, a view not
// calibrated in the plane).
bool grossirMolette(Parametres& p, const Vue& v, bool modeEspace, double crans, double sx, double sy);

// The frame point (x, y) that the plane map calibrated in `v` puts at the
// surface point (sx, sy). False when the view is not calibrated in the
// plane.
bool pointDuPlan(const Vue& v, double sx, double sy, double& x, double& y);

// Position on the projection plane of a surface point in space mode: the
// coordinates (Px along the picture's horizontal axis, Py along its
// vertical axis, upwards) that `projette` maps to (sx, sy).
void pointPlanProjection(const Vue& v, double sx, double sy, double& Px, double& Py);

// The point of space seen at (Px, Py) on the projection plane whose
// coordinate `fixe` (0 x, 1 y, 2 z) equals `valeur`: the line from the
// viewer through that point of the plane (with the basis set up by
// `prepareVue`) meets the plane `fixe` = `valeur` there. In cavalière the
// line of sight is the parallel to the receding axis through the surface
// point that (Px, Py) names. Returns false when the line of sight is
// parallel to that plane (no such point).
bool solvons(const Parametres& p, const Vue& v, double Px, double Py, int fixe, double valeur, double& x, double& y,
             double& z);

}  // namespace velorin
