// A bitmap is drawn into memory first (the painter says whether it worked
// only at its end), then written. The SVG, the PDF, the TikZ picture and the journal go to the
// file as they are drawn, so that a drawing of millions of points is never
// held in memory; the file being written whole, a failure still leaves
// nothing, and the user's previous file stays as it was.
#include "qt/dessin_fichier.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "base/texte_sur.h"
#include "qt/png_rapide.h"
#include "qt/surface_qpainter.h"
#include "qt/surface_pdf.h"
#include "qt/surface_svg.h"
#include "qt/surface_tikz.h"
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

// Draws on a painter begun on `appareil` (kept to the rows `seules`, see
// dessineSurImage), then ends it.
Erreur peins(QPaintDevice& appareil, double W, double H, const DessinSurface& dessin, const std::string& cible,
             std::optional<LignesImage> seules = std::nullopt)
{
    QPainter peintre;
    if (!peintre.begin(&appareil) || !peintre.isActive())
        return echecDessin(cible);
    const int L = appareil.width(), Hpx = appareil.height();
    if (seules)
        peintre.setClipRegion(QRegion(0, seules->debut, L, seules->fin - seules->debut) + QRegion(0, 0, 1, 1) +
                              QRegion(L - 1, Hpx - 1, 1, 1));
    Erreur erreur;
    {
        SurfaceQPainter surface(peintre, W, H);
        if (seules) {
            surface.limiteAuxLignes(seules->debut, seules->fin);
            surface.noteLignes(seules->atteintes);
        }
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
    if (ext == ".tex")
        return FormatSortie::Tex;
    if (ext == ".txt")
        return FormatSortie::Texte;
    if (ext == ".gif")
        return FormatSortie::Gif;
    if (ext == ".fig")
        return FormatSortie::Figure;
    return FormatSortie::Inconnu;
}

Erreur dessineSurImage(QImage& image, const DessinSurface& dessin, const std::string& cible,
                       std::optional<LignesImage> seules)
{
    if (image.isNull())
        return "L'image de " + texteCite(cible) + " est trop grande pour la mémoire.";
    const double r = image.devicePixelRatio();
    return peins(image, image.width() / r * twipsParPixelEcran, image.height() / r * twipsParPixelEcran, dessin, cible,
                 seules);
}

Erreur dessineDansFichier(EcritureEntiere& fichier, FormatSortie format, int largeurPx, int hauteurPx,
                          const std::string& titre, const DessinSurface& dessin, const OptionsTex& tex)
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
    if (format == FormatSortie::Svg) {
        SurfaceSvg surface(fichier.flux(), largeurPx, hauteurPx, titreSvg(titre).toStdString());
        if (auto erreur = dessin(surface))
            return erreur;
        surface.termine();
        return {};
    }
    if (format == FormatSortie::Tex) {
        SurfaceTikz surface(fichier.flux(), largeurPx, hauteurPx, tex);
        if (auto erreur = dessin(surface))
            return erreur;
        surface.termine();
        return {};
    }
    if (format != FormatSortie::Pdf)
        return "Le format de sortie de " + texteCite(cible) + " est inconnu : .png, .svg, .pdf, .tex ou .txt.";
    SurfacePdf surface(fichier.flux(), largeurPx, hauteurPx);
    if (auto erreur = dessin(surface))
        return erreur;
    if (!surface.termine())
        return echecDessin(cible);
    return {};
}

}  // namespace velorin
