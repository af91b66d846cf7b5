// The plot request: draws one entry of the catalogue in force, remembering it
// in the drawn-curves table, and the redraw of everything already drawn.
#pragma once
#include <array>
#include <string>

#include "base/erreur.h"
#include "plot/crochets.h"
#include "plot/etat.h"
#include "view/surface.h"

namespace velorin {

// Colour mode of a multiple sending from the list of available curves:
// "Unique" draws every entry in the curve colour in force; "Cycle" gives each
// entry of the selection its own colour (couleurCycle). The list sets it in
// the options of each request of the sending.
enum class ModeCouleurs { Unique, Cycle };

struct OptionsTrace {
    // 0: a new curve, whose row is filled from the drawing values in force.
    // i >= 1: redraw of drawn curve i with the values stored in its row.
    int ligne = 0;
    ModeCouleurs couleurs = ModeCouleurs::Unique;
    int rang = 0;  // rank of the entry in a multiple sending (0 for the first)
};

struct ResultatTrace {
    bool trace = false;       // a tracer ran (completely or until interrupted)
    bool interrompu = false;  // the user stopped the tracing
    int ligne = 0;            // row of the drawn-curves table made or redrawn (0: none)
    Erreur erreur;            // what went wrong, the French message to show
    // The evaluator met brackets it cannot read ("Formule incorrecte"...):
    // the program shows the message and then ends.
    bool formuleIncorrecte = false;
    std::string legende;  // caption shown during the tracing
    double dureeMs = 0;   // tracing time, measured by the core
};

// Draws record `numero` of etat.catalogue (for a redraw, the record number
// stored in the row is used and `numero` is not read). A number beyond the
// catalogue draws nothing and says nothing. Otherwise a new curve gets its
// row (and so its line in the list of drawn curves) before its formulas are
// tested, so that a curve whose formula fails is listed and its message comes
// back at each redraw. A redraw copies the row's values (colours, ranges and
// steps, flags) back into the parameters, and they stay in force afterwards;
// only the colour a "Cycle" sending gives an entry is that entry's alone.
ResultatTrace demandeTrace(Etat& etat, Surface& surface, int numero, const OptionsTrace& options,
                           const CrochetsTrace& crochets);

// The formula fields of an entry text, before cleaning: kinds 0 to 4 split at
// "][", kinds 5 to 9 the pieces after ":[" split at "][" (the closing "]"
// dropped), any other kind (clouds) split at "<". Each field is trimmed;
// missing ones are empty, pieces beyond the third are not read.
std::array<std::string, 3> champsEntree(int type, const std::string& texte);

// Curve colour of the entry of rank `rang` in a "Cycle" sending: rank 0 keeps
// `couleurEnCours`, the next ranks run through red, green, blue, yellow,
// cyan, magenta, orange, then again.
Couleur couleurCycle(const CouleursDefaut& defaut, Couleur couleurEnCours, int rang);

// Caption during the tracing: "[" + entry text (trailing blanks dropped) +
// "]" + " TRACE DE COURBES...".
std::string legendeTrace(const std::string& texteEntree);
// Caption after it: the caption + "__" + tenths of a second as "00.00".
std::string legendeFinTrace(const std::string& legende, int dixiemes);

}  // namespace velorin
