// The application folder and its four folders: catalogues and parameter
// files of space and of the plane, figures of space and of the plane; and
// the factory folder they are filled from.
//
// Run from its build folder (or any folder beside which it may write), the
// program keeps its folders beside the executable and its factory files in
// usine/ there. Installed (the data folder share/velorin beside the
// executable's bin/ folder, or an executable's folder it may not write),
// each user's folders live in the user's data folder (XDG_DATA_HOME, else
// ~/.local/share, then velorin/) and the factory files are read from
// ../share/velorin relative to the executable, whatever the prefix.
#pragma once
#include <QString>

#include "base/erreur.h"

#include "plot/etat.h"

namespace velorin {

// Names of the four folders, in the order space curves, space figures,
// plane curves, plane figures.
extern const char* const nomsDossiers[4];

struct Emplacements {
    QString appli;  // application folder: the four folders, "Aide" if the user has one
    QString usine;  // factory folder: shipped catalogues, parameter files and help pages
    bool installe = false;
};

// The rule above for an executable in `dossierExecutable`, with the
// environment's XDG_DATA_HOME and HOME (either may be empty).
Emplacements emplacementsPour(const QString& dossierExecutable, const QString& xdgDataHome, const QString& home);
// The rule for the running executable and the process's environment.
Emplacements emplacements();
// Folder of the running executable (read from /proc/self/exe, so that it
// works before any Qt application exists).
QString dossierExecutableCourant();

// The factory folder that goes with an application folder: its own usine/
// when it has one (the build folder, a test's copy), otherwise the
// installed data folder of the running executable.
QString dossierUsinePour(const QString& dossierAppli);

// True when none of the four folders exists in the application folder: the
// first start of this user, before anything was installed.
bool premierDemarrage(const QString& dossierAppli);

// The help index "Aide/index.htm": the application folder's own copy when
// there is one, else the factory one (which may not exist).
QString pageAccueilAide(const Emplacements& e);

// Sets cheminEspaceCourbes .. cheminPlanFig from the application folder
// ("/" as separator, each ending in "/").
void fixeDossiers(EtatFenetre& f, const QString& dossierAppli);

// Creates each folder that is missing (the application folder with them)
// and copies into it every factory file of <usine>/<folder>/ that it lacks
// (a file the user has is never replaced). On failure, says what could not
// be done, one French sentence per line.
Erreur prepareDossiers(const QString& dossierAppli, const QString& dossierUsine);
// The same with the factory folder that goes with `dossierAppli`.
Erreur prepareDossiers(const QString& dossierAppli);

}  // namespace velorin
