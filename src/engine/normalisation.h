// Preparation of formula texts typed in school-book form ("y = 2sin(x)",
// "z=[x+1]^2") into the strict form the evaluator reads.
#pragma once
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace velorin {

// The kind of function whose text is taken as typed (no left-hand side
// removal, no normalisation).
inline constexpr int genreTelQuel = 7;

// Every "{" and "[" becomes "(", every "}" and "]" becomes ")".
std::string unifiecrochets(std::string_view texte);

// Blanks removed; unless genreCourbe is 7, the left-hand side up to the
// last "=" dropped and the rest normalised.
std::string nettoieformule(std::string_view texte, int genreCourbe);

// Upper case, then for each name of the table in order, the first
// occurrence of the name (also inside a longer word) made explicit.
std::string normalise(std::string_view texte);

// The 40 names looked for by normalise, in their fixed order.
void remplitnoms(std::array<std::string_view, 40>& tableNoms);

// The implicit product in front of the name found at 1-based position p
// made explicit: "2SIN(X)" -> "(2)*SIN(X)", "X*SIN(X)" -> "(X)*SIN(X)".
std::string explicite(std::string_view texte, std::size_t p, std::string_view nom);

// True when the text holds as many "(" as ")" (their order is not looked at).
bool parenthesesequilibrees(std::string_view texte);

}  // namespace velorin
