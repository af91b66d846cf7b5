// Writing an animated GIF picture by picture (giflib), into a file being
// written whole: the pictures are drawn one after the other into the same
// image and each is added as it comes, so that a long animation never holds
// more than that picture and the one before it, kept by runs of one colour.
//
// Each picture after the first is stored as the rectangle where it differs
// from the one before, left in place underneath (GIF's "do not dispose"),
// the pixels of the rectangle that did not change being transparent: a
// turning drawing on a still background then costs only what it changed.
// The palette of the changed pixels is their colours exactly when there are
// at most 255 of them, otherwise 255 chosen colours, every other colour shown
// as the nearest of those; a frame keeps the palette of the one before while
// that shows each of its changed colours exactly. The animation loops for
// ever.
#pragma once
#include <QImage>
#include <gif_lib.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "base/ecriture.h"
#include "base/erreur.h"

namespace velorin {

struct PaletteGif;

// A picture kept by runs of one colour row by row: a drawing is mostly long
// runs of its background and short runs of its lines' blends, so it costs a
// few hundred kilobytes where the full picture would take four bytes a pixel.
// A run takes a byte or two: its length and the colour's number in a list of
// the picture's first 4095 colours (a later colour is written out whole).
// Runs are as long as they can be. The rows follow one another in one array,
// written in order; the pictures are opaque.
class ImageParPlages {
public:
    explicit ImageParPlages(int largeur = 0) : largeur_(largeur) { }
    int largeur() const { return largeur_; }
    int hauteur() const { return int(debuts_.size()) - 1; }
    // Forgets every row (the memory stays, for the next picture).
    void efface();
    // Appends the next row from `pixels` (largeur of them).
    void ajoute(const QRgb* pixels);
    // Row y into `pixels` (largeur of them).
    void lis(int y, QRgb* pixels) const;
    // Whether row y holds the same pixels as row y of `autre`.
    bool memeLigne(int y, const ImageParPlages& autre) const;

private:
    struct Plage;
    Plage lisPlage(const std::uint8_t*& p) const;
    std::uint32_t numero(std::uint32_t couleur);  // 0 when the list is full
    int largeur_;
    std::vector<std::uint8_t> octets_;
    std::vector<std::size_t> debuts_{0};   // where each row starts in octets_, then its end
    std::vector<std::uint32_t> couleurs_;  // the numbered colours, number 1 first
    std::vector<std::uint16_t> table_;     // colour numbers by hash of the colour (0: free)
};

class GifAnime {
public:
    // Starts the file in `fichier` (which must outlive this object) for
    // pictures of largeur x hauteur pixels.
    GifAnime(EcritureEntiere& fichier, int largeur, int hauteur);
    ~GifAnime();
    GifAnime(const GifAnime&) = delete;
    GifAnime& operator=(const GifAnime&) = delete;

    // Adds a picture of the size given at the start, shown for `delaiMs`
    // (GIF keeps hundredths of a second).
    Erreur ajoute(const QImage& image, int delaiMs);
    // The same, for a picture already kept by runs, of the size given at the
    // start; `image` then holds a picture to be written over (efface).
    Erreur ajoute(ImageParPlages& image, int delaiMs);
    // Ends the GIF data; the caller then finishes `fichier`. The first
    // failure met since the start, if any.
    Erreur termine();

private:
    static int ecritOctets(GifFileType* gif, const GifByteType* octets, int n);
    Erreur echec(const char* etape);
    EcritureEntiere& fichier_;
    GifFileType* gif_ = nullptr;
    int largeur_, hauteur_;
    ImageParPlages precedente_;            // the last picture added (none at the start)
    std::vector<QRgb> tampon_, ligne_;     // a row of it, a row of the picture added
    std::unique_ptr<PaletteGif> palette_;  // the last frame's
    Erreur erreur_;
    bool ecritureEchouee_ = false;
};

}  // namespace velorin
