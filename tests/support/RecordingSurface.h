#pragma once
// A surface that draws nothing and records every operation as a line of text, for tests of the
// typesetter and the painter. Text is measured with fixed metrics: each character is
// 0.5 * FontSize points wide and the line is FontSize * 1.25 points high, at 96 dots per inch,
// converted into the user scale.

#include <cstdio>
#include <string>
#include <vector>

#include "base/Surface.h"

namespace vt::test {

class RecordingSurface : public Surface {
  public:
    RecordingSurface(int pixelWidth, int pixelHeight) : width_(pixelWidth), height_(pixelHeight) {
        ScaleWidth = static_cast<float>(pixelWidth);
        ScaleHeight = static_cast<float>(pixelHeight);
    }

    std::vector<std::string> Log;

    // Every Print call with its exact pen position and text state, for tests that need more
    // than the six digits of the log.
    struct Printed {
        std::string Text;
        float X = 0, Y = 0;
        std::string FontName;
        float FontSize = 0;
        Colour ForeColor = 0;
        bool KeepLine = false;
    };
    std::vector<Printed> Prints;

    int PixelWidth() const override { return width_; }
    int PixelHeight() const override { return height_; }

    void Cls() override { Restart("Cls"); }
    void NewPage() override { Restart("NewPage"); }
    void Line(float x1, float y1, float x2, float y2, bool box, bool boxFilled) override {
        LineTo(x1, y1, x2, y2, box ? (boxFilled ? " BF" : " B") : "", ForeColor);
    }
    void LineColour(float x1, float y1, float x2, float y2, Colour colour) override {
        LineTo(x1, y1, x2, y2, "", colour);
    }
    void Circle(float x, float y, float radius, Colour colour) override {
        Log.push_back(Format("Circle %g,%g r=%g color=%u fill=%u style=%d", x, y, radius, colour,
                             FillColor, FillStyle));
        CurrentX = x;
        CurrentY = y;
    }
    void Print(const std::string& text, bool keepLine) override {
        Prints.push_back({text, CurrentX, CurrentY, FontName, FontSize, ForeColor, keepLine});
        Log.push_back(Format("Print %g,%g [", CurrentX, CurrentY) + text +
                      Format("] font=%s size=%g bold=%d color=%u", FontName.c_str(), FontSize,
                             FontBold ? 1 : 0, ForeColor));
        if (keepLine) {
            CurrentX += TextWidth(text);
        } else {
            CurrentX = ScaleLeft;
            CurrentY += TextHeight(text);
        }
    }
    float TextWidth(const std::string& text) override {
        return static_cast<float>(text.size()) * FontSize * 0.5f * 96.0f / 72.0f * ScaleWidth /
               static_cast<float>(width_);
    }
    float TextHeight(const std::string&) override {
        return FontSize * 1.25f * 96.0f / 72.0f * ScaleHeight / static_cast<float>(height_);
    }
    void PaintPicture(const PixelImage& picture, float x, float y, float w, float h) override {
        Log.push_back(Format("PaintPicture %dx%d at %g,%g size %g,%g", picture.Width,
                             picture.Height, x, y, w, h));
    }
    void ExtFloodFill(int px, int py, Colour colour) override {
        Log.push_back(Format("FloodFill %d,%d surface=%u fill=%u style=%d", px, py, colour,
                             FillColor, FillStyle));
    }
    PixelImage Image() const override {
        PixelImage image;
        image.Width = width_;
        image.Height = height_;
        image.Pixels.assign(static_cast<std::size_t>(width_) * height_, BackColor);
        return image;
    }

  private:
    template <class... Args> static std::string Format(const char* format, Args... args) {
        char buffer[512];
        std::snprintf(buffer, sizeof buffer, format, args...);
        return buffer;
    }
    void Restart(const char* what) {
        Log.push_back(what);
        CurrentX = ScaleLeft;
        CurrentY = ScaleTop;
    }
    void LineTo(float x1, float y1, float x2, float y2, const char* box, Colour colour) {
        Log.push_back(Format("Line %g,%g-%g,%g%s color=%u width=%d mode=%d", x1, y1, x2, y2, box,
                             colour, DrawWidth, DrawMode));
        CurrentX = x2;
        CurrentY = y2;
    }

    int width_;
    int height_;
};

} // namespace vt::test
