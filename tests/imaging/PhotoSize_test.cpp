#include "imaging/PhotoSize.h"

#include <gtest/gtest.h>

#include "base/Error.h"

namespace lumarin {
namespace {

TEST(PhotoSize, UsualSetting_HasNoMarker) {
    const PhotoSize size = ParsePhotoSize("480,300,35,35000,4");
    EXPECT_EQ(size.TargetWidth, 480);
    EXPECT_EQ(size.TargetHeight, 300);
    EXPECT_EQ(size.JpegQuality, 35);
    EXPECT_EQ(size.MaxFileBytes, 35000);
    EXPECT_EQ(size.MarkerText, "");
    EXPECT_EQ(ParsePhotoSize("480, 300, 35, 35000,not read,Board photo").MarkerText, "Board photo");
}

TEST(PhotoSize, UnusableSetting_IsRefused) {
    EXPECT_THROW(ParsePhotoSize("480,300,35"), IndexError);
    for (const char* setting : {"", "480,wide,35,35000", "0,300,35,35000", "480,-1,35,35000",
                                "480,99999,35,35000", "99999999999,300,35,35000"})
        EXPECT_THROW(ParsePhotoSize(setting), Error) << setting;
}

}  // namespace
}  // namespace lumarin
