// Generated and mutated formula texts through the whole preparation and
// reading: nothing may crash, hang, or give a value that is not finite.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <random>
#include <string>

#include "engine/lecture.h"
#include "engine/normalisation.h"
#include "engine/points.h"

namespace velorin {
namespace {

class Generateur {
public:
    explicit Generateur(unsigned graine) : alea_(graine) { remplitnoms(noms_); }

    int entier(int n) { return std::uniform_int_distribution<int>(0, n - 1)(alea_); }

    std::string formule(int profondeur)
    {
        static const char* atomes[] = {"X", "T", "A", "Y", "Z", "P", "2P/3", "-P", "1.5", "0",
                                       "1E308", "9E999", "1E-999", "2X", "X^0.5", "2\\X", "1/X",
                                       "3*X^2", "X^1000", "E-3", "", " "};
        static const char ops[] = "+-*/\\^";
        switch (profondeur <= 0 ? 0 : entier(5)) {
        case 0: return atomes[entier(std::size(atomes))];
        case 1: return formule(profondeur - 1) + ops[entier(6)] + formule(profondeur - 1);
        case 2: return nom() + "(" + formule(profondeur - 1) + ")";
        case 3: return "(" + formule(profondeur - 1) + ")" + ops[entier(6)] + "(" + formule(profondeur - 1) + ")";
        default: return std::string(1, "-52X"[entier(4)]) + formule(profondeur - 1);
        }
    }

    // Every name of the normalisation table and those only the evaluator knows.
    std::string nom()
    {
        static const char* autres[] = {"TANGEANTE", "EXPONENTIELLE", "ARCTG", "3SQR", "HARCCOTANH", "FOO"};
        const int k = entier(40 + static_cast<int>(std::size(autres)));
        return k < 40 ? std::string(noms_[k]) : autres[k - 40];
    }

    std::string mute(std::string s)
    {
        static const char morceaux[] = "()[]{}+-*/\\^=EPX.0123456789 \x01\xff";
        const int n = 1 + entier(4);
        for (int i = 0; i < n; ++i) {
            const std::size_t p = s.empty() ? 0 : static_cast<std::size_t>(entier(static_cast<int>(s.size())));
            const char c = morceaux[entier(sizeof morceaux - 1)];
            switch (entier(3)) {
            case 0: s.insert(p, 1, c); break;
            case 1: if (!s.empty()) s.erase(p, 1); break;
            default: if (!s.empty()) s[p] = c;
            }
        }
        return s;
    }

    std::string octets(int n)
    {
        std::string s;
        for (int i = 0; i < n; ++i) s += static_cast<char>(entier(256));
        return s;
    }

    double valeur()
    {
        static const double speciales[] = {0, -0.0, 1, -1, 0.5, -0.5, 1e-300, 1e300, -1e308, 2147483648.0};
        if (entier(3) == 0) return speciales[entier(std::size(speciales))];
        return std::uniform_real_distribution<double>(-10, 10)(alea_);
    }

private:
    std::mt19937 alea_;
    std::array<std::string_view, 40> noms_;
};

void verifieTexte(Generateur& gen, const std::string& brut)
{
    const std::string f = nettoieformule(unifiecrochets(brut), gen.entier(9));
    (void)parenthesesequilibrees(f);
    const double a = gen.valeur(), b = gen.valeur(), c = gen.valeur();
    for (const std::string* t : {&brut, &f}) {
        ASSERT_TRUE(std::isfinite(evalplan(*t, a, b))) << *t;
        ASSERT_TRUE(std::isfinite(evalespace(*t, a, b))) << *t;
        ASSERT_TRUE(std::isfinite(evalnuage(*t, a, b, c))) << *t;
        ASSERT_TRUE(std::isfinite(lisnombre(*t, a))) << *t;
    }
    GlobalesMoteur g;
    g.formuleF1 = f;
    g.formuleF2 = gen.mute(f);
    g.formuleF3 = brut;
    g.pointX = b;
    pointcourbe(g, a);
    pointparametre(g, a, 1, true);
    pointpolaire(g, a, gen.entier(2) == 0);
    pointsurface(g, a, c);
    pointspherique(g, a, c);
    ASSERT_TRUE(std::isfinite(g.pointX) && std::isfinite(g.pointY) && std::isfinite(g.pointZ)) << f;
}

TEST(MoteurRobustesse, TextesAleatoiresEtMutes)
{
    Generateur gen(20240607);
    const auto debut = std::chrono::steady_clock::now();
    for (int i = 0; i < 4000; ++i) {
        const std::string f = gen.formule(1 + gen.entier(4));
        verifieTexte(gen, f);
        verifieTexte(gen, gen.mute(f));
        verifieTexte(gen, gen.octets(gen.entier(40)));
        if (HasFatalFailure()) return;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - debut, std::chrono::seconds(30));
}

TEST(MoteurRobustesse, TextesExtremes)
{
    Generateur gen(7);
    const std::string longs[] = {
        std::string(20000, '(') + "X" + std::string(20000, ')'),
        std::string(20000, ')') + std::string(20000, '('),
        std::string(50000, 'E'),
        "1" + std::string(400, '0'),
        std::string(30000, '-') + "X",
        [] { std::string s; for (int i = 0; i < 5000; ++i) s += "SIN(X)+"; return s; }(),
        [] { std::string s; for (int i = 0; i < 5000; ++i) s += "2SIN(X)ARCSINH(E"; return s; }(),
        "(((1E308)*(1E308))^(1E308))-(1E308)",
    };
    for (const std::string& s : longs) {
        verifieTexte(gen, s);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace velorin
