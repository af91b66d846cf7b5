// A numbered file name, as the exports that write one file per picture take
// it: "images/tour_%03d.png" names images/tour_001.png, images/tour_002.png...
// The number goes where "%d" (no padding) or "%0Nd" (N digits at least,
// zeros in front, N from 1 to 9) stands, once, in the file's own name; "%%"
// writes a percent sign. A folder part may not hold a number: every file of
// the series goes to the same folder.
#pragma once
#include <string>

#include "base/erreur.h"

namespace velorin {

struct MotifNumerote {
    std::string avant, apres;  // the name around the number, "%%" already made "%"
    int chiffres = 0;          // at least this many digits, zeros in front
};

// True when `texte` holds a '%', so is meant as a numbered name.
bool estMotifNumerote(const std::string& texte);

// Reads `texte` into `motif`; a French message naming it when it holds no
// number, more than one, or a '%' that is none of the forms above.
Erreur lisMotifNumerote(const std::string& texte, MotifNumerote& motif);

// The name of file `numero` of the series.
std::string nomNumerote(const MotifNumerote& motif, int numero);

}  // namespace velorin
