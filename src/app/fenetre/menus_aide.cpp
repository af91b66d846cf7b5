// The help menu "?": the About box and the help browser, both opened over
// the window without stopping it.
#include <QCoreApplication>
#include <QFileInfo>

#include "app/dialogues/aide.h"
#include "app/dialogues/apropos.h"
#include "app/fenetre/mirado.h"
#include "qt/dossiers.h"

namespace velorin {

void Mirado::mnuaide_Click(int index)
{
    QDialog* boite = nullptr;
    if (index == 0) {
        boite = new APropos(QCoreApplication::applicationVersion(), boites, programmes, this);
    } else {
        const Emplacements lieux{dossierAppli, dossierUsinePour(dossierAppli)};
        const QString page = pageAccueilAide(lieux);
        if (!QFileInfo(page).isFile()) {
            boites.message(this, QStringLiteral("Les pages d'aide sont introuvables : %1 n'existe pas.").arg(page));
            return;
        }
        boite = new Aide(page, this);
    }
    boite->setAttribute(Qt::WA_DeleteOnClose);
    boite->open();
}

}  // namespace velorin
