#include <gtest/gtest.h>

#include "base/motif_numerote.h"

namespace velorin {
namespace {

TEST(MotifNumerote, NomsDeLaSerie)
{
    struct Cas {
        const char* motif;
        int numero;
        const char* nom;
    };
    const Cas cas[] = {
        {"images/tour_%03d.png", 7, "images/tour_007.png"},
        {"images/tour_%03d.png", 1234, "images/tour_1234.png"},
        {"%d.svg", 75, "75.svg"},
        {"a%%b_%02d.txt", 3, "a%b_03.txt"},
        {"100%%/x%01d_%%.png", 9, "100%/x9_%.png"},  // "%%" in the folder is a plain percent sign
        {"/tmp/t%09d", 12, "/tmp/t000000012"},
    };
    for (const Cas& c : cas) {
        MotifNumerote m;
        ASSERT_FALSE(lisMotifNumerote(c.motif, m)) << c.motif;
        EXPECT_TRUE(estMotifNumerote(c.motif));
        EXPECT_EQ(nomNumerote(m, c.numero), c.nom) << c.motif;
    }
    EXPECT_FALSE(estMotifNumerote("anim.gif"));
}

TEST(MotifNumerote, MotifsRefusesGardentLePrecedent)
{
    struct Cas {
        const char* motif;
        const char* raison;
    };
    const Cas cas[] = {
        {"tour.png", "n'a pas de numéro"}, {"a%%b.png", "n'a pas de numéro"},    {"t_%d_%d.png", "plus d'un numéro"},
        {"t_%s.png", "est incorrect"},     {"t_%3d.png", "est incorrect"},       {"t_%0d.png", "est incorrect"},
        {"t_%00d.png", "est incorrect"},   {"t_%010d.png", "est incorrect"},     {"t_%", "est incorrect"},
        {"t_%03", "est incorrect"},        {"im_%d/t_%d.png", "nom du dossier"},
    };
    for (const Cas& c : cas) {
        MotifNumerote m{"garde", "aussi", 4};
        const Erreur e = lisMotifNumerote(c.motif, m);
        ASSERT_TRUE(e) << c.motif;
        EXPECT_NE(e.message().find(c.raison), std::string::npos) << c.motif << " : " << e.message();
        EXPECT_NE(e.message().find(c.motif), std::string::npos) << e.message();
        EXPECT_EQ(m.avant, "garde");  // a refused pattern leaves the previous one
    }
}

}  // namespace
}  // namespace velorin
