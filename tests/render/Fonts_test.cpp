#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>
#include <set>

#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"

namespace vt::render {

namespace {

using Ink = std::set<std::pair<int, int>>;

// Prints texts one after another, each at its pixel position, on an entry row in OrlentisFont
// 12 (16 px), and returns every pixel drawn.
Ink PrintOnRow(const std::vector<std::tuple<std::string, float, float>>& prints,
               const char* face = "OrlentisFont") {
    vt::test::QtApp();
    RasterSurface s(289, 41);
    s.FontName = face;
    s.FontSize = 12;
    for (const auto& [text, x, y] : prints) {
        s.CurrentX = x;
        s.CurrentY = y;
        s.Print(text, true);
    }
    Ink ink;
    const PixelImage image = s.Image();
    for (int py = 0; py < image.Height; ++py)
        for (int px = 0; px < image.Width; ++px)
            if (image.At(px, py) != 0xFFFFFF) ink.insert({px, py});
    return ink;
}

// Whether the pixels make one piece, touching sideways or at corners.
bool OnePiece(const Ink& ink) {
    if (ink.empty()) return false;
    Ink reached{*ink.begin()};
    std::vector<std::pair<int, int>> pending{*ink.begin()};
    while (!pending.empty()) {
        const auto [x, y] = pending.back();
        pending.pop_back();
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (ink.count({x + dx, y + dy}) && reached.insert({x + dx, y + dy}).second)
                    pending.push_back({x + dx, y + dy});
    }
    return reached.size() == ink.size();
}

} // namespace

TEST(BundledFonts, StandForTheFacesTheProgramNames) {
    vt::test::QtApp();
    LoadBundledFonts();
    // {face as the program names it, bold, the bundled family that must draw it}
    // clang-format off
    const std::tuple<const char*, bool, const char*> cases[] = {
        {"OrlentisFont", false, "OrlentisFont"}, {"ms sans serif", false, "Veritrace Sans"},
        {"Courier", true, "Veritrace Mono"}, {"Courier", false, "Veritrace Mono"},
        {"Book Antiqua", false, "Veritrace Serif"}};
    // clang-format on
    for (auto [name, bold, family] : cases) {
        EXPECT_TRUE(QFontDatabase::families().contains(QString::fromLatin1(family)));
        const QFontInfo info(FontFor(name, 12, bold));
        EXPECT_EQ(info.family().toStdString(), family) << name;
        EXPECT_EQ(info.bold(), bold) << name;
    }
    // Points at 96 dots per inch, whole pixels.
    for (auto [points, pixels] : {std::pair{12.0f, 16}, {8.25f, 11}, {16.0f, 21}, {0.0f, 1}})
        EXPECT_EQ(FontFor("Courier", points).pixelSize(), pixels) << points;
}

TEST(OrlentisFont, DrawsItsEquationGlyphsAndOtherwiseTheBaseFont) {
    // "Book Antiqua" stands in as the unchanged serif that the equation font is made from.
    const std::pair<const char*, bool> cases[] = {{"~", true}, {"&", true},  {"_", true},
                                                  {"`", true}, {"x", false}, {"(", false}};
    for (auto [text, own] : cases) {
        const Ink equation = PrintOnRow({{text, 10, 10}});
        EXPECT_FALSE(equation.empty()) << text;
        EXPECT_EQ(equation != PrintOnRow({{text, 10, 10}}, "Book Antiqua"), own) << text;
    }
}

TEST(OrlentisFont, PiecesJoinAtTheTypesettersOffsets) {
    // A root whose text starts at (30, 11): overbar of rules 18 higher from 36; the plain sign
    // 2 left and 2 up; the tall sign ("&" 9 up and 2 right, then "~" 16 lower at the pen less
    // 14) under an overbar 25 higher. The rule is 0.5 em, "&" 0.625 em: 8 and 10 px.
    const Ink bar = PrintOnRow({{"_", 36, -7}, {"_", 44, -7}, {"_", 52, -7}});
    EXPECT_TRUE(OnePiece(bar));
    EXPECT_EQ(bar.size(), 24u);
    EXPECT_TRUE(OnePiece(PrintOnRow({{"_", 36, -7}, {"_", 44, -7}, {"~", 28, 9}})));
    const Ink tall = PrintOnRow({{"_", 36, -14}, {"_", 44, -14}, {"&", 32, 2}, {"~", 28, 18}});
    EXPECT_TRUE(OnePiece(tall));
    const auto [top, bottom] = std::minmax_element(
        tall.begin(), tall.end(), [](auto a, auto b) { return a.second < b.second; });
    EXPECT_LE(top->second, 6);
    EXPECT_GE(bottom->second, 11 + 19); // down to the text line under the fraction

    // At 12 pt a space is 5 px: the typesetter pads a fraction's narrower side with one space
    // for each 10 px of difference, so half of it stands on either side.
    RasterSurface row(289, 41);
    row.FontName = "OrlentisFont";
    row.FontSize = 12;
    EXPECT_EQ(std::tuple(row.TextWidth(" "), row.TextWidth("_"), row.TextWidth("&")),
              std::tuple(5.0f, 8.0f, 10.0f));
}

} // namespace vt::render
