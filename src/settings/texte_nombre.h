// Decimal text of numbers, independent of the locale: the plain decimal
// text of the parameter memory file and the decimal digits that the number
// formats are built from.
#pragma once
#include <string>

namespace velorin {

// A finite value rounded to a number of significant digits:
// value = (negatif ? -1 : 1) x 0.d1d2...dn x 10^(exposant + 1), that is
// d1.d2...dn x 10^exposant. `chiffres` has no trailing zero and is empty for
// zero.
struct Decimal {
    bool negatif = false;
    std::string chiffres;
    int exposant = 0;
};

// The value rounded (to nearest, on its exact binary value) to
// `significatifs` significant digits (1 to 17).
Decimal decimal(double valeur, int significatifs);

// Rounds half away from zero so that the last digit kept has the place
// value 10^rang (rang = -2 keeps hundredths). May carry into a new digit.
void arrondis(Decimal& d, int rang);

// The text a number is written with in the parameter memory file: the
// shortest text of the value rounded to `significatifs` digits (15 for a
// double, 7 for a single), "." as decimal separator, no leading blank, no
// exponent for ordinary magnitudes ("6.28", "0.05", "-10", "0.0001",
// "123456789012345"), and a scientific form the reader takes back for very
// small or very large values: below 1E-04 in magnitude ("1E-05",
// "1.5E-07") and from 10^significatifs up ("1E+15", "1.234568E+07" for a
// single). Zero is "0" (also negative zero). A value that is not finite
// gives "nan", "inf" or "-inf", which no reader here accepts.
std::string texteNombre(double valeur, int significatifs);

// An integer in decimal text, never grouped by a locale.
std::string texteEntier(long long valeur);

// The shortest text that reads back as the same double, "." always (the
// plain or exponent form, whichever is shorter: "6.28", "1e+07").
std::string texteCourt(double valeur);
// The same for a single: the shortest text that reads back as the same
// single ("6.28" for 6.28f, not the 6.28000020980835 of its double).
std::string texteCourt(float valeur);

}  // namespace velorin
