// Thinning a polyline for the vector files (SVG, PDF): a point is dropped
// when the straight run from the last kept point to a later one passes
// within `tolerance` of it (and of every point dropped before it), so that
// points far closer together than a pixel, or lying on a straight stretch,
// do not fill the file. Consecutive points within the tolerance of the last
// kept one merge into it. The first and last points are always kept, and a
// point where the line turns back is kept however close it lies to the run's
// line: the distance is to the segment, not to the infinite line.
// Bitmaps never go through here: their pixels stay exactly as drawn.
#pragma once
#include <cstddef>
#include <vector>

namespace velorin {

struct PointPlan {
    double x = 0, y = 0;
    bool operator==(const PointPlan&) const = default;
};

// A straight run never replaces more than this many points, so that thinning
// costs a bounded time per point however long and straight the line is.
inline constexpr std::size_t pointsParRunMax = 64;

// Keeps in `points` only the points the tolerance requires, in order.
void simplifiePolyligne(std::vector<PointPlan>& points, double tolerance);

}  // namespace velorin
