#pragma once
// The About window: the program's picture, its name and version, the maker's notice and a
// warning about what a sampled graph can miss. "OK" closes it; "System Info..." starts the
// system information program where the system names one, and otherwise says it can't.

#include <QDialog>
#include <memory>

class QLabel;
class QPushButton;

namespace vt {
class Platform;
class SystemLookups;
} // namespace vt

namespace vt::windows {

class frmAbout : public QDialog {
  public:
    // `platform` shows the message when there is no system information; `system` is the
    // registry and program runner, the system's own when none is given.
    explicit frmAbout(Platform& platform, SystemLookups* system = nullptr,
                      QWidget* parent = nullptr);
    ~frmAbout() override;

    QLabel* Picture1() const { return picture1_; }
    QLabel* lblTitle() const { return lblTitle_; }
    QLabel* lblVersion() const { return lblVersion_; }
    QLabel* lblDescription() const { return lblDescription_; }
    QLabel* lblDisclaimer() const { return lblDisclaimer_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* cmdSysInfo() const { return cmdSysInfo_; }

    void Command1_Click();
    void cmdSysInfo_Click();

  private:
    Platform& platform_;
    SystemLookups* system_;
    std::unique_ptr<SystemLookups> ownSystem_;
    QLabel* picture1_ = nullptr;
    QLabel* lblTitle_ = nullptr;
    QLabel* lblVersion_ = nullptr;
    QLabel* lblDescription_ = nullptr;
    QLabel* lblDisclaimer_ = nullptr;
    QPushButton* command1_ = nullptr;
    QPushButton* cmdSysInfo_ = nullptr;
};

// mnuAbout: the About window, modal.
void ShowAbout(Platform& platform, QWidget* parent);

} // namespace vt::windows
