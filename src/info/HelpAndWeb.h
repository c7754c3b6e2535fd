#pragma once
// Help Topics and the web commands of the Help menu and the toolbar. The help book is a set of
// HTML pages in the folder "help" beside the program; the three web pages (the product page,
// the home page and the support page) ship with it, so every one of these commands works
// without a network. The commands ask the session's Platform to show the page.

#include <string>

namespace vt {

struct Session;

// The pages, relative to the help folder.
inline constexpr const char* HelpIndexPage = "index.html";
inline constexpr const char* ProductPage = "web/veritrace.html";
inline constexpr const char* HomePage = "web/home.html";
inline constexpr const char* SupportPage = "web/support.html";

// The help folder: "help" beside the program; for a copy installed under a prefix
// (prefix/bin/veritrace), prefix/share/veritrace/help when there is no folder beside it.
// `exists` tells whether a folder exists, so that the choice can be tested.
std::string HelpFolder(const std::string& programDir, bool (*exists)(const std::string&));
std::string HelpFolder(const std::string& programDir);

// A page of the help folder as a path.
std::string HelpPagePath(const std::string& programDir, const std::string& page);

void mnuHelpTopics_Click(Session& s);
void mnuVeritrace_Click(Session& s);
void OpenHomePage(Session& s); // mnuHomePage and the toolbar's web button
void mnuOnlineSupport_Click(Session& s);

} // namespace vt
