#include "plot/impression.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "commun/commun.h"
#include "plot/demande.h"

namespace velorin {
namespace {

using namespace essai;

TEST(Impression, DateEnFrancaisEtPiedDePage)
{
    const std::pair<Horodatage, const char*> cas[] = {
        {{2026, 11, 24}, "mardi 24 nov. 2026"},    {{2027, 8, 1}, "dimanche 01 août 2027"},
        {{2000, 2, 29}, "mardi 29 févr. 2000"},    {{1999, 12, 31}, "vendredi 31 déc. 1999"},
        {{2024, 1, 6}, "samedi 06 janv. 2024"},    {{2025, 6, 2}, "lundi 02 juin 2025"},
        {{2026, 7, 15}, "mercredi 15 juil. 2026"}, {{2026, 9, 10}, "jeudi 10 sept. 2026"},
    };
    for (const auto& [h, date] : cas)
        EXPECT_EQ(dateFrancaise(h), date);
    EXPECT_EQ(piedDePage({2026, 3, 5, 9, 7, 3}), "c/o PLAVIER **** imprimé  le jeudi 05 mars 2026 à 09:07:03");
}

// Two curves drawn (red, then green) and two labels (one in the screen's
// axes colour, one red), printed on a landscape page twice the window.
TEST(Impression, TitreLegendeLabelsEtPiedParDessusLesCourbes)
{
    DossierTemporaire d;
    Etat etat = etatCalibre(true);
    ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, d / "essai.lsu"));
    ASSERT_FALSE(ecrisLigne(etat.catalogue, 1, {1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"}));
    ASSERT_FALSE(ecrisLigne(etat.catalogue, 2, {9, "Point:[(1,1,1)]"}));
    etat.fenetre.largeurVue = etat.vue.W;
    etat.fenetre.hauteurVue = etat.vue.H;
    SurfaceEnregistreuse ecran;
    for (auto [numero, couleur] : {std::pair{1, 0xFFu}, {2, 0xFF00u}}) {
        etat.couleurs.couleurTrace = couleur;
        ASSERT_FALSE(demandeTrace(etat, ecran, numero, {}, {}).erreur);
    }
    etat.couleurs.couleurTrace = 0xFFFFFF;
    for (auto [texte, couleur] : {std::pair{"Sommet", std::int32_t(couleursRepere(etat).axes)}, {"Pied", 0xFF}}) {
        Etiquette& lb = etat.etiquettes.lb.emplace_back();
        lb.texte = texte, lb.gauche = 1000, lb.haut = 2000, lb.visible = true, lb.couleur = couleur;
    }
    ASSERT_NE(couleursRepere(etat).axes, 0U);
    const Vue vue = etat.vue;
    SurfaceEnregistreuse page(2 * etat.vue.W, 2 * etat.vue.H);
    ASSERT_FALSE(dessinePage(etat, page, "pied de page"));
    std::map<std::string, OperationDessin> textes;
    for (const auto& op : duGenre(page, Genre::Texte))
        textes[op.texte] = op;
    auto ou = [&](const std::string& t) {
        const auto& op = textes[t];
        return std::to_string(int(op.x1)) + "," + std::to_string(int(op.y1)) + " " + std::to_string(op.couleur);
    };
    EXPECT_EQ(ou("TRACE DES COURBES") + textes["TRACE DES COURBES"].police, "200,500 0ARIAL");
    EXPECT_EQ(textes["TRACE DES COURBES"].taille, 10);
    // On white paper the screen's axes colour is printed black; red stays red.
    EXPECT_EQ(ou("Sommet"), "2000,4000 0");
    EXPECT_EQ(ou("Pied"), "2000,4000 255");
    EXPECT_GT(textes["pied de page"].y1, page.Height() * 0.9);
    // The legend, one row a curve below the title, each with a stroke of its colour.
    double y = textes["TRACE DES COURBES"].y1;
    for (auto [texte, trait] : {std::pair{"   01/001 En rouge:", 0xFFu}, {"   09/002 En vert:", 0xFF00u}}) {
        ASSERT_TRUE(textes.count(texte)) << texte;
        const OperationDessin& op = textes[texte];
        EXPECT_GT(op.y1, y);
        EXPECT_EQ(op.x1, 400);
        y = op.y1;
        const auto traits = duGenre(page, Genre::Ligne, trait);
        EXPECT_TRUE(std::any_of(traits.begin(), traits.end(), [&](const auto& s) {
            return s.x1 == 100 && s.x2 == 400 && s.y1 > op.y1 && s.y1 < op.y1 + 300;
        })) << texte;
    }
    // The curves are drawn again on the page, the frame in black, and the
    // paper is not cleared; the window's view is left as it was.
    EXPECT_GT(duGenre(page, Genre::Ligne, 0xFF).size(), 20U);
    EXPECT_FALSE(duGenre(page, Genre::Ligne, 0).empty());
    EXPECT_TRUE(duGenre(page, Genre::Effacement).empty());
    EXPECT_TRUE(etat.vue.W == vue.W && etat.vue.echelleX == vue.echelleX && etat.courbes.nbCourbes == 2);
}

}  // namespace
}  // namespace velorin
