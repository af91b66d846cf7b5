// `velorin catalogue SOUS-COMMANDE FICHIER.lsu ...`: reading and changing a
// catalogue from a script, with the same code as the editors of the window.
//
// Each sub-command is a function of the arguments that follow the word
// "catalogue" (argv[0] is the sub-command's own name) and returns the exit
// status: 0 done, 2 for any bad input or failure, said in French on the
// error output; on failure the catalogue is left exactly as it was.
#pragma once
#include <string>

#include "base/erreur.h"
#include "catalogue/catalogue.h"

namespace velorin {

// Entries: catalogue_entrees.cpp.
int catalogueListe(int argc, char** argv);   // liste FICHIER.lsu
int catalogueAjoute(int argc, char** argv);  // ajoute FICHIER.lsu --genre K [--plan] [--ligne N] TEXTE...

// Points and pruning: catalogue_menage.cpp.
int cataloguePoint(int argc, char** argv);    // point FICHIER.lsu "(x,y,z)" [--plan]
int catalogueRelie(int argc, char** argv);    // relie FICHIER.lsu N M
int catalogueElimine(int argc, char** argv);  // elimine FICHIER.lsu N...
int catalogueReduis(int argc, char** argv);   // reduis FICHIER.lsu

// ---- Helpers shared by the sub-commands.

// "velorin catalogue SOUS : message" on the error output; returns 2.
int echecCatalogue(const char* sousCommande, const std::string& message);

// Opens the existing catalogue `chemin` (a missing file is an error here:
// nothing is created), counting its records.
Erreur ouvreCatalogueExistant(Catalogue& cat, const std::string& chemin);

// Why a typed text cannot go into a record as typed (a control character,
// a character without a Windows-1252 byte), or nothing. `nom` names the
// text in the message, with its article ("Le point M").
Erreur verifieTexte(const std::string& texte, const std::string& nom);

// What the command line says of an entry of a kind no editor writes
// ("genre 255, qu'aucun éditeur n'écrit : ..."); empty for the others.
std::string remarqueGenre(int genre);

// A record number typed by the user: digits only, 1 to `maximum`.
Erreur lisNumeroLigne(const std::string& texte, NumeroLigne maximum, const Catalogue& cat, NumeroLigne& n);

}  // namespace velorin
