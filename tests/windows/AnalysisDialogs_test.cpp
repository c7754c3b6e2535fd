// The line width, Evaluate f(x) and Calculate Area dialogs over the main window, driven through
// their events with a scripted platform, and what the graph box shows on the screen meanwhile.

#include <QRadioButton>
#include <QSlider>

#include "windows/WindowTesting.h"
#include "windows/frmEvalFX.h"
#include "windows/frmFillRange.h"
#include "windows/frmLineWidth.h"

namespace vt::test {
namespace {

constexpr Colour Green = 0x00A000, CurveRed = 255;

TEST(LineWidthDialog, ApplyThickensTheCurveAtOnceOkClosesCancelKeepsWhatApplyDid) {
    StartedWindow<> w;
    w.GraphRow0("x^2");
    // A row of the box crossed by the curve near x = 1.4 (y = 2): its red pixels grow.
    const QRect row(0, 180, 400, 1);
    const int before = w.OnScreenCount(CurveRed, row);
    ASSERT_GT(before, 0);
    const int start = w.s->Slider1;
    // Opened twice: Apply then Cancel, then OK.
    WhileModal<frmLineWidth>(
        {[&](frmLineWidth& d) {
             QSlider* slider = d.Slider1();
             EXPECT_EQ(std::tuple(slider->value(), slider->minimum(), slider->maximum()),
                       std::tuple(start, 1, 10));
             slider->setValue(9);
             EXPECT_EQ(w.s->Slider1, start); // only the buttons copy
             d.Command3()->click();          // Apply
             EXPECT_EQ(std::tuple(w.s->Slider1, d.isVisible()), std::tuple(9, true));
             EXPECT_GT(w.OnScreenCount(CurveRed, row), before);
             slider->setValue(2);
             d.Command1()->click();
             EXPECT_EQ(d.result(), QDialog::Rejected);
         },
         [&](frmLineWidth& d) {
             EXPECT_EQ(d.Slider1()->value(), 9);
             d.Slider1()->setValue(1);
             d.Command2()->click();
             EXPECT_EQ(d.result(), QDialog::Accepted);
         }},
        [&] {
            w.window->MenuClick("mnuLineW");
            EXPECT_EQ(w.s->Slider1, 9);
            w.window->MenuClick("mnuLineW");
        });
    EXPECT_EQ(w.s->Slider1, 1);
}

TEST(EvalFXDialog, ShowsTheValuesInTheRowsColours) {
    StartedWindow<> w;
    w.Type(0, "2x+1");
    w.window->Blinker()->click();
    w.Type(1, "1/x");
    frmEvalFX dialog(*w.s);
    dialog.Form_Load();
    dialog.show();
    EXPECT_EQ(std::tuple(dialog.Slider1()->isVisible(), dialog.Slider1()->maximum()),
              std::tuple(true, 2));
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
    EXPECT_EQ(std::tuple(dialog.Label3(1)->text(), dialog.Label3(1)->isVisible()),
              std::tuple(QString("NA"), true));
    EXPECT_EQ(dialog.Label3(1)->palette().color(QPalette::WindowText),
              QColor::fromRgb(render::QRgbFromColour(0xFF0000)));
    EXPECT_GE(dialog.Label3(0)->x(), dialog.Label2(0)->x() + dialog.Label2(0)->width());
    // The second row's function, in blue, once the slider moves.
    dialog.Slider1()->setValue(2);
    EXPECT_GT(CountColour(dialog.PictureSurface()->QtImage(), 0xFF0000), 20);
    EXPECT_EQ(CountColour(dialog.PictureSurface()->QtImage(), 0x0000FF), 0);
    dialog.Text1()->setText("x");
    dialog.Command1()->click();
    EXPECT_EQ(w.platform.Messages(), Texts{"x must be a number."});
    EXPECT_TRUE(dialog.isVisible());
    Press(dialog.Text1(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

// Shade Area and the zooms bring the dialog back, each time over the new picture on the
// screen, the band in the colour chosen; the frame's close button ends the cycle and takes the
// shading away.
TEST(FillRangeDialog, TheCycleShowsTheBandOnScreenUntilTheDialogClosesForGood) {
    StartedWindow<> w;
    w.GraphRow0("x^2");
    WhileModal<frmFillRange>(
        {[&](frmFillRange& d) {
             d.Text1()->setText("0");
             d.Text2()->setText("four");
             d.Text3()->setText("1");
             d.Command3()->click();
             EXPECT_EQ(w.platform.Messages(), Texts{"The maximum range of x must be a number."});
             d.Text2()->setText("4");
             d.Command3()->click();
             EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
             d.Option1(FillVerticalLine)->setChecked(true);
             w.platform.ColourAnswers.push_back(Green);
             d.Command4()->click(); // a new shading colour reaches the samples
             EXPECT_EQ(w.s->ShadeColor, std::to_string(Green));
             EXPECT_GT(CountColour(d.Shape1Image(FillSolid), Green), 100);
             d.Command1()->click(); // Shade Area
         },
         [&](frmFillRange& d) {
             EXPECT_EQ(QStringList({d.Text1()->text(), d.Text3()->text(), d.Text4()->text()}),
                       QStringList({"0", "1", "30.00"}));
             EXPECT_EQ(w.s->ShadeFillStyle, FillVerticalLine);
             EXPECT_TRUE(d.Option1(FillVerticalLine)->isChecked());
             // The band under x^2 from 0 to 4 (columns 200..240) is hatched on the screen.
             EXPECT_GT(w.OnScreenCount(Green, QRect(200, 0, 41, 400)), 20);
             d.Command5()->click(); // Zoom In
         },
         [&](frmFillRange& d) {
             // Zoomed in with the band still on: the band is now columns 200..280.
             EXPECT_EQ(w.s->ViewXMax, 10);
             EXPECT_GT(w.OnScreenCount(Green, QRect(241, 0, 40, 400)), 20);
             d.Command6()->click(); // Zoom Out
         },
         [&](frmFillRange& d) {
             EXPECT_EQ(w.s->ViewXMax, 20);
             d.close(); // through the frame: closed for good
         }},
        [&] { w.window->MenuClick("mnuShade"); });
    EXPECT_EQ(w.s->AreaAction, AreaClosed);
    EXPECT_EQ(w.OnScreenCount(Green, QRect(0, 0, 400, 400)), 0);
}

} // namespace
} // namespace vt::test
