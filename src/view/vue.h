// Viewing values derived from the parameters by the viewing set-up and the
// calibration, read by every projection.
#pragma once

namespace velorin {

// The margins of the picture on the surface, in surface units (twips). They
// are the viewing model's own and every drawing depends on them: the
// picture and the drawing area are placed with these values only.
//
// Space: the picture square spans 0 to W - margeEspaceX across and 0 to
// H - margeHauteur down.
inline constexpr double margeEspaceX = 1400;
// Plane: the map uses a width of W - margePlanX (largeurUtile)...
inline constexpr double margePlanX = 1600;
// ...and, in both modes, a height of H - margeHauteur (hauteurUtile).
inline constexpr double margeHauteur = 800;
// Plane: xmin lands this far from the left edge, ymax this far from the top.
inline constexpr double decalPlanGauche = 100;
inline constexpr double decalPlanHaut = 50;
// The drawing area of the marks and loose points: from x = 1 and
// y = aireHaut down to largeurUtile across and hauteurUtile + aireBas down.
inline constexpr double aireGauche = 1;
inline constexpr double aireHaut = 16;
inline constexpr double aireBas = 15;

// The cavalière projection (space only): y to the right and z up in true
// size, x receding down-left at `angle` degrees shortened by `coef`, the
// solid first turned by `tour` degrees about Oz. Copied from the rendering
// settings before the view is set up; inactive, the program's perspective.
struct VueCavaliere {
    bool active = false;
    double angle = 45, coef = 0.5, tour = 0;
    // Derived by the calibration from the values above and the ranges: the
    // turn's cosine and sine, the screen offset of one unit along the
    // receding axis (recul), the scale (twips per unit) and the image of the
    // origin, and the depth constant (see `profondeur`).
    double cosTour = 1, sinTour = 0, reculX = 0, reculY = 0;
    double echelle = 0, origineX = 0, origineY = 0, constanteProfondeur = 1;
};

struct Vue {
    double W = 15360, H = 11520;  // surface size in twips (1024x768 px)
    double centreVueX = 0, centreVueY = 0, centreVueZ = 0;
    double repereHX = 0, repereHY = 0, repereHZ = 0;
    double repereVX = 0, repereVY = 0;
    float repereVZ = 0;
    double largeurUtile = 0, hauteurUtile = 0;
    double etendueX = 0, etendueY = 0, etendueZ = 0;
    double echelleX = 0, echelleY = 0;
    double decalX = 0, decalY = 0;
    double origineEcranX = 0, origineEcranY = 0;
    double imageUxX = 0, imageUxY = 0, imageUyX = 0, imageUyY = 0, imageUzX = 0, imageUzY = 0;
    VueCavaliere cavaliere{};
};

}  // namespace velorin
