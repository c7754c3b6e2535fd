#include "cli/Cli.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>

#include "cli/Jobs.h"
#include "session/Session.h"

namespace vt::cli {

namespace {

std::string Usage() {
    std::string text = "Usage: veritrace-cli <command> [options]\n\n"
                       "Batch work with Veritrace functions: typeset, evaluate, export.\n\n"
                       "Commands:\n";
    for (const auto& command : Commands()) {
        char line[256];
        std::snprintf(line, sizeof line, "  %-10s %s\n", command.Name, command.Summary);
        text += line;
    }
    text += "\nRun 'veritrace-cli <command> --help' for the options of a command.\n"
            "Functions are given as the keys a user types, one -k per function row, e.g.\n"
            "  veritrace-cli formulas -k '2x^2+S(x)' -k '1/x'\n"
            "(S, C, T insert sine, cosine, tangent; P is pi; ~ a root; | an absolute value.)";
    return text;
}

// Picks the command named by the first argument and runs it.
int Dispatch(QStringList arguments, Output& out) {
    if (arguments.size() < 2) return BadArgument(out, Usage());
    const QString name = arguments.at(1);
    if (name == "--help" || name == "-h" || name == "help") {
        out.Line(Usage());
        return ExitDone;
    }
    if (name == "--version" || name == "-v") {
        out.Line(std::string("veritrace-cli ") + VERITRACE_VERSION);
        return ExitDone;
    }
    for (const auto& command : Commands()) {
        if (name == command.Name) {
            arguments.removeAt(1);
            arguments[0] = QString("veritrace-cli ") + command.Name;
            return command.Run(arguments, out);
        }
    }
    out.Error("veritrace-cli: unknown command '" + name.toStdString() + "'");
    return BadArgument(out, Usage());
}

} // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"formulas", "show the entry, display and evaluator texts of each function",
         ParseAndRun<FormulasJob, ParseFormulas, RunFormulas>},
        {"eval", "evaluate every function at one x, as Evaluate f(x) does",
         ParseAndRun<EvalJob, ParseEval, RunEval>},
        {"export", "paint the graph as the window does and write it as BMP or PNG",
         ParseAndRun<ExportJob, ParseExport, RunExport>},
        {"equation", "typeset the function rows as the window shows them, as an image",
         ParseAndRun<EquationJob, ParseEquation, RunEquation>},
        {"area", "the area under one function between two x, as Calculate Area does",
         ParseAndRun<AreaJob, ParseArea, RunArea>},
        {"fit", "a line or polynomial through points, as regression mode fits it",
         ParseAndRun<FitJob, ParseFit, RunFit>},
        {"breakdown", "read an equation into signed rational terms, stage by stage",
         ParseAndRun<BreakdownJob, ParseBreakdown, RunBreakdown>},
        {"save", "write the graph data file the window would save for keys and points",
         ParseAndRun<SaveJob, ParseSave, RunSave>},
        {"load", "load a graph data file as the window does and show the session it leaves",
         ParseAndRun<LoadJob, ParseLoad, RunLoad>},
        {"print", "the printed page of Print Graph, heading, equations and graph, as a PDF",
         ParseAndRun<PrintJob, ParsePrint, RunPrint>},
    };
    return commands;
}

void AddKeysOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(
        {"k", "keys"}, "The keys of one function row (repeat for rows 1 to 4).", "KEYS"));
    parser.addOption(QCommandLineOption(
        {"f", "file"},
        "A graph data file to load as the window loads it: its rows, points and trend, in place "
        "of -k.",
        "FILE.vtx"));
}

std::string ReadFileOption(const QCommandLineParser& parser) {
    return parser.isSet("file") ? parser.value("file").toStdString() : std::string();
}

void AddJsonOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption("json", "Print one JSON object instead of text."));
}

void AddBracketNegativeXOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(
        "bracket-negative-x",
        "Put a negative x into the functions in brackets, as Bracket Negative x does: x^2 at -3 "
        "is 9 (without it, -9)."));
}

void AddPictureOptions(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(
        "format", "The kind of picture, when not the one of the output's extension.", "FORMAT"));
    parser.addOption(QCommandLineOption(
        "scale", "Draw N times as many pixels with the same geometry (1 to 8, default 1).", "N"));
}

std::optional<PictureChoice> PictureOptions(const QCommandLineParser& parser, const char* command,
                                            const std::vector<render::PictureFormat>& allowed,
                                            Output& out) {
    const std::string name = std::string("veritrace-cli ") + command + ": ";
    const auto chosen =
        render::PictureFormatFor(parser.value("output"), parser.value("format"), allowed);
    if (!chosen) {
        BadArgument(out, name + "the picture must be " + render::PictureFormatList(allowed) +
                             " (by the extension of -o, or --format)");
        return std::nullopt;
    }
    PictureChoice choice{*chosen, 1};
    if (parser.isSet("scale")) {
        const auto n = render::PictureScaleFrom(parser.value("scale"));
        if (!n) {
            BadArgument(out, name + "--scale takes a whole number from 1 to 8");
            return std::nullopt;
        }
        choice.Scale = *n;
    }
    return choice;
}

std::optional<int> ParseOrHelp(QCommandLineParser& parser, const QStringList& arguments,
                               Output& out) {
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) {
        out.Error("veritrace-cli: " + parser.errorText().toStdString());
        return BadArgument(out, parser.helpText().toStdString());
    }
    if (parser.isSet(help)) {
        out.Line(parser.helpText().toStdString());
        return ExitDone;
    }
    return std::nullopt;
}

std::optional<int> ReadArguments(QCommandLineParser& parser, const QStringList& arguments,
                                 Output& out) {
    if (const auto code = ParseOrHelp(parser, arguments, out)) return code;
    if (!parser.positionalArguments().isEmpty()) {
        out.Error("veritrace-cli: unexpected argument '" +
                  parser.positionalArguments().first().toStdString() + "'");
        return BadArgument(out, parser.helpText().toStdString());
    }
    return std::nullopt;
}

std::optional<std::vector<std::string>> ReadKeys(const QCommandLineParser& parser, Output& out) {
    if (parser.isSet("file")) {
        // The file holds the functions and the points; they are not given twice.
        for (const QString& name : parser.optionNames()) {
            if (name == "k" || name == "keys" || name == "p" || name == "m") {
                out.Error("veritrace-cli: -f FILE gives the functions and the points; give no -" +
                          name.left(1).toStdString() + " with it");
                BadArgument(out, parser.helpText().toStdString());
                return std::nullopt;
            }
        }
    }
    std::vector<std::string> keys;
    for (const QString& value : parser.values("keys"))
        keys.push_back(value.toStdString());
    if (keys.size() > static_cast<std::size_t>(UsableSlots)) {
        BadArgument(out, "veritrace-cli: at most five functions (-k) can be given");
        return std::nullopt;
    }
    for (const std::string& row : keys) {
        if (row.size() > MaxKeysPerRow) {
            BadArgument(out, "veritrace-cli: a function row takes at most " +
                                 std::to_string(MaxKeysPerRow) + " keys; -k gave " +
                                 std::to_string(row.size()));
            return std::nullopt;
        }
    }
    return keys;
}

int BadArgument(Output& out, const std::string& message) {
    out.Error(message);
    return ExitUsage;
}

int Main(int argc, char** argv) {
    // Offscreen unless the caller chose a platform: the companion never opens a window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName("veritrace-cli");
    QCoreApplication::setApplicationVersion(VERITRACE_VERSION);

    Output out;
    const int code = Dispatch(QCoreApplication::arguments(), out);
    std::fputs(out.Out.c_str(), stdout);
    std::fputs(out.Err.c_str(), stderr);
    return code;
}

} // namespace vt::cli
