#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

#include "commands/MainCommands.h"
#include "entry/EntryTesting.h"
#include "plot/PointSeries.h"
#include "support/RecordingShell.h"
#include "support/ScriptedPlatform.h"

namespace vt {

namespace {

struct Fixture {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    test::ScriptedPlatform platform;
    test::RecordingShell host; // records the rows it was asked to focus

    Fixture() {
        host.Messages = &platform;
        s->BindHost(&host);
        PrepareMainWindow(*s);
    }
    void Type(const std::string& keys) { test::Type(*s, keys); }
};

using Rows = std::vector<int>;
using Texts = std::vector<std::string>;

} // namespace

TEST(MainCommands, BlinkerRevealsTheNextHiddenRowAndFocusesTheRowAfterTheActiveOne) {
    // {rows 1.. revealed first; then the active row; QuietSlotReveal set for the click; rows
    // shown after it; the blinker visible; the row focused, -1 for none}. The row after the
    // active one is focused, not the row just revealed. With all shown only the menu gets here:
    // the hidden button moves on and ShownRows is 5. A file load reveals rows without touching
    // the focus. The blinker stands 840 twips lower for each row shown.
    // clang-format off
    const std::tuple<int, int, bool, int, bool, int> cases[] = {
        {0, 0, false, 1, true, 1}, {3, 3, false, 4, false, 4}, {2, 0, false, 3, true, 1},
        {4, 4, false, 5, false, 4}, {1, 0, true, 2, true, -1}};
    // clang-format on
    for (const auto& [shownBefore, activeBefore, quiet, shownRows, visible, focusedRow] : cases) {
        SCOPED_TRACE(testing::Message() << "shown " << shownBefore << " active " << activeBefore);
        Fixture f;
        for (int i = 1; i <= shownBefore; ++i)
            Blinker_Click(*f.s);
        Paper_GotFocus(*f.s, activeBefore);
        f.host.Focused.clear();
        f.s->QuietSlotReveal = quiet;
        mnuInsertF_Click(*f.s);
        std::string rowsShown;
        for (int i = 0; i <= 4; ++i)
            rowsShown += f.s->RowVisible(i) ? 'y' : 'n';
        EXPECT_EQ(std::tuple(f.s->ShownRows, f.s->BlinkerTop, f.s->BlinkerLeft, f.s->BlinkerVisible,
                             rowsShown, f.host.Focused),
                  std::tuple(shownRows, 1700 + shownRows * 840, 4680, visible,
                             std::string("yyyyynnnn").substr(4 - std::min(shownRows, 4), 5),
                             focusedRow < 0 ? Rows{} : Rows{focusedRow}));
    }
}

TEST(MainCommands, ClearDataAsksAndOnlyYesErasesTheRowsOrInRegressionModeTheSeries) {
    for (const bool erased : {true, false}) {
        SCOPED_TRACE(erased ? "Yes" : "No");
        Fixture f;
        f.Type("2x");
        Blinker_Click(*f.s);
        f.Type("x+1");
        mnuGraphIt_Click(*f.s);
        std::tie(f.s->ViewXMax, f.s->ViewDragged, f.s->Slider1, f.s->RoundDigits,
                 f.s->Picture1(0)) = std::tuple(7.0, true, 8, 1, 0x123456u);
        f.platform.MsgBoxAnswers.push_back(erased ? MsgResultYes : MsgResultNo);

        mnuClearData_Click(*f.s);

        ASSERT_EQ(f.platform.Messages(), Texts{ClearDataQuestion});
        EXPECT_EQ(f.platform.Calls[0].Style, MsgYesNo);
        // {rows, row 1 shown, ShownRows, ActiveSlot, BlinkerTop, ViewXMax, ViewDragged, the
        // graph commands}; colours, line width and the round option survive.
        EXPECT_EQ(std::tuple(EntryText(*f.s, 0) + "|" + EntryText(*f.s, 1), f.s->RowVisible(1),
                             f.s->ShownRows, f.s->ActiveSlot, f.s->BlinkerTop, f.s->ViewXMax,
                             f.s->ViewDragged, f.s->Toolbar1(1).Enabled,
                             f.s->MenuEnabled.at("mnuGraphIt")),
                  erased ? std::tuple("|", false, 0, 0, 1700, 20.0, false, false, false)
                         : std::tuple("2x|x+1", true, 1, 1, 1700 + 840, 7.0, true, true, true));
        EXPECT_EQ(std::tuple(f.s->Slider1, f.s->RoundDigits, f.s->Picture1(0)),
                  std::tuple(8, 1, 0x123456u));
    }
    // In regression mode the series goes instead, and the rows stay.
    Fixture f;
    f.Type("x");
    Blinker_Click(*f.s);
    f.s->Check1 = 1;
    AddSeriesPoint(*f.s, 1, 2);
    f.s->ViewXMin = -3;
    f.platform.MsgBoxAnswers.push_back(MsgResultYes);
    mnuClearData_Click(*f.s);
    // {points, ViewXMin, row 0, row 1 shown, the Graph button open}
    EXPECT_EQ(std::tuple(f.s->FitObject.XYCount(), f.s->ViewXMin, EntryText(*f.s, 0),
                         f.s->RowVisible(1), f.s->Toolbar1(1).Enabled),
              std::tuple(0, -20.0, std::string("x"), true, false));
}

TEST(MainCommands, ToolbarKeysRunTheirCommands) {
    // {key, typed first, row 0 after the click, the view's x max after it}. With nothing typed
    // the Graph button has nothing to scale for.
    // clang-format off
    const std::tuple<const char*, const char*, const char*, double> cases[] = {
        {"zoomin", "", "", 10}, {"zoomout", "", "", 40}, {"power", "x", "x^", 20},
        {"root", "", "~", 20}, {"tan", "2+", "2+T(", 20}, {"graph", "", "", 20},
        {"gra", "", "", 20}, {"nothing", "x", "x", 20}};
    // clang-format on
    for (const auto& [key, typedFirst, rowAfter, viewXMax] : cases) {
        SCOPED_TRACE(key);
        Fixture f;
        f.Type(typedFirst);
        Toolbar1_ButtonClick(*f.s, key);
        EXPECT_EQ(std::tuple(EntryText(*f.s, 0), f.s->ViewXMax, f.platform.Calls.size()),
                  std::tuple(rowAfter, viewXMax, 0u));
    }
    // The keys of windows that are not bound say so.
    for (const char* key : {"print", "save", "open", "fx", "area", "regress"}) {
        Fixture f;
        Toolbar1_ButtonClick(*f.s, key);
        EXPECT_EQ(f.platform.Messages(), Texts{NotAvailableText}) << key;
    }
    // Bound, they run instead.
    Fixture f;
    f.host.OnCommand = [](HostCommand, int) { return true; };
    for (const char* key : {"save", "regress"})
        Toolbar1_ButtonClick(*f.s, key);
    EXPECT_EQ(f.host.Ran, (std::vector<HostCommand>{HostCommand::Save, HostCommand::PtSeries}));
    EXPECT_TRUE(f.platform.Calls.empty());
    // The web key opens the home page that ships with the help, in the browser.
    Toolbar1_ButtonClick(*f.s, "web");
    ASSERT_EQ(f.platform.Calls.size(), 1u);
    EXPECT_EQ(f.platform.Calls[0].Kind, "OpenWebPage");
}

TEST(MainCommands, RowsPassOnlyTheEightNavigationKeysAndTheZoomButtonsGiveTheFocusBack) {
    // {key code, the view after it}: only 33 (Page Up) to 40 (Down) reach the graph box, whose
    // amounts have their own test; Space, 41 and Enter neither move the view nor type.
    const std::array<double, 4> start{-20, 20, -20, 20};
    const std::pair<int, std::array<double, 4>> cases[] = {
        {32, start}, {33, {-20, 20, -10, 30}}, {40, {-20, 20, -21, 19}}, {41, start}, {13, start}};
    for (const auto& [key, view] : cases) {
        Fixture f;
        Paper_KeyDown(*f.s, 0, key, 0);
        EXPECT_EQ(std::tuple(std::array{f.s->ViewXMin, f.s->ViewXMax, f.s->ViewYMin, f.s->ViewYMax},
                             f.s->TokenCount(0)),
                  std::tuple(view, 0))
            << key;
    }
    // The zoom buttons give the focus back to the row outside regression mode.
    for (int check1 : {0, 1}) {
        Fixture f;
        Blinker_Click(*f.s);
        f.host.Focused.clear();
        f.s->Check1 = check1;
        Command2_Click(*f.s);
        const double zoomedIn = f.s->ViewXMax;
        Command6_Click(*f.s);
        EXPECT_EQ(std::tuple(zoomedIn, f.s->ViewXMax, f.host.Focused),
                  std::tuple(10.0, 20.0, check1 == 0 ? Rows{1, 1} : Rows{}))
            << check1;
    }
}

TEST(MainCommands, EveryKeystrokeSetsTheGraphCommandsFromCanGraph) {
    // {keys into row 0, another row left incomplete (-1: none), the commands open}: Backspace
    // on an empty row is a keystroke too; an unfinished row anywhere closes them. Enter then
    // graphs only while they are open, and is not typed.
    // clang-format off
    const std::tuple<const char*, int, bool> cases[] = {
        {"x+1", -1, true}, {"x+", -1, false}, {"\b", -1, false}, {"x+1", 9, false},
        {"x^", 3, false}, {"2x^2+(x)", -1, true}, {"(x", -1, false}, {"|x", -1, false},
        {"x", 1, false}, {"|x|", -1, true}};
    // clang-format on
    for (const auto& [keys, otherIncomplete, open] : cases) {
        SCOPED_TRACE(keys);
        Fixture f;
        EnableGraphCommands(*f.s, !open);
        if (otherIncomplete >= 0) f.s->SlotIncomplete(otherIncomplete) = true;
        f.Type(keys);
        ASSERT_EQ(CanGraph(*f.s), open);
        EXPECT_EQ(std::vector<bool>({f.s->Toolbar1(1).Enabled, f.s->Toolbar1(12).Enabled,
                                     f.s->Toolbar1(13).Enabled, f.s->MenuEnabled.at("mnuGraphIt"),
                                     f.s->MenuEnabled.at("mnuEvaluate"),
                                     f.s->MenuEnabled.at("mnuShade")}),
                  std::vector<bool>(6, open));
        Paper_KeyPress(*f.s, 0, EnterKey);
        EXPECT_EQ(std::tuple(f.host.Graphs, f.s->KeyAccepted, EntryText(*f.s, 0)),
                  std::tuple(open ? 1 : 0, false, *keys == '\b' ? "" : keys));
    }
}

} // namespace vt
