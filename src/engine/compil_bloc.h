// Flat code of a compiled formula, run over a block of points at once: each
// instruction loops over the whole block, so the cost of choosing the
// operation is paid once per block instead of once per point.
//
// The flat code only computes plain arithmetic. Whenever a lane meets a
// non-finite intermediate value (overflow, division by zero, a domain
// error), or a lane where a fast path is not sure to give the bits of the
// library function, the lane is marked: the caller then evaluates that point
// again with the exact evaluator of the tree, which applies the failure
// rules. So a lane that is not marked holds exactly the value the tree gives.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velorin::compil {

struct Arbre;

enum class Code : std::uint8_t {
    Ajoute,     // a + b
    Soustrait,  // a - b
    Multiplie,  // a * b
    Divise,     // a / b
    Oppose,     // -a
    PlusZero,   // 0 + a: a sum that starts from 0 turns -0 into +0
    Puissance,  // pow(a, b)
    Carre,      // pow(a, b) with b == 2 (b is the register holding 2)
    Cube,       // pow(a, b) with b == 3
    Sinus,
    Cosinus,
    Tangente,
    Exponentielle,
    Logarithme,
    ArcTangente,
    Absolu,           // |a|
    Plancher,         // floor(a)
    RacineSinonZero,  // sqrt(a) when a >= 0, else 0
    Exact,            // tree node `noeud`, evaluated lane by lane
};

struct Instruction {
    Code code;
    std::uint8_t arbre = 0;  // which formula's tree `noeud` belongs to
    std::uint16_t dest = 0, a = 0, b = 0;
    std::int32_t noeud = -1;
};

// Registers 0, 1, 2 are the three variables (u, v, w); the constants follow
// (register premiereConstante + k holds constantes[k]); then the temporaries.
struct Programme {
    static constexpr std::uint16_t premiereConstante = 3;
    std::vector<Instruction> code;
    std::vector<double> constantes;
    std::uint16_t nbRegistres = premiereConstante;
    // The register of each formula's value (one formula, or several
    // compiled together so that they share their common operations).
    std::vector<std::uint16_t> sorties;
    // True when the formula, unless a lane is marked, always has a value
    // (not "no value"): the runner's number is then the whole result.
    bool racineDonneUneValeur = false;
};

// Flat code of a tree: fast instructions where the nodes are plain
// arithmetic and the usual functions, `Exact` instructions elsewhere.
Programme traduisArbre(const Arbre& arbre);
// One flat code for several trees of the same family (at most 255), each
// operation common to them computed once; sorties[k] is tree k's value.
Programme traduisArbres(const Arbre* const* arbres, std::size_t nombre);

// Largest block the runner handles at once, and the size of its work area.
inline constexpr std::size_t blocMax = 256;
inline constexpr std::size_t zoneBloc = 8192;

// Number of points per block for this program (0 when it needs more
// registers than the work area holds: the caller then goes point by point).
std::size_t tailleBloc(const Programme& p);

// Which machine code runs the loops: AVX2 when the processor has it
// (Auto), or the portable code: the same loops compiled for the baseline
// processor (SSE2 on x86-64, plain scalar code elsewhere). Both round every
// operation alike (no fused multiply-add), so their results are the same
// bits.
enum class Jeu : std::uint8_t { Auto, Portable };

// True when Jeu::Auto runs the AVX2 loops: an x86 processor with AVX2 and
// a build that does not force the portable code (VELORIN_PORTABLE).
bool avx2EnService();

// Runs the program over n <= tailleBloc(p) points. sorties[k][i] gets the
// value of formula k (tree arbres[k]) at point i; douteux[i] tells whether
// the point must be evaluated again by the exact path. Returns true when at
// least one must.
bool executeBloc(const Programme& p, const Arbre* const* arbres, const double* u, const double* v, const double* w,
                 double* const* sorties, bool* douteux, std::size_t n, Jeu jeu = Jeu::Auto);

// Registers the one-point runner holds: a program with more goes through
// the tree.
inline constexpr std::size_t registresPoint = 256;

// Runs the program of one tree for one point (nbRegistres <=
// registresPoint). `douteux` is set when the point must be evaluated again
// by the exact path.
double executePoint(const Programme& p, const Arbre& arbre, double u, double v, double w, bool& douteux);

// Clears the upper halves of the vector registers when the processor has
// them: ordinary SSE code runs many times slower while they are dirty, which
// some libraries (drawing code among them) leave behind. Nothing elsewhere.
void nettoieRegistresVectoriels();

}  // namespace velorin::compil
