#include "plot/etiquettes.h"

#include <algorithm>
#include <cmath>

#include "engine/nombres.h"

namespace velorin {

namespace {

// The leading number of an answer (0 when there is none), as a whole
// number; nothing when it does not fit one.
std::optional<long> entierEnTete(const std::string& reponse)
{
    bool echec = false;
    const double v = nombreEnTete(reponse, echec);
    if (echec || !std::isfinite(v) || std::fabs(v) > 1e9)
        return std::nullopt;
    return static_cast<long>(std::trunc(v));
}

}  // namespace

int ajouteEtiquette(Etiquettes& e, float gauche, float haut)
{
    Etiquette nouvelle = e.lb.front();
    nouvelle.gauche = gauche;
    nouvelle.haut = haut;
    nouvelle.visible = true;
    e.lb.push_back(nouvelle);
    const int k = e.nombre();
    agrandisSuivi(e, k);
    return k;
}

void arralb3(Etiquettes& e)
{
    for (;;) {
        auto vide = std::find_if(e.lb.begin() + 1, e.lb.end(), [](const Etiquette& l) { return l.texte.empty(); });
        if (vide == e.lb.end())
            return;
        for (auto l = vide; l + 1 != e.lb.end(); ++l) {
            const Etiquette& suivante = *(l + 1);
            l->texte = suivante.texte;
            l->taille = suivante.taille;
            l->gras = suivante.gras;
            l->italique = suivante.italique;
            l->souligne = suivante.souligne;
            l->couleur = suivante.couleur;
            l->gauche = suivante.gauche;
            l->haut = suivante.haut;
        }
        e.lb.pop_back();
    }
}

void videlabel(Etiquettes& e)
{
    while (e.lb.size() > 1)
        e.lb.pop_back();
}

void reinitialiseSuivi(Etiquettes& e)
{
    for (auto* v : {&e.general1, &e.general2, &e.general3, &e.general4, &e.general5})
        v->assign(1, 0);
    e.drapeaux.assign(1, false);
    e.simples.assign(1, 0);
    e.doubles.assign(1, 0);
}

void agrandisSuivi(Etiquettes& e, int k)
{
    const auto n = static_cast<std::size_t>(std::max(k, 0)) + 1;
    for (auto* v : {&e.general1, &e.general2, &e.general3, &e.general4, &e.general5})
        v->resize(std::max(v->size(), n), 0);
    e.drapeaux.resize(std::max(e.drapeaux.size(), n), false);
    e.simples.resize(std::max(e.simples.size(), n), 0);
    e.doubles.resize(std::max(e.doubles.size(), n), 0);
}

Couleur couleurChoisie(const std::string& reponse, const CouleursDefaut& couleurs, Couleur blancOuNoir)
{
    switch (entierEnTete(reponse).value_or(0)) {
    case 1: return couleurs.coulBleu;
    case 2: return couleurs.coulRouge;
    case 3: return couleurs.coulJaune;
    case 4: return couleurs.coulVert;
    default: return blancOuNoir;
    }
}

std::optional<std::string> policeChoisie(const std::string& reponse)
{
    const std::optional<long> n = entierEnTete(reponse);
    if (!n || *n < 0)
        return std::nullopt;
    static const char* const polices[] = {"Arial", "Bookman Old Style", "Courier New", "Symbol", "Algerian"};
    return std::string(polices[std::min(*n, 4L)]);
}

std::optional<float> tailleChoisie(const std::string& reponse)
{
    bool echec = false;
    const double v = nombreEnTete(reponse, echec);
    if (echec || !(v > 0 && v <= 2000))
        return std::nullopt;
    return static_cast<float>(v);
}

std::string bulleEtiquette(const Etiquettes& e, int index)
{
    const std::string texte = index >= 0 && index < int(e.lb.size()) ? e.lb[index].texte : std::string();
    return "Label n° " + std::to_string(index) + "/" + std::to_string(e.nombre()) + "__" + texte;
}

}  // namespace velorin
