#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "app/qt/SurfaceView.h"
#include "entry/Entry.h"
#include "render/RasterSurface.h"
#include "session/MainCommands.h"
#include "session/frmGraphMain.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"

namespace vt {

namespace {

// A started window, without the splash, with its graph data folder in a temporary folder.
struct Started {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    test::ScriptedPlatform platform;
    QTemporaryDir programDir;
    std::unique_ptr<frmGraphMain> window;

    explicit Started(std::string programFolder = {}) {
        test::QtApp();
        MainWindowOptions options;
        options.ShowSplash = false;
        options.ProgramDir =
            programFolder.empty() ? programDir.path().toStdString() : std::move(programFolder);
        window = std::make_unique<frmGraphMain>(*s, platform, options);
        window->Form_Load();
        window->activateWindow();
        for (int i = 0; i < 50 && !window->isActiveWindow(); ++i)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    ~Started() { window.reset(); }

    // Keys into a row as the keyboard delivers them.
    void Type(int row, const std::string& keys) {
        for (char c : keys) {
            const QString text(QChar::fromLatin1(c));
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text);
            QApplication::sendEvent(window->Paper(row), &press);
        }
    }
    void Key(QWidget* target, int qtKey) {
        QKeyEvent press(QEvent::KeyPress, qtKey, Qt::NoModifier);
        QApplication::sendEvent(target, &press);
    }
};

QRgb RowPixel(frmGraphMain& w, int row) {
    return w.Paper(row)->ShownSurface()->QtImage().pixel(1, 1) & 0xFFFFFF;
}

} // namespace

TEST(MainWindow, StartsAtTheDesignedGeometry) {
    Started w;
    EXPECT_EQ(w.window->windowTitle(), QStringLiteral("Orlentis - Veritrace"));
    EXPECT_EQ(w.window->ClientArea()->size(), QSize(760, 480));
    EXPECT_EQ(w.window->frmGraph()->geometry(), QRect(352, 65, 400, 400));
    EXPECT_EQ(w.s->frmGraph->PixelWidth(), 400);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(w.window->Paper(i)->geometry(), QRect(56, 64 + 56 * i, 289, 41)) << i;
        EXPECT_EQ(w.window->Paper(i)->isVisible(), i == 0) << i;
        EXPECT_EQ(w.window->Label1(i)->text(), QStringLiteral("f(x)=")) << i;
        EXPECT_EQ(w.window->Picture1(i)->ShownColour(), w.s->Picture1(i)) << i;
    }
    EXPECT_EQ(w.window->Blinker()->geometry(), QRect(312, 113, 33, 33));
    EXPECT_EQ(w.window->Blinker()->toolTip(), QStringLiteral("Insert new function."));
    EXPECT_EQ(w.window->Label2()->text(), QStringLiteral("x = 0    y = 0"));
    EXPECT_EQ(w.window->Command2()->toolTip(), QStringLiteral("Click to zoom in graph."));
    EXPECT_EQ(w.window->Command6()->toolTip(), QStringLiteral("Click to zoom out graph."));
    // The first paint ran: the axes cross in the middle of the box.
    EXPECT_EQ(w.window->frmGraph()->ShownSurface()->QtImage().pixel(200, 100) & 0xFFFFFF, 0u);
    EXPECT_TRUE(QDir(w.programDir.filePath(QStringLiteral("Saved Problems"))).exists());
    EXPECT_EQ(w.s->ActiveSlot, 0);
    EXPECT_TRUE(w.window->Paper(0)->hasFocus());
}

TEST(MainWindow, MenuTreeHasTheCaptionsShortcutsAndOrder) {
    Started w;
    struct Case {
        const char* name;
        const char* caption;
        const char* shortcut;
    };
    const Case cases[] = {
        {"mnuGraphPrint", "&Print Graph", "Ctrl+P"},
        {"mnuGraphExit", "&Exit", "Ctrl+X"},
        {"mnuGraphIt", "&Graph!", "F3"},
        {"mnuClearData", "Clear &Data", "Ctrl+C"},
        {"mnuInsertAbs", "Insert Absolute &Value (|)", ""},
        {"mnuCos", "Insert &Cosine", "Ctrl+F2"},
        {"mnuPtSeries", "Regression Anal&ysis", "F7"},
        {"mnuGraphQuadrant", "Toggle &Quadrants", "F9"},
        {"mnuGraphDefault", "&Default Colors", "Ctrl+D"},
        {"mnuGraphZoomOut", "Zoom &Out", ""},
        {"mnuOnlineSupport", "Online Support", ""},
        {"mnuNearTen", "Round To Nearest Tenth", ""},
    };
    for (const Case& c : cases) {
        QAction* item = w.window->MenuItem(c.name);
        ASSERT_NE(item, nullptr) << c.name;
        EXPECT_EQ(item->text(), QString::fromUtf8(c.caption)) << c.name;
        EXPECT_EQ(item->shortcut().toString(), QString::fromUtf8(c.shortcut)) << c.name;
    }
    QStringList bar;
    for (QAction* title : w.window->menuBar()->actions())
        bar << title->text();
    EXPECT_EQ(bar,
              (QStringList{"&File", "F&unctions", "Graph &Options", "Graph &Window", "&Help"}));
    // The trig items in their submenu, and the separators where the tree has them.
    QStringList trig;
    for (QAction* item : w.window->MenuOf("mnuTrig")->actions())
        trig << item->text();
    EXPECT_EQ(trig, (QStringList{"Insert &Sine", "Insert &Cosine", "Insert &Tangent"}));
    std::vector<bool> fileSeparators;
    for (QAction* item : w.window->MenuOf("mnuGraphFile")->actions())
        fileSeparators.push_back(item->isSeparator());
    EXPECT_EQ(fileSeparators,
              (std::vector<bool>{false, false, true, false, false, true, false, true, false}));
    EXPECT_TRUE(w.window->MenuItem("mnuNearWhole")->isChecked());
    EXPECT_FALSE(w.window->MenuItem("mnuHideGrid")->isChecked());
}

TEST(MainWindow, ClearDataAnsweredYesOrNo) {
    for (int answer : {MsgResultNo, MsgResultYes}) {
        Started w;
        w.Type(0, "2x");
        w.window->Blinker()->click();
        w.Type(1, "x");
        ASSERT_TRUE(w.window->Paper(1)->isVisible());
        w.platform.MsgBoxAnswers.push_back(answer);
        w.window->MenuItem("mnuClearData")->trigger();

        const bool erased = answer == MsgResultYes;
        SCOPED_TRACE(erased ? "Yes" : "No");
        EXPECT_EQ(w.platform.Messages(), std::vector<std::string>{ClearDataQuestion});
        EXPECT_EQ(EntryText(*w.s, 0), erased ? "" : "2x");
        EXPECT_EQ(w.window->Paper(1)->isVisible(), !erased);
        EXPECT_EQ(w.window->Label1(1)->isVisible(), !erased);
        EXPECT_EQ(w.window->Blinker()->geometry().top(), erased ? 113 : 113 + 56);
        EXPECT_EQ(w.window->ToolbarButton(1)->isEnabled(), !erased);
        EXPECT_EQ(w.window->MenuItem("mnuGraphIt")->isEnabled(), !erased);
        EXPECT_EQ(w.window->Paper(erased ? 0 : 1)->hasFocus(), true);
    }
}

TEST(MainWindow, DropDownEntryChangesTheButtonAndTheClickInserts) {
    Started w;
    QToolButton* trig = w.window->ToolbarButton(10);
    ASSERT_NE(trig->menu(), nullptr);
    QAction* cosine = nullptr;
    for (QAction* entry : trig->menu()->actions())
        if (entry->text() == QStringLiteral("Insert Cosine")) cosine = entry;
    ASSERT_NE(cosine, nullptr);
    cosine->trigger();
    EXPECT_EQ(w.s->TokenCount(0), 0);
    EXPECT_EQ(trig->toolTip(), QStringLiteral("Insert Cosine"));
    trig->click();
    EXPECT_EQ(EntryText(*w.s, 0), "C(");
    EXPECT_TRUE(w.platform.Calls.empty());
}

TEST(MainWindow, TypingOpensAndClosesTheGraphCommands) {
    struct Case {
        const char* keys;
        bool open;
    };
    const Case cases[] = {{"1/x", true}, {"|x", false}, {"x+", false}, {"", false}};
    for (const Case& c : cases) {
        Started w;
        w.Type(0, c.keys);
        SCOPED_TRACE(c.keys);
        EXPECT_EQ(w.window->ToolbarButton(1)->isEnabled(), c.open);
        EXPECT_EQ(w.window->ToolbarButton(12)->isEnabled(), c.open);
        EXPECT_EQ(w.window->ToolbarButton(13)->isEnabled(), c.open);
        for (const char* item : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
            EXPECT_EQ(w.window->MenuItem(item)->isEnabled(), c.open) << item;
    }
}

TEST(MainWindow, FocusColoursTheRowsAndBlinkerFocusesTheRowAfterTheActiveOne) {
    Started w;
    EXPECT_EQ(RowPixel(*w.window, 0), 0xFFFF80u); // pale yellow, as 0xRRGGBB
    for (int i = 1; i <= 3; ++i)
        w.window->Blinker()->click();
    ASSERT_EQ(w.s->ActiveSlot, 3);
    EXPECT_EQ(RowPixel(*w.window, 0), 0xFFFFFFu);
    EXPECT_EQ(RowPixel(*w.window, 3), 0xFFFF80u);

    w.window->Blinker()->click();
    EXPECT_TRUE(w.window->Paper(4)->isVisible());
    EXPECT_TRUE(w.window->Paper(4)->hasFocus());
    EXPECT_EQ(w.s->ActiveSlot, 4);
    EXPECT_FALSE(w.window->Blinker()->isVisible());
    EXPECT_EQ(RowPixel(*w.window, 3), 0xFFFFFFu);
    EXPECT_EQ(RowPixel(*w.window, 4), 0xFFFF80u);

    // The graph takes the focus: every row white, the active row kept for the menus.
    w.window->frmGraph()->setFocus();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(RowPixel(*w.window, i), 0xFFFFFFu) << i;
    EXPECT_EQ(w.s->ActiveSlot, 4);
}

TEST(MainWindow, NavigationKeysInARowMoveTheViewAndTypeNothing) {
    Started w;
    w.Key(w.window->Paper(0), Qt::Key_Up);
    w.Key(w.window->Paper(0), Qt::Key_End);
    EXPECT_EQ(w.s->ViewYMax, 21);
    EXPECT_EQ(w.s->ViewXMax, 30);
    EXPECT_EQ(w.s->TokenCount(0), 0);
    w.Type(0, "x");
    w.Key(w.window->Paper(0), Qt::Key_Backspace);
    EXPECT_EQ(w.s->TokenCount(0), 0);
}

TEST(MainWindow, MouseOnTheGraphShowsTheCoordinatesInTheReadout) {
    struct Case {
        QPoint at;
        const char* readout;
    };
    const Case cases[] = {{{200, 200}, "x = 0    y = 0"},
                          {{300, 100}, "x = 10    y = 10"},
                          {{0, 399}, "x = -20    y = -20"}};
    Started w;
    for (const Case& c : cases) {
        QMouseEvent move(QEvent::MouseMove, QPointF(c.at), QPointF(c.at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(w.window->frmGraph(), &move);
        EXPECT_EQ(w.window->Label2()->text(), QString::fromUtf8(c.readout));
    }
}

TEST(MainWindow, SavedProblemsGoesToTheUsersDataWhereTheProgramFolderIsClosed) {
    QStandardPaths::setTestModeEnabled(true);
    // Nothing can be made under /proc, whoever runs the test.
    Started w("/proc/veritrace-no-such-folder");
    const QString expected = QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
                                 .filePath(QStringLiteral("Saved Problems"));
    EXPECT_EQ(QString::fromStdString(w.s->SavedProblemsDir), expected);
    EXPECT_TRUE(QDir(expected).exists());
    QStandardPaths::setTestModeEnabled(false);
}

TEST(MainWindow, CommandsWithoutTheirWindowsSaySoAndExitOnlyHides) {
    Started w;
    for (const char* item : {"mnuGraphPrint", "mnuSave", "mnuAbout"})
        w.window->MenuItem(item)->trigger();
    EXPECT_EQ(w.platform.Messages(), std::vector<std::string>(3, NotAvailableText));
    w.window->MenuItem("mnuGraphExit")->trigger();
    EXPECT_FALSE(w.window->isVisible());
    EXPECT_EQ(w.s->Host, &w.platform);
}

} // namespace vt
