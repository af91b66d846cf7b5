// The drawn-curves table: one row of 32 values per drawn curve, enough to
// redraw the curve exactly as first drawn. The column order is also the
// order of the figure file.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

namespace velorin {

using LigneCourbe = std::array<double, 32>;

struct TableCourbes {
    std::vector<LigneCourbe> lignes;
    std::int16_t nbCourbes = 0;
};

}  // namespace velorin
