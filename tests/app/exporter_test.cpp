// The "Exporter" menu: its place; the picture with its labels reaches a PNG, SVG or PDF file; the
// turn and step chosen reach the full turn. The file formats and the turn are the qt module's. The
// menu IMPRIMER: its entries reach the page (read back from the PDF written), with and without a
// printer, in the menu's orientation; the screen copy reaches the clipboard. The page is the core's.
#include <QClipboard>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QListWidget>
#include <QMenuBar>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include "app/commandes/impression.h"
#include "banc_fenetre.h"
#include "commun/commun.h"
#include "plot/impression.h"
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
        m = &demarre(n);
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

// What a PDF tool (pdftotext, pdfinfo) prints about a file.
QString sortieDe(const char* outil, const QStringList& arguments)
{
    QProcess p;
    p.start(QString::fromLatin1(outil), arguments);
    EXPECT_TRUE(p.waitForFinished(-1));
    return QString::fromUtf8(p.readAllStandardOutput());
}

TEST(Impression, MenuImprimerAvecEtSansImprimanteEtCopieDEcran)
{
    BancExport d(2);
    d.etat.etiquettes.lb.push_back(
        {.texte = "Cercles", .couleur = 0x00FFFF, .gauche = 600, .haut = 900, .visible = true});
    // PDF named, mnuipo (0 "Portrait", 1 "Paysage"), printer, dialog accepted, file chosen; entry
    // triggered, page written, hooks asked; what the user is told.
    struct Cas {
        const char* fichier;
        int orientation;
        bool installee, accepte, nomme;
        const char* article;
        bool ecrit;
        int dialogues, apercus, choixFichier;
        const char* message;
    };
    const char* const sans = "Aucune imprimante n'est installée : le graphique est enregistré dans ";
    const QDate d0 = QDate::currentDate();
    const QString aujourdhui = QString::fromStdString(dateFrancaise({d0.year(), d0.month(), d0.day(), 0, 0, 0}));
    for (const Cas& c : {Cas{"graphique.pdf", 1, false, true, true, "mnuip", true, 0, 0, 1, sans},  // no printer
                         Cas{"graphique.pdf", 0, false, true, true, "mnuip", true, 0, 0, 1, sans},
                         Cas{"graphique.pdf", 1, false, true, false, "mnuip", false, 0, 0, 1, ""},  // file refused
                         Cas{"absent/graphique.pdf", 1, false, true, true, "mnuip", false, 0, 0, 1,
                             "graphique.pdf » : le dossier n'existe pas"},
                         Cas{"graphique.pdf", 0, true, true, true, "mnuip", true, 1, 0, 0, ""},    // dialog accepted
                         Cas{"graphique.pdf", 1, true, false, true, "mnuip", false, 1, 0, 0, ""},  // dialog cancelled
                         Cas{"graphique.pdf", 1, true, true, true, "mnuipap", true, 0, 1, 0, ""}}) {  // preview
        const QString pdf = d.chemin(QString::fromUtf8(c.fichier)),
                      cas = QString("%1 %2 %3").arg(c.fichier).arg(c.installee).arg(c.article);
        QFile::remove(pdf);
        d.messages.clear();
        int dialogues = 0, apercus = 0, choixFichier = 0;
        QPageLayout::Orientation orientation = QPageLayout::Portrait;
        auto versPdf = [&](QPrinter& p) {  // the print dialog and the preview write into `pdf`
            orientation = p.pageLayout().orientation();
            p.setOutputFormat(QPrinter::PdfFormat);
            p.setOutputFileName(pdf);
        };
        Imprimantes i;
        i.installee = [&] { return c.installee; };
        i.dialogue = [&](QWidget*, QPrinter& p) { return ++dialogues, versPdf(p), c.accepte; };
        i.apercu = [&](QWidget*, QPrinter& p, const std::function<void(QPrinter&)>& dessine) {
            ++apercus, versPdf(p), dessine(p);
        };
        i.fichierPdf = [&](QWidget*, const QString&) {
            return ++choixFichier, c.nomme ? std::optional(pdf) : std::nullopt;
        };
        installeImpression(*d.m, i);
        article(*d.m, "mnuipo", c.orientation)->trigger();
        controle<QAction>(*d.m, QString::fromUtf8(c.article))->trigger();
        EXPECT_EQ(std::tuple(dialogues, apercus, choixFichier), std::tuple(c.dialogues, c.apercus, c.choixFichier))
            << cas.toStdString();
        EXPECT_TRUE(!(c.dialogues + c.apercus) ||
                    orientation == (c.orientation ? QPageLayout::Landscape : QPageLayout::Portrait));
        ASSERT_EQ(QFileInfo::exists(pdf), c.ecrit) << cas.toStdString();
        EXPECT_TRUE(d.messages.join('|').contains(QString::fromUtf8(c.message))) << d.messages.join('|').toStdString();
        EXPECT_EQ(d.messages.size(), *c.message ? 1 : 0);
        if (!c.ecrit)
            continue;
        // The page, its footer dated now (blanks compared loosely), in the orientation asked.
        const QString texte = sortieDe("pdftotext", {pdf, QStringLiteral("-")}).simplified();
        EXPECT_TRUE(texte.contains("TRACE DES COURBES") && texte.contains("imprimé le " + aujourdhui))
            << texte.toStdString();
        const auto page = QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts"))
                              .match(sortieDe("pdfinfo", {pdf}));
        ASSERT_TRUE(page.hasMatch());
        EXPECT_EQ(page.captured(1).toDouble() > page.captured(2).toDouble(), c.orientation == 1);
    }
    // "Copie d'écran": the picture with its label on the clipboard, the window's picture unchanged.
    d.messages.clear();
    QGuiApplication::clipboard()->clear();
    controle<QAction>(*d.m, "mnuipcop")->trigger();
    const QImage image = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    EXPECT_NE(image, d.m->ecran().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(image, imageAvecEtiquettes(*d.m).convertToFormat(QImage::Format_RGB32));
    ASSERT_EQ(d.messages.size(), 1);
    EXPECT_TRUE(d.messages[0].startsWith(QStringLiteral("Le dessin est copié dans le presse-papiers")));
}

}  // namespace
}  // namespace velorin::essai
