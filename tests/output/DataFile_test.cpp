#include <gtest/gtest.h>

#include "output/Bitmap.h"
#include "output/DataFile.h"

namespace vt {
namespace {

TEST(DataFile, BuildsTheLine) {
    // The rows and the flags go through a save of a loaded file; here the points' numbers: 15
    // significant digits, the exponent form, no minus on zero.
    EXPECT_EQ(BuildDataText({{}, {{1.0 / 3, -0.0}, {1e20, -0.00001}}, false, "2"}),
              "BBBBBBBBBB0.333333333333333BB0BB1E+20BB-0.00001BBFalseBB2BB");
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

TEST(DataFile, ProposedNames) {
    EXPECT_EQ(ProposedDataFileName({2024, 3, 7}), "Veritrace 03-07-24");
    EXPECT_EQ(ProposedBitmapFileName({2000, 12, 31}), "GraphBitmap 12-31-00");
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

} // namespace
} // namespace vt
