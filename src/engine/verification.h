// A reader's check of a prepared formula: where the evaluator reads the text
// otherwise than a reader of school mathematics would ("SIN(X)+1" worth
// sin x, "2X" worth nothing, "1.5E-3" cut at the "-"...), a French remark
// with the position and, when one exists, a rewriting that the evaluator
// reads as intended. The check reads the text only; it never changes a value.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/lecture.h"

namespace velorin {

struct Remarque {
    std::size_t position = 0;  // 0-based index in the checked text
    std::string texte;         // what the evaluator does, in French
    std::string proposition;   // the whole formula rewritten, or empty
    // The text is not drawn at all: its brackets are refused before tracing,
    // or they stop the evaluator, which then ends the program. Shown as an
    // error (red), where the other remarks only warn.
    bool erreur = false;
};

// The remarks on a formula prepared as the plot request prepares it
// (brackets unified, blanks and left-hand side removed, normalised), in the
// order of their positions. None for a text read as it reads. Brackets that
// end the program (a ")" before its "(", two groups with no operator
// between them, "(X)(X)") are always told, whatever else the text holds.
std::vector<Remarque> verifieFormule(std::string_view formule, Famille famille);

// One remark on one line: "position 4 : ... Écrivez : ...".
std::string texteRemarque(const Remarque& r);

}  // namespace velorin
