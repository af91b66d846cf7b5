// Projection of many points at once.
//
// One projection is a chain of square roots and divisions, each waiting for
// the one before: point by point the processor spends most of its time
// waiting. Here four points go through the chain together, in the vector
// registers, with the very operations of `projette` in the same order on the
// same values (IEEE square roots, divisions, products and sums round alike
// in a vector lane and in a scalar register, and no fused multiply-add is
// used), so that every image has the same bits. A point whose chain meets
// anything unusual (a zero divisor, a value that is not finite, a viewer
// abreast of it) is projected again by `projette` itself, which applies the
// rules for those cases.
#include <cmath>
#include <cstddef>

#include "view/projection.h"

#if (defined(__x86_64__) || defined(__i386__)) && defined(__GNUC__)
#include <immintrin.h>
#define VELORIN_PROJECTION_AVX 1
#else
#define VELORIN_PROJECTION_AVX 0
#endif

namespace velorin {

namespace {

void projetteUnParUn(const Parametres& p, const Vue& v, bool modeEspace, const double* x, const double* y,
                     const double* z, std::size_t n, double* sx, double* sy, bool* projete)
{
    for (std::size_t i = 0; i < n; ++i)
        projete[i] = projette(p, v, modeEspace, x[i], y[i], z[i], sx[i], sy[i]);
}

#if VELORIN_PROJECTION_AVX

using V = __m256d;

__attribute__((target("avx"), always_inline)) inline V un(double x)
{
    return _mm256_set1_pd(x);
}

// Lanes whose value is finite (all bits set there).
__attribute__((target("avx"), always_inline)) inline V fini(V x)
{
    const V sansSigne = _mm256_andnot_pd(un(-0.0), x);
    return _mm256_cmp_pd(sansSigne, un(INFINITY), _CMP_LT_OQ);
}

__attribute__((target("avx"), always_inline)) inline V nonNul(V x)
{
    return _mm256_cmp_pd(x, _mm256_setzero_pd(), _CMP_NEQ_UQ);
}

// sqrt of normeCarree(ax - bx, ay - by, az - bz).
__attribute__((target("avx"), always_inline)) inline V distance(V ax, V ay, V az, V bx, V by, V bz)
{
    const V dx = _mm256_sub_pd(ax, bx), dy = _mm256_sub_pd(ay, by), dz = _mm256_sub_pd(az, bz);
    return _mm256_sqrt_pd(
        _mm256_add_pd(_mm256_add_pd(_mm256_mul_pd(dx, dx), _mm256_mul_pd(dy, dy)), _mm256_mul_pd(dz, dz)));
}

// cosinusAngle(a, b, c) where its division is sound; `sain` loses the lanes
// where it is not (cosinusAngle then answers 0: left to projette).
__attribute__((target("avx"), always_inline)) inline V cosinus(V a, V b, V c, V& sain)
{
    const V numerateur = _mm256_sub_pd(_mm256_add_pd(_mm256_mul_pd(b, b), _mm256_mul_pd(c, c)), _mm256_mul_pd(a, a));
    const V diviseur = _mm256_mul_pd(_mm256_mul_pd(un(2), b), c);
    const V q = _mm256_div_pd(numerateur, diviseur);
    sain = _mm256_and_pd(sain, _mm256_and_pd(nonNul(diviseur), fini(q)));
    return q;
}

// Space projection of points [0, n - n % 4); the lanes that are not sound
// are handed back to projette.
__attribute__((target("avx"))) std::size_t projetteEspaceAvx(const Parametres& p, const Vue& v, const double* x,
                                                             const double* y, const double* z, std::size_t n,
                                                             double* sx, double* sy, bool* projete)
{
    const V ox = un(p.Xviseur), oy = un(p.Yviseur), oz = un(p.Zviseur);
    const V cx = un(v.centreVueX), cy = un(v.centreVueY), cz = un(v.centreVueZ);
    const V hx = un(v.repereHX), hy = un(v.repereHY), hz = un(v.repereHZ);
    const V vx = un(v.repereVX), vy = un(v.repereVY), vz = un(v.repereVZ);
    const V largeur = un(v.W - margeEspaceX), hauteur = un(v.H - margeHauteur);
    const std::size_t fin = n - n % 4;
    for (std::size_t i = 0; i < fin; i += 4) {
        const V X = _mm256_loadu_pd(x + i), Y = _mm256_loadu_pd(y + i), Z = _mm256_loadu_pd(z + i);
        const V d1 = distance(X, Y, Z, ox, oy, oz);
        const V d2 = distance(X, Y, Z, cx, cy, cz);
        V sain = _mm256_castsi256_pd(_mm256_set1_epi64x(-1));
        const V c = cosinus(d2, d1, un(1), sain);
        // c == 0 (the point abreast of the viewer) is left to projette.
        sain = _mm256_and_pd(sain, nonNul(c));
        const V k = _mm256_div_pd(un(1), c);
        const V qx0 = _mm256_div_pd(_mm256_mul_pd(_mm256_sub_pd(X, ox), k), d1);
        const V qy0 = _mm256_div_pd(_mm256_mul_pd(_mm256_sub_pd(Y, oy), k), d1);
        const V qz0 = _mm256_div_pd(_mm256_mul_pd(_mm256_sub_pd(Z, oz), k), d1);
        sain = _mm256_and_pd(sain,
                             _mm256_and_pd(nonNul(d1), _mm256_and_pd(fini(qx0), _mm256_and_pd(fini(qy0), fini(qz0)))));
        const V qx = _mm256_add_pd(qx0, ox), qy = _mm256_add_pd(qy0, oy), qz = _mm256_add_pd(qz0, oz);
        const V r = distance(qx, qy, qz, cx, cy, cz);
        const V s1 = distance(qx, qy, qz, hx, hy, hz);
        const V s2 = distance(qx, qy, qz, vx, vy, vz);
        const V c1 = cosinus(s1, r, un(0.2), sain);
        const V c2 = cosinus(s2, r, un(0.2), sain);
        // A half is exact: x / 2 and x * 0.5 are the same number.
        const V ex = _mm256_mul_pd(_mm256_mul_pd(largeur, _mm256_add_pd(_mm256_mul_pd(r, c1), un(1))), un(0.5));
        const V ey = _mm256_mul_pd(_mm256_mul_pd(hauteur, _mm256_sub_pd(un(1), _mm256_mul_pd(r, c2))), un(0.5));
        sain = _mm256_and_pd(sain, _mm256_and_pd(fini(ex), fini(ey)));
        _mm256_storeu_pd(sx + i, ex);
        _mm256_storeu_pd(sy + i, ey);
        const int masque = _mm256_movemask_pd(sain);
        for (int j = 0; j < 4; ++j)
            projete[i + j] =
                (masque >> j & 1) || projette(p, v, true, x[i + j], y[i + j], z[i + j], sx[i + j], sy[i + j]);
    }
    return fin;
}

bool avxEnService()
{
    static const bool avx = __builtin_cpu_supports("avx");
    return avx;
}

#endif

}  // namespace

void projettePoints(const Parametres& p, const Vue& v, bool modeEspace, const double* x, const double* y,
                    const double* z, std::size_t n, double* sx, double* sy, bool* projete)
{
    std::size_t fait = 0;
#if VELORIN_PROJECTION_AVX
    if (modeEspace && !v.cavaliere.active && avxEnService())
        fait = projetteEspaceAvx(p, v, x, y, z, n, sx, sy, projete);
#endif
    projetteUnParUn(p, v, modeEspace, x + fait, y + fait, z + fait, n - fait, sx + fait, sy + fait, projete + fait);
}

}  // namespace velorin
