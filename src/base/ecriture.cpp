#include "base/ecriture.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <streambuf>
#include <vector>

#include "base/chemins.h"
#include "base/texte_sur.h"

namespace velorin {

namespace {

// Bytes after which writes fail as on a full disk; -1: no simulation. Read
// once from VELORIN_ESSAI_DISQUE_PLEIN unless simuleDisquePlein said otherwise.
long long& limiteDisque()
{
    static long long limite = [] {
        const char* v = std::getenv("VELORIN_ESSAI_DISQUE_PLEIN");
        if (!v || !*v)
            return -1LL;
        char* fin = nullptr;
        const long long n = std::strtoll(v, &fin, 10);
        return (fin && *fin == '\0' && n >= 0) ? n : -1LL;
    }();
    return limite;
}

// The temporaries being written, for the signal handler: each place holds
// the name of one (owned by its EcritureEntiere) or nothing. Atomic
// pointers, so that the handler reads a whole name or none; when the table
// is full a temporary simply goes unlisted.
constexpr int placesProvisoires = 4096;
std::atomic<const char*> provisoires[placesProvisoires];

int inscris(const char* chemin)
{
    for (int i = 0; i < placesProvisoires; ++i) {
        const char* libre = nullptr;
        if (provisoires[i].compare_exchange_strong(libre, chemin))
            return i;
    }
    return -1;
}

void raye(int& place)
{
    if (place >= 0)
        provisoires[place].store(nullptr);
    place = -1;
}

// Only unlink and _exit: both are safe in a signal handler.
extern "C" void nettoieEtTermine(int signal)
{
    for (auto& p : provisoires)
        if (const char* chemin = p.load())
            unlink(chemin);
    _exit(128 + signal);
}

// Where writing `cible` really goes: the file at the end of its links. Fills
// `numeroErreur` when the links loop or cannot be followed.
std::string suisLiens(const std::string& cible, int& numeroErreur)
{
    std::string chemin = cible;
    for (int tours = 0; tours < 40; ++tours) {
        struct stat s;
        if (lstat(chemin.c_str(), &s) != 0 || !S_ISLNK(s.st_mode))
            return chemin;
        std::vector<char> lien(PATH_MAX + 1);
        const ssize_t n = readlink(chemin.c_str(), lien.data(), PATH_MAX);
        if (n < 0) {
            numeroErreur = errno;
            return chemin;
        }
        std::string suite(lien.data(), static_cast<std::size_t>(n));
        chemin = (!suite.empty() && suite[0] == '/') ? suite : dossierDe(chemin) + "/" + suite;
    }
    numeroErreur = ELOOP;
    return chemin;
}

}  // namespace

std::string raisonSysteme(int numeroErreur)
{
    switch (numeroErreur) {
    case ENOSPC: return "le disque est plein";
    case EDQUOT: return "le quota de disque est dépassé";
    case EACCES:
    case EPERM: return "permission refusée";
    case EROFS: return "le disque est en lecture seule";
    case ENOENT: return "le dossier n'existe pas";
    case ENOTDIR: return "un élément du chemin n'est pas un dossier";
    case EISDIR: return "c'est un dossier";
    case ELOOP: return "les liens symboliques du chemin tournent en boucle";
    case ENAMETOOLONG: return "le nom est trop long";
    case EFBIG: return "le fichier est trop grand";
    case EIO: return "erreur d'entrée-sortie du disque";
    case ENXIO: return "ce n'est pas un fichier ordinaire";
    case ENOMEM: return "mémoire insuffisante";
    default: return "erreur système n° " + std::to_string(numeroErreur);
    }
}

void installeNettoyageSignaux()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction avant {};
        if (sigaction(signal, nullptr, &avant) == 0 && avant.sa_handler == SIG_IGN)
            continue;
        struct sigaction action {};
        action.sa_handler = nettoieEtTermine;
        sigemptyset(&action.sa_mask);
        for (const int autre : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&action.sa_mask, autre);
        sigaction(signal, &action, nullptr);
    }
}

void simuleDisquePlein(long long octets)
{
    limiteDisque() = octets < 0 ? -1 : octets;
}

long long limiteDisqueSimulee()
{
    return limiteDisque();
}

// A buffer of 64 KiB in front of the checked writes, for flux().
struct EcritureEntiere::Tampon : std::streambuf {
    explicit Tampon(EcritureEntiere& e) : ecriture(e), zone(1 << 16) { setp(zone.data(), zone.data() + zone.size()); }
    int_type overflow(int_type c) override
    {
        if (sync() != 0)
            return traits_type::eof();
        if (!traits_type::eq_int_type(c, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(c);
            pbump(1);
        }
        return traits_type::not_eof(c);
    }
    int sync() override
    {
        const std::size_t n = static_cast<std::size_t>(pptr() - pbase());
        setp(zone.data(), zone.data() + zone.size());
        return (n == 0 || ecriture.ecris(std::string_view(zone.data(), n))) ? 0 : -1;
    }
    EcritureEntiere& ecriture;
    std::vector<char> zone;
};

EcritureEntiere::EcritureEntiere(std::string cible) : cible_(std::move(cible))
{
    int numero = 0;
    reelle_ = suisLiens(cible_, numero);
    if (numero != 0) {
        echoue(numero);
        return;
    }
    struct stat s;
    const bool existe = stat(reelle_.c_str(), &s) == 0;
    existait_ = existe && S_ISREG(s.st_mode);
    if (existe && S_ISDIR(s.st_mode)) {
        erreur_ = "Impossible d'écrire " + texteCite(cible_) + " : c'est un dossier.";
        return;
    }
    if (existe && !S_ISREG(s.st_mode)) {
        erreur_ = "Impossible d'écrire " + texteCite(cible_) + " : ce n'est pas un fichier ordinaire.";
        return;
    }
    // A file the user made read-only is not replaced behind his back (the
    // rename alone would need only the folder's permission).
    if (existait_ && access(reelle_.c_str(), W_OK) != 0) {
        echoue(errno);
        return;
    }
    std::string modele = dossierDe(reelle_) + "/.velorin-XXXXXX";
    fd_ = mkstemp(modele.data());
    if (fd_ < 0) {
        echoue(errno);
        return;
    }
    provisoire_ = modele;
    place_ = inscris(provisoire_.c_str());
    // The new file keeps the old one's permissions, or gets the usual ones.
    mode_t mode;
    if (existe) {
        mode = s.st_mode & 07777;
    } else {
        const mode_t masque = umask(0);
        umask(masque);
        mode = 0666 & ~masque;
    }
    fchmod(fd_, mode);
}

EcritureEntiere::~EcritureEntiere()
{
    flux_.reset();
    tampon_.reset();
    if (fd_ >= 0)
        close(fd_);
    if (!fini_ && !provisoire_.empty())
        unlink(provisoire_.c_str());
    raye(place_);
}

void EcritureEntiere::echoue(int numeroErreur)
{
    if (erreur_)
        return;
    erreur_ = "Impossible d'écrire " + texteCite(cible_) + " : " + raisonSysteme(numeroErreur) +
              (existait_ ? " ; le fichier précédent est conservé." : ".");
}

Erreur EcritureEntiere::ouverture() const
{
    if (fd_ < 0 && erreur_)
        return erreur_;
    return {};
}

bool EcritureEntiere::ecris(std::string_view donnees)
{
    if (erreur_ || fd_ < 0)
        return false;
    while (!donnees.empty()) {
        std::size_t morceau = donnees.size();
        const long long limite = limiteDisque();
        if (limite >= 0) {
            if (ecrits_ >= static_cast<std::uint64_t>(limite)) {
                echoue(ENOSPC);
                return false;
            }
            morceau = std::min<std::uint64_t>(morceau, static_cast<std::uint64_t>(limite) - ecrits_);
        }
        const ssize_t n = ::write(fd_, donnees.data(), morceau);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            echoue(errno);
            return false;
        }
        ecrits_ += static_cast<std::uint64_t>(n);
        donnees.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

std::ostream& EcritureEntiere::flux()
{
    if (!flux_) {
        tampon_ = std::make_unique<Tampon>(*this);
        flux_ = std::make_unique<std::ostream>(tampon_.get());
    }
    return *flux_;
}

Erreur EcritureEntiere::termine()
{
    if (fini_)
        return {};
    if (flux_)
        flux_->flush();
    if (!erreur_ && fd_ >= 0) {
        if (fsync(fd_) != 0 && errno != EINVAL && errno != EROFS)
            echoue(errno);
    }
    if (fd_ >= 0) {
        if (close(fd_) != 0 && !erreur_)
            echoue(errno);
        fd_ = -1;
    }
    if (!erreur_ && provisoire_.empty())
        echoue(EIO);
    if (erreur_)
        return erreur_;
    if (std::rename(provisoire_.c_str(), reelle_.c_str()) != 0) {
        echoue(errno);
        return erreur_;
    }
    fini_ = true;
    raye(place_);
    // The new name reaches the disk too (not possible everywhere: ignored).
    const int dossier = open(dossierDe(reelle_).c_str(), O_RDONLY | O_DIRECTORY);
    if (dossier >= 0) {
        fsync(dossier);
        close(dossier);
    }
    return {};
}

Erreur ecrisFichierEntier(const std::string& cible, std::string_view contenu)
{
    EcritureEntiere e(cible);
    if (auto erreur = e.ouverture())
        return erreur;
    e.ecris(contenu);
    return e.termine();
}

}  // namespace velorin
