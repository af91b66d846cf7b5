// "Liste des Courbes disponibles": the whole catalogue in force, from which
// the user sends one entry (double-click) or a multiple selection to the
// drawing. The dialog only chooses; the main window draws what it chose.
#pragma once
#include <QDialog>
#include <array>
#include <vector>

#include "app/boites.h"
#include "plot/etat.h"
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
    // Form_Load: lists the catalogue of `etat` (reopened, so that the count
    // follows the file on disk).
    Coli(Etat& etat, const Boites& boites, QWidget* parent = nullptr);

    QListWidget* List2 = nullptr;
    QGroupBox* Frame1 = nullptr;
    std::array<QRadioButton*, 2> Option1{};  // "Cycle", "Unique"
    QPushButton* Command1 = nullptr;

    // What the user sent: record numbers in list order, and the colour mode.
    std::vector<int> choix;
    ModeCouleurs mode = ModeCouleurs::Unique;

    void Option1_Click(int index);
    void Command1_Click();
    void List2_DblClick(QListWidgetItem* item);
};

}  // namespace velorin
