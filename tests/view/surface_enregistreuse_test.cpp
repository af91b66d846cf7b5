#include <gtest/gtest.h>

#include <locale>
#include <sstream>
#include <tuple>

#include "commun/locale_virgule.h"
#include "view/surface.h"
#include "view/surface_enregistreuse.h"

namespace velorin {
namespace {

void dessineUnPeuDeTout(SurfaceEnregistreuse& s)
{
    s.Clear(0xFFFFFF);
    std::tie(s.DrawWidth, s.DrawStyle) = std::tuple(2, 2);
    s.Line(0.5, 1, 1500.25, -3, 255);
    std::tie(s.DrawWidth, s.DrawStyle) = std::tuple(1, 0);
    s.PSet(10, 20, 0xFF0000);
    s.Circle(100, 200, 20, 65280);
    std::tie(s.ForeColor, s.FontName, s.FontSize, s.CurrentX, s.CurrentY) =
        std::tuple(0x808000, "Arial", 9.5, 300, 400);
    s.Print("x \"y\"\nz");
    s.Line(1234567.5, 0.25, 2, 3, 16711680);
    s.DrawStyle = 1;  // a hidden part
    s.Line(7, 8, 9, 10, 0);
    const double xs[] = {1, 2.5, 3, 4}, ys[] = {5, 6, 7.25, 8};
    s.Face(xs, ys, 2, 65280);  // fewer than three corners: not kept
    s.Face(xs, ys, 4, 65280);
}

// The journal in memory and streamed give the same text, "." decimals under
// a comma locale with thousands grouping, the dashed style of a hidden part
// and a face's corners in order; the streamed one keeps nothing.
TEST(SurfaceEnregistreuse, JournalEnMemoireEtEnFluxAvecLaPlume)
{
    LocaleVirgule virgule;
    SurfaceEnregistreuse enMemoire(6000, 4500);
    dessineUnPeuDeTout(enMemoire);
    const std::string attendu = "CLEAR 16777215\n"
                                "LINE 0.5 1 1500.25 -3 255 2 2\n"
                                "PSET 10 20 16711680 1\n"
                                "CIRCLE 100 200 20 65280 1 0\n"
                                "PRINT 300 400 8421376 \"Arial\" 9.5 \"x \"\"y\"\" z\"\n"
                                "LINE 1234567.5 0.25 2 3 16711680 1 0\n"
                                "LINE 7 8 9 10 0 1 1\n"
                                "FACE 4 1 5 2.5 6 3 7.25 4 8 65280\n";
    EXPECT_EQ(enMemoire.journal(), attendu);
    EXPECT_EQ(enMemoire.operations().size(), 8u);
    std::ostringstream flux;
    SurfaceEnregistreuse s(6000, 4500);
    s.ecrisDans(&flux);
    dessineUnPeuDeTout(s);
    EXPECT_EQ(flux.str(), attendu);
    EXPECT_TRUE(s.operations().empty());
    s.ecrisDans(nullptr);  // back to memory
    s.PSet(1, 2, 3);
    EXPECT_EQ(s.journal(), "PSET 1 2 3 1\n");
    EXPECT_EQ(flux.str(), attendu);
}

// A text's width counts characters, not bytes; each drawing moves the pen to its
// last point but the circle; clearing puts it back at the corner.
TEST(SurfaceEnregistreuse, PositionDeLaPlumeEtMesuresDuTexte)
{
    SurfaceEnregistreuse s;
    s.FontSize = 10;
    EXPECT_EQ(std::pair(s.TextWidth("Repère"), s.TextHeight()), std::pair(720.0, 240.0));
    const auto plume = [&s] { return std::pair(s.CurrentX, s.CurrentY); };
    s.Line(1, 2, 3, 4, 0);
    EXPECT_EQ(plume(), std::pair(3.0, 4.0));
    s.PSet(5, 6, 0);
    s.Circle(50, 60, 7, 0);
    EXPECT_EQ(plume(), std::pair(5.0, 6.0));
    s.Clear(0);
    EXPECT_EQ(plume(), std::pair(0.0, 0.0));
}

TEST(Palette, CouleursDeConsoleRougeDansLOctetBas)
{
    using C = std::tuple<int, Couleur>;
    for (auto [index, attendu] : {C{0, 0x000000}, C{1, 0x800000}, C{4, 0x000080}, C{7, 0xC0C0C0}, C{9, 0xFF0000},
                                  C{12, 0x0000FF}, C{14, 0x00FFFF}, C{15, 0xFFFFFF}})
        EXPECT_EQ(QBColor(index), attendu) << index;
}

}  // namespace
}  // namespace velorin
