#include "plot/texte_entree.h"

#include "base/texte_sur.h"
#include "catalogue/genre.h"
#include "engine/nombres.h"
#include "engine/normalisation.h"
#include "engine/verification.h"
#include "plot/demande.h"
#include "plot/objets.h"

namespace velorin {

const std::array<std::array<const char*, 3>, 5> invitesFonctions = {{
    {"y = f(x)=", nullptr, nullptr},
    {"x=f1(t)=", "y=f2(t)=", "z=f3(t)="},
    {"x=f1(a,t)=", "y=f2(a,t)=", "z=f3(a,t)="},
    {"R=f1(t)=", "Agh=f2(t)=", "Agv=f3(t)="},
    {"R=f1(a,t)=", "Agh=f2(a,t)=", "Agv=f3(a,t)="},
}};

std::array<std::string, 3> invitesDuGenre(int genre)
{
    std::array<std::string, 3> invites;
    if (estGenreFonction(genre))
        for (int i = 0; i < 3; ++i)
            if (const char* invite = invitesFonctions[genre][i])
                invites[i] = invite;
    return invites;
}

std::vector<int> boitesLues(int genre, bool modeEspace)
{
    if (estGenreFonction(genre)) {
        std::vector<int> boites{0};
        if (genre > genreExplicite)
            boites.push_back(1);
        if (modeEspace)
            boites.push_back(2);
        return boites;
    }
    switch (genre) {
    case genreDroite:
    case genreSegment: return {0, 1};
    case genrePlanParametre: return modeEspace ? std::vector<int>{0, 1, 2} : std::vector<int>{};
    case genrePlanEquation:
    case genrePoint: return {0};
    case genreNuagePlan:
    case genreNuageEspace: return {0, 1, 2};
    default: return {};
    }
}

std::string pieceEntree(const std::string& tape)
{
    return std::string(sansBlancsAuxBouts(unifiecrochets(tape)));
}

std::string texteEntree(int genre, bool modeEspace, const std::array<std::string, 3>& invites,
                        const std::array<std::string, 3>& boites)
{
    const std::vector<int> lues = boitesLues(genre, modeEspace);
    std::string texte;
    if (lues.empty())
        return texte;  // no editor writes this kind in this mode
    if (estGenreFonction(genre)) {
        // Each formula behind the prompt of its box, joined by "][".
        for (int b : lues)
            texte += (texte.empty() ? "" : "][") + invites[b] + pieceEntree(boites[b]);
        return texte;
    }
    if (genre == genreNuagePlan || genre == genreNuageEspace)
        return pieceEntree(boites[0]) + "<" + pieceEntree(boites[1]) + "<" + pieceEntree(boites[2]);
    switch (genre) {
    case genreDroite: texte = "D(M,u):"; break;
    case genrePlanParametre: texte = "P(M,u,v):"; break;
    case genrePlanEquation: texte = modeEspace ? "Plan:" : "Droite:"; break;
    case genreSegment: texte = "Segment:"; break;
    case genrePoint: texte = "Point:"; break;
    default: return texte;
    }
    for (int b : lues) {
        texte += '[';
        texte += pieceEntree(boites[b]);
        texte += ']';
    }
    return texte;
}

Famille familleDuGenre(int genre)
{
    if (estGenreFonction(genre))
        return genre == genreSurfaceParametree || genre == genreSurfaceSpherique ? Famille::Plan : Famille::Espace;
    return Famille::Nuage;
}

Erreur verifieEntree(int genre, bool modeEspace, const std::array<std::string, 3>& boites)
{
    const std::string texte = texteEntree(genre, modeEspace, invitesDuGenre(genre), boites);
    std::array<std::string, 3> champs = champsEntree(genre, texte);
    for (std::string& champ : champs)
        champ = nettoieformule(champ, genre);
    if (estGenreObjet(genre)) {
        ObjetLu objet;
        if (auto erreur = lisObjet(genre, modeEspace, champs, objet))
            return erreur.message() + ". Rien n'est écrit.";
        return {};
    }
    const std::vector<int> lues = boitesLues(genre, modeEspace);
    const std::vector<std::string> noms = nomsDesBoites(genre, modeEspace);
    for (std::size_t i = 0; i < lues.size() && i < champs.size(); ++i)
        for (const Remarque& r : verifieFormule(champs[i], familleDuGenre(genre)))
            if (r.erreur) {
                std::string nom = noms[i];
                nom[0] = static_cast<char>(nom[0] - 'a' + 'A');
                return nom + " " + texteCite(boites[static_cast<std::size_t>(lues[i])]) +
                       " n'est pas enregistrée : lue " + texteSur(champs[i]) + ", " + texteRemarque(r);
            }
    return {};
}

std::vector<std::string> nomsDesBoites(int genre, bool modeEspace)
{
    std::vector<std::string> noms;
    const std::array<std::string, 3> invites = invitesDuGenre(genre);
    for (int b : boitesLues(genre, modeEspace)) {
        if (estGenreFonction(genre))
            noms.push_back(invites[b].empty() ? "la troisième formule (sans invite)" : "la formule " + invites[b]);
        else if (genre == genreNuagePlan || genre == genreNuageEspace)
            noms.push_back(std::string("la fonction ") + "gfh"[b]);
        else if (genre == genrePlanEquation)
            noms.push_back(modeEspace ? "l'équation du plan" : "l'équation de la droite");
        else if (genre == genrePoint)
            noms.push_back("le point M");
        else if (genre == genreSegment)
            noms.push_back(b == 0 ? "le point M1" : "le point M2");
        else
            noms.push_back(b == 0 ? "le point M" : b == 1 ? "le vecteur u" : "le vecteur v");
    }
    return noms;
}

}  // namespace velorin
