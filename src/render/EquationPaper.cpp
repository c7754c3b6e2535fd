#include "render/EquationPaper.h"

#include "render/Fonts.h"

namespace vt::render {

std::unique_ptr<RasterSurface> NewEquationPaper(int pixelWidth, int pixelHeight) {
    LoadBundledFonts();
    auto paper = std::make_unique<RasterSurface>(pixelWidth, pixelHeight);
    paper->FontName = EquationFamily;
    paper->FontSize = 12;
    paper->SmoothText = true;
    paper->Cls();
    return paper;
}

} // namespace vt::render
