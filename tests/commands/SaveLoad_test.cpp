// Save and Load Graph Data and the bitmap, through their dialogs and the command line, on good
// files, the malformed ones of tests/data/bad and what is no file at all. Each load gives its
// message or loads as the file says, and the rows go on working afterwards.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "commands/KeyStroke.h"
#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "entry/EntryTesting.h"
#include "output/DataFile.h"
#include "output/SafeFile.h"
#include "plot/Evaluate.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

const fs::path BadFiles = fs::path(__FILE__).parent_path().parent_path() / "data" / "bad";

// A host whose save and open dialogs answer with a path, and keep what they were asked.
struct FileHost : test::ScriptedPlatform {
    std::optional<std::string> Answer;
    std::vector<FileDialogRequest> Requests;
    std::optional<std::string> OpenFileName(const FileDialogRequest& r) override {
        return ScriptedPlatform::OpenFileName(r), Requests.push_back(r), Answer;
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& r) override {
        return ScriptedPlatform::SaveFileName(r), Requests.push_back(r), Answer;
    }
};

struct Fixture {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    FileHost host;
    test::RecordingSurface box{400, 400};
    HeadlessShell shell;
    inline static int made = 0;
    fs::path dir = fs::temp_directory_path() /
                   ("vt-saveload-" + std::to_string(::getpid()) + "-" + std::to_string(made++));

    explicit Fixture(const char* row0 = "") {
        StartSession(*s);
        shell.Messages = &host;
        shell.Graph = &box;
        s->BindHost(&shell);
        fs::create_directories(dir);
        s->SavedProblemsDir = dir.string();
        if (*row0) ReplaySlotKeys(*s, 0, row0);
    }
    ~Fixture() { fs::remove_all(dir); }

    std::string File(const std::string& name, const std::string& bytes) {
        std::ofstream(dir / name, std::ios::binary) << bytes;
        return (dir / name).string();
    }
    // Loads a file's bytes as the command line does; returns the messages shown.
    Texts Load(const std::string& bytes) {
        LoadCommandFile(*s, File("in.vtx", bytes));
        return host.Messages();
    }
    // Runs a save command whose dialog answers with a file in the folder; what it wrote.
    std::string SaveTo(void (*command)(Session&), const std::string& name) {
        host.Answer = (dir / name).string();
        command(*s);
        std::string bytes;
        return ReadWholeFile(*host.Answer, bytes) ? bytes : "no file";
    }
    void LoadFromDialog(const std::string& path) {
        host.Answer = path;
        mnuLoad_Click(*s);
    }
    std::string Rows() const {
        std::string out;
        for (int i = 0; i < UsableSlots; ++i)
            out += EntryText(*s, i) + "|";
        return out;
    }
    // Whether the rows still take keys: row 4 emptied, "2x+1" typed into it and evaluated at 1.
    testing::AssertionResult StillWorks() {
        s->ActiveSlot = 4;
        for (int n = s->TokenCount(4); n > 0; --n)
            Paper_KeyPress(*s, 4, BackspaceKey);
        test::Type(*s, "2x+1");
        PreCalcFX(*s);
        if (EntryText(*s, 4) != "2x+1") return testing::AssertionFailure() << EntryText(*s, 4);
        const std::string y = CalculateY(*s, 1, 4);
        if (y != "3") return testing::AssertionFailure() << "2x+1 at 1 gave " << y;
        return testing::AssertionSuccess();
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
    // {what; bytes; message shown; rows; points; linear; order; degree; rows 1..4 visible up
    // to this one}
    // clang-format off
    const std::tuple<const char*, std::string, bool, std::string, int, bool, std::string, int,
                     int> cases[] = {
        {"example", Example, false, "2x+1|||||", 2, false, "3", 3, 0},
        {"no line end", "2x+1BBBBBBBBBBFalseBB3BB", false, "2x+1|||||", 0, false, "3", 3, 0},
        {"no functions", "BBBBBBBBBBFalseBB2BB\r\n", false, "|||||", 0, false, "2", 2, 0},
        {"linear, order kept", "xBBBBBBBBBBTrueBB4BB\r\n", false, "x|||||", 0, true, "4", 1, 0},
        {"row between", "xBBBBx+1BBBBBBTrueBB2BB\r\n", false, "x||x+1|||", 0, true, "2", 1, 2},
        {"last row", "BBBBBBBBS(x)BBFalseBB10BB\r\n", false, "||||S(x)|", 0, false, "10", 10, 4},
        {"keys refused", "x)+2BBBBBBBBBBTrueBB2BB\r\n", false, "x+2|||||", 0, true, "2", 1, 0},
        {"500 points", Series(500), false, "|||||", 500, true, "2", 1, 0},
        {"order not listed", "xBBBBBBBBBBFalseBB11BB\r\n", true, "x|||||", 0, false, "2", 2, 0},
        {"order field a row's text", "aBBbBBcBBdBBxBB", true, "||||x|", 0, true, "2", 1, 4}};
    // clang-format on
    for (const auto& [what, bytes, message, rows, count, linear, order, degree, lastRow] : cases) {
        SCOPED_TRACE(what);
        Fixture f;
        EXPECT_EQ(f.Load(bytes), message ? Texts{OpenFailedText} : Texts{});
        EXPECT_EQ(f.Rows(), rows);
        EXPECT_EQ(f.s->FitObject.XYCount(), count);
        EXPECT_EQ(std::tuple(f.s->Panel.LinearOn, f.s->Panel.PolynomialOn, f.s->Panel.Combo1,
                             f.s->FitObject.Degree()),
                  std::tuple(linear, !linear, order, degree));
        for (int row = 1; row <= 4; ++row)
            EXPECT_EQ(f.s->RowVisible(row), row <= lastRow);
    }
}

TEST(SaveLoad, EachBadFileGivesTheMessageOrLoadsAsItSaysAndTheRowsGoOnWorking) {
    Fixture made;
    fs::create_directories(made.dir / "folder.vtx");
    {
        // Larger than any graph data file: refused before it is read.
        std::ofstream huge(made.dir / "huge.vtx", std::ios::binary);
        huge << "xBBBBBBBBBBTrueBB2BB";
        huge.seekp(static_cast<std::streamoff>(MaxReadBytes) + 1);
        huge << '\n';
    }
    ::chmod(made.File("unreadable.vtx", "xBBBBBBBBBBTrueBB2BB\r\n").c_str(), 0);
    // Permissions do not stop root, who reads the file as any other.
    const bool root = ::geteuid() == 0;
    const std::string untouched = "x^2|||||";
    // {file; message shown, -1 for what is no file to read: through the dialog that is as good
    // as a cancel, named on the command line it gives the load's message; rows ("" where they
    // are whatever keys the bytes happen to be); points}. Trend and order are counted from the
    // end, so an extra field pairs up as a point; bytes above 127 and control codes are keys no
    // rule takes, Backspace (8) is one.
    // clang-format off
    const std::tuple<fs::path, int, std::string, int> cases[] = {
        {BadFiles / "binary.vtx", 1, "", 0}, {BadFiles / "truncated-rows.vtx", 1, "2x^2+1|~(x+1)|3/|||", 0},
        {BadFiles / "truncated-points.vtx", 0, "x|||||", 1}, {BadFiles / "empty.vtx", 0, untouched, 0},
        {BadFiles / "line-ends-only.vtx", 1, "|||||", 0}, {BadFiles / "separators-only.vtx", 1, "|||||", 0},
        {BadFiles / "too-few-fields.vtx", 1, "x+1|2x||||", 0}, {BadFiles / "too-many-fields.vtx", 0, "x|||||", 2},
        {BadFiles / "text-points.vtx", 0, "|||||", 1}, {BadFiles / "order-11.vtx", 1, "x|||||", 0},
        {BadFiles / "order-1.vtx", 1, "x|||||", 0}, {BadFiles / "points-501.vtx", 1, "|||||", 501},
        {BadFiles / "points-10000.vtx", 1, "|||||", 501}, {BadFiles / "utf8.vtx", 0, "x+|||||", 0},
        {BadFiles / "latin1-and-control.vtx", 0, "x+|x||||", 0}, {BadFiles / "long-row.vtx", 0, "", 0},
        {made.dir / "folder.vtx", -1, untouched, 0}, {made.dir / "huge.vtx", -1, untouched, 0},
        {made.dir / "missing.vtx", -1, untouched, 0},
        {made.dir / "unreadable.vtx", root ? 0 : -1, root ? "x|||||" : untouched, 0}};
    // clang-format on
    for (const auto& [file, message, rows, points] : cases) {
        for (const bool commandLine : {false, true}) {
            SCOPED_TRACE(file.filename().string() + (commandLine ? " on the command line" : ""));
            Fixture f("x^2");
            if (commandLine)
                LoadCommandFile(*f.s, file.string());
            else
                f.LoadFromDialog(file.string());
            const bool shown = message == 1 || (message < 0 && commandLine);
            EXPECT_EQ(f.host.Messages(), shown ? Texts{OpenFailedText} : Texts{});
            if (!rows.empty()) {
                EXPECT_EQ(f.Rows(), rows);
            }
            EXPECT_EQ(f.s->FitObject.XYCount(), points);
            EXPECT_EQ(f.s->MousePointer, f.s->DefaultPointer);
            EXPECT_TRUE(f.StillWorks());
        }
    }
    // A cancelled dialog changes nothing either.
    Fixture f("x^2");
    mnuLoad_Click(*f.s);
    EXPECT_EQ(f.host.Calls.size(), 1u);
    EXPECT_EQ(f.Rows(), untouched);
}

TEST(SaveLoad, AFailedLoadKeepsWhatItDidButClearsTheBreakdownTables) {
    Fixture f;
    // Left over from reading an earlier equation; an empty file does nothing at all.
    const auto dirty = [&] {
        f.s->MaxBreakdownGroup = 3;
        f.s->BreakdownExpr(0).Rows(0).Scale = 7;
    };
    dirty();
    f.Load("");
    EXPECT_EQ(f.s->MaxBreakdownGroup, 3);
    for (const std::string& bytes : {std::string("x+1BB2xBB"), Example}) {
        dirty();
        f.Load(bytes);
        EXPECT_EQ(f.s->MaxBreakdownGroup, 0) << bytes;
        EXPECT_EQ(f.s->BreakdownExpr(0).Rows(0).Scale, 1) << bytes;
        if (bytes == Example) continue;
        // The load stopped in the middle of the rows: nothing is undone, and the trigonometric
        // letters still pass.
        EXPECT_TRUE(f.s->TrigFromMenu);
        EXPECT_EQ(f.s->ActiveSlot, 3); // the first row with no field
        EXPECT_EQ(f.s->Points(0).X, 0);
    }
}

TEST(SaveLoad, QuotesOnTheCommandLineAreDropped) {
    Fixture f;
    const std::string path = f.File("my graph.vtx", Example);
    for (const std::string& line :
         {"\"" + path + "\"", "  \"" + path + "\"  ", path.substr(0, 5) + "\"" + path.substr(5)}) {
        ClearAllRows(*f.s);
        LoadCommandFile(*f.s, line);
        EXPECT_EQ(f.Rows(), "2x+1|||||") << line;
        EXPECT_TRUE(f.s->CommandFile.empty());
    }
    EXPECT_TRUE(f.host.Messages().empty());
    // In the dialog's answer they are part of a name that does not exist: nothing changes.
    Fixture dialog("x^2");
    dialog.LoadFromDialog("\"" + path + "\"");
    EXPECT_TRUE(dialog.host.Messages().empty());
    EXPECT_EQ(dialog.Rows(), "x^2|||||");
}

TEST(SaveLoad, SavesWhatItLoads) {
    const std::string files[] = {Example, "BBBBBBBBBBTrueBB2BB\r\n",
                                 "xBBBB~(x+1)BBBBBBTrueBB7BB\r\n",
                                 "S(x)BBC(x)BBT(x)BB|x|BBPx^2BB" + Points(500) + "FalseBB10BB\r\n",
                                 "BBBBBBBBBB0.333333333333333BB-0.00001BB1E+20BB0BBFalseBB5BB\r\n"};
    for (const std::string& bytes : files) {
        Fixture f;
        EXPECT_TRUE(f.Load(bytes).empty());
        EXPECT_EQ(GraphDataText(*f.s).value_or("none") + "\r\n", bytes);
        EXPECT_EQ(f.SaveTo(mnuSave_Click, "out.vtx"), bytes);
    }
    // A series past the kept points is not saved, and no dialog is shown.
    Fixture f;
    f.Load(Series(501));
    f.host.Calls.clear();
    EXPECT_EQ(f.SaveTo(mnuSave_Click, "out.vtx"), "no file");
    EXPECT_EQ(f.host.Messages(), Texts{SaveFailedText});
    EXPECT_EQ(f.host.Calls.size(), 1u);
}

TEST(SaveLoad, TheDialogsAndTheirSharedFilter) {
    Fixture f;
    const std::string today = FileNameDate(Today());
    for (auto command :
         {mnuLoad_Click, mnuSave_Click, mnuLoad_Click, mnuBitMap_Click, mnuLoad_Click})
        command(*f.s); // the first load comes before any save: no filter
    // {title, filter, file name, extension}
    const std::tuple<std::string, std::string, std::string, std::string> expected[] = {
        {"Load Graph Data", "", "", "vtx"},
        {"Save Graph Data As", DataFileFilter, "Veritrace " + today, "vtx"},
        {"Load Graph Data", DataFileFilter, "", "vtx"},
        {"Save Graph Bitmap As", BitmapFileFilter, "GraphBitmap " + today, "bmp"},
        {"Load Graph Data", BitmapFileFilter, "", "vtx"}};
    ASSERT_EQ(f.host.Requests.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
        const FileDialogRequest& r = f.host.Requests[i];
        EXPECT_EQ(std::tuple(r.Title, r.Filter, r.FileName, r.DefaultExt), expected[i]);
        EXPECT_EQ(r.InitialDir, f.dir.string());
    }
    EXPECT_TRUE(f.host.Messages().empty());
}

TEST(SaveLoad, BitmapOfTheGraphBox) {
    Fixture f;
    f.box.BackColor = 0x00C000;
    const std::string bytes = f.SaveTo(mnuBitMap_Click, "graph.bmp");
    ASSERT_EQ(bytes.size(), 54u + 400u * 400u * 3u);
    EXPECT_EQ(bytes.substr(54, 3), std::string("\x00\xC0\x00", 3));
    // A write that cannot happen says nothing and leaves no file.
    EXPECT_EQ(f.SaveTo(mnuBitMap_Click, "no folder/graph.bmp"), "no file");
    EXPECT_TRUE(f.host.Messages().empty());
}

} // namespace
} // namespace vt
