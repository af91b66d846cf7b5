// Changing one record by replacing the whole file gives, byte for byte, the
// file that writing the record in place gives; a failure changes nothing.
#include "catalogue/remplace_ligne.h"

#include <gtest/gtest.h>

#include "base/ecriture.h"
#include "commun/commun.h"

namespace velorin {
namespace {

using namespace essai;

// `nb` records of kind 1 ("courbe 1", ...), then `reste` bytes of a partial record.
std::string catalogue(int nb, int reste)
{
    std::string octets;
    for (int i = 1; i <= nb; ++i)
        octets += octetsEnregistrement({1, "courbe " + std::to_string(i)});
    return octets + std::string(std::size_t(reste), 'z');
}

TEST(RemplaceLigne, MemesOctetsQuEnPlace)
{
    const LigneCatalogue nouvelle{9, "Point:[(1,2,3)]"};
    struct Cas {
        int nb, reste;  // records, then bytes of a partial one
        NumeroLigne n;
    };
    for (const Cas& c : {Cas{0, 0, 1}, Cas{3, 0, 1}, Cas{3, 0, 2}, Cas{3, 0, 3}, Cas{3, 0, 4}, Cas{3, 301, 2},
                         Cas{3, 301, 4}, Cas{2, 1, 3}}) {
        DossierTemporaire d;
        ecrisFichier(d / "en_place.lsu", catalogue(c.nb, c.reste));
        ecrisFichier(d / "entier.lsu", catalogue(c.nb, c.reste));
        Catalogue enPlace, entier;
        ASSERT_FALSE(ouvrirCatalogue(enPlace, d / "en_place.lsu"));
        ASSERT_FALSE(ouvrirCatalogue(entier, d / "entier.lsu"));
        ASSERT_FALSE(ecrisLigne(enPlace, c.n, nouvelle));
        ASSERT_FALSE(remplaceLigne(entier, c.n, nouvelle)) << c.nb << " " << c.n;
        EXPECT_EQ(lisFichier(entier.chemin), lisFichier(enPlace.chemin)) << c.nb << " " << c.reste << " " << c.n;
        EXPECT_EQ(entier.nbLignesCatalogue, enPlace.nbLignesCatalogue);
        EXPECT_EQ(entier.marquesCatalogue.size(), std::size_t(entier.nbLignesCatalogue) + 1);
    }
}

TEST(RemplaceLigne, UnEchecNeChangeRien)
{
    const std::string depart = catalogue(3, 100);
    // Record, bytes before the simulated full disk (-1: none), message.
    for (auto [n, disque, message] :
         {std::tuple{0, -1LL, "La ligne 0 ne peut pas être écrite"}, {5, -1LL, "La ligne 5 ne peut pas être écrite"},
          {-2, -1LL, "La ligne -2 ne peut pas être écrite"}, {2, 500LL, "le disque est plein"}}) {
        DossierTemporaire d;
        ecrisFichier(d / "essai.lsu", depart);
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, d / "essai.lsu"));
        simuleDisquePlein(disque);
        const Erreur erreur = remplaceLigne(cat, n, {9, "Point:[(1,2,3)]"});
        simuleDisquePlein(-1);
        EXPECT_TRUE(erreur) << n;
        EXPECT_NE(erreur.message().find("essai.lsu"), std::string::npos) << erreur.message();
        EXPECT_NE(erreur.message().find(message), std::string::npos) << erreur.message();
        EXPECT_EQ(lisFichier(d / "essai.lsu"), depart) << n;
        EXPECT_EQ(cat.nbLignesCatalogue, 3);
        EXPECT_EQ(d.noms(), std::vector<std::string>{"essai.lsu"});  // nothing left beside the catalogue
    }
}

}  // namespace
}  // namespace velorin
