// The About box: the program's title and version, and a button that starts
// the desktop's system information tool, the first one found of KDE's,
// GNOME's and a generic one; without any, it says the information is not
// available.
#pragma once
#include <QDialog>
#include <QStringList>
#include <vector>

#include "app/boites.h"
#include "app/programmes.h"

class QLabel;
class QPushButton;

namespace velorin {

extern const char* const messageSansInfosSysteme;

// A system information tool: the program's name and its arguments.
struct OutilInfos {
    const char* programme;
    QStringList arguments;
};
// The tools tried, in order.
const std::vector<OutilInfos>& outilsInfosSysteme();

class APropos : public QDialog {
    Q_OBJECT
public:
    APropos(const QString& version, Boites boites, Programmes programmes, QWidget* parent = nullptr);

    // "Informations système": starts the first tool found, else says so.
    void Command2_Click();

private:
    const Boites boites_;
    const Programmes programmes_;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr;  // title, version, description
    QPushButton *Command1 = nullptr, *Command2 = nullptr;            // OK, system information
};

}  // namespace velorin
