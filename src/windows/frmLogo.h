#pragma once
// The splash window shown while the program starts: the program's picture, 542 by 240 pixels,
// modal. Its timer starts when the window loads and closes it at the first tick, three seconds
// later; the main window waits for it.

#include <QDialog>

class QLabel;
class QTimer;

namespace vt::windows {

class frmLogo : public QDialog {
  public:
    explicit frmLogo(QWidget* parent = nullptr, int milliseconds = 3000);

    QLabel* Image1() const { return image1_; }
    QTimer* logotime() const { return logotime_; }

    // Load: enables the timer.
    void Form_Load();
    // The first tick: the timer stops and the window unloads.
    void logotime_Timer();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QLabel* image1_ = nullptr;
    QTimer* logotime_ = nullptr;
    bool loaded_ = false;
};

} // namespace vt::windows
