#pragma once
// The commands of veritrace-cli, each as its job, its parser and its runner. To add a command:
// a job struct here, its parser and runner in a file of its own, and a line in the table of
// Commands().

#include <optional>
#include <string>
#include <vector>

#include "cli/Command.h"

namespace vt::cli {

// formulas: the texts the program makes of each row's keys, and whether the graph commands
// are open.
struct FormulasJob {
    std::vector<std::string> Keys; // one key string a row, rows 0 upward
    std::string File;              // -f: a graph data file in place of Keys
    bool Json = false;
};
Parsed<FormulasJob> ParseFormulas(const QStringList& arguments, Output& out);
int RunFormulas(const FormulasJob& job, Output& out);

// eval: every row's value at one x, as Evaluate f(x) shows it.
struct EvalJob {
    std::vector<std::string> Keys;
    std::string File;
    std::string At; // the x as typed; the runner checks it as the window does
    bool Json = false;
    bool BracketNegativeX = false;
};
Parsed<EvalJob> ParseEval(const QStringList& arguments, Output& out);
int RunEval(const EvalJob& job, Output& out);

// area: the area under one row's function, as Calculate Area works it out.
struct AreaJob {
    std::vector<std::string> Keys;
    std::string File;
    std::string From, To, Step; // as typed into the dialog's three boxes
    int Slot = 0;
    bool Json = false;
    bool BracketNegativeX = false;
};
Parsed<AreaJob> ParseArea(const QStringList& arguments, Output& out);
int RunArea(const AreaJob& job, Output& out);

// Points entered as in regression mode (-p, -m, --linear, --order); cli/PointEntry.h reads and
// enters them.
struct FitPoint {
    bool ByMouse = false; // -m: a click on the graph; -p: the texts of the X and Y boxes
    std::string X, Y;
};
struct PointEntry {
    std::optional<std::string> Order; // --order N; none with --linear or no trend given
    bool Linear = false;
    std::vector<FitPoint> Points; // in the order given

    bool Empty() const { return !Order && !Linear && Points.empty(); }
};

// export: the graph box painted as the window paints it, written to an image.
struct ViewBounds {
    double XMin = -20, XMax = 20, YMin = -20, YMax = 20;
};
struct ShadeBand {
    double From = 0, To = 0;
    int Style = 0; // the fill style, 0..7
};
struct ExportJob {
    std::vector<std::string> Keys;
    std::string File;
    std::string ImagePath;
    PictureChoice Picture;
    ViewBounds View;
    std::optional<ShadeBand> Shade;
    bool Auto = false, HideGrid = false, Quadrants = false, Json = false;
    bool BracketNegativeX = false;
    PointEntry Series; // any of its options paints regression mode instead of the functions
};
Parsed<ExportJob> ParseExport(const QStringList& arguments, Output& out);
int RunExport(const ExportJob& job, Output& out);

// equation: the typeset rows stacked in one image.
struct EquationJob {
    std::vector<std::string> Keys;
    std::string File;
    std::string ImagePath;
    PictureChoice Picture;
};
Parsed<EquationJob> ParseEquation(const QStringList& arguments, Output& out);
int RunEquation(const EquationJob& job, Output& out);

// fit: points entered as in regression mode, and the polynomial fitted through them.
struct FitJob {
    std::optional<std::string> Order; // --order N; none with --linear or no trend given
    bool Linear = false;
    std::vector<FitPoint> Points; // in the order given
    std::vector<std::string> At;  // x texts to give the fitted value at
    bool Json = false;
};
Parsed<FitJob> ParseFit(const QStringList& arguments, Output& out);
int RunFit(const FitJob& job, Output& out);

// breakdown: an equation read into signed rational terms, stage by stage.
struct BreakdownJob {
    std::optional<std::string> Keys;   // -k: typed into row 0
    std::optional<std::string> Tokens; // --tokens: one token a cell, blanks between
    std::string File;                  // -f: row 0 of a graph data file
    bool Json = false;
};
Parsed<BreakdownJob> ParseBreakdown(const QStringList& arguments, Output& out);
int RunBreakdown(const BreakdownJob& job, Output& out);

// save: the graph data file the window would write for a session given as keys, a trend and
// points.
struct SaveJob {
    std::vector<std::string> Keys;
    std::optional<std::string> Order; // the trend and the points, as fit takes them
    bool Linear = false;
    std::vector<FitPoint> Points;
    std::string DataPath;
};
Parsed<SaveJob> ParseSave(const QStringList& arguments, Output& out);
int RunSave(const SaveJob& job, Output& out);

// load: a graph data file loaded as the window loads it, and the session it leaves.
struct LoadJob {
    std::string DataPath;
    bool Json = false;
};
Parsed<LoadJob> ParseLoad(const QStringList& arguments, Output& out);
int RunLoad(const LoadJob& job, Output& out);

// print: the printed page, laid out as Print Graph lays it out, written as a PDF.
struct PrintJob {
    std::vector<std::string> Keys;
    std::string File;
    std::optional<std::string> Order;
    bool Linear = false;
    std::vector<FitPoint> Points;
    std::string PdfPath;
    std::string Heading1, Heading2; // the two heading lines as the dialog would hold them
};
Parsed<PrintJob> ParsePrint(const QStringList& arguments, Output& out);
int RunPrint(const PrintJob& job, Output& out);

} // namespace vt::cli
