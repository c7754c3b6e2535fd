#pragma once
// Whole-file reads and writes for the graph data file and the bitmap.
//
// A write never leaves a half-written file behind: the bytes go to a temporary file in the same
// folder, are flushed to the disk, and only then is the temporary renamed over the target. A
// failure at any step removes the temporary and leaves an existing file as it was.

#include <cstddef>
#include <string>
#include <string_view>

namespace vt {

// The steps of a write, for reporting and for making one of them fail in the tests.
enum class WriteStep { None, CreateTemporary, Write, Flush, Rename };

struct WriteOptions {
    // The step made to fail as a full disk or a read-only folder would make it fail.
    WriteStep InjectFailureAt = WriteStep::None;
};

struct WriteResult {
    bool Written = false;
    WriteStep FailedAt = WriteStep::None;
    std::string Error; // what the system said, for the companion's messages
};

// Writes bytes as the whole content of path, replacing the file there if there is one. A
// symbolic link is followed, so the file it points to gets the new content. An existing file
// keeps its permissions.
WriteResult WriteFileReplacing(const std::string& path, std::string_view bytes,
                               const WriteOptions& options = {});

// The largest file the reader takes. Graph data files are a few kilobytes; a larger file is not
// one, and reading gigabytes into memory to find that out helps no one.
inline constexpr std::size_t MaxReadBytes = 16u << 20;

// Reads a regular file whole into bytes. False, with bytes empty, when the path is no regular
// file (a folder, a pipe that would never end), cannot be read, or is larger than MaxReadBytes.
bool ReadWholeFile(const std::string& path, std::string& bytes);

} // namespace vt
