// The selection lists: the list of available curves and the list of drawn
// curves.
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "app/coli.h"
#include "app/licou.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

TEST(Coli, ListeEtChoixEnvoyes)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 6);
    Mirado& m = banc.demarre();
    struct Cas {
        std::vector<int> selection;  // rows of the list, in the order clicked
        int option;                  // Option1 clicked: 0 "Cycle", 1 "Unique"
        std::vector<int> choix;      // records sent, in list order
        ModeCouleurs mode;
    };
    const Cas cas[] = {
        {{5, 2}, 0, {2, 5}, ModeCouleurs::Cycle},
        {{0, 3}, 1, {3}, ModeCouleurs::Unique},  // the header line is no entry
        {{}, 1, {}, ModeCouleurs::Unique},
    };
    for (const Cas& c : cas) {
        Coli coli(m.etat, m.boites, &m);
        EXPECT_EQ(coli.windowTitle(), QStringLiteral("Liste des Courbes disponibles"));
        ASSERT_EQ(coli.List2->count(), 7);
        EXPECT_EQ(coli.List2->item(0)->text(), QStringLiteral(" Listes des courbes ou surfaces"));
        EXPECT_TRUE(coli.List2->item(2)->text().startsWith(QStringLiteral("0002]x=f1(t)=")));
        coli.List2->clearSelection();
        for (int r : c.selection)
            coli.List2->item(r)->setSelected(true);
        coli.Option1[c.option]->click();
        coli.Command1->click();
        EXPECT_EQ(coli.result(), QDialog::Accepted);
        EXPECT_EQ(coli.choix, c.choix);
        EXPECT_EQ(coli.mode, c.mode);
    }
}

TEST(Coli, DoubleClicEnvoieUneSeuleEntree)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 4);
    Mirado& m = banc.demarre();
    for (int ligne : {0, 3}) {
        Coli coli(m.etat, m.boites, &m);
        coli.List2->item(1)->setSelected(true);
        coli.List2_DblClick(coli.List2->item(ligne));
        // The header line sends nothing and leaves the list open.
        EXPECT_EQ(coli.result(), ligne == 0 ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_EQ(coli.choix, ligne == 0 ? std::vector<int>{} : std::vector<int>{3});
    }
}

// A catalogue in force that cannot be read: the start and the list both
// name the file and say why, and the list shows no entry of another one.
TEST(Coli, CatalogueIllisibleNommeAvecSaRaison)
{
    struct Cas {
        const char* nom;
        std::function<void(const std::string&)> prepare;
        const char* raison;
    };
    const Cas cas[] = {
        {"dossier", [](const std::string& c) { std::filesystem::create_directories(c); }, "est un dossier"},
        {"tube", [](const std::string& c) { ASSERT_EQ(mkfifo(c.c_str(), 0600), 0); }, "est un tube nommé"},
        {"boucle", [](const std::string& c) { std::filesystem::create_symlink(c, c); }, "tourne en boucle"},
        {"illisible",
         [](const std::string& c) {
             std::ofstream(c) << std::string(302, ' ');
             std::filesystem::permissions(c, std::filesystem::perms::none);
         },
         "permission refusée"},
    };
    for (const Cas& c : cas) {
        if (std::string(c.nom) == "illisible" && geteuid() == 0) continue;  // root reads everything
        Banc banc;
        const std::string lisurf = banc.chemin(QStringLiteral("Espace_courbes/Lisurf.lsu")).toStdString();
        std::filesystem::create_directories(std::filesystem::path(lisurf).parent_path());
        c.prepare(lisurf);
        Mirado& m = banc.demarre();
        Coli coli(m.etat, m.boites, &m);
        EXPECT_EQ(coli.List2->count(), 1) << c.nom;
        ASSERT_GE(banc.messages.size(), 2) << c.nom;
        for (const QString& message : {banc.messages.front(), banc.messages.back()}) {
            EXPECT_TRUE(message.contains(QStringLiteral("Lisurf.lsu » "))) << c.nom << " : " << message.toStdString();
            EXPECT_TRUE(message.contains(QString::fromUtf8(c.raison))) << c.nom << " : " << message.toStdString();
        }
    }
}

TEST(Licou, CourbesTraceesCocheesEtReglages)
{
    Banc banc;
    banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
    Mirado& m = banc.demarre();
    m.mnucl[1]->trigger();  // red curves
    m.mnufa[1]->trigger();
    m.mnucl[2]->trigger();  // green curves
    m.etat.param.traceContinu = 0;
    m.mnufa[3]->trigger();
    ASSERT_EQ(m.etat.courbes.nbCourbes, 2);

    Licou licou(m, 2);
    EXPECT_EQ(licou.windowTitle(), QStringLiteral("Courbes tracées et couleur associée"));
    ASSERT_EQ(licou.List1->count(), 2);
    EXPECT_EQ(licou.List1->item(0)->text(), m.mnutra[1]->text());
    EXPECT_TRUE(licou.List1->item(1)->text().contains(QStringLiteral("En vert:")));
    EXPECT_EQ(licou.Label1[0]->text(), QStringLiteral("Trait En vert:"));
    EXPECT_EQ(licou.Label1[1]->text(), QStringLiteral("pointillé"));
    licou.List1->setCurrentRow(0);
    EXPECT_EQ(licou.Label1[0]->text(), QStringLiteral("Trait En rouge:"));
    EXPECT_EQ(licou.Label1[1]->text(), QStringLiteral("continu"));

    licou.List1->item(0)->setCheckState(Qt::Unchecked);
    licou.Command1->click();
    EXPECT_EQ(licou.cochees, std::vector<int>{2});
    EXPECT_EQ(licou.Command2->text(), QStringLiteral("&Retour"));
}

TEST(Mirado, CouleursEtBouclesCocheesDansLesMenus)
{
    Banc banc;
    Mirado& m = banc.demarre();
    struct Cas {
        std::vector<QAction*>* groupe;
        int index;
        std::function<long()> valeur;
        long attendu;
    };
    const Cas cas[] = {
        {&m.mnucl, 0, [&] { return long(m.etat.couleurs.couleurTrace); }, 0},
        {&m.mnucl, 3, [&] { return long(m.etat.couleurs.couleurTrace); }, 0xFF0000},
        {&m.mnuct, 4, [&] { return long(m.etat.couleurs.couleurTangente); }, 0xFFFF},
        {&m.mnuct, 5, [&] { return long(m.etat.couleurs.couleurTangente); }, 0xFFFFFF},
        {&m.mnuper, 3, [&] { return long(m.etat.param.ordreBoucles); }, 3},
        {&m.mnuchcol, 2, [&] { return long(m.etat.fenetre.politiqueCouleurs); }, 2},
        {&m.mnuipo, 0, [&] { return long(m.etat.fenetre.orientationImprimante); }, 0},
    };
    for (const Cas& c : cas) {
        (*c.groupe)[c.index]->trigger();
        EXPECT_EQ(c.valeur(), c.attendu) << (*c.groupe)[c.index]->text().toStdString();
        for (int i = 0; i < int(c.groupe->size()); ++i)
            EXPECT_EQ((*c.groupe)[i]->isChecked(), i == c.index);
    }
    EXPECT_EQ(m.mnucl[5]->shortcut(), QKeySequence(Qt::Key_F6));
    EXPECT_EQ(m.mnuct[0]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F1));
    EXPECT_EQ(m.mnuchcol[2]->shortcut(), QKeySequence(Qt::SHIFT | Qt::CTRL | Qt::Key_F3));
    EXPECT_EQ(m.mnupara[9], nullptr);
}

}  // namespace
}  // namespace velorin::essai
