// Malformed graph data files, from tests/data/bad and made on the spot (too large, a folder, no
// permission to read), through Load Graph Data's dialog and the command line. Each gives the
// load's message or loads as the file says, and the program goes on working: a function typed
// afterwards is built and evaluated.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "commands/KeyStroke.h"
#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "entry/EntryTesting.h"
#include "output/SafeFile.h"
#include "plot/Evaluate.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

const fs::path BadFiles = fs::path(__FILE__).parent_path().parent_path() / "data" / "bad";

// A host whose open dialog answers with a path.
class OpenHost : public test::ScriptedPlatform {
  public:
    std::optional<std::string> Answer;
    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        ScriptedPlatform::OpenFileName(request);
        return Answer;
    }
};

struct Window {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    OpenHost host;
    test::RecordingSurface box{400, 400};
    HeadlessShell shell;

    Window() {
        StartSession(*s);
        shell.Messages = &host;
        shell.Graph = &box;
        s->BindHost(&shell);
    }
    std::string Rows() const {
        std::string out;
        for (int i = 0; i < UsableSlots; ++i)
            out += EntryText(*s, i) + "|";
        return out;
    }
};

// Whether the rows still take keys: row 4 emptied key by key, "2x+1" typed into it and
// evaluated at 1.
testing::AssertionResult StillWorks(Session& s) {
    s.ActiveSlot = 4;
    for (int n = s.TokenCount(4); n > 0; --n)
        Paper_KeyPress(s, 4, BackspaceKey);
    test::Type(s, "2x+1");
    PreCalcFX(s);
    if (EntryText(s, 4) != "2x+1") return testing::AssertionFailure() << EntryText(s, 4);
    const std::string y = CalculateY(s, 1, 4);
    if (y != "3") return testing::AssertionFailure() << "2x+1 at 1 gave " << y;
    return testing::AssertionSuccess();
}

} // namespace

TEST(BadFiles, EachGivesTheMessageOrLoadsAsItSaysAndTheRowsGoOnWorking) {
    struct Case {
        std::string file;
        bool message;
        std::string rows; // "" where the load leaves the rows it found ("x^2" in row 0)
        int points;
    };
    const std::string untouched = "x^2|||||";
    const Case cases[] = {
        {"binary.vtx", true, "", 0}, // its rows are whatever keys the bytes happen to be
        {"truncated-rows.vtx", true, "2x^2+1|~(x+1)|3/|||", 0},
        {"truncated-points.vtx", false, "x|||||", 1},
        {"empty.vtx", false, untouched, 0},
        {"line-ends-only.vtx", true, "|||||", 0},
        {"separators-only.vtx", true, "|||||", 0},
        {"too-few-fields.vtx", true, "x+1|2x||||", 0},
        // Trend and order are counted from the end; the extra field pairs up as a point.
        {"too-many-fields.vtx", false, "x|||||", 2},
        {"text-points.vtx", false, "|||||", 1},
        {"order-11.vtx", true, "x|||||", 0},
        {"order-1.vtx", true, "x|||||", 0},
        {"points-501.vtx", true, "|||||", 501},
        {"points-10000.vtx", true, "|||||", 501},
        // Bytes above 127 and control codes are keys no rule takes; Backspace (8) is one.
        {"utf8.vtx", false, "x+|||||", 0},
        {"latin1-and-control.vtx", false, "x+|x||||", 0},
        {"long-row.vtx", false, "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        Window w;
        ReplaySlotKeys(*w.s, 0, "x^2");
        w.host.Answer = (BadFiles / c.file).string();
        mnuLoad_Click(*w.s);
        EXPECT_EQ(w.host.Messages(), c.message ? std::vector<std::string>{OpenFailedText}
                                               : std::vector<std::string>{});
        if (!c.rows.empty()) {
            EXPECT_EQ(w.Rows(), c.rows);
        }
        EXPECT_EQ(w.s->FitObject.XYCount(), c.points);
        EXPECT_EQ(w.s->MousePointer, w.s->DefaultPointer);
        EXPECT_TRUE(StillWorks(*w.s));
    }
}

TEST(BadFiles, WhatIsNoFileToReadChangesNothing) {
    const fs::path dir = fs::temp_directory_path() / ("vt-badfiles-" + std::to_string(::getpid()));
    fs::create_directories(dir / "folder.vtx");
    {
        // Larger than any graph data file: refused before it is read.
        std::ofstream huge(dir / "huge.vtx", std::ios::binary);
        huge << "xBBBBBBBBBBTrueBB2BB";
        huge.seekp(static_cast<std::streamoff>(MaxReadBytes) + 1);
        huge << '\n';
    }
    std::ofstream(dir / "unreadable.vtx", std::ios::binary) << "xBBBBBBBBBBTrueBB2BB\r\n";
    ::chmod((dir / "unreadable.vtx").c_str(), 0);
    // Permissions do not stop root, who reads the file as any other.
    const bool root = ::geteuid() == 0;
    const std::pair<std::string, bool> cases[] = {{"folder.vtx", false},
                                                  {"huge.vtx", false},
                                                  {"missing.vtx", false},
                                                  {"unreadable.vtx", root}};
    // Through the dialog a file that cannot be read is as good as a cancel: nothing is said
    // and nothing changes. Named on the command line, it gives the load's message.
    for (const auto& [name, readable] : cases) {
        for (const bool commandLine : {false, true}) {
            SCOPED_TRACE(name + (commandLine ? " on the command line" : " in the dialog"));
            Window w;
            ReplaySlotKeys(*w.s, 0, "x^2");
            if (commandLine) {
                LoadCommandFile(*w.s, (dir / name).string());
            } else {
                w.host.Answer = (dir / name).string();
                mnuLoad_Click(*w.s);
            }
            EXPECT_EQ(w.host.Messages().size(), commandLine && !readable ? 1u : 0u);
            EXPECT_EQ(w.Rows(), readable ? "x|||||" : "x^2|||||");
            EXPECT_TRUE(StillWorks(*w.s));
        }
    }
    fs::remove_all(dir);
}

TEST(BadFiles, PathInQuotesOnTheCommandLine) {
    const std::string path = (BadFiles / "truncated-points.vtx").string();
    // On the command line the quotes go wherever they stand; in the dialog's answer they are
    // part of a name that does not exist, which changes nothing.
    Window w;
    LoadCommandFile(*w.s, "\"" + path + "\"");
    EXPECT_TRUE(w.host.Messages().empty());
    EXPECT_EQ(w.Rows(), "x|||||");
    EXPECT_TRUE(StillWorks(*w.s));

    Window dialog;
    ReplaySlotKeys(*dialog.s, 0, "x^2");
    dialog.host.Answer = "\"" + path + "\"";
    mnuLoad_Click(*dialog.s);
    EXPECT_TRUE(dialog.host.Messages().empty());
    EXPECT_EQ(dialog.Rows(), "x^2|||||");
    EXPECT_TRUE(StillWorks(*dialog.s));
}

} // namespace vt
