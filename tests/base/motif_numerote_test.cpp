#include <gtest/gtest.h>

#include <tuple>

#include "base/motif_numerote.h"

namespace velorin {
namespace {
TEST(MotifNumerote, NomsDeLaSerieEtMotifsRefusesGardantLePrecedent)
{
    // "%%" in the folder is a plain percent sign.
    for (auto [motif, numero, nom] :
         {std::tuple{"images/tour_%03d.png", 7, "images/tour_007.png"},
          {"images/tour_%03d.png", 1234, "images/tour_1234.png"}, {"%d.svg", 75, "75.svg"},
          {"a%%b_%02d.txt", 3, "a%b_03.txt"}, {"100%%/x%01d_%%.png", 9, "100%/x9_%.png"},
          {"/tmp/t%09d", 12, "/tmp/t000000012"}}) {
        MotifNumerote m;
        ASSERT_FALSE(lisMotifNumerote(motif, m)) << motif;
        EXPECT_TRUE(estMotifNumerote(motif));
        EXPECT_EQ(nomNumerote(m, numero), nom) << motif;
    }
    EXPECT_FALSE(estMotifNumerote("anim.gif"));
    for (auto [motif, raison] :
         {std::pair{"tour.png", "n'a pas de numéro"}, {"a%%b.png", "n'a pas de numéro"},
          {"t_%d_%d.png", "plus d'un numéro"}, {"t_%s.png", "est incorrect"}, {"t_%3d.png", "est incorrect"},
          {"t_%0d.png", "est incorrect"}, {"t_%00d.png", "est incorrect"}, {"t_%010d.png", "est incorrect"},
          {"t_%", "est incorrect"}, {"t_%03", "est incorrect"}, {"im_%d/t_%d.png", "nom du dossier"}}) {
        MotifNumerote m{"garde", "aussi", 4};
        const Erreur e = lisMotifNumerote(motif, m);
        ASSERT_TRUE(e) << motif;
        EXPECT_NE(e.message().find(raison), std::string::npos) << motif << " : " << e.message();
        EXPECT_NE(e.message().find(motif), std::string::npos) << e.message();
        EXPECT_EQ(m.avant, "garde");  // a refused pattern leaves the previous one
    }
}
}  // namespace
}  // namespace velorin
