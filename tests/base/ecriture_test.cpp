#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "commun/commun.h"

namespace velorin {
namespace {
using namespace essai;
using Noms = std::vector<std::string>;  // sorted

struct Ecriture : ::testing::Test {
    DossierTemporaire d;
    void TearDown() override { simuleDisquePlein(-1); }
    std::string chemin(const std::string& nom) const { return d / nom; }
};

// A disk full after N bytes: at the start, the middle, the last byte, and through the stream of a long write.
TEST_F(Ecriture, DisquePleinGardeLAncienFichierSansTemporaire)
{
    const std::string cible = chemin("f.txt"), long_(200000, 'x');
    ASSERT_FALSE(ecrisFichierEntier(cible, "ancien contenu\n"));
    ASSERT_FALSE(ecrisFichierEntier(cible, "nouveau"));
    EXPECT_EQ(lisFichier(cible), "nouveau");
    for (long long octets : {0LL, 1LL, 100000LL, 199999LL}) {
        simuleDisquePlein(octets);
        const auto erreur = ecrisFichierEntier(cible, long_);
        ASSERT_TRUE(erreur) << octets;
        EXPECT_NE(erreur.message().find("le disque est plein ; le fichier précédent est conservé"), std::string::npos)
            << erreur.message();
        EXPECT_NE(erreur.message().find(texteCite(cible)), std::string::npos);
        EXPECT_EQ(lisFichier(cible), "nouveau") << octets;
        EXPECT_EQ(d.noms(), Noms{"f.txt"}) << "a temporary is left, " << octets;
        EcritureEntiere e(cible);
        ASSERT_FALSE(e.ouverture());
        for (int i = 0; i < 1000; ++i)
            e.flux() << long_.substr(0, 200) << '\n';
        EXPECT_TRUE(e.termine());
        EXPECT_EQ(lisFichier(cible), "nouveau");
    }
    simuleDisquePlein(200000);  // exactly enough
    ASSERT_FALSE(ecrisFichierEntier(cible, long_));
    EXPECT_EQ(lisFichier(cible), long_);
    EXPECT_EQ(d.noms(), Noms{"f.txt"});
}

TEST_F(Ecriture, CheminsImpossiblesAEcrireDitsEnFrancais)
{
    fs::create_directory(chemin("un_dossier"));
    fs::create_symlink("boucle_b", chemin("boucle_a"));
    fs::create_symlink("boucle_a", chemin("boucle_b"));
    for (auto [nom, message] : {std::pair{"absent/f.txt", "le dossier n'existe pas."},
                                {"un_dossier", "c'est un dossier."},
                                {"boucle_a", "les liens symboliques du chemin tournent en boucle."}}) {
        const auto erreur = ecrisFichierEntier(chemin(nom), "x");
        ASSERT_TRUE(erreur) << nom;
        EXPECT_EQ(erreur.message(), "Impossible d'écrire " + texteCite(chemin(nom)) + " : " + message);
    }
    EXPECT_TRUE(fs::is_directory(chemin("un_dossier")));
    EXPECT_EQ(d.noms(), (Noms{"boucle_a", "boucle_b", "un_dossier"}));
}

TEST_F(Ecriture, EcritAuTraversDUnLienEtAccepteLesNomsLongs)
{
    fs::create_directory(chemin("vrai"));
    ASSERT_FALSE(ecrisFichierEntier(chemin("vrai/cible.txt"), "avant"));
    chmod(chemin("vrai/cible.txt").c_str(), 0640);
    fs::create_symlink("vrai/cible.txt", chemin("lien.txt"));
    ASSERT_FALSE(ecrisFichierEntier(chemin("lien.txt"), "après"));
    EXPECT_TRUE(fs::is_symlink(chemin("lien.txt")));
    EXPECT_EQ(lisFichier(chemin("vrai/cible.txt")), "après");
    EXPECT_EQ(fs::status(chemin("vrai/cible.txt")).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const std::string nom(255, 'n');
    ASSERT_FALSE(ecrisFichierEntier(chemin(nom), "long"));
    EXPECT_EQ(lisFichier(chemin(nom)), "long");
    EXPECT_EQ(d.noms(), (Noms{"lien.txt", nom, "vrai"}));
}

TEST(TexteSur, OctetsDeControleRendusVisiblesTexteGarde)
{
    const std::pair<std::string, std::string> cas[] = {
        {std::string("a\0b", 3), "a\\0b"}, {"\x1B[2J efface", "\\e[2J efface"},
        {"ligne\r\nsuite\ttab", "ligne\\r\\nsuite\\ttab"}, {"cloche\x07\x7F", "cloche\\x07\\x7F"},
        {"Égalité à ‰ 😀", "Égalité à ‰ 😀"}, {"\xE9t\xE9", "\\xE9t\\xE9"}, {"\xC2\x9B" "31m", "\\xC2\\x9B31m"},
        {"\xE2\x82", "\\xE2\\x82"}, {"\xC0\xAF \xED\xA0\x80", "\\xC0\\xAF \\xED\\xA0\\x80"},
        {"c:\\chemin", "c:\\chemin"}};
    for (const auto& [brut, sur] : cas)
        EXPECT_EQ(texteSur(brut), sur) << sur;
    EXPECT_EQ(texteCite(std::string("x\0", 2)), "« x\\0 »");
    // A huge text is cut at 200 bytes, before the UTF-8 character that straddles the cut.
    EXPECT_EQ(texteCite(std::string(199, 'a') + "é" + std::string(1 << 20, 'b')), "« " + std::string(199, 'a') + "… »");
    // Valid UTF-8, controls included; not stray, cut, overlong, surrogate or beyond U+10FFFF.
    for (const auto& [texte, utf8] : {std::pair{"\x1B\xC2\x9B é😀", true}, {"(1,2,\xFF\xFE)", false}, {"\xE2\x82", false},
                                      {"\xC0\xAF", false}, {"\xED\xA0\x80", false}, {"\xF4\x90\x80\x80", false}})
        EXPECT_EQ(estUtf8(texte), utf8) << texteSur(texte);
}

// Stopped by Ctrl-C, a kill or a closed terminal in the middle of a write,
// the process removes its temporary, keeps the old file and ends with
// status 128 + the signal.
TEST_F(Ecriture, UnSignalPendantLEcritureNeLaissePasDeProvisoire)
{
    const std::string cible = chemin("f.txt");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        ASSERT_FALSE(ecrisFichierEntier(cible, "ancien"));
        int pret[2];
        ASSERT_EQ(pipe(pret), 0);
        const pid_t pid = fork();
        if (pid == 0) {
            installeNettoyageSignaux();
            EcritureEntiere e(cible);
            const char c = e.ecris(std::string(100000, 'n')) ? 'o' : 'n';
            if (write(pret[1], &c, 1) == 1)
                for (;;)
                    pause();
            _exit(3);
        }
        close(pret[1]);
        char c = 0;
        ASSERT_EQ(read(pret[0], &c, 1), 1);
        close(pret[0]);
        ASSERT_EQ(c, 'o');
        EXPECT_EQ(d.noms().size(), 2u) << "le provisoire est là avant le signal";
        kill(pid, signal);
        int statut = 0;
        waitpid(pid, &statut, 0);
        EXPECT_TRUE(WIFEXITED(statut) && WEXITSTATUS(statut) == 128 + signal) << statut;
        EXPECT_EQ(d.noms(), Noms{"f.txt"});
        EXPECT_EQ(lisFichier(cible), "ancien");
    }
}

}  // namespace
}  // namespace velorin
