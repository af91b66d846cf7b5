#include "app/dialogues/licou.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "plot/table_courbes.h"

namespace velorin {

QString ligneTracee(const TableCourbes& courbes, const Catalogue& catalogue, int i)
{
    QString ligne = QString::fromStdString(ligneCourbeTracee(courbes, i));
    LigneCatalogue entree;
    const int numero = int(courbes.lignes.at(i - 1)[colNumero]);
    if (!lisLigne(catalogue, numero, entree))
        ligne += QLatin1Char(' ') + QString::fromStdString(entree.texte).trimmed();
    return ligne;
}

Licou::Licou(const TableCourbes& courbes, const Catalogue& catalogue, int ligneChoisie, QWidget* parent)
    : QDialog(parent), courbes_(courbes)
{
    setObjectName(QStringLiteral("licou"));
    setWindowTitle(QStringLiteral("Courbes tracées et couleur associée"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    const int nb = courbes.nbCourbes;
    for (int i = 1; i <= nb; ++i) {
        auto* item = new QListWidgetItem(ligneTracee(courbes, catalogue, i), List1);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
    connect(List1, &QListWidget::currentRowChanged, this, [this](int r) { List1_Click(r + 1); });

    Frame1 = new QGroupBox(QStringLiteral("Trait/Tgte"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* grille = new QGridLayout(Frame1);
    for (int i = 0; i < 4; ++i) {
        Label1[i] = new QLabel(Frame1);
        Label1[i]->setObjectName(QStringLiteral("Label1_%1").arg(i));
        grille->addWidget(Label1[i], i / 2, i % 2);
    }
    Command1 = new QPushButton(QStringLiteral("Je retrace les &seules cochées"), this);
    Command2 = new QPushButton(QStringLiteral("&Retour"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    connect(Command1, &QPushButton::clicked, this, &Licou::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    Command3 = new QPushButton(QStringLiteral("Re&tirer du dessin"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setToolTip(QStringLiteral("Enlève les courbes cochées du dessin (Édition → Annuler les remet)"));
    connect(Command3, &QPushButton::clicked, this, &Licou::Command3_Click);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command3);
    boutons->addWidget(Command1);
    boutons->addWidget(Command2);
    auto* tout = new QVBoxLayout(this);
    tout->addWidget(List1);
    tout->addWidget(Frame1);
    tout->addLayout(boutons);
    resize(std::max(parent ? parent->width() / 2 : 0, 480), std::max(parent ? parent->height() / 2 : 0, 320));
    if (ligneChoisie >= 1 && ligneChoisie <= nb)
        List1->setCurrentRow(ligneChoisie - 1);
}

void Licou::List1_Click(int ligne)
{
    const auto& lignes = courbes_.lignes;
    if (ligne < 1 || ligne > int(lignes.size()))
        return;
    const LigneCourbe& l = lignes[ligne - 1];
    const std::optional<Couleur> trait = couleurTracee(l);
    Label1[0]->setText(QStringLiteral("Trait ") +
                       QString::fromStdString(trait ? nomCouleur(*trait) : std::string("En panaché")));
    Label1[1]->setText(l[colTraceContinu] != 0 ? QStringLiteral("continu") : QStringLiteral("pointillé"));
    Label1[2]->setText(QStringLiteral("Tgte ") + QString::fromStdString(nomCouleur(enCouleur(l[colCouleurTangente]))));
    Label1[3]->setText(l[colAvecSegmentTangent] != 0 ? QStringLiteral("avec segment tangent")
                                                     : QStringLiteral("sans segment tangent"));
}

void Licou::Command1_Click()
{
    cochees_.clear();
    for (int i = 0; i < List1->count(); ++i)
        if (List1->item(i)->checkState() == Qt::Checked)
            cochees_.push_back(i + 1);
    accept();
}

void Licou::Command3_Click()
{
    retrait_ = true;
    Command1_Click();
}

}  // namespace velorin
