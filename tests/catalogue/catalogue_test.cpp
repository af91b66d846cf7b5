#include <sys/stat.h>

#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "catalogue/catalogue.h"
#include "catalogue/cp1252.h"
#include "commun/commun.h"

namespace velorin {
namespace {
using namespace essai;

TEST(Cp1252, ConversionDansLesDeuxSensEtOctetsIntraduisibles)
{
    for (auto [utf8, octets, allerRetour] :
         {std::tuple{"é è à ç ù ô", "\xE9 \xE8 \xE0 \xE7 \xF9 \xF4", true},
          {"€ œ Ÿ … ’\u00a0\u00ff", "\x80 \x9C \x9F \x85 \x92\xA0\xFF", true}, {"\u0081\u009d", "\x81\x9D", true},
          {"α日😀", "???", false}, {"a\xC3", "a?", false}, {"\x80z\xE2\x82z", "?z??z", false}}) {
        EXPECT_EQ(versCp1252(utf8), octets) << utf8;
        EXPECT_TRUE(!allerRetour || depuisCp1252(octets) == utf8) << utf8;
    }
}

TEST(Catalogue, NomDUnNouveauCatalogue)
{
    const std::optional<std::string> aucun;
    for (auto [reponse, nom] : {std::pair{"essai", std::optional<std::string>("essai.lsu")},
                                {" essai.lsu ", "essai.lsu"}, {"Essai.LSU", "Essai.LSU"}, {"a.b", "a.b.lsu"},
                                {"", aucun}, {"  ", aucun}, {".lsu", aucun}, {"../dehors", aucun}, {"a\\b", aucun}})
        EXPECT_EQ(nomNouveauCatalogue(reponse), nom) << '"' << reponse << '"';
}

TEST(Catalogue, EnregistrementsRelusAvecLeurDispositionAuOctetPres)
{
    DossierTemporaire d;
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, d / "essai.lsu"));  // created empty
    EXPECT_EQ(listerCatalogue(cat), std::vector<std::string>{" Listes des courbes ou surfaces"});
    std::string accents;
    for (int i = 0; i < 305; ++i)
        accents += "é";
    const std::tuple<std::int16_t, std::string, std::string, std::string> cas[] = {
        {14, "Égalité ‰", "Égalité ‰" + std::string(291, ' '), std::string("\x0E\x00", 2) + "\xC9galit\xE9 \x89 "},
        {258, std::string(305, 'x'), std::string(300, 'x'), "\x02\x01xx"},
        {-2, accents, accents.substr(0, 600), "\xFE\xFF\xE9\xE9"}};
    for (int n = 0; n < 3; ++n)
        ASSERT_FALSE(ecrisLigne(cat, n + 1, LigneCatalogue{std::get<0>(cas[n]), std::get<1>(cas[n])}));
    EXPECT_EQ(cat.nbLignesCatalogue, 3);
    const std::string octets = lisFichier(d / "essai.lsu");
    ASSERT_EQ(octets.size(), 3u * 302);
    for (int n = 0; n < 3; ++n) {
        const auto& [type, texte, relu, debut] = cas[n];
        LigneCatalogue lue;
        ASSERT_FALSE(lisLigne(cat, n + 1, lue));
        EXPECT_EQ(std::tie(lue.typeFonction, lue.texte), std::tie(type, relu));
        EXPECT_EQ(octets.substr(n * 302, debut.size()), debut) << n;
    }
}

// The partial record is replaced by the next one written; another program appends a record: the list follows.
TEST(Catalogue, LaListeSuitLeFichierEtIgnoreUnEnregistrementPartiel)
{
    DossierTemporaire d;
    const std::string c = d / "liste.lsu";
    ecrisFichier(c, std::string("\x03\x00", 2) + "R=f1(t)=2" + std::string(291, ' ') + std::string(301, 'z'));
    Catalogue cat;
    cat.marquesCatalogue = {0, 7, 9};
    ASSERT_FALSE(ouvrirCatalogue(cat, c));
    EXPECT_EQ(cat.marquesCatalogue, (std::vector<std::uint8_t>{0, 7}));
    LigneCatalogue vide;
    viderLigne(vide);
    ASSERT_FALSE(ecrisLigne(cat, 2, vide));
    EXPECT_EQ(fs::file_size(c), 604u);
    std::ofstream(c, std::ios::binary | std::ios::app) << std::string("\xFF\xFF", 2) + std::string(300, 'g');
    EXPECT_EQ(listerCatalogue(cat), (std::vector<std::string>{" Listes des courbes ou surfaces",
                                                              "0001]R=f1(t)=2" + std::string(291, ' ') + "[03",
                                                              "0002]" + std::string(300, ' ') + "[00",
                                                              "0003]" + std::string(300, 'g') + "[-01"}));
}

// One refusal of each reader and writer (the path sentences are base's); a FIFO is never waited on.
TEST(Catalogue, EchecsEnFrancaisSansRienChanger)
{
    DossierTemporaire d;
    const std::string bon = d / "bon.lsu";
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, bon));
    ASSERT_FALSE(ecrisLigne(cat, 1, LigneCatalogue{1, "x=t"}));
    const std::string avant = lisFichier(bon);
    ASSERT_EQ(mkfifo((d / "tube.lsu").c_str(), 0600), 0);
    for (auto [chemin, attendu] : {std::pair{d / "absent/x.lsu", "n'existe pas et ne peut pas être créé : son dossier"},
                                   {d / "tube.lsu", "est un tube nommé (FIFO)"}}) {
        const auto erreur = ouvrirCatalogue(cat, chemin);
        ASSERT_TRUE(erreur) << chemin;
        EXPECT_NE(erreur.message().find(attendu), std::string::npos) << erreur.message();
        EXPECT_EQ(cat.chemin, bon);  // the catalogue in force is kept
    }
    LigneCatalogue ligne;
    for (int n : {0, 2})
        EXPECT_TRUE(lisLigne(cat, n, ligne)) << n;
    for (int n : {0, 3})
        EXPECT_TRUE(ecrisLigne(cat, n, LigneCatalogue{2, "x"})) << n;
    simuleDisquePlein(100);
    for (NumeroLigne n : {1, 2})  // in place and appended
        EXPECT_EQ(ecrisLigne(cat, n, LigneCatalogue{2, "y"}).message(),
                  "La ligne " + std::to_string(n) + " du catalogue " + texteCite(bon) +
                      " ne peut pas être écrite : le disque est plein.");
    simuleDisquePlein(-1);
    EXPECT_EQ(lisFichier(bon), avant);
    EXPECT_EQ(cat.nbLignesCatalogue, 1);
    fs::remove(bon);
    ASSERT_EQ(mkfifo(bon.c_str(), 0600), 0);
    EXPECT_TRUE(lisLigne(cat, 1, ligne));
    EXPECT_NE(ecrisLigne(cat, 1, LigneCatalogue{2, "x"}).message().find("ne peut pas être écrite"), std::string::npos);
    Erreur erreurListe;
    EXPECT_EQ(listerCatalogue(cat, &erreurListe).size(), 1u);
    EXPECT_NE(erreurListe.message().find("est un tube nommé (FIFO)"), std::string::npos) << erreurListe.message();
}

// Sparse files: records of zeros, no disk space taken. A refusal gives the count (500 GB: 1 777 718 251).
TEST(Catalogue, TailleCompteeSur64BitsEtLimitee)
{
    DossierTemporaire d;
    const std::uintmax_t limite = limiteLignesCatalogue;
    for (auto [nom, octets, refus] :
         {std::tuple<const char*, std::uintmax_t, const char*>{"cent_mille.lsu", 100000u * 302, nullptr},
          {"limite.lsu", limite * 302 + 301, nullptr}, {"limite_plus_un.lsu", (limite + 1) * 302, "250 001"},
          {"enorme.lsu", std::uintmax_t(500) << 30, "1 777 718 251"}}) {
        const std::string chemin = d / nom;
        std::ofstream{chemin};
        std::error_code ec;
        fs::resize_file(chemin, octets, ec);
        if (ec)
            GTEST_SKIP() << "no sparse file of " << octets << " bytes here: " << ec.message();
        Catalogue cat;
        const auto erreur = ouvrirCatalogue(cat, chemin);
        EXPECT_EQ(bool(erreur), refus != nullptr) << nom << ": " << erreur.message();
        if (refus) {
            EXPECT_EQ(erreur.message(), "Le catalogue " + texteCite(chemin) + " est trop grand : " + refus +
                                            " entrées, au-delà de la limite de 250 000 entrées (75,5 Mo).");
            EXPECT_TRUE(cat.chemin.empty());
            continue;
        }
        EXPECT_EQ(cat.nbLignesCatalogue, NumeroLigne(octets / 302));
        EXPECT_EQ(cat.marquesCatalogue.size(), octets / 302 + 1);
        LigneCatalogue ligne;
        ASSERT_FALSE(lisLigne(cat, cat.nbLignesCatalogue, ligne));
        EXPECT_EQ(ligne.typeFonction, 0);
        if (cat.nbLignesCatalogue == limiteLignesCatalogue) {
            EXPECT_NE(ecrisLigne(cat, limiteLignesCatalogue + 1, ligne).message().find(
                          "est plein : il ne peut pas dépasser 250 000 entrées"),
                      std::string::npos);
        } else {
            const auto liste = listerCatalogue(cat);
            ASSERT_EQ(liste.size(), 100001u);
            EXPECT_EQ(liste.back().substr(0, 7), "100000]");
        }
    }
}
}  // namespace
}  // namespace velorin
