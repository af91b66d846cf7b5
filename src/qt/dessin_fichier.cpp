// Everything is drawn into memory first (an image, or the SVG or PDF text in
// a buffer): the painter says whether it worked only at its end, and by then
// nothing must have reached the file. The journal alone goes to the file as
// it is drawn, so that a tracing at the point cap never holds it in memory;
// the file being written whole, a failure still leaves nothing.
#include "qt/dessin_fichier.h"

#include <QBuffer>
#include <QByteArray>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>

#include "base/texte_sur.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"
#include "view/surface_enregistreuse.h"

namespace velorin {

namespace {

Erreur echecDessin(const std::string& cible)
{
    return "Impossible de dessiner " + texteCite(cible) + " : le dessin en mémoire a échoué.";
}

// The SVG title, control bytes made visible (XML refuses them) and the XML
// special characters escaped, since the SVG generator writes the title as it
// is given.
QString titreSvg(const std::string& titre)
{
    const QString nom = QString::fromStdString(texteSur(titre));
    return nom.toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&apos;"));
}

// Draws on a painter begun on `appareil`, then ends it.
Erreur peins(QPaintDevice& appareil, double W, double H, const DessinSurface& dessin, const std::string& cible)
{
    QPainter peintre;
    if (!peintre.begin(&appareil) || !peintre.isActive())
        return echecDessin(cible);
    Erreur erreur;
    {
        SurfaceQPainter surface(peintre, W, H);
        erreur = dessin(surface);
    }
    const bool fini = peintre.end();
    if (erreur)
        return erreur;
    if (!fini)
        return echecDessin(cible);
    return {};
}

}  // namespace

FormatSortie formatSortie(const std::string& chemin)
{
    std::string ext = std::filesystem::path(chemin).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext == ".png")
        return FormatSortie::Png;
    if (ext == ".svg")
        return FormatSortie::Svg;
    if (ext == ".pdf")
        return FormatSortie::Pdf;
    if (ext == ".txt")
        return FormatSortie::Texte;
    if (ext == ".gif")
        return FormatSortie::Gif;
    if (ext == ".fig")
        return FormatSortie::Figure;
    return FormatSortie::Inconnu;
}

Erreur dessineSurImage(QImage& image, const DessinSurface& dessin, const std::string& cible)
{
    if (image.isNull())
        return "L'image de " + texteCite(cible) + " est trop grande pour la mémoire.";
    const double r = image.devicePixelRatio();
    return peins(image, image.width() / r * twipsParPixelEcran, image.height() / r * twipsParPixelEcran, dessin, cible);
}

Erreur dessineDansFichier(EcritureEntiere& fichier, FormatSortie format, int largeurPx, int hauteurPx,
                          const std::string& titre, const DessinSurface& dessin)
{
    const std::string& cible = fichier.cible();
    const double W = largeurPx * twipsParPixelEcran, H = hauteurPx * twipsParPixelEcran;
    if (format == FormatSortie::Texte) {
        SurfaceEnregistreuse surface(W, H);
        surface.ecrisDans(&fichier.flux());
        return dessin(surface);
    }
    if (format == FormatSortie::Png) {
        QImage image = imagePourSurface(largeurPx, hauteurPx);
        if (auto erreur = dessineSurImage(image, dessin, cible))
            return erreur;
        return ecrisPngRapide(image, fichier);
    }
    const QSize taille(largeurPx, hauteurPx);
    QByteArray octets;
    QBuffer tampon(&octets);
    tampon.open(QIODevice::WriteOnly);
    std::unique_ptr<QPaintDevice> appareil;
    if (format == FormatSortie::Svg) {
        auto svg = std::make_unique<QSvgGenerator>();
        svg->setOutputDevice(&tampon);
        svg->setSize(taille);
        svg->setViewBox(QRect(QPoint(0, 0), taille));
        svg->setResolution(96);
        svg->setTitle(titreSvg(titre));
        appareil = std::move(svg);
    } else if (format == FormatSortie::Pdf) {
        auto pdf = std::make_unique<QPdfWriter>(&tampon);
        pdf->setResolution(96);
        pdf->setPageSize(QPageSize(QSizeF(largeurPx * 0.75, hauteurPx * 0.75), QPageSize::Point));
        pdf->setPageMargins(QMarginsF(0, 0, 0, 0));
        appareil = std::move(pdf);
    } else {
        return "Le format de sortie de " + texteCite(cible) + " est inconnu : .png, .svg, .pdf ou .txt.";
    }
    if (auto erreur = peins(*appareil, W, H, dessin, cible))
        return erreur;
    appareil.reset();
    tampon.close();
    if (octets.isEmpty())
        return echecDessin(cible);
    fichier.ecris(std::string_view(octets.constData(), static_cast<std::size_t>(octets.size())));
    return {};
}

}  // namespace velorin
