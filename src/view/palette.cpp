#include "view/surface.h"

namespace velorin {

// Console palette: black, blue, green, cyan, red, magenta, yellow, white,
// then the bright forms. Red in the low byte.
Couleur QBColor(int index)
{
    static const Couleur palette[16] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
                                        0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    return palette[index & 15];
}

}  // namespace velorin
