// The full turn drawn at once: one picture per redraw of the timers, each
// drawn with the viewing values of its tick, all written or none.
#include <gif_lib.h>

#include "commun/commun.h"
#include "qt/dessin_fichier.h"
#include "plot/redessin.h"
#include "qt/tour_anime.h"

namespace velorin::essai {
namespace {

// The journal of one redraw (clearing, then the frame) with the values of `vue`.
std::string journalDe(Etat etat, const VueDuTour& vue, const std::string& nom)
{
    appliqueVue(etat.param, vue);
    ajusteVue(etat, 200 * twipsParPixelEcran, 150 * twipsParPixelEcran);
    EcritureEntiere f(nom);
    EXPECT_FALSE(dessineDansFichier(f, FormatSortie::Texte, 200, 150, "", [&](Surface& s) {
        effaceEcran(etat, s);
        traceRepere(etat, s);
        return Erreur{};
    }));
    EXPECT_FALSE(f.termine());
    return lisFichier(nom);
}

TEST(TourAnime, ChaqueImageEstLeRedessinDeSonInstant)
{
    for (const char* axe : {"oz+", "vision-"}) {
        SCOPED_TRACE(axe);
        DossierTemporaire dossier;
        const Etat depart = etatCalibre(true);
        const SuiteDuTour suite = suiteDuTour(depart.param, EtatRotation{}, tourDeNom(axe), 1.0);
        const std::size_t n = suite.vues.size();
        ASSERT_GT(n, 20u);
        std::size_t courbes = 0;
        Redessin compte{.etiquettes = false};
        compte.progres = [&] { ++courbes; };
        Etat etat = depart;
        ResultatTour r =
            exporteTour(etat, EtatRotation{}, {tourDeNom(axe), 1.0, dossier / "t_%02d.txt", 200, 150, "", {}}, compte);
        ASSERT_FALSE(r.erreur) << r.erreur.message();
        EXPECT_EQ(std::size_t(r.images), n);
        EXPECT_EQ(courbes, n);
        EXPECT_EQ(dossier.noms().size(), n);
        for (std::size_t k : {std::size_t(1), n / 2, n}) {
            const std::string nom = dossier / ((k < 10 ? "t_0" : "t_") + std::to_string(k) + ".txt");
            EXPECT_EQ(lisFichier(nom), journalDe(depart, suite.vues[k - 1], dossier / "vue.txt")) << nom;
        }
        // The GIF: as many pictures, each shown for the timers' interval.
        etat = depart;
        r = exporteTour(etat, EtatRotation{}, {tourDeNom(axe), 1.0, dossier / "a.gif", 200, 150, "", {}}, compte);
        ASSERT_FALSE(r.erreur) << r.erreur.message();
        int code = 0;
        GifFileType* gif = DGifOpenFileName((dossier / "a.gif").c_str(), &code);
        ASSERT_NE(gif, nullptr);
        ASSERT_EQ(DGifSlurp(gif), GIF_OK);
        EXPECT_EQ(std::size_t(gif->ImageCount), n);
        GraphicsControlBlock gcb;
        ASSERT_EQ(DGifSavedExtensionToGCB(gif, gif->ImageCount - 1, &gcb), GIF_OK);
        EXPECT_EQ(gcb.DelayTime, (suite.intervalleMs + 5) / 10);
        DGifCloseFile(gif, &code);
    }
}

// A failure on the way (the drawing, a full disk, a name of the series that
// cannot be written or is read, an output that is no turn's) leaves the
// folder as it was.
TEST(TourAnime, ToutOuRien)
{
    struct Cas {
        const char* sortie;
        long long disque;    // bytes before the disk is full, -1: never
        std::size_t echecA;  // the drawing fails at this redraw, 0: never
        const char* message;
    };
    const Cas cas[] = {
        {"t_%02d.png", -1, 5, "L'entrée n° 0 n'existe pas"},
        {"u_%02d.txt", 2000, 0, "u_01.txt » : le disque est plein"},
        {"t_%02d.txt", -1, 0, "t_01.txt » est aussi lu par cette commande"},
        {"d_%02d.txt", -1, 0, "d_03.txt"},
        {"a.png", -1, 0, "un .gif, ou un nom numéroté"},
        {"t_%d.gif", -1, 0, "ne convient pas à une image par instant"},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.sortie);
        DossierTemporaire dossier;
        ecrisFichier(dossier / "t_01.txt", "ancien");
        ecrisFichier(dossier / "t_01.png", "ancien");
        fs::create_directory(dossier / "d_03.txt");
        const auto avant = dossier.noms();
        // Entry 0 is refused with a message at every redraw; the hook stops
        // the export at the redraw `echecA`.
        std::size_t courbes = 0;
        Redessin dessin{.entrees = {0}};
        dessin.apres = [&](const OptionsTrace&, const ResultatTrace&) { return ++courbes != c.echecA; };
        Etat etat = etatCalibre(true);
        simuleDisquePlein(c.disque);
        const ResultatTour r = exporteTour(etat, EtatRotation{},
                                           {0, 1.0, dossier / c.sortie, 200, 150, "", {dossier / "t_01.txt"}}, dessin);
        simuleDisquePlein(-1);
        ASSERT_TRUE(r.erreur);
        EXPECT_NE(r.erreur.message().find(c.message), std::string::npos) << r.erreur.message();
        EXPECT_EQ(dossier.noms(), avant);
        EXPECT_EQ(lisFichier(dossier / "t_01.txt"), "ancien");
        EXPECT_EQ(lisFichier(dossier / "t_01.png"), "ancien");
        EXPECT_TRUE(c.echecA > 0 || c.disque >= 0 || courbes == 0) << "drawn before the refusal";
    }
}

}  // namespace
}  // namespace velorin::essai
