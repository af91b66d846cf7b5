// The four folders beside the executable: catalogues and parameter files of
// space and of the plane, figures of space and of the plane.
#pragma once
#include <QString>

#include "base/erreur.h"

#include "plot/etat.h"

namespace velorin {

// Names of the four folders, in the order space curves, space figures,
// plane curves, plane figures.
extern const char* const nomsDossiers[4];

// Sets cheminEspaceCourbes .. cheminPlanFig from the application folder
// ("/" as separator, each ending in "/").
void fixeDossiers(EtatFenetre& f, const QString& dossierAppli);

// Creates each folder that is missing and copies into it every factory file
// of <appli>/usine/<folder>/ that it lacks (a file the user has is never
// replaced). On failure, says what could not be done, one French sentence
// per line.
Erreur prepareDossiers(const QString& dossierAppli);

}  // namespace velorin
