#include "qt/demarrage.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace velorin {

namespace {

QtMessageHandler& gestionnaireQt()
{
    static QtMessageHandler defaut = nullptr;
    return defaut;
}

void filtreMessages(QtMsgType type, const QMessageLogContext& contexte, const QString& message)
{
    if (type == QtDebugMsg || type == QtInfoMsg || type == QtWarningMsg)
        return;
    if (gestionnaireQt()) {
        gestionnaireQt()(type, contexte, message);
        return;
    }
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

bool variableDonnee(const char* nom)
{
    return !qEnvironmentVariableIsEmpty(nom);
}

}  // namespace

void prepareDossierSession()
{
    if (variableDonnee("XDG_RUNTIME_DIR"))
        return;
    std::error_code ec;
    const fs::path temporaire = fs::temp_directory_path(ec);
    const fs::path dossier = (ec ? fs::path("/tmp") : temporaire) / ("runtime-" + std::to_string(getuid()));
    ec.clear();
    fs::create_directories(dossier, ec);
    if (ec)
        return;
    fs::permissions(dossier, fs::perms::owner_all, ec);
    if (!ec)
        qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(dossier.string()));
}

void installeFiltreMessages()
{
    if (variableDonnee("VELORIN_DEBUG"))
        return;
    gestionnaireQt() = qInstallMessageHandler(filtreMessages);
}

bool affichageDisponible()
{
    const bool x11 = variableDonnee("DISPLAY"), wayland = variableDonnee("WAYLAND_DISPLAY");
    const QByteArray plateformes = qgetenv("QT_QPA_PLATFORM");
    if (plateformes.isEmpty())
        return x11 || wayland;
    // "wayland;xcb": the first one that starts is used. "xcb:option=...":
    // the options follow the name.
    for (const QByteArray& choix : plateformes.split(';')) {
        const QByteArray nom = choix.split(':').first().trimmed();
        if (nom.isEmpty())
            continue;
        if (nom == "xcb") {
            if (x11)
                return true;
        } else if (nom.startsWith("wayland")) {
            if (wayland)
                return true;
        } else {
            return true;
        }
    }
    return false;
}

}  // namespace velorin
