#pragma once
// A headless host that records what the logic asked of it, and can take the focus of rows or run
// commands when a test says so.

#include <functional>
#include <vector>

#include "base/Shell.h"

namespace vt::test {

struct RecordingShell : HeadlessShell {
    std::vector<int> Focused;     // rows asked for the focus, in order
    int Graphs = 0;               // Enter on a complete row
    std::vector<HostCommand> Ran; // commands asked for, run or not
    // When set, decides whether a command runs; unset, none has a window here.
    std::function<bool(HostCommand, int)> OnCommand;

    bool FocusRow(int row) override {
        Focused.push_back(row);
        return false;
    }
    void GraphCommand() override { ++Graphs; }
    bool RunCommand(HostCommand command, int index) override {
        Ran.push_back(command);
        return OnCommand && OnCommand(command, index);
    }
};

} // namespace vt::test
