#include "app/dialogues/remarques.h"

#include <QLabel>

#include <string>
#include <vector>

#include "engine/normalisation.h"
#include "engine/verification.h"

namespace velorin {

namespace {

QString remarquesFormule(const QString& tape, int genre, Famille famille, bool* erreur)
{
    const std::string formule = nettoieformule(unifiecrochets(tape.toStdString()), genre);
    const std::vector<Remarque> remarques = verifieFormule(formule, famille);
    if (remarques.empty())
        return {};
    QString texte = QStringLiteral("Lue : ") + QString::fromStdString(formule);
    for (const Remarque& r : remarques) {
        texte += QLatin1Char('\n') + QString::fromStdString(texteRemarque(r));
        *erreur = *erreur || r.erreur;
    }
    return texte;
}

}  // namespace

void montreRemarques(QLabel& etiquette, const QString& tape, int genre, Famille famille)
{
    bool erreur = false;
    const QString texte = remarquesFormule(tape, genre, famille, &erreur);
    etiquette.setText(texte);
    etiquette.setStyleSheet(erreur ? QStringLiteral("color: #c00000; font-weight: bold")
                                   : QStringLiteral("color: #a04000"));
    etiquette.setProperty("remarque", texte.isEmpty() ? 0 : erreur ? 2 : 1);
}

}  // namespace velorin
