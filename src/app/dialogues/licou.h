// "Courbes tracées et couleur associée": the drawn curves with their colours;
// the user ticks the ones to keep and the main window draws the frame again
// with those curves only. "Retirer du dessin" takes the ticked curves out of
// the drawing for good (out of the drawn-curves table).
#pragma once
#include <QDialog>
#include <QString>
#include <array>
#include <vector>

#include "catalogue/catalogue.h"
#include "plot/table_courbes.h"

class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace velorin {

// Line of drawn curve i (1-based) in the drawn-curves menu and list: kind,
// number, colour name, then the text of its catalogue entry.
QString ligneTracee(const TableCourbes& courbes, const Catalogue& catalogue, int i);

class Licou : public QDialog {
    Q_OBJECT
public:
    // Lists the drawn curves of `courbes`, all ticked; `ligneChoisie`
    // (1-based, 0 for none) is selected and described.
    Licou(const TableCourbes& courbes, const Catalogue& catalogue, int ligneChoisie, QWidget* parent = nullptr);

    // Rows ticked (1-based), once "Je retrace les seules cochées" or
    // "Retirer du dessin" is pressed: to redraw, or to take out.
    const std::vector<int>& cochees() const { return cochees_; }
    // True when "Retirer du dessin" closed the list.
    bool retrait() const { return retrait_; }

    void List1_Click(int ligne);  // describes drawn curve `ligne` (1-based)
    void Command1_Click();
    void Command3_Click();  // "Retirer du dessin"

private:
    const TableCourbes& courbes_;
    QListWidget* List1 = nullptr;
    QGroupBox* Frame1 = nullptr;  // "Trait/Tgte"
    std::array<QLabel*, 4> Label1{};
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
    std::vector<int> cochees_;
    bool retrait_ = false;
};

}  // namespace velorin
