// Regression mode in the main window: the panel, points by mouse and by keyboard, the trend,
// the table, the equation window and the way back.

#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QTableWidget>

#include "plot/PointSeries.h"
#include "windows/RegressionPanel.h"
#include "windows/WindowTesting.h"
#include "windows/frmExplain.h"

namespace vt {
namespace {

using test::Texts;
constexpr Colour LineRed = 255, PointBlue = 0xFF0000; // the colours of rows 6 and 7 at start

struct Started : test::StartedWindow<> {
    RegressionPanel& Panel() const { return *window->Panel(); }
    // A click on the graph box at view coordinates of the default view (ten pixels a unit).
    void Click(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        const QPointF at(200 + 10 * x, 200 - 10 * y);
        test::Mouse(window->frmGraph(), QEvent::MouseButtonPress, at, button, button);
        test::Mouse(window->frmGraph(), QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    }
    // Whether a colour shows within two pixels of a point of the default view.
    bool Near(double x, double y, Colour colour) const {
        const QPoint at(static_cast<int>(200 + 10 * x), static_cast<int>(200 - 10 * y));
        return test::CountColour(Graph(), colour, QRect(at - QPoint(2, 2), QSize(5, 5))) > 0;
    }
    Texts Table() const {
        Texts cells;
        QTableWidget* grid = Panel().MSFlexGrid1();
        for (int r = 0; r < grid->rowCount(); ++r)
            for (int c = 0; c < 2; ++c)
                cells.push_back(grid->item(r, c) ? grid->item(r, c)->text().toStdString() : "?");
        return cells;
    }
};

TEST(RegressionPanelWindow, ThreeClickedPointsAtOrderTwoDrawTheParabolaAndItsEquation) {
    Started w;
    w.window->MenuItem("mnuPtSeries")->trigger();
    RegressionPanel& p = w.Panel();
    for (QWidget* shown : std::initializer_list<QWidget*>{p.MSFlexGrid1(), p.Frame1(), p.Frame2(),
                                                          p.Frame3(), p.Command5(), p.Command7()})
        EXPECT_TRUE(shown->isVisible());
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
    p.Command3()->click();
    EXPECT_TRUE(p.Command3()->isChecked());
    EXPECT_EQ(w.s->FitObject.Degree(), 2);
    EXPECT_EQ(w.Table(), (Texts{"X", "Y", "1", "1", "3", "5", "-2", "6", "", ""}));
    for (const auto& [x, y] : {std::pair(1.0, 1.0), {3.0, 5.0}, {-2.0, 6.0}})
        EXPECT_TRUE(w.Near(x, y, PointBlue)) << x << "," << y;
    // The parabola 0.7333x^2 - 0.9333x + 1.2, between and beyond the points.
    EXPECT_TRUE(w.Near(0, 1.2, LineRed));
    EXPECT_TRUE(w.Near(5, 14.87, LineRed));

    p.Command5()->click();
    frmExplain* explain = test::Shown<frmExplain>();
    ASSERT_NE(explain, nullptr);
    EXPECT_EQ(explain->windowTitle(), "Polynomial Regression Equation");
    // The equation is printed in blue on the window, which is as tall as the formula says.
    EXPECT_GT(test::CountColour(explain->Surface().QtImage(), 0xFF0000,
                                QRect(0, 0, 9999, explain->height())),
              20);
    EXPECT_GT(explain->height(), 42); // 3.5 font sizes, plus the printed line
    EXPECT_LT(explain->height(), 120);
    explain->close();
    EXPECT_TRUE(w.platform.Messages().empty());
}

TEST(RegressionPanelWindow, KeyedPointsTheTrendTheKeysTheMouseAndTheWayBack) {
    Started w;
    w.window->ToolbarButton(14)->click();
    RegressionPanel& p = w.Panel();
    for (const char* x : {"x", "1e1"}) {
        p.Text2()->setText(x);
        p.Text3()->setText("2");
        emit p.Text2()->textEdited(x);
        emit p.Text3()->textEdited("2");
        p.Command4()->click();
        EXPECT_EQ(p.Text2()->text().toStdString(), x) << "the boxes keep their text";
    }
    EXPECT_EQ(w.platform.Messages(), Texts{PointsNotNumbersText});
    EXPECT_EQ(w.s->FitObject.XYCount(), 1);
    // The order list acts only while Polynomial is on; the points stay through the trends.
    p.Combo1()->setCurrentIndex(3);
    emit p.Combo1()->activated(3);
    EXPECT_EQ(w.s->FitObject.Degree(), 1);
    p.Command3()->click();
    EXPECT_EQ(w.s->FitObject.Degree(), 5);
    p.Command1()->click();
    EXPECT_EQ(w.s->FitObject.Degree(), 1);
    EXPECT_EQ(w.Table(), (Texts{"X", "Y", "10", "2", "", ""}));

    // Enter walks the boxes to Insert.
    p.Text2()->setFocus();
    test::Press(p.Text2(), Qt::Key_Return, "\r");
    EXPECT_TRUE(p.Text3()->hasFocus());
    test::Press(p.Text3(), Qt::Key_Return, "\r");
    EXPECT_TRUE(p.Command4()->hasFocus());
    // The right button opens the Graph Window menu and enters nothing.
    w.Click(2, 2, Qt::RightButton);
    EXPECT_EQ(w.s->FitObject.XYCount(), 1);
    QMenu* menu = w.window->MenuOf("mnuGraphWindow");
    EXPECT_TRUE(menu->isVisible());
    menu->hide();
    w.Click(2, 2);
    EXPECT_EQ(w.s->FitObject.XYCount(), 2);

    p.Command7()->click();
    EXPECT_FALSE(p.isVisible());
    EXPECT_TRUE(w.window->Paper(0)->isVisible());
    EXPECT_EQ(w.window->ToolbarButton(14)->toolTip(), "Regression Analysis");
    EXPECT_EQ(w.window->frmGraph()->toolTip(), "Drag mouse to select display region.");
    EXPECT_TRUE(w.window->MenuItem("mnuRoot")->isEnabled());
    EXPECT_TRUE(w.window->Paper(0)->hasFocus());
    // The series outlives the mode; its points are not drawn in graph analysis.
    EXPECT_EQ(w.s->FitObject.XYCount(), 2);
    EXPECT_FALSE(w.Near(2, 2, PointBlue));
}

} // namespace
} // namespace vt
