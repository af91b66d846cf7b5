// The qt module: the animated GIF writer read back with giflib; the full turn drawn at once, one
// picture per redraw of the timers with the viewing values of its tick, all written or none; the
// QPainter surface: twips on their pixels at any pixel ratio, line styles and widths, clearing, the
// text's height and next line, twips on a PDF page.
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "commun/commun.h"
#include "plot/redessin.h"
#include "qt/dessin_fichier.h"
#include "qt/gif_anime.h"
#include "qt/image_en_bandes.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"
#include "qt/tour_anime.h"

namespace velorin::essai {
namespace {

bool estCouleur(QRgb p, QRgb attendu, int tolerance)
{
    return std::abs(qRed(p) - qRed(attendu)) <= tolerance && std::abs(qGreen(p) - qGreen(attendu)) <= tolerance &&
           std::abs(qBlue(p) - qBlue(attendu)) <= tolerance;
}

// Each picture of a GIF laid over the ones before (its transparent pixels
// showing them), as shown, with its delay,
// its disposal and the rectangle it stores.
struct ImageRelue {
    QImage ecran;
    int delai, disposition;
    QRect rectangle;
};
std::vector<ImageRelue> relis(const std::string& nom)
{
    int code = 0;
    GifFileType* gif = DGifOpenFileName(nom.c_str(), &code);
    std::vector<ImageRelue> relues;
    if (!gif || DGifSlurp(gif) != GIF_OK)
        return relues;
    QImage ecran(gif->SWidth, gif->SHeight, QImage::Format_RGB32);
    ecran.fill(Qt::magenta);
    for (int i = 0; i < gif->ImageCount; ++i) {
        const GifImageDesc& d = gif->SavedImages[i].ImageDesc;
        GraphicsControlBlock gcb{};
        static_cast<void>(DGifSavedExtensionToGCB(gif, i, &gcb));
        const ColorMapObject* carte = d.ColorMap ? d.ColorMap : gif->SColorMap;
        for (int k = 0; k < d.Width * d.Height; ++k) {
            const int index = gif->SavedImages[i].RasterBits[k];
            if (index == gcb.TransparentColor)
                continue;
            const GifColorType& c = carte->Colors[index];
            ecran.setPixel(d.Left + k % d.Width, d.Top + k / d.Width, qRgb(c.Red, c.Green, c.Blue));
        }
        relues.push_back({ecran.copy(), gcb.DelayTime, gcb.DisposalMode, QRect(d.Left, d.Top, d.Width, d.Height)});
    }
    DGifCloseFile(gif, &code);
    return relues;
}

// Each picture, laid over the ones before ("do not dispose"), reads back as
// the one added: exactly up to 255 colours (a moved square, an unchanged
// picture, the first picture again: what it changes is compared with the one
// shown just before), each pixel near its colour beyond (a gradient of 1200
// colours).
// Each keeps its delay in hundredths of a second; the animation loops.
TEST(GifAnime, ChaqueImageRelueAvecSonDelai)
{
    DossierTemporaire dossier;
    QImage carre(40, 30, QImage::Format_RGB32), degrade = carre;
    carre.fill(Qt::white);
    QImage deplace = carre.copy();
    carre.setPixel(5, 5, qRgb(255, 0, 0));
    QPainter(&deplace).fillRect(10, 12, 10, 10, QColor(0, 0, 200));
    for (int k = 0; k < 40 * 30; ++k)
        degrade.setPixel(k % 40, k / 40, qRgb(k % 40 * 6, k / 40 * 8, (k % 40 + k / 40) * 3));
    const std::pair<QImage, int> images[] = {
        {carre, 500}, {deplace, 1000}, {deplace, 30}, {carre, 20}, {degrade, 44}};
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
    const auto relues = relis(nom);
    ASSERT_EQ(relues.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(relues[i].ecran.size(), QSize(40, 30));
        EXPECT_EQ(std::pair(relues[i].delai, relues[i].disposition),
                  std::pair((images[i].second + 5) / 10, DISPOSE_DO_NOT));
        int faux = 0;  // exact up to 255 colours, within 12 for the gradient
        for (int k = 0; k < 40 * 30; ++k)
            faux += !estCouleur(images[i].first.pixel(k % 40, k / 40), relues[i].ecran.pixel(k % 40, k / 40),
                                i < 4 ? 0 : 12);
        EXPECT_EQ(faux, 0) << "image " << i + 1;
    }
    EXPECT_EQ(relues[1].rectangle, QRect(5, 5, 15, 17));  // only where the picture changed
}

// Rows read back as added, and compared by their pixels, whatever the
// numbers their colours got in each picture: runs longer than a byte can
// count, more colours than the numbered list holds.
TEST(ImageParPlages, LignesRelues)
{
    constexpr int L = 5000;
    std::vector<QRgb> uni(L, 0xFFFFFFFFu), toutes(L), decale(L);
    for (int x = 0; x < L; ++x)
        toutes[std::size_t(x)] = 0xFF000000u | std::uint32_t(x * 2654435761u >> 8);
    std::rotate_copy(toutes.begin(), toutes.begin() + 1, toutes.end(), decale.begin());
    std::vector<QRgb> presque = uni;
    presque.back() = 0xFF000001u;
    ImageParPlages a(L), b(L);
    for (const auto* ligne : {&uni, &toutes, &decale, &uni})
        a.ajoute(ligne->data());
    for (const auto* ligne : {&decale, &toutes, &toutes, &presque})
        b.ajoute(ligne->data());
    std::vector<QRgb> lue(L);
    const std::vector<QRgb>* attendues[] = {&uni, &toutes, &decale, &uni};
    for (int y = 0; y < 4; ++y) {
        a.lis(y, lue.data());
        EXPECT_TRUE(lue == *attendues[y]) << "ligne " << y;
    }
    const bool memes[] = {false, true, false, false};
    for (int y = 0; y < 4; ++y)
        EXPECT_EQ(a.memeLigne(y, b), memes[y]) << "ligne " << y;
}

// The journal of one redraw (clearing, then the frame) with the values of `vue`.
std::string journalDe(Etat etat, const VueDuTour& vue, const std::string& nom)
{
    appliqueVue(etat.param, vue);
    ajusteVue(etat, 200 * twipsParPixelEcran, 150 * twipsParPixelEcran);
    EcritureEntiere f(nom);
    EXPECT_FALSE(dessineDansFichier(f, FormatSortie::Texte, 200, 150, "", [&](Surface& s) {
        effaceEcran(etat, s);
        traceRepere(etat, s);
        return Erreur{};
    }));
    EXPECT_FALSE(f.termine());
    return lisFichier(nom);
}

// File k is the redraw with tick k's view; the GIF has as many pictures, each
// shown for the timers' interval.
TEST(TourAnime, ChaqueImageEstLeRedessinDeSonInstant)
{
    for (const char* axe : {"oz+", "vision-"}) {
        DossierTemporaire dossier;
        const Etat depart = etatCalibre(true);
        const SuiteDuTour suite = suiteDuTour(depart.param, EtatRotation{}, tourDeNom(axe), 1.0);
        const std::size_t n = suite.vues.size();
        ASSERT_GT(n, 20u);
        std::size_t courbes = 0;
        Redessin compte{.etiquettes = false};
        compte.progres = [&] { ++courbes; };
        for (const char* sortie : {"t_%02d.txt", "a.gif"}) {
            Etat etat = depart;
            // The GIF's pictures in bands of 17 rows: the hooks still run once a picture.
            const ResultatTour r = exporteTour(
                etat, EtatRotation{}, {tourDeNom(axe), 1.0, dossier / sortie, 200, 150, "", {}, {}, 17}, compte);
            ASSERT_FALSE(r.erreur) << r.erreur.message();
            EXPECT_EQ(std::size_t(r.images), n) << axe;
        }
        // The GIF's frames laid one over the other end on the last redraw,
        // drawn again here at once: no frame left a stale pixel behind, no
        // band differs from the whole picture.
        Etat fin = depart;
        appliqueVue(fin.param, suite.vues.back());
        ajusteVue(fin, 200 * twipsParPixelEcran, 150 * twipsParPixelEcran);
        QImage derniere = imagePourSurface(200, 150);
        ASSERT_FALSE(dessineSurImage(derniere, [&](Surface& s) { return redessine(fin, s, {.etiquettes = false}); }, ""));
        EXPECT_EQ(courbes, 2 * n) << axe;
        EXPECT_EQ(dossier.noms().size(), n + 1) << axe;
        for (std::size_t k : {std::size_t(1), n / 2, n}) {
            const std::string nom = dossier / ((k < 10 ? "t_0" : "t_") + std::to_string(k) + ".txt");
            EXPECT_EQ(lisFichier(nom), journalDe(depart, suite.vues[k - 1], dossier / "vue.txt")) << nom;
        }
        const auto relues = relis(dossier / "a.gif");
        ASSERT_EQ(relues.size(), n) << axe;
        EXPECT_EQ(relues.back().delai, (suite.intervalleMs + 5) / 10) << axe;
        EXPECT_EQ(relues.back().ecran, derniere) << axe;
    }
}

// A failure on the way (the drawing, a full disk under the numbered files or
// the GIF, a name of the series that cannot be written or is read, an output
// that is no turn's) is named and leaves the folder as it was.
TEST(TourAnime, ToutOuRien)
{
    // The output; the bytes written before the disk is full (-1: never); the redraw that fails (0: none).
    const std::tuple<const char*, long long, std::size_t, const char*> cas[] = {
        {"t_%02d.png", -1, 5, "L'entrée n° 0 n'existe pas"},
        {"u_%02d.txt", 2000, 0, "u_01.txt » : le disque est plein"},
        {"a.gif", 300, 0, "a.gif » : le disque est plein"},
        {"t_%02d.txt", -1, 0, "t_01.txt » est aussi lu par cette commande"},
        {"d_%02d.txt", -1, 0, "d_03.txt"},
        {"a.png", -1, 0, "un .gif, ou un nom numéroté"},
        {"t_%d.gif", -1, 0, "ne convient pas à une image par instant"},
    };
    for (const auto& [sortie, disque, echecA, message] : cas) {
        DossierTemporaire dossier;
        for (const char* nom : {"t_01.txt", "t_01.png", "a.gif"})
            ecrisFichier(dossier / nom, "ancien");
        fs::create_directory(dossier / "d_03.txt");
        const auto avant = dossier.noms();
        // Entry 0 is refused with a message at every redraw; the export stops at the redraw `echecA`.
        std::size_t courbes = 0;
        Redessin dessin{.entrees = {0}};
        dessin.apres = [&](const OptionsTrace&, const ResultatTrace&) { return ++courbes != echecA; };
        Etat etat = etatCalibre(true);
        simuleDisquePlein(disque);
        const ResultatTour r =
            exporteTour(etat, EtatRotation{}, {0, 1.0, dossier / sortie, 200, 150, "", {dossier / "t_01.txt"}}, dessin);
        simuleDisquePlein(-1);
        ASSERT_TRUE(r.erreur) << sortie;
        EXPECT_NE(r.erreur.message().find(message), std::string::npos) << r.erreur.message();
        EXPECT_EQ(dossier.noms(), avant) << sortie;
        for (const char* nom : {"t_01.txt", "t_01.png", "a.gif"})
            EXPECT_EQ(lisFichier(dossier / nom), "ancien") << sortie;
        EXPECT_TRUE(echecA > 0 || disque >= 0 || courbes == 0) << "drawn before the refusal: " << sortie;
    }
}

// A picture drawn band after band is the whole picture bit for bit, whatever the bands' height: wide,
// dashed and dotted lines, polylines, points, circles, faces and texts across the bands' edges (a clip that
// changes how the painter computes a line, or a drawing left out too near its band, changes pixels); and a
// drawing gathered in a few rows, whose other bands are not drawn but filled with the clearing's colour
// (a band skipped though a text or a line reaches it, or filled with another colour, changes pixels).
TEST(ImageEnBandes, ChaqueBandeEstLImageEntiere)
{
    const auto partout = [](Surface& s) -> Erreur {
        s.Clear(0x201008);
        std::mt19937 g(7);
        std::uniform_real_distribution<double> X(-600, 5100), Y(-600, 3600), D(-3000, 3000);
        for (int i = 0; i < 600; ++i) {
            s.DrawWidth = 1 + i % 3;
            s.DrawStyle = i / 6 % 3;
            const double x = X(g), y = Y(g), dx = D(g), dy = D(g);
            const Couleur c = Couleur(g() & 0xFFFFFF);
            const double xs[] = {x, x + dx, x - dy}, ys[] = {y, y + dy, y + dx};
            switch (i % 6) {
            case 0: s.Circle(x, y, std::abs(dx) / 3, c); break;
            case 1: s.PSet(x, y, c); break;
            case 2: s.Face(xs, ys, 3, c); break;
            case 3:
                s.CurrentX = x;
                s.CurrentY = y;
                s.ForeColor = c;
                s.Print("Tore 3.14");
                break;
            default:  // a polyline of three pieces
                s.Line(x, y, x + dx, y + dy, c);
                s.Line(x + dx, y + dy, x + 2 * dx, y, c);
                s.Line(x + 2 * dx, y, x + dy, y - dx, c);
            }
        }
        return {};
    };
    // Rows 60 to 140 of 200: a text, a wide line and a circle near the edges of that stripe.
    const auto auMilieu = [](Surface& s) -> Erreur {
        s.Clear(0x996633);
        s.CurrentX = 300;
        s.CurrentY = 60 * 15;
        s.Print("Tore");
        s.DrawWidth = 3;
        s.Line(150, 139 * 15, 4000, 120 * 15, 0xFFFFFF);
        s.Circle(2000, 100 * 15, 40 * 15, 0x00FF00);
        return {};
    };
    for (const auto& [nom, dessin] : {std::pair{"partout", DessinSurface(partout)}, {"au milieu", auMilieu}}) {
        QImage entiere = imagePourSurface(300, 200);
        ASSERT_FALSE(dessineSurImage(entiere, dessin, ""));
        for (const int lignes : {1, 7, 64, 200}) {
            ImageEnBandes bandes(300, 200, lignes);
            int fausses = 0;
            for (int k = 0; k < bandes.bandes(); ++k) {
                ASSERT_FALSE(bandes.dessine(k, dessin, ""));
                for (int y = bandes.premiereLigne(k); y < bandes.premiereLigne(k + 1); ++y)
                    fausses += std::memcmp(bandes.ligne(y), entiere.constScanLine(y), 300 * 4) != 0;
            }
            EXPECT_EQ(fausses, 0) << nom << ", bandes de " << lignes << " lignes";
        }
    }
}

TEST(SurfaceQPainter, TraitsPointsStylesEtEffacementSurLeursPixels)
{
    // Ratio 8: a picture large enough to be laid over huge pages.
    for (const int k : {1, 2, 8}) {
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

// Where the text is drawn and how wide it is are compared with the streamed SVG (SurfaceSvg).
TEST(SurfaceQPainter, HauteurDuTexteEtLigneSuivante)
{
    QImage image = imagePourSurface(400, 100);
    SurfaceQPainter s(image);
    s.FontSize = 10;
    EXPECT_TRUE(s.TextHeight() > 200 && s.TextHeight() < 400) << s.TextHeight();  // 10 points are 200 twips
    s.CurrentX = 1500;
    s.CurrentY = 300;
    s.Print("MMMM");
    EXPECT_EQ(s.CurrentX, 0);
    EXPECT_DOUBLE_EQ(s.CurrentY, 300 + s.TextHeight());
}

// The PNG writer passes on the failure of the whole-file writer (its pixels are checked against the
// window's picture by Exporter). A surface is measured in twips on any device: a PDF page at 1200 dpi.
TEST(SurfaceQPainter, PngRefuseEtTwipsDeLAppareil)
{
    QTemporaryDir dossier;
    EXPECT_TRUE(ecrisPngRapide(imagePourSurface(4, 4), dossier.filePath("absent/x.png").toStdString()));
    QPdfWriter pdf(dossier.filePath("repere.pdf"));
    EXPECT_NEAR(SurfaceQPainter(pdf).Width() / 1440, pdf.width() / double(pdf.logicalDpiX()), 1e-3);
}

}  // namespace
}  // namespace velorin::essai
