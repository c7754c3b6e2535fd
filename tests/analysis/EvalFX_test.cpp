#include <gtest/gtest.h>

#include "analysis/EvalFX.h"
#include "plot/PlotTesting.h"

namespace vt::test {
namespace {

// A row's two labels as "left|value".
std::string Shown(const EvalFXForm& form, std::size_t row) {
    return form.Label2[row] + "|" + form.Label3[row];
}

TEST(EvalFX, CalculateFillsTheRowsThatHaveAValue) {
    // {rows 0 and 1, x as typed, rows 0 and 1 shown after Calculate, the message}. x is checked
    // as a number, evaluated as one and shown as typed; no value shows "NA" without a message.
    const char* cases[][6] = {{"2x+1", "", "2", "f(2) =|5", "f(x) =|", nullptr},
                              {"2x+1", "", "1e2", "f(1e2) =|201", "f(x) =|", nullptr},
                              {"1/x", "x", "0", "f(0) =|NA", "f(0) =|0", nullptr},
                              {"x", "", " -.5 ", "f( -.5 ) =|-0.5", "f(x) =|", nullptr},
                              {"2x+1", "", "", "f(x) =|", "f(x) =|", XNotNumberText},
                              {"2x+1", "", "2a", "f(x) =|", "f(x) =|", XNotNumberText}};
    for (const auto& [row0, row1, x, shown0, shown1, message] : cases) {
        SCOPED_TRACE(testing::Message() << row0 << " at '" << x << "'");
        PlotSession g({row0, row1});
        EvalFXForm form;
        frmEvalFX_Load(g.s, form);
        // The slider shows only with more than the first row filled.
        EXPECT_EQ(form.SliderVisible, *row1 != '\0');
        EXPECT_EQ(form.PictureColour, Red);
        form.Text1 = x;
        frmEvalFX_Command1_Click(g.s, form);
        EXPECT_EQ(Shown(form, 0), shown0);
        EXPECT_EQ(Shown(form, 1), shown1);
        for (std::size_t i = 2; i < 5; ++i)
            EXPECT_EQ(Shown(form, i), "f(x) =|") << i;
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(form.Label3Visible[i], !form.Label3[i].empty()) << i;
        EXPECT_EQ(g.host.Messages(),
                  message ? std::vector<std::string>{message} : std::vector<std::string>{});
    }
}

TEST(EvalFX, ARowThatLosesItsFunctionKeepsItsLabelAndShowsNoValue) {
    PlotSession g({"x", "3"});
    EvalFXForm form;
    frmEvalFX_Load(g.s, form);
    form.Text1 = "4";
    frmEvalFX_Command1_Click(g.s, form);
    ASSERT_EQ(form.Label3[1], "3");
    for (int i = 0; i <= CellUpper; ++i)
        g.s.GraphableCells(i, 1).clear();
    form.Text1 = "5";
    frmEvalFX_Command1_Click(g.s, form);
    EXPECT_EQ(Shown(form, 0), "f(5) =|5");
    EXPECT_EQ(Shown(form, 1), "f(4) =|");
    EXPECT_TRUE(form.Label3Visible[1]);
}

} // namespace
} // namespace vt::test
