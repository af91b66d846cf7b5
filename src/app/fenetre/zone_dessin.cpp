#include "app/fenetre/zone_dessin.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace velorin {

ZoneDessin::ZoneDessin(QWidget* parent) : QWidget(parent)
{
    // The whole area is covered by the bitmap: no background to paint first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void ZoneDessin::montre(const QImage* image)
{
    image_ = image;
    update();
}

void ZoneDessin::paintEvent(QPaintEvent* e)
{
    QPainter p(this);
    if (!image_ || image_->isNull()) {
        p.fillRect(e->rect(), palette().window());
        return;
    }
    // Until the bitmap follows a new size, the uncovered part shows the
    // window's background.
    p.drawImage(QPoint(0, 0), *image_);
    const QSizeF taille = QSizeF(image_->size()) / image_->devicePixelRatio();
    if (taille.width() < width())
        p.fillRect(QRectF(taille.width(), 0, width() - taille.width(), height()), palette().window());
    if (taille.height() < height())
        p.fillRect(QRectF(0, taille.height(), width(), height() - taille.height()), palette().window());
}

void ZoneDessin::resizeEvent(QResizeEvent*)
{
    emit tailleChangee();
}

void ZoneDessin::mouseReleaseEvent(QMouseEvent* e)
{
    if (e->button() == Qt::RightButton && (e->modifiers() & Qt::AltModifier))
        emit demandeEtiquette(e->position().toPoint());
}

}  // namespace velorin
