#pragma once
// The tests' recording surface without its log: the same pen movements and text measures, but
// nothing formatted or kept, so that a fuzz run spends its time in the program.

#include "support/RecordingSurface.h"

namespace vt::fuzz {

class QuietSurface : public test::RecordingSurface {
  public:
    using RecordingSurface::RecordingSurface;

    long Operations = 0; // everything drawn since the start

    void Cls() override { Restart(); }
    void NewPage() override { Restart(); }
    void Line(float, float, float x2, float y2, bool, bool) override { MoveTo(x2, y2); }
    void LineColour(float, float, float x2, float y2, Colour) override { MoveTo(x2, y2); }
    void Circle(float x, float y, float, Colour) override { MoveTo(x, y); }
    void Print(const std::string& text, bool keepLine) override {
        ++Operations;
        if (keepLine) {
            CurrentX += TextWidth(text);
        } else {
            CurrentX = ScaleLeft;
            CurrentY += TextHeight(text);
        }
    }
    void PaintPicture(const PixelImage&, float, float, float, float) override { ++Operations; }
    void ExtFloodFill(int, int, Colour) override { ++Operations; }

  private:
    void Restart() {
        ++Operations;
        CurrentX = ScaleLeft;
        CurrentY = ScaleTop;
    }
    void MoveTo(float x, float y) {
        ++Operations;
        CurrentX = x;
        CurrentY = y;
    }
};

} // namespace vt::fuzz
