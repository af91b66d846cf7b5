#include <gtest/gtest.h>

#include <string>

#include "settings/reglage.h"

namespace velorin {
namespace {

int champ(const char* nom)
{
    for (int i = 0; i < nbChampsReglage; ++i)
        if (std::string(nomChampReglage(i)) == nom)
            return i;
    ADD_FAILURE() << nom;
    return 0;
}

// Each field is read by the number reader, then converted to its member's
// type; a value the member cannot hold refuses the whole set.
TEST(Reglage, LectureEtConversionParChampRefusSansRienAppliquer)
{
    struct Cas {
        const char* champ;
        const char* texte;
        bool accepte;
        const char* montre;        // the field's text once read, when accepted
        const char* motDuMessage;  // when refused
    };
    const Cas cas[] = {
        {"xmin", "-2P", true, "-6.283184", ""},
        {"pasT", "1.5E-3", true, "-1.5", ""},  // the evaluator reads "E-" as a subtraction
        {"amin", "(1)+(2)", true, "3", ""},
        {"xmax", "1E999", true, "1000000000", ""},  // a failed computation is horsCalcul
        {"Rotadir", "", true, "0", ""},  // an emptied field reads 0
        {"ymin", "abc", true, "0", ""},  // no number: 0, accepted
        {"pauseMs", "2.5", true, "2", ""},  // rounded half to even
        {"zmin", "P/3", true, "1.047197", ""},
        {"pauseMs", "40000", false, "", "Pause en millisecondes"},
        {"pauseMs", "32767.6", false, "", "pauseMs"},
        {"Zviseur", "1E39", false, "", "Zviseur"},
        {"zmin", "1E39", false, "", "<z<"},
        {"xmax", "(2", false, "", "Formule incorrecte"},  // and the program ends
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(std::string(c.champ) + " " + c.texte);
        Parametres p;
        TextesReglage t = textesReglage(p);
        t[champ(c.champ)] = c.texte;
        const Parametres avant = p;
        Parametres lu = p;
        bool incorrecte = false;
        const Erreur e = lisReglage(t, lu, &incorrecte);
        EXPECT_EQ(!e, c.accepte);
        if (!c.accepte) {
            EXPECT_NE(e.message().find(c.motDuMessage), std::string::npos) << e.message();
            EXPECT_EQ(incorrecte, std::string(c.texte) == "(2");
            if (!incorrecte) {
                EXPECT_NE(e.message().find("Rien n'est appliqué"), std::string::npos);
            }
            EXPECT_EQ(lu.xmax, avant.xmax);
            EXPECT_EQ(lu.pauseMs, avant.pauseMs);
            continue;
        }
        const TextesReglage relu = textesReglage(lu);
        Parametres seul;
        TextesReglage attendu = textesReglage(seul);
        const int i = champ(c.champ);
        EXPECT_EQ(relu[i], c.montre);
        for (int j = 0; j < nbChampsReglage; ++j)
            if (j != i) {
                EXPECT_EQ(relu[j], attendu[j]) << nomChampReglage(j);
            }
    }
}

// The remarks shown while typing: which field gets one, with which words,
// and whether applying would refuse it.
TEST(Reglage, RemarquesPendantLaSaisie)
{
    struct Cas {
        std::vector<std::pair<const char*, const char*>> saisies;
        const char* champ;
        const char* mot;  // nullptr: no remark on that field
        bool bloquante;
    };
    const Cas cas[] = {
        {{{"xmin", "-2P"}}, "xmin", nullptr, false},
        {{{"xmax", "(2"}}, "xmax", "Parenthèses non équilibrées", true},
        {{{"xmax", "2)"}}, "xmax", "Formule incorrecte", true},
        {{{"pasT", "1.5E-3"}}, "pasT", "se lit comme une soustraction", false},
        {{{"ymin", ""}}, "ymin", "Champ vide", false},
        {{{"ymin", "abc"}}, "ymin", "ne se lit pas comme un nombre : il vaudra 0", false},
        {{{"tmin", "7"}}, "tmin", "tmin (7) est au-dessus de tmax (6.28)", false},
        {{{"amin", "1"}, {"amax", "1"}},
         "amax",
         "amax est égal à amin : accepté tel quel, mais l'intervalle est vide",
         false},
        {{{"ymax", "-11"}}, "ymin", "la fenêtre reprendra alors les valeurs de mem.log", false},
        {{{"zmin", "5"}, {"zmax", "P"}}, "zmin", "au-dessus de zmax", false},  // lone P reads 0
        {{{"nbrCalZ", "-3"}}, "nbrCalZ", "Valeur négative", false},
        {{{"Xviseur", "-3"}}, "Xviseur", nullptr, false},  // a viewer may be negative
        {{{"pauseMs", "40000"}}, "pauseMs", "n'est pas un entier de -32768 à 32767", true},
        {{{"Zviseur", "1E39"}}, "Zviseur", "dépasse la simple précision", true},
    };
    for (const Cas& c : cas) {
        SCOPED_TRACE(std::string(c.champ) + " " + c.saisies[0].second);
        TextesReglage t = textesReglage(Parametres{});
        for (const auto& [nom, texte] : c.saisies)
            t[champ(nom)] = texte;
        const auto r = remarquesReglage(t);
        const RemarquesChamp& rc = r[champ(c.champ)];
        if (!c.mot) {
            EXPECT_TRUE(rc.textes.empty()) << rc.textes[0];
        } else {
            ASSERT_FALSE(rc.textes.empty());
            bool dit = false;
            for (const std::string& dite : rc.textes)
                dit = dit || dite.find(c.mot) != std::string::npos;
            EXPECT_TRUE(dit) << rc.textes[0];
        }
        EXPECT_EQ(rc.bloquante, c.bloquante);
        // The bench's factory values raise nothing anywhere else.
        for (int i = 0; i < nbChampsReglage; ++i) {
            bool touche = i == champ(c.champ);
            for (const auto& s : c.saisies)
                touche = touche || i == champ(s.first) || (i < 10 && (i ^ 1) == champ(s.first));
            if (!touche) {
                EXPECT_TRUE(r[i].textes.empty()) << nomChampReglage(i) << ": " << r[i].textes[0];
            }
        }
    }
}

}  // namespace
}  // namespace velorin
