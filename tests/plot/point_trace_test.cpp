#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "commun/commun.h"
#include "plot/point_trace.h"

namespace velorin {
namespace {

using namespace essai;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

void pose(Etat& etat, SurfaceEnregistreuse& s, double x, double y, int marque = 0, const CrochetsTrace& crochets = {})
{
    etat.trace.ecranX = x;
    etat.trace.ecranY = y;
    tracePoint(etat, s, marque, 0xABCDEF, crochets);
}

TEST(PointTrace, ReliesSeulementPointsVisiblesConsecutifsAMoinsDeLaMoitie)
{
    auto fin = [](const OperationDessin& op) {
        return op.genre == Genre::Ligne ? std::make_pair(op.x2, op.y2) : std::make_pair(op.x1, op.y1);
    };
    // Drawing area: x in [1, 13760], y in [16, 10735]; half of it 6880 by 5360.
    using P = std::pair<double, double>;
    const Genre o = Genre::Point, l = Genre::Ligne;
    const std::tuple<const char*, int, std::vector<P>, std::vector<Genre>> cas[] = {
        {"leaves and comes back", 1, {{100, 100}, {200, 300}, {0, 200}, {300, 300}, {400, 300}}, {o, l, o, l}},
        {"bottom and right edges", 1, {{100, 10735}, {100, 10736}, {13760, 50}, {13761, 50}, {13000, 50}}, {o, o, o}},
        {"top edge", 1, {{500, 16}, {500, 15}, {500, 16}}, {o, o}},
        {"jump over half the height", 1, {{100, 100}, {100, 5461}, {100, 5462}}, {o, o, l}},
        {"jump over half the width", 1, {{100, 100}, {6981, 100}}, {o, o}},
        {"not finite", 1, {{100, 100}, {nan, 100}, {150, 100}}, {o, o}},
        {"dotted", 0, {{100, 100}, {200, 200}, {0, 0}, {300, 300}}, {o, o, o}},
    };
    for (const auto& [nom, continu, pts, attendu] : cas) {
        Etat etat = etatCalibre(false);
        etat.param.traceContinu = continu;
        SurfaceEnregistreuse s;
        for (auto [x, y] : pts)
            pose(etat, s, x, y);
        std::vector<Genre> genres;
        for (std::size_t i = 0; i < s.operations().size(); ++i) {
            const auto& op = s.operations()[i];
            genres.push_back(op.genre);
            if (op.genre == l) {  // a segment starts at the previous point
                EXPECT_EQ(std::make_pair(op.x1, op.y1), fin(s.operations()[i - 1])) << nom;
            }
        }
        EXPECT_EQ(genres, attendu) << nom;
        EXPECT_EQ(s.operations()[0].couleur, 0xABCDEFu);
    }
}

TEST(PointTrace, MarquesDUnDixiemePoint)
{
    struct Cas {
        const char* nom;
        bool espace;
        int marque;
        double x;
        int genre, rayon;
        std::size_t rayons, projections, tangentes;
    } const cas[] = {
        {"space, every mark", true, 1, 5000, 3, 1, 1, 3, 1},
        {"not a tenth point", true, 0, 5000, 3, 1, 0, 0, 0},
        {"invisible point", true, 1, -50, 3, 1, 0, 0, 0},
        {"radius only for kind 3", true, 1, 5000, 1, 1, 0, 3, 1},
        {"plane: only the Ox mark", false, 1, 5000, 3, 0, 0, 1, 1},
    };
    for (const Cas& c : cas) {
        Etat etat = etatCalibre(c.espace);
        etat.moteur.pointX = 2, etat.moteur.pointY = 3, etat.moteur.pointZ = 4;
        etat.moteur.genreCourbe = c.genre;
        etat.param.avecRayon = c.rayon;
        etat.param.projOx = etat.param.projOz = etat.param.projXOy = 1;
        etat.couleurs.couleurProjXOy = 0x00FF00;  // the scheme says green
        etat.trace.tangenteX1 = 10, etat.trace.tangenteY1 = 20;
        etat.trace.tangenteX2 = etat.trace.tangenteY2 = 30;
        SurfaceEnregistreuse s;
        pose(etat, s, c.x, 5000, c.marque);
        const auto rayons = duGenre(s, Genre::Ligne, etat.couleurs.couleurRayon);
        for (const auto& r : rayons)  // from the origin
            EXPECT_EQ(std::make_pair(r.x1, r.y1), std::make_pair(etat.vue.origineEcranX, etat.vue.origineEcranY));
        const auto traits = duGenre(s, Genre::Ligne);
        const auto tirets = std::count_if(traits.begin(), traits.end(), [](const auto& op) { return op.style == 2; });
        const std::size_t tangentes = duGenre(s, Genre::Ligne, etat.couleurs.couleurTangente).size();
        EXPECT_EQ((std::vector{rayons.size(), tangentes, std::size_t(tirets), duGenre(s, Genre::Cercle).size()}),
                  (std::vector<std::size_t>{c.rayons, c.tangentes, c.projections, c.projections}))
            << c.nom;
        // The xOy foot (2, 3, 0): a blue solid circle of radius 20 whatever the scheme.
        const auto pieds = duGenre(s, Genre::Cercle, 0xFF0000);
        double fx, fy;
        ASSERT_TRUE(projette(etat.param, etat.vue, c.espace, 2, 3, 0, fx, fy));
        EXPECT_EQ(pieds.size(), c.espace && c.projections ? 1u : 0u) << c.nom;
        for (const auto& p : pieds)
            EXPECT_EQ((std::vector<double>{p.x1, p.y1, p.rayon, double(p.style)}),
                      (std::vector<double>{fx, fy, 20, 0}));
    }
}

TEST(PointTrace, PauseSeulementActiveEtDUneMillisecondeAuMoins)
{
    for (auto [active, attente, attendus] : {std::tuple{true, 30, 2}, {true, 1, 2}, {true, 0, 0}, {false, 30, 0}}) {
        Etat etat = etatCalibre(false);
        etat.fenetre.pauseActive = active;
        etat.param.pauseMs = std::int16_t(attente);
        int appels = 0;
        CrochetsTrace crochets;
        crochets.pause = [&, attente = attente](int ms) { appels += ms == attente; };
        SurfaceEnregistreuse s;
        pose(etat, s, 100, 500, 0, crochets);
        pose(etat, s, -100, 500, 0, crochets);  // visible or not, the point waits
        EXPECT_EQ(appels, attendus) << active << " " << attente;
    }
}

TEST(PointTrace, PointsAdmis)
{
    // Plane: the surface position within 0..W-1400 by 0..H-800. Space: every coordinate within its range.
    // Row: space, zmin, zmax, screen x and y, x, y, z, admitted.
    for (auto [espace, zmin, zmax, sx, sy, x, y, z, admis] :
         {std::tuple{false, -10.f, 10., 13960., 10720., 99., 99., 99., true},
          {false, -10.f, 10., 13961., 100., 0., 0., 0., false},
          {false, -10.f, 10., 0., -0.5, 0., 0., 0., false}, {false, -10.f, 10., nan, 100., 0., 0., 0., false},
          {true, -10.f, 10., -1e6, -1e6, 10., -10., 0., true}, {true, -10.f, 10., 0., 0., 10.001, 0., 0., false},
          {true, -10.f, 10., 0., 0., 0., -10.5, 0., false}, {true, -10.f, 10., 0., 0., 0., 0., 1e9, false},
          {true, 5.f, -5., 0., 0., 0., 0., -4., true},  // reversed z range
          {true, 5.f, -5., 0., 0., 0., 0., 6., false}, {true, -10.f, 10., 0., 0., nan, 0., 0., false}}) {
        Etat etat = etatCalibre(espace);
        etat.param.zmin = zmin, etat.param.zmax = zmax;
        EXPECT_EQ(pointAdmis(etat, sx, sy, x, y, z), admis) << espace << " " << sx << " " << x << " " << y << " " << z;
    }
}

}  // namespace
}  // namespace velorin
