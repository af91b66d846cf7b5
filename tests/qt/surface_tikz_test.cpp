// The TikZ picture: LaTeX's special characters escaped in the texts; every
// gallery entry of both modes in two styles, and a picture with an accented
// label in a whole document, compiled by pdflatex, the labels' texts found
// again in the PDF.
#include <cstdlib>
#include <fstream>

#include "catalogue/catalogue.h"
#include "cli/rendu.h"
#include "commun/commun.h"
#include "plot/ecran.h"
#include "plot/redessin.h"
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
        {"a\xff\xc3", "a??"},                                  // control bytes; invalid or cut UTF-8
        {"trèfle affiné x--y", "trèf{}le af{}f{}iné x-{}-y"},  // ligatures: the PDF's text would lose the letters
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

// The names of a gallery in its entries' order: the comment above each
// entry of its source.
std::vector<std::string> nomsDeLaGalerie(const std::string& source)
{
    std::vector<std::string> noms;
    std::istringstream lignes(lisFichier(fs::path(VELORIN_SOURCE_DIR) / "data/sources" / source));
    std::string ligne, commentaire;
    while (std::getline(lignes, ligne))
        if (ligne.starts_with("# "))
            commentaire = ligne.substr(2);
        else if (!ligne.empty() && ligne[0] != '#')
            noms.push_back(commentaire);
    return noms;
}

// Every entry with its name as a label, in "Fil de fer" and in the dashed
// style (space in cavalière with graduations, the plane with its grid).
TEST(SurfaceTikz, GalerieDansLesDeuxStylesEtEtiquettesAccentueesCompileesParPdflatex)
{
    if (std::system("command -v pdflatex >/dev/null 2>&1 && command -v pdftotext >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "pdflatex ou pdftotext absent";
    DossierTemporaire d;
    std::string document = "\\documentclass{article}\n\\usepackage[T1]{fontenc}\n\\usepackage[utf8]{inputenc}\n"
                           "\\usepackage{tikz}\n\\begin{document}\n";
    std::vector<std::string> noms;
    for (StyleRendu style : {StyleRendu::FilDeFer, StyleRendu::Pointilles})
        for (const auto& [espace, lsu, source] : {std::tuple(true, "Espace_courbes/Lisurf.lsu", "Lisurf.txt"),
                                                  std::tuple(false, "Plan_courbes/Lico.lsu", "Lico.txt")}) {
            const fs::path chemin = fs::path(VELORIN_BIN_DIR) / lsu;
            const std::vector<std::string> galerie = nomsDeLaGalerie(source);
            for (int n = 1; n <= int(galerie.size()); ++n) {
                Etat e;
                e.fenetre.metsModeEspace(espace);
                ASSERT_FALSE(lisMemoire(memoireParDefaut(chemin.parent_path().string(), espace), e.param));
                ASSERT_FALSE(ouvrirCatalogue(e.catalogue, chemin.string()));
                ASSERT_EQ(std::size_t(e.catalogue.nbLignesCatalogue), galerie.size()) << lsu;
                e.rendu.style = style;
                e.rendu.cavaliere = e.rendu.repereGradue = e.rendu.quadrillage = style != StyleRendu::FilDeFer;
                ajusteVue(e, 1024 * twipsParPixelEcran, 768 * twipsParPixelEcran);
                // "(k)" keeps every label apart from the others.
                std::string etiquette(1, '(');
                etiquette += std::to_string(noms.size());
                etiquette += ") ";
                noms.push_back(etiquette += galerie[std::size_t(n - 1)]);
                e.etiquettes.lb[std::size_t(ajouteEtiquette(e.etiquettes, 600, 600))].texte = noms.back();
                std::string nom(1, 'f');
                nom += std::to_string(noms.size());
                std::ofstream f(d / (nom + ".tex"));
                SurfaceTikz s(f, 1024, 768, OptionsTex{});
                ASSERT_FALSE(redessine(e, s, Redessin{.entrees = {n}})) << lsu << ' ' << n;
                s.termine();
                document += "\\input{" + nom + "}\\newpage\n";
            }
        }
    ecrisFichier(d / "galerie.tex", document + "\\end{document}\n");
    ASSERT_TRUE(pdflatex(d, "galerie.tex")) << lisFichier(d / "galerie.log");
    const auto [texte, pages] = texteDuPdf(d, "galerie.pdf");
    EXPECT_EQ(pages, int(noms.size()));
    for (std::string nom : noms) {
        std::erase(nom, ' ');
        EXPECT_NE(texte.find(nom), std::string::npos) << nom;
    }

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
