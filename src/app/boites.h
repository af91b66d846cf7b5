// The modal message and input boxes of the main window and its dialogs. They
// are reached through these hooks so that a test can record what the program
// says (and answer what it asks) instead of showing a box that waits for a
// click.
#pragma once
#include <QColor>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class QWidget;

namespace velorin {

struct Boites {
    // A message with an OK button.
    std::function<void(QWidget* parent, const QString& texte)> message;
    // An input box: the answer, or nothing when the user cancelled.
    std::function<std::optional<QString>(QWidget* parent, const QString& invite, const QString& titre)> saisie;
    // A yes/no question: true for yes. Left empty, the answer is no.
    std::function<bool(QWidget* parent, const QString& texte, const QString& titre)> question;
    // The colour chooser: the colour chosen, or nothing when the user
    // cancelled. Left empty, no colour is ever chosen.
    std::function<std::optional<QColor>(QWidget* parent, const QColor& initiale, const QString& titre)> choixCouleur;
    // Ends the program (after the evaluator's "Formule incorrecte").
    std::function<void()> fin;
    // The name of a file to write, proposed as `proposition`, with the
    // file-type filters of a file dialog ("Animation GIF (*.gif)"); nothing
    // when the user cancelled. Left empty, no file is ever chosen.
    std::function<std::optional<QString>(QWidget* parent, const QString& titre, const QString& proposition,
                                         const QString& filtres)>
        fichierAEcrire;
    // One of `elements`, by its index; nothing when the user cancelled. Left
    // empty, nothing is ever chosen.
    std::function<std::optional<int>(QWidget* parent, const QString& invite, const QString& titre,
                                     const QStringList& elements)>
        choixListe;

    // The real boxes (QMessageBox, QInputDialog, QColorDialog, QFileDialog), titled with the program's name;
    // an input box is wide enough to show its whole title.
    static Boites standard();
};

// The width a box needs to show `titre` whole in its title bar, beside the
// frame's icon and buttons.
int largeurPourTitre(const QWidget& boite, const QString& titre);

}  // namespace velorin
