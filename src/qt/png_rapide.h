// Writing a drawing as PNG quickly. A drawing is mostly long runs of the
// background colour: no row filter and zlib's run-length strategy at level
// 1 write it several times faster than the general PNG writer, in a file a
// few hundred times smaller than an uncompressed one.
#pragma once
#include <QImage>
#include <string>

#include "base/ecriture.h"
#include "base/erreur.h"

namespace velorin {

// Writes `image` (any format; stored as 8-bit RGB, 96 dpi) to `chemin`.
Erreur ecrisPngRapide(const QImage& image, const std::string& chemin);
// The same into a file being written whole; the caller finishes it.
Erreur ecrisPngRapide(const QImage& image, EcritureEntiere& fichier);

}  // namespace velorin
