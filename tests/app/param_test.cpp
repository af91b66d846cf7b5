// The parameter dialog: keys and clicks in its fields, what shows by mode,
// the file each of its two buttons writes through the settings module, and
// the window reading it back. The fields' reading and the file's format are
// the settings module's.
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "app/dialogues/param.h"
#include "banc_fenetre.h"
#include "souris_essai.h"
#include "settings/memoire.h"
#include "settings/reglage.h"

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
    QString fichier(const char* nom) const { return dossier.filePath(QString::fromUtf8(nom)); }
};

// Enter moves to the next field and presses no button; a double click
// empties a field and says so at once.
TEST(Param, EntreeAvanceEtDoubleClicVide)
{
    BancParam b;
    auto d = b.ouvre(true);
    for (int i = 0; i < nbChampsReglage; ++i) {
        champ(*d, i)->setFocus();
        QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(champ(*d, i), &entree);
        EXPECT_EQ(d->focusWidget(), champ(*d, i < 9 ? i + 1 : i)) << i;
    }
    EXPECT_TRUE(d->isVisible());
    EXPECT_FALSE(QFile::exists(b.fichier("memprovi.log")));
    souris(champ(*d, 9), QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_TRUE(champ(*d, 9)->text().isEmpty());
    EXPECT_EQ(champ(*d, 9)->property("remarque").toInt(), 1);
}

TEST(Param, CeQuiSeVoitSelonLeMode)
{
    const QStringList espaceSeul = {"Text1_4",  "Text1_5",   "Text1_14",  "Text1_21", "Label1_9",
                                    "Label1_16", "Check1_2", "Check1_4", "Check1_7"};
    const QStringList partout = {"Text1_0", "Text1_13", "Text1_22", "Label1_8", "Label1_17", "Check1_1", "Check2"};
    BancParam b;
    for (bool espace : {true, false}) {
        auto d = b.ouvre(espace);
        EXPECT_TRUE(d->windowFlags() & Qt::WindowStaysOnTopHint);
        for (const QString& nom : espaceSeul + partout)
            EXPECT_EQ(controle(*d, nom)->isVisible(), espace || partout.contains(nom)) << nom.toStdString() << espace;
        EXPECT_EQ(controle(*d, "Check1_0")->isVisible(), !espace);
    }
}

// Command1 writes "memprovi.log", Command2 "mem.log", with the values the
// settings module reads from the fields, the flags and the options.
TEST(Param, AppliquerEcritLeFichierDuBouton)
{
    struct Cas {
        bool espace;
        const char *bouton, *ecrit, *intact;
        int option1, lecture;
        bool vidage;
    };
    for (const Cas& c : {Cas{true, "Command1", "memprovi.log", "mem.log", 0, 1, false},
                         Cas{false, "Command2", "mem.log", "memprovi.log", 1, 0, true}}) {
        SCOPED_TRACE(c.bouton);
        BancParam b;
        TextesReglage textes = textesReglage(b.p);
        textes[0] = "-2P", textes[6] = "P/2", textes[23] = "1.5E2";
        Parametres attendu;
        ASSERT_FALSE(lisReglage(textes, attendu));
        attendu.traceContinu = 0, attendu.avecMoirure = true, attendu.ordreBoucles = 1;
        auto d = b.ouvre(c.espace);
        for (int i : {0, 6, 23})
            champ(*d, i)->setText(QString::fromStdString(textes[i]));
        controle<QCheckBox>(*d, "Check1_1")->setChecked(false);
        controle<QRadioButton>(*d, "Option2_1")->setChecked(true);
        controle<QCheckBox>(*d, "Check2")->setChecked(true);
        controle<QRadioButton>(*d, QStringLiteral("Option1_%1").arg(c.option1))->setChecked(true);
        controle<QPushButton>(*d, c.bouton)->click();
        EXPECT_TRUE(b.messages.isEmpty()) << b.messages.join(u'|').toStdString();
        EXPECT_EQ(d->result(), QDialog::Accepted);
        EXPECT_EQ(contenu(b.fichier(c.ecrit)).toStdString(), texteMemoire(attendu));
        EXPECT_FALSE(QFile::exists(b.fichier(c.intact)));
        EXPECT_EQ(d->lecture(), c.lecture);
        EXPECT_EQ(d->vidage(), c.vidage);
        EXPECT_EQ(b.p.ordreBoucles, 1);  // in force, though the file reader never reads it
    }
}

// A refused field: the reader's message and the dialog stays; brackets the
// evaluator cannot read: its message, then the program ends. Nothing is
// written or applied.
TEST(Param, ChampRefuseRienEcrit)
{
    struct Cas {
        int champ;
        const char *texte, *bouton, *message;
        int fins;
    };
    for (const Cas& c : {Cas{23, "40000", "Command1", "Pause en millisecondes", 0},
                         Cas{23, "40000", "Command2", "Pause en millisecondes", 0},
                         Cas{1, "(2", "Command1", "Formule incorrecte,désolé", 1}}) {
        BancParam b;
        const std::string avant = texteMemoire(b.p);
        auto d = b.ouvre(true);
        champ(*d, c.champ)->setText(QString::fromUtf8(c.texte));
        EXPECT_EQ(champ(*d, c.champ)->property("remarque").toInt(), 2);  // red before applying
        controle<QPushButton>(*d, c.bouton)->click();
        ASSERT_EQ(b.messages.size(), 1) << c.texte;
        EXPECT_TRUE(b.messages[0].contains(QString::fromUtf8(c.message))) << b.messages[0].toStdString();
        EXPECT_EQ(b.fins, c.fins);
        EXPECT_NE(d->result(), QDialog::Accepted);
        EXPECT_FALSE(QFile::exists(b.fichier("memprovi.log")) || QFile::exists(b.fichier("mem.log")));
        EXPECT_EQ(texteMemoire(b.p), avant);
    }
}

// From PARAMETRER "le repère": the values in force are those read back from
// the file just written (xmin to 15 digits); Option1(1) forgets the drawn
// curves, Option1(0) keeps them.
TEST(Param, LaFenetreRelitLeFichierEcrit)
{
    for (int option : {0, 1}) {
        SCOPED_TRACE(option);
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
        Mirado& m = banc.demarre();
        article(m, "mnufa", 2)->trigger();
        bool vu = false;
        QTimer::singleShot(0, [&] {
            auto* d = qobject_cast<Param*>(QApplication::activeModalWidget());
            if (!(vu = d != nullptr))
                return;
            champ(*d, 0)->setText(QStringLiteral("-P/3"));
            controle<QRadioButton>(*d, QStringLiteral("Option1_%1").arg(option))->setChecked(true);
            controle<QPushButton>(*d, "Command1")->click();
        });
        article(m, "mnupara", 0)->trigger();
        ASSERT_TRUE(vu);
        EXPECT_EQ(m.etat.param.xmin, -1.04719733333333);  // not -3.141592 / 3: through the file
        EXPECT_EQ(m.etat.courbes.nbCourbes, option == 0 ? 1 : 0);
    }
}

}  // namespace
}  // namespace velorin::essai
