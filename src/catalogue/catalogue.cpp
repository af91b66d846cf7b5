#include "catalogue/catalogue.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <fstream>

#include "base/chemins.h"
#include "base/ecriture.h"
#include "base/texte_sur.h"
#include "base/verrou.h"
#include "catalogue/cp1252.h"

namespace velorin {

namespace {

std::string messageLigne(const char* action, NumeroLigne n, const Catalogue& cat)
{
    return "La ligne " + std::to_string(n) + " du catalogue " + texteCite(cat.chemin) + " ne peut pas être " + action +
           ".";
}

// "250 000 entrées (75,5 Mo)": the limit as the messages state it.
std::string texteLimite()
{
    return "250 000 entrées (75,5 Mo)";
}
static_assert(limiteLignesCatalogue == 250000 && limiteLignesCatalogue * tailleEnregistrement == 75500000,
              "texteLimite() states the limit");

// A count with its thousands apart, as French writes it: "1 777 718 251".
std::string texteCompte(NumeroLigne n)
{
    std::string chiffres = std::to_string(n);
    for (auto i = static_cast<std::ptrdiff_t>(chiffres.size()) - 3; i > (n < 0 ? 1 : 0); i -= 3)
        chiffres.insert(static_cast<std::size_t>(i), 1, ' ');
    return chiffres;
}

void decodeEnregistrement(const char* octets, LigneCatalogue& ligne)
{
    const auto bas = static_cast<unsigned char>(octets[0]);
    const auto haut = static_cast<unsigned char>(octets[1]);
    ligne.typeFonction = static_cast<std::int16_t>(bas | (haut << 8));
    ligne.texte = depuisCp1252(std::string(octets + 2, longueurTexte));
}

// Writes the record bytes at `position` of the open file `fd`: one write of
// the whole record, flushed to the disk. An append that fails is cut back
// to the file's previous size so that no partial record stays.
int ecrisEnPlace(int fd, const std::string& octets, off_t position)
{
    struct stat avant;
    if (fstat(fd, &avant) != 0)
        return errno;
    if (!S_ISREG(avant.st_mode))
        return ENXIO;
    ssize_t n;
    const long long limite = limiteDisqueSimulee();
    if (limite >= 0 && limite < static_cast<long long>(octets.size())) {
        n = -1;
        errno = ENOSPC;
    } else {
        do
            n = pwrite(fd, octets.data(), octets.size(), position);
        while (n < 0 && errno == EINTR);
    }
    int numero = 0;
    if (n < 0)
        numero = errno;
    else if (static_cast<std::size_t>(n) != octets.size())
        numero = ENOSPC;  // short write: the disk is full
    if (numero == 0 && fdatasync(fd) != 0 && errno != EINVAL && errno != EROFS)
        numero = errno;
    if (numero != 0 && position >= avant.st_size) {
        if (ftruncate(fd, avant.st_size) != 0) {
            // Nothing more can be done: the partial record is ignored by the count.
        }
    }
    return numero;
}

}  // namespace

std::optional<std::string> nomNouveauCatalogue(const std::string& reponse)
{
    const std::size_t debut = reponse.find_first_not_of(" \t\r\n");
    std::string nom = debut == std::string::npos
                          ? std::string()
                          : reponse.substr(debut, reponse.find_last_not_of(" \t\r\n") - debut + 1);
    if (nom.empty() || nom.front() == '.' || nom.find_first_of("/\\") != std::string::npos)
        return std::nullopt;
    std::string fin = nom.size() >= 4 ? nom.substr(nom.size() - 4) : std::string();
    for (char& c : fin)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (fin != ".lsu")
        nom += ".lsu";
    return nom;
}

std::string entierFormate(long long valeur, int chiffres)
{
    std::string corps = std::to_string(valeur < 0 ? -valeur : valeur);
    if (static_cast<int>(corps.size()) < chiffres)
        corps.insert(0, chiffres - corps.size(), '0');
    return valeur < 0 ? "-" + corps : corps;
}

Erreur ouvrirCatalogue(Catalogue& cat, const std::string& chemin)
{
    struct stat s;
    if (!chemin.empty() && stat(chemin.c_str(), &s) != 0 && errno == ENOENT) {
        const std::string nom = "Le catalogue " + texteCite(chemin) + " n'existe pas et ne peut pas être créé";
        if (auto erreur = verifieDossier(dossierDe(chemin), "son dossier"))
            return nom + " : " + erreur.message();
        // Created under the lock, and only if still missing: another writer
        // may have created it and appended to it meanwhile.
        Verrou verrou(chemin, "Le catalogue");
        if (verrou.erreur())
            return verrou.erreur();
        if (stat(chemin.c_str(), &s) != 0 && errno == ENOENT)
            if (auto erreur = ecrisFichierEntier(chemin, ""))
                return nom + ". " + erreur.message();
    }
    if (auto erreur = verifieFichierLisible(chemin, "Le catalogue"))
        return erreur;
    const NumeroLigne nb = static_cast<NumeroLigne>(tailleFichier(chemin) / tailleEnregistrement);
    if (nb > limiteLignesCatalogue)
        return "Le catalogue " + texteCite(chemin) + " est trop grand : " + texteCompte(nb) +
               " entrées, au-delà de la limite de " + texteLimite() + ".";
    cat.chemin = chemin;
    cat.nbLignesCatalogue = nb;
    cat.marquesCatalogue.resize(static_cast<std::size_t>(nb) + 1, 0);
    return {};
}

Erreur ouvrirCatalogue(Catalogue& cat)
{
    return ouvrirCatalogue(cat, cat.chemin);
}

void viderLigne(LigneCatalogue& ligne)
{
    ligne.typeFonction = genreExplicite;
    ligne.texte.assign(longueurTexte, ' ');
}

Erreur lisLigne(const Catalogue& cat, NumeroLigne n, LigneCatalogue& ligne)
{
    if (n < 1 || n > cat.nbLignesCatalogue)
        return "La ligne " + std::to_string(n) + " n'existe pas dans le catalogue " + texteCite(cat.chemin) + ".";
    if (auto erreur = verifieFichierLisible(cat.chemin, "Le catalogue"))
        return erreur;
    std::ifstream f(cat.chemin, std::ios::binary);
    char octets[tailleEnregistrement];
    if (!f || !f.seekg(std::streamoff(n - 1) * tailleEnregistrement) || !f.read(octets, tailleEnregistrement))
        return messageLigne("lue", n, cat);
    decodeEnregistrement(octets, ligne);
    return {};
}

std::string octetsEnregistrement(const LigneCatalogue& ligne)
{
    std::string texte = versCp1252(ligne.texte);
    texte.resize(longueurTexte, ' ');
    const auto type = static_cast<std::uint16_t>(ligne.typeFonction);
    std::string octets;
    octets += static_cast<char>(type & 0xFF);
    octets += static_cast<char>(type >> 8);
    octets += texte;
    return octets;
}

Erreur ecrisLigne(Catalogue& cat, NumeroLigne n, const LigneCatalogue& ligne)
{
    if (n > limiteLignesCatalogue)
        return "Le catalogue " + texteCite(cat.chemin) + " est plein : il ne peut pas dépasser " + texteLimite() + ".";
    if (n < 1 || n > cat.nbLignesCatalogue + 1)
        return "La ligne " + std::to_string(n) + " ne peut pas être écrite dans le catalogue " + texteCite(cat.chemin) +
               " (" + std::to_string(cat.nbLignesCatalogue) + " lignes).";
    Verrou verrou(cat.chemin, "Le catalogue");
    if (verrou.erreur())
        return verrou.erreur();
    // Opened for writing without creating nor truncating; O_NONBLOCK so that
    // a FIFO put in the file's place is refused instead of waited on.
    const int fd = open(cat.chemin.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    int numero = fd < 0 ? errno : 0;
    if (fd >= 0) {
        numero = ecrisEnPlace(fd, octetsEnregistrement(ligne), static_cast<off_t>(n - 1) * tailleEnregistrement);
        if (close(fd) != 0 && numero == 0)
            numero = errno;
    }
    if (numero != 0)
        return "La ligne " + std::to_string(n) + " du catalogue " + texteCite(cat.chemin) +
               " ne peut pas être écrite : " + raisonSysteme(numero) + ".";
    if (n > cat.nbLignesCatalogue) {
        cat.nbLignesCatalogue = n;
        cat.marquesCatalogue.resize(static_cast<std::size_t>(n) + 1, 0);
    }
    return {};
}

std::string ligneListeCatalogue(NumeroLigne n, const LigneCatalogue& ligne)
{
    return entierFormate(n, 4) + "]" + ligne.texte + "[" + entierFormate(ligne.typeFonction, 2);
}

std::vector<std::string> listerCatalogue(Catalogue& cat, Erreur* erreur)
{
    std::vector<std::string> liste{enteteListeCatalogue};
    Erreur probleme = ouvrirCatalogue(cat);
    if (!probleme) {
        // Record by record through a buffer of 64 KiB: the memory used is the
        // list's own, never the file's size again.
        std::vector<char> tampon(1 << 16);
        std::ifstream f;
        f.rdbuf()->pubsetbuf(tampon.data(), static_cast<std::streamsize>(tampon.size()));
        f.open(cat.chemin, std::ios::binary);
        liste.reserve(static_cast<std::size_t>(cat.nbLignesCatalogue) + 1);
        LigneCatalogue ligne;
        char octets[tailleEnregistrement];
        NumeroLigne n = 0;
        while (n < cat.nbLignesCatalogue && f.read(octets, tailleEnregistrement)) {
            decodeEnregistrement(octets, ligne);
            liste.push_back(ligneListeCatalogue(++n, ligne));
        }
        if (n < cat.nbLignesCatalogue)
            probleme = messageLigne("lue", n + 1, cat);
    }
    if (erreur)
        *erreur = probleme;
    return liste;
}

}  // namespace velorin
