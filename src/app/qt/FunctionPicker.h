#pragma once
// The function picker that Evaluate f(x) and Calculate Area share: a typeset picture of one row's
// function and the slider "Slide to select function." that chooses the row.

#include <QSlider>
#include <QWidget>
#include <memory>

#include "app/qt/SurfaceView.h"
#include "render/RasterSurface.h"

namespace vt {

struct FunctionPicker {
    app::SurfaceView* Picture = nullptr;
    QSlider* Slider = nullptr;
};

// Builds both controls on `parent`: the picture at `picture` (in pixels), the slider at its
// designed place, running from `minimum` to `maximum`.
FunctionPicker MakeFunctionPicker(QWidget* parent, QRect picture, int minimum, int maximum);

// The paper the picture shows, for the picture placed at `place` (in pixels): the narrow place
// beside the slider, or the wide one when the slider is hidden. The equation font is set.
std::unique_ptr<render::RasterSurface> PlacePicturePaper(app::SurfaceView* picture, QRect place);

} // namespace vt
