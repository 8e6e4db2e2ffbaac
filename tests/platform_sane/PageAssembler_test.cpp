#include "platform/sane/PageAssembler.h"

#include <gtest/gtest.h>

#include <string>

#include "imaging/Scanner.h"

namespace lumarin::sane {

using Bytes = std::vector<SANE_Byte>;

SANE_Parameters Frame(SANE_Frame format, int depth, int width, int lines, int bytesPerLine) {
    return {format, SANE_TRUE, bytesPerLine, width, lines, depth};
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

}  // namespace lumarin::sane
