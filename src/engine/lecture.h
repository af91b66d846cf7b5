// The formula evaluator: reads a cleaned formula text again at every call
// and gives its value for the values of its variables. Nothing is kept
// between calls.
//
// Three families share the same reading and differ in their variables:
//   plane  (evalplan):   "X" and "A" are the first value, "T" and "Y" the second;
//   space  (evalespace): "X", "T" and "A" are one variable;
//   cloud  (evalnuage):  "X", "Y", "Z" each have their own value.
//
// Failures never leave the evaluator as errors: an arithmetic failure
// (overflow, division by zero, logarithm or square root out of domain, a
// negative number to a non-integer power, 0 to a negative power, an integer
// too large for the integer quotient) becomes a value chosen by the
// operation that catches it: 0 in operons/combine3/combine4, horsCalcul in
// the term evaluators and appliquefonction. The number reader and the
// bracket evaluator catch nothing: their failure goes to their caller. A
// failure that no operation of the formula catches (a sum of terms that
// overflows) gives horsCalcul to the caller of evalplan/evalespace/evalnuage.
// No NaN or infinity is ever returned.
#pragma once
#include <cstddef>
#include <string_view>
#include <vector>

namespace velorin {

// What the engine returns for a failed computation: 10 raised to 9.
inline constexpr double horsCalcul = 1e9;
// The value of "P" in formulas (this short decimal, not full pi).
inline constexpr double valeurP = 3.141592;

enum class Famille : unsigned char { Plan, Espace, Nuage };

// How one reading ended.
enum class Issue : unsigned char {
    Valeur,      // an ordinary value, in `valeur`
    SansValeur,  // the operation gave no value (a caller reads it as 0)
    Echec,       // an arithmetic failure not caught yet (never returned
                 // by evalplan, evalespace, evalnuage)
    Incorrecte,  // brackets that do not pair up: the formula is unreadable
};

struct Resultat {
    Issue issue = Issue::SansValeur;
    double valeur = 0;
    // The value an enclosing operation uses: no value reads as 0.
    double lue() const { return issue == Issue::Valeur ? valeur : 0.0; }
    // Failures that stop the reading of the enclosing formula at once.
    bool interrompt() const { return issue == Issue::Echec || issue == Issue::Incorrecte; }
};

// The message of an unreadable formula: "Formule incorrecte" (plane,
// cloud) or "Formule incorrecte,désolé" (space).
const char* messageIncorrecte(Famille f);

// ---- Numeric building blocks ---------------------------------------------

// Number reader: "2", "1.5", "-3P/4", "P/2", "1/4", "2E3"... A lone
// character that is not a digit reads as `defaut`. `echec` is set (and the
// value is meaningless) when the reading is an arithmetic failure, e.g.
// "1/0" or "1E999".
double lisnombre(std::string_view texte, double defaut, bool& echec);
// The same for callers outside formulas: a failed reading gives horsCalcul.
double lisnombre(std::string_view texte, double defaut);

// One binary operation "*", "+", "-", "/", "\" (integer quotient), "^".
// "/" by exactly 0 gives horsCalcul; any other failure gives 0; another
// operator character gives no value.
Resultat operons(char op, double a, double b);
// a op1 b op2 c: right grouping when op1 is additive, else left.
Resultat combine3(char op1, char op2, double a, double b, double c);
// a op1 b op2 c op3 d with the same two-level grouping.
Resultat combine4(char op1, char op2, char op3, double a, double b, double c, double d);
// Integer quotient of the "\" operator: both operands rounded to the
// nearest integer (halves to even), quotient truncated toward zero, on
// 32-bit integers. False on failure (divisor rounding to 0, operand or
// quotient outside the 32-bit range).
bool quotientEntier(double a, double b, double& quotient);

// The rows of the function table (one per computation, synonyms share it).
enum class Fonction : unsigned char {
    Aucune,  // a name in no row
    Abs,
    Sin,
    Cos,
    Tan,
    Cotan,
    Ln,
    Log,
    Exp,
    Rac,
    Rac3,
    Atn,
    Arcsin,
    Arccos,
    Arccotan,
    Sinh,
    Cosh,
    Tanh,
    Coth,
    Arcsinh,
    Arccosh,
    Arctanh,
    Arccotanh,
    Ent,
};
// The row of a function name, first match in table order ("SINUS" -> Sin,
// "EXPONENTIELLE" -> Exp, "CUBR" -> Aucune).
Fonction fonctionNommee(std::string_view nom);
// The function of a row applied to x; `echec` is set on an arithmetic
// failure. Aucune gives 0.
double calculeFonction(Fonction f, double x, bool& echec);
// The function named `nom` applied to x ("SIN", "LN", "RAC", "E"...).
// `aValeur` is false for a name in no row of the function table.
double appliqueNom(std::string_view nom, double x, bool& aValeur, bool& echec);
// Value of `prefixe(w)`: empty prefix, a digit, a number and an operator
// ("3*"), or a head and a function name ("-SIN", "2*COS"). Never Echec.
Resultat appliquefonction(std::string_view prefixe, double w);

// ---- Rules of the reading that depend on the text only --------------------
// Which variable a letter stands for in a family (0, 1, 2), or -1.
int rangVariable(Famille f, char c);
// Most bracket pairs a formula of the family may hold, nested ones
// included (cloud 2, plane 3, space 4); more gives no value.
std::size_t pairesMax(Famille f);
// A top-level bracket group: 0-based positions of its "(" and of the ")"
// that closes it.
struct Groupe {
    std::size_t ouvre, ferme;
};
// The top-level groups of a text; `ordreCorrect` is false (and the list
// empty) when a ")" closes nothing, as in ")X(".
std::vector<Groupe> groupes(std::string_view texte, bool& ordreCorrect);

// What a term's text decides: last "^" and last variable letter (1-based,
// 0 when absent), the character in front of that letter ("*" when it is
// first), the variable it stands for and how many kinds of variables the
// term holds (a term with other than one kind is a constant).
struct FormeTerme {
    std::size_t posPuissance = 0, posVariable = 0;
    char op = '*';
    int rang = -1, genres = 0;
};
FormeTerme formeTerme(Famille f, std::string_view terme);
// A term's value once its numbers are read: w = base^exposant, then
// coefficient op w for op "*", "/" or "" (the space family divides by
// diviseurEntier^exposant in "", the others pass base). Failures give
// horsCalcul; another operator gives no value.
Resultat calculeTerme(char op, double base, double coefficient, double exposant, double diviseurEntier);

// The values of the variables of one reading. `xPrecedent` (space family
// only) is the x of the previous point.
struct Variables {
    double valeurs[3] = {0, 0, 0};
    double xPrecedent = 0;
};
// The variables of a family from the three values of evalue: plane (u, v),
// space (t, then xPrecedent), cloud (x, y, z).
Variables variables(double a, double b, double c, Famille f);

// ---- Whole formulas -------------------------------------------------------
// The full result of a formula of a family (Valeur, SansValeur or
// Incorrecte; an uncaught failure already turned into horsCalcul).
// Variables: plane (u, v), space (t, then xPrecedent), cloud (x, y, z).
Resultat evalue(Famille f, std::string_view texte, double a, double b, double c);

// Value of a formula as the callers store it: no value and an unreadable
// formula give 0; `issue`, when given, tells which case it was.
double evalplan(std::string_view texte, double u, double v, Issue* issue = nullptr);
double evalespace(std::string_view texte, double t, double xPrecedent, Issue* issue = nullptr);
double evalnuage(std::string_view texte, double x, double y, double z, Issue* issue = nullptr);

}  // namespace velorin
