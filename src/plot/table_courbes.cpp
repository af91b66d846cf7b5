#include "plot/table_courbes.h"

#include "catalogue/catalogue.h"
#include "etat.h"

namespace velorin {

LigneCourbe ligneDepuisParametres(const Etat& etat, int numero, int type)
{
    const Parametres& p = etat.param;
    const SchemaCouleurs& c = etat.couleurs;
    LigneCourbe l{};
    l[colCouleurTrace] = c.couleurTrace;
    l[colCouleurProjXOy] = c.couleurProjXOy;
    l[colCouleurProjXOz] = c.couleurProjXOz;
    l[colCouleurProjYOz] = c.couleurProjYOz;
    l[colCouleurProjOx] = c.couleurProjOx;
    l[colCouleurProjOy] = c.couleurProjOy;
    l[colCouleurProjOz] = c.couleurProjOz;
    l[colTmin] = p.tmin;
    l[colTmax] = p.tmax;
    l[colPasT] = p.pasT;
    l[colAmin] = p.amin;
    l[colAmax] = p.amax;
    l[colPasA] = p.pasA;
    l[colTraceContinu] = p.traceContinu;
    l[colProjXOy] = p.projXOy;
    l[colProjXOz] = p.projXOz;
    l[colProjYOz] = p.projYOz;
    l[colProjOx] = p.projOx;
    l[colProjOy] = p.projOy;
    l[colProjOz] = p.projOz;
    l[colAvecRayon] = p.avecRayon;
    l[colNbrCalX] = p.nbrCalX;
    l[colNbrCalY] = p.nbrCalY;
    l[colNbrCalZ] = p.nbrCalZ;
    l[colCouleurFamille] = c.couleurFamille;
    l[colCouleurTangente] = c.couleurTangente;
    l[colCouleurRayon] = c.couleurRayon;
    l[colAvecSegmentTangent] = p.avecSegmentTangent;
    l[colOrdreBoucles] = p.ordreBoucles;
    l[colAvecMoirure] = p.avecMoirure ? 1 : 0;
    l[colNumero] = numero;
    l[colTypeFonction] = type;
    return l;
}

namespace {

// Values read back from a figure file may be anything: a colour keeps its
// 24 bits, a flag or a count its integer part.
Couleur enCouleur(double v)
{
    return v >= 0 && v <= 0xFFFFFF ? static_cast<Couleur>(v) : 0;
}

int enEntier(double v)
{
    return v >= -2147483647.0 && v <= 2147483647.0 ? static_cast<int>(v) : 0;
}

}  // namespace

void appliqueLigne(const LigneCourbe& l, Etat& etat)
{
    Parametres& p = etat.param;
    SchemaCouleurs& c = etat.couleurs;
    c.couleurTrace = enCouleur(l[colCouleurTrace]);
    c.couleurProjXOy = enCouleur(l[colCouleurProjXOy]);
    c.couleurProjXOz = enCouleur(l[colCouleurProjXOz]);
    c.couleurProjYOz = enCouleur(l[colCouleurProjYOz]);
    c.couleurProjOx = enCouleur(l[colCouleurProjOx]);
    c.couleurProjOy = enCouleur(l[colCouleurProjOy]);
    c.couleurProjOz = enCouleur(l[colCouleurProjOz]);
    p.tmin = l[colTmin];
    p.tmax = l[colTmax];
    p.pasT = l[colPasT];
    p.amin = l[colAmin];
    p.amax = l[colAmax];
    p.pasA = l[colPasA];
    p.traceContinu = enEntier(l[colTraceContinu]);
    p.projXOy = enEntier(l[colProjXOy]);
    p.projXOz = enEntier(l[colProjXOz]);
    p.projYOz = enEntier(l[colProjYOz]);
    p.projOx = enEntier(l[colProjOx]);
    p.projOy = enEntier(l[colProjOy]);
    p.projOz = enEntier(l[colProjOz]);
    p.avecRayon = enEntier(l[colAvecRayon]);
    p.nbrCalX = l[colNbrCalX];
    p.nbrCalY = l[colNbrCalY];
    p.nbrCalZ = l[colNbrCalZ];
    c.couleurFamille = enCouleur(l[colCouleurFamille]);
    c.couleurTangente = enCouleur(l[colCouleurTangente]);
    c.couleurRayon = enCouleur(l[colCouleurRayon]);
    p.avecSegmentTangent = enEntier(l[colAvecSegmentTangent]);
    p.ordreBoucles = static_cast<std::uint8_t>(enEntier(l[colOrdreBoucles]) & 3);
    p.avecMoirure = l[colAvecMoirure] != 0;
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

std::string ligneCourbeTracee(const TableCourbes& table, int i)
{
    if (i < 1 || i > static_cast<int>(table.lignes.size()))
        return {};
    const LigneCourbe& l = table.lignes[i - 1];
    return entierFormate(enEntier(l[colTypeFonction]), 2) + "/" + entierFormate(i, 3) + " " +
           nomCouleur(enCouleur(l[colCouleurTrace]));
}

}  // namespace velorin
