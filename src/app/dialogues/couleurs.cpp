#include "app/dialogues/couleurs.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/surface_qpainter.h"

namespace velorin {

namespace {

struct Ligne {
    const char* nom;  // object name of the swatch: the member's name
    Couleur SchemaCouleurs::*membre;
    const char* legende;
    int groupe;       // 0 frame, 1 curves, 2 projections
    bool espaceSeul;  // drawn only in space
};

const Ligne lignes[] = {
    {"couleurAxes", &SchemaCouleurs::couleurAxes, "Axes, graduations et nombres", 0, false},
    {"couleurFondSombre", &SchemaCouleurs::couleurFondSombre, "Fond (sans « Fond blanc,axes noirs »)", 0, false},
    {"couleurTrace", &SchemaCouleurs::couleurTrace, "Courbe", 1, false},
    {"couleurFamille", &SchemaCouleurs::couleurFamille, "Famille de courbes (surface)", 1, false},
    {"couleurTangente", &SchemaCouleurs::couleurTangente, "Tangente", 1, false},
    {"couleurRayon", &SchemaCouleurs::couleurRayon, "Rayon", 1, false},
    {"couleurProjOx", &SchemaCouleurs::couleurProjOx, "Projection sur Ox", 2, false},
    {"couleurProjOy", &SchemaCouleurs::couleurProjOy, "Projection sur Oy", 2, false},
    {"couleurProjOz", &SchemaCouleurs::couleurProjOz, "Projection sur Oz", 2, true},
    {"couleurProjXOy", &SchemaCouleurs::couleurProjXOy, "Projection sur xOy", 2, true},
    {"couleurProjXOz", &SchemaCouleurs::couleurProjXOz, "Projection sur xOz", 2, true},
    {"couleurProjYOz", &SchemaCouleurs::couleurProjYOz, "Projection sur yOz", 2, true},
};

// The point step draws the projections on xOy in blue whatever the scheme
// says: their swatch shows that colour and cannot be changed.
constexpr const char* nomXOy = "couleurProjXOy";

Couleur depuisQt(const QColor& c)
{
    return Couleur(c.red()) | Couleur(c.green()) << 8 | Couleur(c.blue()) << 16;
}

}  // namespace

QString legendePolitique(int politique)
{
    switch (politique) {
    case 1: return QStringLiteral("Couleurs définies avec mémorisation");
    case 2: return QStringLiteral("Couleurs déjà mémorisées");
    default: return QStringLiteral("Couleurs définies sans mémorisation");
    }
}

Couleurs::Couleurs(SchemaCouleurs& schema, bool modeEspace, int politique, const Boites& boites, QWidget* parent)
    : QDialog(parent), schema_(schema), edite_(schema), boites_(boites)
{
    setObjectName(QStringLiteral("couleurs"));
    setWindowTitle(QStringLiteral("Couleurs du tracé"));
    const char* const titres[] = {"Repère", "Courbes", "Projections"};
    QGroupBox* groupes[3];
    QGridLayout* grilles[3];
    for (int g = 0; g < 3; ++g) {
        groupes[g] = new QGroupBox(QString::fromUtf8(titres[g]), this);
        groupes[g]->setObjectName(QStringLiteral("Frame%1").arg(g + 1));
        grilles[g] = new QGridLayout(groupes[g]);
        grilles[g]->setColumnStretch(0, 1);
    }
    for (const Ligne& l : lignes) {
        if (l.espaceSeul && !modeEspace)
            continue;
        const QString nom = QString::fromUtf8(l.nom);
        auto* legende = new QLabel(QString::fromUtf8(l.legende), groupes[l.groupe]);
        auto* bouton = new QPushButton(groupes[l.groupe]);
        bouton->setObjectName(nom);
        bouton->setMinimumSize(110, 26);
        bouton->setToolTip(QStringLiteral("Cliquez pour choisir cette couleur"));
        legende->setBuddy(bouton);
        QGridLayout* grille = grilles[l.groupe];
        const int rang = grille->rowCount();
        grille->addWidget(legende, rang, 0);
        grille->addWidget(bouton, rang, 1);
        if (nom == QLatin1String(nomXOy)) {
            edite_.couleurProjXOy = 0xFF0000;
            bouton->setEnabled(false);
            bouton->setToolTip(QStringLiteral("Les projections sur xOy sont toujours tracées en bleu"));
        }
        connect(bouton, &QPushButton::clicked, this, [this, nom] { choisis(nom); });
        nuanciers_.push_back({nom, legende->text(), l.membre, bouton});
        peins(nuanciers_.back());
    }
    auto* note = new QLabel(modeEspace ? QStringLiteral("Les projections sur xOy sont toujours tracées en bleu.")
                                       : QStringLiteral("Dans le plan, seules les projections sur Ox et Oy "
                                                        "sont tracées."),
                            groupes[2]);
    note->setObjectName(QStringLiteral("Label1"));
    note->setWordWrap(true);
    grilles[2]->addWidget(note, grilles[2]->rowCount(), 0, 1, 2);

    QString texte = QStringLiteral("Comment Tracer ? ") + legendePolitique(politique) + QStringLiteral(" : ");
    texte += politique == 1 ? QStringLiteral("OK mémorise aussi ces couleurs dans «\u00A0couleurs.txt\u00A0».")
                            : QStringLiteral("ces couleurs valent pour cette session.");
    texte += QStringLiteral(" Les courbes déjà tracées gardent leurs couleurs.");
    auto* politiqueTexte = new QLabel(texte, this);
    politiqueTexte->setObjectName(QStringLiteral("Label2"));
    politiqueTexte->setWordWrap(true);

    Command1 = new QPushButton(QStringLiteral("&OK"), this);
    Command2 = new QPushButton(QStringLiteral("&Annuler"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &Couleurs::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    auto* colonnes = new QHBoxLayout;
    auto* gauche = new QVBoxLayout;
    gauche->addWidget(groupes[0]);
    gauche->addWidget(groupes[1]);
    gauche->addStretch();
    colonnes->addLayout(gauche);
    auto* droite = new QVBoxLayout;
    droite->addWidget(groupes[2]);
    droite->addStretch();
    colonnes->addLayout(droite);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    boutons->addWidget(Command1);
    boutons->addWidget(Command2);
    auto* tout = new QVBoxLayout(this);
    tout->addLayout(colonnes);
    tout->addWidget(politiqueTexte);
    tout->addLayout(boutons);
}

void Couleurs::peins(const Nuancier& n)
{
    const QColor c = couleurQt(edite_.*n.membre);
    // The text stays readable on a light or dark swatch.
    const int luminance = (299 * c.red() + 587 * c.green() + 114 * c.blue()) / 1000;
    const QString texte = luminance > 140 ? QStringLiteral("black") : QStringLiteral("white");
    n.bouton->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: %2; border: 1px solid gray; "
                                           "padding: 3px; } QPushButton:disabled { color: %2; }")
                                .arg(c.name(), texte));
    n.bouton->setText(c.name().toUpper());
}

void Couleurs::choisis(const QString& nom)
{
    for (const Nuancier& n : nuanciers_) {
        if (n.nom != nom || !n.bouton->isEnabled())
            continue;
        if (!boites_.choixCouleur)
            return;
        const std::optional<QColor> c =
            boites_.choixCouleur(this, couleurQt(edite_.*n.membre), QStringLiteral("Couleur : ") + n.legende);
        if (!c || !c->isValid())
            return;
        edite_.*n.membre = depuisQt(*c);
        peins(n);
    }
}

void Couleurs::Command1_Click()
{
    const Couleur fond = schema_.couleurFond;  // derived at each clearing
    schema_ = edite_;
    schema_.couleurFond = fond;
    accept();
}

}  // namespace velorin
