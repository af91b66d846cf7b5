// The drawing surface on a QPainter (module qt): twips on their pixels at any pixel ratio, line
// styles and widths, clearing, text measured and printed in its box, its PNG, SVG and PDF files.
#include <gtest/gtest.h>

#include <QPdfWriter>
#include <QSvgGenerator>
#include <QTemporaryDir>

#include "commun/commun.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"

namespace velorin {
namespace {

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
        EXPECT_EQ(std::tuple(s.Width(), s.Height(), s.twipsParPixel()), std::tuple(4500.0, 1500.0, 15.0));
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
        const QRgb blanc = qRgb(255, 255, 255), rouge = qRgb(255, 0, 0), bleu = qRgb(0, 0, 255);
        using P = std::tuple<int, int, QRgb, int>;  // x, y, colour, tolerance
        for (const auto& [x, y, couleur, tolerance] :
             {P{100, 35, rouge, 40}, P{5, 35, blanc, 40}, P{195, 35, blanc, 40}, P{20, 30, bleu, 0},
              P{21, 30, blanc, 0}, P{60, 90, qRgb(0, 255, 0), 0}, P{150, 78, bleu, 40}, P{150, 81, bleu, 40},
              P{150, 84, blanc, 40}})
            EXPECT_TRUE(estCouleur(image.pixel(x * k + (x == 21 ? k - 1 : 0), y * k), couleur, tolerance))
                << "ratio " << k << " (" << x << ", " << y << ")";
        int pleins = 0, pointilles = 0;
        for (int x = 20; x < 280; ++x) {
            pleins += estCouleur(image.pixel(x * k, 20 * k), qRgb(0, 0, 0), 60);
            pointilles += estCouleur(image.pixel(x * k, 50 * k), qRgb(0, 0, 0), 100);
        }
        EXPECT_EQ(pleins, 260) << k;
        EXPECT_TRUE(pointilles > 40 && pointilles < 140) << k << " : " << pointilles;
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
    EXPECT_TRUE(s.TextHeight() > 200 && s.TextHeight() < 400) << s.TextHeight();  // 10 points are 200 twips
    s.ForeColor = 0x0000FF;
    s.CurrentX = 1500;
    s.CurrentY = 300;
    s.Print("MMMM");
    EXPECT_EQ(s.CurrentX, 0);
    EXPECT_DOUBLE_EQ(s.CurrentY, 300 + s.TextHeight());
    s.Acheve();
    int dedans = 0, dehors = 0;  // red ink inside the text's box, none outside
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
    // The PNG writer passes on the failure of the whole-file writer; its pixels are checked against the
    // window's picture (Exporter).
    EXPECT_TRUE(ecrisPngRapide(imagePourSurface(4, 4), dossier.filePath("absent/x.png").toStdString()));
    // Measured in twips on any device (320 pixels at 96 per inch are 4800 twips).
    QSvgGenerator svg;
    svg.setFileName(dossier.filePath("repere.svg"));
    svg.setSize(QSize(320, 240));
    svg.setResolution(96);
    QPdfWriter pdf(dossier.filePath("repere.pdf"));
    for (const auto& [appareil, nom, debut] :
         {std::tuple<QPaintDevice&, const char*, const char*>{svg, "repere.svg", "<?xml"},
          {pdf, "repere.pdf", "%PDF"}}) {
        {
            SurfaceQPainter s(appareil);
            EXPECT_NEAR(s.Width() / 1440, appareil.width() / double(appareil.logicalDpiX()), 1e-3) << nom;
            dessine(s);
        }
        const QByteArray contenu = QByteArray::fromStdString(essai::lisFichier(dossier.filePath(nom).toStdString()));
        EXPECT_TRUE(contenu.size() > 300 && contenu.startsWith(debut)) << nom;
    }
}

}  // namespace
}  // namespace velorin
