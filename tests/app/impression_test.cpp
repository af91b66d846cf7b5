// The menu IMPRIMER: the page printed through a PDF printer and read back
// as text, the way without a printer, the print dialog and preview answered
// by the test, and the screen copy on the clipboard.
#include <QClipboard>
#include <QDate>
#include <QFileInfo>
#include <QMenu>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include "app/commandes/impression.h"
#include "banc_fenetre.h"
#include "plot/impression.h"
#include "plot/table_courbes.h"

namespace velorin::essai {
namespace {

// What a PDF tool prints: the text of a PDF file (pdftotext), its page
// size in points (pdfinfo).
QString sortieDe(const char* outil, const QStringList& arguments)
{
    QProcess p;
    p.start(QString::fromLatin1(outil), arguments);
    EXPECT_TRUE(p.waitForFinished(-1));
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString texteDuPdf(const QString& pdf)
{
    return sortieDe("pdftotext", {pdf, QStringLiteral("-")});
}

QSizeF pageDuPdf(const QString& pdf)
{
    const auto m =
        QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts")).match(sortieDe("pdfinfo", {pdf}));
    EXPECT_TRUE(m.hasMatch()) << pdf.toStdString();
    return {m.captured(1).toDouble(), m.captured(2).toDouble()};
}

// The footer's date of a day, as the page writes it.
QString dateDuJour(const QDate& d)
{
    return QString::fromStdString(dateFrancaise({d.year(), d.month(), d.day(), 0, 0, 0}));
}

// A window with two drawn curves and a label.
struct Dessin {
    Banc banc;
    Mirado* m = nullptr;

    Dessin()
    {
        banc.ecrisCatalogue(QStringLiteral("Espace_courbes/Lisurf.lsu"), 3);
        m = &banc.demarre();
        article(*m, "mnufa", 1)->trigger();
        article(*m, "mnufa", 3)->trigger();
        EXPECT_EQ(m->etat.courbes.nbCourbes, 2) << banc.messages.join('|').toStdString();
        Etiquette lb;
        lb.texte = "Cercles emboites";
        lb.gauche = 600;
        lb.haut = 900;
        lb.couleur = 0x00FFFF;  // yellow, seen on the screen's black and on the paper's white
        lb.visible = true;
        m->etat.etiquettes.lb.push_back(lb);
        banc.messages.clear();
    }
};

TEST(Impression, PageImprimeeEnPdfAvecTitreLegendeEtiquetteEtPiedDate)
{
    Dessin d;
    const QDate avant = QDate::currentDate();
    const QString pdf = d.banc.chemin(QStringLiteral("page.pdf"));
    {
        QPrinter imprimante(QPrinter::HighResolution);
        imprimante.setOutputFormat(QPrinter::PdfFormat);
        imprimante.setOutputFileName(pdf);
        ASSERT_FALSE(imprimage(d.m->etat, imprimante));
    }
    const QDate apres = QDate::currentDate();
    // The page looked at by hand: pdftoppm of the copy kept here.
    if (const QString garde = qEnvironmentVariable("VELORIN_GARDE_PAGE"); !garde.isEmpty()) {
        QFile::remove(garde);
        QFile::copy(pdf, garde);
    }
    // pdftotext may space the words as it measures them: blanks compared loosely.
    const QString texte = texteDuPdf(pdf).simplified();
    auto contient = [&](const QString& attendu) {
        EXPECT_TRUE(texte.contains(attendu.simplified())) << attendu.toStdString() << "\n" << texte.toStdString();
    };
    contient(QStringLiteral("TRACE DES COURBES"));
    for (int i = 1; i <= 2; ++i)
        contient(QString::fromStdString(ligneCourbeTracee(d.m->etat.courbes, i)));
    contient(QStringLiteral("Cercles emboites"));
    const QString pied = QStringLiteral("c/o PLAVIER **** imprimé le ");
    EXPECT_TRUE(texte.contains(pied + dateDuJour(avant) + QStringLiteral(" à ")) ||
                texte.contains(pied + dateDuJour(apres) + QStringLiteral(" à ")))
        << texte.toStdString();
    EXPECT_TRUE(texte.contains(QRegularExpression(QStringLiteral(" à \\d\\d:\\d\\d:\\d\\d")))) << texte.toStdString();
}

// Hooks that record what the menu asked of the printer and its dialogs.
struct Reponses {
    bool installee = false;
    bool accepte = true;             // the print dialog's answer
    std::optional<QString> fichier;  // the PDF file named without a printer
    QString sortieDialogue;          // a PDF file chosen in the print dialog
    int dialogues = 0, apercus = 0, choixFichier = 0;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;

    Imprimantes crochets()
    {
        Imprimantes i;
        i.installee = [this] { return installee; };
        i.dialogue = [this](QWidget*, QPrinter& p) {
            ++dialogues;
            orientation = p.pageLayout().orientation();
            p.setOutputFormat(QPrinter::PdfFormat);
            p.setOutputFileName(sortieDialogue);
            return accepte;
        };
        i.apercu = [this](QWidget*, QPrinter& p, const std::function<void(QPrinter&)>& dessine) {
            ++apercus;
            orientation = p.pageLayout().orientation();
            p.setOutputFormat(QPrinter::PdfFormat);
            p.setOutputFileName(sortieDialogue);
            dessine(p);
        };
        i.fichierPdf = [this](QWidget*, const QString&) {
            ++choixFichier;
            return fichier;
        };
        return i;
    }
};

TEST(Impression, MenuImprimerAvecEtSansImprimante)
{
    Dessin d;
    Mirado& m = *d.m;
    struct Cas {
        const char* nom;
        const char* fichier;  // the PDF file named
        int orientation;      // mnuipo: 0 "Portrait", 1 "Paysage"
        bool installee, accepte, nomme;
        const char* article;  // the menu entry triggered
        bool ecrit;           // the page is in `pdf` afterwards
        int dialogues, apercus, choixFichier;
        const char* message;  // what the user is told, "" nothing
    };
    const Cas cas[] = {
        {"sans imprimante, paysage", "graphique.pdf", 1, false, true, true, "mnuip", true, 0, 0, 1,
         "Aucune imprimante n'est installée : le graphique est enregistré dans "},
        {"sans imprimante, portrait", "graphique.pdf", 0, false, true, true, "mnuip", true, 0, 0, 1,
         "Aucune imprimante n'est installée : le graphique est enregistré dans "},
        {"sans imprimante, fichier refusé", "graphique.pdf", 1, false, true, false, "mnuip", false, 0, 0, 1, ""},
        // A file that cannot be written: said, nothing claimed written.
        {"sans imprimante, dossier absent", "absent/graphique.pdf", 1, false, true, true, "mnuip", false, 0, 0, 1,
         "graphique.pdf » : le dossier n'existe pas"},
        {"dialogue accepté, fichier PDF", "graphique.pdf", 0, true, true, true, "mnuip", true, 1, 0, 0, ""},
        {"dialogue annulé", "graphique.pdf", 1, true, false, true, "mnuip", false, 1, 0, 0, ""},
        {"aperçu", "graphique.pdf", 1, true, true, true, "mnuipap", true, 0, 1, 0, ""},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.nom);
        const QString pdf = d.banc.chemin(QString::fromUtf8(c.fichier));
        QFile::remove(pdf);
        d.banc.messages.clear();
        Reponses r;
        r.installee = c.installee;
        r.accepte = c.accepte;
        r.sortieDialogue = pdf;
        if (c.nomme)
            r.fichier = pdf;
        installeImpression(m, r.crochets());
        article(m, "mnuipo", c.orientation)->trigger();
        controle<QAction>(m, QString::fromUtf8(c.article))->trigger();
        EXPECT_EQ(r.dialogues, c.dialogues);
        EXPECT_EQ(r.apercus, c.apercus);
        EXPECT_EQ(r.choixFichier, c.choixFichier);
        if (c.dialogues + c.apercus) {
            EXPECT_EQ(r.orientation, c.orientation ? QPageLayout::Landscape : QPageLayout::Portrait);
        }
        ASSERT_EQ(QFileInfo::exists(pdf), c.ecrit);
        if (*c.message) {
            ASSERT_EQ(d.banc.messages.size(), 1);
            EXPECT_TRUE(d.banc.messages[0].contains(QString::fromUtf8(c.message))) << d.banc.messages[0].toStdString();
            EXPECT_TRUE(d.banc.messages[0].contains(QStringLiteral("graphique.pdf")));
        } else {
            EXPECT_TRUE(d.banc.messages.isEmpty()) << d.banc.messages.join('|').toStdString();
        }
        if (c.ecrit) {
            EXPECT_TRUE(texteDuPdf(pdf).contains(QStringLiteral("TRACE DES COURBES")));
            const QSizeF page = pageDuPdf(pdf);
            EXPECT_EQ(page.width() > page.height(), c.orientation == 1) << page.width() << " x " << page.height();
        }
    }
}

TEST(Impression, CopieDEcranDansLePressePapiers)
{
    Dessin d;
    Mirado& m = *d.m;
    QGuiApplication::clipboard()->clear();
    controle<QAction>(m, "mnuipcop")->trigger();
    const QImage image = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), m.ecran().size());
    // The label is painted over the drawing; the window's picture stays as it was.
    EXPECT_NE(image.convertToFormat(QImage::Format_RGB32), m.ecran().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32),
              imageAvecEtiquettes(m).convertToFormat(QImage::Format_RGB32));
    ASSERT_EQ(d.banc.messages.size(), 1);
    EXPECT_TRUE(d.banc.messages[0].startsWith(QStringLiteral("Le dessin est copié dans le presse-papiers")))
        << d.banc.messages[0].toStdString();
}

}  // namespace
}  // namespace velorin::essai
