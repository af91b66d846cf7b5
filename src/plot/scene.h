// The space drawing seen as a solid: a surface that keeps a whole redraw,
// then puts it on the real surface with the parts hidden by the faces of
// space dashed or left out, and the faces shaded in the style "Faces
// ombrées".
//
// While recording, every operation is kept in order with the pen and font in
// force: segments and points of space with the depths of their points, faces
// of space with their corners. On `resous`, the depth image of every face is
// built at the real surface's pixel size, then the real surface gets:
// whatever came up to the last clearing, the faces (style "Faces ombrées":
// farthest first, each filled in its colour shaded by the angle between its
// normal and the line of sight, darker where it turns away, its back side a
// little greyer than its front), then every other operation in order, each
// segment of space cut into the pieces seen (drawn with the pen it was given)
// and hidden (style "Parties cachées en pointillés": dashed, DrawStyle 1;
// otherwise left out), each point of space left out where hidden. A segment
// with an end at or behind the viewer cannot be tested and is drawn as seen.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "settings/parametres.h"
#include "settings/rendu.h"
#include "view/surface.h"
#include "view/vue.h"

namespace velorin {

class ImageProfondeur;

class Scene : public Surface {
public:
    // Depths are those of `p` and `v` at the time of each operation: the
    // caller keeps both alive (they may change between operations, as the
    // rows of a redraw bring their own values).
    Scene(Surface& cible, const Parametres& p, const Vue& v, StyleRendu style);
    ~Scene() override;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void Line(double x1, double y1, double x2, double y2, Couleur couleur) override;
    void PSet(double x, double y, Couleur couleur) override;
    void PSetEspace(double x, double y, const Point3& a, Couleur couleur) override;
    void LineEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b,
                    Couleur couleur) override;
    void FaceEspace(const Point3* sommets, const double* xs, const double* ys, int n, Couleur couleur) override;
    void Circle(double x, double y, double rayon, Couleur couleur) override;
    void Print(const std::string& texte) override;
    void PrintEspace(const std::string& texte, double x, double y, const Point3& a) override;
    void Clear(Couleur fond) override;
    double Width() const override { return cible_.Width(); }
    double Height() const override { return cible_.Height(); }
    double TextWidth(const std::string& texte) const override;
    double TextHeight() const override;

    // Draws what was recorded onto the real surface (see above) and forgets
    // it; the real surface's pen and font are then those left here.
    void resous();

    // The colour of a face in `couleur` whose normal makes an angle of
    // cosine `cosinus` with the line towards the viewer (negative: its back
    // side is seen).
    static Couleur ombre(Couleur couleur, double cosinus);

private:
    struct Operation {
        enum Genre : std::uint8_t { Ligne, Point, PointEspace, LigneEspace, Cercle, Texte, Effacement };
        double x1, y1, x2, y2;  // Cercle: x2 is the radius; Texte: x2 the index of its text
        float p1, p2;           // depths of the points of space
        Couleur couleur;
        std::int16_t largeur;
        std::int8_t style;
        Genre genre;
    };
    struct Texte {
        std::string texte, police;
        double taille;
        bool gras, italique, souligne;
        Couleur encre;
        // A text about a point of space: the point's image and depth, and
        // whether it has one (a text about a hidden point is left out).
        double ancreX = 0, ancreY = 0, profondeur = 0;
        bool espace = false;
    };
    struct Face {
        std::uint32_t debut;  // first corner in xs_, ys_, ps_
        std::uint32_t n;
        double profondeur;  // mean depth of the corners, for the order
        Couleur couleur;    // shaded already
    };

    // The memory of the last scene of the thread, taken up by the next one.
    struct Memoire;
    static Memoire& memoire();
    void echange(Memoire& m);
    void oublie();  // everything recorded, the memory kept

    void garde(Operation::Genre genre, double x1, double y1, double x2, double y2, Couleur couleur, double p1 = 0,
               double p2 = 0);
    double profondeurDe(const Point3& a) const;
    void rejoue(const Operation& op, const ImageProfondeur& image);

    Surface& cible_;
    const Parametres& p_;
    const Vue& v_;
    StyleRendu style_;
    std::vector<Operation> operations_;
    std::vector<Texte> textes_;
    std::vector<Face> faces_;
    std::vector<double> xs_, ys_, ps_;
};

}  // namespace velorin
