#include "app/dialogues/remarques.h"

#include <string>
#include <vector>

#include "engine/normalisation.h"
#include "engine/verification.h"

namespace velorin {

QString remarquesFormule(const QString& tape, int genre, Famille famille)
{
    const std::string formule = nettoieformule(unifiecrochets(tape.toStdString()), genre);
    const std::vector<Remarque> remarques = verifieFormule(formule, famille);
    if (remarques.empty())
        return {};
    QString texte = QStringLiteral("Lue : ") + QString::fromStdString(formule);
    for (const Remarque& r : remarques)
        texte += QLatin1Char('\n') + QString::fromStdString(texteRemarque(r));
    return texte;
}

}  // namespace velorin
