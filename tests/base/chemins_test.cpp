#include <sys/stat.h>
#include <unistd.h>

#include "base/chemins.h"
#include "base/texte_sur.h"
#include "commun/commun.h"

namespace velorin {
namespace {
using namespace essai;

// A file, a link to it, a folder, a link loop and a FIFO.
struct Chemins : ::testing::Test {
    DossierTemporaire d;
    void SetUp() override
    {
        ecrisFichier(d / "entree.lsu", "contenu");
        fs::create_directory(d / "un_dossier");
        fs::create_symlink("boucle_b", d / "boucle_a");
        fs::create_symlink("boucle_a", d / "boucle_b");
        fs::create_symlink("entree.lsu", d / "lien.lsu");
        ASSERT_EQ(mkfifo((d / "tube").c_str(), 0600), 0);
    }
    void TearDown() override { chmod((d / "illisible").c_str(), 0600); }
};

// One sentence per refusal, for the checker and the small-file reader (a FIFO never blocks); "": readable.
TEST_F(Chemins, ChaqueCheminIllisibleASaPhrase)
{
    std::vector<std::pair<std::string, std::string>> cas = {
        {"entree.lsu", ""}, {"lien.lsu", ""}, {"absent.lsu", " n'existe pas."}, {"absent/x.lsu", " n'existe pas."},
        {"entree.lsu/x", " n'existe pas : un élément de son chemin n'est pas un dossier."},
        {"un_dossier", " est un dossier, pas un fichier."},
        {"tube", " est un tube nommé (FIFO), pas un fichier : il ne peut pas être lu."},
        {"boucle_a", " est un lien symbolique qui tourne en boucle."}};
    if (geteuid() != 0) {  // root reads everything
        ecrisFichier(d / "illisible", "x");
        chmod((d / "illisible").c_str(), 0);
        cas.push_back({"illisible", " ne peut pas être lu : permission refusée."});
    }
    for (const auto& [nom, fin] : cas) {
        const std::string chemin = d / nom;
        std::string contenu;
        const Erreur lu = lisFichierTexte(chemin, "Le catalogue", "", 100, contenu);
        for (const Erreur& erreur : {verifieFichierLisible(chemin, "Le catalogue"), lu}) {
            EXPECT_EQ(bool(erreur), !fin.empty()) << nom << ": " << erreur.message();
            EXPECT_EQ(erreur.message(), fin.empty() ? "" : "Le catalogue " + texteCite(chemin) + fin);
        }
        EXPECT_EQ(contenu, fin.empty() ? "contenu" : "") << nom;
    }
    EXPECT_EQ(verifieFichierLisible("/dev/null").message(),
              "Le fichier « /dev/null » est un périphérique, pas un fichier.");
    EXPECT_TRUE(verifieDossier(d / "entree.lsu"));
    EXPECT_FALSE(verifieDossier(d / "un_dossier"));
    std::string contenu;
    EXPECT_EQ(lisFichierTexte(d / "entree.lsu", "Le catalogue", "un catalogue", 6, contenu).message(),
              "Fichier " + texteCite(d / "entree.lsu") + " : trop volumineux pour un catalogue");
}

TEST_F(Chemins, UneSortieNEstJamaisUneDesEntrees)
{
    const std::string entree = d / "entree.lsu", relatif = fs::relative(entree, fs::current_path()).string();
    ASSERT_NE(relatif[0], '/');
    const std::vector<std::string> entrees = {d / "autre.log", relatif};
    const std::pair<std::string, std::string> cas[] = {
        {d / "nouveau.png", ""}, {d / "un_dossier/x.png", ""},
        {entree, "est aussi lu par cette commande (" + texteCite(relatif) + ")"},
        {d / "lien.lsu", "est aussi lu par cette commande"},
        {d / "un_dossier/../entree.lsu", "est aussi lu par cette commande"}, {d / "un_dossier", "est un dossier."},
        {d / "absent/x.png", "Le dossier de sortie"}, {d / "boucle_a", "est un lien symbolique qui tourne en boucle."},
        {d / "tube", "est un tube nommé (FIFO)"}, {"", "n'est pas nommé"}};
    for (const auto& [sortie, message] : cas) {
        const auto erreur = verifieSortie(sortie, entrees);
        EXPECT_EQ(bool(erreur), !message.empty()) << sortie << ": " << erreur.message();
        EXPECT_NE(erreur.message().find(message), std::string::npos) << erreur.message();
    }
    EXPECT_EQ(tailleFichier(d / "lien.lsu"), 7u);  // the target's size, not the link's
}
}  // namespace
}  // namespace velorin
