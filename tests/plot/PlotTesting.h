#pragma once
// What the plot tests share: a recording graph box that also keeps its lines and fills as
// numbers, and a session with functions typed into its rows and a scripted host.

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "session/Session.h"
#include "support/RecordingShell.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {

class PlotSurface : public RecordingSurface {
  public:
    PlotSurface() : RecordingSurface(400, 400) {}

    struct Stroke {
        float X1, Y1, X2, Y2;
        Colour Color;
        int Width, Mode;
        bool Box;
    };
    std::vector<Stroke> Strokes;
    std::vector<std::array<int, 2>> Fills; // pixel of each flood fill
    int Clears = 0;
    std::function<void()> OnCls; // runs at each Cls, while the paint is under way

    void Cls() override {
        ++Clears;
        if (OnCls) OnCls();
        RecordingSurface::Cls();
    }
    void Line(float x1, float y1, float x2, float y2, bool box, bool boxFilled) override {
        Strokes.push_back({x1, y1, x2, y2, ForeColor, DrawWidth, DrawMode, box});
        RecordingSurface::Line(x1, y1, x2, y2, box, boxFilled);
    }
    void LineColour(float x1, float y1, float x2, float y2, Colour colour) override {
        Strokes.push_back({x1, y1, x2, y2, colour, DrawWidth, DrawMode, false});
        RecordingSurface::LineColour(x1, y1, x2, y2, colour);
    }
    void ExtFloodFill(int px, int py, Colour colour) override {
        Fills.push_back({px, py});
        RecordingSurface::ExtFloodFill(px, py, colour);
    }
    // Forgets what was drawn so far.
    void Forget() {
        Strokes.clear();
        Fills.clear();
        Prints.clear();
        Log.clear();
        Clears = 0;
    }
    // The lines of the log that start with the given text.
    std::size_t Logged(const std::string& start) const {
        std::size_t n = 0;
        for (const std::string& line : Log)
            n += line.rfind(start, 0) == 0;
        return n;
    }
    std::vector<Stroke> StrokesIn(Colour colour, int width) const {
        std::vector<Stroke> out;
        for (const Stroke& stroke : Strokes)
            if (stroke.Color == colour && stroke.Width == width) out.push_back(stroke);
        return out;
    }
};

using View = std::array<double, 4>; // x min, x max, y min, y max
using Texts = std::vector<std::string>;

struct PlotSession {
    Session s;
    PlotSurface box;
    ScriptedPlatform host;
    RecordingShell shell;

    // The rows in order; an empty text leaves its row untouched.
    explicit PlotSession(std::vector<std::string> rows = {}) {
        std::tie(shell.Graph, shell.Messages) = std::tuple(&box, &host);
        s.BindHost(&shell);
        SetKeyMask(s);
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (!rows[i].empty()) Type(static_cast<int>(i), rows[i]);
    }
    // Types a function into a row as a file load does.
    void Type(int slot, const std::string& keys) { ReplaySlotKeys(s, slot, keys); }
    void SetView(View v) {
        std::tie(s.ViewXMin, s.ViewXMax, s.ViewYMin, s.ViewYMax) = std::tuple_cat(v);
    }
    View ViewNow() const { return {s.ViewXMin, s.ViewXMax, s.ViewYMin, s.ViewYMax}; }
};

// Writes an evaluator text into a row's cells, a character a cell, as the builder leaves it.
inline void SetGraphable(Session& s, int slot, const std::string& text) {
    for (int i = 0; i <= CellUpper; ++i)
        s.GraphableCells(i, slot).clear();
    for (std::size_t i = 0; i < text.size() && i <= CellUpper; ++i)
        s.GraphableCells(static_cast<int>(i), slot).assign(1, text[i]);
}

// What f gives on the text route; the session's evaluator then goes back to compiling.
template <class F> auto ByText(Session& s, F f) {
    s.Evaluator.SetStrategy(EvalStrategy::Text);
    const auto result = f();
    s.Evaluator.SetStrategy(EvalStrategy::Compiled);
    return result;
}

constexpr Colour Red = 0x0000FF;      // slot 0's swatch
constexpr Colour Blue = 0xFF0000;     // slot 1's swatch
constexpr Colour GridBlue = 16766596; // the default grid colour
constexpr Colour ShadeGrey = 14737632;

} // namespace vt::test
