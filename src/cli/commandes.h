// Sub-commands of the one executable `velorin`. Each returns the exit status.
#pragma once

namespace velorin {

// `velorin calcule ...`: values of a formula; no GUI initialisation at all.
int commandeCalcule(int argc, char** argv);
// `velorin exporte ...`: draws catalogue entries into an image, SVG, PDF or
// journal without a display.
int commandeExporte(int argc, char** argv);
// `velorin catalogue SOUS-COMMANDE ...`: lists and changes a catalogue file
// (sub-commands in cli/catalogue.h).
int commandeCatalogue(int argc, char** argv);
// `velorin sansfenetre`: what `make run` does without a display.
int commandeSansFenetre(int argc, char** argv);

}  // namespace velorin
