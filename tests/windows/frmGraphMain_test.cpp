#include <QDir>
#include <QMenuBar>

#include "commands/MainCommands.h"
#include "entry/Entry.h"
#include "windows/WindowTesting.h"

namespace vt {
namespace {

using test::Texts;

using Started = test::StartedWindow<>;

QStringList Captions(const QList<QAction*>& actions) {
    QStringList out;
    for (QAction* action : actions)
        out << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return out;
}

} // namespace

TEST(MainWindow, StartsAtTheDesignedGeometryWithTheMenuTree) {
    Started w;
    frmGraphMain& m = *w.window;
    EXPECT_EQ(m.frmGraph()->geometry(), QRect(352, 65, 400, 400));
    EXPECT_EQ(w.s->Host().GraphBox()->PixelWidth(), 400);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(m.Paper(i)->geometry(), QRect(56, 64 + 56 * i, 289, 41)) << i;
        EXPECT_EQ(m.Paper(i)->isVisible(), i == 0) << i;
        EXPECT_EQ(m.Picture1(i)->ShownColour(), w.s->Picture1(i)) << i;
    }
    EXPECT_EQ(m.Blinker()->geometry(), QRect(312, 113, 33, 33));
    // The first paint ran: the axes cross in the middle of the box.
    EXPECT_EQ(w.Pixel(m.frmGraph(), 200, 100), 0u);
    EXPECT_TRUE(QDir(w.programDir.filePath(QStringLiteral("Saved Problems"))).exists());
    EXPECT_TRUE(m.Paper(0)->hasFocus());
    // The Round Options menu is a pop-up of the readout, not in the bar.
    EXPECT_EQ(Captions(w.window->menuBar()->actions()),
              (QStringList{"&File", "F&unctions", "Graph &Options", "Graph &Window", "&Help"}));
    // The trig items in their submenu, and the separators where the tree has them.
    EXPECT_EQ(Captions(w.window->MenuOf("mnuTrig")->actions()),
              (QStringList{"Insert &Sine", "Insert &Cosine", "Insert &Tangent"}));
    std::string separators;
    for (const QString& caption : Captions(w.window->MenuOf("mnuGraphFile")->actions()))
        separators += caption == "-" ? '-' : 'i';
    EXPECT_EQ(separators, "ii-ii-ii-i");
    EXPECT_EQ(w.window->MenuItem("mnuGraphIt")->shortcut().toString(), QStringLiteral("F3"));
    EXPECT_TRUE(w.window->MenuItem("mnuNearWhole")->isChecked());
    EXPECT_FALSE(w.window->MenuItem("mnuHideGrid")->isChecked());
}

TEST(MainWindow, BracketNegativeXIsTheLastCheckableOptionAndRedraws) {
    Started w;
    w.GraphRow0("x^2");
    QAction* item = w.window->MenuItem("mnuBracketNegativeX");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(w.window->MenuOf("mnuGraphOptions")->actions().back(), item);
    EXPECT_EQ(item->text(), QStringLiteral("Bracket Negative x"));
    // Left of the y axis, bare x^2 runs below the x axis; bracketed, above it. Off, on, off.
    for (int i = 0; i < 3; ++i) {
        const bool on = i == 1;
        SCOPED_TRACE(i);
        if (i > 0) item->trigger();
        EXPECT_EQ(item->isChecked(), on);
        EXPECT_EQ(w.s->BracketNegativeX, on);
        EXPECT_EQ(w.OnScreenCount(255, QRect(0, 0, 195, 195)) > 50, on);
        EXPECT_EQ(w.OnScreenCount(255, QRect(0, 205, 195, 195)) > 50, !on);
    }
}

TEST(MainWindow, KeysReachTheViewAndTheRowsTheDropDownSetsTheTrigButtonTheMouseTheReadout) {
    Started w;
    // Navigation keys in a row move the view and type nothing.
    test::Press(w.window->Paper(0), Qt::Key_Up);
    test::Press(w.window->Paper(0), Qt::Key_End);
    EXPECT_EQ(std::tuple(w.s->ViewYMax, w.s->ViewXMax), std::tuple(21.0, 30.0));
    EXPECT_EQ(w.s->TokenCount(0), 0);
    // Typing opens and closes the graph commands.
    for (const auto& [keys, open] : {std::pair("1/x", true), {"+", false}}) {
        w.Type(0, keys); // 1/x, then 1/x+
        for (int button : {1, 12, 13})
            EXPECT_EQ(w.window->ToolbarButton(button)->isEnabled(), open) << keys << button;
        for (const char* item : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
            EXPECT_EQ(w.window->MenuItem(item)->isEnabled(), open) << keys << item;
    }
    test::Press(w.window->Paper(0), Qt::Key_Backspace);
    EXPECT_EQ(EntryText(*w.s, 0), "1/x");
    QToolButton* trig = w.window->ToolbarButton(10);
    ASSERT_NE(trig->menu(), nullptr);
    const QList<QAction*> entries = trig->menu()->actions();
    const auto cosine = Captions(entries).indexOf(QStringLiteral("Insert Cosine"));
    ASSERT_GE(cosine, 0);
    entries[cosine]->trigger();
    EXPECT_EQ(EntryText(*w.s, 0), "1/x"); // the drop-down only chooses
    EXPECT_EQ(trig->toolTip(), QStringLiteral("Insert Cosine"));
    trig->click();
    EXPECT_EQ(EntryText(*w.s, 0), "1/xC(");
    EXPECT_TRUE(w.platform.Calls.empty());
    // The mouse over the graph shows the coordinates in that view, -10..30 by -19..21.
    for (const auto& [at, readout] : {std::pair(QPointF(200, 200), "x = 10    y = 1"),
                                      {QPointF(0, 399), "x = -10    y = -19"}}) {
        test::Mouse(w.window->frmGraph(), QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
        EXPECT_EQ(w.window->Label2()->text(), QString::fromUtf8(readout));
    }
}

TEST(MainWindow, FocusColoursTheRowsBlinkerFocusesTheNextRowAndClearDataHidesThem) {
    Started w;
    w.Type(0, "2x");
    frmGraphMain& m = *w.window;
    // The colour of each row's background, 'y' pale yellow or 'w' white, and the active row.
    const auto rows = [&] {
        std::string out;
        for (int i = 0; i < 5; ++i)
            out += w.Pixel(m.Paper(i)) == 0x80FFFF   ? 'y'
                   : w.Pixel(m.Paper(i)) == 0xFFFFFF ? 'w'
                                                     : '?';
        return out + " " + std::to_string(w.s->ActiveSlot);
    };
    EXPECT_EQ(rows(), "ywwww 0");
    for (int i = 1; i <= 3; ++i)
        m.Blinker()->click();
    EXPECT_EQ(rows(), "wwwyw 3");
    m.Blinker()->click();
    EXPECT_TRUE(m.Paper(4)->isVisible());
    EXPECT_TRUE(m.Paper(4)->hasFocus());
    EXPECT_FALSE(m.Blinker()->isVisible());
    EXPECT_EQ(rows(), "wwwwy 4");
    ASSERT_TRUE(m.ToolbarButton(1)->isEnabled());
    // The graph takes the focus: every row white, the active row kept for the menus.
    m.frmGraph()->setFocus();
    EXPECT_EQ(rows(), "wwwww 4");
    // Clear Data answered Yes empties the rows and takes their widgets away.
    w.platform.MsgBoxAnswers.push_back(MsgResultYes);
    m.MenuItem("mnuClearData")->trigger();
    EXPECT_EQ(w.platform.Messages(), Texts{ClearDataQuestion});
    EXPECT_FALSE(m.Paper(1)->isVisible());
    EXPECT_FALSE(m.Label1(1)->isVisible());
    EXPECT_EQ(m.Blinker()->geometry().top(), 113);
    EXPECT_FALSE(m.ToolbarButton(1)->isEnabled());
    EXPECT_TRUE(m.Paper(0)->hasFocus());
    EXPECT_EQ(rows(), "ywwww 0");
}

TEST(MainWindow, ColourCommandsReachTheSwatchesAndTheGraphAndTheOthersSaySo) {
    auto w = std::make_unique<Started>();
    app::SurfaceView* graph = w->window->frmGraph();
    ASSERT_EQ(w->Pixel(graph, 5, 5), 0xFFFFFFu);
    w->platform.ColourAnswers.push_back(0x00A0A0);
    w->window->Picture1(2)->Clicked();
    EXPECT_EQ(w->window->Picture1(2)->ShownColour(), 0x00A0A0u);
    EXPECT_EQ(w->platform.Calls.back().Style, 0x00C000);
    // A cancelled background dialog leaves the grid colour as the background.
    w->window->MenuClick("mnuBackColor");
    EXPECT_EQ(w->Pixel(graph, 5, 5), 16766596u);
    w->window->MenuClick("mnuGraphDefault");
    EXPECT_EQ(w->Pixel(graph, 5, 5), 0xFFFFFFu);
    EXPECT_EQ(w->window->Picture1(2)->ShownColour(), 0x00C000u);
    // Exit only hides.
    w->window->MenuItem("mnuGraphExit")->trigger();
    EXPECT_FALSE(w->window->isVisible());
    EXPECT_EQ(&w->s->Host().Dialogs(), &w->platform);
    // The window unbinds itself from the session: its commands are no longer there.
    Session& s = *w->s;
    w->window.reset();
    EXPECT_EQ(s.Host().GraphBox(), nullptr);
    EXPECT_FALSE(s.Host().RunCommand(HostCommand::Shade, 0));
}

} // namespace vt
