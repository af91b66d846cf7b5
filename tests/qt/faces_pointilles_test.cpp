// The hidden parts and the faces in every output: the same drawing on the
// window's bitmap, in the SVG, the PDF and the TikZ figure, each read back
// as pixels (Qt's SVG renderer, pdftoppm, pdflatex).
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <tuple>

#include "commun/commun.h"
#include "qt/surface_pdf.h"
#include "qt/surface_qpainter.h"
#include "qt/surface_svg.h"
#include "qt/surface_tikz.h"

namespace velorin::essai {
namespace {

constexpr int largeur = 200, hauteur = 100;
constexpr double t = twipsParPixelEcran;

// Two blue faces sharing a slanted edge between pixels; along row 50 a
// solid line that a dashed one goes on from, in two-pixel steps as a
// mesh's segments come.
void dessine(Surface& s)
{
    s.Clear(0xFFFFFF);
    const double gx[] = {20 * t, 50.3 * t, 49.6 * t, 20 * t}, dx[] = {50.3 * t, 80 * t, 80 * t, 49.6 * t};
    const double ys[] = {20 * t, 20 * t, 80 * t, 80 * t};
    s.Face(gx, ys, 4, 0xFF0000);
    s.Face(dx, ys, 4, 0xFF0000);
    for (int x = 100; x < 190; x += 2) {
        s.DrawStyle = x < 140 ? 0 : 1;
        s.Line(x * t, 50.5 * t, (x + 2) * t, 50.5 * t, 0);
    }
    s.DrawStyle = 0;
}

// A PDF's page at 96 dpi; a null picture when pdftoppm fails.
QImage pageDuPdf(const DossierTemporaire& d, const std::string& pdf)
{
    const std::string commande =
        "pdftoppm -r 96 -png -singlefile '" + d / pdf + "' '" + d / "page" + "' >/dev/null 2>&1";
    return std::system(commande.c_str()) == 0 ? QImage(QString::fromStdString(d / "page.png")) : QImage();
}

QImage bitmap(const DossierTemporaire&)
{
    QImage image = imagePourSurface(largeur, hauteur);
    SurfaceQPainter s(image);
    dessine(s);
    s.Acheve();
    return image;
}

QImage svg(const DossierTemporaire&)
{
    std::ostringstream flux;
    {
        SurfaceSvg s(flux, largeur, hauteur, "t");
        dessine(s);
    }
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter peintre(&image);
    QSvgRenderer(QByteArray::fromStdString(flux.str())).render(&peintre);
    return image;
}

QImage pdf(const DossierTemporaire& d)
{
    {
        std::ofstream f(d / "a.pdf", std::ios::binary);
        SurfacePdf s(f, largeur, hauteur);
        dessine(s);
    }
    return pageDuPdf(d, "a.pdf");
}

QImage tikz(const DossierTemporaire& d)
{
    {
        std::ofstream f(d / "a.tex");
        SurfaceTikz s(f, largeur, hauteur, OptionsTex{.largeurCm = largeur * 2.54 / 96, .autonome = true});
        dessine(s);
    }
    const std::string commande = "cd '" + d.chemin().string() +
                                 "' && pdflatex -interaction=nonstopmode -halt-on-error a.tex >/dev/null 2>&1";
    return std::system(commande.c_str()) == 0 ? pageDuPdf(d, "a.pdf") : QImage();
}

bool proche(QRgb p, QRgb attendu, int tolerance)
{
    return std::max({std::abs(qRed(p) - qRed(attendu)), std::abs(qGreen(p) - qGreen(attendu)),
                     std::abs(qBlue(p) - qBlue(attendu))}) <= tolerance;
}

// A face is filled in its colour, without a seam of the background along the
// edge it shares with its neighbour; a dashed piece has gaps, and is not
// joined to the solid line before it (which would make it solid, or the
// solid one dashed).
TEST(Sorties, FacesPleinesSansCoutureEtPartiesCacheesEnTirets)
{
    // Name, the tools that read it back (skipped when absent), drawing.
    const std::tuple<const char*, const char*, std::function<QImage(const DossierTemporaire&)>> sorties[] = {
        {"bitmap", "true", bitmap},
        {"svg", "true", svg},
        {"pdf", "pdftoppm", pdf},
        {"tikz", "pdflatex && command -v pdftoppm", tikz}};
    for (const auto& [nom, outils, rendue] : sorties) {
        if (std::system(("{ command -v " + std::string(outils) + "; } >/dev/null 2>&1").c_str()) != 0) {
            std::printf("%s : pas relu, %s absent\n", nom, outils);
            continue;
        }
        DossierTemporaire d;
        const QImage image = rendue(d).convertToFormat(QImage::Format_RGB32);
        // The TeX page's size is rounded on its way to pdftoppm's pixels.
        ASSERT_TRUE(std::abs(image.width() - largeur) <= 1 && std::abs(image.height() - hauteur) <= 1)
            << nom << " " << image.width() << "x" << image.height();
        const QRgb bleu = qRgb(0, 0, 255), noir = qRgb(0, 0, 0);
        int couture = 0;
        for (int y = 25; y < 75; ++y)
            for (int x = 25; x < 75; ++x)
                couture += !proche(image.pixel(x, y), bleu, 40);
        EXPECT_EQ(couture, 0) << nom;
        int pleinsTrous = 0, tirets = 0, trous = 0;
        for (int x = 103; x < 137; ++x)
            pleinsTrous += !proche(image.pixel(x, 50), noir, 100);
        for (int x = 143; x < 187; ++x) {
            tirets += proche(image.pixel(x, 50), noir, 100);
            trous += proche(image.pixel(x, 50), qRgb(255, 255, 255), 100);
        }
        EXPECT_EQ(pleinsTrous, 0) << nom;
        EXPECT_TRUE(tirets >= 10 && trous >= 10) << nom << " : " << tirets << " sombres, " << trous << " clairs";
    }
}

}  // namespace
}  // namespace velorin::essai
