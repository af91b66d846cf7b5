// The drawing surface on a QPainter (module qt): twips land on their pixels
// at any pixel ratio, line styles and widths, clearing, text measured and
// printed in its box, and the PNG, SVG and PDF files it draws into.
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

bool estCouleur(QRgb p, QRgb attendu, int tolerance)
{
    return std::abs(qRed(p) - qRed(attendu)) <= tolerance && std::abs(qGreen(p) - qGreen(attendu)) <= tolerance &&
           std::abs(qBlue(p) - qBlue(attendu)) <= tolerance;
}

TEST(SurfaceQPainter, TraitsPointsStylesEtEffacementSurLeursPixels)
{
    for (const int k : {1, 2}) {
        QImage image = imagePourSurface(300, 100, k);
        image.fill(Qt::white);
        SurfaceQPainter s(image);
        EXPECT_DOUBLE_EQ(s.Width(), 4500);
        EXPECT_DOUBLE_EQ(s.Height(), 1500);
        EXPECT_DOUBLE_EQ(s.twipsParPixel(), 15);
        for (int x = 10; x < 290; ++x)  // a polyline of one-pixel steps along row 20
            s.Line(x * 15, 20.5 * 15, (x + 1) * 15, 20.5 * 15, 0);
        s.Line(150, 35.5 * 15, 2850, 35.5 * 15, 0x0000FF);  // red along row 35, x 10 to 190
        s.PSet(20 * 15, 30 * 15, 0xFF0000);                 // blue
        s.PSet(60 * 15, 90 * 15, 0x00FF00);                 // green
        EXPECT_EQ(s.CurrentX, 900);
        s.DrawStyle = 2;  // dots one pixel long, two apart
        s.Line(150, 50.5 * 15, 4350, 50.5 * 15, 0);
        s.DrawStyle = 0;
        s.DrawWidth = 5;
        s.Line(150, 80 * 15, 4350, 80 * 15, 0xFF0000);
        s.Acheve();
        struct Pixel {
            int x, y;
            QRgb couleur;
            int tolerance;
        };
        for (const Pixel p : {Pixel{100, 35, qRgb(255, 0, 0), 40}, Pixel{5, 35, qRgb(255, 255, 255), 40},
                              Pixel{195, 35, qRgb(255, 255, 255), 40}, Pixel{20, 30, qRgb(0, 0, 255), 0},
                              Pixel{21, 30, qRgb(255, 255, 255), 0}, Pixel{60, 90, qRgb(0, 255, 0), 0},
                              Pixel{150, 78, qRgb(0, 0, 255), 40}, Pixel{150, 81, qRgb(0, 0, 255), 40},
                              Pixel{150, 84, qRgb(255, 255, 255), 40}})
            EXPECT_TRUE(estCouleur(image.pixel(p.x * k + (p.x == 21 ? k - 1 : 0), p.y * k), p.couleur, p.tolerance))
                << "ratio " << k << " (" << p.x << ", " << p.y << ")";
        int pleins = 0, pointilles = 0;
        for (int x = 20; x < 280; ++x) {
            pleins += estCouleur(image.pixel(x * k, 20 * k), qRgb(0, 0, 0), 60);
            pointilles += estCouleur(image.pixel(x * k, 50 * k), qRgb(0, 0, 0), 100);
        }
        EXPECT_EQ(pleins, 260) << k;
        EXPECT_GT(pointilles, 40) << k;
        EXPECT_LT(pointilles, 140) << k;
        s.Clear(0x00FFFF);  // yellow
        s.Acheve();
        EXPECT_TRUE(estCouleur(image.pixel(150 * k, 20 * k), qRgb(255, 255, 0), 0));
        EXPECT_EQ(s.CurrentX, 0);
    }
}

TEST(SurfaceQPainter, TexteMesureEtImprimeDansSaBoite)
{
    QImage image = imagePourSurface(400, 100);
    image.fill(Qt::white);
    SurfaceQPainter s(image);
    s.FontSize = 10;
    const double deux = s.TextWidth("MM"), quatre = s.TextWidth("MMMM");
    EXPECT_GT(deux, 100);
    EXPECT_NEAR(quatre, 2 * deux, 0.1 * deux);
    EXPECT_GT(s.TextHeight(), 200);  // 10 points are 200 twips: the line is a little higher
    EXPECT_LT(s.TextHeight(), 400);
    s.ForeColor = 0x0000FF;
    s.CurrentX = 1500;
    s.CurrentY = 300;
    s.Print("MMMM");
    EXPECT_EQ(s.CurrentX, 0);
    EXPECT_DOUBLE_EQ(s.CurrentY, 300 + s.TextHeight());
    s.Acheve();
    // Red ink inside the text's box, none outside.
    int dedans = 0, dehors = 0;
    const QRect boite(100, 20, int(quatre / 15) + 2, int(s.TextHeight() / 15) + 2);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 400; ++x)
            (boite.contains(x, y) ? dedans : dehors) +=
                qRed(image.pixel(x, y)) > 150 && qGreen(image.pixel(x, y)) < 100;
    EXPECT_GT(dedans, 50);
    EXPECT_EQ(dehors, 0);
}

TEST(SurfaceQPainter, FichiersPngSvgEtPdfEcrits)
{
    QTemporaryDir dossier;
    auto dessine = [](Surface& s) {
        s.Clear(0);
        s.Line(100, 100, 3000, 2000, 0xFFFF);
        s.Circle(1500, 1000, 300, 0xFF);
        s.CurrentX = s.CurrentY = 200;
        s.ForeColor = 0xFFFFFF;
        s.Print("Repère");
    };
    QImage image = imagePourSurface(320, 240);
    {
        SurfaceQPainter s(image);
        dessine(s);
    }
    // PNG: read back identical; a missing folder is refused.
    const QString png = dossier.filePath("repere.png");
    EXPECT_FALSE(ecrisPngRapide(image, png.toStdString()));
    EXPECT_EQ(QImage(png).convertToFormat(QImage::Format_RGB32), image);
    EXPECT_TRUE(ecrisPngRapide(image, dossier.filePath("absent/x.png").toStdString()));
    // SVG and PDF: measured in twips too.
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
    for (const auto& [nom, debut] : {std::pair{"repere.svg", "<?xml"}, std::pair{"repere.pdf", "%PDF"}}) {
        QFile f(dossier.filePath(nom));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << nom;
        const QByteArray contenu = f.readAll();
        EXPECT_GT(contenu.size(), 300) << nom;
        EXPECT_TRUE(contenu.startsWith(debut)) << nom;
    }
}

}  // namespace
}  // namespace velorin
