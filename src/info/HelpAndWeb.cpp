#include "info/HelpAndWeb.h"

#include <filesystem>
#include <system_error>

#include "base/Platform.h"
#include "session/Session.h"

namespace vt {

namespace {

bool FolderExists(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

std::string Join(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    return folder.back() == '/' ? folder + name : folder + "/" + name;
}

void OpenWeb(Session& s, const char* page) {
    s.Host().Dialogs().OpenWebPage(HelpPagePath(s.ProgramDir, page));
}

} // namespace

std::string HelpFolder(const std::string& programDir, bool (*exists)(const std::string&)) {
    const std::string beside = Join(programDir, "help");
    if (exists(beside)) return beside;
    const std::string shared = Join(programDir, "../share/veritrace/help");
    return exists(shared) ? shared : beside;
}

std::string HelpFolder(const std::string& programDir) {
    return HelpFolder(programDir, FolderExists);
}

std::string HelpPagePath(const std::string& programDir, const std::string& page) {
    return Join(HelpFolder(programDir), page);
}

void mnuHelpTopics_Click(Session& s) {
    // A missing book is reported by the help window itself.
    s.Host().Dialogs().ShowHelp(HelpPagePath(s.ProgramDir, HelpIndexPage));
}

void mnuVeritrace_Click(Session& s) {
    OpenWeb(s, ProductPage);
}

void OpenHomePage(Session& s) {
    OpenWeb(s, HomePage);
}

void mnuOnlineSupport_Click(Session& s) {
    OpenWeb(s, SupportPage);
}

} // namespace vt
