#include "output/SafeFile.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#if __has_include(<unistd.h>)
#include <unistd.h>
#define VERITRACE_HAVE_FSYNC 1
#endif

namespace vt {

namespace fs = std::filesystem;

namespace {

WriteResult Failed(WriteStep step, const std::string& error) {
    return {false, step, error};
}

std::string SystemError(int code) {
    return std::generic_category().message(code);
}

// The file a write really goes to: the end of a chain of symbolic links.
fs::path WriteTarget(const fs::path& path) {
    std::error_code ec;
    if (fs::is_symlink(fs::symlink_status(path, ec))) {
        const fs::path resolved = fs::weakly_canonical(path, ec);
        if (!ec) return resolved;
    }
    return path;
}

// Opens a new temporary file beside target, never one that exists already.
std::FILE* CreateTemporary(const fs::path& target, fs::path& temporary, int& error) {
    static std::atomic<unsigned> counter{0};
    const auto ticks = static_cast<unsigned long long>(
        std::chrono::steady_clock::now().time_since_epoch().count());
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name(".");
        name += target.filename().string();
        name += '.';
        name += std::to_string((ticks + counter++) % 1000000007ull);
        name += ".tmp";
        temporary = target;
        temporary.replace_filename(name);
        // "x": fails rather than opens a file that is already there.
        if (std::FILE* file = std::fopen(temporary.c_str(), "wbx")) return file;
        error = errno;
        if (error != EEXIST) return nullptr;
    }
    return nullptr;
}

} // namespace

WriteResult WriteFileReplacing(const std::string& path, std::string_view bytes,
                               const WriteOptions& options) {
    if (path.empty()) return Failed(WriteStep::CreateTemporary, "no file name");
    const fs::path target = WriteTarget(fs::path(path));
    std::error_code ec;
    if (fs::is_directory(target, ec)) return Failed(WriteStep::CreateTemporary, "is a folder");

    fs::path temporary;
    int error = 0;
    std::FILE* file = options.InjectFailureAt == WriteStep::CreateTemporary
                          ? (error = EROFS, nullptr)
                          : CreateTemporary(target, temporary, error);
    if (file == nullptr) return Failed(WriteStep::CreateTemporary, SystemError(error));

    auto abandon = [&](WriteStep step, int code) {
        if (file != nullptr) std::fclose(file);
        fs::remove(temporary, ec);
        return Failed(step, SystemError(code));
    };

    if (options.InjectFailureAt == WriteStep::Write) {
        // Half the bytes reach the temporary, as when the disk fills up part way.
        std::fwrite(bytes.data(), 1, bytes.size() / 2, file);
        return abandon(WriteStep::Write, ENOSPC);
    }
    if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size())
        return abandon(WriteStep::Write, errno);
    if (options.InjectFailureAt == WriteStep::Flush) return abandon(WriteStep::Flush, EIO);
    if (std::fflush(file) != 0) return abandon(WriteStep::Flush, errno);
#ifdef VERITRACE_HAVE_FSYNC
    if (::fsync(::fileno(file)) != 0) return abandon(WriteStep::Flush, errno);
#endif
    const int closed = std::fclose(file);
    file = nullptr;
    if (closed != 0) return abandon(WriteStep::Flush, errno);

    // The new file takes the old one's permissions, so that saving over a file keeps who may
    // read it.
    const fs::file_status old = fs::status(target, ec);
    if (!ec && fs::is_regular_file(old))
        fs::permissions(temporary, old.permissions(), fs::perm_options::replace, ec);

    if (options.InjectFailureAt == WriteStep::Rename) return abandon(WriteStep::Rename, EACCES);
    fs::rename(temporary, target, ec);
    if (ec) return abandon(WriteStep::Rename, ec.value());
    return {true, WriteStep::None, {}};
}

bool ReadWholeFile(const std::string& path, std::string& bytes) {
    bytes.clear();
    std::error_code ec;
    if (path.empty() || !fs::is_regular_file(fs::path(path), ec)) return false;
    const auto size = fs::file_size(fs::path(path), ec);
    if (ec || size > MaxReadBytes) return false;
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    bytes.resize(static_cast<std::size_t>(size));
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    // A file that shrank while it was read gives what was there.
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    if (in.bad()) {
        bytes.clear();
        return false;
    }
    return true;
}

} // namespace vt
