#include <gtest/gtest.h>

#include <algorithm>
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

TEST(FormatNombre, MotifsDeChiffresArrondisDecimaux)
{
    struct Cas {
        double v;
        const char* motif;
        const char* attendu;
    };
    for (Cas c : {Cas{-1.5, "00.00", "-01.50"},        Cas{99.999, "00.00", "100.00"},
                  Cas{0.0123, "0.00E+00", "1.23E-02"},   Cas{123, "0.00E-00", "1.23E02"},
                  Cas{9.996, "0.00E+00", "1.00E+01"},    Cas{0, "0.00E+00", "0.00E+00"},
                  Cas{1e-300, "0.00E-00", "1.00E-300"},  Cas{-0.0004, "0.000", "0.000"},
                  Cas{1.005, "0.00", "1.01"},            Cas{2.675, "0.00", "2.68"},
                  Cas{-2.5, "0", "-3"},                  Cas{12345, "000", "12345"},
                  Cas{0.5, "#.00", ".50"},               Cas{1.5, "0.0#", "1.5"},
                  Cas{7, "[0]", "[7]"},                  Cas{6.28, "", "6.28"}})
        EXPECT_EQ(formatNombre(c.v, c.motif), c.attendu) << c.v << " " << c.motif;
    EXPECT_EQ(formatNombre(NAN, "0.00"), "non défini");
    EXPECT_EQ(formatNombre(-INFINITY, "0.00"), "-infini");
}

TEST(FormatNombre, BoutDAxeSelonLaGrandeur)
{
    struct Cas {
        double v;
        const char* texte;
    };
    for (Cas c : {Cas{0, "0.000"}, Cas{0.005, "5.00E-03"}, Cas{-0.01, "-0.010"}, Cas{6.28, "6.280"}, Cas{-10, "-10.00"},
                  Cas{99.5, "99.50"}, Cas{100, "1.00E+02"}, Cas{-2500, "-2.50E+03"}})
        EXPECT_EQ(formatNombre(c.v, motifGraduation(c.v)), c.texte) << c.v;
}

TEST(Repere, CouleursEnVigueurJamaisNoirSurNoir)
{
    struct Cas {
        int fondBlanc;
        bool inversion;
        Couleur axes;
        Couleur fondAttendu, axesAttendu;
    };
    for (Cas c : {Cas{0, false, 0xFFFFFF, 0x000000, 0xFFFFFF}, Cas{0, false, 0x00FFFF, 0, 0x00FFFF},
                  Cas{1, false, 0x00FFFF, 0xFFFFFF, 0x000000}, Cas{0, true, 0x00FFFF, 0xFFFFFF, 0xFF0000},
                  Cas{1, true, 0x00FFFF, 0x000000, 0xFFFFFF},
                  Cas{0, false, 0x000000, 0x000000, 0xFFFFFF}}) {  // never black on black
        Etat e;
        e.param.fondBlanc = c.fondBlanc;
        e.fenetre.inversionVideo = c.inversion;
        e.couleurs.couleurAxes = c.axes;
        e.couleurs.couleurFond = 0x123456;
        SurfaceEnregistreuse s;
        effaceEcran(e, s);
        EXPECT_EQ(e.couleurs.couleurFond, c.fondAttendu);
        ASSERT_EQ(s.operations().size(), 1u);
        EXPECT_EQ(s.operations()[0].genre, G::Effacement);
        EXPECT_EQ(s.operations()[0].couleur, c.fondAttendu);
        prepareVue(e.param, true, e.vue);
        calibre(e.param, e.vue, true);
        traceRepere(e, s);
        ASSERT_GT(s.operations().size(), 10u);
        for (const OperationDessin& op : s.operations()) {
            if (op.genre != G::Effacement) {
                EXPECT_EQ(op.couleur, c.axesAttendu) << c.fondBlanc << c.inversion;
            }
        }
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
    // The text boxes as the recording surface measures them.
    struct Texte {
        std::string t;
        double x, y, l, h;
    };
    std::vector<Texte> textes() const
    {
        std::vector<Texte> r;
        SurfaceEnregistreuse mesure;
        for (const OperationDessin& op : surface.operations())
            if (op.genre == G::Texte) {
                mesure.FontSize = op.taille;
                r.push_back({op.texte, op.x1, op.y1, mesure.TextWidth(op.texte), mesure.TextHeight()});
            }
        return r;
    }
};

void verifieTextes(const Dessin& d, const std::string& cas)
{
    const auto textes = d.textes();
    for (std::size_t i = 0; i < textes.size(); ++i) {
        const auto& a = textes[i];
        EXPECT_TRUE(a.x >= 0 && a.y >= 0 && a.x + a.l <= d.surface.Width() && a.y + a.h <= d.surface.Height())
            << cas << " hors surface : " << a.t;
        for (std::size_t j = i + 1; j < textes.size(); ++j) {
            const auto& b = textes[j];
            const bool chevauche = a.x < b.x + b.l && b.x < a.x + a.l && a.y < b.y + b.h && b.y < a.y + a.h;
            EXPECT_FALSE(chevauche) << cas << " : « " << a.t << " » sur « " << b.t << " »";
        }
    }
}

TEST(Repere, RepereDeLEspaceDemiAxesLettresSansChevauchement)
{
    for (auto [l, h] : {std::pair{400, 300}, std::pair{2560, 1440}}) {
        const std::string cas = std::to_string(l) + "x" + std::to_string(h);
        Dessin d(true, l, h);
        const auto& ops = d.trace();
        const Vue& v = d.etat.vue;
        // Six half-axes: a line from the origin's image to each end's image.
        const double bouts[6][3] = {{-10, 0, 0}, {10, 0, 0}, {0, -10, 0}, {0, 10, 0}, {0, 0, -10}, {0, 0, 10}};
        for (const auto& b : bouts) {
            double ex, ey;
            ASSERT_TRUE(projette(d.etat.param, v, true, b[0], b[1], b[2], ex, ey));
            bool trouve = false;
            for (const OperationDessin& op : ops)
                trouve = trouve ||
                         (op.genre == G::Ligne && std::hypot(op.x1 - v.origineEcranX, op.y1 - v.origineEcranY) < 1 &&
                          std::hypot(op.x2 - ex, op.y2 - ey) < 1);
            EXPECT_TRUE(trouve) << cas << " demi-axe vers " << b[0] << "," << b[1] << "," << b[2];
        }
        // Letters beside their points, numbers at the ends, no overlap.
        const std::map<std::string, std::pair<double, double>> points = {{"O", {v.origineEcranX, v.origineEcranY}},
                                                                         {"I", {v.imageUxX, v.imageUxY}},
                                                                         {"J", {v.imageUyX, v.imageUyY}},
                                                                         {"K", {v.imageUzX, v.imageUzY}}};
        int nombres = 0;
        for (const auto& tx : d.textes()) {
            if (auto p = points.find(tx.t); p != points.end()) {
                const double cx = tx.x + tx.l / 2, cy = tx.y + tx.h / 2;
                EXPECT_LT(std::hypot(cx - p->second.first, cy - p->second.second), 3 * tx.h) << cas << " " << tx.t;
            } else {
                EXPECT_TRUE(tx.t == "10.00" || tx.t == "-10.00") << tx.t;
                ++nombres;
            }
        }
        EXPECT_EQ(nombres, 6) << cas;
        EXPECT_EQ(d.textes().size(), 10u) << cas;
        verifieTextes(d, cas);
    }
}

// The numbers at the first and last ticks (xmin and ymax lie close to the
// edges) are moved inside: every number keeps at least a pixel from each
// edge of the picture, so that no glyph is cut.
TEST(Repere, GraduationsDuPlanRondesEtLoinDesBords)
{
    struct Cas {
        double xmin, xmax, ymin, ymax;
        int ortho;
        double l, h;
    };
    for (Cas c : {Cas{-10, 10, -10, 10, 0, 300, 200}, Cas{-10, 10, -10, 10, 1, 1024, 768},
                  Cas{-10, 10, -10, 10, 0, 2560, 1440}, Cas{0, 0.003, -1000, 5000, 0, 1024, 768},
                  Cas{2, 3, 1e6, 3e6, 0, 800, 600}, Cas{-7.3, -2.1, 0.5, 40, 0, 1920, 1080}}) {
        const std::string cas = std::to_string(c.xmin) + ".." + std::to_string(c.xmax) + " " + std::to_string(int(c.l));
        Dessin d(false, c.l, c.h);
        d.etat.param.repereOrthonorme = c.ortho;
        essai::placeCadre(d.etat, c.xmin, c.xmax, c.ymin, c.ymax);
        d.trace();
        const Vue& v = d.etat.vue;
        verifieTextes(d, cas);
        // Each number stands at its tick, across it (under or over the x
        // axis, beside the y axis; pushed back inside at the borders).
        // Steps are 1, 2 or 5 x 10^k.
        const double xAxe = v.decalX + v.echelleX * std::clamp(0.0, c.xmin, c.xmax);
        const double yAxe = v.decalY - v.echelleY * std::clamp(0.0, c.ymin, c.ymax);
        std::vector<double> surX, surY;
        for (const auto& tx : d.textes()) {
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
        if (c.xmin == -10) {
            EXPECT_EQ(surX.front(), -10) << cas;  // the first tick keeps its number
        }
        for (const auto* valeurs : {&surX, &surY}) {
            ASSERT_GE(valeurs->size(), 2u) << cas;
            const double pas = std::fabs((*valeurs)[1] - (*valeurs)[0]);
            const double mantisse = pas / std::pow(10, std::floor(std::log10(pas) + 1e-9));
            EXPECT_TRUE(std::fabs(mantisse - 1) < 1e-6 || std::fabs(mantisse - 2) < 1e-6 ||
                        std::fabs(mantisse - 5) < 1e-6)
                << cas << " pas " << pas;
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
        verifieTextes(d, "viseur " + std::to_string(vx));
    }
}

}  // namespace
}  // namespace velorin
