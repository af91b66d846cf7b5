// The layout shared by the small dialogs of the periphery: their content
// above a row of buttons, some on the left and some on the right.
#pragma once
#include <initializer_list>

class QWidget;

namespace velorin {

// Lays out `dialogue`: `contenu` (stretching), then the row of buttons
// `gauche` ... space ... `droite`.
void disposeDialogue(QWidget* dialogue, std::initializer_list<QWidget*> contenu, std::initializer_list<QWidget*> gauche,
                     std::initializer_list<QWidget*> droite);

}  // namespace velorin
