#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

#include "entry/EntryTesting.h"
#include "session/MainCommands.h"
#include "session/MainMenu.h"
#include "support/ScriptedPlatform.h"

namespace vt {

namespace {

struct Fixture {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    test::ScriptedPlatform platform;
    std::vector<int> focused; // rows the window was asked to focus

    Fixture() {
        PrepareMainWindow(*s);
        s->Host = &platform;
        s->SetGraphCommandsEnabled = [this](bool on) { EnableGraphCommands(*s, on); };
    }
    void Type(const std::string& keys) { test::Type(*s, keys); }
    void RecordFocus() {
        s->FocusRow = [this](int row) {
            focused.push_back(row);
            Paper_GotFocus(*s, row);
        };
    }
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
    const std::tuple<int, int, bool, int, bool, int> cases[] = {{0, 0, false, 1, true, 1},
                                                                {3, 3, false, 4, false, 4},
                                                                {2, 0, false, 3, true, 1},
                                                                {4, 4, false, 5, false, 4},
                                                                {1, 0, true, 2, true, -1}};
    for (const auto& [shownBefore, activeBefore, quiet, shownRows, visible, focusedRow] : cases) {
        SCOPED_TRACE(testing::Message() << "shown " << shownBefore << " active " << activeBefore);
        Fixture f;
        for (int i = 1; i <= shownBefore; ++i)
            Blinker_Click(*f.s);
        Paper_GotFocus(*f.s, activeBefore);
        f.RecordFocus();
        f.s->QuietSlotReveal = quiet;
        mnuInsertF_Click(*f.s);
        EXPECT_EQ(f.s->ShownRows, shownRows);
        EXPECT_EQ(f.s->BlinkerTop, 1700 + shownRows * 840);
        EXPECT_EQ(f.s->BlinkerLeft, 4680);
        EXPECT_EQ(f.s->BlinkerVisible, visible);
        for (int i = 0; i <= 4; ++i)
            EXPECT_EQ(f.s->RowVisible(i), i <= std::min(shownRows, 4)) << i;
        EXPECT_EQ(f.focused, focusedRow < 0 ? Rows{} : Rows{focusedRow});
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
        f.s->ViewXMax = 7;
        f.s->ViewDragged = true;
        f.s->Slider1 = 8;
        f.s->RoundDigits = 1;
        f.s->Picture1(0) = 0x123456;
        f.platform.MsgBoxAnswers.push_back(erased ? MsgResultYes : MsgResultNo);

        mnuClearData_Click(*f.s);

        ASSERT_EQ(f.platform.Messages(), Texts{ClearDataQuestion});
        EXPECT_EQ(f.platform.Calls[0].Style, MsgYesNo);
        EXPECT_EQ(EntryText(*f.s, 0) + "|" + EntryText(*f.s, 1), erased ? "|" : "2x|x+1");
        // {row 1 shown, ShownRows, ActiveSlot, BlinkerTop, ViewXMax, ViewDragged}
        EXPECT_EQ(std::tuple(f.s->RowVisible(1), f.s->ShownRows, f.s->ActiveSlot, f.s->BlinkerTop,
                             f.s->ViewXMax, f.s->ViewDragged),
                  erased ? std::tuple(false, 0, 0, 1700, 20.0, false)
                         : std::tuple(true, 1, 1, 1700 + 840, 7.0, true));
        // The graph commands close with the rows.
        EXPECT_EQ(f.s->Toolbar1(1).Enabled, !erased);
        EXPECT_EQ(f.s->MenuEnabled.at("mnuGraphIt"), !erased);
        // Colours, line width and the round option survive.
        EXPECT_EQ(std::tuple(f.s->Slider1, f.s->RoundDigits), std::tuple(8, 1));
        EXPECT_EQ(f.s->Picture1(0), 0x123456u);
    }
    // In regression mode the series goes instead, and the rows stay.
    Fixture f;
    f.Type("x");
    Blinker_Click(*f.s);
    f.s->Check1 = 1;
    int cleared = 0;
    f.s->Commands.ClearSeries = [&] { ++cleared; };
    f.s->ViewXMin = -3;
    f.platform.MsgBoxAnswers.push_back(MsgResultYes);
    mnuClearData_Click(*f.s);
    EXPECT_EQ(cleared, 1);
    EXPECT_EQ(f.s->ViewXMin, -20);
    EXPECT_EQ(EntryText(*f.s, 0), "x");
    EXPECT_TRUE(f.s->RowVisible(1));
    EXPECT_FALSE(f.s->Toolbar1(1).Enabled);
}

TEST(MainCommands, ToolbarKeysRunTheirCommands) {
    // {key, typed first, row 0 after the click, the view's x max after it}. With nothing typed
    // the Graph button has nothing to scale for.
    // clang-format off
    const std::tuple<const char*, const char*, const char*, double> cases[] = {
        {"zoomin", "", "", 10}, {"zoomout", "", "", 40}, {"power", "x", "x^", 20},
        {"root", "", "~", 20},
        {"sin", "", "S(", 20}, {"cos", "", "C(", 20}, {"tan", "2+", "2+T(", 20},
        {"graph", "", "", 20},
        {"gra", "", "", 20}, {"nothing", "x", "x", 20}};
    // clang-format on
    for (const auto& [key, typedFirst, rowAfter, viewXMax] : cases) {
        SCOPED_TRACE(key);
        Fixture f;
        f.Type(typedFirst);
        Toolbar1_ButtonClick(*f.s, key);
        EXPECT_EQ(EntryText(*f.s, 0), rowAfter);
        EXPECT_EQ(f.s->ViewXMax, viewXMax);
        EXPECT_TRUE(f.platform.Calls.empty());
    }
    // The keys of windows that are not bound say so.
    for (const char* key : {"print", "save", "open", "fx", "area", "regress", "web"}) {
        Fixture f;
        Toolbar1_ButtonClick(*f.s, key);
        EXPECT_EQ(f.platform.Messages(), Texts{NotAvailableText}) << key;
    }
    // Bound, they run instead.
    Fixture f;
    Texts ran;
    f.s->Commands.mnuSave_Click = [&] { ran.push_back("save"); };
    f.s->Commands.mnuPtSeries_Click = [&] { ran.push_back("regress"); };
    f.s->Commands.OpenHomePage = [&] { ran.push_back("web"); };
    for (const char* key : {"save", "regress", "web"})
        Toolbar1_ButtonClick(*f.s, key);
    EXPECT_EQ(ran, (Texts{"save", "regress", "web"}));
    EXPECT_TRUE(f.platform.Calls.empty());
}

TEST(MainCommands, DropDownEntryOnlySetsTheButtonsStandingFunction) {
    // {entry, button, key}; each starts from the other standing function, so that a change shows.
    // clang-format off
    const std::tuple<const char*, int, const char*> cases[] = {
        {"Insert Cosine", 10, "cos"}, {"Insert Tangent", 10, "tan"}, {"Insert Sine", 10, "sin"},
        {"Insert Exponent", 9, "power"}, {"Insert Root", 9, "root"}};
    // clang-format on
    for (const auto& [entry, button, key] : cases) {
        SCOPED_TRACE(entry);
        Fixture f;
        Toolbar1_ButtonMenuClick(*f.s, button == 10 ? "Insert Tangent" : "Insert Exponent");
        Toolbar1_ButtonMenuClick(*f.s, entry);
        const auto& shown = f.s->Toolbar1(button);
        EXPECT_EQ(shown.Key + " " + shown.Image + " " + shown.Tip,
                  std::string(key) + " " + key + " " + entry);
        EXPECT_EQ(f.s->TokenCount(0), 0);
    }
    Fixture f;
    Toolbar1_ButtonMenuClick(*f.s, "Insert Pi");
    EXPECT_EQ(f.s->Toolbar1(10).Key + " " + f.s->Toolbar1(9).Key, "sin root");
}

TEST(MainCommands, RowsPassOnlyTheEightNavigationKeysAndTheZoomButtonsGiveTheFocusBack) {
    // {key code, the view after it}: arrows by 1, pages and Home and End by 10; Space, 41, A and
    // Enter neither move the view nor type.
    const std::pair<int, std::array<double, 4>> cases[] = {
        {38, {-20, 20, -19, 21}}, {40, {-20, 20, -21, 19}}, {37, {-21, 19, -20, 20}},
        {39, {-19, 21, -20, 20}}, {33, {-20, 20, -10, 30}}, {34, {-20, 20, -30, 10}},
        {36, {-30, 10, -20, 20}}, {35, {-10, 30, -20, 20}}, {32, {-20, 20, -20, 20}},
        {41, {-20, 20, -20, 20}}, {65, {-20, 20, -20, 20}}, {13, {-20, 20, -20, 20}}};
    for (const auto& [key, view] : cases) {
        Fixture f;
        Paper_KeyDown(*f.s, 0, key, 0);
        EXPECT_EQ((std::array{f.s->ViewXMin, f.s->ViewXMax, f.s->ViewYMin, f.s->ViewYMax}), view)
            << key;
        EXPECT_EQ(f.s->TokenCount(0), 0);
    }
    // The zoom buttons give the focus back to the row outside regression mode.
    for (int check1 : {0, 1}) {
        Fixture f;
        Blinker_Click(*f.s);
        f.RecordFocus();
        f.s->Check1 = check1;
        Command2_Click(*f.s);
        EXPECT_EQ(f.s->ViewXMax, 10);
        Command6_Click(*f.s);
        EXPECT_EQ(f.s->ViewXMax, 20);
        EXPECT_EQ(f.focused, (check1 == 0 ? Rows{1, 1} : Rows{})) << check1;
    }
}

TEST(MainCommands, MenuTogglesRoundOptionsAndInsertCommands) {
    Fixture f;
    for (const char* item : {"mnuHideGrid", "mnuGraphQuadrant", "mnuToggleCoordinates"})
        RunMenuCommand(*f.s, item);
    EXPECT_EQ(
        std::tuple(f.s->HideGridChecked, f.s->GraphQuadrantChecked, f.s->ToggleCoordinatesChecked),
        std::tuple(true, true, true));
    RunMenuCommand(*f.s, "mnuHideGrid");
    EXPECT_FALSE(f.s->HideGridChecked);
    // {item, digits, nearest tenth checked, nearest whole checked}
    for (const auto& [item, digits, ten, whole] :
         {std::tuple("mnuNearTen", 1, true, false), std::tuple("mnuNearWhole", 0, false, true)}) {
        RunMenuCommand(*f.s, item);
        EXPECT_EQ(std::tuple(f.s->RoundDigits, f.s->NearTenChecked, f.s->NearWholeChecked),
                  std::tuple(digits, ten, whole));
    }
    EXPECT_TRUE(f.platform.Calls.empty());
    // Insert commands send their key to the active row, without the focus.
    Fixture h;
    Blinker_Click(*h.s);
    Paper_GotFocus(*h.s, 1);
    Paper_LostFocus(*h.s, 1);
    h.Type("2");
    RunMenuCommand(*h.s, "mnuExponent");
    h.Type("3");
    RunMenuCommand(*h.s, "mnuInsertPi");
    EXPECT_EQ(EntryText(*h.s, 1), "2^3P");
    EXPECT_EQ(EntryText(*h.s, 0), "");
    Fixture g;
    RunMenuCommand(*g.s, "mnuInsertAbs");
    RunMenuCommand(*g.s, "mnuRoot");
    EXPECT_EQ(EntryText(*g.s, 0), "|~");
}

TEST(MainMenu, TreeHoldsEveryItemOnceAndStartsWithTheGraphCommandsClosed) {
    Session s;
    const auto& tree = MainMenuTree();
    for (const MenuEntry& entry : tree)
        EXPECT_EQ(s.MenuEnabled.count(entry.Name), 1u) << entry.Name;
    EXPECT_EQ(s.MenuEnabled.size(), tree.size());
    for (const char* closed : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
        EXPECT_FALSE(s.MenuEnabled.at(closed)) << closed;
    Rows disabledButtons;
    for (int i = 1; i <= 16; ++i)
        if (!s.Toolbar1(i).Separator && !s.Toolbar1(i).Enabled) disabledButtons.push_back(i);
    EXPECT_EQ(disabledButtons, (Rows{1, 12, 13}));
}

} // namespace vt
