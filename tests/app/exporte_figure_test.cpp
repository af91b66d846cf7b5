// `velorin exporte --figure` and `--sortie X.fig`, run as separate processes.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QStringList>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "dossier_exporte.h"

namespace fs = std::filesystem;
using namespace velorin;

namespace {

class ExporteFigure : public essai::DossierExporte {
protected:
    ExporteFigure()
        : DossierExporte("velorin_figure_",
                         {{1, "x=f1(t)=3*cos(t)][y=f2(t)=3*sin(t)][z=f3(t)=t/2"}, {8, "Segment:[(-5,-5,0)][(5,5,8)]"}})
    { }
    // The two entries drawn into a figure of 640 x 400 pixels.
    std::string figureDesEntrees()
    {
        const auto [code, sortie, erreurs] =
            lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2", "--taille",
                   "640x400", "--sortie", chemin("a.fig")});
        EXPECT_EQ(code, 0) << erreurs;
        return contenu("a.fig");
    }
};

TEST_F(ExporteFigure, TheFigureOfWhatWasDrawnFollowsTheLayout)
{
    const std::string fig = figureDesEntrees();
    const auto l = lignesDuTexte(fig);
    ASSERT_EQ(l.size(), 6U + 2 * 32);
    EXPECT_EQ(l[0], "False");
    EXPECT_EQ(l[1], "essai.lsu");
    EXPECT_EQ(l[4], " 2  0 False True ");
    EXPECT_EQ(l[5], " 0  0  9600  6000 ");  // the size drawn, in twips
    EXPECT_EQ(l[6 + 30], " 1 ");            // record number of the first curve
    EXPECT_EQ(l[6 + 31], " 1 ");            // its kind
    EXPECT_EQ(l[6 + 32 + 30], " 2 ");
    EXPECT_EQ(l[6 + 32 + 31], " 8 ");
    // Every line ends with CR LF.
    std::size_t crlf = 0;
    for (std::size_t i = 0; (i = fig.find("\r\n", i)) != std::string::npos; i += 2)
        ++crlf;
    EXPECT_EQ(crlf, l.size());
}

TEST_F(ExporteFigure, AFiguresTurnRedrawsItsCurvesAtEachTick)
{
    figureDesEntrees();
    fs::create_directories(dossier_ / "e");
    fs::create_directories(dossier_ / "f");
    ASSERT_EQ(lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2", "--taille",
                     "640x400", "--tour", "oy-", "--sortie", chemin("e/t_%03d.txt")})
                  .code,
              0);
    const essai::Sortie s = lance(
        {"--figure", chemin("a.fig"), "--dossier", chemin(""), "--tour", "oy-", "--sortie", chemin("f/t_%03d.txt")});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    std::set<std::string> noms;
    for (const auto& e : fs::directory_iterator(dossier_ / "e"))
        noms.insert(e.path().filename().string());
    ASSERT_GT(noms.size(), 10U);
    for (const std::string& n : noms)
        EXPECT_EQ(contenu(("f/" + n).c_str()), contenu(("e/" + n).c_str())) << n;
    EXPECT_EQ(std::distance(fs::directory_iterator(dossier_ / "f"), fs::directory_iterator{}), long(noms.size()));
}

TEST_F(ExporteFigure, AFigureDrawsWhatItsEntriesDrewThenItsLabels)
{
    figureDesEntrees();
    ASSERT_EQ(lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2", "--taille",
                     "640x400", "--sortie", chemin("entrees.txt")})
                  .code,
              0);
    // Redrawn from the rows, at the figure's size: the same journal.
    essai::Sortie s = lance({"--figure", chemin("a.fig"), "--dossier", chemin(""), "--sortie", chemin("a.txt")});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    EXPECT_EQ(contenu("a.txt"), contenu("entrees.txt"));

    // Two labels added by hand: drawn last, where they stand, in their font.
    std::string avecLabels = contenu("a.fig");
    avecLabels.replace(avecLabels.find(" 2  0 False"), 11, " 2  2 False");
    avecLabels += "Times New Roman\r\n 20 \r\nTrue\r\nFalse\r\nFalse\r\n 255 \r\nSommet\r\n 3000 \r\n 1500 \r\n"
                  "Arial\r\n 12,5 \r\nFalse\r\nFalse\r\nTrue\r\n 65280 \r\nBase\r\n 600 \r\n 4500 \r\n";
    ecris("b.fig", avecLabels);
    s = lance({"--figure", chemin("b.fig"), "--dossier", chemin(""), "--sortie", chemin("b.txt")});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    const auto journal = lignesDuTexte(contenu("b.txt"));
    ASSERT_GE(journal.size(), 2U);
    EXPECT_EQ(journal[journal.size() - 2], "PRINT 3000 1500 255 \"Times New Roman\" 20 \"Sommet\"");
    EXPECT_EQ(journal.back(), "PRINT 600 4500 65280 \"Arial\" 12.5 \"Base\"");
    EXPECT_EQ(contenu("b.txt").rfind(contenu("a.txt"), 0), 0U);

    // The image takes the figure's window size unless --taille is given.
    struct Cas {
        QStringList taille;
        QSize attendue;
    };
    for (const Cas& c : {Cas{{}, QSize(640, 400)}, Cas{{"--taille", "300x200"}, QSize(300, 200)}}) {
        s = lance(QStringList{"--figure", chemin("b.fig"), "--dossier", chemin(""), "--sortie", chemin("b.png")} +
                  c.taille);
        ASSERT_EQ(s.code, 0) << s.erreurs;
        EXPECT_EQ(QImage(chemin("b.png")).size(), c.attendue);
    }
    // A figure written from a figure keeps its labels and reads back the same.
    s = lance({"--figure", chemin("b.fig"), "--dossier", chemin(""), "--sortie", chemin("c.fig")});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    avecLabels.replace(avecLabels.find(" 12,5 "), 6, " 12.5 ");
    EXPECT_EQ(contenu("c.fig"), avecLabels);
}

TEST_F(ExporteFigure, WithoutFolderTheCatalogueIsInTheCurvesFolderOfTheMode)
{
    ecris("plan.fig", "True\r\nLico.lsu\r\n-5  5 -3  3 -10  10 \r\n 30  20  15  5 -30 -20 -15  0 \r\n"
                      " 0  0 False True \r\n 0  0  6000  4500 \r\n");
    const auto [code, sortie, erreurs] = lance({"--figure", chemin("plan.fig"), "--sortie", chemin("plan.txt")});
    ASSERT_EQ(code, 0) << erreurs;
    // The plane frame names its axes "x" and "y".
    EXPECT_NE(contenu("plan.txt").find("\"x\""), std::string::npos);
}

TEST_F(ExporteFigure, RefusalsNameTheFigureAndTheLineAndWriteNothing)
{
    const std::string bonne = figureDesEntrees();
    std::string abimee = bonne;
    abimee.replace(abimee.find(" 2  0 False True"), 16, " 2  0 False Oui ");
    ecris("abimee.fig", abimee);
    std::string absent = bonne;
    absent.replace(absent.find("essai.lsu"), 9, "absent.lsu");
    ecris("absent.fig", absent);
    ecris("courte.fig", bonne.substr(0, bonne.size() - 8));
    struct Cas {
        QStringList arguments;
        const char* message;
    };
    const QString dossier = chemin("");
    const Cas cas[] = {
        {{"--figure", chemin("abimee.fig"), "--dossier", dossier}, "ligne 5 : « Oui » pour la couleur de référence"},
        {{"--figure", chemin("absent.fig"), "--dossier", dossier}, "ligne 2 :"},
        {{"--figure", chemin("courte.fig"), "--dossier", dossier}, "ligne 70 : la figure s'arrête là"},
        {{"--figure", chemin("nulle.fig"), "--dossier", dossier}, "nulle.fig"},
        {{"--figure", chemin("a.fig"), "--catalogue", "essai.lsu"}, "ne s'emploie pas avec --catalogue"},
        {{"--figure", chemin("a.fig"), "--dossier", chemin("pas_la")}, "pas_la"},
    };
    for (const Cas& c : cas) {
        const auto [code, sortie, erreurs] = lance(c.arguments + QStringList{"--sortie", chemin("sortie.png")});
        EXPECT_EQ(code, 2) << c.message;
        EXPECT_NE(erreurs.find(c.message), std::string::npos) << erreurs;
        EXPECT_FALSE(fs::exists(dossier_ / "sortie.png")) << c.message;
    }
    EXPECT_FALSE(fs::exists(dossier_ / "absent.lsu"));
}

}  // namespace
