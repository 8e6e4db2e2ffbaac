#include "platform/sane/PageAssembler.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "imaging/Scanner.h"

namespace lumarin {
namespace {

using Bytes = std::vector<SANE_Byte>;

SANE_Parameters Frame(SANE_Frame format, int depth, int width, int lines, int bytesPerLine) {
    return {format, SANE_TRUE, bytesPerLine, width, lines, depth};
}

Bytes Words(std::initializer_list<std::uint16_t> words) {
    Bytes bytes(words.size() * 2);
    std::memcpy(bytes.data(), words.begin(), bytes.size());
    return bytes;
}

struct LineCase {
    const char* name;
    SANE_Parameters frame;
    Bytes line;
    std::vector<std::uint8_t> pixels;
};

class PageAssemblerLine : public testing::TestWithParam<LineCase> {};

TEST_P(PageAssemblerLine, CutAnywhere_GivesRedGreenBlue) {
    const LineCase& given = GetParam();
    for (std::size_t cut = 1; cut <= given.line.size(); ++cut) {
        PageAssembler page;
        page.BeginFrame(given.frame);
        page.Add({given.line.data(), cut});
        page.Add({given.line.data() + cut, given.line.size() - cut});
        EXPECT_EQ(page.Take().pixels, given.pixels) << "cut at " << cut;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, PageAssemblerLine,
    testing::Values(
        LineCase{"Grey8Padded", Frame(SANE_FRAME_GRAY, 8, 2, 1, 4), {7, 200, 1, 1}, {7, 7, 7, 200, 200, 200}},
        LineCase{
            "Grey16", Frame(SANE_FRAME_GRAY, 16, 2, 1, 4), Words({65535, 257 * 9}), {255, 255, 255, 9, 9, 9}},
        LineCase{"InkOfLineArtIsBlack", Frame(SANE_FRAME_GRAY, 1, 2, 1, 1), {0x80}, {0, 0, 0, 255, 255, 255}},
        LineCase{"Colour8", Frame(SANE_FRAME_RGB, 8, 2, 1, 6), {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        LineCase{"Colour16", Frame(SANE_FRAME_RGB, 16, 1, 1, 6), Words({0, 257, 514}), {0, 1, 2}},
        LineCase{
            "Colour1", Frame(SANE_FRAME_RGB, 1, 2, 1, 3), {0x80, 0x40, 0xC0}, {255, 0, 255, 0, 255, 255}}),
    [](const auto& row) { return row.param.name; });

TEST(PageAssembler_EndsBeforeItsAnnouncedLength, KeepsTheWholeLinesThatCame) {
    PageAssembler page;
    page.BeginFrame(Frame(SANE_FRAME_GRAY, 8, 2, 5, 2));
    page.Add(Bytes{1, 2, 3, 4, 5});
    EXPECT_EQ(page.Percent(), 40);
    const Picture picture = page.Take();
    EXPECT_EQ(picture.height, 2);
    EXPECT_EQ(picture.pixels.size(), 12u);
}

struct BadFrame {
    const char* name;
    SANE_Parameters frame;
};

class PageAssemblerBadFrame : public testing::TestWithParam<BadFrame> {};

TEST_P(PageAssemblerBadFrame, IsRefused) {
    EXPECT_THROW(PageAssembler().BeginFrame(GetParam().frame), ScannerError);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, PageAssemblerBadFrame,
    testing::Values(BadFrame{"LineShorterThanItsPixels", Frame(SANE_FRAME_RGB, 8, 10, 1, 29)},
                    BadFrame{"OddDepth", Frame(SANE_FRAME_GRAY, 12, 10, 1, 20)},
                    BadFrame{"UnknownFormat", Frame(static_cast<SANE_Frame>(7), 8, 10, 1, 10)},
                    BadFrame{"NoWidth", Frame(SANE_FRAME_GRAY, 8, 0, 1, 0)},
                    BadFrame{"TooManyPixels", Frame(SANE_FRAME_GRAY, 8, 20000, 20000, 20000)}),
    [](const auto& row) { return row.param.name; });

TEST(PageAssembler_NoLineCame, IsAnError) {
    PageAssembler page;
    page.BeginFrame(Frame(SANE_FRAME_GRAY, 8, 2, -1, 2));
    EXPECT_EQ(page.Percent(), -1);
    EXPECT_THROW(page.Take(), ScannerError);
}

}  // namespace
}  // namespace lumarin
