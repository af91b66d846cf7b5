// `velorin exporte` run as a user runs it: each output kind reached from the command line, a saved
// figure redrawn, one refusal per family of arguments. What is drawn and written: plot, qt and base.
#include <QImage>

#include "base/texte_sur.h"
#include "processus.h"

namespace velorin::essai {
namespace {

class Exporte : public DossierProcessus {
protected:
    Exporte() : DossierProcessus("exporte") { }
    void SetUp() override
    {
        ecris("essai.lsu", octetsFiche(1, "x=f1(t)=3*cos(t)][y=f2(t)=3*sin(t)][z=f3(t)=t/2") +
                               octetsFiche(8, "Segment:[(-5,-5,0)][(5,5,8)]") +
                               octetsFiche(1, "x=f1(t)=cos(t][y=f2(t)=t][z=f3(t)=t"));
    }
    // The first two entries of "essai.lsu", at 640 x 400 unless `suite` says.
    Sortie exporte(const QStringList& suite)
    {
        return lance(QStringList{"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2",
                                 "--taille", "640x400"} +
                     suite);
    }
    Sortie figure(const char* nom, const QStringList& suite)
    {
        return lance(QStringList{"--figure", chemin(nom), "--dossier", chemin("")} + suite);
    }
    // A figure of six lines: an empty frame over `catalogue`, in the plane.
    static std::string figureVide(const char* catalogue)
    {
        return std::string("True\r\n") + catalogue + "\r\n-5  5 -3  3 -10  10 \r\n 30  20  15  5 -30 -20 -15  0 \r\n" +
               " 0  0 False True \r\n 0  0  6000  4500 \r\n";
    }
};

// Each output kind reaches its writer. The figure of what was drawn redraws
// its entries, then its labels, at its window's size unless --taille says;
// without --dossier its catalogue is looked for in the curves folder of its mode.
TEST_F(Exporte, ChaqueFormatLaFigureEtLeTour)
{
    const std::pair<const char*, const char*> cas[] = {
        {"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.pdf", "%PDF"}, {"a.txt", "CLEAR "}, {"a.fig", "False\r\n"}};
    for (const auto& [nom, debut] : cas) {
        const Sortie s = exporte({"--chrono", "--sortie", chemin(nom)});
        ASSERT_EQ(s.code, 0) << nom << " " << s.erreurs;
        EXPECT_EQ(contenu(nom).rfind(debut, 0), 0u) << nom;
        for (const char* temps : {"entrée 1 : ", "entrée 2 : ", " ms\n"})
            EXPECT_NE(s.erreurs.find(temps), std::string::npos) << nom << " : " << s.erreurs;
    }
    EXPECT_EQ(QImage(chemin("a.png")).size(), QSize(640, 400));
    fs::copy_file(dossier_ / "essai.lsu", dossier_ / "a&b<c>.lsu");  // the SVG's title: the catalogue, escaped
    ASSERT_EQ(lance({"--dossier", chemin(""), "--catalogue", "a&b<c>.lsu", "--entree", "2", "--sortie", "t.svg"}).code,
              0);
    EXPECT_NE(contenu("t.svg").find("<title>a&amp;b&lt;c&gt;.lsu</title>"), std::string::npos);
    std::string fig = contenu("a.fig");  // its catalogue, both entries, the size in twips
    const auto lignes = lignesDuTexte(fig);
    ASSERT_GE(lignes.size(), 6u);
    EXPECT_EQ(lignes[1], "essai.lsu");
    EXPECT_EQ(lignes[4], " 2  0 False True ");
    EXPECT_EQ(lignes[5], " 0  0  9600  6000 ");
    fig.replace(fig.find(" 2  0 False"), 11, " 2  1 False");
    ecris("b.fig", fig + "Arial\r\n 12,5 \r\nFalse\r\nFalse\r\nTrue\r\n 65280 \r\nBase\r\n 600 \r\n 4500 \r\n");
    ASSERT_EQ(figure("b.fig", {"--sortie", chemin("b.txt")}).code, 0);
    EXPECT_EQ(contenu("b.txt"), contenu("a.txt") + "PRINT 600 4500 65280 \"Arial\" 12.5 \"Base\"\n");
    for (const auto& [taille, attendue] :
         {std::pair{QStringList{}, QSize(640, 400)}, std::pair{QStringList{"--taille", "300x200"}, QSize(300, 200)}}) {
        ASSERT_EQ(figure("b.fig", QStringList{"--sortie", chemin("b.png")} + taille).code, 0);
        EXPECT_EQ(QImage(chemin("b.png")).size(), attendue);
    }
    ecris("plan.fig", figureVide("Lico.lsu"));
    ASSERT_EQ(lance({"--figure", chemin("plan.fig"), "--sortie", chemin("plan.txt")}).code, 0);
    EXPECT_NE(contenu("plan.txt").find("\"x\""), std::string::npos);  // the plane frame names its axes
    // --tour reaches the animated GIF and the numbered files; a figure's turn redraws as the entries' turn.
    ASSERT_EQ(exporte({"--taille", "200x150", "--tour", "vision-", "--sortie", chemin("a.gif")}).code, 0);
    EXPECT_EQ(contenu("a.gif").rfind("GIF89a", 0), 0u);
    for (const char* d : {"e", "f"})
        fs::create_directory(dossier_.chemin() / d);
    ASSERT_EQ(exporte({"--taille", "200x150", "--tour", "oy-", "--sortie", chemin("e/t_%02d.txt")}).code, 0);
    ASSERT_GT(std::distance(fs::directory_iterator(dossier_.chemin() / "e"), {}), 10);
    ASSERT_EQ(exporte({"--taille", "200x150", "--sortie", chemin("c.fig")}).code, 0);
    ASSERT_EQ(figure("c.fig", {"--tour", "oy-", "--sortie", chemin("f/t_%02d.txt")}).code, 0);
    for (const auto& e : fs::directory_iterator(dossier_.chemin() / "e"))
        EXPECT_EQ(lisFichier(dossier_.chemin() / "f" / e.path().filename()), lisFichier(e.path())) << e.path();
}

TEST_F(Exporte, UnRefusParFamilleDArguments)
{
    ecris("cat.txt", contenu("essai.lsu"));
    ecris("t_3.txt", contenu("essai.lsu"));
    ecris("p.txt", lisFichier(fs::path(VELORIN_SOURCE_DIR) / "data/Espace_courbes/mem.log"));
    ecris("x.png", "ancienne image\n");
    const std::string fig = figureVide("essai.lsu");
    ecris("abimee.fig", std::string(fig).replace(fig.find("True \r"), 4, "Oui"));
    ecris("sanscat.fig", figureVide("absent.lsu"));
    // One argument list a row: E stands for --dossier, --catalogue essai.lsu --entree 1; @name for a path
    // in the folder.
    const std::pair<const char*, const char*> cas[] = {
        {"E --vite --sortie y.png", "option inconnue « --vite »"},
        {"E --sortie", "l'option --sortie attend une valeur"},
        {"E --taille 12 --sortie y.png", "taille incorrecte « 12 »"},
        {"E --taille 10001x10 --sortie y.png", "hors des limites (1 à 10000 pixels de côté)"},
        {"E --tour oz+ --taille 10000x10000 --sortie y.gif", "plus que 4 milliards de pixels en tout"},
        {"E --ordre 4 --sortie y.png", "ordre des boucles incorrect « 4 »"},
        {"E --entree 0 --sortie y.png", "numéro d'entrée incorrect « 0 »"},
        {"E --entree 5 --sortie y.png", "n'a pas d'entrée 5 (il en a 3)"},
        {"E --entree 3 --sortie y.txt", "entrée 3 : "},
        {"E --sortie y.bmp", "est inconnu : .png, .svg, .pdf, .txt ou .fig."},
        {"E --tour oz+ --sortie y.bmp", ", .gif pour l'animation."},
        {"E --sortie y.gif", "ajoutez --tour"},
        {"E --tour oz --sortie y.gif", "axe de tour inconnu « oz »"},
        {"E --tour oz+ --sortie y.fig", "ne s'écrit pas dans une figure"},
        {"E --parametres absent.log --sortie y.png", "Le fichier de paramètres « "},
        {"E --sortie absent/y.png", "Le dossier de sortie « absent » n'existe pas"},
        {"E --catalogue cat.txt --sortie cat.txt", "est aussi lu par cette commande"},
        {"E --parametres p.txt --sortie p.txt", "est aussi lu par cette commande"},
        {"E --figure abimee.fig --sortie y.png", "ne s'emploie pas avec --catalogue"},
        {"--dossier @ --catalogue essai.lsu --sortie y.png", "il faut --catalogue, au moins"},
        {"--dossier @absent --catalogue essai.lsu --entree 1 --sortie y.png", "Le dossier (--dossier) « "},
        {"--dossier @ --catalogue absent.lsu --entree 1 --sortie y.png", "absent.lsu » n'existe pas"},
        {"--figure nulle.fig --sortie y.png", "La figure « nulle.fig » n'existe pas."},
        {"--figure abimee.fig --dossier @ --sortie y.png", "ligne 5 : « Oui » pour la couleur de référence"},
        {"--figure abimee.fig --dossier @absent --sortie y.png", "Le dossier (--dossier) « "},
        {"--figure sanscat.fig --dossier @ --sortie y.png", "absent.lsu » n'existe pas"},
        {"--dossier @ --catalogue t_3.txt --entree 1 --tour oz- --sortie t_%d.txt", "« t_3.txt » est aussi lu par"},
    };
    const auto mots = [&](const char* ligne) {
        QStringList arguments;
        for (const QString& mot : QString::fromUtf8(ligne).split(' '))
            arguments += mot == "E" ? QStringList{"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1"}
                         : mot.startsWith('@') ? QStringList{chemin(mot.mid(1).toUtf8().constData())}
                                               : QStringList{mot};
        return arguments;
    };
    for (const auto& [ligne, message] : cas)
        refuse(mots(ligne), message);
    refuse(mots("E --sortie x.png"), "x.png » : le disque est plein", disquePlein("100"));
}

}  // namespace
}  // namespace velorin::essai
