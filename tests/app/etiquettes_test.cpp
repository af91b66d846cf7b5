// The labels over the drawing: creation, the right button's three boxes, tip, drag, deletion by a
// double click, the text label editor. What the answers mean and the compaction are the label module's.
// Figure files: "&Mem" and "Sauver cet écran" reach the writer with the name asked; "Lire un écran
// mémorisé" reaches the reader and redraws (curves, labels, place, panel). The format is the core's.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "app/commandes/etiquettes.h"
#include "app/dialogues/etiquette.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "plot/ecran.h"
#include "plot/etiquettes.h"
#include "qt/surface_qpainter.h"

namespace velorin::essai {
namespace {

struct BancEtiquettes : Banc {
    Mirado* m = &demarre();
    CommandesEtiquettes* commandes = m->findChild<CommandesEtiquettes*>();
    // Right button + Alt at `ou`; the editor types `texte` (nothing: cancels).
    void cree(QPoint ou, std::optional<std::string> texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) { return l.texte = texte.value_or(l.texte), bool(texte); };
        souris(m->findChild<ZoneDessin*>(), QEvent::MouseButtonRelease, ou, Qt::RightButton, Qt::NoButton,
               Qt::AltModifier);
    }
    Lb3* lb(int index) const { return commandes->controle(index); }
};

TEST(EtiquettesFenetre, CreationGlisserEtDoubleClic)
{
    BancEtiquettes b;
    b.cree({40, 30}, "A");
    b.cree({90, 60}, std::nullopt);  // cancelled
    b.cree({90, 60}, "");            // nothing typed
    b.cree({200, 40}, "C");
    ASSERT_EQ(b.etat.etiquettes.nombre(), 2);
    EXPECT_EQ(b.etat.etiquettes.lb[1].gauche, 40 * 15);
    EXPECT_EQ(b.etat.etiquettes.lb[1].couleur, std::int32_t(couleursRepere(b.etat).axes));  // not the template's
    EXPECT_EQ(std::tuple(b.lb(1)->text(), b.lb(1)->pos(), b.lb(1)->isVisible(), b.lb(0)->isVisible()),
              std::tuple(QStringLiteral("A"), QPoint(40, 30), true, false));
    souris(b.lb(2), QEvent::MouseMove, {1, 1}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(b.lb(2)->toolTip().toStdString(), bulleEtiquette(b.etat.etiquettes, 2));
    Lb3* c = b.lb(1);  // dragged: the state follows the control
    souris(c, QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    souris(c, QEvent::MouseMove, {23, -7}, Qt::NoButton, Qt::LeftButton);
    souris(c, QEvent::MouseButtonRelease, {23, -7}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(c->pos(), QPoint(60, 20));
    EXPECT_EQ(std::pair(b.etat.etiquettes.lb[1].gauche, b.etat.etiquettes.lb[1].haut), std::pair(60.0F * 15, 20.0F * 15));
    // A double click deletes: the controls are those of the compacted list.
    souris(b.lb(1), QEvent::MouseButtonDblClick, {1, 1}, Qt::LeftButton, Qt::LeftButton);
    ASSERT_EQ(b.etat.etiquettes.nombre(), 1);
    EXPECT_EQ(std::pair(b.lb(1)->text(), b.lb(1)->pos()), std::pair(QStringLiteral("C"), QPoint(200, 40)));
    EXPECT_EQ(b.lb(2), nullptr);
    b.m->vidage();  // forgetting the drawing removes them
    EXPECT_EQ(b.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(b.lb(1), nullptr);
}

TEST(EtiquettesFenetre, BoutonDroitCouleurPoliceTaille)
{
    using R = std::optional<QString>;
    for (const auto& [touches, reponse, titre] : {std::tuple{Qt::NoModifier, R("2"), "Couleur du texte de ce label"},
                                                  std::tuple{Qt::NoModifier, R(), "Couleur du texte de ce label"},
                                                  std::tuple{Qt::ShiftModifier, R("1"), "Police du texte de ce label"},
                                                  std::tuple{Qt::ControlModifier, R("18"), "taille actuelle : 10"}}) {
        BancEtiquettes b;
        b.cree({50, 50}, "abc");
        Etiquette attendue = b.etat.etiquettes.lb[1];
        const std::string r = reponse.value_or(QString()).toStdString();
        if (reponse && touches == Qt::NoModifier)
            attendue.couleur = std::int32_t(couleurChoisie(r, b.etat.defaut, couleursRepere(b.etat).axes));
        if (touches == Qt::ShiftModifier)
            attendue.police = *policeChoisie(r);
        if (touches == Qt::ControlModifier)
            attendue.taille = *tailleChoisie(r);
        b.reponses = {reponse};
        souris(b.lb(1), QEvent::MouseButtonRelease, {2, 2}, Qt::RightButton, Qt::NoButton, touches);
        ASSERT_EQ(b.saisies.size(), 1);
        EXPECT_TRUE(b.saisies[0].startsWith(QString::fromUtf8(titre))) << titre;
        const Etiquette& l = b.etat.etiquettes.lb[1];
        EXPECT_EQ(std::tuple(l.couleur, l.police, l.taille),
                  std::tuple(attendue.couleur, attendue.police, attendue.taille));
        // The control shows what the state holds.
        EXPECT_EQ(std::tuple(b.lb(1)->font().family(), b.lb(1)->font().pointSizeF(),
                             b.lb(1)->palette().color(QPalette::WindowText)),
                  std::tuple(policeEtiquette(l).family(), double(l.taille), couleurQt(Couleur(l.couleur))));
    }
}

TEST(EtiquettesFenetre, EditeurDeTexte)
{
    using C = std::optional<QColor>;  // OK pressed, the chooser's answer
    for (const auto& [v, couleur] :
         {std::pair{true, C(QColor(0, 0, 255))}, std::pair{true, C()}, std::pair{false, C(QColor(0, 0, 255))}}) {
        Etiquette l;
        l.couleur = 0x00FF00;
        const Etiquette avant = l;
        const std::int32_t attendue = couleur ? 0xFF0000 : 0x00FF00;
        Boites boites;
        boites.choixCouleur = [&](QWidget*, const QColor&, const QString&) { return couleur; };
        EditeurEtiquette d(l, boites);
        controle<QLineEdit>(d, "Text1")->setText(QStringLiteral("Été"));
        controle<QComboBox>(d, "Combo1")->setCurrentText(QStringLiteral("Courier New"));
        controle<QDoubleSpinBox>(d, "Text2")->setValue(14);
        controle<QCheckBox>(d, "Check1")->setChecked(true);
        controle<QCheckBox>(d, "Check3")->setChecked(true);
        controle<QPushButton>(d, "Command3")->click();
        const QLabel* apercu = controle<QLabel>(d, "Label1");
        EXPECT_EQ(apercu->text(), QStringLiteral("Été"));
        EXPECT_TRUE(apercu->font().bold() && apercu->font().underline());
        EXPECT_EQ(apercu->palette().color(QPalette::WindowText), couleurQt(Couleur(attendue)));
        controle<QPushButton>(d, v ? "Command1" : "Command2")->click();
        EXPECT_EQ(std::tuple(l.texte, l.police, l.taille, l.couleur),
                  v ? std::tuple(std::string("Été"), std::string("Courier New"), 14.0F, attendue)
                    : std::tuple(avant.texte, avant.police, avant.taille, std::int32_t(0x00FF00)));
        EXPECT_EQ(std::tuple(l.gras, l.italique, l.souligne), std::tuple(v, false, v));
    }
}

struct BancFigures : Banc {
    Mirado* m = nullptr;
    CommandesEtiquettes* commandes = nullptr;
    QStringList choix;  // "folder|filter" of each chooser shown
    BancFigures()
    {
        m = &demarre(3);
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
    EXPECT_TRUE(b.messages.join('|').contains(QStringLiteral("abime.fig")))
        << b.messages.join('|').toStdString();
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
