#include "app/dialogues/ticar.h"

#include <QAction>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/dialogues/entree_catalogue.h"
#include "app/dialogues/menus_dialogue.h"
#include "plot/texte_entree.h"

namespace velorin {

namespace {

const char* const legendeListe = "BLEUIR LA BONNE LIGNE AVANT DE CLIQUER SUR ***J'ENREGISTRE***";

// Boxes `debut` to `debut + n - 1` of the array `nom`, in a row in `cadre`.
template <std::size_t N>
void boitesDuCadre(QGroupBox* cadre, std::array<QLineEdit*, N>& boites, int debut, int n, const char* nom)
{
    auto* rangee = new QHBoxLayout(cadre);
    for (int i = debut; i < debut + n; ++i) {
        boites[i] = new QLineEdit(cadre);
        boites[i]->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(nom)).arg(i));
        rangee->addWidget(boites[i]);
    }
}

}  // namespace

Ticar::Ticar(Catalogue& catalogue, bool modeEspace, Boites boites, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), modeEspace_(modeEspace), boites_(std::move(boites))
{
    setObjectName(QStringLiteral("ticar"));
    setWindowTitle(QStringLiteral("Choisissez votre fonction"));

    // The designer's captions; afflabel puts those of the mode.
    auto* barre = new QMenuBar(this);
    mnuf = menuTableau(
        barre, "CHOISISSEZ", "mnuL",
        {"Droite D(M,u)", "Plan: P(M,u,v)", "Plan: ax + by + cz + e = 0", "Segment [ MN ]", "Point M(x,y,z)"}, "mnuf",
        [this](int i) { mnuf_Click(i); });
    mnuret = barre->addAction(QStringLiteral("RETOUR"));
    mnuret->setObjectName(QStringLiteral("mnuret"));
    connect(mnuret, &QAction::triggered, this, &QDialog::reject);

    const char* const cadres[] = {"M(x ,y,z)------------------V(a,b,c)", "Plan M(x,y,z) ----u(a,b,c)   et v(e,f,g)",
                                  "Plan :a*x + b*y + c*z +d = 0", "M1(x,y,z)----M2(x,y,z)", "M(x,y,z)"};
    auto* tout = new QVBoxLayout(this);
    tout->setMenuBar(barre);
    for (int i = 0; i < 5; ++i) {
        Frame1[i] = new QGroupBox(QString::fromUtf8(cadres[i]), this);
        Frame1[i]->setObjectName(QStringLiteral("Frame1_%1").arg(i));
        Frame1[i]->hide();
        tout->addWidget(Frame1[i]);
    }
    boitesDuCadre(Frame1[0], Text1, 0, 2, "Text1");
    boitesDuCadre(Frame1[1], Text2, 0, 3, "Text2");
    boitesDuCadre(Frame1[2], Text3, 0, 3, "Text3");
    boitesDuCadre(Frame1[3], Text4, 0, 2, "Text4");
    boitesDuCadre(Frame1[4], Text4, 2, 1, "Text4");
    // Only the equation is stored: the two other boxes of the array stay
    // hidden (see Text3_KeyPress).
    Text3[1]->hide();
    Text3[2]->hide();
    for (QLineEdit* boite : Text3)
        boite->installEventFilter(this);

    Frame6 = new QGroupBox(QString::fromUtf8(legendeListe), this);
    Frame6->setObjectName(QStringLiteral("Frame6"));
    List2 = nouvelleListeCatalogue(Frame6);
    (new QVBoxLayout(Frame6))->addWidget(List2);
    tout->addWidget(Frame6, 1);

    Command1 = new QPushButton(QStringLiteral("J'ENREGISTRE"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    connect(Command1, &QPushButton::clicked, this, &Ticar::Command1_Click);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command1);
    tout->addLayout(boutons);
    resize(std::max(parent ? parent->width() * 3 / 4 : 0, 720), std::max(parent ? parent->height() * 3 / 4 : 0, 480));

    // Form_Load.
    afflabel();
    listerCatalogue();
}

void Ticar::afflabel()
{
    const QString equation =
        modeEspace_ ? QStringLiteral("Plan: ax+by+cz+d = 0") : QStringLiteral("Droite: ax+ by + c = 0");
    Frame1[0]->setTitle(modeEspace_ ? QStringLiteral("M(x ,y,z)------------------V(a,b,c)")
                                    : QStringLiteral("M(x ,y)------------------V(a,b)"));
    Frame1[2]->setTitle(equation);
    Frame1[3]->setTitle(modeEspace_ ? QStringLiteral("M1(x,y,z)----M2(x,y,z)") : QStringLiteral("M1(x,y)----M2(x,y)"));
    Frame1[4]->setTitle(modeEspace_ ? QStringLiteral("M(x,y,z)") : QStringLiteral("M(x,y)"));
    mnuf[2]->setText(equation);
    mnuf[4]->setText(modeEspace_ ? QStringLiteral("Point M(x,y,z)") : QStringLiteral("Point M(x,y)"));
    // The plane P(M,u,v) has no meaning in the plane.
    mnuf[1]->setVisible(modeEspace_);
}

void Ticar::listerCatalogue()
{
    remplisListeCatalogue(List2, catalogue_, boites_, this);
}

void Ticar::mnuf_Click(int index)
{
    if (index < 0 || index > 4 || (index == 1 && !modeEspace_))
        return;
    genreCourbe_ = index + 5;
    for (int i = 0; i < 5; ++i)
        Frame1[i]->setVisible(i == index);
    // The user types at once in the first box of the object.
    const std::array<QLineEdit*, 5> premieres{Text1[0], Text2[0], Text3[0], Text4[0], Text4[2]};
    premieres[static_cast<std::size_t>(index)]->setFocus();
    listerCatalogue();
}

void Ticar::Command1_Click()
{
    if (genreCourbe_ < 0) {
        boites_.message(this, QStringLiteral("Choisissez d'abord un objet dans le menu « CHOISISSEZ »."));
        return;
    }
    memoire(genreCourbe_);
}

void Ticar::Text3_KeyPress(int index)
{
    // To the next shown box of the array; from the last one, store.
    for (int i = index + 1; i < 3; ++i)
        if (!Text3[i]->isHidden()) {
            Text3[i]->setFocus();
            return;
        }
    Command1_Click();
}

bool Ticar::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent*>(evenement)->key();
        for (int i = 0; i < 3; ++i)
            if (objet == Text3[i] && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
                Text3_KeyPress(i);
                return true;
            }
    }
    return QDialog::eventFilter(objet, evenement);
}

std::string Ticar::texteEntree(int kind) const
{
    // The boxes of the chosen object, in the order their pieces are stored.
    std::array<QLineEdit*, 3> cases{};
    switch (kind) {
    case 5: cases = {Text1[0], Text1[1], nullptr}; break;
    case 6: cases = Text2; break;
    case 7: cases = {Text3[0], nullptr, nullptr}; break;
    case 8: cases = {Text4[0], Text4[1], nullptr}; break;
    case 9: cases = {Text4[2], nullptr, nullptr}; break;
    default: break;
    }
    std::array<std::string, 3> textes;
    for (int i = 0; i < 3; ++i)
        if (cases[i])
            textes[i] = cases[i]->text().toStdString();
    return velorin::texteEntree(kind, modeEspace_, {}, textes);
}

void Ticar::memoire(int kind)
{
    if (enregistreEntree(List2, catalogue_, kind, texteEntree(kind), boites_, this))
        enregistre_ = true;
}

}  // namespace velorin
