// "Points en mémoire": the points stored in the catalogue in force. The user
// types a point to create, draws the selected points, or links two selected
// points by a segment, stored and drawn at once. The drawing itself is the
// main window's: the dialog hands it record numbers.
#pragma once
#include <QDialog>
#include <functional>
#include <vector>

#include "app/boites.h"
#include "catalogue/catalogue.h"
#include "plot/points_memoire.h"

class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velorin {

class Lipo : public QDialog {
    Q_OBJECT
public:
    // Draws catalogue record `numero` as a new curve.
    using Trace = std::function<void(NumeroLigne numero)>;

    // Form_Load: charge.
    Lipo(Catalogue& catalogue, Trace trace, Boites boites, QWidget* parent = nullptr);

    // True once an entry has been stored (the window rebuilds its entry menu).
    bool aEnregistre() const { return enregistre_; }

    void charge();
    void Command5_Click();  // creates the point typed in Text1
    void Command1_Click();  // draws the selected points
    void Command2_Click();  // links the two selected points
    void Command4_Click();  // "Je &blanchis": nothing selected
    void Command3_Click();  // "&Retour"
    void Text1_DblClick();  // empties Text1

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::vector<NumeroLigne> selection() const;  // records of the selected lines, in list order
    void dis(const Erreur& erreur);

    Catalogue& catalogue_;
    const Trace trace_;
    const Boites boites_;
    bool enregistre_ = false;
    std::vector<PointMemoire> points_;  // line i of List1 is points_[i]

    QListWidget* List1 = nullptr;
    QGroupBox* Frame1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr, *Command4 = nullptr, *Command5 = nullptr;
};

}  // namespace velorin
