// The main window: start-up, reading of the parameters, calibration and the
// redraw of everything.
#include "app/fenetre/mirado.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QToolButton>

#include "app/commandes/etiquettes.h"
#include "app/commandes/impression.h"
#include "app/edition/edition.h"
#include "app/fenetre/zone_dessin.h"
#include "app/gestes/gestes.h"
#include "app/rendu/menu_rendu.h"
#include "catalogue/catalogue.h"
#include "plot/ecran.h"
#include "qt/dossiers.h"
#include "qt/surface_qpainter.h"
#include "settings/memoire.h"
#include "view/lectures.h"

namespace velorin {

const char* const legendeMirado = "TRACE DE COURBES ET SURFACES DANS L'ESPACE";

Mirado::Mirado(Etat& e, const QString& appli, Boites b, QWidget* parent)
    : QMainWindow(parent), etat(e), boites(std::move(b)), dossierAppli(QDir(appli).absolutePath())
{
    setObjectName(QStringLiteral("MIRADO"));
    setWindowTitle(QString::fromUtf8(legendeMirado));
    creePanneaux();
    creeMenus();
    rendu_ = new MenuRendu(*this, mnua, etat, boites, [this] { return refuseSiOccupe(); },
                           [this] { redessineSansPause(); });
    installeImpression(*this);
    creeMinuteries();
    brancheSouris();
    etiquettes_ = new CommandesEtiquettes(etat, boites, zone_, this);
    relieFigures();
    edition_ = new Edition(*this);
    gestes_ = new Gestes(*this, zone_, etiquettes_, menuEdition(*this));
    menuBar()->installEventFilter(this);

    // Form_Load
    EtatFenetre& f = etat.fenetre;
    fixeDossiers(f, dossierAppli);
    if (auto erreur = prepareDossiers(dossierAppli))
        boites.message(this, QString::fromStdString(erreur.message()));
    f.choisisMode(true);
    f.fichierCatalogue = "Lisurf.lsu";
    placeFenetre();
    f.pauseActive = true;
    montrePanneau();
    aflico();
    debutravail();
    // The pointer read-out starts on the plane z = 0.
    bricole(2, 0);
}

Mirado::~Mirado()
{
    // The surface paints on the bitmap: it goes first.
    surface_.reset();
}

// Left 0, Top 0, width = screen width - 100 twips, height = screen height -
// 500 twips, taken as the outer size of the window.
void Mirado::placeFenetre()
{
    const QScreen* ecranPhysique = screen() ? screen() : QGuiApplication::primaryScreen();
    if (!ecranPhysique)
        return;
    const QRect r = ecranPhysique->geometry();
    const double twipsParPixel = 1440.0 / ecranPhysique->logicalDotsPerInchX();
    const int largeur = r.width() - int(100 / twipsParPixel + 0.5);
    const int hauteur = r.height() - int(500 / twipsParPixel + 0.5);
    move(r.topLeft());
    resize(std::max(largeur, 400), std::max(hauteur, 300));
}

QString Mirado::cheminCatalogue() const
{
    return QString::fromStdString(etat.fenetre.dossierCourbes + etat.fenetre.fichierCatalogue);
}

void Mirado::debutravail()
{
    if (refuseSiOccupe())
        return;
    // The drawn curves and the labels stay: lecdebut redraws each row by its
    // record number in the catalogue now in force, then the window is
    // cleared and only the frame drawn; "O&K" brings the rows back.
    reinitialiseSuivi(etat.etiquettes);
    if (auto erreur = ouvrirCatalogue(etat.catalogue, cheminCatalogue().toStdString()))
        boites.message(this, QString::fromStdString(erreur.message()));
    setWindowTitle(QString::fromUtf8(legendeMirado));
    lecdebut(0);
    rendu_->charge();
    afmenu();
    titreTrace_ = QStringLiteral("Dans ") + cheminCatalogue();
    ajusteTitreTrace();
    mnupara_Click(5);
    mnupara_Click(3);
    affviseur();
}

void Mirado::lecdebut(int choix)
{
    if (refuseSiOccupe())
        return;
    const std::string chemin = etat.fenetre.dossierCourbes + nomFichierMemoire(choix == 0);
    // A missing or damaged file changes nothing: the values in force stay
    // (at start-up, the program's own values).
    if (auto erreur = lisMemoire(chemin, etat.param))
        boites.message(this, QString::fromStdString(erreur.message()) +
                                 QStringLiteral("\nLes valeurs en vigueur sont conservées."));
    lecouleurs();
    affou();
    Command3_Click();
}

void Mirado::lecouleurs()
{
    etat.defaut = CouleursDefaut{};
    if (etat.fenetre.inversionVideo)
        etat.defaut.coulNoir = inverseVideo(etat.defaut.coulNoir);
    QPalette p = zone_->palette();
    p.setColor(QPalette::Window, couleurQt(etat.defaut.coulNoir));
    zone_->setPalette(p);
}

void Mirado::nouvelleImage()
{
    surface_.reset();
    const qreal dpr = zone_->devicePixelRatioF();
    const QSize logique = zone_->size().expandedTo(QSize(1, 1));
    image_ = imagePourSurface(logique.width(), logique.height(), dpr);
    image_.fill(couleurQt(etat.couleurs.couleurFond));
    surface_ = std::make_unique<SurfaceQPainter>(image_);
    zone_->montre(&image_);
}

void Mirado::suisTaille()
{
    attenteTaille_->stop();
    if (traceEnCours_) {
        // The bitmap is being drawn on: the new size waits for the end.
        redessinEnAttente_ = true;
        return;
    }
    nouvelleImage();
    redessineSansPause();
}

void Mirado::controlfenetre()
{
    EtatFenetre& f = etat.fenetre;
    if (!surface_)
        nouvelleImage();
    const double W = surface_->Width(), H = surface_->Height();
    if (W != f.largeurVue || H != f.hauteurVue) {
        f.largeurVue = W;
        f.hauteurVue = H;
        Label5->setText(QString::fromStdString(texteTaille(W, H)));
    }
    if (ajusteVue(etat, W, H))
        return;
    boites.message(this, QString::fromUtf8(messageBaseRetablie));
    // "mem.log" back in force; if it is unreadable or itself refused, the
    // base [-10,10] set by the calibration stays.
    static_cast<void>(lisMemoire(f.dossierCourbes + nomFichierMemoire(true), etat.param));
    ajusteVue(etat, W, H);
    affou();
    affviseur();
}

void Mirado::Command3_Click()
{
    if (refuseSiOccupe())
        return;
    controlfenetre();
    seance({.lignes = toutesLesLignes(etat.courbes)});
}

bool Mirado::barreDeborde()
{
    QMenuBar* barre = menuBar();
    // Asking for a geometry brings the bar's layout up to date; the entries
    // that do not fit are then behind the "»" button.
    for (QAction* a : barre->actions())
        if (a->isVisible() && !barre->rect().contains(barre->actionGeometry(a)))
            return true;
    const auto* suite = barre->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
    return suite && !suite->isHidden();
}

void Mirado::ajusteTitreTrace()
{
    QAction* titre = mnutrace->menuAction();
    // A caption that changes makes the bar lay its entries out again (a
    // resize reaches this before the bar itself).
    mnutrace->setTitle(QString());
    mnutrace->setTitle(titreTrace_);
    titre->setToolTip(QString());
    if (!barreDeborde())
        return;
    // The widest shortened caption with which every menu shows: "Dans "
    // stays, the path is shortened in its middle; when even "Dans …" does
    // not do (a very narrow window), that one.
    const QFontMetrics fm(menuBar()->font());
    const QString dans = titreTrace_.left(5), chemin = titreTrace_.mid(5);
    const auto court = [&](int largeur) { return dans + fm.elidedText(chemin, Qt::ElideMiddle, largeur); };
    int bas = fm.horizontalAdvance(QChar(0x2026)), haut = fm.horizontalAdvance(chemin);
    while (bas < haut) {
        const int milieu = (bas + haut + 1) / 2;
        mnutrace->setTitle(court(milieu));
        if (barreDeborde())
            haut = milieu - 1;
        else
            bas = milieu;
    }
    mnutrace->setTitle(court(bas));
    titre->setToolTip(titreTrace_);
}

void Mirado::closeEvent(QCloseEvent* e)
{
    // Closing during a tracing stops it; the window closes as usual.
    echap_ = true;
    e->accept();
}

}  // namespace velorin
