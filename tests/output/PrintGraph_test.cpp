#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "commands/KeyStroke.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "output/PrintGraph.h"
#include "support/RecordingSurface.h"

namespace vt {
namespace {

// A page of 10 by 7.5 inches whose characters may be wider than the screen's, and whose
// picture may fail to print.
struct PrinterPage : test::RecordingSurface {
    float Widen = 1;
    bool Fail = false;
    PrinterPage() : RecordingSurface(800, 600) {}
    float TextWidth(const std::string& text) override {
        return Widen * RecordingSurface::TextWidth(text);
    }
    void PaintPicture(const PixelImage& image, float x, float y, float w, float h) override {
        if (Fail) throw std::runtime_error("printer gone");
        RecordingSurface::PaintPicture(image, x, y, w, h);
    }
};

class RecordingPrinter : public PrinterJob {
  public:
    PrinterPage page;
    std::vector<std::string> Calls;

    Surface& Page() override { return page; }
    double PageWidthInches() const override { return 10; }
    double PageHeightInches() const override { return 7.5; }
    void EndDoc() override { Calls.push_back("EndDoc"); }
    void KillDoc() override { Calls.push_back("KillDoc"); }
};

struct PrintFixture {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    test::RecordingSurface box{400, 400};
    HeadlessShell host;
    RecordingPrinter printer;

    explicit PrintFixture(std::vector<std::string> rows = {}) {
        StartSession(*s);
        host.Graph = &box;
        s->BindHost(&host);
        for (std::size_t i = 0; i < rows.size(); ++i)
            ReplaySlotKeys(*s, static_cast<int>(i), rows[i]);
    }
    // The printed texts joined per colour change: what a reader sees, in order.
    std::vector<std::pair<std::string, Colour>> Runs() const {
        std::vector<std::pair<std::string, Colour>> runs;
        for (const auto& p : printer.page.Prints) {
            if (runs.empty() || runs.back().second != p.ForeColor || p.Text.empty())
                runs.push_back({p.Text, p.ForeColor});
            else
                runs.back().first += p.Text;
        }
        return runs;
    }
};

TEST(PrintTheGraph, HeadingThenPicture) {
    PrintFixture f;
    PrintTheGraph(*f.s, f.printer, {"My class", "3/7/2024"});
    const auto& prints = f.printer.page.Prints;
    ASSERT_EQ(prints.size(), 6u);
    std::string texts;
    for (const auto& p : prints) {
        texts += p.Text + "|";
        EXPECT_TRUE(p.FontName == "OrlentisFont" && p.FontSize == 12 && p.X == 0) << p.Text;
    }
    EXPECT_EQ(texts, "|||   My class|   3/7/2024||");
    // One line is 12 points * 1.25 at 96 dpi on 600 pixels for 600 units: 20 units.
    EXPECT_FLOAT_EQ(prints[4].Y, 80);
    // The 400-pixel box is 4 1/6 inches: a third of 10 inches by 800 units, and of 7.5 by 600.
    ASSERT_FALSE(f.printer.page.Log.empty());
    EXPECT_EQ(f.printer.page.Log.back(), "PaintPicture 400x400 at 12,138 size 333.333,333.333");
    EXPECT_EQ(f.printer.Calls, std::vector<std::string>{"EndDoc"});
}

TEST(PrintTheGraph, FunctionsInTheirColoursOrTheFitInBlack) {
    PrintFixture f({"2x+1", "", "x^2"});
    PrintTheGraph(*f.s, f.printer, {});
    auto runs = f.Runs();
    // After the heading: each row opens in black, then goes on in its swatch's colour.
    std::string inColour;
    for (const auto& [text, colour] : runs)
        if (colour != 0) inColour += text + "@" + std::to_string(colour) + " ";
    EXPECT_NE(inColour.find("f(x)=2x+1 @255 f(x)=x2 @49152"), std::string::npos) << inColour;
    EXPECT_EQ(inColour.find("@16711680"), std::string::npos) << inColour; // row 1 is empty

    PrintFixture r({"2x+1"});
    r.s->Check1 = 1;
    r.s->FitObject.XYAdd(0, 1);
    r.s->FitObject.XYAdd(1, 3);
    PrintTheGraph(*r.s, r.printer, {});
    std::string all;
    for (const auto& [text, colour] : r.Runs()) {
        all += text;
        EXPECT_EQ(colour, 0u) << text;
    }
    EXPECT_EQ(all.find("2x+1"), std::string::npos);
    EXPECT_NE(all.find("f(x) ="), std::string::npos) << all;
}

TEST(PrintTheGraph, ALongFunctionRunsOn) {
    // Characters six times as wide: five full rows then need several lines each, and more
    // than a page.
    std::string keys;
    for (int i = 0; i < 60; ++i)
        keys += "x+";
    PrintFixture f({keys + "1", keys + "2", keys + "3", keys + "4", keys + "5"});
    f.printer.page.Widen = 6;
    PrintTheGraph(*f.s, f.printer, {});
    int wraps = 0, pages = 0;
    for (const auto& p : f.printer.page.Prints) {
        wraps += p.Text == "...";
        // A plain character never starts past the line's end, nor below the page's end.
        if (p.Text.size() == 1 && p.Text != "_") {
            EXPECT_LE(p.X, 765 + 6 * 8) << p.Text;
            EXPECT_LT(p.Y, 560 + 12) << p.Text;
        }
    }
    for (const auto& line : f.printer.page.Log)
        pages += line == "NewPage";
    EXPECT_GE(wraps, 20);
    EXPECT_GE(pages, 1);
    EXPECT_EQ(f.printer.Calls, std::vector<std::string>{"EndDoc"});
}

TEST(PrintTheGraph, AFailedPageIsKilledSilently) {
    PrintFixture f;
    RecordingPrinter printer;
    printer.page.Fail = true;
    EXPECT_FALSE(PrintAndFinish(*f.s, printer, {}));
    EXPECT_EQ(printer.Calls, std::vector<std::string>{"KillDoc"});
    EXPECT_TRUE(PrintAndFinish(*f.s, f.printer, {}));
    EXPECT_EQ(f.printer.Calls, (std::vector<std::string>{"EndDoc", "KillDoc"}));
}

} // namespace
} // namespace vt
