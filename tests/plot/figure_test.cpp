#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "base/ecriture.h"
#include "plot/dessin_etiquettes.h"
#include "plot/figure.h"
#include "view/surface_enregistreuse.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

// A session with its four folders in a fresh temporary folder, in space mode.
struct Seance {
    fs::path racine = fs::temp_directory_path() / ("velorin_fig_" + std::to_string(std::random_device{}()));
    Etat etat;
    Seance()
    {
        for (const char* d : {"Espace_courbes", "Espace_fig", "Plan_courbes", "Plan_fig"})
            fs::create_directories(racine / d);
        EtatFenetre& f = etat.fenetre;
        f.cheminEspaceCourbes = (racine / "Espace_courbes").string() + "/";
        f.cheminEspaceFig = (racine / "Espace_fig").string() + "/";
        f.cheminPlanCourbes = (racine / "Plan_courbes").string() + "/";
        f.cheminPlanFig = (racine / "Plan_fig").string() + "/";
        f.choisisMode(true);
    }
    ~Seance() { fs::remove_all(racine); }
    std::string chemin(const char* nom) const { return (racine / "Espace_fig" / nom).string(); }
};

std::string lisTout(const std::string& chemin)
{
    std::ifstream f(chemin, std::ios::binary);
    std::ostringstream s;
    s << f.rdbuf();
    return s.str();
}

// Lines 1 to 6 written by hand by the layout: a space figure on
// "Lisurf.lsu", two curves and one label.
const std::string entete = "False\r\n"
                           "Lisurf.lsu\r\n"
                           "-10  10 -10  10 -5  5.5 \r\n"
                           " 30  20  15  5 -30 -20 -15  0.25 \r\n";

// One drawn curve: 32 lines, one number each, the blanks around it.
std::string courbe(int numero, double tmax)
{
    std::ostringstream s;
    s << " 65535 \r\n";  // couleurTrace, yellow
    for (int i = 0; i < 6; ++i)
        s << " 16711680 \r\n";
    s << " 0 \r\n " << tmax << " \r\n 0.05 \r\n-1.5 \r\n 6.28 \r\n 0.1 \r\n";  // t and a
    s << " 1 \r\n";                                                            // traceContinu
    for (int i = 0; i < 7; ++i)
        s << " 0 \r\n";
    s << " 200 \r\n 40 \r\n 20 \r\n";                  // nbrCal
    s << " 65535 \r\n 255 \r\n 16711935 \r\n 0 \r\n";  // family, tangent, radius colours, segment
    s << " 2 \r\n 0 \r\n " << numero << " \r\n 1 \r\n";
    return s.str();
}

const std::string etiquetteBonjour = "Times New Roman\r\n 12.5 \r\nTrue\r\nFalse\r\nTrue\r\n 255 \r\n"
                                     "Bonjour à tous\r\n 1500 \r\n 900 \r\n";

std::string figureComplete()
{
    return entete + " 2  1 False True \r\n 120 -60  15360  11520 \r\n" + courbe(3, 6.28) + courbe(7, 12.5) +
           etiquetteBonjour;
}

TEST(Figure, ReadsBackAndWritesTheSameBytes)
{
    Seance s;
    const std::string texte = figureComplete();
    const ResultatFigure r = analyseFigure(texte, s.chemin("a.fig"), s.etat);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ(r.lignesLues, 6 + 64 + 9);
    EXPECT_EQ(messageFigure(r), "Nre de fonctions 2\nNbre de labels 1");
    const Etat& e = s.etat;
    EXPECT_TRUE(e.fenetre.modeEspace);
    EXPECT_EQ(e.catalogue.chemin, e.fenetre.cheminEspaceCourbes + "Lisurf.lsu");
    EXPECT_EQ(e.param.zmin, -5.0F);
    EXPECT_EQ(e.param.zmax, 5.5);
    EXPECT_EQ(e.param.Zviseur, 15.0F);
    EXPECT_EQ(e.param.pasRota, 5.0F);
    EXPECT_EQ(e.param.Ydirection, -20);
    EXPECT_EQ(e.param.Rotadir, 0.25);
    EXPECT_EQ(r.geometrie.gauche, 120);
    EXPECT_EQ(r.geometrie.haut, -60);
    ASSERT_EQ(e.courbes.nbCourbes, 2);
    EXPECT_EQ(e.courbes.lignes[1][colTmax], 12.5);
    EXPECT_EQ(e.courbes.lignes[1][colAmin], -1.5);
    EXPECT_EQ(e.courbes.lignes[1][colNumero], 7);
    EXPECT_EQ(e.courbes.lignes[0][colCouleurRayon], 16711935);
    ASSERT_EQ(e.etiquettes.nombre(), 1);
    const Etiquette& lb = e.etiquettes.lb[1];
    EXPECT_EQ(lb.police, "Times New Roman");
    EXPECT_EQ(lb.taille, 12.5F);
    EXPECT_TRUE(lb.gras && !lb.italique && lb.souligne && lb.visible);
    EXPECT_EQ(lb.couleur, 255);
    EXPECT_EQ(lb.texte, "Bonjour à tous");
    EXPECT_EQ(lb.gauche, 1500);
    EXPECT_EQ(lb.haut, 900);
    EXPECT_EQ(e.etiquettes.doubles.size(), 2U);
    EXPECT_EQ(texteFigure(e, r.geometrie), texte);

    // Through the file: written whole, the same bytes again.
    ASSERT_FALSE(ecrisFigure(s.chemin("b.fig"), e, r.geometrie));
    EXPECT_EQ(lisTout(s.chemin("b.fig")), texte);
}

TEST(Figure, TheMostCurvesAndLabelsRoundTrip)
{
    Seance s;
    std::string texte = entete + " 32767  300 True False \r\n 0  0  9000  6000 \r\n";
    for (int i = 1; i <= maxCourbes; ++i)
        texte += courbe(i, i * 0.5);
    for (int k = 1; k <= 300; ++k)
        texte += "Arial\r\n 8 \r\nFalse\r\nFalse\r\nFalse\r\n-2147483648 \r\nL" + std::to_string(k) + "\r\n " +
                 std::to_string(k * 10) + " \r\n 0 \r\n";
    const ResultatFigure r = analyseFigure(texte, "max.fig", s.etat);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ(s.etat.courbes.nbCourbes, maxCourbes);
    EXPECT_EQ(s.etat.courbes.lignes.back()[colNumero], maxCourbes);
    EXPECT_EQ(s.etat.etiquettes.nombre(), 300);
    EXPECT_EQ(s.etat.etiquettes.lb[300].couleur, INT32_MIN);
    EXPECT_TRUE(s.etat.fenetre.inversionVideo);
    EXPECT_FALSE(r.referenceFond);
    // The flag is written again from the state: the reference colour is the
    // background recorded by the reading, so True.
    std::string attendu = texte;
    attendu.replace(attendu.find("True False"), 10, "True True");
    EXPECT_EQ(texteFigure(s.etat, r.geometrie), attendu);
}

TEST(Figure, LeDrapeauDeReferenceChoisitLaCouleurDEffacement)
{
    struct Cas {
        int fondBlanc;  // the scheme's background: white, or black (the window's own)
        bool inversion, reference;
        Couleur couleurFond;
        bool reecrit;  // the flag written back
    };
    for (const Cas& c : {Cas{1, false, true, 0x000000, true}, Cas{1, false, false, 0xFFFFFF, false},
                         Cas{1, true, true, 0xFFFFFF, true}, Cas{1, true, false, 0x000000, false},
                         Cas{0, false, false, 0x000000, true}}) {
        Seance s;
        s.etat.param.fondBlanc = c.fondBlanc;
        const std::string drapeaux = std::string(c.inversion ? "True " : "False ") + (c.reference ? "True" : "False");
        const std::string texte = entete + " 0  0 " + drapeaux + " \r\n 0  0  15360  11520 \r\n";
        const ResultatFigure r = analyseFigure(texte, "a.fig", s.etat);
        ASSERT_FALSE(r.erreur) << r.erreur.message();
        EXPECT_EQ(s.etat.couleurs.couleurFond, c.couleurFond) << drapeaux << " fondBlanc " << c.fondBlanc;
        const std::string ligne5 =
            std::string(" 0  0 ") + (c.inversion ? "True " : "False ") + (c.reecrit ? "True" : "False") + " \r\n";
        EXPECT_NE(texteFigure(s.etat, r.geometrie).find(ligne5), std::string::npos) << ligne5;
    }
}

TEST(Figure, SixLineFigureReadsToAnEmptyFrameWithItsViewer)
{
    Seance s;
    s.etat.courbes.lignes.assign(3, LigneCourbe{});
    s.etat.courbes.nbCourbes = 3;
    s.etat.etiquettes.lb.resize(4);
    const std::string texte = entete + " 0  0 False True \r\n 0  0  15360  11520 \r\n";
    const ResultatFigure r = analyseFigure(texte, "vide.fig", s.etat);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ(r.lignesLues, 6);
    EXPECT_EQ(s.etat.courbes.nbCourbes, 0);
    EXPECT_TRUE(s.etat.courbes.lignes.empty());
    EXPECT_EQ(s.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(s.etat.param.Xviseur, 30);
    EXPECT_EQ(messageFigure(r), "Nre de fonctions 0\nNbre de labels 0");
    EXPECT_EQ(texteFigure(s.etat, r.geometrie), texte);
}

TEST(Figure, CommaDecimalsAndOlderWordsAreRead)
{
    Seance s;
    const std::string texte =
        "faux\r\nLisurf.lsu\r\n-10,5  10,25 -10  10 -5  5 \r\n"
        " 30,5  20  15,25  5 -30 -20 -15  0 \r\n 0  1 Faux Vrai \r\n 0  0  100,5  200 \r\n"
        "Arial\r\n 9,5 \r\nVRAI\r\nfalse\r\nFaux\r\n 65280 \r\ntexte \xE0 afficher\r\n 10,5 \r\n 20 \r\n";
    const ResultatFigure r = analyseFigure(texte, "virgule.fig", s.etat);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    EXPECT_EQ(s.etat.param.xmin, -10.5);
    EXPECT_EQ(s.etat.param.xmax, 10.25);
    EXPECT_EQ(s.etat.param.Xviseur, 30.5);
    EXPECT_EQ(s.etat.param.Zviseur, 15.25F);
    EXPECT_EQ(r.geometrie.largeur, 100.5F);
    const Etiquette& lb = s.etat.etiquettes.lb[1];
    EXPECT_EQ(lb.taille, 9.5F);
    EXPECT_TRUE(lb.gras);
    EXPECT_EQ(lb.gauche, 10.5F);
    EXPECT_EQ(lb.texte, "texte à afficher");  // a Windows-1252 caption
}

TEST(Figure, APlaneFigureSwitchesModeFoldersAndCatalogue)
{
    Seance s;
    const std::string texte = "True\r\nLico.lsu\r\n-5  5 -3  3 -10  10 \r\n 30  20  15  5 -30 -20 -15  0 \r\n"
                              " 0  0 False True \r\n 0  0  15360  11520 \r\n";
    const ResultatFigure r = analyseFigure(texte, "plan.fig", s.etat);
    ASSERT_FALSE(r.erreur) << r.erreur.message();
    const EtatFenetre& f = s.etat.fenetre;
    EXPECT_TRUE(f.modePlan);
    EXPECT_FALSE(f.modeEspace);
    EXPECT_EQ(f.dossierCourbes, f.cheminPlanCourbes);
    EXPECT_EQ(f.dossierFig, f.cheminPlanFig);
    EXPECT_EQ(f.fichierCatalogue, "Lico.lsu");
    EXPECT_EQ(s.etat.catalogue.chemin, f.cheminPlanCourbes + "Lico.lsu");
    EXPECT_EQ(s.etat.param.ymin, -3);

    // A catalogue named with a folder is looked for by its name alone; a
    // catalogue that must exist and does not is refused on line 2.
    std::string autre = texte;
    autre.replace(autre.find("Lico.lsu"), 8, "C:\\Velorin\\Plan_courbes\\Absent.lsu");
    OptionsFigure o;
    o.catalogueExistant = true;
    const ResultatFigure r2 = analyseFigure(autre, "plan.fig", s.etat, o);
    ASSERT_TRUE(r2.erreur);
    EXPECT_NE(r2.erreur.message().find("ligne 2 :"), std::string::npos) << r2.erreur.message();
    EXPECT_NE(r2.erreur.message().find("Absent.lsu"), std::string::npos);
    EXPECT_FALSE(fs::exists(f.cheminPlanCourbes + "Absent.lsu"));
    EXPECT_EQ(f.fichierCatalogue, "Absent.lsu");
}

// Each damaged figure is refused on its line; what came before stays.
TEST(Figure, DamagedFiguresAreRefusedWithTheirLine)
{
    const std::string debut5 = entete + " 2  1 False True \r\n 0  0  15360  11520 \r\n";
    const std::string deuxCourbes = debut5 + courbe(3, 6.28) + courbe(7, 12.5);
    std::string courbeAbimee = courbe(3, 6.28);
    courbeAbimee.replace(courbeAbimee.find("0.05"), 4, "0.o5");
    struct Cas {
        std::string texte;
        int ligne;
        const char* extrait;
        int courbesLues;
        bool modePlanLu;  // line 1 reached and read as a plane figure
    };
    const std::vector<Cas> cas = {
        {"", 1, "la figure s'arrête là", 0, false},
        {"Peut-être\r\n", 1, "True ou False attendu", 0, false},
        {"True\r\n  \r\n", 2, "nom du catalogue est vide", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -5 \r\n", 3, "6 valeurs attendues", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  dix -5  5 \r\n", 3, "n'est pas un nombre", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -1e39  5 \r\n", 3, "simple précision", 0, true},
        {"True\r\nLico.lsu\r\n-10  10 -10  10 -5  1e999 \r\n", 3, "hors des nombres représentables", 0, true},
        {entete + "-1  0 False True \r\n", 5, "0 à 32767 attendu", 0, false},
        {entete + " 32768  0 False True \r\n", 5, "0 à 32767 attendu", 0, false},
        {entete + " 0  0 Non True \r\n", 5, "True ou False attendu", 0, false},
        {entete + " 0  0 False True \r\n 0  0  15360 \r\n", 6, "4 valeurs attendues", 0, false},
        {debut5 + courbe(3, 6.28) + " 65535 \r\n", 6 + 32 + 2, "la figure s'arrête là", 1, false},
        {debut5 + courbeAbimee, 6 + 10, "« 0.o5 » n'est pas un nombre", 0, false},
        {debut5 + courbe(3, 6.28) + " 1  2 \r\n", 6 + 33, "une seule valeur attendue", 1, false},
        {deuxCourbes, 6 + 64 + 1, "la figure s'arrête là", 2, false},
        {deuxCourbes + "Arial\r\n 0 \r\n", 6 + 64 + 2, "plus de 0 et au plus 2048", 2, false},
        {deuxCourbes + "Arial\r\n 10 \r\nTrue\r\nFalse\r\nTrue\r\n 1E10 \r\n", 6 + 64 + 6, "la couleur d'un label", 2,
         false},
        {deuxCourbes + "Arial\r\n 10 \r\nTrue\r\nFalse\r\nTrue\r\n 0 \r\nTexte\r\n 10 \r\n", 6 + 64 + 9,
         "la figure s'arrête là", 2, false},
    };
    for (const Cas& c : cas) {
        Seance s;
        s.etat.param.xmax = 99;
        s.etat.etiquettes.lb.resize(3);
        const ResultatFigure r = analyseFigure(c.texte, "abimee.fig", s.etat);
        ASSERT_TRUE(r.erreur) << c.extrait;
        const std::string& m = r.erreur.message();
        EXPECT_EQ(m.rfind("Figure « abimee.fig », ligne " + std::to_string(c.ligne) + " :", 0), 0U) << m;
        EXPECT_NE(m.find(c.extrait), std::string::npos) << m;
        EXPECT_EQ(r.lignesLues, c.ligne - 1);
        // The values read before the damaged line stay in force.
        EXPECT_EQ(s.etat.param.xmax, c.ligne > 3 ? 10 : 99) << m;
        EXPECT_EQ(s.etat.fenetre.modePlan, c.modePlanLu) << m;
        EXPECT_EQ(s.etat.courbes.nbCourbes, c.courbesLues) << m;
        EXPECT_EQ(s.etat.etiquettes.nombre(), 0) << m;
    }
}

TEST(Figure, WritingIsWholeOrNothing)
{
    Seance s;
    const std::string chemin = s.chemin("garde.fig");
    ASSERT_FALSE(ecrisFichierEntier(chemin, "ancienne"));
    s.etat.courbes.lignes.assign(2, LigneCourbe{});
    s.etat.param.Xviseur = std::numeric_limits<double>::infinity();
    const Erreur infini = ecrisFigure(chemin, s.etat, {});
    ASSERT_TRUE(infini);
    EXPECT_NE(infini.message().find("Xviseur"), std::string::npos);
    s.etat.param.Xviseur = 30;
    simuleDisquePlein(100);
    const Erreur plein = ecrisFigure(chemin, s.etat, {});
    simuleDisquePlein(-1);
    ASSERT_TRUE(plein);
    EXPECT_EQ(lisTout(chemin), "ancienne");
    // A caption of two lines is kept on one line of the file.
    s.etat.etiquettes.lb.push_back(Etiquette{});
    s.etat.etiquettes.lb[1].texte = "deux\r\nlignes";
    ASSERT_FALSE(ecrisFigure(chemin, s.etat, {}));
    EXPECT_NE(lisTout(chemin).find("\r\ndeux  lignes\r\n"), std::string::npos);
}

TEST(DessinEtiquettes, EachVisibleLabelIsPrintedAtItsPlaceInItsFont)
{
    Etiquettes et;
    auto ajoute = [&](const char* texte, float gauche, float haut, std::int32_t couleur, bool visible) {
        Etiquette e;
        e.texte = texte;
        e.police = "Courier New";
        e.taille = 14;
        e.gauche = gauche;
        e.haut = haut;
        e.couleur = couleur;
        e.visible = visible;
        et.lb.push_back(e);
    };
    et.lb[0].visible = true;  // the template is never drawn
    ajoute("un", 100, 200, 0xFF, true);
    ajoute("caché", 1, 1, 0, false);
    ajoute("", 1, 1, 0, true);
    ajoute("deux\nlignes", 300, 400, static_cast<std::int32_t>(0xFF00FF00), true);
    SurfaceEnregistreuse surface;
    surface.CurrentX = 7;
    surface.FontName = "Arial";
    dessineEtiquettes(et, surface);
    const auto& ops = surface.operations();
    struct Attendu {
        const char* texte;
        double x, y;
        Couleur couleur;
    };
    const double ligne = 1.2 * 14 * 20;
    const Attendu attendus[] = {
        {"un", 100, 200, 0xFF}, {"deux", 300, 400, 0xFF00}, {"lignes", 300, 400 + ligne, 0xFF00}};
    ASSERT_EQ(ops.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(ops[i].texte, attendus[i].texte);
        EXPECT_EQ(ops[i].x1, attendus[i].x);
        EXPECT_EQ(ops[i].y1, attendus[i].y);
        EXPECT_EQ(ops[i].couleur, attendus[i].couleur);
        EXPECT_EQ(ops[i].police, "Courier New");
        EXPECT_EQ(ops[i].taille, 14);
    }
    EXPECT_EQ(surface.CurrentX, 7);
    EXPECT_EQ(surface.FontName, "Arial");
}

}  // namespace
}  // namespace velorin
