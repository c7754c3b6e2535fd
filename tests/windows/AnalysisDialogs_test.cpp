// The line width, Evaluate f(x) and Calculate Area dialogs, offscreen, driven through their
// events with a scripted platform.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <iterator>

#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "plot/Painter.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/SurfaceView.h"
#include "windows/frmEvalFX.h"
#include "windows/frmFillRange.h"
#include "windows/frmLineWidth.h"

namespace vt::test {
namespace {

using Texts = std::vector<std::string>;

// A session with functions in its rows, a graph box drawn into an image and a scripted host.
struct DialogSession {
    Session s;
    render::RasterSurface graph{400, 400};
    ScriptedPlatform host;
    HeadlessShell shell;
    explicit DialogSession(const Texts& rows) {
        QtApp();
        shell.Messages = &host;
        shell.Graph = &graph;
        s.BindHost(&shell);
        SetKeyMask(s);
        for (std::size_t i = 0; i < rows.size(); ++i)
            ReplaySlotKeys(s, static_cast<int>(i), rows[i]);
    }
};

void Press(QWidget* target, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

// How many pixels of an image have exactly this colour.
int CountColour(const QImage& image, Colour colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += (image.pixel(x, y) | 0xFF000000u) == render::QRgbFromColour(colour);
    return count;
}

TEST(LineWidthDialog, ApplyStaysOpenOkClosesCancelKeepsWhatApplyDid) {
    DialogSession g({"x"});
    RedrawGraph(g.s);
    g.s.Slider1 = 4;
    frmLineWidth dialog(g.s);
    dialog.Form_Load();
    dialog.show();
    QSlider* slider = dialog.Slider1();
    EXPECT_EQ(std::tuple(slider->value(), slider->minimum(), slider->maximum()),
              std::tuple(4, 1, 10));
    slider->setValue(9);
    EXPECT_EQ(g.s.Slider1, 4); // only the buttons copy
    dialog.Command3()->click();
    EXPECT_EQ(g.s.Slider1, 9);
    EXPECT_TRUE(dialog.isVisible());
    slider->setValue(2);
    dialog.Command1()->click();
    EXPECT_EQ(g.s.Slider1, 9);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    // Opened again, it starts from the width applied.
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
    DialogSession g({"2x+1", "1/x"});
    frmEvalFX dialog(g.s);
    dialog.Form_Load();
    dialog.show();
    EXPECT_TRUE(dialog.Slider1()->isVisible());
    EXPECT_EQ(dialog.Slider1()->maximum(), 2);
    EXPECT_FALSE(dialog.Label3(0)->isVisible());
    // The picture beside the slider, its paper as wide as the picture.
    EXPECT_EQ(QRect(dialog.Picture1()->pos(), dialog.PictureSurface()->QtImage().size()),
              QRect(96, 8, 201, 41));
    // The first row's function, typeset in red.
    EXPECT_GT(CountColour(dialog.PictureSurface()->QtImage(), 0x0000FF), 20);
    // Return calculates: the values stand right of their labels, each in its row's colour.
    dialog.Text1()->setText("0");
    Press(dialog.Text1(), Qt::Key_Return);
    EXPECT_EQ(dialog.Label2(0)->text() + dialog.Label3(0)->text(), "f(0) =1");
    EXPECT_EQ(dialog.Label3(1)->text(), "NA");
    EXPECT_TRUE(dialog.Label3(1)->isVisible());
    EXPECT_EQ(dialog.Label3(1)->palette().color(QPalette::WindowText),
              QColor::fromRgb(render::QRgbFromColour(0xFF0000)));
    EXPECT_GE(dialog.Label3(0)->x(), dialog.Label2(0)->x() + dialog.Label2(0)->width());
    EXPECT_TRUE(g.host.Messages().empty());
    // The second row's function, in blue, once the slider moves.
    dialog.Slider1()->setValue(2);
    EXPECT_GT(CountColour(dialog.PictureSurface()->QtImage(), 0xFF0000), 20);
    EXPECT_EQ(CountColour(dialog.PictureSurface()->QtImage(), 0x0000FF), 0);
    dialog.Text1()->setText("x");
    dialog.Command1()->click();
    EXPECT_EQ(g.host.Messages(), Texts{"x must be a number."});
    EXPECT_TRUE(dialog.isVisible());
    Press(dialog.Text1(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(FillRangeDialog, ANewShadeColourReachesTheSamples) {
    DialogSession g({"x"});
    frmFillRange dialog(g.s);
    dialog.Form_Load({});
    g.host.ColourAnswers.push_back(0x00A000);
    dialog.Command4()->click();
    EXPECT_EQ(g.s.ShadeColor, std::to_string(0x00A000));
    EXPECT_GT(CountColour(dialog.Shape1Image(FillSolid), 0x00A000), 100);
}

TEST(FillRangeDialog, TheCycleReopensTheDialogUntilItClosesForGood) {
    DialogSession g({"x"});
    RedrawGraph(g.s);
    // Each turn acts on the dialog that the cycle shows, once it is up: Shade Area and Zoom Out
    // bring it back, the frame's close button ends the cycle.
    const std::function<void(frmFillRange&)> turns[] = {
        [&](frmFillRange& d) {
            d.Text1()->setText("2");
            d.Text2()->setText("four");
            d.Text3()->setText("1");
            d.Command3()->click();
            EXPECT_EQ(g.host.Messages(), Texts{"The maximum range of x must be a number."});
            d.Text2()->setText("4");
            d.Command3()->click();
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            d.Option1(FillVerticalLine)->setChecked(true);
            d.Command1()->click();
        },
        [&](frmFillRange& d) {
            EXPECT_EQ(QStringList({d.Text1()->text(), d.Text3()->text(), d.Text4()->text()}),
                      QStringList({"2", "1", "9.00"}));
            EXPECT_TRUE(g.s.ShadeOn);
            EXPECT_EQ(g.s.ShadeFillStyle, FillVerticalLine);
            EXPECT_TRUE(d.Option1(FillVerticalLine)->isChecked());
            // The band under x from 2 to 4 is hatched in the shading colour.
            EXPECT_GT(CountColour(g.graph.QtImage(), 14737632), 30);
            d.Command6()->click();
        },
        [&](frmFillRange& d) {
            EXPECT_EQ(g.s.ViewXMax, 40);
            d.close(); // through the frame: closed for good
        }};
    const std::size_t count = std::size(turns);
    std::size_t turn = 0;
    std::function<void()> next = [&] {
        auto* dialog = dynamic_cast<frmFillRange*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible() && turn < count) turns[turn++](*dialog);
        if (turn < count) QTimer::singleShot(10, next);
    };
    QTimer::singleShot(10, next);
    // A dialog left open would hold the test for ever: close it, which ends the cycle. The
    // guard's timer goes with the test.
    QObject guard;
    QTimer::singleShot(20000, &guard, [&] {
        if (turn == count) return;
        ADD_FAILURE() << "the dialog stayed open";
        turn = count;
        if (QWidget* open = QApplication::activeModalWidget()) open->close();
    });
    ShowCalculateArea(g.s, nullptr);
    EXPECT_EQ(turn, count);
    EXPECT_FALSE(g.s.ShadeOn);
    EXPECT_EQ(g.s.AreaAction, AreaClosed);
}

} // namespace
} // namespace vt::test
