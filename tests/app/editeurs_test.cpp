// The catalogue editors: the function editor (Tipara), the object and
// cloud editors (Ticar, Tinu) and the points dialog (Lipo). Each control
// stores what the plot module builds from the boxes (the entry texts and the
// points are tested there); the list's blue line appends and another line is
// overwritten (one routine for every editor); a double click loads an entry
// back; the checker's remarks; the preview; and each editor's menu entry.
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/lipo.h"
#include "app/dialogues/ticar.h"
#include "app/dialogues/tinu.h"
#include "app/dialogues/tipara.h"
#include "fichier_editeur.h"
#include "souris_essai.h"
#include "plot/texte_entree.h"

namespace velorin::essai {
namespace {

const std::array<std::string, 3> tapees = {" sin[t] ", "2*{t+1}", "t^2"};

void tape(Tipara& t, const std::array<std::string, 3>& formules)
{
    for (int i = 0; i < 3; ++i)
        controle<QLineEdit>(t, QStringLiteral("Text2_%1").arg(i))->setText(QString::fromStdString(formules[i]));
}

TEST(Tipara, ChaqueTypeEnregistreLeTexteDuModuleDeTrace)
{
    struct Cas {
        bool espace;
        std::vector<int> types;  // type menu items clicked in turn
    };
    // Kind 0 after kind 2 keeps the other prompts as they were.
    for (const Cas& c : {Cas{true, {0}}, Cas{false, {1}}, Cas{true, {2}}, Cas{false, {3}}, Cas{true, {4}},
                         Cas{true, {2, 0}}}) {
        Fichier f(0);
        Tipara t(f.cat, c.espace, -1, {});
        std::array<std::string, 3> invites{};
        for (int type : c.types) {
            t.mnutip_Click(type);
            const std::array<std::string, 3> nouvelles = invitesDuGenre(type);
            for (int i = 0; i < 3; ++i)
                invites[i] = nouvelles[i].empty() ? invites[i] : nouvelles[i];
        }
        tape(t, tapees);
        controle<QPushButton>(t, "Command4")->click();
        const int genre = c.types.back();
        EXPECT_EQ(f.octets(), enregistrement(genre, texteEntree(genre, c.espace, invites, tapees).c_str())) << genre;
        EXPECT_TRUE(t.aEnregistre());
    }
}

TEST(Tipara, LigneBleueAjouteAutreLigneEcraseEtRelecture)
{
    Fichier f(3);
    Tipara t(f.cat, true, 3, {});
    auto* liste = controle<QListWidget>(t, "List2");
    tape(t, {"5", "t", "0"});
    struct Cas {
        int ligne, nbApres, ecrite;
    };
    for (const Cas& c : {Cas{2, 3, 2}, Cas{0, 4, 4}}) {
        liste->setCurrentRow(c.ligne);
        controle<QPushButton>(t, "Command4")->click();
        ASSERT_EQ(f.octets().size(), c.nbApres * 302) << c.ligne;
        EXPECT_EQ(f.octets().mid((c.ecrite - 1) * 302, 302), enregistrement(3, "R=f1(t)=5][Agh=f2(t)=t][Agv=f3(t)=0"));
        EXPECT_EQ(liste->count(), c.nbApres + 1);
        EXPECT_EQ(liste->currentRow(), 0);
    }
    // A double click loads an entry of the type back; the header line, an
    // entry of another type, clears the boxes.
    for (const auto& [ligne, attendu] : {std::pair{4, "5"}, std::pair{1, ""}, std::pair{0, ""}}) {
        tape(t, {"vieux", "vieux", "vieux"});
        emit liste->itemDoubleClicked(liste->item(ligne));
        EXPECT_EQ(controle<QLineEdit>(t, "Text2_0")->text(), QString::fromUtf8(attendu)) << ligne;
    }
}

TEST(Tipara, BoitesDuPlanEtRemarques)
{
    Fichier f(0);
    for (bool espace : {true, false}) {
        Tipara t(f.cat, espace, -1, {});
        t.mnutip_Click(1);
        EXPECT_EQ(controle<QLineEdit>(t, "Text2_2")->isHidden(), !espace);
        tape(t, {"SIN(T)+1", "2*T", "2T"});
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_0")->text().contains(QStringLiteral("SIN(T)+(1)")));
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_1")->text().isEmpty());
        // Surfaces read (a, t) as two variables: "A*T" is one term of two.
        t.mnutip_Click(2);
        tape(t, {"A*T", "", ""});
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_0")->text().contains(QStringLiteral("(A)*(T)")));
    }
}

// The preview draws the typed entry with the values in force, without
// touching the state in force.
TEST(Tipara, ApercuDeLEntreeTapee)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
    Mirado& m = banc.demarre();
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
}

void tape(const QObject& dialogue, const QString& boite, const QString& texte)
{
    controle<QLineEdit>(dialogue, boite)->setText(texte);
}

const QStringList boitesTicar = {"Text1_0", "Text1_1", "Text2_0", "Text2_1", "Text2_2", "Text3_1",
                                 "Text3_0", "Text4_0", "Text4_1", "Text4_2"};

// Every box holds a point of its own; the object's boxes, in the order of
// its pieces, must be the ones stored.
TEST(Ticar, ChaqueObjetEnregistreSesBoites)
{
    struct Cas {
        bool espace;
        int article;
        QStringList lues;
    };
    const Cas cas[] = {{true, 0, {"Text1_0", "Text1_1"}}, {true, 1, {"Text2_0", "Text2_1", "Text2_2"}},
                       {true, 2, {"Text3_0"}},            {false, 2, {"Text3_0"}},
                       {true, 3, {"Text4_0", "Text4_1"}}, {false, 4, {"Text4_2"}}};
    for (const Cas& c : cas) {
        Fichier f(0);
        Ticar t(f.cat, c.espace, f.boites);
        // Nothing chosen yet: said, nothing written.
        controle<QPushButton>(t, "Command1")->click();
        EXPECT_EQ(f.messages.size(), 1);
        article(t, "mnuf", c.article)->trigger();
        std::array<std::string, 3> pieces;
        for (int i = 0; i < boitesTicar.size(); ++i) {
            const QString point = QStringLiteral("(%1,0,1)").arg(i);
            tape(t, boitesTicar[i], point);
            if (int k = c.lues.indexOf(boitesTicar[i]); k >= 0)
                pieces[k] = point.toStdString();
        }
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(controle<QGroupBox>(t, QStringLiteral("Frame1_%1").arg(i))->isHidden(), i != c.article);
        controle<QPushButton>(t, "Command1")->click();
        const int genre = c.article + 5;
        EXPECT_EQ(f.octets(), enregistrement(genre, texteEntree(genre, c.espace, {}, pieces).c_str())) << genre;
        EXPECT_TRUE(t.aEnregistre());
    }
}

TEST(Ticar, LegendesParMode)
{
    Fichier f(0);
    for (bool espace : {true, false}) {
        Ticar t(f.cat, espace, f.boites);
        const char* equation = espace ? "Plan: ax+by+cz+d = 0" : "Droite: ax+ by + c = 0";
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1_2")->title(), QString::fromUtf8(equation));
        EXPECT_EQ(article(t, "mnuf", 2)->text(), QString::fromUtf8(equation));
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1_0")->title().endsWith("V(a,b,c)"), espace);
        EXPECT_EQ(article(t, "mnuf", 1)->isVisible(), espace);  // the plane P(M,u,v)
    }
}

// Enter in a box of the equation array goes to the next shown box and
// stores from the last.
TEST(Ticar, EntreeDansLEquation)
{
    struct Cas {
        bool autresMontrees;
        int boite;
        bool enregistre;
    };
    for (const Cas& c : {Cas{false, 0, true}, Cas{true, 0, false}, Cas{true, 1, false}, Cas{true, 2, true}}) {
        Fichier f(0);
        Ticar t(f.cat, false, f.boites);
        t.mnuf_Click(2);
        tape(t, "Text3_0", "x-y=0");
        for (int i : {1, 2})
            controle<QLineEdit>(t, QStringLiteral("Text3_%1").arg(i))->setVisible(c.autresMontrees);
        QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(controle<QLineEdit>(t, QStringLiteral("Text3_%1").arg(c.boite)), &appui);
        EXPECT_EQ(t.aEnregistre(), c.enregistre) << c.autresMontrees << " " << c.boite;
    }
}

TEST(Tinu, GenreSelonLeModeEtLeMenuEtRemarques)
{
    struct Cas {
        bool espace;
        int choix;  // mnuch clicked, -1: none
        int genre;
    };
    for (const Cas& c : {Cas{false, -1, 14}, Cas{true, -1, 15}, Cas{true, 0, 14}, Cas{false, 1, 15}}) {
        Fichier f(0);
        Tinu t(f.cat, c.espace, f.boites);
        if (c.choix >= 0)
            article(t, "mnuch", c.choix)->trigger();
        EXPECT_EQ(t.genreCourbe(), c.genre);
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1")->title().contains(QStringLiteral("f(x,y)")), c.genre == 15);
        const std::array<std::string, 3> textes = {" x^2", "2*[x+1] ", "10"};
        for (int i = 0; i < 3; ++i)
            tape(t, QStringLiteral("Text1_%1").arg(i), QString::fromStdString(textes[i]));
        controle<QPushButton>(t, "Command1")->click();
        EXPECT_EQ(f.octets(), enregistrement(c.genre, texteEntree(c.genre, true, {}, textes).c_str()));
    }
    Fichier f(0);
    Tinu t(f.cat, true, f.boites);
    tape(t, "Text1_1", "X*Y+Z");
    tape(t, "Text1_2", "2X");
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_1")->text().contains(QStringLiteral("(X)*(Y)")));
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_2")->text().contains(QStringLiteral("2*X")));
}

TEST(Lipo, CreerPlacerRelierEtBlanchir)
{
    Fichier f(0);
    for (const LigneCatalogue& l : {LigneCatalogue{1, "x=f1(t)=t"}, LigneCatalogue{9, "Point:[(1,2,3)]"},
                                    LigneCatalogue{9, "Point:[(0,0,1)]"}})
        ASSERT_FALSE(ecrisLigne(f.cat, f.cat.nbLignesCatalogue + 1, l));
    std::vector<NumeroLigne> traces;
    Lipo d(f.cat, [&](NumeroLigne n) { traces.push_back(n); }, f.boites);
    auto* liste = controle<QListWidget>(d, "List1");
    auto* texte = controle<QLineEdit>(d, "Text1");
    auto bouton = [&](const char* nom) { controle<QPushButton>(d, nom)->click(); };
    ASSERT_EQ(liste->count(), 2);
    EXPECT_TRUE(liste->item(1)->text().startsWith(QStringLiteral("0003]Point:[(0,0,1)]")));
    texte->setText(QStringLiteral("(4,5,6)"));
    bouton("Command5");
    EXPECT_EQ(liste->count(), 3);
    EXPECT_EQ(f.cat.nbLignesCatalogue, 4);
    EXPECT_TRUE(d.aEnregistre());
    // Placing draws the selected points; "Je blanchis" clears the selection.
    liste->item(1)->setSelected(true);
    bouton("Command1");
    EXPECT_EQ(traces, (std::vector<NumeroLigne>{2, 3}));
    bouton("Command4");
    liste->item(2)->setSelected(true);
    bouton("Command2");
    EXPECT_EQ(f.messages, QStringList{QStringLiteral("Choisissez deux points à relier (1 choisi).")});
    liste->item(0)->setSelected(true);
    traces.clear();
    bouton("Command2");
    EXPECT_EQ(traces, std::vector<NumeroLigne>{5});  // the segment, stored and drawn
    LigneCatalogue segment;
    ASSERT_FALSE(lisLigne(f.cat, 5, segment));
    EXPECT_EQ(segment.texte.rfind("Segment:[(1,2,3)][(4,5,6)]", 0), 0u);  // list order, not click order
    // A double-click empties the box.
    souris(texte, QEvent::MouseButtonDblClick, {2, 2}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_TRUE(texte->text().isEmpty());
}

void clique(QDialog& d, const char* bouton)
{
    controle<QPushButton>(d, bouton)->click();
}

// Each menu entry opens its editor (the function editor on the type chosen);
// what it stores joins the entry menu "LE GRAPHE de", and the points placed
// are drawn in the window.
TEST(Editeurs, ChaqueMenuOuvreSonEditeur)
{
    struct Cas {
        const char* tableau;
        int index;
        const char* titre;  // the window's title, or the function editor's first prompt
        std::function<void(QDialog&)> remplit;
    };
    auto fonction = [](QDialog& d) { tape(static_cast<Tipara&>(d), {"T", "T", "T"}), clique(d, "Command4"); };
    const Cas cas[] = {
        {"mnutf", 0, invitesFonctions[0][0], fonction},
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
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
    Mirado& m = banc.demarre();
    EXPECT_EQ(article(m, "mnutf", 1)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y));
    EXPECT_EQ(article(m, "mnuzo", 5)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.titre);
        const std::size_t avant = articles(m, "mnufa").size();
        QString vu;
        QTimer::singleShot(0, &m, [&] {
            auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(d, nullptr);
            vu = qobject_cast<Tipara*>(d) ? controle<QLabel>(*d, "Label1_0")->text() : d->windowTitle();
            c.remplit(*d);
            d->reject();
        });
        article(m, c.tableau, c.index)->trigger();
        EXPECT_EQ(vu, QString::fromUtf8(c.titre));
        EXPECT_EQ(articles(m, "mnufa").size(), avant + 1);
    }
    EXPECT_TRUE(articles(m, "mnufa").back()->text().endsWith(QStringLiteral("Point:[(2,2,2)]")));
    EXPECT_EQ(m.etat.courbes.nbCourbes, 1);  // the point placed
    EXPECT_TRUE(banc.messages.isEmpty());
}

}  // namespace
}  // namespace velorin::essai
