#pragma once
// The window shown while the program starts: the program's name on a plain card, 542 by 240
// pixels, that closes itself after three seconds. It stands in for the real splash picture.

#include <QDialog>

namespace vt::app {

class SplashPlaceholder : public QDialog {
  public:
    explicit SplashPlaceholder(QWidget* parent = nullptr, int milliseconds = 3000);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vt::app
