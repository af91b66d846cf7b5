// The window's "Exporter" menu: its place in the bar, the picture on screen
// into a PNG file, and the full turn exported from the window's drawing
// without touching the window's viewing values or picture.
#include <gif_lib.h>

#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

#include "app/commandes/impression.h"
#include "banc_fenetre.h"
#include "base/motif_numerote.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

// The file dialog answers `relatif` in the test folder (nothing: cancelled)
// and keeps the title it was asked with.
void repondFichier(Banc& banc, const std::optional<QString>& relatif, QString& titre)
{
    banc.fichierAEcrire = [&banc, relatif, &titre](const QString& t) -> std::optional<QString> {
        titre = t;
        if (!relatif)
            return std::nullopt;
        return banc.chemin(*relatif);
    };
}

// The one message shown holds `attendu`; none was shown when it is null.
void verifieMessage(const Banc& banc, const char* attendu)
{
    if (!attendu) {
        EXPECT_TRUE(banc.messages.isEmpty()) << banc.messages.join('|').toStdString();
        return;
    }
    ASSERT_EQ(banc.messages.size(), 1);
    EXPECT_TRUE(banc.messages[0].contains(QString::fromUtf8(attendu))) << banc.messages[0].toStdString();
}

TEST(Exporter, MenuJusteAvantLAideSansDeplacerLesAutres)
{
    Banc banc;
    Mirado& m = banc.demarre();
    QStringList titres;
    for (const QAction* a : m.menuBar()->actions())
        titres << a->text();
    const int exporter = int(titres.indexOf(QStringLiteral("Exporter")));
    ASSERT_GE(exporter, 1) << titres.join('|').toStdString();
    EXPECT_EQ(titres.value(exporter - 1), QStringLiteral("Mémorisation"));
    EXPECT_EQ(titres.value(exporter + 1), QStringLiteral("?"));
    EXPECT_EQ(titres.size(), exporter + 2);
    EXPECT_EQ(article(m, "mnuexpo", 0)->text(), QStringLiteral("Image de l'écran…"));
    EXPECT_EQ(article(m, "mnuexpo", 1)->text(), QStringLiteral("Animation du tour complet…"));
    // The "?" entries keep their indices.
    EXPECT_EQ(article(m, "mnuaide", 0)->text(), QStringLiteral("A propos "));
    EXPECT_EQ(article(m, "mnuaf", 0)->text(), QStringLiteral("Click sur Ecran"));
}

TEST(Exporter, ImageDeLEcran)
{
    struct Cas {
        std::optional<QString> reponse;  // nothing: cancelled
        const char* ecrit;               // the file expected, or nullptr
        const char* message;             // part of the message, or nullptr for none
    };
    const Cas cas[] = {
        {QStringLiteral("ecran"), "ecran.png", nullptr},  // the extension is added
        {QStringLiteral("copie.png"), "copie.png", nullptr},
        {QStringLiteral("copie.svg"), "copie.svg", nullptr},
        {QStringLiteral("copie.pdf"), "copie.pdf", nullptr},
        {QStringLiteral("copie.jpg"), nullptr, "en PNG, SVG ou PDF : nommez-la par exemple « copie.png »"},
        {QStringLiteral("absent/e.png"), nullptr, "absent » n'existe pas"},
        {std::nullopt, nullptr, nullptr},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.reponse.value_or(QStringLiteral("(annulé)")).toStdString());
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
        Mirado& m = banc.demarre();
        ASSERT_TRUE(m.envoie(1));
        // A label over the drawing is part of the picture written.
        Etiquette l;
        l.texte = "Sommet";
        l.couleur = 0x00FFFF;
        l.gauche = l.haut = 1500;
        l.visible = true;
        m.etat.etiquettes.lb.push_back(l);
        QString titre;
        repondFichier(banc, c.reponse, titre);
        const QStringList avant = QDir(banc.dossier.path()).entryList(QDir::Files);
        article(m, "mnuexpo", 0)->trigger();
        EXPECT_EQ(titre, QStringLiteral("Image de l'écran"));
        verifieMessage(banc, c.message);
        QStringList attendus = avant;
        if (c.ecrit) {
            attendus << QString::fromUtf8(c.ecrit);
            QFile fichier(banc.chemin(QString::fromUtf8(c.ecrit)));
            ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
            const QByteArray octets = fichier.readAll();
            if (QString::fromUtf8(c.ecrit).endsWith(QStringLiteral(".png"))) {
                const QImage lue = QImage::fromData(octets).convertToFormat(QImage::Format_RGB32);
                EXPECT_EQ(lue, imageAvecEtiquettes(m).convertToFormat(QImage::Format_RGB32));
                EXPECT_NE(lue, m.ecran().convertToFormat(QImage::Format_RGB32));
            } else if (octets.startsWith("%PDF")) {
                EXPECT_GT(octets.size(), 1000) << c.ecrit;
            } else {
                // Lines and texts, the label's among them.
                EXPECT_TRUE(octets.contains("<svg") && octets.contains("Sommet") && octets.contains("<polyline"))
                    << c.ecrit;
            }
        }
        attendus.sort();
        EXPECT_EQ(QDir(banc.dossier.path()).entryList(QDir::Files, QDir::Name), attendus);
    }
}

// The turn chosen in the list, drawn with the window's curves and size: as
// many pictures as the timers' redraws (the head turn with the step chosen in
// the step list), the GIF's delays the timer's interval, the last picture of
// an axis turn the window's own picture (the viewer is back on its start),
// and the window left as it was.
TEST(Exporter, AnimationDuTourComplet)
{
    struct Cas {
        int tour;            // index in the "Tour complet" menu
        const char* sortie;  // relative to the test folder
        int rangPas;         // row chosen in the step list
        int delai;           // GIF delay, hundredths of a second (0: numbered files)
    };
    const Cas cas[] = {
        {0, "tour.gif", 0, 50},
        {7, "tete.gif", 0, 100},
        {3, "images/t_%03d.png", 0, 0},
        {6, "images/t_%02d.txt", 2, 0},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.sortie);
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 2);
        Mirado& m = banc.demarre();
        ASSERT_TRUE(m.envoie(1));
        ASSERT_TRUE(m.envoie(2));
        QDir().mkpath(banc.chemin(QStringLiteral("images")));
        auto* pas = controle<QListWidget>(m, "List2");
        pas->setCurrentRow(c.rangPas);
        QStringList proposes;
        banc.choixListe = [&](const QStringList& elements) -> std::optional<int> {
            proposes = elements;
            return c.tour;
        };
        banc.fichierAEcrire = [&](const QString&) -> std::optional<QString> {
            return banc.chemin(QString::fromUtf8(c.sortie));
        };
        const Parametres avant = m.etat.param;
        const QImage ecran = m.ecran().copy();
        article(m, "mnuexpo", 1)->trigger();

        ASSERT_EQ(proposes.size(), nbToursComplets);
        EXPECT_EQ(proposes[c.tour], article(m, "mnuroti", c.tour)->text());
        const int redessins =
            int(suiteDuTour(avant, EtatRotation{}, c.tour, pas->currentItem()->text().toDouble()).vues.size());
        ASSERT_EQ(banc.messages.size(), 1);
        EXPECT_TRUE(banc.messages[0].startsWith(QStringLiteral("Animation écrite : %1 images").arg(redessins)))
            << banc.messages[0].toStdString();
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(avant));
        EXPECT_EQ(m.ecran(), ecran);

        if (c.delai == 0) {
            const QStringList ecrits = QDir(banc.chemin(QStringLiteral("images"))).entryList(QDir::Files);
            ASSERT_EQ(ecrits.size(), redessins);
            MotifNumerote motif;
            ASSERT_FALSE(lisMotifNumerote(banc.chemin(QString::fromUtf8(c.sortie)).toStdString(), motif));
            const QString dernier = QString::fromStdString(nomNumerote(motif, redessins));
            ASSERT_TRUE(QFile::exists(dernier)) << dernier.toStdString();
            if (c.tour < 6) {
                EXPECT_EQ(QImage(dernier).convertToFormat(QImage::Format_RGB32),
                          ecran.convertToFormat(QImage::Format_RGB32));
            }
            continue;
        }
        int code = 0;
        GifFileType* gif = DGifOpenFileName(banc.chemin(QString::fromUtf8(c.sortie)).toLocal8Bit().constData(), &code);
        ASSERT_NE(gif, nullptr) << GifErrorString(code);
        ASSERT_EQ(DGifSlurp(gif), GIF_OK) << GifErrorString(gif->Error);
        EXPECT_EQ(QSize(gif->SWidth, gif->SHeight), ecran.size());
        EXPECT_EQ(gif->ImageCount, redessins);
        for (int i = 0; i < gif->ImageCount; ++i) {
            GraphicsControlBlock gcb;
            ASSERT_EQ(DGifSavedExtensionToGCB(gif, i, &gcb), GIF_OK);
            EXPECT_EQ(gcb.DelayTime, c.delai) << i;
        }
        DGifCloseFile(gif, &code);
    }
}

TEST(Exporter, AnimationAnnuleeOuRefusee)
{
    struct Cas {
        std::optional<int> tour;        // nothing: the list cancelled
        std::optional<QString> sortie;  // nothing: the file dialog cancelled
        const char* message;            // part of the message, or nullptr for none
    };
    const Cas cas[] = {
        {std::nullopt, QStringLiteral("a.gif"), nullptr},
        {0, std::nullopt, nullptr},
        {0, QStringLiteral("absent/a.gif"), "absent » n'existe pas"},
        {0, QStringLiteral("a.png"), "un .gif, ou un nom numéroté"},
        {0, QStringLiteral("t_%d.gif"), "ne convient pas à une image par instant"},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.sortie.value_or(QStringLiteral("(annulé)")).toStdString());
        Banc banc;
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 1);
        Mirado& m = banc.demarre();
        ASSERT_TRUE(m.envoie(1));
        banc.choixListe = [&](const QStringList&) { return c.tour; };
        QString titre;
        repondFichier(banc, c.sortie, titre);
        const QStringList avant = QDir(banc.dossier.path()).entryList(QDir::Files);
        article(m, "mnuexpo", 1)->trigger();
        EXPECT_EQ(!titre.isEmpty(), c.tour.has_value());
        verifieMessage(banc, c.message);
        EXPECT_EQ(QDir(banc.dossier.path()).entryList(QDir::Files), avant);
    }
}

}  // namespace
}  // namespace velorin::essai
