// Starts the Qt program: the first-start form when this user has no
// folders yet, then the main window MIRADO on the space catalogue.
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

#include "app/dialogues/installation.h"
#include "app/fenetre/mirado.h"
#include "app/lancement.h"
#include "qt/dossiers.h"

#ifndef VELORIN_VERSION
#define VELORIN_VERSION "inconnue"
#endif

extern "C" int velorin_lanceFenetre(int argc, char** argv)
{
    using namespace velorin;
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velorin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELORIN_VERSION));
    // The desktop entry's name (org.velorin.Velorin.desktop), so that the
    // window is matched with its entry and icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.velorin.Velorin"));
    // Standard dialogs (message, input, file) speak French.
    QTranslator traducteur;
    if (traducteur.load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(&traducteur);
    const Emplacements lieux = emplacements();
    if (premierDemarrage(lieux.appli)) {
        Installation installation(lieux, Boites::standard(), Programmes::standard());
        if (installation.exec() != QDialog::Accepted)
            return 0;
    }
    // The whole state of the session, owned here for the whole run.
    auto etat = std::make_unique<Etat>();
    Mirado fenetre(*etat, lieux.appli);
    fenetre.show();
    return app.exec();
}
