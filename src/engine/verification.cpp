#include "engine/verification.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "engine/nombres.h"

namespace velorin {

namespace {

const char* nomFamille(Famille f)
{
    return f == Famille::Espace ? "de l'espace" : f == Famille::Plan ? "du plan" : "des nuages";
}

// "(" + texte + ")", built by appending (a literal in front of a
// std::string makes GCC 12 warn wrongly about overlapping copies).
std::string entre(std::string_view texte)
{
    std::string r;
    r.reserve(texte.size() + 2);
    r += '(';
    r += texte;
    r += ')';
    return r;
}

bool estLettre(char c)
{
    return c >= 'A' && c <= 'Z';
}

// A number as the reader takes it whole: "-2", "1.5", "2E3", "P", "-3P/4",
// "1/4". Anything else is read only up to its first unexpected character.
bool nombreSimple(std::string_view s)
{
    if (!s.empty() && s[0] == '-')
        s.remove_prefix(1);
    if (s.empty())
        return false;
    const std::size_t barre = s.find('/');
    const std::string_view haut = s.substr(0, barre);
    if (barre != std::string_view::npos && !estNombre(s.substr(barre + 1)))
        return false;
    if (!haut.empty() && haut.back() == 'P')
        return haut.size() == 1 || estNombre(haut.substr(0, haut.size() - 1));
    return estNombre(haut);
}

// A decimal text without exponent: m x 10^-n.
std::string decimale(double m, int n)
{
    char tampon[64];
    std::snprintf(tampon, sizeof tampon, "%.*f", std::min(n + 12, 30), m * std::pow(10.0, -n));
    std::string s = tampon;
    while (s.find('.') != std::string::npos && (s.back() == '0' || s.back() == '.'))
        s.pop_back();
    return s;
}

std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> d(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        d[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diag = d[0];
        d[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t haut = d[j];
            d[j] = std::min({d[j] + 1, d[j - 1] + 1, diag + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diag = haut;
        }
    }
    return d[b.size()];
}

// The known name nearest to an unknown one, when it is close.
std::string_view nomVoisin(std::string_view nom)
{
    static const std::string_view connus[] = {
        "ABS",   "SIN",  "SQR",  "TG",   "COTG",    "INT",     "SINUS",   "COSINUS",   "COS",    "TAN",
        "COTAN", "LN",   "LOG",  "EXP",  "RAC",     "ATN",     "ARCTAN",  "ARCSIN",    "ARCCOS", "ARCCOTAN",
        "SINH",  "COSH", "TANH", "COTH", "ARCSINH", "ARCCOSH", "ARCTANH", "ARCCOTANH", "ENT"};
    std::string_view meilleur;
    std::size_t d = 3;
    for (std::string_view c : connus) {
        const std::size_t e = distance(nom, c);
        if (e < d) {
            d = e;
            meilleur = c;
        }
    }
    return meilleur;
}

// A value and its text, for the two readings of operators between groups.
struct Lu {
    double v;
    std::string t;
};

Lu joint(const Lu& a, char op, const Lu& b, bool entoure)
{
    const Resultat r = operons(op, a.v, b.v);
    std::string t = a.t + op + b.t;
    return {r.lue(), entoure ? entre(t) : t};
}

int rangOp(char op)
{
    return (op == '+' || op == '-') ? 1 : op == '^' ? 3 : 2;
}

// School reading: "^" first (to the right), then "*" "/" "\", then "+" "-",
// each level to the left.
Lu ecole(std::vector<Lu> v, std::vector<char> ops)
{
    for (int niveau = 3; niveau >= 1; --niveau) {
        if (niveau == 3) {
            for (std::size_t k = ops.size(); k-- > 0;)
                if (rangOp(ops[k]) == 3) {
                    v[k] = joint(v[k], ops[k], v[k + 1], true);
                    v.erase(v.begin() + static_cast<std::ptrdiff_t>(k) + 1);
                    ops.erase(ops.begin() + static_cast<std::ptrdiff_t>(k));
                }
            continue;
        }
        for (std::size_t k = 0; k < ops.size();)
            if (rangOp(ops[k]) == niveau) {
                v[k] = joint(v[k], ops[k], v[k + 1], ops.size() > 1);
                v.erase(v.begin() + static_cast<std::ptrdiff_t>(k) + 1);
                ops.erase(ops.begin() + static_cast<std::ptrdiff_t>(k));
            } else {
                ++k;
            }
    }
    return v[0];
}

// The evaluator's reading (combine3, combine4).
Lu moteur(const std::vector<Lu>& v, const std::vector<char>& o)
{
    auto add = [](char op) { return op == '+' || op == '-'; };
    if (v.size() == 2)
        return joint(v[0], o[0], v[1], false);
    if (v.size() == 3)
        return add(o[0]) ? joint(v[0], o[0], joint(v[1], o[1], v[2], true), false)
                         : joint(joint(v[0], o[0], v[1], true), o[1], v[2], false);
    if (add(o[0]))
        return joint(v[0], o[0], moteur({v[1], v[2], v[3]}, {o[1], o[2]}), false);
    if (add(o[1]))
        return joint(joint(v[0], o[0], v[1], true), o[1], joint(v[2], o[2], v[3], true), false);
    const Lu gauche = moteur({v[0], v[1], v[2]}, {o[0], o[1]});
    return joint({gauche.v, entre(gauche.t)}, o[2], v[3], false);
}

struct Verificateur {
    Famille f;
    std::string texte;
    std::vector<Remarque> remarques;

    void ajoute(std::size_t pos, std::string message, std::string proposition = {}, bool erreur = false)
    {
        remarques.push_back({pos, std::move(message), std::move(proposition), erreur});
    }
    // Brackets the evaluator cannot cut into groups: it stops, with its
    // message, and the program ends.
    void arret(std::size_t pos, const std::string& faute, std::string proposition = {})
    {
        ajoute(pos, faute + " : au tracé, le programme dira « " + messageIncorrecte(f) + " » et s'arrêtera.",
               std::move(proposition), true);
    }
    std::string remplace(std::size_t debut, std::size_t longueur, std::string_view par) const
    {
        std::string r = texte;
        r.replace(debut, longueur, par);
        return r;
    }
    std::string morceau(std::size_t debut, std::size_t fin) const { return texte.substr(debut, fin - debut); }

    void crochets(std::size_t debut, std::size_t fin);
    void texteNonLu(std::size_t ferme, std::size_t fin);
    void groupesCote(std::size_t debut, std::size_t fin, const std::vector<Groupe>& g);
    void prefixe(std::size_t debut, std::size_t ouvre, std::size_t ferme);
    void somme(std::size_t debut, std::size_t fin);
    void terme(std::size_t debut, std::size_t fin);
};

void Verificateur::crochets(std::size_t debut, std::size_t fin)
{
    const std::string_view t = std::string_view(texte).substr(debut, fin - debut);
    const auto ouvrantes = static_cast<std::size_t>(std::count(t.begin(), t.end(), '('));
    const auto fermantes = static_cast<std::size_t>(std::count(t.begin(), t.end(), ')'));
    if (ouvrantes != fermantes) {
        ajoute(debut,
               std::to_string(ouvrantes) + " « ( » pour " + std::to_string(fermantes) + " « ) » : la formule est refusée.",
               {}, true);
        return;
    }
    if (ouvrantes == 0)
        return somme(debut, fin);
    if (ouvrantes > pairesMax(f)) {
        ajoute(debut, std::to_string(ouvrantes) + " paires de parenthèses : la famille " + nomFamille(f) +
                          " en lit au plus " + std::to_string(pairesMax(f)) +
                          " ; la formule ne donne aucune valeur (lue 0).");
        return;
    }
    bool ordre = true;
    const std::vector<Groupe> g = groupes(t, ordre);
    if (!ordre) {
        arret(debut, "une « ) » ferme avant son « ( »");
        return;
    }
    if (g.size() > 1)
        return groupesCote(debut, fin, g);
    const std::size_t ouvre = debut + g[0].ouvre, ferme = debut + g[0].ferme;
    if (ferme + 1 < fin)
        texteNonLu(ferme, fin);
    prefixe(debut, ouvre, ferme);
    if (ouvrantes == 1)
        somme(ouvre + 1, ferme);
    else
        crochets(ouvre + 1, ferme);
}

// The text after the bracket closed at `ferme`, up to `fin`, is not read;
// an operator and a flat rest can be put in a group of their own.
void Verificateur::texteNonLu(std::size_t ferme, std::size_t fin)
{
    const std::string apres = morceau(ferme + 1, fin);
    std::string proposition;
    if (apres.size() > 1 && estOperateur(apres[0]) && apres.find_first_of("()") == std::string::npos)
        proposition = remplace(ferme + 2, apres.size() - 1, entre(apres.substr(1)));
    ajoute(ferme + 1, "« " + apres + " » après la dernière parenthèse n'est pas lu.", proposition);
}

void Verificateur::groupesCote(std::size_t debut, std::size_t fin, const std::vector<Groupe>& g)
{
    std::vector<Lu> valeurs;
    std::vector<char> ops;
    std::vector<std::size_t> positionsOps;
    static const double essais[4] = {1.37, 2.91, 0.53, 1.79};
    std::size_t d = debut;
    for (std::size_t k = 0; k < g.size(); ++k) {
        const std::size_t ferme = debut + g[k].ferme;
        crochets(d, ferme + 1);
        valeurs.push_back({essais[k], morceau(d, ferme + 1)});
        if (k + 1 == g.size()) {
            if (ferme + 1 < fin)
                texteNonLu(ferme, fin);
            break;
        }
        const char op = texte[ferme + 1];
        if (!estOperateur(op)) {
            // The piece after it then lacks its "(": the evaluator stops.
            if (op == '(')
                arret(ferme + 1, "il manque un opérateur entre deux groupes", remplace(ferme + 1, 0, "*"));
            else
                ajoute(ferme + 1, "il manque un opérateur entre deux groupes : le produit n'est pas implicite.",
                       remplace(ferme + 1, 0, "*"));
            return;
        }
        ops.push_back(op);
        positionsOps.push_back(ferme + 1);
        d = ferme + 2;
    }
    if (ops.size() < 2)
        return;
    const Lu lu = moteur(valeurs, ops), attendu = ecole(valeurs, ops);
    if (std::fabs(lu.v - attendu.v) <= 1e-9 * std::max(1.0, std::fabs(attendu.v)))
        return;
    // The school grouping in brackets when the family reads that many pairs;
    // otherwise, for sums of groups, the same groups with the signs the
    // right grouping needs.
    std::string proposition = remplace(debut, fin - debut, attendu.t);
    const bool additifs = std::all_of(ops.begin(), ops.end(), [](char op) { return op == '+' || op == '-'; });
    if (static_cast<std::size_t>(std::count(proposition.begin(), proposition.end(), '(')) > pairesMax(f)) {
        proposition.clear();
        if (additifs) {
            proposition = texte;
            bool precedentMoins = false;
            for (std::size_t k = 0; k < ops.size(); ++k) {
                const bool moins = ops[k] == '-';
                proposition[positionsOps[k]] = moins != precedentMoins ? '-' : '+';
                precedentMoins = moins;
            }
        }
    }
    std::string message =
        "entre groupes, « + » « - » se groupent à droite et « ^ » ne passe pas avant « * » « / » : lu " + lu.t + ".";
    if (!proposition.empty() && proposition.size() == texte.size())
        message += " L'écriture proposée compte avec ce groupement.";
    ajoute(debut + g[0].ferme + 1, message, proposition);
}

void Verificateur::prefixe(std::size_t debut, std::size_t ouvre, std::size_t ferme)
{
    const std::string p = morceau(debut, ouvre);
    if (p.empty())
        return;
    const std::string dedans = morceau(ouvre + 1, ferme);
    const std::string racine3 = entre(dedans) + "^(1/3)";
    if (estOperateur(p.back())) {
        const std::string n = p.substr(0, p.size() - 1);
        if (!n.empty() && !nombreSimple(n))
            ajoute(debut,
                   "devant « " + std::string(1, p.back()) + "( », « " + n +
                       " » n'est pas lu comme attendu : seul un nombre y est lu.",
                   remplace(debut, n.size(), entre(n)));
        return;
    }
    std::size_t i = p.size();
    while (i > 0 && estLettre(p[i - 1]))
        --i;
    const std::string nom = p.substr(i), tete = p.substr(0, i);
    if (p.size() == 1 && estChiffre(p[0])) {
        ajoute(debut, "un chiffre devant une parenthèse vaut ce chiffre seul.", remplace(ouvre, 0, "*"));
        return;
    }
    if (nom.empty()) {
        if (p.size() >= 4 && p.substr(p.size() - 4) == "RAC3")
            ajoute(ouvre - 4, "« RAC3 » ne donne aucune valeur (un nom finissant par un chiffre n'est pas lu).",
                   remplace(ouvre - 4, ferme - ouvre + 5, racine3));
        else if (estNombre(p))
            ajoute(debut, "un nombre collé à une parenthèse ne donne aucune valeur.", remplace(ouvre, 0, "*"));
        else
            ajoute(debut, "« " + p + " » devant une parenthèse ne donne aucune valeur.");
        return;
    }
    if (fonctionNommee(nom) == Fonction::Aucune) {
        std::string proposition;
        if (nom == "CUBR")
            proposition = remplace(debut + i, ferme - debut - i + 1, racine3);
        else if (const std::string_view v = nomVoisin(nom); !v.empty())
            proposition = remplace(debut + i, nom.size(), v);
        ajoute(debut + i, "fonction inconnue « " + nom + " » : aucune valeur.", proposition);
        return;
    }
    if (tete.size() == 1 && tete[0] != '-') {
        std::string proposition;
        if (tete == "3" && nom == "SQR")
            proposition = remplace(debut, ferme - debut + 1, racine3);
        else if (tete == "+")
            proposition = remplace(debut, 1, "");
        else if (estChiffre(tete[0]))
            proposition = remplace(debut + 1, 0, "*");
        ajoute(debut, "« " + tete + " » seul devant « " + nom + " » donne 1E9 (seul « - » y est lu).", proposition);
    } else if (tete.size() > 1 && (!estOperateur(tete.back()) || !nombreSimple(tete.substr(0, tete.size() - 1)))) {
        ajoute(debut, "devant « " + nom + " », « " + tete +
                          " » n'est pas lu comme attendu : seul un nombre suivi d'un opérateur y est lu.");
    }
}

void Verificateur::somme(std::size_t debut, std::size_t fin)
{
    std::vector<std::size_t> bornes{debut};
    for (std::size_t p = debut; p < fin; ++p)
        if (texte[p] == '+' || texte[p] == '-')
            bornes.push_back(p + 1);
    bornes.push_back(fin + 1);
    for (std::size_t k = 0; k + 1 < bornes.size(); ++k) {
        const std::size_t a = bornes[k], b = bornes[k + 1] - 1;  // piece [a, b), sign at b
        const bool moinsApres = b < fin && texte[b] == '-';
        const std::size_t suite =
            moinsApres ? b + 1 + longueurNombre(std::string_view(texte).substr(b + 1, fin - b - 1)) : b;
        const bool nombreApres = moinsApres && suite > b + 1 && texte[b + 1] != '-' && texte[b + 1] != '+';
        if (nombreApres && b > a + 1 && texte[b - 1] == 'E' && (estChiffre(texte[b - 2]) || texte[b - 2] == '.')) {
            std::size_t m = b - 1;
            while (m > a && (estChiffre(texte[m - 1]) || texte[m - 1] == '.'))
                --m;
            bool echec = false;
            const double mantisse = nombreEnTete(morceau(m, b - 1), echec);
            const int n = static_cast<int>(nombreEnTete(morceau(b + 1, suite), echec));
            ajoute(b - 1,
                   "« E- » : le « - » coupe le nombre (« " + morceau(m, suite) + " » est lu " + morceau(m, b - 1) +
                       " - " + morceau(b + 1, suite) + ").",
                   echec ? std::string() : remplace(m, suite - m, decimale(mantisse, n)));
            continue;
        }
        if (nombreApres && b > a && texte[b - 1] == '^') {
            const std::string piece = morceau(a, b - 1);
            const FormeTerme forme = formeTerme(f, piece);
            std::string proposition;
            if (forme.genres == 1 && forme.posVariable == piece.size() && (forme.op == '*' || forme.op == '/')) {
                std::string c = forme.posVariable > 1 ? piece.substr(0, forme.posVariable - 2) : "1";
                const char op = forme.op == '*' ? '/' : '*';
                proposition = remplace(a, suite - a, c + op + piece.back() + "^" + morceau(b + 1, suite));
            }
            ajoute(b - 1, "« ^- » : le « - » coupe l'exposant (lu comme une soustraction).", proposition);
            continue;
        }
        terme(a, b);
    }
}

void Verificateur::terme(std::size_t debut, std::size_t fin)
{
    const std::string t = morceau(debut, fin);
    if (t.empty())
        return;
    const FormeTerme forme = formeTerme(f, t);
    if (forme.genres >= 2) {
        std::string proposition;
        for (std::size_t k = t.size(); k-- > 1;)
            if ((t[k] == '*' || t[k] == '/') && formeTerme(f, t.substr(0, k)).genres == 1 &&
                formeTerme(f, t.substr(k + 1)).genres == 1) {
                proposition = remplace(debut, t.size(), entre(t.substr(0, k)) + t[k] + entre(t.substr(k + 1)));
                break;
            }
        ajoute(debut, "« " + t + " » tient deux variables : il est lu comme un nombre.", proposition);
        return;
    }
    if (forme.genres == 0) {
        if (t == "P")
            ajoute(debut, "« P » seul vaut la première variable, pas pi.", remplace(debut, 1, "1P"));
        else if (t.size() == 1 && !estChiffre(t[0]))
            ajoute(debut, "« " + t + " » n'est pas une variable " + nomFamille(f) + " : il vaut la première variable.");
        else if (!nombreSimple(t) && t.back() != 'E')
            ajoute(debut, "« " + t + " » n'est lu que jusqu'à son premier caractère inattendu.");
        return;
    }
    const std::size_t v = forme.posVariable - 1;  // 0-based
    if (forme.op != '*' && forme.op != '/' && forme.op != '\\') {
        ajoute(debut + v - 1, "produit implicite : « " + t + " » ne donne aucune valeur.", remplace(debut + v, 0, "*"));
        return;
    }
    if (v > 1 && !nombreSimple(t.substr(0, v - 1)))
        ajoute(debut, "devant « " + std::string(1, t[v]) + " », « " + t.substr(0, v - 1) +
                          " » n'est pas lu comme attendu : seul un nombre y est lu.");
    const std::string apres = t.substr(v + 1);
    if (apres.empty())
        return;
    if (apres[0] == '^' && nombreSimple(apres.substr(1)))
        return;
    std::string proposition;
    if (apres.size() > 1 && (apres[0] == '/' || apres[0] == '*') && nombreSimple(apres.substr(1)) && v == 0)
        proposition = remplace(debut, t.size(), (apres[0] == '/' ? "1" + apres : apres.substr(1)) + "*" + t[v]);
    ajoute(debut + v + 1, "« " + apres + " » après la variable n'est pas lu comme attendu.", proposition);
}

}  // namespace

namespace {

// The normalisation takes the "E" of an exponent for the function E( ):
// "1.5E2" becomes "(1.5)*E2", which is not 150. Remarks for each such
// number; true when there was one (the rest of the text is then misleading).
bool exposantsCoupes(Verificateur& v)
{
    const std::string& t = v.texte;
    bool vu = false;
    for (std::size_t p = t.find(")*E"); p != std::string::npos; p = t.find(")*E", p + 1)) {
        const std::size_t ouvre = t.rfind('(', p);
        if (ouvre == std::string::npos || !estNombre(t.substr(ouvre + 1, p - ouvre - 1)))
            continue;
        std::size_t fin = p + 3;
        const bool moins = fin < t.size() && t[fin] == '-';
        if (moins)
            ++fin;
        const std::size_t n = longueurNombre(std::string_view(t).substr(fin));
        if (n == 0 || !estChiffre(t[fin]))
            continue;
        bool echec = false;
        const double mantisse = nombreEnTete(t.substr(ouvre + 1, p - ouvre - 1), echec);
        const double exposant = nombreEnTete(t.substr(fin, n), echec);
        const std::string nombre = t.substr(ouvre + 1, p - ouvre - 1) + "E" + t.substr(p + 3, fin + n - p - 3);
        std::string proposition;
        if (!echec && exposant < 300)
            proposition = v.remplace(
                ouvre, fin + n - ouvre,
                decimale(mantisse * (moins ? 1.0 : std::pow(10.0, exposant)), moins ? static_cast<int>(exposant) : 0));
        v.ajoute(ouvre, "« " + nombre + " » : le « E » est pris pour la fonction E( ), le nombre n'est pas lu.",
                 proposition);
        vu = true;
    }
    return vu;
}

}  // namespace

std::vector<Remarque> verifieFormule(std::string_view formule, Famille famille)
{
    Verificateur v{famille, majuscules(formule), {}};
    if (!v.texte.empty()) {
        const bool coupes = exposantsCoupes(v);
        const auto avant = static_cast<std::ptrdiff_t>(v.remarques.size());
        v.crochets(0, v.texte.size());
        // After a cut exponent the rest of the reading misleads: only what
        // stops the evaluator is kept.
        if (coupes)
            v.remarques.erase(std::remove_if(v.remarques.begin() + avant, v.remarques.end(),
                                             [](const Remarque& r) { return !r.erreur; }),
                              v.remarques.end());
    }
    std::stable_sort(v.remarques.begin(), v.remarques.end(),
                     [](const Remarque& a, const Remarque& b) { return a.position < b.position; });
    return v.remarques;
}

std::string texteRemarque(const Remarque& r)
{
    std::string s = "position " + std::to_string(r.position + 1) + " : " + r.texte;
    if (!r.proposition.empty())
        s += " Écrivez : " + r.proposition;
    return s;
}

}  // namespace velorin
