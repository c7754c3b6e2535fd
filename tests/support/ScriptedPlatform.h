#pragma once
// A Platform for tests: the message boxes and the colour dialog answer from queues that the test
// fills beforehand, and every call is recorded. An empty queue answers as a user who cancels
// would (the start colour); the file and printer dialogs are always cancelled. A message box
// with more than an OK button and nothing queued is a test failure, since its answer decides
// what the code does next.

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "base/Platform.h"

namespace vt::test {

class ScriptedPlatform : public Platform {
  public:
    struct Call {
        std::string Kind; // "MsgBox", "ChooseColour", "OpenFileName", "SaveFileName",
                          // "ChoosePrinter", "ShowHelp", "OpenWebPage"
        std::string Text; // prompt, topic, address, or the file dialog's title
        int Style = 0;    // message box style; the start colour of the colour dialog
    };

    std::deque<int> MsgBoxAnswers;
    std::deque<Colour> ColourAnswers;
    std::vector<Call> Calls;

    int MsgBox(const std::string& prompt, int style, const std::string&) override {
        Calls.push_back({"MsgBox", prompt, style});
        if (!MsgBoxAnswers.empty()) return Pop(MsgBoxAnswers);
        if ((style & 7) == MsgOkOnly) return MsgResultOk;
        ADD_FAILURE() << "message box without a scripted answer: " << prompt;
        return MsgResultCancel;
    }
    Colour ChooseColour(Colour start) override {
        Calls.push_back({"ChooseColour", "", static_cast<int>(start)});
        return ColourAnswers.empty() ? start : Pop(ColourAnswers);
    }
    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        Calls.push_back({"OpenFileName", request.Title});
        return std::nullopt;
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override {
        Calls.push_back({"SaveFileName", request.Title});
        return std::nullopt;
    }
    bool ChoosePrinter() override {
        Calls.push_back({"ChoosePrinter", ""});
        return false;
    }
    void ShowHelp(const std::string& topic) override { Calls.push_back({"ShowHelp", topic}); }
    void OpenWebPage(const std::string& address) override {
        Calls.push_back({"OpenWebPage", address});
    }

    // The texts of the message boxes shown, in order.
    std::vector<std::string> Messages() const {
        std::vector<std::string> out;
        for (const Call& call : Calls)
            if (call.Kind == "MsgBox") out.push_back(call.Text);
        return out;
    }

  private:
    template <class T> static T Pop(std::deque<T>& queue) {
        T answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

} // namespace vt::test
