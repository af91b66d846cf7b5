// `velorin exporte` run as a separate process, as a user runs it.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QXmlStreamReader>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "catalogue/catalogue.h"
#include "dossier_exporte.h"

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
    // Names in the folder, links included (a loop too), sorted.
    std::set<std::string> noms() const
    {
        std::set<std::string> n;
        for (const auto& e : fs::directory_iterator(dossier_))
            n.insert(e.path().filename().string());
        return n;
    }
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
        const Sortie s = lance({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2",
                                "--taille", "640x400", "--sortie", chemin(c.nom)});
        ASSERT_EQ(s.code, 0) << c.nom << " " << s.erreurs;
        EXPECT_EQ(contenu(c.nom).rfind(c.debut, 0), 0u) << c.nom;
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
        {{"--figure", "a.fig", "--sortie", "x.png"}, "La figure « a.fig » n'existe pas"},
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

// A disk that fills up in the middle of the file: every format is refused
// with the output's name, the user's previous file stays byte for byte and
// no temporary is left beside it.
TEST_F(Exporte, DisquePlein)
{
    QProcessEnvironment plein = QProcessEnvironment::systemEnvironment();
    plein.insert("VELORIN_ESSAI_DISQUE_PLEIN", "100");
    for (const char* nom : {"prec.png", "prec.svg", "prec.pdf", "prec.txt"}) {
        const std::string ancien = std::string("ancien contenu de ") + nom + "\n";
        ecris(nom, ancien);
        refuse({"--dossier", chemin(""), "--catalogue", "essai.lsu", "--entree", "1", "--entree", "2", "--sortie",
                chemin(nom)},
               std::string(nom) + " » : le disque est plein", plein);
        EXPECT_EQ(contenu(nom), ancien) << nom;
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
