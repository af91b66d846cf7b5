#include "qt/dossiers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace velorin {

const char* const nomsDossiers[4] = {"Espace_courbes", "Espace_fig", "Plan_courbes", "Plan_fig"};

void fixeDossiers(EtatFenetre& f, const QString& dossierAppli)
{
    const QString base = QDir(dossierAppli).absolutePath() + QLatin1Char('/');
    auto chemin = [&](int i) { return (base + QLatin1String(nomsDossiers[i]) + QLatin1Char('/')).toStdString(); };
    f.cheminEspaceCourbes = chemin(0);
    f.cheminEspaceFig = chemin(1);
    f.cheminPlanCourbes = chemin(2);
    f.cheminPlanFig = chemin(3);
}

Erreur prepareDossiers(const QString& dossierAppli)
{
    QStringList echecs;
    const QDir appli(dossierAppli);
    for (const char* nom : nomsDossiers) {
        const QString dossier = appli.filePath(QLatin1String(nom));
        if (!QDir().mkpath(dossier)) {
            echecs << QStringLiteral("Impossible de créer le dossier %1.").arg(dossier);
            continue;
        }
        const QString usine = appli.filePath(QStringLiteral("usine/") + QLatin1String(nom));
        QDirIterator it(usine, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString source = it.next();
            const QString cible = dossier + QLatin1Char('/') + QDir(usine).relativeFilePath(source);
            // Anything at that name is the user's, a link that leads nowhere
            // or loops included: the catalogue's opening says what is wrong.
            const QFileInfo present(cible);
            if (present.exists() || present.isSymLink())
                continue;
            QDir().mkpath(QFileInfo(cible).absolutePath());
            if (!QFile::copy(source, cible))
                echecs << QStringLiteral("Impossible de copier %1 dans %2.").arg(source, cible);
            else
                QFile::setPermissions(cible, QFile::permissions(cible) | QFileDevice::WriteOwner);
        }
    }
    if (echecs.isEmpty())
        return {};
    return echecs.join(QLatin1Char('\n')).toStdString();
}

}  // namespace velorin
