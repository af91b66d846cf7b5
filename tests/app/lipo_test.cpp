// The points dialog: its list, point creation, drawing and linking, and its
// menu entry.
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

#include "app/dialogues/lipo.h"
#include "fichier_editeur.h"

namespace velorin::essai {
namespace {

// The points dialog on a catalogue of `entrees`; `traces` notes the records
// handed to the drawing.
struct Points : Fichier {
    std::vector<NumeroLigne> traces;

    explicit Points(const std::vector<LigneCatalogue>& entrees) : Fichier(0)
    {
        for (const LigneCatalogue& l : entrees)
            EXPECT_FALSE(ecrisLigne(cat, cat.nbLignesCatalogue + 1, l));
    }
    std::unique_ptr<Lipo> ouvre()
    {
        return std::make_unique<Lipo>(
            cat, [this](NumeroLigne n) { traces.push_back(n); }, boites);
    }
    std::string texte(NumeroLigne n)
    {
        LigneCatalogue l;
        EXPECT_FALSE(lisLigne(cat, n, l));
        return l.texte.substr(0, l.texte.find_last_not_of(' ') + 1);
    }
};

std::vector<int> selectionnees(const QListWidget* liste)
{
    std::vector<int> rangs;
    for (int i = 0; i < liste->count(); ++i)
        if (liste->item(i)->isSelected())
            rangs.push_back(i);
    return rangs;
}

const std::vector<LigneCatalogue> depart = {
    {1, "x=f1(t)=t"}, {9, "Point:[(1,2,3)]"}, {8, "Segment:[(1,2,3)][(0,0,1)]"}, {9, "Point:[(0,0,1)]"}};

TEST(Lipo, ListeDesPointsEtCreation)
{
    Points p(depart);
    auto d = p.ouvre();
    EXPECT_EQ(d->windowTitle(), QStringLiteral("Points en mémoire"));
    auto* liste = controle<QListWidget>(*d, "List1");
    auto* texte = controle<QLineEdit>(*d, "Text1");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_TRUE(liste->item(1)->text().startsWith(QStringLiteral("0004]Point:[(0,0,1)]")));
    EXPECT_EQ(selectionnees(liste), std::vector<int>{0});
    struct Cas {
        const char* tape;
        int points;          // lines of the list afterwards
        NumeroLigne lignes;  // records of the catalogue afterwards
    };
    const Cas cas[] = {{" [4,5,6} ", 3, 5}, {"(4,5,6)", 3, 5}, {"{1,2,3]", 3, 5}, {"(1,2)", 4, 6}};
    for (const Cas& c : cas) {
        texte->setText(QString::fromUtf8(c.tape));
        controle<QPushButton>(*d, "Command5")->click();
        EXPECT_EQ(liste->count(), c.points) << c.tape;
        EXPECT_EQ(p.cat.nbLignesCatalogue, c.lignes) << c.tape;
    }
    EXPECT_EQ(p.texte(5), "Point:[(4,5,6)]");
    EXPECT_TRUE(d->aEnregistre());
    // A double-click empties the box.
    QMouseEvent clic(QEvent::MouseButtonDblClick, QPointF(2, 2), texte->mapToGlobal(QPointF(2, 2)), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(texte, &clic);
    EXPECT_TRUE(texte->text().isEmpty());
    EXPECT_TRUE(p.messages.isEmpty());
}

TEST(Lipo, CatalogueSansPoints)
{
    Points p({{1, "x=f1(t)=t"}});
    auto d = p.ouvre();
    EXPECT_EQ(controle<QListWidget>(*d, "List1")->count(), 0);
    controle<QPushButton>(*d, "Command1")->click();
    EXPECT_TRUE(p.traces.empty());
}

// Drawing the selected points, linking two of them (stored and drawn at
// once), and what linking says when two points are not chosen.
TEST(Lipo, PlacerEtRelier)
{
    Points p(depart);
    auto d = p.ouvre();
    auto* liste = controle<QListWidget>(*d, "List1");
    liste->item(1)->setSelected(true);
    controle<QPushButton>(*d, "Command1")->click();
    EXPECT_EQ(p.traces, (std::vector<NumeroLigne>{2, 4}));
    p.traces.clear();
    struct Cas {
        std::vector<int> selection;
        NumeroLigne trace;  // the segment drawn, 0 for none
        const char* dit;
    };
    const Cas cas[] = {
        {{1, 0}, 5, nullptr},
        {{}, 0, "Choisissez deux points à relier (0 choisi)."},
        {{1}, 0, "Choisissez deux points à relier (1 choisi)."},
    };
    for (const Cas& c : cas) {
        controle<QPushButton>(*d, "Command4")->click();
        EXPECT_TRUE(selectionnees(liste).empty());
        for (int r : c.selection)
            liste->item(r)->setSelected(true);
        p.messages.clear();
        controle<QPushButton>(*d, "Command2")->click();
        EXPECT_EQ(p.traces, c.trace ? std::vector<NumeroLigne>{c.trace} : std::vector<NumeroLigne>{});
        EXPECT_EQ(p.messages, c.dit ? QStringList{QString::fromUtf8(c.dit)} : QStringList{});
        p.traces.clear();
    }
    // List order, not click order: the first point listed is the first end.
    EXPECT_EQ(p.texte(5), "Segment:[(1,2,3)][(0,0,1)]");
    EXPECT_EQ(p.cat.nbLignesCatalogue, 5);
}

// "Points disponibles" (Ctrl+D) opens the dialog: the points it places are
// drawn in the window, and a created point joins the entry menu.
TEST(Lipo, OuvertParPointsDisponibles)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
    Mirado& m = banc.demarre();
    QAction* points = article(m, "mnuzo", 5);
    EXPECT_EQ(points->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
    const std::size_t avant = articles(m, "mnufa").size();
    QTimer::singleShot(0, &m, [&] {
        auto* d = qobject_cast<Lipo*>(QApplication::activeModalWidget());
        ASSERT_NE(d, nullptr);
        controle<QLineEdit>(*d, "Text1")->setText(QStringLiteral("(1,1,1)"));
        controle<QPushButton>(*d, "Command5")->click();
        controle<QPushButton>(*d, "Command1")->click();
        controle<QPushButton>(*d, "Command3")->click();
    });
    points->trigger();
    EXPECT_EQ(articles(m, "mnufa").size(), avant + 1);
    ASSERT_EQ(m.etat.courbes.nbCourbes, 1);
    EXPECT_TRUE(banc.messages.isEmpty());
}

}  // namespace
}  // namespace velorin::essai
