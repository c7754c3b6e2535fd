#include "windows/FunctionPicker.h"

#include "analysis/EvalFX.h"
#include "windows/Twips.h"

namespace vt {

namespace {

// The picture's place in twips; without the slider it starts at WideLeft.
constexpr int PictureTop = 120;
constexpr int PictureHeight = 615;
constexpr int PictureLeft = 1440;
constexpr int PictureWideLeft = 240;

} // namespace

FunctionPicker MakeFunctionPicker(QWidget* parent, int pictureWidth, int minimum, int maximum) {
    const QRect picture = Twips(PictureLeft, PictureTop, pictureWidth, PictureHeight);
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

std::unique_ptr<render::RasterSurface> PlacePicturePaper(app::SurfaceView* picture,
                                                         int pictureWidth, bool wide) {
    const QRect place = wide ? Twips(PictureWideLeft, PictureTop,
                                     pictureWidth + PictureLeft - PictureWideLeft, PictureHeight)
                             : Twips(PictureLeft, PictureTop, pictureWidth, PictureHeight);
    auto paper = render::MakeEquationPaper(place.width(), place.height());
    picture->SetSurface(paper.get());
    picture->move(place.topLeft());
    return paper;
}

} // namespace vt
