#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "commun/commun.h"
#include "plot/demande.h"
#include "plot/ecran.h"
#include "plot/impression.h"

namespace velorin {
namespace {

using namespace essai;
namespace fs = std::filesystem;

TEST(Impression, FrenchDateAndFooter)
{
    struct Cas {
        Horodatage h;
        const char* date;
    };
    const Cas cas[] = {
        {{2026, 11, 24, 0, 0, 0}, "mardi 24 nov. 2026"},    {{2027, 8, 1, 0, 0, 0}, "dimanche 01 août 2027"},
        {{2000, 2, 29, 0, 0, 0}, "mardi 29 févr. 2000"},    {{1999, 12, 31, 0, 0, 0}, "vendredi 31 déc. 1999"},
        {{2024, 1, 6, 0, 0, 0}, "samedi 06 janv. 2024"},    {{2025, 6, 2, 0, 0, 0}, "lundi 02 juin 2025"},
        {{2026, 7, 15, 0, 0, 0}, "mercredi 15 juil. 2026"}, {{2026, 9, 10, 0, 0, 0}, "jeudi 10 sept. 2026"},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(dateFrancaise(c.h), c.date);
    EXPECT_EQ(piedDePage({2026, 3, 5, 9, 7, 3}), "c/o PLAVIER **** imprimé  le jeudi 05 mars 2026 à 09:07:03");
}

class Page : public ::testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directories(dossier);
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, (dossier / "essai.lsu").string()));
        for (const LigneCatalogue& e :
             {LigneCatalogue{1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"}, LigneCatalogue{9, "Point:[(1,1,1)]"}})
            ASSERT_FALSE(ecrisLigne(etat.catalogue, etat.catalogue.nbLignesCatalogue + 1, e));
        etat.fenetre.largeurVue = etat.vue.W;
        etat.fenetre.hauteurVue = etat.vue.H;
    }
    void TearDown() override { fs::remove_all(dossier); }

    fs::path dossier = fs::temp_directory_path() / ("velorin_page_" + std::to_string(std::random_device{}()));
    Etat etat = etatCalibre(true);
};

TEST_F(Page, TitleLegendLabelsAndFooterOverTheRedrawnCurves)
{
    SurfaceEnregistreuse ecran;
    etat.couleurs.couleurTrace = 0xFF;  // red
    ASSERT_FALSE(demandeTrace(etat, ecran, 1, OptionsTrace{}, CrochetsTrace{}).erreur);
    etat.couleurs.couleurTrace = 0xFF00;  // green
    ASSERT_FALSE(demandeTrace(etat, ecran, 2, OptionsTrace{}, CrochetsTrace{}).erreur);
    etat.couleurs.couleurTrace = 0xFFFFFF;
    Etiquette lb;
    lb.texte = "Sommet";
    lb.gauche = 1000;
    lb.haut = 2000;
    lb.visible = true;
    lb.couleur = std::int32_t(couleursRepere(etat).axes);  // white on the black screen
    etat.etiquettes.lb.push_back(lb);
    lb.texte = "Pied";
    lb.couleur = 0xFF;
    etat.etiquettes.lb.push_back(lb);
    const Vue vueFenetre = etat.vue;

    // A landscape page twice the window's size.
    SurfaceEnregistreuse page(2 * etat.vue.W, 2 * etat.vue.H);
    ASSERT_FALSE(dessinePage(etat, page, "pied de page"));
    const auto textes = duGenre(page, Genre::Texte);
    auto texte = [&](const std::string& t) -> const OperationDessin* {
        for (const auto& op : textes)
            if (op.texte == t)
                return &op;
        ADD_FAILURE() << "pas de texte " << t;
        return nullptr;
    };
    const OperationDessin* titre = texte("TRACE DES COURBES");
    ASSERT_TRUE(titre);
    EXPECT_EQ(titre->x1, 200);
    EXPECT_EQ(titre->y1, 500);
    EXPECT_EQ(titre->police, "ARIAL");
    EXPECT_EQ(titre->taille, 10);
    struct Legende {
        const char* texte;
        Couleur trait;
    };
    double y = titre->y1;
    for (const Legende& l : {Legende{"   01/001 En rouge:", 0xFF}, Legende{"   09/002 En vert:", 0xFF00}}) {
        const OperationDessin* op = texte(l.texte);
        ASSERT_TRUE(op);
        EXPECT_GT(op->y1, y);
        y = op->y1;
        EXPECT_EQ(op->x1, 400);
        bool trait = false;
        for (const auto& s : duGenre(page, Genre::Ligne, l.trait))
            trait |= s.x1 == 100 && s.x2 == 400 && s.y1 > op->y1 && s.y1 < op->y1 + 300;
        EXPECT_TRUE(trait) << l.texte;
    }
    const OperationDessin* etiquette = texte("Sommet");
    ASSERT_TRUE(etiquette);
    EXPECT_EQ(etiquette->x1, 2000);
    EXPECT_EQ(etiquette->y1, 4000);
    // On white paper the screen's axes colour is printed black; red stays red.
    EXPECT_NE(couleursRepere(etat).axes, 0U);
    EXPECT_EQ(etiquette->couleur, 0U);
    ASSERT_TRUE(texte("Pied"));
    EXPECT_EQ(texte("Pied")->couleur, 0xFFU);
    const OperationDessin* pied = texte("pied de page");
    ASSERT_TRUE(pied);
    EXPECT_GT(pied->y1, page.Height() * 0.9);
    // The curves are drawn again on the page, the frame in black, and the
    // paper is not cleared.
    EXPECT_GT(duGenre(page, Genre::Ligne, 0xFF).size(), 20U);
    EXPECT_FALSE(duGenre(page, Genre::Ligne, 0).empty());
    EXPECT_TRUE(duGenre(page, Genre::Effacement).empty());
    // The window's view is left as it was.
    EXPECT_EQ(etat.vue.W, vueFenetre.W);
    EXPECT_EQ(etat.vue.echelleX, vueFenetre.echelleX);
    EXPECT_EQ(etat.courbes.nbCourbes, 2);
}

}  // namespace
}  // namespace velorin
