// The one redraw: what it draws, in which order, and where it stops.
#include <gtest/gtest.h>

#include <map>

#include "commun/commun.h"
#include "plot/redessin.h"
#include "plot/table_courbes.h"

namespace velorin {
namespace {

using namespace essai;

// Colours that name what drew an operation in the journal read back.
constexpr Couleur rouge = 0x0000FF, vert = 0x00FF00, bleu = 0xFF0000, enVigueur = 0x00FFFF;
constexpr Couleur etiquette = 0x123456, progres = 0x010101, avant = 0x020202, tangente = 0x030303;

TEST(Redessin, OrdreLignesEtArret)
{
    DossierTemporaire dossier;
    Etat modele = etatCalibre(true);
    ASSERT_FALSE(ouvrirCatalogue(modele.catalogue, dossier / "essai.lsu"));
    ASSERT_FALSE(ecrisLigne(modele.catalogue, 1, LigneCatalogue{1, "x=f1(t)=cos(t)][y=f2(t)=sin(t)][z=f3(t)=t/4"}));
    ASSERT_FALSE(ecrisLigne(modele.catalogue, 2, LigneCatalogue{1, "x=f1(t)=sin(t][y=f2(t)=0][z=f3(t)=0"}));
    modele.couleurs.couleurTangente = tangente;  // the tangents at the origin are left out of the order
    SurfaceEnregistreuse rien;
    for (Couleur c : {rouge, vert, bleu}) {
        modele.couleurs.couleurTrace = c;
        ASSERT_FALSE(demandeTrace(modele, rien, 1, OptionsTrace{}, CrochetsTrace{}).erreur);
    }
    modele.couleurs.couleurTrace = enVigueur;
    modele.etiquettes.lb.push_back(Etiquette{});
    modele.etiquettes.lb.back().texte = "Sommet", modele.etiquettes.lb.back().couleur = etiquette;
    modele.etiquettes.lb.back().visible = true;
    const std::map<Couleur, char> lettres = {{rouge, '1'},     {vert, '2'},    {bleu, '3'},  {enVigueur, 'N'},
                                             {etiquette, 'L'}, {progres, 'P'}, {avant, 'a'},
                                             {couleursRepere(modele).axes, 'R'}};
    // Row: what a wrong redraw would do, what to draw, what `apres` answers (-1 no `apres`, 0 stop, 1 go on
    // as the printed page), a 4th row naming an entry whose formula fails, the order read back
    // (E clear, R frame, P progress, a before a curve, 1 2 3 rows, N a new curve, L labels; a run
    // of one letter counts once).
    const std::tuple<const char*, Redessin, int, bool, const char*> cas[] = {
        {"ordre faux, ou une ligne aux valeurs en vigueur", {.lignes = {1, 2, 3}}, -1, false, "ERPa1a2a3L"},
        {"toutes les lignes au lieu des choisies", {.lignes = {3, 1}}, -1, false, "ERPa3a1L"},
        {"une ligne hors de la table arrête ou signale", {.lignes = {0, 2, 9}}, -1, false, "ERPa2L"},
        {"la page effacée ou étiquetée", {.efface = false, .lignes = {1}, .etiquettes = false}, -1, false, "RPa1"},
        {"EffaceRepère avec repère", {.repere = false, .lignes = {2}}, -1, false, "EPa2L"},
        {"l'envoi efface ou trace le repère", {.efface = false, .repere = false, .entrees = {1}, .etiquettes = false},
         -1, false, "aN"},
        // The values of the last row drawn stay in force for the new curves.
        {"les entrées avant les lignes", {.lignes = {2}, .entrees = {1, 1}}, -1, false, "ERPa2a2a2L"},
        {"une entrée sans les valeurs en vigueur", {.entrees = {1}}, -1, false, "ERPaNL"},
        {"un arrêt demandé est ignoré", {.lignes = {1, 2, 3}}, 0, false, "ERPa1"},
        {"sans `apres`, un message n'arrête pas", {.lignes = {1, 4, 2}}, -1, true, "ERPa1a"},
        {"la page s'arrête au message", {.lignes = {1, 4, 2}}, 1, true, "ERPa1aa2L"},
    };
    for (const auto& [faute, quoiCas, suite, fausse, attendu] : cas) {
        Etat etat = modele;
        if (fausse) {
            LigneCourbe ligne = etat.courbes.lignes[0];
            ligne[colNumero] = 2;
            ajouteCourbe(etat.courbes, ligne);
        }
        SurfaceEnregistreuse surface;
        Redessin quoi = quoiCas;
        quoi.progres = [&] { surface.PSet(0, 0, progres); };
        quoi.avant = [&] { surface.PSet(0, 0, avant); };
        if (suite >= 0)
            quoi.apres = [&, suite = suite](const OptionsTrace&, const ResultatTrace&) { return suite == 1; };
        const Erreur erreur = redessine(etat, surface, quoi);
        std::string ordre;
        for (const OperationDessin& op : surface.operations()) {
            const auto l = lettres.find(op.couleur);
            const char lettre = op.genre == Genre::Effacement ? 'E' : l == lettres.end() ? '?' : l->second;
            if (op.couleur != tangente && (ordre.empty() || ordre.back() != lettre || lettre == 'a'))
                ordre += lettre;
        }
        EXPECT_EQ(ordre, attendu) << faute;
        // Each entry gets its row; the message of the curve that stopped the
        // redraw is returned, none when it went on.
        EXPECT_EQ(std::size_t(etat.courbes.nbCourbes), 3 + fausse + quoiCas.entrees.size()) << faute;
        EXPECT_EQ(bool(erreur), fausse && suite < 0) << faute << erreur.message();
    }
}

}  // namespace
}  // namespace velorin
