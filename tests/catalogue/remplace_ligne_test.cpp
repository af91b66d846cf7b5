// Changing one record by replacing the whole file gives, byte for byte, the
// file that writing the record in place gives; a failure changes nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "base/ecriture.h"
#include "catalogue/remplace_ligne.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class RemplaceLigne : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(dossier); }
    void TearDown() override
    {
        simuleDisquePlein(-1);
        fs::remove_all(dossier);
    }
    std::string ecris(const char* nom, const std::string& octets) const
    {
        const std::string chemin = (dossier / nom).string();
        std::ofstream(chemin, std::ios::binary) << octets;
        return chemin;
    }
    static std::string lis(const std::string& chemin)
    {
        std::ifstream f(chemin, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    // `nb` records of kind 1 ("courbe 1", ...), then `reste` bytes of a
    // partial record.
    static std::string catalogue(int nb, int reste)
    {
        std::string octets;
        for (int i = 1; i <= nb; ++i)
            octets += octetsEnregistrement({1, "courbe " + std::to_string(i)});
        return octets + std::string(static_cast<std::size_t>(reste), 'z');
    }
    fs::path dossier = fs::temp_directory_path() / ("velorin_remplace_" + std::to_string(std::random_device{}()));
};

TEST_F(RemplaceLigne, MemesOctetsQuEnPlace)
{
    struct Cas {
        int nb, reste;
        NumeroLigne n;
    };
    const LigneCatalogue nouvelle{9, "Point:[(1,2,3)]"};
    for (const Cas& c : {Cas{0, 0, 1}, Cas{3, 0, 1}, Cas{3, 0, 2}, Cas{3, 0, 3}, Cas{3, 0, 4}, Cas{3, 301, 2},
                         Cas{3, 301, 4}, Cas{2, 1, 3}}) {
        const std::string depart = catalogue(c.nb, c.reste);
        Catalogue enPlace, entier;
        ASSERT_FALSE(ouvrirCatalogue(enPlace, ecris("en_place.lsu", depart)));
        ASSERT_FALSE(ouvrirCatalogue(entier, ecris("entier.lsu", depart)));
        ASSERT_FALSE(ecrisLigne(enPlace, c.n, nouvelle));
        ASSERT_FALSE(remplaceLigne(entier, c.n, nouvelle)) << c.nb << " " << c.n;
        EXPECT_EQ(lis(entier.chemin), lis(enPlace.chemin)) << c.nb << " " << c.reste << " " << c.n;
        EXPECT_EQ(entier.nbLignesCatalogue, enPlace.nbLignesCatalogue);
        EXPECT_EQ(entier.marquesCatalogue.size(), static_cast<std::size_t>(entier.nbLignesCatalogue) + 1);
    }
}

TEST_F(RemplaceLigne, UnEchecNeChangeRien)
{
    const std::string depart = catalogue(3, 100);
    struct Cas {
        NumeroLigne n;
        long long disque;  // bytes before the simulated full disk, -1: none
        const char* message;
    };
    const Cas cas[] = {
        {0, -1, "La ligne 0 ne peut pas être écrite"},
        {5, -1, "La ligne 5 ne peut pas être écrite"},
        {-2, -1, "La ligne -2 ne peut pas être écrite"},
        {2, 500, "le disque est plein"},
        {4, 906, "le disque est plein"},
        {1, 0, "le disque est plein"},
    };
    for (const Cas& c : cas) {
        Catalogue cat;
        const std::string chemin = ecris("essai.lsu", depart);
        ASSERT_FALSE(ouvrirCatalogue(cat, chemin));
        simuleDisquePlein(c.disque);
        const Erreur erreur = remplaceLigne(cat, c.n, {9, "Point:[(1,2,3)]"});
        simuleDisquePlein(-1);
        EXPECT_TRUE(erreur) << c.n << " " << c.disque;
        EXPECT_NE(erreur.message().find("essai.lsu"), std::string::npos) << erreur.message();
        EXPECT_NE(erreur.message().find(c.message), std::string::npos) << erreur.message();
        EXPECT_EQ(lis(chemin), depart) << c.n << " " << c.disque;
        EXPECT_EQ(cat.nbLignesCatalogue, 3);
        // Nothing is left beside the catalogue.
        EXPECT_EQ(std::distance(fs::directory_iterator(dossier), fs::directory_iterator()), 1);
    }
}

}  // namespace
}  // namespace velorin
