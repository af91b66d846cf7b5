#include "catalogue/reduction.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <functional>

#include "base/ecriture.h"
#include "commun/commun.h"

namespace velorin {
namespace {

using namespace essai;

// A record as the tests write and read it: its kind and its text, trimmed.
using Fiche = std::pair<int, std::string>;

std::string octetsDe(const std::vector<Fiche>& fiches)
{
    std::string octets;
    for (const auto& [genre, texte] : fiches)
        octets += octetsEnregistrement(LigneCatalogue{static_cast<std::int16_t>(genre), texte});
    return octets;
}

std::vector<Fiche> fiches(const std::string& chemin)
{
    const std::string octets = lisFichier(chemin);
    std::vector<Fiche> resultat;
    for (std::size_t p = 0; p + tailleEnregistrement <= octets.size(); p += tailleEnregistrement) {
        std::string texte = octets.substr(p + 2, longueurTexte);
        texte.erase(texte.find_last_not_of(' ') + 1);
        resultat.emplace_back(std::int16_t(std::uint8_t(octets[p]) | (std::uint8_t(octets[p + 1]) << 8)), texte);
    }
    return resultat;
}

const std::vector<Fiche> cinq = {
    {1, "x=f1(t)=t"}, {2, "x=f1(a,t)=a"}, {3, "R=f1(t)=2"}, {5, "D(M,u):[(0,0,0)][(1,0,0)]"}, {9, "Point:[(1,2,3)]"}};

TEST(Reduction, GardeLesGenresPositifsDansLOrdreParDessusLeFichierRestant)
{
    struct Cas {
        const char* nom;
        std::vector<Fiche> catalogue;
        std::vector<NumeroLigne> effacees;
        std::vector<Fiche> libi;  // the compaction file left over (none when empty)
        std::vector<Fiche> attendu;
    } const cas[] = {
        {"records 2 and 4 of five", cinq, {2, 4}, {}, {cinq[0], cinq[2], cinq[4]}},
        {"nothing selected", cinq, {}, {}, cinq},
        {"kind 0 dropped, deleted or not",
         {{0, "y=f(x)=x^2"}, {4, "R=f1(a,t)=1"}, {0, ""}, {-3, "gone"}, {12, "ten to thirteen stay"}},
         {},
         {},
         {{4, "R=f1(a,t)=1"}, {12, "ten to thirteen stay"}}},
        {"left-over file with more records",
         {{1, "a"}, {0, ""}, {2, "b"}},
         {},
         {{7, "Plan:[1,1,1,0]"}, {7, "L2"}, {8, "L3"}, {9, "L4"}},
         {{1, "a"}, {2, "b"}, {8, "L3"}, {9, "L4"}}},
        {"left-over file with fewer records", cinq, {1}, {{7, "L1"}}, {cinq[1], cinq[2], cinq[3], cinq[4]}},
        {"everything deleted", {{1, "a"}, {2, "b"}}, {1, 2}, {}, {}},
        {"empty catalogue", {}, {}, {}, {}},
    };
    for (const Cas& c : cas) {
        DossierTemporaire d;
        const std::string lsu = d / "essai.lsu", libi = d / "LIBI.lcs";
        ecrisFichier(lsu, octetsDe(c.catalogue));
        if (!c.libi.empty())
            ecrisFichier(libi, octetsDe(c.libi));
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, lsu));
        BilanReduction bilan;
        const Erreur erreur = reduction(cat, c.effacees, &bilan);
        ASSERT_FALSE(erreur) << c.nom << " : " << erreur.message();
        EXPECT_EQ(fiches(lsu), c.attendu) << c.nom;
        EXPECT_EQ(cat.nbLignesCatalogue, NumeroLigne(c.attendu.size())) << c.nom;
        EXPECT_EQ(bilan.restantes, NumeroLigne(c.attendu.size())) << c.nom;
        EXPECT_EQ(d.noms(), std::vector<std::string>{"essai.lsu"}) << c.nom;  // the left-over became the catalogue
    }
}

TEST(Reduction, CopieLesEnregistrementsGardesAuOctetPresSansLePartiel)
{
    DossierTemporaire d;
    // Bytes no text conversion would give back, and a trailing partial record.
    const std::string brut = std::string("\x0E\x01", 2) + std::string("\x81\x9D\x00z", 4) + std::string(296, '\xA0');
    ecrisFichier(d / "octets.lsu", octetsDe({{0, ""}}) + brut + std::string(100, 'p'));
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, d / "octets.lsu"));
    ASSERT_FALSE(reduction(cat));
    EXPECT_EQ(lisFichier(d / "octets.lsu"), brut);
}

// A catalogue that is itself named "LIBI.lcs" compacts alone: it is neither
// its own left-over nor removed afterwards.
TEST(Reduction, CatalogueNommeCommeLeFichierDeCompactage)
{
    DossierTemporaire d;
    ecrisFichier(d / "LIBI.lcs", octetsDe(cinq));
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, d / "LIBI.lcs"));
    ASSERT_FALSE(reduction(cat, {1, 2, 3}));
    EXPECT_EQ(fiches(d / "LIBI.lcs"), (std::vector<Fiche>{cinq[3], cinq[4]}));
}

TEST(Reduction, RefusEtEchecsLaissentLesDeuxFichiers)
{
    const std::string restes = octetsDe({{7, "L1"}, {7, "L2"}, {7, "L3"}, {7, "L4"}});
    struct Cas {
        const char* nom;
        std::function<void(const std::string& libi)> prepare;
        std::vector<NumeroLigne> effacees;
        const char* message;
    } const cas[] = {
        {"record out of range", [](auto&) {}, {2, 6}, "La ligne 6 n'existe pas dans le catalogue"},
        {"record 0", [](auto&) {}, {0}, "La ligne 0 n'existe pas"},
        {"disk full", [](auto&) { simuleDisquePlein(400); }, {}, "le disque est plein"},
        {"compaction file is a folder",
         [](const std::string& libi) {
             fs::remove(libi);
             fs::create_directory(libi);
         },
         {},
         "est un dossier"},
        {"compaction file is a named pipe",  // refused, never waited on
         [](const std::string& libi) {
             fs::remove(libi);
             ASSERT_EQ(mkfifo(libi.c_str(), 0600), 0);
         },
         {},
         "est un tube nommé"},
    };
    for (const Cas& c : cas) {
        DossierTemporaire d;
        const std::string lsu = d / "refus.lsu", libi = d / "LIBI.lcs";
        ecrisFichier(lsu, octetsDe(cinq));
        ecrisFichier(libi, restes);
        c.prepare(libi);
        Catalogue cat;
        ASSERT_FALSE(ouvrirCatalogue(cat, lsu));
        const Erreur erreur = reduction(cat, c.effacees);
        simuleDisquePlein(-1);
        ASSERT_TRUE(erreur) << c.nom;
        EXPECT_NE(erreur.message().find(c.message), std::string::npos) << c.nom << " : " << erreur.message();
        EXPECT_EQ(fiches(lsu), cinq) << c.nom;
        if (fs::is_regular_file(libi))
            EXPECT_EQ(lisFichier(libi), restes) << c.nom;
        EXPECT_EQ(d.noms().size(), 2u) << c.nom;
    }
}

// The compaction numbers its records on 16 bits: one kept record too many
// is refused before anything is written; one fewer is compacted.
TEST(Reduction, CompteurSurSeizeBits)
{
    DossierTemporaire d;
    const std::string lsu = d / "grand.lsu", fiche = octetsDe({{1, "x=f1(t)=t"}});
    std::string octets;
    for (NumeroLigne n = 0; n <= limiteCompteurReduction; ++n)
        octets += fiche;
    ecrisFichier(lsu, octets);
    Catalogue cat;
    ASSERT_FALSE(ouvrirCatalogue(cat, lsu));
    const Erreur refus = reduction(cat);
    ASSERT_TRUE(refus);
    EXPECT_NE(refus.message().find("garderait 32 768 entrées : le compactage n'en numérote que 32 767"),
              std::string::npos)
        << refus.message();
    EXPECT_EQ(lisFichier(lsu), octets);
    ASSERT_FALSE(reduction(cat, {5}));
    EXPECT_EQ(cat.nbLignesCatalogue, limiteCompteurReduction);
}

}  // namespace
}  // namespace velorin
