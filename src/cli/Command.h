#pragma once
// What the subcommands of veritrace-cli share: their table, the function keys option, and the
// session they build from it.

#include <QCommandLineParser>
#include <QStringList>
#include <string>
#include <vector>

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

// Parses the arguments of a subcommand. On a bad argument or --help it prints (usage on stderr
// for an error) and returns the exit code to end with; otherwise -1.
int ParseOrExit(QCommandLineParser& parser, const QStringList& arguments);

// The key strings given with -k, at most five. Returns false (after a message) on more.
bool KeyStrings(const QCommandLineParser& parser, std::vector<std::string>& keys);

// A session as the program has it after start, with each key string replayed into its slot
// 0, 1, ... as loading a graph data file does.
void LoadKeys(Session& s, const std::vector<std::string>& keys);

// -f/--file FILE.vtx, added with -k. With it, -k and -p are refused.
void AddFileOption(QCommandLineParser& parser);
// Whether -f was given with -k or -p; prints the usage message when so.
bool FileRefusesOtherInput(const QCommandLineParser& parser);
// Loads a graph data file into the session as the window loads one named on its command line:
// the session started, the file's rows replayed, its trend and points set. Returns the message
// the load showed, empty when it had none; the state it reached stays either way.
std::string LoadFile(Session& s, const std::string& path);
// The functions of a command: the -f file when given, else the -k keys as LoadKeys has them.
// With a file, keys become the rows' texts as loaded, up to the last row with any. Returns -1
// to go on, or the exit code (a usage error, or a file the load refused after its message was
// printed).
int LoadFunctions(Session& s, const QCommandLineParser& parser, std::vector<std::string>& keys);

// Prints to stdout / stderr, with a newline.
void Out(const std::string& text);
void Err(const std::string& text);

} // namespace vt::cli
