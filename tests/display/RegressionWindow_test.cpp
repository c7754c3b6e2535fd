#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/RegressionWindow.h"
#include "support/RecordingShell.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {
namespace {

// The form at 12 points: a character is 8 pixels, 6 points, wide; a line 15 points high.
struct ExplainForm {
    Session s;
    ScriptedPlatform platform;
    RecordingShell shell;
    RecordingSurface form;

    explicit ExplainForm(int pixelWidth) : form(pixelWidth, 1200) {
        shell.Messages = &platform;
        s.BindHost(&shell);
        form.FontName = ExplainFontName;
        form.FontSize = ExplainFontSize;
    }
    int Show(const std::string& equation) {
        s.RegressionEquation = equation;
        return ShowEquation(s, form);
    }
    // The text of each typesetter call: its characters up to the line's closing blank.
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        std::string line;
        for (const RecordingSurface::Printed& print : form.Prints) {
            if (print.KeepLine) {
                line += print.Text;
                continue;
            }
            lines.push_back(line);
            line.clear();
        }
        return lines;
    }
};

std::string Repeat(const std::string& part, int times) {
    std::string out;
    for (int i = 0; i < times; ++i)
        out += part;
    return out;
}

TEST(RegressionWindow, BreaksAtBlanksOrWhereTheLineOverflowsAndSizesItsHeight) {
    // 360 pixels are 270 points: 45 characters fit on a line.
    struct Case {
        const char* name;
        std::string equation;
        std::vector<std::string> lines;
        int height; // twips: 3.5 font sizes plus the pen's height in points, 15 twips each
    };
    const std::string terms = "f(x) = " + Repeat("123456789 + ", 6);
    const Case cases[] = {
        {"no points", "f(x) =", {"f(x) ="}, 630 + 18 * 15},
        {"a short line", "f(x) =  2x + 1", {"f(x) =  2x + 1"}, 630 + 18 * 15},
        // The break falls at the last blank before the overflow; a sign that overflowed
        // begins the next line.
        {"sign overflows",
         "f(x) =  " + Repeat("1234567890 + ", 5),
         {"f(x) =  1234567890 + 1234567890 + 1234567890", "+ 1234567890 + 1234567890 + "},
         630 + 36 * 15},
        {"digit overflows",
         terms,
         {"f(x) = 123456789 + 123456789 + 123456789 +", "123456789 + 123456789 + 123456789 + "},
         630 + 36 * 15},
        // With no blank the character that overflowed goes on the next line.
        {"one long word", Repeat("a", 50), {Repeat("a", 45), "aaaaa"}, 630 + 36 * 15},
    };
    for (const Case& c : cases) {
        ExplainForm f(360);
        EXPECT_EQ(f.Show(c.equation), c.height) << c.name;
        EXPECT_EQ(f.Lines(), c.lines) << c.name;
        EXPECT_TRUE(f.platform.Messages().empty()) << c.name;
        // Printed in points, left in pixels.
        EXPECT_EQ(f.form.ScaleWidth, 360.0f) << c.name;
        EXPECT_EQ(f.form.ScaleHeight, 1200.0f) << c.name;
    }
}

TEST(RegressionWindow, AFormNarrowerThanOneCharacterStillEnds) {
    ExplainForm f(4);
    f.Show("abc");
    EXPECT_EQ(f.Lines(), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(RegressionWindow, TitleFollowsTheTrend) {
    Session s;
    EXPECT_EQ(ExplainCaption(s), "Linear Regression Equation");
    s.Panel.LinearOn = false;
    s.Panel.PolynomialOn = true;
    EXPECT_EQ(ExplainCaption(s), "Polynomial Regression Equation");
}

} // namespace
} // namespace vt::test
