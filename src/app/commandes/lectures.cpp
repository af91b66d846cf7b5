// The read-outs that follow the mouse and the keys: the point under the
// mouse in Label1 (and in the tip bubble Label6, which Timer6 hides), the
// drawing's size in Label5, the last key released, and the tip of Label2.
#include <QKeySequence>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTimer>

#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "view/format_nombre.h"
#include "view/lectures.h"
#include "view/souris.h"

namespace velorin {

void Mirado::Form_KeyUp(int touche)
{
    // Letters and digits are their own codes; other keys by their name.
    const QString nom =
        touche < 0x100 ? QString::fromStdString(formatNombre(touche, "000")) : QKeySequence(touche).toString();
    Label1->setText(QStringLiteral("Touche ") + nom);
}

void Mirado::lecturePointeur(QPoint pixels)
{
    if (!surface_)
        return;
    const double W = surface_->Width(), H = surface_->Height();
    Label5->setText(QString::fromStdString(texteTaille(W, H)));
    const QPointF ici = enTwips(pixels);
    std::string texte;
    if (etat.fenetre.modePlan) {
        double x = 0, y = 0;
        if (!pointDuPlan(etat.vue, ici.x(), ici.y(), x, y))
            return;
        texte = texteLecturePlan(x, y);
    } else {
        double Px, Py, x, y, z;
        pointPlanProjection(etat.vue, ici.x(), ici.y(), Px, Py);
        int fixe = 0;
        while (fixe < 2 && !Option1[fixe]->isChecked())
            ++fixe;
        const QListWidgetItem* choisi = List1->currentItem();
        const double valeur = choisi ? choisi->text().toDouble() : 0;
        texte = solvons(etat.param, etat.vue, Px, Py, fixe, valeur, x, y, z) ? texteLectureEspace(x, y, z, Px, Py)
                                                                             : texteLectureSansPoint(Px, Py);
    }
    const QString lu = QString::fromStdString(texte);
    const bool lignes = lu.count(QLatin1Char('\n')) != Label1->text().count(QLatin1Char('\n'));
    Label1->setText(lu);
    if (lignes)
        arrangelabel();
    affibulle(pixels, lu);
}

void Mirado::affibulle(QPoint pixels, const QString& texte)
{
    Label6->setText(texte);
    Label6->adjustSize();
    // Below right of the pointer, kept inside the drawing.
    const QSize t = Label6->size();
    const int x = std::max(0, std::min(pixels.x() + 16, zone_->width() - t.width()));
    const int y = std::max(0, std::min(pixels.y() + 16, zone_->height() - t.height()));
    Label6->move(x, y);
    Label6->show();
    Label6->raise();
    Timer6->start();
}

void Mirado::Label2_MouseMove()
{
    Label2->setToolTip(Label2->text());
}

}  // namespace velorin
