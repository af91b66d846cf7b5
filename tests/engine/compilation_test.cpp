// Compiled formulas against the evaluator that reads the text at every
// point: for generated texts of the three families and awkward values, the
// compiled result (point by point and by blocks) must have the same issue
// and the same bits.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "commun/formules_aleatoires.h"
#include "engine/compilation.h"
#include "engine/points.h"

namespace velorin {
namespace {

std::uint64_t bits(double x)
{
    std::uint64_t b;
    std::memcpy(&b, &x, sizeof b);
    return b;
}

void compare(const Resultat& attendu, const Resultat& obtenu, const std::string& quoi)
{
    ASSERT_EQ(int(attendu.issue), int(obtenu.issue)) << quoi;
    ASSERT_EQ(bits(attendu.lue()), bits(obtenu.lue())) << quoi << " : " << attendu.lue() << " / " << obtenu.lue();
    ASSERT_TRUE(std::isfinite(obtenu.lue())) << quoi;
}

const Famille familles[] = {Famille::Plan, Famille::Espace, Famille::Nuage};

TEST(Compilation, MemesResultatsQueLaLectureDuTexte)
{
    essai::FormulesAleatoires g(12345);
    for (int essai = 0; essai < 4000; ++essai) {
        const std::string texte = g.texte();
        for (Famille f : familles) {
            const FormuleCompilee c(f, texte);
            for (int k = 0; k < 12; ++k) {
                const double a = g.valeur(), b = g.valeur(), d = g.valeur();
                compare(evalue(f, texte, a, b, d), c.evalue(a, b, d),
                        "'" + texte + "' famille " + std::to_string(int(f)) + " en (" + std::to_string(a) + ", " +
                            std::to_string(b) + ", " + std::to_string(d) + ")");
            }
        }
    }
}

// Formulas compiled together share their common operations: each must
// still give its own values, also where another one of the group fails.
TEST(Compilation, GroupesCommeFormulesSeules)
{
    essai::FormulesAleatoires g(2024);
    std::vector<double> u(300), v(300), w(300), x(300), y(300), z(300);
    double* sorties[] = {x.data(), y.data(), z.data()};
    for (int essai = 0; essai < 1500; ++essai) {
        const Famille f = familles[essai % 3];
        // A torus now and then: its x and y share 3+COS(A).
        const std::string a = essai % 20 ? g.texte() : "(3+COS(A))*COS(T)";
        const std::string b = essai % 20 ? g.texte() : "(3+COS(A))*SIN(T)";
        const std::string c = essai % 2 ? a + "+(1)" : g.texte();
        const FormulesCompilees groupe(f, {a, b, c});
        const std::size_t n = 1 + std::size_t(g.tire(300));
        for (std::size_t i = 0; i < n; ++i)
            u[i] = g.valeur(), v[i] = g.valeur(), w[i] = g.valeur();
        evalueBloc(groupe, u.data(), v.data(), w.data(), sorties, n);
        for (std::size_t k = 0; k < 3; ++k)
            for (std::size_t i = 0; i < n; ++i)
                ASSERT_EQ(bits(groupe.formules()[k].valeur(u[i], v[i], w[i])), bits(sorties[k][i]))
                    << groupe.formules()[k].texte() << " point " << i;
    }
}

// The portable loops (used where the processor lacks AVX2, and everywhere
// in a build that forces them) give the same lanes as the AVX2 loops.
TEST(Compilation, BouclesPortablesCommeAvx2)
{
    if (!compil::avx2EnService())
        GTEST_SKIP() << "pas de boucles AVX2 dans cette construction ou sur ce processeur";
    essai::FormulesAleatoires g(4242);
    double u[64], v[64], w[64], auto_[64], sse[64];
    bool douteuxAuto[64], douteuxSse[64];
    for (int essai = 0; essai < 1500; ++essai) {
        const FormuleCompilee c(familles[essai % 3], g.texte());
        if (compil::tailleBloc(c.programme()) < 64)
            continue;
        for (int i = 0; i < 64; ++i)
            u[i] = g.valeur(), v[i] = g.valeur(), w[i] = g.valeur();
        const compil::Arbre* arbres[] = {&c.arbre()};
        double *sortiesAuto[] = {auto_}, *sortiesSse[] = {sse};
        const bool a = compil::executeBloc(c.programme(), arbres, u, v, w, sortiesAuto, douteuxAuto, 64);
        const bool b =
            compil::executeBloc(c.programme(), arbres, u, v, w, sortiesSse, douteuxSse, 64, compil::Jeu::Portable);
        ASSERT_EQ(a, b) << c.texte();
        for (int i = 0; i < 64; ++i) {
            ASSERT_TRUE(!a || douteuxAuto[i] == douteuxSse[i]) << c.texte();
            ASSERT_TRUE((a && douteuxAuto[i]) || bits(auto_[i]) == bits(sse[i])) << c.texte();
        }
    }
}

TEST(Compilation, CacheRendLaFormuleDuTexteEtDeLaFamille)
{
    CacheFormules cache;
    // More texts than the cache keeps, asked in turn several times.
    for (int tour = 0; tour < 3; ++tour)
        for (int k = 0; k < 12; ++k) {
            const std::string texte = std::to_string(k) + "*X";
            EXPECT_EQ(k * 2.0, cache.valeur(Famille::Espace, texte, 2, 0, 0)) << texte;
            EXPECT_EQ(texte, cache.formule(Famille::Plan, texte).texte());
        }
    // Same text, families with different letters: Y is a variable in the plane only.
    EXPECT_EQ(5.0, cache.valeur(Famille::Plan, "Y", 1, 5, 0));
    EXPECT_EQ(1.0, cache.valeur(Famille::Espace, "Y", 1, 5, 0));
}

}  // namespace
}  // namespace velorin
