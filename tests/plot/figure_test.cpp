#include "plot/figure.h"

#include <gtest/gtest.h>

#include <sstream>

#include "base/ecriture.h"
#include "commun/commun.h"
#include "plot/dessin_etiquettes.h"

namespace velorin {
namespace {

using namespace essai;

// Lines 1 to 4 of a space figure on "Lisurf.lsu".
const std::string entete = "False\r\nLisurf.lsu\r\n-10  10 -10  10 -5  5.5 \r\n"
                           " 30  20  15  5 -30 -20 -15  0.25 \r\n";

// One drawn curve: 32 lines, one number each, the blanks around it.
std::string courbe(int numero, double tmax)
{
    std::ostringstream s;
    s << " 65535 \r\n";  // couleurTrace, yellow
    for (int i = 0; i < 6; ++i)
        s << " 16711680 \r\n";
    s << " 0 \r\n " << tmax << " \r\n 0.05 \r\n-1.5 \r\n 6.28 \r\n 0.1 \r\n 1 \r\n";  // t, a, traceContinu
    for (int i = 0; i < 7; ++i)
        s << " 0 \r\n";
    s << " 200 \r\n 40 \r\n 20 \r\n 65535 \r\n 255 \r\n 16711935 \r\n 0 \r\n";  // nbrCal, colours, segment
    s << " 2 \r\n 0 \r\n " << numero << " \r\n 1 \r\n";
    return s.str();
}

// A space state whose four folders are in a fresh temporary folder.
struct Figure : ::testing::Test {
    DossierTemporaire d;
    Etat e = etatAvecDossiers(d.chemin(), true);
};

// A label as one line: font, size, styles, colour, caption, place, shown.
std::string decrit(const Etiquette& l)
{
    std::ostringstream s;
    s << l.police << '|' << l.taille << '|' << l.gras << l.italique << l.souligne << '|' << l.couleur << '|'
      << l.texte << '|' << l.gauche << ',' << l.haut << '|' << l.visible;
    return s.str();
}

TEST_F(Figure, RelueEtReecriteAuxMemesOctets)
{
    const std::string texte = entete + " 2  1 False True \r\n 120 -60  15360  11520 \r\n" + courbe(3, 6.28) +
                              courbe(7, 12.5) +
                              "Times New Roman\r\n 12.5 \r\nTrue\r\nFalse\r\nTrue\r\n 255 \r\n"
                              "Bonjour à tous\r\n 1500 \r\n 900 \r\n";
    const ResultatFigure r = analyseFigure(texte, d / "a.fig", e);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ(r.lignesLues, 6 + 64 + 9);
    EXPECT_EQ(messageFigure(r), "Nre de fonctions 2\nNbre de labels 1");
    EXPECT_TRUE(e.fenetre.modeEspace);
    EXPECT_EQ(e.catalogue.chemin, e.fenetre.cheminEspaceCourbes + "Lisurf.lsu");
    // Each value where the drawing takes it from.
    const auto& l = e.courbes.lignes;
    ASSERT_EQ(e.courbes.nbCourbes, 2);
    EXPECT_EQ((std::vector<double>{e.param.zmin, e.param.zmax, e.param.Zviseur, e.param.pasRota, e.param.Ydirection,
                                   e.param.Rotadir, r.geometrie.gauche, r.geometrie.haut, l[1][colTmax],
                                   l[1][colAmin], l[1][colNumero], l[0][colCouleurRayon]}),
              (std::vector<double>{-5, 5.5, 15, 5, -20, 0.25, 120, -60, 12.5, -1.5, 7, 16711935}));
    ASSERT_EQ(e.etiquettes.nombre(), 1);
    EXPECT_EQ(decrit(e.etiquettes.lb[1]), "Times New Roman|12.5|101|255|Bonjour à tous|1500,900|1");
    EXPECT_EQ(e.etiquettes.doubles.size(), 2U);
    EXPECT_EQ(texteFigure(e, r.geometrie), texte);
    ASSERT_FALSE(ecrisFigure(d / "b.fig", e, r.geometrie));  // written whole: the same bytes again
    EXPECT_EQ(lisFichier(d / "b.fig"), texte);
}

TEST_F(Figure, LePlusDeCourbesEtDeLabelsFaitLAllerRetour)
{
    std::string texte = entete + " 32767  300 True False \r\n 0  0  9000  6000 \r\n";
    for (int i = 1; i <= maxCourbes; ++i)
        texte += courbe(i, i * 0.5);
    for (int k = 1; k <= 300; ++k)
        texte += "Arial\r\n 8 \r\nFalse\r\nFalse\r\nFalse\r\n-2147483648 \r\nL" + std::to_string(k) + "\r\n " +
                 std::to_string(k * 10) + " \r\n 0 \r\n";
    const ResultatFigure r = analyseFigure(texte, "max.fig", e);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ((std::vector<double>{double(e.courbes.nbCourbes), e.courbes.lignes.back()[colNumero],
                                   double(e.etiquettes.nombre()), double(e.etiquettes.lb[300].couleur)}),
              (std::vector<double>{maxCourbes, maxCourbes, 300, INT32_MIN}));
    EXPECT_TRUE(e.fenetre.inversionVideo && !r.referenceFond);
    // The flag is written again from the state: the reference colour is the
    // background recorded by the reading, so True.
    texte.replace(texte.find("True False"), 10, "True True");
    EXPECT_EQ(texteFigure(e, r.geometrie), texte);
}

TEST_F(Figure, LeDrapeauDeReferenceChoisitLaCouleurDEffacement)
{
    // The scheme's background (white, or the window's own black), the two flags read, the colour
    // cleared to and the reference flag written back, in a figure of six lines.
    for (auto [fondBlanc, inversion, reference, couleurFond, reecrit] :
         {std::tuple{1, false, true, 0x000000u, true}, {1, false, false, 0xFFFFFFu, false},
          {1, true, true, 0xFFFFFFu, true}, {1, true, false, 0x000000u, false}, {0, false, false, 0x000000u, true}}) {
        e = etatAvecDossiers(d.chemin(), true);
        e.courbes.lignes.assign(3, LigneCourbe{}), e.courbes.nbCourbes = 3;  // a figure of none clears them
        e.param.fondBlanc = fondBlanc;
        auto ligne5 = [&](bool ref) {
            return std::string(" 0  0 ") + (inversion ? "True " : "False ") + (ref ? "True" : "False") + " \r\n";
        };
        const ResultatFigure r = analyseFigure(entete + ligne5(reference) + " 0  0  15360  11520 \r\n", "a.fig", e);
        ASSERT_FALSE(r.erreur) << r.erreur.message();
        EXPECT_EQ(e.couleurs.couleurFond, couleurFond) << ligne5(reference) << fondBlanc;
        EXPECT_NE(texteFigure(e, r.geometrie).find(ligne5(reecrit)), std::string::npos) << ligne5(reecrit);
    }
}

TEST_F(Figure, VirgulesDecimalesEtMotsAnciensLus)
{
    const std::string texte =
        "faux\r\nLisurf.lsu\r\n-10,5  10,25 -10  10 -5  5 \r\n"
        " 30,5  20  15,25  5 -30 -20 -15  0 \r\n 0  1 Faux Vrai \r\n 0  0  100,5  200 \r\n"
        "Arial\r\n 9,5 \r\nVRAI\r\nfalse\r\nFaux\r\n 65280 \r\ntexte \xE0 afficher\r\n 10,5 \r\n 20 \r\n";
    const ResultatFigure r = analyseFigure(texte, "virgule.fig", e);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ((std::vector<double>{e.param.xmin, e.param.xmax, e.param.Xviseur, e.param.Zviseur, r.geometrie.largeur}),
              (std::vector<double>{-10.5, 10.25, 30.5, 15.25, 100.5}));
    EXPECT_EQ(decrit(e.etiquettes.lb[1]), "Arial|9.5|100|65280|texte à afficher|10.5,20|1");  // Windows-1252
}

TEST_F(Figure, UneFigureDuPlanChangeModeDossiersEtCatalogue)
{
    const std::string texte = "True\r\nLico.lsu\r\n-5  5 -3  3 -10  10 \r\n 30  20  15  5 -30 -20 -15  0 \r\n"
                              " 0  0 False True \r\n 0  0  15360  11520 \r\n";
    const ResultatFigure r = analyseFigure(texte, "plan.fig", e);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    const EtatFenetre& f = e.fenetre;
    EXPECT_TRUE(f.modePlan && !f.modeEspace && e.param.ymin == -3);
    EXPECT_EQ(f.dossierCourbes + "|" + f.dossierFig + "|" + f.fichierCatalogue + "|" + e.catalogue.chemin,
              f.cheminPlanCourbes + "|" + f.cheminPlanFig + "|Lico.lsu|" + f.cheminPlanCourbes + "Lico.lsu");
    // A catalogue named with a folder is looked for by its name alone; a
    // catalogue that must exist and does not is refused on line 2.
    std::string autre = texte;
    autre.replace(autre.find("Lico.lsu"), 8, "C:\\Velorin\\Plan_courbes\\Absent.lsu");
    OptionsFigure o;
    o.catalogueExistant = true;
    const ResultatFigure r2 = analyseFigure(autre, "plan.fig", e, o);
    ASSERT_TRUE(r2.erreur);
    EXPECT_NE(r2.erreur.message().find("ligne 2 :"), std::string::npos) << r2.erreur.message();
    EXPECT_NE(r2.erreur.message().find("Absent.lsu"), std::string::npos);
    EXPECT_FALSE(fs::exists(f.cheminPlanCourbes + "Absent.lsu"));
    EXPECT_EQ(f.fichierCatalogue, "Absent.lsu");
    EXPECT_EQ(r2.erreur.message().find(".."), std::string::npos) << r2.erreur.message();  // one full stop
    // A catalogue name that is not UTF-8, written and read back, names the same file.
    e.fenetre.fichierCatalogue = "\xFF\xFE.lsu";
    ecrisFichier(f.dossierCourbes + f.fichierCatalogue, "");
    const std::string brut = texteFigure(e, {});
    ASSERT_FALSE(analyseFigure(brut, "brut.fig", e).erreur);
    EXPECT_EQ(e.catalogue.chemin, f.cheminPlanCourbes + "\xFF\xFE.lsu");
}

// Each damaged figure is refused on its line; what came before stays.
TEST_F(Figure, FiguresAbimeesRefuseesAvecLeurLigne)
{
    const std::string debut5 = entete + " 2  1 False True \r\n 0  0  15360  11520 \r\n";
    const std::string deuxCourbes = debut5 + courbe(3, 6.28) + courbe(7, 12.5);
    const std::string label = deuxCourbes + "Arial\r\n 10 \r\nTrue\r\nFalse\r\nTrue\r\n";
    std::string courbeAbimee = courbe(3, 6.28);
    courbeAbimee.replace(courbeAbimee.find("0.05"), 4, "0.o5");
    const auto numero = [](const char* n) { std::string c = courbe(3, 6.28); return c.replace(c.rfind(" 3 "), 3, n); };
    // Row: text, damaged line, part of the message, curves read, line 1 read as a plane figure.
    const std::vector<std::tuple<std::string, int, const char*, int, bool>> cas = {
        {"Peut-être\r\n", 1, "True ou False attendu", 0, false},
        {"True\r\n  \r\n", 2, "nom du catalogue est vide", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -5 \r\n", 3, "6 valeurs attendues", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  dix -5  5 \r\n", 3, "n'est pas un nombre", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -1e39  5 \r\n", 3, "simple précision", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -5  1e999 \r\n", 3, "hors des nombres représentables", 0, true},
        {"True\r\n" + std::string(5000, 'n') + "\r\n", 2, "5000 octets ; le nom du catalogue en a au plus 4096", 0, true},
        {entete, 5, "les nombres de courbes et de labels, les deux couleurs manquent", 0, false},
        {entete + "-1  0 False True \r\n", 5, "0 à 32767 attendu", 0, false},
        {entete + " 32768  0 False True \r\n", 5, "0 à 32767 attendu", 0, false},
        {entete + " 0  0 Non True \r\n", 5, "True ou False attendu", 0, false},
        {entete + " 0  0 False True \r\n 0  0  15360 \r\n", 6, "4 valeurs attendues", 0, false},
        {debut5 + courbe(3, 6.28) + " 65535 \r\n", 6 + 32 + 2, "la figure s'arrête là", 1, false},
        {debut5 + courbeAbimee, 6 + 10, "« 0.o5 » n'est pas un nombre", 0, false},
        {debut5 + courbe(3, 6.28) + " 1  2 \r\n", 6 + 33, "une seule valeur attendue", 1, false},
        {debut5 + numero("1e20"), 6 + 31, "« 1e20 » pour le numéro d'entrée d'une courbe tracée : -2147483648", 0, false},
        {debut5 + numero("2147483648"), 6 + 31, "« 2147483648 » pour le numéro d'entrée", 0, false},
        {deuxCourbes + "Arial\r\n 0 \r\n", 6 + 64 + 2, "plus de 0 et au plus 2048", 2, false},
        {label + " 1E10 \r\n", 6 + 64 + 6, "la couleur d'un label", 2, false},
        {label + " 0 \r\nTexte\r\n 10 \r\n", 6 + 64 + 9, "la figure s'arrête là", 2, false},
    };
    for (const auto& [texte, ligne, extrait, courbesLues, modePlanLu] : cas) {
        e = etatAvecDossiers(d.chemin(), true);
        e.param.xmax = 99;
        e.etiquettes.lb.resize(3);
        const ResultatFigure r = analyseFigure(texte, "abimee.fig", e);
        ASSERT_TRUE(r.erreur) << extrait;
        const std::string& m = r.erreur.message();
        EXPECT_EQ(m.rfind("Figure « abimee.fig », ligne " + std::to_string(ligne) + " :", 0), 0U) << m;
        EXPECT_NE(m.find(extrait), std::string::npos) << m;
        EXPECT_EQ(r.lignesLues, ligne - 1);
        // The values read before the damaged line stay in force.
        EXPECT_EQ(e.param.xmax, ligne > 3 ? 10 : 99) << m;
        EXPECT_EQ(e.fenetre.modePlan, modePlanLu) << m;
        EXPECT_EQ(e.courbes.nbCourbes, courbesLues) << m;
        EXPECT_EQ(e.etiquettes.nombre(), 0) << m;
    }
}

TEST_F(Figure, EcritureEntiereOuRien)
{
    const std::string chemin = d / "garde.fig";
    ecrisFichier(chemin, "ancienne");
    e.courbes.lignes.assign(2, LigneCourbe{});
    e.param.Xviseur = std::numeric_limits<double>::infinity();
    EXPECT_NE(ecrisFigure(chemin, e, {}).message().find("Xviseur"), std::string::npos);
    e.param.Xviseur = 30;
    simuleDisquePlein(100);
    const Erreur plein = ecrisFigure(chemin, e, {});
    simuleDisquePlein(-1);
    ASSERT_TRUE(plein);
    EXPECT_EQ(lisFichier(chemin), "ancienne");
    // A caption of two lines is kept on one line of the file.
    e.etiquettes.lb.push_back(Etiquette{});
    e.etiquettes.lb[1].texte = "deux\r\nlignes";
    ASSERT_FALSE(ecrisFigure(chemin, e, {}));
    EXPECT_NE(lisFichier(chemin).find("\r\ndeux  lignes\r\n"), std::string::npos);
}

// Before the program ends on a formula it cannot read: the screen less that
// curve (read back, it would end the program again), in the mode's figure
// folder; or why it could not be saved.
TEST_F(Figure, SecoursSansLaCourbeQuiArreteLeProgramme)
{
    for (double numero : {3, 7, 9}) {
        LigneCourbe l{};
        l[colNumero] = numero;
        ajouteCourbe(e.courbes, l);
    }
    const std::string chemin = e.fenetre.dossierFig + nomFigureSecours;
    EXPECT_EQ(sauveSecours(e, 2, {}).rfind("L'écran est sauvé dans « " + chemin + " »", 0), 0u);
    Etat relu = e;
    ASSERT_FALSE(analyseFigure(lisFichier(chemin), chemin, relu).erreur);
    std::vector<double> numeros;
    for (const LigneCourbe& l : relu.courbes.lignes)
        numeros.push_back(l[colNumero]);
    EXPECT_EQ(numeros, (std::vector<double>{3, 9}));
    e.fenetre.dossierFig = d / "absent/";
    EXPECT_EQ(sauveSecours(e, 1, {}).rfind("L'écran n'a pas pu être sauvé : ", 0), 0u);
}

TEST(DessinEtiquettes, ChaqueLabelVisibleASaPlaceDansSaPolice)
{
    Etiquettes et;
    et.lb[0].visible = true;  // the template is never drawn
    for (auto [texte, gauche, haut, couleur, visible] :
         {std::tuple{"un", 100, 200, 0xFF, true}, {"caché", 1, 1, 0, false}, {"", 1, 1, 0, true},
          {"deux\nlignes", 300, 400, int(0xFF00FF00), true}}) {
        Etiquette e;
        e.texte = texte, e.police = "Courier New", e.taille = 14;
        e.gauche = float(gauche), e.haut = float(haut), e.couleur = couleur, e.visible = visible;
        et.lb.push_back(e);
    }
    SurfaceEnregistreuse surface;
    surface.CurrentX = 7;
    surface.FontName = "Arial";
    dessineEtiquettes(et, surface);
    std::vector<std::string> ecrits;
    for (const auto& op : surface.operations()) {
        std::ostringstream s;
        s << op.texte << '@' << op.x1 << ',' << op.y1 << ' ' << std::hex << op.couleur << ' ' << op.police << ' '
          << std::dec << op.taille;
        ecrits.push_back(s.str());
    }
    EXPECT_EQ(ecrits, (std::vector<std::string>{"un@100,200 ff Courier New 14", "deux@300,400 ff00 Courier New 14",
                                                "lignes@300,736 ff00 Courier New 14"}));  // 1.2 x 14 pt lower
    EXPECT_EQ(surface.CurrentX, 7);  // the pen is put back
    EXPECT_EQ(surface.FontName, "Arial");
}

}  // namespace
}  // namespace velorin
