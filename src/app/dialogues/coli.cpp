#include "app/dialogues/coli.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "catalogue/catalogue.h"

namespace velorin {

namespace {

// Record number of a list line: line n lists record n; 0 is the header.
int numeroDeLigne(const QListWidget* liste, const QListWidgetItem* item)
{
    return liste->row(item);
}

}  // namespace

Coli::Coli(Catalogue& catalogue, const std::string& enVigueur, const Boites& boites, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("coli"));
    setWindowTitle(QStringLiteral("Liste des Courbes disponibles"));
    List2 = new QListWidget(this);
    List2->setObjectName(QStringLiteral("List2"));
    List2->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // The lines are 300 characters and more: they scroll sideways, the
    // entry's text shows at once and its kind sits far right out of sight.
    List2->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    List2->setUniformItemSizes(true);
    // The catalogue the window names, even when it could not be opened
    // before: a failure names that file and says why.
    Erreur erreur;
    if (catalogue.chemin != enVigueur)
        erreur = ouvrirCatalogue(catalogue, enVigueur);
    const std::vector<std::string> lignes =
        erreur ? std::vector<std::string>{enteteListeCatalogue} : listerCatalogue(catalogue, &erreur);
    // One insertion for the whole list: a catalogue of 100 000 entries
    // opens at once.
    QStringList textes;
    textes.reserve(static_cast<qsizetype>(lignes.size()));
    for (const std::string& ligne : lignes)
        textes << QString::fromStdString(ligne);
    List2->addItems(textes);
    List2->item(0)->setForeground(Qt::blue);
    List2->setCurrentRow(0);
    connect(List2, &QListWidget::itemDoubleClicked, this, &Coli::List2_DblClick);

    Frame1 = new QGroupBox(QStringLiteral("Couleurs"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* options = new QHBoxLayout(Frame1);
    const char* const noms[] = {"Cycle", "Unique"};
    for (int i = 0; i < 2; ++i) {
        Option1[i] = new QRadioButton(QString::fromUtf8(noms[i]), Frame1);
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        options->addWidget(Option1[i]);
        connect(Option1[i], &QRadioButton::clicked, this, [this, i] { Option1_Click(i); });
    }
    Option1[1]->setChecked(true);
    Command1 = new QPushButton(QStringLiteral("J'ENVOIE UNE SELECTION MULTIPLE"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &Coli::Command1_Click);

    auto* bas = new QHBoxLayout;
    bas->addWidget(Frame1);
    bas->addStretch();
    bas->addWidget(Command1);
    auto* tout = new QVBoxLayout(this);
    tout->addWidget(List2);
    tout->addLayout(bas);
    const int largeur = parent ? parent->width() * 3 / 4 : 900;
    resize(std::max(largeur, 500), parent ? std::max(parent->height() * 2 / 3, 300) : 500);

    if (erreur)
        boites.message(this, QString::fromStdString(erreur.message()));
}

void Coli::Option1_Click(int index)
{
    mode_ = index == 0 ? ModeCouleurs::Cycle : ModeCouleurs::Unique;
}

void Coli::Command1_Click()
{
    choix_.clear();
    for (int i = 1; i < List2->count(); ++i)
        if (List2->item(i)->isSelected())
            choix_.push_back(numeroDeLigne(List2, List2->item(i)));
    accept();
}

void Coli::List2_DblClick(QListWidgetItem* item)
{
    const int numero = numeroDeLigne(List2, item);
    if (numero <= 0)
        return;
    choix_ = {numero};
    accept();
}

}  // namespace velorin
