// "Texte du label": the text label editor. It edits one label's caption,
// font, size, bold, italic, underline and colour, with a preview of the
// label as it will stand on the drawing. "&OK" puts the values into the
// label, "&Annuler" leaves it as it was. The colour goes through the colour
// chooser of `Boites`.
#pragma once
#include <QDialog>

#include "app/boites.h"
#include "plot/etiquettes.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velorin {

// The Qt font of a label (name, size in points, style).
QFont policeEtiquette(const Etiquette& l);

class EditeurEtiquette : public QDialog {
    Q_OBJECT
public:
    EditeurEtiquette(Etiquette& etiquette, const Boites& boites, QWidget* parent = nullptr);

    void Command1_Click();  // "&OK"
    void Command3_Click();  // "&Couleur..."
    // The label as edited so far (not yet in the label).
    Etiquette edite() const;

private:
    void apercu();

    Etiquette& etiquette_;
    const Boites& boites_;
    std::int32_t couleur_;
    QLineEdit* Text1 = nullptr;                                         // caption
    QComboBox* Combo1 = nullptr;                                        // font name
    QDoubleSpinBox* Text2 = nullptr;                                    // size
    QCheckBox *Check1 = nullptr, *Check2 = nullptr, *Check3 = nullptr;  // bold, italic, underline
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
    QLabel* Label1 = nullptr;  // preview
};

}  // namespace velorin
