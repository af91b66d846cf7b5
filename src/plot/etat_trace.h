// State of the point step shared by all tracers.
#pragma once
#include "view/surface.h"

namespace velorin {

struct EtatTrace {
    double ecranX = 0, ecranY = 0;  // surface coordinates of the point being drawn
    double precX = 0, precY = 0;    // last point drawn in continuous mode
    Point3 espace{};                // the point of space shown at (ecranX, ecranY)
    Point3 precEspace{};            // the point of space shown at (precX, precY)
    int pointVisible = 0;           // 1 when the point lies in the drawing area
    int nbVisiblesSuite = 0;        // consecutive visible points; 0: pen up
    double tangenteX1 = 0, tangenteY1 = 0, tangenteX2 = 0, tangenteY2 = 0;
    double demiTangente = 0;  // half length of the tangent, in range units
    double pasX = 0;          // x step of the plane curve tracer
    int typeTrace = 0;        // tracer selector (kind of the entry)
};

}  // namespace velorin
