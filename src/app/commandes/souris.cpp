// The mouse on the drawing. On release: the middle button pops up the
// "PARAMETRER" menu ("Déjà tracé" with Shift), the right button the "ZOOM"
// menu (with Alt it asks for a label, which the drawing area signals). In
// the plane, the left button with Shift drags the frame, with Alt marks a
// window to zoom into. The plain left button turns the view in space and
// pans the frame in the plane, live; the wheel zooms. Every redraw the
// mouse causes skips the per-point pause.
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QToolTip>
#include <functional>

#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "view/souris.h"

namespace velorin {

namespace {

// Calls `action` when the mouse moves over the object it watches.
class SuiviSouris : public QObject {
public:
    SuiviSouris(QObject* parent, std::function<void()> action) : QObject(parent), action_(std::move(action)) { }

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::MouseMove)
            action_();
        return false;
    }

private:
    std::function<void()> action_;
};

}  // namespace

void Mirado::brancheSouris()
{
    // The tip bubble over the drawing takes the colours of a tooltip; set
    // one by one, they are not inherited from the drawing's background.
    const QPalette bulle = QToolTip::palette();
    QPalette p = Label6->palette();
    p.setColor(QPalette::Window, bulle.color(QPalette::ToolTipBase));
    p.setColor(QPalette::WindowText, bulle.color(QPalette::ToolTipText));
    Label6->setPalette(p);
    Label6->setFrameShape(QFrame::Box);
    Label6->setMargin(2);
    Label2->setMouseTracking(true);
    Label2->installEventFilter(new SuiviSouris(Label2, [this] { Label2_MouseMove(); }));
    connect(zone_, &ZoneDessin::boutonEnfonce, this, &Mirado::Form_MouseDown);
    connect(zone_, &ZoneDessin::sourisDeplacee, this, &Mirado::Form_MouseMove);
    connect(zone_, &ZoneDessin::boutonRelache, this, &Mirado::Form_MouseUp);
    connect(zone_, &ZoneDessin::moletteTournee, this, &Mirado::molette);
    connect(zone_, &ZoneDessin::toucheRelachee, this, &Mirado::Form_KeyUp);
}

QPointF Mirado::enTwips(QPoint pixels) const
{
    const double largeur = image_.isNull() ? 0 : image_.width() / image_.devicePixelRatio();
    const double k = surface_ && largeur > 0 ? surface_->Width() / largeur : twipsParPixelEcran;
    return QPointF(pixels) * k;
}

void Mirado::redessineSansPause()
{
    bool& pause = etat.fenetre.pauseActive;
    const bool avant = pause;
    pause = false;
    Command3_Click();
    pause = avant;
}

void Mirado::redes(QPoint depart, QPoint arrivee)
{
    if (traceEnCours_)
        return;
    const QPointF d = enTwips(arrivee) - enTwips(depart);
    if (!velorin::redes(etat.param, etat.vue, d.x(), d.y()))
        return;
    redessineSansPause();
    affou();
}

void Mirado::Form_MouseDown(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches)
{
    geste_.depart = geste_.dernier = pixels;
    geste_.geste = Geste::bouton;
    if (bouton != Qt::LeftButton)
        return;
    const bool plan = etat.fenetre.modePlan;
    const Qt::KeyboardModifiers choix = touches & (Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier);
    if (choix == Qt::NoModifier)
        geste_.geste = Geste::vue;
    else if (plan && choix == Qt::ShiftModifier)
        geste_.geste = Geste::cadre;
    else if (plan && choix == Qt::AltModifier)
        geste_.geste = Geste::loupe;
    else
        geste_.geste = Geste::aucun;
}

void Mirado::Form_MouseMove(QPoint pixels, Qt::MouseButtons boutons, Qt::KeyboardModifiers)
{
    lecturePointeur(pixels);
    if (!(boutons & Qt::LeftButton))
        return;
    if (geste_.geste == Geste::loupe) {
        dessineloupe(pixels);
        return;
    }
    // During a redraw the drag is kept whole for the next move.
    if (geste_.geste != Geste::vue || traceEnCours_ || pixels == geste_.dernier)
        return;
    bool change;
    if (etat.fenetre.modeEspace) {
        const QPoint d = pixels - geste_.dernier;
        // In cavalière the drag turns the solid about Oz.
        change = etat.rendu.cavaliere ? glisseCavaliere(etat.rendu.tourCavaliere, d.x())
                                      : tourneVue(etat.param, d.x(), d.y());
    } else {
        const QPointF d = enTwips(pixels) - enTwips(geste_.dernier);
        change = velorin::redes(etat.param, etat.vue, d.x(), d.y());
    }
    geste_.dernier = pixels;
    if (!change)
        return;
    redessineSansPause();
    if (etat.fenetre.modeEspace)
        affviseur();
    else
        affou();
}

void Mirado::Form_MouseUp(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches)
{
    const Geste geste = geste_.geste;
    geste_.geste = Geste::aucun;
    const QPoint ecran = zone_->mapToGlobal(pixels);
    switch (geste) {
    case Geste::cadre: redes(geste_.depart, pixels); break;
    case Geste::loupe: demandeloupe(pixels); break;
    case Geste::vue:
        // The end of a drag that the last move did not apply.
        geste_.geste = Geste::vue;
        Form_MouseMove(pixels, Qt::LeftButton, touches);
        geste_.geste = Geste::aucun;
        break;
    case Geste::bouton:
        if (bouton == Qt::MiddleButton)
            (touches & Qt::ShiftModifier ? mnutrace : mnupar)->popup(ecran);
        else if (bouton == Qt::RightButton && !(touches & Qt::AltModifier))
            mnuz->popup(ecran);
        break;
    case Geste::aucun: break;
    }
}

}  // namespace velorin
