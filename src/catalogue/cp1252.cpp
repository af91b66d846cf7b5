#include "catalogue/cp1252.h"

#include <cstdint>

namespace velorin {

namespace {

// Code points of the bytes 0x80..0x9F; the other bytes are their own code point.
constexpr char32_t plage80[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t pointDeCode(unsigned char octet)
{
    return (octet >= 0x80 && octet <= 0x9F) ? plage80[octet - 0x80] : char32_t(octet);
}

// The byte of a code point, or '?' when Windows-1252 has none.
char octetDe(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return char(c);
    for (int i = 0; i < 32; ++i)
        if (plage80[i] == c)
            return char(0x80 + i);
    return '?';
}

void ajouteUtf8(std::string& sortie, char32_t c)
{
    if (c < 0x80) {
        sortie += char(c);
    } else if (c < 0x800) {
        sortie += char(0xC0 | (c >> 6));
        sortie += char(0x80 | (c & 0x3F));
    } else {
        sortie += char(0xE0 | (c >> 12));
        sortie += char(0x80 | ((c >> 6) & 0x3F));
        sortie += char(0x80 | (c & 0x3F));
    }
}

}  // namespace

std::string versCp1252(const std::string& utf8)
{
    std::string sortie;
    sortie.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        const unsigned char tete = static_cast<unsigned char>(utf8[i]);
        int suite = tete < 0x80 ? 0 : (tete >> 5) == 0x6 ? 1 : (tete >> 4) == 0xE ? 2 : (tete >> 3) == 0x1E ? 3 : -1;
        if (suite < 0 || i + suite >= utf8.size()) {  // bad lead byte or cut sequence
            sortie += '?';
            ++i;
            continue;
        }
        char32_t c = suite == 0 ? tete : tete & (0x3F >> suite);
        bool valide = true;
        for (int k = 1; k <= suite; ++k) {
            const unsigned char o = static_cast<unsigned char>(utf8[i + k]);
            if ((o & 0xC0) != 0x80) {
                valide = false;
                break;
            }
            c = (c << 6) | (o & 0x3F);
        }
        if (!valide) {
            sortie += '?';
            ++i;
            continue;
        }
        sortie += octetDe(c);
        i += suite + 1;
    }
    return sortie;
}

std::string depuisCp1252(const std::string& octets)
{
    std::string sortie;
    sortie.reserve(octets.size() + octets.size() / 4);
    for (char o : octets)
        ajouteUtf8(sortie, pointDeCode(static_cast<unsigned char>(o)));
    return sortie;
}

}  // namespace velorin
