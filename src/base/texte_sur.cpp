#include "base/texte_sur.h"

#include <cstdio>

namespace velorin {

namespace {

// Length of the valid UTF-8 sequence starting at texte[i] (no overlong
// form, no surrogate, nothing beyond U+10FFFF), or 0; `valeur` gets its
// code point.
std::size_t sequenceUtf8(std::string_view texte, std::size_t i, unsigned& valeur)
{
    const auto octet = [&](std::size_t k) { return static_cast<unsigned char>(texte[k]); };
    const unsigned char c = octet(i);
    std::size_t n;
    unsigned minimum;
    if (c < 0x80) {
        valeur = c;
        return 1;
    }
    if (c >= 0xC2 && c <= 0xDF) {
        n = 2;
        minimum = 0x80;
    } else if (c >= 0xE0 && c <= 0xEF) {
        n = 3;
        minimum = 0x800;
    } else if (c >= 0xF0 && c <= 0xF4) {
        n = 4;
        minimum = 0x10000;
    } else
        return 0;
    if (i + n > texte.size())
        return 0;
    valeur = c & (0x7F >> n);
    for (std::size_t k = 1; k < n; ++k) {
        if ((octet(i + k) & 0xC0) != 0x80)
            return 0;
        valeur = (valeur << 6) | (octet(i + k) & 0x3F);
    }
    if (valeur < minimum || valeur > 0x10FFFF || (valeur >= 0xD800 && valeur <= 0xDFFF))
        return 0;
    return n;
}

// Length of the printable UTF-8 character starting at texte[i] (at least
// two bytes), or 0. The C1 controls (U+0080 to U+009F: CSI among them) act
// on a terminal like ESC does: they are not printable.
std::size_t longueurUtf8(std::string_view texte, std::size_t i)
{
    unsigned valeur = 0;
    const std::size_t n = sequenceUtf8(texte, i, valeur);
    return n > 1 && valeur > 0x9F ? n : 0;
}

}  // namespace

std::string texteSur(std::string_view texte)
{
    std::string sur;
    sur.reserve(texte.size());
    for (std::size_t i = 0; i < texte.size();) {
        const unsigned char c = static_cast<unsigned char>(texte[i]);
        if (c >= 32 && c < 127) {
            sur += static_cast<char>(c);
            ++i;
            continue;
        }
        if (c >= 0x80) {
            if (const std::size_t n = longueurUtf8(texte, i)) {
                sur.append(texte.substr(i, n));
                i += n;
                continue;
            }
        }
        switch (c) {
        case 0: sur += "\\0"; break;
        case '\t': sur += "\\t"; break;
        case '\n': sur += "\\n"; break;
        case '\r': sur += "\\r"; break;
        case 27: sur += "\\e"; break;
        default: {
            char code[5];
            std::snprintf(code, sizeof code, "\\x%02X", c);
            sur += code;
        }
        }
        ++i;
    }
    return sur;
}

bool estUtf8(std::string_view texte)
{
    unsigned valeur = 0;
    for (std::size_t i = 0, n = 0; i < texte.size(); i += n)
        if ((n = sequenceUtf8(texte, i, valeur)) == 0)
            return false;
    return true;
}

std::string extraitSur(std::string_view texte, std::size_t maximum)
{
    if (texte.size() <= maximum)
        return texteSur(texte);
    std::size_t n = maximum;
    while (n > 0 && (static_cast<unsigned char>(texte[n]) & 0xC0) == 0x80)
        --n;  // not inside a UTF-8 character
    return texteSur(texte.substr(0, n)) + "…";
}

std::string texteCite(std::string_view texte, std::size_t maximum)
{
    return "« " + extraitSur(texte, maximum) + " »";
}

std::vector<std::string> lignesDuTexte(std::string_view texte, std::size_t maximum)
{
    if (texte.substr(0, 3) == "\xEF\xBB\xBF")
        texte.remove_prefix(3);
    std::vector<std::string> lignes;
    while (!texte.empty() && lignes.size() < maximum) {
        const std::size_t fin = texte.find_first_of("\r\n");
        lignes.emplace_back(texte.substr(0, fin));
        if (fin == std::string_view::npos)
            break;
        const std::size_t saut = texte.compare(fin, 2, "\r\n") == 0 ? 2 : 1;
        texte.remove_prefix(fin + saut);
    }
    return lignes;
}

}  // namespace velorin
