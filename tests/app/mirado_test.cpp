// The main window: start-up, catalogue menus, sending entries, mode
// switching, the side panels, the refused ranges and the commands refused
// during a tracing.
#include <QAction>
#include <QCheckBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>

#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

QStringList legendes(const std::vector<QAction*>& articles)
{
    QStringList l;
    for (const QAction* a : articles)
        l << a->text();
    return l;
}

// A parameter file whose x range is [xmin, xmax], the rest as the factory's.
QByteArray memoireAvecX(double xmin, double xmax)
{
    Parametres p;
    p.xmin = xmin, p.xmax = xmax;
    return QByteArray::fromStdString(texteMemoire(p));
}

TEST(Mirado, DemarrageRemplitLesDossiersSansRemplacerLesFichiersDeLUtilisateur)
{
    Banc banc;
    banc.ecrisFichier(QStringLiteral("Plan_courbes/mem.log"), memoireAvecX(-3, 3));
    Mirado& m = banc.demarre();
    for (const char* f : {"Espace_fig", "Plan_fig", "Espace_courbes/mem.log", "Espace_courbes/Lisurf.lsu"})
        EXPECT_TRUE(QFileInfo::exists(banc.chemin(QString::fromUtf8(f)))) << f;
    Parametres plan;
    ASSERT_FALSE(lisMemoire(banc.chemin(QStringLiteral("Plan_courbes/mem.log")).toStdString(), plan));
    EXPECT_EQ(plan.xmin, -3);
    EXPECT_EQ(m.windowTitle(), QStringLiteral("TRACE DE COURBES ET SURFACES DANS L'ESPACE"));
    EXPECT_TRUE(m.etat.fenetre.modeEspace);
    EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
    EXPECT_GT(nbCouleurs(m.ecran()), 1);  // the frame is drawn
    EXPECT_TRUE(controle(m, "Frame2")->isHidden());
}

TEST(Mirado, MemoireManquanteOuAbimeeSignaleeEtValeursConservees)
{
    for (const std::optional<QByteArray>& contenu : {std::optional<QByteArray>(), std::optional(QByteArray("1,2\r\n"))}) {
        Banc banc;
        QDir().mkpath(banc.chemin(QStringLiteral("Espace_courbes")));
        if (contenu)
            banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), *contenu);
        else  // no factory copy either
            QFile::remove(banc.chemin(QStringLiteral("usine/Espace_courbes/mem.log")));
        Mirado& m = banc.demarre();
        ASSERT_FALSE(banc.messages.isEmpty());
        EXPECT_TRUE(banc.messages.front().contains(QStringLiteral("mem.log")));
        EXPECT_EQ(m.etat.param.xmin, Parametres{}.xmin);
        EXPECT_GT(nbCouleurs(m.ecran()), 1);
    }
}

TEST(Mirado, MenusDesCataloguesEtCreation)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/b.lsu"), 1);
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/a.lsu"), 1);
    banc.ecrisFichier(QStringLiteral("Espace_courbes/notes.txt"), "x");
    Mirado& m = banc.demarre();
    EXPECT_EQ(legendes(articles(m, "mnulifi")), (QStringList{"a.lsu", "b.lsu", "Lisurf.lsu", "&Créer nouveau fichier"}));
    struct Cas {
        std::optional<QString> reponse;
        const char* fichier;  // catalogue in force afterwards
        bool message;
    };
    const Cas cas[] = {{QStringLiteral("essai"), "essai.lsu", false},
                       {QStringLiteral("autre.lsu"), "autre.lsu", false},
                       {QStringLiteral("../dehors"), "autre.lsu", true},
                       {std::nullopt, "autre.lsu", false}};
    for (const Cas& c : cas) {
        banc.messages.clear();
        banc.reponses = {c.reponse};
        articles(m, "mnulifi").back()->trigger();
        EXPECT_EQ(m.etat.fenetre.fichierCatalogue, c.fichier);
        EXPECT_TRUE(QFile::exists(banc.chemin(QStringLiteral("Espace_courbes/") + c.fichier))) << c.fichier;
        EXPECT_EQ(banc.messages.size(), c.message ? 1 : 0);
    }
    EXPECT_TRUE(legendes(articles(m, "mnulifi")).contains(QStringLiteral("essai.lsu")));
}

TEST(Mirado, MenuEnvoyerLimiteATrenteEntrees)
{
    for (int entrees : {30, 45}) {
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), entrees);
        Mirado& m = banc.demarre();
        const auto envoyer = articles(m, "mnufa");
        ASSERT_EQ(envoyer.size(), 31u) << entrees;  // "0)Au choix..." and 30 entries
        EXPECT_EQ(envoyer[0]->text(), QStringLiteral("0)Au choix dans la liste complète"));
        EXPECT_TRUE(envoyer.back()->text().startsWith(QStringLiteral("030)x=f1(t)=")));
        const auto* reste = m.findChild<QAction*>(QStringLiteral("mnufaReste"));
        EXPECT_EQ(reste != nullptr, entrees > 30);
        if (reste) {
            EXPECT_TRUE(reste->text().contains(QStringLiteral("15 autres")) && !reste->isEnabled());
        }
    }
}

TEST(Mirado, EnvoyerUneEntreeLaTraceEtLaListe)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
    Mirado& m = banc.demarre();
    const QImage avant = m.ecran().copy();
    article(m, "mnufa", 2)->trigger();
    ASSERT_EQ(m.etat.courbes.nbCourbes, 1);
    EXPECT_EQ(m.etat.courbes.lignes[0][colNumero], 2);
    ASSERT_EQ(articles(m, "mnutra").size(), 2u);
    EXPECT_TRUE(article(m, "mnutra", 1)->text().contains(QStringLiteral("x=f1(t)=(3)*COS(T)")));
    EXPECT_NE(m.ecran(), avant);
    EXPECT_TRUE(m.windowTitle().contains(QRegularExpression(QStringLiteral("__\\d\\d\\.\\d\\d$"))));
    // Clearing the window keeps the drawn curves: "O&K" brings them back.
    const QImage trace = m.ecran().copy();
    article(m, "mnupara", 5)->trigger();
    EXPECT_NE(m.ecran(), trace);
    m.Command3_Click();
    EXPECT_EQ(m.ecran(), trace);
}

TEST(Mirado, CrochetsIllisiblesTerminentLeProgrammeApresLeMessage)
{
    // "SIN(T" fails the request's bracket count and the program goes on;
    // ")T(" passes it but the evaluator cannot read it: the program ends.
    struct Cas {
        const char* x;
        const char* message;
        int fins;
    };
    for (const Cas& c : {Cas{"SIN(T", "La formule SIN(T est incorrecte, corrigez-la , svp", 0},
                         Cas{")T(", "Formule incorrecte,désolé", 1}}) {
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 0);
        {
            Catalogue cat;
            ASSERT_FALSE(ouvrirCatalogue(cat, banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString()));
            ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{1, std::string("x=f1(t)=") + c.x + "][y=f2(t)=T][z=f3(t)=T"}));
        }
        Mirado& m = banc.demarre();
        article(m, "mnufa", 1)->trigger();
        EXPECT_EQ(banc.messages, QStringList{QString::fromUtf8(c.message)}) << c.x;
        EXPECT_EQ(banc.fins, c.fins) << c.x;
    }
}

// Each failing request of a multiple sending or of a redraw shows its own
// message when it fails (not one gathered at the end), and a curve whose
// formula fails is listed among the drawn curves.
TEST(Mirado, FormulesFaussesUnMessageParDemandeEtListees)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 0);
    {
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString()));
        for (const char* x : {"SIN(T", "COS(T"})
            ASSERT_FALSE(ecrisLigne(cat, cat.nbLignesCatalogue + 1,
                                    LigneCatalogue{1, std::string("x=f1(t)=") + x + "][y=f2(t)=T][z=f3(t)=T"}));
    }
    Mirado& m = banc.demarre();
    m.envoieSelection({1, 2}, ModeCouleurs::Unique);
    const QStringList deux{QStringLiteral("La formule SIN(T est incorrecte, corrigez-la , svp"),
                           QStringLiteral("La formule COS(T est incorrecte, corrigez-la , svp")};
    EXPECT_EQ(banc.messages, deux) << banc.messages.join('|').toStdString();
    EXPECT_EQ(articles(m, "mnutra").size(), 3u);
    m.Command3_Click();
    EXPECT_EQ(banc.messages, deux + deux) << banc.messages.join('|').toStdString();
}

TEST(Mirado, BasculeEspacePlan)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    banc.ecrisCatalogue(QStringLiteral("Plan_courbes/Lico.lsu"), 1);
    Mirado& m = banc.demarre();
    article(m, "mnufa", 1)->trigger();
    for (bool espace : {false, true}) {
        article(m, espace ? "mnulifi" : "mnulico", 0)->trigger();
        const EtatFenetre& f = m.etat.fenetre;
        EXPECT_EQ(f.modeEspace, espace);
        EXPECT_EQ(f.modePlan, !espace);
        EXPECT_TRUE(QString::fromStdString(f.dossierFig).endsWith(espace ? "Espace_fig/" : "Plan_fig/"));
        EXPECT_EQ(f.fichierCatalogue, espace ? "Lisurf.lsu" : "Lico.lsu");
        EXPECT_EQ(controle(m, "Frame1")->isHidden(), !espace);
        EXPECT_EQ(controle(m, "Frame2")->isHidden(), espace);
        EXPECT_EQ(controle<QMenu>(m, "mnutrace")->menuAction()->toolTip(),
                  "Dans " + QString::fromStdString(f.dossierCourbes + f.fichierCatalogue));
        EXPECT_EQ(int(articles(m, "mnufa").size()), espace ? 3 : 2);
    }
}

// The side panels: "RR" folds the panel of the mode, "Reset" reads the
// temporary parameter file and stops the turns, Option1 fills List1.
TEST(Mirado, PanneauxLateraux)
{
    Banc banc;
    banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), memoireAvecX(-5, 5));
    banc.ecrisFichier(QStringLiteral("Espace_courbes/memprovi.log"), memoireAvecX(-2, 7));
    banc.ecrisFichier(QStringLiteral("Plan_courbes/memprovi.log"), memoireAvecX(-2, 7));
    Mirado& m = banc.demarre();
    const ZoneDessin* zone = m.findChild<ZoneDessin*>();
    for (bool espace : {true, false}) {
        SCOPED_TRACE(espace);
        article(m, espace ? "mnulifi" : "mnulico", 0)->trigger();
        auto* rr = controle<QCheckBox>(m, espace ? "Check1" : "Check2");
        const int largeur = zone->width();
        rr->setChecked(true);
        EXPECT_GT(zone->width(), largeur + 100);
        EXPECT_TRUE(controle(m, espace ? "Frame1" : "Frame2")->isHidden());
        rr->setChecked(false);
        EXPECT_EQ(zone->width(), largeur);
        for (const char* timer : {"Timer2", "Timer3"})
            controle<QTimer>(m, timer)->start();
        m.etat.fenetre.pauseActive = false;
        controle<QPushButton>(m, espace ? "Command4" : "Command7")->click();
        EXPECT_TRUE(m.etat.fenetre.pauseActive);
        EXPECT_EQ(m.etat.param.xmin, -2);
        EXPECT_EQ(m.etat.param.xmax, 7);
        for (const char* timer : {"Timer2", "Timer3"})
            EXPECT_FALSE(controle<QTimer>(m, timer)->isActive()) << timer;
    }
    m.etat.param.ymin = -1, m.etat.param.ymax = 1;
    m.bricole(1, 0.5);
    EXPECT_TRUE(controle<QRadioButton>(m, "Option1_1")->isChecked());
    const auto* liste1 = controle<QListWidget>(m, "List1");
    EXPECT_GE(liste1->count(), 1001);
    EXPECT_EQ(liste1->item(1)->text(), QStringLiteral("-00.998"));
    EXPECT_EQ(liste1->currentItem()->text(), QStringLiteral("00.502"));
}

TEST(Mirado, EtendueVideRefuseeEtMemoireRetablie)
{
    Banc banc;
    banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), memoireAvecX(-4, 6));
    Mirado& m = banc.demarre();
    m.etat.param.xmin = m.etat.param.xmax = 3;
    m.Command3_Click();
    EXPECT_EQ(banc.messages, QStringList{QStringLiteral("Pas pochible,je rétablis la base [-10,10 ]")});
    EXPECT_EQ(m.etat.param.xmin, -4);
    EXPECT_EQ(m.etat.param.xmax, 6);
}

// Traces entry `entree` slowly (40 ms after each point): `pendant` runs at
// its first pause, then Escape sent to `cible` ends the tracing. Says
// whether a tracing was in progress.
bool pendantUnTrace(Mirado& m, int entree, QWidget* cible, const std::function<void()>& pendant)
{
    m.etat.param.pauseMs = 40;
    bool enCours = false;
    QTimer::singleShot(0, &m, [&] {
        enCours = m.enTrace();
        pendant();
        QKeyEvent echap(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(cible, &echap);
    });
    m.envoie(entree);
    return enCours;
}

TEST(Mirado, UneDemandePendantUnTraceEstRefuseeEtEchapInterrompt)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    Mirado& m = banc.demarre();
    bool accepte = true;
    EXPECT_TRUE(pendantUnTrace(m, 1, controle(m, "List2"), [&] { accepte = m.envoie(2); }));
    EXPECT_FALSE(accepte);
    EXPECT_EQ(banc.messages.size(), 1);
    EXPECT_FALSE(m.enTrace());
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);
    // Interrupted, the curve is only begun: the redraw without pause shows more.
    const QImage interrompu = m.ecran().copy();
    m.etat.param.pauseMs = 0;
    m.Command3_Click();
    EXPECT_NE(m.ecran(), interrompu);
}

// Each choice menu sets its value and moves the check mark. Chosen during a
// tracing, a colour or the loop order would be put back when the tracing
// ends: the choice is refused and the marks stay true.
TEST(Mirado, ChoixDesMenusCochesEtRefusesPendantUnTrace)
{
    struct Cas {
        const char* groupe;
        int index;
        std::function<long(const Etat&)> valeur;
        long attendu;
        bool refuseEnTrace;
    };
    const Cas cas[] = {
        {"mnucl", 3, [](const Etat& e) { return long(e.couleurs.couleurTrace); }, 0xFF0000, true},
        {"mnucl", 3, [](const Etat& e) { return long(e.couleurs.couleurFamille); }, 0xFF0000, true},
        {"mnuct", 4, [](const Etat& e) { return long(e.couleurs.couleurTangente); }, 0xFFFF, true},
        {"mnuper", 1, [](const Etat& e) { return long(e.param.ordreBoucles); }, 1, true},
        {"mnuchcol", 1, [](const Etat& e) { return long(e.fenetre.politiqueCouleurs); }, 1, true},
        {"mnuct", 5, [](const Etat& e) { return long(e.couleurs.couleurTangente); }, 0xFFFFFF, false},
        {"mnuipo", 0, [](const Etat& e) { return long(e.fenetre.orientationImprimante); }, 0, false},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.groupe);
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
        Mirado& m = banc.demarre();
        const std::vector<QAction*> groupe = articles(m, c.groupe);
        if (c.refuseEnTrace) {
            const long avant = c.valeur(m.etat);
            std::vector<bool> coches;
            for (const QAction* a : groupe)
                coches.push_back(a->isChecked());
            ASSERT_FALSE(coches.at(c.index));
            EXPECT_TRUE(pendantUnTrace(m, 1, &m, [&] { groupe[c.index]->trigger(); }));
            ASSERT_EQ(banc.messages.size(), 1);
            EXPECT_TRUE(banc.messages[0].startsWith(QStringLiteral("Un tracé est en cours")));
            EXPECT_EQ(c.valeur(m.etat), avant);
            for (int i = 0; i < int(groupe.size()); ++i)
                EXPECT_EQ(groupe[i]->isChecked(), coches[i]) << i;
        }
        groupe[c.index]->trigger();
        EXPECT_EQ(c.valeur(m.etat), c.attendu);
        for (int i = 0; i < int(groupe.size()); ++i)
            EXPECT_EQ(groupe[i]->isChecked(), i == c.index) << i;
    }
}

}  // namespace
}  // namespace velorin::essai
