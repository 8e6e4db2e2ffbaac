#include "host/server/PackageReader.h"

#include "host/server/Jpeg.h"
#include "host/server/Refusal.h"
#include "host_server/PackageBuilder.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(ReadManifest, EveryCutOfAWholeOne_IsRefused) {
    const std::string whole = ManifestBytes(77, {{"2110", ""}, {"2111", "z"}});
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THROW(ReadManifest(std::string_view(whole).substr(0, length)), Refusal) << length;

    const Manifest manifest = ReadManifest(whole + "old bytes of a longer state");
    ASSERT_EQ(manifest.photos.size(), 2U);
    EXPECT_EQ(manifest.photos[0].published, ManifestPhoto::NoneYet);
    EXPECT_EQ(manifest.photos[1].published, 25);
    EXPECT_EQ(manifest.photos[1].code, "2111");
}

TEST(PackageReader, CompressedPackage_IsReadLikeAStoredOne) {
    const std::string bytes =
        PackageBuilder().Listing(9, {{"1", ""}}).Entry("9a.jpg", TinyJpeg(3000)).Bytes(true);
    ASSERT_LT(bytes.size(), 2000U);
    const PackageReader package = PackageReader::FromBytes(bytes);
    EXPECT_EQ(package.Manifests().at(0).listing, 9);
    EXPECT_EQ(package.ReadPhoto(9, 0), TinyJpeg(3000));
}

TEST(IsWholeJpeg, MarkersDecide) {
    const std::string jpeg = TinyJpeg(60);
    EXPECT_TRUE(IsWholeJpeg(jpeg));
    EXPECT_TRUE(IsWholeJpeg(jpeg + "what a camera adds"));
    EXPECT_FALSE(IsWholeJpeg(jpeg.substr(0, 59)));
    EXPECT_FALSE(IsWholeJpeg(jpeg.substr(1)));
    EXPECT_FALSE(IsWholeJpeg("\xFF\xD8\xFF\xD9")) << "no picture between";
    EXPECT_FALSE(IsWholeJpeg(std::string("\xFF\xD8\xFF\xE1\xFF\xFF\xFF\xD9", 8)))
        << "a segment longer than the file";
    const std::string thumbnailOnly =
        std::string("\xFF\xD8\xFF\xE1\x00\x06\xFF\xD8\xFF\xD9", 10) + jpeg.substr(2, 20);
    EXPECT_FALSE(IsWholeJpeg(thumbnailOnly)) << "the end within a segment does not count";
}

}  // namespace
}  // namespace host
