// Drawing into a file without a window. The order of the work keeps the
// promise "written whole or not at all": every input and the output's path
// are checked first (catalogue, parameters, entry numbers, output folder),
// then the picture is drawn into memory, the painter's end is checked, and
// only then is the file written, through the one routine that writes a file
// whole beside the target and renames it at the end.
#include "cli/rendu.h"

#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <memory>
#include <ostream>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "plot/demande.h"
#include "plot/dessin_etiquettes.h"
#include "plot/ecran.h"
#include "plot/etat.h"
#include "plot/figure.h"
#include "qt/demarrage.h"
#include "qt/dossiers.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"
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
    ajusteTaille(d, etat, avertissement);
    return {};
}

// A saved figure in the state, as the window reads it. It is read twice:
// first to learn its mode and catalogue, whose folder gives the parameter
// file, then over those parameters. The size drawn is the figure's window
// unless the request chose one.
Erreur prepareFigure(DemandeRendu& d, Etat& etat, std::string& avertissement)
{
    if (auto erreur = verifieFichierLisible(d.figure, "La figure"))
        return erreur;
    fixeDossiers(etat.fenetre, QString::fromStdString(dossierExecutable()));
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
        if (!(l >= 1 && h >= 1 && l <= 20000 && h <= 20000))
            return "La fenêtre de la figure " + texteCite(d.figure) +
                   " est hors des limites (1 à 20000 pixels de côté) : donnez une taille avec --taille.";
        d.largeurPx = static_cast<int>(l);
        d.hauteurPx = static_cast<int>(h);
    }
    ajusteTaille(d, etat, avertissement);
    return {};
}

// Clearing, frame, then the entries in order, or the rows of a figure each
// with its own values, then the labels; stops at the first message.
Erreur dessine(Etat& etat, Surface& surface, const DemandeRendu& d, std::vector<double>& durees)
{
    effaceEcran(etat, surface);
    traceRepere(etat, surface);
    if (!d.figure.empty()) {
        for (int i = 1; i <= etat.courbes.nbCourbes; ++i) {
            OptionsTrace options;
            options.ligne = i;
            const ResultatTrace r = demandeTrace(etat, surface, 0, options, CrochetsTrace{});
            durees.push_back(r.dureeMs);
            if (r.erreur)
                return "courbe tracée " + std::to_string(i) + " : " + r.erreur.message();
        }
    }
    for (int n : d.entrees) {
        const ResultatTrace r = demandeTrace(etat, surface, n, OptionsTrace{}, CrochetsTrace{});
        durees.push_back(r.dureeMs);
        if (r.erreur)
            return "entrée " + std::to_string(n) + " : " + r.erreur.message();
    }
    dessineEtiquettes(etat.etiquettes, surface);
    return {};
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

// The journal of the recording surface, written whole through the checked
// writes of EcritureEntiere.
Erreur renduJournal(Etat& etat, const DemandeRendu& d, std::vector<double>& durees)
{
    // Each operation goes to the temporary file as it is drawn: a tracing at
    // the point cap never holds its journal in memory. On a failure the
    // temporary is removed and the previous file stays.
    EcritureEntiere fichier(d.sortie);
    if (auto erreur = fichier.ouverture())
        return erreur;
    SurfaceEnregistreuse surface(etat.vue.W, etat.vue.H);
    surface.ecrisDans(&fichier.flux());
    if (auto erreur = dessine(etat, surface, d, durees))
        return erreur;
    return fichier.termine();
}

// The title of an SVG file: the catalogue's name, control bytes made
// visible (XML refuses them) and the XML special characters escaped, since
// the SVG generator writes the title as it is given.
QString titreSvg(const std::string& catalogue)
{
    const QString nom = QString::fromStdString(texteSur(fs::path(catalogue).filename().string()));
    return nom.toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&apos;"));
}

// PNG, SVG or PDF. Everything is drawn into memory first (an image, or the
// SVG or PDF text in a buffer): the painter says whether it worked only at
// its end, and by then nothing must have touched the disk.
Erreur renduQt(Etat& etat, const DemandeRendu& d, FormatSortie format, std::vector<double>& durees)
{
    const QSize taille(d.largeurPx, d.hauteurPx);
    QByteArray octets;
    QBuffer tampon(&octets);
    tampon.open(QIODevice::WriteOnly);
    QImage image;
    std::unique_ptr<QPaintDevice> appareil;
    if (format == FormatSortie::Png) {
        image = imagePourSurface(d.largeurPx, d.hauteurPx);
        if (image.isNull())
            return "L'image de " + texteCite(d.sortie) + " est trop grande pour la mémoire.";
    } else if (format == FormatSortie::Svg) {
        auto svg = std::make_unique<QSvgGenerator>();
        svg->setOutputDevice(&tampon);
        svg->setSize(taille);
        svg->setViewBox(QRect(QPoint(0, 0), taille));
        svg->setResolution(96);
        svg->setTitle(titreSvg(d.catalogue));
        appareil = std::move(svg);
    } else {
        auto pdf = std::make_unique<QPdfWriter>(&tampon);
        pdf->setResolution(96);
        pdf->setPageSize(QPageSize(QSizeF(d.largeurPx * 0.75, d.hauteurPx * 0.75), QPageSize::Point));
        pdf->setPageMargins(QMarginsF(0, 0, 0, 0));
        appareil = std::move(pdf);
    }
    const Erreur echecDessin = "Impossible de dessiner " + texteCite(d.sortie) + " : le dessin en mémoire a échoué.";
    QPainter peintre;
    if (!peintre.begin(appareil ? appareil.get() : static_cast<QPaintDevice*>(&image)) || !peintre.isActive())
        return echecDessin;
    Erreur erreur;
    {
        SurfaceQPainter surface(peintre, etat.vue.W, etat.vue.H);
        erreur = dessine(etat, surface, d, durees);
    }
    const bool fini = peintre.end();
    if (erreur)
        return erreur;
    if (!fini)
        return echecDessin;
    if (format == FormatSortie::Png)
        return ecrisPngRapide(image, d.sortie);
    appareil.reset();
    tampon.close();
    if (octets.isEmpty())
        return echecDessin;
    return ecrisFichierEntier(d.sortie, std::string_view(octets.constData(), static_cast<std::size_t>(octets.size())));
}

}  // namespace

FormatSortie formatSortie(const std::string& chemin)
{
    std::string ext = fs::path(chemin).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext == ".png")
        return FormatSortie::Png;
    if (ext == ".svg")
        return FormatSortie::Svg;
    if (ext == ".pdf")
        return FormatSortie::Pdf;
    if (ext == ".txt")
        return FormatSortie::Texte;
    if (ext == ".fig")
        return FormatSortie::Figure;
    return FormatSortie::Inconnu;
}

ResultatRendu rendu(const DemandeRendu& demande)
{
    ResultatRendu r;
    DemandeRendu d = demande;
    const FormatSortie format = formatSortie(d.sortie);
    if (format == FormatSortie::Inconnu) {
        r.erreur = "Le format de sortie de " + texteCite(d.sortie) + " est inconnu : .png, .svg, .pdf, .txt ou .fig.";
        return r;
    }
    if (d.largeurPx < 1 || d.hauteurPx < 1 || d.largeurPx > 20000 || d.hauteurPx > 20000) {
        r.erreur = "La taille d'image est hors des limites (1 à 20000 pixels de côté).";
        return r;
    }
    Etat etat;
    r.erreur = d.figure.empty() ? prepareEtat(d, etat, r.avertissement) : prepareFigure(d, etat, r.avertissement);
    if (r.erreur)
        return r;
    if (format == FormatSortie::Texte)
        r.erreur = renduJournal(etat, d, r.dureesMs);
    else if (format == FormatSortie::Figure)
        r.erreur = renduFigure(etat, d, r.dureesMs);
    else
        r.erreur = renduQt(etat, d, format, r.dureesMs);
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

std::string memoireParDefaut(const std::string& dossierCatalogue, bool espace)
{
    const char* sousDossier = nomsDossiers[espace ? 0 : 2];
    for (const fs::path& p : {fs::path(dossierCatalogue) / nomFichierMemoire(true),
                              fs::path(dossierExecutable()) / "usine" / sousDossier / nomFichierMemoire(true)}) {
        std::error_code ec;
        if (fs::is_regular_file(p, ec))
            return p.string();
    }
    return {};
}

std::string dossierExecutable()
{
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string("./") : exe.parent_path().string() + "/";
}

}  // namespace velorin
