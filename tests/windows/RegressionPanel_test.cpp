// Regression mode in the main window: the panel, points by mouse and by keyboard, the trend,
// the table, the equation window and the way back.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <memory>

#include "plot/PointSeries.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/RegressionPanel.h"
#include "windows/SurfaceView.h"
#include "windows/frmExplain.h"
#include "windows/frmGraphMain.h"

namespace vt {

namespace {

constexpr Colour LineRed = 255;        // Picture1(5) at start
constexpr Colour PointBlue = 0xFF0000; // Picture1(6) at start

struct Started {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    test::ScriptedPlatform platform;
    QTemporaryDir programDir;
    std::unique_ptr<frmGraphMain> window;

    Started() {
        test::QtApp();
        MainWindowOptions options;
        options.ShowSplash = false;
        options.ProgramDir = programDir.path().toStdString();
        window = std::make_unique<frmGraphMain>(*s, platform, options);
        window->Form_Load();
        window->activateWindow();
        for (int i = 0; i < 50 && !window->isActiveWindow(); ++i)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    RegressionPanel& Panel() const { return *window->Panel(); }
    // A click on the graph box at view coordinates of the default view (ten pixels a unit).
    void Click(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        const QPointF at(200 + 10 * x, 200 - 10 * y);
        QMouseEvent press(QEvent::MouseButtonPress, at, at, button, button, Qt::NoModifier);
        QMouseEvent release(QEvent::MouseButtonRelease, at, at, button, Qt::NoButton,
                            Qt::NoModifier);
        QApplication::sendEvent(window->frmGraph(), &press);
        QApplication::sendEvent(window->frmGraph(), &release);
    }
    // Whether a colour shows within two pixels of a point of the default view.
    bool Near(double x, double y, Colour colour) const {
        const QImage image = window->frmGraph()->ShownSurface()->QtImage();
        const int px = static_cast<int>(200 + 10 * x), py = static_cast<int>(200 - 10 * y);
        for (int dy = -2; dy <= 2; ++dy)
            for (int dx = -2; dx <= 2; ++dx)
                if (image.valid(px + dx, py + dy) &&
                    render::ColourFromQRgb(image.pixel(px + dx, py + dy)) == colour)
                    return true;
        return false;
    }
    std::vector<std::string> Table() const {
        std::vector<std::string> cells;
        QTableWidget* grid = Panel().MSFlexGrid1();
        for (int r = 0; r < grid->rowCount(); ++r)
            for (int c = 0; c < 2; ++c)
                cells.push_back(grid->item(r, c) ? grid->item(r, c)->text().toStdString() : "?");
        return cells;
    }
};

using Texts = std::vector<std::string>;

TEST(RegressionPanelWindow, ThreeClickedPointsAtOrderTwoDrawTheParabolaAndItsEquation) {
    Started w;
    w.window->MenuItem("mnuPtSeries")->trigger();
    ASSERT_TRUE(w.Panel().isVisible());
    for (QWidget* control : std::initializer_list<QWidget*>{
             w.Panel().MSFlexGrid1(), w.Panel().Frame1(), w.Panel().Frame2(), w.Panel().Frame3(),
             w.Panel().Command5(), w.Panel().Command7()})
        EXPECT_TRUE(control->isVisible());
    EXPECT_FALSE(w.window->Paper(0)->isVisible());
    EXPECT_EQ(w.window->ToolbarButton(14)->toolTip(), "Graph Analysis");
    EXPECT_EQ(w.window->frmGraph()->toolTip(), "Click on graph to enter point.");
    EXPECT_TRUE(w.window->MenuItem("mnuPtSeries")->isChecked());
    for (const char* closed : {"mnuRoot", "mnuTrig", "mnuInsertPi", "mnuToggleCoordinates"})
        EXPECT_FALSE(w.window->MenuItem(closed)->isEnabled()) << closed;
    for (int button : {9, 10, 12, 13})
        EXPECT_FALSE(w.window->ToolbarButton(button)->isEnabled()) << button;

    // Clicks round to whole numbers.
    w.Click(1.2, 0.9);
    w.Click(3, 5);
    w.Click(-2, 6);
    w.Panel().Command3()->click();
    EXPECT_TRUE(w.Panel().Command3()->isChecked());
    EXPECT_EQ(w.s->FitObject.Degree(), 2);
    EXPECT_EQ(w.Table(), (Texts{"X", "Y", "1", "1", "3", "5", "-2", "6", "", ""}));
    for (const auto& [x, y] : {std::pair(1.0, 1.0), {3.0, 5.0}, {-2.0, 6.0}})
        EXPECT_TRUE(w.Near(x, y, PointBlue)) << x << "," << y;
    // The parabola 0.7333x^2 - 0.9333x + 1.2, between and beyond the points.
    EXPECT_TRUE(w.Near(0, 1.2, LineRed));
    EXPECT_TRUE(w.Near(5, 14.87, LineRed));

    w.Panel().Command5()->click();
    EXPECT_EQ(w.s->RegressionEquation, "f(x) =  0.7333333333x^2^ - 0.9333333333x + 1.2");
    frmExplain* explain = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* found = dynamic_cast<frmExplain*>(top); found && found->isVisible())
            explain = found;
    ASSERT_NE(explain, nullptr);
    EXPECT_EQ(explain->windowTitle(), "Polynomial Regression Equation");
    // The equation is printed in blue on the window, which is as tall as the formula says.
    const QImage shown = explain->Surface().QtImage();
    int blue = 0;
    for (int y = 0; y < explain->height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            blue += render::ColourFromQRgb(shown.pixel(x, y)) == 0xFF0000;
    EXPECT_GT(blue, 20);
    EXPECT_GT(explain->height(), 42); // 3.5 font sizes, plus the printed line
    EXPECT_LT(explain->height(), 120);
    explain->close();
    EXPECT_TRUE(w.platform.Messages().empty());
}

TEST(RegressionPanelWindow, InsertRefusesTextAndTheTrendReplaysThePoints) {
    Started w;
    w.window->ToolbarButton(14)->click();
    RegressionPanel& p = w.Panel();
    struct Step {
        const char* x;
        const char* y;
        Texts messages;
        int count;
    };
    const Step steps[] = {
        {"1", "", Texts{PointsNotNumbersText}, 0},
        {"1e1", "2", Texts{}, 1},
        {"x", "2", Texts{PointsNotNumbersText}, 1},
        {"1e1", "2", Texts{}, 2}, // the same point twice counts twice
    };
    for (const Step& step : steps) {
        w.platform.Calls.clear();
        p.Text2()->setText(step.x);
        p.Text3()->setText(step.y);
        emit p.Text2()->textEdited(step.x);
        emit p.Text3()->textEdited(step.y);
        p.Command4()->click();
        EXPECT_EQ(w.platform.Messages(), step.messages) << step.x << "," << step.y;
        EXPECT_EQ(w.s->FitObject.XYCount(), step.count) << step.x << "," << step.y;
        // The boxes keep their text.
        EXPECT_EQ(p.Text2()->text().toStdString(), step.x);
    }
    EXPECT_EQ(w.Table(), (Texts{"X", "Y", "10", "2", "10", "2", "", ""}));

    // The order list acts only while Polynomial is on.
    p.Combo1()->setCurrentIndex(3);
    emit p.Combo1()->activated(3);
    EXPECT_EQ(w.s->FitObject.Degree(), 1);
    p.Command3()->click();
    EXPECT_EQ(w.s->FitObject.Degree(), 5);
    p.Command1()->click();
    EXPECT_EQ(w.s->FitObject.Degree(), 1);
    EXPECT_EQ(w.s->FitObject.XYCount(), 2);
    EXPECT_EQ(w.Table(), (Texts{"X", "Y", "10", "2", "10", "2", "", ""}));
}

TEST(RegressionPanelWindow, EnterWalksTheBoxesAndExitReturnsToTheRows) {
    Started w;
    w.window->MenuClick("mnuPtSeries");
    RegressionPanel& p = w.Panel();
    p.Text2()->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    QApplication::sendEvent(p.Text2(), &enter);
    EXPECT_TRUE(p.Text3()->hasFocus());
    QApplication::sendEvent(p.Text3(), &enter);
    EXPECT_TRUE(p.Command4()->hasFocus());

    // The right button opens the Graph Window menu and enters nothing.
    w.Click(2, 2, Qt::RightButton);
    EXPECT_EQ(w.s->FitObject.XYCount(), 0);
    QMenu* menu = w.window->MenuOf("mnuGraphWindow");
    EXPECT_TRUE(menu->isVisible());
    menu->hide();
    w.Click(2, 2);
    EXPECT_EQ(w.s->FitObject.XYCount(), 1);

    p.Command7()->click();
    EXPECT_FALSE(p.isVisible());
    EXPECT_TRUE(w.window->Paper(0)->isVisible());
    EXPECT_EQ(w.window->ToolbarButton(14)->toolTip(), "Regression Analysis");
    EXPECT_EQ(w.window->frmGraph()->toolTip(), "Drag mouse to select display region.");
    EXPECT_TRUE(w.window->MenuItem("mnuRoot")->isEnabled());
    EXPECT_TRUE(w.window->Paper(0)->hasFocus());
    // The series outlives the mode; its points are not drawn in graph analysis.
    EXPECT_EQ(w.s->FitObject.XYCount(), 1);
    EXPECT_FALSE(w.Near(2, 2, PointBlue));
}

} // namespace
} // namespace vt
