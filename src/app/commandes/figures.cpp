// Figure files from the window: "Sauver cet écran" and "&Mem" write the
// whole screen to a ".fig" file of the figures folder of the mode in force;
// "Lire un écran mémorisé" reads one back and draws it again. The file
// itself is read and written by the core (plot/figure.h); here the window
// asks for the name or the file, gives itself the figure's place, size and
// colours, and rebuilds what shows the state (panels, menus, labels).
#include <QAction>
#include <QFileDialog>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <cmath>

#include "app/commandes/etiquettes.h"
#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "plot/figure.h"
#include "view/placement.h"
#include "view/surface.h"

namespace velorin {

namespace {

// The filter of the figure chooser, in the file dialog's own syntax.
const char* const filtreFigures = "Figures (*.fig)";

}  // namespace

void Mirado::relieFigures()
{
    for (int i = 0; i < int(mnumemfig.size()); ++i) {
        mnumemfig[i]->setEnabled(true);
        connect(mnumemfig[i], &QAction::triggered, this, [this, i] { i == 0 ? memorisons() : lecmemoire(); });
    }
    Command6->setEnabled(true);
    connect(Command6, &QPushButton::clicked, this, &Mirado::memorisons);
}

GeometrieFenetre Mirado::geometrieFigure() const
{
    const QRect r = geometry();
    const auto twips = [](int pixels) { return float(pixels * twipsParPixelEcran); };
    return {twips(r.x()), twips(r.y()), twips(r.width()), twips(r.height())};
}

void Mirado::memorisons()
{
    if (refuseSiOccupe())
        return;
    const QString dossier = QString::fromStdString(etat.fenetre.dossierFig);
    const std::optional<QString> nom =
        boites.saisie(this, QStringLiteral("Entrez un nom simple pour mémoriser cette figure"),
                      QStringLiteral("mise en mémoire dans ") + dossier);
    if (!nom || nom->isEmpty())
        return;  // cancelled: nothing is written
    const std::string chemin = etat.fenetre.dossierFig + nom->toStdString() + ".fig";
    if (auto erreur = ecrisFigure(chemin, etat, geometrieFigure()))
        boites.message(this, QString::fromStdString(erreur.message()));
}

void Mirado::lecmemoire()
{
    if (refuseSiOccupe())
        return;
    etiquettes_->videlabel();
    const QString dossier = QString::fromStdString(etat.fenetre.dossierFig);
    const QString filtre = QString::fromUtf8(filtreFigures);
    const std::optional<QString> choisi =
        choixFigure ? choixFigure(this, dossier, filtre) : [&]() -> std::optional<QString> {
        const QString f = QFileDialog::getOpenFileName(this, QString(), dossier, filtre);
        return f.isEmpty() ? std::nullopt : std::optional<QString>(f);
    }();
    if (!choisi)
        return;  // cancelled: the labels are already gone
    const ResultatFigure r = lisFigure(choisi->toStdString(), etat);
    // The window takes the figure's size while the counts are shown: that
    // resize does not redraw by itself (it would say each curve's message
    // over the counts, then again); the redraw below does, once.
    QSignalBlocker attente(attenteTaille_);
    if (r.lignesLues > 0) {
        // Line 1 may have switched the mode, line 2 the catalogue.
        vide_mnutra();
        montrePanneau();
        afmenu();
        titreTrace_ = QStringLiteral("Dans ") + cheminCatalogue();
        ajusteTitreTrace();
    }
    if (r.geometrieLue) {
        // The figure's place and size, but the whole window on this screen.
        const GeometrieFenetre& g = r.geometrie;
        const double k = twipsParPixelEcran;
        const QRect e = screen()->availableGeometry(), f = frameGeometry(), d = geometry();
        const Bords bords{double(d.x() - f.x()), double(d.y() - f.y()), double(f.right() - d.right()),
                          double(f.bottom() - d.bottom())};
        const Cadre c =
            tiensSurEcran({g.gauche / k, g.haut / k, g.largeur / k, g.hauteur / k},
                          {double(e.x()), double(e.y()), double(e.width()), double(e.height())}, bords, 200, 150);
        setGeometry(int(std::lround(c.x)), int(std::lround(c.y)), int(c.largeur), int(c.hauteur));
        boites.message(this, QString::fromStdString(messageFigure(r)));
    }
    if (r.lignesLues > 0) {
        lecouleurs();
        const Couleur reference = etat.couleurs.couleurFond;
        suisTaille();                           // the bitmap at the new size, cleared, frame and every row drawn again
        etat.couleurs.couleurFond = reference;  // the figure's, until the next clearing
        for (int i = 1; i <= etat.courbes.nbCourbes; ++i)
            ajoute_mnutra();
        affviseur();
        affou();
        etiquettes_->reconstruit();
    }
    attente.unblock();
    if (r.erreur)
        boites.message(this, QString::fromStdString(r.erreur.message()));
}

}  // namespace velorin
