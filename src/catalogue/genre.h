// The kinds of catalogue entries: the 16-bit value at the head of each
// record, which also chooses the tracer. The file holds the number; a value
// that is none of these (10 to 13 are never written) is drawn as a cloud.
#pragma once
#include <cstdint>

namespace velorin {

enum GenreEntree : std::int16_t {
    genreExplicite = 0,          // y = f(x), plane only
    genreCourbeParametree = 1,   // x, y, z of t
    genreSurfaceParametree = 2,  // x, y, z of (a, t)
    genreCourbeSpherique = 3,    // radius, longitude, azimuth of t
    genreSurfaceSpherique = 4,   // radius, longitude, azimuth of (a, t)
    genreDroite = 5,             // line D(M,u): a point and a direction
    genrePlanParametre = 6,      // plane P(M,u,v): a point and two directions
    genrePlanEquation = 7,       // plane by its equation (a line in the plane)
    genreSegment = 8,            // segment [MN]
    genrePoint = 9,              // point M
    genreNuagePlan = 14,         // cloud g(x) < f(x) < h(x)
    genreNuageEspace = 15,       // cloud g(x,y) < f(x,y) < h(x,y)
};

// A kind that some editor writes (0 to 9, 14, 15). The others are drawn as
// clouds all the same.
constexpr bool estGenreEcrit(int genre)
{
    return (genre >= genreExplicite && genre <= genrePoint) || genre == genreNuagePlan || genre == genreNuageEspace;
}

// A function of the function editor (kinds 0 to 4): formulas cut at "][".
constexpr bool estGenreFonction(int genre)
{
    return genre >= genreExplicite && genre <= genreSurfaceSpherique;
}

// A geometric object (kinds 5 to 9): named pieces "D(M,u):[", "Plan:[", ...
constexpr bool estGenreObjet(int genre)
{
    return genre >= genreDroite && genre <= genrePoint;
}

}  // namespace velorin
