#pragma once
// Helpers for driving rows through the key handler in tests.

#include <memory>
#include <string>
#include <string_view>

#include "commands/KeyStroke.h"
#include "entry/Entry.h"

namespace vt::test {

// A session as the program starts it: the key mask set, row 0 active. On the heap: its fixed
// grids are large.
inline std::unique_ptr<Session> NewEntrySession() {
    auto s = std::make_unique<Session>();
    SetKeyMask(*s);
    return s;
}

// Each character as a key for the active row.
inline void Type(Session& s, std::string_view keys) {
    for (char c : keys)
        Paper_KeyPress(s, s.ActiveSlot, static_cast<unsigned char>(c));
}

// Keys as the Insert commands and a file load send them: S, C and T pass.
inline void TypeFromMenu(Session& s, std::string_view keys) {
    s.TrigFromMenu = true;
    Type(s, keys);
    s.TrigFromMenu = false;
}

} // namespace vt::test
