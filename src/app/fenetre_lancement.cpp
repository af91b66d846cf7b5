// Starts the Qt program: the main window.
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMainWindow>
#include <QTranslator>

#include "cli/commandes.h"

namespace velorin {

int lanceFenetre(int argc, char** argv)
{
    QApplication app(argc, argv);
    // Standard dialogs (message, input, file) speak French.
    QTranslator traducteur;
    if (traducteur.load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(&traducteur);
    QMainWindow fenetre;
    fenetre.setWindowTitle(QStringLiteral("TRACE DE COURBES ET SURFACES DANS L'ESPACE"));
    fenetre.resize(1024, 700);
    fenetre.show();
    return app.exec();
}

}  // namespace velorin
