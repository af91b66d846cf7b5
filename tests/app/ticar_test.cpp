// The object editor and the cloud editor: captions by mode, the stored
// record bytes of each object and cloud, the list's append and overwrite,
// Enter in the equation box, the checker's remarks under the cloud's boxes,
// and their opening from "CREER FONCTIONS".
#include <QAction>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/ticar.h"
#include "app/dialogues/tinu.h"
#include "fichier_editeur.h"

namespace velorin::essai {
namespace {

void tape(const QObject& dialogue, const QString& boite, const char* texte)
{
    controle<QLineEdit>(dialogue, boite)->setText(QString::fromUtf8(texte));
}

void entree(QLineEdit* boite)
{
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(boite, &appui);
}

TEST(Ticar, LegendesParMode)
{
    struct Cas {
        bool espace;
        std::array<const char*, 5> cadres;
        const char *equation, *point;
        int articlesVisibles;
    };
    const Cas cas[] = {
        {true,
         {"M(x ,y,z)------------------V(a,b,c)", "Plan M(x,y,z) ----u(a,b,c)   et v(e,f,g)", "Plan: ax+by+cz+d = 0",
          "M1(x,y,z)----M2(x,y,z)", "M(x,y,z)"},
         "Plan: ax+by+cz+d = 0",
         "Point M(x,y,z)",
         5},
        {false,
         {"M(x ,y)------------------V(a,b)", "Plan M(x,y,z) ----u(a,b,c)   et v(e,f,g)", "Droite: ax+ by + c = 0",
          "M1(x,y)----M2(x,y)", "M(x,y)"},
         "Droite: ax+ by + c = 0",
         "Point M(x,y)",
         4},
    };
    Fichier f(0);
    for (const Cas& c : cas) {
        Ticar t(f.cat, c.espace, f.boites);
        for (int i = 0; i < 5; ++i) {
            auto* cadre = controle<QGroupBox>(t, QStringLiteral("Frame1_%1").arg(i));
            EXPECT_EQ(cadre->title(), QString::fromUtf8(c.cadres[i])) << c.espace << " " << i;
            EXPECT_TRUE(cadre->isHidden());
        }
        EXPECT_EQ(article(t, "mnuf", 0)->text(), QStringLiteral("Droite D(M,u)"));
        EXPECT_EQ(article(t, "mnuf", 2)->text(), QString::fromUtf8(c.equation));
        EXPECT_EQ(article(t, "mnuf", 3)->text(), QStringLiteral("Segment [ MN ]"));
        EXPECT_EQ(article(t, "mnuf", 4)->text(), QString::fromUtf8(c.point));
        int visibles = 0;
        for (QAction* a : articles(t, "mnuf"))
            visibles += a->isVisible();
        EXPECT_EQ(visibles, c.articlesVisibles);
        EXPECT_EQ(controle<QGroupBox>(t, "Frame6")->title(),
                  QStringLiteral("BLEUIR LA BONNE LIGNE AVANT DE CLIQUER SUR ***J'ENREGISTRE***"));
    }
}

TEST(Ticar, OctetsEnregistresParObjetEtMode)
{
    struct Cas {
        bool espace;
        int article;
        std::vector<std::pair<const char*, const char*>> boites;
        const char* texte;
    };
    const Cas cas[] = {
        {true, 0, {{"Text1_0", "[1,2,3]"}, {"Text1_1", " {1,0,0} "}}, "D(M,u):[(1,2,3)][(1,0,0)]"},
        {true,
         1,
         {{"Text2_0", "(0,0,0)"}, {"Text2_1", "[1,0,0]"}, {"Text2_2", "(0,1,0)"}},
         "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]"},
        {true, 2, {{"Text3_0", "2x+y-z+1=0"}, {"Text3_1", "non lu"}}, "Plan:[2x+y-z+1=0]"},
        {false, 2, {{"Text3_0", " x+y-1=0 "}}, "Droite:[x+y-1=0]"},
        {true,
         3,
         {{"Text4_0", "(0,0,0)"}, {"Text4_1", "(1,{1},1)"}, {"Text4_2", "(9,9,9)"}},
         "Segment:[(0,0,0)][(1,(1),1)]"},
        {false, 4, {{"Text4_0", "(5,5)"}, {"Text4_2", "[1,2]"}}, "Point:[(1,2)]"},
    };
    for (const Cas& c : cas) {
        Fichier f(0);
        Ticar t(f.cat, c.espace, f.boites);
        article(t, "mnuf", c.article)->trigger();
        EXPECT_EQ(t.genreCourbe(), c.article + 5);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(controle<QGroupBox>(t, QStringLiteral("Frame1_%1").arg(i))->isHidden(), i != c.article);
        for (const auto& [boite, texte] : c.boites)
            tape(t, QString::fromUtf8(boite), texte);
        controle<QPushButton>(t, "Command1")->click();
        EXPECT_EQ(f.octets(), enregistrement(c.article + 5, c.texte)) << c.texte;
        EXPECT_TRUE(t.aEnregistre());
        EXPECT_TRUE(f.messages.isEmpty());
    }
}

TEST(Ticar, LigneBleueAjouteAutreLigneEcraseSansChoixRien)
{
    Fichier f(3);
    Ticar t(f.cat, true, f.boites);
    auto* liste = controle<QListWidget>(t, "List2");
    EXPECT_EQ(liste->count(), 4);
    // Nothing chosen yet: a message, nothing written.
    controle<QPushButton>(t, "Command1")->click();
    EXPECT_EQ(f.messages.size(), 1);
    EXPECT_EQ(f.octets().size(), 3 * 302);
    EXPECT_FALSE(t.aEnregistre());
    t.mnuf_Click(4);
    tape(t, "Text4_2", "(1,2,3)");
    struct Cas {
        int ligne, nbApres, ecrite;
    };
    for (const Cas& c : {Cas{2, 3, 2}, Cas{0, 4, 4}, Cas{4, 4, 4}}) {
        liste->setCurrentRow(c.ligne);
        controle<QPushButton>(t, "Command1")->click();
        ASSERT_EQ(f.octets().size(), c.nbApres * 302) << c.ligne;
        EXPECT_EQ(f.octets().mid((c.ecrite - 1) * 302, 302), enregistrement(9, "Point:[(1,2,3)]")) << c.ligne;
        EXPECT_EQ(liste->count(), c.nbApres + 1);
        EXPECT_EQ(liste->currentRow(), 0);
    }
    EXPECT_TRUE(liste->item(1)->text().startsWith(QStringLiteral("0001]x=f1(t)=")));
}

// Enter in a box of the equation array goes to the next shown box and
// stores from the last; with the two extra boxes hidden (as they open),
// Enter in the equation stores at once.
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
        entree(controle<QLineEdit>(t, QStringLiteral("Text3_%1").arg(c.boite)));
        EXPECT_EQ(t.aEnregistre(), c.enregistre) << c.autresMontrees << " " << c.boite;
        EXPECT_EQ(f.octets(), c.enregistre ? enregistrement(7, "Droite:[x-y=0]") : QByteArray());
    }
}

TEST(Tinu, TypeALOuvertureLegendesEtOctets)
{
    const QString legende14 = QStringLiteral("                  g(x)     <       f(x)        <         h(x)");
    const QString legende15 = QStringLiteral("                 g(x,y)    <       f(x,y)      <       h(x,y)");
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
        EXPECT_EQ(controle<QGroupBox>(t, "Frame1")->title(), c.genre == 14 ? legende14 : legende15);
        tape(t, "Text1_0", " x^2");
        tape(t, "Text1_1", "2*x+1 ");
        tape(t, "Text1_2", "10");
        controle<QPushButton>(t, "Command1")->click();
        EXPECT_EQ(f.octets(), enregistrement(c.genre, "x^2<2*x+1<10"));
    }
    // Brackets unified, and the list's overwrite.
    Fichier f(2);
    Tinu t(f.cat, true, f.boites);
    tape(t, "Text1_0", "-[x+y]");
    tape(t, "Text1_1", "sin{x*y}");
    tape(t, "Text1_2", "(x+y)");
    controle<QListWidget>(t, "List2")->setCurrentRow(1);
    controle<QPushButton>(t, "Command1")->click();
    ASSERT_EQ(f.octets().size(), 2 * 302);
    EXPECT_EQ(f.octets().left(302), enregistrement(15, "-(x+y)<sin(x*y)<(x+y)"));
}

TEST(Tinu, RemarquesSousLesTroisCases)
{
    Fichier f(0);
    Tinu t(f.cat, true, f.boites);
    tape(t, "Text1_0", "SIN(X)+1");
    tape(t, "Text1_1", "X*Y+Z");
    tape(t, "Text1_2", "2X");
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_0")->text().contains(QStringLiteral("SIN(X)+(1)")));
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_1")->text().contains(QStringLiteral("(X)*(Y)")));
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_2")->text().contains(QStringLiteral("2*X")));
    tape(t, "Text1_2", "2*X");
    EXPECT_TRUE(controle<QLabel>(t, "Remarque_2")->text().isEmpty());
}

// Entries 5 and 6 of "CREER FONCTIONS" open the cloud and the object
// editors; storing rebuilds the entry menu "LE GRAPHE de".
TEST(Ticar, OuvertsParLeMenu)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
    Mirado& m = banc.demarre();
    for (int entree : {5, 6}) {
        const std::size_t avant = articles(m, "mnufa").size();
        QString titre;
        QTimer::singleShot(0, &m, [&] {
            QWidget* d = QApplication::activeModalWidget();
            ASSERT_NE(d, nullptr);
            titre = d->windowTitle();
            if (auto* t = qobject_cast<Ticar*>(d)) {
                t->mnuf_Click(4);
                tape(*t, "Text4_2", "(1,1,1)");
            } else {
                for (int i = 0; i < 3; ++i)
                    tape(*d, QStringLiteral("Text1_%1").arg(i), "X");
            }
            controle<QPushButton>(*d, "Command1")->click();
            static_cast<QDialog*>(d)->reject();
        });
        ASSERT_TRUE(article(m, "mnutf", entree)->isEnabled());
        article(m, "mnutf", entree)->trigger();
        EXPECT_EQ(titre, entree == 5 ? QStringLiteral("Nuages ") : QStringLiteral("Choisissez votre fonction"));
        EXPECT_EQ(articles(m, "mnufa").size(), avant + 1) << entree;
    }
    EXPECT_TRUE(articles(m, "mnufa").back()->text().startsWith(QStringLiteral("004)Point:[(1,1,1)]")));
}

}  // namespace
}  // namespace velorin::essai
