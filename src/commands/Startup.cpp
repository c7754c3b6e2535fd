#include "commands/Startup.h"

#include "entry/Entry.h"

namespace vt {

void StartSession(Session& s) {
    s.ViewXMin = -20;
    s.ViewYMin = -20;
    s.ViewXMax = 20;
    s.ViewYMax = 20;
    // The first row is incomplete until it holds a function, so the graph commands start
    // disabled; the other rows are not.
    s.SlotIncomplete(0) = true;
    for (int i = 1; i <= 9; ++i)
        s.SlotIncomplete(i) = false;
    SetKeyMask(s);
}

} // namespace vt
