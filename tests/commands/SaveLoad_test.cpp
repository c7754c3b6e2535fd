#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <unistd.h>

#include "commands/KeyStroke.h"
#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "output/DataFile.h"
#include "output/SafeFile.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

// A host whose save and open dialogs answer with a path, and keep what they were asked.
class FileHost : public test::ScriptedPlatform {
  public:
    std::optional<std::string> Answer;
    std::vector<FileDialogRequest> Requests;
    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        ScriptedPlatform::OpenFileName(request);
        Requests.push_back(request);
        return Answer;
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override {
        ScriptedPlatform::SaveFileName(request);
        Requests.push_back(request);
        return Answer;
    }
};

struct Fixture {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    FileHost host;
    test::RecordingSurface box{400, 400};
    HeadlessShell shell;
    fs::path dir;

    Fixture() {
        StartSession(*s);
        shell.Messages = &host;
        shell.Graph = &box;
        s->BindHost(&shell);
        dir = fs::temp_directory_path() / ("vt-saveload-" + std::to_string(::getpid()));
        fs::create_directories(dir);
        s->SavedProblemsDir = dir.string();
    }
    ~Fixture() { fs::remove_all(dir); }

    std::string File(const std::string& name, const std::string& bytes) {
        const fs::path path = dir / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }
    // Loads a file's bytes as the command line does; returns the messages shown.
    std::vector<std::string> Load(const std::string& bytes) {
        LoadCommandFile(*s, File("in.vtx", bytes));
        return host.Messages();
    }
    std::string Rows() const {
        std::string out;
        for (int i = 0; i < UsableSlots; ++i)
            out += EntryText(*s, i) + "|";
        return out;
    }
};

std::string Points(int n) {
    std::string out;
    for (int i = 1; i <= n; ++i)
        out += std::to_string(i) + "BB" + std::to_string(i % 7) + "BB";
    return out;
}

// A linear series of n points and no functions.
std::string Series(int n) {
    return "BBBBBBBBBB" + Points(n) + "TrueBB2BB\r\n";
}

const std::string Example = "2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n";

TEST(SaveLoad, LoadsAsTheFileSays) {
    struct Case {
        const char* what;
        std::string bytes;
        bool message;
        std::string rows;
        int count;
        bool linear;
        std::string order;
        int degree;
        int lastVisibleRow; // rows 1..4 visible up to this one
    } cases[] = {
        // clang-format off
        {"example", Example, false, "2x+1|||||", 2, false, "3", 3, 0},
        {"no line end", "2x+1BBBBBBBBBBFalseBB3BB", false, "2x+1|||||", 0, false, "3", 3, 0},
        {"no functions", "BBBBBBBBBBFalseBB2BB\r\n", false, "|||||", 0, false, "2", 2, 0},
        {"linear, order kept", "xBBBBBBBBBBTrueBB4BB\r\n", false, "x|||||", 0, true, "4", 1, 0},
        {"row between", "xBBBBx+1BBBBBBTrueBB2BB\r\n", false, "x||x+1|||", 0, true, "2", 1, 2},
        {"last row", "BBBBBBBBS(x)BBFalseBB10BB\r\n", false, "||||S(x)|", 0, false, "10", 10, 4},
        {"keys refused", "x)+2BBBBBBBBBBTrueBB2BB\r\n", false, "x+2|||||", 0, true, "2", 1, 0},
        {"500 points", Series(500), false, "|||||", 500, true, "2", 1, 0},
        {"501 points", Series(501), true, "|||||", 501, true, "2", 1, 0},
        {"10000 points", Series(10000), true, "|||||", 501, true, "2", 1, 0},
        {"text points: 0", "BBBBBBBBBBabcBB1,5BBFalseBB2BB", false, "|||||", 1, false, "2", 2, 0},
        {"order not listed", "xBBBBBBBBBBFalseBB11BB\r\n", true, "x|||||", 0, false, "2", 2, 0},
        {"order field a row's text", "aBBbBBcBBdBBxBB", true, "||||x|", 0, true, "2", 1, 4},
        {"separators only", "BBBBBBBBBBBB", true, "|||||", 0, true, "2", 1, 0},
        {"too few fields", "x+1BB2xBB", true, "x+1|2x||||", 0, true, "2", 1, 0},
        {"binary", std::string("\0\x01\xff\x1a" "BB\x80", 7), true, "|||||", 0, true, "2", 1, 0}};
    // clang-format on
    for (const Case& c : cases) {
        Fixture f;
        const auto messages = f.Load(c.bytes);
        SCOPED_TRACE(c.what);
        EXPECT_EQ(messages, c.message ? std::vector<std::string>{OpenFailedText}
                                      : std::vector<std::string>{});
        EXPECT_EQ(f.Rows(), c.rows);
        EXPECT_EQ(f.s->FitObject.XYCount(), c.count);
        EXPECT_EQ(f.s->Panel.LinearOn, c.linear);
        EXPECT_EQ(f.s->Panel.PolynomialOn, !c.linear);
        EXPECT_EQ(f.s->Panel.Combo1, c.order);
        EXPECT_EQ(f.s->FitObject.Degree(), c.degree);
        for (int row = 1; row <= 4; ++row)
            EXPECT_EQ(f.s->RowVisible(row), row <= c.lastVisibleRow);
        EXPECT_EQ(f.s->MousePointer, f.s->DefaultPointer);
    }
}

TEST(SaveLoad, AFailedLoadKeepsWhatItDid) {
    Fixture f;
    f.Load("x+1BB2xBB");
    // The load stopped in the middle of the rows: nothing is undone, and the trigonometric
    // letters still pass.
    EXPECT_TRUE(f.s->TrigFromMenu);
    EXPECT_EQ(f.s->ActiveSlot, 3); // the first row with no field
    EXPECT_EQ(f.s->Points(0).X, 0);
}

TEST(SaveLoad, NothingToLoadChangesNothing) {
    Fixture f;
    ReplaySlotKeys(*f.s, 0, "x^2");
    EXPECT_TRUE(f.Load("").empty());
    EXPECT_EQ(f.Rows(), "x^2|||||");
    // A file that cannot be read says so and leaves the rows alone.
    LoadCommandFile(*f.s, (f.dir / "missing.vtx").string());
    EXPECT_EQ(f.host.Messages(), std::vector<std::string>{OpenFailedText});
    EXPECT_EQ(f.Rows(), "x^2|||||");
    // A cancelled dialog.
    mnuLoad_Click(*f.s);
    EXPECT_EQ(f.host.Messages().size(), 1u);
    EXPECT_EQ(f.Rows(), "x^2|||||");
}

TEST(SaveLoad, ALoadClearsTheBreakdownTables) {
    Fixture f;
    // Left over from reading an earlier equation.
    auto dirty = [&] {
        f.s->MaxBreakdownGroup = 3;
        f.s->BreakdownExpr(0).Rows(0).Scale = 7;
    };
    dirty();
    f.Load("");
    // An empty file does nothing at all.
    EXPECT_EQ(f.s->MaxBreakdownGroup, 3);
    for (const std::string& bytes : {Example, std::string("x+1BB2xBB")}) {
        dirty();
        f.Load(bytes);
        EXPECT_EQ(f.s->MaxBreakdownGroup, 0) << bytes;
        EXPECT_EQ(f.s->BreakdownExpr(0).Rows(0).Scale, 1) << bytes;
    }
}

TEST(SaveLoad, QuotesOnTheCommandLineAreDropped) {
    Fixture f;
    const std::string path = f.File("my graph.vtx", Example);
    const std::string quoted[] = {"\"" + path + "\"", "  \"" + path + "\"  ",
                                  path.substr(0, 5) + "\"" + path.substr(5)};
    for (const std::string& line : quoted) {
        ClearAllRows(*f.s);
        LoadCommandFile(*f.s, line);
        EXPECT_EQ(f.Rows(), "2x+1|||||") << line;
        EXPECT_TRUE(f.s->CommandFile.empty());
    }
    EXPECT_TRUE(f.host.Messages().empty());
}

TEST(SaveLoad, SavesWhatItLoads) {
    const std::string files[] = {
        Example,
        "BBBBBBBBBBTrueBB2BB\r\n",
        "xBBBB~(x+1)BBBBBBTrueBB7BB\r\n",
        "S(x)BBC(x)BBT(x)BB|x|BBPx^2BB" + Points(500) + "FalseBB10BB\r\n",
        "BBBBBBBBBB0.333333333333333BB-0.00001BB1E+20BB0BBFalseBB5BB\r\n",
    };
    for (const std::string& bytes : files) {
        Fixture f;
        EXPECT_TRUE(f.Load(bytes).empty());
        const std::optional<std::string> text = GraphDataText(*f.s);
        ASSERT_TRUE(text.has_value());
        EXPECT_EQ(*text + "\r\n", bytes);
        // Through the dialog, into a file.
        f.host.Answer = (f.dir / "out.vtx").string();
        mnuSave_Click(*f.s);
        std::string written;
        ASSERT_TRUE(ReadWholeFile(*f.host.Answer, written));
        EXPECT_EQ(written, bytes);
    }
}

TEST(SaveLoad, ASeriesPastTheKeptPointsIsNotSaved) {
    Fixture f;
    f.Load(Series(501));
    f.host.Calls.clear();
    f.host.Answer = (f.dir / "out.vtx").string();
    mnuSave_Click(*f.s);
    EXPECT_EQ(f.host.Messages(), std::vector<std::string>{SaveFailedText});
    EXPECT_EQ(f.host.Calls.size(), 1u); // no dialog
    EXPECT_FALSE(fs::exists(*f.host.Answer));
}

TEST(SaveLoad, TheDialogsAndTheirSharedFilter) {
    Fixture f;
    const std::string today = FileNameDate(Today());
    mnuLoad_Click(*f.s); // before any save: no filter
    mnuSave_Click(*f.s);
    mnuLoad_Click(*f.s);
    mnuBitMap_Click(*f.s);
    mnuLoad_Click(*f.s);
    ASSERT_EQ(f.host.Requests.size(), 5u);
    struct Expected {
        const char* title;
        std::string filter, name, extension;
    } expected[] = {
        {"Load Graph Data", "", "", "vtx"},
        {"Save Graph Data As", DataFileFilter, "Veritrace " + today, "vtx"},
        {"Load Graph Data", DataFileFilter, "", "vtx"},
        {"Save Graph Bitmap As", BitmapFileFilter, "GraphBitmap " + today, "bmp"},
        {"Load Graph Data", BitmapFileFilter, "", "vtx"},
    };
    for (std::size_t i = 0; i < 5; ++i) {
        const FileDialogRequest& r = f.host.Requests[i];
        EXPECT_EQ(r.Title, expected[i].title);
        EXPECT_EQ(r.Filter, expected[i].filter);
        EXPECT_EQ(r.FileName, expected[i].name);
        EXPECT_EQ(r.DefaultExt, expected[i].extension);
        EXPECT_EQ(r.InitialDir, f.dir.string());
    }
    EXPECT_TRUE(f.host.Messages().empty());
}

TEST(SaveLoad, BitmapOfTheGraphBox) {
    Fixture f;
    f.box.BackColor = 0x00C000;
    f.host.Answer = (f.dir / "graph.bmp").string();
    mnuBitMap_Click(*f.s);
    std::string bytes;
    ASSERT_TRUE(ReadWholeFile(*f.host.Answer, bytes));
    ASSERT_EQ(bytes.size(), 54u + 400u * 400u * 3u);
    EXPECT_EQ(bytes.substr(54, 3), std::string("\x00\xC0\x00", 3));
    // A write that cannot happen says nothing and leaves no file.
    f.host.Answer = (f.dir / "no folder" / "graph.bmp").string();
    mnuBitMap_Click(*f.s);
    EXPECT_TRUE(f.host.Messages().empty());
    EXPECT_FALSE(fs::exists(*f.host.Answer));
}

} // namespace
} // namespace vt
