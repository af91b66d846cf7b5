#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "base/chemins.h"
#include "base/texte_sur.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class Chemins : public ::testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directories(dossier);
        std::ofstream(chemin("entree.lsu")) << "contenu";
        fs::create_directory(chemin("un_dossier"));
        fs::create_symlink("boucle_b", chemin("boucle_a"));
        fs::create_symlink("boucle_a", chemin("boucle_b"));
        fs::create_symlink("entree.lsu", chemin("lien.lsu"));
        ASSERT_EQ(mkfifo(chemin("tube").c_str(), 0600), 0);
    }
    void TearDown() override
    {
        chmod(chemin("illisible").c_str(), 0600);
        fs::remove_all(dossier);
    }
    std::string chemin(const std::string& nom) const { return (dossier / nom).string(); }
    fs::path dossier = fs::temp_directory_path() / ("velorin_chm_" + std::to_string(std::random_device{}()));
};

TEST_F(Chemins, EachUnreadablePathHasItsOwnSentence)
{
    struct Cas {
        std::string nom;
        std::string fin;
    };  // fin empty: readable
    std::vector<Cas> cas = {
        {"entree.lsu", ""},
        {"lien.lsu", ""},
        {"absent.lsu", " n'existe pas."},
        {"absent/x.lsu", " n'existe pas."},
        {"entree.lsu/x", " n'existe pas : un élément de son chemin n'est pas un dossier."},
        {"un_dossier", " est un dossier, pas un fichier."},
        {"tube", " est un tube nommé (FIFO), pas un fichier : il ne peut pas être lu."},
        {"boucle_a", " est un lien symbolique qui tourne en boucle."},
    };
    if (geteuid() != 0) {  // root reads everything
        std::ofstream(chemin("illisible")) << "x";
        chmod(chemin("illisible").c_str(), 0);
        cas.push_back({"illisible", " ne peut pas être lu : permission refusée."});
    }
    for (const Cas& c : cas) {
        const auto erreur = verifieFichierLisible(chemin(c.nom), "Le catalogue");
        if (c.fin.empty()) {
            EXPECT_FALSE(erreur) << c.nom << ": " << erreur.message();
            continue;
        }
        ASSERT_TRUE(erreur) << c.nom;
        EXPECT_EQ(erreur.message(), "Le catalogue " + texteCite(chemin(c.nom)) + c.fin);
    }
    const auto peripherique = verifieFichierLisible("/dev/null");
    ASSERT_TRUE(peripherique);
    EXPECT_EQ(peripherique.message(), "Le fichier « /dev/null » est un périphérique, pas un fichier.");
    EXPECT_TRUE(verifieDossier(chemin("entree.lsu")));
    EXPECT_FALSE(verifieDossier(chemin("un_dossier")));
}

TEST_F(Chemins, AnOutputIsNeverOneOfTheInputs)
{
    const std::string entree = chemin("entree.lsu");
    const std::string relatif = fs::relative(entree, fs::current_path()).string();
    ASSERT_NE(relatif[0], '/');
    const std::vector<std::string> entrees = {chemin("autre.log"), relatif};
    struct Cas {
        std::string sortie;
        std::string message;
    };  // message empty: accepted
    const Cas cas[] = {
        {chemin("nouveau.png"), ""},
        {chemin("un_dossier/x.png"), ""},
        {entree, "est aussi lu par cette commande (" + texteCite(relatif) + ")"},
        {chemin("lien.lsu"), "est aussi lu par cette commande"},
        {chemin("un_dossier/../entree.lsu"), "est aussi lu par cette commande"},
        {chemin("un_dossier"), "est un dossier."},
        {chemin("absent/x.png"), "Le dossier de sortie"},
        {chemin("boucle_a"), "est un lien symbolique qui tourne en boucle."},
        {chemin("tube"), "est un tube nommé (FIFO)"},
        {"", "n'est pas nommé"},
    };
    for (const Cas& c : cas) {
        const auto erreur = verifieSortie(c.sortie, entrees);
        EXPECT_EQ(bool(erreur), !c.message.empty()) << c.sortie << ": " << erreur.message();
        EXPECT_NE(erreur.message().find(c.message), std::string::npos) << erreur.message();
    }
    EXPECT_TRUE(memeFichier(relatif, chemin("lien.lsu")));
    EXPECT_FALSE(memeFichier(entree, chemin("absent.lsu")));
    EXPECT_EQ(tailleFichier(chemin("lien.lsu")), 7u);
    EXPECT_EQ(tailleFichier(chemin("tube")), 0u);
}

}  // namespace
}  // namespace velorin
