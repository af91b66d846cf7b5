#include "app/gestes/gestes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

#include "app/commandes/etiquettes.h"
#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"

namespace velorin {

namespace {

const char* const bulleRectangleEspace =
    "Dans le plan seulement : choisissez d'abord un fichier plan (Fichiers → Choisir un fichier plan).";

}  // namespace

QMenu* menuEdition(QMainWindow& fenetre)
{
    QMenuBar* barre = fenetre.menuBar();
    if (auto* deja = fenetre.findChild<QMenu*>(QStringLiteral("mnuedition")))
        return deja;
    auto* menu = new QMenu(QStringLiteral("Édition"), barre);
    menu->setObjectName(QStringLiteral("mnuedition"));
    // Right after "Exporter" (at the end when there is none).
    const QList<QAction*> titres = barre->actions();
    QAction* suivant = nullptr;
    for (int i = 0; i < titres.size(); ++i)
        if (titres[i]->menu() && titres[i]->menu()->objectName() == QLatin1String("mnuexp"))
            suivant = i + 1 < titres.size() ? titres[i + 1] : nullptr;
    barre->insertMenu(suivant, menu);
    return menu;
}

Gestes::Gestes(Mirado& fenetre, ZoneDessin* zone, CommandesEtiquettes* etiquettes, QMenu* menu)
    : QObject(&fenetre), fenetre_(fenetre), zone_(zone), etiquettes_(etiquettes)
{
    setObjectName(QStringLiteral("Gestes"));
    menu->addSeparator();
    label_ = menu->addAction(QStringLiteral("Nouveau label…"));
    rectangle_ = menu->addAction(QStringLiteral("Grossir un rectangle…"));
    label_->setToolTip(QStringLiteral("Puis un clic sur le dessin place le label (comme B droit + Alt) ; "
                                      "Échap annule."));
    int index = 0;
    for (QAction* a : {label_, rectangle_}) {
        a->setObjectName(QStringLiteral("mnugeste"));
        a->setProperty("index", index++);
    }
    // The tips say how to go on, or why the rectangle is not offered.
    menu->setToolTipsVisible(true);
    connect(label_, &QAction::triggered, this, &Gestes::attendsLabel);
    connect(rectangle_, &QAction::triggered, this, &Gestes::attendsRectangle);
    connect(menu, &QMenu::aboutToShow, this, &Gestes::suisLeMode);
    suisLeMode();
}

Gestes::~Gestes()
{
    qApp->removeEventFilter(this);
}

void Gestes::suisLeMode()
{
    const bool plan = fenetre_.etat.fenetre.modePlan;
    rectangle_->setEnabled(plan);
    rectangle_->setToolTip(plan ? QStringLiteral("Puis un glissé du bouton gauche sur le dessin marque le rectangle "
                                                 "(comme B gauche + Alt) ; Échap annule.")
                                : QString::fromUtf8(bulleRectangleEspace));
}

void Gestes::attendsLabel()
{
    attends(Attente::label);
}

void Gestes::attendsRectangle()
{
    // The entry can be reached with a stale state (the mode changed since
    // the menu was last shown): in space there is no rectangle to zoom.
    if (!fenetre_.etat.fenetre.modePlan) {
        suisLeMode();
        if (fenetre_.boites.message)
            fenetre_.boites.message(&fenetre_, QString::fromUtf8(bulleRectangleEspace));
        return;
    }
    attends(Attente::rectangle);
}

void Gestes::attends(Attente attente)
{
    annule();
    attente_ = attente;
    zone_->setCursor(Qt::CrossCursor);
    // The application's filter sees the clicks on the labels over the
    // drawing too, and Escape wherever the focus is.
    qApp->installEventFilter(this);
}

void Gestes::annule()
{
    qApp->removeEventFilter(this);
    if (attente_ != Attente::rien)
        zone_->unsetCursor();
    attente_ = Attente::rien;
    enfonce_ = false;
}

bool Gestes::eventFilter(QObject* objet, QEvent* evenement)
{
    const QEvent::Type type = evenement->type();
    if (type == QEvent::KeyPress && static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Escape) {
        // The key goes on: during a tracing it stops it too, in a dialog
        // it closes it.
        annule();
        return false;
    }
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonRelease && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonDblClick)
        return false;
    auto* w = qobject_cast<QWidget*>(objet);
    if (!w || (w != zone_ && !zone_->isAncestorOf(w)))
        return false;
    const QPoint ici = w->mapTo(zone_, static_cast<QMouseEvent*>(evenement)->position().toPoint());
    return souris(evenement, ici);
}

bool Gestes::souris(QEvent* evenement, QPoint ici)
{
    const auto* e = static_cast<QMouseEvent*>(evenement);
    const QEvent::Type type = e->type();
    if (type == QEvent::MouseMove) {
        // Without a button down the pointer read-out goes on.
        if (!enfonce_)
            return false;
        if (attente_ == Attente::rectangle)
            fenetre_.Form_MouseMove(ici, e->buttons(), Qt::AltModifier);
        return true;
    }
    if (e->button() != Qt::LeftButton) {
        if (type == QEvent::MouseButtonPress)
            annule();
        return true;
    }
    if (type == QEvent::MouseButtonPress) {
        enfonce_ = true;
        if (attente_ == Attente::rectangle)
            fenetre_.Form_MouseDown(ici, Qt::LeftButton, Qt::AltModifier);
    } else if (type == QEvent::MouseButtonRelease && enfonce_) {
        // The wait ends before the gesture: both open a modal box.
        const Attente attente = attente_;
        annule();
        if (attente == Attente::label)
            etiquettes_->creation(ici);
        else
            fenetre_.Form_MouseUp(ici, Qt::LeftButton, Qt::AltModifier);
    }
    return true;
}

}  // namespace velorin
