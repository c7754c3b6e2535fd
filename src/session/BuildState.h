#pragma once
// The state of the graphable expression builder: the evaluator text of each row, its working
// grids, and the marks it leaves from one run to the next. Its per-row flags are in RowState.

#include <string>

#include "base/Checked.h"

namespace vt {

// What one run of the builder leaves for the next: where its last token went, and the table of
// term starts (a run leaves most of it as the previous runs left it). A keystroke that has to be
// taken back restores these with its row.
struct BuilderMarks {
    int BuildPos = 4;
    Array2<int, 10, 4> TermStart{}; // (level, bar depth)
};

struct BuildState : BuilderMarks {
    CellGrid<std::string> GraphableCells; // (i, slot): the evaluator text, a character a cell
    // The working grids of a run; every run that ends leaves them empty.
    Array1<std::string, 0, 2000> BuildSource;
    Array1<std::string, 0, 2000> BuildTokens;
};

} // namespace vt
