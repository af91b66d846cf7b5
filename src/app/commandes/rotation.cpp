// Turning the point of view from the window: the six step buttons, the
// full turns and the head rotation of the "ROTATION" menu with their timers,
// and the typed angle. In cavalière they turn the solid about Oz or say
// why they do not (view/rotation.h).
//
// `pauseActive` is false while a rotation is being stepped and true
// otherwise; each tick of the full turn switches it off for its step and on
// again before its redraw. A tick that arrives while a drawing is still in
// progress is skipped: ticks never overlap.
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <cstdlib>

#include "app/fenetre/mirado.h"
#include "engine/nombres.h"

namespace velorin {

namespace {

// The plane of each step button and full-turn entry, two by two: Oz, Oy, Ox.
constexpr Axe axesMenu[] = {Axe::Oz, Axe::Oy, Axe::Ox};

int sensDe(int index)
{
    return index % 2 == 0 ? 1 : -1;
}

// A rotation refused in cavalière: its message shown (none for an angle
// out of range). True when refused.
bool refuse(const Boites& boites, QWidget* fenetre, const Erreur& erreur)
{
    if (erreur && !erreur.message().empty())
        boites.message(fenetre, QString::fromStdString(erreur.message()));
    return static_cast<bool>(erreur);
}

}  // namespace

void Mirado::Command5_Click(int index)
{
    if (index < 0 || index > 5 || refuseSiOccupe())
        return;
    if (etat.rendu.cavaliere) {
        if (!refuse(boites, this, pasCavaliere(etat.rendu.tourCavaliere, axesMenu[index / 2], sensDe(index))))
            Command3_Click();
        return;
    }
    velorin::tournicoti(etat.param, rotation_, axesMenu[index / 2], 0, sensDe(index));
    affviseur();
    Command3_Click();
}

void Mirado::mnuroti_Click(int index)
{
    if (index < 0 || index > 7)
        return;
    EtatFenetre& f = etat.fenetre;
    if (etat.rendu.cavaliere) {
        const Axe axe = index < 6 ? axesMenu[index / 2] : Axe::Ox;  // the head turns no solid either
        if (!refuse(boites, this, debutTourCavaliere(rotation_, etat.rendu.tourCavaliere, axe, sensDe(index)))) {
            Timer2->setInterval(rotaIntervalleTour);
            Timer2->start();
        }
        return;
    }
    f.pauseActive = false;
    if (index < 6) {
        if (velorin::tournicoti(etat.param, rotation_, axesMenu[index / 2], 1, sensDe(index))) {
            f.pauseActive = false;
            Timer2->setInterval(rotaIntervalleTour);
            Timer2->start();
        }
    } else {
        Option2_Click(6);
        velorin::tournirot(etat.param, rotation_, sensDe(index));
        Timer3->setInterval(rotaIntervalleTete);
        Timer3->start();
    }
    f.pauseActive = true;
}

void Mirado::mnurotan_Click(int index)
{
    static const char* const titres[] = {"Autour de l'axe (zz')", "Autour de l'axe (yy')", "Autour de l'axe (xx')",
                                         "Rotation de la tête"};
    if (index < 0 || index > 3 || refuseSiOccupe())
        return;
    const std::optional<QString> reponse = boites.saisie(
        this, QStringLiteral("valeur d'un angle en radian entre -pi et pi , svp"), QString::fromUtf8(titres[index]));
    if (!reponse)
        return;  // cancelled: nothing turns
    bool trop = false;
    const double angle = nombreEnTete(reponse->toStdString(), trop);
    // An angle out of range is refused without a word.
    if (etat.rendu.cavaliere) {
        if (!trop && !refuse(boites, this, tourneCavaliere(etat.rendu.tourCavaliere, index, angle)))
            Command3_Click();
        return;
    }
    if (trop || velorin::tournicotons(etat.param, rotation_, index, angle))
        return;
    affviseur();
    Command3_Click();
}

void Mirado::Timer2_Timer()
{
    if (traceEnCours_)
        return;
    if (rotation_.axeTour == 0) {
        Timer2->stop();
        return;
    }
    if (std::abs(rotation_.axeTour) == axeTourCavaliere) {
        const bool fini = pasTourCavaliere(rotation_, etat.rendu.tourCavaliere);
        Command3_Click();
        if (fini)
            Timer2->stop();
        return;
    }
    etat.fenetre.pauseActive = false;
    pasDuTour(etat.param, rotation_);
    affviseur();
    etat.fenetre.pauseActive = true;
    Command3_Click();
    if (finDuTour(etat.param, rotation_)) {
        Timer2->stop();
        affviseur();
        Command3_Click();
    }
}

void Mirado::Timer3_Timer()
{
    if (traceEnCours_)
        return;
    // The "+p" or "-p" button adds the step of the list to the value it
    // serves (Rotadir since the rotation began, unless changed since)...
    if (rotation_.sensTete == 1)
        Command1_Click();
    else
        Command2_Click();
    // ...then the head turns by its own step; the button's step is done.
    if (!pasDeTete(etat.param, rotation_, etat.fenetre.choixReglage, 0)) {
        Timer3->stop();
        return;
    }
    Command3_Click();
    affviseur();
}

}  // namespace velorin
