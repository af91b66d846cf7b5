// A drawing surface that writes a TikZ picture as it draws (see
// SurfaceVectorielle): a tikzpicture in centimetres at the width asked, to
// \input in a LaTeX document, or with `autonome` a whole document whose
// single page is the size of the figure. Each colour is defined once, where
// it is first used; the polylines are cut into \draw commands of a few
// hundred points so that TeX's memory stays small whatever their length.
// A hidden part (DrawStyle 1) is TikZ's `dashed`, whose dashes keep their
// length on paper whatever the figure's width. A face is filled and edged
// with a hairline of its colour by pgf's quick path commands, which open no
// scope and keep no bounding box: about 40 % less TeX memory than a \fill,
// some 27000 shaded faces in pdflatex's default memory instead of 16000.
// They leave the colour and the line width set at the picture's level,
// where every other shape sets its own.
#pragma once
#include <optional>
#include <ostream>
#include <set>
#include <string>

#include "qt/surface_vectorielle.h"

namespace velorin {

// `texte` (UTF-8) written as LaTeX prints it: the characters LaTeX gives a
// meaning to are escaped, control bytes become spaces, and the characters
// the T1 encoding has no glyph for become "?" (only ASCII, Latin-1 and the
// French œ, Œ and Ÿ are kept). Ligatures are broken ("f{}l", "-{}-") so
// that the PDF keeps the letters typed as its text.
std::string texteLatex(const std::string& texte);

// A width such as "12cm", "90mm" or "12" (centimetres), from 0.5 to 500 cm;
// nothing for any other text.
std::optional<double> largeurTex(const std::string& texte);

struct OptionsTex {
    double largeurCm = 12;
    bool autonome = false;
};

class SurfaceTikz : public SurfaceVectorielle {
public:
    // Writes the picture's head (and the document's preamble) at once.
    SurfaceTikz(std::ostream& sortie, int largeurPx, int hauteurPx, const OptionsTex& options);
    ~SurfaceTikz() override;  // ends the picture if termine() was not called
    // Writes what is held back and the picture's (and document's) end.
    void termine();

protected:
    void rectangle(double x, double y, double l, double h, Couleur couleur) override;
    void polyligne(const std::vector<PointPlan>& points, Couleur couleur, int largeur, int style) override;
    void face(const std::vector<PointPlan>& coins, Couleur couleur) override;
    void cercle(double x, double y, double rayon, Couleur couleur, int largeur, int style) override;
    void ecrit(double x, double y, const QFont& police, Couleur couleur, const std::string& texte) override;

private:
    void point(double x, double y);  // (x,y) in centimetres, y up
    void nombre(double v);
    const std::string& couleur(Couleur c);  // its name, defined the first time
    void trait(Couleur c, int largeur, int style);

    std::ostream& sortie_;
    double cm_;  // centimetres per pixel
    double hauteurPx_;
    bool autonome_, fini_ = false;
    bool largeurFaces_ = false;  // the faces' hairline width is set
    long couleurFaces_ = -1;     // the colour set for the faces, -1: none
    std::set<Couleur> definies_;
    std::string nom_, texte_;
};

}  // namespace velorin
