#include "plot/points_memoire.h"

#include <gtest/gtest.h>

#include <functional>

#include "commun/commun.h"

namespace velorin {
namespace {

using namespace essai;

// A catalogue of a function, a point (1,2,3) at 2, a segment and a point (0,1) at 4.
struct PointsMemoire : ::testing::Test {
    DossierTemporaire dossier;
    Catalogue cat;
    void SetUp() override
    {
        ASSERT_FALSE(ouvrirCatalogue(cat, dossier / "points.lsu"));
        for (const LigneCatalogue& l : {LigneCatalogue{1, "x=f1(t)=t"}, LigneCatalogue{9, "Point:[(1,2,3)]"},
                                        LigneCatalogue{8, "Segment:[(0,0,0)][(1,1,1)]"},
                                        LigneCatalogue{9, "Point:[(0,1)]"}})
            ASSERT_FALSE(ecrisLigne(cat, cat.nbLignesCatalogue + 1, l));
    }
    // "kind text" of record n, the text trimmed.
    std::string texte(NumeroLigne n)
    {
        LigneCatalogue l;
        EXPECT_FALSE(lisLigne(cat, n, l));
        l.texte.erase(l.texte.find_last_not_of(' ') + 1);
        return std::to_string(l.typeFonction) + " " + l.texte;
    }
};

TEST_F(PointsMemoire, ListeSeulementLesPointsAvecLeurLigne)
{
    std::vector<PointMemoire> points;
    ASSERT_FALSE(chargePoints(cat, points));
    ASSERT_EQ(points.size(), 2u);
    EXPECT_TRUE(points[0].numero == 2 && points[1].numero == 4);
    EXPECT_EQ(points[0].ligne, "0002]Point:[(1,2,3)]" + std::string(285, ' ') + "[09");
    EXPECT_EQ(points[1].texte, "Point:[(0,1)]" + std::string(287, ' '));
    Catalogue sansPoints;  // a "Point:" text of another kind is no point
    ASSERT_FALSE(ouvrirCatalogue(sansPoints, dossier / "vide.lsu"));
    ASSERT_FALSE(ecrisLigne(sansPoints, 1, LigneCatalogue{19, "Point:[(1,2,3)]"}));
    ASSERT_FALSE(chargePoints(sansPoints, points));
    EXPECT_TRUE(points.empty());
}

// Points typed one after the other: where each is afterwards, whether it
// was added, and the record there.
TEST_F(PointsMemoire, CreationNormaliseEtNEnregistreJamaisDeuxFois)
{
    const std::string longues = "(" + std::string(300, '7') + ")", coupe = "9 Point:[" + longues.substr(0, 293);
    for (auto [tape, numero, nouveau, stocke] :
         {std::tuple<std::string, NumeroLigne, bool, std::string>{"[1,2,3]", 2, false, "9 Point:[(1,2,3)]"},
          {"  {4,5,6] ", 5, true, "9 Point:[(4,5,6)]"},
          {"(4,5,6)", 5, false, "9 Point:[(4,5,6)]"},
          {"(0,0,0)", 6, true, "9 Point:[(0,0,0)]"},  // a segment's end is no point
          {"(1, 2,3)", 7, true, "9 Point:[(1, 2,3)]"},
          {longues, 8, true, coupe},  // cut at 300
          {longues, 8, false, coupe}}) {
        Enregistrement r;
        ASSERT_FALSE(creePoint(cat, tape, r)) << tape;
        EXPECT_EQ(std::tuple(r.numero, r.nouveau, texte(numero)), std::tuple(numero, nouveau, stocke)) << tape;
    }
    EXPECT_EQ(cat.nbLignesCatalogue, 8);
}

TEST_F(PointsMemoire, RelierAjouteUnSegmentDesDeuxTextes)
{
    // The new record, or the start of the message.
    for (auto [a, b, attendu] : {std::tuple{2, 4, "8 Segment:[(1,2,3)][(0,1)]"}, {4, 2, "8 Segment:[(0,1)][(1,2,3)]"},
                                 {1, 2, "La ligne 1 du catalogue"}, {2, 3, "La ligne 3 du catalogue"},
                                 {2, 2, "Un segment relie deux points différents"}, {2, 99, "La ligne 99 n'existe pas"}}) {
        const NumeroLigne avant = cat.nbLignesCatalogue;
        Enregistrement r;
        if (const Erreur erreur = reliePoints(cat, a, b, r)) {
            EXPECT_EQ(erreur.message().rfind(attendu, 0), 0u) << erreur.message();
            EXPECT_EQ(cat.nbLignesCatalogue, avant);
            continue;
        }
        EXPECT_EQ(r.numero, avant + 1);
        EXPECT_EQ(texte(r.numero), attendu);
    }
}

// The command line refuses what a record would cut, and writes nothing;
// empty coordinates are refused everywhere.
TEST_F(PointsMemoire, TextesTropLongsOuVides)
{
    using Pas = std::function<Erreur(Enregistrement&)>;
    const std::string c1 = "(" + std::string(150, '1') + ")", c2 = "(" + std::string(150, '2') + ")";
    const std::string c3 = "(" + std::string(300, '3') + ")";
    const std::pair<Pas, const char*> pas[] = {
        {[&](Enregistrement& r) { return creePoint(cat, c1, r, {true}); }, nullptr},  // 5
        {[&](Enregistrement& r) { return creePoint(cat, c2, r, {true}); }, nullptr},  // 6
        {[&](Enregistrement& r) { return reliePoints(cat, 5, 6, r, {true}); },
         "fait 316 caractères et une ligne du catalogue n'en garde que 300 : il serait coupé et « 22222222222222)] » "
         "perdu"},
        {[&](Enregistrement& r) { return reliePoints(cat, 5, 6, r); }, nullptr},  // 7, cut
        {[&](Enregistrement& r) { return creePoint(cat, c3, r, {true}); }, "fait 310 caractères et une ligne"},
        {[&](Enregistrement& r) { return creePoint(cat, " \t ", r); }, "Tapez les coordonnées du point"},
    };
    for (const auto& [action, message] : pas) {
        Enregistrement r;
        const Erreur erreur = action(r);
        EXPECT_EQ(bool(erreur), message != nullptr) << erreur.message();
        EXPECT_NE(erreur.message().find(message ? message : ""), std::string::npos) << erreur.message();
    }
    EXPECT_EQ(cat.nbLignesCatalogue, 7);
    EXPECT_EQ(texte(7).size(), 2u + 300u);
}

}  // namespace
}  // namespace velorin
