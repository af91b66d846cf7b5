// Geometric objects. Every object is reduced to straight pieces of space
// (segments), each sampled into short steps that go through projette and the
// shared point step, so that the pen lifts where a piece leaves the drawing
// area exactly as for the curves. Lines and planes are infinite: they are cut
// to the frame's box (the x, y, z ranges; z = 0 in the plane).
//
// Drawing rules chosen here:
// - objects are always drawn as solid lines, whatever the dotted-trace
//   option, and without the per-point pause (they appear at once);
// - a point is its pixel plus a small cross, and it gets the projection marks
//   of the drawing options like every tenth point of a curve;
// - a plane is a lattice of 21 + 21 lines parallel to its two directions,
//   passing through its point M;
// - an object outside the frame's box draws nothing and is no error.
#include "plot/objets.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

#include "base/texte_sur.h"
#include "catalogue/genre.h"
#include "engine/lecture.h"
#include "engine/nombres.h"
#include "plot/point_trace.h"
#include "view/projection.h"

namespace velorin {

namespace {

constexpr const char* kVecteurNul = "PAS POCHIBLE AVEC UNE NULLITE DE VECTEUR NUL";
constexpr const char* kColineaires = "pas pochible,vecteurs colinéaires";
constexpr int kPasParSegment = 200;  // steps of one straight piece
constexpr int kLignesParSens = 20;   // lattice intervals across the box
constexpr double kBrasCroix = 75;    // half size of a point's cross (5 px)

// ---- Number forms ---------------------------------------------------------

// Reads digits [ "." digits ] or "." digits from i; true when at least one
// digit was read.
bool litDecimal(const std::string& s, std::size_t& i)
{
    std::size_t chiffres = 0;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
        ++i;
        ++chiffres;
    }
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
            ++i;
            ++chiffres;
        }
    }
    return chiffres > 0;
}

// The number forms a coordinate may take (upper case): [sign] decimal
// [E [sign] digits], [sign] [decimal] P [/ decimal], [sign] decimal / decimal.
bool estFormeNombre(const std::string& s)
{
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '-' || s[i] == '+'))
        ++i;
    const bool avecDecimal = litDecimal(s, i);
    if (i < s.size() && s[i] == 'P') {
        ++i;
    } else if (!avecDecimal) {
        return false;
    } else if (i < s.size() && s[i] == 'E') {
        ++i;
        if (i < s.size() && (s[i] == '-' || s[i] == '+'))
            ++i;
        std::size_t debut = i;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
            ++i;
        return i > debut && i == s.size();
    }
    if (i < s.size() && s[i] == '/') {
        ++i;
        if (!litDecimal(s, i))
            return false;
    }
    return i == s.size();
}

// Value of a number form through the number reader; empty when the text is
// no number form or its value is not finite. A lone "P" (which the number
// reader would read as its default value) is pi, as a user means it.
std::optional<double> lisValeur(std::string texte)
{
    texte = majuscules(texte);
    if (!estFormeNombre(texte))
        return std::nullopt;
    if (texte[0] == '+')
        texte.erase(0, 1);
    if (texte == "P")
        texte = "1P";
    bool echec = false;
    const double v = lisnombre(texte, 0.0, echec);
    if (echec || !std::isfinite(v))
        return std::nullopt;
    return v;
}

// ---- Vectors and the frame's box ------------------------------------------

Vecteur3 plus(const Vecteur3& a, const Vecteur3& b, double k = 1)
{
    return {a[0] + k * b[0], a[1] + k * b[1], a[2] + k * b[2]};
}
double scalaire(const Vecteur3& a, const Vecteur3& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
Vecteur3 vectoriel(const Vecteur3& a, const Vecteur3& b)
{
    Vecteur3 c;
    produitVectoriel(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]);
    return c;
}
bool estNul(const Vecteur3& u)
{
    return u[0] == 0 && u[1] == 0 && u[2] == 0;
}
bool colineaires(const Vecteur3& u, const Vecteur3& v)
{
    const Vecteur3 w = vectoriel(u, v);
    return scalaire(w, w) <= 1e-12 * scalaire(u, u) * scalaire(v, v);
}

struct Boite {
    Vecteur3 bas, haut;
};

Boite boiteCadre(const Etat& e)
{
    const Parametres& p = e.param;
    Boite b;
    b.bas = {std::min(p.xmin, p.xmax), std::min(p.ymin, p.ymax), 0};
    b.haut = {std::max(p.xmin, p.xmax), std::max(p.ymin, p.ymax), 0};
    if (e.fenetre.modeEspace) {
        b.bas[2] = std::min<double>(p.zmin, p.zmax);
        b.haut[2] = std::max<double>(p.zmin, p.zmax);
    }
    return b;
}

// Cuts the line M + s u to the box: [s0, s1], empty when it misses the box.
bool coupeBoite(const Boite& b, const Vecteur3& m, const Vecteur3& u, double& s0, double& s1)
{
    s0 = -INFINITY;
    s1 = INFINITY;
    for (int i = 0; i < 3; ++i) {
        const double marge = 1e-9 * (b.haut[i] - b.bas[i] + 1);
        if (std::abs(u[i]) <= 1e-15 * std::sqrt(scalaire(u, u))) {
            if (m[i] < b.bas[i] - marge || m[i] > b.haut[i] + marge)
                return false;
            continue;
        }
        double a = (b.bas[i] - m[i]) / u[i], c = (b.haut[i] - m[i]) / u[i];
        if (a > c)
            std::swap(a, c);
        s0 = std::max(s0, a);
        s1 = std::min(s1, c);
    }
    return std::isfinite(s0) && std::isfinite(s1) && s0 <= s1;
}

// ---- Drawing --------------------------------------------------------------

class Dessin {
public:
    Dessin(Etat& e, Surface& s, const CrochetsTrace& c)
        : etat_(e), surface_(s), crochets_(c), continuAvant_(e.param.traceContinu)
    {
        crochets_.pause = nullptr;
        etat_.param.traceContinu = 1;
    }
    ~Dessin() { etat_.param.traceContinu = continuAvant_; }
    Dessin(const Dessin&) = delete;
    Dessin& operator=(const Dessin&) = delete;

    bool interrompu() const { return crochets_.interrompu && crochets_.interrompu(); }

    // One point through projette and the point step; false when it cannot
    // be projected (the pen is lifted).
    bool point(const Vecteur3& p, int marque)
    {
        GlobalesMoteur& m = etat_.moteur;
        m.pointX = p[0];
        m.pointY = p[1];
        m.pointZ = p[2];
        double sx = 0, sy = 0;
        if (!projette(etat_.param, etat_.vue, etat_.fenetre.modeEspace, p[0], p[1], p[2], sx, sy)) {
            etat_.trace.nbVisiblesSuite = 0;
            return false;
        }
        etat_.trace.ecranX = sx;
        etat_.trace.ecranY = sy;
        etat_.trace.espace = {p[0], p[1], p[2]};
        tracePoint(etat_, surface_, marque, etat_.couleurs.couleurTrace, crochets_);
        return true;
    }

    void segment(const Vecteur3& a, const Vecteur3& b)
    {
        etat_.trace.nbVisiblesSuite = 0;
        for (int k = 0; k <= kPasParSegment; ++k)
            point(plus(a, plus(b, a, -1), double(k) / kPasParSegment), 0);
    }

    void croix(const Vecteur3& p)
    {
        // The point step draws a tangent on a marked point; a point has
        // none: both ends go on the image of (0, 0), as for every tracer
        // that computes no tangent.
        etat_.trace.tangenteX1 = etat_.trace.tangenteX2 = etat_.vue.origineEcranX;
        etat_.trace.tangenteY1 = etat_.trace.tangenteY2 = etat_.vue.origineEcranY;
        etat_.trace.nbVisiblesSuite = 0;
        if (!point(p, 1) || etat_.trace.pointVisible != 1)
            return;
        const double x = etat_.trace.ecranX, y = etat_.trace.ecranY;
        const Couleur c = etat_.couleurs.couleurTrace;
        // The cross is hidden or seen with its point.
        const Point3 a{p[0], p[1], p[2]};
        surface_.LineEspace(x - kBrasCroix, y - kBrasCroix, x + kBrasCroix, y + kBrasCroix, a, a, c);
        surface_.LineEspace(x - kBrasCroix, y + kBrasCroix, x + kBrasCroix, y - kBrasCroix, a, a, c);
    }

    // The part of the line M + s u inside the frame's box.
    void droite(const Vecteur3& m, const Vecteur3& u)
    {
        double s0 = 0, s1 = 0;
        if (coupeBoite(boiteCadre(etat_), m, u, s0, s1))
            segment(plus(m, u, s0), plus(m, u, s1));
    }

    // Lattice of the plane M + r u + s v inside the box: lines parallel to u
    // and to v through M and through its lattice neighbours.
    void plan(const Vecteur3& m, const Vecteur3& u, const Vecteur3& v)
    {
        const Boite b = boiteCadre(etat_);
        const double uu = scalaire(u, u), uv = scalaire(u, v), vv = scalaire(v, v);
        const double det = uu * vv - uv * uv;
        double rmin = INFINITY, rmax = -INFINITY, smin = INFINITY, smax = -INFINITY;
        for (int coin = 0; coin < 8; ++coin) {
            const Vecteur3 c{(coin & 1) ? b.haut[0] : b.bas[0], (coin & 2) ? b.haut[1] : b.bas[1],
                             (coin & 4) ? b.haut[2] : b.bas[2]};
            const Vecteur3 d = plus(c, m, -1);
            const double du = scalaire(d, u), dv = scalaire(d, v);
            const double r = (vv * du - uv * dv) / det, s = (uu * dv - uv * du) / det;
            rmin = std::min(rmin, r);
            rmax = std::max(rmax, r);
            smin = std::min(smin, s);
            smax = std::max(smax, s);
        }
        if (etat_.fenetre.modeEspace && renduCache(etat_.rendu))
            face(b, {plus(plus(m, u, rmin), v, smin), plus(plus(m, u, rmax), v, smin),
                     plus(plus(m, u, rmax), v, smax), plus(plus(m, u, rmin), v, smax)});
        famille(m, u, v, smin, smax);
        famille(m, v, u, rmin, rmax);
    }

private:
    // The part inside the box of the flat polygon `coins`, as a face that
    // hides what lies behind it.
    void face(const Boite& b, std::vector<Vecteur3> coins)
    {
        for (int axe = 0; axe < 3; ++axe)
            for (int cote = 0; cote < 2; ++cote) {
                // Keeps the side of the box's face: sens * (x[axe] - borne) >= 0.
                const double borne = cote == 0 ? b.bas[std::size_t(axe)] : b.haut[std::size_t(axe)];
                const double sens = cote == 0 ? 1 : -1;
                std::vector<Vecteur3> reste;
                for (std::size_t i = 0; i < coins.size(); ++i) {
                    const Vecteur3& a = coins[i];
                    const Vecteur3& c = coins[(i + 1) % coins.size()];
                    const double da = sens * (a[std::size_t(axe)] - borne), dc = sens * (c[std::size_t(axe)] - borne);
                    if (da >= 0)
                        reste.push_back(a);
                    if ((da >= 0) != (dc >= 0))
                        reste.push_back(plus(a, plus(c, a, -1), da / (da - dc)));
                }
                coins = std::move(reste);
            }
        if (coins.size() < 3)
            return;
        std::vector<Point3> sommets;
        std::vector<double> xs, ys;
        for (const Vecteur3& c : coins) {
            double sx, sy;
            if (!projette(etat_.param, etat_.vue, true, c[0], c[1], c[2], sx, sy))
                return;
            sommets.push_back({c[0], c[1], c[2]});
            xs.push_back(sx);
            ys.push_back(sy);
        }
        surface_.FaceEspace(sommets.data(), xs.data(), ys.data(), static_cast<int>(sommets.size()),
                            etat_.couleurs.couleurTrace);
    }

    // Lines M + k h w + s dir for the k with k h in [lo, hi].
    void famille(const Vecteur3& m, const Vecteur3& dir, const Vecteur3& w, double lo, double hi)
    {
        const double h = (hi - lo) / kLignesParSens;
        if (!(h > 0) || !std::isfinite(h))
            return;
        const double k0 = std::ceil(lo / h), k1 = std::floor(hi / h);
        for (double k = k0; k <= k1 && k <= k0 + kLignesParSens + 1; ++k) {
            if (interrompu())
                return;
            droite(plus(m, w, k * h), dir);
        }
    }

    Etat& etat_;
    Surface& surface_;
    CrochetsTrace crochets_;
    int continuAvant_;
};

std::string ou(const std::string& texte)
{
    return texte.empty() ? "(vide)" : texteSur(texte);
}

std::string messagePoint(const std::string& texte, bool espace)
{
    return "Point incorrect : " + ou(texte) +
           (espace ? " ; écrivez (x,y,z), par exemple (1,-2P,3)" : " ; écrivez (x,y), par exemple (1,-2P)");
}

std::string messageVecteur(const std::string& texte, bool espace)
{
    return "Vecteur incorrect : " + ou(texte) +
           (espace ? " ; écrivez (a,b,c), par exemple (0,1,P/2)" : " ; écrivez (a,b), par exemple (1,P/2)");
}

// Removes what the cutting of the entry may leave around a field: blanks and
// the closing "]" of the last piece.
std::string champ(std::string s)
{
    while (!s.empty() && (s.back() == ']' || s.back() == ' '))
        s.pop_back();
    while (!s.empty() && s.front() == ' ')
        s.erase(0, 1);
    return s;
}

}  // namespace

std::optional<Vecteur3> lisCoordonnees(const std::string& brut, bool espace)
{
    std::string texte = champ(brut);
    const bool ouvre = !texte.empty() && texte.front() == '(';
    const bool ferme = !texte.empty() && texte.back() == ')';
    if (ouvre != ferme)
        return std::nullopt;
    if (ouvre)
        texte = texte.substr(1, texte.size() - 2);
    std::vector<std::string> morceaux(1);
    for (char c : texte) {
        if (c == ',')
            morceaux.emplace_back();
        else
            morceaux.back() += c;
    }
    if (morceaux.size() != 3 && (espace || morceaux.size() != 2))
        return std::nullopt;
    Vecteur3 v{0, 0, 0};
    for (std::size_t i = 0; i < morceaux.size(); ++i) {
        const auto x = lisValeur(morceaux[i]);
        if (!x)
            return std::nullopt;
        v[i] = *x;
    }
    if (!espace)
        v[2] = 0;
    return v;
}

std::optional<Equation> lisEquation(const std::string& brut)
{
    const std::string texte = majuscules(champ(brut));
    const auto egal = texte.find('=');
    if (egal != std::string::npos && texte.find('=', egal + 1) != std::string::npos)
        return std::nullopt;
    const std::string cotes[2] = {texte.substr(0, egal), egal == std::string::npos ? "0" : texte.substr(egal + 1)};
    Equation eq;
    for (int cote = 0; cote < 2; ++cote) {
        const std::string& s = cotes[cote];
        if (s.empty())
            return std::nullopt;
        // Terms start at each sign, except the sign of an exponent ("1E-3").
        std::size_t debut = 0;
        for (std::size_t i = 0; i <= s.size(); ++i) {
            const bool signe =
                i < s.size() && (s[i] == '+' || s[i] == '-') && i > debut &&
                !(s[i - 1] == 'E' && i >= 2 && (std::isdigit(static_cast<unsigned char>(s[i - 2])) || s[i - 2] == '.'));
            if (i < s.size() && !signe)
                continue;
            std::string terme = s.substr(debut, i - debut);
            debut = i;
            double facteur = cote == 0 ? 1 : -1;
            if (!terme.empty() && (terme[0] == '+' || terme[0] == '-')) {
                if (terme[0] == '-')
                    facteur = -facteur;
                terme.erase(0, 1);
            }
            if (terme.empty())
                return std::nullopt;
            int variable = -1;
            if (terme.back() == 'X' || terme.back() == 'Y' || terme.back() == 'Z') {
                variable = terme.back() - 'X';
                terme.pop_back();
                if (!terme.empty() && terme.back() == '*') {
                    terme.pop_back();
                    if (terme.empty())
                        return std::nullopt;
                }
                if (terme.empty())
                    terme.assign(1, '1');
            }
            const auto valeur = lisValeur(terme);
            if (!valeur)
                return std::nullopt;
            if (variable < 0)
                eq.constante += facteur * *valeur;
            else
                eq.normale[variable] += facteur * *valeur;
        }
    }
    return eq;
}

Erreur lisObjet(int genre, bool espace, const std::array<std::string, 3>& champs, ObjetLu& objet)
{
    if (genre == genrePlanEquation) {
        const auto eq = lisEquation(champs[0]);
        if (!eq)
            return (espace ? "Équation de plan incorrecte : " : "Équation de droite incorrecte : ") + ou(champs[0]) +
                   (espace ? " ; écrivez par exemple 2x+3y-z+1=0" : " ; écrivez par exemple y=2x+1");
        objet.equation = *eq;
        return {};
    }
    if (!estGenreObjet(genre))
        return "Objet inconnu (genre " + std::to_string(genre) + ")";
    // M, then u and v (M2 for a segment), as far as the kind has them.
    const int lus = genre == genrePoint ? 1 : genre == genrePlanParametre ? 3 : 2;
    Vecteur3* cibles[3] = {&objet.a, &objet.u, &objet.v};
    for (int i = 0; i < lus; ++i) {
        const std::string& t = champs[std::size_t(i)];
        const auto lu = lisCoordonnees(t, espace);
        if (!lu)
            return i == 0 || genre == genreSegment ? messagePoint(t, espace) : messageVecteur(t, espace);
        *cibles[i] = *lu;
    }
    return {};
}

Erreur traceObjet(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    const bool espace = etat.fenetre.modeEspace;
    const GlobalesMoteur& m = etat.moteur;
    const int genre = etat.trace.typeTrace;

    // Read everything before drawing anything: a bad field draws nothing.
    ObjetLu o;
    if (auto erreur = lisObjet(genre, espace, {m.formuleF1, m.formuleF2, m.formuleF3}, o))
        return erreur;
    if (genre == genrePlanEquation) {
        Vecteur3 n = o.equation.normale;
        if (!espace)
            n[2] = 0;  // the plane is z = 0: a z term vanishes there
        if (estNul(n))
            return kVecteurNul;
        const Vecteur3 m0 = plus({0, 0, 0}, n, -o.equation.constante / scalaire(n, n));
        Dessin d(etat, surface, crochets);
        if (!espace) {
            d.droite(m0, {-n[1], n[0], 0});
            return {};
        }
        // Lattice directions: the plane's lines x = const and y = const, or
        // whichever two axes are the least aligned with the normal.
        int fort = 0;
        for (int i = 1; i < 3; ++i)
            if (std::abs(n[i]) > std::abs(n[fort]))
                fort = i;
        Vecteur3 axes[2];
        for (int i = 0, k = 0; i < 3; ++i) {
            if (i == fort)
                continue;
            Vecteur3 e{0, 0, 0};
            e[i] = 1;
            axes[k++] = vectoriel(n, e);
        }
        d.plan(m0, axes[0], axes[1]);
        return {};
    }
    switch (genre) {
    case genreDroite:
        if (estNul(o.u))
            return kVecteurNul;
        Dessin(etat, surface, crochets).droite(o.a, o.u);
        return {};
    case genrePlanParametre:
        if (estNul(o.u) || estNul(o.v))
            return kVecteurNul;
        if (colineaires(o.u, o.v))
            return kColineaires;
        Dessin(etat, surface, crochets).plan(o.a, o.u, o.v);
        return {};
    case genreSegment: Dessin(etat, surface, crochets).segment(o.a, o.u); return {};
    default: Dessin(etat, surface, crochets).croix(o.a); return {};
    }
}

}  // namespace velorin
