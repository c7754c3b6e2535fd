#include "windows/frmAbout.h"

#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

#include "info/SystemInfo.h"
#include "windows/LogoPicture.h"

#ifndef VERITRACE_VERSION
#define VERITRACE_VERSION "0"
#endif

namespace vt::windows {

namespace {

// This system has no registry, so the look-ups find nothing; a program it names would still
// be started for real.
class DesktopLookups : public NoRegistryLookups {
  public:
    bool FileExists(const std::string& path) override {
        return QFileInfo(QString::fromStdString(path)).isFile();
    }
    bool RunProgram(const std::string& path) override {
        return QProcess::startDetached(QString::fromStdString(path), {});
    }
};

const char* const Description =
    "Veritrace graphs up to five functions of x for school mathematics. You type each function "
    "into an equation editor that shows it as it is written on paper; the program draws the "
    "curves, tells the value of each function at an x, works out the area under a curve and "
    "fits a line or a polynomial through a series of points.\n\n"
    "Made for Orlentis by the Veritrace developers. The fonts that come with the program are "
    "free fonts, each with its own licence beside it.";

const char* const Disclaimer =
    "Warning: a graph is drawn from samples of the function, a few to a pixel, and an area is a "
    "sum of rectangles. A narrow spike, a jump or a gap between two samples may not show, and "
    "every result is rounded. Check the results that matter by hand before you rely on them. "
    "This program comes without any warranty.";

} // namespace

frmAbout::frmAbout(Platform& platform, SystemLookups* system, QWidget* parent)
    : QDialog(parent), platform_(platform), system_(system) {
    if (!system_) {
        ownSystem_ = std::make_unique<DesktopLookups>();
        system_ = ownSystem_.get();
    }
    setWindowTitle(QStringLiteral("About Veritrace"));
    setModal(true);
    setFixedSize(560, 470);

    picture1_ = new QLabel(this);
    picture1_->setGeometry(18, 16, 271, 120);
    picture1_->setPixmap(LogoPicture(QSize(271, 120)));

    lblTitle_ = new QLabel(QStringLiteral("Veritrace"), this);
    QFont titleFont = lblTitle_->font();
    titleFont.setPointSize(titleFont.pointSize() + 8);
    titleFont.setBold(true);
    lblTitle_->setFont(titleFont);
    lblTitle_->setGeometry(306, 30, 236, 40);
    lblVersion_ =
        new QLabel(QStringLiteral("Version %1").arg(QStringLiteral(VERITRACE_VERSION)), this);
    lblVersion_->setGeometry(308, 76, 236, 24);

    lblDescription_ = new QLabel(QString::fromUtf8(Description), this);
    lblDescription_->setWordWrap(true);
    lblDescription_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblDescription_->setGeometry(18, 150, 524, 140);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setGeometry(18, 296, 524, 4);

    lblDisclaimer_ = new QLabel(QString::fromUtf8(Disclaimer), this);
    lblDisclaimer_->setWordWrap(true);
    lblDisclaimer_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblDisclaimer_->setGeometry(18, 308, 400, 150);

    command1_ = new QPushButton(QStringLiteral("OK"), this);
    command1_->setGeometry(430, 330, 112, 30);
    command1_->setDefault(true);
    cmdSysInfo_ = new QPushButton(QStringLiteral("System Info..."), this);
    cmdSysInfo_->setGeometry(430, 372, 112, 30);
    connect(command1_, &QPushButton::clicked, this, &frmAbout::Command1_Click);
    connect(cmdSysInfo_, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

frmAbout::~frmAbout() = default;

void frmAbout::Command1_Click() {
    accept();
}

void frmAbout::cmdSysInfo_Click() {
    StartSysInfo(*system_, platform_);
}

void ShowAbout(Platform& platform, QWidget* parent) {
    frmAbout about(platform, nullptr, parent);
    about.exec();
}

} // namespace vt::windows
