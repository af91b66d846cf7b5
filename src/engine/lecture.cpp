// Numeric building blocks of the evaluator: the number reader, the binary
// operations and their grouping, the function table and the prefix in
// front of a bracket.
//
// The reading follows the rules of a runtime on which every double
// operation whose result is infinite raised an overflow and every operation
// that produces NaN (square root or logarithm out of domain, a negative
// number to a non-integer power, 0/0) raised an "invalid call"; x/0 raised
// a division by zero. Here each such operation is checked where it happens
// (a result that is not finite) and the failure is handed to the operation
// that catches it. Underflow to 0 is no failure.
#include "engine/lecture.h"

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include "engine/nombres.h"

namespace velorin {

namespace {

Resultat valeur(double v)
{
    return {Issue::Valeur, v};
}

// Records whether one of the checked double operations failed.
struct Garde {
    bool echec = false;
    double operator()(double v)
    {
        if (!std::isfinite(v))
            echec = true;
        return v;
    }
};

// Mid(texte, debut, longueur) with a 1-based start; a start beyond the end
// gives an empty text and a length beyond the end is cut.
std::string_view milieu(std::string_view texte, std::size_t debut, std::size_t longueur)
{
    if (debut > texte.size())
        return {};
    return texte.substr(debut - 1, longueur);
}

// A text of at least two characters and without "E" (trimmed, upper case):
// sign, coefficient of "P" or numerator, denominator after "/".
double lisSansExposant(std::string_view texte, bool& echec)
{
    const std::size_t L = texte.size();
    std::size_t posMoins = 0, posP = 0, posBarre = 0;  // 1-based, 0 = absent
    for (std::size_t i = 1; i <= L; ++i) {
        const char c = texte[i - 1];
        if (c == '-')
            posMoins = i;
        else if (c == 'P')
            posP = i;
        else if (c == '/')
            posBarre = i;
    }
    if (posBarre == 0)
        posBarre = L + 1;
    const double signe = posMoins == 1 ? -1.0 : 1.0;
    const std::size_t debut = posMoins + 1;
    Garde g;
    double numerateur;
    if (posP != 0) {
        double coefficient = 1;
        // A "P" standing before the last "-" leaves no text to cut the
        // coefficient from (a negative length): the reading fails.
        if (posP < debut)
            echec = true;
        else if (posP > debut)
            coefficient = nombreEnTete(milieu(texte, debut, posP - debut), echec);
        numerateur = g(coefficient * valeurP);
    } else {
        // The numerator text is (position of "/" - 1) long from its start,
        // whatever the start; the number reading stops at the "/" anyway.
        numerateur = nombreEnTete(milieu(texte, debut, posBarre - 1), echec);
    }
    double denominateur = 1;
    if (posBarre < L)
        denominateur = nombreEnTete(texte.substr(posBarre), echec);
    if (echec)
        return 0;
    if (denominateur == 0) {
        echec = true;  // division by zero
        return 0;
    }
    const double v = g(signe * numerateur / denominateur);
    if (g.echec)
        echec = true;
    return v;
}

// The reader for a text that the last "E" has not split further: empty,
// one character, or the rule without exponent.
double lisPartie(std::string_view texte, double defaut, bool& echec)
{
    texte = sansBlancsAuxBouts(texte);
    if (texte.empty())
        return 0;
    if (texte.size() == 1)
        return estChiffre(texte[0]) ? texte[0] - '0' : defaut;
    return lisSansExposant(texte, echec);
}

}  // namespace

const char* messageIncorrecte(Famille f)
{
    return f == Famille::Espace ? "Formule incorrecte,désolé" : "Formule incorrecte";
}

// ---- Number reader ---------------------------------------------------------

double lisnombre(std::string_view brut, double defaut, bool& echec)
{
    const std::string texte = majuscules(sansBlancsAuxBouts(brut));
    // "mantisse E exposant" reads as mantisse x 10^exposant, the mantissa
    // being read by this same reader (it may hold more "E"). Instead of
    // recursing once per "E", the exponents are read from the right end
    // and applied afterwards, innermost first: the same value, with no
    // depth limit on texts full of "E".
    std::vector<double> exposants;
    std::string_view reste = texte;
    double v = 0;
    for (;;) {
        reste = sansBlancsAuxBouts(reste);
        const std::size_t e = reste.size() >= 2 ? reste.rfind('E') : std::string_view::npos;
        if (e == std::string_view::npos) {
            v = lisPartie(reste, defaut, echec);
            break;
        }
        exposants.push_back(lisPartie(reste.substr(e + 1), defaut, echec));
        reste = reste.substr(0, e);
    }
    if (echec)
        return 0;
    Garde g;
    for (auto it = exposants.rbegin(); it != exposants.rend() && !g.echec; ++it)
        v = g(v * g(std::pow(10.0, *it)));
    if (g.echec)
        echec = true;
    return echec ? 0 : v;
}

double lisnombre(std::string_view texte, double defaut)
{
    bool echec = false;
    const double v = lisnombre(texte, defaut, echec);
    return echec ? horsCalcul : v;
}

// ---- Operations between values ----------------------------------------------

bool quotientEntier(double a, double b, double& quotient)
{
    // Rounding to the nearest integer, halves to even (the default rounding
    // mode), then the 32-bit range of the runtime's integers.
    const double ra = std::nearbyint(a), rb = std::nearbyint(b);
    constexpr double bas = -2147483648.0, haut = 2147483647.0;
    if (ra < bas || ra > haut || rb < bas || rb > haut || rb == 0)
        return false;
    const long long q = static_cast<long long>(ra) / static_cast<long long>(rb);
    if (q > 2147483647LL)
        return false;  // -2147483648 \ -1
    quotient = static_cast<double>(q);
    return true;
}

Resultat operons(char op, double a, double b)
{
    double r;
    switch (op) {
    case '*': r = a * b; break;
    case '+': r = a + b; break;
    case '-': r = a - b; break;
    case '/':
        if (b == 0)
            return valeur(horsCalcul);
        r = a / b;
        break;
    case '\\':
        if (!quotientEntier(a, b, r))
            return valeur(0);
        break;
    case '^': r = std::pow(a, b); break;  // 0^-1 is infinite, (-8)^0.5 NaN
    default: return {};                   // another character: no value
    }
    return valeur(std::isfinite(r) ? r : 0.0);
}

// An operation that gives no value hands 0 to the enclosing operation.
Resultat combine3(char op1, char op2, double a, double b, double c)
{
    if (op1 == '+' || op1 == '-')
        return operons(op1, a, operons(op2, b, c).lue());
    return operons(op2, operons(op1, a, b).lue(), c);
}

Resultat combine4(char op1, char op2, char op3, double a, double b, double c, double d)
{
    if (op1 == '+' || op1 == '-')
        return operons(op1, a, combine3(op2, op3, b, c, d).lue());
    if (op2 == '+' || op2 == '-')
        return operons(op2, operons(op1, a, b).lue(), operons(op3, c, d).lue());
    return operons(op3, combine3(op1, op2, a, b, c).lue(), d);
}

// ---- Functions --------------------------------------------------------------

Fonction fonctionNommee(std::string_view nom)
{
    struct Ligne {
        std::initializer_list<std::string_view> noms;
        Fonction f;
    };
    static const Ligne table[] = {
        {{"ABS"}, Fonction::Abs},
        {{"SIN", "SINUS"}, Fonction::Sin},
        {{"COS", "COSINUS"}, Fonction::Cos},
        {{"TAN", "TG", "TANGEANTE"}, Fonction::Tan},
        {{"COTAN", "COTG"}, Fonction::Cotan},
        {{"LN"}, Fonction::Ln},
        {{"LOG"}, Fonction::Log},
        {{"EXP"}, Fonction::Exp},
        {{"RAC", "SQR"}, Fonction::Rac},
        {{"RAC3", "3SQR"}, Fonction::Rac3},
        {{"ATN", "ARCTAN", "ARCTG"}, Fonction::Atn},
        {{"ARCSIN"}, Fonction::Arcsin},
        {{"ARCCOS"}, Fonction::Arccos},
        {{"ARCCOTAN"}, Fonction::Arccotan},
        {{"SINH", "HSIN"}, Fonction::Sinh},
        {{"COSH", "HCOS"}, Fonction::Cosh},
        {{"TANH", "HTAN"}, Fonction::Tanh},
        {{"COTH", "HCOTAN"}, Fonction::Coth},
        {{"ARCSINH", "HARCSIN"}, Fonction::Arcsinh},
        {{"ARCCOSH", "HARCCOS"}, Fonction::Arccosh},
        {{"ARCTANH", "HARCTAN"}, Fonction::Arctanh},
        {{"ARCCOTANH", "HARCCOTANH"}, Fonction::Arccotanh},
        {{"ENT", "E", "INT"}, Fonction::Ent},
    };
    for (const Ligne& ligne : table) {
        for (std::string_view n : ligne.noms)
            if (nom == n)
                return ligne.f;
        // Any name whose first five letters are "EXPON" is the exponential.
        if (ligne.f == Fonction::Exp && nom.substr(0, 5) == "EXPON")
            return Fonction::Exp;
    }
    return Fonction::Aucune;
}

double calculeFonction(Fonction f, double x, bool& echec)
{
    Garde g;
    double v = 0;
    switch (f) {
    case Fonction::Aucune: break;
    case Fonction::Abs: v = std::fabs(x); break;
    case Fonction::Sin: v = g(std::sin(x)); break;
    case Fonction::Cos: v = g(std::cos(x)); break;
    case Fonction::Tan: v = g(std::tan(x)); break;
    case Fonction::Cotan: v = g(1.0 / g(std::tan(x))); break;  // tan 0 = 0: division by zero
    case Fonction::Ln: v = g(std::log(x)); break;              // -inf at 0, NaN below
    case Fonction::Log: v = g(g(std::log(x)) / std::log(10.0)); break;
    case Fonction::Exp: v = g(std::exp(x)); break;
    case Fonction::Rac: v = x >= 0 ? std::sqrt(x) : 0.0; break;
    case Fonction::Rac3: v = g(std::pow(x, 1.0 / 3.0)); break;  // NaN for x < 0
    case Fonction::Atn: v = std::atan(x); break;
    case Fonction::Arcsin: v = g(std::atan(g(x / g(std::sqrt(g(1 - g(x * x))))))); break;
    case Fonction::Arccos: v = g(2 * std::atan(1.0) + std::atan(g(-x / g(std::sqrt(g(1 - g(x * x))))))); break;
    case Fonction::Arccotan: v = 2 * std::atan(1.0) - std::atan(x); break;
    case Fonction::Sinh: v = g(g(g(std::exp(x)) - g(std::exp(-x))) / 2); break;
    case Fonction::Cosh: v = g(g(g(std::exp(x)) + g(std::exp(-x))) / 2); break;
    case Fonction::Tanh: v = g(g(g(std::exp(x)) - g(std::exp(-x))) / g(g(std::exp(x)) + g(std::exp(-x)))); break;
    case Fonction::Coth: v = g(g(g(std::exp(x)) + g(std::exp(-x))) / g(g(std::exp(x)) - g(std::exp(-x)))); break;
    case Fonction::Arcsinh: v = g(std::log(g(x + g(std::sqrt(g(g(x * x) + 1)))))); break;
    case Fonction::Arccosh: v = g(std::log(g(x + g(std::sqrt(g(g(x * x) - 1)))))); break;
    case Fonction::Arctanh: v = g(g(std::log(g(g(1 + x) / g(1 - x)))) / 2); break;
    case Fonction::Arccotanh: v = g(g(std::log(g(g(x + 1) / g(x - 1)))) / 2); break;
    case Fonction::Ent: v = std::floor(x); break;
    }
    if (g.echec)
        echec = true;
    return v;
}

double appliqueNom(std::string_view nom, double x, bool& aValeur, bool& echec)
{
    const Fonction f = fonctionNommee(nom);
    aValeur = f != Fonction::Aucune;
    return calculeFonction(f, x, echec);
}

Resultat appliquefonction(std::string_view prefixe, double w)
{
    if (prefixe.empty())
        return valeur(w);
    if (prefixe.size() == 1 && estChiffre(prefixe[0]))
        return valeur(prefixe[0] - '0');
    bool echec = false;
    const char dernier = prefixe.back();
    if (estOperateur(dernier)) {
        // A head without a function: it knows no variable, so a lone
        // letter in it reads as the default 0 ("X*(X+1)" is 0 x (x+1)).
        const double c = lisnombre(prefixe.substr(0, prefixe.size() - 1), 0.0, echec);
        if (echec)
            return valeur(horsCalcul);
        return operons(dernier, c, w);
    }
    // The name is the final run of letters A..Z; the head what precedes it.
    std::size_t i = prefixe.size();
    while (i > 0 && prefixe[i - 1] >= 'A' && prefixe[i - 1] <= 'Z')
        --i;
    const std::string_view nom = prefixe.substr(i), tete = prefixe.substr(0, i);
    bool aValeur = true;
    const double v = appliqueNom(nom, w, aValeur, echec);
    if (echec)
        return valeur(horsCalcul);
    // A name in no row (also the empty name of "RAC3", whose last
    // character is a digit): the whole prefix gives no value and its head
    // is not applied.
    if (!aValeur)
        return {};
    if (tete.empty())
        return valeur(v);
    if (tete.size() == 1)
        return valeur(tete[0] == '-' ? -v : horsCalcul);
    // A longer head: number and operator. A head ending with any other
    // character ("12.5" in "12.5SIN") goes to operons like the others and
    // so gives no value.
    const double c = lisnombre(tete.substr(0, tete.size() - 1), 0.0, echec);
    if (echec)
        return valeur(horsCalcul);
    return operons(tete.back(), c, v);
}

}  // namespace velorin
