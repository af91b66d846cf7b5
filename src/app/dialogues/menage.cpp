#include "app/dialogues/menage.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogue/reduction.h"

namespace velorin {

Menage::Menage(Catalogue& catalogue, Boites boites, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), boites_(std::move(boites))
{
    setObjectName(QStringLiteral("menage"));
    setWindowTitle(QStringLiteral("Suppression des courbes indésirables"));
    Frame6 = new QGroupBox(QStringLiteral("BLEUIR LA BONNE LIGNE AVANT DE CLIQUER SUR ***J'ENREGISTRE***"), this);
    Frame6->setObjectName(QStringLiteral("Frame6"));
    List2 = new QListWidget(Frame6);
    List2->setObjectName(QStringLiteral("List2"));
    List2->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List2->setUniformItemSizes(true);
    (new QVBoxLayout(Frame6))->addWidget(List2);

    const std::pair<QPushButton**, const char*> boutons[] = {
        {&Command1, "J'ELIMINE"}, {&Command3, "JE REDUIS LE FICHIER"}, {&Command2, "RETOUR"}};
    auto* bas = new QHBoxLayout;
    for (const auto& [bouton, legende] : boutons) {
        *bouton = new QPushButton(QString::fromUtf8(legende), this);
        bas->addWidget(*bouton);
    }
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));
    connect(Command1, &QPushButton::clicked, this, &Menage::Command1_Click);
    connect(Command3, &QPushButton::clicked, this, &Menage::Command3_Click);
    connect(Command2, &QPushButton::clicked, this, &Menage::Command2_Click);

    auto* tout = new QVBoxLayout(this);
    tout->addWidget(Frame6);
    tout->addLayout(bas);
    resize(parent ? std::max(parent->width() * 3 / 4, 500) : 800,
           parent ? std::max(parent->height() * 2 / 3, 300) : 480);
    listerCatalogue();
}

void Menage::listerCatalogue()
{
    Erreur erreur;
    const std::vector<std::string> lignes = velorin::listerCatalogue(catalogue_, &erreur);
    QStringList textes;
    textes.reserve(static_cast<qsizetype>(lignes.size()));
    for (const std::string& ligne : lignes)
        textes << QString::fromStdString(ligne);
    List2->clear();
    List2->addItems(textes);
    List2->item(0)->setForeground(Qt::blue);
    List2->setCurrentRow(0);
    if (erreur)
        boites_.message(this, QString::fromStdString(erreur.message()));
}

void Menage::reduction(const std::vector<NumeroLigne>& effacees)
{
    setCursor(Qt::WaitCursor);
    BilanReduction bilan;
    const Erreur erreur = velorin::reduction(catalogue_, effacees, &bilan);
    reduit_ = reduit_ || bilan.remplace;
    listerCatalogue();
    unsetCursor();
    if (erreur)
        boites_.message(this, QString::fromStdString(erreur.message()));
}

void Menage::Command1_Click()
{
    // Item 0 is the header: never a record.
    std::vector<NumeroLigne> effacees;
    for (int i = 1; i < List2->count(); ++i)
        if (List2->item(i)->isSelected())
            effacees.push_back(i);
    reduction(effacees);
}

void Menage::Command3_Click()
{
    reduction({});
}

void Menage::Command2_Click()
{
    accept();
}

}  // namespace velorin
