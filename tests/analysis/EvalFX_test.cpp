#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "analysis/EvalFX.h"
#include "plot/PlotTesting.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {
namespace {

struct EvalSession : PlotSession {
    ScriptedPlatform host;
    EvalSession() { s.Host = &host; }
};

using Rows = std::array<const char*, 5>;

TEST(EvalFX, CalculateFillsTheRowsThatHaveAValue) {
    struct Case {
        Rows functions;
        const char* x;
        Rows left;  // Label2 after Calculate
        Rows value; // Label3
        const char* message;
    } cases[] = {
        {{"2x+1", "", "", "", ""},
         "2",
         {"f(2) =", "f(x) =", "f(x) =", "f(x) =", "f(x) ="},
         {"5", "", "", "", ""},
         nullptr},
        // Checked as a number, evaluated at 100, shown as typed.
        {{"2x+1", "", "", "", ""},
         "1e2",
         {"f(1e2) =", "f(x) =", "f(x) =", "f(x) =", "f(x) ="},
         {"201", "", "", "", ""},
         nullptr},
        // No value: "NA" with no message.
        {{"1/x", "x", "", "", ""},
         "0",
         {"f(0) =", "f(0) =", "f(x) =", "f(x) =", "f(x) ="},
         {"NA", "0", "", "", ""},
         nullptr},
        {{"x", "", "", "", ""},
         " -.5 ",
         {"f( -.5 ) =", "f(x) =", "f(x) =", "f(x) =", "f(x) ="},
         {"-0.5", "", "", "", ""},
         nullptr},
        {{"2x+1", "", "", "", ""},
         "",
         {"f(x) =", "f(x) =", "f(x) =", "f(x) =", "f(x) ="},
         {"", "", "", "", ""},
         XNotNumberText},
        {{"2x+1", "", "", "", ""},
         "2a",
         {"f(x) =", "f(x) =", "f(x) =", "f(x) =", "f(x) ="},
         {"", "", "", "", ""},
         XNotNumberText},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.functions[0] << " at '" << c.x << "'");
        EvalSession g;
        for (int i = 0; i < 5; ++i)
            if (*c.functions[static_cast<std::size_t>(i)])
                g.Type(i, c.functions[static_cast<std::size_t>(i)]);
        EvalFXForm form;
        frmEvalFX_Load(g.s, form);
        // The slider shows only with more than the first row filled.
        EXPECT_EQ(form.SliderVisible, *c.functions[1] != '\0');
        EXPECT_EQ(form.PictureColour, Red);
        form.Text1 = c.x;
        frmEvalFX_Command1_Click(g.s, form);
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(form.Label2[i], c.left[i]) << "row " << i;
            EXPECT_EQ(form.Label3[i], c.value[i]) << "row " << i;
            EXPECT_EQ(form.Label3Visible[i], *c.value[i] != '\0') << "row " << i;
        }
        EXPECT_EQ(g.host.Messages(),
                  c.message ? std::vector<std::string>{c.message} : std::vector<std::string>{});
    }
}

TEST(EvalFX, ARowThatLosesItsFunctionKeepsItsLabelAndShowsNoValue) {
    EvalSession g;
    g.Type(0, "x");
    g.Type(1, "3");
    EvalFXForm form;
    frmEvalFX_Load(g.s, form);
    form.Text1 = "4";
    frmEvalFX_Command1_Click(g.s, form);
    ASSERT_EQ(form.Label3[1], "3");
    for (int i = 0; i <= CellUpper; ++i)
        g.s.GraphableCells(i, 1).clear();
    form.Text1 = "5";
    frmEvalFX_Command1_Click(g.s, form);
    EXPECT_EQ(form.Label2[0], "f(5) =");
    EXPECT_EQ(form.Label3[0], "5");
    EXPECT_EQ(form.Label2[1], "f(4) =");
    EXPECT_EQ(form.Label3[1], "");
    EXPECT_TRUE(form.Label3Visible[1]);
}

} // namespace
} // namespace vt::test
