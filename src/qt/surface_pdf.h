// A drawing surface that writes a one-page PDF as it draws (see
// SurfaceVectorielle): the page's content is compressed and written as each
// shape comes, so that the picture is never held in memory (Qt's PDF writer
// keeps the page's content until the page ends). The page is the picture's
// size at 96 dpi (0.75 point a pixel); the texts are in the standard
// Helvetica fonts (Arial's metrics), in Windows-1252.
#pragma once
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "qt/surface_vectorielle.h"

namespace velorin {

class SurfacePdf : public SurfaceVectorielle {
public:
    // Writes the document's head at once.
    SurfacePdf(std::ostream& sortie, int largeurPx, int hauteurPx);
    ~SurfacePdf() override;
    // Writes what is held back and the document's end; false if the
    // compression failed.
    bool termine();

protected:
    void rectangle(double x, double y, double l, double h, Couleur couleur) override;
    void polyligne(const std::vector<PointPlan>& points, Couleur couleur, int largeur, int style) override;
    void face(const std::vector<PointPlan>& coins, Couleur couleur) override;
    void cercle(double x, double y, double rayon, Couleur couleur, int largeur, int style) override;
    void ecrit(double x, double y, const QFont& police, Couleur couleur, const std::string& texte) override;

private:
    struct Compression;
    void brut(const std::string& octets);     // straight to the file, counted
    void contenu(const std::string& octets);  // into the page's compressed content
    void trait(Couleur couleur, int largeur, int style);

    std::ostream& sortie_;
    std::uint64_t ecrits_ = 0;
    std::uint64_t positions_[10] = {};  // where each object starts
    std::uint64_t debutFlux_ = 0;
    std::unique_ptr<Compression> z_;
    bool fini_ = false, echec_ = false;
    std::string texte_;
};

}  // namespace velorin
