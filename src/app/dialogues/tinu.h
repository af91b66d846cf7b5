// "Nuages ": the cloud editor. A cloud is the region of the calculation grid
// where a function f lies strictly between a lower function g and an upper
// function h; the user types g, f and h in the three boxes and stores the
// cloud as an entry g<f<h of the catalogue in force (appended when the blue
// header line is selected, over the selected record otherwise). Under each
// box the formula checker says where the formula will be read otherwise than
// expected.
//
// The dialog opens on the type of the mode: "g(x) < f(x) < h(x)" (kind 14,
// drawn over the grid of x and y) in the plane, "g(x,y) < f(x,y) < h(x,y)"
// (kind 15, over the grid of x, y and z) in space; the menu "CHOIX" changes
// it.
#pragma once
#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "app/boites.h"
#include "catalogue/catalogue.h"

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velorin {

class Tinu : public QDialog {
    Q_OBJECT
public:
    Tinu(Catalogue& catalogue, bool modeEspace, Boites boites, QWidget* parent = nullptr);

    bool aEnregistre() const { return enregistre_; }
    int genreCourbe() const { return genreCourbe_; }  // 14 or 15

    void mnuch_Click(int index);
    void Command1_Click();
    void memoire(int kind);
    // The entry text g<f<h the boxes make for `kind` (14 or 15), as stored.
    std::string texteEntree(int kind) const;

private:
    void verifie(int boite);

    Catalogue& catalogue_;
    const Boites boites_;
    int genreCourbe_ = -1;
    bool enregistre_ = false;

    std::vector<QAction*> mnuch;
    QAction* mnurt = nullptr;
    QGroupBox *Frame1 = nullptr, *Frame6 = nullptr;
    std::array<QLineEdit*, 3> Text1{};
    std::array<QLabel*, 3> Remarques{};
    QListWidget* List2 = nullptr;
    QPushButton* Command1 = nullptr;
};

}  // namespace velorin
