// Generated and mutated formula texts through the whole preparation and
// reading: nothing may crash, hang, or give a value that is not finite.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <string>

#include "engine/lecture.h"
#include "engine/normalisation.h"
#include "engine/points.h"

namespace velorin {
namespace {

std::mt19937 alea(20240607);
int entier(int n)
{
    return std::uniform_int_distribution<int>(0, n - 1)(alea);
}
template <class T, std::size_t n> const T& unDe(const T (&t)[n])
{
    return t[entier(int(n))];
}

// Every name of the normalisation table and those only the evaluator knows.
std::string nom()
{
    static const char* autres[] = {"TANGEANTE", "EXPONENTIELLE", "ARCTG", "3SQR", "HARCCOTANH", "FOO"};
    std::array<std::string_view, 40> noms;
    remplitnoms(noms);
    const int k = entier(46);
    return k < 40 ? std::string(noms[k]) : autres[k - 40];
}

std::string formule(int profondeur)
{
    static const char* atomes[] = {"X",   "T",     "A",      "Y",     "Z",      "P",  "2P/3",  "-P",
                                   "1.5", "0",     "1E308",  "9E999", "1E-999", "2X", "X^0.5", "2\\X",
                                   "1/X", "3*X^2", "X^1000", "E-3",   "",       " "};
    const std::string op(1, "+-*/\\^"[entier(6)]);
    switch (profondeur <= 0 ? 0 : entier(5)) {
    case 0: return unDe(atomes);
    case 1: return formule(profondeur - 1) + op + formule(profondeur - 1);
    case 2: return nom() + "(" + formule(profondeur - 1) + ")";
    case 3: {
        // Appended piece by piece: "(" + std::string makes GCC 12 warn wrongly.
        std::string r(1, '(');
        r += formule(profondeur - 1);
        r += ')';
        r += op;
        r += '(';
        r += formule(profondeur - 1);
        r += ')';
        return r;
    }
    default: return "-52X"[entier(4)] + formule(profondeur - 1);
    }
}

std::string mute(std::string s)
{
    static const char morceaux[] = "()[]{}+-*/\\^=EPX.0123456789 \x01\xff";
    for (int i = 1 + entier(4); i > 0; --i) {
        const std::size_t p = s.empty() ? 0 : std::size_t(entier(int(s.size())));
        const char c = morceaux[entier(sizeof morceaux - 1)];
        if (s.empty() || entier(3) == 0)
            s.insert(p, 1, c);
        else if (entier(2) == 0)
            s.erase(p, 1);
        else
            s[p] = c;
    }
    return s;
}

double valeur()
{
    static const double speciales[] = {0, -0.0, 1, -1, 0.5, -0.5, 1e-300, 1e300, -1e308, 2147483648.0};
    return entier(3) == 0 ? unDe(speciales) : std::uniform_real_distribution<double>(-10, 10)(alea);
}

void verifie(const std::string& brut)
{
    const std::string f = nettoieformule(unifiecrochets(brut), entier(9));
    (void)parenthesesequilibrees(f);
    const double a = valeur(), b = valeur(), c = valeur();
    for (const std::string* t : {&brut, &f}) {
        ASSERT_TRUE(std::isfinite(evalplan(*t, a, b)) && std::isfinite(evalespace(*t, a, b)) &&
                    std::isfinite(evalnuage(*t, a, b, c)) && std::isfinite(lisnombre(*t, a)))
            << *t;
    }
    GlobalesMoteur g;
    g.formuleF1 = f, g.formuleF2 = mute(f), g.formuleF3 = brut, g.pointX = b;
    pointcourbe(g, a);
    pointparametre(g, a, 1, true);
    pointpolaire(g, a, entier(2) == 0);
    pointsurface(g, a, c);
    pointspherique(g, a, c);
    ASSERT_TRUE(std::isfinite(g.pointX) && std::isfinite(g.pointY) && std::isfinite(g.pointZ)) << f;
}

TEST(MoteurRobustesse, TextesAleatoiresMutesEtExtremes)
{
    for (int i = 0; i < 2000 && !HasFatalFailure(); ++i) {
        const std::string f = formule(1 + entier(4));
        verifie(f);
        verifie(mute(f));
        std::string octets;
        for (int n = entier(40); n > 0; --n)
            octets += char(entier(256));
        verifie(octets);
    }
    std::string sinus, melange;
    for (int i = 0; i < 5000; ++i)
        sinus += "SIN(X)+", melange += "2SIN(X)ARCSINH(E";
    for (const std::string& s :
         {std::string(20000, '(') + "X" + std::string(20000, ')'), std::string(20000, ')') + std::string(20000, '('),
          std::string(50000, 'E'), "1" + std::string(400, '0'), std::string(30000, '-') + "X", sinus, melange,
          std::string("(((1E308)*(1E308))^(1E308))-(1E308)")})
        verifie(s);
}

}  // namespace
}  // namespace velorin
