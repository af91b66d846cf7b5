// Drawing into a file without a window. The order of the work keeps the
// promise "written whole or not at all": every input is checked first
// (catalogue, parameters, entry numbers), then the picture is drawn into a
// temporary file beside the output, which takes the output's name only when
// every entry was drawn without a message.
#include "cli/rendu.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <memory>
#include <unistd.h>

#include "qt/surface_qpainter.h"
#include "catalogue/catalogue.h"
#include "qt/png_rapide.h"
#include "plot/etat.h"
#include "plot/demande.h"
#include "settings/memoire.h"
#include "plot/ecran.h"
#include "view/surface_enregistreuse.h"

namespace fs = std::filesystem;

namespace velorin {

namespace {

// Temporary file in the folder of `sortie`, removed unless kept.
class FichierProvisoire {
public:
    explicit FichierProvisoire(const std::string& sortie)
        : final_(sortie)
    {
        const fs::path p(sortie);
        chemin_ = (p.parent_path() / ("." + p.filename().string() + ".provisoire-" + std::to_string(getpid())))
                      .string();
    }
    ~FichierProvisoire()
    {
        std::error_code ec;
        if (!garde_) fs::remove(chemin_, ec);
    }
    const std::string& chemin() const { return chemin_; }
    // Gives the temporary file the output's name; the error text on failure.
    Erreur installe()
    {
        std::error_code ec;
        fs::rename(chemin_, final_, ec);
        if (ec) return "impossible d'écrire " + final_ + " : " + ec.message();
        garde_ = true;
        return {};
    }

private:
    std::string final_, chemin_;
    bool garde_ = false;
};

// Prepares the state as the main window has it after reading the parameters
// for a drawing area of that size.
Erreur prepareEtat(const DemandeRendu& d, Etat& etat, std::string& avertissement)
{
    etat.fenetre.metsModeEspace(d.espace);
    const fs::path cat(d.catalogue);
    etat.fenetre.dossierCourbes = cat.parent_path().string() + "/";
    etat.fenetre.fichierCatalogue = cat.filename().string();
    if (!fs::is_regular_file(cat)) return "catalogue introuvable : " + d.catalogue;
    if (!d.parametres.empty()) {
        if (auto erreur = lisMemoire(d.parametres, etat.param)) return erreur;
    }
    if (d.ordreBoucles >= 0) etat.param.ordreBoucles = static_cast<std::uint8_t>(d.ordreBoucles);
    if (auto erreur = ouvrirCatalogue(etat.catalogue, d.catalogue)) return erreur;
    for (int n : d.entrees) {
        if (n < 1 || n > etat.catalogue.nbLignesCatalogue)
            return "le catalogue " + d.catalogue + " n'a pas d'entrée " + std::to_string(n) + " (il en a " +
                   std::to_string(etat.catalogue.nbLignesCatalogue) + ")";
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
        if (r.erreur) return "entrée " + std::to_string(n) + " : " + r.erreur.message();
    }
    return {};
}

Erreur renduJournal(Etat& etat, const DemandeRendu& d, const std::string& chemin, std::vector<double>& durees)
{
    SurfaceEnregistreuse surface(etat.vue.W, etat.vue.H);
    if (auto erreur = dessine(etat, surface, d, durees)) return erreur;
    std::ofstream f(chemin, std::ios::binary);
    surface.ecrisJournal(f);
    f.close();
    if (!f) return "impossible d'écrire " + chemin;
    return {};
}

Erreur renduQt(Etat& etat, const DemandeRendu& d, FormatSortie format, const std::string& chemin,
                    std::vector<double>& durees)
{
    const QString fichier = QString::fromStdString(chemin);
    const QSize taille(d.largeurPx, d.hauteurPx);
    QImage image;
    std::unique_ptr<QPaintDevice> appareil;
    if (format == FormatSortie::Png) {
        image = imagePourSurface(d.largeurPx, d.hauteurPx);
        if (image.isNull()) return "image trop grande pour la mémoire";
    } else if (format == FormatSortie::Svg) {
        auto svg = std::make_unique<QSvgGenerator>();
        svg->setFileName(fichier);
        svg->setSize(taille);
        svg->setViewBox(QRect(QPoint(0, 0), taille));
        svg->setResolution(96);
        svg->setTitle(QString::fromStdString(fs::path(d.catalogue).filename().string()));
        appareil = std::move(svg);
    } else {
        auto pdf = std::make_unique<QPdfWriter>(fichier);
        pdf->setResolution(96);
        pdf->setPageSize(QPageSize(QSizeF(d.largeurPx * 0.75, d.hauteurPx * 0.75), QPageSize::Point));
        pdf->setPageMargins(QMarginsF(0, 0, 0, 0));
        appareil = std::move(pdf);
    }
    QPaintDevice* cible = appareil ? appareil.get() : &image;
    Erreur erreur;
    {
        SurfaceQPainter surface(*cible, etat.vue.W, etat.vue.H);
        erreur = dessine(etat, surface, d, durees);
    }
    if (erreur) return erreur;
    if (format == FormatSortie::Png) {
        if (auto echec = ecrisPngRapide(image, chemin)) return echec;
    }
    appareil.reset();
    if (!fs::exists(chemin)) return "impossible d'écrire " + chemin;
    return {};
}

}  // namespace

FormatSortie formatSortie(const std::string& chemin)
{
    std::string ext = fs::path(chemin).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext == ".png") return FormatSortie::Png;
    if (ext == ".svg") return FormatSortie::Svg;
    if (ext == ".pdf") return FormatSortie::Pdf;
    if (ext == ".txt") return FormatSortie::Texte;
    return FormatSortie::Inconnu;
}

ResultatRendu rendu(const DemandeRendu& d)
{
    ResultatRendu r;
    const FormatSortie format = formatSortie(d.sortie);
    if (format == FormatSortie::Inconnu) {
        r.erreur = "format de sortie inconnu (" + d.sortie + ") : .png, .svg, .pdf ou .txt";
        return r;
    }
    if (d.largeurPx < 1 || d.hauteurPx < 1 || d.largeurPx > 20000 || d.hauteurPx > 20000) {
        r.erreur = "taille d'image hors des limites (1 à 20000 pixels de côté)";
        return r;
    }
    const fs::path dossierSortie = fs::path(d.sortie).parent_path();
    if (!dossierSortie.empty() && !fs::is_directory(dossierSortie)) {
        r.erreur = "dossier de sortie introuvable : " + dossierSortie.string();
        return r;
    }
    Etat etat;
    r.erreur = prepareEtat(d, etat, r.avertissement);
    if (r.erreur) return r;
    FichierProvisoire provisoire(d.sortie);
    r.erreur = format == FormatSortie::Texte ? renduJournal(etat, d, provisoire.chemin(), r.dureesMs)
                                             : renduQt(etat, d, format, provisoire.chemin(), r.dureesMs);
    if (!r.erreur) r.erreur = provisoire.installe();
    // The user knows the output file, not its temporary name.
    if (r.erreur) {
        std::string message = r.erreur.message();
        for (auto p = message.find(provisoire.chemin()); p != std::string::npos; p = message.find(provisoire.chemin()))
            message.replace(p, provisoire.chemin().size(), d.sortie);
        r.erreur = Erreur(message);
    }
    return r;
}

void assureApplication()
{
    if (QCoreApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a session folder Qt makes one itself but says so on the error
    // output, which must hold only our messages: make it first, silently.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const fs::path dossier = fs::temp_directory_path() / ("runtime-" + std::to_string(getuid()));
        std::error_code ec;
        fs::create_directories(dossier, ec);
        fs::permissions(dossier, fs::perms::owner_all, ec);
        if (!ec) qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(dossier.string()));
    }
    static int argc = 1;
    static char nom[] = "velorin";
    static char* argv[] = {nom, nullptr};
    // Never destroyed: the process ends with it, and tearing Qt down in the
    // static destructors would gain nothing.
    new QGuiApplication(argc, argv);
}

std::string dossierExecutable()
{
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string("./") : exe.parent_path().string() + "/";
}

}  // namespace velorin
