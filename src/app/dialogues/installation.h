// The first-start form: shown when this user has none of the four folders
// yet. It says in French what will be created and where, and its button
// fills the folders from the factory files, after starting the finishing
// program "Velorin_finir" when the application folder holds one. Closing it
// without installing leaves everything as it was.
#pragma once
#include <QDialog>

#include "app/boites.h"
#include "app/programmes.h"
#include "qt/dossiers.h"

class QLabel;
class QPushButton;

namespace velorin {

extern const char* const messageInstallationTerminee;  // "L'installation est terminée"

class Installation : public QDialog {
    Q_OBJECT
public:
    Installation(const Emplacements& lieux, Boites boites, Programmes programmes, QWidget* parent = nullptr);

    // "Installer": finishing program, folders filled, then the report; the
    // form closes accepted. On a failure the report says what could not be
    // done and the form stays open.
    void Command1_Click();

private:
    const Emplacements lieux_;
    const Boites boites_;
    const Programmes programmes_;
    QLabel* Label1 = nullptr;  // what will be created, and where
    QPushButton *Command1 = nullptr, *Command2 = nullptr;
};

}  // namespace velorin
