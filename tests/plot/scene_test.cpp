// The space drawing seen as a solid: hidden parts of lines against the faces
// of space, through the scene and through the whole redraw.
#include "plot/scene.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <set>

#include "commun/commun.h"
#include "plot/redessin.h"
#include "plot/traceurs.h"

namespace velorin {
namespace {

using namespace essai;
using Genre = OperationDessin::Genre;

// How the drawn lines of `couleur` show the point of space p: 0 seen, 1
// hidden and dashed, -1 no line passes within a pixel of its image.
int styleEn(const Etat& e, const SurfaceEnregistreuse& s, Couleur couleur, const Point3& p)
{
    double x, y;
    if (!projette(e.param, e.vue, true, p.x, p.y, p.z, x, y))
        return -1;
    int style = -1;
    for (const OperationDessin& o : duGenre(s, Genre::Ligne, couleur)) {
        const double dx = o.x2 - o.x1, dy = o.y2 - o.y1, l2 = dx * dx + dy * dy;
        const double u = l2 > 0 ? std::clamp(((x - o.x1) * dx + (y - o.y1) * dy) / l2, 0.0, 1.0) : 0;
        if (std::hypot(o.x1 + u * dx - x, o.y1 + u * dy - y) <= twipsParPixelEcran)
            style = std::max(style, o.style);
    }
    return style;
}

// A sphere of centre O meshed in latitude and longitude, faces and lines
// given to the scene, each line in its own colour: the middle of a line is
// seen exactly when (P - O).(V - P) > 0 for its point P on the sphere and
// the viewer V (away from the rim, where the mesh and the sphere differ).
TEST(Scene, SphereVueDuDehors)
{
    for (StyleRendu style : {StyleRendu::Pointilles, StyleRendu::Effaces}) {
        Etat e = etatCalibre(true);
        placeViseur(e, 12, 9, 6);  // the sphere some 100 pixels high
        SurfaceEnregistreuse sortie(e.vue.W, e.vue.H);
        Scene scene(sortie, e.param, e.vue, style);
        constexpr double rayon = 4, pi = 3.14159265358979, o[3] = {1, -1, 0.5}, v[3] = {12, 9, 6};
        constexpr int nLat = 24, nLon = 48;
        auto sommet = [&](double i, double j) {
            const double th = pi * i / nLat, ph = 2 * pi * j / nLon;
            return Point3{o[0] + rayon * std::sin(th) * std::cos(ph), o[1] + rayon * std::sin(th) * std::sin(ph),
                          o[2] + rayon * std::cos(th)};
        };
        auto image = [&](const Point3& p, double& x, double& y) { projette(e.param, e.vue, true, p.x, p.y, p.z, x, y); };
        // Each line from (i, j) along latitude (di = 1) or longitude (dj = 1), with its middle.
        std::vector<std::array<double, 4>> aretes;
        for (int i = 0; i < nLat; ++i)
            for (int j = 0; j < nLon; ++j) {
                const Point3 q[4] = {sommet(i, j), sommet(i + 1, j), sommet(i + 1, j + 1), sommet(i, j + 1)};
                double xs[4], ys[4];
                for (int k = 0; k < 4; ++k)
                    image(q[k], xs[k], ys[k]);
                scene.FaceEspace(q, xs, ys, 4, 0);
                aretes.push_back({double(i), double(j), 1, 0});
                if (i > 0)
                    aretes.push_back({double(i), double(j), 0, 1});
            }
        for (std::size_t k = 0; k < aretes.size(); ++k) {
            const auto [i, j, di, dj] = aretes[k];
            const Point3 a = sommet(i, j), b = sommet(i + di, j + dj);
            double x1, y1, x2, y2;
            image(a, x1, y1);
            image(b, x2, y2);
            scene.LineEspace(x1, y1, x2, y2, a, b, Couleur(k + 1));
        }
        scene.resous();
        int vus = 0, caches = 0;
        for (std::size_t k = 0; k < aretes.size(); ++k) {
            const auto [i, j, di, dj] = aretes[k];
            const Point3 p = sommet(i + di / 2, j + dj / 2);
            const double n[3] = {p.x - o[0], p.y - o[1], p.z - o[2]}, w[3] = {v[0] - p.x, v[1] - p.y, v[2] - p.z};
            const double c = (n[0] * w[0] + n[1] * w[1] + n[2] * w[2]) / (rayon * std::hypot(w[0], w[1], w[2]));
            if (std::abs(c) < 0.3)
                continue;
            const int attendu = c > 0 ? 0 : style == StyleRendu::Pointilles ? 1 : -1;
            EXPECT_EQ(styleEn(e, sortie, Couleur(k + 1), p), attendu) << "arête " << k << " cos " << c;
            (c > 0 ? vus : caches)++;
        }
        EXPECT_GT(vus, 200);
        EXPECT_GT(caches, 200);
    }
}

// Whole redraws in "Parties cachées en pointillés", each entry in its own
// colour (palette, by rank), the frame in the axes' colour: points of space
// and how the lines through them must show.
TEST(RedessinSolide, LignesCacheesParLesFaces)
{
    constexpr Couleur palette[] = {0x0000FF, 0x00FF00, 0xFF0000};
    struct Attendu {
        Point3 p;
        int rang;  // in the palette, -1 the frame
        int style;
    };
    // Two patches crossing along Ox, the horizontal z = 0 and the vertical
    // y = 0, |x|, |y|, |z| <= 3 seen from (30, 20, 15): a point of one is
    // hidden when the line of sight to it crosses the other first.
    std::vector<Attendu> croises;
    const Point3 v{30, 20, 15};
    for (double s = -2.5; s <= 2.5; s += 0.5)
        for (double r = -2.5; r <= 2.5; r += 0.5) {
            // (s, r, 0) on the horizontal patch, rang 0; (s, 0, r) on the vertical one, rang 1.
            for (int rang = 0; rang < 2; ++rang) {
                const Point3 p = rang == 0 ? Point3{s, r, 0} : Point3{s, 0, r};
                const double avant = rang == 0 ? v.y : v.z, apres = r;  // across the other patch's plane
                if (std::abs(r) < 0.6)
                    continue;  // the crossing, where the two are too near to tell
                const double k = avant / (avant - apres);
                const Point3 q{v.x + k * (p.x - v.x), v.y + k * (p.y - v.y), v.z + k * (p.z - v.z)};
                const double a = q.x, b = rang == 0 ? q.z : q.y;
                if (std::abs(std::abs(a) - 3) < 0.4 || std::abs(std::abs(b) - 3) < 0.4)
                    continue;  // near the edge of the other patch
                croises.push_back({p, rang, apres < 0 && std::abs(a) < 3 && std::abs(b) < 3 ? 1 : 0});
            }
        }
    struct Cas {
        const char* faute;
        std::vector<LigneCatalogue> entrees;
        std::vector<Attendu> attendus;
    } const cas[] = {
        // The half-axes leave the sphere of radius 3 on its front side.
        {"l'axe dans la sphère vu, ou vu caché hors d'elle",
         {{4, "R=f1(a,t)=3][Agh=f2(a,t)=t][Agv=f3(a,t)=a/2"}},
         {{{1, 0, 0}, -1, 1}, {{2, 0, 0}, -1, 1}, {{0, 2, 0}, -1, 1}, {{0, 0, 2}, -1, 1},
          {{4, 0, 0}, -1, 0}, {{8, 0, 0}, -1, 0}, {{0, 5, 0}, -1, 0}, {{0, 0, 6}, -1, 0}}},
        {"une courbe derrière un plan vue, ou devant lui cachée",
         {{7, "Plan:[x = 5]"}, {8, "Segment:[(0,-2,1)][(0,2,-1)]"}, {8, "Segment:[(8,-2,1)][(8,2,-1)]"}},
         {{{0, -1.5, 0.75}, 1, 1}, {{0, 1, -0.5}, 1, 1}, {{8, -1.5, 0.75}, 2, 0}, {{8, 1, -0.5}, 2, 0}}},
        {"deux surfaces qui se croisent ne se cachent pas l'une l'autre",
         {{2, "x=f1(a,t)=a][y=f2(a,t)=t][z=f3(a,t)=0"}, {2, "x=f1(a,t)=a][y=f2(a,t)=0][z=f3(a,t)=t"}},
         croises},
    };
    for (const Cas& c : cas) {
        DossierTemporaire dossier;
        Etat etat = etatCalibre(true);
        etat.rendu.style = StyleRendu::Pointilles;
        Parametres& p = etat.param;
        std::tie(p.amin, p.amax, p.pasA, p.tmin, p.tmax, p.pasT) = std::tuple(-3, 3, 0.25, -3, 3, 0.25);
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "essai.lsu"));
        Redessin quoi;
        for (std::size_t i = 0; i < c.entrees.size(); ++i) {
            ASSERT_FALSE(ecrisLigne(etat.catalogue, int(i) + 1, c.entrees[i]));
            quoi.entrees.push_back(int(i) + 1);
        }
        int rang = 0;
        quoi.avant = [&] { etat.couleurs.couleurTrace = etat.couleurs.couleurFamille = palette[rang++]; };
        SurfaceEnregistreuse sortie(etat.vue.W, etat.vue.H);
        ASSERT_FALSE(redessine(etat, sortie, quoi)) << c.faute;
        ASSERT_FALSE(c.attendus.empty());
        for (const Attendu& a : c.attendus) {
            const Couleur couleur = a.rang < 0 ? couleursRepere(etat).axes : palette[a.rang];
            EXPECT_EQ(styleEn(etat, sortie, couleur, a.p), a.style)
                << c.faute << " (" << a.p.x << ", " << a.p.y << ", " << a.p.z << ")";
        }
    }
}

// The numbers and letters of the frame about points inside a sphere are left
// out with those points; those outside stay, in every style that resolves.
TEST(RedessinSolide, TextesDuRepereCachesAvecLeurPoint)
{
    for (const StyleRendu style : {StyleRendu::Pointilles, StyleRendu::FacesOmbrees}) {
        DossierTemporaire dossier;
        Etat etat = etatCalibre(true);
        etat.rendu = {.style = style, .repereGradue = true};
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "essai.lsu"));
        ASSERT_FALSE(ecrisLigne(etat.catalogue, 1, {4, "R=f1(a,t)=3][Agh=f2(a,t)=t][Agv=f3(a,t)=a/2"}));
        SurfaceEnregistreuse sortie(etat.vue.W, etat.vue.H);
        ASSERT_FALSE(redessine(etat, sortie, {.entrees = {1}}));
        std::multiset<std::string> textes;
        for (const OperationDessin& op : sortie.operations())
            if (op.genre == OperationDessin::Genre::Texte)
                textes.insert(op.texte);
        EXPECT_EQ(std::tuple(textes.count("2"), textes.count("-2"), textes.count("O"), textes.count("I")),
                  std::tuple(0u, 0u, 0u, 0u)) << "un texte d'un point dans la sphère est écrit";
        EXPECT_GE(textes.count("4"), 2u) << "un texte d'un point hors de la sphère manque";
    }
}

// A curve added to the picture in a style that resolves hidden parts: the
// curves already drawn cannot be cut by the new surface, so everything is
// drawn again with it; "Fil de fer" adds the curve alone.
TEST(RedessinSolide, AjoutRedessineTout)
{
    for (StyleRendu style : {StyleRendu::Pointilles, StyleRendu::FilDeFer}) {
        DossierTemporaire dossier;
        Etat etat = etatCalibre(true);
        etat.rendu.style = style;
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "essai.lsu"));
        ASSERT_FALSE(ecrisLigne(etat.catalogue, 1, LigneCatalogue{8, "Segment:[(0,-2,1)][(0,2,-1)]"}));
        ASSERT_FALSE(ecrisLigne(etat.catalogue, 2, LigneCatalogue{7, "Plan:[x = 5]"}));
        SurfaceEnregistreuse avant(etat.vue.W, etat.vue.H), ajout(etat.vue.W, etat.vue.H);
        etat.couleurs.couleurTrace = 0x0000FF;
        ASSERT_FALSE(redessine(etat, avant, {.entrees = {1}}));
        etat.couleurs.couleurTrace = 0x00FF00;
        ASSERT_FALSE(redessine(etat, ajout, {.efface = false, .repere = false, .entrees = {2}}));
        const bool solide = style != StyleRendu::FilDeFer;
        EXPECT_EQ(duGenre(ajout, Genre::Effacement).size(), solide ? 1u : 0u) << "effacement";
        // The segment again, now hidden by the plane in front of it.
        EXPECT_EQ(styleEn(etat, ajout, 0x0000FF, {0, 1, -0.5}), solide ? 1 : -1) << "segment";
        EXPECT_EQ(etat.courbes.nbCourbes, 2);
    }
}

// The faces of a family: one per quad of admitted neighbours of the (a, t)
// grid, the same faces with their corners in the same order whatever the
// loop order, and none in "Fil de fer".
TEST(FacesFamille, UneFaceParQuadrilatere)
{
    struct Faces : SurfaceEnregistreuse {
        using SurfaceEnregistreuse::SurfaceEnregistreuse;
        std::multiset<std::vector<double>> faces;
        void FaceEspace(const Point3* s, const double*, const double*, int n, Couleur) override
        {
            std::vector<double> coins;
            for (int i = 0; i < n; ++i)
                coins.insert(coins.end(), {s[i].x, s[i].y, s[i].z});
            faces.insert(coins);
        }
    };
    std::multiset<std::vector<double>> premieres;
    for (StyleRendu style : {StyleRendu::Pointilles, StyleRendu::FilDeFer})
        for (int ordre = 0; ordre < 4; ++ordre) {
            Etat e = etatCalibre(true);
            e.rendu.style = style;
            Parametres& p = e.param;
            // 5 x 4 points, the row z > 1.5 refused by the frame: 4 x 3 quads less the 3 of the last row.
            std::tie(p.amin, p.amax, p.pasA, p.tmin, p.tmax, p.pasT) = std::tuple(0, 2, 0.5, 0, 3, 1);
            std::tie(p.zmin, p.zmax, p.ordreBoucles) = std::tuple(-1.0F, 1.6F, ordre);
            e.moteur.formuleF1 = "A", e.moteur.formuleF2 = "T", e.moteur.formuleF3 = "A";
            Faces s(e.vue.W, e.vue.H);
            ASSERT_FALSE(parcours2(e, s, {}).erreur);
            if (style == StyleRendu::FilDeFer) {
                EXPECT_TRUE(s.faces.empty()) << ordre;
                continue;
            }
            EXPECT_EQ(s.faces.size(), 9u) << "ordre " << ordre;
            if (ordre == 0)
                premieres = s.faces;
            EXPECT_EQ(s.faces, premieres) << "ordre " << ordre;
        }
}

}  // namespace
}  // namespace velorin
