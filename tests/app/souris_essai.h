// Mouse events sent to a widget of a window under test.
#pragma once
#include <QApplication>
#include <QMouseEvent>
#include <functional>

namespace velorin::essai {

// A mouse event at `ici`, in the widget's coordinates.
inline void souris(QWidget* w, QEvent::Type type, QPoint ici, Qt::MouseButton bouton, Qt::MouseButtons tenus,
                   Qt::KeyboardModifiers touches = Qt::NoModifier)
{
    QMouseEvent e(type, QPointF(ici), w->mapToGlobal(QPointF(ici)), bouton, tenus, touches);
    QApplication::sendEvent(w, &e);
}

// A left-button drag from a to b in two moves; `pendant` runs before the release.
inline void glisse(QWidget* w, QPoint a, QPoint b, Qt::KeyboardModifiers touches,
                   const std::function<void()>& pendant = {})
{
    souris(w, QEvent::MouseButtonPress, a, Qt::LeftButton, Qt::LeftButton, touches);
    souris(w, QEvent::MouseMove, (a + b) / 2, Qt::NoButton, Qt::LeftButton, touches);
    souris(w, QEvent::MouseMove, b, Qt::NoButton, Qt::LeftButton, touches);
    if (pendant)
        pendant();
    souris(w, QEvent::MouseButtonRelease, b, Qt::LeftButton, Qt::NoButton, touches);
}

}  // namespace velorin::essai
