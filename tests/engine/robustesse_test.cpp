// Generated, broken and extreme formula texts through the whole preparation
// and reading: nothing may crash, hang, or give a value that is not finite.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "commun/formules_aleatoires.h"
#include "engine/lecture.h"
#include "engine/points.h"

namespace velorin {
namespace {

essai::FormulesAleatoires g(20240607);

void verifie(const std::string& brut)
{
    const std::string f = nettoieformule(unifiecrochets(brut), g.tire(9));
    (void)parenthesesequilibrees(f);
    const double a = g.valeur(), b = g.valeur(), c = g.valeur();
    for (const std::string* t : {&brut, &f}) {
        ASSERT_TRUE(std::isfinite(evalplan(*t, a, b)) && std::isfinite(evalespace(*t, a, b)) &&
                    std::isfinite(evalnuage(*t, a, b, c)) && std::isfinite(lisnombre(*t, a)))
            << *t;
    }
    GlobalesMoteur m;
    m.formuleF1 = f, m.formuleF2 = g.abime(f), m.formuleF3 = brut, m.pointX = b;
    pointcourbe(m, a);
    pointparametre(m, a, 1, true);
    pointpolaire(m, a, g.tire(2) == 0);
    pointsurface(m, a, c);
    pointspherique(m, a, c);
    ASSERT_TRUE(std::isfinite(m.pointX) && std::isfinite(m.pointY) && std::isfinite(m.pointZ)) << f;
}

TEST(MoteurRobustesse, TextesAleatoiresAbimesEtExtremesToujoursFinis)
{
    for (int i = 0; i < 2000 && !HasFatalFailure(); ++i) {
        const std::string f = g.texte();
        verifie(f);
        verifie(g.abime(f));
        verifie(g.octets());
    }
    std::string sinus, melange;
    for (int i = 0; i < 5000; ++i)
        sinus += "SIN(X)+", melange += "2SIN(X)ARCSINH(E";
    for (const std::string& s :
         {std::string(20000, '(') + "X" + std::string(20000, ')'), std::string(20000, ')') + std::string(20000, '('),
          std::string(50000, 'E'), "1" + std::string(400, '0'), std::string(30000, '-') + "X", sinus, melange})
        verifie(s);
}

}  // namespace
}  // namespace velorin
