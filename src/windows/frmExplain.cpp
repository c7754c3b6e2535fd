#include "windows/frmExplain.h"

#include <QEvent>
#include <QPointer>
#include <algorithm>

#include "display/RegressionWindow.h"
#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "windows/SurfaceView.h"
#include "windows/Twips.h"

namespace vt {

namespace {

constexpr int FormWidthTwips = 5400;
// Room for the longest equation the fit gives (order 10 with long numbers) at any height the
// formula asks for; the window shows only its top.
constexpr int SurfaceHeightPixels = 1200;

QPointer<frmExplain> openWindow;

} // namespace

frmExplain::frmExplain(Session& s, QWidget* owner) : QWidget(owner, Qt::Window), s_(s) {
    render::LoadBundledFonts();
    setAttribute(Qt::WA_DeleteOnClose);
    surface_ = std::make_unique<render::RasterSurface>(Pixels(FormWidthTwips), SurfaceHeightPixels);
    surface_->SmoothText = true;
    view_ = new app::SurfaceView(this);
    view_->SetSurface(surface_.get());
    view_->move(0, 0);
    view_->setFocusPolicy(Qt::NoFocus);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(QStringLiteral("Regression Equation"));
    resize(Pixels(FormWidthTwips), Pixels(1000));
}

frmExplain::~frmExplain() {
    view_->Disconnect();
}

void frmExplain::Form_Load() {
    setWindowTitle(QString::fromStdString(ExplainCaption(s_)));
    surface_->FontName = ExplainFontName;
    surface_->FontSize = ExplainFontSize;
    const int heightTwips = ShowEquation(s_, *surface_);
    const int height = std::clamp(heightTwips / Surface::TwipsPerPixel, 1, SurfaceHeightPixels);
    setFixedSize(Pixels(FormWidthTwips), height);
    view_->update();
}

void frmExplain::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Once shown and active, the first loss of activation closes it.
    if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow()) close();
}

frmExplain* ShowExplain(Session& s, QWidget* owner) {
    if (openWindow) openWindow->close();
    auto* window = new frmExplain(s, owner);
    openWindow = window;
    window->Form_Load();
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

} // namespace vt
