#include <gtest/gtest.h>

#include <QFile>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <QTemporaryDir>

#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"

namespace velorin {
namespace {

// The Qt application of these tests is made once for the whole test
// program by its environment (banc_fenetre.h).

// A white image of w x h logical pixels (ratio: device pixels per pixel).
QImage blanche(int w, int h, qreal ratio = 1)
{
    QImage image = imagePourSurface(w, h, ratio);
    image.fill(Qt::white);
    return image;
}

bool estCouleur(QRgb p, int r, int g, int b, int tolerance = 40)
{
    return std::abs(qRed(p) - r) <= tolerance && std::abs(qGreen(p) - g) <= tolerance &&
           std::abs(qBlue(p) - b) <= tolerance;
}

TEST(SurfaceQPainter, TwipsLandOnTheirPixelsWithTheRightColours)
{
    for (qreal ratio : {1, 2}) {
        QImage image = blanche(200, 100, ratio);
        {
            SurfaceQPainter s(image);
            EXPECT_DOUBLE_EQ(s.Width(), 3000);
            EXPECT_DOUBLE_EQ(s.Height(), 1500);
            EXPECT_DOUBLE_EQ(s.twipsParPixel(), 15);
            // Red line along the middle of pixel row 50, from x 10 to 190 px.
            s.Line(150, 757.5, 2850, 757.5, 0x0000FF);
            s.PSet(20 * 15, 30 * 15, 0xFF0000);  // blue
            s.PSet(60 * 15, 80 * 15, 0x00FF00);  // green
            EXPECT_EQ(s.CurrentX, 900);
        }
        const int k = static_cast<int>(ratio);
        EXPECT_TRUE(estCouleur(image.pixel(100 * k, 50 * k), 255, 0, 0)) << ratio;
        EXPECT_TRUE(estCouleur(image.pixel(5 * k, 50 * k), 255, 255, 255)) << ratio;
        EXPECT_TRUE(estCouleur(image.pixel(100 * k, 40 * k), 255, 255, 255)) << ratio;
        EXPECT_TRUE(estCouleur(image.pixel(20 * k, 30 * k), 0, 0, 255, 0)) << ratio;
        EXPECT_TRUE(estCouleur(image.pixel(60 * k, 80 * k), 0, 255, 0, 0)) << ratio;
        EXPECT_TRUE(estCouleur(image.pixel(21 * k + k - 1, 30 * k), 255, 255, 255, 0)) << ratio;
    }
}

TEST(SurfaceQPainter, GatheredSegmentsStylesAndClearing)
{
    QImage image = blanche(300, 100);
    SurfaceQPainter s(image);
    // A polyline of 280 one-pixel steps, a dotted line, a wide line.
    for (int x = 10; x < 290; ++x)
        s.Line(x * 15, 20.5 * 15, (x + 1) * 15, 20.5 * 15, 0);
    s.DrawStyle = 2;
    s.Line(150, 50.5 * 15, 4350, 50.5 * 15, 0);
    s.DrawStyle = 0;
    s.DrawWidth = 5;
    s.Line(150, 80 * 15, 4350, 80 * 15, 0xFF0000);
    s.Acheve();
    int pleins = 0, pointilles = 0;
    for (int x = 20; x < 280; ++x) {
        pleins += estCouleur(image.pixel(x, 20), 0, 0, 0, 60);
        pointilles += estCouleur(image.pixel(x, 50), 0, 0, 0, 100);
    }
    EXPECT_EQ(pleins, 260);
    EXPECT_GT(pointilles, 40);  // dots one pixel long, two apart
    EXPECT_LT(pointilles, 140);
    for (int dy : {-2, 0, 1})
        EXPECT_TRUE(estCouleur(image.pixel(150, 80 + dy), 0, 0, 255)) << dy;
    EXPECT_TRUE(estCouleur(image.pixel(150, 84), 255, 255, 255));
    s.Clear(0x00FFFF);  // yellow
    s.Acheve();
    EXPECT_TRUE(estCouleur(image.pixel(150, 20), 255, 255, 0, 0));
    EXPECT_EQ(s.CurrentX, 0);
}

TEST(SurfaceQPainter, TextIsMeasuredAndPrintedWhereTheLayoutExpects)
{
    QImage image = blanche(400, 100);
    SurfaceQPainter s(image);
    s.FontSize = 10;
    const double deux = s.TextWidth("MM"), quatre = s.TextWidth("MMMM");
    EXPECT_GT(deux, 100);
    EXPECT_NEAR(quatre, 2 * deux, 0.1 * deux);
    // 10 points are 200 twips: the line height is a little more.
    EXPECT_GT(s.TextHeight(), 200);
    EXPECT_LT(s.TextHeight(), 400);
    s.ForeColor = 0x0000FF;
    s.CurrentX = 1500;
    s.CurrentY = 300;
    s.Print("MMMM");
    EXPECT_EQ(s.CurrentX, 0);
    EXPECT_DOUBLE_EQ(s.CurrentY, 300 + s.TextHeight());
    s.Acheve();
    // Red ink inside the text's box, none left of it or below it.
    int dedans = 0, dehors = 0;
    const int x0 = 100, y0 = 20, x1 = x0 + int(quatre / 15), y1 = y0 + int(s.TextHeight() / 15);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 400; ++x) {
            const bool rouge = qRed(image.pixel(x, y)) > 150 && qGreen(image.pixel(x, y)) < 100;
            const bool dansCadre = x >= x0 && x <= x1 + 1 && y >= y0 && y <= y1 + 1;
            (dansCadre ? dedans : dehors) += rouge;
        }
    EXPECT_GT(dedans, 50);
    EXPECT_EQ(dehors, 0);
}

TEST(SurfaceQPainter, ImageSvgAndPdfFilesAreWritten)
{
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    auto dessine = [](Surface& s) {
        s.Clear(0);
        s.Line(100, 100, 3000, 2000, 0xFFFF);
        s.Circle(1500, 1000, 300, 0xFF);
        s.CurrentX = 200;
        s.CurrentY = 200;
        s.ForeColor = 0xFFFFFF;
        s.Print("Repère");
    };
    // PNG: read back identical.
    QImage image = imagePourSurface(320, 240);
    {
        SurfaceQPainter s(image);
        dessine(s);
    }
    const QString png = dossier.filePath("repere.png");
    EXPECT_FALSE(ecrisPngRapide(image, png.toStdString()));
    const QImage relue(png);
    ASSERT_EQ(relue.size(), image.size());
    EXPECT_EQ(relue.convertToFormat(QImage::Format_RGB32), image);
    EXPECT_TRUE(ecrisPngRapide(image, dossier.filePath("absent/x.png").toStdString()));

    // SVG and PDF: the surface measures them in twips too.
    QSvgGenerator svg;
    svg.setFileName(dossier.filePath("repere.svg"));
    svg.setSize(QSize(320, 240));
    svg.setResolution(96);
    {
        SurfaceQPainter s(svg);
        EXPECT_NEAR(s.Width(), 4800, 1);
        dessine(s);
    }
    QPdfWriter pdf(dossier.filePath("repere.pdf"));
    {
        SurfaceQPainter s(pdf);
        EXPECT_NEAR(s.Width() / 1440, pdf.width() / double(pdf.logicalDpiX()), 1e-6);
        dessine(s);
    }
    struct Fichier {
        const char* nom;
        const char* debut;
    };
    for (Fichier f : {Fichier{"repere.svg", "<?xml"}, Fichier{"repere.pdf", "%PDF"}}) {
        QFile fichier(dossier.filePath(f.nom));
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly)) << f.nom;
        const QByteArray contenu = fichier.readAll();
        EXPECT_GT(contenu.size(), 300) << f.nom;
        EXPECT_TRUE(contenu.startsWith(f.debut)) << f.nom;
    }
}

}  // namespace
}  // namespace velorin
