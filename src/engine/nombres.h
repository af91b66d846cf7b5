// Plain number texts, with "." as the decimal separator whatever the
// locale: the leading number of a text, the test "this text is a number",
// and the shortest text of a double.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace velorin {

// A decimal digit.
inline bool estChiffre(char c)
{
    return c >= '0' && c <= '9';
}
// One of the six operators of formulas: "*", "+", "-", "/", "\", "^".
inline bool estOperateur(char c)
{
    return c == '*' || c == '+' || c == '-' || c == '/' || c == '\\' || c == '^';
}

// Length of the number at the start of `texte` (after leading blanks):
// an optional sign, digits, an optional "." and digits, an optional
// exponent "E" with an optional sign and digits. 0 when there is no digit.
std::size_t longueurNombre(std::string_view texte);

// Value of the number at the start of `texte` (0 when there is none; what
// follows it is ignored). `echec` is set when the number is too large for
// a double.
double nombreEnTete(std::string_view texte, bool& echec);

// True when the whole text is one number in the form above.
bool estNombre(std::string_view texte);

// The whole text as a finite number, or false.
bool lisValeurExacte(std::string_view texte, double& valeur);

// Shortest decimal text that reads back to the same double: "0.1", "-2",
// "1000000000", "1e+20", "1.5e-07" (exponent form below 1e-4 and from 1e16
// in magnitude).
std::string texteValeur(double valeur);

// The text without blanks (the characters of `blancs`) at both ends, and in
// upper case (ASCII letters).
std::string_view sansBlancsAuxBouts(std::string_view texte, std::string_view blancs = " ");
std::string majuscules(std::string_view texte);

}  // namespace velorin
