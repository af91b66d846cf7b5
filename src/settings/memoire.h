// The parameter memory file: "mem.log" (the remembered set, read at start)
// and "memprovi.log" (the provisional set), six lines in the curves folder
// in force. Reading and writing report failures as a French message naming
// the file and the line; nothing is thrown and a failed read changes
// nothing.
#pragma once
#include "base/erreur.h"
#include <string>
#include <string_view>

#include "settings/parametres.h"

namespace velorin {

// The viewer (Xviseur, Yviseur, Zviseur) and the viewing direction
// (Xdirection, Ydirection, Zdirection) stay within -limiteVue..limiteVue:
// beyond, the projection's squares and differences lose the frame (from
// about 1E+154 they overflow and nothing at all is drawn), so the memory
// file and the parameter dialog refuse such a value by its field.
inline constexpr double limiteVue = 1e9;
inline bool estCoordonneeDeVue(std::string_view nom)
{
    return nom.size() == 7 ? nom == "Xviseur" || nom == "Yviseur" || nom == "Zviseur"
                           : nom == "Xdirection" || nom == "Ydirection" || nom == "Zdirection";
}

// "mem.log" for the remembered set, "memprovi.log" for the provisional one.
const char* nomFichierMemoire(bool retenu);

// The six lines of the file, each ended by CR LF:
//   xmin,xmax,ymin,ymax,zmin,zmax
//   tmin,tmax,pasT,amin,amax,pasA
//   nbrCalX,nbrCalY,nbrCalZ,Xviseur,Yviseur,Zviseur
//   pasRota,Xdirection,Ydirection,Zdirection,Rotadir,repereOrthonorme,traceContinu,avecSegmentTangent
//   projXOy,projXOz,projYOz,projOx,projOy,projOz,axesVisibles,avecRayon,fondBlanc
//   pauseMs,ordreBoucles,avecMoirure
// Numbers as texteNombre writes them (15 significant digits for a double, 7
// for a single), check boxes as 0 or 1, avecMoirure as "#TRUE#"/"#FALSE#".
std::string texteMemoire(const Parametres& p);

// Reads the text of a memory file into `p`. On success returns nothing and
// `p` holds the values read; otherwise returns the French message (naming
// `chemin` and the line) and `p` is untouched. Lines 1 to 5 must hold
// exactly 6, 6, 6, 8 and 9 values; of line 6 only the first value, pauseMs,
// is read (ordreBoucles and avecMoirure keep their values in force). Lines
// may end with CR LF, LF alone or CR alone, and a UTF-8 byte-order mark in
// front is skipped; blanks around a value are ignored; lines after the sixth
// are ignored. "inf", "nan" and values beyond a double are refused; a line
// with too many values says that the decimal separator must be ".". File
// text in messages goes through texteSur (no raw control byte).
// Each value converts into its member's type: a single is rounded to single
// precision and must fit in it; pauseMs is rounded to the nearest integer
// (half to even) and must lie in -32768..32767; a check box takes 0 or 1,
// and "#TRUE#"/"#FALSE#" are taken there as 1 and 0 (the other fields need a
// number). A viewer or direction coordinate beyond limiteVue is refused.
Erreur analyseMemoire(const std::string& contenu, const std::string& chemin, Parametres& p);

// Reads the file `chemin` (see analyseMemoire). The path is checked first
// (verifieFichierLisible): a missing file, a folder, a FIFO, a device or a
// link loop each get their own sentence, and reading never blocks; a file
// of more than 64 KiB is refused.
Erreur lisMemoire(const std::string& chemin, Parametres& p);

// Writes `p` to `chemin` whole or not at all (ecrisFichierEntier: on any
// failure the previous file stays). A value that is not finite, or a viewer
// or direction coordinate beyond limiteVue, is refused (it could not be read
// back). Returns the French message on failure.
Erreur ecrisMemoire(const std::string& chemin, const Parametres& p);

}  // namespace velorin
