// The side panels of the main window: the viewing panel (space), the plane
// panel, their buttons and lists, and the read-outs.
//
// Layout: the drawing area fills the window but for a column on its right.
// The column shows, from the top: the "Rr" check box of the mode's panel with
// "O&K" and "&Mem", the panel of the mode (Frame1 in space, Frame2 in the
// plane), then the read-outs Label3 (viewing values, space only), Label4
// (ranges and steps), Label5 (window size), Label1 (pointer) and Label2
// (counters). "Rr" ("réduire") folds the column down to its check box, which
// gives the drawing the whole width. When the window is too low for the
// column (a small screen, a large scale factor), the column scrolls.
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <cmath>

#include "app/fenetre/mirado.h"
#include "app/fenetre/zone_dessin.h"
#include "app/gestes/gestes.h"
#include "view/format_nombre.h"
#include "view/lectures.h"
#include "view/rotation.h"

namespace velorin {

namespace {

const char* const pasListe2[] = {"0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1.0", "1.5", "2.0"};
constexpr int pasDefaut = 9;  // "1.0": one press turns the head by 5 degrees
constexpr int marge = 4;

QString nombre(double v, const char* motif)
{
    return QString::fromStdString(formatNombre(v, motif));
}

QLabel* lecture(QWidget* parent, const char* nom)
{
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromUtf8(nom));
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    l->setTextFormat(Qt::PlainText);
    return l;
}

}  // namespace

void Mirado::creePanneaux()
{
    auto* centre = new QWidget(this);
    setCentralWidget(centre);
    centre->installEventFilter(this);
    zone_ = new ZoneDessin(centre);
    defile_ = new QScrollArea(centre);
    defile_->setObjectName(QStringLiteral("defilePanneau"));
    defile_->setFrameShape(QFrame::NoFrame);
    defile_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    defile_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    colonne_ = new QWidget;
    colonne_->setObjectName(QStringLiteral("colonne"));
    // The column places its controls itself (arrangelabel) and gives its
    // own size: the scroll area does not resize it.
    defile_->setWidget(colonne_);
    defile_->setWidgetResizable(false);

    Check1 = new QCheckBox(QStringLiteral("Rr"), colonne_);
    Check2 = new QCheckBox(QStringLiteral("Rr"), colonne_);
    for (QCheckBox* c : {Check1, Check2})
        connect(c, &QCheckBox::toggled, this, [this] { arrangelabel(); });
    Check1->setObjectName(QStringLiteral("Check1"));
    Check2->setObjectName(QStringLiteral("Check2"));
    Command3 = new QPushButton(QStringLiteral("O&K"), colonne_);
    connect(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
    Command6 = new QPushButton(QStringLiteral("&Mem"), colonne_);
    Command6->setEnabled(false);  // enabled with the figure files (relieFigures)

    // Viewing panel.
    Frame1 = new QGroupBox(QStringLiteral("Point de vue"), colonne_);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* g1 = new QGridLayout(Frame1);
    g1->setContentsMargins(marge, marge, marge, marge);
    g1->setSpacing(2);
    const char* const noms2[] = {"Xv", "Yv", "Zv", "Xd", "Yd", "Zd", "Rotvi"};
    auto* groupe2 = new QButtonGroup(Frame1);
    for (int i = 0; i < 7; ++i) {
        Option2[i] = new QRadioButton(QString::fromUtf8(noms2[i]), Frame1);
        Option2[i]->setObjectName(QStringLiteral("Option2_%1").arg(i));
        groupe2->addButton(Option2[i], i);
        g1->addWidget(Option2[i], i < 3 ? 0 : (i < 6 ? 1 : 2), i < 3 ? i : (i < 6 ? i - 3 : 0));
        connect(Option2[i], &QRadioButton::clicked, this, [this, i] { Option2_Click(i); });
    }
    Option2[0]->setChecked(true);
    List2 = new QListWidget(Frame1);
    List2->setObjectName(QStringLiteral("List2"));
    for (const char* pas : pasListe2)
        List2->addItem(QString::fromUtf8(pas));
    List2->setCurrentRow(pasDefaut);
    g1->addWidget(List2, 3, 0, 3, 2);
    Command1 = new QPushButton(QStringLiteral("+p"), Frame1);
    Command2 = new QPushButton(QStringLiteral("-p"), Frame1);
    Command4 = new QPushButton(QStringLiteral("Reset"), Frame1);
    g1->addWidget(Command1, 3, 2);
    g1->addWidget(Command2, 4, 2);
    g1->addWidget(Command4, 5, 2);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(Command4, &QPushButton::clicked, this, [this] { Command4_Click(); });
    const char* const noms5[] = {"[Oz+", "[Oz-", "[Oy+", "[Oy-", "[Ox+", "[Ox-"};
    for (int i = 0; i < 6; ++i) {
        Command5[i] = new QPushButton(QString::fromUtf8(noms5[i]), Frame1);
        Command5[i]->setObjectName(QStringLiteral("Command5_%1").arg(i));
        connect(Command5[i], &QPushButton::clicked, this, [this, i] { Command5_Click(i); });
        g1->addWidget(Command5[i], 6 + i / 2, i % 2);
    }
    const char* const noms1[] = {"X fixe", "Y fixe", "Z fixe"};
    auto* groupe1 = new QButtonGroup(Frame1);
    for (int i = 0; i < 3; ++i) {
        Option1[i] = new QRadioButton(QString::fromUtf8(noms1[i]), Frame1);
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        groupe1->addButton(Option1[i], i);
        g1->addWidget(Option1[i], 9, i);
        connect(Option1[i], &QRadioButton::clicked, this, [this, i] { Option1_Click(i); });
    }
    List1 = new QListWidget(Frame1);
    List1->setObjectName(QStringLiteral("List1"));
    g1->addWidget(List1, 10, 0, 1, 3);
    // Four whole rows; the width is the panel's, not the lists' own wish.
    for (QListWidget* l : {List1, List2}) {
        l->setFixedHeight(List2->sizeHintForRow(0) * 4 + 2 * l->frameWidth());
        l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

    // Plane panel.
    Frame2 = new QGroupBox(QStringLiteral("Repère du plan"), colonne_);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto* g2 = new QGridLayout(Frame2);
    g2->setContentsMargins(marge, marge, marge, marge);
    Command7 = new QPushButton(QStringLiteral("Reset"), Frame2);
    g2->addWidget(Command7, 0, 0);
    connect(Command7, &QPushButton::clicked, this, [this] { Command7_Click(); });

    const std::pair<QPushButton*, const char*> boutons[] = {{Command1, "Command1"}, {Command2, "Command2"},
                                                            {Command3, "Command3"}, {Command4, "Command4"},
                                                            {Command6, "Command6"}, {Command7, "Command7"}};
    for (const auto& [bouton, nom] : boutons)
        bouton->setObjectName(QString::fromUtf8(nom));
    Label1 = lecture(colonne_, "Label1");
    Label2 = lecture(colonne_, "Label2");
    Label3 = lecture(colonne_, "Label3");
    Label4 = lecture(colonne_, "Label4");
    Label5 = lecture(colonne_, "Label5");
    Label6 = lecture(zone_, "Label6");  // the tip bubble over the drawing
    Label6->setAutoFillBackground(true);
    Label6->hide();
    bullesColonne(*colonne_);
}

void Mirado::montrePanneau()
{
    const bool espace = etat.fenetre.modeEspace;
    Frame1->setVisible(espace);
    Check1->setVisible(espace);
    Label3->setVisible(espace);
    Frame2->setVisible(!espace);
    Check2->setVisible(!espace);
    arrangelabel();
}

void Mirado::arrangelabel()
{
    QWidget* centre = centralWidget();
    if (!centre || !colonne_)
        return;
    const bool espace = etat.fenetre.modeEspace;
    QCheckBox* rr = espace ? Check1 : Check2;
    QGroupBox* panneau = espace ? Frame1 : Frame2;
    const bool reduit = rr->isChecked();
    const int largeurPleine =
        std::max({Frame1->sizeHint().width(),
                  fontMetrics().horizontalAdvance(QStringLiteral("Xd=-0000.00  Yd=-0000.00")), 160}) +
        2 * marge;
    const int largeur = reduit ? rr->sizeHint().width() + 2 * marge : largeurPleine;
    const int W = centre->width(), H = centre->height();
    // The column is laid out at its own height first; the drawing takes
    // what is left once the scroll bar, if needed, has its room.
    auto place = [&](int hauteurColonne) {
        const bool defile = hauteurColonne > H;
        const int barre = defile ? defile_->verticalScrollBar()->sizeHint().width() : 0;
        zone_->setGeometry(0, 0, std::max(W - largeur - barre, 1), H);
        defile_->setGeometry(W - largeur - barre, 0, largeur + barre, H);
        colonne_->resize(largeur, std::max(hauteurColonne, H));
    };

    const int interieur = largeur - 2 * marge;
    int y = marge;
    const int hBouton = Command3->sizeHint().height();
    rr->setGeometry(marge, y, rr->sizeHint().width(), hBouton);
    for (QWidget* w : std::initializer_list<QWidget*>{Command3, Command6, panneau, Label1, Label2, Label4, Label5})
        w->setVisible(!reduit);
    Label3->setVisible(!reduit && espace);
    if (reduit) {
        place(H);
        return;
    }
    const int xBoutons = marge + rr->sizeHint().width() + marge;
    const int lBouton = (largeur - xBoutons - 2 * marge) / 2;
    Command3->setGeometry(xBoutons, y, lBouton, hBouton);
    Command6->setGeometry(xBoutons + lBouton + marge, y, lBouton, hBouton);
    y += hBouton + marge;
    panneau->setGeometry(marge, y, interieur, panneau->sizeHint().height());
    y += panneau->height() + marge;
    std::vector<QLabel*> lectures;
    if (espace)
        lectures.push_back(Label3);
    for (QLabel* l : {Label4, Label5, Label1, Label2})
        lectures.push_back(l);
    for (QLabel* l : lectures) {
        const int h = l->heightForWidth(interieur) > 0 ? l->heightForWidth(interieur) : l->sizeHint().height();
        l->setGeometry(marge, y, interieur, h);
        y += h + marge;
    }
    place(y);
}

void Mirado::affviseur()
{
    const Parametres& p = etat.param;
    Label3->setText(QString::fromStdString(texteViseur(p)));
    arrangelabel();
}

void Mirado::affou()
{
    const QString texte = QString::fromStdString(texteBornes(etat.param));
    Label4->setText(texte);
    Label2->setToolTip(texte);
    arrangelabel();
}

// "+p" and "-p": the step chosen in List2 (none chosen counts as 0), added
// by ajusteReglage to the value chosen by Option2. The new values are only
// shown; "O&K" redraws.
static double pasChoisi(const QListWidget* liste)
{
    const QListWidgetItem* item = liste->currentItem();
    return item ? item->text().toDouble() : 0.0;
}

void Mirado::Command1_Click()
{
    ajusteReglage(etat.param, etat.fenetre.choixReglage, pasChoisi(List2));
    affviseur();
}

void Mirado::Command2_Click()
{
    ajusteReglage(etat.param, etat.fenetre.choixReglage, -pasChoisi(List2));
    affviseur();
}

void Mirado::Command4_Click()
{
    if (refuseSiOccupe())
        return;
    etat.fenetre.pauseActive = true;
    Timer2->stop();
    Timer3->stop();
    lecdebut(1);
    affviseur();
}

void Mirado::Command7_Click()
{
    if (refuseSiOccupe())
        return;
    seance({});  // the clearing and the frame alone
    Command4_Click();
}

void Mirado::Option2_Click(int index)
{
    etat.fenetre.choixReglage = index;
    Option2[index]->setChecked(true);
}

void Mirado::Option1_Click(int index)
{
    const Parametres& p = etat.param;
    const double bornes[3][2] = {{p.xmin, p.xmax}, {p.ymin, p.ymax}, {p.zmin, p.zmax}};
    const double mini = bornes[index][0], maxi = bornes[index][1];
    const double pas = (maxi - mini) / 1000;
    QStringList valeurs;
    // At most 1001 values: a range that is empty, reversed or not finite
    // stops at once rather than running on.
    double v = mini;
    for (int n = 0; n <= 1001 && std::isfinite(v); ++n) {
        valeurs << nombre(v, "00.000");
        if (!(v < maxi) || !(pas > 0))
            break;
        v += pas;
    }
    List1->clear();
    List1->addItems(valeurs);
}

void Mirado::regle(double valeur)
{
    for (int i = 0; i < List1->count(); ++i) {
        if (List1->item(i)->text().toDouble() > valeur) {
            List1->setCurrentRow(i);
            return;
        }
    }
}

void Mirado::bricole(int choix, double valeur)
{
    Option1[choix]->setChecked(true);
    Option1_Click(choix);
    regle(valeur);
}

}  // namespace velorin
