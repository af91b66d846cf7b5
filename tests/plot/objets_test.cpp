#include "plot/objets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "commun/commun.h"

namespace velorin {
namespace {

using namespace essai;
constexpr double pi = 3.141592;

struct Scene {
    Etat etat;
    SurfaceEnregistreuse surface{etat.vue.W, etat.vue.H};

    explicit Scene(bool espace) : etat(etatCalibre(espace)) { }
    std::string trace(int genre, std::string f1, std::string f2 = {}, std::string f3 = {})
    {
        etat.trace.typeTrace = genre;
        etat.moteur.formuleF1 = std::move(f1), etat.moteur.formuleF2 = std::move(f2);
        etat.moteur.formuleF3 = std::move(f3);
        return traceObjet(etat, surface, {}).message();
    }
    std::vector<OperationDessin> lignes() const { return duGenre(surface, Genre::Ligne); }
    // Plane mode: the point of the plane drawn at (sx, sy).
    double versX(double sx) const { return (sx - etat.vue.decalX) / etat.vue.echelleX; }
    double versY(double sy) const { return (etat.vue.decalY - sy) / etat.vue.echelleY; }
};

void attendProche(const std::vector<double>& lu, const std::vector<double>& attendu, const std::string& texte)
{
    ASSERT_EQ(lu.size(), attendu.size()) << texte;
    for (std::size_t i = 0; i < lu.size(); ++i)
        EXPECT_NEAR(lu[i], attendu[i], 1e-9) << texte << " " << i;
}

TEST(ObjetsLecture, CoordonneesLuesOuRefusees)
{
    struct Cas {
        const char* texte;
        bool espace;
        std::vector<double> attendu;  // empty: refused
    } const cas[] = {
        {"(1,-2P,3)", true, {1, -2 * pi, 3}}, {"(P/2,1E-3,-3P/4)", true, {pi / 2, 0.001, -3 * pi / 4}},
        {"(1/4,+2,P)", true, {0.25, 2, pi}},  {"1.5,-2,0.25", true, {1.5, -2, 0.25}},
        {"(1,2,3)]", true, {1, 2, 3}},        {"(1,2)", false, {1, 2, 0}},
        {"(1,2,7)", false, {1, 2, 0}},        {"(1,2)", true, {}},
        {"(1,2", true, {}},                   {"1,2,3)", true, {}},
        {"(1,,3)", true, {}},                 {"(1,2,3,4)", true, {}},
        {"(A,2,3)", true, {}},                {"(1,2-3,4)", true, {}},
        {"(2P3,1,1)", true, {}},              {"(1E999,1,1)", true, {}},
        {"", true, {}},
    };
    for (const Cas& c : cas) {
        const auto v = lisCoordonnees(c.texte, c.espace);
        attendProche(v ? std::vector<double>(v->begin(), v->end()) : std::vector<double>{}, c.attendu, c.texte);
    }
}

TEST(ObjetsLecture, EquationsLuesOuRefusees)
{
    struct Cas {
        const char* texte;
        std::vector<double> attendu;  // normal and constant; empty: refused
    } const cas[] = {
        {"2x+3y-z+1=0", {2, 3, -1, 1}}, {"-x+0.5y=2", {-1, 0.5, 0, -2}},  {"z=3", {0, 0, 1, -3}},
        {"y=2x+1", {-2, 1, 0, -1}},     {"2*X-Y+x=1E-3", {3, -1, 0, -0.001}}, {"1E-1x=P", {0.1, 0, 0, -pi}},
        {"P/2y+3=z", {0, pi / 2, -1, 3}}, {"x+y+2z", {1, 1, 2, 0}},      {"0x+0y=4", {0, 0, 0, -4}},
        {"x=y=z", {}}, {"2x+=1", {}}, {"2w=1", {}}, {"x*=1", {}}, {"xy=1", {}}, {"=1", {}}, {"", {}},
    };
    for (const Cas& c : cas) {
        const auto eq = lisEquation(c.texte);
        attendProche(eq ? std::vector{eq->normale[0], eq->normale[1], eq->normale[2], eq->constante}
                        : std::vector<double>{},
                     c.attendu, c.texte);
    }
}

TEST(ObjetsTrace, MessagesEtRienDessine)
{
    const std::string nul = "PAS POCHIBLE AVEC UNE NULLITE DE VECTEUR NUL";
    const std::string colin = "pas pochible,vecteurs colinéaires";
    // Row: space, kind, three fields, the start of the message (empty: none).
    const std::tuple<bool, int, const char*, const char*, const char*, std::string> cas[] = {
        {true, 5, "(1,2,3)", "(0,0,0)", "", nul},
        {false, 5, "(1,2)", "(0,0,5)", "", nul},  // z does not count in the plane
        {true, 6, "(0,0,0)", "(1,2,3)", "(0,0,0)", nul},
        {true, 6, "(0,0,0)", "(1,2,3)", "(-2,-4,-6)", colin},
        {false, 6, "(0,0)", "(1,1)", "(2,2,9)", colin},
        {true, 7, "0x+0y+0z=1", "", "", nul},
        {false, 7, "z=3", "", "", nul},
        {true, 7, "2x+y=", "", "", "Équation de plan incorrecte : 2x+y="},
        {false, 7, "y=2x+", "", "", "Équation de droite incorrecte : y=2x+"},
        {true, 9, "(1,2", "", "", "Point incorrect : (1,2"},
        {true, 8, "(1,2,3)", "(1,Q,3)", "", "Point incorrect : (1,Q,3)"},
        {true, 5, "(1,2,3)", "", "", "Vecteur incorrect : (vide)"},
        {true, 6, "(1,2,3)", "(1,0,0)", "(0,1)", "Vecteur incorrect : (0,1)"},
        {true, 5, "(0,0,30)", "(1,1,0)", "", ""},  // lines outside the frame: no message either
        {true, 7, "z=11", "", "", ""},
    };
    for (const auto& [espace, genre, f1, f2, f3, debut] : cas) {
        Scene s(espace);
        const std::string message = s.trace(genre, f1, f2, f3);
        EXPECT_EQ(message.substr(0, debut.size()) + "|" + std::to_string(message.empty()),
                  debut + "|" + std::to_string(debut.empty())) << f1 << " " << f2;
        EXPECT_TRUE(s.surface.operations().empty()) << f1;
    }
}

// A line runs across the whole frame: in the plane its ends are on the
// drawing area (100 twips short of xmax, drawn in steps of a 200th of its
// length); in space it stops where it leaves the box of the ranges,
// although the picture would have room for more.
TEST(ObjetsTrace, DroiteCoupeeAuCadreOuALaBoite)
{
    struct Cas {
        bool espace;
        int genre;
        const char *f1, *f2;
        Vecteur3 a, b;
    } const cas[] = {
        {false, 5, "(0,0)", "(1,0)", {-10, 0, 0}, {10, 0, 0}},
        {false, 5, "(2,3)", "(0,-4)", {2, -10, 0}, {2, 10, 0}},
        {false, 5, "(0,0)", "(1,2)", {-5, -10, 0}, {5, 10, 0}},
        {false, 7, "y=0.5x+2", "", {-10, -3, 0}, {10, 7, 0}},
        {false, 7, "x=-4", "", {-4, -10, 0}, {-4, 10, 0}},
        {true, 5, "(0,0,0)", "(0,0,1)", {0, 0, -10}, {0, 0, 10}},
        {true, 5, "(1,2,3)", "(2,0,0)", {-10, 2, 3}, {10, 2, 3}},
        {true, 5, "(0,0,0)", "(1,1,2)", {-5, -5, -10}, {5, 5, 10}},
    };
    for (const Cas& c : cas) {
        Scene s(c.espace);
        s.etat.param.traceContinu = 0;  // objects are solid lines all the same
        ASSERT_EQ(s.trace(c.genre, c.f1, c.f2), "") << c.f1;
        const auto l = s.lignes();
        ASSERT_GT(l.size(), 10u) << c.f1;
        double ax, ay, bx, by;
        projette(s.etat.param, s.etat.vue, c.espace, c.a[0], c.a[1], c.a[2], ax, ay);
        projette(s.etat.param, s.etat.vue, c.espace, c.b[0], c.b[1], c.b[2], bx, by);
        std::array<double, 4> bouts{l.front().x1, l.front().y1, l.back().x2, l.back().y2};
        if (std::hypot(bouts[0] - ax, bouts[1] - ay) > std::hypot(bouts[2] - ax, bouts[3] - ay))
            bouts = {bouts[2], bouts[3], bouts[0], bouts[1]};
        const double marge = c.espace ? 1e-6 : 100 + 0.15 * s.etat.vue.echelleX;
        for (auto [lu, attendu] : {std::pair{bouts[0], ax}, {bouts[1], ay}, {bouts[2], bx}, {bouts[3], by}})
            EXPECT_NEAR(lu, attendu, marge) << c.f1 << " " << c.f2;
    }
}

// The lattice of a plane stays inside the frame and has two directions.
TEST(ObjetsTrace, TreillisDuPlanDansLeCadre)
{
    for (auto [f1, f2, f3] : {std::tuple{"(1,1)", "(1,0)", "(1,1)"}, {"(0,0)", "(2,1)", "(-1,3)"}}) {
        Scene s(false);
        ASSERT_EQ(s.trace(6, f1, f2, f3), "");
        std::vector<double> pentes;
        for (const auto& o : s.lignes()) {
            for (double v : {s.versX(o.x1), s.versX(o.x2), s.versY(o.y1), s.versY(o.y2)})
                EXPECT_LE(std::abs(v), 10 + 1e-6);
            const double p = std::fmod(std::atan2(o.y2 - o.y1, o.x2 - o.x1) + M_PI, M_PI);
            const bool connue = std::any_of(pentes.begin(), pentes.end(), [&](double q) {
                return std::abs(q - p) < 1e-6 || std::abs(std::abs(q - p) - M_PI) < 1e-6;
            });
            if (!connue && std::hypot(o.x2 - o.x1, o.y2 - o.y1) > 1)
                pentes.push_back(p);
        }
        EXPECT_EQ(pentes.size(), 2u) << f2 << f3;
        // 21 lines each way at most, each cut in short steps: far more than 2 lines.
        EXPECT_GT(s.lignes().size(), 1000u);
    }
    Scene espace(true);
    ASSERT_EQ(espace.trace(7, "2x+3y-z+1=0"), "");
    EXPECT_GT(espace.lignes().size(), 1000u);
}

TEST(ObjetsTrace, SegmentEtPoint)
{
    Scene s(false);
    ASSERT_EQ(s.trace(8, "(-8,-6)", "(4,7)"), "");
    const auto l = s.lignes();
    ASSERT_FALSE(l.empty());
    attendProche({s.versX(l.front().x1), s.versY(l.front().y1), s.versX(l.back().x2), s.versY(l.back().y2)},
                 {-8, -6, 4, 7}, "segment");

    Scene p(false);
    p.etat.param.projOx = 1;
    ASSERT_EQ(p.trace(9, "(P,2)"), "");
    int branches = 0;
    for (const auto& o : p.lignes()) {
        const double mx = p.versX((o.x1 + o.x2) / 2), my = p.versY((o.y1 + o.y2) / 2);
        branches += std::abs(o.x2 - o.x1) > 50 && std::abs(mx - pi) < 1e-6 && std::abs(my - 2) < 1e-6;
    }
    EXPECT_EQ(branches, 2);
    EXPECT_EQ(duGenre(p.surface, Genre::Cercle).size(), 1u);  // the foot of the projection onto Ox
}

}  // namespace
}  // namespace velorin
