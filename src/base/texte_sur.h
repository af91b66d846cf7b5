// Text from files and from the user, made safe to show in a message or on a
// terminal: what a catalogue entry or a file name holds never reaches the
// screen raw (a NUL would cut the message short, ESC or CR could clear or
// overwrite the user's terminal).
#pragma once
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace velorin {

// `texte` with every control byte (below 32, and 127) written as a visible
// escape: "\0", "\t", "\n", "\r", "\e" for ESC, "\xNN" for the others; a
// byte that does not belong to valid UTF-8 becomes "\xNN" too, and so do
// the two bytes of a C1 control character (U+0080 to U+009F); a backslash
// stays as it is. Printable text, accents included, is unchanged.
std::string texteSur(std::string_view texte);

// True when `texte` is valid UTF-8: no stray or missing continuation byte,
// no overlong form, no surrogate, nothing beyond U+10FFFF. Control
// characters are valid UTF-8.
bool estUtf8(std::string_view texte);

// Text quoted in a message: at most `maximum` bytes of `texte` (cut before
// a UTF-8 character, never inside one) through texteSur, and "…" when
// something was left out, so that a huge line of a file never fills a
// message.
inline constexpr std::size_t longueurCitee = 200;
std::string extraitSur(std::string_view texte, std::size_t maximum = longueurCitee);

// extraitSur between French quotes: « texte ».
std::string texteCite(std::string_view texte, std::size_t maximum = longueurCitee);

// The lines of a text read from a file, whatever their ends: CR LF, LF
// alone or CR alone. A UTF-8 byte-order mark in front is skipped. At most
// `maximum` lines.
std::vector<std::string> lignesDuTexte(std::string_view texte,
                                       std::size_t maximum = std::numeric_limits<std::size_t>::max());

}  // namespace velorin
