// Viewing model: the viewing set-up, the projection of a point of space or of
// the plane onto the surface, and the calibration after a change of the
// window size or of the ranges.
#pragma once
#include <cstddef>

#include "settings/parametres.h"
#include "view/vue.h"

namespace velorin {

double normeCarree(double a, double b, double c);
void produitVectoriel(double a1, double a2, double a3, double b1, double b2, double b3, double& c1, double& c2,
                      double& c3);
double cosinusAngle(double a, double b, double c);

// Centre of the picture plane and the two reference points (space mode only).
void prepareVue(const Parametres& p, bool modeEspace, Vue& v);

// Projects (x, y, z) onto the surface. Returns false when the point cannot be
// projected (a point at the viewer): the caller does not draw it.
bool projette(const Parametres& p, const Vue& v, bool modeEspace, double x, double y, double z, double& sx, double& sy);

// projette for n points: projete[i] is its answer for (x[i], y[i], z[i]),
// and (sx[i], sy[i]) the image when it is true; the same bits, faster.
void projettePoints(const Parametres& p, const Vue& v, bool modeEspace, const double* x, const double* y,
                    const double* z, std::size_t n, double* sx, double* sy, bool* projete);

// Depth of (x, y, z) along the line of sight (space mode), for deciding
// what hides what: larger is farther from the viewer; a point at or behind
// the viewer has a depth <= 0. Along any line of sight, depth orders points
// as the projection stacks them, and its inverse varies linearly across the
// picture over a flat face. In cavalière the depth is 1 / (K + x'), x' the
// turned x (the viewer looks along the receding axis from +x) and K a
// constant of the ranges that keeps it positive over the frame's box.
double profondeur(const Parametres& p, const Vue& v, double x, double y, double z);

// The base frame: every axis over [-10, 10].
void remetBase(Parametres& p);

// The message shown when the ranges are refused and the base comes back.
inline constexpr const char* messageBaseRetablie = "Pas pochible,je rétablis la base [-10,10 ]";

// Calibration for the surface size v.W x v.H. Returns false when the ranges
// are refused: the bounds are then reset to -10 and 10 and the caller shows
// "Pas pochible,je rétablis la base [-10,10 ]".
bool calibre(Parametres& p, Vue& v, bool modeEspace);

// The view for a surface of W x H twips in space (modeEspace) or in the
// plane: the size, the viewing set-up and the calibration. In space with
// v.cavaliere.active the calibration fits the box of the three ranges,
// turned by v.cavaliere.tour, into the picture square in cavalière. Returns false
// when the ranges were refused (the base [-10, 10] is then in force).
bool ajusteVue(Parametres& p, Vue& v, bool modeEspace, double W, double H);

}  // namespace velorin
