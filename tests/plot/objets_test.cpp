#include "plot/objets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "commun/commun.h"

using namespace velorin;
using namespace velorin::essai;

namespace {

struct Scene {
    Etat etat;
    SurfaceEnregistreuse surface{etat.vue.W, etat.vue.H};

    explicit Scene(bool espace) : etat(etatCalibre(espace)) { }
    std::string trace(int genre, std::string f1, std::string f2 = {}, std::string f3 = {})
    {
        etat.trace.typeTrace = genre;
        etat.moteur.formuleF1 = std::move(f1);
        etat.moteur.formuleF2 = std::move(f2);
        etat.moteur.formuleF3 = std::move(f3);
        const Erreur erreur = traceObjet(etat, surface, {});
        return erreur ? erreur.message() : std::string();
    }
    std::vector<OperationDessin> lignes() const { return duGenre(surface, Genre::Ligne); }
    // Plane mode: the point of the plane drawn at (sx, sy).
    double versX(double sx) const { return (sx - etat.vue.decalX) / etat.vue.echelleX; }
    double versY(double sy) const { return (etat.vue.decalY - sy) / etat.vue.echelleY; }
};

TEST(ObjetsLecture, Coordonnees)
{
    const double pi = 3.141592;
    struct Cas {
        const char* texte;
        bool espace;
        bool lu;
        Vecteur3 attendu;
    };
    const Cas cas[] = {
        {"(1,-2P,3)", true, true, {1, -2 * pi, 3}},
        {"(P/2,1E-3,-3P/4)", true, true, {pi / 2, 0.001, -3 * pi / 4}},
        {"(1/4,+2,P)", true, true, {0.25, 2, pi}},
        {"1.5,-2,0.25", true, true, {1.5, -2, 0.25}},
        {"(1,2,3)]", true, true, {1, 2, 3}},
        {"(1,2)", false, true, {1, 2, 0}},
        {"(1,2,7)", false, true, {1, 2, 0}},
        {"(1,2)", true, false, {}},
        {"(1,2", true, false, {}},
        {"1,2,3)", true, false, {}},
        {"(1,,3)", true, false, {}},
        {"(1,2,3,4)", true, false, {}},
        {"(A,2,3)", true, false, {}},
        {"(1,2-3,4)", true, false, {}},
        {"(2P3,1,1)", true, false, {}},
        {"(1E999,1,1)", true, false, {}},
        {"", true, false, {}},
    };
    for (const Cas& c : cas) {
        const auto v = lisCoordonnees(c.texte, c.espace);
        ASSERT_EQ(v.has_value(), c.lu) << c.texte;
        if (!v)
            continue;
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR((*v)[i], c.attendu[i], 1e-9) << c.texte << " " << i;
    }
}

TEST(ObjetsLecture, Equations)
{
    struct Cas {
        const char* texte;
        bool lu;
        Vecteur3 n;
        double e;
    };
    const Cas cas[] = {
        {"2x+3y-z+1=0", true, {2, 3, -1}, 1},
        {"-x+0.5y=2", true, {-1, 0.5, 0}, -2},
        {"z=3", true, {0, 0, 1}, -3},
        {"y=2x+1", true, {-2, 1, 0}, -1},
        {"2*X-Y+x=1E-3", true, {3, -1, 0}, -0.001},
        {"1E-1x=P", true, {0.1, 0, 0}, -3.141592},
        {"P/2y+3=z", true, {0, 1.570796, -1}, 3},
        {"x+y+2z", true, {1, 1, 2}, 0},
        {"0x+0y=4", true, {0, 0, 0}, -4},
        {"x=y=z", false, {}, 0},
        {"2x+=1", false, {}, 0},
        {"2w=1", false, {}, 0},
        {"x*=1", false, {}, 0},
        {"xy=1", false, {}, 0},
        {"=1", false, {}, 0},
        {"", false, {}, 0},
    };
    for (const Cas& c : cas) {
        const auto eq = lisEquation(c.texte);
        ASSERT_EQ(eq.has_value(), c.lu) << c.texte;
        if (!eq)
            continue;
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(eq->normale[i], c.n[i], 1e-9) << c.texte << " " << i;
        EXPECT_NEAR(eq->constante, c.e, 1e-9) << c.texte;
    }
}

TEST(ObjetsTrace, MessagesEtRienDessine)
{
    const std::string nul = "PAS POCHIBLE AVEC UNE NULLITE DE VECTEUR NUL";
    const std::string colin = "pas pochible,vecteurs colinéaires";
    struct Cas {
        bool espace;
        int genre;
        const char* f1;
        const char* f2;
        const char* f3;
        std::string debut;
    };
    const Cas cas[] = {
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
    for (const Cas& c : cas) {
        Scene s(c.espace);
        const std::string message = s.trace(c.genre, c.f1, c.f2, c.f3);
        EXPECT_EQ(c.debut.empty() ? message : message.substr(0, c.debut.size()), c.debut) << c.f1 << " " << c.f2;
        EXPECT_TRUE(s.surface.operations().empty()) << c.f1;
    }
}

// A line D(M,u) runs across the whole frame: its ends are on the frame's box.
TEST(ObjetsTrace, DroiteCoupeeAuCadre)
{
    struct Cas {
        int genre;
        const char* f1;
        const char* f2;
        double x0, y0, x1, y1;
    };
    const Cas cas[] = {
        {5, "(0,0)", "(1,0)", -10, 0, 10, 0},  {5, "(2,3)", "(0,-4)", 2, -10, 2, 10},
        {5, "(0,0)", "(1,2)", -5, -10, 5, 10}, {7, "y=0.5x+2", "", -10, -3, 10, 7},
        {7, "x=-4", "", -4, -10, -4, 10},
    };
    for (const Cas& c : cas) {
        Scene s(false);
        s.etat.param.traceContinu = 0;  // objects are solid lines all the same
        ASSERT_EQ(s.trace(c.genre, c.f1, c.f2), "") << c.f1;
        EXPECT_EQ(s.etat.param.traceContinu, 0);
        const auto l = s.lignes();
        ASSERT_GT(l.size(), 10u) << c.f1;
        double xa = s.versX(l.front().x1), ya = s.versY(l.front().y1);
        double xb = s.versX(l.back().x2), yb = s.versY(l.back().y2);
        if (xa > xb || (xa == xb && ya > yb)) {
            std::swap(xa, xb);
            std::swap(ya, yb);
        }
        // The drawing area ends 100 twips short of xmax, and the line is
        // drawn in steps of a 200th of its length: allow both.
        const double marge = 100 / s.etat.vue.echelleX + 0.15;
        EXPECT_NEAR(xa, c.x0, marge) << c.f1;
        EXPECT_NEAR(ya, c.y0, marge) << c.f1;
        EXPECT_NEAR(xb, c.x1, marge) << c.f1;
        EXPECT_NEAR(yb, c.y1, marge) << c.f1;
    }
}

// In space the line stops where it leaves the box of the x, y, z ranges,
// although the picture would have room for more.
TEST(ObjetsTrace, DroiteCoupeeALaBoiteEnEspace)
{
    struct Cas {
        const char* f1;
        const char* f2;
        Vecteur3 a, b;
    };
    const Cas cas[] = {
        {"(0,0,0)", "(0,0,1)", {0, 0, -10}, {0, 0, 10}},
        {"(1,2,3)", "(2,0,0)", {-10, 2, 3}, {10, 2, 3}},
        {"(0,0,0)", "(1,1,2)", {-5, -5, -10}, {5, 5, 10}},
    };
    for (const Cas& c : cas) {
        Scene s(true);
        ASSERT_EQ(s.trace(5, c.f1, c.f2), "");
        const auto l = s.lignes();
        ASSERT_FALSE(l.empty());
        double ax, ay, bx, by;
        projette(s.etat.param, s.etat.vue, true, c.a[0], c.a[1], c.a[2], ax, ay);
        projette(s.etat.param, s.etat.vue, true, c.b[0], c.b[1], c.b[2], bx, by);
        EXPECT_NEAR(l.front().x1, ax, 1e-6) << c.f2;
        EXPECT_NEAR(l.front().y1, ay, 1e-6) << c.f2;
        EXPECT_NEAR(l.back().x2, bx, 1e-6) << c.f2;
        EXPECT_NEAR(l.back().y2, by, 1e-6) << c.f2;
    }
}

// The lattice of a plane stays inside the frame and has two directions.
TEST(ObjetsTrace, TreillisDuPlanDansLeCadre)
{
    struct Cas {
        int genre;
        const char* f1;
        const char* f2;
        const char* f3;
    };
    const Cas cas[] = {
        {6, "(1,1)", "(1,0)", "(1,1)"},
        {6, "(0,0)", "(2,1)", "(-1,3)"},
    };
    for (const Cas& c : cas) {
        Scene s(false);
        ASSERT_EQ(s.trace(c.genre, c.f1, c.f2, c.f3), "");
        std::vector<double> pentes;
        for (const auto& o : s.lignes()) {
            for (double x : {s.versX(o.x1), s.versX(o.x2)})
                EXPECT_LE(std::abs(x), 10 + 1e-6);
            for (double y : {s.versY(o.y1), s.versY(o.y2)})
                EXPECT_LE(std::abs(y), 10 + 1e-6);
            const double pente = std::atan2(o.y2 - o.y1, o.x2 - o.x1);
            const double p = pente < 0 ? pente + M_PI : pente;
            bool connue = false;
            for (double q : pentes)
                connue |= std::abs(q - p) < 1e-6 || std::abs(std::abs(q - p) - M_PI) < 1e-6;
            if (!connue && std::hypot(o.x2 - o.x1, o.y2 - o.y1) > 1)
                pentes.push_back(p);
        }
        EXPECT_EQ(pentes.size(), 2u) << c.f2 << c.f3;
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
    EXPECT_NEAR(s.versX(l.front().x1), -8, 1e-9);
    EXPECT_NEAR(s.versY(l.front().y1), -6, 1e-9);
    EXPECT_NEAR(s.versX(l.back().x2), 4, 1e-9);
    EXPECT_NEAR(s.versY(l.back().y2), 7, 1e-9);

    Scene p(false);
    p.etat.param.projOx = 1;
    ASSERT_EQ(p.trace(9, "(P,2)"), "");
    const auto croix = p.lignes();
    int branches = 0;
    for (const auto& o : croix) {
        const double mx = p.versX((o.x1 + o.x2) / 2), my = p.versY((o.y1 + o.y2) / 2);
        if (std::abs(o.x2 - o.x1) > 50 && std::abs(mx - 3.141592) < 1e-6 && std::abs(my - 2) < 1e-6)
            ++branches;
    }
    EXPECT_EQ(branches, 2);
    EXPECT_EQ(duGenre(p.surface, Genre::Cercle).size(), 1u);  // the foot of the projection onto Ox
}

}  // namespace

// Texts made of the characters a user may type: every kind reads them
// without crashing, and either draws or explains in a message.
TEST(ObjetsTrace, TextesAuHasard)
{
    const std::string alphabet = "0123456789.,()+-*/=PEXYZxyz] ";
    unsigned graine = 12345;
    auto hasard = [&](unsigned n) {
        graine = graine * 1103515245u + 12345u;
        return (graine >> 16) % n;
    };
    auto texte = [&] {
        std::string t = hasard(2) ? "(" : "";
        for (unsigned i = 0, n = hasard(14); i < n; ++i)
            t += alphabet[hasard(alphabet.size())];
        return t;
    };
    for (int essai = 0; essai < 1500; ++essai) {
        Scene s(essai % 2 == 0);
        const int genre = 5 + essai % 5;
        const std::string message = s.trace(genre, texte(), texte(), texte());
        if (!message.empty()) {
            EXPECT_TRUE(s.surface.operations().empty()) << message;
        }
    }
}
