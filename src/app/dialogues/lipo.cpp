#include "app/dialogues/lipo.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace velorin {

Lipo::Lipo(Catalogue& catalogue, Trace trace, Boites boites, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), trace_(std::move(trace)), boites_(std::move(boites))
{
    setObjectName(QStringLiteral("lipo"));
    setWindowTitle(QStringLiteral("Points en mémoire"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::MultiSelection);
    List1->setUniformItemSizes(true);

    Frame1 = new QGroupBox(QStringLiteral("Création de M(x,y,z)"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Text1 = new QLineEdit(Frame1);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setPlaceholderText(QStringLiteral("(1,2,3)"));
    Text1->installEventFilter(this);
    Command5 = new QPushButton(QStringLiteral("Je &crée"), Frame1);
    auto* creation = new QHBoxLayout(Frame1);
    creation->addWidget(Text1, 1);
    creation->addWidget(Command5);
    connect(Text1, &QLineEdit::returnPressed, this, &Lipo::Command5_Click);

    Command1 = new QPushButton(QStringLiteral("&Je place le(s) point(s)"), this);
    Command2 = new QPushButton(QStringLiteral("Je &place et relie 2 points"), this);
    Command4 = new QPushButton(QStringLiteral("Je &blanchis"), this);
    Command3 = new QPushButton(QStringLiteral("&Retour"), this);
    const std::pair<QPushButton*, void (Lipo::*)()> boutons[] = {{Command5, &Lipo::Command5_Click},
                                                                 {Command1, &Lipo::Command1_Click},
                                                                 {Command2, &Lipo::Command2_Click},
                                                                 {Command4, &Lipo::Command4_Click},
                                                                 {Command3, &Lipo::Command3_Click}};
    for (const auto& [bouton, clic] : boutons) {
        bouton->setAutoDefault(false);
        connect(bouton, &QPushButton::clicked, this, clic);
    }
    Command5->setObjectName(QStringLiteral("Command5"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command4->setObjectName(QStringLiteral("Command4"));
    Command3->setObjectName(QStringLiteral("Command3"));

    auto* actions = new QVBoxLayout;
    for (QPushButton* bouton : {Command1, Command2, Command4, Command3})
        actions->addWidget(bouton);
    actions->addStretch();
    auto* haut = new QHBoxLayout;
    haut->addWidget(List1, 1);
    haut->addLayout(actions);
    auto* tout = new QVBoxLayout(this);
    tout->addLayout(haut, 1);
    tout->addWidget(Frame1);
    resize(parent ? std::max(parent->width() / 2, 520) : 620, parent ? std::max(parent->height() / 2, 320) : 380);
    charge();
}

void Lipo::dis(const Erreur& erreur)
{
    if (erreur)
        boites_.message(this, QString::fromStdString(erreur.message()));
}

void Lipo::charge()
{
    const Erreur erreur = chargePoints(catalogue_, points_);
    List1->clear();
    for (const PointMemoire& p : points_)
        List1->addItem(QString::fromStdString(p.ligne));
    if (List1->count() > 0)
        List1->item(0)->setSelected(true);
    dis(erreur);
}

std::vector<NumeroLigne> Lipo::selection() const
{
    std::vector<NumeroLigne> numeros;
    for (int i = 0; i < List1->count() && i < int(points_.size()); ++i)
        if (List1->item(i)->isSelected())
            numeros.push_back(points_[static_cast<std::size_t>(i)].numero);
    return numeros;
}

void Lipo::Command5_Click()
{
    Enregistrement r;
    const Erreur erreur = creePoint(catalogue_, Text1->text().toStdString(), r);
    enregistre_ = enregistre_ || r.nouveau;
    if (erreur) {
        dis(erreur);
        return;
    }
    charge();
}

void Lipo::Command1_Click()
{
    for (NumeroLigne numero : selection())
        trace_(numero);
}

void Lipo::Command2_Click()
{
    const std::vector<NumeroLigne> choisis = selection();
    if (choisis.size() != 2) {
        boites_.message(this, QStringLiteral("Choisissez deux points à relier (%1 choisi%2).")
                                  .arg(choisis.size())
                                  .arg(choisis.size() > 1 ? QStringLiteral("s") : QString()));
        return;
    }
    Enregistrement r;
    if (const Erreur erreur = reliePoints(catalogue_, choisis[0], choisis[1], r)) {
        dis(erreur);
        return;
    }
    enregistre_ = true;
    trace_(r.numero);
}

void Lipo::Command4_Click()
{
    List1->clearSelection();
}

void Lipo::Command3_Click()
{
    accept();
}

void Lipo::Text1_DblClick()
{
    Text1->clear();
}

bool Lipo::eventFilter(QObject* objet, QEvent* evenement)
{
    if (objet == Text1 && evenement->type() == QEvent::MouseButtonDblClick) {
        Text1_DblClick();
        return true;
    }
    return QDialog::eventFilter(objet, evenement);
}

}  // namespace velorin
