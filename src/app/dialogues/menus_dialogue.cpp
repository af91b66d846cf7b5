#include "app/dialogues/menus_dialogue.h"

#include <QAction>
#include <QDialog>
#include <QMenuBar>

namespace velorin {

std::vector<QAction*> menuTableau(QMenuBar* barre, const char* titre, const char* nomMenu,
                                  const std::vector<const char*>& textes, const char* nom,
                                  const std::function<void(int)>& clic)
{
    QMenu* menu = barre->addMenu(QString::fromUtf8(titre));
    menu->setObjectName(QString::fromUtf8(nomMenu));
    std::vector<QAction*> actions;
    for (const char* texte : textes) {
        const int i = static_cast<int>(actions.size());
        QAction* a = menu->addAction(QString::fromUtf8(texte));
        a->setObjectName(QString::fromUtf8(nom));
        a->setProperty("index", i);
        QObject::connect(a, &QAction::triggered, menu, [clic, i] { clic(i); });
        actions.push_back(a);
    }
    return actions;
}

QAction* menuRetour(QMenuBar* barre, const char* titre, const char* nomMenu, const char* texte, const char* nom,
                    QDialog* dialogue)
{
    QMenu* menu = barre->addMenu(QString::fromUtf8(titre));
    menu->setObjectName(QString::fromUtf8(nomMenu));
    QAction* a = menu->addAction(QString::fromUtf8(texte));
    a->setObjectName(QString::fromUtf8(nom));
    QObject::connect(a, &QAction::triggered, dialogue, &QDialog::reject);
    return a;
}

}  // namespace velorin
