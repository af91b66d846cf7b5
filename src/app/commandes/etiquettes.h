// The labels over the drawing, as controls: one QLabel child of the drawing
// area per label of Etat::etiquettes (object name "Lb3", property "index";
// the hidden template is index 0). The state is the reference: the controls
// are built from it and every change goes to it first.
//
// Mouse on a label:
//   left button drag        moves it (its position is kept in twips);
//   right button            input box of the colour,
//   right button + Shift    of the font,
//   right button + Ctrl     of the size;
//   double click            empties it: the labels after it move down one
//                           index and stay where they are on the screen;
//   moving over it          its tip "Label n° k/n__caption".
// Right button + Alt on the drawing creates a label at the mouse and opens
// the text label editor on it; cancelled or left empty, it goes away.
#pragma once
#include <QLabel>
#include <QObject>
#include <QPoint>
#include <functional>
#include <vector>

#include "app/boites.h"
#include "plot/etat.h"

namespace velorin {

class ZoneDessin;

// One label control; its mouse events go to the commands below.
class Lb3 : public QLabel {
    Q_OBJECT
public:
    Lb3(int index, QWidget* parent);
    int index() const { return property("index").toInt(); }

signals:
    void relache(int index, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    void survole(int index);
    void doubleClic(int index);
    void deplace(int index, QPoint pixels);  // new top left corner, end of a drag

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;

private:
    QPoint prise_;  // where the drag took the label, in its own pixels
    bool glisse_ = false;
};

class CommandesEtiquettes : public QObject {
    Q_OBJECT
public:
    CommandesEtiquettes(Etat& etat, const Boites& boites, ZoneDessin* zone, QWidget* fenetre);

    // The text label editor, replaceable by a test: edits the label, true
    // when the user accepted.
    std::function<bool(QWidget* parent, Etiquette& etiquette)> editeur;
    // Told before a label is created, moved, edited or emptied, with the
    // name of the change ("le déplacement d'un label"): undo keeps the
    // labels as they were.
    std::function<void(const char* nom)> avantChangement;

    // Right button + Alt at `pixels` of the drawing area.
    void creation(QPoint pixels);
    void Lb3_MouseUp(int index, Qt::MouseButton bouton, Qt::KeyboardModifiers touches);
    void Lb3_MouseMove(int index);
    void Lb3_DblClick(int index);
    // Removes every label (state and controls).
    void videlabel();
    // The controls again from the state (after a figure was read).
    void reconstruit();
    // The control of label `index`, or nullptr.
    Lb3* controle(int index) const;

private:
    void montre(int index);  // the control from the state
    void place(int index, QPoint pixels);
    void signale(const char* nom);  // avantChangement, when set

    Etat& etat_;
    const Boites& boites_;
    ZoneDessin* zone_;
    QWidget* fenetre_;
    std::vector<Lb3*> controles_;  // index 0: the hidden template
};

}  // namespace velorin
