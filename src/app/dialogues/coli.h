// "Liste des Courbes disponibles": the whole catalogue in force, from which
// the user sends one entry (double-click) or a multiple selection to the
// drawing. The dialog only chooses; the main window draws what it chose.
#pragma once
#include <QDialog>
#include <array>
#include <vector>

#include "app/boites.h"
#include "catalogue/catalogue.h"
#include "plot/demande.h"

class QGroupBox;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace velorin {

class Coli : public QDialog {
    Q_OBJECT
public:
    // Form_Load: lists `catalogue` (reopened, so that the count follows the
    // file on disk); `enVigueur` is the path of the catalogue the window
    // names, opened first when `catalogue` is another one (its first opening
    // failed). A reading failure is said through `boites`.
    Coli(Catalogue& catalogue, const std::string& enVigueur, const Boites& boites, QWidget* parent = nullptr);

    // What the user sent: record numbers in list order, and the colour mode.
    const std::vector<int>& choix() const { return choix_; }
    ModeCouleurs mode() const { return mode_; }

    void Option1_Click(int index);
    void Command1_Click();
    void List2_DblClick(QListWidgetItem* item);

private:
    QListWidget* List2 = nullptr;
    QGroupBox* Frame1 = nullptr;
    std::array<QRadioButton*, 2> Option1{};  // "Cycle", "Unique"
    QPushButton* Command1 = nullptr;
    std::vector<int> choix_;
    ModeCouleurs mode_ = ModeCouleurs::Unique;
};

}  // namespace velorin
