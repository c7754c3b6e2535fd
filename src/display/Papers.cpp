#include "display/Papers.h"

#include "translate/Graphable.h"

namespace vt {

void RedrawPapers(Session& s) {
    const int keep = s.ActiveSlot;
    for (int i = 0; i < UsableSlots; ++i) {
        const std::string text = DisplayText(s, i);
        s.ActiveSlot = i;
        if (!text.empty()) s.LastFilledSlot = i;
    }
    s.ActiveSlot = keep;
}

} // namespace vt
