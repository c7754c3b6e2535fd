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
        if (found == values.end()) return std::nullopt;
        return found->second;
    }
    bool FileExists(const std::string& path) override {
        return std::find(files.begin(), files.end(), path) != files.end();
    }
    bool RunProgram(const std::string& path) override {
        started.push_back(path);
        return true;
    }
};

std::string Bytes(std::initializer_list<int> bytes) {
    std::string out;
    for (int b : bytes)
        out += static_cast<char>(b);
    return out;
}

} // namespace

TEST(GetKeyValue, ReadsEachTypeOfValue) {
    struct Case {
        const char* name;
        std::optional<RegistryData> stored;
        KeyValue expected;
    };
    // A number's bytes read last to first, unpadded: 05 01 00 (the final zero dropped) reads as
    // 0x015; four digits make a 16-bit number, eight a 32-bit one, more fail.
    const auto number = [](std::initializer_list<int> b) {
        return RegistryData{RegistryNumber, Bytes(b)};
    };
    // clang-format off
    const Case cases[] = {
        {"missing", std::nullopt, {"", false, false}},
        {"string with its final zero",
         RegistryData{RegistryString, Bytes({'C', ':', '\\', 'm', 0})}, {"C:\\m", true, false}},
        {"string without", RegistryData{RegistryString, "abc"}, {"abc", true, false}},
        {"number, unpadded", number({5, 1, 0, 0}), {"21", true, false}},
        {"16-bit", number({0xFF, 0xFF}), {"-1", true, false}},
        {"32-bit", number({0x78, 0x56, 0x34, 0x12}), {"305419896", true, false}},
        {"too long", number({0x10, 0x10, 0x10, 0x10, 0x10}), {"", false, true}},
        {"no bytes", number({}), {"", false, true}},
        {"other type", RegistryData{3, "xyz"}, {"", true, false}}};
    // clang-format on
    for (const Case& c : cases) {
        FakeSystem system;
        if (c.stored) system.values[{PathKey, "PATH"}] = *c.stored;
        const KeyValue got = GetKeyValue(system, RegistryRoot::LocalMachine, PathKey, "PATH");
        EXPECT_EQ(got.Text, c.expected.Text) << c.name;
        EXPECT_EQ(got.Found, c.expected.Found) << c.name;
        EXPECT_EQ(got.Failed, c.expected.Failed) << c.name;
    }
}

TEST(StartSysInfo, RunsTheProgramTheRegistryNamesOrSaysItIsUnavailable) {
    struct Case {
        const char* name;
        std::optional<RegistryData> path, folder;
        bool fileThere;
        std::vector<std::string> started;
        bool message;
    };
    const RegistryData path{RegistryString,
                            Bytes({'C', ':', '\\', 's', 'i', '.', 'e', 'x', 'e', 0})};
    const RegistryData folder{RegistryString, "D:\\tools"};
    const RegistryData tooLong{RegistryNumber, Bytes({0x10, 0x10, 0x10, 0x10, 0x10})};
    const Case cases[] = {
        {"nothing in the registry", std::nullopt, std::nullopt, false, {}, true},
        {"the path comes first", path, folder, true, {"C:\\si.exe"}, false},
        {"the shared tools folder", std::nullopt, folder, true, {"D:\\tools\\MSINFO32.EXE"}, false},
        {"the folder without the program", std::nullopt, folder, false, {}, true},
        {"a value that fails ends quietly", tooLong, folder, true, {}, false},
    };
    for (const Case& c : cases) {
        FakeSystem system;
        if (c.path) system.values[{PathKey, "PATH"}] = *c.path;
        if (c.folder) system.values[{FolderKey, "MSINFO"}] = *c.folder;
        if (c.fileThere) system.files.push_back("D:\\tools\\MSINFO32.EXE");
        test::ScriptedPlatform platform;
        StartSysInfo(system, platform);
        EXPECT_EQ(system.started, c.started) << c.name;
        const std::vector<std::string> expected =
            c.message ? std::vector<std::string>{SysInfoUnavailableText}
                      : std::vector<std::string>{};
        EXPECT_EQ(platform.Messages(), expected) << c.name;
    }
    // A system with no registry always ends at the message.
    NoRegistryLookups noRegistry;
    test::ScriptedPlatform platform;
    StartSysInfo(noRegistry, platform);
    ASSERT_EQ(platform.Calls.size(), 1u);
    EXPECT_EQ(platform.Calls[0].Text, SysInfoUnavailableText);
    EXPECT_EQ(platform.Calls[0].Style, MsgOkOnly);
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
        EXPECT_EQ(HelpFolder("/p/bin", exists), expected);
        EXPECT_EQ(HelpFolder("/p/bin/", exists), expected);
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
    mnuHelpTopics_Click(*s);
    mnuVeritrace_Click(*s);
    OpenHomePage(*s);
    mnuOnlineSupport_Click(*s);
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"ShowHelp", "/nowhere/bin/help/index.html"},
        {"OpenWebPage", "/nowhere/bin/help/web/veritrace.html"},
        {"OpenWebPage", "/nowhere/bin/help/web/home.html"},
        {"OpenWebPage", "/nowhere/bin/help/web/support.html"}};
    ASSERT_EQ(platform.Calls.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(platform.Calls[i].Kind, expected[i].first);
        EXPECT_EQ(platform.Calls[i].Text, expected[i].second);
    }
}

} // namespace vt
