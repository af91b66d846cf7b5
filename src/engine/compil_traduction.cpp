// From the tree of a formula to its flat code. Each register holds, for
// every point of the block, the value that the enclosing node reads from a
// node (no value reads as 0). The operations are those of the evaluator, in
// its order, so a point that meets no failure gets the same bits; points
// that meet one are marked by the runner and evaluated again exactly.
// Nodes whose reading is not plain arithmetic (integer quotient, an operator
// that gives no value, rare functions, number texts reading a variable...)
// become one `Exact` instruction that evaluates the node lane by lane.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <tuple>

#include "engine/compil_arbre.h"
#include "engine/compil_bloc.h"

namespace velorin::compil {

namespace {

std::uint64_t motif(double x)
{
    std::uint64_t b;
    std::memcpy(&b, &x, sizeof b);
    return b;
}

// Fast code for the functions whose row in the function table is one call.
bool codeFonction(Fonction f, Code& code)
{
    switch (f) {
    case Fonction::Sin: code = Code::Sinus; return true;
    case Fonction::Cos: code = Code::Cosinus; return true;
    case Fonction::Tan: code = Code::Tangente; return true;
    case Fonction::Exp: code = Code::Exponentielle; return true;
    case Fonction::Ln: code = Code::Logarithme; return true;
    case Fonction::Atn: code = Code::ArcTangente; return true;
    case Fonction::Abs: code = Code::Absolu; return true;
    case Fonction::Ent: code = Code::Plancher; return true;
    case Fonction::Rac: code = Code::RacineSinonZero; return true;
    default: return false;
    }
}

bool operationSimple(char op)
{
    return op == '+' || op == '-' || op == '*' || op == '/' || op == '^';
}

bool operationValide(char op)
{
    return operationSimple(op) || op == '\\';
}

// True when the node's reading, if it does not stop the formula, always
// ends with a value (never with no value).
bool donneUneValeur(const Arbre& a, std::int32_t k)
{
    const Noeud& n = a.noeuds[static_cast<std::size_t>(k)];
    switch (n.sorte) {
    case Sorte::Valeur:
    case Sorte::TermeConstant:
    case Sorte::Somme: return true;
    case Sorte::Terme: return n.ops[0] == '*' || n.ops[0] == '/' || n.ops[0] == '\\';
    case Sorte::Applique:
        if (n.prefixe == Prefixe::SansValeur)
            return false;
        return n.prefixe != Prefixe::Fonction || n.tete != Tete::Operation || operationValide(n.ops[1]);
    case Sorte::Operons: return operationValide(n.ops[0]);
    case Sorte::Combine3: return operationValide(n.ops[0]) && operationValide(n.ops[1]);
    case Sorte::Combine4: return operationValide(n.ops[0]) && operationValide(n.ops[1]) && operationValide(n.ops[2]);
    default: return false;
    }
}

class Traducteur {
public:
    Programme termine(const Arbre* const* arbres, std::size_t nombre)
    {
        std::vector<std::uint16_t> sorties;
        for (std::size_t k = 0; k < nombre; ++k) {
            choisit(arbres, k);
            sorties.push_back(traduis(arbre_->racine));
        }
        // Texts so long that the virtual registers would run out of
        // numbers: each formula as one exact instruction.
        if (prochainVirtuel_ >= limiteVirtuels || constantes_.size() >= limiteVirtuels) {
            code_.clear();
            constantes_.clear();
            indexConstantes_.clear();
            dejaCalcule_.clear();
            prochainVirtuel_ = 0;
            for (std::size_t k = 0; k < nombre; ++k) {
                choisit(arbres, k);
                sorties[k] = exact(arbre_->racine);
            }
        }
        Programme p = alloue(sorties);
        p.racineDonneUneValeur = nombre == 1 && donneUneValeur(*arbres[0], arbres[0]->racine);
        return p;
    }

private:
    const Arbre* arbre_ = nullptr;  // the tree being translated
    std::uint8_t rangArbre_ = 0;
    std::vector<Instruction> code_;  // on virtual registers
    std::vector<double> constantes_;
    std::map<std::uint64_t, std::uint16_t> indexConstantes_;
    // Operations already emitted (code, operands) -> their register: an
    // operation common to several places is computed once.
    std::map<std::tuple<Code, std::uint16_t, std::uint16_t>, std::uint16_t> dejaCalcule_;
    std::size_t prochainVirtuel_ = 0;

    void choisit(const Arbre* const* arbres, std::size_t k)
    {
        arbre_ = arbres[k];
        rangArbre_ = static_cast<std::uint8_t>(k);
    }

    // Virtual registers: 0..2 the variables, then 0x8000 + k for constant k,
    // then 0x4000 + n for temporary n.
    static constexpr std::uint16_t marqueConstante = 0x8000, marqueTemporaire = 0x4000;
    static constexpr std::size_t limiteVirtuels = 0x3000;

    std::uint16_t constante(double x)
    {
        const auto it = indexConstantes_.find(motif(x));
        if (it != indexConstantes_.end())
            return it->second;
        const auto r = static_cast<std::uint16_t>(marqueConstante + std::min(constantes_.size(), limiteVirtuels));
        constantes_.push_back(x);
        indexConstantes_[motif(x)] = r;
        return r;
    }

    bool estConstante(std::uint16_t r, double x) const
    {
        return r >= marqueConstante && motif(constantes_[r - marqueConstante]) == motif(x);
    }

    std::uint16_t emet(Code c, std::uint16_t a, std::uint16_t b = 0, std::int32_t noeud = -1)
    {
        // Plain arithmetic on constants is done now (the same IEEE operation
        // gives the same bits), unless it fails: the lanes must then be marked.
        if (a >= marqueConstante && (b >= marqueConstante || b < Programme::premiereConstante)) {
            const double x = constantes_[a - marqueConstante];
            const double y = b >= marqueConstante ? constantes_[b - marqueConstante] : 0.0;
            double r = std::numeric_limits<double>::quiet_NaN();
            switch (c) {
            case Code::Ajoute: r = x + y; break;
            case Code::Soustrait: r = x - y; break;
            case Code::Multiplie: r = x * y; break;
            case Code::Divise: r = x / y; break;
            case Code::Oppose: r = -x; break;
            case Code::PlusZero: r = x + 0.0; break;
            default: break;
            }
            if (std::isfinite(r) && (b >= marqueConstante || c == Code::Oppose || c == Code::PlusZero))
                return constante(r);
        }
        const auto cle = std::make_tuple(c, a, b);
        if (c != Code::Exact) {
            const auto it = dejaCalcule_.find(cle);
            if (it != dejaCalcule_.end())
                return it->second;
        }
        Instruction i;
        i.code = c;
        i.arbre = rangArbre_;
        i.a = a;
        i.b = b;
        i.noeud = noeud;
        i.dest =
            static_cast<std::uint16_t>(marqueTemporaire + std::min<std::size_t>(prochainVirtuel_++, limiteVirtuels));
        code_.push_back(i);
        if (c != Code::Exact)
            dejaCalcule_[cle] = i.dest;
        return i.dest;
    }

    std::uint16_t exact(std::int32_t noeud) { return emet(Code::Exact, 0, 0, noeud); }

    // pow(a, b); the powers 1, 2 and 3 of a constant exponent have their
    // own paths (pow(a, 1) is a itself).
    std::uint16_t puissance(std::uint16_t a, std::uint16_t b)
    {
        if (estConstante(b, 1))
            return a;
        if (estConstante(b, 2))
            return emet(Code::Carre, a, b);
        if (estConstante(b, 3))
            return emet(Code::Cube, a, b);
        return emet(Code::Puissance, a, b);
    }

    // operons(op, a, b) for a simple operator.
    std::uint16_t operation(char op, std::uint16_t a, std::uint16_t b)
    {
        switch (op) {
        case '+': return emet(Code::Ajoute, a, b);
        case '-': return emet(Code::Soustrait, a, b);
        case '*': return emet(Code::Multiplie, a, b);
        case '/': return emet(Code::Divise, a, b);
        default: return puissance(a, b);
        }
    }

    const Noeud& noeud(std::int32_t k) const { return arbre_->noeuds[static_cast<std::size_t>(k)]; }

    std::uint16_t traduis(std::int32_t k)
    {
        const Noeud& n = noeud(k);
        switch (n.sorte) {
        case Sorte::Valeur: return constante(n.x);
        case Sorte::Terme: return terme(k, n);
        case Sorte::Somme: return somme(n);
        case Sorte::Applique: return applique(k, n);
        case Sorte::Operons:
            if (!operationSimple(n.ops[0]))
                return exact(k);
            return operation(n.ops[0], traduis(n.enfants[0]), traduis(n.enfants[1]));
        case Sorte::Combine3: return combine3(k, n);
        case Sorte::Combine4: return combine4(k, n);
        default: return exact(k);
        }
    }

    std::uint16_t terme(std::int32_t k, const Noeud& n)
    {
        const Noeud& c = noeud(n.enfants[0]);
        const Noeud& e = noeud(n.enfants[1]);
        if ((n.ops[0] != '*' && n.ops[0] != '/') || c.sorte != Sorte::Valeur || e.sorte != Sorte::Valeur)
            return exact(k);
        const std::uint16_t w = puissance(static_cast<std::uint16_t>(n.rang), constante(e.x));
        if (n.ops[0] == '/')
            return emet(Code::Divise, constante(c.x), w);
        // 1 x w is w itself.
        if (motif(c.x) == motif(1.0))
            return w;
        return emet(Code::Multiplie, constante(c.x), w);
    }

    // 0 + s1 t1 + s2 t2 + ..., left to right.
    std::uint16_t somme(const Noeud& n)
    {
        std::uint16_t s = 0;
        for (std::int32_t i = 0; i < n.nombre; ++i) {
            const TermeSigne& t = arbre_->listeTermes[static_cast<std::size_t>(n.debut + i)];
            const std::uint16_t r = traduis(t.noeud);
            if (i == 0)
                s = t.signe > 0 ? emet(Code::PlusZero, r) : emet(Code::Soustrait, constante(0), r);
            else
                s = emet(t.signe > 0 ? Code::Ajoute : Code::Soustrait, s, r);
        }
        return s;
    }

    std::uint16_t applique(std::int32_t k, const Noeud& n)
    {
        Code f = Code::Exact;
        const bool fonctionRapide = n.prefixe != Prefixe::Fonction || codeFonction(n.fonction, f);
        const bool teteRapide =
            n.prefixe != Prefixe::Fonction || n.tete != Tete::Operation || operationSimple(n.ops[1]);
        const bool operationRapide = n.prefixe != Prefixe::Operation || operationSimple(n.ops[0]);
        if (!fonctionRapide || !teteRapide || !operationRapide)
            return exact(k);
        // The bracket is read first, whatever the prefix does with it.
        const std::uint16_t w = traduis(n.enfants[0]);
        switch (n.prefixe) {
        case Prefixe::Identite: return w;
        case Prefixe::Constante: return constante(n.x);
        case Prefixe::SansValeur: return constante(0);
        case Prefixe::Operation: return operation(n.ops[0], constante(n.x), w);
        case Prefixe::Fonction: break;
        }
        const std::uint16_t v = emet(f, w);
        switch (n.tete) {
        case Tete::Aucune: return v;
        case Tete::Moins: return emet(Code::Oppose, v);
        case Tete::HorsCalcul: return constante(horsCalcul);
        case Tete::Operation: break;
        }
        return operation(n.ops[1], constante(n.x), v);
    }

    std::uint16_t combine3(std::int32_t k, const Noeud& n)
    {
        if (!operationSimple(n.ops[0]) || !operationSimple(n.ops[1]))
            return exact(k);
        const std::uint16_t a = traduis(n.enfants[0]), b = traduis(n.enfants[1]), c = traduis(n.enfants[2]);
        if (n.ops[0] == '+' || n.ops[0] == '-')
            return operation(n.ops[0], a, operation(n.ops[1], b, c));
        return operation(n.ops[1], operation(n.ops[0], a, b), c);
    }

    std::uint16_t combine4(std::int32_t k, const Noeud& n)
    {
        const char o1 = n.ops[0], o2 = n.ops[1], o3 = n.ops[2];
        if (!operationSimple(o1) || !operationSimple(o2) || !operationSimple(o3))
            return exact(k);
        const std::uint16_t a = traduis(n.enfants[0]), b = traduis(n.enfants[1]), c = traduis(n.enfants[2]),
                            d = traduis(n.enfants[3]);
        auto additif = [](char op) { return op == '+' || op == '-'; };
        if (additif(o1)) {
            const std::uint16_t bcd =
                additif(o2) ? operation(o2, b, operation(o3, c, d)) : operation(o3, operation(o2, b, c), d);
            return operation(o1, a, bcd);
        }
        if (additif(o2))
            return operation(o2, operation(o1, a, b), operation(o3, c, d));
        return operation(o3, operation(o2, operation(o1, a, b), c), d);
    }

    // Virtual registers to real ones: the constants after the variables,
    // then the temporaries, a temporary's register being free again after
    // its last reading (never the one an instruction writes: the runner's
    // loops read and write different arrays).
    Programme alloue(const std::vector<std::uint16_t>& sorties)
    {
        Programme p;
        p.constantes = constantes_;
        const auto premiereTemp = static_cast<std::uint16_t>(Programme::premiereConstante + constantes_.size());
        std::map<std::uint16_t, std::size_t> derniereLecture;
        for (std::size_t i = 0; i < code_.size(); ++i) {
            derniereLecture[code_[i].a] = i;
            derniereLecture[code_[i].b] = i;
        }
        for (std::uint16_t sortie : sorties)
            derniereLecture[sortie] = code_.size();
        std::map<std::uint16_t, std::uint16_t> reel;
        std::vector<std::uint16_t> libres;
        std::uint16_t suivant = premiereTemp;
        auto vers = [&](std::uint16_t r) -> std::uint16_t {
            if (r < Programme::premiereConstante)
                return r;
            if (r >= marqueConstante)
                return static_cast<std::uint16_t>(Programme::premiereConstante + r - marqueConstante);
            return reel.at(r);
        };
        for (std::size_t i = 0; i < code_.size(); ++i) {
            Instruction ins = code_[i];
            ins.a = vers(ins.a);
            ins.b = vers(ins.b);
            std::uint16_t d;
            if (libres.empty()) {
                d = suivant++;
            } else {
                d = libres.back();
                libres.pop_back();
            }
            reel[ins.dest] = d;
            ins.dest = d;
            p.code.push_back(ins);
            for (std::uint16_t lu : {code_[i].a, code_[i].b})
                if (lu >= marqueTemporaire && lu < marqueConstante && derniereLecture[lu] == i &&
                    std::find(libres.begin(), libres.end(), reel[lu]) == libres.end())
                    libres.push_back(reel[lu]);
            // A result nobody reads frees its register at once.
            if (derniereLecture.find(code_[i].dest) == derniereLecture.end())
                libres.push_back(d);
        }
        for (std::uint16_t sortie : sorties)
            p.sorties.push_back(vers(sortie));
        p.nbRegistres = suivant;
        return p;
    }
};

}  // namespace

Programme traduisArbre(const Arbre& arbre)
{
    const Arbre* arbres[] = {&arbre};
    return Traducteur().termine(arbres, 1);
}

Programme traduisArbres(const Arbre* const* arbres, std::size_t nombre)
{
    return Traducteur().termine(arbres, nombre);
}

}  // namespace velorin::compil
