#include "commun/commun.h"
#include "settings/fichier_couleurs.h"

namespace velorin {
namespace {
std::vector<Couleur*> membres(SchemaCouleurs& s)
{
    return {&s.couleurAxes,     &s.couleurFondSombre, &s.couleurTrace,   &s.couleurFamille,
            &s.couleurTangente, &s.couleurRayon,     &s.couleurProjOx,  &s.couleurProjOy,
            &s.couleurProjOz,  &s.couleurProjXOy,    &s.couleurProjXOz, &s.couleurProjYOz};
}
std::vector<Couleur> valeurs(SchemaCouleurs s)
{
    std::vector<Couleur> v;
    for (const Couleur* c : membres(s))
        v.push_back(*c);
    return v;
}

TEST(FichierCouleurs, AllerRetourParLeFichierGardeChaqueCouleur)
{
    SchemaCouleurs ecrit;
    Couleur v = 0;
    for (Couleur* c : membres(ecrit))
        *c = (v += 0x0F1E2D);
    ecrit.couleurProjYOz = 0xFFFFFF;  // the largest value
    ecrit.couleurAxes = 0;            // and the smallest
    ecrit.couleurFond = 0x123456;     // derived: not stored
    const essai::DossierTemporaire d;
    const std::string chemin = d / nomFichierCouleurs();
    ASSERT_FALSE(ecrisCouleurs(chemin, ecrit));
    EXPECT_EQ(essai::lisFichier(chemin), texteCouleurs(ecrit));
    SchemaCouleurs lu;
    const Erreur erreur = lisCouleurs(chemin, lu);
    ASSERT_FALSE(erreur) << erreur.message();
    EXPECT_EQ(valeurs(lu), valeurs(ecrit));
    EXPECT_EQ(lu.couleurFond, SchemaCouleurs{}.couleurFond);
    EXPECT_NE(texteCouleurs(ecrit).find("\ncouleurProjYOz=16777215\n"), std::string::npos);
}

TEST(FichierCouleurs, MisesEnPageTolerees)
{
    const SchemaCouleurs defaut;
    for (auto [texte, trace, axes] :
         {std::tuple{"\xEF\xBB\xBF# note\r\n  couleurTrace = 255 \rcouleurAxes=0", 255u, 0u},
          {"\n\n# rien d'autre\n", defaut.couleurTrace, defaut.couleurAxes},
          {"couleurTrace=1\ncouleurTrace=16777215", 0xFFFFFFu, defaut.couleurAxes}}) {
        SchemaCouleurs s;
        const Erreur e = analyseCouleurs(texte, "couleurs.txt", s);
        ASSERT_FALSE(e) << e.message();
        EXPECT_EQ(std::tuple(s.couleurTrace, s.couleurAxes, s.couleurFamille),
                  std::tuple(trace, axes, defaut.couleurFamille)) << texte;
    }
}

TEST(FichierCouleurs, LigneAbimeeNommeeRienNeChange)
{
    for (auto [texte, attendu] :
         {std::pair{"couleurTrace=255\ncouleurFamille=abc\n", "ligne 2 : la valeur « abc » de couleurFamille"},
          {"couleurTrace=16777216", "ligne 1 : la valeur « 16777216 »"},
          {"couleurTrace=2.5", "ligne 1 : la valeur « 2.5 »"},
          {"couleurTrace=", "ligne 1 : la valeur «  » de couleurTrace"},
          {"couleurTrace=255\r\n\r\ncouleurInconnue=3", "ligne 3 : couleur inconnue « couleurInconnue »"},
          {"couleurFond=0", "ligne 1 : couleur inconnue « couleurFond »"},
          {"couleurTrace 255", "ligne 1 : « nom=valeur » attendu"}}) {
        SchemaCouleurs s;
        s.couleurTrace = 0xABCDEF;
        const Erreur e = analyseCouleurs(texte, "/d/couleurs.txt", s);
        ASSERT_TRUE(e) << texte;
        EXPECT_EQ(e.message().rfind("Fichier « /d/couleurs.txt », ", 0), 0u) << e.message();
        EXPECT_NE(e.message().find(attendu), std::string::npos) << e.message();
        EXPECT_EQ(s.couleurTrace, 0xABCDEFu) << texte;
    }
    SchemaCouleurs s;
    EXPECT_NE(lisCouleurs("/aucun/dossier/couleurs.txt", s).message().find("couleurs.txt"), std::string::npos);
    EXPECT_EQ(valeurs(s), valeurs(SchemaCouleurs{}));
}
}  // namespace
}  // namespace velorin
