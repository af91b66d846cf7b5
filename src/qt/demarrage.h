// What every Qt start of velorin needs, window or sub-command: a session
// folder made silently when the system gives none, Qt's own messages kept
// off the error output (the program says its failures itself, in French),
// and whether a display can be opened at all.
#pragma once

namespace velorin {

// Sets XDG_RUNTIME_DIR to a private folder of this user in the temporary
// folder when it is not set, so that Qt does not announce making one.
void prepareDossierSession();

// Installs the program's Qt message handler: Qt's debug, information and
// warning messages are not shown (they would stand in English beside the
// program's own French message for the same failure); critical and fatal
// ones are. With the environment variable VELORIN_DEBUG set, every message
// is shown as Qt would show it.
void installeFiltreMessages();

// A Qt platform can be started: QT_QPA_PLATFORM names one that needs no
// display (offscreen, minimal...) or whose display is there (xcb with
// DISPLAY, wayland with WAYLAND_DISPLAY), or it is unset and DISPLAY or
// WAYLAND_DISPLAY is set.
bool affichageDisponible();

}  // namespace velorin
