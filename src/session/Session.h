#pragma once
// The one copy of the shared state. Each subsystem declares its own part; the session is all of
// them together, so that every routine reads the names it knows (s.ActiveSlot, s.TokenCount(i)).

#include "base/Shell.h"
#include "session/AnalysisState.h"
#include "session/BreakdownState.h"
#include "session/BuildState.h"
#include "session/CoreState.h"
#include "session/DisplayState.h"
#include "session/EntryState.h"
#include "session/OutputState.h"
#include "session/PlotState.h"
#include "session/WindowState.h"

namespace vt {

struct Session : CoreState,
                 EntryState,
                 BuildState,
                 PlotState,
                 DisplayState,
                 WindowState,
                 AnalysisState,
                 BreakdownState,
                 OutputState {
    // Whatever shows the session: the main window, or the headless host while none is bound.
    Shell& Host() const { return host_ != nullptr ? *host_ : UnboundShell(); }
    // Binds a host for as long as it lives; null unbinds.
    void BindHost(Shell* host) { host_ = host; }

  private:
    Shell* host_ = nullptr;
};

} // namespace vt
