// Text from files and from the user, made safe to show in a message or on a
// terminal: what a catalogue entry or a file name holds never reaches the
// screen raw (a NUL would cut the message short, ESC or CR could clear or
// overwrite the user's terminal).
#pragma once
#include <string>
#include <string_view>

namespace velorin {

// `texte` with every control byte (below 32, and 127) written as a visible
// escape: "\0", "\t", "\n", "\r", "\e" for ESC, "\xNN" for the others; a
// byte that does not belong to valid UTF-8 becomes "\xNN" too, and so do
// the two bytes of a C1 control character (U+0080 to U+009F); a backslash
// stays as it is. Printable text, accents included, is unchanged.
std::string texteSur(std::string_view texte);

// texteSur between French quotes: « texte ».
std::string texteCite(std::string_view texte);

}  // namespace velorin
