#include "app/boites.h"

#include <QInputDialog>
#include <QMessageBox>

namespace velorin {

Boites Boites::standard()
{
    Boites b;
    b.message = [](QWidget* parent, const QString& texte) {
        QMessageBox::information(parent, QStringLiteral("Velorin"), texte);
    };
    b.saisie = [](QWidget* parent, const QString& invite,
                  const QString& titre) -> std::optional<QString> {
        bool ok = false;
        const QString reponse = QInputDialog::getText(parent, titre, invite, QLineEdit::Normal,
                                                      QString(), &ok);
        if (!ok)
            return std::nullopt;
        return reponse;
    };
    return b;
}

}  // namespace velorin
