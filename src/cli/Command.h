#pragma once
// What the subcommands of veritrace-cli share: their table, the function keys option, and the
// session they build from it.

#include <QCommandLineParser>
#include <QStringList>
#include <string>
#include <vector>

#include "render/PictureFile.h"
#include "session/Session.h"

namespace vt::cli {

// Exit codes: 0 done, 1 the input was refused (a message says why), 2 bad arguments.
constexpr int ExitRefused = 1;
constexpr int ExitUsage = 2;

struct Command {
    const char* Name;
    const char* Summary;
    int (*Run)(const QStringList& arguments); // arguments[0] is "veritrace-cli <name>"
};

// The table of subcommands, in the order the help lists them.
const std::vector<Command>& Commands();

// Adds -k/--keys (repeatable) and --json to a parser.
void AddKeysOption(QCommandLineParser& parser);
void AddJsonOption(QCommandLineParser& parser);

// Adds --format and --scale, for the commands that write a picture.
void AddPictureOptions(QCommandLineParser& parser);
inline const std::vector<render::PictureFormat> AllPictureFormats = {
    render::PictureFormat::Png, render::PictureFormat::Bmp, render::PictureFormat::Svg,
    render::PictureFormat::Pdf};
// The format (from --format, or else the extension of -o) among `allowed`, and the scale.
// False, after a message naming the command, when either is wrong.
bool PictureOptions(const QCommandLineParser& parser, const char* command,
                    const std::vector<render::PictureFormat>& allowed,
                    render::PictureFormat& format, int& scale);

// Parses the arguments of a subcommand. On a bad argument or --help it prints (usage on stderr
// for an error) and returns the exit code to end with; otherwise -1.
int ParseOrExit(QCommandLineParser& parser, const QStringList& arguments);

// The key strings given with -k, at most five. Returns false (after a message) on more.
bool KeyStrings(const QCommandLineParser& parser, std::vector<std::string>& keys);

// A session as the program has it after start, with each key string replayed into its slot
// 0, 1, ... as loading a graph data file does.
void LoadKeys(Session& s, const std::vector<std::string>& keys);

// Prints to stdout / stderr, with a newline.
void Out(const std::string& text);
void Err(const std::string& text);

} // namespace vt::cli
