// The pen of the frame drawing: lines clipped to the surface, arrow heads,
// ticks and texts that never overlap one another. Used by the space and
// plane frames only.
#pragma once
#include <string>
#include <vector>

#include "settings/parametres.h"
#include "view/placement.h"
#include "view/surface.h"
#include "view/vue.h"

namespace velorin {

class TraceRepere {
public:
    // Sets a solid 1-pixel pen in `couleur` and the frame's font; the
    // destructor puts the surface's pen and font back as they were.
    TraceRepere(Surface& surface, Couleur couleur);
    TraceRepere(const TraceRepere&) = delete;
    TraceRepere& operator=(const TraceRepere&) = delete;

    bool dedans(double x, double y) const;
    // The part of the segment inside the surface. With a point of space
    // attached (see attache), the segment is hidden or seen with that point.
    void ligne(double x1, double y1, double x2, double y2);
    // The part inside the surface of the segment from (x1, y1) to (x2, y2),
    // images of the points of space a and b; versEspace(x, y) gives the
    // point of the segment of space shown at a cut end (x, y).
    template <typename VersEspace>
    void ligneEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b,
                     VersEspace&& versEspace)
    {
        const double ax = x1, ay = y1, bx = x2, by = y2;
        if (!coupeSegment(x1, y1, x2, y2, 0, 0, surface.Width(), surface.Height()))
            return;
        surface.LineEspace(x1, y1, x2, y2, x1 == ax && y1 == ay ? a : versEspace(x1, y1),
                           x2 == bx && y2 == by ? b : versEspace(x2, y2), couleur_);
        traits_.push_back({x1, y1, x2, y2});
    }
    // The marks drawn from now on (lines, arrow heads, ticks, texts) are hidden or
    // seen with the point of space *p; nullptr: they are always seen.
    void attache(const Point3* p) { attache_ = p; }
    // A segment of space showing a and b, whole inside the surface or not
    // at all.
    void ligneEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b);
    // Arrow head at (x, y) pointing along the unit vector (ux, uy).
    void fleche(double x, double y, double ux, double uy);
    // Tick of half-length `demi` across the unit direction (ux, uy).
    void trait(double x, double y, double ux, double uy, double demi);
    // Text beside (px, py) towards (ux, uy) where it overlaps no other text
    // and if possible no line (see placeCadre); false when it found no place
    // and was left out.
    bool texte(const std::string& t, double px, double py, double ux, double uy, double ecart, int directions = 16);

    Surface& surface;

private:
    Couleur couleur_;
    std::vector<Cadre> occupes_;
    std::vector<Segment> traits_;  // lines drawn, for the texts to keep clear of
    GardePlume garde_;             // the pen and font put back at the end
    const Point3* attache_ = nullptr;
};

void traceReperePlan(const Parametres& p, const Vue& v, TraceRepere& t);

}  // namespace velorin
