// Viewing values derived from the parameters by the viewing set-up and the
// calibration, read by every projection.
#pragma once

namespace velorin {

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
};

}  // namespace velorin
