// A drawing surface that draws nothing and keeps every operation, in order,
// with its arguments and the pen state in force. Tests read the operations;
// the export writes them as a text journal.
//
// Journal: one operation a line ending with "\n"; numbers in their shortest
// exact text with "." as the decimal separator whatever the locale;
// coordinates in twips; colours as decimal 24-bit values (red in the low
// byte: 255 is red, 16711680 blue).
//   LINE x1 y1 x2 y2 colour width style
//   PSET x y colour width
//   CIRCLE x y radius colour width style
//   PRINT x y colour "font" size "text"
//   CLEAR colour
//   FACE n x1 y1 ... xn yn colour
// width is DrawWidth in pixels, style DrawStyle (0 solid, 1 dashed: a part
// hidden by a surface, 2 dotted), size the font size in points. FACE is a
// filled polygon of n corners (at least 3) without outline, in the styles
// that shade the surfaces' faces; a face of fewer corners is not kept.
// Texts are between double quotes, a quote inside is doubled, and line
// breaks become blanks so that one operation stays on one line.
//
// Text metrics are a fixed estimate, the same on every machine, so that
// layouts computed against this surface are testable: a character (UTF-8
// code point) is 0.6 x size x 20 twips wide and a line 1.2 x size x 20 twips
// high.
#pragma once
#include <ostream>
#include <string>
#include <vector>

#include "view/surface.h"

namespace velorin {

struct OperationDessin {
    enum class Genre { Ligne, Point, Cercle, Texte, Effacement, Face };
    Genre genre = Genre::Ligne;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // Point, Cercle, Texte: (x1, y1)
    double rayon = 0;
    Couleur couleur = 0;
    int largeur = 1;  // DrawWidth
    int style = 0;    // DrawStyle
    std::string police;
    double taille = 0;  // FontSize
    std::string texte;
    std::vector<double> sommets;  // Face: x1, y1, x2, y2, ...
};

class SurfaceEnregistreuse : public Surface {
public:
    // Size in twips; the default is a 1024 x 768 pixel window.
    explicit SurfaceEnregistreuse(double largeur = 15360, double hauteur = 11520);

    void Line(double x1, double y1, double x2, double y2, Couleur couleur) override;
    void PSet(double x, double y, Couleur couleur) override;
    void Circle(double x, double y, double rayon, Couleur couleur) override;
    void Print(const std::string& texte) override;
    void Clear(Couleur fond) override;
    void Face(const double* xs, const double* ys, int n, Couleur couleur) override;
    double Width() const override { return largeur_; }
    double Height() const override { return hauteur_; }
    double TextWidth(const std::string& texte) const override;
    double TextHeight() const override;

    // Streaming mode: from now on every operation is written to `sortie` as
    // its journal line the moment it is recorded, and is not kept, so that
    // a drawing of millions of points needs no memory for its journal. The
    // lines are byte for byte those journal() gives. nullptr goes back to
    // keeping the operations in memory (the default). The stream must
    // outlive the drawing; its failures are the stream's to report (for an
    // export: EcritureEntiere::flux(), whose termine() gives the failure).
    void ecrisDans(std::ostream* sortie);

    // The operations kept in memory (none of those streamed).
    const std::vector<OperationDessin>& operations() const { return operations_; }
    // Forgets the operations recorded so far (the pen state stays).
    void oublie() { operations_.clear(); }

    // The journal of the operations kept in memory.
    void ecrisJournal(std::ostream& sortie) const;
    std::string journal() const;

private:
    OperationDessin nouvelle(OperationDessin::Genre genre, Couleur couleur) const;
    void garde(const OperationDessin& op);

    double largeur_, hauteur_;
    std::vector<OperationDessin> operations_;
    std::ostream* sortie_ = nullptr;
    std::string ligne_;  // the line being streamed, reused
};

// Appends the journal line of `op` ("LINE ...\n") to `journal`.
void ajouteAuJournal(const OperationDessin& op, std::string& journal);

// Number of UTF-8 code points of a text (the width unit of the estimate).
std::size_t nombreCaracteres(const std::string& texte);

}  // namespace velorin
