// The undo history of a session: each step holds what one user action
// changed, so that "Annuler" puts it back and "Rétablir" does it again.
//
// A step is a snapshot of the session state the action may change (the
// drawing parameters, the colours, the mode and the catalogue in force,
// the drawn-curves table, the labels, the rendering settings), taken
// before the action; the engine's and the tracer's working values are not
// part of it, every redraw sets them again. An action that writes the
// catalogue file also keeps the file's bytes from before: undoing it writes
// them back whole, byte for byte. Each step carries the action's name for
// the menu ("la rotation", "l'élagage", "le zoom"...).
//
// Undoing a step gives the state to restore and keeps the state of the
// moment (with the same file's bytes of the moment) as the step to redo;
// a new action forgets the steps to redo. The oldest step goes beyond the
// history's limit.
#pragma once
#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>

#include "base/erreur.h"
#include "plot/etat.h"

namespace velorin {

// The part of the window state an action may change: mode, folders and
// catalogue in force, video inversion, colour policy.
struct FenetreSession {
    std::string dossierCourbes, dossierFig, fichierCatalogue;
    bool modeEspace = true;
    bool inversionVideo = false;
    int choixReglage = 0;
    int politiqueCouleurs = 0;

    bool operator==(const FenetreSession&) const = default;
};

struct EtatSession {
    Parametres param;
    CouleursDefaut defaut;
    SchemaCouleurs couleurs;
    FenetreSession fenetre;
    TableCourbes courbes;
    Etiquettes etiquettes;
    Rendu rendu;
    std::string cheminCatalogue;  // the catalogue file in force (Catalogue::chemin)

    bool operator==(const EtatSession&) const = default;
};

// A file as an action found it.
struct FichierSauve {
    std::string chemin;
    std::string octets;

    bool operator==(const FichierSauve&) const = default;
};

struct Pas {
    std::string nom;  // what the step undoes, as the menu says it ("la rotation")
    EtatSession etat;
    std::optional<FichierSauve> fichier;  // the catalogue's bytes, for the actions that write it
    // The window's place and size (x, y, width, height in pixels), for the
    // actions that change them (reading a figure).
    std::optional<std::array<int, 4>> cadreFenetre;
};

EtatSession instantane(const Etat& etat);
// Puts the snapshot back into `etat`; the catalogue in force is opened again
// at its path (its count follows the file).
Erreur restaure(const EtatSession& session, Etat& etat);

// The step of an action named `nom` about to run on `etat`; with
// `avecCatalogue`, the bytes of the catalogue file in force are kept too (a
// missing file counts as empty).
Pas photographie(const Etat& etat, std::string nom, bool avecCatalogue);
// The state now in the form of `modele`: same name, the same file's bytes
// read again, the window's frame left to the caller.
Pas pareilMaintenant(const Etat& etat, const Pas& modele);
// True when `etat` (and the file the step kept) are still as the step has
// them: the action changed nothing.
bool inchange(const Pas& pas, const Etat& etat);
// Writes the step's file back whole (when it has one), then restores its
// state. A failed write is returned and nothing is restored.
Erreur remets(const Pas& pas, Etat& etat);

class Historique {
public:
    static constexpr std::size_t limiteParDefaut = 100;
    explicit Historique(std::size_t limite = limiteParDefaut) : limite_(limite) { }

    // A new action: its step goes on top, the oldest goes beyond the limit,
    // and the steps to redo are forgotten.
    void ajoute(Pas pas);
    // The step to restore, with `maintenant` (the state before restoring it)
    // kept to redo; nothing when there is nothing to undo.
    std::optional<Pas> annule(Pas maintenant);
    // The reverse of annule.
    std::optional<Pas> retablis(Pas maintenant);

    const Pas* aAnnuler() const { return annulables_.empty() ? nullptr : &annulables_.back(); }
    const Pas* aRetablir() const { return retablissables_.empty() ? nullptr : &retablissables_.back(); }
    std::size_t nbAnnulables() const { return annulables_.size(); }
    std::size_t nbRetablissables() const { return retablissables_.size(); }

private:
    std::size_t limite_;
    std::deque<Pas> annulables_, retablissables_;
};

}  // namespace velorin
