#include "platform/windows/PictureCodec.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "imaging/Imaging.h"
#include "support/Reason.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

namespace {

/// Two pixels, red and blue, in a file that every system has a codec for.
const std::string Bitmap(
    "BM\x3E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\x08\0\0\0"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xFF\xFF\0\0\0\0",
    62);
const std::string Heic(
    "\0\0\0\x18"
    "ftypheic\0\0\0\0mif1heic\0\0\0\0",
    28);

}  // namespace

TEST(PictureCodec, DecodeHeic_CodecThereDamagedOrMissing_IsThePictureOrSaysWhatIsMissing) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Path() + "中é.heic";
    files::WriteWhole(file, Bitmap);
    const PicturePtr picture = windows::DecodeHeic(file);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->pixels, (std::vector<std::uint8_t>{255, 0, 0, 0, 0, 255}));
    const std::pair<std::string, const char*> cases[] = {
        {Heic, "HEIF Image Extensions"}, {Bitmap.substr(0, 20), "The selected file is not a valid photo."}};
    for (const auto& [bytes, text] : cases) {
        files::WriteWhole(file, bytes);
        const std::string reason = testing::ReasonOf([&] { windows::DecodeHeic(file); });
        EXPECT_TRUE(testing::Says(reason, text)) << reason;
    }
}

}  // namespace lumarin
