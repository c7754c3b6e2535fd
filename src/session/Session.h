#pragma once
// The one copy of the shared state. Each subsystem declares its own part; the session is all of
// them together, so that every routine reads the names it knows (s.ActiveSlot, s.TokenCount(i)).

#include <array>
#include <functional>

#include "analysis/AnalysisState.h"
#include "display/DisplayState.h"
#include "entry/EntryState.h"
#include "plot/PlotState.h"
#include "session/CoreState.h"
#include "session/WindowState.h"
#include "translate/BuildState.h"
#include "translate/breakdown/BreakdownState.h"

namespace vt {

class Surface;
class Platform;

struct Session : CoreState, EntryState, BuildState, PlotState, DisplayState, WindowState,
                 AnalysisState, BreakdownState {
    // What the logic asks of the window, bound by whoever shows the session. Unbound, they do
    // nothing, which is what the command-line companion wants.
    std::function<void(bool)> SetGraphCommandsEnabled; // toolbar buttons 1, 12, 13 and the menus
    std::function<void()> GraphCommand;                // Enter on a complete row draws the graph

    // The surfaces of the five rows (Paper(0)..Paper(4)), when there are any.
    std::array<Surface*, UsableSlots> Paper{};

    // The modal dialogs (message boxes) when there is a window; null in the command-line
    // companion, where a message has no one to read it.
    Platform* Host = nullptr;
};

} // namespace vt
