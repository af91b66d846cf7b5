// The view and the frame for the whole state of a session: the picture's
// set-up before a drawing, in the mode, parameters and colours in force.
#pragma once
#include "plot/etat.h"
#include "view/projection.h"
#include "view/repere.h"
#include "view/surface.h"

namespace velorin {

// The view for a surface of W x H twips in the mode in force (see the
// view's ajusteVue), in the projection the rendering settings choose
// (cavalière with its angle, coefficient and turn, or the perspective).
// Returns false when the ranges were refused.
bool ajusteVue(Etat& etat, double W, double H);

// Background and frame colours for the parameters, scheme and video
// inversion in force.
CouleursRepere couleursRepere(const Etat& etat);

// Clears the surface to the background in force and records that colour in
// etat.couleurs.couleurFond.
void effaceEcran(Etat& etat, Surface& surface);

// The frame for the viewing values in force, in the frame colour in force,
// with the grid or the graduations the rendering settings ask for.
void traceRepere(const Etat& etat, Surface& surface);

}  // namespace velorin
