// A drawing surface that writes an SVG picture as it draws (see
// SurfaceVectorielle): the picture a painter on an SVG generator of the same
// size at 96 dpi gives, without ever holding the document in memory (the
// generator keeps it whole until its end).
#pragma once
#include <ostream>
#include <string>

#include "qt/surface_vectorielle.h"

namespace velorin {

class SurfaceSvg : public SurfaceVectorielle {
public:
    // Writes the document's head at once; `titre` is written as it is given
    // (already escaped for XML).
    SurfaceSvg(std::ostream& sortie, int largeurPx, int hauteurPx, const std::string& titre);
    ~SurfaceSvg() override;  // ends the document if termine() was not called
    // Writes what is held back and the document's end.
    void termine();

protected:
    void rectangle(double x, double y, double l, double h, Couleur couleur) override;
    void polyligne(const std::vector<PointPlan>& points, Couleur couleur, int largeur, int style) override;
    void face(const std::vector<PointPlan>& coins, Couleur couleur) override;
    void cercle(double x, double y, double rayon, Couleur couleur, int largeur, int style) override;
    void ecrit(double x, double y, const QFont& police, Couleur couleur, const std::string& texte) override;

private:
    void trait(Couleur couleur, int largeur, int style);
    // Consecutive faces share a group that carries their hairline's width;
    // any other shape closes it first.
    void fermeGroupe();

    std::ostream& sortie_;
    bool fini_ = false, groupe_ = false;
    std::string texte_;  // the element being written
};

}  // namespace velorin
