#include "platform/sane/PageAssembler.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "imaging/Scanner.h"

namespace lumarin::sane {
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

TEST(PageAssembler, Line_OfEachKindCutAnywhere_GivesRedGreenBlue) {
    const struct {
        const char* name;
        SANE_Parameters frame;
        Bytes line;
        std::vector<std::uint8_t> pixels;
    } cases[] = {
        {"grey 8 padded", Frame(SANE_FRAME_GRAY, 8, 2, 1, 4), {7, 200, 1, 1}, {7, 7, 7, 200, 200, 200}},
        {"grey 16", Frame(SANE_FRAME_GRAY, 16, 2, 1, 4), Words({65535, 257 * 9}), {255, 255, 255, 9, 9, 9}},
        {"ink of line art is black", Frame(SANE_FRAME_GRAY, 1, 2, 1, 1), {0x80}, {0, 0, 0, 255, 255, 255}},
        {"colour 8", Frame(SANE_FRAME_RGB, 8, 2, 1, 6), {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        {"colour 16", Frame(SANE_FRAME_RGB, 16, 1, 1, 6), Words({0, 257, 514}), {0, 1, 2}},
        {"colour 1", Frame(SANE_FRAME_RGB, 1, 2, 1, 3), {0x80, 0x40, 0xC0}, {255, 0, 255, 0, 255, 255}},
    };
    for (const auto& given : cases)
        for (std::size_t cut = 1; cut <= given.line.size(); ++cut) {
            PageAssembler page;
            page.BeginFrame(given.frame);
            page.Add({given.line.data(), cut});
            page.Add({given.line.data() + cut, given.line.size() - cut});
            EXPECT_EQ(page.Take().pixels, given.pixels) << given.name << " cut at " << cut;
        }
}

TEST(PageAssembler, FrameEndsEarly_KeepsTheWholeLinesThatCame) {
    PageAssembler page;
    page.BeginFrame(Frame(SANE_FRAME_GRAY, 8, 2, 5, 2));
    page.Add(Bytes{1, 2, 3, 4, 5});
    EXPECT_EQ(page.Percent(), 40);
    const Picture picture = page.Take();
    EXPECT_EQ(picture.height, 2);
    EXPECT_EQ(picture.pixels.size(), 12u);

    PageAssembler empty;
    empty.BeginFrame(Frame(SANE_FRAME_GRAY, 8, 2, -1, 2));
    EXPECT_EQ(empty.Percent(), -1);
    EXPECT_THROW(empty.Take(), ScannerError);
}

TEST(PageAssembler, BadFrame_IsRefused) {
    const std::pair<const char*, SANE_Parameters> cases[] = {
        {"line shorter than its pixels", Frame(SANE_FRAME_RGB, 8, 10, 1, 29)},
        {"odd depth", Frame(SANE_FRAME_GRAY, 12, 10, 1, 20)},
        {"too many pixels", Frame(SANE_FRAME_GRAY, 8, 20000, 20000, 20000)},
    };
    for (const auto& [name, frame] : cases)
        EXPECT_THROW(PageAssembler().BeginFrame(frame), ScannerError) << name;
}

}  // namespace
}  // namespace lumarin::sane
