// The depth image: what its faces hide at a point, and how a segment is cut
// into seen and hidden pieces.
#include "view/profondeur.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

// 200 x 200 pixels of 15 units. A flat face at depth 10 over the upper left
// half, and a face going from depth 10 at x = 0 to depth 40 at x = 3000.
TEST(ImageProfondeur, CacheEnUnPoint)
{
    const double xs[3] = {0, 3000, 0}, ys[3] = {0, 0, 3000};
    const double plat[3] = {10, 10, 10}, penche[3] = {10, 40, 10};
    struct Cas {
        const char* faute;
        const double* profondeurs;
        double x, y, p;
        bool cache;
    } const cas[] = {
        {"un point derrière la face vu", plat, 300, 300, 20, true},
        {"un point devant la face caché", plat, 300, 300, 5, false},
        {"une ligne posée sur sa face cachée", plat, 300, 300, 10, false},
        {"caché hors de la face", plat, 2700, 2700, 20, false},
        {"caché derrière le spectateur", plat, 300, 300, -5, false},
        // Pixel 99 of 200: 1/depth at 0.4975 of the way is 0.0627, depth 15.95 (the depth itself
        // interpolated would give 24.9).
        {"l'inverse de la profondeur non interpolé (derrière)", penche, 1492.5, 300, 16.2, true},
        {"l'inverse de la profondeur non interpolé (devant)", penche, 1492.5, 300, 15.7, false},
    };
    for (const Cas& c : cas) {
        ImageProfondeur image(0, 0, 3000, 3000, 15);
        image.triangle(xs, ys, c.profondeurs);
        image.acheve();
        EXPECT_EQ(image.cache(c.x, c.y, c.p), c.cache) << c.faute;
    }
}

// A band x in [900, 2100] at depth 10 across the image; segments along y = 1500.
TEST(ImageProfondeur, DecoupeUnSegment)
{
    const double xs[4] = {900, 2100, 2100, 900}, ys[4] = {0, 0, 3000, 3000}, ps[4] = {10, 10, 10, 10};
    struct Cas {
        const char* faute;
        double p1, p2;
        std::vector<double> bords;  // where the pieces change, the first piece seen
    } const cas[] = {
        {"la partie derrière la bande non cachée", 20, 20, {0.3, 0.7}},
        {"un segment devant la bande caché", 5, 5, {}},
        {"un segment posé sur la bande caché", 10, 10, {}},
        {"un bout derrière le spectateur découpé", -1, 20, {}},
        // 1/depth from 1/5 to 1/40 reaches 1/10 at 4/7 of the way (the depth itself at 1/7).
        {"la profondeur le long du segment non interpolée par son inverse", 5, 40, {4.0 / 7, 0.7}},
    };
    for (const Cas& c : cas) {
        ImageProfondeur image(0, 0, 3000, 3000, 15);
        image.polygone(xs, ys, ps, 4);
        image.acheve();
        std::vector<ImageProfondeur::Morceau> morceaux;
        image.decoupe(0, 1500, c.p1, 3000, 1500, c.p2, morceaux);
        ASSERT_EQ(morceaux.size(), c.bords.size() + 1) << c.faute;
        for (std::size_t i = 0; i < morceaux.size(); ++i) {
            EXPECT_EQ(morceaux[i].cache, i % 2 == 1) << c.faute;
            EXPECT_NEAR(morceaux[i].u0, i == 0 ? 0 : c.bords[i - 1], 0.011) << c.faute;  // two pixels
            EXPECT_NEAR(morceaux[i].u1, i == c.bords.size() ? 1 : c.bords[i], 0.011) << c.faute;
        }
    }
}

}  // namespace
}  // namespace velorin
