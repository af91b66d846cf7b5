#include "qt/image_en_bandes.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

#include "qt/surface_qpainter.h"

namespace velorin {

ImageEnBandes::ImageEnBandes(int largeur, int hauteur, int lignes)
    : largeur_(largeur), hauteur_(hauteur)
{
    if (largeur <= 0 || hauteur <= 0)
        return;
    lignes_ = std::clamp(lignes, 1, hauteur);
    bandes_ = (hauteur + lignes_ - 1) / lignes_;
    // The band's memory in the middle, with a whole picture's height of
    // address space above and below it: band k's picture starts k bands
    // above it.
    const std::size_t page = std::size_t(sysconf(_SC_PAGESIZE));
    const std::size_t hauteurOctets = (std::size_t(hauteur) * std::size_t(largeur) * 4 + page - 1) / page * page;
    taille_ = 2 * hauteurOctets;
    bande_ = hauteurOctets;
    // Reserved, not taken: a page is only given when first written. No huge
    // pages: the band must cost its own pages only.
    void* m = mmap(nullptr, taille_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (m == MAP_FAILED) {
        bandes_ = 0;
        return;
    }
#ifdef MADV_NOHUGEPAGE
    madvise(m, taille_, MADV_NOHUGEPAGE);
#endif
    memoire_ = static_cast<char*>(m);
}

ImageEnBandes::~ImageEnBandes()
{
    if (memoire_)
        munmap(memoire_, taille_);
}

const QRgb* ImageEnBandes::ligne(int y) const
{
    return reinterpret_cast<const QRgb*>(memoire_ + bande_ + std::size_t(y - premiere_) * std::size_t(largeur_) * 4);
}

Erreur ImageEnBandes::dessine(int k, const DessinSurface& dessin, const std::string& cible)
{
    if (!memoire_ || k < 0 || k >= bandes_) {
        QImage rien;
        return dessineSurImage(rien, dessin, cible);  // says the picture is too large
    }
    premiere_ = premiereLigne(k);
    const int fin = premiereLigne(k + 1);
    const std::size_t pas = std::size_t(largeur_) * 4;
    auto* debut = reinterpret_cast<uchar*>(memoire_ + bande_ - std::size_t(premiere_) * pas);
    QImage image(debut, largeur_, hauteur_, qsizetype(pas), QImage::Format_RGB32);
    auto remplis = [&](QRgb couleur) {
        for (int y = premiere_; y < fin; ++y) {
            auto* l = reinterpret_cast<QRgb*>(image.scanLine(y));
            std::fill(l, l + largeur_, couleur);
        }
    };
    remplis(QRgb(0xFF000000u));
    if (premiere_ == 0 && fin == hauteur_)
        return dessineSurImage(image, dessin, cible);
    // The first band notes the rows the drawing reaches; a later band that
    // it never reaches holds the clearing's colour only, and is not drawn.
    if (k == 0) {
        atteintes_.atteinte.assign(std::size_t(hauteur_), 0);
        atteintes_.fond.reset();
    } else if (std::find(atteintes_.atteinte.begin() + premiere_, atteintes_.atteinte.begin() + fin, 1) ==
               atteintes_.atteinte.begin() + fin) {
        if (atteintes_.fond)
            remplis(couleurQt(*atteintes_.fond).rgb());
        return {};
    }
    Erreur erreur =
        dessineSurImage(image, dessin, cible, LignesImage{premiere_, fin, k == 0 ? &atteintes_ : nullptr});
    // The pages of the two corner pixels outside the band are given back:
    // each band has its own.
    const std::size_t page = std::size_t(sysconf(_SC_PAGESIZE));
    auto rends = [&](const uchar* pixel) {
        auto* debutPage = reinterpret_cast<char*>(reinterpret_cast<std::uintptr_t>(pixel) & ~std::uintptr_t(page - 1));
        if (debutPage + page > memoire_ + bande_ && debutPage < memoire_ + bande_ + std::size_t(fin - premiere_) * pas)
            return;  // a page of the band itself
        madvise(debutPage, page, MADV_DONTNEED);
    };
    rends(image.constScanLine(0));
    rends(image.constScanLine(hauteur_ - 1) + pas - 4);
    return erreur;
}

}  // namespace velorin
