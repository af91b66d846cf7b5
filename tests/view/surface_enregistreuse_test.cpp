#include <gtest/gtest.h>

#include <locale>
#include <sstream>

#include "commun/locale_virgule.h"
#include "view/surface_enregistreuse.h"

namespace velorin {
namespace {

void dessineUnPeuDeTout(SurfaceEnregistreuse& s)
{
    s.Clear(0xFFFFFF);
    s.DrawWidth = 2;
    s.DrawStyle = 2;
    s.Line(0.5, 1, 1500.25, -3, 255);
    s.DrawWidth = 1;
    s.DrawStyle = 0;
    s.PSet(10, 20, 0xFF0000);
    s.Circle(100, 200, 20, 65280);
    s.ForeColor = 0x808000;
    s.FontName = "Arial";
    s.FontSize = 9.5;
    s.CurrentX = 300;
    s.CurrentY = 400;
    s.Print("x \"y\"\nz");
    s.Line(1234567.5, 0.25, 2, 3, 16711680);
}

// The journal in memory and streamed give the same text, "." decimals under
// a comma locale with thousands grouping; the streamed one keeps nothing.
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
                                "LINE 1234567.5 0.25 2 3 16711680 1 0\n";
    EXPECT_EQ(enMemoire.journal(), attendu);
    EXPECT_EQ(enMemoire.operations().size(), 6u);
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

TEST(SurfaceEnregistreuse, PositionDeLaPlumeEtMesuresDuTexte)
{
    SurfaceEnregistreuse s;
    s.FontSize = 10;
    struct Cas {
        const char* texte;
        double largeur;
    };
    for (Cas c : {Cas{"", 0}, Cas{"O", 120}, Cas{"1.23E+02", 960}, Cas{"Repère", 720}})
        EXPECT_DOUBLE_EQ(s.TextWidth(c.texte), c.largeur) << c.texte;
    EXPECT_DOUBLE_EQ(s.TextHeight(), 240);

    s.Line(1, 2, 3, 4, 0);
    EXPECT_EQ(s.CurrentX, 3);
    EXPECT_EQ(s.CurrentY, 4);
    s.PSet(5, 6, 0);
    EXPECT_EQ(s.CurrentX, 5);
    EXPECT_EQ(s.CurrentY, 6);
    s.Circle(50, 60, 7, 0);
    EXPECT_EQ(s.CurrentX, 5);
    s.CurrentX = 100;
    s.Print("a");
    s.Print("b");  // steps down one line, back at the left edge
    EXPECT_EQ(s.operations()[3].x1, 100);
    EXPECT_EQ(s.operations()[3].y1, 6);
    EXPECT_EQ(s.operations()[4].x1, 0);
    EXPECT_EQ(s.operations()[4].y1, 246);
    s.Clear(0);
    EXPECT_EQ(s.CurrentX, 0);
    EXPECT_EQ(s.CurrentY, 0);
}

}  // namespace
}  // namespace velorin
