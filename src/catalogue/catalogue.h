// The catalogue file: fixed records of 302 bytes, numbered from 1, record n
// at byte (n - 1) * 302, no header. A record is the kind of the entry (signed
// 16-bit little-endian; 0 or less marks a deleted record) followed by the
// entry text, 300 Windows-1252 bytes padded with blanks. In memory the text
// is UTF-8.
//
// The file is not kept open: every operation opens it, does its work and
// closes it, so that the count always follows the file on disk. Failures
// are returned as a French message naming the file; nothing is thrown.
//
// How the file is written: a new empty catalogue, and any catalogue written
// whole (the galleries), go through the one whole-file routine
// (ecrisFichierEntier: a temporary beside it, then a rename). Changing or
// appending one record does not rewrite the file: it is one checked write of
// the 302 bytes at the record's place, flushed to the disk; an append that
// fails is cut back so that no partial record stays, and the rest of the
// file is never touched nor truncated.
//
// Every writer holds the catalogue's Verrou (base/verrou.h) from its reading
// to its writing: ecrisLigne, the creation of a missing file, and the
// callers that count the records first to append one (the editors, the
// points, `catalogue ajoute`); a second writer waits for the first, or
// gives up with nothing changed.
//
// Reading: the path is checked first (a folder, a FIFO, a device, a link
// loop or a missing file each get their own sentence, and reading never
// blocks), then records are read one by one, never the whole file at once.
// A catalogue of more than limiteLignesCatalogue records is refused at
// opening, so that a huge or sparse file cannot exhaust the memory.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/erreur.h"
#include "catalogue/genre.h"

namespace velorin {

constexpr int tailleEnregistrement = 302;
constexpr int longueurTexte = 300;
constexpr const char* enteteListeCatalogue = " Listes des courbes ou surfaces";

// A record number or a record count (64-bit, so that a file of any size is
// counted right before it is refused).
using NumeroLigne = std::int64_t;
// The most records a catalogue may hold: 250 000 records, 75.5 MB.
constexpr NumeroLigne limiteLignesCatalogue = 250000;

struct LigneCatalogue {
    std::int16_t typeFonction = 0;  // a GenreEntree as stored (any 16-bit value)
    std::string texte;              // UTF-8; as read: 300 characters with the padding
};

struct Catalogue {
    std::string chemin;                 // full path of the catalogue in force
    NumeroLigne nbLignesCatalogue = 0;  // whole records in the file
    // One byte per record, index 1..nbLignesCatalogue (index 0 unused);
    // resized keeping its contents at each opening.
    std::vector<std::uint8_t> marquesCatalogue = std::vector<std::uint8_t>(1, 0);
};

// Takes `chemin` as the catalogue in force, creating an empty file when
// nothing exists at that path, and counts its records (a trailing partial
// record is ignored). A folder, a FIFO, a device, a link loop, an unreadable
// file or one of more than limiteLignesCatalogue records is refused. On
// failure the catalogue keeps its previous path and count.
Erreur ouvrirCatalogue(Catalogue& cat, const std::string& chemin);
// Opens again the catalogue in force (the count follows the file on disk).
Erreur ouvrirCatalogue(Catalogue& cat);

// Kind 0 and an all-blank text.
void viderLigne(LigneCatalogue& ligne);

// Reads record n (1..nbLignesCatalogue).
Erreur lisLigne(const Catalogue& cat, NumeroLigne n, LigneCatalogue& ligne);
// Writes record n (1..nbLignesCatalogue + 1; the last value appends, up to
// limiteLignesCatalogue) in place. The text is converted to Windows-1252,
// cut or padded to 300 bytes.
Erreur ecrisLigne(Catalogue& cat, NumeroLigne n, const LigneCatalogue& ligne);

// The 302 bytes of a record as the file holds them (for writers that build
// a whole catalogue and write it at once).
std::string octetsEnregistrement(const LigneCatalogue& ligne);

// The list of the catalogue: reopens it, then item 0 is the header line and
// item n is record n: n as "0000", "]", the 300-character text, "[", the
// kind as "00". The file is read record by record through a buffer. When the catalogue cannot be read, the list holds
// the header and the records read so far, and `erreur` (if given) receives the message.
std::vector<std::string> listerCatalogue(Catalogue& cat, Erreur* erreur = nullptr);

// The list line of one record (item n of the list above).
std::string ligneListeCatalogue(NumeroLigne n, const LigneCatalogue& ligne);

// The catalogue file named by the answer to "tapez un nom simple": the
// answer without its outer blanks, with ".lsu" appended unless it already
// ends so (in any case). Nothing when it is not a simple name (empty, a
// folder part, or nothing before the extension).
std::optional<std::string> nomNouveauCatalogue(const std::string& reponse);

// An integer on at least `chiffres` digits with leading zeros, the sign in
// front of them ("00" gives "07", "-07"; "0000" gives "0012", "12345").
std::string entierFormate(long long valeur, int chiffres);

}  // namespace velorin
