// "Choisissez votre fonction": the geometric object editor. The user picks an
// object in the menu "CHOISISSEZ" (a line D(M,u), a plane P(M,u,v), a plane
// or in the plane a line by its equation, a segment, a point), types its
// points, vectors or equation in the frame of that object, and stores it as
// an entry of the catalogue in force (appended when the blue header line is
// selected, over the selected record otherwise). The captions follow the
// mode: in the plane points have two coordinates, the equation object is a
// line and the plane P(M,u,v) is not offered.
//
// Only the frame of the chosen object is shown, under the menu bar; before a
// choice none is. The equation frame holds the array Text3(0..2) of which
// only Text3(0), the equation, is stored: the other two boxes stay hidden,
// so that Enter in the equation box, which moves to the next shown box of
// the array and stores from the last, stores the entry at once.
#pragma once
#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "app/boites.h"
#include "catalogue/catalogue.h"

class QAction;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velorin {

class Ticar : public QDialog {
    Q_OBJECT
public:
    Ticar(Catalogue& catalogue, bool modeEspace, Boites boites, QWidget* parent = nullptr);

    // True once an entry has been stored (the window then rebuilds its
    // entry menu).
    bool aEnregistre() const { return enregistre_; }
    // The kind of the chosen object (5 to 9), -1 before a choice.
    int genreCourbe() const { return genreCourbe_; }

    void afflabel();
    void mnuf_Click(int index);
    void Command1_Click();
    // Enter in box `index` of Text3.
    void Text3_KeyPress(int index);
    void memoire(int kind);
    // The entry text the boxes make for `kind` (5 to 9), as it is stored.
    std::string texteEntree(int kind) const;

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void listerCatalogue();

    Catalogue& catalogue_;
    const bool modeEspace_;
    const Boites boites_;
    int genreCourbe_ = -1;
    bool enregistre_ = false;

    std::vector<QAction*> mnuf;
    QAction* mnuret = nullptr;
    std::array<QGroupBox*, 5> Frame1{};
    std::array<QLineEdit*, 2> Text1{};
    std::array<QLineEdit*, 3> Text2{}, Text3{}, Text4{};
    QGroupBox* Frame6 = nullptr;
    QListWidget* List2 = nullptr;
    QPushButton* Command1 = nullptr;
};

}  // namespace velorin
