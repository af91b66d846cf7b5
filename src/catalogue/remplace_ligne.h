// Changing one record of a catalogue by replacing the whole file: the
// records go to a temporary beside the catalogue with the one record changed
// or added, and the temporary takes the catalogue's name by one rename. At
// no moment does the file hold a half-written record: if anything fails, or
// if the process is stopped, the catalogue stays exactly as it was. For the
// command line, where nobody is there to see a failure half-way.
#pragma once
#include "base/erreur.h"
#include "catalogue/catalogue.h"

namespace velorin {

// Record n (1..nbLignesCatalogue + 1; the last value appends) becomes
// `ligne`, as ecrisLigne writes it. The count is taken again from the file
// first. A trailing partial record stays behind a changed record and is
// replaced by an appended one, as writing in place would do.
Erreur remplaceLigne(Catalogue& cat, NumeroLigne n, const LigneCatalogue& ligne);

}  // namespace velorin
