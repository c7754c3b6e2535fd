#include "plot/PointSeries.h"

#include "base/NumberText.h"
#include "base/Platform.h"
#include "entry/Entry.h"
#include "plot/Painter.h"
#include "plot/RegressionOverlay.h"

namespace vt {

namespace {

// The separator of the points' text form, the same as the graph data file's.
constexpr const char* PointSeparator = "BB";

// Button 14 of Toolbar1 shows where a press leads.
constexpr int ModeButton = 14;
// The buttons and commands that do not apply to points: root, sine, Evaluate f(x), area.
constexpr int ClosedButtons[] = {9, 10, 12, 13};
constexpr const char* ClosedMenus[] = {
    "mnuToggleCoordinates", "mnuExponent",  "mnuRoot",    "mnuTrig",
    "mnuInsertF",           "mnuInsertAbs", "mnuInsertPi"};

constexpr const char* RegressionTip = "Click on graph to enter point.";
constexpr const char* GraphAnalysisTip = "Drag mouse to select display region.";

} // namespace

bool AddSeriesPoint(Session& s, double x, double y) {
    if (s.FitObject.XYAdd(x, y)) return false;
    // The fit counts the point before Points is asked for room, so the 501st is counted and
    // folded in but not stored.
    const int index = s.FitObject.XYCount() - 1;
    if (index < 0 || index >= PointsCapacity) return false;
    s.Points(index).X = x;
    s.Points(index).Y = y;
    return true;
}

InsertOutcome Command4_Click(Session& s) {
    const RegressionPanelState& panel = s.Panel;
    if (!IsNumericText(panel.Text2) || !IsNumericText(panel.Text3)) {
        s.Host().Dialogs().MsgBox(PointsNotNumbersText, MsgOkOnly, "");
        return InsertOutcome::Refused;
    }
    if (!AddSeriesPoint(s, PrefixNumber(panel.Text2), PrefixNumber(panel.Text3)))
        return InsertOutcome::Failed;
    DrawRegressionOverlay(s);
    return InsertOutcome::Added;
}

int Combo1Order(const Session& s) {
    const double order = RoundHalfEven(PrefixNumber(s.Panel.Combo1), 0);
    return order >= -32768 && order <= 32767 ? static_cast<int>(order) : -1;
}

bool Command1_Click(Session& s) {
    s.Panel.LinearOn = true;
    s.Panel.PolynomialOn = false;
    return ReplaySeries(s, 1);
}

bool Command3_Click(Session& s) {
    s.Panel.LinearOn = false;
    s.Panel.PolynomialOn = true;
    return ReplaySeries(s, Combo1Order(s));
}

bool Combo1_Click(Session& s) {
    if (!s.Panel.PolynomialOn) return true;
    return ReplaySeries(s, Combo1Order(s));
}

std::vector<std::string> SplitText(const std::string& text, const std::string& separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string::npos;
         at = text.find(separator, from)) {
        parts.push_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    parts.push_back(text.substr(from));
    return parts;
}

bool ReplaySeries(Session& s, int newDegree) {
    // The fit can change degree only by being emptied, so every point goes in again, through
    // its text: each change of trend rounds the points to 15 significant digits.
    const int count = s.FitObject.XYCount();
    // A series that outgrew Points has points without a text; the change stops before it
    // empties anything.
    if (count > PointsCapacity) return false;
    std::string text;
    for (int i = 0; i < count; ++i)
        text +=
            NumberText(s.Points(i).X) + PointSeparator + NumberText(s.Points(i).Y) + PointSeparator;
    const std::vector<std::string> parts = SplitText(text, PointSeparator);

    if (s.FitObject.SetDegree(newDegree)) return false;
    // The text ends in a separator, so the last part is empty and pairs stop before it.
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2)
        if (!AddSeriesPoint(s, PrefixNumber(parts[i]), PrefixNumber(parts[i + 1]))) return false;
    DrawRegressionOverlay(s);
    return true;
}

void ResetPointTable(Session& s) {
    std::vector<PointTableRow>& table = s.Panel.MSFlexGrid1;
    for (PointTableRow& row : table)
        row = {"", ""};
    if (table.empty()) table.resize(1);
    table[0] = {"X", "Y"};
}

void ClearSeries(Session& s) {
    std::vector<PointTableRow>& table = s.Panel.MSFlexGrid1;
    const int count = s.FitObject.XYCount();
    for (int i = 1; i <= count && static_cast<std::size_t>(i) < table.size(); ++i)
        table[static_cast<std::size_t>(i)] = {"", ""};
    // Writing the degree back empties the fit.
    s.FitObject.SetDegree(s.FitObject.Degree());
    DrawRegressionOverlay(s);
    table.resize(2);
    ResetPointTable(s);
    RedrawGraph(s);
}

int mnuPtSeries_Click(Session& s) {
    ToolButton& button = s.Toolbar1(ModeButton);
    if (s.Check1 == 0) {
        s.Check1 = 1;
        s.PtSeriesChecked = true;
        s.ToggleCoordinatesChecked = false; // hides ListView1
        button.Image = "gra";
        button.Tip = "Graph Analysis";
    } else {
        s.Check1 = 0;
        s.PtSeriesChecked = false;
        button.Image = "regress";
        button.Tip = "Regression Analysis";
    }
    // Setting the check box has run Check1_Click already; the second run changes nothing, so
    // the one run here stands for both.
    return Check1_Click(s);
}

int Check1_Click(Session& s) {
    const bool regression = InRegressionMode(s);
    s.Panel.Visible = regression;
    for (const char* menu : ClosedMenus)
        s.MenuEnabled[menu] = !regression;
    for (int index : ClosedButtons)
        s.Toolbar1(index).Enabled = !regression;
    if (regression) {
        const bool open = CanGraph(s);
        s.MenuEnabled["mnuShade"] = open;
        s.MenuEnabled["mnuEvaluate"] = open;
        s.GraphTip = RegressionTip;
        DrawRegressionOverlay(s);
        return -1;
    }
    s.GraphTip = GraphAnalysisTip;
    RedrawGraph(s);
    return s.ShownRows;
}

void Command5_Click(Session& s) {
    s.RegressionEquation = s.FitObject.ReturnRegEq();
}

void ShowRegressionFunction(Session& s) {
    Command5_Click(s);
    if (!s.Host().RunCommand(HostCommand::Explain, 0))
        s.Host().Dialogs().MsgBox(NotAvailableText, MsgOkOnly | MsgInformation, "");
}

} // namespace vt
