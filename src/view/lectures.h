// The texts of the read-outs beside the drawing: the viewing values, the
// ranges and steps in force, the drawing's size and the point under the
// mouse. Numbers are written with "." whatever the locale.
#pragma once
#include <string>

#include "settings/parametres.h"

namespace velorin {

// The viewing values: "Xv=", "Yv=", "Zv=", "Xd=", "Yd=", "Zd=", "Rot=",
// each followed by its value formatted "0.00" (a value too long for the side
// column "0.00E+00"), two by two on a line.
std::string texteViseur(const Parametres& p);

// The ranges and steps in force: "x:[xmin;xmax]", "y:[...]", "z:[...]" (in
// the plane too), then "t:[t1;t2] pat=" the step of t, "a:[a1;a2] paa=" the
// step of a, and "pause=" the pause between points, one piece a line.
// Bounds and steps are written short (7 significant digits at most).
std::string texteBornes(const Parametres& p);

// The drawing's size in surface units: "LF:" and "HF:", each "00000".
std::string texteTaille(double largeur, double hauteur);

// The point under the mouse in the plane: "X=" x "  Y=" y.
std::string texteLecturePlan(double x, double y);

// The point of space under the mouse on the plane of the fixed coordinate,
// its distance R to the origin, and the position (Px, Py) on the
// projection plane:
//   "X=" x " Y=" y " Z=" z / "R=" r / "Px:" px " Py:" py.
std::string texteLectureEspace(double x, double y, double z, double Px, double Py);

// The read-out when the line of sight never meets the plane of the fixed
// coordinate: only the position on the projection plane.
std::string texteLectureSansPoint(double Px, double Py);

}  // namespace velorin
