// The labels drawn on a drawing surface, so that an image, an export or a
// printed page shows them where they stand over the window's drawing.
#pragma once
#include "plot/etiquettes.h"
#include "view/surface.h"

namespace velorin {

// Draws every label after the template (lb[0] never) that is visible and
// has a caption, in its font, size, style and colour (24 bits), its first
// line's top left corner at its position (twips); a caption of several
// lines steps down from there. The surface's pen and font state are put
// back as they were.
void dessineEtiquettes(const Etiquettes& etiquettes, Surface& surface);

}  // namespace velorin
