#pragma once
// The state of evaluation and plotting.

#include <string>

#include "session/Checked.h"

namespace vt {

struct PlotState {
    // The evaluator text of each slot after PreCalcFX, x still free. Five entries only: an index
    // of 5 is an error, unlike the per-slot arrays.
    Array1<std::string, 0, 4> ScriptText;
};

} // namespace vt
