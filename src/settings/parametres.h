// The drawing parameters: one flat block read by the tracers, the frame, the
// projection and the rotation. Member names and storage types are those of
// the parameter memory file ("mem.log"): zmin, Zviseur and pasRota are single
// precision and pauseMs a 16-bit integer on purpose, because the file reader
// fills them with a type conversion and drawings depend on that.
#pragma once
#include <cstdint>

namespace velorin {

struct Parametres {
    double xmin = -10, xmax = 10;
    double ymin = -10, ymax = 10;
    float zmin = -10;
    double zmax = 10;
    double tmin = 0, tmax = 6.28;
    double amin = 0, amax = 6.28;
    double pasT = 0.05, pasA = 0.1;
    double nbrCalX = 200, nbrCalY = 40, nbrCalZ = 20;
    double Xviseur = 30, Yviseur = 20;
    float Zviseur = 15;
    float pasRota = 5;
    double Xdirection = -30, Ydirection = -20, Zdirection = -15;
    double Rotadir = 0;
    std::int16_t pauseMs = 0;
    // Check-box values: 0 cleared, 1 checked.
    int repereOrthonorme = 0;
    int traceContinu = 1;
    int projXOy = 0, projXOz = 0, projYOz = 0;
    int projOx = 0, projOy = 0, projOz = 0;
    int axesVisibles = 1;
    int avecRayon = 0;
    int fondBlanc = 0;
    int avecSegmentTangent = 0;
    std::uint8_t ordreBoucles = 0;  // 0..3, written to the file, never read back
    bool avecMoirure = false;       // written to the file, never read back

    bool operator==(const Parametres&) const = default;
};

}  // namespace velorin
