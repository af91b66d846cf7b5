// The colour dialog, the colour policies of "Comment Tracer?" and the colour
// listed for a drawn family.
#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/couleurs.h"
#include "app/dialogues/licou.h"
#include "banc_fenetre.h"
#include "qt/surface_qpainter.h"
#include "settings/fichier_couleurs.h"

namespace velorin::essai {
namespace {

struct Nuance {
    const char* nom;
    Couleur SchemaCouleurs::*membre;
    bool espaceSeul;
};
const Nuance nuances[] = {
    {"couleurAxes", &SchemaCouleurs::couleurAxes, false},
    {"couleurFondSombre", &SchemaCouleurs::couleurFondSombre, false},
    {"couleurTrace", &SchemaCouleurs::couleurTrace, false},
    {"couleurFamille", &SchemaCouleurs::couleurFamille, false},
    {"couleurTangente", &SchemaCouleurs::couleurTangente, false},
    {"couleurRayon", &SchemaCouleurs::couleurRayon, false},
    {"couleurProjOx", &SchemaCouleurs::couleurProjOx, false},
    {"couleurProjOy", &SchemaCouleurs::couleurProjOy, false},
    {"couleurProjOz", &SchemaCouleurs::couleurProjOz, true},
    {"couleurProjXOz", &SchemaCouleurs::couleurProjXOz, true},
    {"couleurProjYOz", &SchemaCouleurs::couleurProjYOz, true},
};

std::vector<Couleur> toutes(const SchemaCouleurs& s)
{
    std::vector<Couleur> v{s.couleurProjXOy, s.couleurFond};
    for (const Nuance& n : nuances)
        v.push_back(s.*n.membre);
    return v;
}

TEST(Couleurs, EachSwatchEditsItsMemberOnlyOnOk)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const QColor choisie(0x12, 0x34, 0x56);  // 0x563412 with red in the low byte
    QString titre;
    banc.choixCouleur = [&](const QString& t) -> std::optional<QColor> {
        titre = t;
        return choisie;
    };
    for (bool espace : {true, false}) {
        for (const Nuance& n : nuances) {
            SchemaCouleurs schema;
            schema.couleurFond = 0x0A0B0C;
            const SchemaCouleurs avant = schema;
            Couleurs d(schema, espace, 0, m.boites, &m);
            auto* bouton = d.findChild<QPushButton*>(QString::fromUtf8(n.nom));
            if (n.espaceSeul && !espace) {
                EXPECT_EQ(bouton, nullptr) << n.nom;  // not drawn in the plane
                continue;
            }
            ASSERT_NE(bouton, nullptr) << n.nom;
            EXPECT_EQ(bouton->text(), couleurQt(avant.*n.membre).name().toUpper()) << n.nom;
            titre.clear();
            bouton->click();
            EXPECT_TRUE(titre.startsWith(QStringLiteral("Couleur : "))) << titre.toStdString();
            EXPECT_EQ(bouton->text(), QStringLiteral("#123456")) << n.nom;
            EXPECT_EQ(toutes(schema), toutes(avant)) << n.nom;  // nothing before OK
            controle<QPushButton>(d, "Command1")->click();
            EXPECT_EQ(d.result(), QDialog::Accepted);
            SchemaCouleurs attendu = avant;
            attendu.*n.membre = 0x563412;
            EXPECT_EQ(toutes(schema), toutes(attendu)) << n.nom << (espace ? " espace" : " plan");
        }
    }
    // The xOy projections are always blue: their swatch says so and does
    // not change.
    SchemaCouleurs schema;
    schema.couleurProjXOy = 0xFF;
    Couleurs d(schema, true, 0, m.boites, &m);
    auto* xoy = controle<QPushButton>(d, "couleurProjXOy");
    ASSERT_NE(xoy, nullptr);
    EXPECT_FALSE(xoy->isEnabled());
    EXPECT_EQ(xoy->text(), QStringLiteral("#0000FF"));
    EXPECT_TRUE(controle<QLabel>(d, "Label1")->text().contains(QStringLiteral("toujours tracées en bleu")));
}

TEST(Couleurs, CancelOrNoChoiceChangesNothing)
{
    Banc banc;
    Mirado& m = banc.demarre();
    std::optional<QColor> reponse;
    banc.choixCouleur = [&](const QString&) { return reponse; };
    struct Cas {
        std::optional<QColor> reponse;
        const char* bouton;  // how the dialog is left
    };
    for (const Cas& c : {Cas{QColor(Qt::red), "Command2"}, Cas{std::nullopt, "Command1"}}) {
        SchemaCouleurs schema;
        const SchemaCouleurs avant = schema;
        Couleurs d(schema, true, 1, m.boites, &m);
        reponse = c.reponse;
        for (const Nuance& n : nuances)
            controle<QPushButton>(d, QString::fromUtf8(n.nom))->click();
        controle<QPushButton>(d, c.bouton)->click();
        EXPECT_EQ(toutes(schema), toutes(avant)) << c.bouton;
    }
}

std::string lisTout(const QString& chemin)
{
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string("(absent)");
}

// The dialog opened from PARAMETRER "les Couleurs": the family swatch is
// set to red and OK pressed.
void familleEnRouge(Banc& banc, Mirado& m)
{
    banc.choixCouleur = [](const QString&) -> std::optional<QColor> { return QColor(Qt::red); };
    QString vu;
    QTimer::singleShot(0, &m, [&] {
        auto* d = qobject_cast<Couleurs*>(QApplication::activeModalWidget());
        vu = d ? d->objectName() : QString();
        if (!d)
            return;
        d->choisis(QStringLiteral("couleurFamille"));
        d->Command1_Click();
    });
    article(m, "mnupara", 1)->trigger();
    EXPECT_EQ(vu, QStringLiteral("couleurs"));
}

TEST(Couleurs, PoliciesWriteAndReadTheRememberedFile)
{
    Banc banc;
    Mirado& m = banc.demarre();
    ASSERT_TRUE(article(m, "mnupara", 1)->isEnabled());
    const QString fichier =
        QString::fromStdString(m.etat.fenetre.dossierCourbes) + QString::fromUtf8(nomFichierCouleurs());
    const std::string memLog = lisTout(QString::fromStdString(m.etat.fenetre.dossierCourbes) + "mem.log");

    // 0: in force for the session, nothing written.
    article(m, "mnuchcol", 0)->trigger();
    familleEnRouge(banc, m);
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0xFFu);
    EXPECT_FALSE(QFile::exists(fichier));

    // 2 with no remembered file: told, nothing changes.
    article(m, "mnuchcol", 2)->trigger();
    ASSERT_EQ(banc.messages.size(), 1);
    EXPECT_TRUE(banc.messages.back().contains(QStringLiteral("couleurs.txt")));
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 0);
    EXPECT_TRUE(article(m, "mnuchcol", 0)->isChecked());

    // 1: written beside mem.log, which does not change.
    m.etat.couleurs.couleurFamille = 0;
    article(m, "mnuchcol", 1)->trigger();
    familleEnRouge(banc, m);
    EXPECT_NE(lisTout(fichier).find("\ncouleurFamille=255\n"), std::string::npos) << lisTout(fichier);
    EXPECT_EQ(lisTout(QString::fromStdString(m.etat.fenetre.dossierCourbes) + "mem.log"), memLog);

    // 2: read back into the colours in force.
    m.etat.couleurs.couleurFamille = 0x00FF00;
    article(m, "mnuchcol", 2)->trigger();
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0xFFu);
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 2);

    // A damaged file: told with its line, nothing changes.
    banc.ecrisFichier(QDir(banc.chemin(QString())).relativeFilePath(fichier), "couleurTrace=255\ncouleurFamille=x\n");
    m.etat.couleurs.couleurFamille = 0x00FF00;
    article(m, "mnuchcol", 0)->trigger();
    article(m, "mnuchcol", 2)->trigger();
    ASSERT_EQ(banc.messages.size(), 2);
    EXPECT_TRUE(banc.messages.back().contains(QStringLiteral("ligne 2"))) << banc.messages.back().toStdString();
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0x00FF00u);
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 0);
}

// F2 ("Rouge") colours the next families too, and a family is listed in
// the colour it is drawn in.
TEST(Couleurs, CurveColourKeyColoursFamiliesAndTheirListing)
{
    Banc banc;
    const QString relatif = QStringLiteral("Espace_courbes/Lisurf.lsu");
    QDir().mkpath(QFileInfo(banc.chemin(relatif)).absolutePath());
    {
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, banc.chemin(relatif).toStdString()));
        ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{2, "x=f1(a,t)=a*COS(T)][y=f2(a,t)=a*SIN(T)][z=f3(a,t)=A"}));
    }
    Mirado& m = banc.demarre();
    m.etat.param.ordreBoucles = 0;
    m.etat.param.avecMoirure = false;
    struct Cas {
        int touche;  // mnucl index
        const char* nom;
    };
    int ligne = 0;
    for (const Cas& c : {Cas{1, "En rouge:"}, Cas{3, "En bleu:"}}) {
        article(m, "mnucl", c.touche)->trigger();
        EXPECT_EQ(m.etat.couleurs.couleurFamille, m.etat.couleurs.couleurTrace);
        article(m, "mnufa", 1)->trigger();
        ++ligne;
        ASSERT_EQ(int(articles(m, "mnutra").size()), ligne + 1);
        EXPECT_TRUE(article(m, "mnutra", ligne)->text().contains(QString::fromUtf8(c.nom)))
            << article(m, "mnutra", ligne)->text().toStdString();
        EXPECT_EQ(m.etat.courbes.lignes.back()[colCouleurFamille], double(m.etat.couleurs.couleurTrace));
        // The list of drawn curves describes the same colour.
        Licou licou(m.etat.courbes, m.etat.catalogue, ligne, &m);
        EXPECT_EQ(controle<QLabel>(licou, "Label1_0")->text(), QStringLiteral("Trait ") + QString::fromUtf8(c.nom));
    }
}

}  // namespace
}  // namespace velorin::essai
