// The window's "Exporter" menu: its place in the bar; the picture on screen
// with its labels reaches a PNG, SVG or PDF file; the turn and step chosen
// reach the full turn, drawn at the window's size from its rotation, the
// window left as it was. The file formats and the turn are the qt module's.
#include <QDir>
#include <QImageReader>
#include <QListWidget>
#include <QMenuBar>

#include "app/commandes/impression.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace velorin::essai {
namespace {

const ::testing::Environment* const environnement = ::testing::AddGlobalTestEnvironment(new EnvironnementQt);

// A window with `n` drawn circles; the file dialog answers `sortie` in the
// test folder (nothing: cancelled) and keeps its title.
struct BancExport : Banc {
    Mirado* m = nullptr;
    std::optional<QString> sortie;
    QString titre;
    explicit BancExport(int n)
    {
        ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), n);
        m = &demarre();
        for (int i = 1; i <= n; ++i)
            EXPECT_TRUE(m->envoie(i));
        fichierAEcrire = [this](const QString& t) -> std::optional<QString> {
            titre = t;
            return sortie ? std::optional<QString>(chemin(*sortie)) : std::nullopt;
        };
    }
    QStringList fichiers() const { return QDir(dossier.path()).entryList(QDir::Files, QDir::Name); }
};

// The menu's place and entries; each entry's file dialog, and what it
// writes or says.
TEST(Exporter, MenuImageDeLEcranEtRefus)
{
    struct Cas {
        int article;          // mnuexpo
        int tour;             // the list's answer; -1: cancelled
        const char* reponse;  // the file dialog's; nullptr: cancelled
        const char* titre;    // of the file dialog, "" not shown
        const char* ecrit;    // the file expected, or nullptr
        const char* message;  // part of the message, "" for none
    };
    const char *const image = "Image de l'écran", *const tour = "Animation du tour complet";
    const Cas cas[] = {
        {0, 0, "ecran", image, "ecran.png", ""},  // the extension is added
        {0, 0, "copie.png", image, "copie.png", ""},
        {0, 0, "copie.svg", image, "copie.svg", ""},
        {0, 0, "copie.pdf", image, "copie.pdf", ""},
        {0, 0, "copie.jpg", image, nullptr, "en PNG, SVG ou PDF : nommez-la par exemple « copie.png »"},
        {0, 0, "absent/e.png", image, nullptr, "absent » n'existe pas"},
        {0, 0, nullptr, image, nullptr, ""},
        {1, -1, "a.gif", "", nullptr, ""},
        {1, 0, nullptr, tour, nullptr, ""},
        {1, 0, "absent/a.gif", tour, nullptr, "absent » n'existe pas"},
    };
    BancExport b(1);
    QStringList titres;
    for (const QAction* a : b.m->menuBar()->actions())
        titres << a->text();
    EXPECT_EQ(titres.mid(titres.size() - 3).join('|'), QStringLiteral("Mémorisation|Exporter|?"));
    EXPECT_EQ(article(*b.m, "mnuexpo", 0)->text() + '|' + article(*b.m, "mnuexpo", 1)->text(),
              QStringLiteral("Image de l'écran…|Animation du tour complet…"));
    // A label over the drawing is part of the picture written.
    b.etat.etiquettes.lb.push_back(
        {.texte = "Sommet", .couleur = 0x00FFFF, .gauche = 1500, .haut = 1500, .visible = true});
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.reponse ? c.reponse : "(annulé)");
        b.choixListe = [&](const QStringList&) { return c.tour < 0 ? std::nullopt : std::optional<int>(c.tour); };
        b.sortie = c.reponse ? std::optional<QString>(QString::fromUtf8(c.reponse)) : std::nullopt;
        b.titre.clear();
        b.messages.clear();
        QStringList attendus = b.fichiers();
        article(*b.m, "mnuexpo", c.article)->trigger();
        EXPECT_EQ(b.titre, QString::fromUtf8(c.titre));
        EXPECT_TRUE(*c.message ? b.messages.size() == 1 && b.messages[0].contains(QString::fromUtf8(c.message))
                               : b.messages.isEmpty())
            << b.messages.join('|').toStdString();
        if (c.ecrit)
            attendus << QString::fromUtf8(c.ecrit);
        attendus.sort();
        ASSERT_EQ(b.fichiers(), attendus);
        if (!c.ecrit)
            continue;
        const QByteArray octets =
            QByteArray::fromStdString(lisFichier(b.chemin(QString::fromUtf8(c.ecrit)).toStdString()));
        if (QByteArray(c.ecrit).endsWith(".png")) {
            EXPECT_EQ(QImage::fromData(octets).convertToFormat(QImage::Format_RGB32),
                      imageAvecEtiquettes(*b.m).convertToFormat(QImage::Format_RGB32));
        } else {
            // Lines and texts drawn again, the label's among them.
            EXPECT_TRUE(octets.startsWith("%PDF") || (octets.contains("<polyline") && octets.contains("Sommet")));
        }
    }
}

// The turn chosen in the list and the step chosen in List2 reach the
// export: as many pictures as the turn's redraws, at the window's size; the
// last picture of an axis turn is the window's own (it starts from the
// window's rotation), and the window's values and picture stay.
TEST(Exporter, AnimationDuTourComplet)
{
    struct Cas {
        int tour;            // index in the "Tour complet" menu
        const char* sortie;  // relative to the test folder
        int rangPas;         // row chosen in the step list
    };
    const Cas cas[] = {{7, "tete.gif", 2}, {3, "images/t_%03d.png", 0}};
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.sortie);
        BancExport b(2);
        Mirado& m = *b.m;
        QDir().mkpath(b.chemin(QStringLiteral("images")));
        auto* pas = controle<QListWidget>(m, "List2");
        pas->setCurrentRow(c.rangPas);
        QStringList proposes;
        b.choixListe = [&](const QStringList& elements) -> std::optional<int> {
            proposes = elements;
            return c.tour;
        };
        b.sortie = QString::fromUtf8(c.sortie);
        const Parametres avant = m.etat.param;
        const QImage ecran = m.ecran().copy();
        article(m, "mnuexpo", 1)->trigger();
        ASSERT_EQ(proposes.size(), nbToursComplets);
        EXPECT_EQ(proposes[c.tour], article(m, "mnuroti", c.tour)->text());
        const int redessins =
            int(suiteDuTour(avant, EtatRotation{}, c.tour, pas->currentItem()->text().toDouble()).vues.size());
        ASSERT_EQ(b.messages.size(), 1);
        EXPECT_TRUE(b.messages[0].startsWith(QStringLiteral("Animation écrite : %1 images").arg(redessins)))
            << b.messages[0].toStdString();
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(avant));
        EXPECT_EQ(m.ecran(), ecran);
        // The GIF, or the last numbered picture, at the window's size.
        QImageReader lu(b.chemin(QString::asprintf(c.sortie, redessins)));
        EXPECT_EQ(lu.size(), ecran.size());
        if (QByteArray(c.sortie).endsWith(".gif")) {
            EXPECT_EQ(lu.imageCount(), redessins);
        } else {
            EXPECT_EQ(lu.read().convertToFormat(QImage::Format_RGB32), ecran.convertToFormat(QImage::Format_RGB32));
        }
    }
}

}  // namespace
}  // namespace velorin::essai
