#include <gtest/gtest.h>

#include <set>

#include "imaging/FakeImaging.h"
#include "imaging/PhotoSize.h"
#include "imaging/ProcessedMarker.h"
#include "imaging/Tones.h"

namespace lumarin {

TEST(PhotoSize, Setting_UsualOrUnusable_IsReadOrRefused) {
    const PhotoSize size = ParsePhotoSize("480, 300, 35, 35000,not read,Board photo");
    EXPECT_EQ(std::tie(size.TargetWidth, size.TargetHeight, size.JpegQuality, size.MaxFileBytes),
              std::make_tuple(480, 300, 35, 35000));
    EXPECT_EQ(ParsePhotoSize("480,300,35,35000,4").MarkerText + size.MarkerText, "Board photo");
    EXPECT_THROW(ParsePhotoSize("480,300,35"), IndexError);
    for (const char* setting : {"", "480,wide,35,35000", "0,300,35,35000", "480,-1,35,35000",
                                "480,99999,35,35000", "99999999999,300,35,35000"})
        EXPECT_THROW(ParsePhotoSize(setting), Error) << setting;
}

TEST(ProcessedMarker, UsualJpeg_GetsACommentThatLeavesTheRestWhole) {
    const std::string jpeg = testing::FakeImaging::SmallJpeg();
    const std::string marked = WithProcessedMarker(jpeg);
    EXPECT_TRUE(!HasProcessedMarker(jpeg) && HasProcessedMarker(marked));
    EXPECT_EQ(marked, jpeg.substr(0, 20) + std::string("\xFF\xFE\x00\x09lumarin", 11) + jpeg.substr(20));
}

TEST(ProcessedMarker, OtherFiles_GetALongerCommentOrAreRefused) {
    const std::string bare("\xFF\xD8\xFF\xDB\x00\x04\x00\x01\xFF\xD9", 10);
    const std::string marked = WithProcessedMarker(bare);
    EXPECT_TRUE(HasProcessedMarker(marked));
    const auto commentLength = std::size_t{static_cast<unsigned char>(marked[5])};
    EXPECT_EQ(marked.substr(0, 4) + marked.substr(4 + commentLength), "\xFF\xD8\xFF\xFE" + bare.substr(2));
    EXPECT_THROW(WithProcessedMarker("GIF89a"), ImagingError);
}

TEST(Tones, Changes_GiveTheDocumentedValues) {
    const struct {
        const char* name;
        int intensity, contrast, before, after;
    } cases[] = {
        {"brighter, black to the middle", 500, 0, 0, 128},    {"brighter keeps white", 500, 0, 255, 255},
        {"darker, white to the middle", -500, 0, 255, 128},   {"more contrast, dark to black", 0, 500, 60, 0},
        {"more contrast keeps the middle", 0, 500, 128, 129}, {"less contrast", 0, -500, 0, 64},
        {"intensity comes first", 500, 500, 50, 202},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MakeToneTable(c.intensity, c.contrast)[static_cast<std::size_t>(c.before)], c.after)
            << c.name;
}

TEST(Tones, EveryEnd_StillShowsAPicture) {
    for (const int intensity : {-500, 500})
        for (const int contrast : {-500, 500}) {
            const ToneTable table = MakeToneTable(intensity, contrast);
            EXPECT_GE(std::set<int>(table.begin(), table.end()).size(), 60U) << intensity << ", " << contrast;
        }
}

}  // namespace lumarin
