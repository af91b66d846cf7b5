// The points kept in a catalogue (entries of kind 9) and the segments that
// link two of them (kind 8): what the points dialog and the command line
// list, create and link, with the same rules.
//
// A point is stored as the object editor stores it: "Point:[" + its
// coordinates + "]", the coordinates as typed, brackets made round and outer
// blanks dropped ("[1, 2,3}" gives "Point:[(1, 2,3)]"). A point already listed with the same text is not
// stored twice; a new one is always appended. A segment is appended as
// "Segment:[" A "][" B "]", A and B the coordinate texts of its two points.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/erreur.h"
#include "catalogue/catalogue.h"

namespace velorin {

struct PointMemoire {
    NumeroLigne numero = 0;  // the record
    std::string ligne;       // its line in the list, as the catalogue's list writes it
    std::string texte;       // the entry text part of the line (padded as read)
};

// Reopens the catalogue and lists its points, in record order. When the
// catalogue cannot be read, the points read so far and the message.
Erreur chargePoints(Catalogue& cat, std::vector<PointMemoire>& points);

// How an entry is stored. The editors cut a text longer than a record holds
// at 300 characters and write the record in place; the command line refuses
// such a text (it says so instead of storing less than was asked) and
// replaces the whole file, since nobody is there to see a failure half-way.
// The command line also checks a point's coordinates as the point tracer of
// its mode reads them (verifieEntree), so that it never stores one that
// cannot be drawn; the points dialog leaves that to the drawing.
struct FaconEcrire {
    bool refuseTexteCoupe = false;
    Erreur (*ecris)(Catalogue& cat, NumeroLigne n, const LigneCatalogue& ligne) = ecrisLigne;
    std::optional<bool> verifieEnEspace = std::nullopt;  // the mode to check in; empty: no check
};

struct Enregistrement {
    NumeroLigne numero = 0;  // where the entry is (new or already there)
    bool nouveau = false;    // false: an equal point was already stored
    std::string texte;       // the entry text built
};

// Creates the point typed as `coordonnees` (empty coordinates are refused).
Erreur creePoint(Catalogue& cat, std::string_view coordonnees, Enregistrement& resultat, FaconEcrire facon = {});

// Appends the segment between the points of records `a` and `b` (two
// different records, each of kind 9).
Erreur reliePoints(Catalogue& cat, NumeroLigne a, NumeroLigne b, Enregistrement& resultat, FaconEcrire facon = {});

}  // namespace velorin
