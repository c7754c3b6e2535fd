#pragma once
// The command-line companion's answer to the program's dialogs: nobody is there to click, so
// messages are kept for the output and every question gets its default.

#include <string>
#include <vector>

#include "base/Platform.h"

namespace vt::cli {

class CliPlatform : public Platform {
  public:
    std::vector<std::string> Messages;

    int MsgBox(const std::string& prompt, int style, const std::string&) override {
        Messages.push_back(prompt);
        return (style & 7) == MsgYesNo || (style & 7) == MsgYesNoCancel ? MsgResultNo : MsgResultOk;
    }
    Colour ChooseColour(Colour start) override { return start; }
    std::optional<std::string> OpenFileName(const FileDialogRequest&) override { return {}; }
    std::optional<std::string> SaveFileName(const FileDialogRequest&) override { return {}; }
    bool ChoosePrinter() override { return false; }
    void ShowHelp(const std::string&) override {}
    void OpenWebPage(const std::string&) override {}
};

} // namespace vt::cli
