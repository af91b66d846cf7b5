#include "catalogue/reduction.h"

#include <sys/stat.h>
#include <functional>

#include "base/ecriture.h"
#include "commun/commun.h"

namespace velorin {
namespace {
using namespace essai;

// A record as the tests write and read it: its kind and its text, trimmed.
using Fiche = std::pair<int, std::string>;
using Fiches = std::vector<Fiche>;

std::string octetsDe(const Fiches& fiches)
{
    std::string octets;
    for (const auto& [genre, texte] : fiches)
        octets += octetsEnregistrement(LigneCatalogue{static_cast<std::int16_t>(genre), texte});
    return octets;
}

Fiches fiches(const std::string& chemin)
{
    const std::string octets = lisFichier(chemin);
    Fiches resultat;
    for (std::size_t p = 0; p + tailleEnregistrement <= octets.size(); p += tailleEnregistrement) {
        std::string texte = octets.substr(p + 2, longueurTexte);
        texte.erase(texte.find_last_not_of(' ') + 1);
        resultat.emplace_back(std::int16_t(std::uint8_t(octets[p]) | (std::uint8_t(octets[p + 1]) << 8)), texte);
    }
    return resultat;
}

void ouvre(Catalogue& cat, const std::string& chemin, const Fiches& contenu)
{
    ecrisFichier(chemin, octetsDe(contenu));
    ASSERT_FALSE(ouvrirCatalogue(cat, chemin));
}

const Fiches cinq = {
    {1, "x=f1(t)=t"}, {2, "x=f1(a,t)=a"}, {3, "R=f1(t)=2"}, {5, "D(M,u):[(0,0,0)][(1,0,0)]"}, {9, "Point:[(1,2,3)]"}};

// The compaction file left over (none when empty) is written over, keeps its extra records, becomes the catalogue.
TEST(Reduction, GardeLesGenresPositifsDansLOrdreParDessusLeFichierRestant)
{
    const std::tuple<const char*, Fiches, std::vector<NumeroLigne>, Fiches, Fiches> cas[] = {
        {"2 et 4 sur cinq", cinq, {2, 4}, {}, {cinq[0], cinq[2], cinq[4]}},
        {"genres", {{0, "y=f(x)=x^2"}, {4, "R=f1(a,t)=1"}, {0, ""}, {-3, "gone"}, {12, "dix"}}, {}, {},
         {{4, "R=f1(a,t)=1"}, {12, "dix"}}},
        {"restes plus longs", {{1, "a"}, {0, ""}, {2, "b"}}, {},
         {{7, "Plan:[1,1,1,0]"}, {7, "L2"}, {8, "L3"}, {9, "L4"}}, {{1, "a"}, {2, "b"}, {8, "L3"}, {9, "L4"}}},
        {"restes plus courts", cinq, {1}, {{7, "L1"}}, {cinq[1], cinq[2], cinq[3], cinq[4]}},
        {"tout effacé", {{1, "a"}, {2, "b"}}, {1, 2}, {}, {}},
        {"catalogue vide", {}, {}, {}, {}}};
    for (const auto& [nom, catalogue, effacees, libi, attendu] : cas) {
        DossierTemporaire d;
        if (!libi.empty())
            ecrisFichier(d / "LIBI.lcs", octetsDe(libi));
        Catalogue cat;
        ouvre(cat, d / "essai.lsu", catalogue);
        BilanReduction bilan;
        const Erreur erreur = reduction(cat, effacees, &bilan);
        ASSERT_FALSE(erreur) << nom << " : " << erreur.message();
        EXPECT_EQ(fiches(d / "essai.lsu"), attendu) << nom;
        const auto n = NumeroLigne(attendu.size());
        EXPECT_EQ(std::tuple(cat.nbLignesCatalogue, bilan.restantes), std::tuple(n, n)) << nom;
        EXPECT_EQ(d.noms(), std::vector<std::string>{"essai.lsu"}) << nom;
    }
}

// A catalogue itself named "LIBI.lcs" compacts alone: it is neither its own left-over nor removed afterwards.
TEST(Reduction, CopieAuOctetPresSansLePartielEtCatalogueNommeLIBI)
{
    DossierTemporaire d;
    const std::string brut = std::string("\x0E\x01", 2) + std::string("\x81\x9D\x00z", 4) + std::string(296, '\xA0');
    ecrisFichier(d / "octets.lsu", octetsDe({{0, ""}}) + brut + std::string(100, 'p'));
    Catalogue cat, libi;
    ASSERT_FALSE(ouvrirCatalogue(cat, d / "octets.lsu"));
    ASSERT_FALSE(reduction(cat));
    EXPECT_EQ(lisFichier(d / "octets.lsu"), brut);
    ouvre(libi, d / "LIBI.lcs", cinq);
    ASSERT_FALSE(reduction(libi, {1, 2, 3}));
    EXPECT_EQ(fiches(d / "LIBI.lcs"), (Fiches{cinq[3], cinq[4]}));
}

TEST(Reduction, RefusEtEchecsLaissentLesDeuxFichiers)
{
    const std::string restes = octetsDe({{7, "L1"}, {7, "L2"}, {7, "L3"}, {7, "L4"}});
    const auto tube = [](const std::string& libi) {
        fs::remove(libi);
        ASSERT_EQ(mkfifo(libi.c_str(), 0600), 0);
    };
    const std::tuple<std::function<void(const std::string&)>, std::vector<NumeroLigne>, const char*> cas[] = {
        {[](auto&) {}, {2, 6}, "La ligne 6 n'existe pas dans le catalogue"},
        {[](auto&) {}, {0}, "La ligne 0 n'existe pas"},
        {[](auto&) { simuleDisquePlein(400); }, {}, "le disque est plein"},
        {tube, {}, "est un tube nommé"}};  // refused, never waited on
    for (const auto& [prepare, effacees, message] : cas) {
        DossierTemporaire d;
        const std::string libi = d / "LIBI.lcs";
        ecrisFichier(libi, restes);
        prepare(libi);
        Catalogue cat;
        ouvre(cat, d / "refus.lsu", cinq);
        const Erreur erreur = reduction(cat, effacees);
        simuleDisquePlein(-1);
        EXPECT_NE(erreur.message().find(message), std::string::npos) << message << " : " << erreur.message();
        EXPECT_EQ(fiches(d / "refus.lsu"), cinq) << message;
        EXPECT_TRUE(!fs::is_regular_file(libi) || lisFichier(libi) == restes) << message;
        EXPECT_EQ(d.noms().size(), 2u) << message;
    }
}

// 16-bit numbering: one kept record too many is refused before anything is written; one fewer is compacted.
TEST(Reduction, CompteurSurSeizeBits)
{
    DossierTemporaire d;
    Catalogue cat;
    ouvre(cat, d / "grand.lsu", Fiches(limiteCompteurReduction + 1, {1, "x=f1(t)=t"}));
    const std::string octets = lisFichier(d / "grand.lsu");
    EXPECT_NE(reduction(cat).message().find("garderait 32 768 entrées : le compactage n'en numérote que 32 767"),
              std::string::npos);
    EXPECT_EQ(lisFichier(d / "grand.lsu"), octets);
    ASSERT_FALSE(reduction(cat, {5}));
    EXPECT_EQ(cat.nbLignesCatalogue, limiteCompteurReduction);
}
}  // namespace
}  // namespace velorin
