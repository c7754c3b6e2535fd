#pragma once
// The command-line companion's answer to the program's dialogs: nobody is there to click, so
// messages are kept for the output and every question gets its default.

#include <string>
#include <vector>

#include "base/Shell.h"

namespace vt::cli {

class CliPlatform : public SilentPlatform {
  public:
    std::vector<std::string> Messages;

    // Kept for the output, then answered as nobody there answers.
    int MsgBox(const std::string& prompt, int style, const std::string& title) override {
        Messages.push_back(prompt);
        return SilentPlatform::MsgBox(prompt, style, title);
    }
};

} // namespace vt::cli
