#include "plot/historique.h"

#include <fstream>
#include <iterator>

#include "base/ecriture.h"

namespace velorin {

namespace {

// The bytes of a file; a missing or unreadable file counts as empty.
std::string octetsDe(const std::string& chemin)
{
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

void pousse(std::deque<Pas>& pile, Pas pas, std::size_t limite)
{
    pile.push_back(std::move(pas));
    while (pile.size() > limite)
        pile.pop_front();
}

}  // namespace

EtatSession instantane(const Etat& etat)
{
    const EtatFenetre& f = etat.fenetre;
    return {.param = etat.param,
            .defaut = etat.defaut,
            .couleurs = etat.couleurs,
            .fenetre = {.dossierCourbes = f.dossierCourbes,
                        .dossierFig = f.dossierFig,
                        .fichierCatalogue = f.fichierCatalogue,
                        .modeEspace = f.modeEspace,
                        .inversionVideo = f.inversionVideo,
                        .choixReglage = f.choixReglage,
                        .politiqueCouleurs = f.politiqueCouleurs},
            .courbes = etat.courbes,
            .etiquettes = etat.etiquettes,
            .rendu = etat.rendu,
            .cheminCatalogue = etat.catalogue.chemin};
}

Erreur restaure(const EtatSession& s, Etat& etat)
{
    etat.param = s.param;
    etat.defaut = s.defaut;
    etat.couleurs = s.couleurs;
    EtatFenetre& f = etat.fenetre;
    f.dossierCourbes = s.fenetre.dossierCourbes;
    f.dossierFig = s.fenetre.dossierFig;
    f.fichierCatalogue = s.fenetre.fichierCatalogue;
    f.metsModeEspace(s.fenetre.modeEspace);
    f.inversionVideo = s.fenetre.inversionVideo;
    f.choixReglage = s.fenetre.choixReglage;
    f.politiqueCouleurs = s.fenetre.politiqueCouleurs;
    etat.courbes = s.courbes;
    etat.etiquettes = s.etiquettes;
    etat.rendu = s.rendu;
    if (s.cheminCatalogue.empty())
        return {};
    return ouvrirCatalogue(etat.catalogue, s.cheminCatalogue);
}

Pas photographie(const Etat& etat, std::string nom, bool avecCatalogue)
{
    Pas pas{.nom = std::move(nom), .etat = instantane(etat), .fichier = {}, .cadreFenetre = {}};
    if (avecCatalogue)
        pas.fichier = FichierSauve{etat.catalogue.chemin, octetsDe(etat.catalogue.chemin)};
    return pas;
}

Pas pareilMaintenant(const Etat& etat, const Pas& modele)
{
    Pas pas{.nom = modele.nom, .etat = instantane(etat), .fichier = {}, .cadreFenetre = {}};
    if (modele.fichier)
        pas.fichier = FichierSauve{modele.fichier->chemin, octetsDe(modele.fichier->chemin)};
    return pas;
}

bool inchange(const Pas& pas, const Etat& etat)
{
    return pas.etat == instantane(etat) && (!pas.fichier || octetsDe(pas.fichier->chemin) == pas.fichier->octets);
}

Erreur remets(const Pas& pas, Etat& etat)
{
    if (pas.fichier)
        if (Erreur e = ecrisFichierEntier(pas.fichier->chemin, pas.fichier->octets))
            return e;
    return restaure(pas.etat, etat);
}

void Historique::ajoute(Pas pas)
{
    pousse(annulables_, std::move(pas), limite_);
    retablissables_.clear();
}

std::optional<Pas> Historique::annule(Pas maintenant)
{
    if (annulables_.empty())
        return std::nullopt;
    Pas pas = std::move(annulables_.back());
    annulables_.pop_back();
    pousse(retablissables_, std::move(maintenant), limite_);
    return pas;
}

std::optional<Pas> Historique::retablis(Pas maintenant)
{
    if (retablissables_.empty())
        return std::nullopt;
    Pas pas = std::move(retablissables_.back());
    retablissables_.pop_back();
    pousse(annulables_, std::move(maintenant), limite_);
    return pas;
}

}  // namespace velorin
