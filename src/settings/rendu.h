// How the drawing is rendered beyond the older program's wire mesh: the
// drawing style, the projection (the program's perspective or cavalière),
// the plane frame's grid and the space frame's graduations. Kept in
// "rendu.txt", a small text file of Velorin's own beside "mem.log" in the
// curves folder in force; "mem.log" and the figure files never carry it.
//
// One setting a line, "name=value" (values with "." whatever the locale):
//   # Velorin : rendu du dessin
//   style=pointilles           filaire | pointilles | effaces | faces
//   projection=cavaliere       perspective | cavaliere
//   angle=45                   angle of the receding axis, degrees, 0 to 90 excluded
//   coefficient=0.5            shortening of the receding axis, above 0, at most 1
//   tour=0                     turn of the solid about Oz in cavalière, degrees
//   quadrillage=1              0 | 1
//   repereGradue=1             0 | 1
// Lines end with LF when written; CR LF, LF or CR are read. Blank lines and
// lines starting with "#" are ignored. A setting missing from the file keeps
// its value in force.
#pragma once
#include <string>

#include "base/erreur.h"

namespace velorin {

enum class StyleRendu {
    FilDeFer = 0,     // "Fil de fer": the older program's drawing, unchanged
    Pointilles = 1,   // "Parties cachées en pointillés"
    Effaces = 2,      // "Parties cachées effacées"
    FacesOmbrees = 3  // "Faces ombrées"
};

struct Rendu {
    StyleRendu style = StyleRendu::FilDeFer;
    bool cavaliere = false;      // false: the program's perspective
    double angleCavaliere = 45;  // degrees
    double coefCavaliere = 0.5;
    double tourCavaliere = 0;  // degrees, the solid turned about Oz
    bool quadrillage = false;   // "Quadrillage" under the plane curves
    bool repereGradue = false;  // "Repère gradué" on the space axes

    bool operator==(const Rendu&) const = default;
};

// Whether the drawing must be resolved as a whole (hidden parts or faces)
// rather than drawn point by point.
inline bool renduCache(const Rendu& r)
{
    return r.style != StyleRendu::FilDeFer;
}

// "rendu.txt".
const char* nomFichierRendu();

// The text of the file for `rendu`.
std::string texteRendu(const Rendu& rendu);

// Reads the text of a rendering file into `rendu`. On success returns
// nothing; otherwise the French message naming `chemin` and the line, and
// `rendu` is untouched.
Erreur analyseRendu(const std::string& contenu, const std::string& chemin, Rendu& rendu);

// Reads the file (more than 64 KiB is refused), see analyseRendu.
Erreur lisRendu(const std::string& chemin, Rendu& rendu);

// Writes the file whole or not at all.
Erreur ecrisRendu(const std::string& chemin, const Rendu& rendu);

}  // namespace velorin
