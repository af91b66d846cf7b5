#include "qt/tour_anime.h"

#include <algorithm>
#include <memory>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/motif_numerote.h"
#include "base/texte_sur.h"
#include "plot/ecran.h"
#include "plot/redessin.h"
#include "qt/dessin_fichier.h"
#include "qt/gif_anime.h"
#include "qt/image_en_bandes.h"
#include "qt/surface_qpainter.h"
#include "view/projection.h"

namespace velorin {

namespace {

// What the hooks of a redraw answered: after each curve (go on or stop),
// and the calls of the interruption test that answered yes.
struct ReponsesDuRedessin {
    std::vector<char> apres;
    std::size_t appels = 0;
    std::vector<std::size_t> interruptions;
};

// `quoi` whose answers are kept in `reponses`.
Redessin enregistre(const Redessin& quoi, ReponsesDuRedessin& reponses)
{
    Redessin r = quoi;
    r.apres = [&quoi, &reponses](const OptionsTrace& o, const ResultatTrace& t) {
        const bool suite = quoi.apres ? quoi.apres(o, t) : !t.erreur;
        reponses.apres.push_back(suite);
        return suite;
    };
    if (quoi.crochets.interrompu)
        r.crochets.interrompu = [&quoi, &reponses] {
            const bool oui = quoi.crochets.interrompu();
            if (oui)
                reponses.interruptions.push_back(reponses.appels);
            ++reponses.appels;
            return oui;
        };
    return r;
}

// `quoi` again, silent: nothing shown, no pause, no beep, each hook
// answering as in `reponses`, so that the same redraw draws the same.
Redessin rejoue(const Redessin& quoi, const ReponsesDuRedessin& reponses)
{
    Redessin r = quoi;
    r.progres = nullptr;
    r.avant = nullptr;
    r.crochets = {};
    r.apres = [&reponses, k = std::size_t(0)](const OptionsTrace&, const ResultatTrace&) mutable {
        return k >= reponses.apres.size() || reponses.apres[k++];
    };
    if (quoi.crochets.interrompu)
        r.crochets.interrompu = [&reponses, appel = std::size_t(0)]() mutable {
            return std::binary_search(reponses.interruptions.begin(), reponses.interruptions.end(), appel++);
        };
    return r;
}

}  // namespace

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
    // The view of picture i, as the timers set it.
    auto prepareVue = [&](std::size_t i) {
        if (d.image)
            d.image(int(i) + 1, int(suite.vues.size()));
        appliqueVue(etat.param, suite.vues[i]);
        if (!toursCavaliere.empty())
            etat.rendu.tourCavaliere = toursCavaliere[i];
        if (!ajusteVue(etat, W, H))
            r.avertissement = messageBaseRetablie;
    };
    // One redraw, as the window's "O&K" command makes it.
    auto dessinVue = [&](std::size_t i) -> DessinSurface {
        return [&, i](Surface& surface) -> Erreur {
            prepareVue(i);
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
        // The hidden parts are resolved against a depth picture of the whole
        // size: drawing them in bands would save no memory.
        int lignes = d.lignesParBande > 0 ? d.lignesParBande : (1 << 17) / (4 * std::max(1, d.largeurPx));
        if (etat.fenetre.modeEspace && renduCache(etat.rendu))
            lignes = d.hauteurPx;
        ImageEnBandes image(d.largeurPx, d.hauteurPx, lignes);
        ImageParPlages plages(d.largeurPx);
        Etat avant, copie;  // kept from picture to picture: their memory is reused
        for (std::size_t i = 0; i < suite.vues.size(); ++i) {
            ReponsesDuRedessin reponses;
            for (int k = 0; k < std::max(1, image.bandes()); ++k) {
                // The first band is the picture's redraw; each next one draws
                // the same again from the state the first started from.
                const DessinSurface dessin = [&, i, k](Surface& surface) -> Erreur {
                    if (k == 0) {
                        prepareVue(i);
                        avant = etat;
                        return redessine(etat, surface, enregistre(quoi, reponses));
                    }
                    copie = avant;
                    return redessine(copie, surface, rejoue(quoi, reponses));
                };
                if ((r.erreur = image.dessine(k, dessin, d.sortie)))
                    return r;
                for (int y = image.premiereLigne(k); y < image.premiereLigne(k + 1); ++y)
                    plages.ajoute(image.ligne(y));
            }
            if ((r.erreur = gif.ajoute(plages, suite.intervalleMs)))
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
