// The line width, Evaluate f(x) and Calculate Area dialogs, offscreen, driven through their
// events with a scripted platform. With VERITRACE_GRAB_DIR set, each dialog is also saved there
// as a PNG for a look by eye.

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <memory>
#include <string>

#include "analysis/frmEvalFX.h"
#include "analysis/frmFillRange.h"
#include "app/qt/SurfaceView.h"
#include "entry/Entry.h"
#include "plot/Painter.h"
#include "plot/frmLineWidth.h"
#include "render/RasterSurface.h"
#include "session/frmGraphMain.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {
namespace {

struct DialogSession {
    Session s;
    render::RasterSurface graph{400, 400};
    ScriptedPlatform host;
    DialogSession() {
        QtApp();
        s.Host = &host;
        s.frmGraph = &graph;
        SetKeyMask(s);
    }
    void Type(int slot, const std::string& keys) { ReplaySlotKeys(s, slot, keys); }
};

void Grab(const QImage& image, const char* name) {
    const QByteArray dir = qgetenv("VERITRACE_GRAB_DIR");
    if (dir.isEmpty()) return;
    image.save(QString::fromUtf8(dir) + "/" + name + ".png", "PNG");
}
void Grab(QWidget& dialog, const char* name) {
    Grab(dialog.grab().toImage(), name);
}

void Press(QWidget* target, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

// How many pixels of an image have exactly this colour.
int CountColour(const QImage& image, Colour colour) {
    const QRgb wanted = render::QRgbFromColour(colour);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) | 0xFF000000u) == wanted) ++count;
    return count;
}

TEST(LineWidthDialog, ApplyStaysOpenOkClosesCancelKeepsWhatApplyDid) {
    DialogSession g;
    g.Type(0, "x");
    RedrawGraph(g.s);
    g.s.Slider1 = 4;
    frmLineWidth dialog(g.s);
    dialog.Form_Load();
    dialog.show();
    Grab(dialog, "frmLineWidth");
    EXPECT_EQ(dialog.Slider1()->value(), 4);
    EXPECT_EQ(dialog.Slider1()->minimum(), 1);
    EXPECT_EQ(dialog.Slider1()->maximum(), 10);

    dialog.Slider1()->setValue(9);
    EXPECT_EQ(g.s.Slider1, 4); // only the buttons copy
    dialog.Command3()->click();
    EXPECT_EQ(g.s.Slider1, 9);
    EXPECT_TRUE(dialog.isVisible());
    dialog.Slider1()->setValue(2);
    dialog.Command1()->click();
    EXPECT_EQ(g.s.Slider1, 9);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);

    frmLineWidth again(g.s);
    again.Form_Load();
    again.show();
    EXPECT_EQ(again.Slider1()->value(), 9);
    again.Slider1()->setValue(1);
    again.Command2()->click();
    EXPECT_EQ(g.s.Slider1, 1);
    EXPECT_EQ(again.result(), QDialog::Accepted);
}

TEST(EvalFXDialog, ShowsTheValuesInTheRowsColours) {
    DialogSession g;
    g.Type(0, "2x+1");
    g.Type(1, "1/x");
    frmEvalFX dialog(g.s);
    dialog.Form_Load();
    dialog.show();
    EXPECT_TRUE(dialog.Slider1()->isVisible());
    EXPECT_EQ(dialog.Slider1()->maximum(), 2);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(dialog.Label2(i)->text(), "f(x) =");
        EXPECT_FALSE(dialog.Label3(i)->isVisible());
    }
    // The first row's function, typeset in red.
    EXPECT_GT(CountColour(dialog.PictureSurface()->QtImage(), 0x0000FF), 20);

    dialog.Text1()->setText("0");
    Press(dialog.Text1(), Qt::Key_Return);
    EXPECT_EQ(dialog.Label2(0)->text(), "f(0) =");
    EXPECT_EQ(dialog.Label3(0)->text(), "1");
    EXPECT_EQ(dialog.Label3(1)->text(), "NA");
    EXPECT_TRUE(dialog.Label3(1)->isVisible());
    EXPECT_EQ(dialog.Label3(1)->palette().color(QPalette::WindowText),
              QColor::fromRgb(render::QRgbFromColour(0xFF0000)));
    EXPECT_GE(dialog.Label3(0)->x(), dialog.Label2(0)->x() + dialog.Label2(0)->width());
    EXPECT_EQ(dialog.Label2(2)->text(), "f(x) =");
    EXPECT_TRUE(g.host.Messages().empty());

    // The second row's function, in blue, once the slider moves.
    dialog.Slider1()->setValue(2);
    EXPECT_GT(CountColour(dialog.PictureSurface()->QtImage(), 0xFF0000), 20);
    EXPECT_EQ(CountColour(dialog.PictureSurface()->QtImage(), 0x0000FF), 0);
    Grab(dialog, "frmEvalFX");

    dialog.Text1()->setText("x");
    dialog.Command1()->click();
    EXPECT_EQ(g.host.Messages(), std::vector<std::string>{"x must be a number."});
    EXPECT_TRUE(dialog.isVisible());
    Press(dialog.Text1(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(FillRangeDialog, SamplesShowEachStyleInTheShadeColourOnTheBackground) {
    DialogSession g;
    g.Type(0, "x");
    g.s.ShadeColor = std::to_string(0x0000C0);
    g.s.GraphBackColor = 0xFFFFFF;
    frmFillRange dialog(g.s);
    dialog.Form_Load({});
    for (int i = 0; i <= 7; ++i) {
        const QImage sample = dialog.Shape1Image(i);
        const int fill = CountColour(sample, 0x0000C0);
        const int back = CountColour(sample, 0xFFFFFF);
        SCOPED_TRACE(i);
        if (i == FillSolid) {
            EXPECT_EQ(back, 0);
        } else if (i == FillTransparent) {
            EXPECT_EQ(fill, 0);
        } else {
            EXPECT_GT(fill, 0);
            EXPECT_GT(back, fill);
        }
        for (int j = 0; j < i; ++j)
            EXPECT_NE(sample, dialog.Shape1Image(j)) << j; // each its own
    }
    // A new shade colour reaches the samples.
    g.host.ColourAnswers.push_back(0x00A000);
    dialog.Command4()->click();
    EXPECT_GT(CountColour(dialog.Shape1Image(FillSolid), 0x00A000), 100);
}

TEST(FillRangeDialog, TheCycleReopensTheDialogUntilItClosesForGood) {
    DialogSession g;
    g.Type(0, "x");
    RedrawGraph(g.s);
    // Each turn acts on the dialog that the cycle shows, once it is up.
    std::vector<std::function<void(frmFillRange&)>> turns = {
        [&](frmFillRange& d) {
            d.Text1()->setText("2");
            d.Text2()->setText("four");
            d.Text3()->setText("1");
            d.Command3()->click();
            EXPECT_EQ(g.host.Messages(),
                      std::vector<std::string>{"The maximum range of x must be a number."});
            d.Text2()->setText("4");
            d.Command3()->click();
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            d.Option1(FillVerticalLine)->setChecked(true);
            Grab(d, "frmFillRange");
            d.Command1()->click();
        },
        [&](frmFillRange& d) {
            EXPECT_EQ(d.Text4()->text(), "9.00");
            EXPECT_EQ(d.Text3()->text(), "1");
            EXPECT_EQ(d.Text1()->text(), "2");
            EXPECT_TRUE(g.s.ShadeOn);
            EXPECT_EQ(g.s.ShadeFillStyle, FillVerticalLine);
            EXPECT_TRUE(d.Option1(FillVerticalLine)->isChecked());
            // The band under x from 2 to 4 is hatched in the shading colour.
            EXPECT_GT(CountColour(g.graph.QtImage(), 14737632), 30);
            Grab(g.graph.QtImage(), "shaded-graph");
            d.Command6()->click();
        },
        [&](frmFillRange& d) {
            EXPECT_EQ(g.s.ViewXMax, 40);
            d.close(); // through the frame: closed for good
        },
    };
    std::size_t turn = 0;
    std::function<void()> next = [&] {
        auto* dialog = dynamic_cast<frmFillRange*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) {
            QTimer::singleShot(10, next);
            return;
        }
        ASSERT_LT(turn, turns.size());
        turns[turn++](*dialog);
        if (turn < turns.size()) QTimer::singleShot(10, next);
    };
    QTimer::singleShot(10, next);
    // A dialog left open would hold the test for ever: close it, which ends the cycle.
    QTimer guard;
    guard.setInterval(20000);
    QObject::connect(&guard, &QTimer::timeout, [&] {
        ADD_FAILURE() << "the dialog stayed open";
        turn = turns.size();
        if (QWidget* open = QApplication::activeModalWidget()) open->close();
    });
    guard.start();
    ShowCalculateArea(g.s, nullptr);
    EXPECT_EQ(turn, turns.size());
    EXPECT_FALSE(g.s.ShadeOn);
    EXPECT_EQ(g.s.AreaAction, AreaClosed);
}

TEST(MainWindowLook, ColourCommandsReachTheSwatchesAndTheGraph) {
    QtApp();
    Session s;
    ScriptedPlatform host;
    QTemporaryDir programDir;
    MainWindowOptions options;
    options.ShowSplash = false;
    options.ProgramDir = programDir.path().toStdString();
    auto window = std::make_unique<frmGraphMain>(s, host, options);
    window->Form_Load();
    const auto backPixel = [&] {
        return render::ColourFromQRgb(window->frmGraph()->ShownSurface()->QtImage().pixel(5, 5));
    };
    ASSERT_EQ(backPixel(), 0xFFFFFFu);

    host.ColourAnswers.push_back(0x00A0A0);
    window->Picture1(2)->Clicked();
    EXPECT_EQ(window->Picture1(2)->ShownColour(), 0x00A0A0u);
    EXPECT_EQ(host.Calls.back().Style, 0x00C000);

    // A cancelled background dialog leaves the grid colour as the background.
    window->MenuClick("mnuBackColor");
    EXPECT_EQ(backPixel(), 16766596u);
    window->MenuClick("mnuGraphDefault");
    EXPECT_EQ(backPixel(), 0xFFFFFFu);
    EXPECT_EQ(window->Picture1(2)->ShownColour(), 0x00C000u);
    EXPECT_TRUE(host.Messages().empty());
    window.reset();
    EXPECT_FALSE(s.Commands.mnuShade_Click);
}

} // namespace
} // namespace vt::test
