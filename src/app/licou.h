// "Courbes tracées et couleur associée": the drawn curves with their colours;
// the user ticks the ones to keep and the main window draws the frame again
// with those curves only.
#pragma once
#include <QDialog>
#include <array>
#include <vector>

class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace velorin {

class Mirado;

class Licou : public QDialog {
    Q_OBJECT
public:
    // Lists the drawn curves of `fenetre`, all ticked; `ligneChoisie` (1-based,
    // 0 for none) is selected and described.
    Licou(Mirado& fenetre, int ligneChoisie);

    QListWidget* List1 = nullptr;
    QGroupBox* Frame1 = nullptr;              // "Trait/Tgte"
    std::array<QLabel*, 4> Label1{};
    QPushButton *Command1 = nullptr, *Command2 = nullptr;

    std::vector<int> cochees;                 // rows to redraw (1-based)

    void List1_Click(int ligne);              // describes drawn curve `ligne` (1-based)
    void Command1_Click();

private:
    const Mirado& fenetre_;
};

}  // namespace velorin
