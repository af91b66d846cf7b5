#include <gtest/gtest.h>

#include <algorithm>

#include "commun/commun.h"
#include "plot/demande.h"

namespace velorin {
namespace {

using namespace essai;

// A space state on a small catalogue: a circle, a circle whose formula has an
// unclosed bracket, a spherical curve, a blank entry and an entry of a negative kind.
struct Demande : ::testing::Test {
    DossierTemporaire dossier;
    Etat etat = etatCalibre(true);
    SurfaceEnregistreuse s;
    int bips = 0;
    CrochetsTrace crochets;
    void SetUp() override
    {
        crochets.bip = [this] { ++bips; };
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "essai.lsu"));
        for (const LigneCatalogue& e :
             {LigneCatalogue{1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"},
              LigneCatalogue{1, "x=f1(t)=sin(t][y=f2(t)=t][z=f3(t)=0"},
              LigneCatalogue{3, "R=f1(t)=2][Agh=f2(t)=t][Agv=f3(t)=0"}, LigneCatalogue{0, std::string(300, ' ')},
              LigneCatalogue{-1, "0<x^2+y^2<4"}})
            ASSERT_FALSE(ecrisLigne(etat.catalogue, etat.catalogue.nbLignesCatalogue + 1, e));
        etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.5;
    }
    ResultatTrace demande(Surface& surface, int numero, int ligne = 0)
    {
        return demandeTrace(etat, surface, numero, OptionsTrace{ligne}, crochets);
    }
};

TEST_F(Demande, DemandeRefuseeNeTraceRienNiNAjouteDeLigne)
{
    int debuts = 0;
    crochets.debut = [&](const std::string&) { ++debuts; };
    for (auto [numero, ligne, message] :
         {std::tuple{0, 0, "L'entrée n° 0 n'existe pas dans le catalogue (5 entrées) : rien n'est tracé."},
          {1, 1, "La courbe tracée n° 1 n'existe pas."}}) {
        const ResultatTrace r = demande(s, numero, ligne);
        EXPECT_EQ(r.erreur.message(), message);
        EXPECT_FALSE(r.trace || r.ligne);
    }
    EXPECT_EQ(debuts, 0);
    EXPECT_TRUE(s.operations().empty());
    EXPECT_EQ(etat.courbes.nbCourbes, 0);
}

TEST_F(Demande, NouvelleCourbeRemplitUneLigne)
{
    etat.couleurs.couleurTrace = 0xFF;
    std::string legende;
    crochets.debut = [&](const std::string& l) { legende = l; };
    const ResultatTrace r = demande(s, 1);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_TRUE(r.trace && r.ligne == 1 && etat.trace.typeTrace == 1);
    EXPECT_EQ(legende, "[x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4] TRACE DE COURBES...");
    EXPECT_EQ(etat.moteur.formuleF1 + "|" + etat.moteur.formuleF3 + "|" + ligneCourbeTracee(etat.courbes, 1),
              "COS(T)|T/4|01/001 En rouge:");
}

TEST_F(Demande, EnvoiEnCycleDonneSaCouleurAChaqueEntree)
{
    etat.couleurs.couleurTrace = 0xFFFF;  // yellow in force
    for (int rang = 0; rang < 3; ++rang)
        demandeTrace(etat, s, rang == 1 ? 3 : 1, OptionsTrace{0, ModeCouleurs::Cycle, rang}, {});
    demandeTrace(etat, s, 1, {}, {});
    std::string lignes;
    for (int i = 1; i <= etat.courbes.nbCourbes; ++i)
        lignes += ligneCourbeTracee(etat.courbes, i) + "|";
    EXPECT_EQ(lignes, "01/001 En jaune:|03/002 En rouge:|01/003 En vert:|01/004 En jaune:|");
}

// A family is drawn in the family colour: that is the colour listed, and the
// one a "Cycle" sending changes; moiré and the two-colour trellis list
// several colours.
TEST_F(Demande, FamillesListeesDansLaCouleurDuDessin)
{
    ASSERT_FALSE(
        ecrisLigne(etat.catalogue, 6, LigneCatalogue{2, "x=f1(a,t)=a*cos(t)][y=f2(a,t)=a*sin(t)][z=f3(a,t)=a"}));
    etat.param.amin = 0, etat.param.amax = 1, etat.param.pasA = 0.5;
    etat.couleurs.couleurTrace = 0xFF;      // red
    etat.couleurs.couleurFamille = 0xFF00;  // green
    const OptionsTrace cycle{0, ModeCouleurs::Cycle, 1};
    // Entry, loop order, moiré, options, row listed, colour of the first line or point drawn.
    for (auto [numero, ordre, moirure, options, ligne, couleur] :
         {std::tuple{1, 0, false, OptionsTrace{}, "01/001 En rouge:", 0xFFu},
          {6, 0, false, OptionsTrace{}, "02/002 En vert:", 0xFF00u},
          {6, 1, true, OptionsTrace{}, "02/003 En panaché", 0x800000u},  // QBColor(1)
          {6, 3, false, OptionsTrace{}, "02/004 En panaché", 0xFFu}, {6, 0, false, cycle, "02/005 En rouge:", 0xFFu}}) {
        etat.param.ordreBoucles = std::uint8_t(ordre);
        etat.param.avecMoirure = moirure;
        SurfaceEnregistreuse dessin;
        const ResultatTrace r = demandeTrace(etat, dessin, numero, options, {});
        ASSERT_FALSE(r.erreur) << r.erreur.message();
        EXPECT_EQ(ligneCourbeTracee(etat.courbes, r.ligne), ligne);
        const auto& ops = dessin.operations();
        const auto premier = std::find_if(ops.begin(), ops.end(), [](const OperationDessin& o) {
            return o.genre == Genre::Ligne || o.genre == Genre::Point;
        });
        ASSERT_NE(premier, ops.end()) << ligne;
        EXPECT_EQ(premier->couleur, couleur) << ligne;
    }
    EXPECT_EQ(etat.couleurs.couleurFamille, 0xFF00u);  // the cycle changed only the row
}

// Step 2 of a request draws nothing for a number beyond the catalogue, and
// says nothing; a blank entry and an entry of a negative kind are not
// refused but go through the dispatch (the cloud tracer, then the beep, for a
// kind none of 0 to 9). The rows follow one another: each new curve takes the next row.
TEST_F(Demande, EntreesHorsCatalogueVidesEtDeGenreNegatif)
{
    for (auto [faute, numero, trace, ligne, bipsAttendus] :
         {std::tuple{"numéro au-delà du catalogue annoncé par un message", 6, false, 0, 0},
          {"entrée blanche refusée au lieu d'être tracée", 4, true, 1, 0},
          {"genre négatif refusé au lieu du nuage et du bip", 5, true, 2, 1}}) {
        SurfaceEnregistreuse dessin;
        const ResultatTrace r = demande(dessin, numero);
        EXPECT_FALSE(r.erreur) << faute << ": " << r.erreur.message();
        EXPECT_EQ((std::vector<int>{r.trace, r.ligne, etat.courbes.nbCourbes, bips, dessin.operations().empty()}),
                  (std::vector<int>{trace, ligne, ligne, bipsAttendus, !trace}))
            << faute;
    }
}

// A kind no editor writes goes to the cloud tracer as kind 14 does: the
// same points, then the beep.
TEST_F(Demande, GenresNonEcritsTracesCommeLeNuage)
{
    std::size_t points = 0;
    for (int genre : {14, 10, 11, 12, 13, 16, 255, 32767}) {
        SurfaceEnregistreuse dessin;
        bips = 0;
        ASSERT_FALSE(ecrisLigne(etat.catalogue, 5, LigneCatalogue{std::int16_t(genre), "0<x^2+y^2<4"}));
        ASSERT_FALSE(demande(dessin, 5).erreur);
        points = genre == 14 ? dessin.operations().size() : points;
        EXPECT_EQ(std::tuple(dessin.operations().size(), bips), std::tuple(points, 1)) << genre;
    }
    EXPECT_GT(points, 0u);
}

// The row and the list line are made before the bracket test: a curve whose
// formula fails is listed, draws nothing, and its message comes back at
// each redraw. A redraw copies its row back into the parameters and they
// stay in force afterwards: colours, ranges and steps, flags and counts.
TEST_F(Demande, FormuleFausseListeeEtReditePuisValeursDeLaLigneEnVigueur)
{
    const std::string message = "La formule SIN(T est incorrecte, corrigez-la , svp";
    const ResultatTrace r = demande(s, 2);
    EXPECT_EQ(r.erreur.message(), message);
    EXPECT_EQ(r.ligne, 1);
    EXPECT_EQ(ligneCourbeTracee(etat.courbes, 1), "01/001 En jaune:");
    EXPECT_EQ(demande(s, 0, 1).erreur.message(), message);
    EXPECT_EQ(etat.courbes.nbCourbes, 1);
    EXPECT_TRUE(s.operations().empty());

    Parametres& p = etat.param;
    SchemaCouleurs& k = etat.couleurs;
    k.couleurTrace = 0xFF, k.couleurTangente = 0xFF00, p.pasT = 0.25, p.amax = 3, p.traceContinu = 1;
    p.projOx = 1, p.avecSegmentTangent = 1, p.nbrCalY = 42, p.ordreBoucles = 2;
    ASSERT_FALSE(demande(s, 1).erreur);
    const LigneCourbe ligne = etat.courbes.lignes[1];
    k.couleurTrace = 0xFF0000, k.couleurTangente = 0xFFFF, p.pasT = 0.1, p.amax = 5, p.traceContinu = 0;
    p.projOx = 0, p.avecSegmentTangent = 0, p.nbrCalY = 7, p.ordreBoucles = 0;
    ASSERT_FALSE(demande(s, 0, 2).erreur);
    EXPECT_EQ(ligneDepuisParametres(etat, 1, 1), ligne);
}

TEST(DemandeTextes, ChampsNomsDeCouleurEtLegendes)
{
    // Fields trimmed one by one, a fourth piece not read.
    EXPECT_EQ(champsEntree(2, "x=a][ y=t ][z=a+t][w=1"), (std::array<std::string, 3>{"x=a", "y=t", "z=a+t"}));
    for (auto [c, nom] : {std::pair<Couleur, const char*>{0, "En noir:"}, {0xFF, "En rouge:"}, {0xFF00, "En vert:"},
                          {0xFF0000, "En bleu:"}, {0xFFFF, "En jaune:"}, {0xFFFFFF, "En blanc:"},
                          {0xFF00FF, "En panaché"}, {0xFE, "En panaché"}})
        EXPECT_EQ(nomCouleur(c), nom);
    EXPECT_EQ(legendeFinTrace("L", 7), "L__07.00");
}

TEST(TableCourbes, LaLignePorteChaqueValeurDuDessin)
{
    Etat source;
    Parametres& p = source.param;
    p.tmin = -1.5, p.tmax = 2.5, p.pasT = 0.125, p.amin = -3, p.amax = 4, p.pasA = 0.25;
    p.projXOy = p.projXOz = p.projYOz = p.projOx = p.projOy = p.projOz = 1;
    p.traceContinu = p.avecRayon = p.avecSegmentTangent = 1;
    p.nbrCalX = 11, p.nbrCalY = 12, p.nbrCalZ = 13, p.ordreBoucles = 3, p.avecMoirure = true;
    SchemaCouleurs& c = source.couleurs;
    Couleur v = 1;
    for (Couleur* k : {&c.couleurTrace, &c.couleurFamille, &c.couleurTangente, &c.couleurRayon, &c.couleurProjOx,
                       &c.couleurProjOy, &c.couleurProjOz, &c.couleurProjXOy, &c.couleurProjXOz, &c.couleurProjYOz})
        *k = (v += 0x010203);
    const LigneCourbe ligne = ligneDepuisParametres(source, 42, 4);
    EXPECT_EQ(std::count(ligne.begin(), ligne.end(), 0.0), 0);  // every value has its column
    EXPECT_EQ((std::vector<double>{ligne[colCouleurTrace], ligne[colTmin], ligne[colNbrCalZ], ligne[colNumero]}),
              (std::vector<double>{double(c.couleurTrace), -1.5, 13, 42}));
    Etat copie;
    appliqueLigne(ligne, copie);
    EXPECT_EQ(ligneDepuisParametres(copie, 42, 4), ligne);
    TableCourbes table;
    EXPECT_EQ(ajouteCourbe(table, ligne) + ajouteCourbe(table, ligne), 3);
    EXPECT_EQ(ligneCourbeTracee(table, 2), "04/002 En panaché");
}

}  // namespace
}  // namespace velorin
