#include "app/commandes/etiquettes.h"

#include <QMouseEvent>
#include <cmath>

#include "app/dialogues/etiquette.h"
#include "app/fenetre/zone_dessin.h"
#include "plot/ecran.h"
#include "qt/surface_qpainter.h"
#include "view/surface.h"

namespace velorin {

namespace {

// Label positions are kept in twips of the drawing, as on the surface.
float enTwips(int pixels)
{
    return float(pixels * twipsParPixelEcran);
}
int enPixels(float twips)
{
    return int(std::lround(twips / twipsParPixelEcran));
}

}  // namespace

Lb3::Lb3(int index, QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("Lb3"));
    setProperty("index", index);
    setMouseTracking(true);
    setCursor(Qt::OpenHandCursor);
}

void Lb3::mousePressEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton) {
        prise_ = e->position().toPoint();
        glisse_ = false;
    }
    e->accept();
}

void Lb3::mouseMoveEvent(QMouseEvent* e)
{
    if (e->buttons() & Qt::LeftButton) {
        const QPoint coin = mapToParent(e->position().toPoint()) - prise_;
        if (glisse_ || (coin - pos()).manhattanLength() >= 2) {
            glisse_ = true;
            move(coin);
        }
    } else {
        emit survole(index());
    }
    e->accept();
}

void Lb3::mouseReleaseEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton && glisse_) {
        glisse_ = false;
        emit deplace(index(), pos());
    } else if (e->button() != Qt::LeftButton) {
        emit relache(index(), e->button(), e->modifiers());
    }
    e->accept();
}

void Lb3::mouseDoubleClickEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton)
        emit doubleClic(index());
    e->accept();
}

CommandesEtiquettes::CommandesEtiquettes(Etat& etat, const Boites& boites, ZoneDessin* zone, QWidget* fenetre)
    : QObject(fenetre), etat_(etat), boites_(boites), zone_(zone), fenetre_(fenetre)
{
    setObjectName(QStringLiteral("CommandesEtiquettes"));
    editeur = [this](QWidget* parent, Etiquette& l) {
        EditeurEtiquette dialogue(l, boites_, parent);
        return dialogue.exec() == QDialog::Accepted;
    };
    connect(zone_, &ZoneDessin::demandeEtiquette, this, &CommandesEtiquettes::creation);
    reconstruit();
}

Lb3* CommandesEtiquettes::controle(int index) const
{
    return index >= 0 && index < int(controles_.size()) ? controles_[index] : nullptr;
}

void CommandesEtiquettes::montre(int index)
{
    while (int(controles_.size()) <= index) {
        auto* c = new Lb3(int(controles_.size()), zone_);
        connect(c, &Lb3::relache, this, &CommandesEtiquettes::Lb3_MouseUp);
        connect(c, &Lb3::survole, this, &CommandesEtiquettes::Lb3_MouseMove);
        connect(c, &Lb3::doubleClic, this, &CommandesEtiquettes::Lb3_DblClick);
        connect(c, &Lb3::deplace, this, &CommandesEtiquettes::place);
        controles_.push_back(c);
    }
    const Etiquette& l = etat_.etiquettes.lb[index];
    Lb3* c = controles_[index];
    c->setFont(policeEtiquette(l));
    c->setText(QString::fromStdString(l.texte));
    QPalette p = c->palette();
    p.setColor(QPalette::WindowText, couleurQt(Couleur(l.couleur) & 0xFFFFFF));
    c->setPalette(p);
    c->adjustSize();
    c->move(enPixels(l.gauche), enPixels(l.haut));
    c->setVisible(index > 0 && l.visible);
}

void CommandesEtiquettes::signale(const char* nom)
{
    if (avantChangement)
        avantChangement(nom);
}

void CommandesEtiquettes::reconstruit()
{
    const int n = int(etat_.etiquettes.lb.size());
    while (int(controles_.size()) > n) {
        delete controles_.back();
        controles_.pop_back();
    }
    for (int k = 0; k < n; ++k)
        montre(k);
}

void CommandesEtiquettes::place(int index, QPoint pixels)
{
    if (index < 1 || index > etat_.etiquettes.nombre())
        return;
    signale("le déplacement d'un label");
    Etiquette& l = etat_.etiquettes.lb[index];
    l.gauche = enTwips(pixels.x());
    l.haut = enTwips(pixels.y());
}

void CommandesEtiquettes::creation(QPoint pixels)
{
    signale("la création d'un label");
    Etiquettes& e = etat_.etiquettes;
    const int k = ajouteEtiquette(e, enTwips(pixels.x()), enTwips(pixels.y()));
    // A new label is written in the window's drawing colour, which stands
    // out on the background in force (the template's black would not).
    e.lb[k].couleur = std::int32_t(couleursRepere(etat_).axes);
    montre(k);
    Etiquette edite = e.lb[k];
    const bool garde = editeur && editeur(fenetre_, edite) && !edite.texte.empty();
    if (!garde || k > e.nombre()) {
        // Nothing typed: the label is unloaded again.
        if (k == e.nombre())
            e.lb.pop_back();
        reconstruit();
        return;
    }
    edite.visible = true;
    e.lb[k] = edite;
    montre(k);
}

void CommandesEtiquettes::Lb3_MouseUp(int index, Qt::MouseButton bouton, Qt::KeyboardModifiers touches)
{
    if (bouton != Qt::RightButton || index < 1 || index > etat_.etiquettes.nombre())
        return;
    signale("la modification d'un label");
    Etiquette& l = etat_.etiquettes.lb[index];
    const Qt::KeyboardModifiers t = touches & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    std::optional<QString> reponse;
    if (t == Qt::NoModifier) {
        reponse = boites_.saisie(fenetre_, QStringLiteral("0)Blanc ou noir 1)Bleu 2)Rouge 3 Jaune 4) Vert"),
                                 QStringLiteral("Couleur du texte de ce label"));
        if (reponse)
            l.couleur = std::int32_t(couleurChoisie(reponse->toStdString(), etat_.defaut, couleursRepere(etat_).axes));
    } else if (t == Qt::ShiftModifier) {
        reponse = boites_.saisie(fenetre_, QStringLiteral("0)Arial 1)Courier 2)Times 3 Grec 4) Algerian"),
                                 QStringLiteral("Police du texte de ce label"));
        if (reponse)
            if (auto police = policeChoisie(reponse->toStdString()))
                l.police = *police;
    } else if (t == Qt::ControlModifier) {
        reponse = boites_.saisie(fenetre_, QStringLiteral("Tapez la nouvelle taille de police"),
                                 QStringLiteral("taille actuelle : ") + QString::number(l.taille));
        if (reponse)
            if (auto taille = tailleChoisie(reponse->toStdString()))
                l.taille = *taille;
    }
    montre(index);
}

void CommandesEtiquettes::Lb3_MouseMove(int index)
{
    if (Lb3* c = controle(index); c && index <= etat_.etiquettes.nombre())
        c->setToolTip(QString::fromStdString(bulleEtiquette(etat_.etiquettes, index)));
}

void CommandesEtiquettes::Lb3_DblClick(int index)
{
    if (index < 1 || index > etat_.etiquettes.nombre())
        return;
    signale("la suppression d'un label");
    etat_.etiquettes.lb[index].texte.clear();
    arralb3(etat_.etiquettes);
    // The control being double-clicked may be the one unloaded: it goes
    // once its event is over.
    const int n = int(etat_.etiquettes.lb.size());
    while (int(controles_.size()) > n) {
        controles_.back()->hide();
        controles_.back()->deleteLater();
        controles_.pop_back();
    }
    for (int k = 1; k < n; ++k)
        montre(k);
}

void CommandesEtiquettes::videlabel()
{
    velorin::videlabel(etat_.etiquettes);
    reconstruit();
}

}  // namespace velorin
