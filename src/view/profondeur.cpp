#include "view/profondeur.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

// A sample is hidden only by faces nearer than it by more than this part of
// its depth: rounding of the interpolation must never hide a line lying on
// a face.
constexpr double toleranceRelative = 1e-3;
// Samples along a segment at most (a segment across a huge picture).
constexpr double maxEchantillons = 1e5;

bool devant(double p)
{
    return std::isfinite(p) && p > 0;
}

}  // namespace

// The pixels of the last image, kept for the next one: a redraw while the
// view is dragged gets its memory without asking the system again.
thread_local std::vector<float> reserve;

ImageProfondeur::ImageProfondeur(double x0, double y0, double x1, double y1, double unite)
{
    unite_ = unite > 0 ? unite : 15;
    if (!(x1 > x0) || !(y1 > y0) || !std::isfinite(x1 - x0) || !std::isfinite(y1 - y0)) {
        x0 = y0 = 0;
        x1 = y1 = unite_;
    }
    if ((x1 - x0) / unite_ * ((y1 - y0) / unite_) > maxPixels)
        unite_ = std::sqrt((x1 - x0) * (y1 - y0) / maxPixels);
    i0_ = static_cast<int>(std::floor(x0 / unite_));
    j0_ = static_cast<int>(std::floor(y0 / unite_));
    l_ = std::max(1, static_cast<int>(std::ceil(x1 / unite_)) - i0_);
    h_ = std::max(1, static_cast<int>(std::ceil(y1 / unite_)) - j0_);
    inverse_.swap(reserve);
    inverse_.assign(static_cast<std::size_t>(l_) * static_cast<std::size_t>(h_), 0.0F);
}

ImageProfondeur::~ImageProfondeur()
{
    if (inverse_.capacity() > reserve.capacity())
        inverse_.swap(reserve);
}

void ImageProfondeur::triangle(const double* xs, const double* ys, const double* ps)
{
    double X[3], Y[3], w[3];
    for (int k = 0; k < 3; ++k) {
        if (!devant(ps[k]) || !std::isfinite(xs[k]) || !std::isfinite(ys[k]))
            return;
        // Pixel (i, j) has its centre at X = i, Y = j.
        X[k] = xs[k] / unite_ - 0.5 - i0_;
        Y[k] = ys[k] / unite_ - 0.5 - j0_;
        w[k] = 1 / ps[k];
    }
    const double aire = (X[1] - X[0]) * (Y[2] - Y[0]) - (X[2] - X[0]) * (Y[1] - Y[0]);
    if (!(std::abs(aire) > 1e-12))
        return;
    const double xmin = std::min({X[0], X[1], X[2]}), xmax = std::max({X[0], X[1], X[2]});
    const double ymin = std::min({Y[0], Y[1], Y[2]}), ymax = std::max({Y[0], Y[1], Y[2]});
    if (xmax < 0 || ymax < 0 || xmin > l_ - 1 || ymin > h_ - 1)
        return;
    const int i0 = std::max(0, static_cast<int>(std::ceil(xmin))), i1 = std::min(l_ - 1, static_cast<int>(xmax));
    const int j0 = std::max(0, static_cast<int>(std::ceil(ymin))), j1 = std::min(h_ - 1, static_cast<int>(ymax));
    // Barycentric weights as affine functions of the pixel: b_k = a_k i + c_k j + d_k.
    double a[3], c[3], d[3];
    for (int k = 0; k < 3; ++k) {
        const int m = (k + 1) % 3, n = (k + 2) % 3;
        a[k] = (Y[m] - Y[n]) / aire;
        c[k] = (X[n] - X[m]) / aire;
        d[k] = (X[m] * Y[n] - X[n] * Y[m]) / aire;
    }
    // A centre on a shared edge belongs to both faces: no crack between them.
    constexpr double bord = -1e-9;
    const double wi = a[0] * w[0] + a[1] * w[1] + a[2] * w[2];
    const double wj = c[0] * w[0] + c[1] * w[1] + c[2] * w[2];
    const double wd = d[0] * w[0] + d[1] * w[1] + d[2] * w[2];
    double inverseA[3];
    for (int k = 0; k < 3; ++k)
        inverseA[k] = a[k] != 0 ? 1 / a[k] : 0;
    for (int j = j0; j <= j1; ++j) {
        // The span of the row where every weight is >= bord: a_k i >= bord - (c_k j + d_k).
        double bas = i0, haut = i1;
        for (int k = 0; k < 3; ++k) {
            const double reste = bord - (c[k] * j + d[k]);
            if (a[k] > 0)
                bas = std::max(bas, std::ceil(reste * inverseA[k] - 1e-9));
            else if (a[k] < 0)
                haut = std::min(haut, std::floor(reste * inverseA[k] + 1e-9));
            else if (reste > 0)
                haut = bas - 1;
        }
        if (bas > haut)
            continue;
        float* ligne = inverse_.data() + static_cast<std::size_t>(j) * static_cast<std::size_t>(l_);
        const int ia = static_cast<int>(bas), ib = static_cast<int>(haut);
        double v = wi * ia + wj * j + wd;
        for (int i = ia; i <= ib; ++i, v += wi)
            if (static_cast<float>(v) > ligne[i])
                ligne[i] = static_cast<float>(v);
    }
    vide_ = false;
}

void ImageProfondeur::polygone(const double* xs, const double* ys, const double* ps, int n)
{
    for (int k = 1; k + 1 < n; ++k) {
        const double tx[3] = {xs[0], xs[k], xs[k + 1]}, ty[3] = {ys[0], ys[k], ys[k + 1]},
                     tp[3] = {ps[0], ps[k], ps[k + 1]};
        triangle(tx, ty, tp);
    }
}

void ImageProfondeur::acheve()
{
    // The farthest of the 3 x 3 neighbourhood, in place: rows, then columns
    // with the row above kept as it was.
    const std::size_t L = static_cast<std::size_t>(l_);
    std::vector<float> ligne(L), dessus(L), courante(L);
    for (int j = 0; j < h_; ++j) {
        float* r = inverse_.data() + static_cast<std::size_t>(j) * L;
        std::copy(r, r + L, ligne.begin());
        for (int i = 0; i < l_; ++i)
            r[i] = std::min({ligne[std::size_t(std::max(i - 1, 0))], ligne[std::size_t(i)],
                             ligne[std::size_t(std::min(i + 1, l_ - 1))]});
    }
    for (int j = 0; j < h_; ++j) {
        float* r = inverse_.data() + static_cast<std::size_t>(j) * L;
        const float* dessous = inverse_.data() + static_cast<std::size_t>(std::min(j + 1, h_ - 1)) * L;
        std::copy(r, r + L, courante.begin());
        const float* haut = j == 0 ? courante.data() : dessus.data();
        for (std::size_t i = 0; i < L; ++i)
            r[i] = std::min({haut[i], courante[i], dessous[i]});
        dessus.swap(courante);
    }
    acheve_ = true;
}

bool ImageProfondeur::cachePixel(int i, int j, double w) const
{
    i -= i0_;
    j -= j0_;
    if (i < 0 || j < 0 || i >= l_ || j >= h_)
        return false;
    return inverse_[static_cast<std::size_t>(j) * static_cast<std::size_t>(l_) + static_cast<std::size_t>(i)] >
           w * (1 + toleranceRelative);
}

bool ImageProfondeur::cache(double x, double y, double p) const
{
    if (vide_ || !acheve_ || !devant(p) || !std::isfinite(x) || !std::isfinite(y))
        return false;
    return cachePixel(static_cast<int>(std::floor(x / unite_)), static_cast<int>(std::floor(y / unite_)), 1 / p);
}

void ImageProfondeur::decoupe(double x1, double y1, double p1, double x2, double y2, double p2,
                              std::vector<Morceau>& morceaux) const
{
    morceaux.clear();
    const double longueur = std::hypot(x2 - x1, y2 - y1) / unite_;
    if (vide_ || !acheve_ || !devant(p1) || !devant(p2) || !std::isfinite(longueur)) {
        morceaux.push_back({0, 1, false});
        return;
    }
    const int n = static_cast<int>(std::clamp(std::ceil(longueur), 1.0, maxEchantillons));
    const double w1 = 1 / p1, w2 = 1 / p2;
    // The state of each sample, then a lone sample between two of the other
    // state takes theirs: no dash of one pixel along a line that grazes a face.
    thread_local std::vector<char> etats;
    etats.assign(static_cast<std::size_t>(n), 0);
    // In pixels of the image, stepping from the middle of the first sample.
    const double px = x1 / unite_ - i0_, py = y1 / unite_ - j0_;
    const double dx = (x2 - x1) / unite_ / n, dy = (y2 - y1) / unite_ / n, dw = (w2 - w1) / n;
    const std::size_t L = static_cast<std::size_t>(l_);
    for (int k = 0; k < n; ++k) {
        const double x = px + (k + 0.5) * dx, y = py + (k + 0.5) * dy;
        if (!(x >= 0 && y >= 0 && x < l_ && y < h_))
            continue;  // outside the image: seen
        const float loin = inverse_[static_cast<std::size_t>(y) * L + static_cast<std::size_t>(x)];
        etats[static_cast<std::size_t>(k)] = loin > (w1 + (k + 0.5) * dw) * (1 + toleranceRelative);
    }
    for (std::size_t k = 1; k + 1 < etats.size(); ++k)
        if (etats[k] != etats[k - 1] && etats[k - 1] == etats[k + 1])
            etats[k] = etats[k - 1];
    int debut = 0;
    for (int k = 1; k <= n; ++k)
        if (k == n || etats[static_cast<std::size_t>(k)] != etats[static_cast<std::size_t>(debut)]) {
            morceaux.push_back({double(debut) / n, k == n ? 1.0 : double(k) / n,
                                etats[static_cast<std::size_t>(debut)] != 0});
            debut = k;
        }
}

}  // namespace velorin
