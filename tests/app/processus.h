// `velorin` run as a separate process, as a user or a script runs it.
#pragma once
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <string>

namespace velorin::essai {

struct Sortie {
    int code = -1;  // exit status; -1 when the process did not end normally
    std::string sortie, erreurs;
};

// `velorin ARGUMENTS` in the folder `dossier`; its standard output goes to
// `fichierSortie` when one is given.
inline Sortie lanceVelorin(const QStringList& arguments, const std::string& dossier,
                           const QProcessEnvironment& environnement = QProcessEnvironment::systemEnvironment(),
                           const QString& fichierSortie = {})
{
    QProcess p;
    p.setProcessEnvironment(environnement);
    p.setWorkingDirectory(QString::fromStdString(dossier));
    if (!fichierSortie.isEmpty())
        p.setStandardOutputFile(fichierSortie);
    p.start(QString(VELORIN_BIN_DIR) + "/velorin", arguments);
    p.waitForFinished(60000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, p.readAllStandardOutput().toStdString(),
            p.readAllStandardError().toStdString()};
}

}  // namespace velorin::essai
