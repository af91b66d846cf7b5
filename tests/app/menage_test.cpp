// The pruning dialog: deleting the selected entries, compacting, the
// hourglass meanwhile, and its menu entry.
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include <filesystem>

#include "app/dialogues/menage.h"
#include "fichier_editeur.h"

namespace velorin::essai {
namespace {

namespace fs = std::filesystem;

// Records the pointer shapes a widget takes, in turn.
class Pointeurs : public QObject {
public:
    explicit Pointeurs(QWidget* w) : widget_(w) { w->installEventFilter(this); }
    std::vector<Qt::CursorShape> formes;

protected:
    bool eventFilter(QObject* objet, QEvent* e) override
    {
        if (objet == widget_ && e->type() == QEvent::CursorChange)
            formes.push_back(widget_->cursor().shape());
        return false;
    }

private:
    QWidget* widget_;
};

// The texts of the list lines after the header, without the padding.
std::vector<std::string> lignes(const QListWidget* liste)
{
    std::vector<std::string> textes;
    for (int i = 1; i < liste->count(); ++i)
        textes.push_back(liste->item(i)->text().left(liste->item(i)->text().indexOf(QLatin1Char(' '))).toStdString());
    return textes;
}

// The bench's catalogue holding `entrees`.
struct Menagerie : Fichier {
    explicit Menagerie(const std::vector<LigneCatalogue>& entrees) : Fichier(0)
    {
        for (const LigneCatalogue& l : entrees)
            EXPECT_FALSE(ecrisLigne(cat, cat.nbLignesCatalogue + 1, l));
    }
};

const std::vector<LigneCatalogue> cinq = {
    {1, "x=f1(t)=t"}, {2, "x=f1(a,t)=a"}, {9, "Point:[(1,2,3)]"}, {0, "y=f(x)=x^2"}, {5, "D(M,u):[(0,0,0)][(1,0,0)]"}};

TEST(Menage, EliminerOuReduireEtLaListeSuit)
{
    struct Cas {
        const char* nom;
        std::vector<int> selection;  // rows of List2
        const char* bouton;          // "Command1" J'ELIMINE, "Command3" JE REDUIS LE FICHIER
        std::vector<std::string> attendu;
    };
    const Cas cas[] = {
        {"records 2 and 4 of five",
         {2, 4},
         "Command1",
         {"0001]x=f1(t)=t", "0002]Point:[(1,2,3)]", "0003]D(M,u):[(0,0,0)][(1,0,0)]"}},
        {"header only",
         {0},
         "Command1",
         {"0001]x=f1(t)=t", "0002]x=f1(a,t)=a", "0003]Point:[(1,2,3)]", "0004]D(M,u):[(0,0,0)][(1,0,0)]"}},
        {"compaction only, the selection is not deleted",
         {1, 2},
         "Command3",
         {"0001]x=f1(t)=t", "0002]x=f1(a,t)=a", "0003]Point:[(1,2,3)]", "0004]D(M,u):[(0,0,0)][(1,0,0)]"}},
    };
    for (const Cas& c : cas) {
        Menagerie m(cinq);
        Menage dialogue(m.cat, m.boites);
        EXPECT_EQ(dialogue.windowTitle(), QStringLiteral("Suppression des courbes indésirables"));
        auto* liste = controle<QListWidget>(dialogue, "List2");
        ASSERT_EQ(liste->count(), 6);
        EXPECT_EQ(liste->item(0)->foreground().color(), QColor(Qt::blue));
        for (int r : c.selection)
            liste->item(r)->setSelected(true);
        Pointeurs pointeurs(&dialogue);
        controle<QPushButton>(dialogue, c.bouton)->click();
        EXPECT_EQ(lignes(liste), c.attendu) << c.nom;
        EXPECT_EQ(m.cat.nbLignesCatalogue, NumeroLigne(c.attendu.size())) << c.nom;
        EXPECT_TRUE(dialogue.aReduit()) << c.nom;
        EXPECT_EQ(pointeurs.formes, (std::vector<Qt::CursorShape>{Qt::WaitCursor, Qt::ArrowCursor})) << c.nom;
        EXPECT_TRUE(m.messages.isEmpty()) << c.nom;
    }
}

// A compaction that cannot be done says why, changes nothing and gives the
// pointer back.
TEST(Menage, EchecDitEtRienNeChange)
{
    Menagerie m(cinq);
    fs::create_directory(fs::path(m.cat.chemin).parent_path() / "LIBI.lcs");
    const auto taille = fs::file_size(m.cat.chemin);
    Menage dialogue(m.cat, m.boites);
    auto* liste = controle<QListWidget>(dialogue, "List2");
    liste->item(1)->setSelected(true);
    controle<QPushButton>(dialogue, "Command1")->click();
    ASSERT_EQ(m.messages.size(), 1);
    EXPECT_TRUE(m.messages[0].contains(QStringLiteral("LIBI.lcs » est un dossier"))) << m.messages[0].toStdString();
    EXPECT_EQ(liste->count(), 6);
    EXPECT_EQ(fs::file_size(m.cat.chemin), taille);
    EXPECT_FALSE(dialogue.aReduit());
    EXPECT_EQ(dialogue.cursor().shape(), Qt::ArrowCursor);
}

// "Elaguer fonctions" opens the dialog on the catalogue in force; the entry
// menu follows the compacted file.
TEST(Menage, OuvertParElaguerFonctions)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 5);
    Mirado& m = banc.demarre();
    ASSERT_EQ(articles(m, "mnufa").size(), 6u);
    QAction* elaguer = article(m, "mnupara", 8);
    EXPECT_EQ(elaguer->text(), QStringLiteral("Elaguer fonctions"));
    QTimer::singleShot(0, &m, [&] {
        auto* d = qobject_cast<Menage*>(QApplication::activeModalWidget());
        ASSERT_NE(d, nullptr);
        auto* liste = controle<QListWidget>(*d, "List2");
        liste->item(2)->setSelected(true);
        liste->item(5)->setSelected(true);
        controle<QPushButton>(*d, "Command1")->click();
        controle<QPushButton>(*d, "Command2")->click();
    });
    elaguer->trigger();
    EXPECT_EQ(m.etat.catalogue.nbLignesCatalogue, 3);
    EXPECT_EQ(articles(m, "mnufa").size(), 4u);
    EXPECT_TRUE(banc.messages.isEmpty());
}

}  // namespace
}  // namespace velorin::essai
