// Starts the Qt program: the main window MIRADO on the space catalogue.
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

#include "app/fenetre/mirado.h"
#include "app/lancement.h"

namespace velorin {

int lanceFenetre(int argc, char** argv)
{
    QApplication app(argc, argv);
    // Standard dialogs (message, input, file) speak French.
    QTranslator traducteur;
    if (traducteur.load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(&traducteur);
    // The whole state of the session, owned here for the whole run.
    auto etat = std::make_unique<Etat>();
    Mirado fenetre(*etat, QCoreApplication::applicationDirPath());
    fenetre.show();
    return app.exec();
}

}  // namespace velorin
