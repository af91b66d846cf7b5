// The colour dialog and the colour policies of "Comment Tracer?".
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/couleurs.h"
#include "banc_fenetre.h"
#include "qt/surface_qpainter.h"
#include "settings/fichier_couleurs.h"

namespace velorin::essai {
namespace {

// Each swatch edits its member, only on OK; the three swatches of space are not
// shown in the plane; the xOy projections are always blue; cancel or no colour keep all.
TEST(Couleurs, ChaquePastilleModifieSonMembreAuSeulOk)
{
    using S = SchemaCouleurs;
    const std::pair<const char*, Couleur S::*> pastilles[] = {
        {"couleurAxes", &S::couleurAxes},         {"couleurFondSombre", &S::couleurFondSombre},
        {"couleurTrace", &S::couleurTrace},       {"couleurFamille", &S::couleurFamille},
        {"couleurTangente", &S::couleurTangente}, {"couleurRayon", &S::couleurRayon},
        {"couleurProjOx", &S::couleurProjOx},     {"couleurProjOy", &S::couleurProjOy},
        {"couleurProjOz", &S::couleurProjOz},     {"couleurProjXOz", &S::couleurProjXOz},
        {"couleurProjYOz", &S::couleurProjYOz}};
    Banc banc;
    Mirado& m = banc.demarre();
    QStringList titres;
    banc.choixCouleur = [&](const QString& t) -> std::optional<QColor> {
        return titres << t, QColor(0x12, 0x34, 0x56);
    };
    const std::string neutre = texteCouleurs(S{});
    for (const auto& [nom, membre] : pastilles) {
        S schema, attendu;
        Couleurs d(schema, true, 0, m.boites, &m);
        auto* bouton = controle<QPushButton>(d, QString::fromUtf8(nom));
        EXPECT_EQ(bouton->text(), couleurQt(schema.*membre).name().toUpper()) << nom;
        bouton->click();
        EXPECT_EQ(bouton->text(), QStringLiteral("#123456"));
        EXPECT_TRUE(titres.last().startsWith(QStringLiteral("Couleur : "))) << titres.last().toStdString();
        EXPECT_EQ(texteCouleurs(schema), neutre) << nom;  // nothing before OK
        controle<QPushButton>(d, "Command1")->click();
        attendu.*membre = 0x563412;  // red in the low byte
        EXPECT_EQ(texteCouleurs(schema), texteCouleurs(attendu)) << nom;
    }
    S schema;
    Couleurs plan(schema, false, 0, m.boites, &m), espace(schema, true, 0, m.boites, &m);
    for (const char* nom : {"couleurProjOz", "couleurProjXOz", "couleurProjYOz"})
        EXPECT_EQ(plan.findChild<QPushButton*>(QString::fromUtf8(nom)), nullptr) << nom;
    EXPECT_FALSE(controle<QPushButton>(espace, "couleurProjXOy")->isEnabled());
    for (const bool choisie : {true, false}) {
        banc.choixCouleur = [=](const QString&) { return choisie ? std::optional(QColor(Qt::red)) : std::nullopt; };
        Couleurs d(schema, true, 0, m.boites, &m);
        controle<QPushButton>(d, "couleurTrace")->click();
        controle<QPushButton>(d, choisie ? "Command2" : "Command1")->click();
        EXPECT_EQ(texteCouleurs(schema), neutre);
    }
}

// The policies: 0 for the session only, 1 written beside mem.log, 2 read back
// into the colours in force (a missing file is said, nothing changes).
TEST(Couleurs, PolitiquesEcriventEtRelisentLeFichierMemorise)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const std::string fichier = m.etat.fenetre.dossierCourbes + nomFichierCouleurs();
    // PARAMETRER "les Couleurs": the family swatch set to red, OK pressed.
    const auto familleEnRouge = [&] {
        banc.choixCouleur = [](const QString&) -> std::optional<QColor> { return QColor(Qt::red); };
        QString vu;
        QTimer::singleShot(0, &m, [&] {
            if (auto* d = qobject_cast<Couleurs*>(QApplication::activeModalWidget())) {
                vu = d->objectName();
                d->choisis(QStringLiteral("couleurFamille"));
                d->Command1_Click();
            }
        });
        article(m, "mnupara", 1)->trigger();
        EXPECT_EQ(vu, QStringLiteral("couleurs"));
    };
    article(m, "mnuchcol", 0)->trigger();
    familleEnRouge();
    EXPECT_EQ(m.etat.couleurs.couleurFamille, 0xFFu);
    EXPECT_FALSE(std::filesystem::exists(fichier));
    article(m, "mnuchcol", 2)->trigger();
    ASSERT_EQ(banc.messages.size(), 1);
    EXPECT_TRUE(banc.messages.back().contains(QStringLiteral("couleurs.txt")));
    EXPECT_EQ(m.etat.fenetre.politiqueCouleurs, 0);
    m.etat.couleurs.couleurFamille = 0;
    article(m, "mnuchcol", 1)->trigger();
    familleEnRouge();
    SchemaCouleurs relu;
    ASSERT_FALSE(lisCouleurs(fichier, relu));
    EXPECT_EQ(relu.couleurFamille, 0xFFu);
    m.etat.couleurs.couleurFamille = 0x00FF00;
    article(m, "mnuchcol", 2)->trigger();
    EXPECT_EQ(std::tuple(m.etat.couleurs.couleurFamille, m.etat.fenetre.politiqueCouleurs), std::tuple(0xFFu, 2));
    EXPECT_TRUE(article(m, "mnuchcol", 2)->isChecked());
    EXPECT_EQ(banc.messages.size(), 1);
}

}  // namespace
}  // namespace velorin::essai
