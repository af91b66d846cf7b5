// The depth image of the faces of a space drawing: what is nearest the
// viewer at each pixel of the output, and which pieces of a segment of space
// lie behind it.
//
// Faces are rasterised at the output's pixel resolution (surface units per
// pixel), keeping at each pixel the inverse of the nearest depth: over a flat
// face seen through the projection the inverse of the depth is affine on the
// picture, so it is interpolated linearly between the corners. A segment is
// sampled about once a pixel along its image, its own inverse depth
// interpolated the same way, and a sample is hidden when the faces at and
// around its pixel are all nearer than it by more than a small tolerance: the
// mesh lines of a surface, which lie on the edges of its own faces, are not
// hidden by them.
#pragma once
#include <cstddef>
#include <vector>

namespace velorin {

class ImageProfondeur {
public:
    // An image of the part [x0, x1] x [y0, y1] of a surface at `unite`
    // units a pixel (the pixel grows so that the image never holds more than
    // maxPixels); nothing is hidden outside it. Pixels lie on the surface's
    // own grid of `unite`, whatever the part.
    ImageProfondeur(double x0, double y0, double x1, double y1, double unite);
    ~ImageProfondeur();
    ImageProfondeur(const ImageProfondeur&) = delete;
    ImageProfondeur& operator=(const ImageProfondeur&) = delete;

    static constexpr double maxPixels = 4e6;

    // The triangle of corners (xs[i], ys[i]) on the surface at depths ps[i].
    // A triangle with a corner at or behind the viewer (depth <= 0 or not
    // finite) is left out.
    void triangle(const double* xs, const double* ys, const double* ps);
    // A convex polygon of n corners, as the fan of its triangles.
    void polygone(const double* xs, const double* ys, const double* ps, int n);

    // Call once every face is in, before the first question.
    void acheve();

    // A piece [u0, u1] of a segment (u from 0 at its first end to 1 at its
    // last), seen or hidden.
    struct Morceau {
        double u0, u1;
        bool cache;
    };
    // The pieces of the segment from (x1, y1) at depth p1 to (x2, y2) at
    // depth p2, in order, alternating seen and hidden, covering [0, 1]. A
    // segment with an end at or behind the viewer is one seen piece.
    void decoupe(double x1, double y1, double p1, double x2, double y2, double p2,
                 std::vector<Morceau>& morceaux) const;

    // Whether (x, y) at depth p is hidden by a face.
    bool cache(double x, double y, double p) const;

private:
    // Whether a sample at pixel (i, j) with inverse depth w is hidden.
    bool cachePixel(int i, int j, double w) const;

    int l_ = 0, h_ = 0;
    int i0_ = 0, j0_ = 0;  // the surface's pixel at the image's (0, 0)
    double unite_ = 15;
    // 1 / nearest depth, 0 where no face is; once complete, the farthest of
    // each pixel's 3 x 3 neighbourhood.
    std::vector<float> inverse_;
    bool vide_ = true, acheve_ = false;
};

}  // namespace velorin
