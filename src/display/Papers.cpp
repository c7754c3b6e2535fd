#include "display/Papers.h"

#include "base/Surface.h"
#include "display/Typesetter.h"
#include "translate/Graphable.h"

namespace vt {

void RedrawPapers(Session& s) {
    const int keep = s.ActiveSlot;
    for (int i = 0; i < UsableSlots; ++i) {
        Surface* paper = s.Host().RowSurface(i);
        if (paper != nullptr) {
            paper->Cls();
            std::string text = DisplayText(s, i);
            s.ActiveSlot = i;
            PrintEquation(s, text, *paper, false);
        }
        if (HasDisplayText(s, i)) s.LastFilledSlot = i;
    }
    s.ActiveSlot = keep;
}

} // namespace vt
