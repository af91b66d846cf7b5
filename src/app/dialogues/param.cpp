#include "app/dialogues/param.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "settings/memoire.h"
#include "settings/texte_nombre.h"

namespace velorin {

namespace {

// The flags of Check1(0..11), in index order.
int Parametres::*const drapeaux[12] = {
    &Parametres::repereOrthonorme, &Parametres::traceContinu, &Parametres::projXOy,   &Parametres::projXOz,
    &Parametres::projYOz,          &Parametres::projOx,       &Parametres::projOy,    &Parametres::projOz,
    &Parametres::axesVisibles,     &Parametres::avecRayon,    &Parametres::fondBlanc, &Parametres::avecSegmentTangent,
};
const char* const legendesCheck1[12] = {
    "Repère Orthonormé",
    "Tracé continu(...pointillés..)",
    "Proj/xOy",
    "Proj/xOz",
    "Proj/yOz",
    "Proj/ (Ox)",
    "Proj/(Oy)",
    "Proj/(Oz)",
    "Axes Visibles",
    "Avec Rayon(si f pol)",
    "Fond blanc,axes noirs",
    "Avec segment tangeant",
};
const char* const legendesOption2[4] = {
    "Ordre a1 ,t1...t2   a2",
    "Ordre t1 ,a1..a2   t2",
    "les deux(treillis) même couleur",
    "les deux(treillis) 2 couleurs rouge et vert",
};

QString nomIndexe(const char* nom, int i)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(nom)).arg(i);
}

// The caption of Label1(i): the range labels, then one label per field
// from Text1(10) on.
QString legendeLabel1(int i)
{
    return QString::fromUtf8(legendeChampReglage(i < 5 ? 2 * i : i + 5));
}

// Fields hidden in the plane: the z range, then the z count, the viewer,
// the rotation step, the direction and "Rotadir".
bool champDeLEspace(int i)
{
    return i == 4 || i == 5 || (i >= 14 && i <= 21);
}

}  // namespace

Param::Param(Parametres& param, const std::string& dossierCourbes, bool espace, const Boites& boites, QWidget* parent)
    : QDialog(parent), param_(param), dossierCourbes_(dossierCourbes), espace_(espace), boites_(boites)
{
    // Form_Load
    setObjectName(QStringLiteral("param"));
    setWindowTitle(QStringLiteral("CHOISISSEZ BIEN CE QUE VOUS DESIREZ"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setModal(true);

    for (int i = 0; i < nbChampsReglage; ++i) {
        Text1[i] = new QLineEdit(this);
        Text1[i]->setObjectName(nomIndexe("Text1", i));
        // A fixed width: the coloured border of a remark never moves the
        // other controls.
        Text1[i]->setFixedWidth(105);
        Text1[i]->installEventFilter(this);
        connect(Text1[i], &QLineEdit::textChanged, this, &Param::verifieChamps);
    }
    for (int i = 0; i < int(Label1.size()); ++i) {
        Label1[i] = new QLabel(legendeLabel1(i), this);
        Label1[i]->setObjectName(nomIndexe("Label1", i));
        if (i < 5)
            Label1[i]->setAlignment(Qt::AlignCenter);
        else
            Label1[i]->setBuddy(Text1[i + 5]);
    }
    // Ranges on the left (min <x< max); then steps and counts, the viewer
    // and the pause, the direction.
    auto* grille = new QGridLayout;
    grille->setHorizontalSpacing(8);
    for (int r = 0; r < 5; ++r) {
        grille->addWidget(Text1[2 * r], r, 0);
        grille->addWidget(Label1[r], r, 1);
        grille->addWidget(Text1[2 * r + 1], r, 2);
        grille->addWidget(Label1[5 + r], r, 4, Qt::AlignRight);
        grille->addWidget(Text1[10 + r], r, 5);
    }
    for (int r = 0; r < 4; ++r) {
        grille->addWidget(Label1[10 + r], r, 7, Qt::AlignRight);
        grille->addWidget(Text1[15 + r], r, 8);
        grille->addWidget(Label1[14 + r], r, 10, Qt::AlignRight);
        grille->addWidget(Text1[19 + r], r, 11);
    }
    grille->addWidget(Label1[18], 4, 7, 1, 4, Qt::AlignRight);
    grille->addWidget(Text1[23], 4, 11);
    for (int c : {3, 6, 9})
        grille->setColumnMinimumWidth(c, 12);

    auto* cases = new QGridLayout;
    for (int i = 0; i < 12; ++i) {
        Check1[i] = new QCheckBox(QString::fromUtf8(legendesCheck1[i]), this);
        Check1[i]->setObjectName(nomIndexe("Check1", i));
        cases->addWidget(Check1[i], i / 4, i % 4);
    }

    Frame3 = new QGroupBox(QStringLiteral("Pour les doubles-boucles a,...t..."), this);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    auto* boucles = new QVBoxLayout(Frame3);
    for (int i = 0; i < 4; ++i) {
        Option2[i] = new QRadioButton(QString::fromUtf8(legendesOption2[i]), Frame3);
        Option2[i]->setObjectName(nomIndexe("Option2", i));
        boucles->addWidget(Option2[i]);
    }
    Check2 = new QCheckBox(QStringLiteral("Avec moirure(15coul)"), Frame3);
    Check2->setObjectName(QStringLiteral("Check2"));
    boucles->addWidget(Check2);

    Frame1 = new QGroupBox(QStringLiteral("le bon choix"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* choix = new QVBoxLayout(Frame1);
    const char* const legendesOption1[2] = {"Retracer toutes les courbes en mémoire",
                                            "Effacer et tracer le repère choisi"};
    for (int i = 0; i < 2; ++i) {
        Option1[i] = new QRadioButton(QString::fromUtf8(legendesOption1[i]), Frame1);
        Option1[i]->setObjectName(nomIndexe("Option1", i));
        choix->addWidget(Option1[i]);
    }
    Option1[0]->setChecked(true);
    choix->addStretch();

    Frame2 = new QGroupBox(QStringLiteral("les bons clics"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto* boutons = new QVBoxLayout(Frame2);
    Command1 = new QPushButton(QStringLiteral("&Retour sans mémorisation"), Frame2);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("Mé&morisation et retour"), Frame2);
    Command2->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {Command1, Command2}) {
        // Enter belongs to the fields: it never presses a button.
        b->setAutoDefault(false);
        b->setDefault(false);
        boutons->addWidget(b);
    }
    boutons->addStretch();
    connect(Command1, &QPushButton::clicked, this, &Param::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Param::Command2_Click);

    auto* bas = new QHBoxLayout;
    bas->addWidget(Frame3);
    bas->addWidget(Frame1);
    bas->addWidget(Frame2);
    auto* tout = new QVBoxLayout(this);
    tout->addLayout(grille);
    tout->addSpacing(6);
    tout->addLayout(cases);
    tout->addSpacing(6);
    tout->addLayout(bas);
    tout->setSizeConstraint(QLayout::SetFixedSize);

    affreglage();
}

void Param::affreglage()
{
    const TextesReglage textes = textesReglage(param_);
    for (int i = 0; i < nbChampsReglage; ++i)
        Text1[i]->setText(QString::fromStdString(textes[i]).trimmed());
    for (int i = 0; i < 12; ++i)
        Check1[i]->setChecked(param_.*drapeaux[i] != 0);
    Check2->setChecked(param_.avecMoirure);
    if (param_.ordreBoucles < 4)
        Option2[param_.ordreBoucles]->setChecked(true);

    for (int i = 0; i < nbChampsReglage; ++i)
        Text1[i]->setVisible(espace_ || !champDeLEspace(i));
    for (int i = 9; i <= 16; ++i)
        Label1[i]->setVisible(espace_);
    Check1[0]->setVisible(!espace_);
    Check1[0]->setEnabled(!espace_);
    for (int i : {2, 3, 4, 7})
        Check1[i]->setVisible(espace_);
    verifieChamps();
}

void Param::Form_Activate()
{
    // Kept above every other window while it is the active one; the flag
    // set at loading does it without moving or resizing the dialog.
    raise();
}

void Param::changeEvent(QEvent* evenement)
{
    if (evenement->type() == QEvent::ActivationChange && isActiveWindow())
        Form_Activate();
    QDialog::changeEvent(evenement);
}

bool Param::eventFilter(QObject* objet, QEvent* evenement)
{
    for (int i = 0; i < nbChampsReglage; ++i) {
        if (objet != Text1[i])
            continue;
        if (evenement->type() == QEvent::KeyPress) {
            const int touche = static_cast<QKeyEvent*>(evenement)->key();
            if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
                Text1_KeyPress(i, 13);
                return true;
            }
        } else if (evenement->type() == QEvent::MouseButtonDblClick) {
            Text1_DblClick(i);
            return true;
        }
        break;
    }
    return QDialog::eventFilter(objet, evenement);
}

void Param::Text1_KeyPress(int index, int keyAscii)
{
    // Enter moves on through the ranges only (fields 0 to 8).
    if (keyAscii == 13 && index < 9)
        Text1[index + 1]->setFocus();
}

void Param::Text1_DblClick(int index)
{
    Text1[index]->clear();
}

void Param::Command1_Click()
{
    applique(false);
}

void Param::Command2_Click()
{
    applique(true);
}

void Param::applique(bool retenu)
{
    TextesReglage textes;
    for (int i = 0; i < nbChampsReglage; ++i)
        textes[i] = Text1[i]->text().toStdString();
    // Everything is taken into a copy: a refused field or a file that cannot
    // be written leaves the parameters in force and the dialog open.
    Parametres p = param_;
    bool incorrecte = false;
    if (auto erreur = lisReglage(textes, p, &incorrecte)) {
        boites_.message(this, QString::fromStdString(erreur.message()));
        // Brackets the evaluator cannot read end the program, as they do
        // in the formula of a curve.
        if (incorrecte) {
            reject();
            if (boites_.fin)
                boites_.fin();
        }
        return;
    }
    for (int i = 0; i < 12; ++i)
        p.*drapeaux[i] = Check1[i]->isChecked() ? 1 : 0;
    p.avecMoirure = Check2->isChecked();
    for (int i = 0; i < 4; ++i)
        if (Option2[i]->isChecked())
            p.ordreBoucles = static_cast<std::uint8_t>(i);
    if (auto erreur = ecrisMemoire(dossierCourbes_ + nomFichierMemoire(retenu), p)) {
        boites_.message(this, QString::fromStdString(erreur.message()));
        return;
    }
    param_ = p;
    lecture_ = retenu ? 0 : 1;
    vidage_ = !Option1[0]->isChecked();
    accept();
}

void Param::verifieChamps()
{
    TextesReglage textes;
    for (int i = 0; i < nbChampsReglage; ++i)
        textes[i] = Text1[i]->text().toStdString();
    const auto remarques = remarquesReglage(textes);
    for (int i = 0; i < nbChampsReglage; ++i) {
        const RemarquesChamp& r = remarques[i];
        QString aide = QString::fromUtf8(nomChampReglage(i));
        if (r.lisible)
            aide += QStringLiteral(" : valeur lue ") + QString::fromStdString(texteNombre(r.valeur, 15));
        for (const std::string& t : r.textes)
            aide += QStringLiteral("\n• ") + QString::fromStdString(t);
        Text1[i]->setToolTip(aide);
        if (r.textes.empty())
            Text1[i]->setStyleSheet(QString());
        else
            Text1[i]->setStyleSheet(r.bloquante ? QStringLiteral("QLineEdit { border: 2px solid #c00000; }")
                                                : QStringLiteral("QLineEdit { border: 2px solid #e07000; }"));
        Text1[i]->setProperty("remarque", r.textes.empty() ? 0 : (r.bloquante ? 2 : 1));
    }
}

}  // namespace velorin
