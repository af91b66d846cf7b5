// Drawing into a file without a window. The order of the work keeps the
// promise "written whole or not at all": every input and the output's path
// are checked first (catalogue, parameters, entry numbers, output folder),
// then the picture is drawn (qt/dessin_fichier, qt/tour_anime) into the one
// routine that writes a file whole beside the target and renames it at the
// end.
#include "cli/rendu.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <new>
#include <ostream>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/motif_numerote.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "cli/catalogue.h"
#include "plot/demande.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "plot/figure.h"
#include "plot/redessin.h"
#include "qt/demarrage.h"
#include "qt/dossiers.h"
#include "qt/tour_anime.h"
#include "settings/memoire.h"
#include "settings/texte_nombre.h"
#include "view/surface_enregistreuse.h"

namespace fs = std::filesystem;

namespace velorin {

namespace {

// The frame and the viewing set-up for the size of the request.
void ajusteTaille(const DemandeRendu& d, Etat& etat, std::string& avertissement)
{
    etat.fenetre.largeurVue = d.largeurPx * twipsParPixelEcran;
    etat.fenetre.hauteurVue = d.hauteurPx * twipsParPixelEcran;
    // A refused frame is put back to the base [-10, 10] by the calibration.
    if (!ajusteVue(etat, etat.fenetre.largeurVue, etat.fenetre.hauteurVue))
        avertissement = messageBaseRetablie;
}

// The rendering settings of the drawing (see DemandeRendu::style); the
// message of a file that cannot be read, or nothing.
std::string prepareRendu(const DemandeRendu& d, Rendu& rendu)
{
    std::string note;
    for (const std::string& pres : {d.parametres, d.catalogue}) {
        if (pres.empty())
            continue;
        const fs::path fichier = fs::path(pres).parent_path() / nomFichierRendu();
        std::error_code ec;
        if (!fs::exists(fichier, ec))
            continue;
        if (auto erreur = lisRendu(fichier.string(), rendu))
            note = erreur.message();
        break;
    }
    if (d.style)
        rendu.style = *d.style;
    return note;
}

// Prepares the state as the main window has it after reading the parameters
// for a drawing area of that size.
Erreur prepareEtat(const DemandeRendu& d, Etat& etat, std::string& avertissement, std::string& noteRendu)
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
    noteRendu = prepareRendu(d, etat.rendu);
    ajusteTaille(d, etat, avertissement);
    return {};
}

// A saved figure in the state, as the window reads it. It is read twice:
// first to learn its mode and catalogue, whose folder gives the parameter
// file, then over those parameters. The size drawn is the figure's window
// unless the request chose one.
Erreur prepareFigure(DemandeRendu& d, Etat& etat, std::string& avertissement, std::string& noteRendu)
{
    if (auto erreur = verifieFichierLisible(d.figure, "La figure"))
        return erreur;
    fixeDossiers(etat.fenetre, emplacements().appli);
    OptionsFigure options;
    if (!d.dossierCatalogue.empty())
        options.dossierCatalogue = (fs::path(d.dossierCatalogue) / "").string();
    options.catalogueExistant = true;  // a drawing without a window creates nothing
    Etat essai = etat;
    if (auto r = lisFigure(d.figure, essai, options); r.erreur)
        return r.erreur;
    d.catalogue = essai.catalogue.chemin;
    if (d.parametres.empty())
        d.parametres = memoireParDefaut(dossierDe(d.catalogue), essai.fenetre.modeEspace);
    if (!d.parametres.empty()) {
        if (auto erreur = verifieFichierLisible(d.parametres, "Le fichier de paramètres"))
            return erreur;
        if (auto erreur = lisMemoire(d.parametres, etat.param))
            return erreur;
    }
    if (d.ordreBoucles >= 0)
        etat.param.ordreBoucles = static_cast<std::uint8_t>(d.ordreBoucles);
    const ResultatFigure r = lisFigure(d.figure, etat, options);
    if (r.erreur)
        return r.erreur;
    if (auto erreur = verifieSortie(d.sortie, {d.figure, d.catalogue, d.parametres}))
        return erreur;
    if (!d.tailleDonnee) {
        const double l = std::round(r.geometrie.largeur / twipsParPixelEcran);
        const double h = std::round(r.geometrie.hauteur / twipsParPixelEcran);
        if (!(l >= 1 && h >= 1 && l <= coteImageMax && h <= coteImageMax))
            return "La fenêtre de la figure " + texteCite(d.figure) + " est hors des limites (1 à " +
                   std::to_string(coteImageMax) + " pixels de côté) : donnez une taille avec --taille.";
        d.largeurPx = static_cast<int>(l);
        d.hauteurPx = static_cast<int>(h);
    }
    noteRendu = prepareRendu(d, etat.rendu);
    ajusteTaille(d, etat, avertissement);
    return {};
}

// The entries to draw (and the rows of a figure) of a kind no editor writes.
std::vector<std::string> genresNonEcrits(const Etat& etat, const DemandeRendu& d)
{
    std::vector<std::string> remarques;
    const auto note = [&](const std::string& quoi, double numero) {
        LigneCatalogue l;
        if (numero >= 1 && numero <= etat.catalogue.nbLignesCatalogue &&
            !lisLigne(etat.catalogue, static_cast<NumeroLigne>(numero), l))
            if (const std::string r = remarqueGenre(l.typeFonction); !r.empty())
                remarques.push_back(quoi + " : " + r);
    };
    for (int i = 1; !d.figure.empty() && i <= etat.courbes.nbCourbes; ++i) {
        const double n = etat.courbes.lignes[std::size_t(i - 1)][colNumero];
        note("courbe tracée " + std::to_string(i) + " (entrée " + texteNombre(n, 15) + ")", n);
    }
    for (int n : d.entrees)
        note("entrée " + std::to_string(n), n);
    return remarques;
}

// Clearing, frame, then the rows of a figure each with its own values, then
// the entries in order, then the labels; stops at the first message.
Erreur dessine(Etat& etat, Surface& surface, const DemandeRendu& d, std::vector<double>& durees)
{
    Redessin quoi{.entrees = d.entrees};
    if (!d.figure.empty())
        quoi.lignes = toutesLesLignes(etat.courbes);
    if (d.progression) {
        const std::string sur = " sur " + std::to_string(quoi.lignes.size() + quoi.entrees.size());
        auto etape = std::make_shared<std::string>();
        quoi.avant = [&d, etape, sur, k = 0]() mutable {
            *etape = (d.figure.empty() ? "entrée " : "courbe ") + std::to_string(++k) + sur;
            d.progression(*etape);
        };
        quoi.crochets.interrompu = [&d, etape] {
            d.progression(*etape);
            return false;
        };
    }
    Erreur erreur;
    quoi.apres = [&](const OptionsTrace& o, const ResultatTrace& r) {
        durees.push_back(r.dureeMs);
        if (r.erreur)
            erreur = (o.ligne > 0 ? "courbe tracée " + std::to_string(o.ligne)
                                  : "entrée " + std::to_string(d.entrees[std::size_t(o.rang)])) +
                     " : " + r.erreur.message();
        return !r.erreur;
    };
    static_cast<void>(redessine(etat, surface, quoi));
    return erreur;
}

// The figure of what was drawn: the drawing is made on a surface that
// keeps nothing, so that the drawn-curves table holds what the window
// would hold; line 6 is the size drawn.
Erreur renduFigure(Etat& etat, const DemandeRendu& d, std::vector<double>& durees)
{
    std::ostream rien(nullptr);
    SurfaceEnregistreuse surface(etat.vue.W, etat.vue.H);
    surface.ecrisDans(&rien);
    if (auto erreur = dessine(etat, surface, d, durees))
        return erreur;
    const GeometrieFenetre taille{0, 0, static_cast<float>(etat.fenetre.largeurVue),
                                  static_cast<float>(etat.fenetre.hauteurVue)};
    return ecrisFigure(d.sortie, etat, taille);
}

// One picture in PNG, SVG, PDF, TikZ or the journal, written whole.
Erreur renduFichier(Etat& etat, const DemandeRendu& d, FormatSortie format, std::vector<double>& durees)
{
    EcritureEntiere fichier(d.sortie);
    if (auto erreur = fichier.ouverture())
        return erreur;
    const std::string titre = fs::path(d.catalogue).filename().string();
    if (auto erreur = dessineDansFichier(fichier, format, d.largeurPx, d.hauteurPx, titre,
                                         [&](Surface& surface) { return dessine(etat, surface, d, durees); },
                                         d.tex))
        return erreur;
    return fichier.termine();
}

// Every redraw of a full turn. The entries are first sent once, as the user
// sends them before turning (on a journal that goes nowhere); each redraw
// then draws their rows of the drawn-curves table again, as the window's
// timers do. A figure's rows are in the table already.
void renduTour(Etat& etat, const DemandeRendu& d, ResultatRendu& r)
{
    std::ostream nulle(nullptr);
    SurfaceEnregistreuse envoi(etat.vue.W, etat.vue.H);
    envoi.ecrisDans(&nulle);
    std::vector<int> lignes;
    for (int i = 1; !d.figure.empty() && i <= etat.courbes.nbCourbes; ++i)
        lignes.push_back(i);
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
    tour.lus = {d.catalogue, d.parametres, d.figure};
    std::string etape;
    if (d.progression)
        tour.image = [&](int k, int n) {
            etape = "image " + std::to_string(k) + " sur " + std::to_string(n);
            d.progression(etape);
        };
    // A figure's labels stay where they stand.
    Redessin quoi{.lignes = lignes};
    if (d.progression)
        quoi.crochets.interrompu = [&] {
            d.progression(etape);
            return false;
        };
    Erreur erreur;
    quoi.apres = [&](const OptionsTrace& o, const ResultatTrace& t) {
        r.dureesMs.push_back(t.dureeMs);
        const std::size_t i = std::size_t(std::find(lignes.begin(), lignes.end(), o.ligne) - lignes.begin());
        if (t.erreur)
            erreur = (d.figure.empty() ? "entrée " + std::to_string(d.entrees[i])
                                       : "courbe tracée " + std::to_string(i + 1)) +
                     " : " + t.erreur.message();
        return !t.erreur;
    };
    const ResultatTour fait = exporteTour(etat, EtatRotation{}, tour, quoi);
    r.erreur = erreur ? erreur : fait.erreur;
    r.images = fait.images;
    if (!fait.avertissement.empty())
        r.avertissement = fait.avertissement;
}

ResultatRendu renduDemande(const DemandeRendu& demande)
{
    ResultatRendu r;
    DemandeRendu d = demande;
    const FormatSortie format = formatSortie(d.sortie);
    if (d.tour >= 0 && format == FormatSortie::Figure) {
        r.erreur = "Un tour complet ne s'écrit pas dans une figure " + texteCite(d.sortie) +
                   " : un .gif, ou un nom numéroté comme images/tour_%03d.png.";
        return r;
    }
    if (d.tour < 0 && format == FormatSortie::Gif) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) + " est celui d'une animation : ajoutez --tour AXE.";
        return r;
    }
    if (format == FormatSortie::Inconnu && !(d.tour >= 0 && estMotifNumerote(d.sortie))) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) + " est inconnu : .png, .svg, .pdf, .tex, .txt ou .fig" +
                   (d.tour >= 0 ? ", .gif pour l'animation." : ".");
        return r;
    }
    MotifNumerote motif;
    if (d.tour >= 0 && estMotifNumerote(d.sortie)) {
        if ((r.erreur = lisMotifNumerote(d.sortie, motif)))
            return r;
    }
    if (d.largeurPx < 1 || d.hauteurPx < 1 || d.largeurPx > coteImageMax || d.hauteurPx > coteImageMax) {
        r.erreur = "La taille d'image est hors des limites (1 à " + std::to_string(coteImageMax) + " pixels de côté).";
        return r;
    }
    Etat etat;
    std::string noteRendu;
    r.erreur = d.figure.empty() ? prepareEtat(d, etat, r.avertissement, noteRendu)
                                : prepareFigure(d, etat, r.avertissement, noteRendu);
    if (r.erreur)
        return r;
    if (!noteRendu.empty())
        r.remarques.push_back(noteRendu);
    for (std::string& remarque : genresNonEcrits(etat, d))
        r.remarques.push_back(std::move(remarque));
    if (d.tour >= 0)
        renduTour(etat, d, r);
    else if (format == FormatSortie::Figure)
        r.erreur = renduFigure(etat, d, r.dureesMs);
    else
        r.erreur = renduFichier(etat, d, format, r.dureesMs);
    return r;
}

}  // namespace

ResultatRendu rendu(const DemandeRendu& demande)
{
    // Memory that runs out on the way unwinds to here: every file being
    // written has removed its temporary, the user's files are as they were.
    try {
        return renduDemande(demande);
    } catch (const std::bad_alloc&) {
        ResultatRendu r;
        r.erreur = "La mémoire a manqué pour dessiner " + texteCite(demande.sortie) +
                   " : rien n'a été écrit, le fichier précédent est intact.";
        return r;
    }
}

void assureApplication()
{
    if (QCoreApplication::instance())
        return;
    // The sub-commands draw without a display: a platform that needs one
    // that is not there (QT_QPA_PLATFORM=xcb without DISPLAY) would abort.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !affichageDisponible())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // No event loop runs here: Qt's own event dispatcher, lighter than
    // GLib's, is enough.
    if (qEnvironmentVariableIsEmpty("QT_NO_GLIB"))
        qputenv("QT_NO_GLIB", "1");
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

std::string memoireParDefaut(const std::string& dossierCatalogue, bool espace)
{
    const char* sousDossier = nomsDossiers[espace ? 0 : 2];
    for (const fs::path& p : {fs::path(dossierCatalogue) / nomFichierMemoire(true),
                              fs::path(emplacements().usine.toStdString()) / sousDossier / nomFichierMemoire(true)}) {
        std::error_code ec;
        if (fs::is_regular_file(p, ec))
            return p.string();
    }
    return {};
}

}  // namespace velorin
