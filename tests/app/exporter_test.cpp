// The "Exporter" menu: its place; the picture with its labels reaches a PNG, SVG or PDF file; the
// turn and step chosen reach the full turn. The file formats and the turn are the qt module's.
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

QImage rgb(const QImage& i)
{
    return i.convertToFormat(QImage::Format_RGB32);
}

// `n` drawn circles; the file dialog answers `sortie` (nothing: cancelled), the list `tour`.
struct BancExport : Banc {
    Mirado* m = nullptr;
    const char* sortie = nullptr;
    int tour = 0;  // -1: cancelled
    QStringList proposes;
    QString titre;
    explicit BancExport(int n)
    {
        ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), n);
        m = &demarre();
        for (int i = 1; i <= n; ++i)
            EXPECT_TRUE(m->envoie(i));
        fichierAEcrire = [this](const QString& t) -> std::optional<QString> {
            titre = t;
            return sortie ? std::optional(chemin(QString::fromUtf8(sortie))) : std::nullopt;
        };
        choixListe = [this](const QStringList& l) {
            return proposes = l, tour < 0 ? std::nullopt : std::optional(tour);
        };
    }
    QStringList fichiers() const { return QDir(dossier.path()).entryList(QDir::Files, QDir::Name); }
};

// The menu's place and entries; each entry's file dialog, and what it writes or says.
TEST(Exporter, MenuImageDeLEcranEtRefus)
{
    // mnuexpo; the list's answer (-1: cancelled); the file dialog's (nullptr: cancelled) and its title
    // ("" not shown); the file expected (or nullptr); part of the message ("" none).
    struct Cas {
        int article, tour;
        const char *reponse, *titre, *ecrit, *message;
    };
    const char *const image = "Image de l'écran", *const tour = "Animation du tour complet";
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
    for (const Cas& c :
         {Cas{0, 0, "ecran", image, "ecran.png", ""},  // the extension is added
          Cas{0, 0, "copie.png", image, "copie.png", ""}, Cas{0, 0, "copie.svg", image, "copie.svg", ""},
          Cas{0, 0, "copie.pdf", image, "copie.pdf", ""},
          Cas{0, 0, "copie.jpg", image, nullptr, "en PNG, SVG ou PDF : nommez-la par exemple « copie.png »"},
          Cas{0, 0, "absent/e.png", image, nullptr, "absent » n'existe pas"}, Cas{0, 0, nullptr, image, nullptr, ""},
          Cas{1, -1, "a.gif", "", nullptr, ""}, Cas{1, 0, nullptr, tour, nullptr, ""},
          Cas{1, 0, "absent/a.gif", tour, nullptr, "absent » n'existe pas"}}) {
        b.tour = c.tour, b.sortie = c.reponse;
        b.titre.clear();
        b.messages.clear();
        QStringList attendus = b.fichiers();
        article(*b.m, "mnuexpo", c.article)->trigger();
        EXPECT_EQ(b.titre, QString::fromUtf8(c.titre)) << c.titre;
        EXPECT_TRUE(*c.message ? b.messages.size() == 1 && b.messages[0].contains(QString::fromUtf8(c.message))
                               : b.messages.isEmpty())
            << b.messages.join('|').toStdString();
        if (c.ecrit)
            attendus << QString::fromUtf8(c.ecrit);
        attendus.sort();
        ASSERT_EQ(b.fichiers(), attendus);
        if (!c.ecrit)
            continue;
        const QByteArray octets = QByteArray::fromStdString(lisFichier(b.chemin(c.ecrit).toStdString()));
        if (QByteArray(c.ecrit).endsWith(".png")) {
            EXPECT_EQ(rgb(QImage::fromData(octets)), rgb(imageAvecEtiquettes(*b.m)));
        } else {  // lines and texts drawn again, the label's among them
            EXPECT_TRUE(octets.startsWith("%PDF") || (octets.contains("<polyline") && octets.contains("Sommet")));
        }
    }
}

// The turn chosen in the list and the step in List2 reach the export: as many pictures as the turn's
// redraws, at the window's size; an axis turn's last picture is the window's (it starts from the
// window's rotation); the window's values and picture stay.
TEST(Exporter, AnimationDuTourComplet)
{
    struct Cas {  // in the "Tour complet" menu, the file, the row chosen in the step list
        int tour;
        const char* sortie;
        int rangPas;
    };
    for (const Cas& c : {Cas{7, "tete.gif", 2}, Cas{3, "images/t_%03d.png", 0}}) {
        BancExport b(2);
        Mirado& m = *b.m;
        QDir().mkpath(b.chemin(QStringLiteral("images")));
        auto* pas = controle<QListWidget>(m, "List2");
        pas->setCurrentRow(c.rangPas);
        b.tour = c.tour, b.sortie = c.sortie;
        const Parametres avant = m.etat.param;
        const QImage ecran = m.ecran().copy();
        article(m, "mnuexpo", 1)->trigger();
        ASSERT_EQ(b.proposes.size(), nbToursComplets);
        EXPECT_EQ(b.proposes[c.tour], article(m, "mnuroti", c.tour)->text());
        const int n =
            int(suiteDuTour(avant, EtatRotation{}, c.tour, pas->currentItem()->text().toDouble()).vues.size());
        ASSERT_EQ(b.messages.size(), 1);
        EXPECT_TRUE(b.messages[0].startsWith(QStringLiteral("Animation écrite : %1 images").arg(n)))
            << b.messages[0].toStdString();
        EXPECT_EQ(texteMemoire(m.etat.param), texteMemoire(avant));
        EXPECT_EQ(m.ecran(), ecran);
        QImageReader lu(b.chemin(QString::asprintf(c.sortie, n)));  // the GIF, or the last numbered picture
        EXPECT_EQ(lu.size(), ecran.size());
        EXPECT_TRUE(QByteArray(c.sortie).endsWith(".gif") ? lu.imageCount() == n : rgb(lu.read()) == rgb(ecran));
    }
}

}  // namespace
}  // namespace velorin::essai
