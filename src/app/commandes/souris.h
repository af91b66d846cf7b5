// What the main window keeps of a mouse gesture on the drawing between the
// press and the release.
#pragma once
#include <QPoint>
#include <Qt>

namespace velorin {

// The gesture chosen when the button went down.
enum class Geste {
    aucun,
    cadre,   // left + Shift in the plane: the frame follows, on release
    loupe,   // left + Alt in the plane: the rubber rectangle
    vue,     // plain left: the view turns (space) or the frame pans (plane), live
    bouton,  // another button: handled on release
};

struct GesteSouris {
    Geste geste = Geste::aucun;
    QPoint depart;   // press point, pixels of the drawing area
    QPoint dernier;  // last point already applied by a live drag
};

}  // namespace velorin
