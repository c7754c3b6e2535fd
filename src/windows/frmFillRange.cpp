#include "windows/frmFillRange.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSvgRenderer>
#include <QToolButton>

#include "analysis/EvalFX.h"
#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "windows/FunctionPicker.h"
#include "windows/Icons.h"
#include "windows/SurfaceView.h"
#include "windows/Twips.h"

// The icons live in the render library's resources; a static library keeps them only when
// something asks for them by name.
static void InitAreaIconResources() {
    Q_INIT_RESOURCE(icons);
}

namespace vt {

namespace {

// The function picture beside the slider, in twips.
constexpr int PictureWidth = 3135;
constexpr int SampleWidth = 690;
constexpr int SampleHeight = 345;

// A Shape control: shows the picture of its fill style.
class StyleSample : public QWidget {
  public:
    StyleSample(const QImage& image, QWidget* parent) : QWidget(parent), image_(image) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawImage(0, 0, image_);
    }

  private:
    const QImage& image_;
};

QLabel* Caption(const char* text, QWidget* parent, const QRect& place) {
    auto* label = new QLabel(QString::fromUtf8(text), parent);
    label->setGeometry(place);
    return label;
}

QLineEdit* Box(QWidget* parent, const QRect& place, const char* tip) {
    auto* box = new QLineEdit(parent);
    box->setGeometry(place);
    box->setToolTip(QString::fromUtf8(tip));
    return box;
}

} // namespace

frmFillRange::frmFillRange(Session& s, QWidget* parent) : QDialog(parent), s_(s) {
    InitAreaIconResources();
    render::LoadBundledFonts();
    setWindowTitle(QString::fromUtf8(FillRangeCaption));
    setFixedSize(Twips(0, 0, 4815, 5520).size());

    const FunctionPicker picker =
        MakeFunctionPicker(this, PictureWidth, FillRangeForm::SliderMin, form_.SliderMax);
    picture1_ = picker.Picture;
    slider1_ = picker.Slider;
    connect(slider1_, &QSlider::valueChanged, this, [this](int value) { Slider1_Change(value); });

    frame2_ = new QGroupBox(QStringLiteral("Range"), this);
    frame2_->setGeometry(Twips(120, 840, 4575, 735));
    Caption("x = [", frame2_, Twips(120, 345, 480, 285));
    text1_ = Box(frame2_, Twips(600, 315, 1575, 330), "Start of interval");
    Caption(";", frame2_, Twips(2235, 345, 120, 285));
    text2_ = Box(frame2_, Twips(2400, 315, 1575, 330), "End of interval");
    Caption("]", frame2_, Twips(4035, 345, 120, 285));

    Caption("dx =", this, Twips(240, 1725, 480, 285));
    text3_ = Box(this, Twips(720, 1695, 1215, 330), "Step value");
    command3_ = new QPushButton(QStringLiteral("Calculate Area"), this);
    command3_->setGeometry(Twips(2160, 1680, 2535, 375));
    command3_->setToolTip(
        QStringLiteral("Click here to calculate the area of the function within the x range."));

    Caption("Area =", this, Twips(240, 2190, 600, 285));
    text4_ = Box(this, Twips(960, 2160, 3735, 330), "Calculated area");

    frame1_ = new QGroupBox(QStringLiteral("Shade Style"), this);
    frame1_->setGeometry(Twips(120, 2640, 4575, 1260));
    for (int i = 0; i < 8; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const int left = 120 + (i % 4) * 1110;
        const int top = 300 + (i / 4) * 450;
        option1_[index] = new QRadioButton(frame1_);
        option1_[index]->setGeometry(Twips(left, top + 15, 300, 315));
        shape1_[index] = new StyleSample(samples_[index], frame1_);
        shape1_[index]->setGeometry(Twips(left + 315, top, SampleWidth, SampleHeight));
    }

    frame3_ = new QGroupBox(QStringLiteral("Graph Options"), this);
    frame3_->setGeometry(Twips(120, 4005, 2415, 900));
    const struct {
        QToolButton** Button;
        const char* Icon;
        const char* Tip;
    } pictures[] = {
        {&command7_, "print", "Print Graph"},
        {&command8_, "save", "Save Graph As Bitmap"},
        {&command5_, "zoomin", "Zoom In"},
        {&command6_, "zoomout", "Zoom Out"},
    };
    for (int k = 0; k < 4; ++k) {
        auto* button = new QToolButton(frame3_);
        button->setGeometry(Twips(165 + k * 555, 300, 510, 510));
        button->setIcon(IconFor(pictures[k].Icon));
        button->setIconSize(QSize(24, 24));
        button->setToolTip(QString::fromUtf8(pictures[k].Tip));
        *pictures[k].Button = button;
    }

    command4_ = new QPushButton(QStringLiteral("Shade Color"), this);
    command4_->setGeometry(Twips(2655, 4080, 2040, 375));
    command4_->setToolTip(QStringLiteral("Click here to change the shade color."));
    command1_ = new QPushButton(QStringLiteral("Shade Area"), this);
    command1_->setGeometry(Twips(2655, 4530, 2040, 375));
    command2_ = new QPushButton(QStringLiteral("Close"), this);
    command2_->setGeometry(Twips(2655, 5040, 2040, 375));

    for (QPushButton* button : {command1_, command2_, command3_, command4_})
        button->setAutoDefault(false);
    connect(command1_, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(command2_, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(command3_, &QPushButton::clicked, this, [this] { Command3_Click(); });
    connect(command4_, &QPushButton::clicked, this, [this] { Command4_Click(); });
    connect(command5_, &QToolButton::clicked, this, [this] { Command5_Click(); });
    connect(command6_, &QToolButton::clicked, this, [this] { Command6_Click(); });
    connect(command7_, &QToolButton::clicked, this, [this] { Command7_Click(); });
    connect(command8_, &QToolButton::clicked, this, [this] { Command8_Click(); });

    DrawSamples();
    Mirror();
}

frmFillRange::~frmFillRange() = default;

void frmFillRange::Form_Load(const WindowBox& mainWindow) {
    form_.Width = width();
    form_.Height = height();
    frmFillRange_Load(s_, form_, mainWindow);
    move(form_.Left, form_.Top);
    surface_ = PlacePicturePaper(picture1_, PictureWidth, form_.PictureWide);
    DrawPicture();
    DrawSamples();
    Mirror();
}

void frmFillRange::Slider1_Change(int value) {
    if (value == form_.Slider1) return;
    if (frmFillRange_Slider1_Change(s_, form_, value)) DrawPicture();
}

void frmFillRange::Command1_Click() {
    Pull();
    frmFillRange_Command1_Click(s_, form_);
    CloseIfUnloaded();
}

void frmFillRange::Command2_Click() {
    Pull();
    frmFillRange_Command2_Click(s_, form_);
    CloseIfUnloaded();
}

void frmFillRange::Command3_Click() {
    Pull();
    // The hourglass while the sum runs; a step of 0 keeps it, as the sum never ends.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    frmFillRange_Command3_Click(s_, form_);
    QGuiApplication::restoreOverrideCursor();
    Mirror();
}

void frmFillRange::Command4_Click() {
    Pull();
    frmFillRange_Command4_Click(s_, form_);
    DrawSamples();
    Mirror();
}

void frmFillRange::Command5_Click() {
    Pull();
    frmFillRange_Command5_Click(s_, form_);
    CloseIfUnloaded();
}

void frmFillRange::Command6_Click() {
    Pull();
    frmFillRange_Command6_Click(s_, form_);
    CloseIfUnloaded();
}

void frmFillRange::Command7_Click() {
    frmFillRange_Command7_Click(s_);
}

void frmFillRange::Command8_Click() {
    frmFillRange_Command8_Click(s_);
}

QImage frmFillRange::Shape1Image(int i) const {
    return samples_.at(static_cast<std::size_t>(i));
}

void frmFillRange::keyPressEvent(QKeyEvent* event) {
    // No button of the dialog answers Escape or Enter.
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
        event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmFillRange::closeEvent(QCloseEvent* event) {
    // Closed through its frame: closed for good, and still keeping what it showed.
    if (!form_.Unloaded) {
        Pull();
        frmFillRange_Unload(s_, form_);
        form_.Unloaded = true;
    }
    QDialog::closeEvent(event);
}

void frmFillRange::Pull() {
    form_.Left = x();
    form_.Top = y();
    form_.Text1 = text1_->text().toStdString();
    form_.Text2 = text2_->text().toStdString();
    form_.Text3 = text3_->text().toStdString();
    form_.Text4 = text4_->text().toStdString();
    for (std::size_t i = 0; i < option1_.size(); ++i)
        form_.Option1[i] = option1_[i]->isChecked();
}

void frmFillRange::Mirror() {
    {
        const QSignalBlocker quiet(slider1_);
        slider1_->setMaximum(form_.SliderMax);
        slider1_->setValue(form_.Slider1);
    }
    slider1_->setVisible(form_.SliderVisible);
    text1_->setText(QString::fromStdString(form_.Text1));
    text2_->setText(QString::fromStdString(form_.Text2));
    text3_->setText(QString::fromStdString(form_.Text3));
    text4_->setText(QString::fromStdString(form_.Text4));
    for (std::size_t i = 0; i < option1_.size(); ++i) {
        // Exclusive buttons cannot all be off, which the load asks for when no style matches.
        option1_[i]->setAutoExclusive(false);
        option1_[i]->setChecked(form_.Option1[i]);
        option1_[i]->setAutoExclusive(true);
        shape1_[i]->update();
    }
    command1_->setEnabled(form_.Command1Enabled);
    command1_->setToolTip(QString::fromStdString(form_.Command1Tip));
}

void frmFillRange::DrawPicture() {
    if (!surface_) return;
    ShowSlotFunction(s_, *surface_, form_.PictureSlot, form_.PictureColour);
    picture1_->update();
}

void frmFillRange::DrawSamples() {
    for (int i = 0; i < 8; ++i) {
        render::RasterSurface sample(Pixels(SampleWidth), Pixels(SampleHeight));
        sample.BackColor = form_.ShapeBackColor;
        sample.Cls();
        sample.ForeColor = 0x000000;
        sample.FillColor = form_.ShapeFillColor;
        sample.FillStyle = i;
        sample.Line(0, 0, static_cast<float>(sample.PixelWidth() - 1),
                    static_cast<float>(sample.PixelHeight() - 1), true, true);
        samples_[static_cast<std::size_t>(i)] = sample.QtImage();
    }
}

void frmFillRange::CloseIfUnloaded() {
    if (form_.Unloaded) accept();
}

void ShowCalculateArea(Session& s, QWidget* owner) {
    mnuShade_Click(s, [&] {
        frmFillRange dialog(s, owner);
        WindowBox mainWindow;
        if (owner) {
            const QRect frame = owner->frameGeometry();
            mainWindow = {frame.x(), frame.y(), frame.width(), frame.height()};
        }
        dialog.Form_Load(mainWindow);
        dialog.exec();
    });
}

} // namespace vt
