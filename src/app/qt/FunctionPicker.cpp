#include "app/qt/FunctionPicker.h"

#include "analysis/EvalFX.h"
#include "app/qt/Twips.h"

namespace vt {

FunctionPicker MakeFunctionPicker(QWidget* parent, QRect picture, int minimum, int maximum) {
    FunctionPicker picker;
    picker.Picture = new app::SurfaceView(parent);
    picker.Picture->move(picture.topLeft());
    picker.Picture->setFixedSize(picture.size());

    picker.Slider = new QSlider(Qt::Horizontal, parent);
    picker.Slider->setGeometry(Twips(120, 240, 1215, 375));
    picker.Slider->setMinimum(minimum);
    picker.Slider->setMaximum(maximum);
    picker.Slider->setPageStep(1);
    picker.Slider->setTickPosition(QSlider::TicksBelow);
    picker.Slider->setToolTip(QString::fromUtf8(FunctionSliderTip));
    return picker;
}

std::unique_ptr<render::RasterSurface> PlacePicturePaper(app::SurfaceView* picture, QRect place) {
    auto paper = std::make_unique<render::RasterSurface>(place.width(), place.height());
    paper->FontName = "OrlentisFont";
    paper->FontSize = 12;
    paper->SmoothText = true;
    picture->SetSurface(paper.get());
    picture->move(place.topLeft());
    return paper;
}

} // namespace vt
