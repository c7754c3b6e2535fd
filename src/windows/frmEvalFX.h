#pragma once
// The Evaluate f(x) dialog: one x, the value of every function at it in its curve's colour, and
// the typeset function that the slider selects. Thin: the logic is EvalFX's; this mirrors it.

#include <QDialog>
#include <array>
#include <memory>

#include "analysis/EvalFX.h"
#include "session/Session.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;

namespace vt {

namespace render {
class RasterSurface;
}
namespace app {
class SurfaceView;
}

class frmEvalFX : public QDialog {
  public:
    explicit frmEvalFX(Session& s, QWidget* parent = nullptr);
    ~frmEvalFX() override;

    void Form_Load();
    void Slider1_Change(int value);
    void Command1_Click(); // Calculate
    void Command2_Click(); // Close
    // A key typed in Text1, by its character code; Enter calculates and Escape closes.
    void Text1_KeyPress(int keyAscii);

    const EvalFXForm& Form() const { return form_; }
    app::SurfaceView* Picture1() const { return picture1_; }
    render::RasterSurface* PictureSurface() const { return surface_.get(); }
    QSlider* Slider1() const { return slider1_; }
    QLabel* Label1() const { return label1_; }
    QLineEdit* Text1() const { return text1_; }
    QGroupBox* Frame1() const { return frame1_; }
    QLabel* Label2(int i) const { return label2_[static_cast<std::size_t>(i)]; }
    QLabel* Label3(int i) const { return label3_[static_cast<std::size_t>(i)]; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Mirror();
    void DrawPicture();
    void CloseIfUnloaded();

    Session& s_;
    EvalFXForm form_;
    std::unique_ptr<render::RasterSurface> surface_;
    app::SurfaceView* picture1_ = nullptr;
    QSlider* slider1_ = nullptr;
    QLabel* label1_ = nullptr;
    QLineEdit* text1_ = nullptr;
    QGroupBox* frame1_ = nullptr;
    std::array<QLabel*, 5> label2_{};
    std::array<QLabel*, 5> label3_{};
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
};

// Evaluate f(x) of the main window: the dialog, modal.
void ShowEvaluateFX(Session& s, QWidget* owner);

} // namespace vt
