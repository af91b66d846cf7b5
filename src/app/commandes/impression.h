// The menu IMPRIMER of the main window: printing the drawing ("LE
// GRAPHIQUE", with the standard print dialog), a print preview, printing to
// a PDF file when no printer is installed, and "Copie d'écran", which puts
// the drawing on the clipboard as an image. The page itself (curves drawn
// again, title, legend, labels, dated footer) is the core's dessinePage.
#pragma once
#include <QString>
#include <functional>
#include <optional>

#include "base/erreur.h"

class QImage;
class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace velorin {

class Mirado;
struct Etat;

// The printer and its dialogs, reached through hooks so that a test can
// answer them instead of a user.
struct Imprimantes {
    // A printer is installed on the system.
    std::function<bool()> installee;
    // The print dialog on `imprimante`: false when the user cancelled.
    std::function<bool(QWidget* parent, QPrinter& imprimante)> dialogue;
    // The print preview; it calls `dessine` for each rendering it shows.
    std::function<void(QWidget* parent, QPrinter& imprimante, const std::function<void(QPrinter&)>& dessine)> apercu;
    // The name of the PDF file to write when no printer is installed,
    // nothing when the user cancelled.
    std::function<std::optional<QString>(QWidget* parent, const QString& proposition)> fichierPdf;

    // The real ones: QPrinterInfo, QPrintDialog, QPrintPreviewDialog and
    // the file dialog, in French.
    static Imprimantes standard();
};

// Enables and wires "LE GRAPHIQUE" (mnuip), "Copie d'écran" (mnuipcop) and
// adds "Aperçu avant impression" (mnuipap) to the menu IMPRIMER. Called
// again (by a test), it replaces the hooks.
void installeImpression(Mirado& fenetre, Imprimantes imprimantes = Imprimantes::standard());

// imprimage: the page of the drawing on `appareil` (a printer or a PDF
// writer), in the orientation of the menu "Imprimante" (mnuipo), with the
// date and time of now in the footer.
Erreur imprimage(const Etat& etat, QPagedPaintDevice& appareil);

// mnuip_Click: the print dialog then the page; without a printer, the page
// written into a PDF file that the user names. Says what went wrong.
void imprimeGraphique(Mirado& fenetre, const Imprimantes& imprimantes);
// The print preview of the page.
void apercuGraphique(Mirado& fenetre, const Imprimantes& imprimantes);
// mnuipcop_Click: the drawing and its labels copied to the clipboard as an
// image, and the user told so.
void copieEcran(Mirado& fenetre);
// The drawing of the window with its labels painted over it.
QImage imageAvecEtiquettes(const Mirado& fenetre);

}  // namespace velorin
