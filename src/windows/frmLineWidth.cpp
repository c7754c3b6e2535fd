#include "windows/frmLineWidth.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "plot/Appearance.h"
#include "windows/Twips.h"

namespace vt {

frmLineWidth::frmLineWidth(Session& s, QWidget* parent) : QDialog(parent), s_(s) {
    setWindowTitle(QString::fromUtf8(LineWidthCaption));
    setFixedSize(Twips(0, 0, 4335, 1800).size());

    slider1_ = new QSlider(Qt::Horizontal, this);
    slider1_->setGeometry(Twips(120, 120, 4095, 495));
    slider1_->setRange(LineWidthMin, LineWidthMax);
    slider1_->setTickPosition(QSlider::TicksBelow);
    slider1_->setTickInterval(1);
    slider1_->setPageStep(1);
    slider1_->setToolTip(QString::fromUtf8(LineWidthTip));

    minimum_ = new QLabel(QStringLiteral("Minimum"), this);
    minimum_->setGeometry(Twips(120, 660, 1215, 255));
    maximum_ = new QLabel(QStringLiteral("Maximum"), this);
    maximum_->setGeometry(Twips(3000, 660, 1215, 255));
    maximum_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    command3_ = new QPushButton(QStringLiteral("Apply"), this);
    command3_->setGeometry(Twips(120, 1200, 1275, 405));
    command2_ = new QPushButton(QStringLiteral("OK"), this);
    command2_->setGeometry(Twips(1530, 1200, 1275, 405));
    command1_ = new QPushButton(QStringLiteral("Cancel"), this);
    command1_->setGeometry(Twips(2940, 1200, 1275, 405));
    command2_->setDefault(true);

    connect(command1_, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(command2_, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(command3_, &QPushButton::clicked, this, [this] { Command3_Click(); });
}

void frmLineWidth::Form_Load() {
    slider1_->setValue(s_.Slider1);
}

void frmLineWidth::CopyToMain() {
    SetLineWidth(s_, slider1_->value());
}

void frmLineWidth::Command1_Click() {
    reject();
}

void frmLineWidth::Command2_Click() {
    CopyToMain();
    accept();
}

void frmLineWidth::Command3_Click() {
    CopyToMain();
}

void ShowLineWidth(Session& s, QWidget* owner) {
    frmLineWidth dialog(s, owner);
    dialog.Form_Load();
    dialog.exec();
}

} // namespace vt
