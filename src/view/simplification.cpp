#include "view/simplification.h"

namespace velorin {

namespace {

// Square of the distance from p to the segment [a, b].
double distance2(PointPlan p, PointPlan a, PointPlan b)
{
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double l2 = dx * dx + dy * dy;
    double t = l2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / l2 : 0;
    t = t < 0 ? 0 : (t > 1 ? 1 : t);
    const double ex = a.x + t * dx - p.x, ey = a.y + t * dy - p.y;
    return ex * ex + ey * ey;
}

}  // namespace

void simplifiePolyligne(std::vector<PointPlan>& points, double tolerance)
{
    const std::size_t n = points.size();
    if (n < 3 || !(tolerance > 0))
        return;
    const double t2 = tolerance * tolerance;
    std::size_t gardes = 1;  // points[0 .. gardes) are the kept ones
    std::size_t ancre = 0;   // index of the last kept point in the input
    PointPlan a = points[0];
    for (std::size_t j = ancre + 2; j < n; ++j) {
        bool couvre = j - ancre <= pointsParRunMax;
        for (std::size_t k = ancre + 1; couvre && k < j; ++k)
            couvre = distance2(points[k], a, points[j]) < t2;
        if (!couvre) {
            // The run cannot reach j: the point before it is kept.
            ancre = j - 1;
            a = points[ancre];
            points[gardes++] = a;
        }
    }
    points[gardes++] = points[n - 1];
    points.resize(gardes);
}

}  // namespace velorin
