// The whole state of one Velorin session, owned by one object and passed by
// reference. A test builds a fresh state with `velorin::Etat etat;`.
//
// It lives at the top of plot, above every part it gathers: the tracers and
// the plot request read most of it (parameters, view, colours, drawn-curves
// table, tracing state, catalogue), so plot is the lowest module that knows
// all of its parts. The modules below never see it: the view takes only the
// parameters, viewing values, colours and mode it reads (plot/ecran.h
// passes them from here). The window and the command line share it as is,
// so it does not belong to either of them.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "engine/globales.h"
#include "plot/etat_trace.h"
#include "plot/etiquettes.h"
#include "plot/table_courbes.h"
#include "settings/couleurs.h"
#include "settings/parametres.h"
#include "settings/rendu.h"
#include "view/vue.h"

namespace velorin {

// Window state kept between commands.
struct EtatFenetre {
    std::string cheminEspaceCourbes, cheminEspaceFig, cheminPlanCourbes, cheminPlanFig;
    std::string dossierCourbes, dossierFig;  // the folders in force (end with '/')
    std::string fichierCatalogue = "Lisurf.lsu";
    bool modeEspace = true;
    bool modePlan = false;  // always !modeEspace
    bool pauseActive = true;
    bool inversionVideo = false;
    int choixReglage = 0;  // 0..6: Xv Yv Zv Xd Yd Zd Rotadir
    double largeurVue = 0, hauteurVue = 0;
    int Cht = 0, Trt = 0;
    int tics = 0;                   // tenths of a second of tracing
    int politiqueCouleurs = 0;      // colour scheme policy, menu "Comment Tracer?" 0..2
    int orientationImprimante = 1;  // 0 portrait, 1 landscape
    void metsModeEspace(bool espace)
    {
        modeEspace = espace;
        modePlan = !espace;
    }
    // Space or plane mode with the curves and figure folders of that mode.
    void choisisMode(bool espace)
    {
        metsModeEspace(espace);
        dossierCourbes = espace ? cheminEspaceCourbes : cheminPlanCourbes;
        dossierFig = espace ? cheminEspaceFig : cheminPlanFig;
    }
};

struct Etat {
    Parametres param;
    CouleursDefaut defaut;
    SchemaCouleurs couleurs;
    EtatFenetre fenetre;
    GlobalesMoteur moteur;
    Vue vue;
    TableCourbes courbes;
    EtatTrace trace;
    Catalogue catalogue;  // the catalogue file in force
    Etiquettes etiquettes;  // the labels over the drawing
    Rendu rendu;            // drawing style, projection, grid and graduations ("rendu.txt")
};

}  // namespace velorin
