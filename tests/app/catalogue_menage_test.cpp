// `velorin catalogue point`, `relie`, `elimine` and `reduis` run as separate
// processes: what they print, their exit status and the catalogue's bytes
// afterwards; a refusal or a failure leaves every file as it was.
#include <sys/stat.h>

#include "commande_catalogue.h"

namespace velorin::essai {
namespace {

using MenageCommande = CommandeCatalogue;

std::string enregistrements(std::initializer_list<std::pair<int, const char*>> fiches)
{
    std::string octets;
    for (const auto& [genre, texte] : fiches)
        octets += octetsFiche(genre, texte);
    return octets;
}

// Each step runs on the catalogue the previous steps left.
TEST_F(MenageCommande, PointsRelieEliminerReduire)
{
    const std::string f1 = octetsFiche(1, "x=f1(t)=t"), f0 = octetsFiche(0, "y = f(x)=x^2"),
                      p123 = octetsFiche(9, "Point:[(1,2,3)]"), p456 = octetsFiche(9, "Point:[(4,5,6)]"),
                      segment = octetsFiche(8, "Segment:[(4,5,6)][(1,2,3)]");
    ecris("c.lsu", f1 + f0 + p123);
    // Left over by an earlier compaction: its records past the kept ones stay.
    ecris("LIBI.lcs", enregistrements({{7, "L1"}, {7, "L2"}, {7, "L3"}, {7, "L4"}, {7, "L5"}, {7, "L6"}}));
    struct Pas {
        QStringList arguments;
        std::string sortie;
        const char* erreurs;
        std::string catalogue;  // afterwards
    };
    const Pas pas[] = {
        {{"point", "c.lsu", " [4,5,6} "}, "0004]Point:[(4,5,6)][09\n", "", f1 + f0 + p123 + p456},
        {{"point", "c.lsu", "{1,2,3]"},
         "0003]Point:[(1,2,3)][09\n",
         "velorin catalogue point : ce point est déjà à la ligne 3 : rien n'est écrit.\n",
         f1 + f0 + p123 + p456},
        {{"relie", "c.lsu", "4", "3"}, "0005]Segment:[(4,5,6)][(1,2,3)][08\n", "", f1 + f0 + p123 + p456 + segment},
        {{"elimine", "c.lsu", "3", "1", "3"},
         "Effacées et compacté : le catalogue garde 2 entrées, lignes 1 à 2 ; les lignes 3 à 6 viennent de « "
         "LIBI.lcs », laissé par un compactage précédent.\n",
         "",
         p456 + segment + enregistrements({{7, "L3"}, {7, "L4"}, {7, "L5"}, {7, "L6"}})},
        {{"point", "c.lsu", "(1,1)"}, "0007]Point:[(1,1)][09\n", "", ""},
        {{"elimine", "c.lsu", "3", "4", "5", "6", "7"}, "", "", ""},
        {{"reduis", "c.lsu"}, "Compacté : le catalogue garde 2 entrées, lignes 1 à 2.\n", "", p456 + segment},
    };
    for (const Pas& p : pas) {
        const std::string nom = p.arguments.join(' ').toStdString();
        const Sortie s = lance(p.arguments);
        EXPECT_EQ(s.code, 0) << nom << " : " << s.erreurs;
        if (!p.sortie.empty()) {
            EXPECT_EQ(s.sortie, p.sortie) << nom;
        }
        EXPECT_EQ(s.erreurs, p.erreurs) << nom;
        if (!p.catalogue.empty()) {
            EXPECT_EQ(contenu("c.lsu"), p.catalogue) << nom;
        }
    }
    EXPECT_EQ(noms(), std::set<std::string>{"c.lsu"});
}

TEST_F(MenageCommande, RefusSansRienChanger)
{
    ecris("c.lsu", enregistrements({{1, "x=f1(t)=t"}, {9, "Point:[(1,2,3)]"}, {9, "Point:[(0,0,1)]"}}) + "reste");
    ecris("long.lsu", enregistrements({{9, "Point:[(1,2,3)]"}}));
    fs::create_directory(dossier_ / "dossier.lsu");
    ASSERT_EQ(mkfifo((dossier_ / "tube.lsu").c_str(), 0600), 0);
    const QString long150 = QString("(%1)").arg(QString(150, '7'));
    const std::pair<QStringList, const char*> cas[] = {
        {{"point", "absent.lsu", "(1,2)"}, "absent.lsu » n'existe pas"},
        {{"reduis", "dossier.lsu"}, "est un dossier"},
        {{"elimine", "tube.lsu", "1"}, "est un tube nommé"},
        {{"point", "c.lsu"}, "arguments incorrects. Usage : velorin catalogue point FICHIER.lsu \"(x,y,z)\""},
        {{"point"}, "fichier catalogue manquant"},
        {{"point", "c.lsu", " "}, "Tapez les coordonnées du point"},
        {{"point", "c.lsu", "(π,1)"}, "« (π,1) » contient un caractère qu'un catalogue ne peut pas garder"},
        {{"point", "c.lsu", QString("(%1)").arg(QString(300, '8'))}, "fait 310 caractères"},
        {{"relie", "c.lsu", "1", "2"}, "La ligne 1 du catalogue « c.lsu » n'est pas un point (genre 1)."},
        {{"relie", "c.lsu", "2", "4"}, "la ligne 4 n'existe pas dans le catalogue « c.lsu » (3 lignes)"},
        {{"relie", "c.lsu", "2", "x"}, "« x » n'est pas un numéro de ligne"},
        {{"relie", "c.lsu", "2"}, "Usage : velorin catalogue relie FICHIER.lsu N M"},
        {{"elimine", "c.lsu"}, "Usage : velorin catalogue elimine FICHIER.lsu N..."},
        {{"elimine", "c.lsu", "1", "0"}, "la ligne 0 n'existe pas"},
        {{"reduis", "c.lsu", "1"}, "Usage : velorin catalogue reduis FICHIER.lsu"},
    };
    for (const auto& [arguments, message] : cas)
        refuse(arguments, message);
    // Two points whose segment a record would cut.
    ASSERT_EQ(lance({"point", "long.lsu", long150}).code, 0);
    ASSERT_EQ(lance({"point", "long.lsu", long150 + "  "}).code, 0);
    ASSERT_EQ(lance({"point", "long.lsu", QString(long150).replace('7', '6')}).code, 0);
    const Sortie s = lance({"relie", "long.lsu", "2", "3"});
    EXPECT_EQ(s.code, 2);
    EXPECT_NE(s.erreurs.find("fait 316 caractères et une ligne du catalogue n'en garde que 300"), std::string::npos)
        << s.erreurs;
    EXPECT_EQ(contenu("long.lsu").size(), 3u * tailleEnregistrement);

    // A disk that fills up.
    QProcessEnvironment plein = QProcessEnvironment::systemEnvironment();
    plein.insert("VELORIN_ESSAI_DISQUE_PLEIN", "400");
    for (const QStringList& arguments : std::initializer_list<QStringList>{
             {"point", "c.lsu", "(5,5)"}, {"relie", "c.lsu", "3", "2"}, {"elimine", "c.lsu", "2"}, {"reduis", "c.lsu"}})
        refuse(arguments, "c.lsu » : le disque est plein", plein);
}

}  // namespace
}  // namespace velorin::essai
