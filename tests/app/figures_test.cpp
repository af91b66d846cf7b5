// Figure files: "&Mem" and "Sauver cet écran" reach the writer with the name asked; "Lire un écran
// mémorisé" reaches the reader and redraws (curves, labels, place, panel). The format is the core's.
#include <QFile>
#include <QGroupBox>
#include <QPushButton>

#include "app/commandes/etiquettes.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

struct BancFigures : Banc {
    Mirado* m = nullptr;
    CommandesEtiquettes* commandes = nullptr;
    QStringList choix;  // "folder|filter" of each chooser shown
    BancFigures()
    {
        ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
        m = &demarre();
        commandes = m->findChild<CommandesEtiquettes*>();
    }
    void etiquette(QPoint ou, const std::string& texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) { return l.texte = texte, true; };
        commandes->creation(ou);
    }
    QString figure(const char* nom) const { return QString::fromStdString(etat.fenetre.dossierFig) + nom + ".fig"; }
    // "Lire un écran mémorisé", the chooser answering `choisi`.
    void lis(const std::optional<QString>& choisi)
    {
        m->choixFigure = [this, choisi](QWidget*, const QString& d, const QString& f) {
            return choix << d + '|' + f, choisi;
        };
        messages.clear();
        article(*m, "mnumemfig", 1)->trigger();
    }
};

TEST(FiguresFenetre, SauverRelireAnnulerAbimeePlane)
{
    BancFigures b;
    Mirado& m = *b.m;
    m.resize(760, 540);  // whole on the test screen, so read back as it is
    m.suisTaille();
    m.envoie(1);
    m.envoie(3);
    b.etiquette(QPoint(30, 40), "Sommet");
    b.etiquette(QPoint(200, 90), "Pied");
    const QImage dessin = m.ecran().copy();
    const QRect place = m.geometry();
    b.reponses = {QStringLiteral("essai")};
    controle<QPushButton>(m, "Command6")->click();
    const QString dossier = QString::fromStdString(b.etat.fenetre.dossierFig);
    EXPECT_EQ(b.saisies,
              QStringList{"mise en mémoire dans " + dossier + ": Entrez un nom simple pour mémoriser cette figure"});
    ASSERT_TRUE(QFile::exists(b.figure("essai")));
    EXPECT_TRUE(b.messages.isEmpty());
    m.vidage();  // everything forgotten and the window moved, then the figure read back
    m.Command3_Click();
    m.resize(700, 500);
    b.lis(b.figure("essai"));
    EXPECT_EQ(b.choix, QStringList{dossier + "|Figures (*.fig)"});
    EXPECT_EQ(b.messages, QStringList{"Nre de fonctions 2\nNbre de labels 2"});
    EXPECT_EQ(articles(m, "mnutra").size(), 3U);
    EXPECT_EQ(m.geometry(), place);
    EXPECT_EQ(m.ecran(), dessin);
    const std::pair<QPoint, QString> etiquettes[] = {{{30, 40}, "Sommet"}, {{200, 90}, "Pied"}};
    for (int k = 1; k <= 2; ++k) {
        const Lb3* c = b.commandes->controle(k);
        ASSERT_NE(c, nullptr);
        EXPECT_EQ(std::tuple(c->pos(), c->text(), c->isVisible()), std::tuple_cat(etiquettes[k - 1], std::tuple(true)));
    }
    EXPECT_FALSE(b.commandes->controle(0)->isVisible());  // the template label stays hidden
    // "Sauver cet écran"; read cancelled, the labels are gone and the drawing stays; a damaged file is
    // said with its name; a plane figure shows the plane panel.
    b.reponses = {QStringLiteral("sauve")};
    article(m, "mnumemfig", 0)->trigger();
    QFile f(b.figure("sauve"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QList<QByteArray> lignes = f.readAll().split('\n');
    ASSERT_GE(lignes.size(), 6);
    b.lis(std::nullopt);
    EXPECT_EQ(std::tuple(b.etat.etiquettes.nombre(), b.etat.courbes.nbCourbes, b.messages),
              std::tuple(0, 2, QStringList()));
    b.ecrisFichier(QStringLiteral("Espace_fig/abime.fig"), lignes.mid(0, 6).join('\n') + "\npas un nombre\r\n");
    b.lis(b.figure("abime"));  // the reader's refusal (its wording is the figure module's)
    EXPECT_TRUE(b.messages.join('|').contains(QStringLiteral("abime.fig"))) << b.messages.join('|').toStdString();
    // Line 1 "True" (plane), no curve and no label on line 5.
    const QList<QByteArray> champs = lignes[4].simplified().split(' ');
    ASSERT_EQ(champs.size(), 4);
    b.ecrisFichier(QStringLiteral("Espace_fig/plan.fig"), "True\r\n" + lignes.mid(1, 3).join('\n') + "\n 0  0 " +
                                                              champs[2] + ' ' + champs[3] + " \r\n" + lignes[5] + '\n');
    b.lis(b.figure("plan"));
    EXPECT_FALSE(b.etat.fenetre.modeEspace);
    EXPECT_TRUE(controle<QGroupBox>(m, "Frame2")->isVisible());
    EXPECT_EQ(b.etat.courbes.nbCourbes, 0);
}

}  // namespace
}  // namespace velorin::essai
