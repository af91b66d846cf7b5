// The catalogue editors (functions Tipara, objects Ticar, clouds Tinu, points
// Lipo): each control stores what the plot module builds from the boxes (the
// entry texts are tested there); and each editor's menu entry. The pruning
// dialog: its buttons reach the compaction with the selected records (never
// the header), the list follows, the hourglass shows meanwhile; its menu
// entry opens it on the catalogue in force.
// The parameter dialog: its fields, what shows by mode, the file each button writes, read back. The
// colour dialog and the colour policies of "Comment Tracer?".
#include <QByteArray>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <filesystem>

#include "app/boites.h"
#include "app/dialogues/couleurs.h"
#include "app/dialogues/lipo.h"
#include "app/dialogues/menage.h"
#include "app/dialogues/param.h"
#include "app/dialogues/ticar.h"
#include "app/dialogues/tinu.h"
#include "app/dialogues/tipara.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "plot/texte_entree.h"
#include "qt/surface_qpainter.h"
#include "settings/fichier_couleurs.h"
#include "settings/memoire.h"
#include "settings/reglage.h"

namespace velorin::essai {
namespace {

// The catalogue Espace_courbes/essai.lsu of a bench, empty or with `nb`
// curves; `boites` records in `messages` what the editor says.
struct Fichier {
    Banc banc;
    Catalogue cat;
    QStringList messages;
    Boites boites;
    explicit Fichier(int nb)
    {
        banc.ecrisCatalogue("Espace_courbes/essai.lsu", nb);
        EXPECT_FALSE(ouvrirCatalogue(cat, banc.chemin("Espace_courbes/essai.lsu").toStdString()));
        boites.message = [this](QWidget*, const QString& texte) { messages << texte; };
    }
    QByteArray octets() const { return QByteArray::fromStdString(lisFichier(cat.chemin)); }
};

// What a record holds (its layout is the catalogue module's).
QByteArray enregistrement(int genre, const std::string& texte)
{
    return QByteArray::fromStdString(octetsEnregistrement({static_cast<std::int16_t>(genre), texte}));
}

void tape(const QObject& dialogue, const QString& boite, const QString& texte)
{
    controle<QLineEdit>(dialogue, boite)->setText(texte);
}
void tape(Tipara& t, const std::array<std::string, 3>& formules)
{
    for (int i = 0; i < 3; ++i)
        tape(t, QStringLiteral("Text2_%1").arg(i), QString::fromStdString(formules[i]));
}
void clique(const QObject& d, const char* bouton)
{
    controle<QPushButton>(d, bouton)->click();
}
QString texte(const QObject& d, const char* nom)
{
    return controle<QLabel>(d, nom)->text();
}

// Each type item (kind 0 after kind 2 keeps the other prompts as they were).
TEST(Tipara, ChaqueTypeEnregistreLeTexteDuModuleDeTrace)
{
    const std::array<std::string, 3> tapees = {" sin[t] ", "2*{t+1}", "t^2"};
    for (const auto& [espace, types] :
         {std::pair{true, std::vector{0}}, std::pair{false, std::vector{1}}, std::pair{true, std::vector{2}},
          std::pair{false, std::vector{3}}, std::pair{true, std::vector{4}}, std::pair{true, std::vector{2, 0}}}) {
        Fichier f(0);
        Tipara t(f.cat, espace, -1, {});
        std::array<std::string, 3> invites{};
        for (int type : types) {
            t.mnutip_Click(type);
            const std::array<std::string, 3> nouvelles = invitesDuGenre(type);
            for (int i = 0; i < 3; ++i)
                invites[i] = nouvelles[i].empty() ? invites[i] : nouvelles[i];
        }
        tape(t, tapees);
        clique(t, "Command4");
        const int genre = types.back();
        EXPECT_EQ(f.octets(), enregistrement(genre, texteEntree(genre, espace, invites, tapees))) << genre;
        EXPECT_TRUE(t.aEnregistre());
    }
}

// The blue line appends, another line is overwritten; a double click loads
// an entry of the type back, the header line or an entry of another type
// clears the boxes.
TEST(Tipara, LigneBleueAjouteAutreLigneEcraseRelectureBoitesDuPlanEtRemarques)
{
    Fichier f(3);
    Tipara t(f.cat, true, 3, {});
    auto* liste = controle<QListWidget>(t, "List2");
    tape(t, {"5", "t", "0"});
    for (const auto& [ligne, nbApres, ecrite] : {std::tuple{2, 3, 2}, std::tuple{0, 4, 4}}) {
        liste->setCurrentRow(ligne);
        clique(t, "Command4");
        ASSERT_EQ(f.octets().size(), nbApres * 302) << ligne;
        EXPECT_EQ(f.octets().mid((ecrite - 1) * 302, 302), enregistrement(3, "R=f1(t)=5][Agh=f2(t)=t][Agv=f3(t)=0"));
        EXPECT_EQ(liste->count(), nbApres + 1);
        EXPECT_EQ(liste->currentRow(), 0);
    }
    for (const auto& [ligne, attendu] : {std::pair{4, "5"}, std::pair{1, ""}, std::pair{0, ""}}) {
        tape(t, {"vieux", "vieux", "vieux"});
        emit liste->itemDoubleClicked(liste->item(ligne));
        EXPECT_EQ(controle<QLineEdit>(t, "Text2_0")->text(), QString::fromUtf8(attendu)) << ligne;
    }
    // The plane hides the third box; surfaces read (a, t) as two variables.
    for (bool espace : {true, false}) {
        Tipara u(f.cat, espace, -1, {});
        u.mnutip_Click(1);
        EXPECT_EQ(controle<QLineEdit>(u, "Text2_2")->isHidden(), !espace);
        tape(u, {"SIN(T)+1", "2*T", "2T"});
        EXPECT_TRUE(texte(u, "Remarque_0").contains(QStringLiteral("SIN(T)+(1)")));
        EXPECT_TRUE(texte(u, "Remarque_1").isEmpty());
        u.mnutip_Click(2);
        tape(u, {"A*T", "", ""});
        EXPECT_TRUE(texte(u, "Remarque_0").contains(QStringLiteral("(A)*(T)")));
    }
}

// Every box holds a point of its own; the object's boxes, in the order of
// its pieces, must be the ones stored. Nothing chosen yet: said, nothing
// written. The captions follow the mode.
TEST(Ticar, ChaqueObjetEnregistreSesBoitesLegendesParModeEtEntree)
{
    const QStringList boites = {"Text1_0", "Text1_1", "Text2_0", "Text2_1", "Text2_2",
                                "Text3_1", "Text3_0", "Text4_0", "Text4_1", "Text4_2"};
    const std::tuple<bool, int, QStringList> cas[] = {{true, 0, {"Text1_0", "Text1_1"}},
                                                      {true, 1, {"Text2_0", "Text2_1", "Text2_2"}},
                                                      {true, 2, {"Text3_0"}},
                                                      {false, 2, {"Text3_0"}},
                                                      {true, 3, {"Text4_0", "Text4_1"}},
                                                      {false, 4, {"Text4_2"}}};
    for (const auto& [espace, objet, lues] : cas) {
        Fichier f(0);
        Ticar t(f.cat, espace, f.boites);
        const char* equation = espace ? "Plan: ax+by+cz+d = 0" : "Droite: ax+ by + c = 0";
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1_2")->title(), QString::fromUtf8(equation));
        EXPECT_EQ(article(t, "mnuf", 2)->text(), QString::fromUtf8(equation));
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1_0")->title().endsWith("V(a,b,c)"), espace);
        EXPECT_EQ(article(t, "mnuf", 1)->isVisible(), espace);  // the plane P(M,u,v)
        clique(t, "Command1");
        EXPECT_EQ(f.messages.size(), 1);
        article(t, "mnuf", objet)->trigger();
        std::array<std::string, 3> pieces;
        for (int i = 0; i < boites.size(); ++i) {
            tape(t, boites[i], QStringLiteral("(%1,0,1)").arg(i));
            if (int k = lues.indexOf(boites[i]); k >= 0)
                pieces[k] = QStringLiteral("(%1,0,1)").arg(i).toStdString();
        }
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(controle<QGroupBox>(t, QStringLiteral("Frame1_%1").arg(i))->isHidden(), i != objet);
        clique(t, "Command1");
        EXPECT_EQ(f.octets(), enregistrement(objet + 5, texteEntree(objet + 5, espace, {}, pieces))) << objet;
        EXPECT_TRUE(t.aEnregistre());
    }
    // Enter in a box of the equation array goes to the next shown box and
    // stores from the last.
    for (const auto& [autresMontrees, boite, enregistre] : {std::tuple{false, 0, true}, std::tuple{true, 0, false},
                                                            std::tuple{true, 1, false}, std::tuple{true, 2, true}}) {
        Fichier f(0);
        Ticar t(f.cat, false, f.boites);
        t.mnuf_Click(2);
        tape(t, "Text3_0", "x-y=0");
        for (int i : {1, 2})
            controle<QLineEdit>(t, QStringLiteral("Text3_%1").arg(i))->setVisible(autresMontrees);
        QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(controle<QLineEdit>(t, QStringLiteral("Text3_%1").arg(boite)), &appui);
        EXPECT_EQ(t.aEnregistre(), enregistre) << autresMontrees << " " << boite;
    }
}

// The kind follows the mode, then the menu (mnuch: -1 none clicked); a cloud
// reads X, Y and Z as its variables.
TEST(Tinu, GenreSelonLeModeEtLeMenuEtRemarques)
{
    const std::array<std::string, 3> textes = {" x^2", "X*Y+Z", "2X"};
    for (const auto& [espace, choix, genre] :
         {std::tuple{false, -1, 14}, std::tuple{true, -1, 15}, std::tuple{true, 0, 14}, std::tuple{false, 1, 15}}) {
        Fichier f(0);
        Tinu t(f.cat, espace, f.boites);
        if (choix >= 0)
            article(t, "mnuch", choix)->trigger();
        EXPECT_EQ(t.genreCourbe(), genre);
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1")->title().contains(QStringLiteral("f(x,y)")), genre == 15);
        for (int i = 0; i < 3; ++i)
            tape(t, QStringLiteral("Text1_%1").arg(i), QString::fromStdString(textes[i]));
        EXPECT_TRUE(texte(t, "Remarque_1").contains(QStringLiteral("(X)*(Y)"))) << genre;
        EXPECT_TRUE(texte(t, "Remarque_2").contains(QStringLiteral("2*X"))) << genre;
        clique(t, "Command1");
        EXPECT_EQ(f.octets(), enregistrement(genre, texteEntree(genre, true, {}, textes)));
    }    // Brackets that end the program are an error (red), a rewriting a warning.
    Fichier f(0);
    Tinu t(f.cat, true, f.boites);
    tape(t, "Text1_0", "X)+(1");
    tape(t, "Text1_2", "2X");
    EXPECT_EQ(std::pair(controle<QLabel>(t, "Remarque_0")->property("remarque").toInt(),
                        controle<QLabel>(t, "Remarque_2")->property("remarque").toInt()),
              std::pair(2, 1));
}

// Creating a point, placing the selected points (drawn), "Je blanchis"
// clearing the selection, joining two points in list order (not click
// order); a double click empties the box.
TEST(Lipo, CreerPlacerRelierEtBlanchir)
{
    Fichier f(0);
    for (const LigneCatalogue& l :
         {LigneCatalogue{1, "x=f1(t)=t"}, LigneCatalogue{9, "Point:[(1,2,3)]"}, LigneCatalogue{9, "Point:[(0,0,1)]"}})
        ASSERT_FALSE(ecrisLigne(f.cat, f.cat.nbLignesCatalogue + 1, l));
    std::vector<NumeroLigne> traces;
    const auto trace = [&](NumeroLigne n) { traces.push_back(n); };
    Lipo d(f.cat, trace, f.boites);
    auto* liste = controle<QListWidget>(d, "List1");
    auto* boite = controle<QLineEdit>(d, "Text1");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_TRUE(liste->item(1)->text().startsWith(QStringLiteral("0003]Point:[(0,0,1)]")));
    boite->setText(QStringLiteral("(4,5,6)"));
    clique(d, "Command5");
    EXPECT_EQ(liste->count(), 3);
    EXPECT_EQ(f.cat.nbLignesCatalogue, 4);
    liste->item(1)->setSelected(true);
    clique(d, "Command1");
    EXPECT_EQ(traces, (std::vector<NumeroLigne>{2, 3}));
    clique(d, "Command4");
    liste->item(2)->setSelected(true);
    clique(d, "Command2");
    EXPECT_EQ(f.messages, QStringList{QStringLiteral("Choisissez deux points à relier (1 choisi).")});
    liste->item(0)->setSelected(true);
    traces.clear();
    clique(d, "Command2");
    EXPECT_EQ(traces, std::vector<NumeroLigne>{5});  // the segment, stored and drawn
    LigneCatalogue segment;
    ASSERT_FALSE(lisLigne(f.cat, 5, segment));
    EXPECT_EQ(segment.texte.rfind("Segment:[(1,2,3)][(4,5,6)]", 0), 0u);
    souris(boite, QEvent::MouseButtonDblClick, {2, 2}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_TRUE(boite->text().isEmpty());
}

// Each menu entry opens its editor (the function editor on the type chosen:
// its first prompt, else the window's title); what it stores joins the entry
// menu "LE GRAPHE de", and the points placed are drawn in the window.
TEST(Editeurs, ChaqueMenuOuvreSonEditeurApercuEtElagage)
{
    auto fonction = [](QDialog& d) { tape(static_cast<Tipara&>(d), {"T", "T", "T"}), clique(d, "Command4"); };
    const std::tuple<const char*, int, const char*, std::function<void(QDialog&)>> cas[] = {
        {"mnutf", 4, invitesFonctions[4][0], fonction},
        {"mnutf", 5, "Nuages ",
         [](QDialog& d) {
             for (int i = 0; i < 3; ++i)
                 tape(d, QStringLiteral("Text1_%1").arg(i), QStringLiteral("X"));
             clique(d, "Command1");
         }},
        {"mnutf", 6, "Choisissez votre fonction",
         [](QDialog& d) {
             static_cast<Ticar&>(d).mnuf_Click(4);
             tape(d, QStringLiteral("Text4_2"), QStringLiteral("(1,1,1)"));
             clique(d, "Command1");
         }},
        {"mnuzo", 5, "Points en mémoire",
         [](QDialog& d) {
             tape(d, QStringLiteral("Text1"), QStringLiteral("(2,2,2)"));
             clique(d, "Command5"), clique(d, "Command1"), clique(d, "Command3");
         }},
    };
    Banc banc;
    Mirado& m = banc.demarre(1);
    // The preview draws the typed entry with the values in force, without
    // touching the state in force.
    auto apercu = [&](const std::array<std::string, 3>& formules) {
        Tipara t(m.etat.catalogue, true, 1, {}, &m.etat, &m);
        tape(t, formules);
        return t.apercu(QSize(240, 180));
    };
    const QImage repere = apercu({"1/0", "1/0", "1/0"});  // every point out of the ranges
    const QImage cercle = apercu({"6*COS(T)", "6*SIN(T)", "0"});
    EXPECT_NE(cercle, repere);
    EXPECT_EQ(apercu({"6*COS(T)", "6*SIN(T)", "0"}), cercle);
    EXPECT_EQ(m.etat.courbes.nbCourbes, 0);
    EXPECT_EQ(m.etat.catalogue.nbLignesCatalogue, 1);
    EXPECT_EQ(article(m, "mnutf", 1)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y));
    EXPECT_EQ(article(m, "mnuzo", 5)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
    for (const auto& c : cas) {
        const auto& [tableau, index, titre, remplit] = c;
        const std::size_t avant = articles(m, "mnufa").size();
        QString vu;
        QTimer::singleShot(0, &m, [&] {
            auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(d, nullptr);
            vu = qobject_cast<Tipara*>(d) ? texte(*d, "Label1_0") : d->windowTitle();
            std::get<3>(c)(*d);
            d->reject();
        });
        article(m, tableau, index)->trigger();
        EXPECT_EQ(vu, QString::fromUtf8(titre));
        EXPECT_EQ(articles(m, "mnufa").size(), avant + 1) << titre;
    }
    EXPECT_TRUE(articles(m, "mnufa").back()->text().endsWith(QStringLiteral("Point:[(2,2,2)]")));
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);  // the point placed
    // "Elaguer fonctions" opens the pruning on the catalogue in force; the entry menu follows the
    // compacted file.
    ASSERT_EQ(articles(m, "mnufa").size(), 6u);
    QTimer::singleShot(0, &m, [&] {
        auto* d = qobject_cast<Menage*>(QApplication::activeModalWidget());
        ASSERT_NE(d, nullptr);
        auto* liste = controle<QListWidget>(*d, "List2");
        liste->item(2)->setSelected(true);
        liste->item(5)->setSelected(true);
        controle<QPushButton>(*d, "Command1")->click();
        controle<QPushButton>(*d, "Command2")->click();
    });
    article(m, "mnupara", 8)->trigger();
    EXPECT_EQ(std::pair(m.etat.catalogue.nbLignesCatalogue, articles(m, "mnufa").size()),
              std::pair(NumeroLigne(3), size_t(4)));
    EXPECT_TRUE(banc.messages.isEmpty());
}

// Records the pointer shapes a widget takes, in turn.
struct Pointeurs : QObject {
    std::vector<Qt::CursorShape> formes;
    explicit Pointeurs(QWidget* w) { w->installEventFilter(this); }
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::CursorChange)
            formes.push_back(static_cast<QWidget*>(o)->cursor().shape());
        return false;
    }
};

TEST(Menage, BoutonsVersLaReductionEtLaListeSuit)
{
    const char* const textes[] = {"x=f1(t)=t", "x=f1(a,t)=a", "Point:[(1,2,3)]", "y=f(x)=x^2",
                                  "D(M,u):[(0,0,0)][(1,0,0)]"};
    const int16_t genres[] = {1, 2, 9, 0, 5};
    // Rows of List2 (0: the header); "Command1" J'ELIMINE, "Command3" JE REDUIS LE FICHIER; the
    // compaction file is a folder (refused); records of `textes` listed afterwards; the message.
    struct Cas {
        std::vector<int> selection;
        const char* bouton;
        bool dossierLibi;
        std::vector<int> restent;
        const char* message;
    };
    for (const Cas& c :
         {Cas{{2, 4}, "Command1", false, {1, 3, 5}, ""},
          Cas{{1, 2}, "Command3", false, {1, 2, 3, 5}, ""},  // reducing does not remove the selection
          Cas{{1}, "Command1", true, {1, 2, 3, 4, 5}, "LIBI.lcs » est un dossier"}}) {  // nothing changes
        Fichier f(0);
        for (int i = 0; i < 5; ++i)
            ASSERT_FALSE(ecrisLigne(f.cat, i + 1, LigneCatalogue{genres[i], textes[i]}));
        if (c.dossierLibi)
            std::filesystem::create_directory(std::filesystem::path(f.cat.chemin).parent_path() / "LIBI.lcs");
        Menage dialogue(f.cat, f.boites);
        auto* liste = controle<QListWidget>(dialogue, "List2");
        for (int r : c.selection)
            liste->item(r)->setSelected(true);
        Pointeurs pointeurs(&dialogue);
        controle<QPushButton>(dialogue, c.bouton)->click();
        QStringList lignes, attendu;
        for (int i = 1; i < liste->count(); ++i)
            lignes << liste->item(i)->text().section(QLatin1Char(' '), 0, 0);
        for (int r : c.restent)
            attendu << QStringLiteral("%1]").arg(attendu.size() + 1, 4, 10, QLatin1Char('0')) + textes[r - 1];
        EXPECT_EQ(lignes, attendu) << c.bouton << c.dossierLibi;
        EXPECT_EQ(dialogue.aReduit(), !c.dossierLibi);
        EXPECT_EQ(pointeurs.formes, (std::vector<Qt::CursorShape>{Qt::WaitCursor, Qt::ArrowCursor}));
        EXPECT_TRUE(*c.message ? f.messages.size() == 1 && f.messages[0].contains(QString::fromUtf8(c.message))
                               : f.messages.isEmpty())
            << f.messages.join('|').toStdString();
    }
}

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
TEST(Couleurs, ChaquePastilleModifieSonMembreAuSeulOkEtPolitiques)
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
    // The policies: 0 for the session only, 1 written beside mem.log, 2 read back
    // into the colours in force (a missing file is said, nothing changes).
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
