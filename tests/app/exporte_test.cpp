// `velorin exporte` run as a separate process, as a user runs it.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QStringList>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "catalogue/catalogue.h"

namespace fs = std::filesystem;
using namespace velorin;

namespace {

struct Sortie {
    int code = -1;
    std::string erreurs;
};

class Exporte : public ::testing::Test {
protected:
    void SetUp() override
    {
        dossier_ = fs::temp_directory_path() / ("velorin_exporte_" + std::to_string(::getpid()));
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, (dossier_ / "essai.lsu").string()));
        const std::pair<int, const char*> entrees[] = {
            {8, "Segment:[(-5,-5,0)][(5,5,8)]"},
            {2, "x=f1(a,t)=(3+cos(a))*cos(t)][y=f2(a,t)=(3+cos(a))*sin(t)][z=f3(a,t)=sin(a)"},
            {1, "x=f1(t)=cos(t][y=f2(t)=t][z=f3(t)=t"},
            {9, "Point:[(1,A,2)]"},
        };
        int n = 1;
        for (auto [genre, texte] : entrees) {
            LigneCatalogue l;
            l.typeFonction = static_cast<std::int16_t>(genre);
            l.texte = texte;
            ASSERT_FALSE(ecrisLigne(cat, n++, l));
        }
    }
    void TearDown() override { fs::remove_all(dossier_); }

    Sortie lance(const QStringList& arguments)
    {
        QProcess p;
        p.setWorkingDirectory(QString::fromStdString(dossier_.string()));
        p.start(QString(VELORIN_BIN_DIR) + "/velorin", QStringList{"exporte"} + arguments);
        p.waitForFinished(60000);
        return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
                p.readAllStandardError().toStdString()};
    }
    QString chemin(const char* nom) const { return QString::fromStdString((dossier_ / nom).string()); }
    std::string contenu(const char* nom) const
    {
        std::ifstream f(dossier_ / nom, std::ios::binary);
        std::stringstream s;
        s << f.rdbuf();
        return s.str();
    }
    // Files of the folder other than the catalogue: an export that failed
    // leaves none, not even a temporary one.
    int autresFichiers() const
    {
        int n = 0;
        for (const auto& e : fs::directory_iterator(dossier_)) n += e.path().filename() != "essai.lsu";
        return n;
    }

    fs::path dossier_;
};

TEST_F(Exporte, QuatreFormats)
{
    struct Cas { const char* nom; const char* debut; };
    const Cas cas[] = {{"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.pdf", "%PDF"}, {"a.txt", "CLEAR "}};
    for (const Cas& c : cas) {
        const Sortie s = lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree",
                                "2", "--taille", "640x400", "--sortie", chemin(c.nom)});
        ASSERT_EQ(s.code, 0) << c.nom << " " << s.erreurs;
        EXPECT_EQ(contenu(c.nom).rfind(c.debut, 0), 0u) << c.nom;
    }
    const QImage image(chemin("a.png"));
    ASSERT_EQ(image.size(), QSize(640, 400));
    int dessines = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) dessines += image.pixel(x, y) != image.pixel(0, 0);
    EXPECT_GT(dessines, 1000);
    // The journal holds the frame and both entries: the torus alone makes
    // thousands of lines.
    const std::string journal = contenu("a.txt");
    std::size_t lignes = 0;
    for (char ch : journal) lignes += ch == '\n';
    EXPECT_GT(lignes, 5000u);
}

TEST_F(Exporte, ErreursSansFichier)
{
    struct Cas { QStringList arguments; const char* message; };
    const Cas cas[] = {
        {{"--catalogue", "absent.lsu", "--entree", "1", "--sortie", "x.png"}, "introuvable"},
        {{"--catalogue", "essai.lsu", "--entree", "5", "--sortie", "x.png"}, "pas d'entrée 5"},
        {{"--catalogue", "essai.lsu", "--entree", "0", "--sortie", "x.png"}, "incorrect"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--sortie", "x.gif"}, "format"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--taille", "12", "--sortie", "x.png"}, "taille"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--vite", "--sortie", "x.png"}, "option inconnue"},
        {{"--catalogue", "essai.lsu", "--sortie", "x.png"}, "--entree"},
        {{"--figure", "a.fig", "--sortie", "x.png"}, "pas encore disponible"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--parametres", "absent.log", "--sortie", "x.png"}, "absent.log"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--entree", "3", "--sortie", "x.png"}, "est incorrecte"},
        {{"--catalogue", "essai.lsu", "--entree", "4", "--sortie", "x.txt"}, "Point incorrect"},
        {{"--catalogue", "essai.lsu", "--entree", "1", "--sortie", "absent/x.png"}, "dossier de sortie introuvable"},
    };
    for (const Cas& c : cas) {
        const Sortie s = lance(QStringList{"--dossier", chemin("")} + c.arguments);
        EXPECT_EQ(s.code, 2) << c.arguments.join(' ').toStdString();
        EXPECT_NE(s.erreurs.find(c.message), std::string::npos) << s.erreurs;
        EXPECT_EQ(autresFichiers(), 0) << c.arguments.join(' ').toStdString();
    }
}

TEST_F(Exporte, ChronoParEntree)
{
    const Sortie s = lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "2", "--entree", "1",
                            "--chrono", "--sortie", chemin("b.txt")});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    EXPECT_NE(s.erreurs.find("entrée 2 :"), std::string::npos) << s.erreurs;
    EXPECT_NE(s.erreurs.find("entrée 1 :"), std::string::npos) << s.erreurs;
    EXPECT_NE(s.erreurs.find(" ms"), std::string::npos) << s.erreurs;
}

}  // namespace
