#pragma once
// The Calculate Area dialog: the range, the step, the area, the shading's style and colour, the
// zoom and output buttons, and the typeset function that the slider selects. Thin: the logic is
// Area's; this mirrors it. Modal, so each action that must change the picture closes it, and
// ShowCalculateArea brings it back where it stood.

#include <QDialog>
#include <QImage>
#include <array>
#include <memory>

#include "analysis/Area.h"
#include "session/Session.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QToolButton;

namespace vt {

namespace render {
class RasterSurface;
}
namespace app {
class SurfaceView;
}

class frmFillRange : public QDialog {
  public:
    explicit frmFillRange(Session& s, QWidget* parent = nullptr);
    ~frmFillRange() override;

    // The load, centred on mainWindow (in screen pixels) unless the dialog is coming back.
    void Form_Load(const WindowBox& mainWindow);
    void Slider1_Change(int value);
    void Command1_Click(); // Shade Area
    void Command2_Click(); // Close
    void Command3_Click(); // Calculate Area
    void Command4_Click(); // Shade Color
    void Command5_Click(); // Zoom In
    void Command6_Click(); // Zoom Out
    void Command7_Click(); // Print Graph
    void Command8_Click(); // Save Graph As Bitmap

    const FillRangeForm& Form() const { return form_; }
    app::SurfaceView* Picture1() const { return picture1_; }
    render::RasterSurface* PictureSurface() const { return surface_.get(); }
    QSlider* Slider1() const { return slider1_; }
    QGroupBox* Frame1() const { return frame1_; }
    QGroupBox* Frame2() const { return frame2_; }
    QGroupBox* Frame3() const { return frame3_; }
    QLineEdit* Text1() const { return text1_; }
    QLineEdit* Text2() const { return text2_; }
    QLineEdit* Text3() const { return text3_; }
    QLineEdit* Text4() const { return text4_; }
    QRadioButton* Option1(int i) const { return option1_[static_cast<std::size_t>(i)]; }
    QWidget* Shape1(int i) const { return shape1_[static_cast<std::size_t>(i)]; }
    // The sample of fill style i as it is drawn.
    QImage Shape1Image(int i) const;
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QPushButton* Command4() const { return command4_; }
    QToolButton* Command5() const { return command5_; }
    QToolButton* Command6() const { return command6_; }
    QToolButton* Command7() const { return command7_; }
    QToolButton* Command8() const { return command8_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void Pull();
    void Mirror();
    void DrawPicture();
    void DrawSamples();
    void CloseIfUnloaded();

    Session& s_;
    FillRangeForm form_;
    std::unique_ptr<render::RasterSurface> surface_;
    std::array<QImage, 8> samples_;
    app::SurfaceView* picture1_ = nullptr;
    QSlider* slider1_ = nullptr;
    QGroupBox* frame1_ = nullptr;
    QGroupBox* frame2_ = nullptr;
    QGroupBox* frame3_ = nullptr;
    QLineEdit* text1_ = nullptr;
    QLineEdit* text2_ = nullptr;
    QLineEdit* text3_ = nullptr;
    QLineEdit* text4_ = nullptr;
    std::array<QRadioButton*, 8> option1_{};
    std::array<QWidget*, 8> shape1_{};
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
    QPushButton* command3_ = nullptr;
    QPushButton* command4_ = nullptr;
    QToolButton* command5_ = nullptr;
    QToolButton* command6_ = nullptr;
    QToolButton* command7_ = nullptr;
    QToolButton* command8_ = nullptr;
};

// Calculate Area of the main window: the dialog, modal, shown again after each shading or zoom
// until it is closed for good (mnuShade_Click).
void ShowCalculateArea(Session& s, QWidget* owner);

} // namespace vt
