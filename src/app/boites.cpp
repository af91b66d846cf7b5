#include "app/boites.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

namespace velorin {

int largeurPourTitre(const QWidget& boite, const QString& titre)
{
    // The title bar's text is often bold; its icon and buttons take about
    // eight lines' height. Never wider than the screen.
    QFont gras = boite.font();
    gras.setBold(true);
    const QFontMetrics fm(gras);
    const int largeur = fm.horizontalAdvance(titre) + 8 * fm.height();
    const QScreen* ecran = boite.screen() ? boite.screen() : QGuiApplication::primaryScreen();
    return ecran ? std::min(largeur, ecran->availableGeometry().width()) : largeur;
}

Boites Boites::standard()
{
    Boites b;
    b.message = [](QWidget* parent, const QString& texte) {
        QMessageBox::information(parent, QStringLiteral("Velorin"), texte);
    };
    b.saisie = [](QWidget* parent, const QString& invite, const QString& titre) -> std::optional<QString> {
        QInputDialog boite(parent);
        boite.setWindowTitle(titre);
        boite.setLabelText(invite);
        // The box's layout fits the box to its contents: the label sets the width.
        if (auto* texte = boite.findChild<QLabel*>())
            texte->setMinimumWidth(largeurPourTitre(boite, titre));
        if (boite.exec() != QDialog::Accepted)
            return std::nullopt;
        return boite.textValue();
    };
    b.question = [](QWidget* parent, const QString& texte, const QString& titre) {
        return QMessageBox::question(parent, titre, texte, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    };
    // Qt's own chooser, in French through the translator the program
    // installs.
    b.choixCouleur = [](QWidget* parent, const QColor& initiale, const QString& titre) -> std::optional<QColor> {
        const QColor c = QColorDialog::getColor(initiale, parent, titre);
        if (!c.isValid())
            return std::nullopt;
        return c;
    };
    // Leaves every event loop, the main one included: the program ends
    // without saving anything.
    b.fin = [] { QCoreApplication::exit(1); };
    b.fichierAEcrire = [](QWidget* parent, const QString& titre, const QString& proposition,
                          const QString& filtres) -> std::optional<QString> {
        const QString nom = QFileDialog::getSaveFileName(parent, titre, proposition, filtres);
        if (nom.isEmpty())
            return std::nullopt;
        return nom;
    };
    b.choixListe = [](QWidget* parent, const QString& invite, const QString& titre,
                      const QStringList& elements) -> std::optional<int> {
        bool ok = false;
        const QString choisi = QInputDialog::getItem(parent, titre, invite, elements, 0, false, &ok);
        if (!ok)
            return std::nullopt;
        return int(elements.indexOf(choisi));
    };
    return b;
}

}  // namespace velorin
