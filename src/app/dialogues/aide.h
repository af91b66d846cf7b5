// The help browser: Qt's text browser over the help pages "Aide/index.htm",
// with the buttons to go back, forward and to the contents page.
#pragma once
#include <QDialog>
#include <QUrl>

class QPushButton;
class QTextBrowser;

namespace velorin {

class Aide : public QDialog {
    Q_OBJECT
public:
    // Opens `pageAccueil` (an existing help index).
    explicit Aide(const QString& pageAccueil, QWidget* parent = nullptr);

    QUrl pageCourante() const;
    // Follows a link of the page shown, as a click on it would.
    void suisLien(const QString& lien);

private:
    QTextBrowser* Text1 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr, *Command4 = nullptr;
};

}  // namespace velorin
