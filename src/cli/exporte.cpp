// `velorin exporte`: draws catalogue entries or a saved figure into a PNG,
// SVG, PDF file, a TikZ picture, the text journal of the recording surface or a figure file,
// without a display; with --tour,
// every redraw of a full turn of the view into an animated GIF or numbered
// files.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>

#include <unistd.h>

#include "base/chemins.h"
#include "cli/commandes.h"
#include "cli/rendu.h"
#include "qt/dossiers.h"
#include "settings/memoire.h"
#include "view/rotation.h"

namespace fs = std::filesystem;

namespace velorin {

namespace {

constexpr const char* kUsage =
    "Usage : velorin exporte [--dossier DOSSIER] [--plan] [--parametres FICHIER] [--taille LxH] [--ordre 0-3]\n"
    "                        (--catalogue FICHIER.lsu --entree N [--entree N ...] | --figure FICHIER.fig)\n"
    "                        --sortie FICHIER.(png|svg|pdf|tex|txt|fig) [--rendu STYLE] [--chrono]\n"
    "       velorin exporte ... --tour AXE --sortie (ANIM.gif | IMAGES_%03d.(png|svg|pdf|txt))\n"
    "                        AXE : oz+, oz-, oy+, oy-, ox+, ox-, vision+ ou vision-\n"
    "  --figure : la figure est dessinée à la taille de sa fenêtre (sauf --taille), labels compris ;\n"
    "             son catalogue est cherché dans --dossier, sinon dans le dossier des courbes de son mode.\n"
    "  --sortie FICHIER.fig : la figure de ce qui est dessiné ; FICHIER.txt : le journal des opérations\n"
    "             (LINE, PSET, CIRCLE, PRINT, CLEAR et FACE, une face pleine).\n"
    "  --rendu STYLE : filaire (fil de fer), pointilles (parties cachées en pointillés), effaces\n"
    "             (parties cachées effacées) ou faces (faces ombrées) ; sans --rendu, le style du\n"
    "             « rendu.txt » à côté des paramètres, sinon filaire. Hors filaire, chaque surface\n"
    "             est calculée en entier avant d'être dessinée.\n"
    "  --sortie FICHIER.tex [--largeur 12cm] [--autonome] : une figure TikZ de cette largeur (cm ou mm),\n"
    "             à \\input dans un document LaTeX, ou avec --autonome un document complet d'une page.\n";

int erreur(const std::string& texte)
{
    std::fprintf(stderr, "velorin exporte : %s\n", texte.c_str());
    return 2;
}

bool litEntier(const char* texte, int& valeur)
{
    const char* fin = texte + std::strlen(texte);
    auto [p, ec] = std::from_chars(texte, fin, valeur);
    return ec == std::errc() && p == fin;
}

// The names of the drawing styles, in the order of StyleRendu.
constexpr const char* nomsRendus[] = {"filaire", "pointilles", "effaces", "faces"};

bool litTaille(const std::string& texte, int& largeur, int& hauteur)
{
    const auto x = texte.find_first_of("xX");
    if (x == std::string::npos)
        return false;
    return litEntier(texte.substr(0, x).c_str(), largeur) && litEntier(texte.substr(x + 1).c_str(), hauteur);
}

// The step of a long export on the error output when it is a terminal, one
// line rewritten in place from two seconds on, ended by a new line; nothing
// at all for a script or a test reading the error output.
class Progression {
public:
    void operator()(const std::string& etape)
    {
        if (!terminal_ || etape == montree_ || std::chrono::steady_clock::now() - debut_ < std::chrono::seconds(2))
            return;
        std::fprintf(stderr, "\r%s", etape.c_str());
        std::fflush(stderr);
        montree_ = etape;
    }
    void fin()
    {
        if (!montree_.empty())
            std::fputc('\n', stderr);
        montree_.clear();
    }

private:
    std::chrono::steady_clock::time_point debut_ = std::chrono::steady_clock::now();
    bool terminal_ = isatty(STDERR_FILENO) != 0;
    std::string montree_;
};

// Draws the request, says the warnings and the times, and gives the status.
int termine(DemandeRendu& d, bool chrono)
{
    const FormatSortie format = formatSortie(d.sortie);
    if (format != FormatSortie::Texte && format != FormatSortie::Figure)
        assureApplication();
    Progression progression;
    d.progression = std::ref(progression);
    const ResultatRendu r = rendu(d);
    progression.fin();
    for (const std::string& remarque : r.remarques)
        std::fprintf(stderr, "velorin exporte : %s\n", remarque.c_str());
    if (!r.avertissement.empty())
        std::fprintf(stderr, "velorin exporte : %s\n", r.avertissement.c_str());
    if (chrono && d.figure.empty() && !d.entrees.empty()) {
        // A turn draws every entry once per picture.
        const std::size_t n = d.entrees.size();
        for (std::size_t i = 0; i < r.dureesMs.size(); ++i) {
            if (d.tour >= 0 && i % n == 0)
                std::fprintf(stderr, "image %zu :\n", i / n + 1);
            std::fprintf(stderr, "entrée %d : %.1f ms\n", d.entrees[i % n], r.dureesMs[i]);
        }
    } else if (chrono) {
        for (std::size_t i = 0; i < r.dureesMs.size(); ++i)
            std::fprintf(stderr, "courbe tracée %zu : %.1f ms\n", i + 1, r.dureesMs[i]);
    }
    if (r.erreur)
        return erreur(r.erreur.message());
    return 0;
}

}  // namespace

int commandeExporte(int argc, char** argv)
{
    DemandeRendu d;
    std::string dossier, catalogue, figure;
    bool chrono = false, parametresDonnes = false, optionTex = false;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        const bool avecValeur = option == "--dossier" || option == "--parametres" || option == "--taille" ||
                                option == "--catalogue" || option == "--entree" || option == "--figure" ||
                                option == "--sortie" || option == "--ordre" || option == "--tour" ||
                                option == "--largeur" || option == "--rendu";
        if (avecValeur && i + 1 >= argc)
            return erreur("l'option " + option + " attend une valeur\n" + kUsage);
        if (option == "--plan")
            d.espace = false;
        else if (option == "--chrono")
            chrono = true;
        else if (option == "--autonome")
            d.tex.autonome = optionTex = true;
        else if (option == "--largeur") {
            const std::optional<double> cm = largeurTex(argv[++i]);
            if (!cm)
                return erreur(std::string("largeur incorrecte « ") + argv[i] +
                              " » : écrivez par exemple 12cm ou 90mm (de 0,5 à 500 cm)");
            d.tex.largeurCm = *cm;
            optionTex = true;
        }
        else if (option == "--dossier")
            dossier = argv[++i];
        else if (option == "--parametres") {
            d.parametres = argv[++i];
            parametresDonnes = true;
        } else if (option == "--catalogue")
            catalogue = argv[++i];
        else if (option == "--figure")
            figure = argv[++i];
        else if (option == "--sortie")
            d.sortie = argv[++i];
        else if (option == "--taille") {
            if (!litTaille(argv[++i], d.largeurPx, d.hauteurPx))
                return erreur(std::string("taille incorrecte « ") + argv[i] + " » : écrivez par exemple 1024x768");
            d.tailleDonnee = true;
        } else if (option == "--ordre") {
            if (!litEntier(argv[++i], d.ordreBoucles) || d.ordreBoucles < 0 || d.ordreBoucles > 3)
                return erreur(std::string("ordre des boucles incorrect « ") + argv[i] + " » : 0, 1, 2 ou 3");
        } else if (option == "--rendu") {
            const std::string nom = argv[++i];
            const auto trouve = std::find(std::begin(nomsRendus), std::end(nomsRendus), nom);
            if (trouve == std::end(nomsRendus))
                return erreur("style de rendu inconnu « " + nom + " » : filaire, pointilles, effaces ou faces");
            d.style = static_cast<StyleRendu>(trouve - std::begin(nomsRendus));
        } else if (option == "--tour") {
            d.tour = tourDeNom(argv[++i]);
            if (d.tour < 0)
                return erreur(std::string("axe de tour inconnu « ") + argv[i] +
                              " » : oz+, oz-, oy+, oy-, ox+, ox-, vision+ ou vision-");
        } else if (option == "--entree") {
            int n = 0;
            if (!litEntier(argv[++i], n) || n < 1)
                return erreur(std::string("numéro d'entrée incorrect « ") + argv[i] + " »");
            d.entrees.push_back(n);
        } else {
            return erreur("option inconnue « " + option + " »\n" + kUsage);
        }
    }
    if (optionTex && (formatSortie(d.sortie) != FormatSortie::Tex || d.tour >= 0))
        return erreur("--largeur et --autonome ne s'emploient qu'avec une sortie .tex, sans --tour");
    const bool dossierDonne = !dossier.empty();
    const Emplacements lieux = emplacements();
    // The user's folders, made and filled from the factory files the first
    // time (nothing the user has is replaced), when they are looked in.
    auto prepare = [&]() -> Erreur { return dossierDonne ? Erreur{} : prepareDossiers(lieux.appli, lieux.usine); };
    if (!figure.empty()) {
        if (!catalogue.empty() || !d.entrees.empty() || !d.espace)
            return erreur("--figure ne s'emploie pas avec --catalogue, --entree ou --plan : la figure les donne\n" +
                          std::string(kUsage));
        if (d.sortie.empty())
            return erreur(std::string("il faut --sortie\n") + kUsage);
        d.figure = figure;
        d.dossierCatalogue = dossier;
        if (dossierDonne)
            if (auto echec = verifieDossier(dossier, "Le dossier (--dossier)"))
                return erreur(echec.message());
        if (auto echec = prepare())
            return erreur(echec.message());
        return termine(d, chrono);
    }
    if (catalogue.empty() || d.entrees.empty() || d.sortie.empty())
        return erreur(std::string("il faut --catalogue, au moins une --entree et --sortie\n") + kUsage);

    const char* sousDossier = nomsDossiers[d.espace ? 0 : 2];
    if (!dossierDonne) {
        if (auto echec = prepare())
            return erreur(echec.message());
        dossier = (fs::path(lieux.appli.toStdString()) / sousDossier).string();
    }
    fs::path chemin(catalogue);
    // The folder is checked when it is named or used: a relative catalogue
    // name is read in it.
    if (dossierDonne || chemin.is_relative()) {
        if (auto echec = verifieDossier(dossier, dossierDonne ? "Le dossier (--dossier)" : "Le dossier des courbes"))
            return erreur(echec.message());
    }
    if (chemin.is_relative())
        chemin = fs::path(dossier) / chemin;
    d.catalogue = chemin.string();
    // Parameters: the named file, else "mem.log" beside the catalogue, else
    // the factory file, else the built-in values.
    if (!parametresDonnes)
        d.parametres = memoireParDefaut(chemin.parent_path().string(), d.espace);
    return termine(d, chrono);
}

}  // namespace velorin
