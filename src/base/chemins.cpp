#include "base/chemins.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>

#include "base/ecriture.h"
#include "base/texte_sur.h"

namespace velorin {

namespace {

// The sentence for a path that stat() refused.
std::string raisonChemin(const std::string& quoi, const std::string& chemin, int numero)
{
    const std::string nom = quoi + " " + texteCite(chemin);
    switch (numero) {
    case ENOENT: return nom + " n'existe pas.";
    case ENOTDIR: return nom + " n'existe pas : un élément de son chemin n'est pas un dossier.";
    case ELOOP: return nom + " est un lien symbolique qui tourne en boucle.";
    case EACCES: return nom + " ne peut pas être lu : permission refusée.";
    case ENAMETOOLONG: return nom + " a un nom trop long.";
    default: return nom + " ne peut pas être lu : " + raisonSysteme(numero) + ".";
    }
}

std::string natureFichier(mode_t mode)
{
    if (S_ISDIR(mode))
        return "est un dossier, pas un fichier.";
    if (S_ISFIFO(mode))
        return "est un tube nommé (FIFO), pas un fichier : il ne peut pas être lu.";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "est un périphérique, pas un fichier.";
    if (S_ISSOCK(mode))
        return "est une prise réseau (socket), pas un fichier.";
    return "n'est pas un fichier ordinaire.";
}

}  // namespace

Erreur verifieFichierLisible(const std::string& chemin, const std::string& quoi)
{
    if (chemin.empty())
        return quoi + " n'est pas nommé.";
    struct stat s;
    if (stat(chemin.c_str(), &s) != 0)
        return raisonChemin(quoi, chemin, errno);
    if (!S_ISREG(s.st_mode))
        return quoi + " " + texteCite(chemin) + " " + natureFichier(s.st_mode);
    if (access(chemin.c_str(), R_OK) != 0)
        return raisonChemin(quoi, chemin, errno);
    return {};
}

Erreur verifieDossier(const std::string& chemin, const std::string& quoi)
{
    struct stat s;
    if (stat(chemin.c_str(), &s) != 0)
        return raisonChemin(quoi, chemin, errno);
    if (!S_ISDIR(s.st_mode))
        return quoi + " " + texteCite(chemin) + " n'est pas un dossier.";
    return {};
}

Erreur verifieSortie(const std::string& sortie, const std::vector<std::string>& entrees)
{
    if (sortie.empty())
        return "Le fichier de sortie n'est pas nommé.";
    if (auto erreur = verifieDossier(dossierDe(sortie), "Le dossier de sortie"))
        return erreur;
    struct stat s;
    if (stat(sortie.c_str(), &s) != 0) {
        if (errno == ELOOP)
            return raisonChemin("Le fichier de sortie", sortie, ELOOP);
    } else if (S_ISDIR(s.st_mode)) {
        return "Le fichier de sortie " + texteCite(sortie) + " est un dossier.";
    } else if (!S_ISREG(s.st_mode)) {
        return "Le fichier de sortie " + texteCite(sortie) + " " + natureFichier(s.st_mode);
    }
    for (const std::string& entree : entrees)
        if (!entree.empty() && memeFichier(sortie, entree))
            return "Le fichier de sortie " + texteCite(sortie) + " est aussi lu par cette commande (" +
                   texteCite(entree) + ") : il n'est pas remplacé.";
    return {};
}

Erreur lisFichierTexte(const std::string& chemin, const std::string& quoi, const std::string& nature,
                       std::size_t limite, std::string& contenu)
{
    // Checked first, so that a folder, a FIFO or a device is refused by name
    // and reading never blocks.
    if (auto erreur = verifieFichierLisible(chemin, quoi))
        return erreur;
    const std::string tropGrand = "Fichier " + texteCite(chemin) + " : trop volumineux pour " + nature;
    if (tailleFichier(chemin) > limite)
        return tropGrand;
    std::ifstream f(chemin, std::ios::binary);
    if (!f)
        return quoi + " " + texteCite(chemin) + " ne peut pas être ouvert.";
    // Read piece by piece up to one byte past the limit (a file that grew
    // since its size was taken is still caught), the memory taken following
    // the file's size rather than the limit's.
    contenu.clear();
    contenu.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(tailleFichier(chemin), limite)) + 1);
    char morceau[1 << 16];
    while (contenu.size() <= limite && f.read(morceau, sizeof morceau).gcount() > 0)
        contenu.append(morceau, static_cast<std::size_t>(f.gcount()));
    if (f.bad())
        return quoi + " " + texteCite(chemin) + " ne peut pas être lu : erreur de lecture.";
    if (contenu.size() > limite)
        return tropGrand;
    return {};
}

std::string dossierDe(const std::string& chemin)
{
    const auto barre = chemin.find_last_of('/');
    if (barre == std::string::npos)
        return ".";
    return barre == 0 ? "/" : chemin.substr(0, barre);
}

bool memeFichier(const std::string& a, const std::string& b)
{
    struct stat sa, sb;
    return stat(a.c_str(), &sa) == 0 && stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

std::uint64_t tailleFichier(const std::string& chemin)
{
    struct stat s;
    if (stat(chemin.c_str(), &s) != 0 || !S_ISREG(s.st_mode))
        return 0;
    return static_cast<std::uint64_t>(s.st_size);
}

}  // namespace velorin
