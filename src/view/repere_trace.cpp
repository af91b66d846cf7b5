#include "view/repere_trace.h"

#include "view/repere.h"

namespace velorin {

TraceRepere::TraceRepere(Surface& s, Couleur couleur) : surface(s), couleur_(couleur), garde_(s)
{
    s.DrawWidth = 1;
    s.DrawStyle = 0;
    s.ForeColor = couleur;
    s.FontName = "Arial";
    s.FontSize = tailleTexteRepere(s.Width(), s.Height());
}

bool TraceRepere::dedans(double x, double y) const
{
    return x >= 0 && y >= 0 && x <= surface.Width() && y <= surface.Height();
}

void TraceRepere::ligne(double x1, double y1, double x2, double y2)
{
    if (!coupeSegment(x1, y1, x2, y2, 0, 0, surface.Width(), surface.Height()))
        return;
    if (attache_)
        surface.LineEspace(x1, y1, x2, y2, *attache_, *attache_, couleur_);
    else
        surface.Line(x1, y1, x2, y2, couleur_);
    traits_.push_back({x1, y1, x2, y2});
}

void TraceRepere::ligneEspace(double x1, double y1, double x2, double y2, const Point3& a, const Point3& b)
{
    if (!dedans(x1, y1) || !dedans(x2, y2))
        return;
    surface.LineEspace(x1, y1, x2, y2, a, b, couleur_);
    traits_.push_back({x1, y1, x2, y2});
}

void TraceRepere::fleche(double x, double y, double ux, double uy)
{
    constexpr double longueur = 150, demiLargeur = 55;
    const double bx = x - longueur * ux, by = y - longueur * uy;
    ligne(bx - demiLargeur * uy, by + demiLargeur * ux, x, y);
    ligne(bx + demiLargeur * uy, by - demiLargeur * ux, x, y);
}

void TraceRepere::trait(double x, double y, double ux, double uy, double demi)
{
    ligne(x - demi * uy, y + demi * ux, x + demi * uy, y - demi * ux);
}

bool TraceRepere::texte(const std::string& t, double px, double py, double ux, double uy, double ecart, int directions)
{
    // Nothing is written about a point out of sight.
    if (!dedans(px, py))
        return false;
    const auto cadre = placeCadre(px, py, ux, uy, surface.TextWidth(t), surface.TextHeight(), ecart, occupes_, traits_,
                                  surface.Width(), surface.Height(), directions);
    if (!cadre)
        return false;
    occupes_.push_back(*cadre);
    surface.CurrentX = cadre->x;
    surface.CurrentY = cadre->y;
    if (attache_)
        surface.PrintEspace(t, px, py, *attache_);
    else
        surface.Print(t);
    return true;
}

}  // namespace velorin
