#include "engine/normalisation.h"

#include "engine/nombres.h"

namespace velorin {

namespace {

bool estLettreVariable(char c)
{
    return c == 'A' || c == 'T' || c == 'X' || c == 'Y' || c == 'Z';
}

}  // namespace

std::string unifiecrochets(std::string_view texte)
{
    std::string r;
    r.reserve(texte.size());
    for (char c : texte) {
        if (c == '{' || c == '[')
            r += '(';
        else if (c == '}' || c == ']')
            r += ')';
        else
            r += c;
    }
    return r;
}

std::string nettoieformule(std::string_view texte, int genreCourbe)
{
    std::string r;
    for (char c : texte)
        if (c != ' ')
            r += c;
    if (genreCourbe == genreTelQuel)
        return r;
    const std::size_t egal = r.rfind('=');
    if (egal != std::string::npos)
        r.erase(0, egal + 1);
    return normalise(r);
}

void remplitnoms(std::array<std::string_view, 40>& tableNoms)
{
    tableNoms = {"ABS",     "SIN",     "SINUS",     "COS",       "COSINUS", "TAN",     "TG",      "COTAN",
                 "COTG",    "LN",      "LOG",       "RAC",       "SQR",     "RAC3",    "CUBR",    "ATN",
                 "ARCTAN",  "ARCSIN",  "ARCCOS",    "ARCCOTAN",  "SINH",    "HSIN",    "COSH",    "HCOS",
                 "TANH",    "HTAN",    "COTH",      "HCOTAN",    "ARCSINH", "HARCSIN", "ARCCOSH", "HARCCOS",
                 "ARCTANH", "HARCTAN", "ARCCOTANH", "HARCCOTAN", "ENT",     "E",       "INT",     "EXP"};
}

std::string normalise(std::string_view texte)
{
    std::string r = majuscules(texte);
    std::array<std::string_view, 40> tableNoms;
    remplitnoms(tableNoms);
    for (std::string_view nom : tableNoms) {
        const std::size_t p = r.find(nom);
        if (p != std::string::npos)
            r = explicite(r, p + 1, nom);
    }
    return r;
}

namespace {

// "(" + dedans + ")" + apres + reste, built by appending (a literal in front
// of a std::string makes GCC 12 warn wrongly about overlapping copies).
std::string entoure(std::string_view dedans, std::string_view apres, std::string_view reste)
{
    std::string r;
    r.reserve(dedans.size() + apres.size() + reste.size() + 2);
    r += '(';
    r += dedans;
    r += ')';
    r += apres;
    r += reste;
    return r;
}

}  // namespace

std::string explicite(std::string_view texte, std::size_t p, std::string_view nom)
{
    const std::string telQuel(texte);
    // A name at the start (or a position outside the text) has nothing in front.
    if (p <= 1 || p > texte.size() || texte.substr(p - 1, nom.size()) != nom)
        return telQuel;
    const std::string_view gauche = texte.substr(0, p - 1), reste = texte.substr(p - 1);
    if (p == 2) {
        if (estChiffre(texte[0]) || estLettreVariable(texte[0]))
            return entoure(gauche, "*", reste);
        return telQuel;
    }
    const char avant = texte[p - 2];
    if (!estOperateur(avant)) {
        if (estNombre(gauche))
            return entoure(gauche, "*", reste);
        return telQuel;  // "PISIN(X)", "ARCSIN(X)"
    }
    const char avantOperateur = texte[p - 3];
    if (avantOperateur == ')')
        return telQuel;
    const std::string_view devant = texte.substr(0, p - 2);
    if (estNombre(devant))
        return entoure(devant, std::string_view(&avant, 1), reste);
    // Only the letter is enclosed, whatever stands before it: "3X*SIN(X)"
    // becomes "3(X)*SIN(X)", which the evaluator reads as 3 x sin x.
    if (estLettreVariable(avantOperateur))
        return std::string(texte.substr(0, p - 3)) + "(" + avantOperateur + ")" + avant + std::string(reste);
    return telQuel;
}

bool parenthesesequilibrees(std::string_view texte)
{
    long ouvrantes = 0, fermantes = 0;
    for (char c : texte) {
        if (c == '(')
            ++ouvrantes;
        if (c == ')')
            ++fermantes;
    }
    return ouvrantes == fermantes;
}

}  // namespace velorin
