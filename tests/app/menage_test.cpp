// The pruning dialog: its buttons reach the compaction with the selected records (never the header),
// the list follows, the hourglass shows meanwhile; its menu entry opens it on the catalogue in force.
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "app/dialogues/menage.h"
#include "fichier_editeur.h"

namespace velorin::essai {
namespace {

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

// "Elaguer fonctions" opens it on the catalogue in force; the entry menu follows the compacted file.
TEST(Menage, OuvertParElaguerFonctions)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 5);
    Mirado& m = banc.demarre();
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

}  // namespace
}  // namespace velorin::essai
