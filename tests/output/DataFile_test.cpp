#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "output/Bitmap.h"
#include "output/DataFile.h"
#include "output/SafeFile.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

TEST(DataFile, BuildsTheLine) {
    // The rows and the flags go through a save of a loaded file; here the points' numbers: 15
    // significant digits, the exponent form, no minus on zero.
    EXPECT_EQ(BuildDataText({{}, {{1.0 / 3, -0.0}, {1e20, -0.00001}}, false, "2"}),
              "BBBBBBBBBB0.333333333333333BB0BB1E+20BB-0.00001BBFalseBB2BB");
}

TEST(DataFile, SplitsAtEverySeparator) {
    using Fields = std::vector<std::string>;
    struct Case {
        std::string text;
        Fields expected;
    } cases[] = {
        // clang-format off
        {"", {}}, {"abc", {"abc"}}, {"BB", {"", ""}}, {"aBB", {"a", ""}}, {"BBB", {"", "B"}},
        {"BBBB", {"", "", ""}}, {"xBBBByBB\r\n", {"x", "", "y", "\r\n"}},
        // clang-format on
        {"2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n",
         {"2x+1", "", "", "", "", "1", "2", "3", "4.5", "False", "3", "\r\n"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SplitFields(c.text), c.expected) << c.text;
}

TEST(DataFile, ProposedNames) {
    EXPECT_EQ(ProposedDataFileName({2024, 3, 7}), "Veritrace 03-07-24");
    EXPECT_EQ(ProposedBitmapFileName({2000, 12, 31}), "GraphBitmap 12-31-00");
    const CalendarDate today = Today();
    EXPECT_GE(today.Year, 2024);
    EXPECT_EQ(FileNameDate(today).size(), 8u);
}

class SafeFileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = fs::temp_directory_path() /
              ("vt-safefile-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    std::string Read(const fs::path& path) {
        std::string bytes;
        EXPECT_TRUE(ReadWholeFile(path.string(), bytes));
        return bytes;
    }
    int Entries() { return static_cast<int>(std::distance(fs::directory_iterator(dir), {})); }
    fs::path dir;
};

TEST_F(SafeFileTest, ReplacesWholeOrNotAtAll) {
    const fs::path target = dir / "a.vtx";
    ASSERT_TRUE(WriteFileReplacing(target.string(), "old contents").Written);
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);

    // Each failing step leaves the old file as it was, and no temporary behind.
    for (WriteStep step :
         {WriteStep::CreateTemporary, WriteStep::Write, WriteStep::Flush, WriteStep::Rename}) {
        const WriteResult result =
            WriteFileReplacing(target.string(), "new contents that never land", {step});
        EXPECT_FALSE(result.Written);
        EXPECT_EQ(result.FailedAt, step);
        EXPECT_FALSE(result.Error.empty());
        EXPECT_EQ(Read(target), "old contents");
        EXPECT_EQ(Entries(), 1);
    }

    ASSERT_TRUE(WriteFileReplacing(target.string(), std::string("x\0y", 3)).Written);
    EXPECT_EQ(Read(target), std::string("x\0y", 3));
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(SafeFileTest, WritesThroughALink) {
    const fs::path real = dir / "real.vtx";
    const fs::path link = dir / "link.vtx";
    ASSERT_TRUE(WriteFileReplacing(real.string(), "one").Written);
    fs::create_symlink(real, link);
    ASSERT_TRUE(WriteFileReplacing(link.string(), "two").Written);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Read(real), "two");
}

TEST_F(SafeFileTest, RefusesWhatIsNoFile) {
    std::string bytes = "left over";
    const fs::path missingFolder = dir / "no such folder" / "a.vtx";
    EXPECT_FALSE(WriteFileReplacing(missingFolder.string(), "x").Written);
    EXPECT_FALSE(WriteFileReplacing(dir.string(), "x").Written);
    EXPECT_FALSE(WriteFileReplacing("", "x").Written);
    EXPECT_FALSE(ReadWholeFile(dir.string(), bytes));
    EXPECT_TRUE(bytes.empty());
    EXPECT_FALSE(ReadWholeFile((dir / "missing.vtx").string(), bytes));
    const fs::path fifo = dir / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_FALSE(ReadWholeFile(fifo.string(), bytes)); // would wait for a writer for ever
    const fs::path big = dir / "big.vtx";
    std::ofstream(big).put('x');
    fs::resize_file(big, MaxReadBytes + 1);
    EXPECT_FALSE(ReadWholeFile(big.string(), bytes));
    fs::resize_file(big, 0);
    EXPECT_TRUE(ReadWholeFile(big.string(), bytes));
    EXPECT_TRUE(bytes.empty());
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
    EXPECT_EQ(u32(2), bmp.size());
    EXPECT_EQ(u32(10), 54u);
    EXPECT_EQ(u32(18), 3u);
    EXPECT_EQ(u32(22), 2u);
    EXPECT_EQ(u32(28) & 0xFFFF, 24u);
    EXPECT_EQ(u32(30), 0u); // uncompressed
    // The bottom row first, each pixel blue, green, red.
    const std::string bottom("\x12\x34\x56\xFF\xFF\xFF\x00\x00\x00\x00\x00\x00", 12);
    const std::string top("\x00\x00\xFF\x00\xFF\x00\xFF\x00\x00\x00\x00\x00", 12);
    EXPECT_EQ(bmp.substr(54, 12), bottom);
    EXPECT_EQ(bmp.substr(66, 12), top);

    EXPECT_TRUE(EncodeBitmap(PixelImage{}).empty());
    EXPECT_TRUE(EncodeBitmap(PixelImage{2, 2, {1, 2, 3}}).empty());
}

} // namespace
} // namespace vt
