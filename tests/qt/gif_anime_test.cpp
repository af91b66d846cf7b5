// The animated GIF writer, read back with giflib.
#include <QImage>

#include <gif_lib.h>

#include "commun/commun.h"
#include "qt/gif_anime.h"

namespace velorin::essai {
namespace {

// Each picture, laid over the ones before ("do not dispose"), reads back as
// the one added: exactly up to 256 colours (a moved square, an unchanged
// picture), each pixel near its colour beyond (a gradient of 1200 colours).
// Each keeps its delay in hundredths of a second; the animation loops.
TEST(GifAnime, ChaqueImageRelueAvecSonDelai)
{
    DossierTemporaire dossier;
    QImage carre(40, 30, QImage::Format_RGB32), deplace, degrade(40, 30, QImage::Format_RGB32);
    carre.fill(Qt::white);
    deplace = carre.copy();
    carre.setPixel(5, 5, qRgb(255, 0, 0));
    for (int i = 0; i < 100; ++i)
        deplace.setPixel(10 + i % 10, 12 + i / 10, qRgb(0, 0, 200));
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x)
            degrade.setPixel(x, y, qRgb(x * 6, y * 8, (x + y) * 3));
    const std::pair<QImage, int> images[] = {{carre, 500}, {deplace, 1000}, {deplace, 30}, {degrade, 44}};
    const std::string nom = dossier / "a.gif";
    {
        EcritureEntiere fichier(nom);
        GifAnime gif(fichier, 40, 30);
        for (const auto& [image, delai] : images)
            ASSERT_FALSE(gif.ajoute(image, delai));
        ASSERT_FALSE(gif.termine());
        ASSERT_FALSE(fichier.termine());
    }
    EXPECT_NE(lisFichier(nom).find("NETSCAPE2.0\x03\x01"), std::string::npos);
    int code = 0;
    GifFileType* gif = DGifOpenFileName(nom.c_str(), &code);
    ASSERT_NE(gif, nullptr) << GifErrorString(code);
    ASSERT_EQ(DGifSlurp(gif), GIF_OK);
    ASSERT_EQ(gif->ImageCount, 4);
    EXPECT_EQ(QSize(gif->SWidth, gif->SHeight), QSize(40, 30));
    QImage ecran(40, 30, QImage::Format_RGB32);
    ecran.fill(Qt::magenta);
    for (int i = 0; i < 4; ++i) {
        const SavedImage& im = gif->SavedImages[i];
        GraphicsControlBlock gcb;
        ASSERT_EQ(DGifSavedExtensionToGCB(gif, i, &gcb), GIF_OK);
        EXPECT_EQ(gcb.DelayTime, (images[i].second + 5) / 10) << i;
        EXPECT_EQ(gcb.DisposalMode, DISPOSE_DO_NOT) << i;
        const ColorMapObject* carte = im.ImageDesc.ColorMap ? im.ImageDesc.ColorMap : gif->SColorMap;
        for (int y = 0; y < im.ImageDesc.Height; ++y)
            for (int x = 0; x < im.ImageDesc.Width; ++x) {
                const GifColorType& k = carte->Colors[im.RasterBits[y * im.ImageDesc.Width + x]];
                ecran.setPixel(im.ImageDesc.Left + x, im.ImageDesc.Top + y, qRgb(k.Red, k.Green, k.Blue));
            }
        int pire = 0;
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 40; ++x) {
                const QRgb a = images[i].first.pixel(x, y), b = ecran.pixel(x, y);
                pire = std::max({pire, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                 std::abs(qBlue(a) - qBlue(b))});
            }
        EXPECT_LE(pire, i < 3 ? 0 : 12) << "image " << i + 1;
    }
    const GifImageDesc& deuxieme = gif->SavedImages[1].ImageDesc;  // only where the picture changed
    EXPECT_EQ(QRect(deuxieme.Left, deuxieme.Top, deuxieme.Width, deuxieme.Height), QRect(5, 5, 15, 17));
    DGifCloseFile(gif, &code);
}

// A disk that fills up: the failure names the animation, the file before stays.
TEST(GifAnime, DisquePleinGardeLAncienFichier)
{
    DossierTemporaire dossier;
    ecrisFichier(dossier / "a.gif", "ancien");
    QImage image(200, 150, QImage::Format_RGB32);
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 200; ++x)
            image.setPixel(x, y, qRgb(x, y, 0));
    simuleDisquePlein(300);
    Erreur erreur;
    {
        EcritureEntiere fichier(dossier / "a.gif");
        GifAnime gif(fichier, 200, 150);
        for (int i = 0; i < 3 && !erreur; ++i) {
            image.setPixel(i, i, qRgb(0, 0, 0));
            erreur = gif.ajoute(image, 50);
        }
        if (!erreur)
            erreur = gif.termine();
        if (!erreur)
            erreur = fichier.termine();
    }
    simuleDisquePlein(-1);
    ASSERT_TRUE(erreur);
    EXPECT_NE(erreur.message().find("a.gif » : le disque est plein"), std::string::npos) << erreur.message();
    EXPECT_EQ(dossier.noms(), std::vector<std::string>{"a.gif"});
    EXPECT_EQ(lisFichier(dossier / "a.gif"), "ancien");
}

}  // namespace
}  // namespace velorin::essai
