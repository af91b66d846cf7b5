#include "plot/scene.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "view/profondeur.h"
#include "view/projection.h"

namespace velorin {

namespace {

// The font of `de` given to `vers`: the scene measures and draws its texts
// on the real surface with its own font.
void copiePolice(const Surface& de, Surface& vers)
{
    vers.FontName = de.FontName;
    vers.FontSize = de.FontSize;
    vers.FontBold = de.FontBold;
    vers.FontItalic = de.FontItalic;
    vers.FontUnderline = de.FontUnderline;
}

// The position, pen and font of `de` given to `vers`.
void copiePlume(const Surface& de, Surface& vers)
{
    vers.CurrentX = de.CurrentX;
    vers.CurrentY = de.CurrentY;
    vers.ForeColor = de.ForeColor;
    vers.DrawWidth = de.DrawWidth;
    vers.DrawStyle = de.DrawStyle;
    copiePolice(de, vers);
}

}  // namespace

// A redraw while the view is dragged finds its memory ready: no growing and
// no asking the system again for what the previous redraw used.
struct Scene::Memoire {
    std::vector<Operation> operations;
    std::vector<Texte> textes;
    std::vector<Face> faces;
    std::vector<double> xs, ys, ps;
};

Scene::Memoire& Scene::memoire()
{
    thread_local Memoire m;
    return m;
}

void Scene::echange(Memoire& m)
{
    operations_.swap(m.operations);
    textes_.swap(m.textes);
    faces_.swap(m.faces);
    xs_.swap(m.xs);
    ys_.swap(m.ys);
    ps_.swap(m.ps);
}

void Scene::oublie()
{
    operations_.clear();
    textes_.clear();
    faces_.clear();
    xs_.clear();
    ys_.clear();
    ps_.clear();
}

Scene::~Scene()
{
    oublie();
    if (operations_.capacity() > memoire().operations.capacity())
        echange(memoire());
}

Scene::Scene(Surface& cible, const Parametres& p, const Vue& v, StyleRendu style)
    : cible_(cible), p_(p), v_(v), style_(style)
{
    echange(memoire());
    copiePlume(cible, *this);
}

double Scene::profondeurDe(const Point3& a) const
{
    return profondeur(p_, v_, a.x, a.y, a.z);
}

void Scene::garde(Operation::Genre genre, double x1, double y1, double x2, double y2, Couleur couleur, double p1,
                  double p2)
{
    operations_.push_back({x1, y1, x2, y2, static_cast<float>(p1), static_cast<float>(p2), couleur,
                           static_cast<std::int16_t>(DrawWidth), static_cast<std::int8_t>(DrawStyle), genre});
}

void Scene::Line(double x1, double y1, double x2, double y2, Couleur couleur)
{
    garde(Operation::Ligne, x1, y1, x2, y2, couleur);
    CurrentX = x2;
    CurrentY = y2;
}

void Scene::LineEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b, Couleur couleur)
{
    garde(Operation::LigneEspace, x1, y1, x2, y2, couleur, profondeurDe(a), profondeurDe(b));
    CurrentX = x2;
    CurrentY = y2;
}

void Scene::PSet(double x, double y, Couleur couleur)
{
    garde(Operation::Point, x, y, 0, 0, couleur);
    CurrentX = x;
    CurrentY = y;
}

void Scene::PSetEspace(double x, double y, const Point3& a, Couleur couleur)
{
    garde(Operation::PointEspace, x, y, 0, 0, couleur, profondeurDe(a));
    CurrentX = x;
    CurrentY = y;
}

void Scene::Circle(double x, double y, double rayon, Couleur couleur)
{
    garde(Operation::Cercle, x, y, rayon, 0, couleur);
}

void Scene::Print(const std::string& texte)
{
    textes_.push_back({texte, FontName, FontSize, FontBold, FontItalic, FontUnderline, ForeColor});
    garde(Operation::Texte, CurrentX, CurrentY, double(textes_.size() - 1), 0, ForeColor);
    CurrentX = 0;
    CurrentY += TextHeight();
}

void Scene::PrintEspace(const std::string& texte, double x, double y, const Point3& a)
{
    Print(texte);
    Texte& t = textes_.back();
    t.ancreX = x;
    t.ancreY = y;
    t.profondeur = profondeurDe(a);
    t.espace = true;
}

void Scene::Clear(Couleur fond)
{
    garde(Operation::Effacement, 0, 0, 0, 0, fond);
    CurrentX = CurrentY = 0;
}

double Scene::TextWidth(const std::string& texte) const
{
    copiePolice(*this, cible_);
    return cible_.TextWidth(texte);
}

double Scene::TextHeight() const
{
    copiePolice(*this, cible_);
    return cible_.TextHeight();
}

Couleur Scene::ombre(Couleur couleur, double cosinus)
{
    const double c = std::clamp(std::isfinite(cosinus) ? cosinus : 0.0, -1.0, 1.0);
    // Lit from the viewer: full colour facing it, a third of it edge on; the
    // back side a little darker and drawn towards grey.
    const double k = c >= 0 ? 0.35 + 0.65 * c : 0.3 + 0.5 * -c;
    const double gris = c >= 0 ? 0 : 0.3;
    const double r = couleur & 0xFF, g = (couleur >> 8) & 0xFF, b = (couleur >> 16) & 0xFF;
    const double moyenne = (r + g + b) / 3;
    auto canal = [&](double v) {
        return static_cast<Couleur>(std::clamp(std::lround(k * ((1 - gris) * v + gris * moyenne)), 0L, 255L));
    };
    return canal(r) | canal(g) << 8 | canal(b) << 16;
}

void Scene::FaceEspace(const Point3* sommets, const double* xs, const double* ys, int n, Couleur couleur)
{
    if (n < 3)
        return;
    // Normal by Newell's sum (any flat or nearly flat polygon), centre.
    double nx = 0, ny = 0, nz = 0, cx = 0, cy = 0, cz = 0, somme = 0;
    const auto debut = static_cast<std::uint32_t>(xs_.size());
    for (int i = 0; i < n; ++i) {
        const Point3& a = sommets[i];
        const Point3& b = sommets[(i + 1) % n];
        nx += (a.y - b.y) * (a.z + b.z);
        ny += (a.z - b.z) * (a.x + b.x);
        nz += (a.x - b.x) * (a.y + b.y);
        cx += a.x / n;
        cy += a.y / n;
        cz += a.z / n;
        const double p = profondeurDe(a);
        xs_.push_back(xs[i]);
        ys_.push_back(ys[i]);
        ps_.push_back(p);
        somme += p;
    }
    Couleur teinte = couleur;
    if (style_ == StyleRendu::FacesOmbrees) {
        // Towards the viewer: where the depth decreases fastest.
        const double h = 1e-4 * (1 + std::abs(cx) + std::abs(cy) + std::abs(cz));
        const double p0 = profondeur(p_, v_, cx, cy, cz);
        const double vx = p0 - profondeur(p_, v_, cx + h, cy, cz), vy = p0 - profondeur(p_, v_, cx, cy + h, cz),
                     vz = p0 - profondeur(p_, v_, cx, cy, cz + h);
        const double norme = std::sqrt((nx * nx + ny * ny + nz * nz) * (vx * vx + vy * vy + vz * vz));
        teinte = ombre(couleur, norme > 0 ? (nx * vx + ny * vy + nz * vz) / norme : 1);
    }
    faces_.push_back({debut, static_cast<std::uint32_t>(n), somme / n, teinte});
}

void Scene::rejoue(const Operation& op, const ImageProfondeur& image)
{
    cible_.DrawWidth = op.largeur;
    cible_.DrawStyle = op.style;
    switch (op.genre) {
    case Operation::Ligne: cible_.Line(op.x1, op.y1, op.x2, op.y2, op.couleur); break;
    case Operation::Point: cible_.PSet(op.x1, op.y1, op.couleur); break;
    case Operation::PointEspace:
        if (!image.cache(op.x1, op.y1, op.p1))
            cible_.PSet(op.x1, op.y1, op.couleur);
        break;
    case Operation::Cercle: cible_.Circle(op.x1, op.y1, op.x2, op.couleur); break;
    case Operation::Effacement: cible_.Clear(op.couleur); break;
    case Operation::Texte: {
        const Texte& t = textes_[static_cast<std::size_t>(op.x2)];
        if (t.espace && image.cache(t.ancreX, t.ancreY, t.profondeur))
            break;
        cible_.CurrentX = op.x1;
        cible_.CurrentY = op.y1;
        cible_.ForeColor = t.encre;
        cible_.FontName = t.police;
        cible_.FontSize = t.taille;
        cible_.FontBold = t.gras;
        cible_.FontItalic = t.italique;
        cible_.FontUnderline = t.souligne;
        cible_.Print(t.texte);
        break;
    }
    case Operation::LigneEspace: {
        thread_local std::vector<ImageProfondeur::Morceau> morceaux;
        image.decoupe(op.x1, op.y1, op.p1, op.x2, op.y2, op.p2, morceaux);
        const double dx = op.x2 - op.x1, dy = op.y2 - op.y1;
        for (const ImageProfondeur::Morceau& m : morceaux) {
            if (m.cache && style_ != StyleRendu::Pointilles)
                continue;
            cible_.DrawStyle = m.cache ? 1 : op.style;
            cible_.Line(op.x1 + m.u0 * dx, op.y1 + m.u0 * dy, op.x1 + m.u1 * dx, op.y1 + m.u1 * dy, op.couleur);
        }
        break;
    }
    }
}

void Scene::resous()
{
    // The image covers the faces only (within the surface), a pixel around.
    double x0 = INFINITY, y0 = INFINITY, x1 = -INFINITY, y1 = -INFINITY;
    for (std::size_t i = 0; i < xs_.size(); ++i)
        if (std::isfinite(xs_[i]) && std::isfinite(ys_[i])) {
            x0 = std::min(x0, xs_[i]);
            x1 = std::max(x1, xs_[i]);
            y0 = std::min(y0, ys_[i]);
            y1 = std::max(y1, ys_[i]);
        }
    constexpr double marge = 2 * twipsParPixelEcran;
    ImageProfondeur image(std::max(x0 - marge, 0.0), std::max(y0 - marge, 0.0),
                          std::min(x1 + marge, cible_.Width()), std::min(y1 + marge, cible_.Height()),
                          twipsParPixelEcran);
    for (const Face& f : faces_)
        image.polygone(xs_.data() + f.debut, ys_.data() + f.debut, ps_.data() + f.debut, static_cast<int>(f.n));
    image.acheve();

    // Everything before the last clearing, the clearing, then the faces.
    std::size_t apresEffacement = 0;
    for (std::size_t i = operations_.size(); i-- > 0;)
        if (operations_[i].genre == Operation::Effacement) {
            apresEffacement = i + 1;
            break;
        }
    for (std::size_t i = 0; i < apresEffacement; ++i)
        rejoue(operations_[i], image);
    if (style_ == StyleRendu::FacesOmbrees) {
        std::vector<std::uint32_t> ordre(faces_.size());
        std::iota(ordre.begin(), ordre.end(), 0U);
        std::stable_sort(ordre.begin(), ordre.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return faces_[a].profondeur > faces_[b].profondeur; });
        for (std::uint32_t k : ordre) {
            const Face& f = faces_[k];
            const double* ps = ps_.data() + f.debut;
            if (std::any_of(ps, ps + f.n, [](double p) { return !(p > 0); }))
                continue;  // a face reaching behind the viewer has no image
            cible_.Face(xs_.data() + f.debut, ys_.data() + f.debut, static_cast<int>(f.n), f.couleur);
        }
    }
    for (std::size_t i = apresEffacement; i < operations_.size(); ++i)
        rejoue(operations_[i], image);

    copiePlume(*this, cible_);
    oublie();
}

}  // namespace velorin
