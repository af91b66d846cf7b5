// Conversion between the UTF-8 texts held in memory and the Windows-1252
// single-byte texts stored in catalogue records.
#pragma once
#include <string>

namespace velorin {

// UTF-8 to Windows-1252; a character that has no Windows-1252 byte (or a
// malformed UTF-8 sequence) becomes "?".
std::string versCp1252(const std::string& utf8);
// Windows-1252 to UTF-8. The five bytes that Windows-1252 leaves unassigned
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the control characters of the same
// number, as Windows itself does, so that every byte survives a round trip.
std::string depuisCp1252(const std::string& octets);

}  // namespace velorin
