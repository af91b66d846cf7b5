// The function editor: the stored record bytes, append and overwrite,
// load-back by double-click, the plane's two boxes, the checker's remarks,
// and the opening from the menu "CREER FONCTIONS".
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/tipara.h"
#include "fichier_editeur.h"
#include "plot/texte_entree.h"

namespace velorin::essai {
namespace {

void tape(Tipara& t, std::initializer_list<const char*> formules)
{
    int i = 0;
    for (const char* f : formules)
        controle<QLineEdit>(t, QStringLiteral("Text2_%1").arg(i++))->setText(QString::fromUtf8(f));
}

TEST(Tipara, OctetsEnregistresParTypeEtMode)
{
    struct Cas {
        bool espace;
        std::vector<int> types;  // type menu items clicked in turn
        const char* texte;
    };
    // One row per type menu item (its kind byte and prompts), both modes;
    // every kind in every mode is TexteEntree.ParGenreEtParMode's.
    const Cas cas[] = {
        {true, {0}, "y = f(x)=sin(t)][t^2"},
        {false, {1}, "x=f1(t)=sin(t)][y=f2(t)=2*(t+1)"},
        {true, {2}, "x=f1(a,t)=sin(t)][y=f2(a,t)=2*(t+1)][z=f3(a,t)=t^2"},
        {false, {3}, "R=f1(t)=sin(t)][Agh=f2(t)=2*(t+1)"},
        {true, {4}, "R=f1(a,t)=sin(t)][Agh=f2(a,t)=2*(t+1)][Agv=f3(a,t)=t^2"},
        // Kind 0 after kind 2 keeps the old third prompt and stores it in space.
        {true, {2, 0}, "y = f(x)=sin(t)][z=f3(a,t)=t^2"},
    };
    for (const Cas& c : cas) {
        Fichier f(0);
        Tipara t(f.cat, c.espace, -1, {});
        for (int type : c.types)
            t.mnutip_Click(type);
        tape(t, {" sin[t] ", "2*{t+1}", "t^2"});
        controle<QPushButton>(t, "Command4")->click();
        EXPECT_EQ(f.octets(), enregistrement(c.types.back(), c.texte)) << c.texte;
        EXPECT_TRUE(t.aEnregistre());
    }
}

TEST(Tipara, LigneBleueAjouteAutreLigneEcrase)
{
    Fichier f(3);
    Tipara t(f.cat, true, 3, {});
    auto* liste = controle<QListWidget>(t, "List2");
    tape(t, {"5", "t", "0"});
    const char* texte = "R=f1(t)=5][Agh=f2(t)=t][Agv=f3(t)=0";
    struct Cas {
        int ligne, nbApres, ecrite;
    };
    for (const Cas& c : {Cas{2, 3, 2}, Cas{0, 4, 4}, Cas{4, 4, 4}}) {
        liste->setCurrentRow(c.ligne);
        controle<QPushButton>(t, "Command4")->click();
        ASSERT_EQ(f.octets().size(), c.nbApres * 302) << c.ligne;
        EXPECT_EQ(f.octets().mid((c.ecrite - 1) * 302, 302), enregistrement(3, texte)) << c.ligne;
        EXPECT_EQ(liste->count(), c.nbApres + 1);
        EXPECT_EQ(liste->currentRow(), 0);
    }
    // Record 1 was never touched.
    EXPECT_TRUE(liste->item(1)->text().startsWith(QStringLiteral("0001]x=f1(t)=(2)*COS(T)")));
}

TEST(Tipara, RelectureParDoubleClic)
{
    Fichier f(0);
    LigneCatalogue deux{1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)"};
    LigneCatalogue trois{2, "x=f1(a,t)=a][y=f2(a,t)=t][z=f3(a,t)=sin(a)"};
    ASSERT_FALSE(ecrisLigne(f.cat, 1, deux));
    ASSERT_FALSE(ecrisLigne(f.cat, 2, trois));
    struct Cas {
        int type, ligne;
        std::array<const char*, 3> attendu;
    };
    for (const Cas& c : std::initializer_list<Cas>{
             {2, 2, {"a", "t", "sin(a)"}},
             {1, 2, {"", "", ""}},  // another type
             {1, 1, {"", "", ""}},  // two formulas only
             {2, 0, {"", "", ""}},  // the header line
         }) {
        Tipara t(f.cat, true, c.type, {});
        tape(t, {"vieux", "vieux", "vieux"});
        auto* liste = controle<QListWidget>(t, "List2");
        emit liste->itemDoubleClicked(liste->item(c.ligne));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(controle<QLineEdit>(t, QStringLiteral("Text2_%1").arg(i))->text(),
                      QString::fromUtf8(c.attendu[i]))
                << c.type << " " << c.ligne << " " << i;
    }
}

TEST(Tipara, PlanSansTroisiemeBoiteEtRemarques)
{
    Fichier f(0);
    for (bool espace : {true, false}) {
        Tipara t(f.cat, espace, -1, {});
        EXPECT_EQ(t.windowTitle(), QStringLiteral("Choix des fonctions paramétrées"));
        EXPECT_TRUE(controle<QGroupBox>(t, "Frame5")->isHidden());
        t.mnutip_Click(1);
        EXPECT_FALSE(controle<QGroupBox>(t, "Frame5")->isHidden());
        EXPECT_EQ(controle<QLineEdit>(t, "Text2_2")->isHidden(), !espace);
        EXPECT_EQ(controle<QLabel>(t, "Label1_2")->isHidden(), !espace);
        tape(t, {"SIN(T)+1", "2*T", "2T"});
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_0")->text().contains(QStringLiteral("SIN(T)+(1)")));
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_1")->text().isEmpty());
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_2")->text().contains(QStringLiteral("2*T")));
        // Surfaces read (a, t) as two variables: "A*T" is one term of two.
        t.mnutip_Click(2);
        tape(t, {"A*T"});
        EXPECT_TRUE(controle<QLabel>(t, "Remarque_0")->text().contains(QStringLiteral("(A)*(T)")));
    }
}

// "CREER FONCTIONS" opens the editor on the chosen type; storing rebuilds
// the entry menu "LE GRAPHE de".
TEST(Tipara, OuvertParLeMenuEtMenuDesEntreesRefait)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    Mirado& m = banc.demarre();
    EXPECT_EQ(article(m, "mnutf", 1)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y));
    for (int type : {0, 1, 4}) {
        const std::size_t avant = articles(m, "mnufa").size();
        QString invite;
        QTimer::singleShot(0, &m, [&] {
            auto* t = qobject_cast<Tipara*>(QApplication::activeModalWidget());
            ASSERT_NE(t, nullptr);
            invite = controle<QLabel>(*t, "Label1_0")->text();
            tape(*t, {"T", "T", "T"});
            controle<QPushButton>(*t, "Command4")->click();
            controle<QPushButton>(*t, "Command1")->click();
        });
        article(m, "mnutf", type)->trigger();
        EXPECT_EQ(invite, QString::fromUtf8(invitesFonctions[type][0]));
        EXPECT_EQ(articles(m, "mnufa").size(), avant + 1) << type;
    }
}

// The preview draws the typed entry with the values in force, through the
// window's drawing code, without touching the state in force.
TEST(Tipara, ApercuDeLEntreeTapee)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
    Mirado& m = banc.demarre();
    const int nbCourbes = m.etat.courbes.nbCourbes;
    auto apercu = [&](std::initializer_list<const char*> formules) {
        Tipara t(m.etat.catalogue, true, 1, {}, &m.etat, &m);
        tape(t, formules);
        return t.apercu(QSize(240, 180));
    };
    auto differences = [](const QImage& a, const QImage& b) {
        int n = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                n += a.pixel(x, y) != b.pixel(x, y);
        return n;
    };
    // Every point out of the ranges: the frame alone.
    const QImage repere = apercu({"1/0", "1/0", "1/0"});
    const QImage grand = apercu({"6*COS(T)", "6*SIN(T)", "0"}), petit = apercu({"1*COS(T)", "1*SIN(T)", "0"});
    EXPECT_GT(differences(grand, repere), 100);
    EXPECT_GT(differences(grand, repere), differences(petit, repere));
    EXPECT_EQ(apercu({"6*COS(T)", "6*SIN(T)", "0"}), grand);
    // The state in force is untouched.
    EXPECT_EQ(m.etat.courbes.nbCourbes, nbCourbes);
    EXPECT_EQ(m.etat.catalogue.nbLignesCatalogue, 1);
}

}  // namespace
}  // namespace velorin::essai
