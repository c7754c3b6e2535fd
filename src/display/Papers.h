#pragma once
#include "session/Session.h"

namespace vt {

// Repaints all five rows from their display text: each row's surface (when there is one) is
// cleared and the text typeset on it, unwrapped. LastFilledSlot is set to each row that has text,
// so it ends on the highest of them; with no text anywhere it keeps its value, and only the Clear
// command lowers it then. ActiveSlot stands on each row while it is printed and is restored at
// the end.
void RedrawPapers(Session& s);

} // namespace vt
