// The main window: start-up, catalogue menus, sending entries, mode
// switching, the parameter files and the refused ranges.
#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
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
    p.xmin = xmin;
    p.xmax = xmax;
    return QByteArray::fromStdString(texteMemoire(p));
}

TEST(Mirado, DemarrageCreeEtRemplitLesDossiersEtDessineLeRepere)
{
    Banc banc;
    // A file of the user is never replaced by the factory's.
    banc.ecrisFichier(QStringLiteral("Plan_courbes/mem.log"), memoireAvecX(-3, 3));
    Mirado& m = banc.demarre();

    for (const char* d : {"Espace_courbes", "Espace_fig", "Plan_courbes", "Plan_fig"})
        EXPECT_TRUE(QDir(banc.chemin(QString::fromUtf8(d))).exists()) << d;
    EXPECT_TRUE(QFile::exists(banc.chemin(QStringLiteral("Espace_courbes/mem.log"))));
    Parametres plan;
    ASSERT_FALSE(lisMemoire(banc.chemin(QStringLiteral("Plan_courbes/mem.log")).toStdString(), plan));
    EXPECT_EQ(plan.xmin, -3);
    EXPECT_TRUE(QFile::exists(banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu"))));

    EXPECT_EQ(m.windowTitle(), QStringLiteral("TRACE DE COURBES ET SURFACES DANS L'ESPACE"));
    EXPECT_EQ(m.etat.fenetre.dossierCourbes,
              (QDir(banc.dossier.path()).absolutePath() + "/Espace_courbes/").toStdString());
    EXPECT_TRUE(m.etat.fenetre.modeEspace);
    EXPECT_FALSE(m.etat.fenetre.modePlan);
    EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
    EXPECT_GT(nbCouleurs(m.ecran()), 1);  // the frame is drawn
    EXPECT_FALSE(controle(m, "Frame1")->isHidden());
    EXPECT_TRUE(controle(m, "Frame2")->isHidden());
}

TEST(Mirado, MemoireManquanteOuAbimeeSignaleeEtValeursConservees)
{
    struct Cas {
        const char* nom;
        std::optional<QByteArray> contenu;  // nothing: no file at all
    };
    for (const Cas& c : {Cas{"manquant", std::nullopt}, Cas{"abime", QByteArray("1,2,3\r\n")}}) {
        Banc banc;
        QDir().mkpath(banc.chemin(QStringLiteral("Espace_courbes")));
        if (c.contenu)
            banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), *c.contenu);
        else  // no factory copy either
            QFile::remove(banc.chemin(QStringLiteral("usine/Espace_courbes/mem.log")));
        Mirado& m = banc.demarre();
        ASSERT_FALSE(banc.messages.isEmpty()) << c.nom;
        EXPECT_TRUE(banc.messages.front().contains(QStringLiteral("mem.log"))) << c.nom;
        EXPECT_EQ(m.etat.param.xmin, Parametres{}.xmin) << c.nom;
        EXPECT_GT(nbCouleurs(m.ecran()), 1) << c.nom;
    }
}

TEST(Mirado, MenusDesCataloguesEtCreation)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/b.lsu"), 1);
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/a.lsu"), 1);
    banc.ecrisFichier(QStringLiteral("Espace_courbes/notes.txt"), "x");
    Mirado& m = banc.demarre();
    EXPECT_EQ(legendes(articles(m, "mnulifi")),
              (QStringList{"a.lsu", "b.lsu", "Lisurf.lsu", "&Créer nouveau fichier"}));
    EXPECT_EQ(legendes(articles(m, "mnulico")).last(), QStringLiteral("&Créer nouveau fichier"));

    struct Cas {
        std::optional<QString> reponse;
        const char* fichier;  // catalogue in force afterwards
        bool message;
    };
    const Cas cas[] = {
        {QStringLiteral("essai"), "essai.lsu", false},
        {QStringLiteral("autre.lsu"), "autre.lsu", false},
        {QStringLiteral("../dehors"), "autre.lsu", true},
        {std::nullopt, "autre.lsu", false},
    };
    for (const Cas& c : cas) {
        banc.messages.clear();
        banc.reponses = {c.reponse};
        articles(m, "mnulifi").back()->trigger();
        EXPECT_EQ(m.etat.fenetre.fichierCatalogue, c.fichier);
        EXPECT_TRUE(QFile::exists(banc.chemin(QStringLiteral("Espace_courbes/") + c.fichier))) << c.fichier;
        EXPECT_EQ(banc.messages.size(), c.message ? 1 : 0);
    }
    EXPECT_FALSE(QFile::exists(banc.chemin(QStringLiteral("Espace_courbes/autre.lsu.lsu"))));
    EXPECT_FALSE(QFile::exists(banc.chemin(QStringLiteral("dehors.lsu"))));
    EXPECT_TRUE(legendes(articles(m, "mnulifi")).contains(QStringLiteral("essai.lsu")));
}

TEST(Mirado, MenuEnvoyerLimiteATrenteEntrees)
{
    struct Cas {
        int entrees;
        int articles;       // mnufa items, "0)Au choix..." included
        const char* reste;  // the disabled last item, or nothing
    };
    for (const Cas& c : {Cas{5, 6, nullptr}, Cas{30, 31, nullptr}, Cas{45, 31, "15 autres"}}) {
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), c.entrees);
        Mirado& m = banc.demarre();
        const auto envoyer = articles(m, "mnufa");
        ASSERT_EQ(int(envoyer.size()), c.articles) << c.entrees;
        EXPECT_EQ(envoyer[0]->text(), QStringLiteral("0)Au choix dans la liste complète"));
        EXPECT_TRUE(envoyer[1]->text().startsWith(QStringLiteral("001)x=f1(t)=")));
        EXPECT_TRUE(envoyer.back()->text().startsWith(QString::fromStdString(entierFormate(c.articles - 1, 3) + ")")));
        const auto* reste = m.findChild<QAction*>(QStringLiteral("mnufaReste"));
        if (c.reste) {
            ASSERT_NE(reste, nullptr);
            EXPECT_TRUE(reste->text().contains(QString::fromUtf8(c.reste)));
            EXPECT_FALSE(reste->isEnabled());
        } else {
            EXPECT_EQ(reste, nullptr);
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
    EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
    ASSERT_EQ(m.etat.courbes.nbCourbes, 1);
    EXPECT_EQ(m.etat.courbes.lignes[0][colNumero], 2);
    ASSERT_EQ(articles(m, "mnutra").size(), 2u);
    EXPECT_TRUE(article(m, "mnutra", 1)->text().contains(QStringLiteral("x=f1(t)=(3)*COS(T)")));
    EXPECT_NE(m.ecran(), avant);
    EXPECT_TRUE(m.windowTitle().contains(QRegularExpression(QStringLiteral("__\\d\\d\\.\\d\\d$"))))
        << m.windowTitle().toStdString();

    // Clearing the window keeps the list of drawn curves: the redraw brings
    // the same picture back.
    const QImage trace = m.ecran().copy();
    article(m, "mnupara", 5)->trigger();
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);
    EXPECT_NE(m.ecran(), trace);
    m.Command3_Click();
    EXPECT_EQ(m.ecran(), trace);
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);
}

TEST(Mirado, CrochetsIllisiblesTerminentLeProgrammeApresLeMessage)
{
    // The request's own test (counts of brackets) refuses "SIN(T" and the
    // program goes on; ")T(" passes it but the evaluator cannot read it:
    // its message is shown, then the program ends.
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
            const LigneCatalogue l{1, std::string("x=f1(t)=") + c.x + "][y=f2(t)=T][z=f3(t)=T"};
            ASSERT_FALSE(ecrisLigne(cat, 1, l));
        }
        Mirado& m = banc.demarre();
        article(m, "mnufa", 1)->trigger();
        EXPECT_EQ(banc.messages, QStringList{QString::fromUtf8(c.message)}) << c.x;
        EXPECT_EQ(banc.fins, c.fins) << c.x;
    }
}

TEST(Mirado, BasculeEspacePlan)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    banc.ecrisCatalogue(QStringLiteral("Plan_courbes/Lico.lsu"), 1);
    Mirado& m = banc.demarre();
    article(m, "mnufa", 1)->trigger();
    struct Cas {
        bool espace;
        const char* dossier;
        const char* figures;
        const char* fichier;
    };
    for (const Cas& c : {Cas{false, "Plan_courbes/", "Plan_fig/", "Lico.lsu"},
                         Cas{true, "Espace_courbes/", "Espace_fig/", "Lisurf.lsu"}}) {
        const auto liste = articles(m, c.espace ? "mnulifi" : "mnulico");
        const auto fichier =
            std::find_if(liste.begin(), liste.end(), [&](QAction* a) { return a->text() == c.fichier; });
        ASSERT_NE(fichier, liste.end()) << c.fichier;
        (*fichier)->trigger();
        const EtatFenetre& f = m.etat.fenetre;
        EXPECT_EQ(f.modeEspace, c.espace);
        EXPECT_EQ(f.modePlan, !c.espace);
        EXPECT_TRUE(QString::fromStdString(f.dossierCourbes).endsWith(c.dossier));
        EXPECT_TRUE(QString::fromStdString(f.dossierFig).endsWith(c.figures));
        EXPECT_EQ(f.fichierCatalogue, c.fichier);
        EXPECT_EQ(controle(m, "Frame1")->isHidden(), !c.espace);
        EXPECT_EQ(controle(m, "Frame2")->isHidden(), c.espace);
        // The whole caption (shortened on the bar when it lacks room).
        EXPECT_EQ(controle<QMenu>(m, "mnutrace")->menuAction()->toolTip(),
                  "Dans " + QString::fromStdString(f.dossierCourbes) + c.fichier);
        EXPECT_EQ(int(articles(m, "mnufa").size()), 1 + (c.espace ? 2 : 1));
    }
}

TEST(Mirado, RrReduitLePanneauDuMode)
{
    Banc banc;
    Mirado& m = banc.demarre();
    const ZoneDessin* zone = m.findChild<ZoneDessin*>();
    ASSERT_NE(zone, nullptr);
    for (bool espace : {true, false}) {
        article(m, espace ? "mnulifi" : "mnulico", 0)->trigger();
        auto* rr = controle<QCheckBox>(m, espace ? "Check1" : "Check2");
        QWidget* panneau = controle(m, espace ? "Frame1" : "Frame2");
        const int largeur = zone->width();
        rr->setChecked(true);
        EXPECT_GT(zone->width(), largeur + 100) << espace;
        EXPECT_TRUE(panneau->isHidden());
        EXPECT_FALSE(rr->isHidden());
        rr->setChecked(false);
        EXPECT_EQ(zone->width(), largeur);
        EXPECT_FALSE(panneau->isHidden());
    }
}

TEST(Mirado, ResetLitLaMemoireProvisoire)
{
    for (int bouton : {4, 7}) {
        Banc banc;
        banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), memoireAvecX(-5, 5));
        banc.ecrisFichier(QStringLiteral("Espace_courbes/memprovi.log"), memoireAvecX(-2, 7));
        Mirado& m = banc.demarre();
        EXPECT_EQ(m.etat.param.xmax, 5);
        m.etat.fenetre.pauseActive = false;
        auto* timer2 = controle<QTimer>(m, "Timer2");
        timer2->start();
        controle<QPushButton>(m, bouton == 4 ? "Command4" : "Command7")->click();
        EXPECT_EQ(m.etat.param.xmin, -2) << bouton;
        EXPECT_EQ(m.etat.param.xmax, 7) << bouton;
        EXPECT_TRUE(m.etat.fenetre.pauseActive);
        EXPECT_FALSE(timer2->isActive());
    }
}

TEST(Mirado, EtendueVideRefuseeUneFoisEtMemoireRetablie)
{
    Banc banc;
    banc.ecrisFichier(QStringLiteral("Espace_courbes/mem.log"), memoireAvecX(-4, 6));
    Mirado& m = banc.demarre();
    for (auto [xmin, xmax] : {std::pair{3.0, 3.0}, std::pair{5.0, -5.0}}) {
        banc.messages.clear();
        m.etat.param.xmin = xmin;
        m.etat.param.xmax = xmax;
        m.Command3_Click();
        EXPECT_EQ(banc.messages, QStringList{QStringLiteral("Pas pochible,je rétablis la base [-10,10 ]")});
        EXPECT_EQ(m.etat.param.xmin, -4);
        EXPECT_EQ(m.etat.param.xmax, 6);
    }
}

TEST(Mirado, BoutonsPlusMoinsMontrentSansRedessiner)
{
    Banc banc;
    Mirado& m = banc.demarre();
    struct Cas {
        int choix;
        const char* pas;
        bool plus;
        double Parametres::*membre;
        double attendu;  // change of the value
    };
    auto* liste2 = controle<QListWidget>(m, "List2");
    const Cas cas[] = {
        {6, "1.0", true, &Parametres::Rotadir, 3.141592 / 36},
        {6, "0.5", false, &Parametres::Rotadir, -0.5 * 3.141592 / 36},
        {0, "2.0", true, &Parametres::Xviseur, 2},
        {4, "0.1", false, &Parametres::Ydirection, -0.1},
    };
    for (const Cas& c : cas) {
        const QImage avant = m.ecran().copy();
        const double depart = m.etat.param.*c.membre;
        controle<QRadioButton>(m, QStringLiteral("Option2_%1").arg(c.choix))->click();
        liste2->setCurrentItem(liste2->findItems(QString::fromUtf8(c.pas), Qt::MatchExactly).front());
        controle<QPushButton>(m, c.plus ? "Command1" : "Command2")->click();
        EXPECT_NEAR(m.etat.param.*c.membre - depart, c.attendu, 1e-12) << c.choix;
        EXPECT_EQ(m.ecran(), avant);
    }
    EXPECT_TRUE(controle<QLabel>(m, "Label3")->text().contains(QStringLiteral("Rot=")));
}

TEST(Mirado, ValeursDeLaCoordonneeFixe)
{
    Banc banc;
    Mirado& m = banc.demarre();
    m.etat.param.ymin = -1;
    m.etat.param.ymax = 1;
    m.bricole(1, 0.5);
    EXPECT_TRUE(controle<QRadioButton>(m, "Option1_1")->isChecked());
    const auto* liste1 = controle<QListWidget>(m, "List1");
    ASSERT_GE(liste1->count(), 1001);
    EXPECT_LE(liste1->count(), 1002);
    EXPECT_EQ(liste1->item(0)->text(), QStringLiteral("-01.000"));
    EXPECT_EQ(liste1->item(1)->text(), QStringLiteral("-00.998"));
    EXPECT_EQ(liste1->currentItem()->text(), QStringLiteral("00.502"));
}

// Traces entry `entree` slowly (40 ms after each point, some 126 points):
// `pendant` runs at its first pause, while it is in progress, then Escape
// sent to `cible` ends the tracing. Says whether a tracing was in progress.
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

TEST(Mirado, ChoixDuDessinRefusesPendantUnTrace)
{
    // Chosen during a tracing, a colour or the loop order would be put back
    // when the tracing ends: the choice is refused and the marks stay true.
    struct Cas {
        const char* groupe;
        int index;
        std::function<long(const Etat&)> valeur;
    };
    const Cas cas[] = {
        {"mnucl", 2, [](const Etat& e) { return long(e.couleurs.couleurTrace); }},
        {"mnuct", 3, [](const Etat& e) { return long(e.couleurs.couleurTangente); }},
        {"mnuper", 1, [](const Etat& e) { return long(e.param.ordreBoucles); }},
        {"mnuchcol", 1, [](const Etat& e) { return long(e.fenetre.politiqueCouleurs); }},
    };
    for (const Cas& c : cas) {
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
        Mirado& m = banc.demarre();
        const std::vector<QAction*> groupe = articles(m, c.groupe);
        const long avant = c.valeur(m.etat);
        std::vector<bool> coches;
        for (const QAction* a : groupe)
            coches.push_back(a->isChecked());
        ASSERT_FALSE(coches.at(c.index)) << c.groupe;
        // The entry is chosen during the tracing, as its shortcut would.
        EXPECT_TRUE(pendantUnTrace(m, 1, &m, [&] { groupe[c.index]->trigger(); })) << c.groupe;
        ASSERT_EQ(banc.messages.size(), 1) << c.groupe;
        EXPECT_TRUE(banc.messages[0].startsWith(QStringLiteral("Un tracé est en cours"))) << c.groupe;
        EXPECT_EQ(c.valeur(m.etat), avant) << c.groupe;
        for (int i = 0; i < int(groupe.size()); ++i)
            EXPECT_EQ(groupe[i]->isChecked(), coches[i]) << c.groupe << "(" << i << ")";
        // Once the tracing is over, the same choice is taken.
        groupe[c.index]->trigger();
        EXPECT_NE(c.valeur(m.etat), avant) << c.groupe;
        EXPECT_TRUE(groupe[c.index]->isChecked()) << c.groupe;
    }
}

}  // namespace
}  // namespace velorin::essai
