// A large picture drawn band after band of rows, so that only one band of
// rows takes memory. Each band is drawn into the same memory, under a
// picture whose rows above and below it fall into address space reserved but
// never written (the painter writes nothing outside the band but its two far
// corner pixels, a page or two). Each band is the same redraw kept to the
// band's rows (see dessineSurImage): the band's pixels are the whole
// picture's, bit for bit. The animated turn draws its large pictures this
// way.
#pragma once
#include <QImage>
#include <string>

#include "base/erreur.h"
#include "qt/dessin_fichier.h"
#include "qt/surface_qpainter.h"

namespace velorin {

class ImageEnBandes {
public:
    // A picture of largeur x hauteur pixels (RGB32) in bands of `lignes`
    // rows.
    ImageEnBandes(int largeur, int hauteur, int lignes);
    ~ImageEnBandes();
    ImageEnBandes(const ImageEnBandes&) = delete;
    ImageEnBandes& operator=(const ImageEnBandes&) = delete;

    int bandes() const { return bandes_; }
    // Rows [premiereLigne(k), premiereLigne(k + 1)) make band k.
    int premiereLigne(int k) const { return std::min(hauteur_, k * lignes_); }
    // Band k's rows cleared to black, then `dessin` drawn over them. Band 0
    // comes first: it notes the rows its drawing reaches, and a later band
    // that none of them falls in is filled with the colour the drawing was
    // cleared to, without drawing it again. A failure of the painter names
    // `cible`.
    Erreur dessine(int k, const DessinSurface& dessin, const std::string& cible);
    // Row y of the band drawn last.
    const QRgb* ligne(int y) const;

private:
    char* memoire_ = nullptr;
    std::size_t taille_ = 0, bande_ = 0;  // the reservation, and where the band's memory starts in it
    int largeur_ = 0, hauteur_ = 0, lignes_ = 1, bandes_ = 0, premiere_ = 0;
    LignesAtteintes atteintes_;  // the rows the first band's drawing reaches
};

}  // namespace velorin
