#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include <sys/stat.h>

#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "catalogue/cp1252.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class Catalogues : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(dossier); }
    void TearDown() override { fs::remove_all(dossier); }
    std::string chemin(const char* nom) const { return (dossier / nom).string(); }
    static std::string contenu(const std::string& c)
    {
        std::ifstream f(c, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    fs::path dossier = fs::temp_directory_path() / ("velorin_cat_" + std::to_string(std::random_device{}()));
    Catalogue cat;
};

TEST(Cp1252, ConvertsBothWaysAndMarksWhatItCannotHold)
{
    struct Cas {
        std::string utf8;
        std::string octets;
        bool allerRetour;
    };
    const Cas cas[] = {
        {"é è à ç ù ô", "\xE9 \xE8 \xE0 \xE7 \xF9 \xF4", true},
        {"€ œ Ÿ … ’\u00a0\u00ff", "\x80 \x9C \x9F \x85 \x92\xA0\xFF", true},
        {"\u0081\u009d", "\x81\x9D", true},  // unassigned bytes survive
        {"α日😀", "???", false},              // no Windows-1252 byte
        {"a\xC3", "a?", false},              // sequence cut at the end
        {"\x80z\xE2\x82z", "?z??z", false},  // stray and broken sequences
    };
    for (const Cas& c : cas) {
        EXPECT_EQ(versCp1252(c.utf8), c.octets) << c.utf8;
        if (c.allerRetour) {
            EXPECT_EQ(depuisCp1252(c.octets), c.utf8) << c.utf8;
        }
    }
}

TEST(Catalogue, NomDUnNouveauCatalogue)
{
    struct Cas {
        const char* reponse;
        std::optional<std::string> nom;
    };
    for (const Cas& c : {Cas{"essai", "essai.lsu"}, Cas{" essai.lsu ", "essai.lsu"}, Cas{"Essai.LSU", "Essai.LSU"},
                         Cas{"a.b", "a.b.lsu"}, Cas{"", std::nullopt}, Cas{"  ", std::nullopt},
                         Cas{".lsu", std::nullopt}, Cas{"../dehors", std::nullopt}, Cas{"a\\b", std::nullopt}})
        EXPECT_EQ(nomNouveauCatalogue(c.reponse), c.nom) << '"' << c.reponse << '"';
}

TEST_F(Catalogues, RecordsRoundTripWithTheirLayout)
{
    ASSERT_FALSE(ouvrirCatalogue(cat, chemin("essai.lsu")));  // created empty
    EXPECT_EQ(listerCatalogue(cat), std::vector<std::string>{" Listes des courbes ou surfaces"});
    std::string accents;
    for (int i = 0; i < 305; ++i)
        accents += "é";
    struct Cas {
        std::int16_t type;
        std::string texte;
        std::string relu;
        std::string octets;
    };
    const Cas cas[] = {
        {14, "Égalité ‰", "Égalité ‰" + std::string(291, ' '), std::string("\x0E\x00", 2) + "\xC9galit\xE9 \x89 "},
        {258, std::string(305, 'x'), std::string(300, 'x'), "\x02\x01xx"},
        {-2, accents, accents.substr(0, 600), "\xFE\xFF\xE9\xE9"},
    };
    int n = 0;
    for (const Cas& c : cas)
        ASSERT_FALSE(ecrisLigne(cat, ++n, LigneCatalogue{c.type, c.texte}));
    EXPECT_EQ(cat.nbLignesCatalogue, 3);
    const std::string octets = contenu(chemin("essai.lsu"));
    ASSERT_EQ(octets.size(), 3u * 302);
    n = 0;
    for (const Cas& c : cas) {
        LigneCatalogue lue;
        ASSERT_FALSE(lisLigne(cat, ++n, lue));
        EXPECT_EQ(lue.typeFonction, c.type);
        EXPECT_EQ(lue.texte, c.relu);
        EXPECT_EQ(octets.substr((n - 1) * 302, c.octets.size()), c.octets) << n;
    }
}

TEST_F(Catalogues, ListFollowsTheFileOnDiskAndIgnoresAPartialRecord)
{
    const std::string c = chemin("liste.lsu");
    const std::string premier = std::string("\x03\x00", 2) + "R=f1(t)=2" + std::string(291, ' ');
    std::ofstream(c, std::ios::binary) << premier + std::string(301, 'z');  // 603 bytes
    cat.marquesCatalogue = {0, 7, 9};
    ASSERT_FALSE(ouvrirCatalogue(cat, c));
    EXPECT_EQ(cat.marquesCatalogue, (std::vector<std::uint8_t>{0, 7}));
    LigneCatalogue vide;
    viderLigne(vide);
    ASSERT_FALSE(ecrisLigne(cat, 2, vide));  // in place of the partial record
    EXPECT_EQ(fs::file_size(c), 604u);
    // Another program appends a record: the list follows the file.
    std::ofstream(c, std::ios::binary | std::ios::app) << std::string("\xFF\xFF", 2) + std::string(300, 'g');
    EXPECT_EQ(
        listerCatalogue(cat),
        (std::vector<std::string>{" Listes des courbes ou surfaces", "0001]R=f1(t)=2" + std::string(291, ' ') + "[03",
                                  "0002]" + std::string(300, ' ') + "[00", "0003]" + std::string(300, 'g') + "[-01"}));
}

TEST_F(Catalogues, FailuresAreReportedInFrenchAndChangeNothing)
{
    const std::string bon = chemin("bon.lsu");
    ASSERT_FALSE(ouvrirCatalogue(cat, bon));
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{1, "x=t"}));
    const std::string avant = contenu(bon);
    struct Cas {
        std::string chemin;
        const char* attendu;
    };
    ASSERT_EQ(mkfifo(chemin("tube.lsu").c_str(), 0600), 0);
    // The path checker's sentences (tested with it) for what exists; a FIFO
    // is refused without waiting on it.
    for (const Cas& c : {Cas{chemin("absent/x.lsu"), "n'existe pas et ne peut pas être créé : son dossier"},
                         Cas{chemin("tube.lsu"), "est un tube nommé (FIFO)"}}) {
        const auto erreur = ouvrirCatalogue(cat, c.chemin);
        ASSERT_TRUE(erreur) << c.chemin;
        EXPECT_NE(erreur.message().find(c.attendu), std::string::npos) << erreur.message();
        EXPECT_EQ(cat.chemin, bon);  // the catalogue in force is kept
    }
    LigneCatalogue ligne;
    for (int n : {0, 2})
        EXPECT_TRUE(lisLigne(cat, n, ligne)) << n;
    for (int n : {0, 3})
        EXPECT_TRUE(ecrisLigne(cat, n, LigneCatalogue{2, "x"})) << n;
    EXPECT_EQ(contenu(bon), avant);

    // The file vanished and a folder took its name.
    fs::remove(bon);
    fs::create_directory(bon);
    EXPECT_TRUE(lisLigne(cat, 1, ligne));
    EXPECT_TRUE(ecrisLigne(cat, 1, LigneCatalogue{2, "x"}));
    Erreur erreurListe;
    EXPECT_EQ(listerCatalogue(cat, &erreurListe).size(), 1u);
    EXPECT_TRUE(erreurListe);

    // A FIFO took its name: refused, never waited on.
    fs::remove(bon);
    ASSERT_EQ(mkfifo(bon.c_str(), 0600), 0);
    EXPECT_TRUE(lisLigne(cat, 1, ligne));
    const auto erreurTube = ecrisLigne(cat, 1, LigneCatalogue{2, "x"});
    ASSERT_TRUE(erreurTube);
    EXPECT_NE(erreurTube.message().find("ne peut pas être écrite"), std::string::npos);
}

TEST_F(Catalogues, AFullDiskLeavesNoPartialRecord)
{
    const std::string c = chemin("plein.lsu");
    ASSERT_FALSE(ouvrirCatalogue(cat, c));
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{1, "x=t"}));
    const std::string avant = contenu(c);
    simuleDisquePlein(100);
    for (NumeroLigne n : {1, 2}) {
        const auto erreur = ecrisLigne(cat, n, LigneCatalogue{2, "y"});
        ASSERT_TRUE(erreur) << n;
        EXPECT_EQ(erreur.message(), "La ligne " + std::to_string(n) + " du catalogue " + texteCite(c) +
                                        " ne peut pas être écrite : le disque est plein.");
    }
    simuleDisquePlein(-1);
    EXPECT_EQ(contenu(c), avant);
    EXPECT_EQ(cat.nbLignesCatalogue, 1);
}

TEST_F(Catalogues, SizeIsCountedIn64BitsAndLimited)
{
    // Sparse files: records of zeros, no disk space taken.
    struct Cas {
        const char* nom;
        std::uintmax_t octets;
        bool accepte;
        const char* compte;
    };
    const Cas cas[] = {
        {"cent_mille.lsu", 100000u * 302, true, ""},
        {"limite.lsu", std::uintmax_t(limiteLignesCatalogue) * 302 + 301, true, ""},
        {"limite_plus_un.lsu", std::uintmax_t(limiteLignesCatalogue + 1) * 302, false, "250 001"},
        {"enorme.lsu", std::uintmax_t(500) << 30, false, "1 777 718 251"},  // 500 GB
    };
    for (const Cas& c : cas) {
        std::ofstream(chemin(c.nom));
        std::error_code ec;
        fs::resize_file(chemin(c.nom), c.octets, ec);
        if (ec)
            GTEST_SKIP() << "no sparse file of " << c.octets << " bytes here: " << ec.message();
        Catalogue essai;
        const auto erreur = ouvrirCatalogue(essai, chemin(c.nom));
        EXPECT_EQ(bool(erreur), !c.accepte) << c.nom << ": " << erreur.message();
        if (!c.accepte) {
            EXPECT_EQ(erreur.message(), "Le catalogue " + texteCite(chemin(c.nom)) + " est trop grand : " + c.compte +
                                            " entrées, au-delà de la limite de 250 000 entrées (75,5 Mo).");
            EXPECT_TRUE(essai.chemin.empty());
            continue;
        }
        EXPECT_EQ(essai.nbLignesCatalogue, NumeroLigne(c.octets / 302));
        EXPECT_EQ(essai.marquesCatalogue.size(), c.octets / 302 + 1);
        LigneCatalogue ligne;
        ASSERT_FALSE(lisLigne(essai, essai.nbLignesCatalogue, ligne));
        EXPECT_EQ(ligne.typeFonction, 0);
        if (essai.nbLignesCatalogue == limiteLignesCatalogue) {
            const auto plein = ecrisLigne(essai, limiteLignesCatalogue + 1, ligne);
            ASSERT_TRUE(plein);
            EXPECT_NE(plein.message().find("est plein : il ne peut pas dépasser 250 000 entrées"), std::string::npos)
                << plein.message();
        } else {
            Erreur erreurListe;
            const auto liste = listerCatalogue(essai, &erreurListe);
            EXPECT_FALSE(erreurListe);
            ASSERT_EQ(liste.size(), 100001u);
            EXPECT_EQ(liste.back().substr(0, 7), "100000]");
        }
    }
}

}  // namespace
}  // namespace velorin
