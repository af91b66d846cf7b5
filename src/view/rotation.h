// Turning the point of view: one step of 5 degrees about an axis, a typed
// angle about an axis, the animated full turn about an axis and the animated
// rotation of the head about the line of sight.
//
// Every rotation moves the viewer (Xviseur, Yviseur, Zviseur) on a circle
// about a coordinate axis and points the direction (Xdirection..Zdirection)
// back at the origin. These functions only change the parameters and the
// rotation state below; the window shows the new viewing values
// (`affviseur`) and redraws (the "O&K" command: `prepareVue`, frame, curves)
// where each comment says so, and it owns the timers and `pauseActive`.
#pragma once
#include <string_view>
#include <vector>

#include "base/erreur.h"
#include "settings/parametres.h"

namespace velorin {

// The angle unit of every rotation: this value, not the exact pi, so that
// the steps and the end of a full turn fall where they always did.
inline constexpr double rotaPI = 3.141592;
inline constexpr double rotaPasAxe = rotaPI / 36;    // 5 degrees: a step, a tick of the full turn
inline constexpr double rotaPasTete = rotaPI / 20;   // 9 degrees: a tick of the head rotation
inline constexpr double rotaTourComplet = 6.283184;  // a full turn, as tested at each tick
inline constexpr double rotaSeuilContinuite = 2.8;   // about Oz: a jump larger than this is a side change
inline constexpr double rotaAngleMax = 3.1416;       // typed angles: [-rotaAngleMax, rotaAngleMax]
inline constexpr int rotaIntervalleTour = 500;       // ms between two ticks of the full turn (Timer2)
inline constexpr int rotaIntervalleTete = 1000;      // ms between two ticks of the head rotation (Timer3)

// The three rotation axes, numbered as `axeTour` counts them.
enum class Axe { Ox = 1, Oy = 2, Oz = 3 };

// The window-level values a rotation keeps between calls and ticks. One per
// window, value-initialised at start.
struct EtatRotation {
    double XvDepart = 0, YvDepart = 0;  // viewer when the rotation began...
    float ZvDepart = 0;                 // ...restored when a full turn ends
    double rayonRota = 0;               // radius of the viewer's circle about the axis
    double angDepart = 0;               // angle of the viewer on that circle at the start
    double angPrec = 0;                 // start angle of the previous rotation about Oz
    double angRota = 0;                 // current angle of the viewer on the circle
    int axeTour = 0;                    // running full turn: +-1 Ox, +-2 Oy, +-3 Oz, +-4 cavalière; 0 none
    int sensTete = 1;                   // +1 or -1: sense of the running head rotation
};

// One step about `axe` (mode other than 1) or the start of the full turn
// (mode 1). `sens` is +1 or -1.
//
// Saves the viewer in XvDepart..ZvDepart, takes the radius and the start
// angle atan(second / first) in the plane that turns (Oz: x, y; Ox: y, z;
// Oy: x, z), without quadrant correction. When the first coordinate is 0 the
// arctangent fails and angDepart keeps its previous value. About Oz only, a
// start angle more than 2.8 from angPrec is moved by rotaPI, then becomes
// angPrec. angRota = angDepart - sens x 5 degrees.
//
// Mode 1: sets axeTour = sens x axis and returns true; the viewer is not
// moved. The caller sets pauseActive false and enables Timer2 (500 ms), whose
// ticks call `pasDuTour` then `finDuTour`.
// Other modes: the viewer goes to angRota on the circle (third coordinate
// unchanged), the direction points at the origin, and it returns false; the
// caller shows the values and redraws.
//
// Note that a step turns by -sens while the full turn of the same sens
// advances by +sens a tick.
bool tournicoti(Parametres& p, EtatRotation& r, Axe axe, int mode, int sens);
inline bool tournicotiz(Parametres& p, EtatRotation& r, int mode, int sens)
{
    return tournicoti(p, r, Axe::Oz, mode, sens);
}
inline bool tournicotix(Parametres& p, EtatRotation& r, int mode, int sens)
{
    return tournicoti(p, r, Axe::Ox, mode, sens);
}
inline bool tournicotiy(Parametres& p, EtatRotation& r, int mode, int sens)
{
    return tournicoti(p, r, Axe::Oy, mode, sens);
}

// The typed-angle menu's test: -3.1416 <= angle <= 3.1416.
bool angleAccepte(double angle);

// Rotation by a typed angle, once. `axe` is the menu index: 0 Oz, 1 Oy,
// 2 Ox, 3 the head ("De la vision"). An angle outside [-3.1416, 3.1416] is
// refused silently: the failure carries an empty message, the caller shows
// nothing and nothing has changed. Otherwise, for an axis: saves the viewer,
// takes the radius and angDepart = atan(second / first) as a step does
// (without the continuity test; a zero first coordinate keeps the previous
// angDepart), angRota = angDepart + angle, puts the viewer there and points
// the direction at the origin. For the head, Rotadir += angle. On success the
// caller shows the values and redraws.
Erreur tournicotons(Parametres& p, EtatRotation& r, int axe, double angle);

// Start of the head rotation: Rotadir = 0 and sensTete = sens. The caller
// selects Rotadir for the "+p"/"-p" buttons (choixReglage = 6) and enables
// Timer3 at 1000 ms, whose ticks call `pasDeTete`.
void tournirot(Parametres& p, EtatRotation& r, int sens);

// What the "+p" button does (the "-p" button with a negative `pas`): adds
// `pas` to the viewing value chosen by `choixReglage` (0 Xviseur, 1 Yviseur,
// 2 Zviseur, 3 Xdirection, 4 Ydirection, 5 Zdirection, 6 Rotadir); for
// Rotadir the step is multiplied by rotaPI / 36 first.
void ajusteReglage(Parametres& p, int choixReglage, double pas);

// One tick of Timer2 while axeTour != 0: angRota moves by 5 degrees in the
// sense of axeTour, the viewer goes there on the circle of its axis and the
// direction points at the origin. The caller sets pauseActive false before,
// then shows the values, sets pauseActive true, redraws, and calls
// `finDuTour`.
void pasDuTour(Parametres& p, EtatRotation& r);

// End test of the full turn, after the redraw of a tick: when angRota has
// moved more than 6.283184 from angDepart, restores the viewer exactly from
// XvDepart..ZvDepart, points the direction at the origin, sets axeTour = 0
// and returns true; the caller then disables Timer2, shows the values and
// redraws once more. Otherwise returns false and changes nothing.
bool finDuTour(Parametres& p, EtatRotation& r);

// One tick of Timer3: the "+p" button (sensTete = 1) or the "-p" button
// (otherwise) with the step `pasListe` chosen in the step list, applied to
// the value chosen by `choixReglage`, then Rotadir += sensTete x 9 degrees.
// When Rotadir has passed +-6.283184 it is set to 0 and the function returns
// false: the caller disables Timer3 and does not redraw. Otherwise it returns
// true: the caller redraws and shows the values.
bool pasDeTete(Parametres& p, EtatRotation& r, int choixReglage, double pasListe);

// ---- Cavalière. The front plane (y to the right, z up) stays in true
// size and the receding axis keeps its angle: the only rotation that keeps
// the drawing a cavalière one turns the solid about Oz. The commands about
// Oz turn `tour` (degrees) as they turn the picture in the perspective:
// the same command turns the solid the same way in both projections (the
// viewer turning by +a looks like the solid turning by -a). The commands
// about Ox, Oy and the head are refused with this message.
inline constexpr const char* messageRotationCavaliere =
    "En perspective cavalière, le solide tourne seulement autour de l'axe (zz') : les rotations autour de (xx'), "
    "de (yy') et de la vision appartiennent à la perspective du programme (menu du rendu).";

// A step of the buttons: about Oz, tour += sens x 5 degrees (the solid
// turns as the picture does when the perspective's viewer steps by -sens);
// otherwise the message and nothing changes.
Erreur pasCavaliere(double& tour, Axe axe, int sens);

// A typed angle (radians, the menu index `axe` as in `tournicotons`): about
// Oz, tour -= angle in degrees; an angle outside [-3.1416, 3.1416] is
// refused silently (empty message) as in the perspective; other axes: the
// message.
Erreur tourneCavaliere(double& tour, int axe, double angle);

// The full turn about Oz (axeTour = axeTourCavaliere x sens, the start kept
// in angDepart, the ticks counted in angRota): a turn started in cavalière
// stays one to its end. About any other axis: the message, and nothing
// starts.
inline constexpr int axeTourCavaliere = 4;
Erreur debutTourCavaliere(EtatRotation& r, double tour, Axe axe, int sens);
// One tick of that turn: tour -= sens x 5 degrees; after 72 ticks tour is
// put back exactly to its start, axeTour = 0 and the function returns true.
bool pasTourCavaliere(EtatRotation& r, double& tour);
// Every value of `tour` the ticks of the full turn `index` (as for
// `suiteDuTour`) give, the last one the start; the message for a turn that
// cavalière does not make.
Erreur suiteDuTourCavaliere(double tour, int index, std::vector<double>& tours);

// ---- A whole animated turn at once, for the exports that draw every tick
// without waiting for the timers.

// The full turns of the "Tour complet" menu, by their index there: 0 Oz +,
// 1 Oz -, 2 Oy +, 3 Oy -, 4 Ox +, 5 Ox -, 6 the head +, 7 the head -.
inline constexpr int nbToursComplets = 8;
// Their names on the command line, in the same order: "oz+", "oz-", "oy+",
// "oy-", "ox+", "ox-", "vision+", "vision-". -1 for any other text (case
// ignored).
int tourDeNom(std::string_view nom);
const char* nomDuTour(int index);

// The viewing values one redraw uses.
struct VueDuTour {
    double Xviseur = 0, Yviseur = 0;
    float Zviseur = 0;
    double Xdirection = 0, Ydirection = 0, Zdirection = 0;
    double Rotadir = 0;
};
void appliqueVue(Parametres& p, const VueDuTour& v);

// Every redraw of a full turn, in order, and the time between two ticks.
struct SuiteDuTour {
    int intervalleMs = rotaIntervalleTour;
    std::vector<VueDuTour> vues;
};

// The redraws the timers make for the full turn `index` (0..7, as above)
// started from the parameters `p` and the rotation state `r` (both copies:
// the continuity test about Oz reads r.angPrec as the window has it).
// About an axis: `tournicoti` in mode 1, then per tick of Timer2 one redraw
// after `pasDuTour`, and on the tick where `finDuTour` ends the turn one more
// redraw with the viewer restored. The head: `tournirot`, then per tick of
// Timer3 `pasDeTete` with the "+p"/"-p" step `pasListe` applied to Rotadir
// (choixReglage 6, as the menu selects it), one redraw per tick that goes on
// and none on the tick that ends the turn. A turn whose ticks would never end
// (a step that cancels the head's own step) stops after `maxVues` redraws.
SuiteDuTour suiteDuTour(Parametres p, EtatRotation r, int index, double pasListe, int maxVues = 1000);

}  // namespace velorin
