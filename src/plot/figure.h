// Figure files (".fig"): a whole screen kept as text, read back later.
//
// Layout, lines ended by CR LF:
//   1  modePlan                                   True / False
//   2  the catalogue's file name                  text alone on its line
//   3  xmin xmax ymin ymax zmin zmax              four doubles, a single, a double
//   4  Xviseur Yviseur Zviseur pasRota Xdirection Ydirection Zdirection Rotadir
//                                                 double, double, single, single, four doubles
//   5  nbCourbes, number of labels, video inversion, colour reference
//                                                 two 16-bit integers, two booleans
//   6  Left Top Width Height of the main window   four singles, twips
//   then for each drawn curve its 32 values, one a line, in column order
//   then for each label (the template, label 0, never) nine lines:
//        font name, size (single), bold, italic, underline, colour (32-bit
//        integer), caption, left, top (singles, twips).
// On a numeric line each number is written with a blank before it when it
// is not negative (the minus sign otherwise) and one blank after it; a
// boolean is the word True or False, followed by one blank when it shares
// its line. A double keeps 15 significant digits, a single 7, "." always.
// Reading splits a numeric line on blanks, takes a comma as the decimal
// separator too, and the booleans True/False (also Vrai/Faux, any case).
//
// How the window uses it:
//   Saving (memorisons): ecrisFigure(dossierFig + name + ".fig", etat,
//   geometry of the window in twips). The file is written whole or not at
//   all: a failed save leaves the previous figure as it was.
//   Reading (lecmemoire): lisFigure(chemin, etat). The reading itself
//   removes every label, switches mode and folders (line 1), takes the
//   catalogue name and opens it in the curves folder of that mode (line 2),
//   sets the frame and viewing values (lines 3, 4), the video inversion and
//   the reference colour chosen by the flag (line 5), replaces the drawn-curves table, adds the
//   labels and resets the template. Each value applies as soon as its line
//   (for a curve or a label: its whole group of lines) has been read; on an
//   error the lines before stay in force and the message names the file and
//   the line. Left to the window: giving itself the geometry of
//   `ResultatFigure::geometrie` (when line 6 was read), its background
//   from the state (couleursRepere) while the reference colour read stays, the message messageFigure(resultat)
//   in a box, the projection, clearing, frame and the re-plot of every row
//   (OptionsTrace{.ligne = i}), the controls of the labels and of the
//   drawn-curves menu, and showing `erreur` when there is one.
#pragma once
#include <string>

#include "base/erreur.h"
#include "plot/etat.h"

namespace velorin {

// The main window's place and size, in twips.
struct GeometrieFenetre {
    float gauche = 0, haut = 0, largeur = 0, hauteur = 0;
};

// The most labels a figure may hold (its count is a 16-bit number).
inline constexpr int maxEtiquettes = 32767;

// The text of the figure of `etat`: its mode, catalogue name
// (fichierCatalogue), frame, viewer, drawn curves and every label after
// the template, with `geometrie` on line 6. Non-finite numbers are written as they are (the
// writer refuses them first).
std::string texteFigure(const Etat& etat, const GeometrieFenetre& geometrie);

// Writes the figure of `etat` to `chemin` whole or not at all. A number that
// is not finite is refused before anything is written. French message on
// failure, naming the file.
Erreur ecrisFigure(const std::string& chemin, const Etat& etat, const GeometrieFenetre& geometrie);

// The figure the window saves just before the program ends on a formula
// whose brackets the evaluator cannot read.
inline constexpr const char* nomFigureSecours = "secours.fig";

// Saves the screen of `etat` as nomFigureSecours in its figure folder
// (dossierFig), whole or not at all, without drawn curve `sansLigne` (the
// one that ends the program: read back, it would end it again). Gives the
// French sentence that tells where it went, or why it could not be saved.
std::string sauveSecours(const Etat& etat, int sansLigne, const GeometrieFenetre& geometrie);

struct OptionsFigure {
    // Folder of the catalogue named on line 2 (ending with '/'); empty: the
    // curves folder of the figure's mode (etat.fenetre.dossierCourbes once
    // line 1 has switched it).
    std::string dossierCatalogue;
    // The catalogue must already exist (a drawing without a window must not
    // create one); otherwise a missing catalogue is created empty, as the
    // window does for any catalogue it opens.
    bool catalogueExistant = false;
};

struct ResultatFigure {
    Erreur erreur;       // French, naming the file and the line
    int lignesLues = 0;  // lines of the file read and applied
    int nbCourbes = 0;   // the counts of line 5 (0 when not reached)
    int nbEtiquettes = 0;
    bool referenceFond = true;  // the colour-reference flag of line 5
    bool geometrieLue = false;  // line 6 was read
    GeometrieFenetre geometrie;
};

// Reads the text of a figure into `etat` (see the top of this file for
// what changes, in what order). `chemin` names the file in messages.
ResultatFigure analyseFigure(const std::string& contenu, const std::string& chemin, Etat& etat,
                             const OptionsFigure& options = {});

// Reads the file `chemin` (checked first: a missing file, a folder, a FIFO
// each have their sentence; nothing in the state changes then, not even
// the labels).
ResultatFigure lisFigure(const std::string& chemin, Etat& etat, const OptionsFigure& options = {});

// The message after a reading: "Nre de fonctions " + count, a line break
// ("\n", which a message box shows as such), "Nbre de labels " + count.
std::string messageFigure(const ResultatFigure& r);

}  // namespace velorin
