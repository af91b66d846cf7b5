// The parameter dialog: its fields, what shows by mode, the file each button writes, read back. The
// colour dialog and the colour policies of "Comment Tracer?".
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "app/dialogues/couleurs.h"
#include "app/dialogues/param.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "qt/surface_qpainter.h"
#include "settings/fichier_couleurs.h"
#include "settings/memoire.h"
#include "settings/reglage.h"

namespace velorin::essai {
namespace {

QLineEdit* champ(const QWidget& d, int i)
{
    return controle<QLineEdit>(d, QStringLiteral("Text1_%1").arg(i));
}
void coche(const QWidget& d, const QString& nom)
{
    controle<QAbstractButton>(d, nom)->setChecked(true);
}

struct BancParam {
    QTemporaryDir dossier;
    QStringList messages;
    int fins = 0;
    Boites boites;
    Parametres p;
    BancParam()
    {
        boites.message = [this](QWidget*, const QString& t) { messages << t; };
        boites.fin = [this] { ++fins; };
    }
    std::unique_ptr<Param> ouvre(bool espace)
    {
        auto d = std::make_unique<Param>(p, dossier.path().toStdString() + "/", espace, boites);
        d->show();
        return d;
    }
    std::string fichier(const char* nom) const { return dossier.filePath(QString::fromUtf8(nom)).toStdString(); }
    bool aucunFichier() const { return !fs::exists(fichier("memprovi.log")) && !fs::exists(fichier("mem.log")); }
};

// Enter moves to the next field and presses no button; a double click empties a field; the
// controls of space alone are hidden in the plane.
TEST(Param, EntreeDoubleClicEtCeQuiSeVoitSelonLeMode)
{
    BancParam b;
    auto d = b.ouvre(true);
    for (int i = 0; i < nbChampsReglage; ++i) {
        champ(*d, i)->setFocus();
        QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(champ(*d, i), &entree);
        EXPECT_EQ(d->focusWidget(), champ(*d, i < 9 ? i + 1 : i)) << i;
    }
    EXPECT_TRUE(d->isVisible() && b.aucunFichier());
    souris(champ(*d, 9), QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_TRUE(champ(*d, 9)->text().isEmpty());
    EXPECT_EQ(champ(*d, 9)->property("remarque").toInt(), 1);
    // What shows by mode.
    const QStringList espaceSeul = {"Text1_4",   "Text1_5",  "Text1_14", "Text1_21", "Label1_9",
                                    "Label1_16", "Check1_2", "Check1_4", "Check1_7"};
    const QStringList partout = {"Text1_0", "Text1_13", "Text1_22", "Label1_8", "Label1_17", "Check1_1", "Check2"};
    for (bool espace : {true, false}) {
        d = b.ouvre(espace);
        EXPECT_TRUE(d->windowFlags() & Qt::WindowStaysOnTopHint);
        for (const QString& nom : espaceSeul + partout)
            EXPECT_EQ(controle(*d, nom)->isVisible(), espace || partout.contains(nom)) << nom.toStdString() << espace;
        EXPECT_EQ(controle(*d, "Check1_0")->isVisible(), !espace);
    }
}

// Command1 writes "memprovi.log", Command2 "mem.log", with what the settings
// module reads from the fields, the flags and the options.
TEST(Param, AppliquerEcritLeFichierDuBouton)
{
    // space, button, file written, file left alone, Option1, lecture(), vidage()
    for (const auto& [espace, bouton, ecrit, intact, option1, lecture, vidage] :
         {std::tuple{true, "Command1", "memprovi.log", "mem.log", 0, 1, false},
          std::tuple{false, "Command2", "mem.log", "memprovi.log", 1, 0, true}}) {
        BancParam b;
        TextesReglage textes = textesReglage(b.p);
        textes[0] = "-2P", textes[6] = "P/2", textes[23] = "1.5E2";
        Parametres attendu;
        ASSERT_FALSE(lisReglage(textes, attendu));
        attendu.traceContinu = 0, attendu.avecMoirure = true, attendu.ordreBoucles = 1;
        auto d = b.ouvre(espace);
        for (int i : {0, 6, 23})
            champ(*d, i)->setText(QString::fromStdString(textes[i]));
        controle<QCheckBox>(*d, "Check1_1")->setChecked(false);
        for (const QString& nom : QStringList{"Option2_1", "Check2", "Option1_" + QString::number(option1)})
            coche(*d, nom);
        controle<QPushButton>(*d, bouton)->click();
        EXPECT_EQ(std::tuple(b.messages, d->result(), fs::exists(b.fichier(intact))),
                  std::tuple(QStringList(), int(QDialog::Accepted), false));
        EXPECT_EQ(lisFichier(b.fichier(ecrit)), texteMemoire(attendu)) << bouton;
        EXPECT_EQ(std::tuple(d->lecture(), d->vidage(), b.p.ordreBoucles), std::tuple(lecture, vidage, 1));
    }
}

// A refused field: the reader's message, the dialog stays; brackets the
// evaluator cannot read: its message, then the program ends. Nothing written.
TEST(Param, ChampRefuseRienEcrit)
{
    for (const auto& [i, texte, bouton, message, fins] :
         {std::tuple{23, "40000", "Command1", "Pause en millisecondes", 0},
          std::tuple{23, "40000", "Command2", "Pause en millisecondes", 0},
          std::tuple{1, "(2", "Command1", "Formule incorrecte,désolé", 1}}) {
        BancParam b;
        const std::string avant = texteMemoire(b.p);
        auto d = b.ouvre(true);
        champ(*d, i)->setText(QString::fromUtf8(texte));
        EXPECT_EQ(champ(*d, i)->property("remarque").toInt(), 2);  // red before applying
        controle<QPushButton>(*d, bouton)->click();
        ASSERT_EQ(b.messages.size(), 1) << texte;
        EXPECT_TRUE(b.messages[0].contains(QString::fromUtf8(message))) << b.messages[0].toStdString();
        EXPECT_EQ(std::tuple(b.fins, d->result() != QDialog::Accepted, b.aucunFichier(), texteMemoire(b.p)),
                  std::tuple(fins, true, true, avant));
    }
}

// From PARAMETRER "le repère": the values in force are read back from the file
// written (xmin to 15 digits); Option1(1) forgets the drawn curves, (0) keeps them.
TEST(Param, LaFenetreRelitLeFichierEcrit)
{
    for (int option : {0, 1}) {
        Banc banc;
        Mirado& m = banc.demarre(3);
        article(m, "mnufa", 2)->trigger();
        bool vu = false;
        QTimer::singleShot(0, [&] {
            auto* d = qobject_cast<Param*>(QApplication::activeModalWidget());
            if (!(vu = d != nullptr))
                return;
            champ(*d, 0)->setText(QStringLiteral("-P/3"));
            coche(*d, QStringLiteral("Option1_%1").arg(option));
            controle<QPushButton>(*d, "Command1")->click();
        });
        article(m, "mnupara", 0)->trigger();
        ASSERT_TRUE(vu);
        EXPECT_EQ(m.etat.param.xmin, -1.04719733333333);  // not -3.141592 / 3: through the file
        EXPECT_EQ(m.etat.courbes.nbCourbes, option == 0 ? 1 : 0);
    }
}

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
