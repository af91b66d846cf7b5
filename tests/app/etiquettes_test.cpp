// The labels over the drawing: creation with right button + Alt, the three
// input boxes of the right button, the tip, dragging, deletion by a double
// click, and the text label editor. What the answers mean and how the list
// is compacted are the label module's.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>

#include "app/commandes/etiquettes.h"
#include "app/dialogues/etiquette.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "souris_essai.h"
#include "plot/ecran.h"
#include "plot/etiquettes.h"
#include "qt/surface_qpainter.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

struct BancEtiquettes : Banc {
    Mirado* m = &demarre();
    CommandesEtiquettes* commandes = m->findChild<CommandesEtiquettes*>();

    // Right button + Alt at `ou`; the editor types `texte` (nothing: cancels).
    void cree(QPoint ou, std::optional<std::string> texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) {
            l.texte = texte.value_or(l.texte);
            return texte.has_value();
        };
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
    EXPECT_EQ(b.etat.etiquettes.lb[1].couleur, std::int32_t(couleursRepere(b.etat).axes));  // not the template's black
    EXPECT_EQ(b.lb(1)->text(), QStringLiteral("A"));
    EXPECT_EQ(b.lb(1)->pos(), QPoint(40, 30));
    EXPECT_TRUE(b.lb(1)->isVisible());
    EXPECT_FALSE(b.lb(0)->isVisible());  // the template
    souris(b.lb(2), QEvent::MouseMove, {1, 1}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(b.lb(2)->toolTip().toStdString(), bulleEtiquette(b.etat.etiquettes, 2));
    // Dragged: the state follows the control.
    Lb3* c = b.lb(1);
    souris(c, QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    souris(c, QEvent::MouseMove, {23, -7}, Qt::NoButton, Qt::LeftButton);
    souris(c, QEvent::MouseButtonRelease, {23, -7}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(c->pos(), QPoint(60, 20));
    EXPECT_EQ(b.etat.etiquettes.lb[1].gauche, 60 * 15);
    EXPECT_EQ(b.etat.etiquettes.lb[1].haut, 20 * 15);
    // A double click deletes: the controls are those of the compacted list.
    souris(b.lb(1), QEvent::MouseButtonDblClick, {1, 1}, Qt::LeftButton, Qt::LeftButton);
    ASSERT_EQ(b.etat.etiquettes.nombre(), 1);
    EXPECT_EQ(b.lb(1)->text(), QStringLiteral("C"));
    EXPECT_EQ(b.lb(1)->pos(), QPoint(200, 40));
    EXPECT_EQ(b.lb(2), nullptr);
    // Forgetting the drawing removes them.
    b.m->vidage();
    EXPECT_EQ(b.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(b.lb(1), nullptr);
}

TEST(EtiquettesFenetre, BoutonDroitCouleurPoliceTaille)
{
    struct Cas {
        Qt::KeyboardModifiers touches;
        std::optional<QString> reponse;
        const char* titre;
    };
    for (const Cas& c : {Cas{Qt::NoModifier, "2", "Couleur du texte de ce label"},
                         Cas{Qt::NoModifier, std::nullopt, "Couleur du texte de ce label"},
                         Cas{Qt::ShiftModifier, "1", "Police du texte de ce label"},
                         Cas{Qt::ControlModifier, "18", "taille actuelle : 10"}}) {
        SCOPED_TRACE(c.titre);
        BancEtiquettes b;
        b.cree({50, 50}, "abc");
        Etiquette attendue = b.etat.etiquettes.lb[1];
        const std::string r = c.reponse.value_or(QString()).toStdString();
        if (c.reponse && c.touches == Qt::NoModifier)
            attendue.couleur = std::int32_t(couleurChoisie(r, b.etat.defaut, couleursRepere(b.etat).axes));
        if (c.touches == Qt::ShiftModifier)
            attendue.police = *policeChoisie(r);
        if (c.touches == Qt::ControlModifier)
            attendue.taille = *tailleChoisie(r);
        b.reponses = {c.reponse};
        souris(b.lb(1), QEvent::MouseButtonRelease, {2, 2}, Qt::RightButton, Qt::NoButton, c.touches);
        ASSERT_EQ(b.saisies.size(), 1);
        EXPECT_TRUE(b.saisies[0].startsWith(QString::fromUtf8(c.titre)));
        const Etiquette& l = b.etat.etiquettes.lb[1];
        EXPECT_EQ(l.couleur, attendue.couleur);
        EXPECT_EQ(l.police, attendue.police);
        EXPECT_EQ(l.taille, attendue.taille);
        // The control shows what the state holds.
        EXPECT_EQ(b.lb(1)->font().family(), policeEtiquette(l).family());
        EXPECT_EQ(b.lb(1)->font().pointSizeF(), l.taille);
        EXPECT_EQ(b.lb(1)->palette().color(QPalette::WindowText), couleurQt(Couleur(l.couleur)));
    }
}

TEST(EtiquettesFenetre, EditeurDeTexte)
{
    struct Cas {
        bool valide;
        std::optional<QColor> couleur;  // the chooser's answer
    };
    for (const Cas& c : {Cas{true, QColor(0, 0, 255)}, Cas{true, std::nullopt}, Cas{false, QColor(0, 0, 255)}}) {
        const bool valide = c.valide;
        Etiquette l;
        l.couleur = 0x00FF00;
        const Etiquette avant = l;
        const std::int32_t attendue = c.couleur ? 0xFF0000 : 0x00FF00;
        Boites boites;
        boites.choixCouleur = [&](QWidget*, const QColor&, const QString&) { return c.couleur; };
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
        controle<QPushButton>(d, valide ? "Command1" : "Command2")->click();
        EXPECT_EQ(l.texte, valide ? "Été" : avant.texte);
        EXPECT_EQ(l.police, valide ? "Courier New" : avant.police);
        EXPECT_EQ(l.taille, valide ? 14 : avant.taille);
        EXPECT_EQ(l.gras, valide);
        EXPECT_FALSE(l.italique);
        EXPECT_EQ(l.souligne, valide);
        EXPECT_EQ(l.couleur, valide ? attendue : 0x00FF00);
    }
}

}  // namespace
}  // namespace velorin::essai
