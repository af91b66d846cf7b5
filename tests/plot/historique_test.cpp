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

TEST(Historique, LimiteGardeLesDerniersEtOublieLesPlusAnciens)
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
        const int gardes = std::min<int>(c.actions, int(c.limite));
        EXPECT_EQ(int(h.nbAnnulables()), gardes) << c.limite << "/" << c.actions;
        // Undone in reverse order, down to the oldest kept; then nothing.
        for (int n = c.actions; n >= c.premierGarde; --n) {
            const std::optional<Pas> p = h.annule(pasNumero(100 + n));
            ASSERT_TRUE(p) << n;
            EXPECT_EQ(p->etat.param.Xviseur, n);
        }
        EXPECT_FALSE(h.annule(pasNumero(0)));
        EXPECT_EQ(int(h.nbRetablissables()), gardes);
    }
    EXPECT_GE(Historique::limiteParDefaut, 50U);
}

TEST(Historique, AnnulerRetablirEtNouvelleActionCoupeLesRetablissements)
{
    Historique h;
    for (int n = 1; n <= 3; ++n)
        h.ajoute(pasNumero(n));
    // Undo twice (the state of the moment goes to redo), redo once.
    EXPECT_EQ(h.annule(pasNumero(4))->etat.param.Xviseur, 3);
    EXPECT_EQ(h.annule(pasNumero(3))->etat.param.Xviseur, 2);
    EXPECT_EQ(h.aRetablir()->nom, "pas 3");
    EXPECT_EQ(h.retablis(pasNumero(2))->etat.param.Xviseur, 3);
    EXPECT_EQ(h.aAnnuler()->nom, "pas 2");
    ASSERT_EQ(h.nbRetablissables(), 1U);
    // A new action: nothing left to redo.
    h.ajoute(pasNumero(9));
    EXPECT_EQ(h.nbRetablissables(), 0U);
    EXPECT_FALSE(h.retablis(pasNumero(0)));
    EXPECT_EQ(h.aAnnuler()->nom, "pas 9");
}

TEST(Historique, InchangeVoitChaquePartieDeLaSessionMaisPasLeTravailDuMoteur)
{
    essai::DossierTemporaire dossier;
    const std::string chemin = dossier / "Lisurf.lsu";
    using Change = std::function<void(Etat&)>;
    const std::pair<const char*, Change> cas[] = {
        {"rien", [](Etat&) {}},
        {"moteur et minutage", [](Etat& e) { e.fenetre.tics = 7, e.trace = {}, e.vue.W = 1, e.moteur = {}; }},
        {"parametres", [](Etat& e) { e.param.Rotadir = 0.5; }},
        {"couleurs", [](Etat& e) { e.couleurs.couleurTrace = 1; }},
        {"inversion", [](Etat& e) { e.fenetre.inversionVideo = true; }},
        {"mode", [](Etat& e) { e.fenetre.metsModeEspace(false); }},
        {"catalogue", [](Etat& e) { e.fenetre.fichierCatalogue = "Autre.lsu"; }},
        {"courbes", [](Etat& e) { ajouteCourbe(e.courbes, ligneDepuisParametres(e, 1, 1)); }},
        {"etiquettes", [](Etat& e) { ajouteEtiquette(e.etiquettes, 10, 10); }},
        {"rendu", [](Etat& e) { e.rendu.quadrillage = true; }},
        {"fichier", [&](Etat& e) { ASSERT_FALSE(ecrisLigne(e.catalogue, 1, {1, "x"})); }},
    };
    for (const auto& [nom, change] : cas) {
        Etat etat;
        ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, chemin));
        const Pas avant = photographie(etat, "essai", true);
        change(etat);
        const bool attendu = std::string(nom) == "rien" || std::string(nom) == "moteur et minutage";
        EXPECT_EQ(inchange(avant, etat), attendu) << nom;
        // Put back, the session is as it was.
        ASSERT_FALSE(remets(avant, etat)) << nom;
        EXPECT_TRUE(inchange(avant, etat)) << nom;
    }
}

TEST(Historique, CatalogueRemisOctetPourOctetPuisRetabli)
{
    essai::DossierTemporaire dossier;
    const std::string chemin = dossier / "Lisurf.lsu";
    Etat etat;
    ASSERT_FALSE(ouvrirCatalogue(etat.catalogue, chemin));
    for (int n = 1; n <= 3; ++n)
        ASSERT_FALSE(ecrisLigne(etat.catalogue, n, {1, "x=f1(t)=T][y=f2(t)=" + std::to_string(n) + "][z=f3(t)=0"}));
    const std::string origine = essai::lisFichier(chemin);

    Historique h;
    h.ajoute(photographie(etat, "l'élagage", true));
    // The action shortens the file and changes a record.
    ASSERT_FALSE(ecrisFichierEntier(chemin, origine.substr(0, tailleEnregistrement)));
    ASSERT_FALSE(ouvrirCatalogue(etat.catalogue));
    const std::string apres = essai::lisFichier(chemin);

    const std::optional<Pas> p = h.annule(pareilMaintenant(etat, *h.aAnnuler()));
    ASSERT_TRUE(p);
    ASSERT_FALSE(remets(*p, etat));
    EXPECT_EQ(essai::lisFichier(chemin), origine);
    EXPECT_EQ(etat.catalogue.nbLignesCatalogue, 3);
    const std::optional<Pas> r = h.retablis(pareilMaintenant(etat, *h.aRetablir()));
    ASSERT_TRUE(r);
    EXPECT_EQ(r->nom, "l'élagage");
    ASSERT_FALSE(remets(*r, etat));
    EXPECT_EQ(essai::lisFichier(chemin), apres);
    EXPECT_EQ(etat.catalogue.nbLignesCatalogue, 1);
}

TEST(TableCourbes, RetirerGardeLOrdreDesAutresEtIgnoreLesNumerosHorsTable)
{
    struct Cas {
        std::vector<int> retirees;
        std::vector<double> restent;  // the record numbers left, in order
    };
    for (const Cas& c : {Cas{{2}, {1, 3, 4}}, Cas{{4, 1}, {2, 3}}, Cas{{3, 3, 0, 9, -1}, {1, 2, 4}},
                         Cas{{1, 2, 3, 4}, {}}, Cas{{}, {1, 2, 3, 4}}}) {
        Etat etat;
        for (int n = 1; n <= 4; ++n)
            ajouteCourbe(etat.courbes, ligneDepuisParametres(etat, n, 1));
        EXPECT_EQ(retireCourbes(etat.courbes, c.retirees), int(4 - c.restent.size()));
        std::vector<double> numeros;
        for (const LigneCourbe& l : etat.courbes.lignes)
            numeros.push_back(l[colNumero]);
        EXPECT_EQ(numeros, c.restent);
        EXPECT_EQ(etat.courbes.nbCourbes, int(c.restent.size()));
    }
}

}  // namespace
}  // namespace velorin
