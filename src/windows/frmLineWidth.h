#pragma once
// The line width dialog: a slider of its own over the width's range, copied from the main
// Slider1 at load. Apply copies it back and stays open, OK copies and closes, Cancel closes
// without copying (what Apply did stays).

#include <QDialog>

#include "session/Session.h"

class QLabel;
class QPushButton;
class QSlider;

namespace vt {

inline constexpr const char* LineWidthCaption = "Line Width";
inline constexpr const char* LineWidthTip = "Slide to adjust drawing width.";

class frmLineWidth : public QDialog {
  public:
    explicit frmLineWidth(Session& s, QWidget* parent = nullptr);

    // Copies the main Slider1 to the dialog's slider.
    void Form_Load();
    void Command1_Click(); // Cancel
    void Command2_Click(); // OK
    void Command3_Click(); // Apply

    QSlider* Slider1() const { return slider1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QLabel* MinimumLabel() const { return minimum_; }
    QLabel* MaximumLabel() const { return maximum_; }

  private:
    void CopyToMain();

    Session& s_;
    QSlider* slider1_ = nullptr;
    QLabel* minimum_ = nullptr;
    QLabel* maximum_ = nullptr;
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
    QPushButton* command3_ = nullptr;
};

// Line Width of the main window: the dialog, modal.
void ShowLineWidth(Session& s, QWidget* owner);

} // namespace vt
