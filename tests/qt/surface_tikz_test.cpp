// The TikZ picture: LaTeX's special characters escaped in the texts; every
// gallery entry of both modes, and a picture with an accented label in a
// whole document, compiled by pdflatex, the label's text found again in the PDF.
#include <cstdlib>
#include <fstream>

#include "catalogue/catalogue.h"
#include "cli/rendu.h"
#include "commun/commun.h"
#include "qt/surface_tikz.h"
#include "settings/memoire.h"

namespace velorin::essai {
namespace {

TEST(SurfaceTikz, EchappementDesCaracteresSpeciauxDeLatex)
{
    const std::pair<std::string, std::string> cas[] = {
        {"a\\b", "a\\textbackslash{}b"},   // a command would begin
        {"100 % & co", "100 \\% \\& co"},  // a comment, a table cell
        {"$#_{}~^", "\\$\\#\\_\\{\\}\\textasciitilde{}\\textasciicircum{}"},
        {"Été œ ÿ", "Été œ ÿ"},  // kept: the T1 encoding prints them
        {"α→x", "??x"},          // no glyph: pdflatex would stop
        {"a\tb\n", "a b "},
        {"a\xff\xc3", "a??"},  // control bytes; invalid or cut UTF-8
    };
    for (const auto& [texte, attendu] : cas)
        EXPECT_EQ(texteLatex(texte), attendu) << texte;
}

TEST(SurfaceTikz, LargeurLueEnCentimetresOuMillimetres)
{
    const std::pair<const char*, std::optional<double>> cas[] = {{"12cm", 12},          {"90mm", 9},
                                                                 {"7.5", 7.5},          {"0.4cm", std::nullopt},
                                                                 {"501", std::nullopt}, {"12 cm", std::nullopt},
                                                                 {"cm", std::nullopt},  {"12pt", std::nullopt}};
    for (const auto& [texte, attendu] : cas)
        EXPECT_EQ(largeurTex(texte), attendu) << texte;
}

// The text pdftotext finds in `pdf`, spaces removed, and its number of pages.
std::pair<std::string, int> texteDuPdf(const DossierTemporaire& d, const std::string& pdf)
{
    const std::string commande = "pdftotext '" + d / pdf + "' '" + d / "texte.txt" + "'";
    if (std::system(commande.c_str()) != 0)
        return {"", 0};
    std::string texte;
    int pages = 0;
    for (char c : lisFichier(d / "texte.txt")) {
        pages += c == '\f';
        if (!std::isspace(static_cast<unsigned char>(c)))
            texte += c;
    }
    return {texte, pages};
}

bool pdflatex(const DossierTemporaire& d, const std::string& tex)
{
    const std::string commande = "cd '" + d.chemin().string() +
                                 "' && pdflatex -interaction=nonstopmode -halt-on-error " + tex + " >/dev/null 2>&1";
    return std::system(commande.c_str()) == 0;
}

TEST(SurfaceTikz, GalerieEtEtiquetteAccentueeCompileesParPdflatex)
{
    if (std::system("command -v pdflatex >/dev/null 2>&1 && command -v pdftotext >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "pdflatex ou pdftotext absent";
    DossierTemporaire d;
    std::string document = "\\documentclass{article}\n\\usepackage[T1]{fontenc}\n\\usepackage[utf8]{inputenc}\n"
                           "\\usepackage{tikz}\n\\begin{document}\n";
    int entrees = 0;
    for (const auto& [espace, lsu] : {std::pair(true, "Espace_courbes/Lisurf.lsu"), {false, "Plan_courbes/Lico.lsu"}}) {
        const fs::path chemin = fs::path(VELORIN_BIN_DIR) / lsu;
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, chemin.string())) << lsu;
        for (int n = 1; n <= int(cat.nbLignesCatalogue); ++n, ++entrees) {
            std::string nom(1, 'e');
            nom += std::to_string(entrees);
            DemandeRendu r;
            r.espace = espace, r.catalogue = chemin.string(), r.entrees = {n};
            r.parametres = memoireParDefaut(chemin.parent_path().string(), espace);
            r.sortie = d / (nom + ".tex");
            const ResultatRendu fait = rendu(r);
            ASSERT_FALSE(fait.erreur) << lsu << ' ' << n << ' ' << fait.erreur.message();
            document += "\\input{" + nom + "}\\newpage\n";
        }
    }
    ecrisFichier(d / "galerie.tex", document + "\\end{document}\n");
    ASSERT_TRUE(pdflatex(d, "galerie.tex")) << lisFichier(d / "galerie.log");
    EXPECT_EQ(texteDuPdf(d, "galerie.pdf").second, entrees);

    // A whole document: one page, the label's text as it was given.
    const std::string etiquette = "Été à 100 % & co_x {y} $#";
    {
        std::ofstream f(d / "etiquette.tex");
        SurfaceTikz s(f, 300, 200, OptionsTex{.largeurCm = 6, .autonome = true});
        s.Clear(0xFFFFFF);
        s.DrawStyle = 2;
        s.Line(0, 0, 3000, 2000, 0xFF);
        s.CurrentX = 300, s.CurrentY = 300;
        s.Print(etiquette);
    }
    ASSERT_TRUE(pdflatex(d, "etiquette.tex")) << lisFichier(d / "etiquette.log");
    std::string attendu = etiquette;
    std::erase(attendu, ' ');
    EXPECT_EQ(texteDuPdf(d, "etiquette.pdf"), std::pair(attendu, 1));
}

}  // namespace
}  // namespace velorin::essai
