// The on-screen labels of a drawing: free texts the user puts over it.
//
// Element 0 is the hidden template (caption "texte à afficher"): it is never
// shown, drawn or saved. Labels 1, 2, ... are the user's. The window shows
// each one as a control over the drawing; the figure files, the exports and
// the printing read them from here, so a label is part of the picture.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace velorin {

struct Etiquette {
    std::string texte = "texte à afficher";  // caption
    std::string police = "Arial";
    float taille = 10.0F;  // points
    bool gras = false, italique = false, souligne = false;
    std::int32_t couleur = 0;  // red + 256 green + 65536 blue
    float gauche = 0, haut = 0;  // position in the window, twips
    bool visible = false;
};

struct Etiquettes {
    // lb[0] is the template; the user's labels are lb[1] .. lb[size()-1].
    std::vector<Etiquette> lb{Etiquette{}};
    // The eight bookkeeping arrays kept beside the labels, one slot per label
    // (index 0 included), reset to one element when the drawing is forgotten
    // or a figure is read, and grown with the labels.
    std::vector<std::int32_t> general1{0}, general2{0}, general3{0}, general4{0}, general5{0};
    std::vector<bool> drapeaux{false};
    std::vector<float> simples{0};
    std::vector<double> doubles{0};

    int nombre() const { return static_cast<int>(lb.size()) - 1; }
};

}  // namespace velorin
