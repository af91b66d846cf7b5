// Cavalière projection and depth, its rotations and mouse read-out; the
// space graduations and the plane grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

#include "commun/commun.h"
#include "plot/ecran.h"
#include "view/graduations.h"
#include "view/rotation.h"
#include "view/souris.h"
#include "view/surface_enregistreuse.h"

namespace velorin::essai {
namespace {

// Cavalière over x [-1, 3], y [-4, 2], z [-2, 5]: not centred on the origin.
Etat etatCavaliere(double angle, double coef, double tour)
{
    Etat e;
    std::tie(e.param.xmin, e.param.xmax, e.param.ymin, e.param.ymax, e.param.zmin, e.param.zmax) =
        std::tuple(-1, 3, -4, 2, -2, 5);
    e.rendu.cavaliere = true;
    std::tie(e.rendu.angleCavaliere, e.rendu.coefCavaliere, e.rendu.tourCavaliere) = std::tuple(angle, coef, tour);
    EXPECT_TRUE(ajusteVue(e, 15360, 11520));
    return e;
}

// Values from an independent computation (matrix of the projection times
// the turn, the box's corners fitted to 90 % of the picture square).
// Faults: x not receding down-left, the front not in true size, the turn's
// sense, the box's fit or centring, a setting not copied from the rendering.
TEST(Cavaliere, ImagesDuCubeUniteEtDesBoutsDAxes)
{
    using C = std::tuple<double, double, double, int, int, int, double, double>;
    for (auto [angle, coef, tour, x, y, z, sx, sy] : {
             C{45, 0.5, 0, 0, 0, 0, 8532.027, 6674.551},   C{45, 0.5, 0, 0, 0, 1, 8532.027, 5527.920},
             C{45, 0.5, 0, 0, 1, 0, 9678.658, 6674.551},   C{45, 0.5, 0, 0, 1, 1, 9678.658, 5527.920},
             C{45, 0.5, 0, 1, 0, 0, 8126.631, 7079.947},   C{45, 0.5, 0, 1, 0, 1, 8126.631, 5933.316},
             C{45, 0.5, 0, 1, 1, 0, 9273.262, 7079.947},   C{45, 0.5, 0, 1, 1, 1, 9273.262, 5933.316},
             C{45, 0.5, 0, -1, 0, 0, 8937.422, 6269.156},  C{45, 0.5, 0, 3, 0, 0, 7315.841, 7890.738},
             C{45, 0.5, 0, 0, -4, 0, 3945.502, 6674.551},  C{45, 0.5, 0, 0, 2, 0, 10825.289, 6674.551},
             C{45, 0.5, 0, 0, 0, -2, 8532.027, 8967.814},  C{45, 0.5, 0, 0, 0, 5, 8532.027, 941.395},
             C{30, 0.7, 90, 0, 0, 0, 6562.504, 6579.253},  C{30, 0.7, 90, 0, 0, 1, 6562.504, 5519.033},
             C{30, 0.7, 90, 0, 1, 0, 7205.228, 6208.176},  C{30, 0.7, 90, 0, 1, 1, 7205.228, 5147.956},
             C{30, 0.7, 90, 1, 0, 0, 7622.724, 6579.253},  C{30, 0.7, 90, 1, 0, 1, 7622.724, 5519.033},
             C{30, 0.7, 90, 1, 1, 0, 8265.448, 6208.176},  C{30, 0.7, 90, 1, 1, 1, 8265.448, 5147.956},
             C{30, 0.7, 90, -1, 0, 0, 5502.285, 6579.253}, C{30, 0.7, 90, 3, 0, 0, 9743.164, 6579.253},
             C{30, 0.7, 90, 0, -4, 0, 3991.608, 8063.560}, C{30, 0.7, 90, 0, 2, 0, 7847.952, 5837.099},
             C{30, 0.7, 90, 0, 0, -2, 6562.504, 8699.692}, C{30, 0.7, 90, 0, 0, 5, 6562.504, 1278.154},
         }) {
        const Etat e = etatCavaliere(angle, coef, tour);
        double ex = 0, ey = 0;
        ASSERT_TRUE(projette(e.param, e.vue, true, x, y, z, ex, ey));
        EXPECT_NEAR(std::hypot(ex - sx, ey - sy), 0, 3e-3) << angle << " " << tour << " " << x << y << z;
    }
}

// The hidden-part contract: positive over the box, smaller nearer (one unit
// more of the turned x'), the inverse affine over a flat face (the mean of
// its corners); the read-out under the mouse inverts the image.
TEST(Cavaliere, ProfondeurOrdonneeInverseAffineEtLectureSouris)
{
    for (auto [angle, coef, tour] : {std::tuple(45, 0.5, 0), {30, 0.7, 90}, {60, 1, -35}}) {
        const Etat e = etatCavaliere(angle, coef, tour);
        const auto prof = [&](double x, double y, double z) { return profondeur(e.param, e.vue, x, y, z); };
        for (int i = 0; i < 8; ++i)
            EXPECT_GT(prof(i & 1 ? 3 : -1, i & 2 ? 2 : -4, i & 4 ? 5 : -2), 0) << tour << " " << i;
        const double t = tour * M_PI / 180;
        EXPECT_LT(prof(0.5 + std::cos(t), -1 - std::sin(t), 2), prof(0.5, -1, 2)) << tour;
        EXPECT_NEAR(3 / prof(4. / 3, 0, 7. / 6), 1 / prof(2, -3, -1) + 1 / prof(-1, 1, 4) + 1 / prof(3, 2, 0.5), 1e-9)
            << tour;
        double sx, sy, Px, Py;
        ASSERT_TRUE(projette(e.param, e.vue, true, 0.5, -1, 2, sx, sy));
        pointPlanProjection(e.vue, sx, sy, Px, Py);
        const double p[3] = {0.5, -1, 2};
        for (int fixe = 0; fixe < 3; ++fixe) {
            double q[3] = {99, 99, 99};
            ASSERT_TRUE(solvons(e.param, e.vue, Px, Py, fixe, p[fixe], q[0], q[1], q[2])) << fixe;
            EXPECT_NEAR(std::hypot(q[0] - p[0], q[1] - p[1], q[2] - p[2]), 0, 1e-9) << tour << " " << fixe;
        }
    }
}

// About Oz the commands turn the solid as the perspective turns the
// picture; the others say why they do nothing (never silently).
TEST(Cavaliere, RotationsAutourDOzSeulement)
{
    enum Commande { Pas, Angle, Souris };
    using C = std::tuple<Commande, int, double, bool, double>;  // axis (Axe or menu index), sens or angle
    for (auto [commande, axe, valeur, accepte, tourApres] :
         {C{Pas, 3, 1, true, 15}, C{Pas, 3, -1, true, 5}, C{Pas, 1, 1, false, 10}, C{Pas, 2, -1, false, 10},
          C{Angle, 0, rotaPI / 2, true, -80}, C{Angle, 1, 0.5, false, 10}, C{Angle, 3, 0.5, false, 10},
          C{Angle, 0, 4, false, 10}, C{Souris, 0, 40, true, 30}, C{Souris, 0, 0, false, 10}}) {
        double tour = 10;
        const Erreur e = commande == Pas                 ? pasCavaliere(tour, Axe(axe), int(valeur))
                         : commande == Angle             ? tourneCavaliere(tour, axe, valeur)
                         : glisseCavaliere(tour, valeur) ? Erreur{}
                                                         : Erreur(std::string());
        EXPECT_EQ(!e, accepte) << commande << " " << axe << " " << valeur;
        EXPECT_NEAR(tour, tourApres, 1e-4) << commande << " " << axe << " " << valeur;
        if (e && commande == Pas) {
            EXPECT_EQ(e.message(), messageRotationCavaliere);
        }
    }
    std::vector<double> tours;
    for (int index : {0, 1}) {
        ASSERT_FALSE(suiteDuTourCavaliere(20, index, tours));
        ASSERT_EQ(tours.size(), 72u);
        EXPECT_EQ(std::tuple(tours.front(), tours.back()), std::tuple(index == 0 ? 15. : 25., 20.));  // back exactly
    }
    EXPECT_TRUE(suiteDuTourCavaliere(20, 4, tours));
}

struct SurfaceEspace : SurfaceEnregistreuse {
    int segmentsEspace = 0;
    void LineEspace(double x1, double y1, double x2, double y2, const Point3&, const Point3&, Couleur c) override
    {
        ++segmentsEspace;
        Line(x1, y1, x2, y2, c);
    }
};

// Nice steps of about ten intervals whatever the size or sign of the range;
// drawn only with the option, each with its number and a tick of space (so
// hidden parts apply), in the perspective and in cavalière.
TEST(Graduations, PasRondsDesAxesDeLEspace)
{
    using C = std::tuple<double, double, double, int>;  // min, max -> step, values
    for (auto [min, max, pas, valeurs] : {C{-10, 10, 2, 11}, C{0, 0.003, 0.0005, 7}, C{-1e8, 3e8, 5e7, 9},
                                          C{-7, -2, 0.5, 11}, C{0, 1, 0.1, 11}, C{2, 2, 0, 0}}) {
        EXPECT_DOUBLE_EQ(pasEspace(min, max), pas) << min << " " << max;
        EXPECT_EQ(int(valeursGraduees(min, max, pas).size()), valeurs) << min << " " << max;
    }
    for (int cas = 0; cas < 4; ++cas) {
        Etat e = etatCalibre(true);
        std::tie(e.param.zmin, e.param.zmax, e.rendu.cavaliere, e.rendu.repereGradue) =
            std::tuple(-3, 7, cas & 1, cas & 2);
        ajusteVue(e, e.vue.W, e.vue.H);
        SurfaceEspace s;
        traceRepere(e, s);
        int nombres = 0;
        for (const OperationDessin& op : s.operations())
            nombres += op.texte == "6" || op.texte == "-4";  // z step 1, x and y step 2
        EXPECT_EQ(nombres >= 2, bool(cas & 2)) << cas;
        EXPECT_EQ(s.segmentsEspace >= 20, bool(cas & 2)) << cas << " " << s.segmentsEspace;
    }
}

// The grid at the frame's steps, before the frame, in its discreet colour,
// following the scales "Repère Orthonormé" leaves; nothing by default.
TEST(Graduations, QuadrillageDuPlanAvecEtSansRepereOrthonorme)
{
    using C = std::tuple<bool, int, double, double, std::size_t>;  // grid, orthonormal -> scales, lines
    for (auto [grille, orthonorme, ex, ey, n] :
         {C{true, 0, 688, 536, 22}, C{true, 1, 536, 536, 22}, C{false, 0, 688, 536, 0}}) {
        Etat e = etatCalibre(false);
        std::tie(e.param.repereOrthonorme, e.rendu.quadrillage) = std::tuple(orthonorme, grille);
        ajusteVue(e, e.vue.W, e.vue.H);
        SurfaceEnregistreuse s;
        traceRepere(e, s);
        std::vector<OperationDessin> l;
        for (const OperationDessin& op : s.operations())
            if (op.couleur == couleurQuadrillage(couleursRepere(e)))
                l.push_back(op);
        ASSERT_EQ(l.size(), n) << orthonorme;  // every 2 units both ways
        if (n == 0)
            continue;
        EXPECT_EQ(s.operations()[n - 1].couleur, l.back().couleur);  // drawn first
        const double gauche = 6980 - 10 * ex, bas = 5410 + 10 * ey;  // x = -10, y = -10
        EXPECT_EQ(std::tuple(l[0].x1, l[0].y1, l[0].y2, l[1].x1 - l[0].x1),
                  std::tuple(gauche, bas, bas - 20 * ey, 2 * ex));
        EXPECT_EQ(std::tuple(l[11].y1, l[11].x2 - l[11].x1, l[12].y1 - l[11].y1), std::tuple(bas, 20 * ex, -2 * ey));
    }
    EXPECT_EQ(couleurQuadrillage({0x000000, 0xFFFFFF}), 0x404040u);  // on a dark background
    EXPECT_EQ(couleurQuadrillage({0xFFFFFF, 0x000000}), 0xBFBFBFu);  // on a light one
}

}  // namespace
}  // namespace velorin::essai
