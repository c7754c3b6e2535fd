#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "entry/Entry.h"
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
    void Type(const std::string& keys) {
        for (char c : keys)
            Paper_KeyPress(*s, s->ActiveSlot, static_cast<unsigned char>(c));
    }
    void RecordFocus() {
        s->FocusRow = [this](int row) {
            focused.push_back(row);
            Paper_GotFocus(*s, row);
        };
    }
};

} // namespace

TEST(MainCommands, BlinkerRevealsTheNextHiddenRowAndFocusesTheRowAfterTheActiveOne) {
    struct Case {
        int shownBefore;  // rows 1..shownBefore revealed first
        int activeBefore; // then this row made active
        bool quiet;       // QuietSlotReveal set for the click
        int shownRows;
        int blinkerTop;
        bool blinkerVisible;
        int focusedRow; // -1: no focus asked for
    };
    const Case cases[] = {
        {0, 0, false, 1, 1700 + 840, true, 1},
        {3, 3, false, 4, 1700 + 4 * 840, false, 4},
        // The row after the active one, not the row just revealed.
        {2, 0, false, 3, 1700 + 3 * 840, true, 1},
        // All shown: only the menu gets here; the hidden button moves on and ShownRows is 5.
        {4, 4, false, 5, 1700 + 5 * 840, false, 4},
        // A file load reveals rows without touching the focus.
        {1, 0, true, 2, 1700 + 2 * 840, true, -1},
    };
    for (const Case& c : cases) {
        Fixture f;
        for (int i = 1; i <= c.shownBefore; ++i)
            Blinker_Click(*f.s);
        Paper_GotFocus(*f.s, c.activeBefore);
        f.RecordFocus();
        f.s->QuietSlotReveal = c.quiet;
        mnuInsertF_Click(*f.s);
        SCOPED_TRACE(testing::Message()
                     << "shown " << c.shownBefore << " active " << c.activeBefore);
        EXPECT_EQ(f.s->ShownRows, c.shownRows);
        EXPECT_EQ(f.s->BlinkerTop, c.blinkerTop);
        EXPECT_EQ(f.s->BlinkerLeft, 4680);
        EXPECT_EQ(f.s->BlinkerVisible, c.blinkerVisible);
        const int revealed = c.shownRows > 4 ? 4 : c.shownRows;
        for (int i = 0; i <= 4; ++i)
            EXPECT_EQ(f.s->RowVisible(i), i <= revealed) << i;
        EXPECT_EQ(f.focused,
                  c.focusedRow < 0 ? std::vector<int>{} : std::vector<int>{c.focusedRow});
    }
}

TEST(MainCommands, ClearDataAsksAndOnlyYesErases) {
    struct Case {
        int answer;
        bool erased;
    };
    for (const Case& c : {Case{MsgResultYes, true}, Case{MsgResultNo, false}}) {
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
        f.platform.MsgBoxAnswers.push_back(c.answer);

        mnuClearData_Click(*f.s);

        SCOPED_TRACE(c.erased ? "Yes" : "No");
        ASSERT_EQ(f.platform.Messages(), std::vector<std::string>{ClearDataQuestion});
        EXPECT_EQ(f.platform.Calls[0].Style, MsgYesNo);
        EXPECT_EQ(EntryText(*f.s, 0), c.erased ? "" : "2x");
        EXPECT_EQ(EntryText(*f.s, 1), c.erased ? "" : "x+1");
        EXPECT_EQ(f.s->RowVisible(1), !c.erased);
        EXPECT_EQ(f.s->ShownRows, c.erased ? 0 : 1);
        EXPECT_EQ(f.s->ActiveSlot, c.erased ? 0 : 1);
        EXPECT_EQ(f.s->BlinkerTop, c.erased ? 1700 : 1700 + 840);
        EXPECT_EQ(f.s->ViewXMax, c.erased ? 20 : 7);
        EXPECT_EQ(f.s->ViewDragged, !c.erased);
        EXPECT_EQ(f.s->Toolbar1(1).Enabled, !c.erased);
        EXPECT_EQ(f.s->MenuEnabled.at("mnuGraphIt"), !c.erased);
        // Colours, line width and the round option survive.
        EXPECT_EQ(f.s->Slider1, 8);
        EXPECT_EQ(f.s->RoundDigits, 1);
        EXPECT_EQ(f.s->Picture1(0), 0x123456u);
    }
}

TEST(MainCommands, ClearDataInRegressionModeClearsTheSeriesAndLeavesTheRows) {
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
    struct Case {
        std::string key;
        std::string typedFirst;
        std::string rowAfter; // row 0's tokens after the click
        double viewXMaxAfter; // the view after the click
        std::string message;  // the one message shown, if any
    };
    const Case cases[] = {
        {"zoomin", "", "", 10, ""},
        {"zoomout", "", "", 40, ""},
        {"power", "x", "x^", 20, ""},
        {"root", "", "~", 20, ""},
        {"sin", "", "S(", 20, ""},
        {"cos", "", "C(", 20, ""},
        {"tan", "2+", "2+T(", 20, ""},
        // Nothing typed: the Graph button has nothing to scale for.
        {"graph", "", "", 20, ""},
        {"print", "", "", 20, NotAvailableText},
        {"save", "", "", 20, NotAvailableText},
        {"open", "", "", 20, NotAvailableText},
        {"fx", "", "", 20, NotAvailableText},
        {"area", "", "", 20, NotAvailableText},
        {"regress", "", "", 20, NotAvailableText},
        {"web", "", "", 20, NotAvailableText},
        {"gra", "", "", 20, ""},
        {"nothing", "x", "x", 20, ""},
    };
    for (const Case& c : cases) {
        Fixture f;
        f.Type(c.typedFirst);
        Toolbar1_ButtonClick(*f.s, c.key);
        SCOPED_TRACE(c.key);
        EXPECT_EQ(EntryText(*f.s, 0), c.rowAfter);
        EXPECT_EQ(f.s->ViewXMax, c.viewXMaxAfter);
        EXPECT_EQ(f.platform.Messages(), c.message.empty() ? std::vector<std::string>{}
                                                           : std::vector<std::string>{c.message});
    }
}

TEST(MainCommands, ToolbarKeysReachBoundCommands) {
    Fixture f;
    std::vector<std::string> ran;
    f.s->Commands.mnuSave_Click = [&] { ran.push_back("save"); };
    f.s->Commands.mnuPtSeries_Click = [&] { ran.push_back("regress"); };
    f.s->Commands.OpenHomePage = [&] { ran.push_back("web"); };
    for (const char* key : {"save", "regress", "web"})
        Toolbar1_ButtonClick(*f.s, key);
    EXPECT_EQ(ran, (std::vector<std::string>{"save", "regress", "web"}));
    EXPECT_TRUE(f.platform.Calls.empty());
}

TEST(MainCommands, DropDownEntryOnlySetsTheButtonsStandingFunction) {
    struct Case {
        std::string entry;
        int button;
        std::string key;
    };
    const Case cases[] = {
        {"Insert Cosine", 10, "cos"},    {"Insert Tangent", 10, "tan"}, {"Insert Sine", 10, "sin"},
        {"Insert Exponent", 9, "power"}, {"Insert Root", 9, "root"},
    };
    for (const Case& c : cases) {
        Fixture f;
        // Start from the other standing function, so that a change shows.
        Toolbar1_ButtonMenuClick(*f.s, c.button == 10 ? "Insert Tangent" : "Insert Exponent");
        Toolbar1_ButtonMenuClick(*f.s, c.entry);
        SCOPED_TRACE(c.entry);
        EXPECT_EQ(f.s->Toolbar1(c.button).Key, c.key);
        EXPECT_EQ(f.s->Toolbar1(c.button).Image, c.key);
        EXPECT_EQ(f.s->Toolbar1(c.button).Tip, c.entry);
        EXPECT_EQ(f.s->TokenCount(0), 0);
    }
    Fixture f;
    Toolbar1_ButtonMenuClick(*f.s, "Insert Pi");
    EXPECT_EQ(f.s->Toolbar1(10).Key, "sin");
    EXPECT_EQ(f.s->Toolbar1(9).Key, "root");
}

TEST(MainCommands, RowsPassOnlyTheEightNavigationKeysToTheGraph) {
    struct Case {
        int keyCode;
        double xMin, xMax, yMin, yMax;
    };
    const Case cases[] = {
        {38, -20, 20, -19, 21}, {40, -20, 20, -21, 19}, {37, -21, 19, -20, 20},
        {39, -19, 21, -20, 20}, {33, -20, 20, -10, 30}, {34, -20, 20, -30, 10},
        {36, -30, 10, -20, 20}, {35, -10, 30, -20, 20}, {32, -20, 20, -20, 20},
        {41, -20, 20, -20, 20}, {65, -20, 20, -20, 20}, {13, -20, 20, -20, 20},
    };
    for (const Case& c : cases) {
        Fixture f;
        Paper_KeyDown(*f.s, 0, c.keyCode, 0);
        SCOPED_TRACE(c.keyCode);
        EXPECT_EQ(f.s->ViewXMin, c.xMin);
        EXPECT_EQ(f.s->ViewXMax, c.xMax);
        EXPECT_EQ(f.s->ViewYMin, c.yMin);
        EXPECT_EQ(f.s->ViewYMax, c.yMax);
        EXPECT_EQ(f.s->TokenCount(0), 0);
    }
}

TEST(MainCommands, ZoomButtonsGiveTheFocusBackOutsideRegressionMode) {
    for (int check1 : {0, 1}) {
        Fixture f;
        Blinker_Click(*f.s);
        f.RecordFocus();
        f.s->Check1 = check1;
        Command2_Click(*f.s);
        EXPECT_EQ(f.s->ViewXMax, 10);
        Command6_Click(*f.s);
        EXPECT_EQ(f.s->ViewXMax, 20);
        const std::vector<int> expected = check1 == 0 ? std::vector<int>{1, 1} : std::vector<int>{};
        EXPECT_EQ(f.focused, expected) << check1;
    }
}

TEST(MainCommands, MenuTogglesAndRoundOptions) {
    Fixture f;
    for (const char* item : {"mnuHideGrid", "mnuGraphQuadrant", "mnuToggleCoordinates"})
        RunMenuCommand(*f.s, item);
    EXPECT_TRUE(f.s->HideGridChecked);
    EXPECT_TRUE(f.s->GraphQuadrantChecked);
    EXPECT_TRUE(f.s->ToggleCoordinatesChecked);
    RunMenuCommand(*f.s, "mnuHideGrid");
    EXPECT_FALSE(f.s->HideGridChecked);

    RunMenuCommand(*f.s, "mnuNearTen");
    EXPECT_EQ(f.s->RoundDigits, 1);
    EXPECT_TRUE(f.s->NearTenChecked);
    EXPECT_FALSE(f.s->NearWholeChecked);
    RunMenuCommand(*f.s, "mnuNearWhole");
    EXPECT_EQ(f.s->RoundDigits, 0);
    EXPECT_TRUE(f.s->NearWholeChecked);
    EXPECT_FALSE(f.s->NearTenChecked);
    EXPECT_TRUE(f.platform.Calls.empty());
}

TEST(MainCommands, InsertCommandsSendTheirKeyToTheActiveRowWithoutFocus) {
    Fixture f;
    Blinker_Click(*f.s);
    Paper_GotFocus(*f.s, 1);
    Paper_LostFocus(*f.s, 1);
    f.Type("2");
    RunMenuCommand(*f.s, "mnuExponent");
    f.Type("3");
    RunMenuCommand(*f.s, "mnuInsertPi");
    EXPECT_EQ(EntryText(*f.s, 1), "2^3P");
    EXPECT_EQ(EntryText(*f.s, 0), "");
    Fixture g;
    RunMenuCommand(*g.s, "mnuInsertAbs");
    RunMenuCommand(*g.s, "mnuRoot");
    EXPECT_EQ(EntryText(*g.s, 0), "|~");
}

TEST(MainMenu, TreeHoldsEveryItemOnceAndStartsWithTheGraphCommandsClosed) {
    Session s;
    std::vector<std::string> names;
    for (const MenuEntry& entry : MainMenuTree()) {
        EXPECT_EQ(s.MenuEnabled.count(entry.Name), 1u) << entry.Name;
        names.push_back(entry.Name);
    }
    EXPECT_EQ(s.MenuEnabled.size(), names.size());
    for (const char* closed : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
        EXPECT_FALSE(s.MenuEnabled.at(closed)) << closed;
    std::vector<int> disabledButtons;
    for (int i = 1; i <= 16; ++i)
        if (!s.Toolbar1(i).Separator && !s.Toolbar1(i).Enabled) disabledButtons.push_back(i);
    EXPECT_EQ(disabledButtons, (std::vector<int>{1, 12, 13}));
}

} // namespace vt
