// The parameter dialog: keys and clicks in its fields, what shows by mode,
// the files its two buttons write, and the window reading them back.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "app/dialogues/param.h"
#include "banc_fenetre.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

QLineEdit* champ(const QWidget& d, int i)
{
    return controle<QLineEdit>(d, QStringLiteral("Text1_%1").arg(i));
}

QByteArray contenu(const QString& chemin)
{
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(absent)");
}

struct BancParam {
    QTemporaryDir dossier;
    QStringList messages;
    Boites boites;
    BancParam()
    {
        boites.message = [this](QWidget*, const QString& t) { messages << t; };
    }
    std::string dossierCourbes() const { return dossier.path().toStdString() + "/"; }
    QString fichier(const char* nom) const { return dossier.filePath(QString::fromUtf8(nom)); }
};

TEST(Param, EntreeNeFaitAvancerQueDansLesBornes)
{
    BancParam b;
    Parametres p;
    Param d(p, b.dossierCourbes(), true, b.boites);
    d.show();
    for (int i = 0; i < nbChampsReglage; ++i) {
        champ(d, i)->setFocus();
        QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(champ(d, i), &entree);
        EXPECT_EQ(d.focusWidget(), champ(d, i < 9 ? i + 1 : i)) << i;
    }
    EXPECT_TRUE(d.isVisible());  // Enter pressed no button
    EXPECT_FALSE(QFile::exists(b.fichier("memprovi.log")));
}

TEST(Param, DoubleClicVideLeChamp)
{
    BancParam b;
    Parametres p;
    Param d(p, b.dossierCourbes(), true, b.boites);
    for (int i : {0, 9, 17, 23}) {
        QLineEdit* c = champ(d, i);
        ASSERT_FALSE(c->text().isEmpty());
        const QPointF centre(c->width() / 2.0, c->height() / 2.0);
        QMouseEvent clic(QEvent::MouseButtonDblClick, centre, c->mapToGlobal(centre), Qt::LeftButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(c, &clic);
        EXPECT_TRUE(c->text().isEmpty()) << i;
        EXPECT_EQ(c->property("remarque").toInt(), 1) << i;  // "Champ vide" is said at once
    }
}

TEST(Param, CeQuiSeVoitSelonLeMode)
{
    BancParam b;
    Parametres p;
    struct Cas {
        const char* nom;
        bool espace, plan;  // visible in space, in the plane
    };
    const Cas cas[] = {
        {"Text1_0", true, true},    {"Text1_3", true, true},   {"Text1_4", true, false},  {"Text1_5", true, false},
        {"Label1_2", true, true},   {"Text1_13", true, true},  {"Text1_14", true, false}, {"Text1_21", true, false},
        {"Text1_22", true, true},   {"Text1_23", true, true},  {"Label1_8", true, true},  {"Label1_9", true, false},
        {"Label1_16", true, false}, {"Label1_17", true, true}, {"Check1_0", false, true}, {"Check1_1", true, true},
        {"Check1_2", true, false},  {"Check1_4", true, false}, {"Check1_5", true, true},  {"Check1_7", true, false},
        {"Check1_11", true, true},  {"Option2_3", true, true}, {"Check2", true, true},    {"Option1_1", true, true},
    };
    for (bool espace : {true, false}) {
        Param d(p, b.dossierCourbes(), espace, b.boites);
        EXPECT_EQ(d.objectName(), QStringLiteral("param"));
        EXPECT_TRUE(d.windowFlags() & Qt::WindowStaysOnTopHint);
        for (const Cas& c : cas)
            EXPECT_EQ(controle(d, QString::fromUtf8(c.nom))->isVisibleTo(&d), espace ? c.espace : c.plan)
                << c.nom << (espace ? " espace" : " plan");
        EXPECT_EQ(controle(d, "Check1_0")->isEnabled(), !espace);
    }
}

// Typed expressions, flags and options, and the exact bytes of the file
// each button writes; the other file stays untouched.
TEST(Param, AppliquerEcritLeFichierAttendu)
{
    struct Cas {
        bool espace;
        const char* bouton;
        int option1;
        const char* ecrit;
        const char* intact;
        int lecture;
        bool vidage;
        std::vector<std::pair<int, const char*>> saisies;
        const char* attendu;
    };
    const Cas cas[] = {
        {true,
         "Command1",
         0,
         "memprovi.log",
         "mem.log",
         1,
         false,
         {{0, "-2P"}, {1, "2*P"}, {6, "P/2"}, {10, "1/4"}, {17, "P/3"}, {22, ""}, {23, "1.5E2"}},
         "-6.283184,6.283184,-10,10,-10,10\r\n"
         "1.570796,6.28,0.25,0,6.28,0.1\r\n"
         "200,40,20,30,20,1.047197\r\n"
         "5,-30,-20,-15,0,0,0,0\r\n"
         "0,0,0,0,0,0,1,0,0\r\n"
         "150,3,#TRUE#\r\n"},
        // In the plane the hidden fields are written with their values.
        {false,
         "Command2",
         1,
         "mem.log",
         "memprovi.log",
         0,
         true,
         {{2, "-1P"}, {3, "  7 "}, {12, "1E3"}, {18, "0.1"}},
         "-10,10,-3.141592,7,-10,10\r\n"
         "0,6.28,0.05,0,6.28,0.1\r\n"
         "1000,40,20,30,20,15\r\n"
         "0.1,-30,-20,-15,0,0,0,0\r\n"
         "0,0,0,0,0,0,1,0,0\r\n"
         "0,3,#TRUE#\r\n"},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.bouton);
        BancParam b;
        Parametres p;
        Param d(p, b.dossierCourbes(), c.espace, b.boites);
        for (const auto& [i, texte] : c.saisies)
            champ(d, i)->setText(QString::fromUtf8(texte));
        controle<QCheckBox>(d, "Check1_1")->setChecked(false);
        controle<QRadioButton>(d, "Option2_3")->setChecked(true);
        controle<QCheckBox>(d, "Check2")->setChecked(true);
        controle<QRadioButton>(d, QStringLiteral("Option1_%1").arg(c.option1))->setChecked(true);
        controle<QPushButton>(d, c.bouton)->click();
        EXPECT_TRUE(b.messages.isEmpty()) << b.messages.join(u'|').toStdString();
        EXPECT_EQ(d.result(), QDialog::Accepted);
        EXPECT_EQ(contenu(b.fichier(c.ecrit)), QByteArray(c.attendu));
        EXPECT_FALSE(QFile::exists(b.fichier(c.intact)));
        EXPECT_EQ(d.lecture(), c.lecture);
        EXPECT_EQ(d.vidage(), c.vidage);
        EXPECT_EQ(p.ordreBoucles, 3);  // kept in force: the file reader never reads it
        EXPECT_TRUE(p.avecMoirure);
    }
}

// A value its member cannot hold (each field's message is the reader's,
// tested with it): the dialog stays, nothing is written or applied.
TEST(Param, ValeurQueLeTypeNePeutPasTenir)
{
    BancParam b;
    Parametres p;
    const std::string avant = texteMemoire(p);
    Param d(p, b.dossierCourbes(), true, b.boites);
    d.show();
    champ(d, 0)->setText(QStringLiteral("-5"));
    champ(d, 23)->setText(QStringLiteral("40000"));
    EXPECT_EQ(champ(d, 23)->property("remarque").toInt(), 2);  // red border before applying
    for (const char* bouton : {"Command1", "Command2"}) {
        controle<QPushButton>(d, bouton)->click();
        EXPECT_TRUE(d.isVisible());
        EXPECT_NE(d.result(), QDialog::Accepted);
    }
    ASSERT_EQ(b.messages.size(), 2);
    EXPECT_TRUE(b.messages[0].contains(QStringLiteral("Pause en millisecondes"))) << b.messages[0].toStdString();
    EXPECT_FALSE(QFile::exists(b.fichier("mem.log")));
    EXPECT_FALSE(QFile::exists(b.fichier("memprovi.log")));
    EXPECT_EQ(texteMemoire(p), avant);
}

// Brackets the evaluator cannot read: its own message, then the program
// ends, as for the formula of a curve; nothing is written.
TEST(Param, ParenthesesIllisiblesArretentLeProgramme)
{
    for (const char* texte : {"(2", "2)"}) {
        SCOPED_TRACE(texte);
        BancParam b;
        int fins = 0;
        b.boites.fin = [&fins] { ++fins; };
        Parametres p;
        const std::string avant = texteMemoire(p);
        Param d(p, b.dossierCourbes(), true, b.boites);
        d.show();
        champ(d, 1)->setText(QString::fromUtf8(texte));
        EXPECT_EQ(champ(d, 1)->property("remarque").toInt(), 2);  // warned in red before applying
        controle<QPushButton>(d, "Command1")->click();
        EXPECT_EQ(b.messages, QStringList{QString::fromUtf8("Formule incorrecte,désolé")});
        EXPECT_EQ(fins, 1);
        EXPECT_FALSE(QFile::exists(b.fichier("memprovi.log")));
        EXPECT_EQ(texteMemoire(p), avant);
    }
}

// From the menu: the values in force are those read back from the file
// just written (xmin to 15 digits); Option1(1) forgets the drawn curves,
// Option1(0) keeps them.
TEST(Param, LaFenetreRelitLeFichierEcrit)
{
    for (int option : {0, 1}) {
        SCOPED_TRACE(option);
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
        Mirado& m = banc.demarre();
        article(m, "mnufa", 2)->trigger();
        ASSERT_EQ(m.etat.courbes.nbCourbes, 1);
        QAction* menu = article(m, "mnupara", 0);
        ASSERT_TRUE(menu->isEnabled());
        EXPECT_EQ(menu->text(), QStringLiteral("le repère"));
        const QByteArray memAvant = contenu(banc.chemin(QStringLiteral("Espace_courbes/mem.log")));
        bool vu = false;
        QTimer::singleShot(0, [&] {
            auto* d = qobject_cast<Param*>(QApplication::activeModalWidget());
            vu = d != nullptr;
            if (!d)
                return;
            champ(*d, 0)->setText(QStringLiteral("-P/3"));
            champ(*d, 23)->setText(QStringLiteral("20"));
            controle<QRadioButton>(*d, QStringLiteral("Option1_%1").arg(option))->setChecked(true);
            controle<QPushButton>(*d, "Command1")->click();
        });
        menu->trigger();
        ASSERT_TRUE(vu);
        EXPECT_EQ(m.etat.param.xmin, -1.04719733333333);  // not -3.141592 / 3: through the file
        EXPECT_EQ(m.etat.param.pauseMs, 20);
        EXPECT_EQ(m.etat.courbes.nbCourbes, option == 0 ? 1 : 0);
        EXPECT_EQ(contenu(banc.chemin(QStringLiteral("Espace_courbes/mem.log"))), memAvant);
        EXPECT_TRUE(
            contenu(banc.chemin(QStringLiteral("Espace_courbes/memprovi.log"))).startsWith("-1.04719733333333,"));
        EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join(u'|').toStdString();
    }
}

}  // namespace
}  // namespace velorin::essai
