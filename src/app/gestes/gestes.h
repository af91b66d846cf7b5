// The mouse gestures that need a modifier key, reachable from the "Édition"
// menu: window managers often take Alt + click for themselves, so the right
// button + Alt (a new label) and the left button + Alt (the rectangle to
// zoom into, in the plane) would never reach the drawing.
//
//   "Nouveau label…"        the next left click on the drawing creates a
//                           label there, as the right button + Alt does;
//   "Grossir un rectangle…" the next left drag on the drawing marks the
//                           rectangle and offers to zoom into it, as the
//                           left button + Alt does (plane only: in space the
//                           entry is disabled and its tip says why).
//
// While one of them waits, the pointer over the drawing is a cross; Escape
// or another button cancels. The gesture itself is the window's own: the
// events are handed to the same routines with Alt added.
#pragma once
#include <QObject>
#include <QPoint>

class QAction;
class QMainWindow;
class QMenu;
class QWidget;

namespace velorin {

class CommandesEtiquettes;
class Mirado;
class ZoneDessin;

// The "Édition" menu of the window (object name "mnuedition"), right after
// "Exporter": the one already there, or a new one.
QMenu* menuEdition(QMainWindow& fenetre);

// The tips of the side column's controls, found by their object names.
void bullesColonne(QWidget& colonne);

class Gestes : public QObject {
    Q_OBJECT
public:
    enum class Attente { rien, label, rectangle };

    // Adds the two entries to `menu` after a separator (object name
    // "mnugeste", index 0 the label, 1 the rectangle).
    Gestes(Mirado& fenetre, ZoneDessin* zone, CommandesEtiquettes* etiquettes, QMenu* menu);
    ~Gestes() override;

    Attente attente() const { return attente_; }
    void attendsLabel();
    void attendsRectangle();
    void annule();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void attends(Attente attente);
    void suisLeMode();  // the rectangle entry enabled in the plane only
    bool souris(QEvent* evenement, QPoint ici);

    Mirado& fenetre_;
    ZoneDessin* zone_;
    CommandesEtiquettes* etiquettes_;
    QAction* label_ = nullptr;
    QAction* rectangle_ = nullptr;
    Attente attente_ = Attente::rien;
    bool enfonce_ = false;  // the left button went down while waiting
};

}  // namespace velorin
