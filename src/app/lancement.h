// Starting the window program: what `velorin` does with no sub-command.
// The window is the module libvelorin_fenetre.so, which velorin loads only
// then; this is its one entry point.
#pragma once

// Opens the main window MIRADO on the space catalogue and runs the event
// loop until it closes; returns the exit status.
extern "C" int velorin_lanceFenetre(int argc, char** argv);
