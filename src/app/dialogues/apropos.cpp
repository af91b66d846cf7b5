#include "app/dialogues/apropos.h"

#include <QFont>
#include <QLabel>
#include <QPushButton>

#include "app/dialogues/mise_en_page.h"

namespace velorin {

const char* const messageSansInfosSysteme = "Les informations système ne sont pas disponibles actuellement";

const std::vector<OutilInfos>& outilsInfosSysteme()
{
    // KDE's information centre, GNOME's "About" panel of its settings, then
    // a tool of no particular desktop.
    static const std::vector<OutilInfos> outils = {
        {"kinfocenter", {}}, {"gnome-control-center", {QStringLiteral("info-overview")}}, {"hardinfo", {}}};
    return outils;
}

APropos::APropos(const QString& version, Boites boites, Programmes programmes, QWidget* parent)
    : QDialog(parent), boites_(std::move(boites)), programmes_(std::move(programmes))
{
    setObjectName(QStringLiteral("APropos"));
    setWindowTitle(QStringLiteral("A propos de Velorin"));
    Label1 = new QLabel(QStringLiteral("Velorin"), this);
    QFont grand = Label1->font();
    grand.setPointSizeF(grand.pointSizeF() * 1.8);
    grand.setBold(true);
    Label1->setFont(grand);
    Label2 = new QLabel(QStringLiteral("Version ") + version, this);
    Label3 = new QLabel(QStringLiteral("Tracé de courbes et de surfaces dans le plan et dans l'espace : "
                                       "fonctions y = f(x), courbes et surfaces paramétrées ou sphériques, "
                                       "nuages, points, droites, plans et segments, vus en perspective."),
                        this);
    Label3->setWordWrap(true);
    const std::pair<QLabel*, const char*> noms[] = {{Label1, "Label1"}, {Label2, "Label2"}, {Label3, "Label3"}};
    for (const auto& [l, nom] : noms)
        l->setObjectName(QString::fromLatin1(nom));

    Command1 = new QPushButton(QStringLiteral("OK"), this);
    Command2 = new QPushButton(QStringLiteral("&Informations système..."), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(Command2, &QPushButton::clicked, this, &APropos::Command2_Click);

    disposeDialogue(this, {Label1, Label2, Label3}, {Command2}, {Command1});
    setMinimumWidth(420);
}

void APropos::Command2_Click()
{
    for (const OutilInfos& outil : outilsInfosSysteme()) {
        const QString chemin = programmes_.cherche(QString::fromLatin1(outil.programme));
        if (chemin.isEmpty())
            continue;
        if (programmes_.lance(chemin, outil.arguments, QString()))
            return;
    }
    boites_.message(this, QString::fromUtf8(messageSansInfosSysteme));
}

}  // namespace velorin
