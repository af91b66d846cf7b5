// The labels over the drawing: creation with right button + Alt, the three
// input boxes of the right button, the tip, dragging, deletion by a double
// click, and the text label editor.
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include "app/commandes/etiquettes.h"
#include "app/dialogues/etiquette.h"
#include "app/fenetre/zone_dessin.h"
#include "banc_fenetre.h"
#include "plot/ecran.h"
#include "qt/surface_qpainter.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

void souris(QWidget* w, QEvent::Type type, QPoint ou, Qt::MouseButton bouton, Qt::MouseButtons tenus,
            Qt::KeyboardModifiers touches = Qt::NoModifier)
{
    QMouseEvent e(type, QPointF(ou), QPointF(w->mapToGlobal(ou)), bouton, tenus, touches);
    QApplication::sendEvent(w, &e);
}

struct BancEtiquettes : Banc {
    Mirado* m = nullptr;
    CommandesEtiquettes* commandes = nullptr;
    ZoneDessin* zone = nullptr;

    BancEtiquettes()
    {
        m = &demarre();
        commandes = m->findChild<CommandesEtiquettes*>();
        zone = m->findChild<ZoneDessin*>();
    }
    // Right button + Alt at `ou`; the editor types `texte` (nothing: cancels).
    void cree(QPoint ou, std::optional<std::string> texte)
    {
        commandes->editeur = [texte](QWidget*, Etiquette& l) {
            if (texte)
                l.texte = *texte;
            return texte.has_value();
        };
        souris(zone, QEvent::MouseButtonRelease, ou, Qt::RightButton, Qt::NoButton, Qt::AltModifier);
    }
    Lb3* lb(int index) const { return commandes->controle(index); }
    QStringList textes() const
    {
        QStringList t;
        for (int k = 1; k <= etat.etiquettes.nombre(); ++k)
            t << QString::fromStdString(etat.etiquettes.lb[k].texte) + "=" + lb(k)->text();
        return t;
    }
};

TEST(EtiquettesFenetre, CreationAltBoutonDroitALaSouris)
{
    BancEtiquettes b;
    ASSERT_NE(b.commandes, nullptr);
    b.cree(QPoint(40, 30), "Sommet");
    b.cree(QPoint(90, 60), std::nullopt);  // cancelled
    b.cree(QPoint(90, 60), "");            // nothing typed
    // Without Alt the right button is not a creation.
    souris(b.zone, QEvent::MouseButtonRelease, QPoint(5, 5), Qt::RightButton, Qt::NoButton);
    ASSERT_EQ(b.etat.etiquettes.nombre(), 1);
    const Etiquette& l = b.etat.etiquettes.lb[1];
    EXPECT_EQ(l.gauche, 40 * 15);
    EXPECT_EQ(l.haut, 30 * 15);
    EXPECT_EQ(l.police, "Arial");
    EXPECT_EQ(l.couleur, std::int32_t(couleursRepere(b.etat).axes));  // not the black of the template
    EXPECT_NE(l.couleur, 0);
    EXPECT_EQ(b.textes(), QStringList{"Sommet=Sommet"});
    EXPECT_EQ(b.lb(1)->pos(), QPoint(40, 30));
    EXPECT_TRUE(b.lb(1)->isVisible());
    ASSERT_NE(b.lb(0), nullptr);
    EXPECT_FALSE(b.lb(0)->isVisible());
    EXPECT_EQ(b.lb(0)->text(), QStringLiteral("texte à afficher"));
    EXPECT_EQ(b.m->findChildren<Lb3*>(QStringLiteral("Lb3")).size(), 2);
    // The bookkeeping arrays grew with each label loaded, the cancelled ones
    // too, and are never shrunk.
    EXPECT_EQ(b.etat.etiquettes.general3.size(), 3U);

    // Forgetting the drawing removes them.
    b.m->vidage();
    EXPECT_EQ(b.etat.etiquettes.nombre(), 0);
    EXPECT_EQ(b.m->findChildren<Lb3*>(QStringLiteral("Lb3")).size(), 1);
}

TEST(EtiquettesFenetre, BoutonDroitCouleurPoliceTaille)
{
    const CouleursDefaut d;
    const char* const couleur = "Couleur du texte de ce label: 0)Blanc ou noir 1)Bleu 2)Rouge 3 Jaune 4) Vert";
    const char* const police = "Police du texte de ce label: 0)Arial 1)Courier 2)Times 3 Grec 4) Algerian";
    const char* const taille = "taille actuelle : 10: Tapez la nouvelle taille de police";
    struct Cas {
        Qt::KeyboardModifiers touches;
        std::optional<QString> reponse;
        const char* question;
        std::int32_t couleur;  // expected afterwards
        const char* police;
        float taille;
    };
    const std::int32_t rouge = std::int32_t(d.coulRouge);
    for (const Cas& c : {
             Cas{Qt::NoModifier, "2", couleur, std::int32_t(d.coulRouge), "Arial", 10},
             Cas{Qt::NoModifier, "4", couleur, std::int32_t(d.coulVert), "Arial", 10},
             Cas{Qt::NoModifier, "7", couleur, -1, "Arial", 10},  // -1: the window's drawing colour
             Cas{Qt::NoModifier, "", couleur, -1, "Arial", 10},
             Cas{Qt::NoModifier, std::nullopt, couleur, rouge, "Arial", 10},  // cancelled: unchanged
             Cas{Qt::ShiftModifier, "2", police, rouge, "Courier New", 10},
             Cas{Qt::ShiftModifier, "1", police, rouge, "Bookman Old Style", 10},
             Cas{Qt::ShiftModifier, "9", police, rouge, "Algerian", 10},
             Cas{Qt::ControlModifier, "18", taille, rouge, "Arial", 18},
             Cas{Qt::ControlModifier, "grand", taille, rouge, "Arial", 10},
         }) {
        BancEtiquettes b;
        b.cree(QPoint(50, 50), "abc");
        b.etat.etiquettes.lb[1].couleur = rouge;
        b.reponses = {c.reponse};
        souris(b.lb(1), QEvent::MouseButtonRelease, QPoint(2, 2), Qt::RightButton, Qt::NoButton, c.touches);
        const std::string cas = c.reponse.value_or("(annulé)").toStdString();
        EXPECT_EQ(b.saisies, QStringList{QString::fromUtf8(c.question)}) << cas;
        const Etiquette& l = b.etat.etiquettes.lb[1];
        EXPECT_EQ(l.couleur, c.couleur < 0 ? std::int32_t(couleursRepere(b.etat).axes) : c.couleur) << cas;
        EXPECT_EQ(l.police, c.police) << cas;
        EXPECT_EQ(l.taille, c.taille) << cas;
        // The control shows what the state holds.
        EXPECT_EQ(b.lb(1)->font().family(), policeEtiquette(l).family()) << cas;
        EXPECT_EQ(b.lb(1)->font().pointSizeF(), l.taille) << cas;
        EXPECT_EQ(b.lb(1)->palette().color(QPalette::WindowText), couleurQt(Couleur(l.couleur))) << cas;
    }
}

TEST(EtiquettesFenetre, DoubleClicCompacteSansDeplacerEtBulle)
{
    BancEtiquettes b;
    const QPoint places[] = {{10, 10}, {60, 120}, {200, 40}, {300, 300}};
    for (int k = 0; k < 4; ++k)
        b.cree(places[k], std::string(1, char('A' + k)));
    b.lb(4)->setProperty("temoin", true);
    souris(b.lb(3), QEvent::MouseMove, QPoint(1, 1), Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(b.lb(3)->toolTip(), QStringLiteral("Label n° 3/4__C"));

    souris(b.lb(2), QEvent::MouseButtonDblClick, QPoint(1, 1), Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(b.textes(), (QStringList{"A=A", "C=C", "D=D"}));
    const QPoint attendues[] = {places[0], places[2], places[3]};
    for (int k = 1; k <= 3; ++k) {
        EXPECT_EQ(b.lb(k)->pos(), attendues[k - 1]) << k;
        EXPECT_EQ(b.etat.etiquettes.lb[k].gauche, attendues[k - 1].x() * 15) << k;
    }
    EXPECT_EQ(b.lb(4), nullptr);
    souris(b.lb(3), QEvent::MouseMove, QPoint(1, 1), Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(b.lb(3)->toolTip(), QStringLiteral("Label n° 3/3__D"));
}

TEST(EtiquettesFenetre, GlisserDeplaceLeLabel)
{
    BancEtiquettes b;
    b.cree(QPoint(100, 80), "x");
    Lb3* c = b.lb(1);
    souris(c, QEvent::MouseButtonPress, QPoint(3, 3), Qt::LeftButton, Qt::LeftButton);
    souris(c, QEvent::MouseMove, QPoint(23, -7), Qt::NoButton, Qt::LeftButton);
    souris(c, QEvent::MouseButtonRelease, QPoint(23, -7), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(c->pos(), QPoint(120, 70));
    EXPECT_EQ(b.etat.etiquettes.lb[1].gauche, 120 * 15);
    EXPECT_EQ(b.etat.etiquettes.lb[1].haut, 70 * 15);
    EXPECT_TRUE(b.saisies.isEmpty());
}

TEST(EtiquettesFenetre, EditeurDeTexte)
{
    struct Cas {
        bool valide;
        std::optional<QColor> couleur;  // the chooser's answer
    };
    for (const Cas& c : {Cas{true, QColor(0, 0, 255)}, Cas{true, std::nullopt}, Cas{false, QColor(0, 0, 255)}}) {
        Etiquette l;
        l.couleur = 0x00FF00;
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
        EXPECT_TRUE(apercu->font().bold());
        EXPECT_TRUE(apercu->font().underline());
        const std::int32_t attendue = c.couleur ? 0xFF0000 : 0x00FF00;
        EXPECT_EQ(apercu->palette().color(QPalette::WindowText), couleurQt(Couleur(attendue)));
        controle<QPushButton>(d, c.valide ? "Command1" : "Command2")->click();
        EXPECT_EQ(l.texte, c.valide ? "Été" : "texte à afficher");
        EXPECT_EQ(l.police, c.valide ? "Courier New" : "Arial");
        EXPECT_EQ(l.taille, c.valide ? 14 : 10);
        EXPECT_EQ(l.gras, c.valide);
        EXPECT_FALSE(l.italique);
        EXPECT_EQ(l.souligne, c.valide);
        EXPECT_EQ(l.couleur, c.valide ? attendue : 0x00FF00);
    }
}

}  // namespace
}  // namespace velorin::essai
