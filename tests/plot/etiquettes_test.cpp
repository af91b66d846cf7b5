#include "plot/etiquettes.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(Etiquettes, ReponsesDeCouleurPoliceEtTaille)
{
    const CouleursDefaut k{};
    constexpr Couleur blancOuNoir = 0x123456;
    for (auto [reponse, attendue] :
         {std::pair<const char*, Couleur>{"1", k.coulBleu}, {"2", k.coulRouge}, {"3", k.coulJaune}, {"4", k.coulVert},
          {" 2 rouge", k.coulRouge}, {"3.7", k.coulJaune}, {"0", blancOuNoir}, {"7", blancOuNoir},
          {"", blancOuNoir}, {"-1", blancOuNoir}, {"bleu", blancOuNoir}, {"1e300000", blancOuNoir}})
        EXPECT_EQ(couleurChoisie(reponse, k, blancOuNoir), attendue) << '"' << reponse << '"';
    for (auto [reponse, attendue] :
         {std::pair<const char*, std::optional<std::string>>{"0", "Arial"}, {"", "Arial"}, {"1", "Bookman Old Style"},
          {"2", "Courier New"}, {"3", "Symbol"}, {"4", "Algerian"}, {"12", "Algerian"}, {"-2", std::nullopt}})
        EXPECT_EQ(policeChoisie(reponse), attendue) << '"' << reponse << '"';
    for (auto [reponse, attendue] : {std::pair<const char*, std::optional<float>>{"12", 12.0F}, {" 8.5 ", 8.5F},
                                     {"", {}}, {"0", {}}, {"-3", {}}, {"14abc", 14.0F}, {"12pt", 12.0F}})
        EXPECT_EQ(tailleChoisie(reponse), attendue) << '"' << reponse << '"';
}

// Labels "a", "b", "c", ... at distinct places, each with its own style.
Etiquettes quelques(int n)
{
    Etiquettes e;
    for (int k = 1; k <= n; ++k) {
        Etiquette& l = e.lb[ajouteEtiquette(e, 100.0F * k, 50.0F * k)];
        l.texte = std::string(1, char('a' + k - 1));
        l.police = "Police" + std::to_string(k);
        l.taille = 8.0F + float(k);
        l.gras = k % 2 == 0, l.italique = k == 3, l.souligne = k == 4;
        l.couleur = k * 1000;
        e.general1[k] = k;
    }
    return e;
}

TEST(Etiquettes, CreationDepuisLeModeleEtSuiviAgrandi)
{
    Etiquettes e;
    e.lb[0].taille = 14;
    e.general2[0] = 7;
    EXPECT_EQ(ajouteEtiquette(e, 300, 450) + 10 * ajouteEtiquette(e, 600, 900), 21);
    ASSERT_EQ(e.nombre(), 2);
    EXPECT_FALSE(e.lb[0].visible);
    const Etiquette& l = e.lb[2];
    EXPECT_TRUE(l.texte == "texte à afficher" && l.taille == 14 && l.visible && l.gauche == 600 && l.haut == 900);
    EXPECT_EQ((std::vector{e.general1.size(), e.general5.size(), e.drapeaux.size(), e.simples.size(),
                           e.doubles.size(), std::size_t(e.general2[0])}),
              (std::vector<std::size_t>{3, 3, 3, 3, 3, 7}));  // contents kept
    videlabel(e);
    // Only the reset shrinks the arrays.
    EXPECT_TRUE(e.nombre() == 0 && e.lb[0].taille == 14 && e.general1.size() == 3U);
    reinitialiseSuivi(e);
    EXPECT_TRUE(e.general1.size() == 1U && e.general2[0] == 0 && e.doubles.size() == 1U);
}

// The remaining labels keep their caption, style, colour and place on the
// screen; the font name stays with the index.
TEST(Etiquettes, CompactageApresEffacement)
{
    auto decrit = [](const Etiquette& l, const std::string& police) {
        return l.texte + " " + std::to_string(l.taille) + " " + std::to_string(l.gras) + std::to_string(l.italique) +
               std::to_string(l.souligne) + " " + std::to_string(l.couleur) + " " + std::to_string(l.gauche) + "," +
               std::to_string(l.haut) + " " + police;
    };
    struct Cas {
        int nombre;
        std::vector<int> vides;   // labels emptied before the compaction
        std::vector<int> restes;  // which of the old labels remain, in order
    };
    for (const Cas& c : {Cas{4, {2}, {1, 3, 4}}, Cas{4, {1}, {2, 3, 4}}, Cas{4, {4}, {1, 2, 3}},
                         Cas{5, {2, 4}, {1, 3, 5}}, Cas{1, {1}, {}}, Cas{3, {}, {1, 2, 3}}}) {
        const Etiquettes avant = quelques(c.nombre);
        Etiquettes e = avant;
        for (int k : c.vides)
            e.lb[k].texte.clear();
        arralb3(e);
        ASSERT_EQ(e.nombre(), int(c.restes.size())) << c.nombre;
        for (int i = 1; i <= e.nombre(); ++i) {
            EXPECT_EQ(decrit(e.lb[i], e.lb[i].police), decrit(avant.lb[c.restes[i - 1]], avant.lb[i].police));
            EXPECT_TRUE(e.lb[i].visible);
        }
    }
    EXPECT_EQ(bulleEtiquette(quelques(3), 3), "Label n° 3/3__c");  // the last label too
}

}  // namespace
}  // namespace velorin
