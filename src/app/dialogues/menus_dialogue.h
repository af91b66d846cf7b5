// The menu bars of the editors: a menu holding an array of actions (named
// like the window's arrays: one object name, the index in the property
// "index"), and the "RETOUR" menu that closes the dialog.
#pragma once
#include <functional>
#include <vector>

class QAction;
class QDialog;
class QMenu;
class QMenuBar;

namespace velorin {

// The menu `titre` of `barre`, named `nomMenu`, holding one action per text
// of `textes`, each named `nom` and calling `clic` with its index.
std::vector<QAction*> menuTableau(QMenuBar* barre, const char* titre, const char* nomMenu,
                                  const std::vector<const char*>& textes, const char* nom,
                                  const std::function<void(int)>& clic);

// The menu `titre` of `barre`, named `nomMenu`, with the one action `texte`
// (named `nom`) that closes `dialogue` as its cancel does.
QAction* menuRetour(QMenuBar* barre, const char* titre, const char* nomMenu, const char* texte, const char* nom,
                    QDialog* dialogue);

}  // namespace velorin
