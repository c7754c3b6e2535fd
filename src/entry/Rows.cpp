#include "entry/Entry.h"

namespace vt {

bool CanGraph(const Session& s) {
    for (int i = 0; i <= 9; ++i)
        if (s.SlotIncomplete(i)) return false;
    if (s.LastFilledSlot < 0) return false;
    for (int i = 0; i <= s.LastFilledSlot; ++i)
        if (s.TokenCount(i) > 0) return true;
    return false;
}

} // namespace vt
