// Formula texts drawn at random for the engine's randomized tests (sums, every name, bracket pairs, particular
// and broken texts, raw bytes) and awkward values (zeros, halves, the ends of the range, denormals).
#pragma once
#include <array>
#include <cctype>
#include <random>
#include <string>
#include <string_view>

#include "engine/normalisation.h"

namespace velorin::essai {

class FormulesAleatoires {
public:
    explicit FormulesAleatoires(unsigned graine) : alea_(graine) { }
    int tire(int n) { return std::uniform_int_distribution<int>(0, n - 1)(alea_); }
    template <class T, std::size_t n> const T& parmi(const T (&t)[n]) { return t[tire(int(n))]; }

    // A term: constant, or coefficient, operator, letter, exponent.
    std::string terme()
    {
        static const char* constantes[] = {"2",   "1.5", "P",   "2P",    "P/2", "-3P/4", "1E2", "2E", "1E400", "9E999",
                                           "1/4", "1/0", "0",   "PE2",   "XE1", "3E-1",  "7",   "E",  "0.5P",  "E-3",
                                           "",    " ",   "2X",  "X^0.5", "1E-999", "1E308", "2\\X"};
        static const char* coefficients[] = {"", "", "2*", "3/", "-1*", "2\\", "1E2*", "P*", "2", "0.5/", "1E999*"};
        static const char* exposants[] = {"",   "",   "",   "^2",   "^3", "^0.5", "^-1",
                                          "^P", "^X", "^1E3", "^2.5", "^0", "^1000"};
        return tire(4) == 0 ? std::string(parmi(constantes))
                            : std::string(parmi(coefficients)) + "XYZTAXX"[tire(7)] + parmi(exposants);
    }
    std::string somme()
    {
        std::string s = tire(5) == 0 ? "-" : "";
        for (int k = 1 + tire(3); k > 0; --k)
            s += terme() + (k > 1 ? std::string(1, "+-"[tire(2)]) : "");
        return s;
    }
    // A function name: the normalisation table, then names only the evaluator knows, misspelt ones and none.
    std::string nom()
    {
        static const char* autres[] = {"TANGEANTE", "EXPONENTIELLE", "EXPONENTIEL", "ARCTG", "3SQR",
                                       "HARCCOTANH", "SINUS", "FOO", ""};
        std::array<std::string_view, 40> noms;
        remplitnoms(noms);
        const int k = tire(40 + int(std::size(autres)));
        return k < 40 ? std::string(noms[std::size_t(k)]) : autres[k - 40];
    }
    std::string prefixe()
    {
        static const char* tetes[] = {"",   "",   "",   "-",    "2*",     "3+", "1-",
                                      "5",  "X*", "2^", "4\\", "1E999*", "2#", "12.5"};
        switch (tire(4)) {
        case 0: return "";
        case 1: return std::string(parmi(tetes)) + (tire(2) ? "" : "1");
        default: return parmi(tetes) + nom();
        }
    }
    // A text with `paires` bracket pairs, nested or side by side.
    std::string formule(int paires)
    {
        if (paires <= 0)
            return somme();
        if (paires == 1 || tire(2) == 0)
            return prefixe() + "(" + formule(paires - 1) + ")";
        const int gauche = 1 + tire(paires - 1);
        return formule(gauche) + "+-*/\\^*+"[tire(8)] + formule(paires - gauche);
    }
    // One to four characters inserted, removed or replaced, brackets of the three kinds and control bytes among them.
    std::string abime(std::string s)
    {
        static const char morceaux[] = "()[]{}+-*/\\^=EPX.0123456789 x\x01\xff)(";
        for (int i = 1 + tire(4); i > 0; --i) {
            const std::size_t p = s.empty() ? 0 : std::size_t(tire(int(s.size())));
            const char c = morceaux[tire(sizeof morceaux - 1)];
            if (s.empty() || tire(3) == 0)
                s.insert(p, 1, c);
            else if (tire(2) == 0)
                s.erase(p, 1);
            else
                s[p] = c;
        }
        return s;
    }
    // Texts the evaluator reads in a particular way: pairs read in pieces, heads and tails outside the pairs,
    // implicit products, sum overflows.
    std::string remarquable()
    {
        static const char* textes[] = {
            "(X)-(1)-(1)", "(2)*SIN(X)+(3)*COS(X)", "SIN(X)+1", ")X(", "SIN(X", "(X)(X)", "1P", "RAC3(8)", "3SQR(8)",
            "5SIN(X)", "-SIN(X)", "1\\X", "X-1-1", "((((X))))", "(X)+(Y)*(Z)-(T)", "1E308+1E308", "(1E308+1E308)*(2)",
            "12.5SIN(X)", "(X)^(Y)^(2)", "E(X)", "  x^2 ", "-X-0", "(X)*(2)/(3)", "(X)/(Y)*(3)^(Z)",
            "(3+COS(A))*COS(T)", "(((1E308)*(1E308))^(1E308))-(1E308)"};
        return parmi(textes);
    }
    // A formula, sometimes a remarkable text, sometimes broken afterwards, with blanks around or in lower case.
    std::string texte()
    {
        std::string s = tire(8) == 0 ? remarquable() : formule(tire(6));
        if (tire(4) == 0)
            s = abime(s);
        if (tire(8) == 0)
            s = " " + s + " ";
        if (tire(8) == 0)
            for (char& c : s)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return s;
    }
    std::string octets()  // up to 40 bytes of any value
    {
        std::string s;
        for (int n = tire(40); n > 0; --n)
            s += char(tire(256));
        return s;
    }
    static constexpr double speciales[] = {0,     -0.0,   1,    -1,  0.5,  1.5,          2.5,          -2.5,     2,
                                           3,     0.4,    1e-300, 1e300, -1e308, 1e155, 1e-170, 1e-9, 700, -745,
                                           2147483647.5, 2147483648.0, 3.141592, 1.570796, 4.9e-324, -2.5e-310};
    double valeur()
    {
        return tire(3) == 0 ? parmi(speciales) : std::uniform_real_distribution<double>(-12, 12)(alea_);
    }

private:
    std::mt19937 alea_;
};

}  // namespace velorin::essai
