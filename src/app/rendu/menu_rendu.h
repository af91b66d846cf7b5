// The "Rendu" menu: the drawing style (the wire mesh of the older program,
// hidden parts dashed or removed, shaded faces), the projection (the
// program's perspective or cavalière with its angle and coefficient), the
// plane frame's grid and the space frame's graduations. Every change is kept
// in "rendu.txt" beside "mem.log" in the curves folder in force, then the
// picture is drawn again; "mem.log" and the figure files never carry it.
//
// Entries, by object name and property "index" like the window's arrays:
//   mnurendus 0..3  the four styles (one checked)
//   mnucav          "Perspective cavalière" (checked when in force)
//   mnucavangle     30°, 45°, 60°, "Autre angle…"
//   mnucavcoef      0.5, 0.6, 0.7, "Autre coefficient…"
//   mnuquadrillage  "Quadrillage" (plane)
//   mnugradue       "Repère gradué" (space)
#pragma once
#include <QObject>
#include <functional>
#include <vector>

#include "app/boites.h"
#include "plot/etat.h"

class QAction;
class QMainWindow;
class QMenu;

namespace velorin {

class MenuRendu : public QObject {
public:
    // Builds the menu in `fenetre`'s menu bar before the menu `avant`.
    // `occupe` says (and returns true) when a tracing forbids the change;
    // `redessine` draws the whole picture again.
    MenuRendu(QMainWindow& fenetre, QMenu* avant, Etat& etat, const Boites& boites, std::function<bool()> occupe,
              std::function<void()> redessine);

    // Reads "rendu.txt" of the curves folder in force, when there is one (a
    // damaged file is said and the settings in force stay), and shows them.
    void charge();

    QMenu* menu() const { return menu_; }
    void marque();  // the check marks from the settings in force

private:
    // Applies `change` to the settings, keeps them in "rendu.txt" and draws
    // again; refused during a tracing (the check marks come back).
    void modifie(const std::function<void(Rendu&)>& change);
    // A number typed for the angle or the coefficient, within its bounds.
    void saisis(const char* invite, double bas, double haut, double Rendu::*membre);
    std::string chemin() const;

    QMainWindow& fenetre_;
    Etat& etat_;
    Boites boites_;
    std::function<bool()> occupe_;
    std::function<void()> redessine_;
    QMenu* menu_ = nullptr;
    std::vector<QAction*> styles_, angles_, coefs_;
    QAction *cavaliere_ = nullptr, *quadrillage_ = nullptr, *gradue_ = nullptr;
};

}  // namespace velorin
