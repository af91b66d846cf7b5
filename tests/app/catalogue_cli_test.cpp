// `velorin catalogue` and its sub-commands run as a script runs them: what
// they print, their status, the catalogue afterwards. Each kind's text, the
// records' layout and the compaction are the tests of plot and catalogue.
#include <sys/stat.h>

#include "processus.h"

namespace velorin::essai {
namespace {

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
        {{"point", "c.lsu", " "}, "Tapez les coordonnées du point"},
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
