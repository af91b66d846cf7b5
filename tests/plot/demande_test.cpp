#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "outils_trace.h"
#include "plot/demande.h"

namespace velorin {
namespace {

using namespace essai;
namespace fs = std::filesystem;

// A space state on a catalogue of a few entries in a temporary folder.
class Demande : public ::testing::Test {
protected:
    void SetUp() override
    {
        dossier = fs::temp_directory_path() / ("velorin_dem_" + std::to_string(std::random_device{}()));
        fs::create_directories(dossier);
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, (dossier / "essai.lsu").string()));
        const LigneCatalogue entrees[] = {
            {1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"},
            {1, "x=f1(t)=sin(t][y=f2(t)=t][z=f3(t)=0"},
            {3, "R=f1(t)=2][Agh=f2(t)=t][Agv=f3(t)=0"},
            {0, std::string(300, ' ')},
        };
        for (const auto& e : entrees)
            ASSERT_FALSE(ecrisLigne(etat.catalogue, etat.catalogue.nbLignesCatalogue + 1, e));
        etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.5;
    }
    void TearDown() override { fs::remove_all(dossier); }

    fs::path dossier;
    Etat etat = etatCalibre(true);
};

TEST_F(Demande, RefusedRequestsDrawNothingAndAddNoRow)
{
    struct Cas { int numero; OptionsTrace options; const char* message; };
    const Cas cas[] = {
        {0, {}, "L'entrée n° 0 n'existe pas dans le catalogue (4 entrées) : rien n'est tracé."},
        {5, {}, "L'entrée n° 5 n'existe pas dans le catalogue (4 entrées) : rien n'est tracé."},
        {2, {}, "La formule SIN(T est incorrecte, corrigez-la , svp"},
        {4, {}, "L'entrée n° 4 est effacée : rien n'est tracé."},
        {1, {1}, "La courbe tracée n° 1 n'existe pas."},
    };
    for (const Cas& c : cas) {
        SurfaceEnregistreuse s;
        int debuts = 0;
        CrochetsTrace crochets;
        crochets.debut = [&](const std::string&) { ++debuts; };
        const ResultatTrace r = demandeTrace(etat, s, c.numero, c.options, crochets);
        EXPECT_EQ(r.message, c.message);
        EXPECT_FALSE(r.trace);
        EXPECT_EQ(r.ligne, 0);
        EXPECT_EQ(debuts, 0);
        EXPECT_TRUE(s.operations().empty()) << c.numero;
        EXPECT_EQ(etat.courbes.nbCourbes, 0);
    }
}

TEST_F(Demande, NewCurveFillsARowAndTheFormulasThenRedrawUsesTheRow)
{
    etat.couleurs.couleurTrace = 0xFF;
    SurfaceEnregistreuse premier;
    std::string legende;
    CrochetsTrace crochets;
    crochets.debut = [&](const std::string& l) { legende = l; };
    const ResultatTrace r = demandeTrace(etat, premier, 1, {}, crochets);
    ASSERT_TRUE(r.message.empty()) << r.message;
    EXPECT_TRUE(r.trace);
    EXPECT_EQ(r.ligne, 1);
    EXPECT_EQ(legende, "[x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4] TRACE DE COURBES...");
    EXPECT_EQ(r.legende, legende);
    EXPECT_EQ(etat.moteur.formuleF1, "COS(T)");
    EXPECT_EQ(etat.moteur.formuleF3, "T/4");
    EXPECT_EQ(etat.trace.typeTrace, 1);
    EXPECT_EQ(etat.courbes.nbCourbes, 1);
    EXPECT_EQ(etat.courbes.lignes[0][colNumero], 1);
    EXPECT_EQ(etat.courbes.lignes[0][colPasT], 0.5);
    EXPECT_EQ(ligneCourbeTracee(etat.courbes, 1), "01/001 En rouge:");
    EXPECT_FALSE(premier.operations().empty());

    // New values in force; the redraw takes the row's and puts the new ones back.
    etat.param.pasT = 0.05;
    etat.couleurs.couleurTrace = 0xFF00;
    etat.couleurs.couleurFamille = 0x123456;
    SurfaceEnregistreuse retrace;
    EXPECT_TRUE(retraceTout(etat, retrace, {}).empty());
    EXPECT_EQ(retrace.journal(), premier.journal());
    EXPECT_EQ(etat.courbes.nbCourbes, 1);
    EXPECT_EQ(etat.param.pasT, 0.05);
    EXPECT_EQ(etat.couleurs.couleurTrace, 0xFF00u);
    EXPECT_EQ(etat.couleurs.couleurFamille, 0x123456u);
}

TEST_F(Demande, CycleSendingGivesEachEntryItsColour)
{
    etat.couleurs.couleurTrace = 0xFFFF;  // yellow in force
    SurfaceEnregistreuse s;
    for (int rang = 0; rang < 3; ++rang)
        demandeTrace(etat, s, rang == 1 ? 3 : 1, OptionsTrace{0, ModeCouleurs::Cycle, rang}, {});
    demandeTrace(etat, s, 1, {}, {});
    std::vector<std::string> lignes;
    for (int i = 1; i <= etat.courbes.nbCourbes; ++i)
        lignes.push_back(ligneCourbeTracee(etat.courbes, i));
    EXPECT_EQ(lignes, (std::vector<std::string>{"01/001 En jaune:", "03/002 En rouge:",
                                                "01/003 En vert:", "01/004 En jaune:"}));
    EXPECT_EQ(etat.couleurs.couleurTrace, 0xFFFFu);
}

TEST(DemandeTextes, FieldsOfEachKindOfEntry)
{
    using C = std::array<std::string, 3>;
    struct Cas { int type; const char* texte; C champs; };
    const Cas cas[] = {
        {0, "y = f(x)=x^2      ", C{"y = f(x)=x^2", "", ""}},
        {2, "x=a][ y=t ][z=a+t][w=1", C{"x=a", "y=t", "z=a+t"}},
        {5, "D(M,u):[(1,2,3)][(0,1,0)]  ", C{"(1,2,3)", "(0,1,0)", ""}},
        {6, "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]", C{"(0,0,0)", "(1,0,0)", "(0,1,0)"}},
        {7, "Plan:[2x + 3y - z = 1]", C{"2x + 3y - z = 1", "", ""}},
        {9, "Point:[(1,2,3)]", C{"(1,2,3)", "", ""}},
        {14, "x^2 < y < 4 ", C{"x^2", "y", "4"}},
        {11, "a<b", C{"a", "b", ""}},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(champsEntree(c.type, c.texte), c.champs) << c.texte;
}

TEST(DemandeTextes, ColourNamesCaptionsAndCycle)
{
    struct Nom { Couleur c; const char* nom; };
    for (Nom n : {Nom{0, "En noir:"}, Nom{0xFF, "En rouge:"}, Nom{0xFF00, "En vert:"},
                  Nom{0xFF0000, "En bleu:"}, Nom{0xFFFF, "En jaune:"}, Nom{0xFFFFFF, "En blanc:"},
                  Nom{0xFF00FF, "En panaché"}, Nom{0xFE, "En panaché"}})
        EXPECT_EQ(nomCouleur(n.c), n.nom);

    struct Fin { int dixiemes; const char* attendu; };
    for (Fin f : {Fin{0, "L__00.00"}, Fin{7, "L__07.00"}, Fin{37, "L__37.00"}, Fin{1234, "L__1234.00"}})
        EXPECT_EQ(legendeFinTrace("L", f.dixiemes), f.attendu);

    const CouleursDefaut d;
    struct Cycle { Couleur enCours; int rang; Couleur attendue; };
    for (Cycle c : {Cycle{0xFFFF, 0, 0xFFFF}, Cycle{0xFFFF, 1, d.coulRouge},
                    Cycle{0xFFFF, 4, d.coulCyan}, Cycle{0xFF, 1, d.coulVert},
                    Cycle{0xFF, 6, d.coulOrange}, Cycle{0xFF, 7, 0xFF},
                    Cycle{0x123456, 1, d.coulRouge}, Cycle{0x123456, 8, 0x123456}})
        EXPECT_EQ(couleurCycle(d, c.enCours, c.rang), c.attendue) << c.enCours << " " << c.rang;
}

TEST(TableCourbes, RowCarriesEveryDrawingValueInTheFileOrder)
{
    // The first groups of the figure file's order.
    EXPECT_EQ((std::vector<int>{colCouleurTrace, colTmin, colPasA, colTraceContinu, colProjXOy,
                                colAvecRayon, colNbrCalX, colNbrCalZ}),
              (std::vector<int>{0, 7, 12, 13, 14, 20, 21, 23}));
    Etat source;
    Parametres& p = source.param;
    p.tmin = -1.5, p.tmax = 2.5, p.pasT = 0.125, p.amin = -3, p.amax = 4, p.pasA = 0.25;
    p.traceContinu = 0, p.projXOy = 1, p.projOz = 1, p.avecRayon = 1;
    p.nbrCalX = 11, p.nbrCalY = 12, p.nbrCalZ = 13, p.avecSegmentTangent = 1;
    p.ordreBoucles = 3, p.avecMoirure = true;
    SchemaCouleurs& c = source.couleurs;
    Couleur v = 0x010101;
    for (Couleur* k : {&c.couleurTrace, &c.couleurFamille, &c.couleurTangente, &c.couleurRayon,
                       &c.couleurProjOx, &c.couleurProjOy, &c.couleurProjOz, &c.couleurProjXOy,
                       &c.couleurProjXOz, &c.couleurProjYOz})
        *k = (v += 0x010203);
    const LigneCourbe ligne = ligneDepuisParametres(source, 42, 4);
    EXPECT_EQ(ligne[colNumero], 42);
    EXPECT_EQ(ligne[colTypeFonction], 4);

    Etat copie;
    appliqueLigne(ligne, copie);
    EXPECT_EQ(ligneDepuisParametres(copie, 42, 4), ligne);
    TableCourbes table;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ajouteCourbe(table, ligne), i + 1);
    EXPECT_EQ(table.nbCourbes, 3);
    EXPECT_EQ(ligneCourbeTracee(table, 3), "04/003 En panaché");
    EXPECT_EQ(ligneCourbeTracee(table, 4), "");
    videCourbes(table);
    EXPECT_EQ(table.nbCourbes, 0);
}

}  // namespace
}  // namespace velorin
