// Colours of the drawing. A colour value is 24-bit with red in the low byte,
// green in the middle byte and blue in the high byte (255 red, 0xFF0000 blue).
#pragma once
#include <cstdint>

namespace velorin {

using Couleur = std::uint32_t;

// The default colours that the reading of the parameter memory file sets.
struct CouleursDefaut {
    Couleur coulBlanc = 0xFFFFFF;
    Couleur coulNoir = 0;  // video-inverted when the inversion flag is on
    Couleur coulRouge = 0xFF;
    Couleur coulBleu = 0xFF0000;
    Couleur coulVert = 0xFF00;
    Couleur coulJaune = 0xFFFF;
    Couleur coulCyan = 0xFFFF00;
    Couleur coulSarcelle = 0x808000;
    Couleur coulOrange = 0x4080FF;
    Couleur coulMagenta = 0xFF00FF;
    Couleur coulJaunePale = 0x80FFFF;

    bool operator==(const CouleursDefaut&) const = default;
};

// The colour scheme: colours of the curves, tangents, radii, projection marks
// and of the frame.
struct SchemaCouleurs {
    Couleur couleurTrace = 0xFFFF;    // a single curve
    Couleur couleurFamille = 0xFFFF;  // the curves of a family
    Couleur couleurTangente = 0xFF;
    Couleur couleurRayon = 0xFF00FF;
    Couleur couleurProjOx = 0xFFFF00;
    Couleur couleurProjOy = 0xFFFF00;
    Couleur couleurProjOz = 0xFFFF00;
    Couleur couleurProjXOy = 0xFF0000;  // forced to blue by the point step
    Couleur couleurProjXOz = 0xFF00;
    Couleur couleurProjYOz = 0x4080FF;
    Couleur couleurAxes = 0xFFFFFF;  // frame: axes, letters, numbers
    // Background of the drawing when "Fond blanc,axes noirs" is off (the
    // white background of that option does not change); video inversion
    // inverts it as it inverts black.
    Couleur couleurFondSombre = 0;
    Couleur couleurFond = 0;  // reference colour for erasing

    bool operator==(const SchemaCouleurs&) const = default;
};

}  // namespace velorin
