#include "engine/nombres.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace velorin {

namespace {

std::size_t chiffresDepuis(std::string_view s, std::size_t i)
{
    while (i < s.size() && estChiffre(s[i]))
        ++i;
    return i;
}

// Reads a decimal text with "." whatever the locale of the process (a Qt
// program takes the user's locale, where strtod would expect ",").
double strtodC(const std::string& texte)
{
    static const locale_t c = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
    return strtod_l(texte.c_str(), nullptr, c);
}

}  // namespace

std::string_view sansBlancsAuxBouts(std::string_view texte, std::string_view blancs)
{
    const std::size_t debut = texte.find_first_not_of(blancs);
    if (debut == std::string_view::npos)
        return {};
    const std::size_t fin = texte.find_last_not_of(blancs);
    return texte.substr(debut, fin - debut + 1);
}

std::string majuscules(std::string_view texte)
{
    std::string r(texte);
    for (char& c : r)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return r;
}

std::size_t longueurNombre(std::string_view texte)
{
    std::size_t i = 0;
    while (i < texte.size() && texte[i] == ' ')
        ++i;
    if (i < texte.size() && (texte[i] == '+' || texte[i] == '-'))
        ++i;
    const std::size_t debutChiffres = i;
    i = chiffresDepuis(texte, i);
    std::size_t nbChiffres = i - debutChiffres;
    if (i < texte.size() && texte[i] == '.') {
        const std::size_t apres = chiffresDepuis(texte, i + 1);
        nbChiffres += apres - (i + 1);
        if (nbChiffres > 0)
            i = apres;
    }
    if (nbChiffres == 0)
        return 0;
    // An exponent counts only when at least one digit follows it.
    if (i < texte.size() && (texte[i] == 'E' || texte[i] == 'e')) {
        std::size_t j = i + 1;
        if (j < texte.size() && (texte[j] == '+' || texte[j] == '-'))
            ++j;
        const std::size_t fin = chiffresDepuis(texte, j);
        if (fin > j)
            i = fin;
    }
    return i;
}

double nombreEnTete(std::string_view texte, bool& echec)
{
    const std::size_t n = longueurNombre(texte);
    if (n == 0)
        return 0;
    const double v = strtodC(std::string(texte.substr(0, n)));
    // Too many digits for a double is an overflow of the reading.
    if (!std::isfinite(v))
        echec = true;
    return v;
}

bool estNombre(std::string_view texte)
{
    return !texte.empty() && texte[0] != ' ' && longueurNombre(texte) == texte.size();
}

bool lisValeurExacte(std::string_view texte, double& valeur)
{
    if (!estNombre(texte))
        return false;
    bool echec = false;
    valeur = nombreEnTete(texte, echec);
    return !echec;
}

std::string texteValeur(double valeur)
{
    // The shortest digits come from to_chars in scientific form; they are
    // then laid out in fixed form for ordinary magnitudes.
    char tampon[64];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, valeur, std::chars_format::scientific).ptr;
    std::string_view s(tampon, static_cast<std::size_t>(fin - tampon));
    std::string signe;
    if (!s.empty() && s[0] == '-') {
        signe = "-";
        s.remove_prefix(1);
    }
    const std::size_t e = s.find('e');
    if (e == std::string_view::npos)
        return std::string(tampon, fin);  // inf, nan
    std::string chiffres;
    for (char c : s.substr(0, e))
        if (c != '.')
            chiffres += c;
    const int exposant = std::atoi(std::string(s.substr(e + 1)).c_str());
    if (exposant < -4 || exposant >= 16)
        return std::string(tampon, fin);
    std::string r;
    if (exposant < 0) {
        r = "0." + std::string(static_cast<std::size_t>(-exposant - 1), '0') + chiffres;
    } else if (chiffres.size() <= static_cast<std::size_t>(exposant) + 1) {
        r = chiffres + std::string(static_cast<std::size_t>(exposant) + 1 - chiffres.size(), '0');
    } else {
        r = chiffres.substr(0, static_cast<std::size_t>(exposant) + 1) + "." +
            chiffres.substr(static_cast<std::size_t>(exposant) + 1);
    }
    return signe + r;
}

}  // namespace velorin
