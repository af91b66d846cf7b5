#include "engine/compil_bloc.h"

#include <cmath>
#include <cstring>
#include <memory>

#include "engine/compil_arbre.h"

// The x86 vector code (AVX2 loops, clearing of the upper register halves)
// is compiled only for x86 and only when the build does not force the
// portable code; everything else runs the portable loops.
#if (defined(__x86_64__) || defined(__i386__)) && !defined(VELORIN_PORTABLE)
#define VELORIN_X86 1
#else
#define VELORIN_X86 0
#endif

namespace velorin::compil {

namespace {

inline std::uint64_t bitsDe(double x)
{
    std::uint64_t b;
    std::memcpy(&b, &x, sizeof b);
    return b;
}

inline double doubleDe(std::uint64_t b)
{
    double x;
    std::memcpy(&x, &b, sizeof x);
    return x;
}

// Exact product by Dekker's splitting (no fused multiply-add is assumed):
// a * b == p + erreurProduit(a, b, p) exactly, as long as nothing overflows
// or falls into the subnormal range.
inline double erreurProduit(double a, double b, double p)
{
    const double ca = 134217729.0 * a, cb = 134217729.0 * b;
    const double ah = ca - (ca - a), al = a - ah;
    const double bh = cb - (cb - b), bl = b - bh;
    return ((ah * bh - p) + ah * bl + al * bh) + al * bl;
}

// pow(x, 2) and pow(x, 3) of the C library are accurate to 0.54 unit in the
// last place, so they return the correctly rounded power unless the exact
// power lies within 0.04 unit of a rounding midpoint. The powers below are
// computed in double-double arithmetic; where the exact power is farther than
// 0.05 unit from a midpoint, the rounded result is therefore the library's
// bits, and the lane is reported as sure. Elsewhere (near a midpoint, at a
// power of two, near overflow or underflow, at 0) pow itself is called.
inline bool sur(double r, double reste)
{
    const double taille = std::fabs(r);
    const double ulp = doubleDe(bitsDe(r) & 0x7FF0000000000000ull) * 0x1p-52;
    // Without short-circuits, so that the loops stay vectorised.
    return (std::fabs(reste) < 0.45 * ulp) & (taille != ulp * 0x1p52) & (taille > 0x1p-900) & (taille < 0x1p900);
}

inline double carreSur(double x, bool& ok)
{
    const double p = x * x;
    ok = sur(p, erreurProduit(x, x, p));
    return p;
}

inline double cubeSur(double x, bool& ok)
{
    const double p = x * x;
    const double e1 = erreurProduit(x, x, p);
    const double q = p * x;
    const double s = erreurProduit(p, x, q) + e1 * x;
    const double r = q + s;
    ok = sur(r, (q - r) + s);
    return r;
}

#if defined(__GNUC__)
#define VELORIN_EN_LIGNE inline __attribute__((always_inline))
#else
#define VELORIN_EN_LIGNE inline
#endif

// The operation of a code on the values of one lane (b is not read by the
// codes with one operand). Carre, Cube and Exact have their own paths.
template <Code C> VELORIN_EN_LIGNE double calcule(double x, double y)
{
    if constexpr (C == Code::Ajoute)
        return x + y;
    else if constexpr (C == Code::Soustrait)
        return x - y;
    else if constexpr (C == Code::Multiplie)
        return x * y;
    else if constexpr (C == Code::Divise)
        return x / y;
    else if constexpr (C == Code::Puissance)
        return std::pow(x, y);
    else if constexpr (C == Code::Oppose)
        return -x;
    else if constexpr (C == Code::PlusZero)
        return x + 0.0;
    else if constexpr (C == Code::Sinus)
        return std::sin(x);
    else if constexpr (C == Code::Cosinus)
        return std::cos(x);
    else if constexpr (C == Code::Tangente)
        return std::tan(x);
    else if constexpr (C == Code::Exponentielle)
        return std::exp(x);
    else if constexpr (C == Code::Logarithme)
        return std::log(x);
    else if constexpr (C == Code::ArcTangente)
        return std::atan(x);
    else if constexpr (C == Code::Absolu)
        return std::fabs(x);
    else if constexpr (C == Code::Plancher)
        return std::floor(x);
    else if constexpr (C == Code::RacineSinonZero)
        return x >= 0 ? std::sqrt(x) : 0.0;
    else
        return y * 0.0;
}

template <Code C> VELORIN_EN_LIGNE double puissanceSure(double x, bool& ok)
{
    if constexpr (C == Code::Carre)
        return carreSur(x, ok);
    else
        return cubeSur(x, ok);
}

// Calls f.template operator()<C>() for the code of the instruction.
template <class F> VELORIN_EN_LIGNE void selonCode(Code c, F&& f)
{
    switch (c) {
    case Code::Ajoute: f.template operator()<Code::Ajoute>(); break;
    case Code::Soustrait: f.template operator()<Code::Soustrait>(); break;
    case Code::Multiplie: f.template operator()<Code::Multiplie>(); break;
    case Code::Divise: f.template operator()<Code::Divise>(); break;
    case Code::Oppose: f.template operator()<Code::Oppose>(); break;
    case Code::PlusZero: f.template operator()<Code::PlusZero>(); break;
    case Code::Puissance: f.template operator()<Code::Puissance>(); break;
    case Code::Carre: f.template operator()<Code::Carre>(); break;
    case Code::Cube: f.template operator()<Code::Cube>(); break;
    case Code::Sinus: f.template operator()<Code::Sinus>(); break;
    case Code::Cosinus: f.template operator()<Code::Cosinus>(); break;
    case Code::Tangente: f.template operator()<Code::Tangente>(); break;
    case Code::Exponentielle: f.template operator()<Code::Exponentielle>(); break;
    case Code::Logarithme: f.template operator()<Code::Logarithme>(); break;
    case Code::ArcTangente: f.template operator()<Code::ArcTangente>(); break;
    case Code::Absolu: f.template operator()<Code::Absolu>(); break;
    case Code::Plancher: f.template operator()<Code::Plancher>(); break;
    case Code::RacineSinonZero: f.template operator()<Code::RacineSinonZero>(); break;
    case Code::Exact: f.template operator()<Code::Exact>(); break;
    }
}

// One instruction over n lanes. Each loop also keeps, in `controle`, a NaN
// for the lanes whose result is not finite (x * 0 is 0 for a finite x and
// NaN otherwise).
template <Code C>
VELORIN_EN_LIGNE void boucle(double* __restrict d, const double* __restrict a, const double* __restrict b,
                             double* __restrict controle, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        const double r = calcule<C>(a[i], b[i]);
        d[i] = r;
        controle[i] += r * 0.0;
    }
}

// Results of a costly library function kept by the bits of the argument:
// a family walks the same values of a and t curve after curve, so most of a
// block's calls were already made for an earlier block. A hit gives back the
// very bits the function returned (-0 and +0, or two NaN, are different
// keys). One table per function and per thread, made at its first use.
struct Memoire {
    static constexpr int bits = 12;
    std::uint64_t cles[1 << bits];
    double valeurs[1 << bits];
    static std::size_t place(std::uint64_t cle)
    {
        return static_cast<std::size_t>(((cle ^ cle >> 32) * 0x9E3779B97F4A7C15ull) >> (64 - bits));
    }
};

template <Code C> Memoire& memoire()
{
    static thread_local std::unique_ptr<Memoire> m;
    if (!m) {
        m = std::make_unique<Memoire>();
        const double zero = calcule<C>(0.0, 0.0);
        for (std::size_t k = 0; k < (std::size_t(1) << Memoire::bits); ++k) {
            m->cles[k] = 0;  // the bits of +0
            m->valeurs[k] = zero;
        }
    }
    return *m;
}

template <Code C> constexpr bool memorisee()
{
    return C == Code::Sinus || C == Code::Cosinus || C == Code::Tangente || C == Code::Exponentielle ||
           C == Code::Logarithme || C == Code::ArcTangente;
}

// boucle for a function with one operand whose results are kept.
template <Code C>
VELORIN_EN_LIGNE void boucleMemorisee(double* __restrict d, const double* __restrict a, double* __restrict controle,
                                      std::size_t n)
{
    Memoire& m = memoire<C>();
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint64_t cle = bitsDe(a[i]);
        const std::size_t k = Memoire::place(cle);
        double r;
        if (m.cles[k] == cle) {
            r = m.valeurs[k];
        } else {
            r = calcule<C>(a[i], 0.0);
            m.cles[k] = cle;
            m.valeurs[k] = r;
        }
        d[i] = r;
        controle[i] += r * 0.0;
    }
}

// The fast power on every lane, then pow on the lanes it is not sure of.
template <Code C>
VELORIN_EN_LIGNE void bouclePuissance(double* __restrict d, const double* __restrict a, const double* __restrict b,
                                      double* __restrict controle, std::size_t n)
{
    unsigned char ok[blocMax];
    for (std::size_t i = 0; i < n; ++i) {
        bool sur;
        d[i] = puissanceSure<C>(a[i], sur);
        ok[i] = sur;
    }
    unsigned char tousSurs = 1;
    for (std::size_t i = 0; i < n; ++i)
        tousSurs &= ok[i];
    std::uint16_t reprises[blocMax];
    std::size_t k = 0;
    for (std::size_t i = 0; i < n && !tousSurs; ++i) {
        reprises[k] = static_cast<std::uint16_t>(i);
        k += 1u - ok[i];
    }
    for (std::size_t j = 0; j < k; ++j)
        d[reprises[j]] = std::pow(a[reprises[j]], b[reprises[j]]);
    for (std::size_t i = 0; i < n; ++i)
        controle[i] += d[i] * 0.0;
}

struct Bloc {
    const Programme& p;
    const Arbre* const* arbres;
    const double *u, *v, *w;
    double* const* sorties;
    bool* douteux;
    std::size_t n;
};

VELORIN_EN_LIGNE bool executeBlocSur(const Bloc& b)
{
    alignas(64) double zone[zoneBloc];
    alignas(64) double controle[blocMax];
    const Programme& p = b.p;
    const std::size_t taille = tailleBloc(p), n = b.n;
    double* reg[zoneBloc / 8];
    reg[0] = const_cast<double*>(b.u);
    reg[1] = const_cast<double*>(b.v);
    reg[2] = const_cast<double*>(b.w);
    for (std::size_t r = Programme::premiereConstante; r < p.nbRegistres; ++r)
        reg[r] = zone + (r - Programme::premiereConstante) * taille;
    for (std::size_t k = 0; k < p.constantes.size(); ++k)
        for (std::size_t i = 0; i < n; ++i)
            reg[Programme::premiereConstante + k][i] = p.constantes[k];
    for (std::size_t i = 0; i < n; ++i)
        controle[i] = 0.0;
    for (const Instruction& ins : p.code) {
        double* d = reg[ins.dest];
        const double* a = reg[ins.a];
        const double* c = reg[ins.b];
        selonCode(ins.code, [&]<Code C>() {
            if constexpr (C == Code::Exact) {
                for (std::size_t i = 0; i < n; ++i) {
                    d[i] = evalueNoeudOuNaN(*b.arbres[ins.arbre], ins.noeud, b.u[i], b.v[i], b.w[i]);
                    controle[i] += d[i] * 0.0;
                }
            } else if constexpr (C == Code::Carre || C == Code::Cube) {
                bouclePuissance<C>(d, a, c, controle, n);
            } else if constexpr (memorisee<C>()) {
                boucleMemorisee<C>(d, a, controle, n);
            } else {
                boucle<C>(d, a, c, controle, n);
            }
        });
    }
    for (std::size_t k = 0; k < p.sorties.size(); ++k) {
        const double* resultat = reg[p.sorties[k]];
        double* sortie = b.sorties[k];
        for (std::size_t i = 0; i < n; ++i)
            sortie[i] = resultat[i];
    }
    // controle[i] is +0 or NaN: an OR of the bit patterns finds the NaN.
    std::uint64_t marques = 0;
    for (std::size_t i = 0; i < n; ++i)
        marques |= bitsDe(controle[i]);
    if (marques == 0)
        return false;
    for (std::size_t i = 0; i < n; ++i)
        b.douteux[i] = controle[i] != 0.0;
    return true;
}

bool executeBlocPortable(const Bloc& b)
{
    return executeBlocSur(b);
}

#if VELORIN_X86
// The same loops in AVX2 (four lanes per instruction; no fused
// multiply-add, so every operation rounds as in the portable code).
__attribute__((target("avx2"))) bool executeBlocAvx2(const Bloc& b)
{
    return executeBlocSur(b);
}
#endif

}  // namespace

std::size_t tailleBloc(const Programme& p)
{
    const std::size_t registres = p.nbRegistres;
    std::size_t taille = blocMax;
    while (taille >= 8 && registres * taille > zoneBloc)
        taille /= 2;
    return taille >= 8 ? taille : 0;
}

bool executeBloc(const Programme& p, const Arbre* const* arbres, const double* u, const double* v, const double* w,
                 double* const* sorties, bool* douteux, std::size_t n, Jeu jeu)
{
    const Bloc b{p, arbres, u, v, w, sorties, douteux, n};
#if VELORIN_X86
    if (jeu == Jeu::Auto && avx2EnService())
        return executeBlocAvx2(b);
#else
    (void)jeu;
#endif
    return executeBlocPortable(b);
}

bool avx2EnService()
{
#if VELORIN_X86
    static const bool avx2 = __builtin_cpu_supports("avx2");
    return avx2;
#else
    return false;
#endif
}

double executePoint(const Programme& p, const Arbre& arbre, double u, double v, double w, bool& douteux)
{
    double reg[registresPoint];
    reg[0] = u;
    reg[1] = v;
    reg[2] = w;
    for (std::size_t k = 0; k < p.constantes.size(); ++k)
        reg[Programme::premiereConstante + k] = p.constantes[k];
    bool fini = true;
    for (const Instruction& ins : p.code) {
        const double x = reg[ins.a], y = reg[ins.b];
        double r = 0;
        selonCode(ins.code, [&]<Code C>() {
            if constexpr (C == Code::Exact) {
                r = evalueNoeudOuNaN(arbre, ins.noeud, u, v, w);
            } else if constexpr (C == Code::Carre || C == Code::Cube) {
                bool sur;
                r = puissanceSure<C>(x, sur);
                if (!sur)
                    r = std::pow(x, y);
            } else {
                r = calcule<C>(x, y);
            }
        });
        reg[ins.dest] = r;
        fini &= std::isfinite(r);
    }
    const double resultat = reg[p.sorties[0]];
    douteux = !fini || !std::isfinite(resultat);
    return resultat;
}

#if VELORIN_X86
__attribute__((target("avx"))) static void videMoitiesHautes()
{
    __builtin_ia32_vzeroupper();
}
#endif

void nettoieRegistresVectoriels()
{
#if VELORIN_X86
    static const bool avx = __builtin_cpu_supports("avx");
    if (avx)
        videMoitiesHautes();
#endif
}

}  // namespace velorin::compil
