#include "view/format_nombre.h"

#include <algorithm>
#include <cmath>

#include "settings/texte_nombre.h"

namespace velorin {

namespace {

struct Motif {
    std::string avant, apres;  // literal text around the number
    int entiersForces = 0;     // "0"s before the point
    bool point = false;
    int decimalesForcees = 0;       // "0"s after the point
    int decimalesOptionnelles = 0;  // "#"s after them
    int entiers = 0;                // all digit places before the point
    bool scientifique = false;
    char lettreE = 'E';
    bool signeToujours = false;  // "E+"
    int chiffresExposant = 0;
};

bool estChiffre(char c)
{
    return c == '0' || c == '#';
}

Motif analyse(const std::string& m)
{
    Motif r;
    std::size_t i = 0;
    while (i < m.size() && !estChiffre(m[i]) && m[i] != '.')
        r.avant += m[i++];
    for (; i < m.size() && estChiffre(m[i]); ++i) {
        ++r.entiers;
        r.entiersForces += m[i] == '0';
    }
    if (i < m.size() && m[i] == '.') {
        r.point = true;
        for (++i; i < m.size() && estChiffre(m[i]); ++i)
            (m[i] == '0' ? r.decimalesForcees : r.decimalesOptionnelles)++;
    }
    if (i + 1 < m.size() && (m[i] == 'E' || m[i] == 'e') && (m[i + 1] == '+' || m[i + 1] == '-')) {
        r.scientifique = true;
        r.lettreE = m[i];
        r.signeToujours = m[i + 1] == '+';
        for (i += 2; i < m.size() && m[i] == '0'; ++i)
            ++r.chiffresExposant;
    }
    r.apres = m.substr(i);
    return r;
}

// Digit of `d` with the place value 10^rang ('0' outside its digits).
char chiffre(const Decimal& d, int rang)
{
    const int i = d.exposant - rang;
    return i >= 0 && i < static_cast<int>(d.chiffres.size()) ? d.chiffres[i] : '0';
}

// Integer part and decimals of d x 10^-decalage, digits as the motif asks.
std::string partieFixe(const Decimal& d, int decalage, const Motif& m)
{
    int n = m.entiersForces;
    if (!d.chiffres.empty())
        n = std::max(n, d.exposant - decalage + 1);
    std::string s;
    for (int r = n - 1; r >= 0; --r)
        s += chiffre(d, r + decalage);
    if (!m.point)
        return s;
    std::string decimales;
    for (int k = 1; k <= m.decimalesForcees + m.decimalesOptionnelles; ++k)
        decimales += chiffre(d, decalage - k);
    while (static_cast<int>(decimales.size()) > m.decimalesForcees && decimales.back() == '0')
        decimales.pop_back();
    return s + "." + decimales;
}

}  // namespace

std::string formatNombre(double valeur, const std::string& motif)
{
    if (std::isnan(valeur))
        return "non défini";
    if (std::isinf(valeur))
        return valeur < 0 ? "-infini" : "infini";
    if (motif.empty())
        return texteNombre(valeur, 15);
    const Motif m = analyse(motif);
    Decimal d = decimal(valeur, 15);
    const int decimales = m.point ? m.decimalesForcees + m.decimalesOptionnelles : 0;
    std::string corps;
    if (m.scientifique) {
        const int entiers = std::max(m.entiers, 1);
        int exposant = 0;
        if (!d.chiffres.empty()) {
            arrondis(d, d.exposant - (entiers - 1) - decimales);
            exposant = d.exposant - (entiers - 1);
        }
        corps = partieFixe(d, exposant, m);
        std::string e = std::to_string(std::abs(exposant));
        if (static_cast<int>(e.size()) < m.chiffresExposant)
            e.insert(0, m.chiffresExposant - e.size(), '0');
        corps += m.lettreE;
        if (exposant < 0)
            corps += '-';
        else if (m.signeToujours)
            corps += '+';
        corps += e;
    } else {
        arrondis(d, -decimales);
        corps = partieFixe(d, 0, m);
    }
    return (d.negatif && !d.chiffres.empty() ? "-" : "") + m.avant + corps + m.apres;
}

}  // namespace velorin
