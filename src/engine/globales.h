// The formula engine's globals: the three formulas of the current function,
// the point the last evaluation left, and the kind of the current function.
#pragma once
#include <memory>
#include <string>

#include "engine/compilation.h"

namespace velorin {

struct GlobalesMoteur {
    std::string formuleF1, formuleF2, formuleF3;
    double pointX = 0, pointY = 0, pointZ = 0;
    int genreCourbe = 0;
    // Set when an evaluation met unbalanced brackets: the message to show
    // ("Formule incorrecte" or "Formule incorrecte,désolé"); empty otherwise.
    std::string erreurFormule;
    // Compiled forms of the formulas evaluated so far (read once, not at
    // every point).
    CacheFormules formules;
    // F1, F2, F3 of the family being traced, compiled together for the
    // evaluation of whole runs of points (pointsFamille).
    std::shared_ptr<const FormulesCompilees> familleCompilee;
};

}  // namespace velorin
