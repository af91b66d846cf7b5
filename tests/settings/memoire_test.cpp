#include <cmath>

#include "base/ecriture.h"
#include "commun/commun.h"
#include "commun/locale_virgule.h"
#include "settings/memoire.h"
#include "settings/texte_nombre.h"

namespace velorin {
namespace {
using namespace essai;

const std::string exemple = "-10,10,-10,10,-10,10\r\n0,6.28,0.05,0,6.28,0.1\r\n20,20,20,30,20,15\r\n"
                            "5,0,0,1,0,1,1,0\r\n0,0,0,0,0,0,1,0,0\r\n50,0,#FALSE#\r\n";

// Under a comma-decimal locale: the numbers are written with "." all the same.
TEST(TexteNombre, DecimalSimpleAuPlusLesChiffresSignificatifs)
{
    LocaleVirgule virgule;
    for (auto [v, chiffres, attendu] :
         {std::tuple{-0.0, 15, "0"}, {0.1 + 0.2, 15, "0.3"}, {2.0 / 3, 7, "0.6666667"}, {0.0001, 15, "0.0001"},
          {0.00001, 15, "1E-05"}, {-1.5e-7, 15, "-1.5E-07"}, {123456789012345., 15, "123456789012345"},
          {1e15, 15, "1E+15"}, {12345678., 7, "1.234568E+07"}, {double(15.3f), 7, "15.3"},
          {double(15.3f), 15, "15.3000001907349"}, {9999999.7, 7, "1E+07"}})
        EXPECT_EQ(texteNombre(v, chiffres), attendu) << v;
    EXPECT_EQ(texteCourt(6.28f) + " " + texteCourt(-1.5e-7f) + " " + texteCourt(6.28), "6.28 -1.5e-07 6.28");
}

// Each distinct value lands in its member and is written back in place; line 6 restores only the pause.
TEST(Memoire, ChampsDansLOrdreDuFichier)
{
    const std::string texte = "1,2,3,4,5.5,6\r\n7,8,9,10,11,12\r\n13,14,15,16,17,18\r\n"
                              "19,20,21,22,23,1,0,1\r\n1,0,0,0,0,1,0,0,1\r\n-3,2,#TRUE#\r\n";
    Parametres p;
    p.ordreBoucles = 1;
    p.avecMoirure = false;
    ASSERT_FALSE(analyseMemoire(texte, "m", p));
    EXPECT_EQ(std::tuple(p.zmin, p.pasT, p.amin, p.pasA, p.Zviseur, p.pasRota, p.Rotadir),
              std::tuple(5.5f, 9.0, 10.0, 12.0, 18.0f, 19.0f, 23.0));
    EXPECT_EQ(std::tuple(p.avecSegmentTangent, p.traceContinu, p.projXOy, p.projOz, p.fondBlanc, int(p.pauseMs)),
              std::tuple(1, 0, 1, 1, 1, -3));
    EXPECT_EQ(std::tuple(int(p.ordreBoucles), p.avecMoirure), std::tuple(1, false));
    EXPECT_EQ(texteMemoire(p), texte.substr(0, texte.size() - 13) + "-3,1,#FALSE#\r\n");
}

// "." whatever the locale, both ways; doubles keep 15 digits, singles are the float of their 7-digit text.
TEST(Memoire, AllerRetourGardeLesDoublesArronditLesSimples)
{
    LocaleVirgule virgule;
    for (auto [d, s] : {std::pair{6.28, 15.3}, {-1e-9, 1.0 / 3}, {1234.5, -2.5}, {123456.789012345, 16777217.},
                        {1e20, -2.5e-12}}) {
        Parametres p, lu;
        p.xmin = d;
        p.zmin = static_cast<float>(s);
        ASSERT_FALSE(analyseMemoire(texteMemoire(p), "m", lu));
        EXPECT_EQ(lu.xmin, std::stod(texteNombre(d, 15)));
        EXPECT_EQ(lu.zmin, static_cast<float>(std::stod(texteNombre(float(s), 7)))) << s;
    }
}

TEST(Memoire, FormesTolerees)
{
    for (auto [remplace, par, xmin, repere, pause] :
         {std::tuple<std::string, std::string, double, int, std::int16_t>{"\r\n", "\n", -10, 1, 50},
          {"\r\n", "\r", -10, 1, 50}, {"-10,10,-10", "\xEF\xBB\xBF-10,10,-10", -10, 1, 50},
          {"-10,10,-10", " -10 ,\t10,-10", -10, 1, 50}, {"-10,10,-10", "+.5,10,-10", 0.5, 1, 50},
          {"-10,10,-10", "-1.5E+01,10,-10", -15, 1, 50}, {"5,0,0,1,0,1,1,0", "5,0,0,1,0,#FALSE#,1,0", -10, 0, 50},
          {"50,0,#FALSE#", "50.5", -10, 1, 50}, {"50,0,#FALSE#", "-32768,9", -10, 1, -32768}}) {
        std::string texte = exemple + "ligne de trop\r\n";
        for (auto i = texte.find(remplace); i != std::string::npos;
             i = remplace == "\r\n" ? texte.find(remplace, i + 1) : std::string::npos)
            texte.replace(i, remplace.size(), par);
        Parametres p;
        ASSERT_FALSE(analyseMemoire(texte, "m", p)) << par;
        EXPECT_EQ(std::tuple(p.xmin, p.repereOrthonorme, p.pauseMs), std::tuple(xmin, repere, pause)) << par;
    }
}

TEST(Memoire, FichierAbimeNommeLigneEtValeurRienNeChange)
{
    const std::tuple<std::string, std::string, std::string> cas[] = {
        {"20,20,20,30,20,15", "20,20,20,30", "ligne 3 : 6 valeurs attendues, 4 trouvées"},
        {"0,6.28,0.05,0,6.28,0.1", "", "ligne 2 : 6 valeurs attendues, aucune trouvée"},
        {"0,0,0,0,0,0,1,0,0\r\n50,0,#FALSE#\r\n", "0,0,0,0,0,0,1,0,0\r\n", "ligne 6 : ligne manquante"},
        {exemple, "", "ligne 1 : ligne manquante"},
        {"20,20,20,30,20,15", "20,20,abc,30,20,15", "ligne 3 : valeur 3, « abc » n'est pas un nombre"},
        {"20,20,20,30,20,15", "20,20,,30,20,15", "ligne 3 : valeur 3, valeur vide"},
        {"-10,10,-10", "1,2..5,-10", "ligne 1 : valeur 2"},
        {"-10,10,-10", "1e999,10,-10", "ligne 1 : valeur 1, « 1e999 » est hors des nombres représentables (xmin)"},
        {"-10,10,-10", "nan,10,-10", "ligne 1 : valeur 1, « nan » n'est pas un nombre (xmin)"},
        {"-10,10,-10", "\x1B[2J\x07,10,-10", "ligne 1 : valeur 1, « \\e[2J\\x07 » n'est pas un nombre"},
        {"0,6.28,0.05", "0,6,28,0.05",
         "ligne 2 : 6 valeurs attendues, 7 trouvées (le séparateur décimal doit être « . »"},
        {"-10,10,-10", "\xEF\xBB\xBF\xEF\xBB\xBF-10,10,-10", "ligne 1 : valeur 1, « \uFEFF-10 » n'est pas un nombre"},
        {"-10,10,-10,10,-10,10", "-10,10,-10,10,-1e39,10", "ligne 1 : valeur 5, -1e39 est hors des limites de zmin"},
        {"50,0,#FALSE#", "32768,0,#FALSE#", "ligne 6 : valeur 1, 32768 est hors des limites de pauseMs"},
        {"20,20,20,30", "20,20,20,1e308", "ligne 3 : valeur 4, 1e308 est hors des limites de Xviseur (-1000000000 à"},
        {"5,0,0,1", "5,0,-1e308,1", "ligne 4 : valeur 3, -1e308 est hors des limites de Ydirection"},
        {"0,0,0,0,0,0,1,0,0", "0,0,0,0,0,0,2,0,0", "ligne 5 : valeur 7, 2 pour axesVisibles : 0 ou 1"},
        {"50,0,#FALSE#", "", "ligne 6 : 3 valeurs attendues, aucune trouvée"}};
    for (const auto& [remplace, par, message] : cas) {
        std::string texte = exemple;
        const auto i = texte.find(remplace);
        ASSERT_NE(i, std::string::npos) << remplace;
        texte.replace(i, remplace.size(), par);
        Parametres p;
        std::tie(p.xmin, p.pauseMs, p.zmax) = std::tuple(1.25, 7, 99);  // values in force
        const auto erreur = analyseMemoire(texte, "/d/mem.log", p);
        ASSERT_TRUE(erreur) << par;
        EXPECT_EQ(erreur.message().rfind("Fichier /d/mem.log, ", 0), 0u) << erreur.message();
        EXPECT_NE(erreur.message().find(message), std::string::npos) << erreur.message();
        EXPECT_EQ(std::tuple(p.xmin, int(p.pauseMs), p.zmax), std::tuple(1.25, 7, 99.0)) << par;
    }
}

// One refusal of the reader and of the writer (their table is the base's), a non-finite value, UTF-16.
TEST(Memoire, SurLeDisqueRefusLaissentLAncienFichier)
{
    DossierTemporaire d;
    const std::string chemin = d / nomFichierMemoire(false), absent = d / "absent/mem.log";
    Parametres p, lu;
    p.xmax = 7.5;
    ASSERT_FALSE(ecrisMemoire(chemin, p));
    EXPECT_EQ(lisFichier(chemin), texteMemoire(p));
    EXPECT_EQ(d.noms().size(), 1u);  // no temporary
    ASSERT_FALSE(lisMemoire(chemin, lu));
    EXPECT_EQ(lu.xmax, 7.5);
    EXPECT_NE(lisMemoire(absent, lu).message().find(absent), std::string::npos);
    p.xmax = 8;
    simuleDisquePlein(0);
    EXPECT_NE(ecrisMemoire(chemin, p).message().find("le disque est plein"), std::string::npos);
    simuleDisquePlein(-1);
    p.Zdirection = -2e9;
    EXPECT_NE(ecrisMemoire(chemin, p).message().find("Zdirection (-2000000000) est hors"), std::string::npos);
    p.Zdirection = 0;
    p.Rotadir = std::nan("");
    EXPECT_NE(ecrisMemoire(chemin, p).message().find("Rotadir"), std::string::npos);
    EXPECT_NE(analyseMemoire("\xFF\xFE-\0001\0", "m", lu).message().find("UTF-16"), std::string::npos);
    EXPECT_EQ(lu.xmax, 7.5);
    EXPECT_EQ(lisFichier(chemin), texteMemoire(lu));
}

TEST(Memoire, FichiersLivresSontCeQueLEcrivainEcrit)
{
    for (const char* dossier : {"Espace_courbes", "Plan_courbes"}) {
        const fs::path chemin = fs::path(VELORIN_SOURCE_DIR) / "data" / dossier / "mem.log";
        Parametres p;
        p.axesVisibles = 0;
        ASSERT_FALSE(lisMemoire(chemin.string(), p)) << chemin;
        Parametres ecrit = p;
        ecrit.ordreBoucles = 0;  // line 6 is written with the start-up values
        ecrit.avecMoirure = false;
        EXPECT_EQ(lisFichier(chemin), texteMemoire(ecrit)) << chemin;
        EXPECT_EQ(std::tuple(p.axesVisibles, p.traceContinu, int(p.pauseMs), p.xmin, p.xmax, p.tmax, p.amax),
                  std::tuple(1, 1, 0, -10.0, 10.0, 6.28, 6.28));
    }
}
}  // namespace
}  // namespace velorin
