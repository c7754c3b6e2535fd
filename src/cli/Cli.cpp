#include "cli/Cli.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <memory>

#include "cli/Command.h"
#include "entry/Entry.h"
#include "session/Startup.h"

namespace vt::cli {

int FormulasCommand(const QStringList& arguments);
int EvalCommand(const QStringList& arguments);
int ExportCommand(const QStringList& arguments);
int EquationCommand(const QStringList& arguments);
int AreaCommand(const QStringList& arguments);
int SaveCommand(const QStringList& arguments);
int LoadCommand(const QStringList& arguments);

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

} // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"formulas", "show the entry, display and evaluator texts of each function", FormulasCommand},
        {"eval", "evaluate every function at one x, as Evaluate f(x) does", EvalCommand},
        {"export", "paint the graph as the window does and write it as BMP or PNG", ExportCommand},
        {"equation", "typeset the function rows as the window shows them, as an image",
         EquationCommand},
        {"area", "the area under one function between two x, as Calculate Area does", AreaCommand},
        {"save", "write the graph data file the window would save", SaveCommand},
        {"load", "load a graph data file as the window does and show the session", LoadCommand},
    };
    return commands;
}

void AddKeysOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(
        {"k", "keys"}, "The keys of one function row (repeat for rows 1 to 4).", "KEYS"));
    AddFileOption(parser);
}

void AddJsonOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption("json", "Print one JSON object instead of text."));
}

int ParseOrExit(QCommandLineParser& parser, const QStringList& arguments) {
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) {
        Err("veritrace-cli: " + parser.errorText().toStdString());
        Err(parser.helpText().toStdString());
        return ExitUsage;
    }
    if (parser.isSet(help)) {
        Out(parser.helpText().toStdString());
        return 0;
    }
    if (!parser.positionalArguments().isEmpty()) {
        Err("veritrace-cli: unexpected argument '" +
            parser.positionalArguments().first().toStdString() + "'");
        Err(parser.helpText().toStdString());
        return ExitUsage;
    }
    return -1;
}

bool KeyStrings(const QCommandLineParser& parser, std::vector<std::string>& keys) {
    keys.clear();
    for (const QString& value : parser.values("keys")) keys.push_back(value.toStdString());
    if (keys.size() > static_cast<std::size_t>(UsableSlots)) {
        Err("veritrace-cli: at most five functions (-k) can be given");
        return false;
    }
    return true;
}

void LoadKeys(Session& s, const std::vector<std::string>& keys) {
    StartSession(s);
    for (std::size_t slot = 0; slot < keys.size(); ++slot)
        ReplaySlotKeys(s, static_cast<int>(slot), keys[slot]);
}

void Out(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fputc('\n', stdout);
}

void Err(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fputc('\n', stderr);
}

int Main(int argc, char** argv) {
    // Offscreen unless the caller chose a platform: the companion never opens a window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName("veritrace-cli");
    QCoreApplication::setApplicationVersion(VERITRACE_VERSION);

    QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        Err(Usage());
        return ExitUsage;
    }
    const QString name = arguments.at(1);
    if (name == "--help" || name == "-h" || name == "help") {
        Out(Usage());
        return 0;
    }
    if (name == "--version" || name == "-v") {
        Out(std::string("veritrace-cli ") + VERITRACE_VERSION);
        return 0;
    }
    for (const auto& command : Commands()) {
        if (name == command.Name) {
            arguments.removeAt(1);
            arguments[0] = QString("veritrace-cli ") + command.Name;
            return command.Run(arguments);
        }
    }
    Err("veritrace-cli: unknown command '" + name.toStdString() + "'");
    Err(Usage());
    return ExitUsage;
}

} // namespace vt::cli
