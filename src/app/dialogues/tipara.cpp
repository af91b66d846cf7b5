#include "app/dialogues/tipara.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/dialogues/entree_catalogue.h"
#include "app/dialogues/menus_dialogue.h"
#include "app/dialogues/remarques.h"
#include "plot/ecran.h"
#include "plot/redessin.h"
#include "plot/texte_entree.h"
#include "qt/surface_qpainter.h"

namespace velorin {

namespace {

const std::vector<const char*> legendesTypes = {"y = f(x) dans le plan uniquement", "x =f1(t),y = f2(t),z = f3(t)",
                                                "x=f1(a,t),y=f2(a,t),z=f3(a,t)", "Rayon,Longitude et Azimut f(t)",
                                                "Rayon,Longitude,Azimut f(a,t)"};

}  // namespace

Tipara::Tipara(Catalogue& catalogue, bool modeEspace, int typeDepart, Boites boites, const Etat* enVigueur,
               QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), modeEspace_(modeEspace), boites_(std::move(boites)), enVigueur_(enVigueur)
{
    setObjectName(QStringLiteral("tipara"));
    setWindowTitle(QStringLiteral("Choix des fonctions paramétrées"));

    auto* barre = new QMenuBar(this);
    mnutip =
        menuTableau(barre, "Type de fonction", "mnut", legendesTypes, "mnutip", [this](int i) { mnutip_Click(i); });
    mnuret = menuRetour(barre, "RETOUR", "mnur", "Menu Principal", "mnuret", this);

    Frame5 =
        new QGroupBox(QStringLiteral("Rentrez le bon énoncé/n'oubliez pas les parenthèses et les * de la mult"), this);
    Frame5->setObjectName(QStringLiteral("Frame5"));
    auto* grille = new QGridLayout(Frame5);
    for (int i = 0; i < 3; ++i) {
        Label1[i] = new QLabel(Frame5);
        Label1[i]->setObjectName(QStringLiteral("Label1_%1").arg(i));
        Text2[i] = new QLineEdit(Frame5);
        Text2[i]->setObjectName(QStringLiteral("Text2_%1").arg(i));
        Remarques[i] = new QLabel(Frame5);
        Remarques[i]->setObjectName(QStringLiteral("Remarque_%1").arg(i));
        Remarques[i]->setWordWrap(true);
        grille->addWidget(Label1[i], 2 * i, 0);
        grille->addWidget(Text2[i], 2 * i, 1);
        grille->addWidget(Remarques[i], 2 * i + 1, 1);
        connect(Text2[i], &QLineEdit::textChanged, this, [this, i] { verifie(i); });
    }
    grille->setColumnStretch(1, 1);
    if (enVigueur_) {
        // The preview is drawn a moment after the last key, not at each one.
        Apercu = new QLabel(Frame5);
        Apercu->setObjectName(QStringLiteral("Apercu"));
        Apercu->setFixedSize(240, 180);
        Apercu->setFrameShape(QFrame::Box);
        grille->addWidget(Apercu, 0, 2, 6, 1);
        minuterieApercu = new QTimer(this);
        minuterieApercu->setSingleShot(true);
        minuterieApercu->setInterval(400);
        connect(minuterieApercu, &QTimer::timeout, this, &Tipara::montreApercu);
    }
    Frame5->hide();

    Frame6 = new QGroupBox(
        QStringLiteral("1ère ligne bleue=> création nouvelle **autre ligne=> écrasement ancienne et création "), this);
    Frame6->setObjectName(QStringLiteral("Frame6"));
    List2 = nouvelleListeCatalogue(Frame6);
    connect(List2, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* it) { List2_DblClick(List2->row(it)); });
    (new QVBoxLayout(Frame6))->addWidget(List2);

    Command4 = new QPushButton(QStringLiteral("J'&ENREGISTRE"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    connect(Command4, &QPushButton::clicked, this, &Tipara::Command4_Click);
    Command1 = new QPushButton(QStringLiteral("&Retour"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    connect(Command1, &QPushButton::clicked, this, &QDialog::reject);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command4);
    boutons->addWidget(Command1);
    auto* tout = new QVBoxLayout(this);
    tout->setMenuBar(barre);
    tout->addWidget(Frame5);
    tout->addWidget(Frame6, 1);
    tout->addLayout(boutons);
    resize(std::max(parent ? parent->width() * 3 / 4 : 0, 720), std::max(parent ? parent->height() * 3 / 4 : 0, 520));

    // Form_Load: the plane has two formulas.
    if (!modeEspace_) {
        Text2[2]->hide();
        Label1[2]->hide();
        Remarques[2]->hide();
    }
    listerCatalogue();
    if (typeDepart >= 0 && typeDepart <= 4)
        mnutip_Click(typeDepart);
}

void Tipara::listerCatalogue()
{
    remplisListeCatalogue(List2, catalogue_, boites_, this);
}

void Tipara::mnutip_Click(int index)
{
    genreCourbe_ = index;
    Frame5->show();
    // Kind 0 has one prompt: the others keep what they showed.
    for (int i = 0; i < 3; ++i)
        if (const char* invite = invitesFonctions[index][i])
            Label1[i]->setText(QString::fromUtf8(invite));
    for (int i = 0; i < 3; ++i)
        verifie(i);
}

void Tipara::verifie(int boite)
{
    if (genreCourbe_ >= 0)
        montreRemarques(*Remarques[boite], Text2[boite]->text(), genreCourbe_, familleDuGenre(genreCourbe_));
    else
        Remarques[boite]->clear();
    if (minuterieApercu)
        minuterieApercu->start();
}

void Tipara::montreApercu()
{
    if (Apercu && genreCourbe_ >= 0)
        Apercu->setPixmap(QPixmap::fromImage(apercu(Apercu->size())));
}

QImage Tipara::apercu(QSize taille) const
{
    QImage image(taille, QImage::Format_RGB32);
    image.fill(Qt::black);
    if (!enVigueur_ || genreCourbe_ < 0)
        return image;
    if (!dossierApercu_) {
        auto& dossier = const_cast<std::unique_ptr<QTemporaryDir>&>(dossierApercu_);
        dossier = std::make_unique<QTemporaryDir>();
    }
    if (!dossierApercu_->isValid())
        return image;
    // A copy of the state in force, whose catalogue holds the typed entry only.
    Etat etat = *enVigueur_;
    etat.courbes = {};
    etat.fenetre.pauseActive = false;
    const std::string chemin = dossierApercu_->filePath(QStringLiteral("apercu.lsu")).toStdString();
    QFile::remove(QString::fromStdString(chemin));
    LigneCatalogue ligne;
    viderLigne(ligne);
    ligne.typeFonction = static_cast<std::int16_t>(genreCourbe_);
    ligne.texte = texteEntree(genreCourbe_);
    if (ouvrirCatalogue(etat.catalogue, chemin) || ecrisLigne(etat.catalogue, 1, ligne))
        return image;
    SurfaceQPainter surface(image);
    etat.fenetre.largeurVue = surface.Width();
    etat.fenetre.hauteurVue = surface.Height();
    ajusteVue(etat, surface.Width(), surface.Height());
    // The typed entry alone, without the labels; no pause, no interruption:
    // a formula the evaluator cannot read simply draws nothing here (the
    // remarks say why).
    static_cast<void>(redessine(etat, surface, {.entrees = {1}, .etiquettes = false}));
    return image;
}

void Tipara::Command4_Click()
{
    if (genreCourbe_ < 0) {
        boites_.message(this, QStringLiteral("Choisissez d'abord un type de fonction."));
        return;
    }
    memoire(genreCourbe_);
}

std::string Tipara::texteEntree(int kind) const
{
    std::array<std::string, 3> invites, boites;
    for (int i = 0; i < 3; ++i) {
        invites[i] = Label1[i]->text().toStdString();
        boites[i] = Text2[i]->text().toStdString();
    }
    return velorin::texteEntree(kind, modeEspace_, invites, boites);
}

void Tipara::memoire(int kind)
{
    if (enregistreEntree(List2, catalogue_, kind, texteEntree(kind), boites_, this))
        enregistre_ = true;
}

void Tipara::List2_DblClick(int item)
{
    if (item < 0 || item >= List2->count())
        return;
    const QString ligne = List2->item(item)->text();
    const QString c[3] = {Label1[0]->text(), Label1[1]->text(), Label1[2]->text()};
    // The last place each prompt starts, scanning until the third is found.
    int p[3] = {-1, -1, -1};
    for (int i = 0; i < ligne.size() && p[2] < 0; ++i)
        for (int k = 0; k < 3; ++k)
            if (!c[k].isEmpty() && ligne.mid(i).startsWith(c[k]))
                p[k] = i;
    // The entry text ends before the padding and the "[kk" of the kind.
    const int fin = ligne.lastIndexOf(QLatin1Char('['));
    if (p[0] >= 0 && p[1] >= 0 && p[2] >= 0 && p[0] < p[1] && p[1] < p[2] && p[2] < fin) {
        auto entre = [&](int debut, int avant) { return ligne.mid(debut, std::max(0, avant - debut)); };
        Text2[0]->setText(entre(p[0] + int(c[0].size()), p[1] - 2));
        Text2[1]->setText(entre(p[1] + int(c[1].size()), p[2] - 2));
        Text2[2]->setText(entre(p[2] + int(c[2].size()), fin).trimmed());
    } else {
        for (QLineEdit* t : Text2)
            t->clear();
    }
}

}  // namespace velorin
