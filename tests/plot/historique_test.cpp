#include "plot/historique.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/ecriture.h"
#include "commun/commun.h"

namespace velorin {
namespace {

// A step whose state is told apart by its viewer abscissa.
Pas pasNumero(int n)
{
    Etat etat;
    etat.param.Xviseur = n;
    return photographie(etat, "pas " + std::to_string(n), false);
}

// Beyond the limit the oldest steps go; undone steps come back in reverse
// order, the state of the moment goes to redo; a new action cuts the redo.
TEST(Historique, LimiteOrdreEtNouvelleActionCoupeLesRetablissements)
{
    struct Cas {
        std::size_t limite;
        int actions;
        int premierGarde;  // the oldest step still undoable
    };
    for (const Cas c : {Cas{50, 10, 1}, Cas{50, 50, 1}, Cas{50, 51, 2}, Cas{3, 7, 5}, Cas{1, 2, 2}}) {
        Historique h(c.limite);
        for (int n = 1; n <= c.actions; ++n)
            h.ajoute(pasNumero(n));
        EXPECT_EQ(int(h.nbAnnulables()), std::min<int>(c.actions, int(c.limite))) << c.limite << "/" << c.actions;
        for (int n = c.actions; n >= c.premierGarde; --n) {
            const std::optional<Pas> p = h.annule(pasNumero(100 + n));
            ASSERT_TRUE(p) << n;
            EXPECT_EQ(p->etat.param.Xviseur, n);
        }
        EXPECT_FALSE(h.annule(pasNumero(0)));
        // Redo gives back the state of the moment of the last undo, then a new action forgets the rest.
        EXPECT_EQ(h.retablis(pasNumero(0))->etat.param.Xviseur, 100 + c.premierGarde);
        EXPECT_EQ(h.aAnnuler()->nom, "pas 0");
        EXPECT_EQ(int(h.nbRetablissables()), std::min<int>(c.actions, int(c.limite)) - 1);
        h.ajoute(pasNumero(9));
        EXPECT_EQ(h.nbRetablissables(), 0U);
        EXPECT_FALSE(h.retablis(pasNumero(0)));
    }
    EXPECT_GE(Historique::limiteParDefaut, 50U);
}

// Each part of the session counts, the engine's working values do not; put
// back, the state and the catalogue's bytes are those of the step, and the
// state of the moment taken for redo comes back as well.
TEST(Historique, InchangeVoitChaquePartieEtRemetsRendEtatEtOctets)
{
    essai::DossierTemporaire dossier;
    using Change = std::function<void(Etat&)>;
    const std::tuple<const char*, bool, Change> cas[] = {
        {"rien", true, [](Etat&) {}},
        {"moteur et minutage", true, [](Etat& e) { e.fenetre.tics = 7, e.trace = {}, e.vue.W = 1, e.moteur = {}; }},
        {"parametres", false, [](Etat& e) { e.param.Rotadir = 0.5; }},
        {"couleurs", false, [](Etat& e) { e.couleurs.couleurTrace = 1; }},
        {"inversion", false, [](Etat& e) { e.fenetre.inversionVideo = true; }},
        {"mode", false, [](Etat& e) { e.fenetre.metsModeEspace(false); }},
        {"catalogue", false, [&](Etat& e) { ASSERT_FALSE(ouvrirCatalogue(e.catalogue, dossier / "B.lsu")); }},
        {"courbes", false, [](Etat& e) { ajouteCourbe(e.courbes, ligneDepuisParametres(e, 1, 1)); }},
        {"etiquettes", false, [](Etat& e) { ajouteEtiquette(e.etiquettes, 10, 10); }},
        {"rendu", false, [](Etat& e) { e.rendu.quadrillage = true; }},
        {"fichier raccourci", false,
         [](Etat& e) {
             ASSERT_FALSE(ecrisFichierEntier(e.catalogue.chemin, ""));
             ASSERT_FALSE(ouvrirCatalogue(e.catalogue));
         }},
    };
    for (const auto& [nom, pareil, change] : cas) {
        Etat etat;
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, dossier / "A.lsu"));
        for (int n = 1; n <= 3; ++n)
            ASSERT_FALSE(ecrisLigne(etat.catalogue, n, {1, "x=f1(t)=T][y=f2(t)=" + std::to_string(n) + "][z=f3(t)=0"}));
        const Pas avant = photographie(etat, "essai", true);
        change(etat);
        EXPECT_EQ(inchange(avant, etat), pareil) << nom;
        const Pas maintenant = pareilMaintenant(etat, avant);
        ASSERT_FALSE(remets(avant, etat)) << nom;
        EXPECT_TRUE(inchange(avant, etat)) << nom;
        EXPECT_EQ(etat.catalogue.nbLignesCatalogue, 3) << nom;
        ASSERT_FALSE(remets(maintenant, etat)) << nom;
        EXPECT_TRUE(inchange(maintenant, etat)) << nom;
    }
}

}  // namespace
}  // namespace velorin
