// "Choix des fonctions paramétrées": the function editor. The user picks a
// function type, types up to three formulas and stores them as an entry of
// the catalogue in force (appended when the header line of the list is
// selected, over the selected record otherwise); a double-click on a list
// line loads an entry of the chosen type back into the boxes. Under each box
// the formula checker says, while the user types, where the formula will be
// read otherwise than expected. The editor draws nothing.
#pragma once
#include <QDialog>
#include <QImage>
#include <QString>
#include <QTemporaryDir>
#include <array>
#include <memory>
#include <vector>

#include "app/boites.h"
#include "catalogue/catalogue.h"
#include "plot/etat.h"

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;

namespace velorin {

class Tipara : public QDialog {
    Q_OBJECT
public:
    // Edits `catalogue` (the catalogue in force). `typeDepart` (0..4) is the
    // type chosen at opening; any other value opens with no type chosen.
    // With `enVigueur`, a small preview beside the boxes draws the typed
    // entry with the drawing values in force (on a copy of that state).
    Tipara(Catalogue& catalogue, bool modeEspace, int typeDepart, Boites boites, const Etat* enVigueur = nullptr,
           QWidget* parent = nullptr);

    // True once an entry has been stored (the window then rebuilds its
    // entry menu).
    bool aEnregistre() const { return enregistre_; }
    int genreCourbe() const { return genreCourbe_; }

    void mnutip_Click(int index);
    void Command4_Click();
    void List2_DblClick(int item);
    void memoire(int kind);
    // The entry text the boxes make for `kind`, as it is stored.
    std::string texteEntree(int kind) const;
    // The typed entry drawn as the window would draw it, at `taille` pixels.
    QImage apercu(QSize taille) const;

private:
    void listerCatalogue();
    void verifie(int boite);

    Catalogue& catalogue_;
    const bool modeEspace_;
    const Boites boites_;
    int genreCourbe_ = -1;
    bool enregistre_ = false;

    const Etat* enVigueur_;
    std::unique_ptr<QTemporaryDir> dossierApercu_;
    QLabel* Apercu = nullptr;
    QTimer* minuterieApercu = nullptr;
    void montreApercu();

    std::vector<QAction*> mnutip;
    QAction* mnuret = nullptr;
    QGroupBox *Frame5 = nullptr, *Frame6 = nullptr;
    std::array<QLabel*, 3> Label1{}, Remarques{};
    std::array<QLineEdit*, 3> Text2{};
    QListWidget* List2 = nullptr;
    QPushButton *Command4 = nullptr, *Command1 = nullptr;
};

}  // namespace velorin
