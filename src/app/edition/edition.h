// The "Édition" menu of the main window: "Annuler …" (Ctrl+Z) and
// "Rétablir …" (Ctrl+Shift+Z), each captioned with what it undoes or redoes.
//
// How the actions are seen: before an undoable action runs, the state is
// photographed as a step in waiting, named after the action. The step goes
// into the history only if the action changed something (a cancelled
// dialog leaves nothing to undo); it is checked when the next action
// starts, when the menu opens and before an undo. Whatever happens in
// between belongs to the action: the ticks of a full turn, the moves of a
// drag, the curves drawn from a dialog are one step with it.
//
// The actions are met where they start, without the window's commands
// knowing about it: the menus say which entry was triggered before the
// entry's own command runs, the side buttons are pressed before they are
// clicked, the drawing area's mouse button and wheel pass through a filter
// here first; the labels tell their changes through their own hook. Each
// watched entry has its name in a table (edition.cpp); an entry not in the
// table changes nothing that undo restores (exports, help, printing).
//
// Undoing writes back the catalogue bytes of a step that kept them, puts
// the session state back, rebuilds what shows it (panels, check marks,
// menus of entries and of drawn curves, labels, the window's size for a
// figure that changed it) and redraws everything from that state. It never
// starts during a tracing: it is refused like the other commands.
#pragma once
#include <QElapsedTimer>
#include <QObject>
#include <array>
#include <optional>

#include "plot/historique.h"

class QAction;
class QMenu;

namespace velorin {

class Mirado;

class Edition : public QObject {
    Q_OBJECT
public:
    // Builds the menu "Édition" right after "Exporter" and starts watching.
    explicit Edition(Mirado& fenetre);

    QMenu* menu() const { return menu_; }
    const Historique& historique() const { return historique_; }

    // How an action is kept.
    enum class Sorte {
        etat,       // the session state
        catalogue,  // the state and the bytes of the catalogue file
        ecran,      // the picture only: kept even though the state stays
        fenetre,    // the state and the window's place and size
        molette,    // the wheel: the turns that follow closely are one step
    };
    // An undoable action named `nom` ("la rotation") is about to run.
    void avant(const char* nom, Sorte sorte = Sorte::etat);

    void annule();
    void retablis();
    // Settles the step in waiting and brings the entries' captions up to date.
    void actualise();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void observeMenus();
    void observeBoutons();
    void valide();    // the step in waiting into the history, if its action changed something
    void libelles();  // the entries' captions and availability
    // Undo or redo: the step on top (`haut`) taken (`prends`) against the
    // state now, then put back; refused during a tracing.
    void parcours(const Pas* (Historique::*haut)() const, std::optional<Pas> (Historique::*prends)(Pas));
    void applique(const Pas& pas);
    std::array<int, 4> cadre() const;

    Mirado& m_;
    Historique historique_;
    std::optional<Pas> enAttente_;
    QElapsedTimer derniereMolette_;
    QMenu* menu_ = nullptr;
    QAction *annuler_ = nullptr, *retablir_ = nullptr;
};

}  // namespace velorin
