// Other programs the window starts: the finishing program of the first
// start, the system information tool, the companion program on leaving.
// They are reached through these hooks so that a test sees what would be
// started, with which arguments, without starting anything.
#pragma once
#include <QString>
#include <QStringList>
#include <functional>

namespace velorin {

struct Programmes {
    // The full path of a program found in PATH, or empty.
    std::function<QString(const QString& nom)> cherche;
    // Starts `programme` detached in folder `dossier`; false when it could
    // not be started.
    std::function<bool(const QString& programme, const QStringList& arguments, const QString& dossier)> lance;

    // The real ones: QStandardPaths::findExecutable and QProcess::startDetached.
    static Programmes standard();
};

// `nom` in `dossier` when it is there and may be run, else empty.
QString programmeDans(const QString& dossier, const QString& nom);

}  // namespace velorin
