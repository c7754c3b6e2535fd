// Points, orders and trend changes through the regression panel. Each action is one byte, its
// low four bits choosing what, with what follows it as its data:
//   0  Insert a point from the next two bytes (tenths from -12.8 to 12.7)
//   1  Insert the texts that follow: a length byte and that many bytes for X, then for Y
//   2  a click on the graph box at the next two bytes (quarters from -32 to 31.75)
//   3  a burst of points on a line with noise: the next byte + 1 points
//   4  "Linear"
//   5  "Polynomial"
//   6  the order list set to the next byte % 9 + 2, then its click
//   7  the order list set to the text that follows (length byte, bytes), then its click
//   8  clear the series
//   9  the Regression Analysis command (switches the mode)
//   10 "Regression Function"
//   11 a zoom: the view's half width from the next byte
//   others: nothing
// The graph box is a surface that only measures. After each action the series must agree with the
// fit's count and the table; anything else aborts.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "QuietSurface.h"
#include "base/Platform.h"
#include "base/Shell.h"
#include "entry/Entry.h"
#include "plot/PointSeries.h"
#include "plot/RegressionOverlay.h"
#include "plot/View.h"

namespace {

using namespace vt;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "fit: %s\n", what);
    std::abort();
}

// A user who answers OK to every message and cancels every dialog.
class AcceptingHost : public Platform {
  public:
    int MsgBox(const std::string&, int, const std::string&) override { return MsgResultOk; }
    Colour ChooseColour(Colour start) override { return start; }
    std::optional<std::string> OpenFileName(const FileDialogRequest&) override {
        return std::nullopt;
    }
    std::optional<std::string> SaveFileName(const FileDialogRequest&) override {
        return std::nullopt;
    }
    bool ChoosePrinter() override { return false; }
    void ShowHelp(const std::string&) override {}
    void OpenWebPage(const std::string&) override {}
};

class Reader {
  public:
    Reader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool More() const { return at_ < size_; }
    std::uint8_t Byte() { return at_ < size_ ? data_[at_++] : 0; }
    std::string Text() {
        const std::size_t n = std::min<std::size_t>(Byte(), size_ - at_);
        std::string text(reinterpret_cast<const char*>(data_ + at_), n);
        at_ += n;
        return text;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

void Check(const Session& s) {
    const int count = s.FitObject.XYCount();
    if (count < 0) Fail("negative point count");
    const std::size_t rows = s.Panel.MSFlexGrid1.size();
    if (rows < 2) Fail("the table lost its heading or its blank row");
    if (s.Panel.MSFlexGrid1[0] != PointTableRow{"X", "Y"}) Fail("the table lost its headings");
    if (s.Panel.LinearOn == s.Panel.PolynomialOn) Fail("both or neither trend option on");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto session = std::make_unique<Session>();
    Session& s = *session;
    fuzz::QuietSurface box(400, 400);
    AcceptingHost host;
    HeadlessShell shell;
    shell.Graph = &box;
    shell.Messages = &host;
    s.BindHost(&shell);
    SetKeyMask(s);
    mnuPtSeries_Click(s);

    Reader in(data, size);
    int points = 0;
    while (in.More() && points < 2000) {
        const int action = in.Byte() & 0x0F;
        switch (action) {
        case 0:
            s.Panel.Text2 = std::to_string(static_cast<std::int8_t>(in.Byte()) / 10.0);
            s.Panel.Text3 = std::to_string(static_cast<std::int8_t>(in.Byte()) / 10.0);
            Command4_Click(s);
            ++points;
            break;
        case 1:
            s.Panel.Text2 = in.Text();
            s.Panel.Text3 = in.Text();
            Command4_Click(s);
            ++points;
            break;
        case 2: {
            const float x = static_cast<std::int8_t>(in.Byte()) / 4.0f;
            const float y = static_cast<std::int8_t>(in.Byte()) / 4.0f;
            frmGraph_MouseDown(s, LeftButton, 0, x, y);
            frmGraph_MouseUp(s, LeftButton, 0, x, y);
            ++points;
            break;
        }
        case 3: {
            // Inserted through the fit directly, as the mouse does, and then one redraw: a
            // burst reaches the 500th and the 501st point without a redraw for each.
            const int n = in.Byte() + 1;
            for (int i = 0; i < n; ++i)
                AddSeriesPoint(s, i * 0.25, 3 - 0.5 * i + ((i * 7919) % 13) / 13.0);
            points += n;
            DrawRegressionOverlay(s);
            break;
        }
        case 4:
            Command1_Click(s);
            break;
        case 5:
            Command3_Click(s);
            break;
        case 6:
            s.Panel.Combo1 = std::to_string(in.Byte() % 9 + 2);
            Combo1_Click(s);
            break;
        case 7:
            s.Panel.Combo1 = in.Text();
            Combo1_Click(s);
            break;
        case 8:
            ClearSeries(s);
            break;
        case 9:
            mnuPtSeries_Click(s);
            break;
        case 10:
            Command5_Click(s);
            break;
        case 11: {
            const double half = 0.5 + in.Byte();
            s.ViewXMin = s.ViewYMin = -half;
            s.ViewXMax = s.ViewYMax = half;
            DrawRegressionOverlay(s);
            break;
        }
        default:
            break;
        }
        Check(s);
    }
    return 0;
}
