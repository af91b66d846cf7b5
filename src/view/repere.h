// The frame of reference: clearing the surface and drawing the axes with
// their marks, letters and numbers, in space and in the plane.
#pragma once
#include <string>

#include "settings/couleurs.h"
#include "settings/parametres.h"
#include "view/surface.h"
#include "view/vue.h"

namespace velorin {

// Background and frame colours in force.
struct CouleursRepere {
    Couleur fond = 0;
    Couleur axes = 0xFFFFFF;
};

// The video inversion of a colour (each of red, green and blue reversed).
Couleur inverseVideo(Couleur c);

// The colours in force. The scheme's `couleurFondSombre` (black unless the
// colour dialog changed it) as background with the frame in the scheme's
// `couleurAxes`; with "Fond blanc,axes noirs" (fondBlanc = 1) a white
// background with a black frame; the video inversion (inversionVideo)
// then reverses both. This is also the erasing reference colour: clearing
// uses `fond`. A frame colour equal to the background would hide the frame:
// it is then replaced by the inverse of the background.
CouleursRepere couleursRepere(const Parametres& p, const SchemaCouleurs& schema, bool inversionVideo);

// Clears the surface to the background in force and records that colour in
// schema.couleurFond.
void effaceEcran(const Parametres& p, SchemaCouleurs& schema, bool inversionVideo, Surface& surface);

// Draws the frame in `couleurAxes` for the viewing values `v` in space
// (modeEspace) or in the plane (prepareVue and calibre must have run);
// nothing when axesVisibles is 0. The pen and font state of
// the surface are put back as they were.
// Space: the six half-axes from the origin to the ends of the ranges, seen
// through the projection (the parts behind the viewer left out), each end
// with a mark (an arrow head at the positive ends, a cross tick at the
// negative ones), a tick at the unit points, the letters "O", "I", "J", "K"
// beside the images of the origin and of the unit points, and the value of
// each end beside it (format by magnitude, motifGraduation).
// Plane: the x and y axes across the frame (on the border of the frame when
// 0 lies outside a range), arrow heads and names "x", "y" at the positive
// ends, ticks at regular steps 1, 2 or 5 x 10^k wide enough for their
// numbers, "O" at the origin.
// No text overlaps another: a number that finds no free place near its
// point is left out.
//
// The options of the rendering, off by default: in the plane the grid
// ("Quadrillage", see traceQuadrillage) under the frame in its own colour;
// in space the graduations ("Repère gradué"): on each axis a tick and its
// number at every multiple of the axis's nice step (pasEspace) between the
// ends, the ends and 0 excepted. A tick is a short segment of space across
// its axis, drawn as such (LineEspace) so that a surface resolving hidden
// parts hides it as it hides the solid; its number keeps clear of the other
// texts or is left out.
struct OptionsRepere {
    bool quadrillage = false, repereGradue = false;
    Couleur couleurQuadrillage = 0x404040;
};
void traceRepere(const Parametres& p, const Vue& v, bool modeEspace, Couleur couleurAxes, Surface& surface,
                 const OptionsRepere& options = {});

// A discreet grid colour on the background in force: a quarter of the way
// from the background to the frame's colour.
Couleur couleurQuadrillage(const CouleursRepere& c);

// The format of a number at the end of an axis, by magnitude: "0.000" for 0
// and for 0.01 <= |v| < 10, "00.00" for 10 <= |v| < 100, "0.00E-00" below
// 0.01 and "0.00E+00" from 100 up.
const char* motifGraduation(double v);

// The font size (points) of the frame's texts for a surface of W x H twips:
// 8 on small windows up to 11 on large screens.
double tailleTexteRepere(double W, double H);

}  // namespace velorin
