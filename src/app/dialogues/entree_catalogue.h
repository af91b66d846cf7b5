// What the three editors (functions, objects, clouds) share around their
// catalogue list: filling it, and storing an entry by the list's rule (the
// blue header line appends, any other line is written over).
#pragma once
#include <string>

#include "app/boites.h"
#include "catalogue/catalogue.h"

class QListWidget;
class QWidget;

namespace velorin {

// A catalogue list "List2" in a fixed-width font, so that the record numbers
// line up.
QListWidget* nouvelleListeCatalogue(QWidget* parent);

// The list of the catalogue in `liste`: the header line in blue, then one
// line per record; the header is selected. A catalogue that cannot be read
// is said in a message box (the list keeps what could be read).
void remplisListeCatalogue(QListWidget* liste, Catalogue& catalogue, const Boites& boites, QWidget* parent);

// Stores the entry of kind `genre` and text `texte` at the record chosen in
// `liste`, then fills the list again. False (after a message box) when the
// catalogue could not be opened or written.
bool enregistreEntree(QListWidget* liste, Catalogue& catalogue, int genre, const std::string& texte,
                      const Boites& boites, QWidget* parent);

}  // namespace velorin
