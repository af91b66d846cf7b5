// The one way Velorin writes a file: whole or not at all.
//
// The text goes to a temporary file beside the target under a short name
// (".velorin-XXXXXX", so that a target name of 255 characters still works),
// every write and the close are checked, the data is flushed to the disk,
// and only then does the temporary take the target's name by one rename. On
// any failure the temporary is removed, the user's previous file stays as it
// was, and the failure comes back as a French message naming the target
// (never the temporary). A target that is a symbolic link is written through
// the link: the file it points to is replaced, the link is kept. A target
// the user may not write (read-only) is refused, not replaced.
//
// A writer whose disk fails can be simulated: setting the environment
// variable VELORIN_ESSAI_DISQUE_PLEIN to a number N makes every write after
// the first N bytes of a file fail as on a full disk (ENOSPC), so that the
// command-line tests need no special mount; simuleDisquePlein does the same
// inside a process.
//
// A process stopped by SIGINT, SIGTERM or SIGHUP leaves no temporary
// behind once installeNettoyageSignaux() has run: the live temporaries are
// kept in a fixed table that the signal handler walks, removing each, before
// the process ends with status 128 + the signal. The targets are untouched.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "base/erreur.h"

namespace velorin {

class EcritureEntiere {
public:
    // Creates the temporary beside `cible`; ouverture() tells whether it could.
    explicit EcritureEntiere(std::string cible);
    ~EcritureEntiere();  // removes the temporary unless termine() succeeded
    EcritureEntiere(const EcritureEntiere&) = delete;
    EcritureEntiere& operator=(const EcritureEntiere&) = delete;

    Erreur ouverture() const;
    // Appends bytes; false once anything has failed (the first failure is kept).
    bool ecris(std::string_view donnees);
    // A stream over ecris(), for writers that format text with <<.
    std::ostream& flux();
    // Flushes, closes, syncs and renames over the target. Returns the first
    // failure met since the start, if any; then nothing has changed on disk.
    Erreur termine();

    const std::string& cible() const { return cible_; }

private:
    struct Tampon;
    void echoue(int numeroErreur);
    std::string cible_;       // as the user named it (for messages)
    std::string reelle_;      // where the file is really written (through links)
    std::string provisoire_;  // the temporary, empty when none
    int place_ = -1;          // its place in the table of live temporaries
    int fd_ = -1;
    std::uint64_t ecrits_ = 0;
    Erreur erreur_;
    bool fini_ = false;
    bool existait_ = false;  // the target was there before: it is kept on failure
    std::unique_ptr<Tampon> tampon_;
    std::unique_ptr<std::ostream> flux_;
};

// The whole of `contenu` into `cible` through EcritureEntiere.
Erreur ecrisFichierEntier(const std::string& cible, std::string_view contenu);

// Within this process, every file write fails after `octets` bytes as on a
// full disk; a negative value ends the simulation. Overrides the variable
// VELORIN_ESSAI_DISQUE_PLEIN.
void simuleDisquePlein(long long octets);
// The bytes after which writes fail in the simulation, -1 when none: for
// the writers that change a file in place instead of replacing it.
long long limiteDisqueSimulee();

// From now on SIGINT, SIGTERM and SIGHUP remove the live temporaries and
// end the process with status 128 + the signal. A signal the process was
// told to ignore (nohup) stays ignored.
void installeNettoyageSignaux();

// The French sentence for a system error number met on `chemin`
// ("le disque est plein", "permission refusée", ...).
std::string raisonSysteme(int numeroErreur);

}  // namespace velorin
