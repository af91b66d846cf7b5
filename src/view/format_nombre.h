// Numbers formatted by a picture pattern of digits, as the number labels of
// the frame, the list of coordinate values and the curve numbers show them.
#pragma once
#include <string>

namespace velorin {

// Formats `valeur` by `motif`:
// - "0" is a digit always shown, "#" a digit shown only when significant;
//   "." the decimal point (always "." whatever the locale);
// - integer part: at least as many digits as the "0"s before the point, more
//   when the value needs them ("0.000" of 1234.5 gives "1234.500", "00.00"
//   of 3.14159 gives "03.14");
// - decimals: exactly the "0"s after the point, then up to as many more as
//   there are "#"s, trailing zeros dropped;
// - "E+00" / "E-00" after the digits: scientific form, the mantissa having
//   as many integer digits as the pattern ("0.00E+00" of 123 gives
//   "1.23E+02"); with "E+" the exponent's sign is always written, with "E-"
//   only when negative ("0.00E-00" gives "1.23E02" and "1.23E-02"); the
//   exponent has at least as many digits as its "0"s; "e" writes "e";
// - other characters before or after the digits are copied as they are;
// - a negative value gets "-" in front, unless it rounds to zero.
// Rounding is half away from zero on the value's decimal text (its 15
// significant digits): 1.005 with "0.00" gives "1.01", -2.5 with "0" "-3".
// An empty pattern gives the plain number text; a value that is not finite
// gives "non défini", "infini" or "-infini".
std::string formatNombre(double valeur, const std::string& motif);

}  // namespace velorin
