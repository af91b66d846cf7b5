// The drawing rules of a request and of its tracers, read on the journal of
// the recording surface: pen lifts at refused points, the tangent of every
// tenth point, the row of a request and the values in force after a redraw.
#include <gtest/gtest.h>

#include "commun/commun.h"
#include "plot/demande.h"
#include "plot/objets.h"
#include "plot/traceurs.h"

namespace velorin {
namespace {

using namespace essai;

FinTrace trace(int genre, Etat& etat, Surface& s)
{
    switch (genre) {
    case 0: return traceExplicite(etat, s, {});
    case 1: return parcours1(etat, s, {});
    case 2: return parcours2(etat, s, {});
    case 3: return parcours3(etat, s, {});
    default: return {false, traceObjet(etat, s, {})};
    }
}

void formules(Etat& etat, const char* f1, const char* f2, const char* f3)
{
    etat.moteur.formuleF1 = f1, etat.moteur.formuleF2 = f2, etat.moteur.formuleF3 = f3;
}

// A point the tracer refuses (out of the ranges) is not drawn but leaves the
// pen as it is: the curve coming back is joined to its last drawn point, so
// each curve starts with one dot only (row: what a lifted pen would give).
TEST(ReglesTrace, PointRefuseNeLevePasLaPlume)
{
    for (auto [faute, genre, f1, f2, f3, points] :
         {std::tuple{"courbe de t coupée en deux arcs à x = -10", 1, "12*COS(T)", "5*SIN(T)", "0", 1u},
          {"y = f(x) dans l'espace coupée en trois arcs à y = 10", 0, "12*SIN(X/2)", "", "", 1u},
          {"famille : chaque courbe coupée en deux arcs à x = -10", 2, "12*COS(T)", "A", "0", 3u}}) {
        Etat etat = etatCalibre(true);
        etat.param.traceContinu = 1, etat.param.nbrCalX = 1000;
        etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.01;
        etat.param.amin = 0, etat.param.amax = 1, etat.param.pasA = 0.5;  // three curves
        formules(etat, f1, f2, f3);
        SurfaceEnregistreuse s;
        ASSERT_FALSE(trace(genre, etat, s).erreur) << faute;
        EXPECT_EQ(duGenre(s, Genre::Point).size(), points) << faute;
        EXPECT_GT(duGenre(s, Genre::Ligne).size(), 100u) << faute;
    }
}

// Every tenth visible point issues the tangent Line with the ends stored;
// a tracer that computes no tangent leaves them on the image of (0, 0), and
// that Line of no length is part of the drawing too (row: what skipping it loses).
TEST(ReglesTrace, TangenteSansLongueurALOrigineSurChaqueDixiemePoint)
{
    for (auto [faute, espace, genre, f1, f2, f3, tangentes] :
         {std::tuple{"y = f(x) sans tangente demandée : 100 points", false, 0, "0.5*X", "", "", 10u},
          {"courbe de t : 25 points", true, 1, "T/10", "0", "0", 2u},
          {"courbe sphérique : 25 points", true, 3, "1", "T", "0", 2u},
          {"point : une marque", true, 9, "(1,2,3)", "", "", 1u}}) {
        Etat etat = etatCalibre(espace);
        etat.param.nbrCalX = 100;
        etat.param.tmin = 0, etat.param.tmax = 2.4, etat.param.pasT = 0.1;
        etat.couleurs.couleurTangente = 0x123456;
        etat.trace.typeTrace = etat.moteur.genreCourbe = genre;
        formules(etat, f1, f2, f3);
        etat.trace.tangenteX1 = etat.trace.tangenteY1 = 7;  // left by an earlier tracing
        SurfaceEnregistreuse s;
        EXPECT_FALSE(trace(genre, etat, s).erreur) << faute;
        const auto lignes = duGenre(s, Genre::Ligne, 0x123456);
        EXPECT_EQ(lignes.size(), tangentes) << faute;
        const double ox = etat.vue.origineEcranX, oy = etat.vue.origineEcranY;
        for (const auto& t : lignes)
            EXPECT_EQ((std::vector<double>{t.x1, t.y1, t.x2, t.y2}), (std::vector<double>{ox, oy, ox, oy})) << faute;
    }
}

// A space state on a small catalogue: a circle, a circle whose formula has an
// unclosed bracket, a blank entry and an entry of a negative kind.
struct Demandes {
    DossierTemporaire dossier{"velorin_regles_"};
    Etat etat = etatCalibre(true);
    int bips = 0;
    CrochetsTrace crochets;
    Demandes()
    {
        crochets.bip = [this] { ++bips; };
        EXPECT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "essai.lsu"));
        for (const LigneCatalogue& e :
             {LigneCatalogue{1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"},
              LigneCatalogue{1, "x=f1(t)=sin(t][y=f2(t)=t][z=f3(t)=0"}, LigneCatalogue{0, std::string(300, ' ')},
              LigneCatalogue{-1, "0<x^2+y^2<4"}})
            EXPECT_FALSE(ecrisLigne(etat.catalogue, etat.catalogue.nbLignesCatalogue + 1, e));
        etat.param.tmin = 0, etat.param.tmax = 6.28, etat.param.pasT = 0.5;
    }
    ResultatTrace demande(Surface& s, int numero, int ligne = 0)
    {
        return demandeTrace(etat, s, numero, OptionsTrace{ligne}, crochets);
    }
};

// Step 2 of a request draws nothing for a number beyond the catalogue, and
// says nothing; a blank entry and an entry of a negative kind are not
// refused but go through the dispatch (the cloud tracer, then the beep, for a
// kind none of 0 to 9).
TEST(ReglesTrace, EntreesHorsCatalogueVidesEtDeGenreNegatif)
{
    for (auto [faute, numero, trace, ligne, bips] :
         {std::tuple{"numéro au-delà du catalogue annoncé par un message", 5, false, 0, 0},
          {"entrée blanche refusée au lieu d'être tracée", 3, true, 1, 0},
          {"genre négatif refusé au lieu du nuage et du bip", 4, true, 1, 1}}) {
        Demandes d;
        SurfaceEnregistreuse s;
        const ResultatTrace r = d.demande(s, numero);
        EXPECT_FALSE(r.erreur) << faute << ": " << r.erreur.message();
        EXPECT_EQ((std::vector<int>{r.trace, r.ligne, d.etat.courbes.nbCourbes, d.bips, s.operations().empty()}),
                  (std::vector<int>{trace, ligne, ligne, bips, !trace}))
            << faute;
    }
}

// A kind no editor writes goes to the cloud tracer as kind 14 does: the
// same points, then the beep.
TEST(ReglesTrace, GenresNonEcritsTracesCommeLeNuage)
{
    std::size_t points = 0;
    for (int genre : {14, 10, 11, 12, 13, 16, 255, 32767}) {
        Demandes d;
        SurfaceEnregistreuse s;
        ASSERT_FALSE(ecrisLigne(d.etat.catalogue, 5, LigneCatalogue{std::int16_t(genre), "0<x^2+y^2<4"}));
        ASSERT_FALSE(d.demande(s, 5).erreur);
        points = genre == 14 ? s.operations().size() : points;
        EXPECT_EQ(std::tuple(s.operations().size(), d.bips), std::tuple(points, 1)) << genre;
    }
    EXPECT_GT(points, 0u);
}

// The row and the list line are made before the bracket test: a curve whose
// formula fails is listed, draws nothing, and its message comes back at
// each redraw. A redraw copies its row back into the parameters and they
// stay in force afterwards: colours, ranges and steps, flags and counts.
TEST(ReglesTrace, FormuleFausseListeeEtReditePuisValeursDeLaLigneEnVigueur)
{
    Demandes d;
    SurfaceEnregistreuse s;
    const std::string message = "La formule SIN(T est incorrecte, corrigez-la , svp";
    const ResultatTrace r = d.demande(s, 2);
    EXPECT_EQ(r.erreur.message(), message);
    EXPECT_EQ(r.ligne, 1);
    EXPECT_EQ(ligneCourbeTracee(d.etat.courbes, 1), "01/001 En jaune:");
    EXPECT_EQ(d.demande(s, 0, 1).erreur.message(), message);
    EXPECT_EQ(d.etat.courbes.nbCourbes, 1);
    EXPECT_TRUE(s.operations().empty());

    Parametres& p = d.etat.param;
    SchemaCouleurs& k = d.etat.couleurs;
    k.couleurTrace = 0xFF, k.couleurTangente = 0xFF00, p.pasT = 0.25, p.amax = 3, p.traceContinu = 1;
    p.projOx = 1, p.avecSegmentTangent = 1, p.nbrCalY = 42, p.ordreBoucles = 2;
    ASSERT_FALSE(d.demande(s, 1).erreur);
    const LigneCourbe ligne = d.etat.courbes.lignes[1];
    k.couleurTrace = 0xFF0000, k.couleurTangente = 0xFFFF, p.pasT = 0.1, p.amax = 5, p.traceContinu = 0;
    p.projOx = 0, p.avecSegmentTangent = 0, p.nbrCalY = 7, p.ordreBoucles = 0;
    ASSERT_FALSE(d.demande(s, 0, 2).erreur);
    EXPECT_EQ(ligneDepuisParametres(d.etat, 1, 1), ligne);
}

}  // namespace
}  // namespace velorin
