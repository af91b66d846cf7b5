// Pruning of a catalogue: deleting entries and compacting the file so that
// the remaining entries are numbered again from 1 without gaps.
//
// Compacting keeps every record whose kind is above 0, in order; the others
// go: the deleted records (kind 0 and a blank text) and, since they share
// kind 0, the explicit functions y = f(x) as well. That is the settled
// behaviour of pruning.
//
// The compacted records are laid over the compaction file "LIBI.lcs" of the
// catalogue's folder, which is not emptied first: when one is left over from
// an earlier run with more records than are kept now, its records past the
// kept ones stay at the end of the result. The result then replaces the
// catalogue whole by the one write routine (a temporary and one rename), so
// that the catalogue is at every moment either the old one or the new, and
// "LIBI.lcs" is gone afterwards, having become the catalogue.
//
// Nothing is written when the catalogue cannot be read, when a record to
// delete does not exist, or when more records are kept than the 16-bit
// counter of the compaction numbers (limiteCompteurReduction).
#pragma once
#include <vector>

#include "base/erreur.h"
#include "catalogue/catalogue.h"

namespace velorin {

constexpr const char* nomFichierReduction = "LIBI.lcs";
// The most records a compaction numbers.
constexpr NumeroLigne limiteCompteurReduction = 32767;

struct BilanReduction {
    NumeroLigne gardees = 0;    // records kept, now 1..gardees
    NumeroLigne restantes = 0;  // records of the result (more when "LIBI.lcs" had more)
    bool remplace = false;      // the catalogue was replaced (even when a failure followed)
};

// The compaction file of the catalogue `chemin`: "LIBI.lcs" in its folder.
std::string cheminReduction(const std::string& chemin);

// Reopens `cat`, clears the records `effacees` (numbers 1..nbLignesCatalogue;
// the header line of a list is no record and is never passed), compacts, and
// reopens the result. The clearing and the compaction are one replacement of
// the file: on any failure the catalogue stays as it was, records to delete
// included.
Erreur reduction(Catalogue& cat, const std::vector<NumeroLigne>& effacees = {}, BilanReduction* bilan = nullptr);

}  // namespace velorin
