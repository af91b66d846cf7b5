// The one drawing surface that all drawing goes through, in surface units
// (twips: 15 per pixel at 96 dpi), origin at the top left, y downwards.
// Implementations: the QPainter one of the program (window bitmap, image, SVG,
// PDF, printer) and the recording one (tests, text journal).
#pragma once
#include <string>

#include "settings/couleurs.h"

namespace velorin {

// A point of space.
struct Point3 {
    double x = 0, y = 0, z = 0;
};

// Twips per pixel of a 96 dpi screen or image.
inline constexpr double twipsParPixelEcran = 15;

class Surface {
public:
    virtual ~Surface() = default;

    // Segment in `couleur` with the current DrawWidth and DrawStyle; the
    // current position moves to (x2, y2).
    virtual void Line(double x1, double y1, double x2, double y2, Couleur couleur) = 0;
    // One point; the current position moves to (x, y).
    virtual void PSet(double x, double y, Couleur couleur) = 0;
    // A segment of space: its ends on the surface, (x1, y1) and (x2, y2),
    // and the points of space a and b they show. A surface that resolves
    // hidden parts uses a and b; every other one draws the segment as Line.
    virtual void LineEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b,
                            Couleur couleur)
    {
        (void)a;
        (void)b;
        Line(x1, y1, x2, y2, couleur);
    }
    // A point of space a shown at (x, y); drawn as PSet except where a
    // surface that resolves hidden parts finds it hidden.
    virtual void PSetEspace(double x, double y, const Point3& a, Couleur couleur)
    {
        (void)a;
        PSet(x, y, couleur);
    }
    // The text about a point of space a shown at (x, y) (a number or letter
    // of the frame), written like Print; a surface that resolves hidden
    // parts leaves it out where it finds that point hidden.
    virtual void PrintEspace(const std::string& texte, double x, double y, const Point3& a)
    {
        (void)x;
        (void)y;
        (void)a;
        Print(texte);
    }
    // A face: the polygon of n corners (xs[i], ys[i]) filled in `couleur`,
    // without outline (its edges are drawn as lines). Drawn only by the
    // style "Faces ombrées"; a surface that cannot fill ignores it.
    virtual void Face(const double* xs, const double* ys, int n, Couleur couleur)
    {
        (void)xs;
        (void)ys;
        (void)n;
        (void)couleur;
    }
    // A face of space: the polygon of n corners (xs[i], ys[i]) on the
    // surface, images of the points of space sommets[i], in `couleur`. It
    // hides what lies behind it on a surface that resolves hidden parts;
    // every other one draws nothing for it.
    virtual void FaceEspace(const Point3* sommets, const double* xs, const double* ys, int n, Couleur couleur)
    {
        (void)sommets;
        (void)xs;
        (void)ys;
        (void)n;
        (void)couleur;
    }
    // Circle outline.
    virtual void Circle(double x, double y, double rayon, Couleur couleur) = 0;
    // Text (UTF-8) with the top left corner of its first line at
    // (CurrentX, CurrentY), in ForeColor with the current font. Afterwards
    // the position goes to the start of the next line: CurrentX = 0 and
    // CurrentY grows by TextHeight(), so successive Prints step down.
    virtual void Print(const std::string& texte) = 0;
    // Clears the whole surface to `fond`; the position goes back to (0, 0).
    virtual void Clear(Couleur fond) = 0;
    // Surface size in twips.
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    // Width and height of a text in the current font, in twips (for layout).
    virtual double TextWidth(const std::string& texte) const = 0;
    virtual double TextHeight() const = 0;
    // Puts on the device whatever the surface still holds back (a surface
    // may gather consecutive segments into one polyline). Call it before the
    // picture is shown, saved or printed; drawing may go on afterwards.
    virtual void Acheve() { }

    // Pen and font state; stays in force until changed.
    double CurrentX = 0, CurrentY = 0;
    Couleur ForeColor = 0;
    int DrawWidth = 1;  // pixels
    int DrawStyle = 0;  // 0 solid, 1 dashed (hidden parts), 2 dotted
    std::string FontName = "Arial";
    double FontSize = 8;  // points
    bool FontBold = false, FontItalic = false, FontUnderline = false;
};

// Keeps the pen and font state of a surface and puts it back when it ends,
// so that a drawing step (the frame, the labels) leaves the surface's state
// as it found it.
class GardePlume {
public:
    explicit GardePlume(Surface& s)
        : s_(s), x_(s.CurrentX), y_(s.CurrentY), encre_(s.ForeColor), largeur_(s.DrawWidth), style_(s.DrawStyle),
          police_(s.FontName), taille_(s.FontSize), gras_(s.FontBold), italique_(s.FontItalic),
          souligne_(s.FontUnderline)
    { }
    ~GardePlume()
    {
        s_.CurrentX = x_;
        s_.CurrentY = y_;
        s_.ForeColor = encre_;
        s_.DrawWidth = largeur_;
        s_.DrawStyle = style_;
        s_.FontName = police_;
        s_.FontSize = taille_;
        s_.FontBold = gras_;
        s_.FontItalic = italique_;
        s_.FontUnderline = souligne_;
    }
    GardePlume(const GardePlume&) = delete;
    GardePlume& operator=(const GardePlume&) = delete;

private:
    Surface& s_;
    double x_, y_;
    Couleur encre_;
    int largeur_, style_;
    std::string police_;
    double taille_;
    bool gras_, italique_, souligne_;
};

// The 16-colour console palette (QBColor 0..15).
Couleur QBColor(int index);

}  // namespace velorin
