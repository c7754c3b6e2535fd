#pragma once
// What the file commands share between calls: the file dialog's filter. The save dialogs set
// it, and the load dialog shows whatever the last save left there (none before the first
// save, the bitmap filter after a bitmap was saved), as one shared dialog object behaves.

#include <string>

namespace vt {

struct OutputState {
    std::string DialogFilter;
};

} // namespace vt
