#include "windows/frmEvalFX.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "windows/FunctionPicker.h"
#include "windows/SurfaceView.h"
#include "windows/Twips.h"

namespace vt {

namespace {

// The function picture beside the slider, in twips.
constexpr int PictureWidth = 3015;
constexpr int ResultTop = 240;
constexpr int ResultPitch = 345;
// The gap between a row's left part and its value.
constexpr int ValueGap = 25;

QColor QColorOf(Colour colour) {
    return QColor::fromRgb(render::QRgbFromColour(colour));
}

} // namespace

frmEvalFX::frmEvalFX(Session& s, QWidget* parent) : QDialog(parent), s_(s) {
    render::LoadBundledFonts();
    setWindowTitle(QString::fromUtf8(EvalFXCaption));
    setFixedSize(Twips(0, 0, 4695, 4020).size());

    const FunctionPicker picker =
        MakeFunctionPicker(this, PictureWidth, EvalFXForm::SliderMin, form_.SliderMax);
    picture1_ = picker.Picture;
    slider1_ = picker.Slider;
    connect(slider1_, &QSlider::valueChanged, this, [this](int value) { Slider1_Change(value); });

    label1_ = new QLabel(QStringLiteral("x ="), this);
    label1_->setGeometry(Twips(240, 900, 495, 315));
    text1_ = new QLineEdit(this);
    text1_->setGeometry(Twips(720, 885, 1815, 345));
    text1_->installEventFilter(this);

    command1_ = new QPushButton(QStringLiteral("Calculate"), this);
    command1_->setGeometry(Twips(2760, 870, 1695, 375));
    command1_->setAutoDefault(false);
    connect(command1_, &QPushButton::clicked, this, [this] { Command1_Click(); });

    frame1_ = new QGroupBox(this);
    frame1_->setGeometry(Twips(120, 1365, 4455, 2025));
    for (int i = 0; i < UsableSlots; ++i) {
        const auto row = static_cast<std::size_t>(i);
        label2_[row] = new QLabel(frame1_);
        label2_[row]->move(Pixels(240), Pixels(ResultTop + ResultPitch * i));
        label3_[row] = new QLabel(frame1_);
        label3_[row]->hide();
    }

    command2_ = new QPushButton(QStringLiteral("Close"), this);
    command2_->setGeometry(Twips(3360, 3510, 1215, 375));
    command2_->setAutoDefault(false);
    connect(command2_, &QPushButton::clicked, this, [this] { Command2_Click(); });

    Mirror();
}

frmEvalFX::~frmEvalFX() = default;

void frmEvalFX::Form_Load() {
    frmEvalFX_Load(s_, form_);
    surface_ = PlacePicturePaper(picture1_, PictureWidth, form_.PictureWide);
    DrawPicture();
    Mirror();
}

void frmEvalFX::Slider1_Change(int value) {
    if (value == form_.Slider1) return;
    if (frmEvalFX_Slider1_Change(s_, form_, value)) DrawPicture();
}

void frmEvalFX::Command1_Click() {
    form_.Text1 = text1_->text().toStdString();
    frmEvalFX_Command1_Click(s_, form_);
    Mirror();
}

void frmEvalFX::Command2_Click() {
    accept();
}

void frmEvalFX::Text1_KeyPress(int keyAscii) {
    form_.Text1 = text1_->text().toStdString();
    if (!frmEvalFX_Text1_KeyPress(s_, form_, keyAscii)) return;
    Mirror();
    CloseIfUnloaded();
}

bool frmEvalFX::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text1_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            Text1_KeyPress(EvalEnterKey);
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            Text1_KeyPress(EvalEscapeKey);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmEvalFX::keyPressEvent(QKeyEvent* event) {
    // Enter and Escape mean something only in the x box; elsewhere they do nothing.
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
        event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmEvalFX::Mirror() {
    {
        const QSignalBlocker quiet(slider1_);
        slider1_->setMaximum(form_.SliderMax);
        slider1_->setValue(form_.Slider1);
    }
    slider1_->setVisible(form_.SliderVisible);
    text1_->setText(QString::fromStdString(form_.Text1));
    for (int i = 0; i < UsableSlots; ++i) {
        const auto row = static_cast<std::size_t>(i);
        QLabel* left = label2_[row];
        QLabel* value = label3_[row];
        left->setText(QString::fromStdString(form_.Label2[row]));
        left->adjustSize();
        value->setText(QString::fromStdString(form_.Label3[row]));
        QPalette palette = value->palette();
        palette.setColor(QPalette::WindowText, QColorOf(form_.Label3Colour[row]));
        value->setPalette(palette);
        value->adjustSize();
        value->move(left->x() + left->width() + Pixels(ValueGap), left->y());
        value->setVisible(form_.Label3Visible[row]);
    }
}

void frmEvalFX::DrawPicture() {
    if (!surface_) return;
    ShowSlotFunction(s_, *surface_, form_.PictureSlot, form_.PictureColour);
    picture1_->update();
}

void frmEvalFX::CloseIfUnloaded() {
    if (form_.Unloaded) accept();
}

void ShowEvaluateFX(Session& s, QWidget* owner) {
    frmEvalFX dialog(s, owner);
    dialog.Form_Load();
    dialog.exec();
}

} // namespace vt
