#pragma once
// The panel of regression mode, which takes the place of the function rows: the table of
// points, "Insert Point", "Trend Type", the colours of the line and the points, "Regression
// Function" and "Exit". It runs the point series' commands and shows the panel's state after
// each; the main window mirrors it with the rest.

#include <QWidget>
#include <functional>

#include "session/Session.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vt {

namespace app {
class ColourSwatch;
}

class RegressionPanel : public QWidget {
  public:
    RegressionPanel(Session& s, QWidget* parent);

    // Shows the panel's state: visibility, boxes, options, order, table, colours.
    void Mirror();

    // Run after each command of the panel, so the window shows what it left.
    std::function<void()> Changed;
    // "Exit" and "Regression Function", which the window runs.
    std::function<void()> ExitClicked;
    std::function<void()> FunctionClicked;

    QTableWidget* MSFlexGrid1() const { return grid_; }
    QGroupBox* Frame1() const { return frame1_; }
    QGroupBox* Frame2() const { return frame2_; }
    QGroupBox* Frame3() const { return frame3_; }
    QLineEdit* Text2() const { return text2_; }
    QLineEdit* Text3() const { return text3_; }
    QPushButton* Command4() const { return command4_; }
    QRadioButton* Command1() const { return command1_; }
    QRadioButton* Command3() const { return command3_; }
    QComboBox* Combo1() const { return combo1_; }
    app::ColourSwatch* Picture1(int index) const { return index == 5 ? line_ : points_; }
    QPushButton* Command5() const { return command5_; }
    QPushButton* Command7() const { return command7_; }

  private:
    void Done();

    Session& s_;
    QTableWidget* grid_ = nullptr;
    QGroupBox* frame1_ = nullptr;
    QGroupBox* frame2_ = nullptr;
    QGroupBox* frame3_ = nullptr;
    QLineEdit* text2_ = nullptr;
    QLineEdit* text3_ = nullptr;
    QPushButton* command4_ = nullptr;
    QRadioButton* command1_ = nullptr;
    QRadioButton* command3_ = nullptr;
    QComboBox* combo1_ = nullptr;
    app::ColourSwatch* line_ = nullptr;
    app::ColourSwatch* points_ = nullptr;
    QPushButton* command5_ = nullptr;
    QPushButton* command7_ = nullptr;
};

} // namespace vt
