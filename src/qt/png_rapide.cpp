#include "qt/png_rapide.h"

#include <zlib.h>

#include <algorithm>
#include <vector>

#include "base/ecriture.h"
#include "base/texte_sur.h"

namespace velorin {

namespace {

void ajoute32(std::vector<unsigned char>& s, std::uint32_t v)
{
    for (int decalage = 24; decalage >= 0; decalage -= 8)
        s.push_back(static_cast<unsigned char>(v >> decalage));
}

// One chunk appended to `png`: length, type, data, CRC of type and data.
void ajouteBloc(std::vector<unsigned char>& png, const char type[4], const unsigned char* donnees, std::size_t taille)
{
    ajoute32(png, static_cast<std::uint32_t>(taille));
    const std::size_t debutType = png.size();
    png.insert(png.end(), type, type + 4);
    if (taille)
        png.insert(png.end(), donnees, donnees + taille);
    const uLong crc = crc32(0, png.data() + debutType, static_cast<uInt>(4 + taille));
    ajoute32(png, static_cast<std::uint32_t>(crc));
}

// The whole PNG file of `source` in `png`; `chemin` names it in messages.
Erreur pngEnMemoire(const QImage& source, const std::string& chemin, std::vector<unsigned char>& png)
{
    const QImage image = source.format() == QImage::Format_RGB32 || source.format() == QImage::Format_ARGB32
                             ? source
                             : source.convertToFormat(QImage::Format_RGB32);
    const int w = image.width(), h = image.height();
    if (w <= 0 || h <= 0)
        return "Image vide : rien à écrire dans " + texteCite(chemin) + ".";

    // Rows of filter byte 0 then R, G, B, converted and compressed a band of
    // rows at a time: small buffers, so that no large memory is touched
    // twice (a whole raw copy of the image costs more in page faults than
    // its compression).
    z_stream z{};
    const Erreur compression = "Impossible d'écrire " + texteCite(chemin) + " : la compression de l'image a échoué.";
    if (deflateInit2(&z, 1, Z_DEFLATED, 15, 8, Z_RLE) != Z_OK)
        return compression;
    constexpr int lignesParBande = 32;
    const std::size_t octetsLigne = 1 + 3 * static_cast<std::size_t>(w);
    std::vector<unsigned char> bande(octetsLigne * lignesParBande);
    std::vector<unsigned char> comprime;
    unsigned char tampon[1 << 16];
    int etat = Z_OK;
    for (int y0 = 0; y0 < h && etat == Z_OK; y0 += lignesParBande) {
        const int y1 = std::min(h, y0 + lignesParBande);
        std::size_t k = 0;
        for (int y = y0; y < y1; ++y) {
            bande[k++] = 0;
            const QRgb* ligne = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < w; ++x) {
                bande[k++] = static_cast<unsigned char>(qRed(ligne[x]));
                bande[k++] = static_cast<unsigned char>(qGreen(ligne[x]));
                bande[k++] = static_cast<unsigned char>(qBlue(ligne[x]));
            }
        }
        z.next_in = bande.data();
        z.avail_in = static_cast<uInt>(k);
        const int mode = y1 == h ? Z_FINISH : Z_NO_FLUSH;
        do {
            z.next_out = tampon;
            z.avail_out = sizeof tampon;
            etat = deflate(&z, mode);
            comprime.insert(comprime.end(), tampon, tampon + (sizeof tampon - z.avail_out));
        } while (etat == Z_OK && (z.avail_in > 0 || (mode == Z_FINISH && z.avail_out == 0)));
    }
    deflateEnd(&z);
    if (etat != Z_STREAM_END)
        return compression;

    std::vector<unsigned char> entete;
    ajoute32(entete, static_cast<std::uint32_t>(w));
    ajoute32(entete, static_cast<std::uint32_t>(h));
    entete.insert(entete.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter, not interlaced
    std::vector<unsigned char> physique;
    ajoute32(physique, 3780);  // 96 dots per inch, in dots per metre
    ajoute32(physique, 3780);
    physique.push_back(1);

    // The whole file is put together in memory (the compressed drawing is
    // small), then written whole or not at all.
    static const unsigned char signature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    png.assign(signature, signature + 8);
    png.reserve(comprime.size() + 128);
    ajouteBloc(png, "IHDR", entete.data(), entete.size());
    ajouteBloc(png, "pHYs", physique.data(), physique.size());
    ajouteBloc(png, "IDAT", comprime.data(), comprime.size());
    ajouteBloc(png, "IEND", nullptr, 0);
    return {};
}

}  // namespace

Erreur ecrisPngRapide(const QImage& image, const std::string& chemin)
{
    std::vector<unsigned char> png;
    if (auto erreur = pngEnMemoire(image, chemin, png))
        return erreur;
    return ecrisFichierEntier(chemin, std::string_view(reinterpret_cast<const char*>(png.data()), png.size()));
}

Erreur ecrisPngRapide(const QImage& image, EcritureEntiere& fichier)
{
    std::vector<unsigned char> png;
    if (auto erreur = pngEnMemoire(image, fichier.cible(), png))
        return erreur;
    fichier.ecris(std::string_view(reinterpret_cast<const char*>(png.data()), png.size()));
    return {};
}

}  // namespace velorin
