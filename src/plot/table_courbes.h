// The drawn-curves table: one row of 32 values per drawn curve, enough to
// redraw the curve exactly as first drawn. The column order is also the
// order of the figure file (its values 1 to 32 are the columns 0 to 31).
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/couleurs.h"

namespace velorin {

struct Etat;

// Columns of a row (0-based). Colours are stored as their 24-bit value,
// check boxes as 0 or 1, ordreBoucles as 0..3, avecMoirure as 0 or 1.
enum ColonneCourbe : int {
    // The seven curve and projection colours of the colour scheme.
    colCouleurTrace,
    colCouleurProjXOy,
    colCouleurProjXOz,
    colCouleurProjYOz,
    colCouleurProjOx,
    colCouleurProjOy,
    colCouleurProjOz,
    // Ranges and steps of t and a.
    colTmin,
    colTmax,
    colPasT,
    colAmin,
    colAmax,
    colPasA,
    // Drawing flags.
    colTraceContinu,
    colProjXOy,
    colProjXOz,
    colProjYOz,
    colProjOx,
    colProjOy,
    colProjOz,
    colAvecRayon,
    // Calculation counts.
    colNbrCalX,
    colNbrCalY,
    colNbrCalZ,
    // The remaining colours and flags.
    colCouleurFamille,
    colCouleurTangente,
    colCouleurRayon,
    colAvecSegmentTangent,
    colOrdreBoucles,
    colAvecMoirure,
    // What was drawn: the catalogue record number and the kind it had.
    colNumero,
    colTypeFonction,
    nbColonnesCourbe
};
static_assert(nbColonnesCourbe == 32, "a row of the drawn-curves table holds 32 values");

using LigneCourbe = std::array<double, nbColonnesCourbe>;

struct TableCourbes {
    std::vector<LigneCourbe> lignes;  // row i of the user is lignes[i - 1]
    std::int16_t nbCourbes = 0;       // rows in use (== lignes.size())

    bool operator==(const TableCourbes&) const = default;
};

// The row of the drawing values in force for record `numero` of kind `type`.
LigneCourbe ligneDepuisParametres(const Etat& etat, int numero, int type);
// Copies the drawing values of a row back into the parameters and colours.
void appliqueLigne(const LigneCourbe& ligne, Etat& etat);

// The count is a 16-bit number: at most this many rows.
inline constexpr int maxCourbes = 32767;

// Adds a row at the end (nbCourbes follows) and returns its number (1-based),
// or 0 when the table is full.
int ajouteCourbe(TableCourbes& table, const LigneCourbe& ligne);
// Forgets every drawn curve.
void videCourbes(TableCourbes& table);

// Takes rows out of the table (1-based numbers, in any order; a number
// outside the table or given twice counts once or not at all): the rows
// after them move up and keep their order. Returns how many went.
int retireCourbes(TableCourbes& table, const std::vector<int>& numeros);

// Name of a curve colour in the list of drawn curves: "En noir:", "En rouge:",
// "En vert:", "En bleu:", "En jaune:", "En blanc:", or "En panaché" for any
// other value.
std::string nomCouleur(Couleur couleur);

// A value of a row taken as a colour: its 24 bits, or 0 when it is out of
// range (rows read back from a file may hold anything).
Couleur enCouleur(double valeur);
// The colour a row is drawn in: a family (kinds 2 and 4) takes the family
// colour, every other kind the curve colour; a family drawn with moiré or as
// a two-colour trellis (ordreBoucles 3) has no single colour (nothing).
std::optional<Couleur> couleurTracee(const LigneCourbe& ligne);
// Line of drawn curve i (1-based) in the list of drawn curves: the kind as
// "00", "/", the curve number as "000 " and the name of the colour it is
// drawn in (couleurTracee; "En panaché" when several), e.g.
// "01/003 En rouge:".
std::string ligneCourbeTracee(const TableCourbes& table, int i);

}  // namespace velorin
