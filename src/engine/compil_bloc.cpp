#include "engine/compil_bloc.h"

#include <cmath>
#include <cstring>

#include "engine/compil_arbre.h"

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
    const std::uint64_t b = bitsDe(r);
    const double ulp = doubleDe(b & 0x7FF0000000000000ull) * 0x1p-52;
    const double taille = std::fabs(r);
    return std::fabs(reste) < 0.45 * ulp && (b & 0x000FFFFFFFFFFFFFull) != 0 && taille > 0x1p-900
           && taille < 0x1p900;
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

template <class F>
void uneOperande(double* __restrict d, const double* __restrict a, std::size_t n, F f)
{
    for (std::size_t i = 0; i < n; ++i) d[i] = f(a[i]);
}

template <class F>
void deuxOperandes(double* __restrict d, const double* __restrict a, const double* __restrict b,
                   std::size_t n, F f)
{
    for (std::size_t i = 0; i < n; ++i) d[i] = f(a[i], b[i]);
}

template <class F>
void puissanceRapide(double* __restrict d, const double* __restrict a, const double* __restrict b,
                     std::size_t n, F rapide)
{
    bool ok[blocMax];
    for (std::size_t i = 0; i < n; ++i) d[i] = rapide(a[i], ok[i]);
    for (std::size_t i = 0; i < n; ++i)
        if (!ok[i]) d[i] = std::pow(a[i], b[i]);
}

}  // namespace

std::size_t tailleBloc(const Programme& p)
{
    const std::size_t registres = p.nbRegistres;
    std::size_t taille = blocMax;
    while (taille >= 8 && registres * taille > zoneBloc) taille /= 2;
    return taille >= 8 ? taille : 0;
}

void executeBloc(const Programme& p, const Arbre& arbre, const double* u, const double* v,
                 const double* w, double* sortie, bool* douteux, std::size_t n)
{
    alignas(64) double zone[zoneBloc];
    alignas(64) double controle[blocMax];
    const std::size_t taille = tailleBloc(p);
    double* reg[zoneBloc / 8];
    reg[0] = const_cast<double*>(u);
    reg[1] = const_cast<double*>(v);
    reg[2] = const_cast<double*>(w);
    for (std::size_t r = Programme::premiereConstante; r < p.nbRegistres; ++r)
        reg[r] = zone + (r - Programme::premiereConstante) * taille;
    for (std::size_t k = 0; k < p.constantes.size(); ++k)
        for (std::size_t i = 0; i < n; ++i) reg[Programme::premiereConstante + k][i] = p.constantes[k];
    for (std::size_t i = 0; i < n; ++i) controle[i] = 0.0;

    for (const Instruction& ins : p.code) {
        double* d = reg[ins.dest];
        const double* a = reg[ins.a];
        const double* b = reg[ins.b];
        switch (ins.code) {
        case Code::Ajoute: deuxOperandes(d, a, b, n, [](double x, double y) { return x + y; }); break;
        case Code::Soustrait: deuxOperandes(d, a, b, n, [](double x, double y) { return x - y; }); break;
        case Code::Multiplie: deuxOperandes(d, a, b, n, [](double x, double y) { return x * y; }); break;
        case Code::Divise: deuxOperandes(d, a, b, n, [](double x, double y) { return x / y; }); break;
        case Code::Puissance:
            deuxOperandes(d, a, b, n, [](double x, double y) { return std::pow(x, y); });
            break;
        case Code::Oppose: uneOperande(d, a, n, [](double x) { return -x; }); break;
        case Code::PlusZero: uneOperande(d, a, n, [](double x) { return x + 0.0; }); break;
        case Code::Carre: puissanceRapide(d, a, b, n, carreSur); break;
        case Code::Cube: puissanceRapide(d, a, b, n, cubeSur); break;
        case Code::Sinus: uneOperande(d, a, n, [](double x) { return std::sin(x); }); break;
        case Code::Cosinus: uneOperande(d, a, n, [](double x) { return std::cos(x); }); break;
        case Code::Tangente: uneOperande(d, a, n, [](double x) { return std::tan(x); }); break;
        case Code::Exponentielle: uneOperande(d, a, n, [](double x) { return std::exp(x); }); break;
        case Code::Logarithme: uneOperande(d, a, n, [](double x) { return std::log(x); }); break;
        case Code::ArcTangente: uneOperande(d, a, n, [](double x) { return std::atan(x); }); break;
        case Code::Absolu: uneOperande(d, a, n, [](double x) { return std::fabs(x); }); break;
        case Code::Plancher: uneOperande(d, a, n, [](double x) { return std::floor(x); }); break;
        case Code::RacineSinonZero:
            uneOperande(d, a, n, [](double x) { return x >= 0 ? std::sqrt(x) : 0.0; });
            break;
        case Code::Exact:
            for (std::size_t i = 0; i < n; ++i)
                d[i] = evalueNoeudOuNaN(arbre, ins.noeud, u[i], v[i], w[i]);
            break;
        }
        // x * 0 is 0 for a finite x and NaN otherwise: the NaN stays in the lane.
        for (std::size_t i = 0; i < n; ++i) controle[i] += d[i] * 0.0;
    }
    const double* resultat = reg[p.sortie];
    for (std::size_t i = 0; i < n; ++i) {
        sortie[i] = resultat[i];
        if (controle[i] != 0.0) douteux[i] = true;
    }
}

__attribute__((target("avx"))) static void videMoitiesHautes()
{
    __builtin_ia32_vzeroupper();
}

void nettoieRegistresVectoriels()
{
    static const bool avx = __builtin_cpu_supports("avx");
    if (avx) videMoitiesHautes();
}

}  // namespace velorin::compil
