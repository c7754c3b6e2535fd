#pragma once
// The frame every command of veritrace-cli fits in. A command is three things: a job (a plain
// struct with what the command line asked for), a parser that turns the arguments into the job,
// and a runner that does the job and knows nothing of the command line. The runner writes into
// an Output, so that it can be run and checked without a process around it.

#include <QCommandLineParser>
#include <QStringList>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "render/PictureFile.h"

namespace vt::cli {

// Exit codes: 0 done, 1 the input was refused (a message says why), 2 bad arguments, and work
// the companion will not take on (a view it cannot paint, too many samples).
constexpr int ExitDone = 0;
constexpr int ExitRefused = 1;
constexpr int ExitUsage = 2;

// What a command prints: its standard output and its error output, each line ended by "\n".
struct Output {
    std::string Out;
    std::string Err;
    void Line(const std::string& text) { Out += text + '\n'; }
    void Error(const std::string& text) { Err += text + '\n'; }
};

// What a parser gives back: the job, or the exit code to end with at once (after --help, or
// after the message about a bad argument).
template <class Job> using Parsed = std::variant<Job, int>;

struct Command {
    const char* Name;
    const char* Summary;
    int (*Run)(const QStringList& arguments, Output& out); // arguments[0] is the program
};

// Parses, and runs the job when there is one.
template <class Job, Parsed<Job> (*Parse)(const QStringList&, Output&),
          int (*Execute)(const Job&, Output&)>
int ParseAndRun(const QStringList& arguments, Output& out) {
    Parsed<Job> parsed = Parse(arguments, out);
    if (const int* code = std::get_if<int>(&parsed)) return *code;
    return Execute(std::get<Job>(parsed), out);
}

// The table of commands, in the order the help lists them.
const std::vector<Command>& Commands();

// Adds -k/--keys (repeatable) with -f/--file, and --json, to a parser.
void AddKeysOption(QCommandLineParser& parser);
void AddJsonOption(QCommandLineParser& parser);
// Adds --bracket-negative-x, for the commands that evaluate the functions.
void AddBracketNegativeXOption(QCommandLineParser& parser);

// Reads the arguments with the parser (which gets --help here). Returns the exit code to end
// with now: 0 after printing the help, 2 after a parse error (with the usage). None when the
// options are there to be read. ReadArguments also refuses a stray argument; ParseOrHelp leaves
// the positional arguments to the command.
std::optional<int> ParseOrHelp(QCommandLineParser& parser, const QStringList& arguments,
                               Output& out);
std::optional<int> ReadArguments(QCommandLineParser& parser, const QStringList& arguments,
                                 Output& out);

// Adds --format and --scale, for the commands that write a picture.
void AddPictureOptions(QCommandLineParser& parser);
inline const std::vector<render::PictureFormat> AllPictureFormats = {
    render::PictureFormat::Png, render::PictureFormat::Bmp, render::PictureFormat::Svg,
    render::PictureFormat::Pdf};
// What --format (or else the extension of -o) and --scale ask for, among `allowed`.
struct PictureChoice {
    render::PictureFormat Format = render::PictureFormat::Png;
    int Scale = 1;
};
// The picture options; none, after the usage message naming the command, when either is wrong.
std::optional<PictureChoice> PictureOptions(const QCommandLineParser& parser, const char* command,
                                            const std::vector<render::PictureFormat>& allowed,
                                            Output& out);

// The most keys one -k may give. A row holds 2001 tokens, and every key, taken or refused,
// rebuilds the whole row, so a longer string only costs time: ten thousand keys take seconds.
constexpr std::size_t MaxKeysPerRow = 4096;

// The key strings given with -k, at most five of at most MaxKeysPerRow keys each; none (after
// the message) otherwise.
std::optional<std::vector<std::string>> ReadKeys(const QCommandLineParser& parser, Output& out);

// The graph data file given with -f, or the empty string. ReadKeys refuses -f beside -k or
// points.
std::string ReadFileOption(const QCommandLineParser& parser);

// Prints the message for a bad argument and gives the exit code for it.
int BadArgument(Output& out, const std::string& message);

} // namespace vt::cli
