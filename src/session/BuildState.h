#pragma once
// The state of the graphable expression builder: the evaluator text of each row, its working
// grids, and the flags it leaves for the entry rules.

#include <string>

#include "base/Checked.h"

namespace vt {

struct BuildState {
    CellGrid<std::string> GraphableCells; // (i, slot): the evaluator text, a character a cell
    Array1<std::string, 0, 2000> BuildSource;
    Array1<std::string, 0, 2000> BuildTokens;
    int BuildPos = 4;
    SlotArray<bool> FractionOpen{};
    SlotArray<bool> RootOpen{};
    SlotArray<bool> ExponentOpen{};
    Array2<int, 10, 4> TermStart{}; // (level, bar depth)
    SlotArray<bool> SlotIncomplete{};
};

} // namespace vt
