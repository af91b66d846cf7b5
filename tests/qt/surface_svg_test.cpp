// The SVG written as it is drawn, against the picture a painter on Qt's SVG
// generator gave for the same drawing: both rendered, pixel against pixel.
// The PDF written as it is drawn: its table of objects and its content.
// Faces and hidden parts in every output, read back as pixels (Qt's SVG
// renderer, pdftoppm, pdflatex).
#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QSvgRenderer>

#include <sstream>

#include <zlib.h>

#include "commun/commun.h"
#include "qt/dessin_fichier.h"
#include "qt/surface_pdf.h"
#include "qt/surface_qpainter.h"
#include "qt/surface_svg.h"

namespace velorin::essai {
namespace {

template <typename Source> QImage rendue(const Source& svg)
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

// A face is filled in its colour without a seam of the background along the
// slanted edge it shares with its neighbour; a dashed piece has gaps and is
// not gathered with the solid line it goes on from (in two-pixel steps, as
// a mesh's segments come), which would make one of them the other's style.
TEST(Sorties, FacesSansCoutureEtPartiesCacheesEnTirets)
{
    const auto dessine = [](Surface& s) -> Erreur {
        const double t = twipsParPixelEcran, ys[] = {20 * t, 20 * t, 80 * t, 80 * t};
        const double gauche[] = {20 * t, 50.3 * t, 49.6 * t, 20 * t}, droite[] = {50.3 * t, 80 * t, 80 * t, 49.6 * t};
        s.Clear(0xFFFFFF);
        s.Face(gauche, ys, 4, 0xFF0000);
        s.Face(droite, ys, 4, 0xFF0000);
        for (int x = 100; x < 190; x += 2, s.DrawStyle = x < 140 ? 0 : 1)
            s.Line(x * t, 50.5 * t, (x + 2) * t, 50.5 * t, 0);
        return {};
    };
    const bool outils = std::system("{ command -v pdflatex && command -v pdftoppm; } >/dev/null 2>&1") == 0;
    const std::string page = " && pdftoppm -r 96 -png -singlefile a.pdf page";
    // Output, the commands that make page.png of it (none: Qt reads it), a TeX page a pixel larger at most.
    const std::pair<const char*, std::string> sorties[] = {
        {"a.png", ""}, {"a.svg", ""}, {"a.pdf", "true" + page}, {"a.tex", "pdflatex -halt-on-error a.tex" + page}};
    for (const auto& [nom, relecture] : sorties) {
        DossierTemporaire d;
        EcritureEntiere fichier(d / nom);
        ASSERT_FALSE(dessineDansFichier(fichier, formatSortie(nom), 240, 160, "t", dessine,
                                        OptionsTex{.largeurCm = 240 * 2.54 / 96, .autonome = true}));
        ASSERT_FALSE(fichier.termine());
        if (!relecture.empty() && !outils)
            continue;  // pdflatex or pdftoppm missing
        const std::string commande =
            "cd '" + d.chemin().string() + "' && (" + relecture + ") </dev/null >/dev/null 2>&1";
        const QImage image = nom == std::string("a.svg")          ? rendue(QString::fromStdString(d / nom))
                             : relecture.empty()                  ? QImage(QString::fromStdString(d / nom))
                             : std::system(commande.c_str()) == 0 ? QImage(QString::fromStdString(d / "page.png"))
                                                                  : QImage();
        ASSERT_TRUE(std::abs(image.width() - 240) <= 1 && std::abs(image.height() - 160) <= 1) << nom;
        const auto ecart = [&](int x, int y, QRgb c) {
            const QRgb p = image.pixel(x, y);
            return std::max({qAbs(qRed(p) - qRed(c)), qAbs(qGreen(p) - qGreen(c)), qAbs(qBlue(p) - qBlue(c))});
        };
        int couture = 0, pleinTroue = 0, tirets = 0, trous = 0;
        for (int y = 25; y < 75; ++y)
            for (int x = 25; x < 75; ++x)
                couture += ecart(x, y, qRgb(0, 0, 255)) > 24;
        for (int x = 103; x < 187; ++x) {
            pleinTroue += x < 137 && ecart(x, 50, 0) > 100;
            tirets += x > 143 && ecart(x, 50, 0) <= 100;
            trous += x > 143 && ecart(x, 50, qRgb(255, 255, 255)) <= 100;
        }
        EXPECT_EQ(std::tie(couture, pleinTroue), std::tuple(0, 0)) << nom;
        EXPECT_TRUE(tirets >= 10 && trous >= 10) << nom << " : " << tirets << " sombres, " << trous << " clairs";
    }
}

}  // namespace
}  // namespace velorin::essai
