#include "app/dialogues/tinu.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/dialogues/entree_catalogue.h"
#include "app/dialogues/menus_dialogue.h"
#include "app/dialogues/remarques.h"
#include "catalogue/genre.h"
#include "plot/texte_entree.h"

namespace velorin {

namespace {

// The caption of the frame for each type: its blanks place the three names
// above the three boxes.
const char* const legendesCadre[] = {"                  g(x)     <       f(x)        <         h(x)",
                                     "                 g(x,y)    <       f(x,y)      <       h(x,y)"};

}  // namespace

Tinu::Tinu(Catalogue& catalogue, bool modeEspace, Boites boites, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), boites_(std::move(boites))
{
    setObjectName(QStringLiteral("tinu"));
    setWindowTitle(QStringLiteral("Nuages "));

    auto* barre = new QMenuBar(this);
    mnuch = menuTableau(barre, "CHOIX", "mnuc", {"g(x) < f(x) < h(x)", "g(x,y) < f(x,y) < h(x,y)"}, "mnuch",
                        [this](int i) { mnuch_Click(i); });
    mnurt = menuRetour(barre, "RETOUR", "mnur", "Page Principale", "mnurt", this);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    // A fixed-width caption, so that its blanks put the names over the boxes.
    QFont fixe(QStringLiteral("Monospace"));
    fixe.setStyleHint(QFont::TypeWriter);
    Frame1->setFont(fixe);
    auto* grille = new QGridLayout(Frame1);
    for (int i = 0; i < 3; ++i) {
        Text1[i] = new QLineEdit(Frame1);
        Text1[i]->setObjectName(QStringLiteral("Text1_%1").arg(i));
        Remarques[i] = new QLabel(Frame1);
        Remarques[i]->setObjectName(QStringLiteral("Remarque_%1").arg(i));
        Remarques[i]->setWordWrap(true);
        Remarques[i]->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        grille->addWidget(Text1[i], 0, i);
        grille->addWidget(Remarques[i], 1, i);
        grille->setColumnStretch(i, 1);
        connect(Text1[i], &QLineEdit::textChanged, this, [this, i] { verifie(i); });
    }

    Frame6 = new QGroupBox(QStringLiteral("BLEUIR LA BONNE LIGNE AVANT DE CLIQUER SUR ***J'ENREGISTRE***"), this);
    Frame6->setObjectName(QStringLiteral("Frame6"));
    List2 = nouvelleListeCatalogue(Frame6);
    (new QVBoxLayout(Frame6))->addWidget(List2);

    Command1 = new QPushButton(QStringLiteral("J'ENREGISTRE"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    connect(Command1, &QPushButton::clicked, this, &Tinu::Command1_Click);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command1);

    auto* tout = new QVBoxLayout(this);
    tout->setMenuBar(barre);
    tout->addWidget(Frame1);
    tout->addWidget(Frame6, 1);
    tout->addLayout(boutons);
    resize(std::max(parent ? parent->width() * 3 / 4 : 0, 720), std::max(parent ? parent->height() * 3 / 4 : 0, 480));

    remplisListeCatalogue(List2, catalogue_, boites_, this);
    mnuch_Click(modeEspace ? 1 : 0);
}

void Tinu::mnuch_Click(int index)
{
    if (index < 0 || index > 1)
        return;
    genreCourbe_ = genreNuagePlan + index;
    Frame1->setTitle(QString::fromUtf8(legendesCadre[index]));
    for (int i = 0; i < 3; ++i)
        verifie(i);
}

void Tinu::verifie(int boite)
{
    montreRemarques(*Remarques[boite], Text1[boite]->text(), genreCourbe_, Famille::Nuage);
}

void Tinu::Command1_Click()
{
    memoire(genreCourbe_);
}

std::string Tinu::texteEntree(int kind) const
{
    std::array<std::string, 3> textes;
    for (int i = 0; i < 3; ++i)
        textes[i] = Text1[i]->text().toStdString();
    return velorin::texteEntree(kind, true, {}, textes);
}

void Tinu::memoire(int kind)
{
    if (enregistreEntree(List2, catalogue_, kind, texteEntree(kind), boites_, this))
        enregistre_ = true;
}

}  // namespace velorin
