#include "info/SystemInfo.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "base/Platform.h"

namespace vt {

namespace {

constexpr std::size_t ValueBuffer = 1024;

const char* const SysInfoKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const char* const SysInfoValue = "PATH";
const char* const SharedToolsKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
const char* const SharedToolsValue = "MSINFO";
const char* const SysInfoProgram = "\\MSINFO32.EXE";

// A number value is shown the classic way: its bytes from last to first, each in hexadecimal
// without padding, read back as one hexadecimal number ("&h..."). Up to four digits make a
// 16-bit number, up to eight a 32-bit one, both signed; no digits or more than eight is a
// failure. So the bytes 05 01 read as "&h15", that is 21: the missing padding is kept, since it
// is how the look-up has always shown numbers.
std::optional<std::string> NumberValueText(const std::string& bytes) {
    static const char* const digits = "0123456789ABCDEF";
    std::string hex;
    for (auto i = bytes.size(); i-- > 0;) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte >= 16) hex += digits[byte >> 4];
        hex += digits[byte & 15];
    }
    if (hex.empty() || hex.size() > 8) return std::nullopt;
    std::uint32_t bits = 0;
    for (char c : hex)
        bits = bits * 16 + static_cast<std::uint32_t>(c <= '9' ? c - '0' : c - 'A' + 10);
    const std::int64_t number = hex.size() <= 4
                                    ? static_cast<std::int16_t>(static_cast<std::uint16_t>(bits))
                                    : static_cast<std::int32_t>(bits);
    return std::to_string(number);
}

} // namespace

bool NoRegistryLookups::FileExists(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

KeyValue GetKeyValue(SystemLookups& system, RegistryRoot root, const std::string& key,
                     const std::string& value) {
    const std::optional<RegistryData> data = system.ReadRegistry(root, key, value, ValueBuffer);
    if (!data) return {};
    std::string text = data->Bytes.substr(0, ValueBuffer);
    if (!text.empty() && text.back() == '\0') text.pop_back();
    switch (data->Type) {
    case RegistryString:
        return {text, true, false};
    case RegistryNumber:
        if (std::optional<std::string> number = NumberValueText(text))
            return {*number, true, false};
        return {"", false, true};
    default:
        return {"", true, false};
    }
}

void StartSysInfo(SystemLookups& system, Platform& platform) {
    const KeyValue path = GetKeyValue(system, RegistryRoot::LocalMachine, SysInfoKey, SysInfoValue);
    if (path.Failed) return;
    if (path.Found) {
        system.RunProgram(path.Text);
        return;
    }
    const KeyValue folder =
        GetKeyValue(system, RegistryRoot::LocalMachine, SharedToolsKey, SharedToolsValue);
    if (folder.Failed) return;
    if (folder.Found) {
        const std::string program = folder.Text + SysInfoProgram;
        if (system.FileExists(program)) {
            system.RunProgram(program);
            return;
        }
    }
    platform.MsgBox(SysInfoUnavailableText, MsgOkOnly, "");
}

} // namespace vt
