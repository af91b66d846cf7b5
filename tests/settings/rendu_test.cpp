#include "commun/commun.h"
#include "settings/rendu.h"

namespace velorin {
namespace {
auto champs(const Rendu& r)
{
    return std::tuple(static_cast<int>(r.style), r.cavaliere, r.angleCavaliere, r.coefCavaliere, r.tourCavaliere,
                      r.quadrillage, r.repereGradue);
}

TEST(FichierRendu, AllerRetourGardeChaqueReglageEtLesVirgulesDuSystemeNyEntrentPas)
{
    for (const Rendu& ecrit : {Rendu{StyleRendu::FacesOmbrees, true, 30, 0.7, -22.5, true, true},
                               Rendu{StyleRendu::Effaces, false, 60.25, 1, 0, false, true}, Rendu{}}) {
        const essai::DossierTemporaire d;
        const std::string chemin = d / nomFichierRendu();
        ASSERT_FALSE(ecrisRendu(chemin, ecrit));
        EXPECT_EQ(essai::lisFichier(chemin).find(','), std::string::npos);
        Rendu lu{StyleRendu::Pointilles, true, 10, 0.1, 5, true, false};
        const Erreur e = lisRendu(chemin, lu);
        ASSERT_FALSE(e) << e.message();
        EXPECT_EQ(champs(lu), champs(ecrit));
    }
}

TEST(FichierRendu, LigneAbimeeNommeeLeRenduEnVigueurReste)
{
    for (auto [texte, attendu] : {std::pair{"style=faces\nstyle=ombre", "ligne 2 : le style « ombre »"},
                                  {"angle=90", "ligne 1 : l'angle « 90 »"},
                                  {"angle=0", "ligne 1 : l'angle « 0 »"},
                                  {"coefficient=1.5", "ligne 1 : le coefficient « 1.5 »"},
                                  {"coefficient=0,5", "ligne 1 : le coefficient « 0,5 »"},
                                  {"tour=400", "ligne 1 : le tour « 400 »"},
                                  {"quadrillage=oui", "ligne 1 : quadrillage vaut 0 ou 1"},
                                  {"projection=isometrique", "ligne 1 : la projection « isometrique »"},
                                  {"# note\r\n\r\nteinte=3", "ligne 3 : réglage inconnu « teinte »"},
                                  {"style faces", "ligne 1 : « nom=valeur » attendu"}}) {
        Rendu r;
        r.coefCavaliere = 0.6;
        const Erreur e = analyseRendu(texte, "/d/rendu.txt", r);
        ASSERT_TRUE(e) << texte;
        EXPECT_EQ(e.message().rfind("Fichier « /d/rendu.txt », ", 0), 0u) << e.message();
        EXPECT_NE(e.message().find(attendu), std::string::npos) << e.message();
        EXPECT_EQ(champs(r), champs(Rendu{.coefCavaliere = 0.6})) << texte;
    }
}
}  // namespace
}  // namespace velorin
