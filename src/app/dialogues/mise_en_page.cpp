#include "app/dialogues/mise_en_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

namespace velorin {

void disposeDialogue(QWidget* dialogue, std::initializer_list<QWidget*> contenu, std::initializer_list<QWidget*> gauche,
                     std::initializer_list<QWidget*> droite)
{
    auto* tout = new QVBoxLayout(dialogue);
    for (QWidget* w : contenu)
        tout->addWidget(w);
    auto* boutons = new QHBoxLayout;
    for (QWidget* w : gauche)
        boutons->addWidget(w);
    boutons->addStretch();
    for (QWidget* w : droite)
        boutons->addWidget(w);
    tout->addLayout(boutons);
}

}  // namespace velorin
