// The main window's file commands: a graph data file named on the command line, Save and Load
// Graph Data, Save Graph As Bitmap, and Print Options with the printed page.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QTemporaryDir>
#include <deque>
#include <memory>

#include "analysis/Area.h"
#include "commands/KeyStroke.h"
#include "commands/SaveLoad.h"
#include "entry/Entry.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/SurfaceView.h"
#include "windows/frmGraphMain.h"
#include "windows/frmPrintSetup.h"

namespace vt {

namespace {

// Answers the file dialogs from a queue of paths (cancelled when it is empty) and keeps what
// each dialog was asked to show.
class FilePlatform : public test::ScriptedPlatform {
  public:
    std::deque<std::string> Paths;
    std::vector<FileDialogRequest> Requests;

    std::optional<std::string> OpenFileName(const FileDialogRequest& request) override {
        return Answer(request);
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest& request) override {
        return Answer(request);
    }

  private:
    std::optional<std::string> Answer(const FileDialogRequest& request) {
        Requests.push_back(request);
        if (Paths.empty()) return std::nullopt;
        std::string path = Paths.front();
        Paths.pop_front();
        return path;
    }
};

const QByteArray Example = "2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n";

struct Window {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    FilePlatform platform;
    QTemporaryDir dir;
    std::unique_ptr<QPrinter> printerObject;
    std::unique_ptr<frmGraphMain> window;

    explicit Window(const std::string& commandLine = {}) {
        test::QtApp();
        printerObject = std::make_unique<QPrinter>(QPrinter::HighResolution);
        MainWindowOptions options;
        options.ShowSplash = false;
        options.ProgramDir = dir.path().toStdString();
        options.CommandLine = commandLine;
        options.Printer = printerObject.get();
        window = std::make_unique<frmGraphMain>(*s, platform, options);
        window->Form_Load();
    }
    std::string Path(const char* name) const { return dir.filePath(name).toStdString(); }
    QImage Graph() const { return window->frmGraph()->ShownSurface()->QtImage(); }
};

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

frmPrintSetup* OpenPrintSetup() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* dialog = dynamic_cast<frmPrintSetup*>(widget); dialog && dialog->isVisible())
            return dialog;
    return nullptr;
}

} // namespace

TEST(FileCommands, TheCommandLineFileOpensWithItsGraphAndSavesToTheSameBytes) {
    QTemporaryDir files;
    const std::string path = WriteFile(files, "my graph.vtx", Example);
    Window w("\"" + path + "\"");
    EXPECT_EQ(EntryText(*w.s, 0), "2x+1");
    EXPECT_EQ(w.s->FitObject.XYCount(), 2);
    EXPECT_TRUE(w.platform.Messages().empty());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    // The curve of 2x+1 crosses x = 0 at y = 1, ten pixels a unit above the box's middle.
    const QImage graph = w.Graph();
    EXPECT_NE(graph.pixel(200, 190), graph.pixel(5, 5));

    w.platform.Paths.push_back(w.Path("again.vtx"));
    w.window->MenuItem("mnuSave")->trigger();
    EXPECT_EQ(Bytes(w.Path("again.vtx")), Example);
    ASSERT_EQ(w.platform.Requests.size(), 1u);
    const FileDialogRequest& request = w.platform.Requests[0];
    EXPECT_EQ(request.Title, "Save Graph Data As");
    EXPECT_EQ(request.Filter, DataFileFilter);
    EXPECT_EQ(request.DefaultExt, "vtx");
    EXPECT_EQ(request.InitialDir, QDir(w.dir.path()).filePath("Saved Problems").toStdString());
    EXPECT_EQ(request.FileName.rfind("Veritrace ", 0), 0u) << request.FileName;
}

TEST(FileCommands, LoadingAnyFileLeavesTheWindowUsable) {
    QTemporaryDir files;
    struct Case {
        const char* name;
        QByteArray bytes;
        bool message;
        std::string row0;
    } cases[] = {
        {"example", Example, false, "2x+1"},
        {"binary",
         QByteArray("\0\x01\xff\x1a"
                    "BB\x80",
                    7),
         true, ""},
        {"truncated", Example.left(9), true, "2x+1"},
        {"separators only", "BBBBBBBBBBBB", true, ""},
        {"empty", "", false, "x"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Window w;
        Paper_KeyPress(*w.s, 0, 'x');
        w.platform.Paths.push_back(WriteFile(files, "in.vtx", c.bytes));
        w.window->MenuClick("mnuLoad");
        EXPECT_EQ(w.platform.Requests.at(0).Title, "Load Graph Data");
        EXPECT_EQ(w.platform.Messages(), c.message ? std::vector<std::string>{OpenFailedText}
                                                   : std::vector<std::string>{});
        EXPECT_EQ(EntryText(*w.s, 0), c.row0);
        // The hourglass is gone and the first row takes keys from the keyboard again.
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(w.s->MousePointer, w.s->DefaultPointer);
        w.platform.MsgBoxAnswers.push_back(MsgResultYes);
        w.window->MenuClick("mnuClearData");
        QKeyEvent press(QEvent::KeyPress, Qt::Key_3, Qt::NoModifier, QStringLiteral("3"));
        QApplication::sendEvent(w.window->Paper(0), &press);
        EXPECT_EQ(EntryText(*w.s, 0), "3");
    }
}

TEST(FileCommands, BitmapFromTheMenuAndFromTheAreaDialog) {
    Window w;
    Paper_KeyPress(*w.s, 0, 'x');
    w.window->MenuClick("mnuGraphIt");
    w.platform.Paths = {w.Path("menu.bmp"), w.Path("area.bmp")};
    w.window->MenuItem("mnuBitMap")->trigger();
    frmFillRange_Command8_Click(*w.s);
    ASSERT_EQ(w.platform.Requests.size(), 2u);
    for (const FileDialogRequest& request : w.platform.Requests) {
        EXPECT_EQ(request.Title, "Save Graph Bitmap As");
        EXPECT_EQ(request.DefaultExt, "bmp");
        EXPECT_EQ(request.FileName.rfind("GraphBitmap ", 0), 0u) << request.FileName;
    }
    for (const char* name : {"menu.bmp", "area.bmp"}) {
        const QImage saved(QString::fromStdString(w.Path(name)));
        ASSERT_EQ(saved.size(), QSize(400, 400)) << name;
        EXPECT_EQ(saved.convertToFormat(w.Graph().format()), w.Graph()) << name;
    }
    EXPECT_TRUE(w.platform.Messages().empty());
}

TEST(FileCommands, PrintOptionsPrintsThePageAndCloses) {
    Window w;
    Paper_KeyPress(*w.s, 0, 'x');
    w.printerObject->setOutputFormat(QPrinter::PdfFormat);
    w.printerObject->setOutputFileName(QString::fromStdString(w.Path("page.pdf")));

    w.window->MenuItem("mnuGraphPrint")->trigger();
    frmPrintSetup* dialog = OpenPrintSetup();
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Print Options"));
    EXPECT_EQ(dialog->Text1()->text(), QStringLiteral("Orlentis Veritrace"));
    EXPECT_EQ(dialog->Text2()->text().toStdString(), TodayShortDate());
    EXPECT_EQ(dialog->Label1()->text(), QStringLiteral("Print to PDF"));
    // The area dialog's Print Graph finds the same dialog open.
    frmFillRange_Command7_Click(*w.s);
    EXPECT_EQ(OpenPrintSetup(), dialog);

    dialog->Text1()->setText(QStringLiteral("Algebra II"));
    dialog->Command2_Click();
    QApplication::processEvents();
    EXPECT_EQ(OpenPrintSetup(), nullptr);
    EXPECT_TRUE(Bytes(w.Path("page.pdf")).startsWith("%PDF"));
    EXPECT_TRUE(w.platform.Messages().empty());

    // Each opening starts from the default heading again.
    w.window->MenuClick("mnuGraphPrint");
    ASSERT_NE(OpenPrintSetup(), nullptr);
    EXPECT_EQ(OpenPrintSetup()->Text1()->text(), QStringLiteral("Orlentis Veritrace"));
    OpenPrintSetup()->Command1_Click();
    QApplication::processEvents();
    EXPECT_EQ(OpenPrintSetup(), nullptr);
}

TEST(FileCommands, WithoutAPrinterThePageGoesToAChosenPdf) {
    Window w;
    w.printerObject->setOutputFormat(QPrinter::PdfFormat);
    w.printerObject->setOutputFileName(QString());
    w.window->MenuClick("mnuGraphPrint");
    frmPrintSetup* dialog = OpenPrintSetup();
    ASSERT_NE(dialog, nullptr);
    // No file chosen: nothing printed, the options stay.
    dialog->Command2_Click();
    EXPECT_EQ(OpenPrintSetup(), dialog);
    ASSERT_EQ(w.platform.Requests.size(), 1u);
    EXPECT_EQ(w.platform.Requests[0].DefaultExt, "pdf");

    w.platform.Paths.push_back(w.Path("chosen.pdf"));
    dialog->Command2_Click();
    QApplication::processEvents();
    EXPECT_TRUE(Bytes(w.Path("chosen.pdf")).startsWith("%PDF"));
    EXPECT_EQ(OpenPrintSetup(), nullptr);
    // The next print asks again.
    EXPECT_TRUE(w.printerObject->outputFileName().isEmpty());
}

} // namespace vt
