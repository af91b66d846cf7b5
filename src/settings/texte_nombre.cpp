#include "settings/texte_nombre.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace velorin {

Decimal decimal(double valeur, int significatifs)
{
    Decimal d;
    if (valeur == 0 || !std::isfinite(valeur))
        return d;
    d.negatif = valeur < 0;
    // "d.ddddde+XX": to_chars never looks at the locale.
    char tampon[64];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, std::fabs(valeur), std::chars_format::scientific,
                                   significatifs - 1)
                         .ptr;
    const std::string texte(tampon, fin);
    const std::size_t e = texte.find('e');
    for (std::size_t i = 0; i < e; ++i)
        if (texte[i] != '.')
            d.chiffres += texte[i];
    d.exposant = std::atoi(texte.c_str() + e + 1);
    while (!d.chiffres.empty() && d.chiffres.back() == '0')
        d.chiffres.pop_back();
    return d;
}

void arrondis(Decimal& d, int rang)
{
    const int gardes = d.exposant - rang + 1;  // digits kept
    if (gardes >= static_cast<int>(d.chiffres.size()))
        return;
    if (gardes < 0) {
        d.chiffres.clear();
        return;
    }
    const bool monte = d.chiffres[gardes] >= '5';
    d.chiffres.resize(gardes);
    if (monte) {
        int i = gardes - 1;
        while (i >= 0 && d.chiffres[i] == '9')
            d.chiffres[i--] = '0';
        if (i >= 0) {
            ++d.chiffres[i];
        } else {
            d.chiffres.insert(d.chiffres.begin(), '1');
            ++d.exposant;
        }
        if (gardes == 0)  // 0.5 unit of the last place becomes one unit
            d.exposant = rang;
    }
    while (!d.chiffres.empty() && d.chiffres.back() == '0')
        d.chiffres.pop_back();
    if (d.chiffres.empty())
        d.negatif = false;
}

std::string texteEntier(long long valeur)
{
    char tampon[24];
    return std::string(tampon, std::to_chars(tampon, tampon + sizeof tampon, valeur).ptr);
}

std::string texteCourt(double valeur)
{
    char tampon[32];
    return std::string(tampon, std::to_chars(tampon, tampon + sizeof tampon, valeur).ptr);
}

std::string texteCourt(float valeur)
{
    char tampon[32];
    return std::string(tampon, std::to_chars(tampon, tampon + sizeof tampon, valeur).ptr);
}

std::string texteNombre(double valeur, int significatifs)
{
    if (std::isnan(valeur))
        return "nan";
    if (std::isinf(valeur))
        return valeur < 0 ? "-inf" : "inf";
    const Decimal d = decimal(valeur, significatifs);
    if (d.chiffres.empty())
        return "0";
    std::string s = d.negatif ? "-" : "";
    const int n = static_cast<int>(d.chiffres.size());
    if (d.exposant < -4 || d.exposant >= significatifs) {
        s += d.chiffres[0];
        if (n > 1) {
            s += '.';
            s += d.chiffres.substr(1);
        }
        const int e = std::abs(d.exposant);
        s += d.exposant < 0 ? "E-" : "E+";
        if (e < 10)
            s += '0';
        s += std::to_string(e);
    } else if (d.exposant < 0) {
        s += "0.";
        s.append(-d.exposant - 1, '0');
        s += d.chiffres;
    } else if (n <= d.exposant + 1) {
        s += d.chiffres;
        s.append(d.exposant + 1 - n, '0');
    } else {
        s += d.chiffres.substr(0, d.exposant + 1);
        s += '.';
        s += d.chiffres.substr(d.exposant + 1);
    }
    return s;
}

}  // namespace velorin
