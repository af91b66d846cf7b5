// The on-screen labels of a drawing: free texts the user puts over it.
//
// Element 0 is the hidden template (caption "texte à afficher"): it is never
// shown, drawn or saved. Labels 1, 2, ... are the user's. The window shows
// each one as a control over the drawing; the figure files, the exports and
// the printing read them from here, so a label is part of the picture.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "settings/couleurs.h"

namespace velorin {

struct Etiquette {
    std::string texte = "texte à afficher";  // caption
    std::string police = "Arial";
    float taille = 10.0F;  // points
    bool gras = false, italique = false, souligne = false;
    std::int32_t couleur = 0;    // red + 256 green + 65536 blue
    float gauche = 0, haut = 0;  // position in the window, twips
    bool visible = false;

    bool operator==(const Etiquette&) const = default;
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

    bool operator==(const Etiquettes&) const = default;
};

// Loads the next label from the template at (gauche, haut), in twips, made
// visible, and grows the bookkeeping arrays to it. Returns its index.
int ajouteEtiquette(Etiquettes& e, float gauche, float haut);

// Compacts the labels after one was emptied (an empty caption): each label
// after it takes, one index lower, the caption, size, bold, italic,
// underline, colour and position of its successor, and the last one is
// unloaded. The font name stays with its index. Positions are copied, so
// the labels that move down stay where they were on the screen.
void arralb3(Etiquettes& e);

// Unloads every label above the template, from the highest down.
void videlabel(Etiquettes& e);

// The bookkeeping arrays back to one element each (the drawing forgotten
// or a figure read).
void reinitialiseSuivi(Etiquettes& e);

// Grows the bookkeeping arrays to hold index `k`, keeping their contents.
void agrandisSuivi(Etiquettes& e, int k);

// The colour chosen by the answer to "0)Blanc ou noir 1)Bleu 2)Rouge 3 Jaune
// 4) Vert": its leading number 1 blue, 2 red, 3 yellow, 4 green; anything
// else (0, 7, nothing) gives `blancOuNoir`, the window's drawing colour.
Couleur couleurChoisie(const std::string& reponse, const CouleursDefaut& couleurs, Couleur blancOuNoir);

// The font chosen by the answer to "0)Arial 1)Courier 2)Times 3 Grec 4)
// Algerian": 0 "Arial", 1 "Bookman Old Style", 2 "Courier New", 3 "Symbol",
// 4 and more "Algerian" (the words of the prompt and the fonts given for 1
// and 2 differ: that pairing is the program's). A negative answer changes
// nothing.
std::optional<std::string> policeChoisie(const std::string& reponse);

// The size typed for "Tapez la nouvelle taille de police", read by its
// leading number ("14abc" is 14): a positive number, or nothing (the size
// stays).
std::optional<float> tailleChoisie(const std::string& reponse);

// The tip of label `index`: "Label n° " index "/" highest index "__" caption.
std::string bulleEtiquette(const Etiquettes& e, int index);

}  // namespace velorin
