// The drawing area of the main window: it shows the picture kept in a bitmap,
// so that covering and uncovering the window costs no drawing, says when
// its size changes, passes on the mouse and the keys, and shows the rubber
// rectangle of the magnifier over the picture without drawing into it.
#pragma once
#include <QImage>
#include <QRect>
#include <QWidget>

namespace velorin {

class ZoneDessin : public QWidget {
    Q_OBJECT
public:
    explicit ZoneDessin(QWidget* parent = nullptr);

    // The picture shown (owned by the main window, which draws into it).
    void montre(const QImage* image);

    // The rubber rectangle, in pixels of the area (corners in any order);
    // an empty rectangle takes it away.
    void montreLoupe(const QRect& rectangle);
    QRect loupe() const { return loupe_; }

signals:
    void tailleChangee();
    // Positions in pixels of the area.
    void boutonEnfonce(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    void sourisDeplacee(QPoint pixels, Qt::MouseButtons boutons, Qt::KeyboardModifiers touches);
    void boutonRelache(QPoint pixels, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    // Notches of the wheel, positive away from the user (fractions from
    // fine-grained wheels).
    void moletteTournee(QPoint pixels, double crans);
    void toucheRelachee(int touche);
    // Right button with Alt released: a label is asked for at that point.
    void demandeEtiquette(QPoint pixels);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;

private:
    const QImage* image_ = nullptr;
    QRect loupe_;
};

}  // namespace velorin
