// The entry texts the editors build from their boxes, kind by kind and mode
// by mode, and what the plot request reads back from them.
#include <gtest/gtest.h>

#include "plot/demande.h"
#include "plot/texte_entree.h"

namespace velorin {
namespace {

using Trois = std::array<std::string, 3>;

TEST(TexteEntree, ParGenreEtParMode)
{
    const Trois typees{" sin[t] ", "2*{t+1}", "t^2"};
    struct Cas {
        int genre;
        bool espace;
        Trois invites;  // empty: those of the editor opened on the kind
        Trois boites;
        const char* texte;
    } const cas[] = {
        {0, false, {}, typees, "y = f(x)=sin(t)"},
        // Kind 0 in space also stores the third box, behind the third prompt
        // as it stands: none when the editor opened on kind 0, the old one
        // after another type.
        {0, true, {}, typees, "y = f(x)=sin(t)][t^2"},
        {0, true, {"y = f(x)=", "y=f2(a,t)=", "z=f3(a,t)="}, typees, "y = f(x)=sin(t)][z=f3(a,t)=t^2"},
        {1, false, {}, typees, "x=f1(t)=sin(t)][y=f2(t)=2*(t+1)"},
        {1, true, {}, typees, "x=f1(t)=sin(t)][y=f2(t)=2*(t+1)][z=f3(t)=t^2"},
        {2, true, {}, {"a", "t", "sin(a)"}, "x=f1(a,t)=a][y=f2(a,t)=t][z=f3(a,t)=sin(a)"},
        {3, false, {}, typees, "R=f1(t)=sin(t)][Agh=f2(t)=2*(t+1)"},
        {4, true, {}, {"2", "a", "t"}, "R=f1(a,t)=2][Agh=f2(a,t)=a][Agv=f3(a,t)=t"},
        {5, true, {}, {"[1,2,3]", " {1,0,0} ", "ignorée"}, "D(M,u):[(1,2,3)][(1,0,0)]"},
        {5, false, {}, {"(1,2)", "(0,1)", ""}, "D(M,u):[(1,2)][(0,1)]"},
        {6, true, {}, {"(0,0,0)", "[1,0,0]", "(0,1,0)"}, "P(M,u,v):[(0,0,0)][(1,0,0)][(0,1,0)]"},
        {7, true, {}, {" 2x+y-z+1=0 ", "non lue", "non lue"}, "Plan:[2x+y-z+1=0]"},
        {7, false, {}, {"x+y-1=0", "", ""}, "Droite:[x+y-1=0]"},
        {8, true, {}, {"(0,0,0)", "(1,1,{2})", ""}, "Segment:[(0,0,0)][(1,1,(2))]"},
        {9, false, {}, {"[1,2]", "", ""}, "Point:[(1,2)]"},
        {14, true, {}, {"x^2", "2*x+1", "10"}, "x^2<2*x+1<10"},
        {15, false, {}, {" -x ", "sin[x*y]", "x+y "}, "-x<sin(x*y)<x+y"},
        // Kinds no editor writes give nothing.
        {6, false, {}, typees, ""},
        {12, true, {}, typees, ""},
        {-1, true, {}, typees, ""},
    };
    for (const Cas& c : cas) {
        const Trois invites = c.invites[0].empty() ? invitesDuGenre(c.genre) : c.invites;
        EXPECT_EQ(texteEntree(c.genre, c.espace, invites, c.boites), c.texte) << c.genre << " " << c.espace;
    }
}

// Every box the editor reads comes back, in its order, from the fields the
// plot request cuts out of the stored text; the boxes are named for the
// user one by one.
TEST(TexteEntree, LesChampsRelusSontLesBoitesLues)
{
    const Trois boites{"(1,2,3)", "(4,5,6)", "(7,8,9)"};
    for (bool espace : {true, false})
        for (int genre = -1; genre <= 16; ++genre) {
            const std::vector<int> lues = boitesLues(genre, espace);
            EXPECT_EQ(nomsDesBoites(genre, espace).size(), lues.size()) << genre;
            if (lues.empty())
                continue;
            const Trois champs = champsEntree(genre, texteEntree(genre, espace, invitesDuGenre(genre), boites));
            for (std::size_t i = 0; i < lues.size(); ++i)  // a function's field: its prompt, then the formula
                EXPECT_TRUE(champs[i].ends_with(boites[std::size_t(lues[i])])) << genre << espace << i << champs[i];
        }
}

// Refused before it is written exactly when its drawing would fail on the
// text: coordinates the object tracers cannot read, brackets that stop the
// evaluator (a warning, or a null vector the tracer tells, is no refusal).
TEST(TexteEntree, RefuseeQuandLeTraceEchoueraitSurLeTexte)
{
    const std::tuple<int, bool, Trois, std::string> cas[] = {  // the start of the message; empty: accepted
        {9, true, {"", "", ""}, "Point incorrect : (vide) ;"}, {9, true, {"(1,2", "", ""}, "Point incorrect : (1,2 ;"},
        {9, true, {"(1,2)", "", ""}, "Point incorrect : (1,2) ;"}, {9, false, {"[1,2}", "", ""}, ""},
        {5, true, {"(1,2,3)", "(1,0", ""}, "Vecteur incorrect : (1,0 ;"}, {5, true, {"(1,2,3)", "(0,0,0)", ""}, ""},
        {8, true, {"(0,0,0)", "1,1", ""}, "Point incorrect : 1,1 ;"}, {7, true, {"2x+y=", "", ""}, "Équation de plan"},
        {1, true, {"cos(t)", "X)+(1", "t"}, "La formule y=f2(t)= « X)+(1 » n'est pas enregistrée : lue X)+(1, position 1"},
        {15, true, {"-1", "(X)(Y)", "1"}, "La fonction f « (X)(Y) »"}, {1, true, {"SIN(T)+1", "T", "T"}, ""}};
    for (const auto& [genre, espace, boites, debut] : cas) {
        const Erreur e = verifieEntree(genre, espace, boites);
        EXPECT_EQ(std::pair(e.message().substr(0, debut.size()), bool(e)), std::pair(debut, !debut.empty()))
            << genre << " " << boites[0] << " " << e.message();
    }
}

}  // namespace
}  // namespace velorin
