#pragma once
#include "session/Session.h"

namespace vt {

// Repaints all five rows from their display text and notes the highest row with text in
// LastFilledSlot (never lowering it). ActiveSlot stands on each row while it is printed and is
// restored at the end.
void RedrawPapers(Session& s);

} // namespace vt
