// The pruning dialog ("Elaguer fonctions") and the points dialog ("Points
// disponibles"), opened from the menus. Both change the catalogue in force:
// afterwards the entry menu is built again from the file.
#include "app/dialogues/lipo.h"
#include "app/dialogues/menage.h"
#include "app/fenetre/mirado.h"

namespace velorin {

void Mirado::ouvreMenage()
{
    Menage dialogue(etat.catalogue, boites, this);
    dialogue.exec();
    if (dialogue.aReduit())
        afmenu();
}

void Mirado::ouvreLipo()
{
    if (refuseSiOccupe())
        return;
    Lipo dialogue(
        etat.catalogue, [this](NumeroLigne numero) { envoie(int(numero)); }, boites, this);
    dialogue.exec();
    if (dialogue.aEnregistre())
        afmenu();
}

}  // namespace velorin
