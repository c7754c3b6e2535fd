#include "session/MainMenu.h"

namespace vt {

const std::vector<MenuEntry>& MainMenuTree() {
    static const std::vector<MenuEntry> tree = {
        {"mnuGraphFile", "&File", "", 0},
        {"mnuGraphPrint", "&Print Graph", "Ctrl+P", 1},
        {"mnuGraphPrintSetup", "Print &Setup", "", 1},
        {"mnuGraphBreak1", "-", "", 1},
        {"mnuSave", "Save Graph Data", "Ctrl+S", 1},
        {"mnuLoad", "Load Graph Data", "Ctrl+L", 1},
        {"mnuGGFe", "-", "", 1},
        {"mnuBitMap", "Save Graph As Bitmap", "", 1},
        {"mnuCopyGraph", "&Copy Graph", "", 1},
        {"qht", "-", "", 1},
        {"mnuGraphExit", "&Exit", "Ctrl+X", 1},
        {"mnuFunctions", "F&unctions", "", 0},
        {"mnuGraphIt", "&Graph!", "F3", 1},
        {"abc", "-", "", 1},
        {"mnuInsertF", "&Insert Function", "F4", 1},
        {"mnuClearData", "Clear &Data", "Ctrl+C", 1},
        {"aji", "-", "", 1},
        {"mnuExponent", "Insert &Exponent (^)", "", 1},
        {"mnuRoot", "Insert &Root", "Ctrl+R", 1},
        {"mnuInsertPi", "Insert &Pi", "Ctrl+I", 1},
        {"mnuInsertAbs", "Insert Absolute &Value (|)", "", 1},
        {"mnuTrig", "Insert &Trig Functions", "", 1},
        {"mnuSin", "Insert &Sine", "Ctrl+F1", 2},
        {"mnuCos", "Insert &Cosine", "Ctrl+F2", 2},
        {"mnuTan", "Insert &Tangent", "Ctrl+F3", 2},
        {"ziu", "-", "", 1},
        {"mnuEvaluate", "Evaluate &f(x)", "F5", 1},
        {"mnuShade", "Calculate &Area", "F6", 1},
        {"pop", "-", "", 1},
        {"mnuPtSeries", "Regression Anal&ysis", "F7", 1},
        {"mnuGraphOptions", "Graph &Options", "", 0},
        {"mnuToggleCoordinates", "Toggle &Coordinates", "F8", 1},
        {"mnuGraphQuadrant", "Toggle &Quadrants", "F9", 1},
        {"mnuGraphBreak2", "-", "", 1},
        {"mnuHideGrid", "&Hide Grid", "Ctrl+H", 1},
        {"mnuGraphSettings", "&Change Colors", "", 1},
        {"mnuGraphGridColor", "&Grid Color", "", 2},
        {"mnuBackColor", "&Background Color", "", 2},
        {"mnuGraphBreak5", "-", "", 2},
        {"mnuGraphDefault", "&Default Colors", "Ctrl+D", 2},
        {"faege", "-", "", 1},
        {"mnuLineW", "Line Width", "", 1},
        {"mnuBracketNegativeX", "Bracket Negative x", "", 1},
        {"mnuGraphWindow", "Graph &Window", "", 0},
        {"mnuGraphReset", "&Reset", "", 1},
        {"mnuGraphBreak3", "-", "", 1},
        {"mnuGraphZoomIn", "Zoom &In", "", 1},
        {"mnuGraphZoomOut", "Zoom &Out", "", 1},
        {"mnuHelp", "&Help", "", 0},
        {"mnuHelpTopics", "Help &Topics", "", 1},
        {"mnuWeb", "Orlentis on the &Web", "", 1},
        {"mnuVeritrace", "&Veritrace", "", 2},
        {"mnuHomePage", "Orlentis &Home Page", "", 2},
        {"mnubebe", "-", "", 2},
        {"mnuOnlineSupport", "Online Support", "", 2},
        {"mnuhyhy", "-", "", 1},
        {"mnuAbout", "&About Veritrace", "", 1},
        {"mnuRoundOptions", "Round Options", "", 0},
        {"mnuNearWhole", "Round To Nearest Whole", "", 1},
        {"mnuNearTen", "Round To Nearest Tenth", "", 1},
    };
    return tree;
}

std::vector<ToolButton> StartToolbar() {
    auto button = [](const char* key, const char* tip, bool enabled = true,
                     std::vector<std::string> dropDown = {}) {
        ToolButton b;
        b.Key = key;
        b.Image = key;
        b.Tip = tip;
        b.Enabled = enabled;
        b.DropDown = std::move(dropDown);
        return b;
    };
    ToolButton separator;
    separator.Separator = true;
    return {
        button("graph", "Graph", false),
        separator,
        button("save", "Save"),
        button("open", "Open"),
        button("print", "Print"),
        separator,
        button("clear", "Erase"),
        separator,
        button("root", "Insert Root", true, {"Insert Root", "Insert Exponent"}),
        button("sin", "Insert Sine", true, {"Insert Sine", "Insert Cosine", "Insert Tangent"}),
        separator,
        button("fx", "Evaluate f(x)", false),
        button("area", "Calculate Area", false),
        button("regress", "Regression Analysis"),
        separator,
        button("web", "Orlentis On The Web"),
    };
}

const std::vector<std::string>& ToolbarImageKeys() {
    static const std::vector<std::string> keys = {
        "print", "graph", "clear", "web", "open",    "save", "zoomin", "zoomout", "power",
        "root",  "area",  "cos",   "fx",  "regress", "sin",  "tan",    "gra"};
    return keys;
}

WindowState::WindowState() {
    RowVisible(0) = true;
    for (int i = 0; i <= 4; ++i)
        PaperBackColor(i) = PaperWhite;
    const std::vector<ToolButton> buttons = StartToolbar();
    for (int i = 1; i <= 16; ++i)
        Toolbar1(i) = buttons[static_cast<std::size_t>(i - 1)];
    for (const MenuEntry& entry : MainMenuTree())
        MenuEnabled[entry.Name] = true;
    // The graph commands wait for a complete function.
    MenuEnabled["mnuGraphIt"] = false;
    MenuEnabled["mnuEvaluate"] = false;
    MenuEnabled["mnuShade"] = false;
}

} // namespace vt
