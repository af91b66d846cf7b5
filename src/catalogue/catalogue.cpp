#include "catalogue/catalogue.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "catalogue/cp1252.h"

namespace velorin {

namespace fs = std::filesystem;

namespace {

std::string nomPourMessage(const std::string& chemin)
{
    return "\u00ab " + chemin + " \u00bb";
}

std::string messageLigne(const char* action, int n, const Catalogue& cat)
{
    return "La ligne " + std::to_string(n) + " du catalogue " + nomPourMessage(cat.chemin) +
           " ne peut pas être " + action + ".";
}

// Size of the file in bytes, or nothing when it is not a readable regular file.
std::optional<std::uintmax_t> tailleFichier(const std::string& chemin)
{
    std::error_code ec;
    if (!fs::is_regular_file(chemin, ec))
        return std::nullopt;
    const std::uintmax_t taille = fs::file_size(chemin, ec);
    if (ec)
        return std::nullopt;
    std::ifstream essai(chemin, std::ios::binary);
    if (!essai)
        return std::nullopt;
    return taille;
}

void decodeEnregistrement(const char* octets, LigneCatalogue& ligne)
{
    const auto bas = static_cast<unsigned char>(octets[0]);
    const auto haut = static_cast<unsigned char>(octets[1]);
    ligne.typeFonction = static_cast<std::int16_t>(bas | (haut << 8));
    ligne.texte = depuisCp1252(std::string(octets + 2, longueurTexte));
}

}  // namespace

std::string entierFormate(long long valeur, int chiffres)
{
    std::string corps = std::to_string(valeur < 0 ? -valeur : valeur);
    if (static_cast<int>(corps.size()) < chiffres)
        corps.insert(0, chiffres - corps.size(), '0');
    return valeur < 0 ? "-" + corps : corps;
}

Erreur ouvrirCatalogue(Catalogue& cat, const std::string& chemin)
{
    std::error_code ec;
    if (!fs::exists(chemin, ec)) {
        std::ofstream cree(chemin, std::ios::binary | std::ios::app);
        if (!cree)
            return "Le catalogue " + nomPourMessage(chemin) +
                   " n'existe pas et ne peut pas être créé.";
    }
    const auto taille = tailleFichier(chemin);
    if (!taille)
        return "Le catalogue " + nomPourMessage(chemin) + " ne peut pas être lu.";
    cat.chemin = chemin;
    cat.nbLignesCatalogue = static_cast<int>(*taille / tailleEnregistrement);
    cat.marquesCatalogue.resize(cat.nbLignesCatalogue + 1, 0);
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

Erreur lisLigne(const Catalogue& cat, int n, LigneCatalogue& ligne)
{
    if (n < 1 || n > cat.nbLignesCatalogue)
        return "La ligne " + std::to_string(n) + " n'existe pas dans le catalogue " +
               nomPourMessage(cat.chemin) + ".";
    std::ifstream f(cat.chemin, std::ios::binary);
    char octets[tailleEnregistrement];
    if (!f || !f.seekg(std::streamoff(n - 1) * tailleEnregistrement) ||
        !f.read(octets, tailleEnregistrement))
        return messageLigne("lue", n, cat);
    decodeEnregistrement(octets, ligne);
    return {};
}

Erreur ecrisLigne(Catalogue& cat, int n, const LigneCatalogue& ligne)
{
    if (n < 1 || n > cat.nbLignesCatalogue + 1)
        return "La ligne " + std::to_string(n) + " ne peut pas être écrite dans le catalogue " +
               nomPourMessage(cat.chemin) + " (" + std::to_string(cat.nbLignesCatalogue) +
               " lignes).";
    std::string texte = versCp1252(ligne.texte);
    texte.resize(longueurTexte, ' ');
    const auto type = static_cast<std::uint16_t>(ligne.typeFonction);
    std::string octets;
    octets += static_cast<char>(type & 0xFF);
    octets += static_cast<char>(type >> 8);
    octets += texte;

    // Opened for update: nothing is truncated, the record is written in place.
    std::fstream f(cat.chemin, std::ios::binary | std::ios::in | std::ios::out);
    if (!f || !f.seekp(std::streamoff(n - 1) * tailleEnregistrement) ||
        !f.write(octets.data(), tailleEnregistrement) || !f.flush())
        return messageLigne("écrite", n, cat);
    f.close();
    if (n > cat.nbLignesCatalogue) {
        cat.nbLignesCatalogue = n;
        cat.marquesCatalogue.resize(n + 1, 0);
    }
    return {};
}

std::string ligneListeCatalogue(int n, const LigneCatalogue& ligne)
{
    return entierFormate(n, 4) + "]" + ligne.texte + "[" + entierFormate(ligne.typeFonction, 2);
}

std::vector<std::string> listerCatalogue(Catalogue& cat, Erreur* erreur)
{
    std::vector<std::string> liste{enteteListeCatalogue};
    Erreur probleme = ouvrirCatalogue(cat);
    if (!probleme) {
        // The whole file in one read: a list refresh must stay quick.
        std::string contenu(std::size_t(cat.nbLignesCatalogue) * tailleEnregistrement, '\0');
        std::ifstream f(cat.chemin, std::ios::binary);
        const auto lus = f ? f.read(contenu.data(), std::streamsize(contenu.size())).gcount() : 0;
        const int complets = static_cast<int>(lus / tailleEnregistrement);
        LigneCatalogue ligne;
        for (int n = 1; n <= complets; ++n) {
            decodeEnregistrement(contenu.data() + std::size_t(n - 1) * tailleEnregistrement, ligne);
            liste.push_back(ligneListeCatalogue(n, ligne));
        }
        if (complets < cat.nbLignesCatalogue)
            probleme = messageLigne("lue", complets + 1, cat);
    }
    if (erreur)
        *erreur = probleme;
    return liste;
}

}  // namespace velorin
