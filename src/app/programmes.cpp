#include "app/programmes.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace velorin {

Programmes Programmes::standard()
{
    Programmes p;
    p.cherche = [](const QString& nom) { return QStandardPaths::findExecutable(nom); };
    p.lance = [](const QString& programme, const QStringList& arguments, const QString& dossier) {
        return QProcess::startDetached(programme, arguments, dossier);
    };
    return p;
}

QString programmeDans(const QString& dossier, const QString& nom)
{
    const QFileInfo f(QDir(dossier).filePath(nom));
    if (f.isFile() && f.isExecutable())
        return f.absoluteFilePath();
    return {};
}

}  // namespace velorin
