#include "app/commandes/impression.h"

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <memory>

#include "app/fenetre/mirado.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "plot/dessin_etiquettes.h"
#include "plot/impression.h"
#include "qt/surface_qpainter.h"

namespace velorin {

namespace {

QPageLayout::Orientation orientation(const Etat& etat)
{
    return etat.fenetre.orientationImprimante == 0 ? QPageLayout::Portrait : QPageLayout::Landscape;
}

Horodatage maintenant()
{
    const QDateTime t = QDateTime::currentDateTime();
    return {t.date().year(), t.date().month(), t.date().day(), t.time().hour(), t.time().minute(), t.time().second()};
}

QString cite(const QString& chemin)
{
    return QString::fromStdString(texteCite(chemin.toStdString()));
}

// The page into a PDF file of the given layout, written whole through the
// one write routine.
Erreur ecrisPdf(const Etat& etat, const QString& chemin, const QPageLayout& mise)
{
    QByteArray octets;
    QBuffer tampon(&octets);
    tampon.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&tampon);
        pdf.setResolution(300);
        pdf.setPageLayout(mise);
        pdf.setTitle(QStringLiteral("TRACE DES COURBES"));
        pdf.setCreator(QStringLiteral("Velorin"));
        if (auto erreur = imprimage(etat, pdf))
            return erreur;
    }
    tampon.close();
    return ecrisFichierEntier(chemin.toStdString(), std::string_view(octets.constData(), std::size_t(octets.size())));
}

// An A4 page in the menu's orientation, for the PDF file written when no
// printer is installed.
QPageLayout pageA4(const Etat& etat)
{
    return QPageLayout(QPageSize(QPageSize::A4), orientation(etat), QMarginsF());
}

// The printer of the menu's orientation.
std::unique_ptr<QPrinter> imprimante(const Etat& etat)
{
    auto p = std::make_unique<QPrinter>(QPrinter::HighResolution);
    p->setPageOrientation(orientation(etat));
    p->setDocName(QStringLiteral("TRACE DES COURBES"));
    return p;
}

void dit(Mirado& m, const Erreur& erreur)
{
    if (erreur)
        m.boites.message(&m, QString::fromStdString(erreur.message()));
}

// The page on a printer set up by the print dialog or the preview. Printing
// into a PDF file chosen there goes through the one write routine too
// (whole or not at all), in the layout chosen; the preview's own rendering
// and a real printer are painted on directly.
void imprimeSur(Mirado& m, QPrinter& p)
{
    const bool versFichier = p.outputFormat() == QPrinter::PdfFormat && !p.outputFileName().isEmpty() &&
                             p.paintEngine() && p.paintEngine()->type() == QPaintEngine::Pdf;
    dit(m, versFichier ? ecrisPdf(m.etat, p.outputFileName(), p.pageLayout()) : imprimage(m.etat, p));
}

}  // namespace

Imprimantes Imprimantes::standard()
{
    Imprimantes i;
    i.installee = [] { return !QPrinterInfo::availablePrinters().isEmpty(); };
    i.dialogue = [](QWidget* parent, QPrinter& p) {
        QPrintDialog d(&p, parent);
        d.setWindowTitle(QStringLiteral("Imprimer le graphique"));
        return d.exec() == QDialog::Accepted;
    };
    i.apercu = [](QWidget* parent, QPrinter& p, const std::function<void(QPrinter&)>& dessine) {
        QPrintPreviewDialog d(&p, parent);
        d.setWindowTitle(QStringLiteral("Aperçu avant impression"));
        QObject::connect(&d, &QPrintPreviewDialog::paintRequested, &d, [&](QPrinter* q) { dessine(*q); });
        d.exec();
    };
    i.fichierPdf = [](QWidget* parent, const QString& proposition) -> std::optional<QString> {
        const QString f = QFileDialog::getSaveFileName(
            parent, QStringLiteral("Aucune imprimante n'est installée : enregistrer le graphique en PDF"), proposition,
            QStringLiteral("Documents PDF (*.pdf)"));
        if (f.isEmpty())
            return std::nullopt;
        return f;
    };
    return i;
}

Erreur imprimage(const Etat& etat, QPagedPaintDevice& appareil)
{
    QPainter peintre;
    if (!peintre.begin(&appareil))
        return "L'impression n'a pas pu commencer : l'imprimante ne répond pas.";
    // The page in twips: the device's size at its own resolution.
    const double largeur = appareil.width() * 1440.0 / appareil.logicalDpiX();
    const double hauteur = appareil.height() * 1440.0 / appareil.logicalDpiY();
    Erreur erreur;
    {
        SurfaceQPainter page(peintre, largeur, hauteur);
        erreur = dessinePage(etat, page, piedDePage(maintenant()));
    }
    if (!peintre.end())
        return "L'impression a échoué : la page n'a pas pu être envoyée.";
    return erreur;
}

void imprimeGraphique(Mirado& m, const Imprimantes& imprimantes)
{
    if (m.refuseSiOccupe())
        return;
    if (!imprimantes.installee()) {
        const QString proposition = QDir(QDir::homePath()).filePath(QStringLiteral("graphique.pdf"));
        const std::optional<QString> chemin = imprimantes.fichierPdf(&m, proposition);
        if (!chemin)
            return;
        if (auto erreur = ecrisPdf(m.etat, *chemin, pageA4(m.etat)))
            return dit(m, erreur);
        m.boites.message(&m, QStringLiteral("Aucune imprimante n'est installée : le graphique est enregistré dans ") +
                                 cite(*chemin) + QStringLiteral("."));
        return;
    }
    const auto p = imprimante(m.etat);
    if (!imprimantes.dialogue(&m, *p))
        return;
    imprimeSur(m, *p);
}

void apercuGraphique(Mirado& m, const Imprimantes& imprimantes)
{
    if (m.refuseSiOccupe())
        return;
    const auto p = imprimante(m.etat);
    imprimantes.apercu(&m, *p, [&m](QPrinter& q) { imprimeSur(m, q); });
}

QImage imageAvecEtiquettes(const Mirado& m)
{
    QImage image = m.ecran().copy();
    {
        SurfaceQPainter surface(image);
        dessineEtiquettes(m.etat.etiquettes, surface);
    }
    return image;
}

void copieEcran(Mirado& m)
{
    const QImage image = imageAvecEtiquettes(m);
    QGuiApplication::clipboard()->setImage(image);
    const QSize taille = image.deviceIndependentSize().toSize();
    m.boites.message(&m, QStringLiteral("Le dessin est copié dans le presse-papiers : une image de %1 x %2 points, "
                                        "prête à être collée dans un autre programme.")
                             .arg(taille.width())
                             .arg(taille.height()));
}

void installeImpression(Mirado& m, Imprimantes imprimantes)
{
    auto hooks = std::make_shared<Imprimantes>(std::move(imprimantes));
    auto* mnuip = m.findChild<QAction*>(QStringLiteral("mnuip"));
    auto* mnuipcop = m.findChild<QAction*>(QStringLiteral("mnuipcop"));
    auto* mnup = m.findChild<QMenu*>(QStringLiteral("mnup"));
    if (!mnuip || !mnuipcop || !mnup)
        return;
    auto* mnuipap = m.findChild<QAction*>(QStringLiteral("mnuipap"));
    if (!mnuipap) {
        mnuipap = new QAction(QStringLiteral("Aperçu avant impression"), &m);
        mnuipap->setObjectName(QStringLiteral("mnuipap"));
        mnup->insertAction(mnuipcop, mnuipap);
    }
    for (QAction* a : {mnuip, mnuipap, mnuipcop}) {
        QObject::disconnect(a, &QAction::triggered, nullptr, nullptr);
        a->setEnabled(true);
    }
    QObject::connect(mnuip, &QAction::triggered, &m, [&m, hooks] { imprimeGraphique(m, *hooks); });
    QObject::connect(mnuipap, &QAction::triggered, &m, [&m, hooks] { apercuGraphique(m, *hooks); });
    QObject::connect(mnuipcop, &QAction::triggered, &m, [&m] { copieEcran(m); });
}

}  // namespace velorin
