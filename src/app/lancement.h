// Starting the window program: what `velorin` does with no sub-command.
#pragma once

namespace velorin {

// Opens the main window MIRADO on the space catalogue and runs the event
// loop until it closes; returns the exit status.
int lanceFenetre(int argc, char** argv);

}  // namespace velorin
