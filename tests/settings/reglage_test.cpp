#include <gtest/gtest.h>

#include <string>

#include "settings/reglage.h"

namespace velorin {
namespace {
int champ(const std::string& nom)
{
    for (int i = 0; i < nbChampsReglage; ++i)
        if (nomChampReglage(i) == nom)
            return i;
    ADD_FAILURE() << nom;
    return 0;
}

// A value the member cannot hold refuses the whole set, its message naming `montre`; "(2" ends the program.
// An accepted text shows as `montre` once read, the other fields unchanged.
TEST(Reglage, LectureEtConversionParChampRefusSansRienAppliquer)
{
    const std::tuple<const char*, const char*, bool, const char*> cas[] = {
        {"xmin", "-2P", true, "-6.283184"},
        {"pasT", "1.5E-3", true, "-1.5"},  // the evaluator reads "E-" as a subtraction
        {"amin", "(1)+(2)", true, "3"},
        {"xmax", "1E999", true, "1000000000"},  // a failed computation is horsCalcul
        {"Rotadir", "", true, "0"},             // an emptied field reads 0
        {"ymin", "abc", true, "0"},             // no number: 0, accepted
        {"pauseMs", "2.5", true, "2"},          // rounded half to even
        {"zmin", "P/3", true, "1.047197"},
        {"pauseMs", "40000", false, "Pause en millisecondes"},
        {"pauseMs", "32767.6", false, "pauseMs"},
        {"Zviseur", "1E39", false, "Zviseur"},
        {"Xdirection", "1E10", false, "valeur 10000000000 est hors des limites (-1000000000 à 1000000000)"},
        {"zmin", "1E39", false, "<z<"},
        {"xmax", "(2", false, "Formule incorrecte"}};
    const TextesReglage usine = textesReglage(Parametres{});
    for (auto [nom, texte, accepte, montre] : cas) {
        SCOPED_TRACE(std::string(nom) + " " + texte);
        const Parametres avant;
        TextesReglage t = usine;
        t[champ(nom)] = texte;
        Parametres lu = avant;
        bool incorrecte = false;
        const Erreur e = lisReglage(t, lu, &incorrecte);
        EXPECT_EQ(!e, accepte);
        if (!accepte) {
            EXPECT_NE(e.message().find(montre), std::string::npos) << e.message();
            EXPECT_EQ(incorrecte, std::string(texte) == "(2");
            EXPECT_EQ(e.message().find("Rien n'est appliqué") != std::string::npos, !incorrecte) << e.message();
            EXPECT_EQ(std::tuple(lu.xmax, lu.pauseMs), std::tuple(avant.xmax, avant.pauseMs));
            continue;
        }
        const TextesReglage relu = textesReglage(lu);
        for (int j = 0; j < nbChampsReglage; ++j)
            EXPECT_EQ(relu[j], j == champ(nom) ? montre : usine[j]) << nomChampReglage(j);
    }
}

// The remarks while typing: on which field, which words (none: no remark), whether applying refuses it.
TEST(Reglage, RemarquesPendantLaSaisie)
{
    const std::tuple<std::vector<std::pair<const char*, const char*>>, const char*, const char*, bool> cas[] = {
        {{{"xmin", "-2P"}}, "xmin", nullptr, false},
        {{{"xmax", "(2"}}, "xmax", "Parenthèses non équilibrées", true},
        {{{"xmax", "2)"}}, "xmax", "Formule incorrecte", true},
        {{{"pasT", "1.5E-3"}}, "pasT", "se lit comme une soustraction", false},
        {{{"ymin", ""}}, "ymin", "Champ vide", false},
        {{{"ymin", "abc"}}, "ymin", "ne se lit pas comme un nombre : il vaudra 0", false},
        {{{"tmin", "7"}}, "tmin", "tmin (7) est au-dessus de tmax (6.28)", false},
        {{{"amin", "1"}, {"amax", "1"}}, "amax", "amax est égal à amin : accepté tel quel, mais l'intervalle est vide",
         false},
        {{{"ymax", "-11"}}, "ymin", "la fenêtre reprendra alors les valeurs de mem.log", false},
        {{{"zmin", "5"}, {"zmax", "P"}}, "zmin", "au-dessus de zmax", false},  // lone P reads 0
        {{{"nbrCalZ", "-3"}}, "nbrCalZ", "Valeur négative", false},
        {{{"Xviseur", "-3"}}, "Xviseur", nullptr, false},  // a viewer may be negative
        {{{"pauseMs", "40000"}}, "pauseMs", "n'est pas un entier de -32768 à 32767", true},
        {{{"Zviseur", "1E39"}}, "Zviseur", "dépasse la simple précision", true}};
    for (const auto& [saisies, nom, mot, bloquante] : cas) {
        SCOPED_TRACE(std::string(nom) + " " + saisies[0].second);
        TextesReglage t = textesReglage(Parametres{});
        for (const auto& [champSaisi, texte] : saisies)
            t[champ(champSaisi)] = texte;
        const auto r = remarquesReglage(t);
        const RemarquesChamp& rc = r[champ(nom)];
        bool dit = false;
        for (const std::string& dite : rc.textes)
            dit = dit || (mot && dite.find(mot) != std::string::npos);
        EXPECT_EQ(dit, mot != nullptr);
        EXPECT_EQ(rc.textes.empty(), mot == nullptr) << (rc.textes.empty() ? "" : rc.textes[0]);
        EXPECT_EQ(rc.bloquante, bloquante);
        for (int i = 0; i < nbChampsReglage; ++i) {
            bool touche = i == champ(nom);
            for (const auto& s : saisies)
                touche = touche || i == champ(s.first) || (i < 10 && (i ^ 1) == champ(s.first));
            EXPECT_TRUE(touche || r[i].textes.empty()) << nomChampReglage(i) << ": " << r[i].textes[0];
        }
    }
}
}  // namespace
}  // namespace velorin
