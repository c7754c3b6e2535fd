#include "render/EquationPaper.h"

#include "render/Fonts.h"

namespace vt::render {

void SetUpRowPaper(Surface& paper) {
    LoadBundledFonts();
    paper.FontName = EquationFamily;
    paper.FontSize = 12;
}

std::unique_ptr<RasterSurface> NewEquationPaper(int pixelWidth, int pixelHeight) {
    LoadBundledFonts();
    auto paper = std::make_unique<RasterSurface>(pixelWidth, pixelHeight);
    SetUpRowPaper(*paper);
    paper->SmoothText = true;
    paper->Cls();
    return paper;
}

} // namespace vt::render
