#include "qt/tour_anime.h"

#include <memory>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/motif_numerote.h"
#include "base/texte_sur.h"
#include "plot/ecran.h"
#include "plot/redessin.h"
#include "qt/dessin_fichier.h"
#include "qt/gif_anime.h"
#include "qt/surface_qpainter.h"
#include "view/projection.h"

namespace velorin {

ResultatTour exporteTour(Etat& etat, const EtatRotation& rotation, const DemandeTour& d, const Redessin& quoi)
{
    ResultatTour r;
    const bool numerote = estMotifNumerote(d.sortie);
    const FormatSortie format = formatSortie(d.sortie);
    MotifNumerote motif;
    if (numerote) {
        if (auto erreur = lisMotifNumerote(d.sortie, motif)) {
            r.erreur = erreur;
            return r;
        }
        if (format == FormatSortie::Gif || format == FormatSortie::Figure || format == FormatSortie::Inconnu) {
            r.erreur = "Le format de sortie de " + texteCite(d.sortie) +
                       " ne convient pas à une image par instant : .png, .svg, .pdf ou .txt (un .gif sans numéro "
                       "reçoit toute l'animation).";
            return r;
        }
    } else if (format != FormatSortie::Gif) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) +
                   " ne convient pas à un tour complet : un .gif, ou un nom numéroté comme images/tour_%03d.png.";
        return r;
    }
    if (d.tour < 0 || d.tour >= nbToursComplets) {
        r.erreur = "Tour complet inconnu.";
        return r;
    }
    // In cavalière the turn about Oz turns the solid; the others are refused.
    std::vector<double> toursCavaliere;
    SuiteDuTour suite;
    if (etat.rendu.cavaliere) {
        if ((r.erreur = suiteDuTourCavaliere(etat.rendu.tourCavaliere, d.tour, toursCavaliere)))
            return r;
        const Parametres& p = etat.param;
        suite.vues.assign(toursCavaliere.size(), VueDuTour{p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection,
                                                           p.Zdirection, p.Rotadir});
    } else {
        suite = suiteDuTour(etat.param, rotation, d.tour, d.pasTete);
    }
    const double W = d.largeurPx * twipsParPixelEcran, H = d.hauteurPx * twipsParPixelEcran;
    if (double(d.largeurPx) * d.hauteurPx * double(suite.vues.size()) > pixelsTourMax) {
        r.erreur = "Le tour compte " + std::to_string(suite.vues.size()) + " images de " + std::to_string(d.largeurPx) +
                   " x " + std::to_string(d.hauteurPx) +
                   " pixels : c'est plus que 4 milliards de pixels en tout, le plafond d'un tour ; "
                   "choisissez une taille plus petite.";
        return r;
    }
    // One redraw, as the window's "O&K" command makes it.
    auto dessinVue = [&](std::size_t i) -> DessinSurface {
        return [&, i](Surface& surface) -> Erreur {
            if (d.image)
                d.image(int(i) + 1, int(suite.vues.size()));
            appliqueVue(etat.param, suite.vues[i]);
            if (!toursCavaliere.empty())
                etat.rendu.tourCavaliere = toursCavaliere[i];
            if (!ajusteVue(etat, W, H))
                r.avertissement = messageBaseRetablie;
            return redessine(etat, surface, quoi);
        };
    };

    if (!numerote) {
        if ((r.erreur = verifieSortie(d.sortie, d.lus)))
            return r;
        EcritureEntiere fichier(d.sortie);
        if ((r.erreur = fichier.ouverture()))
            return r;
        GifAnime gif(fichier, d.largeurPx, d.hauteurPx);
        QImage image = imagePourSurface(d.largeurPx, d.hauteurPx);
        for (std::size_t i = 0; i < suite.vues.size(); ++i) {
            if ((r.erreur = dessineSurImage(image, dessinVue(i), d.sortie)))
                return r;
            if ((r.erreur = gif.ajoute(image, suite.intervalleMs)))
                return r;
        }
        if ((r.erreur = gif.termine()) || (r.erreur = fichier.termine()))
            return r;
        r.images = int(suite.vues.size());
        return r;
    }

    std::vector<std::string> noms;
    for (std::size_t i = 0; i < suite.vues.size(); ++i) {
        noms.push_back(nomNumerote(motif, int(i) + 1));
        if ((r.erreur = verifieSortie(noms.back(), d.lus)))
            return r;
    }
    // Every file is drawn into its temporary before any takes its name: a
    // failure on the way leaves the folder as it was.
    std::vector<std::unique_ptr<EcritureEntiere>> fichiers;
    for (std::size_t i = 0; i < noms.size(); ++i) {
        fichiers.push_back(std::make_unique<EcritureEntiere>(noms[i]));
        EcritureEntiere& f = *fichiers.back();
        if ((r.erreur = f.ouverture()) ||
            (r.erreur = dessineDansFichier(f, format, d.largeurPx, d.hauteurPx, d.titre, dessinVue(i))))
            return r;
        // A failed write (a full disk) is told now, before the next picture.
        if (!f.ecris({})) {
            r.erreur = f.termine();
            return r;
        }
    }
    for (auto& f : fichiers)
        if ((r.erreur = f->termine()))
            return r;
    r.images = int(noms.size());
    return r;
}

}  // namespace velorin
