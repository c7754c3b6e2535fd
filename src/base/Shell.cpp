#include "base/Shell.h"

namespace vt {

namespace {

// Dialogs with nobody to answer them.
class SilentPlatform : public Platform {
  public:
    int MsgBox(const std::string&, int style, const std::string&) override {
        const int buttons = style & 7;
        return buttons == MsgYesNo || buttons == MsgYesNoCancel ? MsgResultNo
               : buttons == MsgOkCancel                         ? MsgResultCancel
                                                                : MsgResultOk;
    }
    Colour ChooseColour(Colour start) override { return start; }
    std::optional<std::string> OpenFileName(const FileDialogRequest&) override { return {}; }
    std::optional<std::string> SaveFileName(const FileDialogRequest&) override { return {}; }
    bool ChoosePrinter() override { return false; }
    void ShowHelp(const std::string&) override {}
    void OpenWebPage(const std::string&) override {}
};

} // namespace

Platform& HeadlessShell::Dialogs() {
    static SilentPlatform silent;
    return Messages ? *Messages : silent;
}

Surface* HeadlessShell::RowSurface(int row) {
    if (row < 0 || row >= UsableSlots) return nullptr;
    return Papers[static_cast<std::size_t>(row)];
}

Shell& UnboundShell() {
    static HeadlessShell unbound;
    return unbound;
}

} // namespace vt
