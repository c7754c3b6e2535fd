#include "windows/frmLogo.h"

#include <QLabel>
#include <QTimer>

#include "windows/LogoPicture.h"

namespace vt::windows {

frmLogo::frmLogo(QWidget* parent, int milliseconds) : QDialog(parent) {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setModal(true);
    setFixedSize(LogoDesignSize);
    image1_ = new QLabel(this);
    image1_->setGeometry(QRect(QPoint(0, 0), LogoDesignSize));
    image1_->setPixmap(LogoPicture());
    logotime_ = new QTimer(this);
    logotime_->setInterval(milliseconds);
    connect(logotime_, &QTimer::timeout, this, &frmLogo::logotime_Timer);
}

void frmLogo::Form_Load() {
    logotime_->start();
}

void frmLogo::logotime_Timer() {
    logotime_->stop();
    accept();
}

void frmLogo::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // A window loads once, however often it is shown.
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

} // namespace vt::windows
