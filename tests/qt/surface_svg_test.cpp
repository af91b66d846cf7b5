// The SVG written as it is drawn, against the picture a painter on Qt's SVG
// generator gave for the same drawing: both rendered, pixel against pixel.
// The PDF written as it is drawn: its table of objects and its content.
#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QSvgRenderer>

#include <sstream>

#include <zlib.h>

#include "commun/commun.h"
#include "qt/surface_pdf.h"
#include "qt/surface_qpainter.h"
#include "qt/surface_svg.h"

namespace velorin::essai {
namespace {

QImage rendue(const QByteArray& svg)
{
    QImage image(240, 160, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QSvgRenderer lecteur(svg);
    QPainter peintre(&image);
    lecteur.render(&peintre);
    return image;
}

TEST(SurfaceSvg, MemeImageQueLeGenerateurSvgDeQt)
{
    // Every shape and pen of the surface; the second text placed by the
    // width of the first, so that a font measured at another resolution moves it.
    auto dessine = [](Surface& s) {
        s.Clear(0x404040);
        auto y = [](int i) { return 300 + (i - 20) * (i - 20) * 3; };  // a curve: no point thinned
        for (int i = 0; i < 40; ++i)
            s.Line(150 + i * 45, y(i), 195 + i * 45, y(i + 1), 0xFFFF);
        s.DrawWidth = 3;
        s.Line(300, 1800, 3300, 2100, 0xFF);
        s.DrawWidth = 1;
        s.DrawStyle = 2;
        s.Line(300, 2250, 3300, 2250, 0xFFFFFF);
        s.Circle(2400, 1200, 450, 0xFF00);
        s.DrawStyle = 0;
        s.PSet(3000, 600, 0xFF00FF);
        s.ForeColor = 0xFFFFFF;
        s.FontBold = true;
        s.CurrentX = s.CurrentY = 150;
        s.Print("Ab&<é");
        s.CurrentX = s.TextWidth("Ab&<é") + 150;
        s.CurrentY = 150;
        s.Print("|");
    };
    QByteArray avant;
    {
        QBuffer tampon(&avant);
        tampon.open(QIODevice::WriteOnly);
        QSvgGenerator svg;
        svg.setOutputDevice(&tampon);
        svg.setSize(QSize(240, 160));
        svg.setViewBox(QRect(0, 0, 240, 160));
        svg.setResolution(96);
        SurfaceQPainter s(svg);
        dessine(s);
    }
    std::ostringstream flux;
    {
        SurfaceSvg s(flux, 240, 160, "t");
        dessine(s);
    }
    const QImage a = rendue(avant), b = rendue(QByteArray::fromStdString(flux.str()));
    int differents = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            differents += std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                    std::abs(qBlue(p) - qBlue(q))}) > 24;
        }
    EXPECT_EQ(differents, 0);
}

TEST(SurfacePdf, ObjetsALeurPlaceEtTexteEchappe)
{
    std::ostringstream flux;
    {
        SurfacePdf s(flux, 240, 160);
        s.Line(0, 0, 1500, 1500, 0xFF);
        s.Print("(é)\\");
        EXPECT_TRUE(s.termine());
    }
    const std::string pdf = flux.str();
    // Every offset of the table points at its object; the length object
    // counts the content's bytes.
    const std::size_t xref = std::stoull(pdf.substr(pdf.rfind("startxref\n") + 10));
    ASSERT_EQ(pdf.compare(xref, 5, "xref\n"), 0);
    std::istringstream table(pdf.substr(xref + 5));
    int premier = 0, nb = 0;
    std::string position, generation, etat;
    table >> premier >> nb >> position >> generation >> etat;
    for (int i = 1; i < nb && table >> position >> generation >> etat; ++i) {
        const std::string objet = std::to_string(i) + " 0 obj";
        EXPECT_EQ(pdf.compare(std::stoull(position), objet.size(), objet), 0) << i;
    }
    const std::size_t debut = pdf.find("stream\n") + 7, fin = pdf.find("\nendstream");
    EXPECT_NE(pdf.find("5 0 obj\n" + std::to_string(fin - debut) + "\n"), std::string::npos);
    std::string contenu(4096, '\0');
    uLongf taille = contenu.size();
    ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(contenu.data()), &taille,
                         reinterpret_cast<const Bytef*>(pdf.data() + debut), fin - debut),
              Z_OK);
    contenu.resize(taille);
    EXPECT_NE(contenu.find("(\\(\xE9\\)\\\\) Tj"), std::string::npos) << contenu;
}

}  // namespace
}  // namespace velorin::essai
