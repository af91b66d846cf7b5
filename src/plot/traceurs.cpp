#include "plot/traceurs.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/points.h"
#include "plot/point_trace.h"
#include "settings/texte_nombre.h"
#include "view/projection.h"

namespace velorin {

namespace {

// A counted loop as the drawings have always walked it: the variable starts
// at `debut` and the step is added at each turn, in the precision T, while
// the variable has not gone past `fin`. A step of the wrong sign walks no
// value; a zero step, a bound or step that is not finite, or a step too small
// to move the variable is refused, so that no walk can hang.
template <typename T> struct Boucle {
    T debut, fin, pas;

    bool valide() const
    {
        return std::isfinite(debut) && std::isfinite(fin) && std::isfinite(pas) && pas != 0 && debut + pas != debut;
    }
    // Number of values walked (an estimate, for the cap on points).
    double nombre() const
    {
        if (!valide())
            return 0;
        const double n = std::floor((double(fin) - double(debut)) / double(pas)) + 1;
        return n > 0 ? n : 0;
    }
    // Calls f(v) for every value; stops and answers false when f does.
    template <typename F> bool parcourt(F&& f) const
    {
        for (T v = debut; pas > 0 ? v <= fin : v >= fin;) {
            if (!f(v))
                return false;
            const T suivant = v + pas;
            if (suivant == v)  // the step no longer moves the variable
                break;
            v = suivant;
        }
        return true;
    }
};

// Why the walk of `nom` cannot be traced, in words, or nothing when it is
// merely empty: a bound beyond its partner, a zero step, a step of the wrong
// sign, or a count `compte` ("nbrCalX") that is 0 or negative draws nothing
// and says nothing. What is said is a walk that could never end or be
// counted: a bound, step or count that is not finite, or a step too small to
// move the variable. No number that is not finite ever reaches the message.
template <typename T>
std::string messageBoucle(const char* nom, const Boucle<T>& b, const char* compte, double valeurCompte)
{
    const std::string debut = std::string("L'intervalle de ") + nom;
    const std::string rien = " : rien n'est tracé.";
    if (!std::isfinite(b.debut) || !std::isfinite(b.fin))
        return debut + " n'a pas des bornes finies" + rien;
    const std::string bornes = " (de " + texteCourt(b.debut) + " à " + texteCourt(b.fin);
    if (compte && !std::isfinite(valeurCompte))
        return debut + bornes + ") ne donne aucun point car le nombre de calculs " + compte +
               " n'est pas un nombre fini" + rien;
    if (compte && valeurCompte <= 0)
        return {};
    if (!std::isfinite(b.pas))
        return debut + bornes + ") ne donne aucun point car le pas n'est pas un nombre fini" + rien;
    if (b.pas != 0 && b.debut + b.pas == b.debut)
        return debut + bornes + ") ne donne aucun point car le pas de " + texteCourt(b.pas) +
               " est trop petit pour faire avancer " + nom + rien;
    return {};
}

// Whether the walk can be traced: false when it gives no point or more than
// maxPointsTrace points for the whole tracing, with `fin.erreur` saying why
// (or empty, for an empty walk).
template <typename T>
bool traceable(FinTrace& fin, const char* nom, const Boucle<T>& b, double points, const char* compte = nullptr,
               double valeurCompte = 0)
{
    if (b.nombre() == 0) {
        if (std::string message = messageBoucle(nom, b, compte, valeurCompte); !message.empty())
            fin.erreur = std::move(message);
        return false;
    }
    if (points > maxPointsTrace) {
        // Whole numbers in full: no exponent, no "inf" for a count too large to say.
        const std::string maximum = std::to_string(static_cast<long long>(maxPointsTrace));
        fin.erreur = points < 1e15 ? "Trop de points à calculer (" + std::to_string(static_cast<long long>(points)) +
                                         ") : au plus " + maximum + " par tracé. Augmentez le pas."
                                   : "Trop de points à calculer (plus de " + maximum + " par tracé). Augmentez le pas.";
        return false;
    }
    return true;
}

// Bookkeeping of one tracing: counts the points, stops at a formula error
// and asks the interruption hook every few hundred points.
class Tracage {
public:
    // A tracing starts with the pen up and, until a tracer computes one, the
    // tangent ends both on the image of (0, 0).
    Tracage(Etat& e, Surface& s, const CrochetsTrace& c) : etat(e), surface(s), crochets(c)
    {
        EtatTrace& t = e.trace;
        t.tangenteX1 = t.tangenteX2 = e.vue.origineEcranX;
        t.tangenteY1 = t.tangenteY2 = e.vue.origineEcranY;
        t.nbVisiblesSuite = 0;
    }

    // After each evaluation: false when the tracing must stop.
    bool continuer()
    {
        if (!etat.moteur.erreurFormule.empty()) {
            fin.erreur = etat.moteur.erreurFormule;
            return false;
        }
        if (++points % pointsEntreInterrogations == 0 && crochets.interrompu && crochets.interrompu()) {
            fin.interrompu = true;
            return false;
        }
        return true;
    }

    // Pen up and counter back to 0: the start of a new curve.
    void nouvelleCourbe()
    {
        etat.trace.nbVisiblesSuite = 0;
        compteur = 0;
    }

    // Hands the point at (sx, sy) to the point step, marked on the tenth.
    void pose(double sx, double sy, Couleur couleur)
    {
        etat.trace.ecranX = sx;
        etat.trace.ecranY = sy;
        if (compteur == 10) {
            tracePoint(etat, surface, 1, couleur, crochets);
            compteur = 0;
        } else {
            tracePoint(etat, surface, 0, couleur, crochets);
        }
    }

    // The evaluated point (pointX, pointY, pointZ) of a parametric or family
    // tracer: projected, then drawn only when admitted. A point that cannot
    // be projected or is refused is simply not drawn: the pen stays as it
    // is, so the next admitted point is joined to the last one drawn (only
    // the point step lifts the pen, at points outside the drawing area and
    // at long jumps).
    // Answers whether the point was admitted, its image then in (sx, sy).
    bool poseEvalue(Couleur couleur, double& sx, double& sy)
    {
        const GlobalesMoteur& m = etat.moteur;
        const bool projete =
            projette(etat.param, etat.vue, etat.fenetre.modeEspace, m.pointX, m.pointY, m.pointZ, sx, sy);
        return poseProjete(projete, sx, sy, couleur);
    }
    // The same for a point already projected (projete: its image is (sx, sy)).
    bool poseProjete(bool projete, double sx, double sy, Couleur couleur)
    {
        ++compteur;
        const GlobalesMoteur& m = etat.moteur;
        if (!projete || !pointAdmis(etat, sx, sy, m.pointX, m.pointY, m.pointZ))
            return false;
        etat.trace.espace = {m.pointX, m.pointY, m.pointZ};
        pose(sx, sy, couleur);
        return true;
    }

    Etat& etat;
    Surface& surface;
    const CrochetsTrace& crochets;
    FinTrace fin;
    long long points = 0;
    int compteur = 0;
};

// Surface image of (x, y) for the explicit curve: the plane map written out,
// or (x, y, 0) through the projection in space.
bool imageExplicite(const Etat& etat, double x, double y, double& sx, double& sy)
{
    if (!etat.fenetre.modeEspace) {
        sx = etat.vue.decalX + etat.vue.echelleX * x;
        sy = etat.vue.decalY - etat.vue.echelleY * y;
        return true;
    }
    return projette(etat.param, etat.vue, true, x, y, 0, sx, sy);
}

// Tangent of the explicit curve at (x, y): slope by a forward difference of
// step pasX/20, a segment of half length demiTangente in range units on each
// side of the point. Leaves pointX, pointY as they were.
void calculeTangente(Etat& etat, double x, double y)
{
    EtatTrace& t = etat.trace;
    GlobalesMoteur& m = etat.moteur;
    pointcourbe(m, x + t.pasX / 20);
    const double pente = (m.pointY - y) * 20 / t.pasX;
    const double phi = std::atan(pente);
    double x1, y1;
    if (imageExplicite(etat, x + t.demiTangente * std::cos(phi), y + t.demiTangente * std::sin(phi), x1, y1)) {
        t.tangenteX1 = x1;
        t.tangenteY1 = y1;
        t.tangenteX2 = 2 * t.ecranX - x1;
        t.tangenteY2 = 2 * t.ecranY - y1;
    }
    m.pointX = x;
    m.pointY = y;
}

// Single curve of parameter t (kinds 1 and 3).
FinTrace traceCourbeT(Etat& etat, Surface& surface, const CrochetsTrace& crochets,
                      void (*evalue)(GlobalesMoteur&, double, bool))
{
    const Parametres& p = etat.param;
    const Boucle<double> bt{p.tmin, p.tmax, p.pasT};
    if (FinTrace refus; !traceable(refus, "t", bt, bt.nombre()))
        return refus;
    Tracage tr(etat, surface, crochets);
    bt.parcourt([&](double t) {
        evalue(etat.moteur, t, etat.fenetre.modeEspace);
        if (!tr.continuer())
            return false;
        double sx, sy;
        tr.poseEvalue(etat.couleurs.couleurTrace, sx, sy);
        return true;
    });
    return tr.fin;
}

void evalueParametre(GlobalesMoteur& m, double t, bool espace)
{
    pointparametre(m, t, 1, espace);
}
void evaluePolaire(GlobalesMoteur& m, double t, bool espace)
{
    pointpolaire(m, t, espace);
}

// A point of a family's (a, t) grid: the point of space, and its image when
// it was admitted.
struct Sommet {
    Point3 p;
    double sx, sy;
    bool admis;
};

// The faces of a family: each quad of four admitted neighbours of the
// (a, t) grid, gathered from two successive curves of a pass, its corners
// always in the order (a, t), (a+, t), (a+, t+), (a, t+) whatever the pass,
// so that its front side is the same. A quad across a jump (an edge too
// long to be joined) is no face.
struct FacesFamille {
    bool actives = false, aExterieur = false;
    std::vector<Sommet> precedent, rang;

    void commence(bool oui, bool parA)
    {
        actives = oui;
        aExterieur = parA;
        precedent.clear();
        rang.clear();
    }

    void finCourbe(const Etat& etat, Surface& surface, Couleur couleur)
    {
        if (!actives)
            return;
        const std::size_t n = std::min(precedent.size(), rang.size());
        for (std::size_t k = 0; k + 1 < n; ++k) {
            // Outer curve before and after, inner point k and k + 1.
            const Sommet* q[4] = {&precedent[k], &rang[k], &rang[k + 1], &precedent[k + 1]};
            if (!aExterieur)
                std::swap(q[1], q[3]);
            Point3 sommets[4];
            double xs[4], ys[4];
            bool face = true;
            for (int c = 0; c < 4 && face; ++c) {
                const Sommet& s = *q[c];
                const Sommet& suivant = *q[(c + 1) % 4];
                face = s.admis && sautAdmissible(etat.vue, s.sx, s.sy, suivant.sx, suivant.sy);
                sommets[c] = s.p;
                xs[c] = s.sx;
                ys[c] = s.sy;
            }
            if (face)
                surface.FaceEspace(sommets, xs, ys, 4, couleur);
        }
        std::swap(precedent, rang);
        rang.clear();
    }
};

// A family of curves of (a, t) (kinds 2 and 4), in the loop order
// ordreBoucles: 0 a outer, 1 t outer, 2 both (trellis) in the family colour,
// 3 both with the t-outer curves red and the a-outer curves green. t is
// walked in double precision, a in single precision (bounds, step and
// variable), which decides how many values of a are reached.
FinTrace traceFamille(Etat& etat, Surface& surface, const CrochetsTrace& crochets, bool spherique)
{
    const Parametres& p = etat.param;
    const Boucle<double> bt{p.tmin, p.tmax, p.pasT};
    const Boucle<float> ba{float(p.amin), float(p.amax), float(p.pasA)};
    const int ordre = p.ordreBoucles & 3;
    const double points = bt.nombre() * ba.nombre() * (ordre >= 2 ? 2 : 1);
    if (FinTrace refus; !traceable(refus, "t", bt, 0) || !traceable(refus, "a", ba, points))
        return refus;

    Tracage tr(etat, surface, crochets);
    FacesFamille faces;
    int moirure = 0;
    auto debutCourbe = [&] {
        tr.nouvelleCourbe();
        if (etat.param.avecMoirure) {
            moirure = moirureSuivante(moirure);
            etat.couleurs.couleurFamille = QBColor(moirure);
        }
    };
    // The points of a curve are gathered a block at a time, evaluated and
    // projected together (the values are those of the point-by-point
    // entries), then drawn in order.
    constexpr std::size_t taille = 256;
    double us[taille], vs[taille], xs[taille], ys[taille], zs[taille], sxs[taille], sys[taille];
    bool projetes[taille];
    std::size_t n = 0;
    auto vide = [&] {
        GlobalesMoteur& m = etat.moteur;
        const std::size_t nb = n;
        n = 0;
        // After a formula error nothing is drawn (continuer stops at once).
        if (pointsFamille(m, spherique, us, vs, xs, ys, zs, nb))
            projettePoints(etat.param, etat.vue, etat.fenetre.modeEspace, xs, ys, zs, nb, sxs, sys, projetes);
        for (std::size_t i = 0; i < nb; ++i) {
            m.pointX = xs[i];
            m.pointY = ys[i];
            m.pointZ = zs[i];
            if (!tr.continuer())
                return false;
            Sommet s{{xs[i], ys[i], zs[i]}, sxs[i], sys[i], false};
            s.admis = tr.poseProjete(projetes[i], sxs[i], sys[i], etat.couleurs.couleurFamille);
            if (faces.actives)
                faces.rang.push_back(s);
        }
        return true;
    };
    auto point = [&](double a, double t) {
        us[n] = a;
        vs[n] = t;
        return ++n < taille || vide();
    };
    auto courbe = [&](auto&& parcours) {
        debutCourbe();
        const bool suite = parcours() && (n == 0 || vide());
        faces.finCourbe(etat, surface, etat.couleurs.couleurFamille);
        return suite;
    };
    // The faces come with the first pass only: one face per quad of the grid.
    const bool avecFaces = etat.fenetre.modeEspace && renduCache(etat.rendu);
    auto passeAExterieur = [&] {
        faces.commence(avecFaces && (ordre == 0), true);
        return ba.parcourt(
            [&](float a) { return courbe([&] { return bt.parcourt([&](double t) { return point(a, t); }); }); });
    };
    auto passeTExterieur = [&] {
        faces.commence(avecFaces && ordre >= 1, false);
        return bt.parcourt(
            [&](double t) { return courbe([&] { return ba.parcourt([&](float a) { return point(a, t); }); }); });
    };

    switch (ordre) {
    case 0: passeAExterieur(); break;
    case 1: passeTExterieur(); break;
    case 2:
        if (passeTExterieur())
            passeAExterieur();
        break;
    default:
        etat.couleurs.couleurFamille = 255;
        if (passeTExterieur()) {
            etat.couleurs.couleurFamille = 65280;
            passeAExterieur();
        }
    }
    return tr.fin;
}

}  // namespace

int moirureSuivante(int compteur)
{
    ++compteur;
    return compteur >= 16 ? 2 : compteur;
}

FinTrace traceExplicite(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    const Parametres& p = etat.param;
    EtatTrace& t = etat.trace;
    GlobalesMoteur& m = etat.moteur;
    t.demiTangente = std::sqrt((p.xmax - p.xmin) * (p.xmax - p.xmin) + (p.ymax - p.ymin) * (p.ymax - p.ymin)) / 8;
    t.pasX = (p.xmax - p.xmin) / p.nbrCalX;
    const Boucle<double> bx{p.xmin, p.xmax, t.pasX};
    if (FinTrace refus; !traceable(refus, "x", bx, bx.nombre(), "nbrCalX", p.nbrCalX))
        return refus;

    Tracage tr(etat, surface, crochets);
    bx.parcourt([&](double x) {
        ++tr.compteur;
        m.pointX = x;
        pointcourbe(m, x);
        if (!tr.continuer())
            return false;
        // A point that cannot be placed or (in space) is refused is not
        // drawn and leaves the pen as it is.
        double sx, sy;
        if (!imageExplicite(etat, x, m.pointY, sx, sy) ||
            (etat.fenetre.modeEspace && !pointAdmis(etat, sx, sy, x, m.pointY, 0)))
            return true;
        t.ecranX = sx;
        t.ecranY = sy;
        t.espace = {x, m.pointY, 0};
        if (tr.compteur == 10 && p.avecSegmentTangent)
            calculeTangente(etat, x, m.pointY);
        tr.pose(sx, sy, etat.couleurs.couleurTrace);
        return true;
    });
    return tr.fin;
}

FinTrace parcours1(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    return traceCourbeT(etat, surface, crochets, evalueParametre);
}

FinTrace parcours2(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    return traceFamille(etat, surface, crochets, false);
}

FinTrace parcours3(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    return traceCourbeT(etat, surface, crochets, evaluePolaire);
}

FinTrace parcours4(Etat& etat, Surface& surface, const CrochetsTrace& crochets)
{
    return traceFamille(etat, surface, crochets, true);
}

}  // namespace velorin
