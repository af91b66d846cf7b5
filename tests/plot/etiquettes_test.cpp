#include "plot/etiquettes.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

const CouleursDefaut couleurs{};
constexpr Couleur blancOuNoir = 0x123456;

TEST(Etiquettes, ReponseDeCouleur)
{
    struct Cas {
        const char* reponse;
        Couleur attendue;
    };
    for (const Cas& c :
         {Cas{"1", couleurs.coulBleu}, Cas{"2", couleurs.coulRouge}, Cas{"3", couleurs.coulJaune},
          Cas{"4", couleurs.coulVert}, Cas{" 2 rouge", couleurs.coulRouge}, Cas{"3.7", couleurs.coulJaune},
          Cas{"0", blancOuNoir}, Cas{"7", blancOuNoir}, Cas{"", blancOuNoir}, Cas{"-1", blancOuNoir},
          Cas{"bleu", blancOuNoir}, Cas{"1e300000", blancOuNoir}})
        EXPECT_EQ(couleurChoisie(c.reponse, couleurs, blancOuNoir), c.attendue) << '"' << c.reponse << '"';
}

TEST(Etiquettes, ReponsesDePoliceEtDeTaille)
{
    struct Police {
        const char* reponse;
        std::optional<std::string> attendue;
    };
    for (const Police& c :
         {Police{"0", "Arial"}, Police{"", "Arial"}, Police{"1", "Bookman Old Style"}, Police{"2", "Courier New"},
          Police{"3", "Symbol"}, Police{"4", "Algerian"}, Police{"12", "Algerian"}, Police{"-2", std::nullopt}})
        EXPECT_EQ(policeChoisie(c.reponse), c.attendue) << '"' << c.reponse << '"';

    struct Taille {
        const char* reponse;
        std::optional<float> attendue;
    };
    for (const Taille& c :
         {Taille{"12", 12.0F}, Taille{" 8.5 ", 8.5F}, Taille{"", std::nullopt}, Taille{"0", std::nullopt},
          Taille{"-3", std::nullopt}, Taille{"14abc", 14.0F}, Taille{"12pt", 12.0F}})
        EXPECT_EQ(tailleChoisie(c.reponse), c.attendue) << '"' << c.reponse << '"';
}

// Labels "a", "b", "c", ... at distinct places, each with its own style.
Etiquettes quelques(int n)
{
    Etiquettes e;
    for (int k = 1; k <= n; ++k) {
        const int i = ajouteEtiquette(e, 100.0F * k, 50.0F * k);
        Etiquette& l = e.lb[i];
        l.texte = std::string(1, char('a' + k - 1));
        l.police = "Police" + std::to_string(k);
        l.taille = 8.0F + float(k);
        l.gras = k % 2 == 0;
        l.italique = k == 3;
        l.souligne = k == 4;
        l.couleur = k * 1000;
        e.general1[i] = k;
    }
    return e;
}

TEST(Etiquettes, CreationDepuisLeModeleEtSuiviAgrandi)
{
    Etiquettes e;
    e.lb[0].taille = 14;
    e.general2[0] = 7;
    EXPECT_EQ(ajouteEtiquette(e, 300, 450), 1);
    EXPECT_EQ(ajouteEtiquette(e, 600, 900), 2);
    ASSERT_EQ(e.nombre(), 2);
    EXPECT_FALSE(e.lb[0].visible);
    EXPECT_EQ(e.lb[2].texte, "texte à afficher");
    EXPECT_EQ(e.lb[2].taille, 14);
    EXPECT_TRUE(e.lb[2].visible);
    EXPECT_EQ(e.lb[2].gauche, 600);
    EXPECT_EQ(e.lb[2].haut, 900);
    for (std::size_t taille :
         {e.general1.size(), e.general5.size(), e.drapeaux.size(), e.simples.size(), e.doubles.size()})
        EXPECT_EQ(taille, 3U);
    EXPECT_EQ(e.general2[0], 7);  // contents kept

    videlabel(e);
    EXPECT_EQ(e.nombre(), 0);
    EXPECT_EQ(e.lb[0].taille, 14);
    EXPECT_EQ(e.general1.size(), 3U);  // only the reset shrinks them
    reinitialiseSuivi(e);
    EXPECT_EQ(e.general1.size(), 1U);
    EXPECT_EQ(e.general2[0], 0);
    EXPECT_EQ(e.doubles.size(), 1U);
}

TEST(Etiquettes, CompactageApresEffacement)
{
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
            const Etiquette& l = e.lb[i];
            const Etiquette& ancien = avant.lb[c.restes[i - 1]];
            EXPECT_EQ(l.texte, ancien.texte);
            EXPECT_EQ(l.taille, ancien.taille);
            EXPECT_EQ(l.gras, ancien.gras);
            EXPECT_EQ(l.italique, ancien.italique);
            EXPECT_EQ(l.souligne, ancien.souligne);
            EXPECT_EQ(l.couleur, ancien.couleur);
            // Same place on the screen as before the compaction.
            EXPECT_EQ(l.gauche, ancien.gauche);
            EXPECT_EQ(l.haut, ancien.haut);
            // The font name stays with the index.
            EXPECT_EQ(l.police, avant.lb[i].police);
            EXPECT_TRUE(l.visible);
        }
    }
}

TEST(Etiquettes, Bulle)
{
    const Etiquettes e = quelques(3);
    EXPECT_EQ(bulleEtiquette(e, 2), "Label n° 2/3__b");
    EXPECT_EQ(bulleEtiquette(e, 3), "Label n° 3/3__c");
}

}  // namespace
