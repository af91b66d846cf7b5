#include "app/fenetre/zone_dessin.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

namespace velorin {

ZoneDessin::ZoneDessin(QWidget* parent) : QWidget(parent)
{
    // The whole area is covered by the bitmap: no background to paint first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    // The pointer read-out follows the mouse without a button down.
    setMouseTracking(true);
}

void ZoneDessin::montre(const QImage* image)
{
    image_ = image;
    update();
}

void ZoneDessin::montreLoupe(const QRect& rectangle)
{
    const QRect nouveau = rectangle.normalized();
    if (nouveau == loupe_)
        return;
    // The old rectangle is rubbed out by painting the bitmap again there.
    update(loupe_.adjusted(-2, -2, 2, 2));
    loupe_ = nouveau;
    update(loupe_.adjusted(-2, -2, 2, 2));
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
    if (!loupe_.isNull()) {
        // Black and white dashes: seen on any background.
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(Qt::black, 1));
        p.drawRect(loupe_);
        p.setPen(QPen(Qt::white, 1, Qt::DashLine));
        p.drawRect(loupe_);
    }
}

void ZoneDessin::resizeEvent(QResizeEvent*)
{
    emit tailleChangee();
}

void ZoneDessin::mousePressEvent(QMouseEvent* e)
{
    emit boutonEnfonce(e->position().toPoint(), e->button(), e->modifiers());
}

void ZoneDessin::mouseMoveEvent(QMouseEvent* e)
{
    emit sourisDeplacee(e->position().toPoint(), e->buttons(), e->modifiers());
}

void ZoneDessin::mouseReleaseEvent(QMouseEvent* e)
{
    const QPoint ici = e->position().toPoint();
    if (e->button() == Qt::RightButton && (e->modifiers() & Qt::AltModifier))
        emit demandeEtiquette(ici);
    emit boutonRelache(ici, e->button(), e->modifiers());
}

void ZoneDessin::wheelEvent(QWheelEvent* e)
{
    const int huitiemes = e->angleDelta().y();
    if (huitiemes != 0)
        emit moletteTournee(e->position().toPoint(), huitiemes / 120.0);
    e->accept();
}

void ZoneDessin::keyReleaseEvent(QKeyEvent* e)
{
    if (!e->isAutoRepeat())
        emit toucheRelachee(e->key());
    QWidget::keyReleaseEvent(e);
}

}  // namespace velorin
