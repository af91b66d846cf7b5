#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

#include "base/ecriture.h"
#include "base/texte_sur.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class Ecriture : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(dossier); }
    void TearDown() override
    {
        simuleDisquePlein(-1);
        fs::remove_all(dossier);
    }
    std::string chemin(const std::string& nom) const { return (dossier / nom).string(); }
    static std::string contenu(const std::string& c)
    {
        std::ifstream f(c, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    std::set<std::string> noms() const
    {
        std::set<std::string> n;
        for (const auto& e : fs::directory_iterator(dossier))
            n.insert(e.path().filename().string());
        return n;
    }
    fs::path dossier = fs::temp_directory_path() / ("velorin_ecr_" + std::to_string(std::random_device{}()));
};

TEST_F(Ecriture, ReplacesTheFileWholeOrKeepsTheOldOne)
{
    const std::string cible = chemin("f.txt");
    ASSERT_FALSE(ecrisFichierEntier(cible, "ancien contenu\n"));
    ASSERT_FALSE(ecrisFichierEntier(cible, "nouveau"));
    EXPECT_EQ(contenu(cible), "nouveau");

    // A disk that fills up after N bytes: at the start, in the middle, at the
    // very end (the last byte), and through the stream of a long write.
    const std::string long_(200000, 'x');
    for (long long octets : {0LL, 1LL, 100000LL, 199999LL}) {
        simuleDisquePlein(octets);
        const auto erreur = ecrisFichierEntier(cible, long_);
        ASSERT_TRUE(erreur) << octets;
        EXPECT_NE(erreur.message().find("le disque est plein ; le fichier précédent est conservé"), std::string::npos)
            << erreur.message();
        EXPECT_NE(erreur.message().find(texteCite(cible)), std::string::npos);
        EXPECT_EQ(contenu(cible), "nouveau") << octets;
        EXPECT_EQ(noms(), std::set<std::string>{"f.txt"}) << "a temporary is left, " << octets;

        EcritureEntiere e(cible);
        ASSERT_FALSE(e.ouverture());
        for (int i = 0; i < 1000; ++i)
            e.flux() << long_.substr(0, 200) << '\n';
        EXPECT_TRUE(e.termine());
        EXPECT_EQ(contenu(cible), "nouveau");
    }
    simuleDisquePlein(200000);  // exactly enough
    ASSERT_FALSE(ecrisFichierEntier(cible, long_));
    EXPECT_EQ(contenu(cible), long_);
    EXPECT_EQ(noms(), std::set<std::string>{"f.txt"});
}

TEST_F(Ecriture, PathsThatCannotBeWrittenAreToldInFrench)
{
    fs::create_directory(chemin("un_dossier"));
    fs::create_symlink("boucle_b", chemin("boucle_a"));
    fs::create_symlink("boucle_a", chemin("boucle_b"));
    struct Cas {
        std::string cible;
        const char* message;
    };
    const Cas cas[] = {
        {chemin("absent/f.txt"), "le dossier n'existe pas."},
        {chemin("un_dossier"), "c'est un dossier."},
        {chemin("boucle_a"), "les liens symboliques du chemin tournent en boucle."},
    };
    for (const Cas& c : cas) {
        const auto erreur = ecrisFichierEntier(c.cible, "x");
        ASSERT_TRUE(erreur) << c.cible;
        EXPECT_EQ(erreur.message(), "Impossible d'écrire " + texteCite(c.cible) + " : " + c.message);
    }
    EXPECT_TRUE(fs::is_directory(chemin("un_dossier")));
    EXPECT_EQ(noms(), (std::set<std::string>{"boucle_a", "boucle_b", "un_dossier"}));
}

TEST_F(Ecriture, WritesThroughALinkAndTakesLongNames)
{
    fs::create_directory(chemin("vrai"));
    ASSERT_FALSE(ecrisFichierEntier(chemin("vrai/cible.txt"), "avant"));
    chmod(chemin("vrai/cible.txt").c_str(), 0640);
    fs::create_symlink("vrai/cible.txt", chemin("lien.txt"));
    ASSERT_FALSE(ecrisFichierEntier(chemin("lien.txt"), "après"));
    EXPECT_TRUE(fs::is_symlink(chemin("lien.txt")));
    EXPECT_EQ(contenu(chemin("vrai/cible.txt")), "après");
    EXPECT_EQ(fs::status(chemin("vrai/cible.txt")).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);

    const std::string nom(255, 'n');
    ASSERT_FALSE(ecrisFichierEntier(chemin(nom), "long"));
    EXPECT_EQ(contenu(chemin(nom)), "long");
    EXPECT_EQ(noms(), (std::set<std::string>{"vrai", "lien.txt", nom}));
}

TEST(TexteSur, ControlBytesBecomeVisibleAndTextStays)
{
    struct Cas {
        std::string brut, sur;
    };
    const Cas cas[] = {
        {std::string("a\0b", 3), "a\\0b"},
        {"\x1B[2J efface", "\\e[2J efface"},
        {"ligne\r\nsuite\ttab", "ligne\\r\\nsuite\\ttab"},
        {"cloche\x07\x7F", "cloche\\x07\\x7F"},
        {"Égalité à ‰ 😀", "Égalité à ‰ 😀"},
        {"\xE9t\xE9", "\\xE9t\\xE9"},  // Windows-1252, not UTF-8
        {"\xC2\x9B"
         "31m",
         "\\xC2\\x9B31m"},                                        // C1 control (CSI)
        {"\xE2\x82", "\\xE2\\x82"},                               // cut sequence
        {"\xC0\xAF \xED\xA0\x80", "\\xC0\\xAF \\xED\\xA0\\x80"},  // overlong, surrogate
        {"c:\\chemin", "c:\\chemin"},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(texteSur(c.brut), c.sur) << c.sur;
    EXPECT_EQ(texteCite(std::string("x\0", 2)), "« x\\0 »");
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
        EXPECT_EQ(noms().size(), 2u) << "le provisoire est là avant le signal";
        kill(pid, signal);
        int statut = 0;
        waitpid(pid, &statut, 0);
        EXPECT_TRUE(WIFEXITED(statut) && WEXITSTATUS(statut) == 128 + signal) << statut;
        EXPECT_EQ(noms(), std::set<std::string>{"f.txt"});
        EXPECT_EQ(contenu(cible), "ancien");
    }
}

}  // namespace
}  // namespace velorin
