// The menu IMPRIMER: its entries reach the page (read back from the PDF written), with and without a
// printer, in the menu's orientation; the screen copy reaches the clipboard. The page is the core's.
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

TEST(Impression, MenuImprimerAvecEtSansImprimanteEtCopieDEcran)
{
    Dessin d;
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
