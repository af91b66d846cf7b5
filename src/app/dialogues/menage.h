// "Suppression des courbes indésirables": the pruning of the catalogue in
// force. The user deletes the selected entries ("J'ELIMINE") or only
// compacts the file ("JE REDUIS LE FICHIER"); either way the kept entries
// are numbered again from 1 and the list shows the new state. The pointer
// is an hourglass while the file is rewritten.
#pragma once
#include <QDialog>

#include "app/boites.h"
#include "catalogue/catalogue.h"

class QGroupBox;
class QListWidget;
class QPushButton;

namespace velorin {

class Menage : public QDialog {
    Q_OBJECT
public:
    // Form_Load: lists `catalogue` (reopened). A reading failure is said
    // through `boites`.
    Menage(Catalogue& catalogue, Boites boites, QWidget* parent = nullptr);

    // True once the file has been compacted (the entry numbers changed).
    bool aReduit() const { return reduit_; }

    void Command1_Click();  // "J'ELIMINE": the selected entries, then compaction
    void Command3_Click();  // "JE REDUIS LE FICHIER"
    void Command2_Click();  // "RETOUR"

private:
    void listerCatalogue();
    void reduction(const std::vector<NumeroLigne>& effacees);

    Catalogue& catalogue_;
    const Boites boites_;
    bool reduit_ = false;
    QGroupBox* Frame6 = nullptr;
    QListWidget* List2 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
};

}  // namespace velorin
