// The main window: start-up, the catalogue menus of both modes, sending
// entries, the side panels, the refused ranges and the commands refused
// during a tracing; the selection lists: the available curves (Coli), the
// drawn curves (Licou), the drawing behind them. A catalogue change that
// keeps the drawing, a figure read on a smaller screen with its reference
// colour, and the whole title of an input box. On a small screen every menu
// of the bar stays reachable (the long "Dans <folder><catalogue>" caption
// gives way) and the side column scrolls when the window is too low for it.
// Where the application folder is (qt), the first-start form, the About box, the help browser and
// what "Quitter" starts. Programs are never started: the tests see what would start.
#include <unistd.h>

#include <QCheckBox>
#include <QFileInfo>
#include <QHelpEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

#include "app/dialogues/aide.h"
#include "app/dialogues/apropos.h"
#include "app/dialogues/coli.h"
#include "app/dialogues/installation.h"
#include "app/dialogues/licou.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "qt/dossiers.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

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

// The folders are filled (what they receive is the qt module's, checked on the installed program);
// a damaged parameter file is kept and said, and the program's own values stay in force.
TEST(Mirado, DemarrageRemplitLesDossiersEtDitLeFichierAbime)
{
    Banc banc;
    banc.ecrisFichier("Espace_courbes/mem.log", "1,2\r\n");
    Mirado& m = banc.demarre();
    for (const char* f : {"Espace_fig", "Plan_fig", "Espace_courbes/Lisurf.lsu"})
        EXPECT_TRUE(QFileInfo::exists(banc.chemin(f))) << f;
    EXPECT_EQ(m.windowTitle(), QStringLiteral("TRACE DE COURBES ET SURFACES DANS L'ESPACE"));
    EXPECT_TRUE(m.etat.fenetre.modeEspace);
    ASSERT_EQ(banc.messages.size(), 1);
    EXPECT_TRUE(banc.messages.front().contains(QStringLiteral("Espace_courbes/mem.log")));
    EXPECT_EQ(m.etat.param.xmin, Parametres{}.xmin);
    QImage fond = m.ecran().copy();
    fond.fill(fond.pixel(0, 0));
    EXPECT_NE(m.ecran(), fond);  // the frame is drawn
    EXPECT_TRUE(controle(m, "Frame2")->isHidden());
}

// The catalogue submenus of both modes: an existing catalogue switches to
// its mode; "Créer nouveau fichier" asks the name first, and a cancelled or
// refused name changes nothing (mode, folders, panels, catalogue).
TEST(Mirado, MenusDesCataloguesDesDeuxModes)
{
    Banc banc;
    for (const char* f : {"Espace_courbes/b.lsu", "Espace_courbes/a.lsu", "Plan_courbes/Lico.lsu"})
        banc.ecrisCatalogue(f, 1);
    banc.ecrisFichier("Espace_courbes/notes.txt", "x");
    Mirado& m = banc.demarre(2);
    const QString creer = QStringLiteral("&Créer nouveau fichier");
    EXPECT_EQ(legendes(articles(m, "mnulifi")), (QStringList{"a.lsu", "b.lsu", "Lisurf.lsu", creer}));
    struct Cas {
        const char* menu;
        const char* choix;               // nullptr: "Créer nouveau fichier"
        std::optional<QString> reponse;  // the name typed (nothing: cancelled)
        bool espace;                     // mode afterwards
        const char* fichier;             // catalogue in force afterwards
        int messages, envoyer;           // messages said; entries of "LE GRAPHE de"
    };
    const Cas cas[] = {{"mnulifi", nullptr, QStringLiteral("essai"), true, "essai.lsu", 0, 1},
                       {"mnulico", nullptr, std::nullopt, true, "essai.lsu", 0, 1},
                       {"mnulico", nullptr, QStringLiteral("a/b"), true, "essai.lsu", 1, 1},
                       {"mnulico", "Lico.lsu", std::nullopt, false, "Lico.lsu", 0, 2},
                       {"mnulifi", "Lisurf.lsu", std::nullopt, true, "Lisurf.lsu", 0, 3},
                       {"mnulico", nullptr, QStringLiteral("neuf"), false, "neuf.lsu", 0, 1}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(std::string(c.menu) + " " + (c.choix ? c.choix : "") + c.reponse.value_or("-").toStdString());
        banc.messages.clear();
        banc.reponses = {c.reponse};
        const auto liste = articles(m, c.menu);
        liste.at(legendes(liste).indexOf(c.choix ? QString::fromUtf8(c.choix) : creer))->trigger();
        const EtatFenetre& f = m.etat.fenetre;
        const QString dossier = banc.dossier.path() + (c.espace ? "/Espace_" : "/Plan_");
        EXPECT_EQ(f.modeEspace, c.espace);
        EXPECT_EQ(f.modePlan, !c.espace);
        EXPECT_EQ(f.dossierCourbes, (dossier + "courbes/").toStdString());
        EXPECT_EQ(f.dossierFig, (dossier + "fig/").toStdString());
        EXPECT_EQ(controle(m, "Frame1")->isHidden(), !c.espace);
        EXPECT_EQ(controle(m, "Frame2")->isHidden(), c.espace);
        EXPECT_EQ(f.fichierCatalogue, c.fichier);
        EXPECT_EQ(banc.messages.size(), c.messages);
        EXPECT_EQ(int(articles(m, "mnufa").size()), c.envoyer);
    }
    EXPECT_TRUE(legendes(articles(m, "mnulifi")).contains(QStringLiteral("essai.lsu")));
}

TEST(Mirado, MenuEnvoyerLimiteATrenteEntrees)
{
    for (int entrees : {30, 45}) {
        Banc banc;
        Mirado& m = banc.demarre(entrees);
        const auto envoyer = articles(m, "mnufa");
        ASSERT_EQ(envoyer.size(), 31u) << entrees;  // "0)Au choix..." and 30 entries
        EXPECT_EQ(envoyer[0]->text(), QStringLiteral("0)Au choix dans la liste complète"));
        EXPECT_TRUE(envoyer.back()->text().startsWith(QStringLiteral("030)x=f1(t)=")));
        const auto* reste = m.findChild<QAction*>(QStringLiteral("mnufaReste"));
        EXPECT_EQ(reste != nullptr, entrees > 30);
        EXPECT_TRUE(!reste || (reste->text().contains(QStringLiteral("15 autres")) && !reste->isEnabled()));
    }
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

// Sending an entry draws it and lists it; clearing the window keeps the
// drawn curves: "O&K" brings them back. A request during a tracing is
// refused; interrupted, the curve is only begun: the redraw without pause shows more.
TEST(Mirado, EnvoyerUneEntreeLaTraceEtLaListeEtEchapInterrompt)
{
    Banc banc;
    Mirado& m = banc.demarre(3);
    const QImage avant = m.ecran().copy();
    article(m, "mnufa", 2)->trigger();
    EXPECT_NE(m.ecran(), avant);
    EXPECT_TRUE(m.windowTitle().contains(QRegularExpression(QStringLiteral("__\\d\\d\\.\\d\\d$"))));
    const QImage trace = m.ecran().copy();
    article(m, "mnupara", 5)->trigger();
    EXPECT_NE(m.ecran(), trace);
    m.Command3_Click();
    EXPECT_EQ(m.ecran(), trace);
    bool accepte = true;
    EXPECT_TRUE(pendantUnTrace(m, 1, controle(m, "List2"), [&] { accepte = m.envoie(2); }));
    EXPECT_FALSE(accepte);
    EXPECT_EQ(banc.messages.size(), 1);
    EXPECT_FALSE(m.enTrace());
    EXPECT_EQ(m.etat.courbes.nbCourbes, 2);
    const QImage interrompu = m.ecran().copy();
    m.etat.param.pauseMs = 0;
    m.Command3_Click();
    EXPECT_NE(m.ecran(), interrompu);
}

// Each failing request of a multiple sending or of a redraw shows its own
// message when it fails (not one gathered at the end), the program goes on,
// and a curve whose formula fails is listed among the drawn curves. ")T("
// passes the request's bracket count but the evaluator cannot read it: the
// program ends after the message, the screen saved first and the message
// saying where.
TEST(Mirado, FormulesFaussesUnMessageParDemandeOuFinDuProgramme)
{
    Banc banc;
    banc.ecrisCatalogue("Espace_courbes/Lisurf.lsu", {"x=f1(t)=SIN(T][y=f2(t)=T][z=f3(t)=T",
                                                      "x=f1(t)=COS(T][y=f2(t)=T][z=f3(t)=T",
                                                      "x=f1(t)=)T(][y=f2(t)=T][z=f3(t)=T"});
    Mirado& m = banc.demarre();
    m.envoieSelection({1, 2}, ModeCouleurs::Unique);
    const QStringList deux{QStringLiteral("La formule SIN(T est incorrecte, corrigez-la , svp"),
                           QStringLiteral("La formule COS(T est incorrecte, corrigez-la , svp")};
    EXPECT_EQ(banc.messages, deux);
    EXPECT_EQ(articles(m, "mnutra").size(), 3u);
    m.Command3_Click();
    EXPECT_EQ(std::pair(banc.messages, banc.fins), std::pair(deux + deux, 0));
    article(m, "mnufa", 3)->trigger();
    const QString secours = banc.chemin("Espace_fig/secours.fig");
    EXPECT_EQ(std::tuple(banc.messages.last().section('\n', 0, 0), banc.fins, QFile::exists(secours),
                         banc.messages.last().contains(secours)),
              std::tuple(QStringLiteral("Formule incorrecte,désolé"), 1, true, true));
}

// An empty range is refused and mem.log put back in force. The side panels: "RR" folds the panel of
// the mode, "Reset" reads the temporary parameter file and stops the turns, Option1 fills List1.
TEST(Mirado, EtendueVideRefuseeEtPanneauxLateraux)
{
    Banc banc;
    banc.ecrisFichier("Espace_courbes/mem.log", memoireAvecX(-5, 5));
    for (const char* f : {"Espace_courbes/memprovi.log", "Plan_courbes/memprovi.log"})
        banc.ecrisFichier(f, memoireAvecX(-2, 7));
    Mirado& m = banc.demarre();
    m.etat.param.xmin = m.etat.param.xmax = 3;
    m.Command3_Click();
    EXPECT_EQ(banc.messages, QStringList{QStringLiteral("Pas pochible,je rétablis la base [-10,10 ]")});
    EXPECT_EQ(std::pair(m.etat.param.xmin, m.etat.param.xmax), std::pair(-5.0, 5.0));
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
    };
    auto coches = [](const std::vector<QAction*>& groupe) {
        std::vector<bool> v;
        for (const QAction* a : groupe)
            v.push_back(a->isChecked());
        return v;
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.groupe);
        Banc banc;
        Mirado& m = banc.demarre(1);
        const std::vector<QAction*> groupe = articles(m, c.groupe);
        if (c.refuseEnTrace) {
            const long avant = c.valeur(m.etat);
            const std::vector<bool> marques = coches(groupe);
            ASSERT_FALSE(marques.at(c.index));
            EXPECT_TRUE(pendantUnTrace(m, 1, &m, [&] { groupe[c.index]->trigger(); }));
            ASSERT_EQ(banc.messages.size(), 1);
            EXPECT_TRUE(banc.messages[0].startsWith(QStringLiteral("Un tracé est en cours")));
            EXPECT_EQ(c.valeur(m.etat), avant);
            EXPECT_EQ(coches(groupe), marques);
        }
        groupe[c.index]->trigger();
        EXPECT_EQ(c.valeur(m.etat), c.attendu);
        std::vector<bool> seul(groupe.size(), false);
        seul[c.index] = true;
        EXPECT_EQ(coches(groupe), seul);
    }
}

std::string enVigueur(const Mirado& m)
{
    return m.etat.fenetre.dossierCourbes + m.etat.fenetre.fichierCatalogue;
}

TEST(Coli, ChoixEnvoyesParOkOuDoubleClic)
{
    Banc banc;
    Mirado& m = banc.demarre(6);
    using V = std::vector<int>;  // rows clicked, Option1 (0 "Cycle", 1 "Unique"), row double-clicked (-1: "OK"), sent
    for (const auto& [selection, option, doubleClic, choix, mode] :
         {std::tuple{V{5, 2}, 0, -1, V{2, 5}, ModeCouleurs::Cycle},
          std::tuple{V{0, 3}, 1, -1, V{3}, ModeCouleurs::Unique},  // the header line is no entry
          std::tuple{V{1}, 1, 3, V{3}, ModeCouleurs::Unique},
          std::tuple{V{1}, 1, 0, V{}, ModeCouleurs::Unique}}) {  // the header sends nothing, the list stays
        Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
        auto* liste = controle<QListWidget>(coli, "List2");
        ASSERT_EQ(liste->count(), 7);
        for (int r : selection)
            liste->item(r)->setSelected(true);
        controle<QRadioButton>(coli, QStringLiteral("Option1_%1").arg(option))->click();
        if (doubleClic < 0)
            controle<QPushButton>(coli, "Command1")->click();
        else
            coli.List2_DblClick(liste->item(doubleClic));
        EXPECT_EQ(coli.result(), choix.empty() && doubleClic == 0 ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(std::tuple(coli.choix(), coli.mode()), std::tuple(choix, mode));
    }
}

// A catalogue in force that cannot be read: the start and the list both name
// the file and say why (every kind of path is the path checker's).
TEST(Coli, CatalogueIllisibleNommeAvecSaRaison)
{
    Banc banc;
    std::filesystem::create_directories(banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString());
    Mirado& m = banc.demarre();
    Coli coli(m.etat.catalogue, enVigueur(m), m.boites, &m);
    EXPECT_EQ(controle<QListWidget>(coli, "List2")->count(), 1);
    ASSERT_GE(banc.messages.size(), 2);
    for (const QString& message : {banc.messages.front(), banc.messages.back()})
        EXPECT_TRUE(message.contains(QStringLiteral("Lisurf.lsu » est un dossier"))) << message.toStdString();
}

TEST(Licou, CourbesTraceesCocheesEtReglagesListesOuvertesDevantLeDessin)
{
    Banc banc;
    Mirado& m = banc.demarre(3);
    article(m, "mnucl", 1)->trigger();  // red curves
    article(m, "mnufa", 1)->trigger();
    article(m, "mnucl", 2)->trigger();  // green curves
    m.etat.param.traceContinu = 0;
    article(m, "mnufa", 3)->trigger();
    Licou licou(m.etat.courbes, m.etat.catalogue, 2, &m);
    auto* liste = controle<QListWidget>(licou, "List1");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text(), article(m, "mnutra", 1)->text());
    const auto reglages = [&] {
        return controle<QLabel>(licou, "Label1_0")->text() + '|' + controle<QLabel>(licou, "Label1_1")->text();
    };
    EXPECT_EQ(reglages(), QStringLiteral("Trait En vert:|pointillé"));
    liste->setCurrentRow(0);
    EXPECT_EQ(reglages(), QStringLiteral("Trait En rouge:|continu"));
    liste->item(0)->setCheckState(Qt::Unchecked);
    controle<QPushButton>(licou, "Command1")->click();
    EXPECT_EQ(licou.cochees(), std::vector<int>{2});
    // "LE GRAPHE de" 0 and "Déjà tracé" 0 open the lists; while they are open
    // (their modal loop running) the drawing is still painted from the bitmap.
    auto* zone = m.findChild<ZoneDessin*>();
    for (const auto& [menu, nom] : {std::pair{"mnufa", "coli"}, std::pair{"mnutra", "licou"}}) {
        const QImage attendu = m.ecran().convertToFormat(QImage::Format_RGB32);
        QImage vu;
        QString dialogue;
        QTimer::singleShot(0, &m, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            dialogue = modal ? modal->objectName() : QString();
            vu = zone->grab().toImage().convertToFormat(QImage::Format_RGB32);
            if (auto* d = qobject_cast<QDialog*>(modal))
                d->reject();
        });
        article(m, menu, 0)->trigger();
        EXPECT_EQ(dialogue, QString::fromUtf8(nom));
        EXPECT_EQ(vu, attendu) << menu;
    }
}

TEST(Fidelite, ChangerDeCatalogueGardeLesCourbesPuisFigureSurUnPetitEcran)
{
    Banc banc;
    banc.ecrisCatalogue("Espace_courbes/b.lsu", {"x=f1(t)=COS(T)][y=f2(t)=SIN(2*T)][z=f3(t)=T/5"});
    Mirado& m = banc.demarre(1);
    const QImage repere = m.ecran().copy();
    m.envoie(1);
    auto* commandes = m.findChild<CommandesEtiquettes*>();
    commandes->editeur = [](QWidget*, Etiquette& l) { return l.texte = "reste", true; };
    commandes->creation(QPoint(40, 40));
    article(m, "mnulifi", 0)->trigger();  // b.lsu
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);
    ASSERT_EQ(m.etat.etiquettes.nombre(), 1);
    EXPECT_TRUE(commandes->controle(1)->isVisible());
    // The row was drawn again from record 1 of b.lsu, then the window cleared to the frame alone.
    EXPECT_TRUE(m.windowTitle().contains(QStringLiteral("SIN(2*T)")));
    EXPECT_EQ(m.ecran(), repere);
    m.Command3_Click();
    EXPECT_NE(m.ecran(), repere);
    // A figure read on a smaller screen, with its reference colour.
    m.etat.param.fondBlanc = 1;  // the scheme's background (white) is not the window's own (black)
    QString choisi;
    m.choixFigure = [&](QWidget*, const QString&, const QString&) { return std::optional<QString>(choisi); };
    for (const bool reference : {true, false}) {
        // Saved at 1600 x 1000 pixels, larger than the screen.
        choisi = banc.chemin(reference ? "vrai.fig" : "faux.fig");
        banc.ecrisFichier(QFileInfo(choisi).fileName(),
                          QByteArray("False\r\nLisurf.lsu\r\n-10  10 -10  10 -10  10 \r\n 15  10  7.5  5 -15 -10 -7.5  0 \r\n"
                                     " 0  0 False ") + (reference ? "True" : "False") + " \r\n 0  0  24000  15000 \r\n");
        article(m, "mnumemfig", 1)->trigger();
        EXPECT_TRUE(m.screen()->availableGeometry().contains(m.frameGeometry())) << reference;
        EXPECT_EQ(m.etat.couleurs.couleurFond, reference ? 0x000000U : 0xFFFFFFU) << reference;
    }
}

TEST(Fidelite, LaSaisieMontreSonTitreEntier)
{
    const QString titre = QStringLiteral("Je rajouterai si nécessaire l'extention .lsu");
    QString vu;
    int largeur = 0, besoin = 0;
    QTimer::singleShot(0, [&] {
        auto* boite = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(boite, nullptr);
        vu = boite->windowTitle();
        largeur = boite->width();
        QFont gras = boite->font();
        gras.setBold(true);
        // The text and, beside it, the frame's icon and three buttons.
        besoin = QFontMetrics(gras).horizontalAdvance(titre) + 4 * QFontMetrics(gras).height();
        boite->reject();
    });
    EXPECT_FALSE(Boites::standard().saisie(nullptr, QStringLiteral("tapez un nom simple"), titre));
    EXPECT_EQ(vu, titre);
    EXPECT_GE(largeur, besoin);
}

TEST(PetitEcran, LaBarreDeMenusMontreChaqueMenuEtLePanneauDefile)
{
    Banc banc;
    const QString nom = QStringLiteral("un_catalogue_au_nom_vraiment_tres_long_pour_la_barre.lsu");
    banc.ecrisCatalogue("Espace_courbes/" + nom, 1);
    Mirado& m = banc.demarre();
    for (QAction* a : articles(m, "mnulifi"))
        if (a->text() == nom)
            a->trigger();
    const QString complet = "Dans " + QString::fromStdString(m.etat.fenetre.dossierCourbes) + nom;
    QMenuBar* barre = m.menuBar();
    QAction* titre = controle<QMenu>(m, "mnutrace")->menuAction();
    for (const int largeur : {1024, 4000, 1024}) {  // the caption is shortened when narrow
        m.resize(largeur, largeur == 1024 ? 768 : 1000);
        QApplication::processEvents();
        for (QAction* a : barre->actions())
            EXPECT_TRUE(barre->rect().contains(barre->actionGeometry(a))) << a->text().toStdString() << largeur;
        const auto* suite = barre->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
        EXPECT_TRUE(!suite || suite->isHidden()) << largeur;
        EXPECT_EQ(std::pair(titre->text() != complet, titre->toolTip()), std::pair(largeur == 1024, complet));
        if (largeur == 1024) {
            EXPECT_TRUE(titre->text().startsWith("Dans ") && titre->text().contains(QChar(0x2026)))
                << titre->text().toStdString();
            const QPoint centre = barre->actionGeometry(titre).center();  // hovering it shows the whole text
            QHelpEvent survol(QEvent::ToolTip, centre, barre->mapToGlobal(centre));
            QApplication::sendEvent(barre, &survol);
            EXPECT_EQ(QToolTip::text(), complet);
        }
    }
    // When the window is too low for the side column, the column scrolls.
    auto* defile = controle<QScrollArea>(m, "defilePanneau");
    ASSERT_EQ(defile->widget(), controle(m, "colonne"));
    const QWidget* zone = m.findChild<ZoneDessin*>();
    const QWidget* bas = controle(m, "Label2");  // the counters, the lowest read-out of the column
    for (const QSize taille : {QSize(1600, 1000), QSize(1024, 420), QSize(700, 300)}) {
        m.resize(taille);
        QApplication::processEvents();
        const int H = m.centralWidget()->height();
        EXPECT_EQ(defile->verticalScrollBar()->isVisible(), bas->geometry().bottom() >= H) << taille.height();
        // The drawing and the column share the width without overlapping.
        EXPECT_EQ(std::tuple(zone->geometry().right() + 1, defile->geometry().right() + 1, defile->height()),
                  std::tuple(defile->geometry().left(), m.centralWidget()->width(), H));
        // Scrolled to its end, the column shows its lowest read-out whole.
        defile->verticalScrollBar()->setValue(defile->verticalScrollBar()->maximum());
        EXPECT_TRUE(defile->viewport()->rect().contains({bas->mapTo(defile->viewport(), QPoint(0, 0)), bas->size()}))
            << taille.height();
    }
}

// What the program asked to start, and whether the application's folders existed then.
struct Lancements {
    std::vector<std::tuple<QString, QStringList, bool>> faits;
    QStringList trouvables;  // programs "in PATH"
    bool reussit = true;
    QString appli;
    explicit Lancements(QString dossier) : appli(std::move(dossier)) { }
    Programmes programmes()
    {
        return {[this](const QString& nom) { return trouvables.contains(nom) ? "/usr/bin/" + nom : QString(); },
                [this](const QString& programme, const QStringList& arguments, const QString&) {
                    faits.emplace_back(programme, arguments, !premierDemarrage(appli));
                    return reussit;
                }};
    }
    QString dernier() const { return faits.empty() ? QString() : std::get<0>(faits.back()); }
};

// A small program `chemin` (it is never started).
void programme(const QString& chemin)
{
    ecrisFichier(chemin.toStdString(), "#!/bin/sh\n");
    fs::permissions(chemin.toStdString(), fs::perms::owner_exec, fs::perm_options::add);
}

TEST(Emplacements, DossierDeLApplicationSelonLInstallation)
{
    QTemporaryDir racine;
    const QString r = racine.path();
    for (const char* d :
         {"construction/usine", "prefixe/bin", "prefixe/share/velorin", "deux/bin/usine", "deux/share/velorin", "seul"})
        QDir().mkpath(r + "/" + d);
    const QString local = QStringLiteral("/home/u/.local/share/velorin"), partage = r + "/prefixe/share/velorin";
    using T = std::tuple<const char*, const char*, bool, QString, QString>;  // exe, XDG_DATA_HOME, expected
    for (const auto& [exe, xdg, installe, appli, usine] :
         {T{"construction", "", false, r + "/construction", r + "/construction/usine"},  // all beside the program
          T{"prefixe/bin", "relatif", true, local, partage},  // a relative XDG_DATA_HOME: no
          T{"deux/bin", "", false, r + "/deux/bin", r + "/deux/bin/usine"},  // its own usine/ wins
          T{"seul", "", false, r + "/seul", r + "/share/velorin"}}) {        // nothing shipped, writable
        const Emplacements e = emplacementsPour(r + "/" + exe, xdg, "/home/u");
        EXPECT_EQ(std::tuple(e.installe, e.appli, e.usine), std::tuple(installe, appli, usine)) << exe << xdg;
    }
    if (geteuid() != 0) {  // a folder the user may not write is an installation too (root writes everywhere)
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const Emplacements e = emplacementsPour(r + "/seul", "", "/home/u");
        EXPECT_EQ(std::pair(e.installe, e.appli), std::pair(true, local));
        QFile::setPermissions(r + "/seul", QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
}

// "Installer": Velorin_finir first, the user told; a folder that cannot be made is said and the
// form stays open. What the folders receive is tested on the installed program (tests/installation).
TEST(Installation, InstallerLanceFinirPuisRemplitOuDitLEchec)
{
    for (const bool echec : {false, true}) {
        QTemporaryDir racine;
        const Emplacements lieux{racine.filePath("velorin"), QStringLiteral(VELORIN_BIN_DIR "/usine"), true};
        QStringList messages;
        Lancements l(lieux.appli);
        if (echec)
            ecrisFichier(lieux.appli.toStdString(), "pas un dossier");  // a file where the folder should be
        else
            programme(lieux.appli + "/Velorin_finir");
        Boites boites;
        boites.message = [&](QWidget*, const QString& t) { messages << t; };
        Installation form(lieux, boites, l.programmes());
        const QString explication = controle<QLabel>(form, "Label1")->text();
        for (const char* nom : nomsDossiers)
            EXPECT_TRUE(explication.contains(QLatin1String(nom))) << nom;
        EXPECT_TRUE(explication.contains(QDir::toNativeSeparators(lieux.appli)));
        form.open();
        controle<QPushButton>(form, "Command1")->click();
        ASSERT_EQ(messages.size(), 1);
        EXPECT_EQ(std::pair(form.isVisible(), premierDemarrage(lieux.appli)), std::pair(echec, echec));
        if (echec) {
            EXPECT_TRUE(messages[0].startsWith(QStringLiteral("L'installation n'a pas pu se faire")));
            form.close();
            continue;
        }
        EXPECT_EQ(std::pair(messages[0], form.result()), std::pair(QString(messageInstallationTerminee), 1));
        ASSERT_EQ(l.faits.size(), 1u);  // Velorin_finir, before the folders
        EXPECT_EQ(l.faits[0], std::tuple(lieux.appli + "/Velorin_finir", QStringList(), false));
    }
}

// The help pages as the build ships them: a link of the contents is followed, "Sommaire" comes back.
// That every link leads to a page and an anchor is checked on the installed pages (tests/installation).
TEST(MenuAide, AProposAideEtQuitterParLeMenu)
{
    Banc banc;
    Mirado& w = banc.demarre();
    Lancements l(banc.dossier.path());
    w.programmes = l.programmes();
    // A propos: the first system information program found is started, or the user is told there is none.
    using L = QStringList;  // found in PATH, it starts, the one started (empty: none), its arguments
    for (const auto& [trouvables, reussit, lance, arguments] :
         {std::tuple{L{"kinfocenter", "gnome-control-center", "hardinfo"}, true, "kinfocenter", L{}},
          std::tuple{L{"gnome-control-center", "hardinfo"}, true, "gnome-control-center", L{"info-overview"}},
          std::tuple{L{"hardinfo"}, true, "hardinfo", L{}}, std::tuple{L{}, true, "", L{}},
          std::tuple{L{"hardinfo"}, false, "hardinfo", L{}}}) {  // it would not start: said
        l.trouvables = trouvables, l.reussit = reussit;
        l.faits.clear();
        banc.messages.clear();
        article(w, "mnuaide", 0)->trigger();
        std::unique_ptr<APropos> boite(w.findChild<APropos*>());
        ASSERT_NE(boite, nullptr);
        controle<QPushButton>(*boite, "Command2")->click();
        const QString attendu = *lance ? QStringLiteral("/usr/bin/") + lance : QString();
        EXPECT_EQ(std::pair(l.dernier(), l.faits.empty() ? L() : std::get<1>(l.faits.back())),
                  std::pair(attendu, arguments));
        EXPECT_EQ(banc.messages, !*lance || !reussit ? L{messageSansInfosSysteme} : L());
    }
    l.faits.clear();
    // The help window follows a link of the contents, "Précédent" then allowed, and "Sommaire" comes back.
    Aide aide(QStringLiteral(VELORIN_BIN_DIR "/usine/Aide/index.htm"));
    auto* texte = controle<QTextBrowser>(aide, "Text1");
    auto* precedent = controle<QPushButton>(aide, "Command2");
    const QUrl accueil = aide.pageCourante();
    EXPECT_FALSE(texte->toPlainText().contains(QStringLiteral("Ã")));  // read as UTF-8
    EXPECT_FALSE(precedent->isEnabled());
    aide.suisLien(QStringLiteral("formules.htm#pieges"));
    EXPECT_EQ(aide.pageCourante().fileName(), QStringLiteral("formules.htm"));
    EXPECT_TRUE(precedent->isEnabled() && !texte->documentTitle().isEmpty());
    controle<QPushButton>(aide, "Command1")->click();  // Sommaire
    EXPECT_EQ(aide.pageCourante(), accueil);
    // The help: the user's own pages come first; without any page, it says so.
    const auto pageAide = [&] {
        article(w, "mnuaide", 1)->trigger();
        std::unique_ptr<Aide> ouverte(w.findChild<Aide*>());
        return ouverte ? ouverte->pageCourante().toLocalFile() : QString();
    };
    EXPECT_EQ(pageAide(), banc.chemin("usine/Aide/index.htm"));
    ecrisFichier(banc.chemin("Aide/index.htm").toStdString(), "<html><head><title>Mes notes</title></head></html>");
    EXPECT_EQ(pageAide(), banc.chemin("Aide/index.htm"));
    QFile::remove(banc.chemin("Aide/index.htm"));
    QFile::remove(banc.chemin("usine/Aide/index.htm"));
    pageAide();
    ASSERT_FALSE(banc.messages.isEmpty());
    EXPECT_TRUE(banc.messages.back().startsWith(QStringLiteral("Les pages d'aide sont introuvables")));
    // Quitter: the companion program only when it is there.
    article(w, "mnustp", 0)->trigger();
    EXPECT_TRUE(l.faits.empty());
    programme(banc.chemin("wemrab"));
    article(w, "mnustp", 0)->trigger();
    EXPECT_EQ(std::pair(l.faits.size(), l.dernier()), std::pair(size_t(1), banc.chemin("wemrab")));
}

// The "Rendu" menu: each choice is kept in rendu.txt beside mem.log and drawn at once; a new window on the same
// folder starts with it, and a damaged rendu.txt is said; a typed value out of bounds is refused and said.
TEST(MenuRendu, ChoixGardesDansRenduTxtRelusEtRedessines)
{
    Banc banc;
    Mirado& w = banc.demarre(1);
    w.envoie(1);
    const QImage avant = w.ecran();
    const QString fichier = banc.chemin("Espace_courbes/rendu.txt");
    article(w, "mnucav", 0)->trigger();
    EXPECT_NE(w.ecran(), avant) << "la perspective cavalière n'est pas redessinée";
    article(w, "mnurendus", 1)->trigger();
    banc.reponses = {QStringLiteral("72,5"), QStringLiteral("95")};
    article(w, "mnucavangle", 3)->trigger();
    article(w, "mnucavangle", 3)->trigger();
    ASSERT_FALSE(banc.messages.isEmpty());
    EXPECT_TRUE(banc.messages.back().startsWith(QStringLiteral("« 95 » ne convient pas"))) << banc.messages.back().toStdString();
    article(w, "mnugradue", 0)->trigger();
    const std::string texte = lisFichier(fichier.toStdString());
    for (const char* ligne : {"style=pointilles\n", "projection=cavaliere\n", "angle=72.5\n", "repereGradue=1\n",
                              "quadrillage=0\n"})
        EXPECT_NE(texte.find(ligne), std::string::npos) << ligne << " manque dans " << texte;
    Banc autre;
    autre.ecrisFichier(QStringLiteral("Espace_courbes/rendu.txt"), QByteArray::fromStdString(texte));
    Mirado& w2 = autre.demarre(1);
    EXPECT_TRUE(article(w2, "mnurendus", 1)->isChecked() && article(w2, "mnucav", 0)->isChecked() &&
                article(w2, "mnucavangle", 3)->isChecked() && !article(w2, "mnucavangle", 1)->isChecked());
    EXPECT_EQ(autre.etat.rendu.angleCavaliere, 72.5);
    autre.fenetre.reset();
    autre.ecrisFichier(QStringLiteral("Espace_courbes/rendu.txt"), "style=ombre\n");
    autre.demarre(1);
    ASSERT_FALSE(autre.messages.isEmpty());
    EXPECT_NE(autre.messages.back().indexOf(QStringLiteral("ligne 1 : le style « ombre »")), -1);
}

}  // namespace
}  // namespace velorin::essai
