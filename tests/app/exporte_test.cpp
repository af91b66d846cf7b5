// `velorin exporte` run as a separate process, as a user runs it.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QXmlStreamReader>

#include <sys/stat.h>
#include <unistd.h>

#include <gif_lib.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "catalogue/catalogue.h"
#include "dossier_exporte.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace fs = std::filesystem;
using namespace velorin;
using velorin::essai::Sortie;

namespace {

// English from Qt or from the C++ library never reaches the user.
void sansAnglais(const std::string& erreurs, const std::string& cas)
{
    for (const char* anglais : {"QPainter", "QSvg", "QPdf", "QStandardPaths", "qt.", "filesystem", "terminate",
                                "Is a directory", "No such file"})
        EXPECT_EQ(erreurs.find(anglais), std::string::npos) << cas << " : " << erreurs;
}

class Exporte : public essai::DossierExporte {
protected:
    Exporte()
        : DossierExporte("velorin_exporte_",
                         {{8, "Segment:[(-5,-5,0)][(5,5,8)]"},
                          {2, "x=f1(a,t)=(3+cos(a))*cos(t)][y=f2(a,t)=(3+cos(a))*sin(t)][z=f3(a,t)=sin(a)"},
                          {1, "x=f1(t)=cos(t][y=f2(t)=t][z=f3(t)=t"},
                          {9, "Point:[(1,A,2)]"}})
    { }
    // Refused with `message` in a French sentence; an export that failed
    // leaves no file behind, not even a temporary one.
    void refuse(const QStringList& arguments, const std::string& message,
                const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment())
    {
        const std::string nom = arguments.join(' ').toStdString();
        const std::set<std::string> avant = noms();
        const Sortie s = lance(arguments, environnement);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << nom << " : " << s.erreurs;
        sansAnglais(s.erreurs, nom);
        EXPECT_EQ(noms(), avant) << nom;
    }
};

TEST_F(Exporte, QuatreFormats)
{
    struct Cas {
        const char* nom;
        const char* debut;
    };
    const Cas cas[] = {{"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.pdf", "%PDF"}, {"a.txt", "CLEAR "}};
    for (const Cas& c : cas) {
        const Sortie s = lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "2", "--entree", "1",
                                "--taille", "640x400", "--chrono", "--sortie", chemin(c.nom)});
        ASSERT_EQ(s.code, 0) << c.nom << " " << s.erreurs;
        EXPECT_EQ(contenu(c.nom).rfind(c.debut, 0), 0u) << c.nom;
        // --chrono times each entry on the error output.
        for (const char* temps : {"entrée 2 :", "entrée 1 :", " ms"})
            EXPECT_NE(s.erreurs.find(temps), std::string::npos) << c.nom << " : " << s.erreurs;
    }
    const QImage image(chemin("a.png"));
    ASSERT_EQ(image.size(), QSize(640, 400));
    int dessines = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            dessines += image.pixel(x, y) != image.pixel(0, 0);
    EXPECT_GT(dessines, 1000);
    // The journal holds the frame and both entries: the torus alone makes
    // thousands of lines.
    const std::string journal = contenu("a.txt");
    std::size_t lignes = 0;
    for (char ch : journal)
        lignes += ch == '\n';
    EXPECT_GT(lignes, 5000u);
}

TEST_F(Exporte, ErreursSansFichier)
{
    struct Cas {
        QStringList arguments;
        const char* message;
    };
    const Cas cas[] = {
        {{"--catalogue", "absent.lsu", "--entree", "1", "--sortie", "x.png"}, "absent.lsu » n'existe pas"},
        {{"--catalogue", "essai.lsu", "--entree", "5", "--sortie", "x.png"}, "pas d'entrée 5"},
        {{"--catalogue", "essai.lsu", "--entree", "0", "--sortie", "x.png"}, "incorrect"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--sortie", "x.gif"}, "format"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--taille", "12", "--sortie", "x.png"}, "taille"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--vite", "--sortie", "x.png"}, "option inconnue"},
        {{"--catalogue", "essai.lsu", "--sortie", "x.png"}, "--entree"},
        {{"--figure", "a.fig", "--sortie", "x.png"}, "La figure « a.fig » n'existe pas."},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--tour", "oz+", "--sortie", "x.fig"}, "pas dans une figure"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--parametres", "absent.log", "--sortie", "x.png"},
         "absent.log"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--entree", "3", "--sortie", "x.png"}, "est incorrecte"},
        {{"--catalogue", "essai.lsu", "--entree", "4", "--sortie", "x.txt"}, "Point incorrect"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--sortie", "absent/x.png"},
         "Le dossier de sortie « absent » n'existe pas"},
    };
    for (const Cas& c : cas)
        refuse(QStringList{"--dossier", chemin("")} + c.arguments, c.message);
}

// Every path that cannot be read or written is refused before anything is
// written, in a French sentence naming it; reading never blocks (a FIFO).
// The sentence of each kind of path is tested with the path checkers: here
// each argument is shown to go through them.
TEST_F(Exporte, CheminsRefuses)
{
    const fs::path d = dossier_;
    fs::copy_file(d / "essai.lsu", d / "cat.txt");
    fs::copy_file(fs::path(VELORIN_SOURCE_DIR) / "data/Espace_courbes/mem.log", d / "p.txt");
    fs::create_directory(d / "dossier.lsu");
    fs::create_directory(d / "dossier.png");
    ASSERT_EQ(mkfifo((d / "tube.lsu").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo((d / "tube.log").c_str(), 0600), 0);
    fs::create_symlink("boucle.d", d / "boucle.d");
    struct Cas {
        QStringList arguments;
        const char* message;
    };
    const QString ici = chemin("");
    const Cas cas[] = {
        {{"--catalogue", "tube.lsu", "--sortie", "x.png"}, "tube.lsu » est un tube nommé"},
        {{"--catalogue", "essai.lsu", "--parametres", "tube.log", "--sortie", "x.png"}, "tube.log » est un tube nommé"},
        {{"--catalogue", "essai.lsu", "--parametres", "dossier.lsu", "--sortie", "x.png"}, "Le fichier de paramètres"},
        {{"--catalogue", "essai.lsu", "--sortie", "dossier.png"}, "dossier.png » est un dossier"},
        {{"--catalogue", "essai.lsu", "--sortie", "boucle.d/x.png"}, "tourne en boucle"},
        {{"--catalogue", "cat.txt", "--sortie", "cat.txt"}, "est aussi lu par cette commande"},
        {{"--catalogue", "cat.txt", "--sortie",
          ici + "/../" + QString::fromStdString(d.filename().string()) + "/cat.txt"},
         "est aussi lu par cette commande"},
        {{"--catalogue", "essai.lsu", "--parametres", "p.txt", "--sortie", "p.txt"}, "est aussi lu par cette commande"},
    };
    const std::string catalogue = contenu("cat.txt"), parametres = contenu("p.txt");
    for (const Cas& c : cas)
        refuse(QStringList{"--dossier", ici, "--entree", "1"} + c.arguments, c.message);
    EXPECT_EQ(contenu("cat.txt"), catalogue);
    EXPECT_EQ(contenu("p.txt"), parametres);
    for (const char* dossier : {"absent", "boucle.d"})
        refuse({"--dossier", chemin(dossier), "--catalogue", "essai.lsu", "--entree", "1", "--sortie", chemin("x.png")},
               "Le dossier (--dossier) « ");
    // Permissions do not hold for root.
    if (geteuid() == 0)
        return;
    fs::copy_file(d / "essai.lsu", d / "secret.lsu");
    fs::permissions(d / "secret.lsu", fs::perms::none);
    fs::create_directory(d / "fige");
    fs::permissions(d / "fige", fs::perms::owner_read | fs::perms::owner_exec);
    const Cas interdits[] = {
        {{"--catalogue", "secret.lsu", "--sortie", "x.png"}, "secret.lsu » ne peut pas être lu : permission refusée"},
        {{"--catalogue", "essai.lsu", "--sortie", "fige/x.svg"}, "fige/x.svg » : permission refusée"},
        {{"--catalogue", "essai.lsu", "--sortie", "fige/x.pdf"}, "fige/x.pdf » : permission refusée"},
    };
    for (const Cas& c : interdits)
        refuse(QStringList{"--dossier", ici, "--entree", "1"} + c.arguments, c.message);
    EXPECT_TRUE(fs::is_empty(d / "fige"));
    fs::permissions(d / "fige", fs::perms::owner_all);
}

// A disk that fills up in the middle of the file, or on the way through a
// turn: every format is refused with the output's name, the user's previous
// file stays byte for byte, no temporary and no picture of a series is left.
TEST_F(Exporte, DisquePlein)
{
    struct Cas {
        const char *sortie, *ancien, *octets;  // the file named in the refusal and kept; bytes before the disk is full
        QStringList tour;
    };
    const Cas cas[] = {{"prec.png", "prec.png", "100", {}},
                       {"prec.svg", "prec.svg", "100", {}},
                       {"prec.pdf", "prec.pdf", "100", {}},
                       {"prec.txt", "prec.txt", "100", {}},
                       {"t_%02d.png", "t_01.png", "3000", {"--tour", "oz+"}},
                       {"b.gif", "b.gif", "3000", {"--tour", "oz+"}}};
    for (const Cas& c : cas) {
        QProcessEnvironment plein = QProcessEnvironment::systemEnvironment();
        plein.insert("VELORIN_ESSAI_DISQUE_PLEIN", c.octets);
        const std::string ancien = std::string("ancien contenu de ") + c.ancien + "\n";
        ecris(c.ancien, ancien);
        refuse(QStringList{"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "2", "--sortie",
                           chemin(c.sortie)} +
                   c.tour,
               std::string(c.ancien) + " » : le disque est plein", plein);
        EXPECT_EQ(contenu(c.ancien), ancien) << c.sortie;
    }
}

// The SVG is well-formed whatever the catalogue's name holds, and its title
// reads back as that name; a 250-character output name is written.
TEST_F(Exporte, TitreSvgEtNomLong)
{
    fs::copy_file(dossier_ / "essai.lsu", dossier_ / "a&b<c>'\".lsu");
    const std::string long250 = std::string(246, 'n') + ".svg";
    const Sortie s = lance({"--dossier", chemin(""), "--catalogue", "a&b<c>'\".lsu", "--entree", "1", "--sortie",
                            QString::fromStdString((dossier_ / long250).string())});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    QXmlStreamReader xml(QByteArray::fromStdString(contenu(long250.c_str())));
    QString titre;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("title"))
            titre = xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(titre.toStdString(), "a&b<c>'\".lsu");
}

// ---- The full turn (--tour)

// Two journals draw the same operations, their numbers equal to 0.01 twip
// (the parameter file keeps 15 digits of the viewing values). A text is
// compared by its words alone: where the frame puts a letter switches side
// at thresholds that a difference in the 15th digit may cross.
void memesOperations(const std::string& a, const std::string& b, const std::string& cas)
{
    std::istringstream sa(a), sb(b);
    std::string la, lb;
    int lignes = 0;
    while (std::getline(sa, la)) {
        ++lignes;
        ASSERT_TRUE(std::getline(sb, lb)) << cas << " : plus court à la ligne " << lignes;
        std::istringstream ma(la), mb(lb);
        std::string x, y;
        const bool texte = la.rfind("PRINT", 0) == 0;
        for (int mot = 0; ma >> x; ++mot) {
            ASSERT_TRUE(mb >> y) << cas << " : ligne " << lignes;
            char* fx = nullptr;
            char* fy = nullptr;
            const double vx = std::strtod(x.c_str(), &fx), vy = std::strtod(y.c_str(), &fy);
            if (*fx != '\0' || *fy != '\0' || fx == x.c_str()) {
                ASSERT_EQ(x, y) << cas << " : ligne " << lignes;
            } else if (!texte || mot > 2) {
                ASSERT_NEAR(vx, vy, 0.01) << cas << " : ligne " << lignes;
            }
        }
    }
    EXPECT_FALSE(std::getline(sb, lb)) << cas << " : plus long";
    EXPECT_GT(lignes, 1000) << cas;
}

// Each numbered journal of a turn is the drawing of one redraw of the
// timers: as many files as redraws, and file k drawn with the viewing values
// of tick k (about Oz from (10, 0): (k - 1) x 5 degrees; the head: k x (5 +
// 9) degrees with the step 1.0), the last one of an axis turn back on the
// start.
TEST_F(Exporte, TourSuitLesInstants)
{
    Parametres depart;
    depart.Xviseur = 10;
    depart.Yviseur = 0;
    depart.Zviseur = 6;
    depart.Xdirection = -10;
    depart.Ydirection = 0;
    depart.Zdirection = -6;
    ASSERT_FALSE(ecrisMemoire((dossier_ / "depart.log").string(), depart));
    struct Cas {
        const char* axe;
        std::size_t images;  // at least
        std::vector<int> verifiees;
    };
    const Cas cas[] = {{"oz+", 74, {1, 10, 37, 60}}, {"vision+", 25, {1, 12, 25}}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.axe);
        fs::remove_all(dossier_ / "j");
        fs::create_directory(dossier_ / "j");
        const QStringList entrees = {"--dossier", chemin(""), "--catalogue", "essai.lsu",
                                     "--entree",  "1",        "--entree",    "2"};
        const QStringList commun = entrees + QStringList{"--parametres", chemin("depart.log"), "--taille", "400x300"};
        const Sortie s = lance(commun + QStringList{"--tour", c.axe, "--sortie", chemin("j/t_%02d.txt")});
        ASSERT_EQ(s.code, 0) << s.erreurs;
        const std::size_t redessins = suiteDuTour(depart, EtatRotation{}, tourDeNom(c.axe), 1.0).vues.size();
        ASSERT_GE(redessins, c.images);
        EXPECT_LE(redessins, c.images + 1);
        std::set<std::string> attendus;
        for (std::size_t k = 1; k <= redessins; ++k)
            attendus.insert((k < 10 ? "t_0" : "t_") + std::to_string(k) + ".txt");
        std::set<std::string> ecrits;
        for (const auto& e : fs::directory_iterator(dossier_ / "j"))
            ecrits.insert(e.path().filename().string());
        ASSERT_EQ(ecrits, attendus);

        std::vector<std::pair<int, Parametres>> vues;
        for (int k : c.verifiees) {
            Parametres p = depart;
            if (c.axe[0] == 'o') {
                const double a = (k - 1) * rotaPI / 36;
                p.Xviseur = 10 * std::cos(a);
                p.Yviseur = 10 * std::sin(a);
                p.Xdirection = -p.Xviseur;
                p.Ydirection = -p.Yviseur;
            } else {
                p.Rotadir = k * (rotaPI / 36 + rotaPI / 20);
            }
            vues.emplace_back(k, p);
        }
        if (c.axe[0] == 'o')
            vues.emplace_back(int(redessins), depart);
        for (const auto& [k, p] : vues) {
            ASSERT_FALSE(ecrisMemoire((dossier_ / "vue.log").string(), p));
            ASSERT_EQ(lance(entrees + QStringList{"--parametres", chemin("vue.log"), "--taille", "400x300", "--sortie",
                                                  chemin("vue.txt")})
                          .code,
                      0);
            const std::string nom = std::string("j/t_") + (k < 10 ? "0" : "") + std::to_string(k) + ".txt";
            memesOperations(contenu(nom.c_str()), contenu("vue.txt"), nom);
        }
    }
}

// The GIF as giflib reads it back: one picture per redraw, each shown for the
// timer's interval, and each picture, laid over the ones before, the same as
// the PNG of that redraw.
TEST_F(Exporte, TourEnGif)
{
    struct Cas {
        const char* axe;
        int delai;  // hundredths of a second
    };
    for (const Cas& c : {Cas{"ox-", 50}, Cas{"vision-", 100}}) {
        SCOPED_TRACE(c.axe);
        const QStringList commun =
            QStringList{"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2"} +
            QStringList{"--taille", "200x150", "--tour", c.axe};
        ASSERT_EQ(lance(commun + QStringList{"--sortie", chemin("a.gif")}).code, 0);
        fs::remove_all(dossier_ / "p");
        fs::create_directory(dossier_ / "p");
        ASSERT_EQ(lance(commun + QStringList{"--sortie", chemin("p/%d.png")}).code, 0);
        int code = 0;
        GifFileType* gif = DGifOpenFileName(chemin("a.gif").toLocal8Bit().constData(), &code);
        ASSERT_NE(gif, nullptr) << GifErrorString(code);
        ASSERT_EQ(DGifSlurp(gif), GIF_OK) << GifErrorString(gif->Error);
        EXPECT_EQ(gif->SWidth, 200);
        EXPECT_EQ(gif->SHeight, 150);
        int pngs = 0;
        for ([[maybe_unused]] const auto& e : fs::directory_iterator(dossier_ / "p"))
            ++pngs;
        EXPECT_EQ(gif->ImageCount, pngs);
        EXPECT_GE(pngs, 25);
        QImage ecran(200, 150, QImage::Format_RGB32);
        ecran.fill(Qt::magenta);
        int differentes = 0;  // pictures that change something
        for (int i = 0; i < gif->ImageCount; ++i) {
            const SavedImage& im = gif->SavedImages[i];
            GraphicsControlBlock gcb;
            ASSERT_EQ(DGifSavedExtensionToGCB(gif, i, &gcb), GIF_OK);
            EXPECT_EQ(gcb.DelayTime, c.delai) << i;
            EXPECT_EQ(gcb.DisposalMode, DISPOSE_DO_NOT) << i;
            const ColorMapObject* carte = im.ImageDesc.ColorMap ? im.ImageDesc.ColorMap : gif->SColorMap;
            ASSERT_NE(carte, nullptr);
            const QImage avant = ecran.copy();
            for (int y = 0; y < im.ImageDesc.Height; ++y)
                for (int x = 0; x < im.ImageDesc.Width; ++x) {
                    const GifColorType& k = carte->Colors[im.RasterBits[y * im.ImageDesc.Width + x]];
                    ecran.setPixel(im.ImageDesc.Left + x, im.ImageDesc.Top + y, qRgb(k.Red, k.Green, k.Blue));
                }
            differentes += ecran != avant;
            const QImage png(chemin("p/") + QString::number(i + 1) + ".png");
            ASSERT_EQ(png.size(), ecran.size());
            // Colours beyond the 256 of a picture's palette show as the
            // nearest one: a few pixels, each close to its colour.
            int ecarts = 0, pire = 0;
            for (int y = 0; y < 150; ++y)
                for (int x = 0; x < 200; ++x) {
                    const QRgb a = png.pixel(x, y), b = ecran.pixel(x, y);
                    const int e = std::max(
                        {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
                    ecarts += e > 0;
                    pire = std::max(pire, e);
                }
            EXPECT_LE(ecarts, 200 * 150 / 100) << "image " << i + 1;
            EXPECT_LE(pire, 8) << "image " << i + 1;
        }
        EXPECT_GE(differentes, gif->ImageCount - 2);
        DGifCloseFile(gif, &code);
    }
}

TEST_F(Exporte, TourRefuse)
{
    struct Cas {
        QStringList arguments;
        const char* message;
    };
    const QString ici = chemin("");
    const Cas cas[] = {
        {{"--tour", "oz", "--sortie", "a.gif"}, "axe de tour inconnu « oz »"},
        {{"--tour", "vision+", "--sortie", "t_%s.png"}, "est incorrect"},
        {{"--tour", "oy-", "--sortie", "t_%d.gif"}, "ne convient pas"},
        {{"--tour", "oy-", "--sortie", "t_%d.bmp"}, "ne convient pas"},
        {{"--tour", "oz+", "--sortie", "a.png"}, "un .gif, ou un nom numéroté"},
        {{"--tour", "oz+", "--sortie", "a.bmp"}, ".gif pour l'animation"},
        {{"--sortie", "a.gif"}, "ajoutez --tour"},
        {{"--tour", "oz+", "--sortie", "absent/a.gif"}, "« absent » n'existe pas"},
        {{"--tour", "oz+", "--sortie", "absent/t_%d.png"}, "« absent » n'existe pas"},
        {{"--tour", "oz+", "--sortie", "essai.lsu/t_%d.png"}, "essai.lsu"},
    };
    for (const Cas& c : cas)
        refuse(QStringList{"--dossier", ici, "--catalogue", "essai.lsu", "--entree", "1"} + c.arguments, c.message);
    // A catalogue named like a picture of the series is never replaced.
    fs::copy_file(dossier_ / "essai.lsu", dossier_ / "t_3.txt");
    refuse({"--dossier", ici, "--catalogue", "t_3.txt", "--entree", "1", "--tour", "oz-", "--sortie", "t_%d.txt"},
           "est aussi lu par cette commande");
}

}  // namespace
