// `velorin calcule`: values of one formula for groups of variable values,
// one line per group, without any window.
//
//   velorin calcule [--famille espace|plan|nuage] [--brut] [--pointx V] FORMULE [VALEUR ...]
//   velorin calcule --normalise FORMULE
//   velorin calcule [--famille espace|plan|nuage] --verifie FORMULE
//
// The formula is prepared as the editors and the plot request prepare it
// (brackets unified, cleaned and normalised, bracket count tested) unless
// --brut hands the text to the evaluator as it is. --verifie prints the
// checker's remarks on the prepared formula, one a line (exit 1 when there
// are some, 0 when there are none, 2 when one is an error: brackets refused
// or that end the program).
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/texte_sur.h"
#include "cli/commandes.h"
#include "cli/sortie_standard.h"
#include "engine/compilation.h"
#include "engine/lecture.h"
#include "engine/nombres.h"
#include "engine/normalisation.h"
#include "engine/verification.h"

namespace velorin {

namespace {

int usage(const char* raison)
{
    if (raison)
        std::fprintf(stderr, "velorin calcule : %s\n", raison);
    std::fputs("Usage : velorin calcule [--famille espace|plan|nuage] [--brut] [--pointx V] FORMULE [VALEUR ...]\n"
               "        velorin calcule --normalise FORMULE\n"
               "        velorin calcule [--famille espace|plan|nuage] --verifie FORMULE\n"
               "Les valeurs vont par groupes : espace X (=T=A) ; plan X puis T ; nuage X, Y, Z.\n"
               "Les nombres s'écrivent avec un point décimal (1.5).\n",
               stderr);
    return 2;
}

struct Demande {
    Famille famille = Famille::Espace;
    bool brut = false, normaliseSeulement = false, verifie = false;
    double pointX = 0;
    std::string formule;
    bool formuleDonnee = false;
    std::vector<double> valeurs;
};

// Reads the arguments; returns an error text, or nullptr.
const char* litArguments(int argc, char** argv, Demande& d)
{
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool suivant = i + 1 < argc;
        // After the formula, every argument is a value.
        if (d.formuleDonnee) {
            double v = 0;
            if (!lisValeurExacte(arg, v))
                return "une valeur n'est pas un nombre.";
            d.valeurs.push_back(v);
        } else if (arg == "--famille") {
            if (!suivant)
                return "--famille attend espace, plan ou nuage.";
            const std::string f = argv[++i];
            if (f == "espace")
                d.famille = Famille::Espace;
            else if (f == "plan")
                d.famille = Famille::Plan;
            else if (f == "nuage")
                d.famille = Famille::Nuage;
            else
                return "famille inconnue (espace, plan ou nuage).";
        } else if (arg == "--brut") {
            d.brut = true;
        } else if (arg == "--verifie") {
            d.verifie = true;
        } else if (arg == "--normalise") {
            d.normaliseSeulement = true;
        } else if (arg == "--pointx") {
            if (!suivant || !lisValeurExacte(argv[i + 1], d.pointX))
                return "--pointx attend un nombre.";
            ++i;
        } else if (arg.size() > 1 && arg[0] == '-' && arg[1] == '-') {
            return "option inconnue.";
        } else {
            d.formule = arg;
            d.formuleDonnee = true;
        }
    }
    if (!d.formuleDonnee)
        return "formule manquante.";
    if (d.normaliseSeulement && (!d.valeurs.empty() || d.brut))
        return "--normalise n'attend que la formule.";
    if (d.verifie && (!d.valeurs.empty() || d.brut || d.normaliseSeulement))
        return "--verifie n'attend que la formule et sa famille.";
    return nullptr;
}

std::size_t arite(Famille f)
{
    return f == Famille::Espace ? 1 : f == Famille::Plan ? 2 : 3;
}

}  // namespace

int commandeCalcule(int argc, char** argv)
{
    Demande d;
    if (const char* erreur = litArguments(argc, argv, d))
        return usage(erreur);

    std::string formule = d.formule;
    if (!d.brut)
        formule = nettoieformule(unifiecrochets(formule), 0);
    if (d.normaliseSeulement) {
        std::printf("%s\n", formule.c_str());
        return termineSortieStandard("calcule", 0);
    }
    if (d.verifie) {
        const std::vector<Remarque> remarques = verifieFormule(formule, d.famille);
        // An error (the formula refused, or the program ended by it) is red
        // on a terminal, and makes the status that of a refused formula.
        const bool couleurs = isatty(STDOUT_FILENO) && !std::getenv("NO_COLOR");
        bool erreur = false;
        for (const Remarque& r : remarques) {
            erreur = erreur || r.erreur;
            const bool rouge = r.erreur && couleurs;
            std::printf("%s%s%s\n", rouge ? "\033[31m" : "", texteRemarque(r).c_str(), rouge ? "\033[0m" : "");
        }
        return termineSortieStandard("calcule", erreur ? 2 : remarques.empty() ? 0 : 1);
    }
    if (!d.brut && !parenthesesequilibrees(formule)) {
        std::fprintf(stderr, "La formule %s est incorrecte, corrigez-la , svp\n", texteSur(d.formule).c_str());
        return 2;
    }

    // Groups of the family's arity; none at all is one group of zeros and a
    // short last group is completed with zeros.
    const std::size_t n = arite(d.famille);
    std::vector<double> valeurs = d.valeurs;
    if (valeurs.empty())
        valeurs.resize(n, 0.0);
    valeurs.resize((valeurs.size() + n - 1) / n * n, 0.0);

    // The formula is read once and its compiled form gives every value.
    const FormuleCompilee compilee(d.famille, formule);
    std::string sortie;
    for (std::size_t k = 0; k < valeurs.size(); k += n) {
        const double a = valeurs[k];
        const double b = d.famille == Famille::Espace ? d.pointX : valeurs[k + 1];
        const double c = d.famille == Famille::Nuage ? valeurs[k + 2] : 0.0;
        const Resultat r = compilee.evalue(a, b, c);
        if (r.issue == Issue::Incorrecte) {
            std::fprintf(stderr, "%s\n", messageIncorrecte(d.famille));
            return 2;
        }
        // No value is printed as the 0 the tracers store.
        sortie += texteValeur(r.lue()) + "\n";
    }
    std::fputs(sortie.c_str(), stdout);
    return termineSortieStandard("calcule", 0);
}

}  // namespace velorin
