// Builds a shipped gallery (a catalogue file) from its readable source, one
// entry per line "kind|text", the text as the editors store it. Lines that
// are empty or start with "#" are skipped. Every entry is checked against
// the entry syntax of its kind before anything is written, so that a typing
// error in a source fails the build instead of shipping a broken entry.
//
//   fabrique_galerie espace|plan SOURCE CATALOGUE [COPIE]
//
// writes CATALOGUE (replacing it whole, or leaving it as it was on failure)
// and, when COPIE is given and does not exist yet, writes the same bytes
// there: the user's own copy is never overwritten.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/ecriture.h"
#include "catalogue/catalogue.h"

namespace fs = std::filesystem;
using namespace velorin;

namespace {

struct Entree {
    int genre = 0;
    std::string texte;
};

bool commencePar(const std::string& s, const std::string& debut)
{
    return s.rfind(debut, 0) == 0;
}

// Splits "A][B][C" into its pieces.
std::vector<std::string> morceaux(const std::string& s)
{
    std::vector<std::string> r;
    std::size_t debut = 0, p;
    while ((p = s.find("][", debut)) != std::string::npos) {
        r.push_back(s.substr(debut, p - debut));
        debut = p + 2;
    }
    r.push_back(s.substr(debut));
    return r;
}

// Success when `texte` follows the entry syntax of kind `genre`; else why not.
Erreur controle(int genre, const std::string& texte, bool espace)
{
    static const char* invites[5][3] = {
        {"y = f(x)=", "", ""},
        {"x=f1(t)=", "y=f2(t)=", "z=f3(t)="},
        {"x=f1(a,t)=", "y=f2(a,t)=", "z=f3(a,t)="},
        {"R=f1(t)=", "Agh=f2(t)=", "Agv=f3(t)="},
        {"R=f1(a,t)=", "Agh=f2(a,t)=", "Agv=f3(a,t)="},
    };
    if (texte.size() > std::size_t(longueurTexte))
        return "texte de plus de 300 caractères";
    if (estGenreFonction(genre)) {
        const auto m = morceaux(texte);
        const std::size_t attendus = genre == genreExplicite ? 1 : (espace ? 3 : 2);
        if (m.size() != attendus)
            return "nombre de formules";
        for (std::size_t i = 0; i < m.size(); ++i)
            if (!commencePar(m[i], invites[genre][i]) || m[i].size() == std::string(invites[genre][i]).size())
                return std::string("formule ") + std::to_string(i + 1) + " sans l'invite " + invites[genre][i];
        return {};
    }
    struct Objet {
        int genre;
        const char* debut;
        std::size_t champs;
    };
    static const Objet objets[] = {{genreDroite, "D(M,u):[", 2},
                                   {genrePlanParametre, "P(M,u,v):[", 3},
                                   {genreSegment, "Segment:[", 2},
                                   {genrePoint, "Point:[", 1}};
    if (genre == genrePlanEquation) {
        const std::string debut = espace ? "Plan:[" : "Droite:[";
        if (commencePar(texte, debut) && texte.back() == ']')
            return {};
        return "attendu " + debut + "...]";
    }
    for (const Objet& o : objets) {
        if (o.genre != genre)
            continue;
        if (!commencePar(texte, o.debut) || texte.back() != ']')
            return std::string("attendu ") + o.debut;
        const auto m = morceaux(texte.substr(std::string(o.debut).size()));
        if (m.size() == o.champs)
            return {};
        return "nombre de points ou de vecteurs";
    }
    if (genre == genreNuagePlan || genre == genreNuageEspace) {
        const auto a = texte.find('<'), b = texte.find('<', a + 1);
        if (a == std::string::npos || b == std::string::npos || texte.find('<', b + 1) != std::string::npos)
            return "attendu g<f<h";
        return {};
    }
    return "genre inconnu";
}

// The kind and text of one source line.
Erreur lisEntree(const std::string& ligne, bool espace, Entree& e)
{
    const auto barre = ligne.find('|');
    if (barre == std::string::npos)
        return "attendu genre|texte";
    try {
        e.genre = std::stoi(ligne.substr(0, barre));
    } catch (...) {
        return "genre illisible";
    }
    e.texte = ligne.substr(barre + 1);
    return controle(e.genre, e.texte, espace);
}

Erreur lisSource(const std::string& chemin, bool espace, std::vector<Entree>& entrees)
{
    std::ifstream f(chemin);
    if (!f)
        return "impossible de lire " + chemin;
    std::string ligne;
    for (int numero = 1; std::getline(f, ligne); ++numero) {
        if (!ligne.empty() && ligne.back() == '\r')
            ligne.pop_back();
        if (ligne.empty() || ligne[0] == '#')
            continue;
        Entree e;
        if (auto erreur = lisEntree(ligne, espace, e))
            return chemin + ":" + std::to_string(numero) + " : " + erreur.message();
        entrees.push_back(e);
    }
    return {};
}

// The catalogue's bytes built in memory, then written whole: a failure
// leaves the previous catalogue as it was.
Erreur ecrisCatalogue(const std::string& chemin, const std::string& octets)
{
    std::error_code ec;
    fs::create_directories(fs::path(chemin).parent_path(), ec);
    return ecrisFichierEntier(chemin, octets);
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if ((argc != 4 && argc != 5) || (mode != "espace" && mode != "plan")) {
        std::fprintf(stderr, "Usage : fabrique_galerie espace|plan SOURCE CATALOGUE [COPIE]\n");
        return 2;
    }
    std::vector<Entree> entrees;
    Erreur erreur = lisSource(argv[2], mode == "espace", entrees);
    std::string octets;
    for (const Entree& e : entrees)
        octets += octetsEnregistrement(LigneCatalogue{static_cast<std::int16_t>(e.genre), e.texte});
    if (!erreur)
        erreur = ecrisCatalogue(argv[3], octets);
    // The user's copy is written only when nothing is at its name.
    std::error_code ec;
    if (!erreur && argc == 5 && !fs::exists(fs::symlink_status(argv[4], ec)))
        erreur = ecrisCatalogue(argv[4], octets);
    if (erreur) {
        std::fprintf(stderr, "fabrique_galerie : %s\n", erreur.message().c_str());
        return 1;
    }
    return 0;
}
