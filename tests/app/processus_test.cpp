// `velorin` run as a separate process, as a user or a script runs it: its exit status, what it
// prints, the files its folder holds afterwards. Started without a display: help, version, wrong
// options and commands, the window refused in French when there is no display, and `sansfenetre`
// saying its failures. `calcule`: its options, output and status (the values, the normalised forms
// and the remarks are the engine's). `exporte`: each output kind reached from the command line, a
// saved figure redrawn, one refusal per family of arguments (what is drawn and written: plot, qt and
// base). `catalogue` and its sub-commands: what they print, their status, the catalogue afterwards
// (each kind's text, the records' layout and the compaction are the tests of plot and catalogue).
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <map>
#include <sys/stat.h>

#include "catalogue/catalogue.h"
#include "commun/commun.h"

namespace velorin::essai {
namespace {

struct Sortie {
    int code = -1;  // exit status; -1 when the process did not end normally
    std::string sortie, erreurs;
};

// `velorin ARGUMENTS` in `dossier`; its standard output goes to `fichierSortie` when given.
inline Sortie lanceVelorin(const QStringList& arguments, const std::string& dossier,
                           const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment(),
                           const QString& fichierSortie = {})
{
    QProcess p;
    p.setProcessEnvironment(environnement);
    p.setWorkingDirectory(QString::fromStdString(dossier));
    if (!fichierSortie.isEmpty())
        p.setStandardOutputFile(fichierSortie);
    p.start(QString(VELORIN_BIN_DIR) + "/velorin", arguments);
    p.waitForFinished(60000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, p.readAllStandardOutput().toStdString(),
            p.readAllStandardError().toStdString()};
}

inline std::string octetsFiche(int genre, const std::string& texte)
{
    return octetsEnregistrement({static_cast<std::int16_t>(genre), texte});
}

// Writes fail after `octets` bytes, as on a full disk.
inline QProcessEnvironment disquePlein(const char* octets)
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("VELORIN_ESSAI_DISQUE_PLEIN", octets);
    return e;
}

// One sub-command of `velorin` run in a fresh folder.
class DossierProcessus : public ::testing::Test {
protected:
    using Env = QProcessEnvironment;
    explicit DossierProcessus(const char* commande) : commande_(QString::fromUtf8(commande)) { }
    Sortie lance(const QStringList& arguments, const Env& env = Env::systemEnvironment())
    {
        return lanceVelorin(QStringList{commande_} + arguments, dossier_.chemin().string(), env);
    }
    QString chemin(const char* nom) const { return QString::fromStdString(dossier_ / nom); }
    std::string contenu(const char* nom) const { return lisFichier(dossier_ / nom); }
    void ecris(const char* nom, const std::string& octets) const { ecrisFichier(dossier_ / nom, octets); }
    // Refused with status 2 and `message` in French on the error output: nothing printed, no English
    // from Qt or the C++ library, every name and every file's bytes in the folder as they were.
    void refuse(const QStringList& arguments, const std::string& message, const Env& env = Env::systemEnvironment())
    {
        const std::string nom = arguments.join(' ').toStdString();
        const auto fichiers = [&] {  // every name, with the bytes of the plain files
            std::map<std::string, std::string> f;
            for (const std::string& n : dossier_.noms())
                f[n] = fs::is_regular_file(fs::symlink_status(dossier_.chemin() / n)) ? lisFichier(dossier_ / n) : "";
            return f;
        };
        const auto avant = fichiers();
        const Sortie s = lance(arguments, env);
        EXPECT_EQ(s.code, 2) << nom;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(s.sortie, "") << nom;
        for (const char* anglais : {"QPainter", "qt.", "filesystem", "terminate", "No such file", "Is a directory"})
            EXPECT_EQ(s.erreurs.find(anglais), std::string::npos) << nom << " : " << s.erreurs;
        EXPECT_EQ(fichiers(), avant) << nom;
    }
    QString commande_;
    DossierTemporaire dossier_{"velorin_processus_"};
};

// Runs velorin with an environment that has no display at all, plus `ajouts`.
Sortie lanceSansAffichage(const QStringList& arguments, const QStringList& ajouts = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "VELORIN_DEBUG"})
        env.remove(nom);
    for (const QString& a : ajouts)
        env.insert(a.section('=', 0, 0), a.section('=', 1));
    return lanceVelorin(arguments, fs::temp_directory_path().string(), env);
}

bool contient(const std::string& texte, const char* mot)
{
    return texte.find(mot) != std::string::npos;
}

TEST(Demarrage, AideVersionEtRefusEnFrancais)
{
    for (const char* option : {"--help", "-h"}) {
        const Sortie s = lanceSansAffichage({option});
        EXPECT_EQ(std::pair(s.code, s.erreurs), std::pair(0, std::string())) << option;
        for (const char* mot : {"Usage : velorin", "fenêtre", "calcule", "exporte", "sansfenetre", "--version"})
            EXPECT_TRUE(contient(s.sortie, mot)) << option << " : " << mot;
    }
    const Sortie v = lanceSansAffichage({"--version"});
    EXPECT_EQ(std::tuple(v.code, v.sortie, v.erreurs), std::tuple(0, std::string("velorin " VELORIN_VERSION "\n"), ""));
    const char* const sansAffichage = "aucun affichage n'est disponible";
    for (const auto& [arguments, environnement, message] :
         {std::tuple<QStringList, QStringList, const char*>{{"--inconnue"}, {}, "option inconnue « --inconnue »"},
          {{"-platform", "offscreen"}, {}, "option inconnue « -platform »"},  // Qt's own options are not taken
          {{"dessine"}, {}, "commande inconnue « dessine »"},
          {{}, {}, sansAffichage},
          {{}, {"QT_QPA_PLATFORM=xcb"}, sansAffichage},
          {{}, {"QT_QPA_PLATFORM=wayland;xcb"}, sansAffichage}}) {
        const Sortie s = lanceSansAffichage(arguments, environnement);
        EXPECT_EQ(std::pair(s.code, s.sortie), std::pair(2, std::string())) << message;
        EXPECT_TRUE(contient(s.erreurs, message) && !contient(s.erreurs, "Qt") && !contient(s.erreurs, "qt."))
            << s.erreurs;
        // The usage after a wrong option.
        EXPECT_TRUE(arguments.value(0) != "--inconnue" || contient(s.erreurs, "Usage : velorin")) << s.erreurs;
    }
}

// `sansfenetre` in a copy of the program's folder (beside the copied factory files): a folder for the
// images that cannot be made is said, not announced as filled; a stdout not written whole is a failure;
// on a full disk nothing unwritten is announced, and an entry that cannot be drawn is named once.
TEST(Demarrage, SansFenetreSignaleSesEchecs)
{
    DossierTemporaire dossier("velorin_sansfenetre_");
    fs::copy_file(fs::path(VELORIN_BIN_DIR) / "velorin", dossier / "velorin");
    fs::copy(fs::path(VELORIN_BIN_DIR) / "usine", dossier / "usine", fs::copy_options::recursive);
    ecrisFichier(dossier / "Apercus", "un fichier, pas un dossier\n");
    for (const int cas : {0, 1, 2}) {
        QProcess p;
        if (cas == 1) {
            fs::remove(dossier / "Apercus");
            p.setStandardOutputFile("/dev/full");
        } else if (cas == 2) {
            fs::create_directory(dossier / "Espace_courbes");
            // An entry with a bracket left open.
            ecrisFichier(dossier / "Espace_courbes/Lisurf.lsu", octetsFiche(1, "x=f1(t)=(t][y=f2(t)=t][z=f3(t)=t"));
            p.setProcessEnvironment(disquePlein("0"));
        }
        p.start(QString::fromStdString(dossier / "velorin"), {"sansfenetre"});
        p.waitForFinished(120000);
        const std::string sortie = p.readAllStandardOutput().toStdString(),
                          erreurs = p.readAllStandardError().toStdString();
        EXPECT_EQ(p.exitCode(), cas == 1 ? 2 : 1);
        EXPECT_FALSE(contient(sortie, "une image par entrée") || contient(sortie, "toutes ensemble")) << sortie;
        const char* attendus[] = {"Apercus/espace » n'a pas pu être créé : un élément du chemin n'est pas un dossier",
                                  "la sortie standard n'a pas pu être écrite en entier",
                                  "Lisurf.lsu, entrée 1 : La formule (T est incorrecte, corrigez-la , svp\n"
                                  "velorin sansfenetre : Lico.lsu, entrée 1 : Impossible d'écrire"};
        EXPECT_TRUE(contient(erreurs, attendus[cas])) << erreurs;
    }
}

// The window is the module beside the program: with it, the window opens (still running once Qt Widgets
// is mapped: every symbol bound); without it, the files tried are said, status 2.
TEST(Demarrage, FenetreParSonModuleEtModuleAbsentDit)
{
    for (const bool avecModule : {true, false}) {
        DossierTemporaire dossier("velorin_module_");
        for (const std::string nom : {"velorin", VELORIN_MODULE_FENETRE})
            if (avecModule || nom == "velorin")
                fs::copy_file(fs::path(VELORIN_BIN_DIR) / nom, dossier / nom);
        QProcess p;
        p.setEnvironment(QProcess::systemEnvironment() << "QT_QPA_PLATFORM=offscreen");
        p.start(QString::fromStdString(dossier / "velorin"), {});
        const std::string carte = "/proc/" + std::to_string(p.processId()) + "/maps";
        for (int i = 0; i < 300 && avecModule && !contient(lisFichier(carte), "libQt6Widgets"); ++i)
            p.waitForFinished(100);
        p.waitForFinished(avecModule ? 1000 : 30000);
        EXPECT_EQ(p.state() == QProcess::Running, avecModule);
        p.kill();
        p.waitForFinished();
        const std::string erreurs = p.readAllStandardError().toStdString(),
                          attendu = "chargé.\n  « " + dossier / VELORIN_MODULE_FENETRE + " » : ";
        EXPECT_EQ(std::pair(avecModule || p.exitCode() == 2, contient(erreurs, attendu.c_str())),
                  std::pair(true, !avecModule))
            << erreurs;
    }
}

// calcule reads and writes no file: any folder will do.
Sortie calcule(const QStringList& arguments, const QString& fichierSortie = {})
{
    return lanceVelorin(QStringList{"calcule"} + arguments, fs::temp_directory_path().string(),
                        QProcessEnvironment::systemEnvironment(), fichierSortie);
}

// One row per option: each reaches its routine, its values grouped by the
// family's count of variables (a short last group completed with zeros).
TEST(CommandeCalcule, ChaqueOptionEtSonStatut)
{
    const std::string reste = " après la dernière parenthèse n'est pas lu. Écrivez : SIN(X)+(1)\n",
                      deux = " tient deux variables : il est lu comme un nombre. Écrivez : (X)*(Y)\n";
    const std::tuple<int, QStringList, std::string, std::string> cas[] = {
        {0, {"y = 2 sin(x)"}, "0\n", ""},
        {0, {"1/X", "2", "1e20"}, "0.5\n1e-20\n", ""},
        {0, {"--famille", "plan", "X+T", "1", "2", "3"}, "3\n3\n", ""},
        {0, {"--famille", "nuage", "X+2*Y+3*Z", "1", "1", "1", "2"}, "6\n2\n", ""},
        {0, {"--pointx", "2", "7\\X", "5"}, "3\n", ""},
        {0, {"--normalise", "y = 2 sin(x)"}, "(2)*SIN(X)\n", ""},
        {2, {"SIN(X"}, "", "La formule SIN(X est incorrecte, corrigez-la , svp\n"},
        {2, {"--brut", "SIN(X"}, "", "Formule incorrecte,désolé\n"},
        {2, {"--famille", "plan", "--brut", "(X"}, "", "Formule incorrecte\n"},
        {0, {"--verifie", "y = 2*sin(x)"}, "", ""},
        {1, {"--verifie", "SIN(X)+1"}, "position 7 : « +1 »" + reste, ""},
        {1, {"--famille", "nuage", "--verifie", "X*Y"}, "position 1 : « X*Y »" + deux, ""},
        {2, {"--famille", "plan", "--verifie", "X)+(1"},
         "position 1 : une « ) » ferme avant son « ( » : au tracé, le programme dira « Formule incorrecte » et "
         "s'arrêtera.\n", ""},
    };
    for (const auto& [statut, arguments, sortie, erreurs] : cas) {
        const Sortie s = calcule(arguments);
        EXPECT_EQ(std::tie(s.code, s.sortie, s.erreurs), std::tie(statut, sortie, erreurs))
            << arguments.join(' ').toStdString();
    }
}

// Each argument list is refused with the usage; an output that cannot be
// written whole (/dev/full) is a failure.
TEST(CommandeCalcule, ErreursDUsageEtSortiePleine)
{
    const auto refuse = [](const char* ligne, const QString& sortie, const char* message) {
        const Sortie s = calcule(QString(ligne).split(' ', Qt::SkipEmptyParts), sortie);
        EXPECT_EQ(s.code, 2) << ligne;
        EXPECT_NE(s.erreurs.find(message), std::string::npos) << ligne;
    };
    for (const char* ligne : {"", "X abc", "--famille lune X", "--pointx", "--normalise X 1", "--inconnue X",
                              "--verifie X 1", "--verifie --brut X"})
        refuse(ligne, "", "Usage : velorin calcule");
    for (const char* ligne : {"X 1 2", "--normalise X"})
        refuse(ligne, "/dev/full", "la sortie standard n'a pas pu être écrite en entier : le disque est plein.");
}

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
    // The figure names its catalogue, holds both entries (b.txt) and the size (b.png without --taille).
    std::string fig = contenu("a.fig");
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
    // An entry of a kind no editor writes is drawn, and told.
    ecris("k.lsu", octetsFiche(255, "0<x^2+y^2<4"));
    const Sortie k = lance({"--dossier", chemin(""), "--catalogue", "k.lsu", "--entree", "1", "--sortie", chemin("k.txt")});
    EXPECT_EQ(std::tie(k.code, k.erreurs), std::make_tuple(0, std::string("velorin exporte : entrée 1 : genre 255, "
                                                                          "qu'aucun éditeur n'écrit (l'entrée se trace "
                                                                          "comme un nuage g<f<h).\n")));
    // A drawing style is accepted; a rendering file that cannot be read is told in one line, and drawn past.
    ecris("rendu.txt", "style=gris\n");
    const Sortie r = exporte({"--rendu", "pointilles", "--sortie", chemin("r.txt")});
    EXPECT_EQ(std::tuple(r.code, std::ranges::count(r.erreurs, '\n')), std::tuple(0, 1)) << r.erreurs;
    EXPECT_TRUE(contient(r.erreurs, "rendu.txt », ligne 1 : le style « gris » n'existe pas")) << r.erreurs;
}

// The window's module and its libraries are for the window alone: an export never loads them
// (LD_DEBUG=files names every library the loader maps, Qt Gui among them).
TEST_F(Exporte, NeChargeNiLeModuleNiLesBibliothequesDeLaFenetre)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("LD_DEBUG", "files");
    const Sortie s =
        lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--sortie", chemin("a.png")}, env);
    ASSERT_TRUE(s.code == 0 && contient(s.erreurs, "libQt6Gui")) << s.erreurs;
    for (const char* bibliotheque : {"libQt6Widgets", "libQt6PrintSupport", VELORIN_MODULE_FENETRE})
        EXPECT_FALSE(contient(s.erreurs, bibliotheque)) << bibliotheque;
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
        {"E --rendu gris --sortie y.png", "style de rendu inconnu « gris » : filaire, pointilles, effaces ou faces"},
        {"E --largeur 0.2cm --sortie y.tex", "largeur incorrecte « 0.2cm »"},
        {"E --autonome --sortie y.png", "--autonome ne s'emploient qu'avec une sortie .tex"},
        {"E --entree 0 --sortie y.png", "numéro d'entrée incorrect « 0 »"},
        {"E --entree 5 --sortie y.png", "n'a pas d'entrée 5 (il en a 3)"},
        {"E --entree 3 --sortie y.txt", "entrée 3 : "},
        {"E --sortie y.bmp", "est inconnu : .png, .svg, .pdf, .tex, .txt ou .fig."},
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

struct CommandeCatalogue : DossierProcessus {
    CommandeCatalogue() : DossierProcessus("catalogue") { }
};

// Each step runs on the catalogue the previous steps left; each prints the
// line `liste` shows for what it wrote (a point already there: its line).
TEST_F(CommandeCatalogue, ChaqueSousCommandeAtteintSonEcrivain)
{
    const std::string point = octetsFiche(9, "Point:[(1,2,3)]"), f1 = octetsFiche(1, "x=f1(t)=t");
    ecris("c.lsu", f1 + point);
    // Left over by an earlier compaction: its records past the kept ones stay.
    ecris("LIBI.lcs", octetsFiche(7, "L1") + octetsFiche(7, "L2") + octetsFiche(7, "L3") + octetsFiche(7, "L4") +
                          octetsFiche(7, "L5"));
    const std::pair<QStringList, const char*> pas[] = {
        {{"ajoute", "c.lsu", "--genre", "7", "--plan", "--", "-x+y-1=0"}, "0003]Droite:[-x+y-1=0][07\n"},
        {{"ajoute", "c.lsu", "--genre", "5", "--ligne", "3", "[1,2,3]", " {1,0,0} "},
         "0003]D(M,u):[(1,2,3)][(1,0,0)][05\n"},
        {{"liste", "c.lsu"}, "0001]x=f1(t)=t[01\n0002]Point:[(1,2,3)][09\n0003]D(M,u):[(1,2,3)][(1,0,0)][05\n"},
        {{"point", "c.lsu", " [4,5,6} "}, "0004]Point:[(4,5,6)][09\n"},
        {{"point", "c.lsu", "{1,2,3]"}, "0002]Point:[(1,2,3)][09\n"},
        {{"relie", "c.lsu", "4", "2"}, "0005]Segment:[(4,5,6)][(1,2,3)][08\n"},
        {{"elimine", "c.lsu", "1", "3"},
         "Effacées et compacté : le catalogue garde 3 entrées, lignes 1 à 3 ; les lignes 4 à 5 viennent de « "
         "LIBI.lcs », laissé par un compactage précédent.\n"},
        {{"elimine", "c.lsu", "4", "5"}, "Effacées et compacté : le catalogue garde 3 entrées, lignes 1 à 3.\n"},
        {{"reduis", "c.lsu"}, "Compacté : le catalogue garde 3 entrées, lignes 1 à 3.\n"},
    };
    const std::string deja = "velorin catalogue point : ce point est déjà à la ligne 2 : rien n'est écrit.\n";
    for (const auto& [arguments, sortie] : pas) {
        const Sortie s = lance(arguments);
        EXPECT_EQ(std::tie(s.code, s.sortie, s.erreurs),
                  std::make_tuple(0, std::string(sortie), arguments.value(2).startsWith('{') ? deja : ""))
            << arguments.join(' ').toStdString();
    }
    EXPECT_EQ(contenu("c.lsu"),
              point + octetsFiche(9, "Point:[(4,5,6)]") + octetsFiche(8, "Segment:[(4,5,6)][(1,2,3)]"));
    EXPECT_EQ(dossier_.noms(), std::vector<std::string>{"c.lsu"});
    // What the list shows of a damaged record: its control bytes made
    // visible, a kind no editor writes told on the error output.
    ecris("c.lsu", std::string("\x10\x00", 2) + "a\x1b[2Jb\rc" + std::string(292, ' '));
    const Sortie abime = lance({"liste", "c.lsu"});
    EXPECT_EQ(std::tie(abime.code, abime.sortie, abime.erreurs),
              std::make_tuple(0, std::string("0001]a\\e[2Jb\\rc[16\n"),
                              std::string("velorin catalogue liste : ligne 1 : genre 16, qu'aucun éditeur n'écrit "
                                          "(l'entrée se trace comme un nuage g<f<h).\n")));
}

TEST_F(CommandeCatalogue, UnRefusParFamilleDArguments)
{
    ecris("c.lsu", octetsFiche(1, "x=f1(t)=t") + octetsFiche(9, "Point:[(1,2,3)]") + "reste");
    ASSERT_EQ(mkfifo((dossier_ / "tube.lsu").c_str(), 0600), 0);
    ecris("long.lsu", octetsFiche(9, "Point:[(" + std::string(150, '7') + ")]") +
                          octetsFiche(9, "Point:[(" + std::string(150, '6') + ")]"));
    const std::pair<QStringList, const char*> cas[] = {
        {{}, "sous-commande manquante"},
        {{"range", "c.lsu"}, "sous-commande inconnue « range »"},
        {{"liste"}, "fichier catalogue manquant"},
        {{"liste", "c.lsu", "autre"}, "n'attend que le fichier catalogue"},
        {{"liste", "absent.lsu"}, "absent.lsu » n'existe pas"},
        {{"reduis", "tube.lsu"}, "est un tube nommé"},
        {{"ajoute", "--genre", "9"}, "fichier catalogue manquant"},
        {{"ajoute", "c.lsu", "(1,2)"}, "--genre manquant"},
        {{"ajoute", "c.lsu", "--genre", "neuf", "(1,2)"}, "--genre attend le numéro d'un genre"},
        {{"ajoute", "c.lsu", "--genre", "6", "--plan", "a", "b", "c"}, "aucun éditeur n'écrit le genre 6 dans le plan"},
        {{"ajoute", "c.lsu", "--genre", "9", "--couleur", "(1,2)"}, "option inconnue « --couleur »"},
        {{"ajoute", "c.lsu", "--genre", "5", "(1,2)"}, "attend 2 textes (le point M, le vecteur u), pas 1"},
        {{"ajoute", "c.lsu", "--genre", "9", "--ligne", "3", "(1,2,3)"}, "la ligne 3 n'existe pas"},
        {{"ajoute", "c.lsu", "--genre", "1", "X)+(1", "T", "T"}, "« X)+(1 » n'est pas enregistrée : lue X)+(1, po"},
        {{"ajoute", "c.lsu", "--genre", "9", QString(298, 'x')}, "il serait coupé et « xxxxx] » perdu"},
        {{"ajoute", "c.lsu", "--genre", "9", "(π,1)"}, "« (π,1) » contient un caractère qu'un catalogue ne peut"},
        {{"point", "c.lsu", "(1,\t2)"}, "contient un caractère de commande"},
        {{"point", "c.lsu"}, "arguments incorrects. Usage : velorin catalogue point FICHIER.lsu \"(x,y,z)\""},
        {{"point", "c.lsu", "(1,2"}, "Point incorrect : (1,2 ; écrivez (x,y,z)"},
        {{"relie", "c.lsu", "1", "2"}, "La ligne 1 du catalogue « c.lsu » n'est pas un point (genre 1)."},
        {{"relie", "c.lsu", "2", "x"}, "« x » n'est pas un numéro de ligne"},
        {{"relie", "long.lsu", "1", "2"}, "fait 316 caractères et une ligne du catalogue n'en garde que 300"},
        {{"elimine", "c.lsu", "1", "0"}, "la ligne 0 n'existe pas dans le catalogue « c.lsu » (2 lignes)"},
        {{"reduis", "c.lsu", "1"}, "Usage : velorin catalogue reduis FICHIER.lsu"},
    };
    for (const auto& [arguments, message] : cas)
        refuse(arguments, message);
    refuse({"ajoute", "c.lsu", "--genre", "9", "(7,7,7)"}, "c.lsu » : le disque est plein", disquePlein("400"));
    // A list that cannot reach the standard output whole is a failure.
    const Sortie s = lanceVelorin({"catalogue", "liste", "c.lsu"}, dossier_.chemin().string(),
                                  QProcessEnvironment::systemEnvironment(), QStringLiteral("/dev/full"));
    EXPECT_EQ(s.code, 2);
    EXPECT_NE(s.erreurs.find("n'a pas pu être écrite en entier"), std::string::npos) << s.erreurs;
}

// Two scripts appending to one catalogue at once: each waits for the
// other's write, none overwrites the other's new line, nothing is lost.
TEST_F(CommandeCatalogue, DeuxBouclesAjoutentEnMemeTempsSansRienPerdre)
{
    ecris("c.lsu", "");
    const QString velorin = QString(VELORIN_BIN_DIR) + "/velorin";
    QProcess boucles[2];
    for (int b = 0; b < 2; ++b) {
        boucles[b].setWorkingDirectory(chemin(""));
        boucles[b].start("/bin/sh", {"-c",
                                     "for i in $(seq 20); do \"$0\" catalogue ajoute c.lsu --plan --genre 9 \"($i,$1)\" "
                                     ">/dev/null || exit 1; done",
                                     velorin, QString::number(b)});
    }
    for (QProcess& p : boucles) {
        ASSERT_TRUE(p.waitForFinished(120000));
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    }
    const std::string fichier = contenu("c.lsu");
    ASSERT_EQ(fichier.size(), 40u * tailleEnregistrement);
    std::set<std::string> textes;
    for (std::size_t i = 0; i < 40; ++i)
        textes.insert(fichier.substr(i * tailleEnregistrement + 2, 20));
    for (int b = 0; b < 2; ++b)
        for (int i = 1; i <= 20; ++i) {
            std::string texte = "Point:[(" + std::to_string(i) + "," + std::to_string(b) + ")]";
            texte.resize(20, ' ');
            EXPECT_EQ(textes.count(texte), 1u) << texte;
        }
}

}  // namespace
}  // namespace velorin::essai
