// The drawing area of the main window: it shows the picture kept in a bitmap,
// so that covering and uncovering the window costs no drawing, and says when
// its size changes.
#pragma once
#include <QImage>
#include <QWidget>

namespace velorin {

class ZoneDessin : public QWidget {
    Q_OBJECT
public:
    explicit ZoneDessin(QWidget* parent = nullptr);

    // The picture shown (owned by the main window, which draws into it).
    void montre(const QImage* image);

signals:
    void tailleChangee();
    // Right button + Alt released on the drawing, at `pixels` of the area.
    void demandeEtiquette(QPoint pixels);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    const QImage* image_ = nullptr;
};

}  // namespace velorin
