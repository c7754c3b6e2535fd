#pragma once
// A Platform for tests: every dialog answers from a queue that the test fills beforehand, and
// every call is recorded. An empty queue answers as a user who cancels would (the start colour,
// no file name, no printer); a message box with more than an OK button and nothing queued is a
// test failure, since its answer decides what the code does next.

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "session/Platform.h"

namespace vt::test {

class ScriptedPlatform : public Platform {
  public:
    struct Call {
        std::string Kind;          // "MsgBox", "ChooseColour", "OpenFileName", "SaveFileName",
                                   // "ChoosePrinter", "ShowHelp", "OpenWebPage"
        std::string Text;          // prompt, topic, address, or the dialog's title
        int Style = 0;             // message box style; the start colour of the colour dialog
        std::string Title;         // message box title
        FileDialogRequest Request; // file dialogs
    };

    std::deque<int> MsgBoxAnswers;
    std::deque<Colour> ColourAnswers;
    std::deque<std::optional<std::string>> FileAnswers; // open and save share one queue
    std::deque<bool> PrinterAnswers;

    std::vector<Call> Calls;

    int MsgBox(const std::string& prompt, int style, const std::string& title) override {
        Calls.push_back({"MsgBox", prompt, style, title, {}});
        if (!MsgBoxAnswers.empty()) {
            const int answer = MsgBoxAnswers.front();
            MsgBoxAnswers.pop_front();
            return answer;
        }
        if ((style & 7) == MsgOkOnly) return MsgResultOk;
        ADD_FAILURE() << "message box without a scripted answer: " << prompt;
        return MsgResultCancel;
    }

    Colour ChooseColour(Colour start) override {
        Calls.push_back({"ChooseColour", "", static_cast<int>(start), "", {}});
        return Pop(ColourAnswers, start);
    }

    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        Calls.push_back({"OpenFileName", request.Title, 0, "", request});
        return Pop(FileAnswers, std::optional<std::string>());
    }

    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override {
        Calls.push_back({"SaveFileName", request.Title, 0, "", request});
        return Pop(FileAnswers, std::optional<std::string>());
    }

    bool ChoosePrinter() override {
        Calls.push_back({"ChoosePrinter", "", 0, "", {}});
        return Pop(PrinterAnswers, false);
    }

    void ShowHelp(const std::string& topic) override {
        Calls.push_back({"ShowHelp", topic, 0, "", {}});
    }

    void OpenWebPage(const std::string& address) override {
        Calls.push_back({"OpenWebPage", address, 0, "", {}});
    }

    // The texts of the message boxes shown, in order.
    std::vector<std::string> Messages() const {
        std::vector<std::string> out;
        for (const Call& call : Calls)
            if (call.Kind == "MsgBox") out.push_back(call.Text);
        return out;
    }

  private:
    template <class T> static T Pop(std::deque<T>& queue, T fallback) {
        if (queue.empty()) return fallback;
        T answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

} // namespace vt::test
