// Enlarging and reducing the drawing from the window: the four factors of
// the "ZOOM" menu, the magnifier rectangle drawn with the left button and
// Alt in the plane, and the wheel.
#include <QTimer>

#include "app/edition/edition.h"
#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "view/souris.h"
#include "view/zoom.h"

namespace velorin {

void Mirado::grossir(int mode)
{
    if (refuseSiOccupe())
        return;
    if (!velorin::grossir(etat.param, mode, etat.fenetre.modeEspace))
        return;
    Command3_Click();
    affou();
    affviseur();
}

void Mirado::dessineloupe(QPoint pixels)
{
    zone_->montreLoupe(QRect(geste_.depart, pixels));
}

void Mirado::demandeloupe(QPoint pixels)
{
    dessineloupe(pixels);
    const QPointF a = enTwips(geste_.depart), b = enTwips(pixels);
    // A click or a flat rectangle would empty a range: it is never offered.
    const bool plat = pixels.x() == geste_.depart.x() || pixels.y() == geste_.depart.y();
    const bool oui = !plat && boites.question &&
                     boites.question(this, QStringLiteral("Voulez-vous grossir la fenêtre dessinée?"),
                                     QStringLiteral("A VOTRE GUISE"));
    zone_->montreLoupe(QRect());
    if (!oui || refuseSiOccupe())
        return;
    edition_->avant("le zoom");
    if (!grossirLoupe(etat.param, etat.vue, a.x(), a.y(), b.x(), b.y()))
        return;
    Command3_Click();
    affou();
    affviseur();
}

void Mirado::molette(QPoint pixels, double crans)
{
    if (traceEnCours_)
        return;
    const QPointF ici = enTwips(pixels);
    if (!grossirMolette(etat.param, etat.vue, etat.fenetre.modeEspace, crans, ici.x(), ici.y()))
        return;
    redessineSansPause();
    affou();
    affviseur();
}

}  // namespace velorin
