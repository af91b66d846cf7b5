// Plane geometry: on the surface, in twips, clipping a segment to a
// rectangle and placing text boxes beside points without overlap; on the
// screen, keeping a window whole on it.
#pragma once
#include <optional>
#include <vector>

namespace velorin {

// A text box: top left corner and size.
struct Cadre {
    double x = 0, y = 0, largeur = 0, hauteur = 0;
    bool chevauche(const Cadre& autre) const;
    // Wholly inside the rectangle 0..W x 0..H.
    bool dans(double W, double H) const;
};

struct Segment {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// Clips the segment to the rectangle [xmin, xmax] x [ymin, ymax] (xmin <=
// xmax, ymin <= ymax); returns
// false (and leaves the ends alone) when nothing of it is inside.
bool coupeSegment(double& x1, double& y1, double& x2, double& y2, double xmin, double ymin, double xmax, double ymax);

// A box of size largeur x hauteur just beside the point (px, py), at the
// distance `ecart` from it, in the direction (ux, uy) or failing that in the
// nearest other direction (`directions` are tried, 1 to 16, 22.5 degrees
// apart, nearest to (ux, uy) first) where, pushed back inside the surface
// W x H if it sticks out, it overlaps none of `occupes`, even grown by `ecart` / 2. A place that also keeps clear of
// the lines `traits` (by `ecart` / 2) is preferred, within 90 degrees of
// (ux, uy) and up to three times further, over one that only avoids the
// boxes (up to twice further). Nothing when no place is free.
std::optional<Cadre> placeCadre(double px, double py, double ux, double uy, double largeur, double hauteur,
                                double ecart, const std::vector<Cadre>& occupes, const std::vector<Segment>& traits,
                                double W, double H, int directions = 16);

// The borders a window's frame adds around its inside.
struct Bords {
    double gauche = 0, haut = 0, droite = 0, bas = 0;
};

// The inside of a window asked to stand at `voulu` (a figure's place),
// moved and shrunk so that the window with its frame `bords` lies whole on
// the screen area `ecran`: too wide or too high, it takes the whole width or
// height; sticking out, it comes back in. It keeps at least
// `largeurMin` x `hauteurMin` (inside), unless the screen is smaller still.
Cadre tiensSurEcran(const Cadre& voulu, const Cadre& ecran, const Bords& bords, double largeurMin, double hauteurMin);

}  // namespace velorin
