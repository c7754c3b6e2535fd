#pragma once
// The regression equation window: the fitted equation typeset in lines that fit its width, the
// window as tall as what it printed. It is not modal and goes away as soon as it loses the focus.

#include <QWidget>
#include <memory>

#include "session/Session.h"

namespace vt {

namespace render {
class RasterSurface;
}
namespace app {
class SurfaceView;
}

class frmExplain : public QWidget {
  public:
    explicit frmExplain(Session& s, QWidget* owner = nullptr);
    ~frmExplain() override;

    // The title from the trend, then the equation drawn and the height set.
    void Form_Load();

    app::SurfaceView* Form() const { return view_; }
    const render::RasterSurface& Surface() const { return *surface_; }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    Session& s_;
    std::unique_ptr<render::RasterSurface> surface_;
    app::SurfaceView* view_ = nullptr;
};

// "Regression Function": one window at a time, drawn anew from RegressionEquation at each
// opening. Returns the window shown.
frmExplain* ShowExplain(Session& s, QWidget* owner);

} // namespace vt
