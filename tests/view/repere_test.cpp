#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "commun/commun.h"
#include "plot/ecran.h"
#include "view/format_nombre.h"
#include "view/surface_enregistreuse.h"

namespace velorin {
namespace {

using G = OperationDessin::Genre;

// The motif's digits, rounding and exponent; then the motif an axis end takes by its size.
TEST(FormatNombre, MotifsDeChiffresEtBoutsDAxe)
{
    using C = std::tuple<double, const char*, const char*>;
    for (auto [v, motif, attendu] :
         {C{-1.5, "00.00", "-01.50"}, C{99.999, "00.00", "100.00"}, C{0.0123, "0.00E+00", "1.23E-02"},
          C{123, "0.00E-00", "1.23E02"}, C{9.996, "0.00E+00", "1.00E+01"}, C{0, "0.00E+00", "0.00E+00"},
          C{1e-300, "0.00E-00", "1.00E-300"}, C{-0.0004, "0.000", "0.000"}, C{1.005, "0.00", "1.01"},
          C{2.675, "0.00", "2.68"}, C{-2.5, "0", "-3"}, C{12345, "000", "12345"}, C{0.5, "#.00", ".50"},
          C{1.5, "0.0#", "1.5"}, C{7, "[0]", "[7]"}, C{6.28, "", "6.28"}, C{NAN, "0.00", "non défini"},
          C{-INFINITY, "0.00", "-infini"}})
        EXPECT_EQ(formatNombre(v, motif), attendu) << v << " " << motif;
    using B = std::pair<double, const char*>;
    for (auto [v, texte] : {B{0, "0.000"}, B{0.005, "5.00E-03"}, B{-0.01, "-0.010"}, B{6.28, "6.280"}, B{-10, "-10.00"},
                            B{99.5, "99.50"}, B{100, "1.00E+02"}, B{-2500, "-2.50E+03"}})
        EXPECT_EQ(formatNombre(v, motifGraduation(v)), texte) << v;
}

TEST(Repere, CouleursEnVigueurJamaisNoirSurNoir)
{
    using C = std::tuple<int, bool, Couleur, Couleur, Couleur>;  // fondBlanc, inversion, axes -> fond, axes
    for (auto [fondBlanc, inversion, axes, fondAttendu, axesAttendu] :
         {C{0, false, 0xFFFFFF, 0x000000, 0xFFFFFF}, C{0, false, 0x00FFFF, 0, 0x00FFFF},
          C{1, false, 0x00FFFF, 0xFFFFFF, 0x000000}, C{0, true, 0x00FFFF, 0xFFFFFF, 0xFF0000},
          C{1, true, 0x00FFFF, 0x000000, 0xFFFFFF}, C{0, false, 0x000000, 0x000000, 0xFFFFFF}}) {  // not black on black
        Etat e;
        std::tie(e.param.fondBlanc, e.fenetre.inversionVideo, e.couleurs.couleurAxes, e.couleurs.couleurFond) =
            std::tuple(fondBlanc, inversion, axes, 0x123456u);
        SurfaceEnregistreuse s;
        effaceEcran(e, s);
        EXPECT_EQ(e.couleurs.couleurFond, fondAttendu);
        ASSERT_EQ(s.operations().size(), 1u);
        EXPECT_EQ(std::tuple(s.operations()[0].genre, s.operations()[0].couleur),
                  std::tuple(G::Effacement, fondAttendu));
        prepareVue(e.param, true, e.vue);
        calibre(e.param, e.vue, true);
        traceRepere(e, s);
        ASSERT_GT(s.operations().size(), 10u);
        for (const OperationDessin& op : s.operations())
            EXPECT_TRUE(op.genre == G::Effacement || op.couleur == axesAttendu) << fondBlanc << inversion;
    }
}

struct Dessin {
    Etat etat;
    SurfaceEnregistreuse surface;
    Dessin(bool espace, double largeurPx, double hauteurPx) : surface(largeurPx * 15, hauteurPx * 15)
    {
        etat.fenetre.metsModeEspace(espace);
        essai::placeViseur(etat, 15, 10, 7.5);
        std::tie(etat.vue.W, etat.vue.H) = std::tuple(surface.Width(), surface.Height());
    }
    const std::vector<OperationDessin>& trace()
    {
        ajusteVue(etat, etat.vue.W, etat.vue.H);
        traceRepere(etat, surface);
        return surface.operations();
    }
    struct Texte {
        std::string t;
        double x, y, l, h;
    };
    // The text boxes as the recording surface measures them, checked inside
    // the surface and two by two apart.
    std::vector<Texte> textes(const std::string& cas) const
    {
        std::vector<Texte> r;
        SurfaceEnregistreuse mesure;
        for (const OperationDessin& op : surface.operations())
            if (op.genre == G::Texte) {
                mesure.FontSize = op.taille;
                r.push_back({op.texte, op.x1, op.y1, mesure.TextWidth(op.texte), mesure.TextHeight()});
            }
        for (std::size_t i = 0; i < r.size(); ++i) {
            const Texte& a = r[i];
            EXPECT_TRUE(a.x >= 0 && a.y >= 0 && a.x + a.l <= surface.Width() && a.y + a.h <= surface.Height())
                << cas << " hors surface : " << a.t;
            for (std::size_t j = i + 1; j < r.size(); ++j) {
                const Texte& b = r[j];
                EXPECT_FALSE(a.x < b.x + b.l && b.x < a.x + a.l && a.y < b.y + b.h && b.y < a.y + a.h)
                    << cas << " : « " << a.t << " » sur « " << b.t << " »";
            }
        }
        return r;
    }
};

// Six half-axes from the origin's image to each end's image; the letters
// beside their points, the six numbers at the ends, no overlap.
TEST(Repere, RepereDeLEspaceDemiAxesLettresSansChevauchement)
{
    for (auto [l, h] : {std::pair{400, 300}, std::pair{2560, 1440}}) {
        const std::string cas = std::to_string(l) + "x" + std::to_string(h);
        Dessin d(true, l, h);
        const auto& ops = d.trace();
        const Vue& v = d.etat.vue;
        for (const auto& b : {std::array{-10, 0, 0}, {10, 0, 0}, {0, -10, 0}, {0, 10, 0}, {0, 0, -10}, {0, 0, 10}}) {
            double ex, ey;
            ASSERT_TRUE(projette(d.etat.param, v, true, b[0], b[1], b[2], ex, ey));
            EXPECT_TRUE(std::any_of(ops.begin(), ops.end(),
                                    [&](const OperationDessin& op) {
                                        return op.genre == G::Ligne &&
                                               std::hypot(op.x1 - v.origineEcranX, op.y1 - v.origineEcranY) < 1 &&
                                               std::hypot(op.x2 - ex, op.y2 - ey) < 1;
                                    }))
                << cas << " demi-axe vers " << b[0] << "," << b[1] << "," << b[2];
        }
        const std::map<std::string, std::pair<double, double>> points = {{"O", {v.origineEcranX, v.origineEcranY}},
                                                                         {"I", {v.imageUxX, v.imageUxY}},
                                                                         {"J", {v.imageUyX, v.imageUyY}},
                                                                         {"K", {v.imageUzX, v.imageUzY}}};
        const auto textes = d.textes(cas);
        EXPECT_EQ(textes.size(), 10u) << cas;
        for (const auto& tx : textes) {
            const auto p = points.find(tx.t);
            EXPECT_TRUE(p != points.end() ? std::hypot(tx.x + tx.l / 2 - p->second.first,
                                                       tx.y + tx.h / 2 - p->second.second) < 3 * tx.h
                                          : tx.t == "10.00" || tx.t == "-10.00")
                << cas << " " << tx.t;
        }
    }
}

// Every number keeps a pixel from each edge (the first and last ticks are
// moved inside, so that no glyph is cut) and stands at its tick, across it
// (under or over the x axis, beside the y axis); steps are 1, 2 or 5 x 10^k.
TEST(Repere, GraduationsDuPlanRondesEtLoinDesBords)
{
    using C = std::tuple<double, double, double, double, int, double, double>;  // ranges, orthonormal, pixels
    for (auto [xmin, xmax, ymin, ymax, ortho, l, h] :
         {C{-10, 10, -10, 10, 0, 300, 200}, C{-10, 10, -10, 10, 1, 1024, 768}, C{-10, 10, -10, 10, 0, 2560, 1440},
          C{0, 0.003, -1000, 5000, 0, 1024, 768}, C{2, 3, 1e6, 3e6, 0, 800, 600},
          C{-7.3, -2.1, 0.5, 40, 0, 1920, 1080}}) {
        const std::string cas = std::to_string(xmin) + ".." + std::to_string(xmax) + " " + std::to_string(int(l));
        Dessin d(false, l, h);
        d.etat.param.repereOrthonorme = ortho;
        essai::placeCadre(d.etat, xmin, xmax, ymin, ymax);
        d.trace();
        const Vue& v = d.etat.vue;
        const double xAxe = v.decalX + v.echelleX * std::clamp(0.0, xmin, xmax);
        const double yAxe = v.decalY - v.echelleY * std::clamp(0.0, ymin, ymax);
        std::vector<double> surX, surY;
        for (const auto& tx : d.textes(cas)) {
            if (tx.t == "O" || tx.t == "x" || tx.t == "y")
                continue;
            const double bord = twipsParPixelEcran;
            EXPECT_TRUE(tx.x >= bord && tx.y >= bord && tx.x + tx.l <= d.surface.Width() - bord &&
                        tx.y + tx.h <= d.surface.Height() - bord)
                << cas << " : « " << tx.t << " » au bord";
            const double val = std::strtod(tx.t.c_str(), nullptr);
            const double sx = v.decalX + v.echelleX * val, sy = v.decalY - v.echelleY * val;
            if (sx >= tx.x && sx <= tx.x + tx.l && std::fabs(tx.y + tx.h / 2 - yAxe) < 2 * tx.h)
                surX.push_back(val);
            else if (sy >= tx.y && sy <= tx.y + tx.h && std::fabs(tx.x + tx.l / 2 - xAxe) < tx.l + 2 * tx.h)
                surY.push_back(val);
            else
                ADD_FAILURE() << cas << " : « " << tx.t << " » loin de sa graduation";
        }
        EXPECT_TRUE(xmin != -10 || surX.front() == -10) << cas;  // the first tick keeps its number
        for (const auto* valeurs : {&surX, &surY}) {
            ASSERT_GE(valeurs->size(), 2u) << cas;
            const double pas = std::fabs((*valeurs)[1] - (*valeurs)[0]);
            const double m = pas / std::pow(10, std::floor(std::log10(pas) + 1e-9));
            EXPECT_TRUE(std::fabs(m - 1) < 1e-6 || std::fabs(m - 2) < 1e-6 || std::fabs(m - 5) < 1e-6) << cas << pas;
        }
    }
}

TEST(Repere, RienSansAxesEtPlumeRendue)
{
    for (bool espace : {true, false}) {
        Dessin d(espace, 1024, 768);
        d.etat.param.axesVisibles = 0;
        EXPECT_TRUE(d.trace().empty());
        d.etat.param.axesVisibles = 1;
        SurfaceEnregistreuse& s = d.surface;
        std::tie(s.DrawWidth, s.DrawStyle, s.ForeColor, s.FontName, s.FontSize, s.CurrentX, s.CurrentY) =
            std::tuple(3, 2, 255, "Courier", 14, 7, 9);
        EXPECT_FALSE(d.trace().empty());
        for (const OperationDessin& op : s.operations())
            EXPECT_TRUE(op.largeur == 1 && op.style == 0);
        EXPECT_EQ(std::tie(s.DrawWidth, s.DrawStyle, s.ForeColor, s.FontName, s.FontSize, s.CurrentX, s.CurrentY),
                  std::tuple(3, 2, 255u, "Courier", 14, 7, 9));
    }
}

// Viewer inside the ranges looking down -x (on the axis, and at the
// origin): the +x half-axis passes through it; what is drawn stays finite
// and on the surface.
TEST(Repere, ViseurDansLeCadreSeulementCeQuiEstDevant)
{
    for (double vx : {5.0, 0.0}) {
        Dessin d(true, 1024, 768);
        std::tie(d.etat.param.Xviseur, d.etat.param.Yviseur, d.etat.param.Zviseur) = std::tuple(vx, vx / 5000, 0.0f);
        std::tie(d.etat.param.Xdirection, d.etat.param.Ydirection, d.etat.param.Zdirection) = std::tuple(-1, 0, 0);
        for (const OperationDessin& op : d.trace()) {
            ASSERT_TRUE(std::isfinite(op.x1 + op.y1 + op.x2 + op.y2));
            EXPECT_TRUE(op.genre != G::Ligne || (std::min(op.x1, op.x2) >= 0 && std::max(op.x1, op.x2) <= 15360 &&
                                                 std::min(op.y1, op.y2) >= 0 && std::max(op.y1, op.y2) <= 11520))
                << vx << " : " << op.x1 << "," << op.y1 << " " << op.x2 << "," << op.y2;
        }
        d.textes("viseur " + std::to_string(vx));
    }
}

}  // namespace
}  // namespace velorin
