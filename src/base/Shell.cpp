#include "base/Shell.h"

namespace vt {

int SilentPlatform::MsgBox(const std::string&, int style, const std::string&) {
    const int buttons = style & 7;
    return buttons == MsgYesNo || buttons == MsgYesNoCancel ? MsgResultNo
           : buttons == MsgOkCancel                         ? MsgResultCancel
                                                            : MsgResultOk;
}

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
