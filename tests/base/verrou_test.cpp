#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "base/verrou.h"
#include "commun/commun.h"

namespace velorin {
namespace {

using essai::DossierTemporaire;

// A child process that takes the lock for `fichier` and holds it until its
// order pipe is closed (or it is killed).
struct Detenteur {
    pid_t pid = -1;
    int ordre = -1;
};

Detenteur prendsDansUnAutreProcessus(const std::string& fichier)
{
    int pret[2], ordre[2];
    if (pipe(pret) != 0 || pipe(ordre) != 0)
        return {};
    const pid_t pid = fork();
    if (pid == 0) {
        close(pret[0]);
        close(ordre[1]);
        Verrou verrou(fichier, "Le catalogue", 0);
        char c = verrou.erreur() ? 'n' : 'o';
        if (write(pret[1], &c, 1) != 1 || read(ordre[0], &c, 1) < 0)
            _exit(3);
        _exit(0);
    }
    close(pret[1]);
    close(ordre[0]);
    char c = 0;
    const bool lu = read(pret[0], &c, 1) == 1;
    close(pret[0]);
    EXPECT_TRUE(lu && c == 'o') << "le processus enfant n'a pas pris le verrou";
    return {pid, ordre[1]};
}

// The second writer of one catalogue, while another process holds its lock.
TEST(Verrou, LeSecondEcrivainAttendLePremierOuRenonceEnDisantQui)
{
    enum Sort { garde, relache, tue };
    struct Cas {
        const char* faute;  // what would go wrong without the lock's rule
        Sort sort;          // what becomes of the holder meanwhile
        int attenteMs;
        bool refuse;
    };
    const Cas cas[] = {
        {"un second écrivain qui n'attend pas écrase l'ajout du premier, ou ne dit pas qui le bloque", garde, 30,
         true},
        {"l'écrivain qui attend ne prend pas le verrou rendu par le premier", relache, 60000, false},
        {"le verrou d'un processus tué bloque les suivants", tue, 0, false},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(c.faute);
        DossierTemporaire dossier;
        const std::string fichier = dossier / "c.lsu";
        const Detenteur d = prendsDansUnAutreProcessus(fichier);
        ASSERT_GT(d.pid, 0);
        if (c.sort == relache)
            close(d.ordre);  // the holder ends; this writer may still be waiting for it
        if (c.sort == tue) {
            kill(d.pid, SIGKILL);
            waitpid(d.pid, nullptr, 0);
            close(d.ordre);
        }
        {
            Verrou verrou(fichier, "Le catalogue", c.attenteMs);
            EXPECT_EQ(bool(verrou.erreur()), c.refuse) << verrou.erreur().message();
            if (c.refuse) {
                const std::string& m = verrou.erreur().message();
                EXPECT_NE(m.find("Le catalogue « " + fichier + " » ne peut pas être écrit"), std::string::npos) << m;
                EXPECT_NE(m.find("processus " + std::to_string(d.pid) + ", « core_tests »"), std::string::npos) << m;
                EXPECT_NE(m.find("Rien n'est changé"), std::string::npos) << m;
            }
        }
        if (c.sort == garde)
            close(d.ordre);
        if (c.sort != tue)
            waitpid(d.pid, nullptr, 0);
    }
}

// A routine holding the lock calls others that take it again (the editor
// around the record write): that must not block. (Its release by the last
// one out is what lets every later catalogue write of this process through.)
TEST(Verrou, DansUnProcessusSeReprendSansAttendre)
{
    DossierTemporaire dossier;
    Verrou dehors(dossier / "a.lsu", "Le catalogue", 0);
    ASSERT_FALSE(dehors.erreur());
    Verrou dedans(dossier / "b.lsu", "Le catalogue", 0);
    EXPECT_FALSE(dedans.erreur()) << dedans.erreur().message();
}

}  // namespace
}  // namespace velorin
