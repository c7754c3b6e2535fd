// -f FILE for every command that takes functions: the rows, points and trend of a graph data
// file, loaded as the window loads a file named on its command line.

#include <QFileInfo>

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "entry/Entry.h"
#include "output/SaveLoad.h"
#include "session/Startup.h"

namespace vt::cli {

void AddFileOption(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(
        {"f", "file"}, "A graph data file (.vtx) to load as the window loads it, in place of -k.",
        "FILE.vtx"));
}

bool FileRefusesOtherInput(const QCommandLineParser& parser) {
    if (!parser.isSet("file")) return false;
    for (const QString& name : parser.optionNames()) {
        if (name == "k" || name == "keys" || name == "p" || name == "points") {
            Err("veritrace-cli: -f FILE takes the functions and points from the file; give "
                "no -" +
                name.left(1).toStdString() + " with it");
            Err(parser.helpText().toStdString());
            return true;
        }
    }
    return false;
}

std::string LoadFile(Session& s, const std::string& path) {
    CliPlatform own;
    Platform* keep = s.Host;
    CliPlatform* host = dynamic_cast<CliPlatform*>(s.Host);
    if (host == nullptr) {
        host = &own;
        s.Host = host;
    }
    const std::size_t before = host->Messages.size();
    StartSession(s);
    LoadCommandFile(s, path);
    s.Host = keep;
    return host->Messages.size() > before ? host->Messages.back() : std::string();
}

int LoadFunctions(Session& s, const QCommandLineParser& parser, std::vector<std::string>& keys) {
    if (!parser.isSet("file")) {
        LoadKeys(s, keys);
        return -1;
    }
    if (FileRefusesOtherInput(parser)) return ExitUsage;
    const std::string message = LoadFile(s, parser.value("file").toLocal8Bit().toStdString());
    keys.clear();
    for (int slot = 0; slot < UsableSlots; ++slot)
        keys.push_back(EntryText(s, slot));
    while (!keys.empty() && keys.back().empty())
        keys.pop_back();
    if (message.empty()) return -1;
    Err(message);
    return ExitRefused;
}

} // namespace vt::cli
