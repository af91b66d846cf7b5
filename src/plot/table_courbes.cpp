#include "plot/table_courbes.h"

#include "catalogue/catalogue.h"
#include "catalogue/genre.h"
#include "plot/etat.h"

namespace velorin {

namespace {

// Calls f(column, member) for every drawing value of a row, in column order.
// E is Etat or const Etat, so that one list serves both directions.
template <typename E, typename F> void pourChaqueColonne(E& etat, F&& f)
{
    auto& p = etat.param;
    auto& c = etat.couleurs;
    f(colCouleurTrace, c.couleurTrace);
    f(colCouleurProjXOy, c.couleurProjXOy);
    f(colCouleurProjXOz, c.couleurProjXOz);
    f(colCouleurProjYOz, c.couleurProjYOz);
    f(colCouleurProjOx, c.couleurProjOx);
    f(colCouleurProjOy, c.couleurProjOy);
    f(colCouleurProjOz, c.couleurProjOz);
    f(colTmin, p.tmin);
    f(colTmax, p.tmax);
    f(colPasT, p.pasT);
    f(colAmin, p.amin);
    f(colAmax, p.amax);
    f(colPasA, p.pasA);
    f(colTraceContinu, p.traceContinu);
    f(colProjXOy, p.projXOy);
    f(colProjXOz, p.projXOz);
    f(colProjYOz, p.projYOz);
    f(colProjOx, p.projOx);
    f(colProjOy, p.projOy);
    f(colProjOz, p.projOz);
    f(colAvecRayon, p.avecRayon);
    f(colNbrCalX, p.nbrCalX);
    f(colNbrCalY, p.nbrCalY);
    f(colNbrCalZ, p.nbrCalZ);
    f(colCouleurFamille, c.couleurFamille);
    f(colCouleurTangente, c.couleurTangente);
    f(colCouleurRayon, c.couleurRayon);
    f(colAvecSegmentTangent, p.avecSegmentTangent);
    f(colOrdreBoucles, p.ordreBoucles);
    f(colAvecMoirure, p.avecMoirure);
}

int enEntier(double v)
{
    return v >= -2147483647.0 && v <= 2147483647.0 ? static_cast<int>(v) : 0;
}

}  // namespace

// Values read back from a figure file may be anything: a colour keeps its
// 24 bits, a flag or a count its integer part, the loop order 0..3.
Couleur enCouleur(double v)
{
    return v >= 0 && v <= 0xFFFFFF ? static_cast<Couleur>(v) : 0;
}

namespace {

void lis(double& cible, double v)
{
    cible = v;
}
void lis(int& cible, double v)
{
    cible = enEntier(v);
}
void lis(Couleur& cible, double v)
{
    cible = enCouleur(v);
}
void lis(std::uint8_t& cible, double v)
{
    cible = static_cast<std::uint8_t>(enEntier(v) & 3);
}
void lis(bool& cible, double v)
{
    cible = v != 0;
}

}  // namespace

LigneCourbe ligneDepuisParametres(const Etat& etat, int numero, int type)
{
    LigneCourbe l{};
    pourChaqueColonne(etat, [&](int colonne, const auto& valeur) { l[colonne] = double(valeur); });
    l[colNumero] = numero;
    l[colTypeFonction] = type;
    return l;
}

void appliqueLigne(const LigneCourbe& l, Etat& etat)
{
    pourChaqueColonne(etat, [&](int colonne, auto& valeur) { lis(valeur, l[colonne]); });
}

int ajouteCourbe(TableCourbes& table, const LigneCourbe& ligne)
{
    if (table.lignes.size() >= static_cast<std::size_t>(maxCourbes))
        return 0;
    table.lignes.push_back(ligne);
    table.nbCourbes = static_cast<std::int16_t>(table.lignes.size());
    return table.nbCourbes;
}

void videCourbes(TableCourbes& table)
{
    table.lignes.clear();
    table.nbCourbes = 0;
}

int retireCourbes(TableCourbes& table, const std::vector<int>& numeros)
{
    std::vector<bool> retiree(table.lignes.size(), false);
    for (int n : numeros)
        if (n >= 1 && n <= int(table.lignes.size()))
            retiree[n - 1] = true;
    std::vector<LigneCourbe> gardees;
    for (std::size_t i = 0; i < table.lignes.size(); ++i)
        if (!retiree[i])
            gardees.push_back(table.lignes[i]);
    const int retirees = int(table.lignes.size() - gardees.size());
    table.lignes = std::move(gardees);
    table.nbCourbes = static_cast<std::int16_t>(table.lignes.size());
    return retirees;
}

std::string nomCouleur(Couleur couleur)
{
    switch (couleur) {
    case 0x000000: return "En noir:";
    case 0x0000FF: return "En rouge:";
    case 0x00FF00: return "En vert:";
    case 0xFF0000: return "En bleu:";
    case 0x00FFFF: return "En jaune:";
    case 0xFFFFFF: return "En blanc:";
    default: return "En panaché";
    }
}

std::optional<Couleur> couleurTracee(const LigneCourbe& l)
{
    const int type = enEntier(l[colTypeFonction]);
    if (type != genreSurfaceParametree && type != genreSurfaceSpherique)
        return enCouleur(l[colCouleurTrace]);
    if (l[colAvecMoirure] != 0 || (enEntier(l[colOrdreBoucles]) & 3) == 3)
        return std::nullopt;
    return enCouleur(l[colCouleurFamille]);
}

std::string ligneCourbeTracee(const TableCourbes& table, int i)
{
    if (i < 1 || i > static_cast<int>(table.lignes.size()))
        return {};
    const LigneCourbe& l = table.lignes[i - 1];
    const std::optional<Couleur> couleur = couleurTracee(l);
    return entierFormate(enEntier(l[colTypeFonction]), 2) + "/" + entierFormate(i, 3) + " " +
           (couleur ? nomCouleur(*couleur) : std::string("En panaché"));
}

}  // namespace velorin
