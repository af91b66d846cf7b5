// The 24 typed fields of the parameter dialog, without any widget: the text
// each field shows, the reading of the typed texts into the parameter
// block, and the remarks that help the user while typing.
//
// A field is evaluated as a constant formula by the formula evaluator (the
// space family, its variables at 0), so "-2P", "P/2", "2*P", "(1)+(2)" are
// accepted, with the evaluator's reading rules ("1.5E-3" is 1.5 - 3: the
// "E-" is a subtraction); the value is then converted into its member's
// type (double, single or 16-bit integer).
#pragma once
#include <array>
#include <string>
#include <vector>

#include "base/erreur.h"
#include "settings/parametres.h"

namespace velorin {

inline constexpr int nbChampsReglage = 24;
using TextesReglage = std::array<std::string, nbChampsReglage>;

// Name of the member a field edits ("xmin", "pauseMs") and the caption of
// the label beside it ("<x<", "Pause en millisecondes").
const char* nomChampReglage(int i);
const char* legendeChampReglage(int i);

// The text each field shows for `p`: the number as the memory file writes
// it (15 significant digits for a double, 7 for a single).
TextesReglage textesReglage(const Parametres& p);

// Reads the 24 texts into the typed members of `p` (field order: xmin,
// xmax, ymin, ymax, zmin, zmax, tmin, tmax, amin, amax, pasT, pasA,
// nbrCalX, nbrCalY, nbrCalZ, Xviseur, Yviseur, Zviseur, pasRota,
// Xdirection, Ydirection, Zdirection, Rotadir, pauseMs). A value that does
// not fit its member (a single beyond single precision, pauseMs outside
// -32768..32767, a viewer or direction coordinate beyond limiteVue, a
// number the reader cannot compute such as "1E999") is
// refused with a French message naming the field; `p` is then untouched.
// A field whose brackets the evaluator cannot read gives the evaluator's
// own "Formule incorrecte" and sets `*incorrecte`: the program then ends,
// as for a formula of a curve.
Erreur lisReglage(const TextesReglage& textes, Parametres& p, bool* incorrecte = nullptr);

// What the user should know about each field while typing, in French: an
// empty list when the field reads as expected.
struct RemarquesChamp {
    std::vector<std::string> textes;
    bool bloquante = false;  // the reading above would refuse this field
    bool lisible = false;    // a value was read: `valeur` holds it
    double valeur = 0;
};
// Remarks on each field: brackets that do not balance (applying would end
// the program), an "E-" exponent, a text that gives no value (it counts 0),
// a value its member cannot hold, a lower bound above its upper bound (or
// equal), a step or a count that is zero or negative. All but the third are
// accepted when applied: they only warn.
std::array<RemarquesChamp, nbChampsReglage> remarquesReglage(const TextesReglage& textes);

}  // namespace velorin
