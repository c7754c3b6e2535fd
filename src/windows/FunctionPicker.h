#pragma once
// The function picker that Evaluate f(x) and Calculate Area share: a typeset picture of one row's
// function and the slider "Slide to select function." that chooses the row.

#include <QSlider>
#include <QWidget>
#include <memory>

#include "render/RasterSurface.h"
#include "windows/SurfaceView.h"

namespace vt {

struct FunctionPicker {
    app::SurfaceView* Picture = nullptr;
    QSlider* Slider = nullptr;
};

// Builds both controls on `parent`: the picture beside the slider, `pictureWidth` twips wide, and
// the slider at its designed place, running from `minimum` to `maximum`.
FunctionPicker MakeFunctionPicker(QWidget* parent, int pictureWidth, int minimum, int maximum);

// The paper the picture shows, with the equation font set. Beside the slider the picture is
// `pictureWidth` twips wide; when the slider is hidden (`wide`) it reaches left over the
// slider's place to the same right edge.
std::unique_ptr<render::RasterSurface> PlacePicturePaper(app::SurfaceView* picture,
                                                         int pictureWidth, bool wide);

} // namespace vt
