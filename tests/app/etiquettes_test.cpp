// The labels over the drawing: creation, the right button's three boxes, tip, drag, deletion by a
// double click, the text label editor. What the answers mean and the compaction are the label module's.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
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

}  // namespace
}  // namespace velorin::essai
