// "CHOISISSEZ BIEN CE QUE VOUS DESIREZ": every drawing parameter for
// editing. The two buttons store the typed values, write them to
// "memprovi.log" (provisional) or "mem.log" (remembered) in the curves
// folder in force, and close; the main window then reads that same file
// back, so the values in force are those of the file. Typing is helped
// live: a field whose text reads unexpectedly gets a coloured border and a
// French tooltip that says why.
#pragma once
#include <QDialog>
#include <array>
#include <string>

#include "app/boites.h"
#include "settings/parametres.h"
#include "settings/reglage.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace velorin {

class Param : public QDialog {
    Q_OBJECT
public:
    // Form_Load. `espace` chooses which fields show (the z, viewer and
    // rotation fields only in space, "Repère Orthonormé" only in the
    // plane). `dossierCourbes` is where the memory files are written.
    Param(Parametres& param, const std::string& dossierCourbes, bool espace, const Boites& boites,
          QWidget* parent = nullptr);

    // After an accepted closing: what the window does next. `lecture` is
    // the flag of the file reader (1 "memprovi.log", 0 "mem.log");
    // `vidage` is true when the drawn curves are to be forgotten first.
    int lecture() const { return lecture_; }
    bool vidage() const { return vidage_; }

    void affreglage();
    void Text1_KeyPress(int index, int keyAscii);
    void Text1_DblClick(int index);
    void Command1_Click();
    void Command2_Click();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void Form_Activate();
    void applique(bool retenu);
    void verifieChamps();

    Parametres& param_;
    std::string dossierCourbes_;
    bool espace_;
    Boites boites_;
    int lecture_ = 1;
    bool vidage_ = false;

    std::array<QLineEdit*, nbChampsReglage> Text1{};
    std::array<QLabel*, 19> Label1{};
    std::array<QCheckBox*, 12> Check1{};
    std::array<QRadioButton*, 4> Option2{};
    QCheckBox* Check2 = nullptr;
    std::array<QRadioButton*, 2> Option1{};
    QGroupBox *Frame1 = nullptr, *Frame2 = nullptr, *Frame3 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr;
};

}  // namespace velorin
