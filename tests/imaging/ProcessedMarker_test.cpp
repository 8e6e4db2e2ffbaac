#include "imaging/ProcessedMarker.h"

#include <gtest/gtest.h>

#include "imaging/FakeImaging.h"

namespace lumarin {
namespace {

using testing::FakeImaging;

TEST(ProcessedMarker, UsualJpeg_GetsACommentThatLeavesTheRestWhole) {
    const std::string jpeg = FakeImaging::SmallJpeg();
    EXPECT_FALSE(HasProcessedMarker(jpeg));
    const std::string marked = WithProcessedMarker(jpeg);
    EXPECT_TRUE(HasProcessedMarker(marked));
    EXPECT_EQ(marked, jpeg.substr(0, 20) + std::string("\xFF\xFE\x00\x09lumarin", 11) + jpeg.substr(20));
}

TEST(ProcessedMarker, OtherFiles_GetALongerCommentOrAreRefused) {
    const std::string bare("\xFF\xD8\xFF\xDB\x00\x04\x00\x01\xFF\xD9", 10);
    const std::string marked = WithProcessedMarker(bare);
    EXPECT_TRUE(HasProcessedMarker(marked));
    const auto commentLength = static_cast<std::size_t>(marked[5]);
    EXPECT_EQ(marked.substr(0, 4) + marked.substr(4 + commentLength), "\xFF\xD8\xFF\xFE" + bare.substr(2));
    EXPECT_THROW(WithProcessedMarker("GIF89a"), ImagingError);
}

}  // namespace
}  // namespace lumarin
