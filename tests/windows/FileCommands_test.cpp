// The main window's file commands: a graph data file named on the command line, Save and Load
// Graph Data, Save Graph As Bitmap, Copy Graph, and Print Options with the printed page.

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QPrinter>
#include <deque>

#include "analysis/Area.h"
#include "commands/SaveLoad.h"
#include "entry/Entry.h"
#include "windows/WindowTesting.h"
#include "windows/frmPrintSetup.h"

namespace vt {
namespace {

// Answers the file dialogs from a queue of paths (cancelled when it is empty) and keeps what
// each dialog was asked to show.
struct FilePlatform : test::ScriptedPlatform {
    std::deque<std::string> Paths;
    std::vector<FileDialogRequest> Requests;
    std::optional<std::string> OpenFileName(const FileDialogRequest& r) override {
        return Answer(r);
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& r) override {
        return Answer(r);
    }
    std::optional<std::string> Answer(const FileDialogRequest& request) {
        Requests.push_back(request);
        if (Paths.empty()) return std::nullopt;
        const std::string path = Paths.front();
        Paths.pop_front();
        return path;
    }
};

using Window = test::StartedWindow<FilePlatform>;

// Whether the print options are gone once the events of the click have run.
bool PrintOptionsClosed() {
    QApplication::processEvents();
    return test::Shown<frmPrintSetup>() == nullptr;
}
const QByteArray Example = "2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n";

std::string WriteFile(const QTemporaryDir& dir, const char* name, const QByteArray& bytes) {
    QFile file(dir.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName().toStdString();
}

QByteArray Bytes(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(FileCommands, TheCommandLineFileOpensSavesToTheSameBytesAndABadLoadLeavesItUsable) {
    QTemporaryDir files;
    MainWindowOptions options;
    options.CommandLine = "\"" + WriteFile(files, "my graph.vtx", Example) + "\"";
    Window w(options);
    EXPECT_EQ(EntryText(*w.s, 0), "2x+1");
    EXPECT_TRUE(w.platform.Messages().empty());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    // The curve of 2x+1 crosses x = 0 at y = 1, ten pixels a unit above the box's middle.
    EXPECT_NE(w.Graph().pixel(200, 190), w.Graph().pixel(5, 5));

    w.platform.Paths.push_back(w.Path("again.vtx"));
    w.window->MenuItem("mnuSave")->trigger();
    EXPECT_EQ(Bytes(w.Path("again.vtx")), Example);
    EXPECT_EQ(w.platform.Requests.at(0).InitialDir,
              QDir(w.programDir.path()).filePath("Saved Problems").toStdString());

    // The load rules are the commands' own; after a file that cannot be read the hourglass is
    // gone and the first row takes keys from the keyboard again.
    w.platform.Paths.push_back(
        WriteFile(files, "bad.vtx", QByteArray("\0\x01\xff\x1a\x42\x42\x80", 7)));
    w.window->MenuClick("mnuLoad");
    EXPECT_EQ(w.platform.Messages(), test::Texts{OpenFailedText});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    w.platform.MsgBoxAnswers.push_back(MsgResultYes);
    w.window->MenuClick("mnuClearData");
    test::Press(w.window->Paper(0), Qt::Key_3, QStringLiteral("3"));
    EXPECT_EQ(EntryText(*w.s, 0), "3");
}

TEST(FileCommands, BitmapAndCopyGraphTakeTheGraphBoxAsShown) {
    Window w;
    w.GraphRow0("x");
    w.platform.Paths = {w.Path("menu.bmp"), w.Path("area.bmp")};
    w.window->MenuItem("mnuBitMap")->trigger();
    frmFillRange_Command8_Click(*w.s);
    QApplication::clipboard()->clear();
    QAction* copy = w.window->MenuItem("mnuCopyGraph");
    EXPECT_EQ(copy->text(), QStringLiteral("&Copy Graph"));
    copy->trigger();
    const QImage shown = w.Graph();
    // The picture holds the curve, not just an empty grid.
    EXPECT_NE(shown.pixel(200 + 10, 200 - 10), shown.pixel(5, 5));
    for (const QImage& taken :
         {QImage(QString::fromStdString(w.Path("menu.bmp"))),
          QImage(QString::fromStdString(w.Path("area.bmp"))), QApplication::clipboard()->image()}) {
        ASSERT_EQ(taken.size(), QSize(400, 400));
        EXPECT_EQ(taken.convertToFormat(shown.format()), shown);
    }
    EXPECT_TRUE(w.platform.Messages().empty());
}

// Without a file to print to, the page goes to a PDF chosen then; with one, straight there.
TEST(FileCommands, PrintOptionsPrintsThePageAndCloses) {
    test::QtApp(); // before the printer
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    MainWindowOptions options;
    options.Printer = &printer;
    Window w(options);
    w.Type(0, "x");
    w.window->MenuItem("mnuGraphPrint")->trigger();
    frmPrintSetup* dialog = test::Shown<frmPrintSetup>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Print Options"));
    EXPECT_EQ(dialog->Text1()->text(), QStringLiteral("Orlentis Veritrace"));
    EXPECT_EQ(dialog->Text2()->text().toStdString(), TodayShortDate());
    EXPECT_EQ(dialog->Label1()->text(), QStringLiteral("Print to PDF"));
    // The area dialog's Print Graph finds the same dialog open.
    frmFillRange_Command7_Click(*w.s);
    EXPECT_EQ(test::Shown<frmPrintSetup>(), dialog);
    dialog->Text1()->setText(QStringLiteral("Algebra II"));
    // No file chosen: nothing printed, the options stay.
    dialog->Command2_Click();
    EXPECT_EQ(test::Shown<frmPrintSetup>(), dialog);
    ASSERT_EQ(w.platform.Requests.size(), 1u);
    EXPECT_EQ(w.platform.Requests[0].DefaultExt, "pdf");
    w.platform.Paths.push_back(w.Path("chosen.pdf"));
    dialog->Command2_Click();
    EXPECT_TRUE(PrintOptionsClosed());
    EXPECT_TRUE(Bytes(w.Path("chosen.pdf")).startsWith("%PDF"));
    EXPECT_TRUE(printer.outputFileName().isEmpty()) << "the next print asks again";

    // Each opening starts from the default heading again.
    printer.setOutputFileName(QString::fromStdString(w.Path("page.pdf")));
    w.window->MenuClick("mnuGraphPrint");
    ASSERT_NE(dialog = test::Shown<frmPrintSetup>(), nullptr);
    EXPECT_EQ(dialog->Text1()->text(), QStringLiteral("Orlentis Veritrace"));
    dialog->Command2_Click();
    EXPECT_TRUE(PrintOptionsClosed());
    EXPECT_TRUE(Bytes(w.Path("page.pdf")).startsWith("%PDF"));
    EXPECT_EQ(w.platform.Requests.size(), 2u);
    EXPECT_TRUE(w.platform.Messages().empty());
    // Cancel closes without printing.
    w.window->MenuClick("mnuGraphPrint");
    ASSERT_NE(dialog = test::Shown<frmPrintSetup>(), nullptr);
    dialog->Command1_Click();
    EXPECT_TRUE(PrintOptionsClosed());
}

} // namespace vt
