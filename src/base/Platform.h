#pragma once
// Every modal interaction with the user goes through this one interface: message boxes, the
// colour chooser, file dialogs, the printer dialog, help and web pages. The app implements it
// with Qt; the tests use a scripted double that answers and records.

#include <optional>
#include <string>

#include "base/Surface.h"

namespace vt {

// Buttons and icons of a message box, combined as in the classic message box styles.
enum MsgBoxStyle : int {
    MsgOkOnly = 0,
    MsgOkCancel = 1,
    MsgYesNoCancel = 3,
    MsgYesNo = 4,
    MsgCritical = 16,
    MsgQuestion = 32,
    MsgExclamation = 48,
    MsgInformation = 64,
};

// What a message box answers.
enum MsgBoxResult : int {
    MsgResultOk = 1,
    MsgResultCancel = 2,
    MsgResultYes = 6,
    MsgResultNo = 7,
};

struct FileDialogRequest {
    std::string Title;
    std::string Filter; // "Graph Data (*.vtx)|*.vtx" style: pairs of caption and pattern
    std::string InitialDir;
    std::string FileName;   // proposed name
    std::string DefaultExt; // added when the user types none
};

class Platform {
  public:
    virtual ~Platform() = default;

    virtual int MsgBox(const std::string& prompt, int style, const std::string& title) = 0;
    // The colour chooser, started from `start`. A cancelled dialog answers `start`.
    virtual Colour ChooseColour(Colour start) = 0;
    // File dialogs; no value when the user cancels.
    virtual std::optional<std::string> OpenFileName(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> SaveFileName(const FileDialogRequest& request) = 0;
    // The printer dialog; false when the user cancels.
    virtual bool ChoosePrinter() = 0;
    virtual void ShowHelp(const std::string& topic) = 0;
    virtual void OpenWebPage(const std::string& address) = 0;
};

} // namespace vt
