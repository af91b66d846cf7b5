// What the tracers ask of the program around them: the per-point pause (the
// window yields to its event loop), the interruption test (Escape) and the
// beep after a cloud. Tests and the export leave them empty: nothing waits.
#pragma once
#include <functional>
#include <string>

namespace velorin {

struct CrochetsTrace {
    std::function<void(int ms)> pause;  // called only when a pause is due
    std::function<bool()> interrompu;   // true: stop the tracing in progress
    std::function<void()> bip;
    // Called when a tracing starts, with the window caption to show during it.
    std::function<void(const std::string& legende)> debut;
};

}  // namespace velorin
