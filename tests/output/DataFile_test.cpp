// The graph data file and the bitmap as bytes, and how they are written: a save replaces the
// file whole or not at all, so a failure at any step, or for a real reason (a folder that cannot
// be written, a disk that fills up, a save killed between its write and its rename), leaves the
// old file byte for byte.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "commands/SaveLoad.h"
#include "output/Bitmap.h"
#include "output/DataFile.h"
#include "output/SafeFile.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

const std::string OldBytes = "x^2BBBBBBBBBB1BB2BBTrueBB2BB\r\n";

std::string Contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A folder of its own for one case, holding the old file, removed at the end; a small file
// system mounted on it when the test may mount one.
struct Folder {
    fs::path dir, target;
    bool mounted = false;

    explicit Folder(const char* name) {
        dir = fs::temp_directory_path() /
              (std::string("vt-safesave-") + name + "-" + std::to_string(::getpid()));
        target = dir / "graph.vtx";
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void WriteOld() { std::ofstream(target, std::ios::binary) << OldBytes; }
    bool MountSmallDisk(const char* size) {
        mounted = ::mount("tmpfs", dir.c_str(), "tmpfs", 0, size) == 0;
        return mounted;
    }
    // The files other than the target: what a failed save left behind.
    int Leftovers() const {
        int n = 0;
        for (const auto& entry : fs::directory_iterator(dir))
            n += entry.path() != target;
        return n;
    }
    ~Folder() {
        if (mounted) ::umount(dir.c_str());
        ::chmod(dir.c_str(), 0700);
        std::error_code ec;
        fs::remove_all(dir, ec);
    }
};

} // namespace

TEST(DataFile, BuildsTheLineAndProposesNames) {
    // The rows and the flags go through a save of a loaded file; here the points' numbers: 15
    // significant digits, the exponent form, no minus on zero.
    EXPECT_EQ(BuildDataText({{}, {{1.0 / 3, -0.0}, {1e20, -0.00001}}, false, "2"}),
              "BBBBBBBBBB0.333333333333333BB0BB1E+20BB-0.00001BBFalseBB2BB");
    EXPECT_EQ(ProposedDataFileName({2024, 3, 7}), "Veritrace 03-07-24");
    EXPECT_EQ(ProposedBitmapFileName({2000, 12, 31}), "GraphBitmap 12-31-00");
}

TEST(DataFile, SplitsAtEverySeparator) {
    using Fields = std::vector<std::string>;
    const std::pair<std::string, Fields> cases[] = {
        // clang-format off
        {"", {}}, {"abc", {"abc"}}, {"BB", {"", ""}}, {"aBB", {"a", ""}}, {"BBB", {"", "B"}},
        {"BBBB", {"", "", ""}}, {"xBBBByBB\r\n", {"x", "", "y", "\r\n"}},
        // clang-format on
        {"2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n",
         {"2x+1", "", "", "", "", "1", "2", "3", "4.5", "False", "3", "\r\n"}},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(SplitFields(text), expected) << text;
}

TEST(Bitmap, EncodesBottomUpWithPaddedRows) {
    // 3 by 2: each row is 9 bytes of pixels and 3 of padding.
    PixelImage picture{3, 2, {0x0000FF, 0x00FF00, 0xFF0000, 0x123456, 0xFFFFFF, 0x000000}};
    const std::string bmp = EncodeBitmap(picture);
    ASSERT_EQ(bmp.size(), 54u + 24u);
    auto u32 = [&bmp](std::size_t at) {
        std::uint32_t v = 0;
        for (int i = 3; i >= 0; --i)
            v = v << 8 | static_cast<unsigned char>(bmp[at + i]);
        return v;
    };
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    // {file size, pixel offset, width, height, bits per pixel, uncompressed}
    EXPECT_EQ(std::tuple(u32(2), u32(10), u32(18), u32(22), u32(28) & 0xFFFF, u32(30)),
              std::tuple(78u, 54u, 3u, 2u, 24u, 0u));
    // The bottom row first, each pixel blue, green, red.
    const std::string bottom("\x12\x34\x56\xFF\xFF\xFF\x00\x00\x00\x00\x00\x00", 12);
    const std::string top("\x00\x00\xFF\x00\xFF\x00\xFF\x00\x00\x00\x00\x00", 12);
    EXPECT_EQ(bmp.substr(54), bottom + top);

    EXPECT_TRUE(EncodeBitmap(PixelImage{}).empty());
    EXPECT_TRUE(EncodeBitmap(PixelImage{2, 2, {1, 2, 3}}).empty());
}

TEST(SafeSave, AReadOnlyFolderOrAFullDiskKeepsTheOldFile) {
    // A disk is mounted only where the test may mount one. Permissions do not stop root: a file
    // system mounted read-only does.
    const bool root = ::geteuid() == 0;
    const char* const ways[] = {"a read-only folder", "a small disk filled up", "the size limit"};
    for (int way = 0; way < 3; ++way) {
        SCOPED_TRACE(ways[way]);
        const bool readOnly = way == 0, smallDisk = way == 1;
        Folder f("full");
        if ((smallDisk || (readOnly && root)) && !f.MountSmallDisk("size=64k")) continue;
        f.WriteOld();
        rlimit old{};
        ::getrlimit(RLIMIT_FSIZE, &old);
        auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        if (readOnly) {
            ASSERT_EQ(
                root ? ::mount("tmpfs", f.dir.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k")
                     : ::chmod(f.dir.c_str(), 0500),
                0);
        } else if (smallDisk) {
            std::ofstream filler(f.dir / "filler", std::ios::binary);
            const std::string block(4096, 'f');
            for (int i = 0; i < 64 && filler.write(block.data(), block.size()); ++i) {
            }
        } else {
            rlimit small = old;
            small.rlim_cur = 64 * 1024;
            ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
        }
        const bool written = WriteGraphDataFile(f.target.string(),
                                                std::string(smallDisk ? 64 << 10 : 200 << 10, '1'));
        ::setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, oldHandler);
        EXPECT_FALSE(written);
        EXPECT_EQ(Contents(f.target), OldBytes);
        EXPECT_EQ(f.Leftovers(), smallDisk ? 1 : 0); // the filler only
    }
}

TEST(SafeSave, SaveKilledBeforeItsRenameKeepsTheOldFile) {
    Folder f("killed");
    f.WriteOld();
    // A child saves a text large enough that its write is still under way when it is killed,
    // as soon as its temporary file has grown.
    const std::string bytes(256u << 20, '1');
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        WriteGraphDataFile(f.target.string(), bytes);
        ::_exit(0);
    }
    bool grown = false;
    for (int i = 0; i < 20000 && !grown; ++i) {
        for (const auto& entry : fs::directory_iterator(f.dir))
            if (entry.path() != f.target && entry.file_size() > 0) grown = true;
        if (!grown) std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(grown);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the save ended before it could be killed";
    EXPECT_EQ(Contents(f.target), OldBytes);
    // The next save replaces the file whatever the killed one left beside it.
    ASSERT_TRUE(WriteGraphDataFile(f.target.string(), "after"));
    EXPECT_EQ(Contents(f.target), "after\r\n");
}

TEST(SafeFile, ReplacesWholeOrNotAtAllAndWritesThroughALink) {
    Folder f("replace");
    const fs::path link = f.dir / "link.vtx";
    ASSERT_TRUE(WriteFileReplacing(f.target.string(), "old contents").Written);
    fs::permissions(f.target, fs::perms::owner_read | fs::perms::owner_write);
    // Each failing step leaves the old file as it was, and no temporary behind.
    for (WriteStep step :
         {WriteStep::CreateTemporary, WriteStep::Write, WriteStep::Flush, WriteStep::Rename}) {
        const WriteResult result = WriteFileReplacing(f.target.string(), "never lands", {step});
        EXPECT_FALSE(result.Written);
        EXPECT_EQ(result.FailedAt, step);
        EXPECT_FALSE(result.Error.empty());
        EXPECT_EQ(Contents(f.target), "old contents");
        EXPECT_EQ(f.Leftovers(), 0);
    }
    ASSERT_TRUE(WriteFileReplacing(f.target.string(), std::string("x\0y", 3)).Written);
    EXPECT_EQ(Contents(f.target), std::string("x\0y", 3));
    EXPECT_EQ(fs::status(f.target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(f.Leftovers(), 0);
    fs::create_symlink(f.target, link);
    ASSERT_TRUE(WriteFileReplacing(link.string(), "two").Written);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Contents(f.target), "two");
}

TEST(SafeFile, RefusesWhatIsNoFile) {
    Folder f("nofile");
    EXPECT_FALSE(WriteFileReplacing((f.dir / "no such folder" / "a.vtx").string(), "x").Written);
    EXPECT_FALSE(WriteFileReplacing(f.dir.string(), "x").Written);
    EXPECT_FALSE(WriteFileReplacing("", "x").Written);
    // A pipe would wait for a writer for ever; an empty file is read as nothing.
    const fs::path fifo = f.dir / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::string bytes = "left over";
    EXPECT_FALSE(ReadWholeFile(fifo.string(), bytes));
    EXPECT_TRUE(bytes.empty());
    bytes = "left over";
    std::ofstream(f.dir / "empty.vtx").flush();
    EXPECT_TRUE(ReadWholeFile((f.dir / "empty.vtx").string(), bytes));
    EXPECT_TRUE(bytes.empty());
}

} // namespace vt
