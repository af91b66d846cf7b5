// Enlarging or reducing the drawing: the four factors of the "ZOOM" menu and
// the magnifier rectangle drawn with the mouse in the plane.
//
// These functions only change the frame ranges (and, in space, Zviseur). The
// window then sets up the view again (`ajusteVue`: viewing set-up and
// calibration, which refuses an empty range and restores the base frame with
// its message), draws the frame, redraws every curve and shows the viewing
// values.
#pragma once
#include "settings/parametres.h"
#include "view/vue.h"

namespace velorin {

// The "ZOOM" menu entries, numbered as `grossir` takes them (menu index + 1).
enum ModeZoom { zoomPlus20 = 1, zoomMoins20 = 2, zoomFois2 = 3, zoomDivise2 = 4 };

inline constexpr double zoomFacteur20 = 1.2;      // "+ 20%" and "-  20%"
inline constexpr double zoomFacteur2 = 2.0;       // "x 2" and "/ 2"
inline constexpr double zoomFacteurViseur = 1.1;  // Zviseur in space, for all four entries

// Scales the ranges about the frame's centre. "+ 20%" divides each range
// (x, y and z) by 1.2 and "x 2" by 2: the drawing grows. "-  20%" multiplies
// by 1.2 and "/ 2" by 2: it shrinks. In space (`modeEspace`) the viewer's
// Zviseur is also divided by 1.1 for the two entries that enlarge and
// multiplied by 1.1 for the two that reduce; the direction is left as it is.
// Returns false, changing nothing, for a mode other than 1 to 4.
bool grossir(Parametres& p, int mode, bool modeEspace);

// The magnifier: the rectangle with corners (sx1, sy1) and (sx2, sy2) in
// surface units, converted to frame units through the inverse of the plane
// map calibrated in `v`, becomes the new xmin, xmax, ymin, ymax (corners in
// any order). A rectangle of zero width or height, or a view that is not
// calibrated, is never applied: returns false and changes nothing.
bool grossirLoupe(Parametres& p, const Vue& v, double sx1, double sy1, double sx2, double sy2);

}  // namespace velorin
