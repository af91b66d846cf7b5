// The menu IMPRIMER: its entries reach the page (read back from the PDF
// written), with and without a printer, in the menu's orientation; the
// screen copy reaches the clipboard. The page itself is the core's.
#include <QClipboard>
#include <QDate>
#include <QFileInfo>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include "app/commandes/impression.h"
#include "banc_fenetre.h"
#include "plot/impression.h"

namespace velorin::essai {
namespace {

// What a PDF tool (pdftotext, pdfinfo) prints about a file.
QString sortieDe(const char* outil, const QStringList& arguments)
{
    QProcess p;
    p.start(QString::fromLatin1(outil), arguments);
    EXPECT_TRUE(p.waitForFinished(-1));
    return QString::fromUtf8(p.readAllStandardOutput());
}

// A window with two drawn curves and a label.
struct Dessin : Banc {
    Mirado* m = nullptr;
    Dessin()
    {
        ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
        m = &demarre();
        article(*m, "mnufa", 1)->trigger();
        article(*m, "mnufa", 3)->trigger();
        EXPECT_EQ(m->etat.courbes.nbCourbes, 2) << messages.join('|').toStdString();
        m->etat.etiquettes.lb.push_back(
            {.texte = "Cercles", .couleur = 0x00FFFF, .gauche = 600, .haut = 900, .visible = true});
        messages.clear();
    }
};

TEST(Impression, MenuImprimerAvecEtSansImprimante)
{
    Dessin d;
    struct Cas {
        const char* nom;
        const char* fichier;  // the PDF file named
        int orientation;      // mnuipo: 0 "Portrait", 1 "Paysage"
        bool installee, accepte, nomme;
        const char* article;  // the menu entry triggered
        bool ecrit;           // the page is in the file afterwards
        int dialogues, apercus, choixFichier;
        const char* message;  // what the user is told, "" nothing
    };
    const char* const enregistre = "Aucune imprimante n'est installée : le graphique est enregistré dans ";
    const Cas cas[] = {
        {"sans imprimante, paysage", "graphique.pdf", 1, false, true, true, "mnuip", true, 0, 0, 1, enregistre},
        {"sans imprimante, portrait", "graphique.pdf", 0, false, true, true, "mnuip", true, 0, 0, 1, enregistre},
        {"sans imprimante, fichier refusé", "graphique.pdf", 1, false, true, false, "mnuip", false, 0, 0, 1, ""},
        {"sans imprimante, dossier absent", "absent/graphique.pdf", 1, false, true, true, "mnuip", false, 0, 0, 1,
         "graphique.pdf » : le dossier n'existe pas"},
        {"dialogue accepté, fichier PDF", "graphique.pdf", 0, true, true, true, "mnuip", true, 1, 0, 0, ""},
        {"dialogue annulé", "graphique.pdf", 1, true, false, true, "mnuip", false, 1, 0, 0, ""},
        {"aperçu", "graphique.pdf", 1, true, true, true, "mnuipap", true, 0, 1, 0, ""},
    };
    const QDate d0 = QDate::currentDate();
    const QString aujourdhui = QString::fromStdString(dateFrancaise({d0.year(), d0.month(), d0.day(), 0, 0, 0}));
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.nom);
        const QString pdf = d.chemin(QString::fromUtf8(c.fichier));
        QFile::remove(pdf);
        d.messages.clear();
        int dialogues = 0, apercus = 0, choixFichier = 0;
        QPageLayout::Orientation orientation = QPageLayout::Portrait;
        // The print dialog and the preview write into `pdf`.
        auto versPdf = [&](QPrinter& p) {
            orientation = p.pageLayout().orientation();
            p.setOutputFormat(QPrinter::PdfFormat);
            p.setOutputFileName(pdf);
        };
        Imprimantes i;
        i.installee = [&] { return c.installee; };
        i.dialogue = [&](QWidget*, QPrinter& p) { return ++dialogues, versPdf(p), c.accepte; };
        i.apercu = [&](QWidget*, QPrinter& p, const std::function<void(QPrinter&)>& dessine) {
            ++apercus;
            versPdf(p);
            dessine(p);
        };
        i.fichierPdf = [&](QWidget*, const QString&) {
            ++choixFichier;
            return c.nomme ? std::optional<QString>(pdf) : std::nullopt;
        };
        installeImpression(*d.m, i);
        article(*d.m, "mnuipo", c.orientation)->trigger();
        controle<QAction>(*d.m, QString::fromUtf8(c.article))->trigger();
        EXPECT_EQ(std::tuple(dialogues, apercus, choixFichier), std::tuple(c.dialogues, c.apercus, c.choixFichier));
        if (c.dialogues + c.apercus) {
            EXPECT_EQ(orientation, c.orientation ? QPageLayout::Landscape : QPageLayout::Portrait);
        }
        ASSERT_EQ(QFileInfo::exists(pdf), c.ecrit);
        EXPECT_TRUE(d.messages.join('|').contains(QString::fromUtf8(c.message))) << d.messages.join('|').toStdString();
        EXPECT_EQ(d.messages.size(), *c.message ? 1 : 0);
        if (c.ecrit) {
            // The page, its footer dated now (blanks compared loosely).
            const QString texte = sortieDe("pdftotext", {pdf, QStringLiteral("-")}).simplified();
            EXPECT_TRUE(texte.contains(QStringLiteral("TRACE DES COURBES")));
            EXPECT_TRUE(texte.contains(QStringLiteral("imprimé le ") + aujourdhui)) << texte.toStdString();
            const auto page = QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts"))
                                  .match(sortieDe("pdfinfo", {pdf}));
            ASSERT_TRUE(page.hasMatch());
            EXPECT_EQ(page.captured(1).toDouble() > page.captured(2).toDouble(), c.orientation == 1);
        }
    }
}

TEST(Impression, CopieDEcranDansLePressePapiers)
{
    Dessin d;
    QGuiApplication::clipboard()->clear();
    controle<QAction>(*d.m, "mnuipcop")->trigger();
    const QImage image = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    // The label is painted over the drawing; the window's picture stays as it was.
    EXPECT_NE(image, d.m->ecran().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(image, imageAvecEtiquettes(*d.m).convertToFormat(QImage::Format_RGB32));
    ASSERT_EQ(d.messages.size(), 1);
    EXPECT_TRUE(d.messages[0].startsWith(QStringLiteral("Le dessin est copié dans le presse-papiers")));
}

}  // namespace
}  // namespace velorin::essai
