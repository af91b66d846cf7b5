#include "qt/dossiers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace velorin {

const char* const nomsDossiers[4] = {"Espace_courbes", "Espace_fig", "Plan_courbes", "Plan_fig"};

namespace {

const char* const nomAide = "Aide/index.htm";

// The installed data folder relative to an executable's folder.
QString donneesInstallees(const QDir& exe)
{
    return QDir::cleanPath(exe.absoluteFilePath(QStringLiteral("../share/velorin")));
}

}  // namespace

Emplacements emplacementsPour(const QString& dossierExecutable, const QString& xdgDataHome, const QString& home)
{
    const QDir exe(dossierExecutable);
    const QString usineLocale = exe.absoluteFilePath(QStringLiteral("usine"));
    const QString partage = donneesInstallees(exe);
    const bool aUsine = QFileInfo(usineLocale).isDir();
    Emplacements e;
    e.installe = (QFileInfo(partage).isDir() && !aUsine) || !QFileInfo(exe.absolutePath()).isWritable();
    e.usine = aUsine ? usineLocale : partage;
    if (!e.installe) {
        e.appli = exe.absolutePath();
        return e;
    }
    // XDG_DATA_HOME counts only when it is an absolute path.
    QString donnees;
    if (!xdgDataHome.isEmpty() && QDir::isAbsolutePath(xdgDataHome))
        donnees = xdgDataHome;
    else
        donnees = (home.isEmpty() ? QDir::homePath() : home) + QStringLiteral("/.local/share");
    e.appli = QDir::cleanPath(donnees + QStringLiteral("/velorin"));
    return e;
}

QString dossierExecutableCourant()
{
    std::error_code ec;
    const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return QDir::currentPath();
    return QString::fromStdString(exe.parent_path().string());
}

Emplacements emplacements()
{
    return emplacementsPour(dossierExecutableCourant(), qEnvironmentVariable("XDG_DATA_HOME"),
                            qEnvironmentVariable("HOME"));
}

QString dossierUsinePour(const QString& dossierAppli)
{
    const QString locale = QDir(dossierAppli).absoluteFilePath(QStringLiteral("usine"));
    if (QFileInfo(locale).isDir())
        return locale;
    return emplacements().usine;
}

bool premierDemarrage(const QString& dossierAppli)
{
    const QDir appli(dossierAppli);
    for (const char* nom : nomsDossiers)
        if (QFileInfo::exists(appli.filePath(QLatin1String(nom))))
            return false;
    return true;
}

QString pageAccueilAide(const Emplacements& e)
{
    const QString propre = QDir(e.appli).filePath(QLatin1String(nomAide));
    if (QFileInfo::exists(propre))
        return propre;
    return QDir(e.usine).filePath(QLatin1String(nomAide));
}

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
    return prepareDossiers(dossierAppli, dossierUsinePour(dossierAppli));
}

Erreur prepareDossiers(const QString& dossierAppli, const QString& dossierUsine)
{
    QStringList echecs;
    const QDir appli(dossierAppli);
    for (const char* nom : nomsDossiers) {
        const QString dossier = appli.filePath(QLatin1String(nom));
        if (!QDir().mkpath(dossier)) {
            echecs << QStringLiteral("Impossible de créer le dossier %1.").arg(dossier);
            continue;
        }
        const QString usine = QDir(dossierUsine).filePath(QLatin1String(nom));
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
