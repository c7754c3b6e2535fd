#pragma once
// The About window's "System Info..." button: it looks for the system information program in
// the two places the system's registry names, runs it if it is there, and otherwise says that it
// is unavailable. The registry and the running of programs come through SystemLookups, so that
// a system without a registry (Linux) answers "not found" honestly and the logic stays testable.

#include <optional>
#include <string>

namespace vt {

class Platform;

inline constexpr const char* SysInfoUnavailableText =
    "System Information Is Unavailable At This Time";

// The root keys of the registry that the program reads.
enum class RegistryRoot { LocalMachine };

// Value types as the registry stores them.
inline constexpr int RegistryString = 1; // text ending in a zero character
inline constexpr int RegistryNumber = 4; // a 32-bit number, least significant byte first

// A value as read: its type and its raw bytes, as long as the registry says it is.
struct RegistryData {
    int Type = 0;
    std::string Bytes;
};

class SystemLookups {
  public:
    virtual ~SystemLookups() = default;
    // Opens the key, reads the value and closes the key; nothing when the key can't be opened or
    // the value can't be read. A value longer than `bufferSize` bytes can't be read.
    virtual std::optional<RegistryData> ReadRegistry(RegistryRoot root, const std::string& key,
                                                     const std::string& value,
                                                     std::size_t bufferSize) = 0;
    virtual bool FileExists(const std::string& path) = 0;
    // Starts a program in a normal window; false when it can't be started.
    virtual bool RunProgram(const std::string& path) = 0;
};

// A system with no registry: every look-up finds nothing. What the program uses on Linux.
class NoRegistryLookups : public SystemLookups {
  public:
    std::optional<RegistryData> ReadRegistry(RegistryRoot, const std::string&, const std::string&,
                                             std::size_t) override {
        return std::nullopt;
    }
    bool FileExists(const std::string& path) override;
    bool RunProgram(const std::string&) override { return false; }
};

// The outcome of GetKeyValue: the value's text, whether it was found, and whether turning it
// into text failed (a number too long to be one), which ends the caller's work.
struct KeyValue {
    std::string Text;
    bool Found = false;
    bool Failed = false;
};

// Reads one value of the registry as text: a string as it stands (cut at its length, a final
// zero dropped), a number from its bytes, other types as an empty text that counts as found.
KeyValue GetKeyValue(SystemLookups& system, RegistryRoot root, const std::string& key,
                     const std::string& value);

// Runs the system information program if the registry names one that exists; otherwise shows
// "System Information Is Unavailable At This Time" with an OK button.
void StartSysInfo(SystemLookups& system, Platform& platform);

} // namespace vt
