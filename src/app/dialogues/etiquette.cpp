#include "app/dialogues/etiquette.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/surface_qpainter.h"

namespace velorin {

QFont policeEtiquette(const Etiquette& l)
{
    QFont f(QString::fromStdString(l.police));
    f.setPointSizeF(l.taille > 0 ? l.taille : 10);
    f.setBold(l.gras);
    f.setItalic(l.italique);
    f.setUnderline(l.souligne);
    return f;
}

EditeurEtiquette::EditeurEtiquette(Etiquette& etiquette, const Boites& boites, QWidget* parent)
    : QDialog(parent), etiquette_(etiquette), boites_(boites), couleur_(etiquette.couleur)
{
    setObjectName(QStringLiteral("EditeurEtiquette"));
    setWindowTitle(QStringLiteral("Texte du label"));
    setModal(true);

    Text1 = new QLineEdit(QString::fromStdString(etiquette.texte), this);
    Text1->selectAll();
    // The fonts the label prompts offer first, then those of the system;
    // any other name may be typed.
    Combo1 = new QComboBox(this);
    Combo1->setEditable(true);
    QStringList polices{"Arial", "Bookman Old Style", "Courier New", "Symbol", "Algerian", "Times New Roman"};
    for (const QString& p : QFontDatabase::families())
        if (!polices.contains(p))
            polices << p;
    Combo1->addItems(polices);
    Combo1->setCurrentText(QString::fromStdString(etiquette.police));
    Text2 = new QDoubleSpinBox(this);
    Text2->setRange(1, 200);
    Text2->setDecimals(1);
    Text2->setValue(etiquette.taille);
    Check1 = new QCheckBox(QStringLiteral("Gras"), this);
    Check2 = new QCheckBox(QStringLiteral("Italique"), this);
    Check3 = new QCheckBox(QStringLiteral("Souligné"), this);
    Check1->setChecked(etiquette.gras);
    Check2->setChecked(etiquette.italique);
    Check3->setChecked(etiquette.souligne);
    Command3 = new QPushButton(QStringLiteral("&Couleur..."), this);
    Label1 = new QLabel(this);
    Label1->setMinimumSize(320, 70);
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setAutoFillBackground(true);
    Command1 = new QPushButton(QStringLiteral("&OK"), this);
    Command2 = new QPushButton(QStringLiteral("&Annuler"), this);
    Command1->setDefault(true);

    const std::pair<QWidget*, const char*> noms[] = {
        {Text1, "Text1"},   {Combo1, "Combo1"},     {Text2, "Text2"},       {Check1, "Check1"},     {Check2, "Check2"},
        {Check3, "Check3"}, {Command3, "Command3"}, {Command1, "Command1"}, {Command2, "Command2"}, {Label1, "Label1"}};
    for (const auto& [w, nom] : noms)
        w->setObjectName(QString::fromUtf8(nom));

    auto* formulaire = new QFormLayout;
    formulaire->addRow(QStringLiteral("Texte :"), Text1);
    formulaire->addRow(QStringLiteral("Police :"), Combo1);
    formulaire->addRow(QStringLiteral("Taille :"), Text2);
    auto* styles = new QHBoxLayout;
    styles->addWidget(Check1);
    styles->addWidget(Check2);
    styles->addWidget(Check3);
    styles->addWidget(Command3);
    formulaire->addRow(QStringLiteral("Style :"), styles);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command1);
    boutons->addWidget(Command2);
    auto* tout = new QVBoxLayout(this);
    tout->addLayout(formulaire);
    tout->addWidget(new QLabel(QStringLiteral("Aperçu :"), this));
    tout->addWidget(Label1);
    tout->addLayout(boutons);

    connect(Text1, &QLineEdit::textChanged, this, &EditeurEtiquette::apercu);
    connect(Combo1, &QComboBox::currentTextChanged, this, &EditeurEtiquette::apercu);
    connect(Text2, &QDoubleSpinBox::valueChanged, this, &EditeurEtiquette::apercu);
    for (QCheckBox* c : {Check1, Check2, Check3})
        connect(c, &QCheckBox::toggled, this, &EditeurEtiquette::apercu);
    connect(Command3, &QPushButton::clicked, this, &EditeurEtiquette::Command3_Click);
    connect(Command1, &QPushButton::clicked, this, &EditeurEtiquette::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    apercu();
}

Etiquette EditeurEtiquette::edite() const
{
    Etiquette l = etiquette_;
    l.texte = Text1->text().toStdString();
    const QString police = Combo1->currentText().trimmed();
    if (!police.isEmpty())
        l.police = police.toStdString();
    l.taille = float(Text2->value());
    l.gras = Check1->isChecked();
    l.italique = Check2->isChecked();
    l.souligne = Check3->isChecked();
    l.couleur = couleur_;
    return l;
}

void EditeurEtiquette::apercu()
{
    const Etiquette l = edite();
    Label1->setFont(policeEtiquette(l));
    Label1->setText(QString::fromStdString(l.texte));
    // The preview stands on the colour opposite to the text's brightness,
    // so that a white or a black text both show.
    const QColor texte = couleurQt(Couleur(l.couleur) & 0xFFFFFF);
    QPalette p = Label1->palette();
    p.setColor(QPalette::WindowText, texte);
    p.setColor(QPalette::Window, texte.lightness() > 128 ? Qt::black : Qt::white);
    Label1->setPalette(p);
}

void EditeurEtiquette::Command3_Click()
{
    if (!boites_.choixCouleur)
        return;
    const std::optional<QColor> c = boites_.choixCouleur(this, couleurQt(Couleur(couleur_) & 0xFFFFFF),
                                                         QStringLiteral("Couleur du texte de ce label"));
    if (!c)
        return;
    couleur_ = std::int32_t(c->red() + 256 * c->green() + 65536 * c->blue());
    apercu();
}

void EditeurEtiquette::Command1_Click()
{
    etiquette_ = edite();
    accept();
}

}  // namespace velorin
