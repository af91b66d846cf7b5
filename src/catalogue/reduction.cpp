#include "catalogue/reduction.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "base/verrou.h"

namespace velorin {

namespace {

// Reads the records of a catalogue one after the other through a buffer.
class Lecteur {
public:
    explicit Lecteur(const std::string& chemin) : tampon_(1 << 16)
    {
        f_.rdbuf()->pubsetbuf(tampon_.data(), static_cast<std::streamsize>(tampon_.size()));
        f_.open(chemin, std::ios::binary);
    }
    bool suivant() { return static_cast<bool>(f_.read(octets_, tailleEnregistrement)); }
    std::string_view octets() const { return {octets_, tailleEnregistrement}; }
    std::int16_t genre() const
    {
        const auto bas = static_cast<unsigned char>(octets_[0]);
        const auto haut = static_cast<unsigned char>(octets_[1]);
        return static_cast<std::int16_t>(bas | (haut << 8));
    }

private:
    std::vector<char> tampon_;
    std::ifstream f_;
    char octets_[tailleEnregistrement] = {};
};

// Walks the records 1..nb of the catalogue, calling `garde` with the bytes of
// each kept one (kind above 0 and not to be cleared). False when a record
// could not be read.
template <class Garde> bool parcours(const Catalogue& cat, const std::vector<bool>& efface, Garde garde)
{
    Lecteur lecteur(cat.chemin);
    for (NumeroLigne n = 1; n <= cat.nbLignesCatalogue; ++n) {
        if (!lecteur.suivant())
            return false;
        if (lecteur.genre() > 0 && !efface[static_cast<std::size_t>(n)] && !garde(lecteur.octets()))
            return false;
    }
    return true;
}

// A count with its thousands apart, as French writes it: "32 767".
std::string texteCompte(NumeroLigne n)
{
    std::string chiffres = std::to_string(n);
    for (auto i = static_cast<std::ptrdiff_t>(chiffres.size()) - 3; i > 0; i -= 3)
        chiffres.insert(static_cast<std::size_t>(i), 1, ' ');
    return chiffres;
}

// Hands the bytes of `chemin` from `debut` to its end to `ecris`.
template <class Ecris> bool copieLaFin(const std::string& chemin, std::uint64_t debut, Ecris ecris)
{
    std::ifstream f(chemin, std::ios::binary);
    if (!f || !f.seekg(static_cast<std::streamoff>(debut)))
        return false;
    std::vector<char> tampon(1 << 16);
    while (f) {
        f.read(tampon.data(), static_cast<std::streamsize>(tampon.size()));
        if (f.gcount() > 0 && !ecris(std::string_view(tampon.data(), static_cast<std::size_t>(f.gcount()))))
            return false;
    }
    return f.eof();
}

}  // namespace

std::string cheminReduction(const std::string& chemin)
{
    const std::string dossier = dossierDe(chemin);
    return (dossier == "/" ? "" : dossier) + "/" + nomFichierReduction;
}

Erreur reduction(Catalogue& cat, const std::vector<NumeroLigne>& effacees, BilanReduction* bilan)
{
    // Held from the count to the rename, and over "LIBI.lcs", which is the
    // folder's.
    Verrou verrou(cat.chemin, "Le catalogue");
    if (verrou.erreur())
        return verrou.erreur();
    if (auto erreur = ouvrirCatalogue(cat))
        return erreur;
    const std::string catalogue = texteCite(cat.chemin);
    std::vector<bool> efface(static_cast<std::size_t>(cat.nbLignesCatalogue) + 1, false);
    for (NumeroLigne n : effacees) {
        if (n < 1 || n > cat.nbLignesCatalogue)
            return "La ligne " + std::to_string(n) + " n'existe pas dans le catalogue " + catalogue + " (" +
                   std::to_string(cat.nbLignesCatalogue) + " lignes) : rien n'est effacé.";
        efface[static_cast<std::size_t>(n)] = true;
    }
    const std::string illisible =
        "Le catalogue " + catalogue + " ne peut pas être lu jusqu'au bout : il n'est pas compacté.";

    // First the count, so that a refusal comes before anything is written.
    NumeroLigne gardees = 0;
    if (!parcours(cat, efface, [&](std::string_view) { return ++gardees, true; }))
        return illisible;
    if (gardees > limiteCompteurReduction)
        return "Le catalogue " + catalogue + " garderait " + texteCompte(gardees) +
               " entrées : le compactage n'en numérote que " + texteCompte(limiteCompteurReduction) +
               ". Rien n'est écrit.";

    // The compaction file left over from an earlier run, unless it is the
    // catalogue itself (a catalogue named "LIBI.lcs" compacts alone).
    const std::string libi = cheminReduction(cat.chemin);
    struct stat s;
    const bool avecLibi = lstat(libi.c_str(), &s) == 0 && !memeFichier(libi, cat.chemin);
    std::uint64_t tailleLibi = 0;
    if (avecLibi) {
        if (auto erreur = verifieFichierLisible(libi, "Le fichier de compactage"))
            return erreur.message() + " Le catalogue " + catalogue + " n'est pas compacté.";
        tailleLibi = tailleFichier(libi);
        const auto restantes = static_cast<NumeroLigne>(tailleLibi / tailleEnregistrement);
        if (restantes > limiteLignesCatalogue)
            return "Le fichier de compactage " + texteCite(libi) +
                   " est trop grand pour devenir un catalogue : rien n'est écrit.";
    }

    EcritureEntiere sortie(cat.chemin);
    if (auto erreur = sortie.ouverture())
        return erreur;
    // A failed write is the writer's to tell (and then nothing has changed);
    // a failed read is told here, and the temporary is dropped uncommitted.
    bool ecritureEchouee = false;
    auto ecris = [&](std::string_view octets) { return sortie.ecris(octets) || (ecritureEchouee = true, false); };
    NumeroLigne ecrites = 0;
    bool lu = parcours(cat, efface, [&](std::string_view octets) { return ++ecrites, ecris(octets); });
    lu = lu && ecrites == gardees;
    const std::uint64_t fin = static_cast<std::uint64_t>(gardees) * tailleEnregistrement;
    if (lu && tailleLibi > fin && !copieLaFin(libi, fin, ecris) && !ecritureEchouee)
        return "Le fichier de compactage " + texteCite(libi) + " ne peut pas être lu : le catalogue " + catalogue +
               " n'est pas compacté.";
    if (!lu && !ecritureEchouee)
        return illisible;
    if (auto erreur = sortie.termine())
        return erreur;

    if (bilan)
        *bilan = {gardees, std::max(gardees, static_cast<NumeroLigne>(tailleLibi / tailleEnregistrement)), true};
    Erreur suite;
    if (avecLibi && unlink(libi.c_str()) != 0 && errno != ENOENT)
        suite = "Le catalogue " + catalogue + " est compacté, mais le fichier de compactage " + texteCite(libi) +
                " ne peut pas être supprimé : " + raisonSysteme(errno) + ".";
    if (auto erreur = ouvrirCatalogue(cat))
        return erreur;
    return suite;
}

}  // namespace velorin
