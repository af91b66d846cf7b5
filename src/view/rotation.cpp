// Rotations of the point of view. The statements follow the rotation
// procedures in their order; a statement whose arithmetic fails (the
// arctangent of second / first with first = 0) is skipped and the value it
// would have written keeps its previous content, as the rotation always did.
#include "view/rotation.h"

#include <cctype>
#include <cmath>
#include <string>

namespace velorin {

namespace {

// The two coordinates that turn about `axe`: first and second of the plane.
double premiere(const Parametres& p, Axe axe)
{
    return axe == Axe::Ox ? p.Yviseur : p.Xviseur;
}
double seconde(const Parametres& p, Axe axe)
{
    return axe == Axe::Oz ? p.Yviseur : double(p.Zviseur);
}

// Puts the viewer at `angle` on its circle of radius r.rayonRota about `axe`.
void placeViseur(Parametres& p, const EtatRotation& r, Axe axe, double angle)
{
    const double a = r.rayonRota * std::cos(angle);
    const double b = r.rayonRota * std::sin(angle);
    switch (axe) {
    case Axe::Oz:
        p.Xviseur = a;
        p.Yviseur = b;
        break;
    case Axe::Ox:
        p.Yviseur = a;
        p.Zviseur = float(b);
        break;
    case Axe::Oy:
        p.Xviseur = a;
        p.Zviseur = float(b);
        break;
    }
}

void regardeOrigine(Parametres& p)
{
    p.Xdirection = -p.Xviseur;
    p.Ydirection = -p.Yviseur;
    p.Zdirection = -double(p.Zviseur);
}

// Steps 1 and 2 of every rotation: save the viewer, take the radius and the
// start angle. A zero (or overflowing) quotient leaves angDepart as it was.
void depart(const Parametres& p, EtatRotation& r, Axe axe)
{
    r.XvDepart = p.Xviseur;
    r.YvDepart = p.Yviseur;
    r.ZvDepart = p.Zviseur;
    const double a = premiere(p, axe);
    const double b = seconde(p, axe);
    r.rayonRota = std::sqrt(a * a + b * b);
    if (a != 0) {
        const double q = b / a;
        if (std::isfinite(q))
            r.angDepart = std::atan(q);
    }
}

Axe axeDuTour(int axeTour)
{
    switch (axeTour < 0 ? -axeTour : axeTour) {
    case 1: return Axe::Ox;
    case 2: return Axe::Oy;
    default: return Axe::Oz;
    }
}

}  // namespace

bool tournicoti(Parametres& p, EtatRotation& r, Axe axe, int mode, int sens)
{
    depart(p, r, axe);
    if (axe == Axe::Oz) {
        if (std::fabs(r.angDepart - r.angPrec) > rotaSeuilContinuite)
            r.angDepart += rotaPI;
        r.angPrec = r.angDepart;
    }
    r.angRota = r.angDepart - sens * rotaPasAxe;
    if (mode == 1) {
        r.axeTour = sens * static_cast<int>(axe);
        return true;
    }
    placeViseur(p, r, axe, r.angRota);
    regardeOrigine(p);
    return false;
}

bool angleAccepte(double angle)
{
    return angle >= -rotaAngleMax && angle <= rotaAngleMax;
}

Erreur tournicotons(Parametres& p, EtatRotation& r, int axe, double angle)
{
    if (!angleAccepte(angle))
        return Erreur(std::string());
    if (axe == 3) {
        p.Rotadir += angle;
        return {};
    }
    const Axe a = axe == 0 ? Axe::Oz : axe == 1 ? Axe::Oy : Axe::Ox;
    depart(p, r, a);
    r.angRota = r.angDepart + angle;
    placeViseur(p, r, a, r.angRota);
    regardeOrigine(p);
    return {};
}

void tournirot(Parametres& p, EtatRotation& r, int sens)
{
    p.Rotadir = 0;
    r.sensTete = sens;
}

void ajusteReglage(Parametres& p, int choixReglage, double pas)
{
    switch (choixReglage) {
    case 0: p.Xviseur += pas; break;
    case 1: p.Yviseur += pas; break;
    case 2: p.Zviseur = float(p.Zviseur + pas); break;
    case 3: p.Xdirection += pas; break;
    case 4: p.Ydirection += pas; break;
    case 5: p.Zdirection += pas; break;
    default: p.Rotadir += pas * rotaPI / 36; break;
    }
}

void pasDuTour(Parametres& p, EtatRotation& r)
{
    if (r.axeTour == 0)
        return;
    r.angRota += r.axeTour > 0 ? rotaPasAxe : -rotaPasAxe;
    placeViseur(p, r, axeDuTour(r.axeTour), r.angRota);
    regardeOrigine(p);
}

bool finDuTour(Parametres& p, EtatRotation& r)
{
    if (r.axeTour == 0)
        return false;
    if (!(r.angRota > r.angDepart + rotaTourComplet || r.angRota < r.angDepart - rotaTourComplet))
        return false;
    p.Xviseur = r.XvDepart;
    p.Yviseur = r.YvDepart;
    p.Zviseur = r.ZvDepart;
    regardeOrigine(p);
    r.axeTour = 0;
    return true;
}

bool pasDeTete(Parametres& p, EtatRotation& r, int choixReglage, double pasListe)
{
    ajusteReglage(p, choixReglage, r.sensTete == 1 ? pasListe : -pasListe);
    p.Rotadir += r.sensTete * rotaPasTete;
    if (p.Rotadir > rotaTourComplet || p.Rotadir < -rotaTourComplet) {
        p.Rotadir = 0;
        return false;
    }
    return true;
}

namespace {

constexpr double pasCavaliereDegres = 5;
constexpr int ticksTourCavaliere = 72;  // 72 x 5 degrees

Erreur refusCavaliere()
{
    return Erreur(std::string(messageRotationCavaliere));
}

}  // namespace

Erreur pasCavaliere(double& tour, Axe axe, int sens)
{
    if (axe != Axe::Oz)
        return refusCavaliere();
    tour += sens * pasCavaliereDegres;
    return {};
}

Erreur tourneCavaliere(double& tour, int axe, double angle)
{
    if (!angleAccepte(angle))
        return Erreur(std::string());
    if (axe != 0)
        return refusCavaliere();
    tour -= angle * 180 / rotaPI;
    return {};
}

Erreur debutTourCavaliere(EtatRotation& r, double tour, Axe axe, int sens)
{
    if (axe != Axe::Oz)
        return refusCavaliere();
    r.angDepart = tour;
    r.angRota = 0;  // ticks made
    r.axeTour = axeTourCavaliere * sens;
    return {};
}

bool pasTourCavaliere(EtatRotation& r, double& tour)
{
    if (r.axeTour == 0)
        return false;
    r.angRota += 1;
    if (r.angRota >= ticksTourCavaliere) {
        tour = r.angDepart;
        r.axeTour = 0;
        return true;
    }
    tour = r.angDepart - (r.axeTour > 0 ? 1 : -1) * pasCavaliereDegres * r.angRota;
    return false;
}

Erreur suiteDuTourCavaliere(double tour, int index, std::vector<double>& tours)
{
    tours.clear();
    if (index < 0 || index >= 6)
        return refusCavaliere();
    const Axe axes[] = {Axe::Oz, Axe::Oy, Axe::Ox};
    EtatRotation r;
    if (auto erreur = debutTourCavaliere(r, tour, axes[index / 2], index % 2 == 0 ? 1 : -1))
        return erreur;
    bool fini = false;
    while (!fini) {
        fini = pasTourCavaliere(r, tour);
        tours.push_back(tour);
    }
    return {};
}

namespace {

const char* const nomsTours[nbToursComplets] = {"oz+", "oz-", "oy+", "oy-", "ox+", "ox-", "vision+", "vision-"};

VueDuTour vueDe(const Parametres& p)
{
    return {p.Xviseur, p.Yviseur, p.Zviseur, p.Xdirection, p.Ydirection, p.Zdirection, p.Rotadir};
}

}  // namespace

int tourDeNom(std::string_view nom)
{
    std::string minuscules(nom);
    for (char& c : minuscules)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (int i = 0; i < nbToursComplets; ++i)
        if (minuscules == nomsTours[i])
            return i;
    return -1;
}

const char* nomDuTour(int index)
{
    return index >= 0 && index < nbToursComplets ? nomsTours[index] : "";
}

void appliqueVue(Parametres& p, const VueDuTour& v)
{
    p.Xviseur = v.Xviseur;
    p.Yviseur = v.Yviseur;
    p.Zviseur = v.Zviseur;
    p.Xdirection = v.Xdirection;
    p.Ydirection = v.Ydirection;
    p.Zdirection = v.Zdirection;
    p.Rotadir = v.Rotadir;
}

SuiteDuTour suiteDuTour(Parametres p, EtatRotation r, int index, double pasListe, int maxVues)
{
    SuiteDuTour suite;
    if (index < 0 || index >= nbToursComplets)
        return suite;
    const int sens = index % 2 == 0 ? 1 : -1;
    if (index >= 6) {
        suite.intervalleMs = rotaIntervalleTete;
        tournirot(p, r, sens);
        while (int(suite.vues.size()) < maxVues && pasDeTete(p, r, 6, pasListe))
            suite.vues.push_back(vueDe(p));
        return suite;
    }
    const Axe axes[] = {Axe::Oz, Axe::Oy, Axe::Ox};
    tournicoti(p, r, axes[index / 2], 1, sens);
    while (int(suite.vues.size()) < maxVues) {
        pasDuTour(p, r);
        suite.vues.push_back(vueDe(p));
        if (finDuTour(p, r)) {
            suite.vues.push_back(vueDe(p));
            break;
        }
    }
    return suite;
}

}  // namespace velorin
