#pragma once
#include "session/Session.h"

namespace vt {

// What the program's start does to the session, apart from the windows: the default view, the
// first row counted as incomplete until something is typed, and the key mask. The window's load
// adds its own steps (the splash, the first paint, showing itself) around this.
void StartSession(Session& s);

} // namespace vt
