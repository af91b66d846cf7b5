// "Couleurs du tracé": every colour the tracers and the frame use, one swatch
// each (a button painted in its colour, named after the member it edits);
// a click opens the colour chooser of `Boites`. "&OK" puts the colours into
// the scheme, "&Annuler" leaves it as it was. The window then draws again
// and, under the policy "Couleurs définies avec mémorisation", writes the
// remembered file (settings/fichier_couleurs.h).
//
// The policies of the menu "Comment Tracer?" (EtatFenetre::politiqueCouleurs):
//   0 "Couleurs définies sans mémorisation": the colours chosen here hold for
//     this session only; nothing is written.
//   1 "Couleurs définies avec mémorisation": "&OK" also writes the colours to
//     "couleurs.txt" beside "mem.log", for the following sessions.
//   2 "Couleurs déjà mémorisées": choosing it reads "couleurs.txt" back and
//     puts it in force; the dialog then changes the colours of this session
//     without writing them.
#pragma once
#include <QDialog>
#include <QString>
#include <vector>

#include "app/boites.h"
#include "settings/couleurs.h"

class QLabel;
class QPushButton;

namespace velorin {

// The caption of the policy `politique` (0..2) in the menu "Comment Tracer?".
QString legendePolitique(int politique);

class Couleurs : public QDialog {
    Q_OBJECT
public:
    // Edits `schema`; in the plane (modeEspace false) the projections on Oz
    // and on the three coordinate planes, never drawn there, are hidden.
    Couleurs(SchemaCouleurs& schema, bool modeEspace, int politique, const Boites& boites, QWidget* parent = nullptr);

    // The swatch of member `nom` was clicked: asks the chooser for a colour.
    void choisis(const QString& nom);
    void Command1_Click();  // "&OK"

    // The colours being edited (not yet in the scheme).
    const SchemaCouleurs& edite() const { return edite_; }

private:
    struct Nuancier {
        QString nom, legende;
        Couleur SchemaCouleurs::*membre;
        QPushButton* bouton;
    };
    void peins(const Nuancier& n);

    SchemaCouleurs& schema_;
    SchemaCouleurs edite_;
    const Boites& boites_;
    std::vector<Nuancier> nuanciers_;
    QPushButton *Command1 = nullptr, *Command2 = nullptr;
};

}  // namespace velorin
