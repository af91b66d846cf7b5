// `velorin catalogue liste` and `velorin catalogue ajoute` run as separate
// processes, as a script runs them: their output, their exit status, and
// the catalogue's bytes afterwards, damaged catalogues included.
#include <QProcessEnvironment>

#include <sys/stat.h>

#include <filesystem>
#include <set>
#include <string>

#include "catalogue/catalogue.h"
#include "commande_catalogue.h"

namespace fs = std::filesystem;
using namespace velorin;
using namespace velorin::essai;

namespace {

// Each entry is stored as the editor of its kind stores it, then listed.
TEST_F(CommandeCatalogue, AjouteCommeLesEditeursPuisListe)
{
    ecris("c.lsu", "");
    struct Cas {
        QStringList arguments;
        int genre;
        const char* texte;
    };
    const Cas cas[] = {
        {{"--genre", "5", "[1,2,3]", " {1,0,0} "}, 5, "D(M,u):[(1,2,3)][(1,0,0)]"},
        {{"--genre", "7", "--plan", "x+y-1=0"}, 7, "Droite:[x+y-1=0]"},
        {{"--genre", "7", "2x+y-z=0"}, 7, "Plan:[2x+y-z=0]"},
        {{"--genre", "14", "x^2", "2*x+1", "10"}, 14, "x^2<2*x+1<10"},
        {{"--plan", "--genre", "1", "cos[t]", "sin(t)"}, 1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)"},
        {{"--genre", "0", "--plan", "--", "-x^2"}, 0, "y = f(x)=-x^2"},
        {{"--genre", "0", "-x", "t"}, 0, "y = f(x)=-x][t"},
        {{"--genre", "6", "(0,0,0)", "(1,0,0)", "(0,1,0)"}, 6, "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]"},
        {{"--genre", "8", "(0,0)", "(1,1)", "--plan"}, 8, "Segment:[(0,0)][(1,1)]"},
        {{"--genre", "15", "é", "x*y", "1"}, 15, "é<x*y<1"},
        {{"--genre", "9", "--ligne", "2", "(1,2,3)"}, 9, "Point:[(1,2,3)]"},
    };
    std::string attendu;
    std::vector<std::string> lignes;  // what the list shows, record by record
    for (const Cas& c : cas) {
        const Sortie s = lance(QStringList{"ajoute", "c.lsu"} + c.arguments);
        const std::string nom = c.arguments.join(' ').toStdString();
        EXPECT_EQ(s.code, 0) << nom << " : " << s.erreurs;
        const bool ecrase = c.arguments.contains("--ligne");
        const int ligne = ecrase ? 2 : int(lignes.size()) + 1;
        const std::string ligneListe = entierFormate(ligne, 4) + "]" + c.texte + "[" + entierFormate(c.genre, 2);
        EXPECT_EQ(s.sortie, ligneListe + "\n") << nom;
        if (ecrase) {
            attendu.replace(302, 302, octetsFiche(c.genre, c.texte));
            lignes[1] = ligneListe;
        } else {
            attendu += octetsFiche(c.genre, c.texte);
            lignes.push_back(ligneListe);
        }
        EXPECT_EQ(contenu("c.lsu"), attendu) << nom;
    }
    const Sortie s = lance({"liste", "c.lsu"});
    EXPECT_EQ(s.code, 0);
    std::string liste;
    for (const std::string& l : lignes)
        liste += l + "\n";
    EXPECT_EQ(s.sortie, liste);
    EXPECT_EQ(noms(), std::set<std::string>{"c.lsu"});
}

// What a damaged catalogue lists: kinds out of range as they stand, control
// bytes made visible, a trailing partial record ignored; what cannot be a
// catalogue is refused without blocking and without being created.
TEST_F(CommandeCatalogue, ListeDesCataloguesAbimes)
{
    struct Cas {
        std::string octets;
        const char* sortie;
    };
    const Cas cas[] = {
        {"", ""},
        {octetsFiche(1, "x=f1(t)=t") + std::string(301, 'z'), "0001]x=f1(t)=t[01\n"},
        {octetsFiche(-1, "") + octetsFiche(12, "a<b") + octetsFiche(300, "   "),
         "0001][-01\n0002]a<b[12\n0003][300\n"},
        {std::string("\x09\x00", 2) + "a\x1b[2Jb\rc" + std::string(1, '\0') + "\xe9\x81" + std::string(289, ' '),
         "0001]a\\e[2Jb\\rc\\0é\\xC2\\x81[09\n"},
    };
    for (const Cas& c : cas) {
        ecris("c.lsu", c.octets);
        const Sortie s = lance({"liste", "c.lsu"});
        EXPECT_EQ(s.code, 0) << s.erreurs;
        EXPECT_EQ(s.sortie, c.sortie);
        EXPECT_EQ(contenu("c.lsu"), c.octets);
    }
    fs::create_directory(dossier_ / "dossier.lsu");
    ASSERT_EQ(mkfifo((dossier_ / "tube.lsu").c_str(), 0600), 0);
    fs::create_symlink("boucle.lsu", dossier_ / "boucle.lsu");
    {
        std::ofstream((dossier_ / "enorme.lsu").string());
    }
    fs::resize_file(dossier_ / "enorme.lsu", 250001ull * 302);
    const std::pair<const char*, const char*> refus[] = {
        {"absent.lsu", "absent.lsu » n'existe pas"},
        {"dossier.lsu", "est un dossier"},
        {"tube.lsu", "est un tube nommé"},
        {"boucle.lsu", "tourne en boucle"},
        {"enorme.lsu", "est trop grand : 250 001 entrées"},
    };
    for (const auto& [nom, message] : refus)
        refuse({"liste", nom}, message);
    refuse({"liste"}, "fichier catalogue manquant");
    refuse({"liste", "c.lsu", "autre"}, "n'attend que le fichier catalogue");
    refuse({"range", "c.lsu"}, "sous-commande inconnue « range »");
}

TEST_F(CommandeCatalogue, AjouteRefuseSansRienChanger)
{
    const std::string deux = octetsFiche(9, "Point:[(1,1)]") + octetsFiche(5, "D(M,u):[(0,0)][(1,0)]");
    ecris("c.lsu", deux + "reste");
    fs::create_directory(dossier_ / "dossier.lsu");
    ASSERT_EQ(mkfifo((dossier_ / "tube.lsu").c_str(), 0600), 0);
    const std::string long301(298, 'x');
    struct Cas {
        QStringList arguments;
        const char* message;
    };
    const Cas cas[] = {
        {{"absent.lsu", "--genre", "9", "(1,2)"}, "absent.lsu » n'existe pas"},
        {{"dossier.lsu", "--genre", "9", "(1,2)"}, "est un dossier"},
        {{"tube.lsu", "--genre", "9", "(1,2)"}, "est un tube nommé"},
        {{"c.lsu", "--genre", "9", "--ligne", "3", "(1,2)"}, "la ligne 3 n'existe pas"},
        {{"c.lsu", "--genre", "9", "--ligne", "0", "(1,2)"}, "la ligne 0 n'existe pas"},
        {{"c.lsu", "--genre", "9", "--ligne", "-1", "(1,2)"}, "« -1 » n'est pas un numéro de ligne"},
        {{"c.lsu", "--genre", "9", "--ligne", "2x", "(1,2)"}, "« 2x » n'est pas un numéro de ligne"},
        {{"c.lsu", "--genre", "12", "a", "b", "c"}, "aucun éditeur n'écrit le genre 12"},
        {{"c.lsu", "--genre", "6", "--plan", "a", "b", "c"}, "aucun éditeur n'écrit le genre 6 dans le plan"},
        {{"c.lsu", "--genre", "neuf", "(1,2)"}, "--genre attend le numéro d'un genre"},
        {{"c.lsu", "(1,2)"}, "--genre manquant"},
        {{"--genre", "9"}, "fichier catalogue manquant"},
        {{"c.lsu", "--genre", "9", "--couleur", "(1,2)"}, "option inconnue « --couleur »"},
        {{"c.lsu", "--genre", "5", "(1,2)"}, "attend 2 textes (le point M, le vecteur u), pas 1"},
        {{"c.lsu", "--genre", "1", "--plan", "t", "t", "t"}, "attend 2 textes"},
        {{"c.lsu", "--genre", "9", QString::fromStdString(long301)}, "fait 306 caractères"},
        {{"c.lsu", "--genre", "9", "(π,1)"}, "« (π,1) » contient un caractère qu'un catalogue ne peut pas garder"},
        {{"c.lsu", "--genre", "9", "(1,\t2)"}, "contient un caractère de commande"},
    };
    for (const Cas& c : cas)
        refuse(QStringList{"ajoute"} + c.arguments, c.message);
    // The text over 300 characters says what would be lost.
    const Sortie s = lance({"ajoute", "c.lsu", "--genre", "9", QString::fromStdString(long301)});
    EXPECT_NE(s.erreurs.find("il serait coupé et « xxxxx] » perdu"), std::string::npos) << s.erreurs;

    // A disk that fills up: the catalogue stays byte for byte, no temporary.
    QProcessEnvironment plein = QProcessEnvironment::systemEnvironment();
    plein.insert("VELORIN_ESSAI_DISQUE_PLEIN", "400");
    for (const char* ligne : {"1", "2"})
        refuse({"ajoute", "c.lsu", "--genre", "9", "--ligne", ligne, "(7,7)"}, "c.lsu » : le disque est plein", plein);
    refuse({"ajoute", "c.lsu", "--genre", "9", "(7,7)"}, "c.lsu » : le disque est plein", plein);

    // Appending over the partial record replaces it, as the editors do.
    const Sortie ajout = lance({"ajoute", "c.lsu", "--genre", "9", "--plan", "(7,7)"});
    EXPECT_EQ(ajout.code, 0) << ajout.erreurs;
    EXPECT_EQ(contenu("c.lsu"), deux + octetsFiche(9, "Point:[(7,7)]"));
}

// A list that cannot reach the standard output whole is a failure.
TEST_F(CommandeCatalogue, SortiePleine)
{
    ecris("c.lsu", octetsFiche(9, "Point:[(1,1)]"));
    const Sortie s = lanceVelorin({"catalogue", "liste", "c.lsu"}, dossier_.string(),
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
                                     "for i in $(seq 20); do \"$0\" catalogue ajoute c.lsu --genre 9 \"($i,$1)\" "
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
