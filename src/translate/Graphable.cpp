#include "translate/Graphable.h"

namespace vt {

std::string GraphableText(const Session& s, int slot) {
    std::string out;
    for (int i = 0; i <= CellUpper; ++i) out += s.GraphableCells(i, slot);
    return out;
}

std::string DisplayText(const Session& s, int slot) {
    std::string out;
    for (int i = 0; i <= 1000; ++i) out += s.DisplayTokens(i, slot);
    return out;
}

} // namespace vt
