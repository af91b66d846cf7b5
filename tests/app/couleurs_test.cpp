// The colour dialog and the colour policies of "Comment Tracer?".
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/couleurs.h"
#include "banc_fenetre.h"
#include "qt/surface_qpainter.h"
#include "settings/fichier_couleurs.h"

namespace velorin::essai {
namespace {

// Each swatch edits its member, only when OK is pressed; the three swatches
// of space are not shown in the plane; the xOy projections are always blue.
TEST(Couleurs, ChaquePastilleModifieSonMembreAuSeulOk)
{
    const std::pair<const char*, Couleur SchemaCouleurs::*> pastilles[] = {
        {"couleurAxes", &SchemaCouleurs::couleurAxes},         {"couleurFondSombre", &SchemaCouleurs::couleurFondSombre},
        {"couleurTrace", &SchemaCouleurs::couleurTrace},       {"couleurFamille", &SchemaCouleurs::couleurFamille},
        {"couleurTangente", &SchemaCouleurs::couleurTangente}, {"couleurRayon", &SchemaCouleurs::couleurRayon},
        {"couleurProjOx", &SchemaCouleurs::couleurProjOx},     {"couleurProjOy", &SchemaCouleurs::couleurProjOy},
        {"couleurProjOz", &SchemaCouleurs::couleurProjOz},     {"couleurProjXOz", &SchemaCouleurs::couleurProjXOz},
        {"couleurProjYOz", &SchemaCouleurs::couleurProjYOz},
    };
    Banc banc;
    Mirado& m = banc.demarre();
    QStringList titres;
    banc.choixCouleur = [&](const QString& t) -> std::optional<QColor> { return titres << t, QColor(0x12, 0x34, 0x56); };
    const std::string neutre = texteCouleurs(SchemaCouleurs{});
    for (const auto& [nom, membre] : pastilles) {
        SCOPED_TRACE(nom);
        SchemaCouleurs schema;
        Couleurs d(schema, true, 0, m.boites, &m);
        auto* bouton = controle<QPushButton>(d, QString::fromUtf8(nom));
        EXPECT_EQ(bouton->text(), couleurQt(schema.*membre).name().toUpper());
        bouton->click();
        EXPECT_EQ(bouton->text(), QStringLiteral("#123456"));
        EXPECT_TRUE(titres.last().startsWith(QStringLiteral("Couleur : "))) << titres.last().toStdString();
        EXPECT_EQ(texteCouleurs(schema), neutre);  // nothing before OK
        controle<QPushButton>(d, "Command1")->click();
        SchemaCouleurs attendu;
        attendu.*membre = 0x563412;  // red in the low byte
        EXPECT_EQ(texteCouleurs(schema), texteCouleurs(attendu));
    }
    SchemaCouleurs schema;
    Couleurs plan(schema, false, 0, m.boites, &m);
    for (const char* nom : {"couleurProjOz", "couleurProjXOz", "couleurProjYOz"})
        EXPECT_EQ(plan.findChild<QPushButton*>(QString::fromUtf8(nom)), nullptr) << nom;
    Couleurs espace(schema, true, 0, m.boites, &m);
    EXPECT_FALSE(controle<QPushButton>(espace, "couleurProjXOy")->isEnabled());
    // Cancel keeps everything, and so does no colour chosen.
    for (const bool choisie : {true, false}) {
        banc.choixCouleur = [=](const QString&) { return choisie ? std::optional(QColor(Qt::red)) : std::nullopt; };
        Couleurs d(schema, true, 0, m.boites, &m);
        controle<QPushButton>(d, "couleurTrace")->click();
        controle<QPushButton>(d, choisie ? "Command2" : "Command1")->click();
        EXPECT_EQ(texteCouleurs(schema), neutre);
    }
}

// PARAMETRER "les Couleurs" opens the dialog: the family swatch set to red
// and OK pressed.
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

// The policies: 0 for the session only, 1 written beside mem.log, 2 read
// back into the colours in force (a missing file is said, nothing changes).
TEST(Couleurs, PolitiquesEcriventEtRelisentLeFichierMemorise)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const QString fichier =
        QString::fromStdString(m.etat.fenetre.dossierCourbes) + QString::fromUtf8(nomFichierCouleurs());
    article(m, "mnuchcol", 0)->trigger();
    familleEnRouge(banc, m);
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0xFFu);
    EXPECT_FALSE(QFile::exists(fichier));

    article(m, "mnuchcol", 2)->trigger();
    ASSERT_EQ(banc.messages.size(), 1);
    EXPECT_TRUE(banc.messages.back().contains(QStringLiteral("couleurs.txt")));
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 0);

    m.etat.couleurs.couleurFamille = 0;
    article(m, "mnuchcol", 1)->trigger();
    familleEnRouge(banc, m);
    SchemaCouleurs relu;
    ASSERT_FALSE(lisCouleurs(fichier.toStdString(), relu));
    EXPECT_EQ(relu.couleurFamille, 0xFFu);

    m.etat.couleurs.couleurFamille = 0x00FF00;
    article(m, "mnuchcol", 2)->trigger();
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0xFFu);
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 2);
    EXPECT_TRUE(article(m, "mnuchcol", 2)->isChecked());
    EXPECT_EQ(banc.messages.size(), 1);
}

}  // namespace
}  // namespace velorin::essai
