// Figure files from the window: "&Mem" and "Sauver cet écran" write the
// screen, "Lire un écran mémorisé" draws it again with its labels, its
// place and its message; a cancelled choice or a damaged file leaves the
// window usable.
#include <QFile>
#include <QGroupBox>
#include <QPushButton>

#include "app/commandes/etiquettes.h"
#include "banc_fenetre.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

struct BancFigures : Banc {
    Mirado* m = nullptr;
    CommandesEtiquettes* commandes = nullptr;
    std::optional<QString> choisi;  // the chooser's answer
    QStringList choix;              // "folder|filter" of each chooser shown

    explicit BancFigures(int entrees)
    {
        ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), entrees);
        m = &demarre();
        commandes = m->findChild<CommandesEtiquettes*>();
        m->choixFigure = [this](QWidget*, const QString& d, const QString& f) {
            choix << d + '|' + f;
            return choisi;
        };
    }
    void etiquette(QPoint ou, const std::string& texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) {
            l.texte = texte;
            return true;
        };
        commandes->creation(ou);
    }
    QString figure(const char* nom) const { return QString::fromStdString(etat.fenetre.dossierFig) + nom + ".fig"; }
    void lis(const QString& chemin)
    {
        choisi = chemin;
        article(*m, "mnumemfig", 1)->trigger();
    }
};

TEST(FiguresFenetre, SauverPuisRelireRedessineTout)
{
    BancFigures b(3);
    Mirado& m = *b.m;
    for (int i : {0, 1})
        EXPECT_TRUE(article(m, "mnumemfig", i)->isEnabled()) << i;
    ASSERT_TRUE(controle<QPushButton>(m, "Command6")->isEnabled());
    m.resize(760, 540);  // whole on the test screen, so read back as it is
    m.suisTaille();
    m.envoie(1);
    m.envoie(3);
    b.etiquette(QPoint(30, 40), "Sommet");
    b.etiquette(QPoint(200, 90), "Pied");
    b.etat.etiquettes.lb[2].couleur = 0x0000FF;
    const QImage dessin = m.ecran().copy();
    const QRect place = m.geometry();

    b.reponses = {QStringLiteral("essai")};
    controle<QPushButton>(m, "Command6")->click();
    const QString dossier = QString::fromStdString(b.etat.fenetre.dossierFig);
    EXPECT_EQ(b.saisies, QStringList{QStringLiteral("mise en mémoire dans ") + dossier +
                                     QStringLiteral(": Entrez un nom simple pour mémoriser cette figure")});
    ASSERT_TRUE(QFile::exists(b.figure("essai")));
    EXPECT_TRUE(b.messages.isEmpty());

    // Everything forgotten and the window moved, then the figure read back.
    m.vidage();
    m.Command3_Click();
    m.resize(700, 500);
    ASSERT_EQ(b.etat.courbes.nbCourbes, 0);
    b.lis(b.figure("essai"));
    EXPECT_EQ(b.choix, QStringList{dossier + QStringLiteral("|Figures (*.fig)")});
    EXPECT_EQ(b.messages, QStringList{QStringLiteral("Nre de fonctions 2\nNbre de labels 2")});
    EXPECT_EQ(b.etat.courbes.nbCourbes, 2);
    EXPECT_EQ(articles(m, "mnutra").size(), 3U);
    EXPECT_EQ(m.geometry(), place);
    EXPECT_EQ(m.ecran(), dessin);
    const QPoint places[] = {{30, 40}, {200, 90}};
    const char* const textes[] = {"Sommet", "Pied"};
    ASSERT_EQ(b.etat.etiquettes.nombre(), 2);
    for (int k = 1; k <= 2; ++k) {
        const Lb3* c = b.commandes->controle(k);
        ASSERT_NE(c, nullptr);
        EXPECT_EQ(c->text(), QString::fromUtf8(textes[k - 1]));
        EXPECT_EQ(c->pos(), places[k - 1]);
        EXPECT_TRUE(c->isVisible());
    }
    EXPECT_EQ(b.etat.etiquettes.lb[2].couleur, 0x0000FF);
    EXPECT_EQ(b.etat.etiquettes.lb[0].texte, "texte à afficher");
    EXPECT_FALSE(b.commandes->controle(0)->isVisible());
}

TEST(FiguresFenetre, AnnulationEtFichiersAbimes)
{
    BancFigures b(2);
    Mirado& m = *b.m;
    m.envoie(1);
    b.etiquette(QPoint(10, 10), "a");
    b.reponses = {QStringLiteral("vide")};
    article(m, "mnumemfig", 0)->trigger();
    QFile f(b.figure("vide"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QList<QByteArray> lignes = f.readAll().split('\n');
    f.close();
    ASSERT_GE(lignes.size(), 6 + 32 + 9);

    // Cancelled: the labels are gone, the drawing stays, nothing is said.
    b.choisi.reset();
    article(m, "mnumemfig", 1)->trigger();
    EXPECT_EQ(b.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(b.etat.courbes.nbCourbes, 1);
    EXPECT_TRUE(b.messages.isEmpty());

    struct Cas {
        const char* nom;
        int garde;            // lines of the saved figure kept
        const char* ajout;    // then this line
        const char* attendu;  // in the last message
    };
    for (const Cas& c : {Cas{"court", 5, "", "ligne 6"}, Cas{"abime", 6, "pas un nombre", "ligne 7"},
                         Cas{"absent", -1, "", "absent.fig"}}) {
        QByteArray texte;
        for (int i = 0; i < c.garde; ++i)
            texte += lignes[i] + '\n';
        texte += QByteArray(c.ajout) + "\r\n";
        if (c.garde >= 0) {
            QFile g(b.figure(c.nom));
            ASSERT_TRUE(g.open(QIODevice::WriteOnly));
            g.write(texte);
        }
        b.messages.clear();
        b.lis(b.figure(c.nom));
        ASSERT_FALSE(b.messages.isEmpty()) << c.nom;
        EXPECT_TRUE(b.messages.last().contains(QString::fromUtf8(c.attendu))) << b.messages.last().toStdString();
        EXPECT_TRUE(b.messages.last().contains(QString::fromUtf8(c.nom))) << b.messages.last().toStdString();
    }

    // A plane figure read in space mode switches the mode and its folders.
    // No curve, no label: line 5 with both counts at 0.
    const QList<QByteArray> champs = lignes[4].simplified().split(' ');
    ASSERT_EQ(champs.size(), 4);
    const QByteArray plan = "True\r\n" + lignes[1] + '\n' + lignes[2] + '\n' + lignes[3] + "\n 0  0 " + champs[2] +
                            ' ' + champs[3] + " \r\n" + lignes[5] + '\n';
    QFile g(b.figure("plan"));
    ASSERT_TRUE(g.open(QIODevice::WriteOnly));
    g.write(plan);
    g.close();
    b.messages.clear();
    b.lis(b.figure("plan"));
    EXPECT_FALSE(b.etat.fenetre.modeEspace);
    EXPECT_EQ(b.etat.fenetre.dossierFig, b.etat.fenetre.cheminPlanFig);
    EXPECT_TRUE(controle<QGroupBox>(m, "Frame2")->isVisible());
    EXPECT_EQ(b.etat.courbes.nbCourbes, 0);
}

}  // namespace
}  // namespace velorin::essai
