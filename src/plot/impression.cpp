#include "plot/impression.h"

#include <chrono>
#include <cstdio>

#include "plot/dessin_etiquettes.h"
#include "plot/ecran.h"
#include "plot/redessin.h"
#include "plot/table_courbes.h"

namespace velorin {

namespace {

std::string deuxChiffres(int n)
{
    char t[16];
    std::snprintf(t, sizeof t, "%02d", n);
    return t;
}

}  // namespace

std::string dateFrancaise(const Horodatage& h)
{
    static const char* const jours[] = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
    static const char* const mois[] = {"janv.", "févr.", "mars",  "avr.", "mai",  "juin",
                                       "juil.", "août",  "sept.", "oct.", "nov.", "déc."};
    using namespace std::chrono;
    const year_month_day date{year{h.annee}, month{static_cast<unsigned>(h.mois)}, day{static_cast<unsigned>(h.jour)}};
    if (!date.ok())
        return "?";
    const weekday j{sys_days{date}};
    return std::string(jours[j.c_encoding()]) + " " + deuxChiffres(h.jour) + " " + mois[h.mois - 1] + " " +
           std::to_string(h.annee);
}

std::string piedDePage(const Horodatage& h)
{
    return "c/o PLAVIER **** imprimé  le " + dateFrancaise(h) + " à " + deuxChiffres(h.heure) + ":" +
           deuxChiffres(h.minute) + ":" + deuxChiffres(h.seconde);
}

Erreur dessinePage(const Etat& etat, Surface& page, const std::string& pied)
{
    Etat e = etat;
    // Paper is white: the frame is drawn as with "Fond blanc,axes noirs".
    e.param.fondBlanc = 1;
    e.fenetre.inversionVideo = false;
    const double W = page.Width(), H = page.Height();
    ajusteVue(e, W, H);
    e.couleurs.couleurFond = couleursRepere(e).fond;
    // The redraw without clearing (the paper is white already) and without
    // the labels, which come after the legend; it goes on past a message.
    Erreur premiere;
    Redessin quoi{.efface = false, .lignes = toutesLesLignes(e.courbes), .etiquettes = false};
    quoi.apres = [&premiere](const OptionsTrace&, const ResultatTrace& r) {
        if (r.erreur && !premiere)
            premiere = r.erreur;
        return true;
    };
    static_cast<void>(redessine(e, page, quoi));
    page.Acheve();

    page.FontName = "ARIAL";
    page.FontSize = 10;
    page.FontBold = page.FontItalic = page.FontUnderline = false;
    page.ForeColor = 0;
    page.DrawWidth = 1;
    page.DrawStyle = 0;
    page.CurrentX = titreX;
    page.CurrentY = titreY;
    page.Print("TRACE DES COURBES");
    for (int i = 1; i <= e.courbes.nbCourbes; ++i) {
        const double y = page.CurrentY;
        const Couleur c = couleurTracee(e.courbes.lignes[i - 1]).value_or(0);
        page.Line(legendeTraitDebut, y + page.TextHeight() / 2, legendeTraitFin, y + page.TextHeight() / 2, c);
        page.ForeColor = 0;
        page.CurrentX = legendeTexteX;
        page.CurrentY = y;
        page.Print("   " + ligneCourbeTracee(e.courbes, i));
    }

    // Labels in the screen's axes colour (the "Blanc ou noir" of the colour
    // prompt, white over a black screen) take the paper's axes colour, so
    // that they do not vanish on white paper; the other colours are kept.
    const Couleur axesEcran = couleursRepere(etat).axes, axesPapier = couleursRepere(e).axes;
    Etiquettes etiquettes = e.etiquettes;
    for (std::size_t k = 1; k < etiquettes.lb.size(); ++k)
        if ((static_cast<Couleur>(etiquettes.lb[k].couleur) & 0xFFFFFF) == axesEcran)
            etiquettes.lb[k].couleur = static_cast<std::int32_t>(axesPapier);
    const double kx = e.fenetre.largeurVue > 0 ? W / e.fenetre.largeurVue : 1;
    const double ky = e.fenetre.hauteurVue > 0 ? H / e.fenetre.hauteurVue : 1;
    for (std::size_t k = 1; k < etiquettes.lb.size(); ++k) {
        etiquettes.lb[k].gauche = static_cast<float>(etiquettes.lb[k].gauche * kx);
        etiquettes.lb[k].haut = static_cast<float>(etiquettes.lb[k].haut * ky);
    }
    dessineEtiquettes(etiquettes, page);

    page.ForeColor = 0;
    page.CurrentX = titreX;
    page.CurrentY = H - 2 * page.TextHeight();
    page.Print(pied);
    page.Acheve();
    return premiere;
}

}  // namespace velorin
