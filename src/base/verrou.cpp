#include "base/verrou.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>
#include <utility>

#include "base/chemins.h"
#include "base/texte_sur.h"

namespace velorin {

// One folder locked by this process: the open folder holding the flock and
// how many Verrou objects share it.
struct Verrou::Tenu {
    int fd = -1;
    int compte = 0;
    std::pair<dev_t, ino_t> dossier;  // its key in the process's table
};

namespace {

using Cle = std::pair<dev_t, ino_t>;

std::mutex& garde()
{
    static std::mutex m;
    return m;
}

std::map<Cle, Verrou::Tenu*>& tenus()
{
    static std::map<Cle, Verrou::Tenu*> t;
    return t;
}

// The folder the file really is in: through its links when it exists,
// else the folder named.
std::string dossierReel(const std::string& fichier)
{
    char reel[PATH_MAX];
    if (realpath(fichier.c_str(), reel))
        return dossierDe(reel);
    return dossierDe(fichier);
}

// "processus 1234, « velorin »": the process holding a flock on the inode
// `s`, as /proc/locks lists it ("1: FLOCK ADVISORY WRITE 1234 08:01:5678 0
// EOF"), with its name from /proc/PID/comm. Empty when not found.
std::string detenteur(const struct stat& s)
{
    std::ostringstream attendu;
    attendu << std::hex;
    attendu.width(2);
    attendu.fill('0');
    attendu << major(s.st_dev) << ':';
    attendu.width(2);
    attendu << minor(s.st_dev) << ':' << std::dec << s.st_ino;
    std::ifstream locks("/proc/locks");
    std::string ligne;
    while (std::getline(locks, ligne)) {
        std::istringstream mots(ligne);
        std::string numero, genre, conseil, acces, pid, inode;
        mots >> numero >> genre;
        if (genre == "->")  // a waiter, not a holder
            continue;
        mots >> conseil >> acces >> pid >> inode;
        if (genre != "FLOCK" || inode != attendu.str())
            continue;
        std::string nom;
        std::ifstream comm("/proc/" + pid + "/comm");
        std::getline(comm, nom);
        return "processus " + pid + (nom.empty() ? "" : ", " + texteCite(nom));
    }
    return {};
}

std::string texteAttente(int attenteMs)
{
    if (attenteMs >= 1000 && attenteMs % 1000 == 0)
        return std::to_string(attenteMs / 1000) + (attenteMs == 1000 ? " seconde" : " secondes");
    return std::to_string(attenteMs) + " millisecondes";
}

}  // namespace

Verrou::Verrou(const std::string& fichier, const std::string& quoi, int attenteMs)
{
    const int fd = open(dossierReel(fichier).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    struct stat s;
    if (fd < 0)
        return;
    if (fstat(fd, &s) != 0) {
        close(fd);
        return;
    }
    std::lock_guard<std::mutex> verrouille(garde());
    const Cle cle{s.st_dev, s.st_ino};
    if (auto deja = tenus().find(cle); deja != tenus().end()) {
        close(fd);
        tenu_ = deja->second;
        ++tenu_->compte;
        return;
    }
    const auto fin = std::chrono::steady_clock::now() + std::chrono::milliseconds(attenteMs);
    for (;;) {
        if (flock(fd, LOCK_EX | LOCK_NB) == 0)
            break;
        if (errno != EWOULDBLOCK && errno != EINTR) {
            close(fd);  // no lock here: the write goes on without it
            return;
        }
        if (std::chrono::steady_clock::now() >= fin) {
            const std::string qui = detenteur(s);
            erreur_ = quoi + " " + texteCite(fichier) + " ne peut pas être écrit : un autre programme" +
                      (qui.empty() ? "" : " (" + qui + ")") + " écrit dans son dossier depuis plus de " +
                      texteAttente(attenteMs) + ". Rien n'est changé ; réessayez quand il aura fini.";
            close(fd);
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    tenu_ = new Tenu{fd, 1, cle};
    tenus()[cle] = tenu_;
}

Verrou::~Verrou()
{
    if (!tenu_)
        return;
    std::lock_guard<std::mutex> verrouille(garde());
    if (--tenu_->compte > 0)
        return;
    tenus().erase(tenu_->dossier);
    close(tenu_->fd);  // releases the flock
    delete tenu_;
}

}  // namespace velorin
