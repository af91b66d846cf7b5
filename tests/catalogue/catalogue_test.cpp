#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "catalogue/catalogue.h"
#include "catalogue/cp1252.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class Catalogues : public ::testing::Test {
protected:
    void SetUp() override
    {
        dossier = fs::temp_directory_path() /
                  ("velorin_cat_" + std::to_string(std::random_device{}()));
        fs::create_directories(dossier);
    }
    void TearDown() override { fs::remove_all(dossier); }

    std::string chemin(const char* nom) const { return (dossier / nom).string(); }
    static std::string contenu(const std::string& c)
    {
        std::ifstream f(c, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    static void ecris(const std::string& c, const std::string& octets)
    {
        std::ofstream(c, std::ios::binary) << octets;
    }
    fs::path dossier;
};

TEST(Cp1252, ConvertsBothWaysAndMarksWhatItCannotHold)
{
    struct Cas { std::string utf8; std::string octets; bool aller_retour; };
    const Cas cas[] = {
        {"x=f1(t)=cos(t)", "x=f1(t)=cos(t)", true},
        {"é è à ç ù ô", "\xE9 \xE8 \xE0 \xE7 \xF9 \xF4", true},
        {"€ œ Ÿ … ’", "\x80 \x9C \x9F \x85 \x92", true},
        {"\u00a0\u00ff", "\xA0\xFF", true},
        {"\u0081\u009d", "\x81\x9D", true},       // unassigned bytes survive
        {"α日😀", "???", false},                  // no Windows-1252 byte
        {"a\xC3", "a?", false},                   // sequence cut at the end
        {"\x80z", "?z", false},                   // stray continuation byte
        {"\xE2\x82z", "??z", false},               // broken three-byte sequence
    };
    for (const Cas& c : cas) {
        EXPECT_EQ(versCp1252(c.utf8), c.octets) << c.utf8;
        if (c.aller_retour) {
            EXPECT_EQ(depuisCp1252(c.octets), c.utf8) << c.utf8;
        }
    }
}

TEST_F(Catalogues, RecordsRoundTripWithTheirLayout)
{
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, chemin("essai.lsu")));
    EXPECT_EQ(cat.nbLignesCatalogue, 0);
    ASSERT_TRUE(fs::exists(chemin("essai.lsu")));

    struct Cas { std::int16_t type; std::string texte; std::string relu; };
    const std::string long305(305, 'x');
    std::string accents300;
    for (int i = 0; i < 305; ++i) accents300 += "é";
    const Cas cas[] = {
        {1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)", "x=f1(t)=cos(t)][y=f2(t)=sin(t)"},
        {14, "Égalité ‰ «test»", "Égalité ‰ «test»"},
        {258, long305, std::string(300, 'x')},
        {-2, accents300, accents300.substr(0, 600)},  // 300 two-byte characters
        {9, "Point:[(1,2,3)]€", "Point:[(1,2,3)]€"},
    };
    int n = 0;
    for (const Cas& c : cas)
        ASSERT_FALSE(ecrisLigne(cat, ++n, LigneCatalogue{c.type, c.texte}));
    EXPECT_EQ(cat.nbLignesCatalogue, 5);
    EXPECT_EQ(fs::file_size(chemin("essai.lsu")), 5u * 302);

    n = 0;
    for (const Cas& c : cas) {
        LigneCatalogue lue;
        ASSERT_FALSE(lisLigne(cat, ++n, lue));
        EXPECT_EQ(lue.typeFonction, c.type);
        std::string attendu = c.relu;
        const auto nbCaracteres = versCp1252(c.relu).size();
        attendu.append(300 - nbCaracteres, ' ');
        EXPECT_EQ(lue.texte, attendu) << n;
    }
    const std::string octets = contenu(chemin("essai.lsu"));
    EXPECT_EQ(octets.substr(0, 2), std::string("\x01\x00", 2));
    EXPECT_EQ(octets.substr(302 + 2, 8), "\xC9galit\xE9 ");
    EXPECT_EQ(octets.substr(2 * 302, 2), "\x02\x01");
    EXPECT_EQ(octets.substr(3 * 302, 2), "\xFE\xFF");
}

TEST_F(Catalogues, CountIgnoresATrailingPartialRecordAndOverwritesInPlace)
{
    const std::string c = chemin("partiel.lsu");
    std::string octets(603, ' ');
    octets[0] = 5;
    octets[1] = 0;
    ecris(c, octets);
    Catalogue cat;
    cat.marquesCatalogue = {0, 7};
    ASSERT_FALSE(ouvrirCatalogue(cat, c));
    EXPECT_EQ(cat.nbLignesCatalogue, 1);
    EXPECT_EQ(cat.marquesCatalogue, (std::vector<std::uint8_t>{0, 7}));

    // Record 2 is appended over the partial one; record 1 rewritten in place.
    ASSERT_FALSE(ecrisLigne(cat, 2, LigneCatalogue{8, "Segment:[(0,0,0)][(1,1,1)]"}));
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{9, "Point:[(1,2,3)]"}));
    EXPECT_EQ(fs::file_size(c), 604u);
    EXPECT_EQ(cat.marquesCatalogue.size(), 3u);
    EXPECT_EQ(cat.marquesCatalogue[1], 7);
    LigneCatalogue lue;
    ASSERT_FALSE(lisLigne(cat, 1, lue));
    EXPECT_EQ(lue.typeFonction, 9);
}

TEST_F(Catalogues, ListShowsHeaderThenNumberedRecordsWithTheirKind)
{
    const std::string c = chemin("liste.lsu");
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, c));
    EXPECT_EQ(listerCatalogue(cat), std::vector<std::string>{" Listes des courbes ou surfaces"});

    LigneCatalogue vide;
    viderLigne(vide);
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{3, "R=f1(t)=2"}));
    ASSERT_FALSE(ecrisLigne(cat, 2, vide));
    ASSERT_FALSE(ecrisLigne(cat, 3, LigneCatalogue{-1, "é"}));
    // Another program appends a record: the list follows the file on disk.
    { std::ofstream(c, std::ios::binary | std::ios::app) << std::string("\x0F\x00", 2) + std::string(300, 'g'); }

    const auto liste = listerCatalogue(cat);
    ASSERT_EQ(liste.size(), 5u);
    EXPECT_EQ(cat.nbLignesCatalogue, 4);
    EXPECT_EQ(liste[1], "0001]R=f1(t)=2" + std::string(291, ' ') + "[03");
    EXPECT_EQ(liste[2], "0002]" + std::string(300, ' ') + "[00");
    EXPECT_EQ(liste[3], "0003]é" + std::string(299, ' ') + "[-01");
    EXPECT_EQ(liste[4], "0004]" + std::string(300, 'g') + "[15");
}

TEST_F(Catalogues, FailuresAreReportedInFrenchAndChangeNothing)
{
    const std::string bon = chemin("bon.lsu");
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, bon));
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{1, "x=t"}));
    const std::string avant = contenu(bon);

    fs::create_directory(chemin("dossier.lsu"));
    struct Cas { std::string chemin; const char* attendu; };
    for (const Cas& c : {Cas{chemin("dossier.lsu"), "ne peut pas être lu"},
                         Cas{chemin("absent/x.lsu"), "ne peut pas être créé"}}) {
        const auto erreur = ouvrirCatalogue(cat, c.chemin);
        ASSERT_TRUE(erreur) << c.chemin;
        EXPECT_NE(erreur->find(c.attendu), std::string::npos) << *erreur;
        EXPECT_EQ(cat.chemin, bon);             // the catalogue in force is kept
        EXPECT_EQ(cat.nbLignesCatalogue, 1);
    }

    LigneCatalogue ligne;
    for (int n : {0, 2, -5})
        EXPECT_TRUE(lisLigne(cat, n, ligne)) << n;
    for (int n : {0, 3})
        EXPECT_TRUE(ecrisLigne(cat, n, LigneCatalogue{2, "x"})) << n;
    EXPECT_EQ(contenu(bon), avant);

    // The file vanished and a folder took its name: reads and writes fail.
    fs::remove(bon);
    fs::create_directory(bon);
    EXPECT_TRUE(lisLigne(cat, 1, ligne));
    const auto erreur = ecrisLigne(cat, 1, LigneCatalogue{2, "x"});
    ASSERT_TRUE(erreur);
    EXPECT_NE(erreur->find("La ligne 1 du catalogue"), std::string::npos) << *erreur;
    std::optional<std::string> erreurListe;
    EXPECT_EQ(listerCatalogue(cat, &erreurListe).size(), 1u);
    EXPECT_TRUE(erreurListe);
}

}  // namespace
}  // namespace velorin
