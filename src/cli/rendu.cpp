// Drawing into a file without a window. The order of the work keeps the
// promise "written whole or not at all": every input and the output's path
// are checked first (catalogue, parameters, entry numbers, output folder),
// then the picture is drawn (qt/dessin_fichier, qt/tour_anime) into the one
// routine that writes a file whole beside the target and renames it at the
// end.
#include "cli/rendu.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <filesystem>
#include <ostream>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/motif_numerote.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "plot/demande.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "qt/demarrage.h"
#include "qt/tour_anime.h"
#include "settings/memoire.h"
#include "view/surface_enregistreuse.h"

namespace fs = std::filesystem;

namespace velorin {

namespace {

// Prepares the state as the main window has it after reading the parameters
// for a drawing area of that size.
Erreur prepareEtat(const DemandeRendu& d, Etat& etat, std::string& avertissement)
{
    etat.fenetre.metsModeEspace(d.espace);
    const fs::path cat(d.catalogue);
    etat.fenetre.dossierCourbes = cat.parent_path().string() + "/";
    etat.fenetre.fichierCatalogue = cat.filename().string();
    if (auto erreur = verifieFichierLisible(d.catalogue, "Le catalogue"))
        return erreur;
    if (!d.parametres.empty()) {
        if (auto erreur = verifieFichierLisible(d.parametres, "Le fichier de paramètres"))
            return erreur;
        if (auto erreur = lisMemoire(d.parametres, etat.param))
            return erreur;
    }
    // The output never replaces one of the files this drawing reads.
    if (auto erreur = verifieSortie(d.sortie, {d.catalogue, d.parametres}))
        return erreur;
    if (d.ordreBoucles >= 0)
        etat.param.ordreBoucles = static_cast<std::uint8_t>(d.ordreBoucles);
    if (auto erreur = ouvrirCatalogue(etat.catalogue, d.catalogue))
        return erreur;
    for (int n : d.entrees) {
        if (n < 1 || n > etat.catalogue.nbLignesCatalogue)
            return "Le catalogue " + texteCite(d.catalogue) + " n'a pas d'entrée " + std::to_string(n) + " (il en a " +
                   std::to_string(etat.catalogue.nbLignesCatalogue) + ").";
    }
    etat.fenetre.largeurVue = d.largeurPx * twipsParPixelEcran;
    etat.fenetre.hauteurVue = d.hauteurPx * twipsParPixelEcran;
    // A refused frame is put back to the base [-10, 10] by the calibration.
    if (!ajusteVue(etat, etat.fenetre.largeurVue, etat.fenetre.hauteurVue))
        avertissement = messageBaseRetablie;
    return {};
}

// Clearing, frame, then the entries in order; stops at the first message.
Erreur dessine(Etat& etat, Surface& surface, const DemandeRendu& d, std::vector<double>& durees)
{
    effaceEcran(etat, surface);
    traceRepere(etat, surface);
    for (int n : d.entrees) {
        const ResultatTrace r = demandeTrace(etat, surface, n, OptionsTrace{}, CrochetsTrace{});
        durees.push_back(r.dureeMs);
        if (r.erreur)
            return "entrée " + std::to_string(n) + " : " + r.erreur.message();
    }
    return {};
}

// One picture in PNG, SVG, PDF or the journal, written whole.
Erreur renduFichier(Etat& etat, const DemandeRendu& d, FormatSortie format, std::vector<double>& durees)
{
    EcritureEntiere fichier(d.sortie);
    if (auto erreur = fichier.ouverture())
        return erreur;
    const std::string titre = fs::path(d.catalogue).filename().string();
    if (auto erreur = dessineDansFichier(fichier, format, d.largeurPx, d.hauteurPx, titre,
                                         [&](Surface& surface) { return dessine(etat, surface, d, durees); }))
        return erreur;
    return fichier.termine();
}

// Every redraw of a full turn. The entries are first sent once, as the user
// sends them before turning (on a journal that goes nowhere); each redraw
// then draws their rows of the drawn-curves table again, as the window's
// timers do.
void renduTour(Etat& etat, const DemandeRendu& d, ResultatRendu& r)
{
    std::ostream nulle(nullptr);
    SurfaceEnregistreuse envoi(etat.vue.W, etat.vue.H);
    envoi.ecrisDans(&nulle);
    std::vector<int> lignes;
    for (int n : d.entrees) {
        const ResultatTrace t = demandeTrace(etat, envoi, n, OptionsTrace{}, CrochetsTrace{});
        if (t.erreur) {
            r.erreur = "entrée " + std::to_string(n) + " : " + t.erreur.message();
            return;
        }
        lignes.push_back(t.ligne);
    }
    DemandeTour tour;
    tour.tour = d.tour;
    tour.pasTete = d.pasTete;
    tour.sortie = d.sortie;
    tour.largeurPx = d.largeurPx;
    tour.hauteurPx = d.hauteurPx;
    tour.titre = fs::path(d.catalogue).filename().string();
    tour.lus = {d.catalogue, d.parametres};
    auto courbes = [&](Etat& e, Surface& surface) -> Erreur {
        for (std::size_t i = 0; i < lignes.size(); ++i) {
            if (lignes[i] < 1)
                continue;
            const ResultatTrace t = demandeTrace(e, surface, 0, OptionsTrace{lignes[i]}, CrochetsTrace{});
            r.dureesMs.push_back(t.dureeMs);
            if (t.erreur)
                return "entrée " + std::to_string(d.entrees[i]) + " : " + t.erreur.message();
        }
        return {};
    };
    const ResultatTour fait = exporteTour(etat, EtatRotation{}, tour, courbes);
    r.erreur = fait.erreur;
    r.images = fait.images;
    if (!fait.avertissement.empty())
        r.avertissement = fait.avertissement;
}

}  // namespace

ResultatRendu rendu(const DemandeRendu& d)
{
    ResultatRendu r;
    const FormatSortie format = formatSortie(d.sortie);
    if (d.tour < 0 && format == FormatSortie::Gif) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) + " est celui d'une animation : ajoutez --tour AXE.";
        return r;
    }
    if (format == FormatSortie::Inconnu && !(d.tour >= 0 && estMotifNumerote(d.sortie))) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) + " est inconnu : .png, .svg, .pdf ou .txt" +
                   (d.tour >= 0 ? ", .gif pour l'animation." : ".");
        return r;
    }
    MotifNumerote motif;
    if (d.tour >= 0 && estMotifNumerote(d.sortie)) {
        if ((r.erreur = lisMotifNumerote(d.sortie, motif)))
            return r;
    }
    if (d.largeurPx < 1 || d.hauteurPx < 1 || d.largeurPx > 20000 || d.hauteurPx > 20000) {
        r.erreur = "La taille d'image est hors des limites (1 à 20000 pixels de côté).";
        return r;
    }
    Etat etat;
    r.erreur = prepareEtat(d, etat, r.avertissement);
    if (r.erreur)
        return r;
    if (d.tour >= 0)
        renduTour(etat, d, r);
    else
        r.erreur = renduFichier(etat, d, format, r.dureesMs);
    return r;
}

void assureApplication()
{
    if (QCoreApplication::instance())
        return;
    // The sub-commands draw without a display: a platform that needs one
    // that is not there (QT_QPA_PLATFORM=xcb without DISPLAY) would abort.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !affichageDisponible())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a session folder Qt makes one itself but says so on the error
    // output, which must hold only our messages: make it first, silently.
    prepareDossierSession();
    static int argc = 1;
    static char nom[] = "velorin";
    static char* argv[] = {nom, nullptr};
    // Never destroyed: the process ends with it, and tearing Qt down in the
    // static destructors would gain nothing.
    new QGuiApplication(argc, argv);
}

}  // namespace velorin
