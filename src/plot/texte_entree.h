// The text of a catalogue entry, built from the boxes of the editor that
// writes its kind: the function editor (kinds 0 to 4, each formula behind
// its prompt), the object editor (kinds 5 to 9, named pieces in square
// brackets) and the cloud editor (kinds 14 and 15, g<f<h). Every typed piece
// has its brackets unified and its outer blanks removed, so that a stored
// piece never holds a square bracket and "[" "]" can separate the pieces.
// The window's editors and `velorin catalogue ajoute` both build their texts
// here.
#pragma once
#include <array>
#include <string>
#include <vector>

#include "base/erreur.h"
#include "engine/lecture.h"

namespace velorin {

// The prompts of the five function types (kind 0 to 4), as shown in front of
// the three formula boxes and stored in the entry texts; kind 0 has the
// first only (the editor leaves the other two prompts as they were).
extern const std::array<std::array<const char*, 3>, 5> invitesFonctions;

// The prompts the function editor shows when it opens on `genre` (0 to 4):
// those of the table, empty where the kind has none.
std::array<std::string, 3> invitesDuGenre(int genre);

// The boxes an editor reads for `genre` in the mode, by their index (0 to
// 2) in the editor's array of boxes, in the order their pieces are stored:
//   0 to 4: the formula boxes: the first; the second when the kind is above
//           0; the third in space (so kind 0 in space reads boxes 0 and 2);
//   5: M, u; 6: M, u, v (space only); 7: the equation; 8: M1, M2; 9: M;
//   14, 15: g, f, h.
// Empty for a kind that no editor writes in this mode.
std::vector<int> boitesLues(int genre, bool modeEspace);

// A typed piece as stored: brackets unified, outer blanks removed.
std::string pieceEntree(const std::string& tape);

// The entry text of `genre` from the editor's boxes: `boites` holds the typed
// texts by box index (only the boxes read are used), `invites` the function
// editor's prompts as they stand (kinds 0 to 4 only). The text is not cut:
// the record keeps its first 300 characters.
std::string texteEntree(int genre, bool modeEspace, const std::array<std::string, 3>& invites,
                        const std::array<std::string, 3>& boites);

// The evaluator family that reads the formulas of `genre`: space for
// kinds 0, 1 and 3 (one variable), plane for the surfaces 2 and 4 (a, t),
// cloud for 14, 15 and any other kind.
Famille familleDuGenre(int genre);

// Why the entry typed in the boxes of `genre` would not be drawn, checked
// as the plot request and the tracers read it back from its text: a formula
// whose brackets are refused or stop the evaluator (which then ends the
// program), coordinates or an equation the object tracers cannot read. The
// French message names the box and says that nothing is written; nothing
// when the entry draws.
Erreur verifieEntree(int genre, bool modeEspace, const std::array<std::string, 3>& boites);

// How the boxes read for `genre` are named to the user: "la formule x=f1(t)=",
// "le point M", "la fonction g"...; one name per box of boitesLues.
std::vector<std::string> nomsDesBoites(int genre, bool modeEspace);

}  // namespace velorin
