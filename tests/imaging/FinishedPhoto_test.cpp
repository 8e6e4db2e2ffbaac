#include <gtest/gtest.h>

#include "imaging/PhotoSize.h"
#include "imaging/ProcessedMarker.h"
#include "imaging/Tones.h"
#include "support/FakeImaging.h"
#include "support/Reason.h"

namespace lumarin {

TEST(PhotoSize, Setting_Unusable_IsRefusedByName) {
    for (const char* setting : {"", "480,300,35", "480,wide,35,35000", "0,300,35,35000", "480,-1,35,35000",
                                "480,99999,35,35000", "99999999999,300,35,35000"})
        EXPECT_TRUE(testing::Says(testing::ReasonOf([&] { ParsePhotoSize(setting); }), "\"Photo Size\""))
            << setting;
}

TEST(ProcessedMarker, Jpeg_OfAnyStart_GetsACommentThatLeavesTheRestWhole) {
    const std::string bare("\xFF\xD8\xFF\xDB\x00\x04\x00\x01\xFF\xD9", 10);
    for (const std::string& jpeg : {testing::FakeImaging::SmallJpeg(), bare}) {
        const std::string marked = WithProcessedMarker(jpeg);
        EXPECT_TRUE(!HasProcessedMarker(jpeg) && HasProcessedMarker(marked));
        const std::size_t comment = marked.find("\xFF\xFE") + 2;
        const std::size_t length = static_cast<unsigned char>(marked.at(comment + 1));
        EXPECT_EQ(marked.substr(0, comment - 2) + marked.substr(comment + length), jpeg);
    }
    EXPECT_THROW(WithProcessedMarker("GIF89a"), ImagingError);
}

TEST(Tones, Changes_GiveTheDocumentedValues) {
    const std::tuple<const char*, int, int, int, int> cases[] = {
        {"brighter, black to the middle", 500, 0, 0, 128},    {"brighter keeps white", 500, 0, 255, 255},
        {"darker, white to the middle", -500, 0, 255, 128},   {"more contrast, dark to black", 0, 500, 60, 0},
        {"more contrast keeps the middle", 0, 500, 128, 129}, {"less contrast", 0, -500, 0, 64},
        {"intensity comes first", 500, 500, 50, 202},
    };
    for (const auto& [name, intensity, contrast, before, after] : cases)
        EXPECT_EQ(MakeToneTable(intensity, contrast)[static_cast<std::size_t>(before)], after) << name;
}

TEST(Tones, Automatic_SpreadsWhatThePictureHas) {
    const std::tuple<const char*, int, int, ToneChange> cases[] = {
        {"dull", 30, 210, {56, 125}},
        {"dark and dull", 20, 120, {150, 150}},
        {"bright and dull", 140, 240, {-150, 150}},
        {"full range", 0, 255, {}},
        {"one colour", 90, 94, {}},
    };
    for (const auto& [name, darkest, brightest, change] : cases) {
        Picture picture{20, 20, {}};
        for (int i = 0; i < 400; ++i)
            picture.pixels.insert(picture.pixels.end(), 3,
                                  static_cast<std::uint8_t>(i % 2 == 0 ? darkest : brightest));
        picture.pixels[0] = picture.pixels[1] = picture.pixels[2] = 255;  // a speck counts for nothing
        EXPECT_EQ(AutomaticTones(picture), change) << name;
    }
    EXPECT_EQ(AutomaticTones({}), ToneChange());
}

}  // namespace lumarin
