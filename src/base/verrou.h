// The lock every writer of a shared file holds across its whole
// read-modify-write, so that two writers at once (two scripts, the window
// and the command line) never lose each other's changes.
//
// The lock is an advisory flock on the file's folder (the folder the file
// really is in, through its links). A lock on the file itself would be lost
// at every write, since a file is written whole to a temporary that takes
// its name by a rename; a separate lock file would be left in the user's
// folder. A flock dies with the process that holds it: a writer that was
// killed never blocks the next one. The cost of locking the folder is that
// two writers of different files of one folder also take turns; writes are
// short.
//
// A second writer waits, polling, up to `attenteMs`; then it gives up with a
// French message saying who holds the lock (the process number and the
// program's name, read from /proc) and that nothing is changed. Within one
// process the lock is re-entrant: a routine holding it may call others that
// take it again. A folder that cannot be opened or locked (some network
// file systems) is written without the lock.
#pragma once
#include <string>

#include "base/erreur.h"

namespace velorin {

// How long a writer waits for another one before giving up.
constexpr int attenteVerrouMs = 5000;

class Verrou {
public:
    // Takes the lock for writing `fichier`; `quoi` names it in the message
    // ("Le catalogue").
    explicit Verrou(const std::string& fichier, const std::string& quoi = "Le fichier", int attenteMs = attenteVerrouMs);
    ~Verrou();
    Verrou(const Verrou&) = delete;
    Verrou& operator=(const Verrou&) = delete;

    // Empty when the lock is held (or could not be used at all); else why
    // the write must not happen.
    const Erreur& erreur() const { return erreur_; }

    struct Tenu;  // a folder this process has locked (private to verrou.cpp)

private:
    Erreur erreur_;
    Tenu* tenu_ = nullptr;  // the process's entry for this folder, when held
};

}  // namespace velorin
