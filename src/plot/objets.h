// Tracers of the geometric objects (kinds 5 to 9): line D(M,u), plane
// P(M,u,v), plane ax+by+cz+e=0 (a line ax+by+c=0 in the plane), segment [MN]
// and point M. The coordinates are read from the cleaned fields formuleF1..F3
// with the number reader, so "-2P/3" or "1.5E2" are accepted as coordinates.
#pragma once
#include <array>
#include <optional>
#include <string>

#include "base/erreur.h"
#include "plot/crochets.h"
#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

using Vecteur3 = std::array<double, 3>;

// Draws the object of kind etat.trace.typeTrace (5..9) in couleurTrace.
// Fails with the French message to show to the user (malformed text, null
// or collinear vectors); succeeds when the object was drawn (or lies outside
// the frame, which is no error).
Erreur traceObjet(Etat& etat, Surface& surface, const CrochetsTrace& crochets);

// Reads "(x,y,z)" (outer brackets optional; in the plane "(x,y)" is enough and
// z is 0). Each coordinate is a number form of the number reader: "3", "-1.5",
// "2P", "-3P/4", "1/3", "1E-3", "P" (pi). Empty result: malformed text.
std::optional<Vecteur3> lisCoordonnees(const std::string& texte, bool espace);

// A linear equation in x, y, z with both sides, e.g. "2x+3y-z+1=0",
// "y=2x+1", "z=3", "-x+0.5y=2" (letters in either case, "*" optional between
// coefficient and letter, coefficients as number forms). Gives the normal
// (a, b, c) and e of a x + b y + c z + e = 0.
struct Equation {
    Vecteur3 normale{0, 0, 0};
    double constante = 0;
};
std::optional<Equation> lisEquation(const std::string& texte);

// An object's coordinates as its tracer reads them from the cleaned fields:
// the point M (M1 for a segment) in `a`; u (M2 for a segment) and v in `u`
// and `v`; the equation of kind 7 in `equation`.
struct ObjetLu {
    Vecteur3 a{0, 0, 0}, u{0, 0, 0}, v{0, 0, 0};
    Equation equation;
};
// Reads the fields of an object of kind `genre` (5..9) in the mode; the
// French message of the first field that cannot be read ("Point incorrect :
// (1,2 ; écrivez ..."), or nothing. Null or collinear vectors are read: the
// tracer refuses them when it draws.
Erreur lisObjet(int genre, bool espace, const std::array<std::string, 3>& champs, ObjetLu& objet);

}  // namespace velorin
