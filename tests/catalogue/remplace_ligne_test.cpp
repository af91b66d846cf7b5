// Replacing the whole file gives, byte for byte, what writing in place gives; a failure changes nothing.
#include "catalogue/remplace_ligne.h"

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

const LigneCatalogue nouvelle{9, "Point:[(1,2,3)]"};

TEST(RemplaceLigne, MemesOctetsQuEnPlace)
{
    for (auto [nb, reste, n] : {std::tuple{0, 0, 1}, {3, 0, 1}, {3, 0, 2}, {3, 0, 3}, {3, 0, 4}, {3, 301, 2},
                                {3, 301, 4}, {2, 1, 3}}) {
        DossierTemporaire d;
        ecrisFichier(d / "en_place.lsu", catalogue(nb, reste));
        ecrisFichier(d / "entier.lsu", catalogue(nb, reste));
        Catalogue enPlace, entier;
        ASSERT_FALSE(ouvrirCatalogue(enPlace, d / "en_place.lsu"));
        ASSERT_FALSE(ouvrirCatalogue(entier, d / "entier.lsu"));
        ASSERT_FALSE(ecrisLigne(enPlace, n, nouvelle));
        ASSERT_FALSE(remplaceLigne(entier, n, nouvelle)) << nb << " " << n;
        EXPECT_EQ(lisFichier(entier.chemin), lisFichier(enPlace.chemin)) << nb << " " << reste << " " << n;
        EXPECT_EQ(entier.nbLignesCatalogue, enPlace.nbLignesCatalogue);
        EXPECT_EQ(entier.marquesCatalogue.size(), std::size_t(entier.nbLignesCatalogue) + 1);
    }
}

TEST(RemplaceLigne, UnEchecNeChangeRien)
{
    const std::string depart = catalogue(3, 100);
    for (auto [n, disque, message] :  // disque: bytes before the full disk, -1 for none
         {std::tuple{0, -1LL, "La ligne 0 ne peut pas être écrite"}, {5, -1LL, "La ligne 5 ne peut pas être écrite"},
          {-2, -1LL, "La ligne -2 ne peut pas être écrite"}, {2, 500LL, "le disque est plein"}}) {
        DossierTemporaire d;
        ecrisFichier(d / "essai.lsu", depart);
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, d / "essai.lsu"));
        simuleDisquePlein(disque);
        const Erreur erreur = remplaceLigne(cat, n, nouvelle);
        simuleDisquePlein(-1);
        EXPECT_NE(erreur.message().find("essai.lsu"), std::string::npos) << erreur.message();
        EXPECT_NE(erreur.message().find(message), std::string::npos) << erreur.message();
        EXPECT_EQ(lisFichier(d / "essai.lsu"), depart) << n;
        EXPECT_EQ(cat.nbLignesCatalogue, 3);
        EXPECT_EQ(d.noms(), std::vector<std::string>{"essai.lsu"});
    }
}
}  // namespace
}  // namespace velorin
