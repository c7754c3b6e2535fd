#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

#include "info/HelpAndWeb.h"
#include "info/SystemInfo.h"
#include "session/Session.h"
#include "support/ScriptedPlatform.h"

namespace vt {

namespace {

const char* const PathKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const char* const FolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

// A registry of a few values, a set of files, and a record of the programs started.
struct FakeSystem : SystemLookups {
    std::map<std::pair<std::string, std::string>, RegistryData> values;
    std::vector<std::string> files;
    std::vector<std::string> started;

    std::optional<RegistryData> ReadRegistry(RegistryRoot, const std::string& key,
                                             const std::string& value, std::size_t) override {
        const auto found = values.find({key, value});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    bool FileExists(const std::string& path) override {
        return std::find(files.begin(), files.end(), path) != files.end();
    }
    bool RunProgram(const std::string& path) override {
        started.push_back(path);
        return true;
    }
};

using Texts = std::vector<std::string>;

std::string Bytes(std::initializer_list<int> bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace

TEST(GetKeyValue, ReadsEachTypeOfValue) {
    // A number's bytes read last to first, unpadded: 05 01 00 (the final zero dropped) reads as
    // 0x015; four digits make a 16-bit number, eight a 32-bit one, more fail.
    const auto number = [](std::initializer_list<int> b) {
        return RegistryData{RegistryNumber, Bytes(b)};
    };
    // {stored, text, found, failed}
    // clang-format off
    const std::tuple<std::optional<RegistryData>, const char*, bool, bool> cases[] = {
        {std::nullopt, "", false, false},
        {RegistryData{RegistryString, Bytes({'C', ':', '\\', 'm', 0})}, "C:\\m", true, false},
        {RegistryData{RegistryString, "abc"}, "abc", true, false},
        {number({5, 1, 0, 0}), "21", true, false}, {number({0xFF, 0xFF}), "-1", true, false},
        {number({0x78, 0x56, 0x34, 0x12}), "305419896", true, false},
        {number({0x10, 0x10, 0x10, 0x10, 0x10}), "", false, true}, {number({}), "", false, true},
        {RegistryData{3, "xyz"}, "", true, false}};
    // clang-format on
    for (const auto& [stored, text, found, failed] : cases) {
        FakeSystem system;
        if (stored) system.values[{PathKey, "PATH"}] = *stored;
        const KeyValue got = GetKeyValue(system, RegistryRoot::LocalMachine, PathKey, "PATH");
        EXPECT_EQ(std::tuple(got.Text, got.Found, got.Failed), std::tuple(text, found, failed))
            << text;
    }
}

TEST(StartSysInfo, RunsTheProgramTheRegistryNamesOrSaysItIsUnavailable) {
    const RegistryData path{RegistryString,
                            Bytes({'C', ':', '\\', 's', 'i', '.', 'e', 'x', 'e', 0})};
    const RegistryData folder{RegistryString, "D:\\tools"};
    const RegistryData tooLong{RegistryNumber, Bytes({0x10, 0x10, 0x10, 0x10, 0x10})};
    const auto none = std::nullopt;
    // {PATH, shared tools folder, the program in it, started, message}: the path comes first;
    // the folder without the program is no program; a value that fails ends quietly.
    // clang-format off
    const std::tuple<std::optional<RegistryData>, std::optional<RegistryData>, bool, Texts, bool>
        cases[] = {{none, none, false, {}, true}, {path, folder, true, {"C:\\si.exe"}, false},
                   {none, folder, true, {"D:\\tools\\MSINFO32.EXE"}, false},
                   {none, folder, false, {}, true}, {tooLong, folder, true, {}, false}};
    // clang-format on
    for (const auto& [pathValue, folderValue, fileThere, started, message] : cases) {
        FakeSystem system;
        if (pathValue) system.values[{PathKey, "PATH"}] = *pathValue;
        if (folderValue) system.values[{FolderKey, "MSINFO"}] = *folderValue;
        if (fileThere) system.files.push_back("D:\\tools\\MSINFO32.EXE");
        test::ScriptedPlatform platform;
        StartSysInfo(system, platform);
        EXPECT_EQ(system.started, started);
        EXPECT_EQ(platform.Messages(), message ? Texts{SysInfoUnavailableText} : Texts{});
    }
    // A system with no registry always ends at the message.
    NoRegistryLookups noRegistry;
    test::ScriptedPlatform platform;
    StartSysInfo(noRegistry, platform);
    ASSERT_EQ(platform.Calls.size(), 1u);
    EXPECT_EQ(std::tuple(platform.Calls[0].Text, platform.Calls[0].Style),
              std::tuple(SysInfoUnavailableText, MsgOkOnly));
}

TEST(HelpAndWeb, FindsTheBookAndOpensEachPage) {
    // The book beside the program wins over the shared folder of an installed copy.
    static std::vector<std::string> folders;
    const auto exists = [](const std::string& path) {
        return std::find(folders.begin(), folders.end(), path) != folders.end();
    };
    const std::pair<std::vector<std::string>, std::string> choices[] = {
        {{"/p/bin/help", "/p/bin/../share/veritrace/help"}, "/p/bin/help"},
        {{"/p/bin/../share/veritrace/help"}, "/p/bin/../share/veritrace/help"},
        {{}, "/p/bin/help"}};
    for (const auto& [there, expected] : choices) {
        folders = there;
        EXPECT_EQ(std::tuple(HelpFolder("/p/bin", exists), HelpFolder("/p/bin/", exists)),
                  std::tuple(expected, expected));
    }

    auto s = std::make_unique<Session>();
    s->ProgramDir = "/nowhere/bin";
    // Without a window the commands have no one to show anything to.
    mnuHelpTopics_Click(*s);
    OpenHomePage(*s);
    test::ScriptedPlatform platform;
    HeadlessShell shell;
    shell.Messages = &platform;
    s->BindHost(&shell);
    for (auto command :
         {mnuHelpTopics_Click, mnuVeritrace_Click, OpenHomePage, mnuOnlineSupport_Click})
        command(*s);
    Texts calls;
    for (const auto& call : platform.Calls)
        calls.push_back(call.Kind + " " + call.Text);
    EXPECT_EQ(calls, (Texts{"ShowHelp /nowhere/bin/help/index.html",
                            "OpenWebPage /nowhere/bin/help/web/veritrace.html",
                            "OpenWebPage /nowhere/bin/help/web/home.html",
                            "OpenWebPage /nowhere/bin/help/web/support.html"}));
}

} // namespace vt
