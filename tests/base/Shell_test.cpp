#include <gtest/gtest.h>

#include "base/Shell.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

TEST(HeadlessShell, AnswersEveryMessageAsDismissed) {
    // {style, answer}: a question no one reads is answered "No", a cancel box "Cancel".
    // clang-format off
    const std::pair<int, int> cases[] = {
        {MsgOkOnly, MsgResultOk}, {MsgOkCancel, MsgResultCancel}, {MsgYesNoCancel, MsgResultNo},
        {MsgYesNo | MsgQuestion, MsgResultNo}, {MsgOkOnly | MsgInformation, MsgResultOk}};
    // clang-format on
    HeadlessShell host;
    for (const auto& [style, answer] : cases)
        EXPECT_EQ(host.Dialogs().MsgBox("?", style, ""), answer) << style;
    EXPECT_EQ(host.Dialogs().ChooseColour(0x123456), 0x123456u);
    EXPECT_FALSE(host.Dialogs().ChoosePrinter() || host.Dialogs().OpenFileName({}));
}

TEST(HeadlessShell, LendsOnlyWhatWasLentAndRunsNoWindow) {
    HeadlessShell host;
    test::ScriptedPlatform platform;
    test::RecordingSurface row(100, 20);
    host.Messages = &platform;
    host.Papers[4] = &row;
    host.Dialogs().MsgBox("hello", MsgOkOnly, "");
    EXPECT_EQ(platform.Messages(), std::vector<std::string>{"hello"});
    // Rows outside 0..4 have no surface rather than an error.
    for (int index : {-1, 0, 3, 5, 10})
        EXPECT_EQ(host.RowSurface(index), nullptr) << index;
    EXPECT_EQ(std::tuple(host.RowSurface(4), host.GraphBox(), host.FocusRow(0),
                         host.RunCommand(HostCommand::Evaluate, 0)),
              std::tuple(&row, nullptr, false, false));
    // A session nobody bound uses a headless host that lends nothing.
    EXPECT_EQ(UnboundShell().GraphBox(), nullptr);
    EXPECT_EQ(UnboundShell().Dialogs().MsgBox("?", MsgYesNo, ""), MsgResultNo);
}

} // namespace
} // namespace vt
