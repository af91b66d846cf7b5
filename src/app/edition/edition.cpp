#include "app/edition/edition.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

#include "app/commandes/etiquettes.h"
#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "app/rendu/menu_rendu.h"

namespace velorin {

namespace {

// The undoable entries of the menus: array name, index (-1: every entry of
// the array), name of the step, how it is kept.
struct Article {
    const char* tableau;
    int index;
    const char* nom;
    Edition::Sorte sorte;
};
constexpr Edition::Sorte etat = Edition::Sorte::etat, catalogue = Edition::Sorte::catalogue,
                         ecran = Edition::Sorte::ecran;
const Article articles[] = {
    {"mnulifi", -1, "le changement de catalogue", etat},
    {"mnulico", -1, "le changement de catalogue", etat},
    {"mnutf", -1, "la création de fonction", catalogue},
    {"mnufa", -1, "le tracé", etat},
    {"mnuf", 2, "le repère de base", etat},
    {"mnupara", 0, "le réglage du repère", etat},
    {"mnupara", 1, "les couleurs", etat},
    {"mnupara", 2, "l'inversion vidéo", etat},
    {"mnupara", 3, "le tracé du repère", ecran},
    {"mnupara", 4, "l'effacement du repère", ecran},
    {"mnupara", 5, "l'effacement de l'écran", ecran},
    {"mnupara", 8, "l'élagage", catalogue},
    {"mnucl", -1, "la couleur des courbes", etat},
    {"mnuct", -1, "la couleur des tangentes", etat},
    {"mnuper", -1, "l'ordre des boucles", etat},
    {"mnuchcol", -1, "le choix des couleurs", etat},
    {"mnuroti", -1, "le tour complet", etat},
    {"mnurotan", -1, "la rotation", etat},
    {"mnuzo", 0, "le zoom", etat},
    {"mnuzo", 1, "le zoom", etat},
    {"mnuzo", 2, "le zoom", etat},
    {"mnuzo", 3, "le zoom", etat},
    {"mnuzo", 4, "le retrait du dessin", etat},
    {"mnuzo", 5, "les points en mémoire", catalogue},
    {"mnutra", -1, "le retrait du dessin", etat},
    {"mnumemfig", 1, "la lecture d'une figure", Edition::Sorte::fenetre},
    // The "Rendu" menu: the drawing style, the cavalière view, grid and graduations.
    {"mnurendus", -1, "le style de rendu", etat},
    {"mnucav", -1, "la perspective cavalière", etat},
    {"mnucavangle", -1, "l'angle de fuite", etat},
    {"mnucavcoef", -1, "le coefficient de réduction", etat},
    {"mnuquadrillage", -1, "le quadrillage", etat},
    {"mnugradue", -1, "le repère gradué", etat},
};

// The side buttons, pressed before their command runs.
const std::pair<const char*, const char*> boutons[] = {
    {"Command1", "le réglage du point de vue"},
    {"Command2", "le réglage du point de vue"},
    {"Command4", "la remise à zéro de la vue"},
    {"Command7", "la remise à zéro du repère"},
    {"Command5_0", "la rotation"},
    {"Command5_1", "la rotation"},
    {"Command5_2", "la rotation"},
    {"Command5_3", "la rotation"},
    {"Command5_4", "la rotation"},
    {"Command5_5", "la rotation"},
};

// Wheel turns closer than this to each other are one zoom.
constexpr int moletteContinue = 1000;  // ms

}  // namespace

Edition::Edition(Mirado& fenetre) : QObject(&fenetre), m_(fenetre)
{
    setObjectName(QStringLiteral("Edition"));
    menu_ = new QMenu(QStringLiteral("Édition"), m_.menuBar());
    menu_->setObjectName(QStringLiteral("mnuedition"));
    // Right after "Exporter", whatever menus follow it.
    const QList<QAction*> barre = m_.menuBar()->actions();
    const qsizetype exporter = barre.indexOf(m_.mnuexp->menuAction());
    m_.menuBar()->insertMenu(exporter >= 0 && exporter + 1 < barre.size() ? barre[exporter + 1] : nullptr, menu_);
    annuler_ = menu_->addAction(QStringLiteral("Annuler"));
    annuler_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    retablir_ = menu_->addAction(QStringLiteral("Rétablir"));
    retablir_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    Mirado::nommeArticle(annuler_, "mnuedit", 0);
    Mirado::nommeArticle(retablir_, "mnuedit", 1);
    connect(annuler_, &QAction::triggered, this, &Edition::annule);
    connect(retablir_, &QAction::triggered, this, &Edition::retablis);
    connect(menu_, &QMenu::aboutToShow, this, &Edition::actualise);
    observeMenus();
    observeBoutons();
    m_.zone_->installEventFilter(this);
    m_.etiquettes_->avantChangement = [this](const char* nom) { avant(nom); };
    actualise();
}

void Edition::observeMenus()
{
    // A menu says which of its entries was triggered before the entry's own
    // command runs (it was connected to the entry first, when the entry was
    // added). Only the menu holding the entry counts: the menus above it
    // may say it again once the command is over. Every menu of the window
    // is watched, those of the bar and those it holds itself.
    for (QMenu* menu : m_.findChildren<QMenu*>()) {
        if (menu == menu_)
            continue;
        connect(menu, &QMenu::triggered, this, [this, menu](QAction* a) {
            if (!menu->actions().contains(a))
                return;
            const QByteArray tableau = a->objectName().toUtf8();
            const int index = a->property("index").toInt();
            for (const Article& art : articles)
                if (tableau == art.tableau && (art.index < 0 || art.index == index)) {
                    avant(art.nom, art.sorte);
                    return;
                }
        });
    }
}

void Edition::observeBoutons()
{
    for (const auto& [nom, action] : boutons)
        if (auto* b = m_.findChild<QPushButton*>(QString::fromUtf8(nom)))
            connect(b, &QPushButton::pressed, this, [this, action] { avant(action); });
}

bool Edition::eventFilter(QObject* objet, QEvent* evenement)
{
    if (objet == m_.zone_ && evenement->type() == QEvent::MouseButtonPress) {
        const auto* e = static_cast<QMouseEvent*>(evenement);
        const Qt::KeyboardModifiers choix =
            e->modifiers() & (Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier);
        if (e->button() == Qt::LeftButton && choix == Qt::NoModifier)
            avant(m_.etat.fenetre.modeEspace ? "la rotation à la souris" : "le déplacement du repère");
        else if (e->button() == Qt::LeftButton && choix == Qt::ShiftModifier && m_.etat.fenetre.modePlan)
            avant("le déplacement du repère");
    }
    if (objet == m_.zone_ && evenement->type() == QEvent::Wheel)
        avant("le zoom", Sorte::molette);
    return QObject::eventFilter(objet, evenement);
}

void Edition::avant(const char* nom, Sorte sorte)
{
    // During a tracing the command is refused: nothing to keep.
    if (m_.enTrace())
        return;
    if (sorte == Sorte::molette && enAttente_ && enAttente_->nom == nom && derniereMolette_.isValid() &&
        derniereMolette_.elapsed() < moletteContinue) {
        derniereMolette_.restart();
        return;
    }
    valide();
    if (sorte == Sorte::molette)
        derniereMolette_.restart();
    Pas pas = photographie(m_.etat, nom, sorte == Sorte::catalogue);
    if (sorte == Sorte::fenetre)
        pas.cadreFenetre = cadre();
    if (sorte == Sorte::ecran)
        historique_.ajoute(std::move(pas));
    else
        enAttente_ = std::move(pas);
    libelles();
}

void Edition::valide()
{
    if (enAttente_ && !inchange(*enAttente_, m_.etat))
        historique_.ajoute(std::move(*enAttente_));
    enAttente_.reset();
}

void Edition::actualise()
{
    valide();
    libelles();
}

void Edition::libelles()
{
    // A step in waiting whose action changed the state is the next to undo,
    // and then nothing is left to redo.
    const bool attente = enAttente_ && !inchange(*enAttente_, m_.etat);
    const Pas* annulable = attente ? &*enAttente_ : historique_.aAnnuler();
    const Pas* retablissable = attente ? nullptr : historique_.aRetablir();
    annuler_->setText(annulable ? QStringLiteral("Annuler ") + QString::fromStdString(annulable->nom)
                                : QStringLiteral("Annuler"));
    retablir_->setText(retablissable ? QStringLiteral("Rétablir ") + QString::fromStdString(retablissable->nom)
                                     : QStringLiteral("Rétablir"));
    // A step still in waiting may have changed the state since: the shortcut
    // stays available and settles it.
    annuler_->setEnabled(annulable || enAttente_);
    retablir_->setEnabled(retablissable || enAttente_);
}

std::array<int, 4> Edition::cadre() const
{
    const QRect r = m_.geometry();
    return {r.x(), r.y(), r.width(), r.height()};
}

void Edition::annule()
{
    parcours(&Historique::aAnnuler, &Historique::annule);
}

void Edition::retablis()
{
    parcours(&Historique::aRetablir, &Historique::retablis);
}

void Edition::parcours(const Pas* (Historique::*haut)() const, std::optional<Pas> (Historique::*prends)(Pas))
{
    if (m_.refuseSiOccupe())
        return;
    // A full turn or a head rotation in progress stops where it is.
    m_.Timer2->stop();
    m_.Timer3->stop();
    m_.etat.fenetre.pauseActive = true;
    valide();
    if (const Pas* pas = (historique_.*haut)()) {
        // The state now, kept for the opposite way.
        Pas maintenant = pareilMaintenant(m_.etat, *pas);
        if (pas->cadreFenetre)
            maintenant.cadreFenetre = cadre();
        applique(*(historique_.*prends)(std::move(maintenant)));
    }
    actualise();
}

void Edition::applique(const Pas& pas)
{
    Etat& etat = m_.etat;
    if (Erreur e = remets(pas, etat))
        m_.boites.message(&m_, QString::fromStdString(e.message()));
    // What shows the state: background palette, panel of the mode, check
    // marks, catalogue menus, drawn curves, labels, read-outs.
    const CouleursDefaut defaut = etat.defaut;
    m_.lecouleurs();
    etat.defaut = defaut;
    m_.montrePanneau();
    m_.marqueChoix();
    m_.rendu_->marque();
    m_.aflico();
    m_.afmenu();
    m_.titreTrace_ = QStringLiteral("Dans ") + m_.cheminCatalogue();
    m_.ajusteTitreTrace();
    m_.vide_mnutra();
    for (int i = 1; i <= etat.courbes.nbCourbes; ++i)
        m_.ajoute_mnutra();
    m_.etiquettes_->reconstruit();
    m_.affou();
    m_.affviseur();
    if (pas.cadreFenetre && *pas.cadreFenetre != cadre()) {
        // The window's former size, drawn once at that size.
        const auto& [x, y, largeur, hauteur] = *pas.cadreFenetre;
        QSignalBlocker attente(m_.attenteTaille_);
        m_.setGeometry(x, y, largeur, hauteur);
        m_.suisTaille();
    } else {
        m_.redessineSansPause();
    }
    // The redraw leaves the values of the last curve drawn in force: the
    // step's own values come back, as they were before.
    static_cast<void>(restaure(pas.etat, etat));
}

}  // namespace velorin
