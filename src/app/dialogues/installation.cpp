#include "app/dialogues/installation.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>

#include "app/dialogues/mise_en_page.h"

namespace velorin {

const char* const messageInstallationTerminee = "L'installation est terminée";

namespace {

const char* const nomFinir = "Velorin_finir";

QString explication(const Emplacements& lieux)
{
    const QString appli = QDir::toNativeSeparators(lieux.appli).toHtmlEscaped();
    QString t = QStringLiteral("<p><b>Bienvenue dans Velorin.</b></p>"
                               "<p>C'est la première fois que Velorin démarre pour vous. Pour travailler, il "
                               "lui faut quatre dossiers à vous, qui seront créés dans<br><tt>%1</tt> :</p>"
                               "<ul>"
                               "<li><tt>Espace_courbes</tt> : les catalogues de fonctions de l'espace "
                               "(dont <tt>Lisurf.lsu</tt>) et leurs paramètres <tt>mem.log</tt>, "
                               "<tt>memprovi.log</tt> ;</li>"
                               "<li><tt>Espace_fig</tt> : les figures de l'espace que vous mémoriserez ;</li>"
                               "<li><tt>Plan_courbes</tt> : les catalogues de fonctions du plan "
                               "(dont <tt>Lico.lsu</tt>) et leurs paramètres ;</li>"
                               "<li><tt>Plan_fig</tt> : les figures du plan.</li>"
                               "</ul>"
                               "<p>Le bouton « Installer » les crée et y copie les catalogues et paramètres "
                               "livrés avec le programme. Un fichier que vous avez déjà n'est jamais "
                               "remplacé.</p>")
                    .arg(appli);
    t += QStringLiteral("<p>« Quitter » ferme Velorin sans rien créer.</p>");
    return t;
}

}  // namespace

Installation::Installation(const Emplacements& lieux, Boites boites, Programmes programmes, QWidget* parent)
    : QDialog(parent), lieux_(lieux), boites_(std::move(boites)), programmes_(std::move(programmes))
{
    setObjectName(QStringLiteral("Installation"));
    setWindowTitle(QStringLiteral("Installation de Velorin"));
    Label1 = new QLabel(explication(lieux), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setTextFormat(Qt::RichText);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Command1 = new QPushButton(QStringLiteral("&Installer"), this);
    Command2 = new QPushButton(QStringLiteral("&Quitter"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &Installation::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    disposeDialogue(this, {Label1}, {}, {Command1, Command2});
    setMinimumWidth(520);
}

void Installation::Command1_Click()
{
    // The finishing program comes first, from the application folder.
    const QString finir = programmeDans(lieux_.appli, QString::fromLatin1(nomFinir));
    if (!finir.isEmpty() && !programmes_.lance(finir, {}, lieux_.appli))
        boites_.message(this, QStringLiteral("Le programme %1 n'a pas pu être lancé.").arg(finir));
    if (auto erreur = prepareDossiers(lieux_.appli, lieux_.usine)) {
        boites_.message(this, QStringLiteral("L'installation n'a pas pu se faire :\n") +
                                  QString::fromStdString(erreur.message()));
        return;
    }
    boites_.message(this, QString::fromUtf8(messageInstallationTerminee));
    accept();
}

}  // namespace velorin
