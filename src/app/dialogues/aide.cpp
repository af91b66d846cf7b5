#include "app/dialogues/aide.h"

#include <QPushButton>
#include <QTextBrowser>

#include "app/dialogues/mise_en_page.h"

namespace velorin {

Aide::Aide(const QString& pageAccueil, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Aide"));
    setWindowTitle(QStringLiteral("Aide de Velorin"));
    Text1 = new QTextBrowser(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    // Pages of the web open in the desktop's browser; the help pages here.
    Text1->setOpenExternalLinks(true);
    Command1 = new QPushButton(QStringLiteral("&Sommaire"), this);
    Command2 = new QPushButton(QStringLiteral("&Précédent"), this);
    Command3 = new QPushButton(QStringLiteral("S&uivant"), this);
    Command4 = new QPushButton(QStringLiteral("&Fermer"), this);
    const std::pair<QPushButton*, const char*> noms[] = {
        {Command1, "Command1"}, {Command2, "Command2"}, {Command3, "Command3"}, {Command4, "Command4"}};
    for (const auto& [b, nom] : noms)
        b->setObjectName(QString::fromLatin1(nom));
    Command2->setEnabled(false);
    Command3->setEnabled(false);
    connect(Command1, &QPushButton::clicked, Text1, &QTextBrowser::home);
    connect(Command2, &QPushButton::clicked, Text1, &QTextBrowser::backward);
    connect(Command3, &QPushButton::clicked, Text1, &QTextBrowser::forward);
    connect(Command4, &QPushButton::clicked, this, &QDialog::accept);
    connect(Text1, &QTextBrowser::backwardAvailable, Command2, &QPushButton::setEnabled);
    connect(Text1, &QTextBrowser::forwardAvailable, Command3, &QPushButton::setEnabled);
    // The caption names the page shown, unless it is the contents page
    // whose title is the caption itself.
    connect(Text1, &QTextBrowser::sourceChanged, this, [this] {
        const QString titre = Text1->documentTitle(), aide = QStringLiteral("Aide de Velorin");
        setWindowTitle(titre.isEmpty() || titre == aide ? aide : aide + QStringLiteral(" - ") + titre);
    });

    disposeDialogue(this, {Text1}, {Command1, Command2, Command3}, {Command4});
    resize(std::max(parent ? parent->width() * 2 / 3 : 0, 760), std::max(parent ? parent->height() * 3 / 4 : 0, 560));
    Text1->setSource(QUrl::fromLocalFile(pageAccueil));
}

QUrl Aide::pageCourante() const
{
    return Text1->source();
}

void Aide::suisLien(const QString& lien)
{
    Text1->setSource(Text1->source().resolved(QUrl(lien)));
}

}  // namespace velorin
