#include <gtest/gtest.h>

#include "view/surface.h"

namespace velorin {

TEST(Palette, CouleursDeConsoleRougeDansLOctetBas)
{
    struct Cas {
        int index;
        Couleur attendu;
    };
    for (Cas c : {Cas{0, 0x000000}, Cas{1, 0x800000}, Cas{4, 0x000080}, Cas{7, 0xC0C0C0}, Cas{9, 0xFF0000},
                  Cas{12, 0x0000FF}, Cas{14, 0x00FFFF}, Cas{15, 0xFFFFFF}})
        EXPECT_EQ(QBColor(c.index), c.attendu) << c.index;
}

}  // namespace velorin
